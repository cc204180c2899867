#include "dlglib/filedialog/titles/title_slots.h"

#include <algorithm>

#include "dlglib/base/shift_jis.h"
#include "dlglib/base/stored_text.h"
#include "dlglib/filedialog/basics/model_titles.h"
#include "dlglib/filedialog/titles/leading_number.h"
#include "platform/suite/crvnmdl.h"

namespace filedialog {

namespace {

constexpr int kLastOrdinaryTitle = 200;
constexpr std::array kFurtherTitles = {201, 203, 204, 205, 206, 207};
constexpr std::size_t kNumberWidth = 5;
constexpr std::size_t kTitleEntryLimit = 512;

const CwModelTitle* FindOfferedTitle(CwModel* model, int number) {
  const CwModelTitle* const title = FindTitle(model, number);
  return title != nullptr && title->GetKindCode() != kUnofferedKind ? title : nullptr;
}

void AddChoice(CwModel* model, int number, std::vector<TitleChoice>* choices) {
  const CwModelTitle* const title = FindOfferedTitle(model, number);
  if (title == nullptr) return;
  const EucText stored((NumberText(number) + " : ").append(NameOf(*title).bytes()));
  choices->push_back({number, stored_text::ToScreen(stored, kTitleEntryLimit).bytes()});
}

std::span<const TitleSlot> UsedSlots(const TitleSlots& slots) {
  return std::span(slots.slots).first(std::min(slots.count, kMaxTitleSlots));
}

}  // namespace

void SetSlots(std::span<const std::uint16_t> numbers, std::span<const std::string> texts, int count,
              TitleSlots* slots) {
  const auto given = static_cast<std::size_t>(std::max(count, 0));
  slots->count = std::min({given, kMaxTitleSlots, numbers.size()});
  for (std::size_t i = 0; i < slots->count; ++i) {
    const std::string_view text = i < texts.size() ? std::string_view(texts[i]) : std::string_view();
    slots->slots[i] = {numbers[i], std::string(shift_jis::Truncate(text, kSlotTextLimit))};
  }
}

ChosenTitles ChosenTitlesOf(const TitleSlots& slots) {
  ChosenTitles chosen;
  std::size_t packed = 0;
  std::size_t place = 0;
  for (const TitleSlot& slot : UsedSlots(slots)) {
    if (slot.number != 0) {
      chosen.numbers[packed++] = slot.number;
      chosen.texts[place] = slot.text;
    }
    ++place;
  }
  if (packed == 0) chosen.numbers[packed++] = kDefaultTitleItem;
  chosen.count = static_cast<int>(packed);
  return chosen;
}

TitleSlots SlotsOf(const TitleColumns& columns) {
  std::array<std::uint16_t, kTitleSlots> numbers = {};
  for (std::size_t i = 0; i < kTitleSlots && static_cast<int>(i) < columns.count; ++i) {
    numbers[i] = static_cast<std::uint16_t>(columns.items[i]);
  }
  TitleSlots slots;
  SetSlots(numbers, columns.texts, static_cast<int>(kTitleRows), &slots);
  return slots;
}

TitleColumns TitleColumnsOf(const TitleSlots& slots) {
  const ChosenTitles chosen = ChosenTitlesOf(slots);
  TitleColumns columns;
  columns.count = std::min(chosen.count, static_cast<int>(kTitleSlots));
  for (std::size_t i = 0; i < kTitleSlots; ++i) {
    columns.items[i] = static_cast<std::int16_t>(chosen.numbers[i]);
    columns.texts[i] = chosen.texts[i];
  }
  return columns;
}

std::string NumberText(int number) {
  const std::string digits = std::to_string(number);
  return std::string(kNumberWidth - std::min(digits.size(), kNumberWidth), ' ') + digits;
}

std::string TitleName(CwModel* model, int number) { return ShownTitleName(model, number).value_or(SjisText()).bytes(); }

std::string AnnotationOfChoice(CwModel* model, int number) {
  const bool offered = number >= 1 && FindOfferedTitle(model, number) != nullptr;
  return offered ? CutAnnotation(TitleName(model, number)) : std::string();
}

std::string ShownAnnotation(CwModel* model, const TitleSlot& slot) {
  return slot.text.empty() ? TitleName(model, slot.number) : slot.text;
}

std::string CutAnnotation(std::string_view text) {
  return std::string(text.size() > kAnnotationLimit ? shift_jis::Truncate(text, kAnnotationLimit) : text);
}

std::vector<TitleChoice> TitleChoices(CwModel* model) {
  std::vector<TitleChoice> choices = {{0, NumberText(0) + " : 取消"}};
  for (const int number : kFurtherTitles) AddChoice(model, number, &choices);
  for (int number = 1; number <= kLastOrdinaryTitle; ++number) AddChoice(model, number, &choices);
  return choices;
}

bool IsChosen(std::span<const std::string> numberCells, int number) {
  return number >= 1 && std::any_of(numberCells.begin(), numberCells.end(),
                                    [number](const std::string& cell) { return LeadingNumber(cell) == number; });
}

std::uint16_t NumberOfCell(std::string_view cell) { return static_cast<std::uint16_t>(LeadingNumber(cell)); }

bool HasTitle(const TitleSlots& slots) {
  const std::span<const TitleSlot> used = UsedSlots(slots);
  return std::any_of(used.begin(), used.end(), [](const TitleSlot& slot) { return slot.number != 0; });
}

}  // namespace filedialog
