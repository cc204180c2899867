// What screen readers call a control.
#pragma once

#include "platform/framework/export.h"
#include "platform/framework/win32.h"

struct WindowArg;

namespace framework {

/// Gives a control of the system the name that it has for its users, instead of the one that the system finds: for one
/// without a static text in front of it, and for combo boxes where the system knows no name for them. Everything else
/// the system says of it. A grid, or another part of the library that speaks for itself, is called by it as a whole and
/// says of its rows and cells what it says without; it may be given before or after the part has taken the control. A
/// control of the host's own that answers WM_GETOBJECT keeps its name. `name` is Shift_JIS and copied; null and ""
/// leave the control as it was. It holds until the control goes or gets another one. On the control's thread; nothing
/// happens where there is no such control or no memory.
DLGLIB_API void SetAccessibleName(WindowArg control, const char* name) noexcept;

}  // namespace framework
