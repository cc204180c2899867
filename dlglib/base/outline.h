// The outline that an image gets with high contrast, where its own dark edges could not be told from the ground.
#pragma once

#include <cstdint>
#include <span>

namespace outline {

/// Pixels row by row, 0xAARRGGBB, `width` of them in a row.
struct Image {
  std::span<std::uint32_t> pixels;
  int width = 0;
};

/// Each clear pixel (less than half opaque) with an opaque one among its eight neighbours takes `colour` (0xRRGGBB),
/// opaque, and so on for each pixel of `thickness`. Opaque pixels stay. An outline ends at the image's sides.
void Draw(const Image& image, std::uint32_t colour, int thickness);

}  // namespace outline
