#include "dlglib/base/contrast.h"

#include <algorithm>
#include <cmath>

namespace contrast {
namespace {

constexpr Colour kBlack = 0x000000;
constexpr Colour kWhite = 0xFFFFFF;
constexpr int kFull = 255;

int Part(Colour colour, int shift) noexcept { return static_cast<int>(colour >> shift & 0xFF); }

/// The light of a part of a colour, which is no proportion of its number.
double Light(int part) noexcept {
  const double share = static_cast<double>(part) / kFull;
  return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(Colour colour) noexcept {
  return 0.2126 * Light(Part(colour, 0)) + 0.7152 * Light(Part(colour, 8)) + 0.0722 * Light(Part(colour, 16));
}

/// `step` of 255 steps on the way.
Colour Towards(Colour from, Colour to, int step) noexcept {
  Colour mixed = 0;
  for (int shift = 0; shift <= 16; shift += 8) {
    const int part = Part(from, shift) + (Part(to, shift) - Part(from, shift)) * step / kFull;
    mixed |= static_cast<Colour>(part) << shift;
  }
  return mixed;
}

}  // namespace

double Between(Colour one, Colour other) noexcept {
  constexpr double kStrayLight = 0.05;
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + kStrayLight) / (dark + kStrayLight);
}

Colour ReadableOn(Colour paper, Colour ink) noexcept {
  const Colour end = Between(paper, kWhite) >= Between(paper, kBlack) ? kWhite : kBlack;
  for (int step = 0; step < kFull; ++step) {
    const Colour shade = Towards(ink, end, step);
    if (Between(paper, shade) >= kReadable) return shade;
  }
  return end;
}

}  // namespace contrast
