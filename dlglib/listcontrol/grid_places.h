// Where things lie in the grid. All lengths are pixels; right and bottom edges are excluded.
#pragma once

#include <array>
#include <optional>
#include <span>

#include "dlglib/base/geometry.h"
#include "dlglib/base/scale.h"
#include "dlglib/listcontrol/grid_model.h"

namespace grid {

using geometry::Rect;

/// A rectangle by its corner and size, as windows are placed.
struct Place {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  friend bool operator==(const Place&, const Place&) = default;
};

/// A column in client coordinates of the list view; it moves with horizontal scrolling.
struct ColumnEdges {
  int width = 0;
  int left = 0;
  int right = 0;
};

/// Where the columns lie, as the list view says; differs from what was recorded when they have been scrolled or
/// resized.
struct ViewPosition {
  int firstItemLeft = 0;
  int columnCount = 0;
  std::array<int, kMaxColumns> widths = {};
};

/// The rows that are on the screen: from `top` up to, not including, `end`.
struct Page {
  int rows = 0;
  int top = 0;
  int end = 0;

  [[nodiscard]] bool Shows(int row) const noexcept { return row >= top && row < end; }
};

/// The list view in the client coordinates of its parent.
struct ListPlace {
  int left = 0;
  int top = 0;
  int usableWidth = 0;  ///< without the vertical scroll bar
};

/// The width of a column that is to take `share` tenths of the usable width, less 3 pixels at 96 dpi. May be below 0.
[[nodiscard]] int ColumnWidth(int usableWidth, double share, scale::Scale scale = {}) noexcept;

/// Whether the columns have been scrolled or resized.
[[nodiscard]] bool HasMovedSideways(const ViewPosition& recorded, const ViewPosition& now) noexcept;

/// The edges of each column: one behind the other, from the left of item 0 on.
void LayOutColumns(const ViewPosition& position, std::span<ColumnEdges> columns) noexcept;

/// The column over which the x coordinate lies: left < x <= right. kNoColumn for none.
[[nodiscard]] int ColumnAt(std::span<const ColumnEdges> columns, int x) noexcept;
/// The first column that does not end left of it: x <= right.
[[nodiscard]] int ColumnUpTo(std::span<const ColumnEdges> columns, int x) noexcept;

/// Rows of a page: one more than the list view counts when it scrolls and its rows do not hang over its client area
/// sideways, as the last row is then partly visible.
[[nodiscard]] int RowsPerPage(int countPerPage, bool scrolls, const Rect& firstItem, const Rect& client) noexcept;

/// The row to scroll to the top so that `row` is on the page, without passing the end of the list.
[[nodiscard]] int ScrollTarget(int row, int rowsPerPage, int capacity) noexcept;

/// What an editor's place is made of.
struct CellPlace {
  ListPlace list;
  int left = 0;         ///< of the column, in client coordinates of the list view
  int columnWidth = 0;  ///< as the list view says
  int itemTop = 0;
  int itemHeight = 0;
  scale::Scale scale = {};
};

/// Where the edit box of a cell stands in the parent. `buttonWidth`: kept free at the right for a drop button; -1 for
/// none. Nothing when the cell begins outside the list's usable width.
[[nodiscard]] std::optional<Place> EditBoxPlace(const CellPlace& cell, int buttonWidth) noexcept;

/// Where the combo box of a cell stands in the parent; `furtherWidth`: of the columns behind the cell's that it spans.
[[nodiscard]] Place ComboBoxPlace(const CellPlace& cell, int furtherWidth) noexcept;

}  // namespace grid
