// Texts of windows in wide form, and Shift_JIS to and from it. Neither direction fails: bytes that are no character
// become the system's stand-in for them, and a character that Shift_JIS lacks becomes "|", which no name and no pattern
// holds.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/framework/win32.h"

namespace framework {

[[nodiscard]] std::wstring ToWide(std::string_view sjis);
[[nodiscard]] std::string ToShiftJis(std::wstring_view wide);

/// All of it; empty for no window.
[[nodiscard]] std::wstring WideTextOf(HWND window);

/// Copies as many whole characters as fit with a terminator; returns the bytes copied.
std::size_t CopySjis(std::string_view sjis, char* buffer, std::size_t size) noexcept;

}  // namespace framework
