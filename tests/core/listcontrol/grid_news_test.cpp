#include "dlglib/listcontrol/grid_news.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/listcontrol/grid_editing.h"

namespace grid {
namespace {

constexpr int kRows = 50;
constexpr int kColumns = 3;
constexpr int kCapacity = 100;

using Focus = Standing::Focus;

class GridNewsTest : public testing::Test {
 protected:
  GridNewsTest() {
    model_.Init(kColumns, kRows, kCapacity, kNoColumn);
    for (int row = 0; row < kRows; ++row) {
      for (int col = 0; col < kColumns; ++col) model_.SetText(row, col, "x");
    }
    news_.Forget();
    editing_.NoteIn(&news_);
  }
  [[nodiscard]] std::vector<News> Take(const Standing& standing = {}) { return news_.Take(standing); }
  /// As the program sets a cell.
  void Set(CellPosition cell, const char* text) {
    const SetCell watch(model_, &news_, cell);
    model_.SetText(cell.row, cell.column, text);
  }
  [[nodiscard]] static News OfRow(NewsKind kind, int row) { return {kind, {row, kNoColumn}}; }

  GridModel model_;
  int begun_ = 0;
  bool isHeard_ = true;
  GridNews news_{&model_, [this] {
                   ++begun_;
                   return isHeard_;
                 }};
  GridEditing editing_{&model_};
};

using All = std::vector<News>;

TEST_F(GridNewsTest, EachCellIsToldOnceForEachKindOfChange) {
  for (int times = 0; times < 3; ++times) {
    news_.NoteValue({1, 2});
    news_.NoteState({1, 2});
  }
  news_.NoteValue({0, 0});
  EXPECT_EQ(begun_, 1);
  EXPECT_TRUE(news_.WillTell());
  EXPECT_EQ(Take(), (All{{NewsKind::Value, {1, 2}}, {NewsKind::State, {1, 2}}, {NewsKind::Value, {0, 0}}}));
  EXPECT_EQ(Take(), All{});
}

TEST_F(GridNewsTest, ACellOutsideIsNobodys) {
  for (const CellPosition cell : {CellPosition{kRows, 0}, {-1, 0}, {0, kColumns}, {0, -1}}) news_.NoteValue(cell);
  EXPECT_EQ(begun_, 0);
  EXPECT_EQ(Take(), All{});
}

TEST_F(GridNewsTest, ACellWhoseRowHasGoneMeanwhileIsNotTold) {
  news_.NoteValue({kRows - 1, 0});
  model_.SetItemCount(kRows - 1);
  EXPECT_EQ(Take(), All{OfRow(NewsKind::RowWent, kRows - 1)});
}

TEST_F(GridNewsTest, MoreCellsThanCanBeToldAreOneChange) {
  for (int row = 0; row < GridNews::kMostAtOnce; ++row) news_.NoteValue({row, 0});
  EXPECT_TRUE(news_.WantsCells());
  EXPECT_EQ(Take().size(), std::size_t{GridNews::kMostAtOnce});
  for (int row = 0; row <= GridNews::kMostAtOnce; ++row) news_.NoteValue({row, 0});
  EXPECT_FALSE(news_.WantsCells());
  EXPECT_TRUE(news_.WillTell());
  news_.NoteState({1, 1});
  EXPECT_EQ(Take(), All{{NewsKind::Reordered}});
  EXPECT_TRUE(news_.WantsCells());
}

TEST_F(GridNewsTest, NobodyWhoHearsIsToldNothingAndLooksAtNoCells) {
  isHeard_ = false;
  news_.NoteReorder();
  news_.NoteValue({2, 2});
  Set({1, 1}, "y");
  EXPECT_FALSE(news_.WantsCells());
  EXPECT_FALSE(news_.WillTell());
  model_.Select(3, 1);
  model_.SetItemCount(kRows + 1);
  EXPECT_EQ(begun_, 1);
  EXPECT_EQ(Take({Focus::List, {}, 3}), All{});
  isHeard_ = true;
  news_.NoteStanding();
  EXPECT_EQ(Take({Focus::List, {}, 3}), All{}) << "what was there already is no news";
}

TEST_F(GridNewsTest, RowsAtTheEndThatComeOrGoAreToldOneByOneUpToALimit) {
  model_.SetItemCount(kRows + 2);
  news_.NoteStanding();
  EXPECT_EQ(Take(), (All{OfRow(NewsKind::RowCame, kRows), OfRow(NewsKind::RowCame, kRows + 1)}));
  model_.SetItemCount(kRows);
  EXPECT_EQ(Take(), (All{OfRow(NewsKind::RowWent, kRows + 1), OfRow(NewsKind::RowWent, kRows)}));
  news_.NoteValue({0, 0});
  model_.SetItemCount(kRows - GridNews::kMostAtOnce - 1);
  EXPECT_EQ(Take(), All{{NewsKind::Reordered}});
  model_.SetItemCount(kRows);
  EXPECT_EQ(Take(), All{{NewsKind::Reordered}});
}

TEST_F(GridNewsTest, ChangesOfTheSelectionAreToldByWhatTheyAre) {
  model_.Select(3, 1);
  EXPECT_EQ(Take(), All{OfRow(NewsKind::OnlySelected, 3)});
  model_.Select(7, 1);
  EXPECT_EQ(Take(), All{OfRow(NewsKind::Selected, 7)});
  model_.Select(3, 0);
  EXPECT_EQ(Take(), All{OfRow(NewsKind::NotSelected, 3)});
  model_.Select(7, 0);
  model_.Select(5, 1);
  EXPECT_EQ(Take(), All{OfRow(NewsKind::OnlySelected, 5)});
  for (int row = 10; row < 20; ++row) model_.Select(row, 1);
  EXPECT_EQ(Take(), All{{NewsKind::SeveralSelected}});
  model_.ClearSelection();
  EXPECT_EQ(Take(), All{{NewsKind::SeveralSelected}});
  EXPECT_EQ(Take(), All{});
}

TEST_F(GridNewsTest, ARowThatIsSelectedByTheEditOfItsCellIsToldWithTheCell) {
  model_.Select(3, 1);
  const Standing onList = {Focus::List, {3, 1}, 3};
  EXPECT_EQ(Take(onList), (All{{NewsKind::OnlySelected, {3, 1}}, {NewsKind::Focused, {3, 1}}}));
  EXPECT_EQ(Take(onList), All{});
  model_.Select(3, 0);
  model_.Select(4, 1);
  news_.CellTold({4, 1});
  EXPECT_TRUE(news_.IsTold({4, 1}));
  EXPECT_EQ(Take({Focus::Box, {4, 1}, 4}), All{});
}

TEST_F(GridNewsTest, ABoxTellsOfItsFocusItself) {
  EXPECT_EQ(Take({Focus::Box, {3, 1}, 3}), All{});
  EXPECT_TRUE(news_.IsTold({3, 1}));
}

TEST_F(GridNewsTest, TheRowThatHasTheKeyboardIsToldOnceUntilTheKeyboardComesBack) {
  const Standing onRow = {Focus::List, {}, 6};
  EXPECT_EQ(Take(onRow), All{OfRow(NewsKind::Focused, 6)});
  EXPECT_EQ(Take(onRow), All{});
  EXPECT_EQ(Take({Focus::Elsewhere, {}, 6}), All{});
  EXPECT_EQ(Take(onRow), All{OfRow(NewsKind::Focused, 6)});
  EXPECT_EQ(Take({Focus::List, {}, kRows}), All{}) << "not in use";
  EXPECT_EQ(Take({Focus::List, {}, kNoRow}), All{});
}

TEST_F(GridNewsTest, EachEntryOfAnOpenListIsToldOnceAndItsCellWhenItHasClosed) {
  const CellPosition cell = {3, 1};
  for (const Focus focus : {Focus::Box, Focus::List}) {
    const Standing closed = {focus, cell, 3};
    static_cast<void>(Take(closed));
    const Standing open = {focus, cell, 3, 2};
    EXPECT_EQ(Take(open), All{{NewsKind::Entry}});
    EXPECT_EQ(Take(open), All{});
    EXPECT_EQ(Take({focus, cell, 3, -1}), All{{NewsKind::Entry}}) << "none is selected";
    EXPECT_EQ(Take(closed), (All{{NewsKind::Focused, cell}}));
    EXPECT_EQ(Take(closed), All{});
  }
}

TEST_F(GridNewsTest, TheListOfAnotherCellIsToldBehindItsCell) {
  static_cast<void>(Take({Focus::List, {3, 1}, 3, 2}));
  EXPECT_EQ(Take({Focus::List, {4, 1}, 4, 2}),
            (All{{NewsKind::OnlySelected, {4, 1}}, {NewsKind::Focused, {4, 1}}, {NewsKind::Entry}}));
  news_.CellTold({5, 1});
  EXPECT_EQ(Take({Focus::Box, {5, 1}, 5, 2}), All{{NewsKind::Entry}});
  news_.CellTold({6, 1});
  EXPECT_EQ(Take({Focus::Box, {6, 1}, 6}), All{}) << "the cell has been told of";
}

TEST_F(GridNewsTest, TheEndOfAListIsNotToldWhileTheKeyboardIsElsewhere) {
  static_cast<void>(Take({Focus::Box, {3, 1}, 3, 2}));
  EXPECT_EQ(Take({Focus::Elsewhere, {3, 1}, 3}), All{});
}

TEST_F(GridNewsTest, TheFocusIsTheEditedCellOrTheListsRow) {
  EXPECT_EQ(GridNews::FocusOf(model_, {Focus::List, {2, 1}, 5}), (CellPosition{2, 1}));
  EXPECT_EQ(GridNews::FocusOf(model_, {Focus::Box, {2, 1}, 5}), (CellPosition{2, 1}));
  EXPECT_EQ(GridNews::FocusOf(model_, {Focus::List, {kRows, 1}, 5}), (CellPosition{5, kNoColumn}));
  EXPECT_EQ(GridNews::FocusOf(model_, {Focus::List, {2, kNoColumn}, 5}), (CellPosition{5, kNoColumn}));
  EXPECT_EQ(GridNews::FocusOf(model_, {Focus::Box, {}, 5}), CellPosition{});
  EXPECT_EQ(GridNews::FocusOf(model_, {Focus::List, {}, kRows}), CellPosition{});
}

TEST_F(GridNewsTest, NothingHasTheFocusWhileTheKeyboardIsElsewhere) {
  EXPECT_EQ(GridNews::FocusOf(model_, {Focus::Elsewhere, {2, 1}, 5}), CellPosition{});
  static_cast<void>(Take({Focus::Box, {2, 1}, 2}));
  EXPECT_EQ(Take({Focus::Elsewhere, {2, 1}, 2}), All{});
  EXPECT_FALSE(news_.IsTold({2, 1}));
}

TEST_F(GridNewsTest, OtherRowsInTheSamePlacesAreAnotherArrangement) {
  auto isOther = [this, last = news_.Arrangement()](const std::function<void()>& change) mutable {
    change();
    return std::exchange(last, news_.Arrangement()) != news_.Arrangement();
  };
  EXPECT_TRUE(isOther([&] { news_.RowsTold(); })) << "one has come in between";
  EXPECT_TRUE(isOther([&] { news_.NoteReorder(); }));
  EXPECT_TRUE(isOther([&] { news_.NoteRowCount(); }));
  EXPECT_TRUE(isOther([&] { news_.Forget(); }));
  EXPECT_FALSE(isOther([&] { news_.NoteStanding(); }));
  EXPECT_FALSE(isOther([&] { news_.NoteValue({1, 1}); }));
  EXPECT_FALSE(isOther([&] { static_cast<void>(Take()); }));
}

TEST_F(GridNewsTest, RowsThatMoveAreOtherRowsToTheSelectionAndTheFocus) {
  model_.Select(3, 1);
  static_cast<void>(Take({Focus::List, {}, 3}));
  news_.NoteValue({4, 1});
  news_.NoteReorder();
  EXPECT_EQ(Take({Focus::List, {}, 3}),
            (All{{NewsKind::Reordered}, OfRow(NewsKind::OnlySelected, 3), OfRow(NewsKind::Focused, 3)}));
  model_.InsertRow(3);
  news_.RowsTold();
  EXPECT_EQ(Take({Focus::List, {}, 3}), (All{OfRow(NewsKind::OnlySelected, 3), OfRow(NewsKind::Focused, 3)}));
}

TEST_F(GridNewsTest, ASelectionBehindTheLastRowHasGoneWithIt) {
  model_.Select(kRows - 1, 1);
  static_cast<void>(Take());
  model_.SetItemCount(kRows - 1);
  EXPECT_EQ(Take(), All{OfRow(NewsKind::RowWent, kRows - 1)});
}

TEST_F(GridNewsTest, CellsAreTakenAloneBeforeTheirRowsMove) {
  news_.NoteValue({4, 1});
  model_.Select(3, 1);
  EXPECT_EQ(news_.TakeCells(), (All{{NewsKind::Value, {4, 1}}}));
  EXPECT_EQ(Take(), All{OfRow(NewsKind::OnlySelected, 3)});
}

TEST_F(GridNewsTest, WhatTheProgramSetsIsAChangeWhenTheCellIsAnotherOne) {
  Set({1, 1}, "x");
  EXPECT_EQ(begun_, 0) << "the same text";
  model_.SetError(1, 1, 1);
  Set({1, 1}, "x");
  EXPECT_EQ(Take(), (All{{NewsKind::State, {1, 1}}}));
  model_.SetAvailable(1, 1, 1);
  Set({1, 1}, "y");
  EXPECT_EQ(Take(), (All{{NewsKind::Value, {1, 1}}, {NewsKind::State, {1, 1}}}));
  {
    const SetCell watch(model_, &news_, {1, 1});
    model_.SetError(1, 1, 1);
    model_.SetError(1, 1, 0);
  }
  EXPECT_EQ(Take(), All{});
}

TEST_F(GridNewsTest, WhatAUserTypesIsNoNewsBeforeItIsToldOf) {
  editing_.BeginVisit({2, 0});
  editing_.Type({2, 0}, "a");
  editing_.Type({2, 0}, "ab");
  EXPECT_EQ(begun_, 0);
  static_cast<void>(editing_.CollectVisitChange());
  EXPECT_EQ(Take(), (All{{NewsKind::Value, {2, 0}}}));
  static_cast<void>(editing_.CollectVisitChange());
  EXPECT_EQ(begun_, 1);
}

TEST_F(GridNewsTest, APickIsNewsOfTheStateThatItClearsAndItsUndoToo) {
  model_.SetError(2, 0, 1);
  editing_.BeginVisit({2, 0});
  editing_.Pick({2, 0}, "p");
  static_cast<void>(editing_.CollectVisitChange());
  const All both = {{NewsKind::State, {2, 0}}, {NewsKind::Value, {2, 0}}};
  EXPECT_EQ(Take(), both);
  editing_.Pick({2, 0}, "q");
  static_cast<void>(editing_.CollectVisitChange());
  EXPECT_EQ(Take(), (All{{NewsKind::Value, {2, 0}}}));
  editing_.Undo();
  EXPECT_EQ(Take(), (All{{NewsKind::Value, {2, 0}}}));
  editing_.Undo();
  EXPECT_EQ(Take(), (All{{NewsKind::Value, {2, 0}}, {NewsKind::State, {2, 0}}}));
}

TEST_F(GridNewsTest, ABlockIsNewsOfTheCellsThatChange) {
  static_cast<void>(editing_.Write([](const auto& visit) {
    visit(NewText{1, 0, "x"});
    visit(NewText{1, 1, "y"});
    visit(NewText{2, 1, "z"});
  }));
  const All cells = {{NewsKind::Value, {1, 1}}, {NewsKind::Value, {2, 1}}};
  EXPECT_EQ(Take(), cells);
  editing_.Undo();
  EXPECT_EQ(Take(), cells);
  editing_.Redo();
  EXPECT_EQ(Take(), cells);
}

}  // namespace
}  // namespace grid
