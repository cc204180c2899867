#include "dlglib/listcontrol/editable_cells.h"

#include <gtest/gtest.h>

#include "tests/core/listcontrol/edited_grid.h"

namespace {

using grid::CellPosition;
using grid::ColumnList;
using grid_test::EditedGrid;

constexpr CellPosition kNone = {};

/// Columns 1 and 3 of 4 can be edited; of the 4 rows row 1 is not available and row 2 only in column 3.
class CellsToEdit : public testing::Test {
 protected:
  CellsToEdit() {
    grid_.editors[0].hasBox = grid_.editors[2].hasBox = false;
    grid_.model.SetAvailable(1, 1);
    grid_.model.SetAvailable(2, 1, 1);
  }

  EditedGrid grid_{4, 4, 6};
  grid::EditableCells cells_ = grid_.Cells();
};

TEST_F(CellsToEdit, HaveAnEditorAndAreAvailable) {
  EXPECT_TRUE(cells_.CanEdit({0, 1}));
  EXPECT_FALSE(cells_.CanEdit({0, 0})) << "no editor";
  EXPECT_FALSE(cells_.CanEdit({1, 1})) << "not available";
  EXPECT_FALSE(cells_.CanEdit({4, 1})) << "not in use";
  EXPECT_FALSE(cells_.CanEdit({-1, 1}));
  EXPECT_FALSE(cells_.CanEdit({0, 4}));
  EXPECT_FALSE(cells_.CanEdit({0, -1}));
}

TEST_F(CellsToEdit, AreNoneInColumnsOfWhichNothingWasSaid) {
  const std::vector<grid::ColumnEditors> few(grid_.editors.begin(), grid_.editors.begin() + 2);
  const grid::EditableCells cells(grid_.model, few);
  EXPECT_TRUE(cells.CanEdit({0, 1}));
  EXPECT_FALSE(cells.CanEdit({0, 3}));
}

TEST_F(CellsToEdit, MayHaveAnyKindOfEditor) {
  grid_.editors[0].list = ColumnList::OfGrid;
  grid_.editors[2].list = ColumnList::OfDialog;
  EXPECT_TRUE(cells_.CanEdit({0, 0}));
  EXPECT_TRUE(cells_.CanEdit({0, 2}));
}

TEST_F(CellsToEdit, FollowEachOtherOverTheEndsOfRows) {
  EXPECT_EQ(cells_.Next({0, 1}), (CellPosition{0, 3}));
  EXPECT_EQ(cells_.Next({0, 3}), (CellPosition{2, 3}));
  EXPECT_EQ(cells_.Next({2, 3}), (CellPosition{3, 1}));
  EXPECT_EQ(cells_.Next({3, 3}), kNone);
  EXPECT_EQ(cells_.Former({3, 1}), (CellPosition{2, 3}));
  EXPECT_EQ(cells_.Former({2, 3}), (CellPosition{0, 3}));
  EXPECT_EQ(cells_.Former({0, 1}), kNone);
  EXPECT_EQ(cells_.First(), (CellPosition{0, 1}));
  EXPECT_EQ(cells_.Last(), (CellPosition{3, 3}));
}

TEST_F(CellsToEdit, StandAboveEachOtherInAColumn) {
  EXPECT_EQ(cells_.Below({0, 1}), (CellPosition{3, 1}));
  EXPECT_EQ(cells_.Below({0, 3}), (CellPosition{2, 3}));
  EXPECT_EQ(cells_.Below({3, 1}), kNone);
  EXPECT_EQ(cells_.Above({3, 1}), (CellPosition{0, 1}));
  EXPECT_EQ(cells_.Above({0, 1}), kNone);
}

TEST_F(CellsToEdit, AreFoundInOneRow) {
  EXPECT_EQ(cells_.InRow(0, 3), (CellPosition{0, 3}));
  EXPECT_EQ(cells_.InRow(0, 2), (CellPosition{0, 1}));
  EXPECT_EQ(cells_.InRow(2, 1), (CellPosition{2, 3}));
  EXPECT_EQ(cells_.InRow(1, 1), kNone);
  EXPECT_EQ(cells_.InRow(9, 1), kNone);
}

TEST(CellsAPageAway, AreTheNearestOnTheWay) {
  EditedGrid grid(1, 10, 10);
  for (const int row : {4, 5, 8, 9}) grid.model.SetAvailable(row, 1);
  const grid::EditableCells cells = grid.Cells();
  EXPECT_EQ(cells.Page({0, 0}, 3), (CellPosition{3, 0}));
  EXPECT_EQ(cells.Page({0, 0}, 4), (CellPosition{6, 0})) << "further on";
  EXPECT_EQ(cells.Page({0, 0}, 50), (CellPosition{7, 0})) << "before the end";
  EXPECT_EQ(cells.Page({7, 0}, 50), kNone);
  EXPECT_EQ(cells.Page({7, 0}, -2), (CellPosition{3, 0}));
  EXPECT_EQ(cells.Page({7, 0}, -50), (CellPosition{0, 0}));
  EXPECT_EQ(cells.Page({0, 0}, -3), kNone);
  grid.model.SetAvailable(0, 1);
  EXPECT_EQ(cells.Page({7, 0}, -50), (CellPosition{1, 0}));
}

TEST(EditableCellsOfNoGrid, AreNowhere) {
  const EditedGrid grid(0, 0, 0);
  const grid::EditableCells cells = grid.Cells();
  EXPECT_EQ(cells.First(), kNone);
  EXPECT_EQ(cells.Last(), kNone);
  EXPECT_EQ(cells.Next({0, 0}), kNone);
  EXPECT_EQ(cells.Page({0, 0}, 1), kNone);
}

TEST(TypedColumns, HoldNoNumbersAndNoColours) {
  EditedGrid grid(4, 1, 1, 0);
  grid.editors[1].kind = 1;
  grid.editors[2].hasBox = false;
  const grid::EditableCells cells = grid.Cells();
  EXPECT_FALSE(cells.HoldsTypedText(0));
  EXPECT_FALSE(cells.HoldsTypedText(1));
  EXPECT_FALSE(cells.HoldsTypedText(2));
  EXPECT_TRUE(cells.HoldsTypedText(3));
  EXPECT_FALSE(cells.HoldsTypedText(4));
  EXPECT_EQ(cells.ColourColumns(), std::vector<int>{1});
}

}  // namespace
