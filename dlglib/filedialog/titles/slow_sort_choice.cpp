#include "dlglib/filedialog/titles/slow_sort_choice.h"

#include "dlglib/filedialog/titles/leading_number.h"

namespace filedialog {

namespace {

constexpr std::size_t kAlwaysButton = 0;
constexpr std::size_t kNeverButton = 1;
constexpr std::size_t kAskButton = 2;

std::size_t ButtonOf(SlowSort mode) {
  switch (mode) {
    case SlowSort::Always:
      return kAlwaysButton;
    case SlowSort::NeverBeyondLimit:
      return kNeverButton;
    default:
      return kAskButton;
  }
}

OptionStates OnlyChecked(std::size_t button) {
  OptionStates states;
  states.fill(kOptionUnchecked);
  states.at(button) = kOptionChecked;
  return states;
}

}  // namespace

OptionStates StatesOf(SlowSort mode) { return OnlyChecked(ButtonOf(mode)); }

SlowSort ModeOf(const OptionStates& states) {
  if (states[kAlwaysButton] == kOptionChecked) return SlowSort::Always;
  return states[kNeverButton] == kOptionChecked ? SlowSort::NeverBeyondLimit : SlowSort::AskBeyondLimit;
}

OptionStates StatesAfterClick(const OptionStates& states, std::size_t clicked) {
  return states.at(clicked) == kOptionChecked ? OnlyChecked(clicked) : states;
}

std::string LimitText(int limit) { return std::to_string(limit); }

int LimitOf(std::string_view typed) { return LeadingNumber(typed); }

std::string BeyondLimitText(int limit) { return "モデルの数が制限 " + std::to_string(limit) + " を超えました。"; }

}  // namespace filedialog
