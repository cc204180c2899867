#include "dlglib/base/scaled_images.h"

#include <algorithm>
#include <array>

namespace scaled_images {
namespace {

// As in resources/art/make_images.py.
constexpr std::array kSides = {16, 20, 24, 28, 32, 40, 48, 56, 64, 80, 96};
constexpr std::array kPercents = {125, 150, 175, 200, 250, 300};
constexpr int kIconsFrom = 10000;
constexpr int kBitmapsStep = 1000;

constexpr int kSmallSide = 16;
constexpr int kLargeSide = 32;

}  // namespace

int IconSide(int wanted) noexcept {
  const auto* const above = std::upper_bound(kSides.begin(), kSides.end(), wanted);
  return above == kSides.begin() ? kSides.front() : *(above - 1);
}

int IconResource(int icon, int side) noexcept {
  return side == kSmallSide || side == kLargeSide ? icon : icon + kIconsFrom;
}

int BitmapResource(int bitmap, scale::Scale scale) noexcept {
  const auto isDrawn = [scale](int percent) { return percent * scale::kDesignDpi <= 100 * scale.Dpi(); };
  return bitmap + kBitmapsStep * static_cast<int>(std::count_if(kPercents.begin(), kPercents.end(), isDrawn));
}

}  // namespace scaled_images
