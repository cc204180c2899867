#include "dlglib/base/CvMonitors.h"

#include "platform/framework/win32.h"
#include "platform/os/display.h"

namespace monitors {

Screens CurrentScreens() {
  Screens screens{{::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)}, {}};
  for (const os::Monitor& monitor : os::ThisDisplay().Monitors()) {
    screens.monitors.push_back({monitor.left, monitor.top, monitor.right, monitor.bottom});
  }
  return screens;
}

}  // namespace monitors
