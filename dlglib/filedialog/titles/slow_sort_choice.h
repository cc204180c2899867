// The rule for slow sorts as the user sets it and as he is asked about it.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "dlglib/filedialog/basics/slow_sort.h"

namespace filedialog {

inline constexpr int kLeastModelLimit = 10;

/// The states of the option buttons for "always", "never beyond the limit" and "ask beyond the limit". Each button is a
/// group of its own, in which 0 is the number of the checked button.
using OptionStates = std::array<int, 3>;
inline constexpr int kOptionChecked = 0;
inline constexpr int kOptionUnchecked = -1;

/// The states that show a mode: exactly one button is checked.
[[nodiscard]] OptionStates StatesOf(SlowSort mode);

/// The mode that the states mean: the first of the two upper buttons that is checked, else "ask".
[[nodiscard]] SlowSort ModeOf(const OptionStates& states);

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
