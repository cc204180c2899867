// Messages about a window's scale, which headers of older systems do not have.
#pragma once

#include "platform/framework/win32.h"

namespace framework {

/// To a top-level window: its screen has another scale (WM_DPICHANGED).
inline constexpr UINT kDpiChanged = 0x02E0;
/// To a control, once its dialog has followed another scale (WM_DPICHANGED_AFTERPARENT).
inline constexpr UINT kDpiChangedAfterParent = 0x02E3;

}  // namespace framework
