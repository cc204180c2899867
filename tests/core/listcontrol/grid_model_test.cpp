#include "dlglib/listcontrol/grid_model.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <string>
#include <vector>

namespace {

using grid::GridModel;

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

GridModel Grid(int columns, int items, int capacity, int numberColumn = -1) {
  GridModel model;
  model.Init(columns, items, capacity, numberColumn);
  return model;
}

std::vector<std::string> Texts(const GridModel& model, int column) {
  std::vector<std::string> texts;
  for (int row = 0; row < model.UsedRows(); ++row) texts.emplace_back(model.Text(row, column));
  return texts;
}

using Strings = std::vector<std::string>;

TEST(NewGrids, HoldEmptyCellsThatAreNotAvailable) {
  const GridModel model = Grid(3, 2, 5);
  EXPECT_EQ(model.ColumnCount(), 3);
  EXPECT_EQ(model.Capacity(), 5);
  EXPECT_EQ(model.ItemCount(), 2);
  for (int row = 0; row < 5; ++row) {
    for (int column = 0; column < 3; ++column) {
      EXPECT_STREQ(model.Text(row, column), "");
      const grid::CellLooks looks = model.Looks(row, column);
      EXPECT_EQ(looks.available, 1U);
      EXPECT_EQ(looks.error, 0U);
      EXPECT_EQ(looks.text, 0x000000U);
      EXPECT_EQ(looks.back, 0xFFFFFFU);
    }
  }
  EXPECT_EQ(model.FirstSelected(), -1);
}

TEST(NewGrids, HaveAtMostTwentyColumns) {
  const GridModel model = Grid(25, 1, 1);
  EXPECT_EQ(model.ColumnCount(), 20);
  EXPECT_TRUE(model.HasColumn(19));
  EXPECT_FALSE(model.HasColumn(20));
  EXPECT_EQ(Grid(-1, 1, 1).ColumnCount(), 0);
}

TEST(NewGrids, HaveAtMostAsManyItemsAsRoom) {
  EXPECT_EQ(Grid(1, 9, 4).ItemCount(), 4);
  EXPECT_EQ(Grid(1, -3, 4).ItemCount(), -3);
  EXPECT_EQ(Grid(1, 1, -4).Capacity(), 0);
}

TEST(NewGrids, MayBeLarge) {
  GridModel model = Grid(20, 100000, 100000, 0);
  model.SetText(99999, 19, "end");
  EXPECT_STREQ(model.Text(99999, 19), "end");
  EXPECT_STREQ(model.Text(99998, 19), "");
}

TEST(NewGrids, ThatAreTooLargeChangeNothing) {
  GridModel model = Grid(2, 1, 3);
  model.SetText(0, 0, "kept");
#if !defined(__SANITIZE_ADDRESS__)
  EXPECT_THROW(model.Init(20, 1, kMax, 0), std::bad_alloc);
#endif
  EXPECT_STREQ(model.Text(0, 0), "kept");
  EXPECT_EQ(model.Capacity(), 3);
}

TEST(TextLimits, CountFromTheNextInit) {
  GridModel model;
  model.SetTextLimit(0, 2);
  model.SetTextLimit(1, 1000);
  model.SetTextLimit(2, 6);
  model.SetTextLimit(-1, 6);
  model.SetTextLimit(20, 6);
  EXPECT_EQ(model.TextLimit(0), 4);
  EXPECT_EQ(model.TextLimit(1), 385);
  EXPECT_EQ(model.TextLimit(-1), 385);
  model.Init(3, 1, 1, -1);
  const std::string longText(500, 'x');
  for (int column = 0; column < 3; ++column) model.SetText(0, column, longText.c_str());
  EXPECT_EQ(std::string(model.Text(0, 0)).size(), 4U);
  EXPECT_EQ(std::string(model.Text(0, 1)).size(), 385U);
  EXPECT_EQ(std::string(model.Text(0, 2)).size(), 6U);
  model.SetTextLimit(0, 100);
  model.SetText(0, 0, longText.c_str());
  EXPECT_EQ(std::string(model.Text(0, 0)).size(), 4U);
  model.Clear();
  EXPECT_EQ(model.TextLimit(2), 6);
  model.ResetTextLimits();
  EXPECT_EQ(model.TextLimit(2), 385);
}

TEST(Texts, MakeTheirCellAvailableAndFreeOfError) {
  GridModel model = Grid(2, 2, 2);
  model.SetError(0, 1, 5);
  model.SetText(0, 1, "text");
  EXPECT_EQ(model.Available(0, 1), 0U);
  EXPECT_EQ(model.Error(0, 1), 0U);
  EXPECT_EQ(model.Available(0), 1U);
}

TEST(Texts, ThatAreTypedLeaveTheFlags) {
  GridModel model = Grid(1, 1, 1);
  model.SetError(0, 0, 5);
  model.TypeText(0, 0, "typed");
  EXPECT_STREQ(model.Text(0, 0), "typed");
  EXPECT_EQ(model.Available(0, 0), 1U);
  EXPECT_EQ(model.Error(0, 0), 5U);
}

TEST(Texts, AreCutBetweenCharacters) {
  GridModel model;
  model.SetTextLimit(0, 5);
  model.Init(1, 1, 2, -1);
  model.SetText(1, 0, "next");
  model.SetText(0, 0, "abcd表efgh");
  EXPECT_STREQ(model.Text(0, 0), "abcd");
  EXPECT_STREQ(model.Text(1, 0), "next");
  model.SetText(0, 0, "ab\x95");
  EXPECT_STREQ(model.Text(0, 0), "ab");
  model.SetText(0, 0, nullptr);
  EXPECT_STREQ(model.Text(0, 0), "");
}

TEST(Texts, ReachRowsBehindTheLastOneInUse) {
  GridModel model = Grid(1, 1, 3);
  model.SetText(2, 0, "behind");
  EXPECT_STREQ(model.Text(2, 0), "behind");
  EXPECT_EQ(model.Available(2, 0), 1U) << "a row that is not in use answers that";
  EXPECT_EQ(model.Looks(2, 0).available, 0U);
}

TEST(Cells, OutsideAreIgnoredAndAnswered) {
  GridModel model = Grid(2, 2, 3, 0);
  for (const int row : {kMin, -1, 0, 1, 2, 3, 4, kMax}) {
    for (const int column : {kMin, -1, 0, 1, 2, 19, 20, 25, kMax}) {
      const bool inside = row >= 0 && row < 3 && column >= 0 && column < 2;
      const bool used = inside && row < 2;
      model.SetText(row, column, "x");
      model.TypeText(row, column, "xy");
      model.SetColours(row, column, 1, 2);
      model.SetError(row, column, 7);
      model.SetAvailable(row, column, 3);
      EXPECT_STREQ(model.Text(row, column), inside ? "xy" : "");
      EXPECT_EQ(model.Available(row, column), used ? 3U : 1U);
      EXPECT_EQ(model.Error(row, column), used ? 7U : 1U);
      EXPECT_EQ(model.Looks(row, column).text, inside ? 1U : 0U);
    }
    model.SetAvailable(row, 6);
    model.Select(row, 1);
    EXPECT_EQ(model.Selected(row), row == 0 || row == 1 ? 1 : 0);
    EXPECT_EQ(model.Available(row), row == 0 || row == 1 ? 6U : 1U);
    model.ClearSelection();
  }
}

TEST(Cells, OfAGridWithoutColumnsHaveARowFlag) {
  GridModel model = Grid(0, 1, 2, 0);
  EXPECT_EQ(model.Available(0), 1U);
  model.SetAvailable(0, 0U);
  EXPECT_EQ(model.Available(0), 0U);
  model.Renumber();
  EXPECT_TRUE(model.InsertRow(1));
  EXPECT_EQ(model.Available(1), 1U) << "there is no cell that an insertion could change";
}

TEST(Cells, OfAClearedGridAreOutside) {
  GridModel model = Grid(2, 2, 3, 0);
  model.Clear();
  model.Clear();
  model.SetText(0, 0, "x");
  model.SetAvailable(0, 0U);
  model.Select(0, 1);
  model.Renumber();
  EXPECT_STREQ(model.Text(0, 0), "");
  EXPECT_EQ(model.Selected(0), 0);
  EXPECT_EQ(model.FirstSelected(), -1);
  EXPECT_FALSE(model.InsertRow(0));
  EXPECT_EQ(model.DeleteSelectedRows(), 0);
}

TEST(ItemCounts, AreNotChecked) {
  GridModel model = Grid(2, 2, 3, 0);
  for (const int count : {kMin, -1, 4, 1000000, kMax}) {
    model.SetItemCount(count);
    EXPECT_EQ(model.ItemCount(), count);
    model.SetText(2, 1, "x");
    model.SetAvailable(2, 0U);
    model.SetAvailable(2, 1, 1);
    model.SetError(2, 1, 1);
    model.Select(2, 1);
    model.Renumber();
    EXPECT_EQ(model.FirstSelected(), count > 0 ? 2 : -1);
    EXPECT_EQ(model.Selected(count), 0);
    EXPECT_FALSE(model.InsertRow(count));
    EXPECT_FALSE(model.InsertRow(0));
    model.ClearSelection();
    EXPECT_EQ(model.DeleteSelectedRows(), 0);
  }
}

TEST(Selection, AnswersForTheRowBehindTheLast) {
  GridModel model = Grid(1, 3, 3);
  model.Select(2, 1);
  model.SetItemCount(2);
  EXPECT_EQ(model.Selected(2), 1) << "the flag of the first row past the end";
  EXPECT_EQ(model.Selected(3), 0);
  model.SetItemCount(3);
  EXPECT_EQ(model.Selected(3), 0) << "the row behind a full list";
  EXPECT_EQ(model.Selected(-1), 0);
}

TEST(Selection, IsShownAsItStandsOnRowsOutOfUseToo) {
  GridModel model = Grid(1, 4, 5);
  model.Select(3, 1);
  EXPECT_TRUE(model.ShowsSelected(3));
  model.SetItemCount(1);
  EXPECT_TRUE(model.ShowsSelected(3));
  EXPECT_EQ(model.Selected(3), 0);
  EXPECT_EQ(model.FirstSelected(), -1);
  for (const int row : {kMin, -1, 0, 2, 4, 5, kMax}) EXPECT_FALSE(model.ShowsSelected(row)) << row;
}

TEST(Selection, KeepsTheFlagAsGiven) {
  GridModel model = Grid(1, 3, 3);
  model.Select(1, 5);
  EXPECT_EQ(model.Selected(1), 5);
  EXPECT_EQ(model.FirstSelected(), 1);
  model.Select(0, 1);
  EXPECT_EQ(model.FirstSelected(), 0);
  model.Select(0, 0);
  EXPECT_EQ(model.FirstSelected(), 1);
}

TEST(InsertedRows, PushTheOthersDown) {
  GridModel model = Grid(2, 5, 6, 0);
  for (int row = 0; row < 5; ++row) {
    model.SetText(row, 1, std::string(1, static_cast<char>('a' + row)).c_str());
    model.SetColours(row, 1, static_cast<grid::Colour>(row), 0xFF);
    model.SetError(row, 1, static_cast<unsigned>(row));
  }
  model.Renumber();
  model.Select(1, 1);
  model.Select(4, 1);
  ASSERT_TRUE(model.InsertRow(2));
  model.Renumber();
  EXPECT_EQ(Texts(model, 0), (Strings{"1", "2", "3", "4", "5", "6"}));
  EXPECT_EQ(Texts(model, 1), (Strings{"a", "b", "", "c", "d", "e"}));
  for (int row = 0; row < 6; ++row) EXPECT_EQ(model.Selected(row), row == 2 ? 1 : 0);
  EXPECT_EQ(model.Looks(2, 1).text, 2U) << "colours stay where they were";
  EXPECT_EQ(model.Looks(3, 1).text, 2U);
  EXPECT_EQ(model.Looks(5, 1).text, 4U);
  EXPECT_EQ(model.Error(2, 1), 0U);
  EXPECT_EQ(model.Error(3, 1), 2U);
  EXPECT_EQ(model.Available(2, 1), 0U);
  EXPECT_FALSE(model.InsertRow(2)) << "full";
}

TEST(DeletedRows, LetTheOthersMoveUp) {
  GridModel model = Grid(2, 5, 5, 0);
  for (int row = 0; row < 5; ++row) model.SetText(row, 1, std::string(1, static_cast<char>('a' + row)).c_str());
  model.Select(1, 1);
  model.Select(3, 1);
  EXPECT_EQ(model.DeleteSelectedRows(), 2);
  model.Renumber();
  EXPECT_EQ(Texts(model, 0), (Strings{"1", "2", "3"}));
  EXPECT_EQ(Texts(model, 1), (Strings{"a", "c", "e"}));
  EXPECT_EQ(model.FirstSelected(), -1);
  EXPECT_STREQ(model.Text(3, 1), "");
  EXPECT_STREQ(model.Text(4, 1), "");
  EXPECT_EQ(model.Looks(3, 1).available, 1U);
}

TEST(DeletedRows, MayBeAll) {
  GridModel model = Grid(20, 10000, 10000, 0);
  for (int row = 0; row < 10000; ++row) model.Select(row, 1);
  EXPECT_EQ(model.DeleteSelectedRows(), 10000);
  EXPECT_EQ(model.ItemCount(), 0);
  EXPECT_EQ(model.DeleteSelectedRows(), 0);
}

TEST(Numbers, StandInTheirColumn) {
  GridModel model = Grid(3, 2, 2, 1);
  model.SetError(0, 1, 4);
  model.Renumber();
  EXPECT_EQ(Texts(model, 1), (Strings{"1", "2"}));
  EXPECT_EQ(model.Available(0, 1), 1U) << "numbering changes no flag";
  EXPECT_EQ(model.Error(0, 1), 4U);
}

TEST(Numbers, StandInTheFirstColumnForANumberTooHigh) {
  for (const int column : {20, 25, kMax}) {
    GridModel model = Grid(3, 1, 1, column);
    model.Renumber();
    EXPECT_STREQ(model.Text(0, 0), "1");
  }
}

TEST(Numbers, StandNowhereWithoutTheirColumn) {
  for (const int column : {kMin, -1, 3, 19}) {
    GridModel model = Grid(3, 1, 1, column);
    model.Renumber();
    for (int c = 0; c < 3; ++c) EXPECT_STREQ(model.Text(0, c), "");
  }
}

TEST(Numbers, StayWithinTheirCells) {
  GridModel model;
  model.SetTextLimit(0, 4);
  model.Init(1, 12345, 12345, 0);
  model.Renumber();
  EXPECT_STREQ(model.Text(9998, 0), "9999");
  EXPECT_STREQ(model.Text(12344, 0), "1234");
}

TEST(NewGrids, MoreRowsThanCanBeHadChangeNothing) {
  GridModel model = Grid(2, 1, 3);
  model.SetText(0, 1, "表");
  for (const int rows : {grid::kMaxRows + 1, 2'000'000'000, kMax}) {
    EXPECT_THROW(model.Init(20, 1, rows, 0), std::bad_alloc) << rows;
    EXPECT_EQ(model.Capacity(), 3);
    EXPECT_EQ(model.ColumnCount(), 2);
    EXPECT_STREQ(model.Text(0, 1), "表");
  }
}

}  // namespace
