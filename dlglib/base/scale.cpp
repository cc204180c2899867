#include "dlglib/base/scale.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace scale {
namespace {

/// length * numerator / denominator; both above 0 and small.
int Times(int length, int numerator, int denominator) noexcept {
  const std::int64_t product = std::int64_t{length} * numerator;
  const std::int64_t half = denominator / 2;
  const std::int64_t rounded = (product + (product < 0 ? -half : half)) / denominator;
  return static_cast<int>(
      std::clamp<std::int64_t>(rounded, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

}  // namespace

int Scale::ToScreen(int length) const noexcept { return Times(length, dpi_, kDesignDpi); }

geometry::Size Scale::ToScreen(geometry::Size size) const noexcept {
  return {ToScreen(size.width), ToScreen(size.height)};
}

int Scale::LineToScreen(int width) const noexcept { return std::max(ToScreen(width), 1); }

int Scale::FromScreen(int length) const noexcept { return Times(length, kDesignDpi, dpi_); }

geometry::Size Scale::FromScreen(geometry::Size size) const noexcept {
  return {FromScreen(size.width), FromScreen(size.height)};
}

int Rescaled(int length, Scale from, Scale to) noexcept { return Times(length, to.Dpi(), from.Dpi()); }

geometry::Rect Rescaled(const geometry::Rect& rect, Scale from, Scale to) noexcept {
  return {Rescaled(rect.left, from, to), Rescaled(rect.top, from, to), Rescaled(rect.right, from, to),
          Rescaled(rect.bottom, from, to)};
}

}  // namespace scale
