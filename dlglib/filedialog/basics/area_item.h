// What is said of the browser's areas to those who do not see them.
#pragma once

#include "dlglib/filedialog/basics/hot_areas.h"
#include "platform/os/accessible.h"

namespace filedialog {

/// What the balloon of an area says, Shift_JIS.
[[nodiscard]] const char* TipOf(HotArea area);

/// An area as a push button; its place is the caller's to fill in.
[[nodiscard]] accessible::Item AreaItem(HotArea area, AreaState state);

}  // namespace filedialog
