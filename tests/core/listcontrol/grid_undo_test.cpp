#include "dlglib/listcontrol/grid_undo.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "tests/core/listcontrol/edited_grid.h"

namespace {

using grid::CellPosition;
using grid::GridChange;
using grid_test::EditedGrid;
using grid_test::Snapshot;
using Strings = std::vector<std::string>;

/// Three rows of two columns.
class UndoneGrid : public testing::Test {
 protected:
  UndoneGrid() { grid_.Fill({"a|b", "c|d", "e|f"}); }

  /// In a visit of its own.
  void Type(int row, int column, const std::string& text) {
    editing_.Type({row, column}, text.c_str());
    editing_.EndVisit();
  }
  void Select(const std::vector<int>& rows) {
    grid_.model.ClearSelection();
    for (const int row : rows) grid_.model.Select(row, 1);
  }
  [[nodiscard]] std::vector<int> Selected() const {
    std::vector<int> rows;
    for (int row = 0; row < grid_.model.Capacity(); ++row) {
      if (grid_.model.ShowsSelected(row)) rows.push_back(row);
    }
    return rows;
  }
  [[nodiscard]] Strings Rows() const { return grid_.Rows(); }

  EditedGrid grid_{2, 3, 6};
  grid::GridEditing& editing_ = grid_.editing;
};

// --------------------------------------------------------------------------------------------------------- typed texts

TEST_F(UndoneGrid, HasNothingToUndoAtFirst) {
  EXPECT_FALSE(editing_.CanUndo());
  EXPECT_FALSE(editing_.CanRedo());
  EXPECT_FALSE(editing_.Undo());
  EXPECT_FALSE(editing_.Redo());
}

TEST_F(UndoneGrid, TakesAVisitOfACellForOneStep) {
  editing_.BeginVisit({1, 0});
  for (const char* const text : {"x", "xy", "xyz"}) EXPECT_TRUE(editing_.Type({1, 0}, text));
  editing_.EndVisit();
  EXPECT_EQ(editing_.Undo(), (GridChange{1, 1}));
  EXPECT_EQ(Rows(), (Strings{"a|b", "c|d", "e|f"}));
  EXPECT_FALSE(editing_.CanUndo());
  EXPECT_EQ(editing_.Redo(), (GridChange{1, 1}));
  EXPECT_EQ(Rows(), (Strings{"a|b", "xyz|d", "e|f"}));
  EXPECT_FALSE(editing_.CanRedo());
}

TEST_F(UndoneGrid, TakesAFurtherVisitOfTheSameCellForAnotherStep) {
  Type(0, 0, "1");
  Type(0, 0, "2");
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "1|b");
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "a|b");
}

TEST_F(UndoneGrid, TakesAnotherCellForAnotherStepEvenWithoutAVisit) {
  editing_.Type({0, 0}, "1");
  editing_.Type({0, 1}, "2");
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "1|b");
}

TEST_F(UndoneGrid, TakesNothingForAStepThatChangesNothing) {
  EXPECT_FALSE(editing_.Type({0, 0}, "a"));
  EXPECT_FALSE(editing_.Type({9, 0}, "x"));
  EXPECT_FALSE(editing_.Type({0, 9}, "x"));
  EXPECT_FALSE(editing_.Pick({0, 9}, "x"));
  EXPECT_FALSE(editing_.Type({-1, 0}, nullptr));
  EXPECT_FALSE(editing_.CanUndo());
}

TEST_F(UndoneGrid, TakesAVisitForNoStepThatBringsTheTextBack) {
  editing_.BeginVisit({0, 0});
  editing_.Type({0, 0}, "x");
  EXPECT_EQ(editing_.TextToGiveBack(), "a");
  editing_.Type({0, 0}, "a");
  EXPECT_FALSE(editing_.TextToGiveBack());
  EXPECT_FALSE(editing_.CanUndo());
  editing_.Type({0, 0}, "y");
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "a|b");
}

TEST_F(UndoneGrid, CutsWhatIsTypedAsCellsDo) {
  grid_.model.SetTextLimit(0, 4);
  grid_.model.Init(2, 3, 6, -1);
  EXPECT_TRUE(editing_.Type({0, 0}, "123表"));
  EXPECT_STREQ(grid_.model.Text(0, 0), "123");
  EXPECT_FALSE(editing_.Type({0, 0}, "123表"));
}

