// What screen readers call a control.
#pragma once

#include "platform/framework/export.h"
#include "platform/framework/win32.h"

struct WindowArg;

namespace framework {

/// Gives a control of the system the name that it has for its users, instead of the one that the system finds: for one
/// without a static text in front of it, and for combo boxes where the system knows no name for them. Everything else
/// the system says of it. `name` is Shift_JIS and copied; null and "" leave the control to the system. It holds until
/// the control goes or gets another one. On the control's thread; nothing happens where there is no such control or no
/// memory.
DLGLIB_API void SetAccessibleName(WindowArg control, const char* name) noexcept;

}  // namespace framework
