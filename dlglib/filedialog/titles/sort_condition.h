// Whether many models are sorted by a title: the condition and its limit, as the user sets them and as he is asked.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace filedialog {

/// kSortAlways, kSortNeverBeyondLimit or any other number, which asks; and the models beyond which the condition holds.
struct SortCondition {
  int mode = 0;
  int limit = 0;
};

/// The two settings where their owner keeps them: the dialogs read them at the moment they show them and store what the
/// user sets at once. Borrowed; they must outlive the dialog.
struct SortSettings {
  std::int32_t& mode;
  std::int32_t& limit;
};

inline constexpr int kLeastModelLimit = 10;

/// The states of the option buttons for "always", "never beyond the limit" and "ask beyond the limit". Each button is a
/// group of its own, in which 0 is the number of the checked button.
using OptionStates = std::array<int, 3>;
inline constexpr int kOptionChecked = 0;
inline constexpr int kOptionUnchecked = -1;

/// The states that show a mode: exactly one button is checked.
[[nodiscard]] OptionStates StatesOf(int mode);

/// The mode that the states mean: the first of the two upper buttons that is checked, else "ask".
[[nodiscard]] int ModeOf(const OptionStates& states);

/// The states after a click: the other two buttons are unchecked. A button that is not checked itself was not clicked
/// but only reached by the keyboard, which some systems tell in the same way; then nothing changes.
[[nodiscard]] OptionStates StatesAfterClick(const OptionStates& states, std::size_t clicked);

/// The limit as the dialog shows it.
[[nodiscard]] std::string LimitText(int limit);

/// The number at the start of what was typed. Sense and size are not checked.
[[nodiscard]] int LimitOf(std::string_view typed);

[[nodiscard]] constexpr bool IsLargeEnough(int limit) { return limit >= kLeastModelLimit; }

/// "モデルの数が制限 1000 を超えました。"
[[nodiscard]] std::string BeyondLimitText(int limit);

}  // namespace filedialog