TEST_F(UndoneGrid, GoesOnInAVisitWithAStepOfItsOwnAfterAnUndo) {
  editing_.BeginVisit({0, 0});
  editing_.Type({0, 0}, "1");
  editing_.Undo();
  editing_.Type({0, 0}, "2");
  EXPECT_FALSE(editing_.CanRedo());
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "a|b");
  EXPECT_FALSE(editing_.CanUndo());
}

TEST_F(UndoneGrid, EmptiesTheListOfWhatCanBeRedoneWithEachStep) {
  Type(0, 0, "1");
  editing_.Undo();
  EXPECT_TRUE(editing_.CanRedo());
  Type(1, 0, "2");
  EXPECT_FALSE(editing_.CanRedo());
  EXPECT_FALSE(editing_.Redo());
}

TEST_F(UndoneGrid, LeavesFlagsAndColoursOfTypedCellsAlone) {
  grid_.model.SetError(0, 0, 1);
  Type(0, 0, "x");
  EXPECT_EQ(grid_.model.Error(0, 0), 1U);
  grid_.model.SetColours(0, 0, 5, 6);
  editing_.Undo();
  EXPECT_EQ(grid_.model.Error(0, 0), 1U);
  EXPECT_EQ(grid_.model.Looks(0, 0).text, 5U);
}

// --------------------------------------------------------------------------------------------------------------- picks

TEST_F(UndoneGrid, BringsTheFlagsBackThatAPickHasCleared) {
  grid_.model.SetError(0, 0, 3);
  const Snapshot before(grid_.model);
  EXPECT_TRUE(editing_.Pick({0, 0}, "x"));
  const Snapshot after(grid_.model);
  EXPECT_EQ(grid_.model.Error(0, 0), 0U);
  editing_.Undo();
  EXPECT_EQ(Snapshot(grid_.model), before);
  editing_.Redo();
  EXPECT_EQ(Snapshot(grid_.model), after);
}

TEST_F(UndoneGrid, LeavesFlagsThatTheProgramHasSetAfterAPick) {
  grid_.model.SetError(0, 0, 3);
  editing_.Pick({0, 0}, "x");
  grid_.model.SetError(0, 0, 9);
  editing_.Undo();
  EXPECT_EQ(grid_.model.Error(0, 0), 9U);
  editing_.Redo();
  EXPECT_EQ(grid_.model.Error(0, 0), 9U);
}

TEST_F(UndoneGrid, TakesTypingAndPickingInAVisitForOneStep) {
  editing_.BeginVisit({0, 0});
  editing_.Type({0, 0}, "1");
  grid_.model.SetError(0, 0, 1);
  editing_.Pick({0, 0}, "2");
  EXPECT_EQ(grid_.model.Error(0, 0), 0U);
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "a|b");
  EXPECT_EQ(grid_.model.Error(0, 0), 1U);
  EXPECT_FALSE(editing_.CanUndo());
}

TEST_F(UndoneGrid, ClearsFlagsByPickingTheSameTextAndTakesThatForNoStep) {
  grid_.model.SetError(0, 0, 1);
  EXPECT_FALSE(editing_.Pick({0, 0}, "a"));
  EXPECT_EQ(grid_.model.Error(0, 0), 0U);
  EXPECT_FALSE(editing_.CanUndo());
}

// --------------------------------------------------------------------------------------------------------- the program

TEST_F(UndoneGrid, LosesWhatCanBeRedoneWhenTheProgramChangesAText) {
  Type(0, 0, "1");
  editing_.Undo();
  editing_.SetText(2, 1, "f");
  grid_.model.SetError(0, 0, 1);
  grid_.model.SetColours(0, 0, 1, 1);
  EXPECT_TRUE(editing_.CanRedo()) << "no text has changed";
  editing_.SetText(2, 1, "g");
  EXPECT_FALSE(editing_.CanRedo());
}

