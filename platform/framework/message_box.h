// Message boxes that fit the screen.
#pragma once

#include "platform/framework/export.h"
#include "platform/framework/win32.h"

struct WindowArg;

namespace framework {

/// Shows a message box above `owner` (may be null) and returns the button's ID. Pumps messages. `text` and `caption`
/// are Shift_JIS; a null caption is the system's. A text without blanks, such as a long path, is broken into lines
/// where the system would make the box wider than the screen.
DLGLIB_API int ShowMessageBox(WindowArg owner, const char* text, const char* caption, UINT type);

}  // namespace framework
