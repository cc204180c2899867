#include "dlglib/listcontrol/block_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <vector>

#include "tests/core/listcontrol/edited_grid.h"

namespace {

using grid::BlockReader;
using grid_test::EditedGrid;
using Rows = std::vector<std::vector<std::string>>;

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

Rows Read(std::string_view text) {
  Rows rows;
  BlockReader reader(text);
  bool begins = true;
  while (const auto field = reader.Next()) {
    if (begins) rows.emplace_back();
    rows.back().emplace_back(field->text);
    begins = field->endsRow;
  }
  EXPECT_TRUE(begins) << "the last row does not end";
  return rows;
}

struct Reading {
  const char* text;
  Rows rows;
};

const std::vector<Reading> kReadings = {
    {"", {}},
    {"a", {{"a"}}},
    {"a\tb\r\n", {{"a", "b"}}},
    {"a\tb\r\nc\td\r\n", {{"a", "b"}, {"c", "d"}}},
    {"a\nb\n", {{"a"}, {"b"}}},
    {"a\rb\r", {{"a"}, {"b"}}},
    {"a\r\nb", {{"a"}, {"b"}}},
    {"a\n\rb", {{"a"}, {""}, {"b"}}},
    {"\r\n", {{""}}},
    {"\r\n\r\n", {{""}, {""}}},
    {"a\r\n\r\nb", {{"a"}, {""}, {"b"}}},
    {"\t", {{"", ""}}},
    {"a\t", {{"a", ""}}},
    {"\tb\r\nc", {{"", "b"}, {"c"}}},
    {"a\tb\tc\r\nd", {{"a", "b", "c"}, {"d"}}},
    {"a\"b\tc\"", {{"a\"b", "c\""}}},
    {"\"a\"", {{"a"}}},
    {"\"a\tb\"\tc", {{"a\tb", "c"}}},
    {"\"a\"\"b\"", {{"a\"b"}}},
    {"\"\"", {{""}}},
    {"\"\"\"\"", {{"\""}}},
    {"\"a\"bc\td", {{"abc", "d"}}},
    {"\"a\"b\"c\"\td", {{"ab\"c\"", "d"}}},
    {"\"a\r\nb\"\r\nc", {{"a b"}, {"c"}}},
    {"\"a\nb\rc\n\rd\"", {{"a b c  d"}}},
    {"\"a\tb\r\nc", {{"a\tb c"}}},
    {"\"a\r\n", {{"a "}}},
    {"\"", {{""}}},
    {"x\t\"", {{"x", ""}}},
    {"\"a\"\r\n\"b\"\r\n", {{"a"}, {"b"}}},
    {"表\t能\r\n", {{"表", "能"}}},
};

TEST(ReadBlocks, AreTakenApartAsSpreadsheetsWriteThem) {
  for (const Reading& reading : kReadings) EXPECT_EQ(Read(reading.text), reading.rows) << reading.text;
}

TEST(ReadBlocks, EndAtAZeroByte) {
  EXPECT_EQ(Read(std::string_view("a\tb\0c\td", 7)), (Rows{{"a", "b"}}));
  EXPECT_EQ(Read(std::string_view("\0a", 2)), Rows());
}

TEST(ReadBlocks, TakeTheSecondByteOfACharacterForNothingElse) {
  EXPECT_EQ(Read("\x81\x09x\ty"), (Rows{{"\x81\x09x", "y"}}));
  EXPECT_EQ(Read("\"\x81\"x\"\ty"), (Rows{{"\x81\"x", "y"}}));
  EXPECT_EQ(Read("a\x81"), (Rows{{"a\x81"}}));
}

TEST(ReadBlocks, SayWhereACellStandsInTheText) {
  BlockReader reader("ab\t\"c\"\"d\"e\r\nf");
  std::vector<std::pair<std::size_t, std::size_t>> places;
  while (const auto field = reader.Next()) places.emplace_back(field->from, field->to);
  EXPECT_EQ(places, (std::vector<std::pair<std::size_t, std::size_t>>{{0, 2}, {3, 10}, {12, 13}}));
}

TEST(ReadBlocks, HoldOneCellOrSeveral) {
  EXPECT_FALSE(grid::HoldsSeveralCells(""));
  EXPECT_FALSE(grid::HoldsSeveralCells("a"));
  EXPECT_FALSE(grid::HoldsSeveralCells("a\r\n"));
  EXPECT_FALSE(grid::HoldsSeveralCells("\"a\tb\"\r\n"));
  EXPECT_TRUE(grid::HoldsSeveralCells("a\tb"));
  EXPECT_TRUE(grid::HoldsSeveralCells("a\r\n\r\n"));
}

std::string Block(const EditedGrid& grid, int row, int column, int rows, int columns) {
  return grid::BlockText(grid.Cells(), grid::CutBlock(grid.model, row, column, rows, columns));
}

TEST(WrittenBlocks, HaveTabsAndALineEndBehindEachRow) {
  EditedGrid grid(3, 2, 4);
  grid.Fill({"a|b|c", "d||f"});
  EXPECT_EQ(Block(grid, 0, 0, 2, 3), "a\tb\tc\r\nd\t\tf\r\n");
  EXPECT_EQ(Block(grid, 1, 0, 1, 2), "d\t\r\n");
  EXPECT_EQ(Block(grid, 0, 1, 1, 1), "b\r\n");
}

TEST(WrittenBlocks, QuoteWhatWouldBeTakenApart) {
  EditedGrid grid(1, 1, 1);
  const auto written = [&grid](const char* text) {
    grid.model.SetText(0, 0, text);
    return Block(grid, 0, 0, 1, 1);
  };
  EXPECT_EQ(written("a\tb"), "\"a\tb\"\r\n");
  EXPECT_EQ(written("a\rb"), "\"a\rb\"\r\n");
  EXPECT_EQ(written("a\nb"), "\"a\nb\"\r\n");
  EXPECT_EQ(written("a\"b"), "\"a\"\"b\"\r\n");
  EXPECT_EQ(written("\""), "\"\"\"\"\r\n");
  EXPECT_EQ(written(" a,b "), " a,b \r\n");
  EXPECT_EQ(written("表\"表"), "\"表\"\"表\"\r\n");
  EXPECT_EQ(written("\x81\x22"), "\x81\x22\r\n") << "half of a character is no quote";
}

TEST(WrittenBlocks, AreCutAtTheUsedRowsAndTheColumns) {
  EditedGrid grid(2, 2, 5);
  grid.Fill({"a|b", "c|d", "e|f"});
  EXPECT_EQ(Block(grid, -1, -1, 3, 3), "a\tb\r\nc\td\r\n");
  EXPECT_EQ(Block(grid, 1, 1, 9, 9), "d\r\n");
  EXPECT_EQ(Block(grid, 0, 0, kMax, kMax), "a\tb\r\nc\td\r\n");
  EXPECT_EQ(Block(grid, kMax, kMax, kMax, kMax), "");
  EXPECT_EQ(Block(grid, kMin, kMin, kMax, kMax), "");
  EXPECT_EQ(Block(grid, 0, 0, 0, 1), "");
  EXPECT_EQ(Block(grid, 0, 0, 1, 0), "");
  EXPECT_EQ(Block(grid, 0, 0, -1, kMin), "");
  EXPECT_EQ(Block(grid, 2, 0, 1, 1), "");
  EXPECT_EQ(Block(grid, 0, 2, 1, 1), "");
}

TEST(WrittenBlocks, CountTheirCells) {
  const EditedGrid grid(3, 4, 5);
  EXPECT_EQ(grid::CutBlock(grid.model, 1, 1, 9, 9).Count(), 6U);
  EXPECT_EQ(grid::CutBlock(grid.model, 9, 1, 9, 9).Count(), 0U);
  EXPECT_EQ(grid::CutBlock(grid.model, 1, 9, 9, 9).Count(), 0U);
}

TEST(WrittenBlocks, LeaveColoursEmptyAndKeepNumbers) {
  EditedGrid grid(3, 2, 2, 0);
  grid.editors[1].kind = 1;
  grid.Fill({"|red|x", "|blue|y"});
  grid.model.Renumber();
  EXPECT_EQ(Block(grid, 0, 0, 2, 3), "1\t\tx\r\n2\t\ty\r\n");
  std::array<char, 16> out = {};
  EXPECT_EQ(grid::CellsText(grid.Cells(), grid::CutBlock(grid.model, 0, 0, 2, 3), out.data(), 16), 13);
  EXPECT_STREQ(out.data(), "1\t\tx\r\n2\t\ty\r\n");
}

TEST(WrittenBlocks, HoldTheSelectedRowsWhole) {
  EditedGrid grid(2, 4, 4);
  grid.Fill({"a|b", "c|d", "e|f", "g|h"});
  EXPECT_EQ(grid::SelectedBlock(grid.model).Count(), 0U);
  grid.model.Select(1, 1);
  grid.model.Select(3, 1);
  EXPECT_EQ(grid::BlockText(grid.Cells(), grid::SelectedBlock(grid.model)), "c\td\r\ng\th\r\n");
}

TEST(WrittenBlocks, NeedTheirBytesAndATerminator) {
  EditedGrid grid(2, 1, 1);
  grid.Fill({"ab|c\"d"});
  const grid::CellBlock all = grid::CutBlock(grid.model, 0, 0, 1, 2);
  const std::string text = "ab\t\"c\"\"d\"\r\n";
  for (int size = 1; size < 16; ++size) {
    // Of exactly the size, so that a sanitizer sees every byte too many.
    std::vector<char> out(static_cast<std::size_t>(size), '#');
    EXPECT_EQ(grid::CellsText(grid.Cells(), all, out.data(), size), static_cast<int>(text.size()) + 1);
    EXPECT_EQ(std::string(out.data()), static_cast<std::size_t>(size) > text.size() ? text : "") << size;
  }
}

TEST(WrittenBlocks, TakeNoBufferAndNothingToGive) {
  EditedGrid grid(1, 1, 1);
  grid.Fill({"ab"});
  const grid::CellBlock all = grid::CutBlock(grid.model, 0, 0, 1, 1);
  std::array<char, 8> out = {'#', '#'};
  EXPECT_EQ(grid::CellsText(grid.Cells(), all, nullptr, 100), 5);
  EXPECT_EQ(grid::CellsText(grid.Cells(), all, out.data(), 0), 5);
  EXPECT_EQ(grid::CellsText(grid.Cells(), all, out.data(), kMin), 5);
  EXPECT_EQ(out[0], '#');
  grid.Fill({"a"});
  EXPECT_EQ(grid::CellsText(grid.Cells(), all, nullptr, 0), 4);
  EXPECT_EQ(grid::CellsText(grid.Cells(), grid::CutBlock(grid.model, 1, 0, 1, 1), out.data(), 8), 1);
  EXPECT_STREQ(out.data(), "");
}

TEST(WrittenBlocks, AreReadBackAsTheyWere) {
  EditedGrid grid(3, 2, 2);
  grid.Fill({"a\tb|c\"d\"|", "\"|表 |\xB1"});
  EXPECT_EQ(Read(Block(grid, 0, 0, 2, 3)), (Rows{{"a\tb", "c\"d\"", ""}, {"\"", "表 ", "\xB1"}}));
}

TEST(SingleCells, AreTheirTextWithoutQuotesAndLineEnd) {
  EXPECT_EQ(grid::SingleCell("7\r\n"), "7");
  EXPECT_EQ(grid::SingleCell("\"a\"\"\tb\"\r\n"), "a\"\tb");
  EXPECT_EQ(grid::SingleCell("\r\n"), "");
  EXPECT_EQ(grid::SingleCell(""), std::nullopt);
  EXPECT_EQ(grid::SingleCell("a\tb"), std::nullopt);
  EXPECT_EQ(grid::SingleCell("a\nb"), std::nullopt);
}

}  // namespace