TEST_F(UndoneGrid, PassesOverACellThatTheProgramHasChanged) {
  Type(0, 0, "1");
  Type(1, 0, "2");
  editing_.SetText(1, 0, "p");
  EXPECT_TRUE(editing_.CanUndo());
  EXPECT_EQ(editing_.Undo(), (GridChange{0, 1})) << "on to the next step";
  EXPECT_EQ(Rows(), (Strings{"a|b", "p|d", "e|f"}));
  EXPECT_FALSE(editing_.CanUndo());
}

TEST_F(UndoneGrid, CannotUndoWhenNothingIsLeftOfAnyStep) {
  Type(0, 0, "1");
  editing_.SetText(0, 0, "p");
  EXPECT_FALSE(editing_.CanUndo());
  EXPECT_FALSE(editing_.Undo());
  EXPECT_EQ(Rows()[0], "p|b");
}

TEST_F(UndoneGrid, UndoesTheRestOfAStepBesideAPassedOverCell) {
  grid_.PasteText("1\t2\r\n3\t4\r\n", 0, 0);
  editing_.SetText(0, 1, "p");
  EXPECT_EQ(editing_.Undo(), (GridChange{0, 2}));
  EXPECT_EQ(Rows(), (Strings{"a|p", "c|d", "e|f"}));
  EXPECT_EQ(editing_.Redo(), (GridChange{0, 2}));
  EXPECT_EQ(Rows(), (Strings{"1|p", "3|4", "e|f"})) << "and stays the program's";
}

TEST_F(UndoneGrid, KnowsOlderStepsOfACellThatTheProgramHasChangedInBetween) {
  Type(0, 0, "1");
  editing_.SetText(0, 0, "p");
  Type(0, 0, "2");
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "p|b") << "the program's text is what the user typed over";
  EXPECT_FALSE(editing_.CanUndo()) << "and hides what was typed before it";
  editing_.Redo();
  EXPECT_EQ(Rows()[0], "2|b");
}

TEST_F(UndoneGrid, KeepsTheProgramsTextOutOfTheVisitAroundIt) {
  editing_.BeginVisit({0, 0});
  editing_.Type({0, 0}, "1");
  editing_.SetText(0, 0, "p");
  editing_.Type({0, 0}, "p2");
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "p|b");
  EXPECT_FALSE(editing_.CanUndo());
}

TEST_F(UndoneGrid, BeginsAVisitAnewWithTheTextThatTheProgramPutsOverIt) {
  for (const int limit : {100, 0}) {
    editing_.SetLimit(limit);
    editing_.BeginVisit({0, 0});
    editing_.Type({0, 0}, "1");
    editing_.SetText(0, 0, "p");
    EXPECT_FALSE(editing_.CollectVisitChange()) << "nothing of the user's is left";
    EXPECT_FALSE(editing_.TextToGiveBack());
    editing_.Type({0, 0}, "2");
    EXPECT_EQ(editing_.TextToGiveBack(), "p");
    EXPECT_EQ(editing_.CollectVisitChange(), (GridChange{0, 1}));
    editing_.Type({0, 0}, "p");
    editing_.EndVisit();
  }
}

TEST_F(UndoneGrid, LosesWhatCanBeRedoneWhenTheProgramChangesAVisitedText) {
  Type(2, 0, "1");
  editing_.BeginVisit({0, 0});
  editing_.Undo();
  editing_.SetText(0, 0, "a");
  EXPECT_TRUE(editing_.CanRedo()) << "the same text";
  editing_.SetText(0, 0, "p");
  EXPECT_FALSE(editing_.CanRedo());
  EXPECT_FALSE(editing_.CanUndo());
}

TEST_F(UndoneGrid, LeavesAVisitAloneWhenTheProgramSetsAnotherCell) {
  editing_.BeginVisit({0, 0});
  editing_.Type({0, 0}, "1");
  editing_.SetText(0, 1, "p");
  editing_.SetText(1, 0, "p");
  editing_.SetText(0, 0, "1");
  EXPECT_EQ(editing_.TextToGiveBack(), "a");
  EXPECT_EQ(editing_.CollectVisitChange(), (GridChange{0, 1}));
}

TEST_F(UndoneGrid, SetsTheFlagsOfTheProgramsTexts) {
  Type(1, 1, "1");
  grid_.model.SetError(0, 0, 1);
  editing_.SetText(0, 0, "a");
  EXPECT_EQ(grid_.model.Error(0, 0), 0U);
  editing_.SetText(99, 0, "x");
  editing_.SetText(0, 0, nullptr);
  EXPECT_STREQ(grid_.model.Text(0, 0), "");
}

