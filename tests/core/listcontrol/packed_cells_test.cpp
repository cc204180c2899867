#include "dlglib/listcontrol/packed_cells.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using grid::Mark;
using grid::PackedCells;
using Strings = std::vector<std::string>;

Strings CellsOf(const PackedCells& pack) {
  Strings cells;
  pack.ForEach([&](const PackedCells::Cell& cell) {
    cells.push_back(std::to_string(cell.row) + "," + std::to_string(cell.column) + "=" + std::string(cell.text) +
                    (cell.mark == Mark::OfProgram ? "*" : ""));
    return true;
  });
  return cells;
}

TEST(PackedNumbers, ComeBack) {
  for (const std::size_t number : {std::size_t{0}, std::size_t{127}, std::size_t{128}, std::size_t{771},
                                   std::numeric_limits<std::size_t>::max()}) {
    std::string bytes;
    grid::PutNumber(&bytes, number);
    bytes += "rest";
    std::string_view view = bytes;
    EXPECT_EQ(grid::ReadNumber(&view), number);
    EXPECT_EQ(view, "rest");
  }
}

TEST(PackedTexts, ComeBackInTheirOrder) {
  PackedCells pack;
  pack.Add(3, 0, "a", Mark::None);
  pack.Add(3, 19, "", Mark::OfProgram);
  pack.Add(4, 0, std::string(385, 'x'), Mark::OfProgram);
  pack.Add(4, 19, "b", Mark::None);
  pack.Add(9, 2, "c", Mark::None);
  pack.Finish();
  EXPECT_EQ(CellsOf(pack), (Strings{"3,0=a", "3,19=*", "4,0=" + std::string(385, 'x') + "*", "4,19=b", "9,2=c"}));
}

TEST(PackedTexts, MayBeNone) {
  PackedCells pack;
  pack.Finish();
  EXPECT_TRUE(pack.IsEmpty());
  EXPECT_TRUE(CellsOf(pack).empty());
}

TEST(PackedTexts, AreGoneThroughUntilTheCallerHasEnough) {
  PackedCells pack;
  for (int row = 0; row < 5; ++row) pack.Add(row, 1, "x", Mark::None);
  pack.Finish();
  int visited = 0;
  pack.ForEach([&](const PackedCells::Cell& cell) {
    ++visited;
    return cell.row < 2;
  });
  EXPECT_EQ(visited, 3);
}

TEST(PackedTexts, CostOneByteMoreThanTheirOwn) {
  PackedCells pack;
  std::size_t bytes = 0;
  for (int row = 0; row < 1000; ++row) {
    for (int column = 0; column < 20; ++column) {
      const std::string text(static_cast<std::size_t>(row + column) % 7, 'x');
      pack.Add(row, column, text, Mark::None);
      bytes += text.size() + 1;
    }
  }
  pack.Finish();
  EXPECT_LE(pack.Bytes(), bytes + 64);
}

TEST(PackedTexts, OfAnyCellsComeBack) {
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    PackedCells pack;
    Strings wanted;
    const auto density = random() % 4 + 1;
    for (int row = 0; row < 12; ++row) {
      for (int column = 0; column < 20; ++column) {
        if (random() % density != 0) continue;
        const Mark mark = random() % 2 == 0 ? Mark::None : Mark::OfProgram;
        const std::string text(random() % 3 == 0 ? random() % 200 : 2, 'a');
        pack.Add(row, column, text, mark);
        wanted.push_back(std::to_string(row) + "," + std::to_string(column) + "=" + text +
                         (mark == Mark::OfProgram ? "*" : ""));
      }
    }
    pack.Finish();
    ASSERT_EQ(CellsOf(pack), wanted) << round;
  }
}

TEST(PackedWholeRows, ComeBackWhereOneThingIsOtherThanInTheRowBefore) {
  grid::GridModel model;
  model.Init(1, 6, 6, -1);
  const std::vector<grid::CellLooks> rows = {{}, {0, 0, 0, 1}, {0, 0, 0, 8}, {0, 0, 7, 8}, {0, 6, 7, 8}, {5, 6, 7, 8}};
  grid::RowPacker packer;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    model.SetLooks(static_cast<int>(row), 0, rows[row]);
    packer.Add(model, static_cast<int>(row), 0);
  }
  const std::string bytes = packer.Finish();
  grid::GridModel other;
  other.Init(1, 6, 6, -1);
  grid::RowUnpacker unpacker(bytes);
  for (int row = 0; row < 6; ++row) {
    unpacker.PutNext(&other, row);
    const grid::CellLooks looks = other.Looks(row, 0);
    const grid::CellLooks& wanted = rows[static_cast<std::size_t>(row)];
    EXPECT_EQ(looks.available, wanted.available) << row;
    EXPECT_EQ(looks.error, wanted.error) << row;
    EXPECT_EQ(looks.text, wanted.text) << row;
    EXPECT_EQ(looks.back, wanted.back) << row;
  }
}

TEST(PackedWholeRows, ComeBackWithFlagsColoursAndMarks) {
  grid::GridModel model;
  model.Init(3, 4, 4, -1);
  model.SetText(0, 0, "a");
  model.SetColours(1, 1, 0x123456, 0x654321);
  model.SetText(1, 2, "bb");
  model.SetError(1, 2, 7);
  model.SetAvailable(2, 2, 5);
  grid::RowPacker packer;
  for (int row = 0; row < 3; ++row) packer.Add(model, row, row == 1 ? 0x80001U : 0U);
  const std::string bytes = packer.Finish();

  grid::GridModel other;
  other.Init(3, 4, 4, -1);
  for (int row = 0; row < 4; ++row) other.SetText(row, 1, "old");
  grid::RowUnpacker unpacker(bytes);
  EXPECT_EQ(unpacker.PutNext(&other, 1), 0U);
  EXPECT_EQ(unpacker.PutNext(&other, 2), 0x80001U);
  EXPECT_EQ(unpacker.PutNext(&other, 0), 0U);
  const int rows[] = {1, 2, 0};
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      EXPECT_STREQ(other.Text(rows[row], column), model.Text(row, column));
      const grid::CellLooks put = other.Looks(rows[row], column);
      const grid::CellLooks looks = model.Looks(row, column);
      EXPECT_EQ(put.available, looks.available);
      EXPECT_EQ(put.error, looks.error);
      EXPECT_EQ(put.text, looks.text);
      EXPECT_EQ(put.back, looks.back);
    }
  }
  EXPECT_STREQ(other.Text(3, 1), "old");
}

TEST(PackedWholeRows, CostLittleWhereRowsAreAlike) {
  grid::GridModel model;
  model.Init(20, 100, 100, -1);
  for (int row = 0; row < 100; ++row) {
    model.SetAvailable(row, 0);
    for (int column = 0; column < 20; ++column) model.SetColours(row, column, static_cast<unsigned>(column), 0xEEEEEE);
  }
  grid::RowPacker packer;
  for (int row = 0; row < 100; ++row) packer.Add(model, row, 0);
  EXPECT_LE(packer.Finish().size(), 100U * 21 + 20 * sizeof(grid::CellLooks));
}

}  // namespace
