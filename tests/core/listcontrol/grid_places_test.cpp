#include "dlglib/listcontrol/grid_places.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

using grid::CellPlace;
using grid::ColumnEdges;
using grid::Place;
using grid::ViewPosition;

TEST(ColumnWidths, AreTenthsOfTheUsableWidth) {
  EXPECT_EQ(grid::ColumnWidth(300, 2.0), 57);
  EXPECT_EQ(grid::ColumnWidth(300, 8.0), 237);
  EXPECT_EQ(grid::ColumnWidth(305, 1.5), 42) << "both divisions drop their rest";
  EXPECT_EQ(grid::ColumnWidth(300, 0), -3);
}

TEST(ColumnWidths, OfWildSharesStayFinite) {
  EXPECT_EQ(grid::ColumnWidth(300, std::numeric_limits<double>::quiet_NaN()), -3);
  EXPECT_GT(grid::ColumnWidth(300, std::numeric_limits<double>::infinity()), 1000);
  EXPECT_LT(grid::ColumnWidth(300, -1e300), -1000);
}

TEST(Columns, StandOneBehindTheOther) {
  ViewPosition position;
  position.firstItemLeft = -20;
  position.columnCount = 3;
  position.widths = {30, 40, 50};
  std::vector<ColumnEdges> columns(3);
  grid::LayOutColumns(position, columns);
  EXPECT_EQ(columns[0].left, -20);
  EXPECT_EQ(columns[0].right, 10);
  EXPECT_EQ(columns[1].left, 10);
  EXPECT_EQ(columns[2].right, 100);
  EXPECT_EQ(grid::ColumnAt(columns, -20), -1) << "the left edge belongs to no column";
  EXPECT_EQ(grid::ColumnAt(columns, -19), 0);
  EXPECT_EQ(grid::ColumnAt(columns, 10), 0);
  EXPECT_EQ(grid::ColumnAt(columns, 11), 1);
  EXPECT_EQ(grid::ColumnAt(columns, 100), 2);
  EXPECT_EQ(grid::ColumnAt(columns, 101), -1);
  EXPECT_EQ(grid::ColumnUpTo(columns, -500), 0);
  EXPECT_EQ(grid::ColumnUpTo(columns, 11), 1);
  EXPECT_EQ(grid::ColumnUpTo(columns, 101), -1);
}

TEST(Views, HaveMovedWhenAColumnHas) {
  ViewPosition before;
  before.columnCount = 2;
  before.widths = {30, 40, 50};
  ViewPosition now = before;
  EXPECT_FALSE(grid::HasMovedSideways(before, now));
  now.widths[2] = 1;
  EXPECT_FALSE(grid::HasMovedSideways(before, now)) << "behind the last column";
  now.widths[1] = 41;
  EXPECT_TRUE(grid::HasMovedSideways(before, now));
  now = before;
  now.firstItemLeft = -1;
  EXPECT_TRUE(grid::HasMovedSideways(before, now));
  now.columnCount = 0;
  EXPECT_FALSE(grid::HasMovedSideways(before, now));
}

TEST(Pages, CountAPartlyVisibleRow) {
  const grid::Rect client = {0, 0, 100, 50};
  EXPECT_EQ(grid::RowsPerPage(3, true, {0, 0, 100, 10}, client), 4);
  EXPECT_EQ(grid::RowsPerPage(3, true, {0, 0, 101, 10}, client), 3);
  EXPECT_EQ(grid::RowsPerPage(3, true, {-1, 0, 99, 10}, client), 3);
  EXPECT_EQ(grid::RowsPerPage(3, false, {0, 0, 100, 10}, client), 3);
}

TEST(Pages, ShowTheirRows) {
  const grid::Page page = {4, 10, 14};
  EXPECT_FALSE(page.Shows(9));
  EXPECT_TRUE(page.Shows(10));
  EXPECT_TRUE(page.Shows(13));
  EXPECT_FALSE(page.Shows(14));
  EXPECT_FALSE(page.Shows(-1));
}

TEST(Pages, AreScrolledUpToTheLastFullOne) {
  EXPECT_EQ(grid::ScrollTarget(20, 5, 100), 20);
  EXPECT_EQ(grid::ScrollTarget(95, 5, 100), 95);
  EXPECT_EQ(grid::ScrollTarget(96, 5, 100), 95);
  EXPECT_EQ(grid::ScrollTarget(99, 5, 100), 95);
}

TEST(EditBoxes, StandInTheirCell) {
  const CellPlace cell = {{10, 20, 200}, 30, 60, 40, 17};
  EXPECT_EQ(grid::EditBoxPlace(cell, -1), (Place{44, 62, 57, 16}));
  EXPECT_EQ(grid::EditBoxPlace(cell, 16), (Place{44, 62, 38, 16}));
}

TEST(EditBoxes, StayWithinTheUsableWidth) {
  CellPlace cell = {{10, 20, 200}, 180, 60, 40, 17};
  EXPECT_EQ(grid::EditBoxPlace(cell, -1), (Place{194, 62, 16, 16}));
  cell.left = 196;
  EXPECT_EQ(grid::EditBoxPlace(cell, -1), (Place{210, 62, 0, 16}));
  cell.left = 197;
  EXPECT_EQ(grid::EditBoxPlace(cell, -1), std::nullopt);
  cell.left = -4;
  EXPECT_EQ(grid::EditBoxPlace(cell, -1), (Place{10, 62, 57, 16}));
  cell.left = -5;
  EXPECT_EQ(grid::EditBoxPlace(cell, -1), std::nullopt);
}

TEST(EditBoxes, HaveNoNegativeWidth) {
  const CellPlace cell = {{0, 0, 200}, 0, 10, 0, 17};
  EXPECT_EQ(grid::EditBoxPlace(cell, 16)->width, 0);
}

TEST(Editors, KeepTheirDistancesOnEveryScreen) {
  CellPlace cell = {{20, 40, 400}, 60, 120, 80, 34};
  cell.scale = scale::Scale(192);
  EXPECT_EQ(grid::EditBoxPlace(cell, -1), (Place{88, 124, 114, 32}));
  EXPECT_EQ(grid::EditBoxPlace(cell, 34), (Place{88, 124, 74, 32}));
  EXPECT_EQ(grid::ComboBoxPlace(cell, 0), (Place{84, 112, 116, 34}));
  EXPECT_EQ(grid::ColumnWidth(600, 2.0, cell.scale), 114);
}

TEST(ComboBoxes, SpanTheirColumns) {
  const CellPlace cell = {{10, 20, 200}, 30, 60, 40, 17};
  EXPECT_EQ(grid::ComboBoxPlace(cell, 0), (Place{42, 56, 58, 17}));
  EXPECT_EQ(grid::ComboBoxPlace(cell, 90), (Place{42, 56, 148, 17}));
}

}  // namespace