// ---------------------------------------------------------------------------------------------------------------- rows

TEST_F(UndoneGrid, TakesAnInsertedRowOutAndBringsItBackAsTheProgramHasFilledIt) {
  const Snapshot before(grid_.model);
  EXPECT_TRUE(editing_.InsertRow(1));
  editing_.SetText(1, 0, "new");
  grid_.model.SetColours(1, 1, 7, 8);
  grid_.model.SetError(1, 1, 2);
  const Snapshot after(grid_.model);
  EXPECT_EQ(editing_.Undo(), (GridChange{grid::kNoRow, 3}));
  EXPECT_EQ(Snapshot(grid_.model), before);
  EXPECT_EQ(editing_.Redo(), (GridChange{grid::kNoRow, 4}));
  EXPECT_EQ(Snapshot(grid_.model), after);
}

TEST(UndoneGridOfLongTexts, BringsTheLongestTextBackWhole) {
  EditedGrid grid(1, 1, 1);
  const std::string longest(grid::kMaxTextLimit, 'x');
  grid.model.SetTextLimit(0, grid::kMaxTextLimit);
  grid.model.Init(1, 1, 1, -1);
  grid.model.SetAvailable(0, 0);
  grid.Fill({longest});
  EXPECT_TRUE(grid.editing.Type({0, 0}, "y"));
  grid.editing.Undo();
  EXPECT_EQ(grid.Rows(), Strings{longest});
  grid.editing.Redo();
  grid.editing.Undo();
  EXPECT_EQ(grid.Rows(), Strings{longest});
}

TEST_F(UndoneGrid, SaysOfATextThatItMovesNoRows) {
  Type(0, 0, "x");
  EXPECT_FALSE(editing_.UndoMovesRows());
  editing_.Undo();
  EXPECT_TRUE(editing_.CanRedo());
  EXPECT_FALSE(editing_.RedoMovesRows());
}

TEST_F(UndoneGrid, BringsDeletedRowsBackWhereTheyWere) {
  grid_.model.SetColours(0, 0, 7, 8);
  grid_.model.SetError(2, 1, 2);
  Select({0, 2});
  const Snapshot before(grid_.model);
  EXPECT_EQ(editing_.DeleteSelectedRows(), 2);
  const Snapshot after(grid_.model);
  EXPECT_EQ(Rows(), Strings{"c|d"});
  EXPECT_TRUE(editing_.UndoMovesRows());
  EXPECT_FALSE(editing_.RedoMovesRows());
  EXPECT_EQ(editing_.Undo(), (GridChange{grid::kNoRow, 3}));
  EXPECT_EQ(Snapshot(grid_.model), before);
  EXPECT_EQ(Selected(), (std::vector<int>{0, 2}));
  EXPECT_FALSE(editing_.UndoMovesRows());
  EXPECT_TRUE(editing_.RedoMovesRows());
  EXPECT_EQ(editing_.Redo(), (GridChange{grid::kNoRow, 1}));
  EXPECT_EQ(Snapshot(grid_.model), after);
  EXPECT_EQ(Selected(), std::vector<int>());
}

TEST_F(UndoneGrid, SelectsWhatWasSelectedBeforeARowWasInserted) {
  Select({1, 2});
  editing_.InsertRow(1);
  EXPECT_EQ(Selected(), std::vector<int>{1});
  editing_.Undo();
  EXPECT_EQ(Selected(), (std::vector<int>{1, 2}));
  Select({0});
  editing_.Redo();
  EXPECT_EQ(Selected(), std::vector<int>{1});
}

TEST_F(UndoneGrid, TakesNothingForAStepWhenNoRowComesOrGoes) {
  EXPECT_FALSE(editing_.InsertRow(-1));
  EXPECT_FALSE(editing_.InsertRow(4));
  EXPECT_EQ(editing_.DeleteSelectedRows(), 0);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(editing_.InsertRow(3));
  EXPECT_FALSE(editing_.InsertRow(3)) << "full";
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(editing_.Undo());
  EXPECT_FALSE(editing_.CanUndo());
  grid_.model.SetItemCount(99);
  EXPECT_FALSE(editing_.InsertRow(3)) << "no such item count";
}

