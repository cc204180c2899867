#include "dlglib/base/outline.h"

#include <cstddef>
#include <vector>

namespace outline {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000;
constexpr std::uint32_t kHalf = 0x80000000;

bool IsOpaque(std::uint32_t pixel) { return pixel >= kHalf; }

class Grid {
 public:
  explicit Grid(const Image& image)
      : before_(image.pixels.begin(), image.pixels.end()),
        width_(image.width),
        height_(static_cast<int>(image.pixels.size()) / image.width) {}

  [[nodiscard]] int Width() const { return width_; }
  [[nodiscard]] int Height() const { return height_; }
  [[nodiscard]] std::size_t At(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
  }
  [[nodiscard]] bool TouchesOpaque(int x, int y) const {
    for (int dy = -1; dy <= 1; ++dy) {
      for (int dx = -1; dx <= 1; ++dx) {
        const bool isInside = x + dx >= 0 && x + dx < width_ && y + dy >= 0 && y + dy < height_;
        if (isInside && IsOpaque(before_[At(x + dx, y + dy)])) return true;
      }
    }
    return false;
  }
  [[nodiscard]] bool IsClear(int x, int y) const { return !IsOpaque(before_[At(x, y)]); }

 private:
  std::vector<std::uint32_t> before_;
  int width_;
  int height_;
};

void DrawOnce(const Image& image, std::uint32_t colour) {
  const Grid grid(image);
  for (int y = 0; y < grid.Height(); ++y) {
    for (int x = 0; x < grid.Width(); ++x) {
      if (grid.IsClear(x, y) && grid.TouchesOpaque(x, y)) image.pixels[grid.At(x, y)] = kOpaque | colour;
    }
  }
}

}  // namespace

void Draw(const Image& image, std::uint32_t colour, int thickness) {
  if (image.width <= 0) return;
  for (int i = 0; i < thickness; ++i) DrawOnce(image, colour);
}

}  // namespace outline
