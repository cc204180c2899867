// Edit boxes whose texts stay within Shift_JIS. The system's own take every character of the world and count characters
// where a limit is one of bytes.
#pragma once

#include <windows.h>

#include <cstddef>

namespace os {

inline constexpr std::size_t kNoByteLimit = static_cast<std::size_t>(-1);

/// From now on, what is typed, composed or pasted into `edit` is refused with a beep where Shift_JIS lacks one of its
/// characters. Of what would make the text longer than `limitBytes` bytes of Shift_JIS, as much is taken as there is
/// room for. Texts that a program sets are not touched. A second call sets another limit. Nothing happens without a
/// window, and to one of another thread.
void KeepToShiftJis(HWND edit, std::size_t limitBytes = kNoByteLimit);

}  // namespace os
