#include "dlglib/listcontrol/grid_complaints.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using grid::GridModel;

GridModel Filled(int rows, int capacity) {
  GridModel model;
  model.Init(2, rows, capacity, -1);
  return model;
}

TEST(GridComplaints, ARowIsAddedWhereThereIsAPlaceAndRoom) {
  const GridModel model = Filled(2, 3);
  for (const int at : {0, 1, 2}) EXPECT_EQ(grid::InsertComplaint(model, at), nullptr);
  EXPECT_STREQ(grid::InsertComplaint(model, -1), "アイテムを選択してください。");
}

TEST(GridComplaints, AFullTableTakesNoRow) {
  const GridModel full = Filled(3, 3);
  EXPECT_STREQ(grid::InsertComplaint(full, 1), "追加・挿入できません。");
  EXPECT_STREQ(grid::InsertComplaint(full, -1), "アイテムを選択してください。") << "the place comes first";
  GridModel beyond = Filled(2, 3);
  beyond.SetItemCount(7);
  EXPECT_STREQ(grid::InsertComplaint(beyond, 1), "追加・挿入できません。") << "a program may say that there are more";
}

TEST(GridComplaints, OnlySelectedRowsAreDeleted) {
  GridModel model = Filled(2, 3);
  EXPECT_STREQ(grid::DeleteComplaint(model), "アイテムを選択してください。");
  model.Select(0, 1);
  EXPECT_EQ(grid::DeleteComplaint(model), nullptr);
}

TEST(GridComplaints, ANumberThatIsNoneIsNamedWithItsRow) {
  EXPECT_EQ(grid::NumberComplaint(grid::kBadClassNumber, 0, "0"), "無効なクラス番号です 1 : 0");
  EXPECT_EQ(grid::NumberComplaint(grid::kBadRevision, 11, "表"), "無効なレビジョンです 12 : 表");
  EXPECT_EQ(grid::NumberComplaint(grid::kBadRevision, std::numeric_limits<int>::max(), ""),
            "無効なレビジョンです 2147483648 : ");
}

}  // namespace
