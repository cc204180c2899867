// Texts of windows in wide form, and Shift_JIS (code page 932) to and from it. Neither direction fails: what the other
// form does not know becomes the system's stand-in for it.
#pragma once

#include <string>
#include <string_view>

#include "platform/framework/win32.h"

namespace framework {

[[nodiscard]] std::wstring ToWide(std::string_view sjis);
[[nodiscard]] std::string ToShiftJis(std::wstring_view wide);

/// All of it; empty for no window.
[[nodiscard]] std::wstring WideTextOf(HWND window);

}  // namespace framework