TEST_F(UndoneGrid, KeepsAnItemCountThatPassesTheRoom) {
  grid_.model.SetItemCount(99);
  Select({5});
  editing_.DeleteSelectedRows();
  EXPECT_EQ(grid_.model.ItemCount(), 5);
  editing_.Undo();
  EXPECT_EQ(grid_.model.ItemCount(), 99);
  editing_.Redo();
  EXPECT_EQ(grid_.model.ItemCount(), 5);
}

TEST_F(UndoneGrid, UndoesCellsInRowsThatHaveMovedMeanwhile) {
  Type(2, 0, "x");
  editing_.InsertRow(0);
  editing_.SetText(0, 0, "new");
  Select({1});
  editing_.DeleteSelectedRows();
  EXPECT_EQ(Rows(), (Strings{"new|", "c|d", "x|f"}));
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(editing_.Undo());
  EXPECT_EQ(Rows(), (Strings{"a|b", "c|d", "e|f"}));
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(editing_.Redo());
  EXPECT_EQ(Rows(), (Strings{"new|", "c|d", "x|f"}));
}

TEST_F(UndoneGrid, MovesWhatItKnowsOfTheProgramsTextsWithTheirRows) {
  Type(1, 0, "x");
  Type(2, 0, "y");
  editing_.SetText(2, 0, "p");
  Select({0});
  editing_.DeleteSelectedRows();
  EXPECT_EQ(Rows(), (Strings{"x|d", "p|f"}));
  Select({1});
  editing_.DeleteSelectedRows();
  editing_.Undo();
  editing_.Undo();
  EXPECT_EQ(editing_.Undo(), (GridChange{1, 1})) << "the program's row is passed over";
  EXPECT_EQ(Rows(), (Strings{"a|b", "c|d", "p|f"}));
}

TEST_F(UndoneGrid, NumbersTheRowsAfterAnUndo) {
  EditedGrid grid(2, 3, 6, 0);
  grid.model.Renumber();
  grid.model.Select(1, 1);
  grid.editing.DeleteSelectedRows();
  EXPECT_EQ(grid.Rows(), (Strings{"1|", "2|"}));
  grid.editing.Undo();
  EXPECT_EQ(grid.Rows(), (Strings{"1|", "2|", "3|"}));
}

TEST_F(UndoneGrid, TakesTheNumbersOfRowsBackThatHadNone) {
  EditedGrid grid(2, 2, 6, 0);
  grid.Fill({"x|a", "|b"});
  grid.editing.InsertRow(1);
  EXPECT_EQ(grid.Rows(), (Strings{"1|a", "2|", "3|b"}));
  grid.editing.Undo();
  EXPECT_EQ(grid.Rows(), (Strings{"x|a", "|b"}));
  grid.editing.Redo();
  EXPECT_EQ(grid.Rows(), (Strings{"1|a", "2|", "3|b"}));
  grid.editing.SetText(2, 0, "p");
  grid.editing.Undo();
  EXPECT_EQ(grid.Rows(), (Strings{"x|a", "p|b"})) << "but not what the program has set since";
}

TEST_F(UndoneGrid, KeepsNumbersWithAStepOnlyWhenTheyAreUnusual) {
  const auto bytesOfAnInsertion = [](const char* firstNumber) {
    EditedGrid grid(2, 40, 60, 0);
    grid.model.Renumber();
    grid.model.SetText(0, 0, firstNumber);
    grid.editing.InsertRow(3);
    return grid.editing.Bytes();
  };
  EXPECT_LT(bytesOfAnInsertion("1") + 40, bytesOfAnInsertion("x"));
}

TEST_F(UndoneGrid, KnowsTheProgramsTextInTheOnlyRowThereIsRoomFor) {
  EditedGrid grid(1, 1, 1);
  grid.editing.Type({0, 0}, "typed");
  grid.editing.EndVisit();
  grid.editing.SetText(0, 0, "p");
  grid.model.Select(0, 1);
  grid.editing.DeleteSelectedRows();
  grid.editing.Undo();
  EXPECT_EQ(grid.Rows(), Strings{"p"});
  EXPECT_FALSE(grid.editing.CanUndo()) << "what was typed before it is hidden";
}

