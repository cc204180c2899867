#include "dlglib/listcontrol/cell_item.h"

#include <gtest/gtest.h>

#include <array>
#include <span>
#include <string>
#include <vector>

namespace grid {
namespace {

class CellItems : public testing::Test {
 protected:
  CellItems() {
    model_.Init(2, 3, 5, kNoColumn);
    model_.SetText(1, 0, "ボルト");
  }
  [[nodiscard]] accessible::Item Item(int row, const SpokenColumn& column = {.title = "品名", .entries = {}}) const {
    return CellItem(model_, {row, 0}, column);
  }

  GridModel model_;
};

TEST_F(CellItems, AreCalledAfterTheirColumnAndSayTheirText) {
  const auto item = Item(1);
  EXPECT_EQ(item.name, "品名");
  EXPECT_EQ(item.value, "ボルト");
  EXPECT_EQ(item.description, "");
  EXPECT_EQ(item.role, accessible::Role::Cell);
  EXPECT_EQ(item.states, accessible::kFocusable | accessible::kSelectable);
}

TEST_F(CellItems, SayWhatIsWrongAndWhatIsNotAvailable) {
  model_.SetError(1, 0, 1);
  EXPECT_EQ(Item(1).description, "誤り");
  model_.SetAvailable(1, 0, 1);
  EXPECT_EQ(Item(1).description, "使用不可、誤り");
  EXPECT_EQ(Item(1).states, accessible::kUnavailable);
  EXPECT_EQ(Item(0).description, "使用不可");
  EXPECT_EQ(Item(0).action, "");
}

TEST_F(CellItems, AreEditedWhereTheyHaveEditorsAndElseSelected) {
  EXPECT_EQ(Item(1, {.title = "品名", .entries = {}, .hasBox = true}).action, "編集");
  EXPECT_EQ(Item(1, {.title = "材質", .entries = {}, .hasList = true}).action, "編集");
  EXPECT_EQ(Item(1).action, "選択");
}

TEST_F(CellItems, SayThatAListDropsDownWhereItCan) {
  const SpokenColumn column{.title = "材質", .entries = {}, .hasList = true};
  EXPECT_NE(Item(1, column).states & accessible::kHasPopup, 0U);
  EXPECT_EQ(Item(1).states & accessible::kHasPopup, 0U);
  model_.SetAvailable(1, 0, 1);
  EXPECT_EQ(Item(1, column).states & accessible::kHasPopup, 0U);
}

TEST_F(CellItems, OfASelectedRowAreSelected) {
  model_.Select(1, 1);
  EXPECT_NE(Item(1).states & accessible::kSelected, 0U);
  EXPECT_NE(RowItem(model_, 1, {}).states & accessible::kSelected, 0U);
  EXPECT_EQ(RowItem(model_, 1, {}).name, "2 行");
  EXPECT_EQ(RowItem(model_, 0, {}).states & accessible::kSelected, 0U);
}

TEST_F(CellItems, OfARowSayItsFirstTexts) {
  GridModel model;
  constexpr std::array<int, 5> kAll = {0, 1, 2, 3, 4};
  model.Init(5, 2, 5, kNoColumn);
  EXPECT_EQ(RowItem(model, 1, kAll).value, "");
  for (const int col : {1, 2, 3, 4}) model.SetText(1, col, std::to_string(col).c_str());
  EXPECT_EQ(RowItem(model, 1, kAll).value, "1、2、3");
  EXPECT_EQ(RowItem(model, 1, std::span(kAll).subspan(4)).value, "4");
  EXPECT_EQ(RowItem(model, 0, kAll).value, "");
}

TEST_F(CellItems, OfAColourColumnSayTheEntryOfTheirList) {
  const std::vector<std::string> entries = {"1 赤", "12 青", "緑"};
  const SpokenColumn column{.title = "色", .kind = kColourColumn, .entries = entries, .separator = ' '};
  model_.SetColours(1, 0, 0x0000FF, kWhite);
  model_.TypeText(1, 0, "12");
  EXPECT_EQ(Item(1, column).value, "12 青");
  model_.TypeText(1, 0, "緑");
  EXPECT_EQ(Item(1, column).value, "緑") << "an entry that is its own value";
  model_.TypeText(1, 0, "2");
  EXPECT_EQ(Item(1, column).value, "赤") << "no entry of the list: by its colour";
  model_.TypeText(1, 0, "");
  EXPECT_EQ(Item(1, column).value, "赤");
}

TEST(ColourNames, AreThoseOfTheNearestColour) {
  EXPECT_STREQ(ColourName(kBlack), "黒");
  EXPECT_STREQ(ColourName(kWhite), "白");
  EXPECT_STREQ(ColourName(0x3030E0), "赤");
  EXPECT_STREQ(ColourName(0x10F0F0), "黄");
  EXPECT_STREQ(ColourName(0x777777), "灰色");
}

TEST(BoxNames, SayColumnAndRow) { EXPECT_EQ(BoxName({1, 2}, "品名"), "品名、2 行"); }

}  // namespace
}  // namespace grid
