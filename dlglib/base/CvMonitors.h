// The monitors of the machine.
#pragma once

#include "dlglib/base/monitors.h"

namespace monitors {

/// As they are now; no monitors when they cannot all be had.
[[nodiscard]] Screens CurrentScreens();

}  // namespace monitors
