// Window handles as values. Only 32 bits of a handle count: when the highest of them is set, a 64-bit program may be
// given the same window with its other bits set by one call and clear by the next. So handles are compared here alone.
#pragma once

#include <cstdint>

#include "platform/framework/win32.h"

namespace framework {

/// What counts of a handle.
[[nodiscard]] inline std::uint32_t HandleBits(HWND window) noexcept {
  return static_cast<std::uint32_t>(reinterpret_cast<ULONG_PTR>(window));
}

/// Whether both are handles of one window, or both are null.
[[nodiscard]] inline bool IsSameWindow(HWND a, HWND b) noexcept { return HandleBits(a) == HandleBits(b); }

}  // namespace framework
