// From the pixels in which this library thinks to those of a screen, and back.
//
// Lengths in the code and in the registry are pixels of a screen with 96 dots per inch. A window that stands on a
// screen with more of them has a Scale, through which each such length goes once before it meets the system; what the
// system itself tells (a window's place, the height of a row) is in pixels of the screen already.
//
// At 96 dpi nothing changes. Results are rounded to the nearest pixel, halves away from 0, and lengths that pass the
// ends of an int stop there. From 96 dpi on a length comes back from the screen as it was.
#pragma once

#include "dlglib/base/geometry.h"

namespace scale {

/// Dots per inch for which lengths are written down.
inline constexpr int kDesignDpi = 96;
/// What a screen may have. A system that tells of less or more is not believed: then its dpi count as 96.
inline constexpr int kLeastDpi = 48;
inline constexpr int kMostDpi = 960;

class Scale {
 public:
  constexpr Scale() noexcept = default;
  constexpr explicit Scale(int dpi) noexcept : dpi_(dpi >= kLeastDpi && dpi <= kMostDpi ? dpi : kDesignDpi) {}

  [[nodiscard]] constexpr int Dpi() const noexcept { return dpi_; }

  /// A length at 96 dpi, in pixels of the screen.
  [[nodiscard]] int ToScreen(int length) const noexcept;
  [[nodiscard]] geometry::Size ToScreen(geometry::Size size) const noexcept;
  /// The same for a length that must not vanish: at least one pixel.
  [[nodiscard]] int LineToScreen(int width) const noexcept;
  /// A length in pixels of the screen, at 96 dpi.
  [[nodiscard]] int FromScreen(int length) const noexcept;
  [[nodiscard]] geometry::Size FromScreen(geometry::Size size) const noexcept;

  friend bool operator==(const Scale&, const Scale&) = default;

 private:
  int dpi_ = kDesignDpi;
};

/// What a length on a screen of one scale becomes on a screen of another.
[[nodiscard]] int Rescaled(int length, Scale from, Scale to) noexcept;
[[nodiscard]] geometry::Rect Rescaled(const geometry::Rect& rect, Scale from, Scale to) noexcept;

}  // namespace scale
