// What a paste will do, found out before anything is changed: a block of text is checked cell by cell, and either all
// of it can be stored or nothing is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/listcontrol/clipboard_text.h"
#include "dlglib/listcontrol/editable_cells.h"
#include "dlglib/listcontrol/letter_case.h"
#include "dlglib/listcontrol/typed_text.h"

namespace grid {

/// What a column takes.
struct PasteColumn {
  std::string title;  ///< names the column in a refusal; its number does when it is empty
  int boxLimit = 0;   ///< bytes that its box takes; of a column with a box
  LetterCase letterCase = LetterCase::AsTyped;
  BoxModes modes = kModesAtFirst;  ///< for what is pasted as for what is typed
  /// Of a column with a list of the grid's and no box: its entries as they stand in the list. Others need none.
  std::vector<std::string> entries;
};

/// All that a plan asks about columns. Borrows everything.
struct PasteRules {
  EditableCells cells;
  std::span<const PasteColumn> columns;  ///< one for each column of the model
  int comboSeparator = ' ';
};

/// What becomes of rows behind the last one in use.
enum class PasteRows { Refused, Added };

struct PasteTarget {
  int row = 0;  ///< where the block's first cell goes
  int column = 0;
  PasteRows rows = PasteRows::Refused;
};

enum class RefusalReason {
  NotAvailable,
  NoColumn,
  NoRow,
  NoEditor,
  TooLong,
  HalfWidthKatakana,
  LackingCharacter,
  NotInList,
  NotAccepted,  ///< by the caller's check
};

struct Refusal {
  RefusalReason reason = RefusalReason::NotAvailable;
  CellPosition cell;
  int limit = 0;           ///< bytes; of a text that is too long
  char32_t lacking = 0;    ///< of a lacking character
  std::string title = {};  ///< of the column; its number stands for an empty one

  /// One line for the message zone: row and column from 1, and why.
  [[nodiscard]] std::string Message() const;
};

/// A text that goes into a cell.
struct PasteCell {
  int row = 0;
  std::uint16_t column = 0;
  std::uint16_t size = 0;
  std::size_t at = 0;  ///< of the plan's texts
};

/// The caller's own check, as CvListControl::SetPasteCheck has it: 0 refuses.
using PasteCheck = int (*)(void* context, int row, int column, const char* text);

class PastePlan {
 public:
  /// Row by row, and in a row from left to right.
  [[nodiscard]] std::span<const PasteCell> Cells() const noexcept { return cells_; }
  /// Closed with a terminator.
  [[nodiscard]] std::string_view TextOf(const PasteCell& cell) const noexcept {
    return std::string_view(texts_).substr(cell.at, cell.size);
  }
  /// How many rows are to be added at the end first.
  [[nodiscard]] int AddedRows() const noexcept { return addedRows_; }
  /// Whether the grid has the size for which the plan was made.
  [[nodiscard]] bool Fits(const GridModel& model) const noexcept;
  [[nodiscard]] const std::optional<Refusal>& Refused() const noexcept { return refusal_; }

  /// Asks the caller's check about each cell until it refuses one. Touches nothing but the plan, so the check may do
  /// whatever it likes, even destroy the grid. Nothing for a plan that is refused already or a null check.
  void Ask(PasteCheck check, void* context);

 private:
  friend class PastePlanner;

  std::vector<PasteCell> cells_;
  std::string texts_;
  std::vector<std::string> titles_;
  int addedRows_ = 0;
  int usedRows_ = 0;
  int capacity_ = 0;
  std::optional<Refusal> refusal_;
};

/// Plans to store the block of text from the target on.
///
/// A row of the block that has fewer cells leaves the others as they are. A block as wide as all columns at column 0 is
/// one of rows: what is not typed (row numbers, colours, columns without an editor) uses up its field and is left
/// alone. A single value while several rows are selected goes into the target's column of each of them. Texts become
/// what typing would have made of them: folded, and without the blanks at their end. The first cell that cannot take
/// its text refuses all of it.
[[nodiscard]] PastePlan PlanPaste(const PasteRules& rules, const ClipboardText& text, PasteTarget target);

}  // namespace grid
