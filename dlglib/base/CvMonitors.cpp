#include "dlglib/base/CvMonitors.h"

#include "dlglib/base/CvGeometry.h"
#include "platform/framework/win32.h"

namespace monitors {
namespace {

BOOL CALLBACK AddMonitor(HMONITOR, HDC, RECT* rect, LPARAM monitors) noexcept {
  try {
    reinterpret_cast<std::vector<Rect>*>(monitors)->push_back(geometry::ToRect(*rect));
    return TRUE;
  } catch (...) {  // nothing may be thrown through the system
    return FALSE;
  }
}

}  // namespace

Screens CurrentScreens() {
  Screens screens{{::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)}, {}};
  if (!::EnumDisplayMonitors(nullptr, nullptr, AddMonitor, reinterpret_cast<LPARAM>(&screens.monitors))) {
    screens.monitors.clear();
  }
  return screens;
}

}  // namespace monitors
