// Where windows and controls lie, in rectangles of the core.
#pragma once

#include "dlglib/base/CvGeometry.h"
#include "dlglib/base/geometry.h"
#include "platform/framework/window_ref.h"

namespace filedialog {

using geometry::ToPoint;
using geometry::ToRect;
using geometry::ToSystem;

/// A window on the screen; empty when there is none.
[[nodiscard]] inline geometry::Rect RectOnScreen(WindowRef window) {
  RECT rect{};
  window.GetWindowRect(&rect);
  return ToRect(rect);
}

/// A control in client coordinates of its dialog.
[[nodiscard]] inline geometry::Rect RectInDialog(WindowRef dialog, HWND control) {
  RECT rect{};
  ::GetWindowRect(control, &rect);
  dialog.ScreenToClient(&rect);
  return ToRect(rect);
}

[[nodiscard]] inline geometry::Size ClientSizeOf(WindowRef window) {
  RECT client{};
  window.GetClientRect(&client);
  return {static_cast<int>(client.right), static_cast<int>(client.bottom)};
}

}  // namespace filedialog