TEST_F(UndoneGrid, EndsAVisitWithItsRow) {
  editing_.BeginVisit({1, 0});
  editing_.Type({1, 0}, "x");
  editing_.InsertRow(0);
  EXPECT_FALSE(editing_.TextToGiveBack());
  editing_.BeginVisit({1, 0});
  editing_.Type({1, 0}, "y");
  editing_.Undo();
  EXPECT_FALSE(editing_.TextToGiveBack());
  editing_.Undo();
  EXPECT_FALSE(editing_.CollectVisitChange()) << "the visited row is another one now";
}

// -------------------------------------------------------------------------------------------------------------- limits

TEST_F(UndoneGrid, KeepsAHundredSteps) {
  for (int i = 0; i < 150; ++i) Type(0, 0, std::to_string(i));
  int undone = 0;
  while (editing_.Undo()) ++undone;
  EXPECT_EQ(undone, 100);
  EXPECT_EQ(Rows()[0], "49|b");
}

TEST_F(UndoneGrid, DropsTheOldestStepsOfALowerLimit) {
  for (int i = 0; i < 5; ++i) Type(0, 0, std::to_string(i));
  editing_.SetLimit(2);
  int undone = 0;
  while (editing_.Undo()) ++undone;
  EXPECT_EQ(undone, 2);
  EXPECT_EQ(Rows()[0], "2|b");
}

TEST_F(UndoneGrid, CountsStepsThatWereUndone) {
  for (int i = 0; i < 5; ++i) Type(0, 0, std::to_string(i));
  for (int i = 0; i < 3; ++i) editing_.Undo();
  editing_.SetLimit(4);
  EXPECT_TRUE(editing_.Undo());
  EXPECT_FALSE(editing_.CanUndo());
  editing_.SetLimit(3);
  int redone = 0;
  while (editing_.Redo()) ++redone;
  EXPECT_EQ(redone, 3);
  EXPECT_EQ(Rows()[0], "3|b") << "the farthest one is gone";
}

TEST_F(UndoneGrid, KeepsNothingWithALimitOfZero) {
  Type(0, 0, "1");
  editing_.SetLimit(-5);
  EXPECT_FALSE(editing_.CanUndo());
  Type(0, 0, "2");
  editing_.InsertRow(1);
  Select({0});
  editing_.DeleteSelectedRows();
  editing_.SetPasteRows(1);
  EXPECT_EQ(grid_.PasteText("1\t2\r\n3\t4\r\n", 2, 0).cells, 4);
  editing_.SetText(0, 0, "p");
  EXPECT_FALSE(editing_.CanUndo());
  EXPECT_EQ(Rows(), (Strings{"p|", "c|d", "1|2", "3|4"}));
  EXPECT_EQ(editing_.Bytes(), 0U);
  editing_.SetLimit(1);
  Type(0, 0, "3");
  EXPECT_TRUE(editing_.Undo());
}

TEST_F(UndoneGrid, ForgetsEverything) {
  Type(0, 0, "1");
  Type(0, 0, "2");
  editing_.Undo();
  editing_.BeginVisit({0, 0});
  editing_.Forget();
  EXPECT_FALSE(editing_.CanUndo());
  EXPECT_FALSE(editing_.CanRedo());
  EXPECT_FALSE(editing_.CollectVisitChange());
}

TEST_F(UndoneGrid, GoesOnInAVisitWhenItsStepsAreForgotten) {
  Type(1, 1, "1");
  editing_.Undo();
  editing_.BeginVisit({0, 0});
  editing_.Type({0, 0}, "1");
  grid_.model.SetItemCount(2);
  editing_.ForgetSteps();
  EXPECT_FALSE(editing_.CanUndo());
  EXPECT_FALSE(editing_.CanRedo());
  EXPECT_EQ(editing_.TextToGiveBack(), "a");
  editing_.Type({0, 0}, "12");
  editing_.Type({0, 0}, "123");
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "1|b");
  EXPECT_FALSE(editing_.CanUndo());
}

