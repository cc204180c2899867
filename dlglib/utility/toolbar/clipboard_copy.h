// Putting a text on the clipboard so that it is certain to be there: another program may hold the clipboard open, or
// copy something of its own at the same time.
#pragma once

#include <functional>
#include <string>

#include "platform/os/os.h"

namespace clipboard_copy {

/// How often copying is tried, and the pause behind each attempt that failed: half a second in all.
inline constexpr int kTries = 25;
inline constexpr unsigned kPauseMs = 20;

/// What the one who copies provides.
struct Actions {
  std::function<void()> copy;           ///< copies the text; may fail without a word
  std::function<void(unsigned)> pause;  ///< waits that many milliseconds
};

/// Copies until the clipboard holds `text` (Shift_JIS). False when it does not within the bound: whatever the clipboard
/// holds then is not the text. `owner` is the window that opens the clipboard.
[[nodiscard]] bool TryCopy(os::Clipboard& clipboard, const std::string& text, os::WindowHandle owner,
                           const Actions& actions);

/// Whether the clipboard holds `text` now. Waits by `pause`, within the same bound, while another program keeps the
/// clipboard open.
[[nodiscard]] bool Holds(os::Clipboard& clipboard, const std::string& text, os::WindowHandle owner,
                         const std::function<void(unsigned)>& pause);

}  // namespace clipboard_copy
