#include "dlglib/filedialog/window/icon_grid.h"

#include <algorithm>

#include "dlglib/base/virtual_keys.h"

namespace filedialog {

namespace {

constexpr int kNone = -1;

/// How many spacings lie nearest to a distance, from 0 to `last`.
int Spacings(int distance, int spacing, int last) {
  if (spacing <= 0 || distance <= 0) return 0;
  return static_cast<int>(std::min<long long>((static_cast<long long>(distance) + spacing / 2) / spacing, last));
}

int IconAt(const IconGrid& grid, geometry::Point at) {
  const int lastLine = (grid.count - 1) / grid.perLine;
  const int line = Spacings(at.y - grid.first.y, grid.spacing.height, lastLine);
  const int column = Spacings(at.x - grid.first.x, grid.spacing.width, grid.perLine - 1);
  return std::min(line * grid.perLine + column, grid.count - 1);
}

int Below(const IconGrid& grid, int icon) {
  const bool inLastLine = icon / grid.perLine == (grid.count - 1) / grid.perLine;
  return inLastLine ? kNone : std::min(icon + grid.perLine, grid.count - 1);
}

}  // namespace

std::optional<IconStep> IconStepOf(int key) {
  switch (key) {
    case virtual_key::kLeft:
      return IconStep::Left;
    case virtual_key::kRight:
      return IconStep::Right;
    case virtual_key::kUp:
      return IconStep::Up;
    case virtual_key::kDown:
      return IconStep::Down;
    default:
      return std::nullopt;
  }
}

int NextIcon(const IconGrid& grid, geometry::Point from, IconStep step) {
  if (grid.count < 1 || grid.perLine < 1) return kNone;
  const int icon = IconAt(grid, from);
  const int column = icon % grid.perLine;
  switch (step) {
    case IconStep::Left:
      return column > 0 ? icon - 1 : kNone;
    case IconStep::Right:
      return column + 1 < grid.perLine && icon + 1 < grid.count ? icon + 1 : kNone;
    case IconStep::Up:
      return icon >= grid.perLine ? icon - grid.perLine : kNone;
    case IconStep::Down:
      break;
  }
  return Below(grid, icon);
}

}  // namespace filedialog