TEST_F(UndoneGrid, EndsAVisitWhoseRowIsNoLongerInUse) {
  editing_.BeginVisit({2, 0});
  editing_.Type({2, 0}, "1");
  grid_.model.SetItemCount(2);
  editing_.ForgetSteps();
  EXPECT_FALSE(editing_.TextToGiveBack());
  EXPECT_TRUE(editing_.Type({2, 0}, "2"));
  EXPECT_TRUE(editing_.Pick({2, 0}, "3"));
  EXPECT_STREQ(grid_.model.Text(2, 0), "3");
  EXPECT_FALSE(editing_.CanUndo()) << "what a row holds that is not in use is no step";
  EXPECT_FALSE(editing_.CollectVisitChange());
}

TEST_F(UndoneGrid, LosesTheStepOfAVisitWithTheLimit) {
  editing_.BeginVisit({0, 0});
  editing_.Type({0, 0}, "1");
  editing_.SetLimit(0);
  editing_.SetLimit(5);
  editing_.Type({0, 0}, "2");
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "1|b");
}

// ------------------------------------------------------------------------------------------------------------- telling

TEST_F(UndoneGrid, TellsOfAVisitOnce) {
  EXPECT_FALSE(editing_.CollectVisitChange());
  editing_.BeginVisit({2, 1});
  EXPECT_FALSE(editing_.CollectVisitChange());
  editing_.Type({2, 1}, "x");
  EXPECT_EQ(editing_.CollectVisitChange(), (GridChange{2, 1}));
  EXPECT_FALSE(editing_.CollectVisitChange());
  editing_.Pick({2, 1}, "y");
  EXPECT_EQ(editing_.CollectVisitChange(), (GridChange{2, 1}));
  editing_.Type({2, 1}, "z");
  editing_.Type({2, 1}, "y");
  EXPECT_FALSE(editing_.CollectVisitChange()) << "nothing is different";
}

TEST_F(UndoneGrid, TakesWhatAVisitDoesAfterItWasToldOfForAStepOfItsOwn) {
  editing_.BeginVisit({0, 0});
  editing_.Type({0, 0}, "1");
  EXPECT_TRUE(editing_.CollectVisitChange());
  editing_.Type({0, 0}, "2");
  EXPECT_TRUE(editing_.CollectVisitChange());
  EXPECT_EQ(editing_.TextToGiveBack(), "a") << "the visit goes on";
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "1|b");
  editing_.Undo();
  EXPECT_EQ(Rows()[0], "a|b");
  EXPECT_FALSE(editing_.CanUndo());
}

TEST_F(UndoneGrid, TellsNotOnceMoreOfWhatAnotherStepHasTold) {
  editing_.BeginVisit({0, 0});
  grid_.PasteText("x\ty\r\nz", 0, 0);
  EXPECT_FALSE(editing_.CollectVisitChange());
  editing_.Undo();
  EXPECT_FALSE(editing_.CollectVisitChange());
}

TEST_F(UndoneGrid, GivesBackTheTextWithWhichTheVisitBegan) {
  editing_.BeginVisit({0, 0});
  EXPECT_FALSE(editing_.TextToGiveBack());
  editing_.Type({0, 0}, "x");
  editing_.BeginVisit({0, 0});
  EXPECT_EQ(editing_.TextToGiveBack(), "a") << "the same visit still";
  editing_.Undo();
  EXPECT_FALSE(editing_.TextToGiveBack());
  editing_.EndVisit();
  EXPECT_FALSE(editing_.TextToGiveBack());
}

// -------------------------------------------------------------------------------------------------------------- memory

TEST(Reshaping, IsNoStepAndLeavesWhatCanBeRedone) {
  EditedGrid grid(2, 3, 3);
  grid.Fill({"sus|b"});
  grid.editing.Type({1, 0}, "typed");
  grid.editing.EndVisit();
  grid.editing.Undo();
  grid.editing.BeginVisit({0, 0});
  grid.editing.Reshape({0, 0}, "SUS");
  EXPECT_EQ(grid.Rows()[0], "SUS|b");
  EXPECT_FALSE(grid.editing.CanUndo());
  EXPECT_TRUE(grid.editing.CanRedo());
  EXPECT_FALSE(grid.editing.TextToGiveBack());
  EXPECT_FALSE(grid.editing.CollectVisitChange());
  grid.editing.Reshape({1, 0}, "left long ago");
  EXPECT_EQ(grid.Rows()[1], "left long ago|") << "a box that is no longer visited";
}

