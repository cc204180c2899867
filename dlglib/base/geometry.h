// Points and rectangles of the core, in pixels. A rectangle's right and bottom lie just outside of it unless a name
// says that borders are included.
#pragma once

namespace geometry {

struct Point {
  int x = 0;
  int y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
  int width = 0;
  int height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  [[nodiscard]] constexpr int width() const { return right - left; }
  [[nodiscard]] constexpr int height() const { return bottom - top; }
  /// Borders included on all four sides.
  [[nodiscard]] constexpr bool Touches(Point at) const noexcept {
    return left <= at.x && at.x <= right && top <= at.y && at.y <= bottom;
  }
  friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace geometry
