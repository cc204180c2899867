// Where windows are, as tools want to know it.
#pragma once

#include "platform/framework/wnd.h"
#include "platform/os/accessible.h"

namespace filedialog {

[[nodiscard]] inline accessible::Place PlaceOf(const RECT& rect) {
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

/// A window with its frame, on the screen.
[[nodiscard]] inline accessible::Place PlaceOnScreen(const WindowRef& window) {
  RECT rect{};
  window.GetWindowRect(&rect);
  return PlaceOf(rect);
}

}  // namespace filedialog
