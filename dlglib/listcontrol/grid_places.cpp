#include "dlglib/listcontrol/grid_places.h"

#include <algorithm>
#include <cmath>

namespace grid {

namespace {

/// Far beyond any screen, and far from where sums overflow.
constexpr double kFarPx = 1e8;

}  // namespace

int ColumnWidth(int usableWidth, double share, scale::Scale scale) noexcept {
  const int free = scale.ToScreen(3);
  const double tenths = usableWidth * share;
  if (std::isnan(tenths)) return -free;
  return static_cast<int>(std::clamp(tenths, -kFarPx, kFarPx)) / 10 - free;
}

bool HasMovedSideways(const ViewPosition& recorded, const ViewPosition& now) noexcept {
  if (now.columnCount == 0) return false;
  const auto count = static_cast<std::size_t>(now.columnCount);
  return recorded.firstItemLeft != now.firstItemLeft ||
         !std::equal(now.widths.begin(), now.widths.begin() + static_cast<std::ptrdiff_t>(count),
                     recorded.widths.begin());
}

void LayOutColumns(const ViewPosition& position, std::span<ColumnEdges> columns) noexcept {
  int left = position.firstItemLeft;
  for (std::size_t c = 0; c < columns.size(); ++c) {
    const int width = position.widths[c];
    columns[c] = {width, left, left + width};
    left += width;
  }
}

int ColumnAt(std::span<const ColumnEdges> columns, int x) noexcept {
  const auto at =
      std::find_if(columns.begin(), columns.end(), [x](const ColumnEdges& c) { return c.left < x && x <= c.right; });
  return at != columns.end() ? static_cast<int>(at - columns.begin()) : kNoColumn;
}

int ColumnUpTo(std::span<const ColumnEdges> columns, int x) noexcept {
  const auto at = std::find_if(columns.begin(), columns.end(), [x](const ColumnEdges& c) { return x <= c.right; });
  return at != columns.end() ? static_cast<int>(at - columns.begin()) : kNoColumn;
}

int RowsPerPage(int countPerPage, bool scrolls, const Rect& firstItem, const Rect& client) noexcept {
  const bool within = firstItem.left >= client.left && firstItem.right <= client.right;
  return countPerPage + (scrolls && within ? 1 : 0);
}

int ScrollTarget(int row, int rowsPerPage, int capacity) noexcept {
  return row > capacity - rowsPerPage ? capacity - rowsPerPage : row;
}

std::optional<Place> EditBoxPlace(const CellPlace& cell, int buttonWidth) noexcept {
  const auto px = [&cell](int length) { return cell.scale.ToScreen(length); };
  const int x = cell.list.left + cell.left + px(4);
  const int end = cell.list.left + cell.list.usableWidth;
  if (x < cell.list.left || x > end) return std::nullopt;
  const int wanted = buttonWidth < 0 ? cell.columnWidth - px(3) : cell.columnWidth - buttonWidth - px(6);
  const int width = std::max(std::min(wanted, end - x), 0);
  return Place{x, cell.list.top + cell.itemTop + px(2), width, cell.itemHeight - px(1)};
}

Place ComboBoxPlace(const CellPlace& cell, int furtherWidth) noexcept {
  const auto px = [&cell](int length) { return cell.scale.ToScreen(length); };
  return {cell.list.left + cell.left + px(2), cell.list.top + cell.itemTop - px(4),
          cell.columnWidth - px(2) + furtherWidth, cell.itemHeight};
}

}  // namespace grid
