// Rows that come and go in several places at once.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "dlglib/listcontrol/grid_model.h"

namespace {

using grid::GridModel;
using grid::RowRun;
using Runs = std::vector<RowRun>;

/// One column, each row with its number as text, error flag and colour; every third is selected.
GridModel Numbered(int rows, int capacity) {
  GridModel model;
  model.Init(1, rows, capacity, -1);
  for (int row = 0; row < rows; ++row) {
    model.SetText(row, 0, std::to_string(row).c_str());
    model.SetError(row, 0, static_cast<unsigned>(row));
    model.SetColours(row, 0, static_cast<unsigned>(row), 0);
    model.Select(row, row % 3 == 0 ? 1 : 0);
  }
  return model;
}

/// The former row in each place; -1 where one is free.
void ExpectRows(const GridModel& model, const std::vector<int>& rows) {
  ASSERT_EQ(model.ItemCount(), static_cast<int>(rows.size()));
  for (int row = 0; row < model.UsedRows(); ++row) {
    const int former = rows[static_cast<std::size_t>(row)];
    if (former < 0) {
      EXPECT_EQ(model.Selected(row), 0) << row;
      continue;
    }
    EXPECT_EQ(model.Text(row, 0), std::to_string(former)) << row;
    EXPECT_EQ(model.Error(row, 0), static_cast<unsigned>(former)) << row;
    EXPECT_EQ(model.Looks(row, 0).text, static_cast<unsigned>(former)) << row;
    EXPECT_EQ(model.Selected(row), former % 3 == 0 ? 1 : 0) << row;
  }
}

TEST(OpenedRows, AreFreeAndTheOthersMoveDown) {
  GridModel model = Numbered(5, 9);
  model.OpenRows(Runs{{1, 2}, {5, 1}, {8, 1}});
  ExpectRows(model, {0, -1, -1, 1, 2, -1, 3, 4, -1});
}

TEST(ClosedRows, GoAndTheOthersMoveUp) {
  GridModel model = Numbered(9, 9);
  model.CloseRows(Runs{{1, 2}, {5, 1}, {8, 1}});
  ExpectRows(model, {0, 3, 4, 6, 7});
  for (int row = 5; row < 9; ++row) EXPECT_FALSE(model.ShowsSelected(row)) << row;
  EXPECT_EQ(model.FirstSelected(), 0);
}

TEST(ClosedRows, MayBeNoneOrAll) {
  GridModel model = Numbered(3, 3);
  model.CloseRows({});
  ExpectRows(model, {0, 1, 2});
  model.OpenRows({});
  ExpectRows(model, {0, 1, 2});
  model.CloseRows(Runs{{0, 3}});
  ExpectRows(model, {});
  EXPECT_EQ(model.FirstSelected(), -1);
}

TEST(ClosedRows, OpenAgainWhereTheyWere) {
  std::mt19937 random(3);
  for (int round = 0; round < 300; ++round) {
    GridModel model = Numbered(12, 12);
    Runs runs;
    std::vector<int> left;
    std::vector<int> opened;
    for (int row = 0; row < 12; ++row) {
      const bool goes = random() % 3 == 0;
      opened.push_back(goes ? -1 : row);
      if (!goes) left.push_back(row);
      if (!goes) continue;
      if (runs.empty() || runs.back().first + runs.back().count != row) runs.push_back({row, 0});
      ++runs.back().count;
    }
    model.CloseRows(runs);
    ExpectRows(model, left);
    model.OpenRows(runs);
    ExpectRows(model, opened);
  }
}

TEST(PutTexts, AreCutAtTheStore) {
  GridModel model;
  model.SetTextLimit(0, 4);
  model.Init(1, 1, 1, -1);
  model.PutText(0, 0, "abcdefg");
  EXPECT_STREQ(model.Text(0, 0), "abcd");
  model.PutText(0, 0, "");
  EXPECT_STREQ(model.Text(0, 0), "");
  model.PutText(1, 0, "x");
  model.PutText(0, 1, "x");
  model.SetLooks(1, 0, {});
  EXPECT_EQ(model.Available(0, 0), 1U) << "flags are left alone";
}

}  // namespace
