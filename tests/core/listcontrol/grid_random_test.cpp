// Long random sequences of operations, on the model and on a plain grid, with every cell compared.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "dlglib/listcontrol/grid_model.h"
#include "tests/core/listcontrol/plain_grid.h"

namespace {

using grid::GridModel;
using grid_test::PlainGrid;

class Player {
 public:
  Player(unsigned int seed, const std::vector<int>& limits, int items, int capacity, int numberColumn)
      : random_(seed), plain_(limits, items, capacity, numberColumn) {
    for (std::size_t c = 0; c < limits.size(); ++c) model_.SetTextLimit(static_cast<int>(c), limits[c]);
    model_.Init(static_cast<int>(limits.size()), items, capacity, numberColumn);
  }

  void Play(int steps) {
    for (int step = 0; step < steps; ++step) {
      Step();
      // Every cell from time to time, as it takes long; the counts each time.
      ASSERT_EQ(model_.ItemCount(), plain_.count) << step;
      ASSERT_EQ(model_.FirstSelected(), plain_.FirstSelected()) << step;
      if (step % 16 == 0) Compare(step);
      if (testing::Test::HasFatalFailure()) return;
    }
    Compare(steps);
  }

 private:
  int Pick(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }
  // Now and then outside.
  int Row() { return Pick(-2, plain_.capacity + 1); }
  int Column() { return Pick(-2, static_cast<int>(plain_.limits.size()) + 1); }

  std::string Text() {
    static const std::vector<std::string> kCharacters = {"a", "Z", "0", " ", "表", "ソ", "ｱ", "ﾟ", "能", "\\"};
    std::string text;
    for (int left = Pick(0, 12); left > 0; --left) {
      text += kCharacters[static_cast<std::size_t>(Pick(0, static_cast<int>(kCharacters.size()) - 1))];
    }
    if (Pick(0, 9) == 0) text += '\x95';  // half a character
    return text;
  }

  void Step() {
    const int row = Row();
    const int column = Column();
    const auto flag = static_cast<unsigned int>(Pick(0, 3));
    const std::string text = Text();
    switch (Pick(0, 13)) {
      case 0:
      case 1:
        model_.SetText(row, column, text.c_str());
        return plain_.SetText(row, column, text);
      case 2:
        model_.TypeText(row, column, text.c_str());
        return plain_.TypeText(row, column, text);
      case 3:
        model_.SetColours(row, column, flag * 0x123456U, flag * 0x111111U);
        return plain_.SetColours(row, column, flag * 0x123456U, flag * 0x111111U);
      case 4:
        model_.SetAvailable(row, flag);
        return plain_.SetAvailable(row, flag);
      case 5:
        model_.SetAvailable(row, column, flag);
        return plain_.SetAvailable(row, column, flag);
      case 6:
        model_.SetError(row, column, flag);
        return plain_.SetError(row, column, flag);
      case 7:
      case 8:
        model_.Select(row, static_cast<int>(flag));
        return plain_.Select(row, static_cast<int>(flag));
      case 9:
        return Insert(plain_.count);
      case 10:
        return Insert(plain_.FirstSelected());
      case 11:
        EXPECT_EQ(model_.DeleteSelectedRows(), plain_.DeleteSelected());
        return;
      case 12:
        return Sundry();
      default:
        model_.Renumber();
        return plain_.Renumber();
    }
  }

  void Insert(int at) {
    const int before = plain_.count;
    plain_.Insert(at);
    EXPECT_EQ(model_.InsertRow(at), plain_.count != before);
  }

  void Sundry() {
    if (Pick(0, 1) == 0) {
      model_.ClearSelection();
      return plain_.ClearSelection();
    }
    plain_.count = Pick(0, plain_.capacity);
    model_.SetItemCount(plain_.count);
  }

  void Compare(int step) {
    for (int row = 0; row < plain_.capacity; ++row) {
      const auto& want = plain_.rows[static_cast<std::size_t>(row)];
      const int selected = row <= plain_.count ? want.selected : 0;
      ASSERT_EQ(model_.Selected(row), selected) << step << ": row " << row;
      for (int column = 0; column < model_.ColumnCount(); ++column) {
        const auto& cell = want.cells[static_cast<std::size_t>(column)];
        const grid::CellLooks looks = model_.Looks(row, column);
        const auto where = testing::Message() << "step " << step << ", cell " << row << ", " << column;
        ASSERT_EQ(std::string(model_.Text(row, column)), cell.content) << where;
        ASSERT_EQ(looks.available, cell.available) << where;
        ASSERT_EQ(looks.error, cell.error) << where;
        ASSERT_EQ(looks.text, cell.text) << where;
        ASSERT_EQ(looks.back, cell.back) << where;
      }
    }
  }

  std::mt19937 random_;
  GridModel model_;
  PlainGrid plain_;
};

TEST(RandomGrids, BehaveAsAPlainGrid) {
  for (unsigned int seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE(seed);
    Player(seed, {4, 10, 5, 385}, 5, 12, 0).Play(1500);
    if (HasFatalFailure()) return;
  }
}

TEST(RandomGrids, OfOneColumn) { Player(7, {4}, 0, 3, 0).Play(4000); }

TEST(RandomGrids, OfOneRow) { Player(8, {7, 8}, 1, 1, 1).Play(4000); }

TEST(RandomGrids, OfNoRow) { Player(9, {7, 8}, 0, 0, 1).Play(500); }

TEST(RandomGrids, OfAllColumnsWithoutNumbers) { Player(10, std::vector<int>(20, 6), 100, 150, -1).Play(1500); }

}  // namespace