TEST(Reshaping, OfAPickedTextBelongsToThePick) {
  EditedGrid grid(2, 3, 3);
  grid.Fill({"a|b"});
  grid.editing.BeginVisit({0, 0});
  grid.editing.Pick({0, 0}, "sus");
  grid.editing.Reshape({0, 0}, "SUS");
  EXPECT_EQ(grid.editing.TextToGiveBack(), "a");
  EXPECT_TRUE(grid.editing.CollectVisitChange()) << "the pick is told of";
  EXPECT_TRUE(grid.editing.Undo());
  EXPECT_EQ(grid.Rows()[0], "a|b");
  EXPECT_TRUE(grid.editing.Redo());
  EXPECT_EQ(grid.Rows()[0], "SUS|b");
}

TEST(Reshaping, ThatLeavesNothingOfAVisitIsNoStep) {
  EditedGrid grid(2, 3, 3);
  grid.Fill({"SUS|b"});
  grid.editing.BeginVisit({0, 0});
  grid.editing.Pick({0, 0}, "sus");
  grid.editing.Reshape({0, 0}, "SUS");
  EXPECT_FALSE(grid.editing.CanUndo());
  grid.editing.Reshape({5, 5}, "x");
  EXPECT_EQ(grid.Rows()[0], "SUS|b");
}

TEST(UndoWithoutMemory, LeavesAWholeBlockAsItWas) {
  EditedGrid grid(2, 1000, 1000);
  grid.Fill({"a|b", "c|d"});
  grid.editing.Type({0, 0}, "typed");
  grid.editing.SetText(1, 1, "program's");
  const Snapshot before(grid.model);
  const auto forEachCell = [](const auto& visit) {
    for (int row = 0; row < 1000; ++row) {
      if (row == 900) throw std::bad_alloc();
      visit(grid::NewText{row, row % 2, "x"});
    }
  };
  EXPECT_THROW(grid.editing.Write(forEachCell), std::bad_alloc);
  EXPECT_EQ(Snapshot(grid.model), before);
  EXPECT_TRUE(grid.editing.Undo());
  EXPECT_EQ(grid.Rows()[0], "a|b");
  EXPECT_EQ(grid.Rows()[1], "c|program's");
}

TEST(UndoMemory, IsAtMostTwiceTheTexts) {
  EditedGrid grid(20, 2000, 2000);
  std::string block;
  std::size_t texts = 0;
  for (int row = 0; row < 2000; ++row) {
    for (int column = 0; column < 20; ++column) {
      const std::string text = std::to_string(row * 20 + column);
      texts += text.size();
      block += text + (column < 19 ? "\t" : "\r\n");
    }
  }
  EXPECT_EQ(grid.PasteText(block, 0, 0).cells, 40000);
  EXPECT_LE(grid.editing.Bytes(), 2 * texts);
  grid.editing.Undo();
  EXPECT_LE(grid.editing.Bytes(), 2 * texts);
  grid.editing.Redo();
  grid.editing.SetLimit(1);
  EXPECT_EQ(grid.editing.Clear(grid.Cells(), grid::CutBlock(grid.model, 0, 0, 2000, 20)).cells, 40000);
  EXPECT_LE(grid.editing.Bytes(), 2 * texts);
}

TEST(UndoMemory, IsAtMostTwiceTheTextsOfAddedRows) {
  EditedGrid grid(20, 0, 2000);
  grid.editing.SetPasteRows(1);
  std::string block;
  std::size_t texts = 0;
  for (int row = 0; row < 2000; ++row) {
    for (int column = 0; column < 20; ++column) {
      const std::string text = std::to_string(row * 20 + column);
      texts += text.size();
      block += text + (column < 19 ? "\t" : "\r\n");
    }
  }
  EXPECT_EQ(grid.PasteText(block, 0, 0).cells, 40000);
  EXPECT_LE(grid.editing.Bytes(), 2 * texts);
  grid.editing.Undo();
  EXPECT_EQ(grid.model.UsedRows(), 0);
  EXPECT_LE(grid.editing.Bytes(), 2 * texts);
}

}  // namespace
