// Rectangles and points between the system and the core.
#pragma once

#include "dlglib/base/geometry.h"
#include "platform/framework/window_ref.h"

namespace filedialog {

[[nodiscard]] inline geometry::Point ToPoint(POINT at) { return {static_cast<int>(at.x), static_cast<int>(at.y)}; }

[[nodiscard]] inline geometry::Rect ToRect(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}

[[nodiscard]] inline RECT ToSystem(const geometry::Rect& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}

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
