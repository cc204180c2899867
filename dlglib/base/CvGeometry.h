// Points and rectangles between the system and the core.
#pragma once

#include "dlglib/base/geometry.h"
#include "platform/framework/win32.h"

namespace geometry {

[[nodiscard]] inline Point ToPoint(POINT at) { return {static_cast<int>(at.x), static_cast<int>(at.y)}; }

[[nodiscard]] inline Rect ToRect(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}

[[nodiscard]] inline POINT ToSystem(Point at) { return {at.x, at.y}; }

[[nodiscard]] inline RECT ToSystem(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

}  // namespace geometry
