// The model titles that are shown as columns, while the user chooses them: slots, the titles to choose from, and what
// is taken back.
//
// Texts are Shift_JIS. Titles are those of a model, which may be null; without one no title exists.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/title_columns.h"

class CwModel;

namespace filedialog {

inline constexpr std::size_t kMaxTitleSlots = 10;       ///< slots there is room for
inline constexpr std::size_t kTitleRows = 4;            ///< the first slots, which the dialog shows
inline constexpr std::size_t kAnnotationLimit = 32;     ///< bytes of an annotation as the user may set it
inline constexpr std::size_t kSlotTextLimit = 63;       ///< bytes of an annotation as it may come from outside
inline constexpr std::uint16_t kUnofferedKind = 30001;  ///< titles of this kind cannot be chosen

/// One column: a title's number, 0 for none, and its annotation.
struct TitleSlot {
  std::uint16_t number = 0;
  std::string text;

  friend bool operator==(const TitleSlot&, const TitleSlot&) = default;
};

/// All columns. Only the first `count` slots are filled, searched for duplicates and taken back.
struct TitleSlots {
  std::array<TitleSlot, kMaxTitleSlots> slots = {{{kDefaultTitleItem, {}}, {1, {}}}};
  std::size_t count = kTitleRows;
};

/// Puts the first `count` titles into the slots; the slots behind keep what they hold. A count outside 0 to
/// kMaxTitleSlots counts as its nearest end, and so does one beyond the end of the numbers. A missing text is empty;
/// a text is cut at kSlotTextLimit bytes between two characters.
void SetSlots(std::span<const std::uint16_t> numbers, std::span<const std::string> texts, int count, TitleSlots* slots);

/// What the dialog of the title items answers.
struct ChosenTitles {
  int count = 0;  ///< numbers that are in use
  std::array<std::uint16_t, kMaxTitleSlots> numbers = {};
  std::array<std::string, kMaxTitleSlots> texts;
};

/// The numbers of the slots that have one, packed, and their texts, each at its slot's own place: number k belongs to
/// text k only when no empty slot comes before it. Callers store both arrays as they are. Without any number it is the
/// default title.
[[nodiscard]] ChosenTitles ChosenTitlesOf(const TitleSlots& slots);

/// The browser's title columns as slots, always kTitleRows of them, and back: new items and texts, no widths.
[[nodiscard]] TitleSlots SlotsOf(const TitleColumns& columns);
[[nodiscard]] TitleColumns TitleColumnsOf(const TitleSlots& slots);

// ---------------------------------------------------------------------------------------------------------------------
// titles

/// A number as it stands in a cell and at the start of an entry: right-aligned in five places.
[[nodiscard]] std::string NumberText(int number);

/// The name of any title that exists, at most 256 bytes; else an empty text.
[[nodiscard]] std::string TitleName(CwModel* model, int number);

/// The annotation of a title that has just been chosen: its name as an annotation, empty for a title that cannot be
/// chosen (any more).
[[nodiscard]] std::string AnnotationOfChoice(CwModel* model, int number);

/// The annotation that a row shows at first: its own, else the title's name.
[[nodiscard]] std::string ShownAnnotation(CwModel* model, const TitleSlot& slot);

/// An annotation cut at kAnnotationLimit bytes, between two characters. One that is not longer stays byte for byte.
[[nodiscard]] std::string CutAnnotation(std::string_view text);

/// An entry of the list of titles.
struct TitleChoice {
  int number = 0;
  std::string text;  ///< "%5d : name", at most 512 bytes; metacharacters as escapes
};

/// What can be chosen, in the order of the list: none, the further titles, the ordinary titles.
[[nodiscard]] std::vector<TitleChoice> TitleChoices(CwModel* model);

/// Whether one of the cells holds the number of a title already. 0, which takes a title away, may be chosen again.
[[nodiscard]] bool IsChosen(std::span<const std::string> numberCells, int number);

/// The number that a cell holds.
[[nodiscard]] std::uint16_t NumberOfCell(std::string_view cell);

/// Whether any of the first `count` slots has a number.
[[nodiscard]] bool HasTitle(const TitleSlots& slots);

}  // namespace filedialog
