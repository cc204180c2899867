#include "dlglib/listcontrol/grid_editing.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/core/listcontrol/edited_grid.h"

namespace {

using grid::GridChange;
using grid_test::EditedGrid;
using grid_test::Snapshot;
using Strings = std::vector<std::string>;

TEST(Pasting, StoresTheBlockAsOneStep) {
  EditedGrid grid(2, 3, 3);
  grid.Fill({"a|b", "c|d", "e|f"});
  const grid::Written written = grid.PasteText("1\t2\r\n3\td\r\n", 0, 0);
  EXPECT_EQ(written.cells, 3) << "one text is what it was";
  EXPECT_EQ(written.change, (GridChange{0, 2}));
  EXPECT_EQ(grid.Rows(), (Strings{"1|2", "3|d", "e|f"}));
  grid.editing.Undo();
  EXPECT_EQ(grid.Rows(), (Strings{"a|b", "c|d", "e|f"}));
  EXPECT_FALSE(grid.editing.CanUndo());
}

TEST(Pasting, ChangesNothingWhenOneCellIsRefused) {
  EditedGrid grid(2, 2, 2);
  grid.Fill({"a|b", "c|d"});
  const Snapshot before(grid.model);
  const grid::Written written = grid.PasteText("1\t2\r\n3\t" + std::string(41, 'x'), 0, 0);
  EXPECT_EQ(written.cells, grid::kRefused);
  EXPECT_FALSE(written.change);
  EXPECT_EQ(Snapshot(grid.model), before);
  EXPECT_FALSE(grid.editing.CanUndo());
}

TEST(Pasting, IsNoStepWhenEveryTextIsTheSame) {
  EditedGrid grid(1, 1, 1);
  grid.Fill({"a"});
  const grid::Written written = grid.PasteText("a", 0, 0);
  EXPECT_EQ(written.cells, 0);
  EXPECT_FALSE(written.change);
  EXPECT_FALSE(grid.editing.CanUndo());
  EXPECT_EQ(grid.PasteText("", 0, 0).cells, 0);
}

TEST(Pasting, LeavesFlagsAndColours) {
  EditedGrid grid(1, 1, 1);
  grid.model.SetError(0, 0, 1);
  grid.model.SetColours(0, 0, 5, 6);
  EXPECT_EQ(grid.PasteText("a", 0, 0).cells, 1);
  EXPECT_EQ(grid.model.Error(0, 0), 1U);
  EXPECT_EQ(grid.model.Looks(0, 0).text, 5U);
}

TEST(Pasting, AddsRowsInTheSameStep) {
  EditedGrid grid(3, 1, 5, 0);
  grid.Fill({"|a|b"});
  grid.model.Renumber();
  grid.model.SetColours(1, 1, 5, 6);
  grid.model.SetText(2, 1, "stood there");
  const Snapshot before(grid.model);
  grid.editing.SetPasteRows(1);
  const grid::Written written = grid.PasteText("x\ty\r\n\tz\r\nw\t\r\n", 0, 1);
  EXPECT_EQ(written.cells, 4);
  EXPECT_EQ(written.change, (GridChange{grid::kNoRow, 3}));
  EXPECT_EQ(grid.Rows(), (Strings{"1|x|y", "2||z", "3|w|"}));
  EXPECT_EQ(grid.model.Available(2, 2), 0U);
  EXPECT_EQ(grid.model.Looks(1, 1).text, 5U) << "colours stay what they were there";
  const Snapshot after(grid.model);
  EXPECT_EQ(grid.editing.Undo(), (GridChange{grid::kNoRow, 1}));
  EXPECT_EQ(Snapshot(grid.model), before);
  EXPECT_EQ(grid.editing.Redo(), (GridChange{grid::kNoRow, 3}));
  EXPECT_EQ(Snapshot(grid.model), after);
}

TEST(Pasting, AddsRowsEvenOfEmptyCells) {
  EditedGrid grid(1, 1, 3);
  grid.editing.SetPasteRows(1);
  const grid::Written written = grid.PasteText("\r\n\r\n", 1, 0);
  EXPECT_EQ(written.cells, 0);
  EXPECT_EQ(written.change, (GridChange{grid::kNoRow, 3}));
  EXPECT_TRUE(grid.editing.Undo());
  EXPECT_EQ(grid.model.UsedRows(), 1);
}

TEST(Pasting, PutsACopiedRowBack) {
  EditedGrid grid(4, 2, 2, 0);
  grid.editors[1].kind = 1;
  grid.editors[2] = {};
  grid.Fill({"|red|fix|a\tb", "|blue|set|c"});
  grid.model.Renumber();
  grid.model.Select(0, 1);
  const std::string copied = grid::BlockText(grid.Cells(), grid::SelectedBlock(grid.model));
  EXPECT_EQ(grid.PasteText(copied, 1, 0).cells, 1);
  EXPECT_EQ(grid.Rows()[1], "2|blue|set|a\tb");
}

TEST(Pasting, RefusesAPlanThatNoLongerFits) {
  EditedGrid grid(1, 3, 3);
  grid.editing.SetPasteCheck(
      [](void* context, int, int, const char*) {
        static_cast<grid::GridModel*>(context)->SetItemCount(1);
        return 1;
      },
      &grid.model);
  EXPECT_EQ(grid.PasteText("a\r\nb\r\nc", 0, 0).cells, grid::kRefused);
  EXPECT_STREQ(grid.model.Text(0, 0), "");
}

TEST(Pasting, RefusesAPlanForAGridThatWasMadeAnewMeanwhile) {
  EditedGrid grid(2, 3, 3);
  const grid::PastePlan plan = grid.Plan({"a", {}}, 0, 0);
  grid.model.Init(2, 3, 4, -1);
  EXPECT_EQ(grid.editing.Paste(plan).cells, grid::kRefused);
  grid.model.Init(1, 3, 3, -1);
  EXPECT_EQ(grid.editing.Paste(plan).cells, grid::kRefused);
  grid.model.Init(2, 3, 3, -1);
  EXPECT_EQ(grid.editing.Paste(plan).cells, 1);
}

TEST(Pasting, SurvivesACheckThatEndsTheGrid) {
  auto grid = std::make_unique<EditedGrid>(1, 3, 3);
  grid->editing.SetPasteCheck(
      [](void* context, int, int, const char*) {
        static_cast<std::unique_ptr<EditedGrid>*>(context)->reset();
        return 1;
      },
      &grid);
  const grid::PastePlan plan = grid->Plan({"a\r\nb", {}}, 0, 0);
  EXPECT_EQ(grid, nullptr);
  EXPECT_EQ(plan.Cells().size(), 2U);
}

TEST(Clearing, EmptiesWhatIsTypedAndAvailable) {
  EditedGrid grid(5, 2, 2, 0);
  grid.Fill({"|a|red|x|list", "|b||y|"});
  grid.editors[2].kind = 1;
  grid.editors[3] = {};
  grid.editors[4] = {0, false, grid::ColumnList::OfGrid};
  grid.model.Renumber();
  grid.model.SetAvailable(1, 1, 1);
  const grid::Written written = grid.editing.Clear(grid.Cells(), grid::CutBlock(grid.model, -5, -5, 99, 99));
  EXPECT_EQ(written.cells, 2);
  EXPECT_EQ(written.change, (GridChange{0, 1}));
  EXPECT_EQ(grid.Rows(), (Strings{"1||red|x|", "2|b||y|"}));
  grid.editing.Undo();
  EXPECT_EQ(grid.Rows(), (Strings{"1|a|red|x|list", "2|b||y|"}));
}

TEST(Clearing, LeavesTheCellsBesideTheBlock) {
  EditedGrid grid(3, 3, 3);
  grid.Fill({"a|b|c", "d|e|f", "g|h|i"});
  EXPECT_EQ(grid.editing.Clear(grid.Cells(), grid::CutBlock(grid.model, 1, 1, 1, 1)).cells, 1);
  EXPECT_EQ(grid.Rows(), (Strings{"a|b|c", "d||f", "g|h|i"}));
}

TEST(Clearing, IsNoStepWhenNothingIsThere) {
  EditedGrid grid(2, 2, 2);
  EXPECT_EQ(grid.editing.Clear(grid.Cells(), grid::CutBlock(grid.model, 0, 0, 2, 2)).cells, 0);
  EXPECT_EQ(grid.editing.Clear(grid.Cells(), grid::CutBlock(grid.model, 5, 5, 2, 2)).cells, 0);
  EXPECT_EQ(grid.editing.Clear(grid.Cells(), grid::SelectedBlock(grid.model)).cells, 0);
  EXPECT_FALSE(grid.editing.CanUndo());
}

TEST(Clearing, EmptiesTheSelectedRows) {
  EditedGrid grid(2, 3, 3);
  grid.Fill({"a|b", "c|d", "e|f"});
  grid.model.Select(0, 1);
  grid.model.Select(2, 1);
  EXPECT_EQ(grid.editing.Clear(grid.Cells(), grid::SelectedBlock(grid.model)).cells, 4);
  EXPECT_EQ(grid.Rows(), (Strings{"|", "c|d", "|"}));
}

TEST(CellsOfNoGrid, AnswerLikeEmptyOnes) {
  EditedGrid grid(0, 0, 0);
  EXPECT_EQ(grid.PasteText("a", 0, 0).cells, grid::kRefused);
  EXPECT_EQ(grid.PasteText("", 0, 0).cells, 0);
  EXPECT_EQ(grid::CellsText(grid.Cells(), grid::CutBlock(grid.model, 0, 0, 9, 9), nullptr, 0), 1);
  EXPECT_FALSE(grid.editing.InsertRow(0));
  EXPECT_FALSE(grid.editing.Undo());
}

TEST(Editing, KnowsBeforehandWhatWouldChangeNothing) {
  EditedGrid grid(2, 2, 4);
  grid.Fill({"a|b", "|"});
  EXPECT_FALSE(grid.editing.Changes(grid.Plan({"a\tb", {}}, 0, 0)));
  EXPECT_TRUE(grid.editing.Changes(grid.Plan({"a\tc", {}}, 0, 0)));
  grid.editing.SetPasteRows(1);
  EXPECT_TRUE(grid.editing.Changes(grid.Plan({"\r\n", {}}, 2, 0))) << "a row is added";
  EXPECT_FALSE(grid.editing.Clears(grid.Cells(), grid::CutBlock(grid.model, 1, 0, 1, 2)));
  EXPECT_TRUE(grid.editing.Clears(grid.Cells(), grid::CutBlock(grid.model, 0, 0, 2, 2)));
  grid.model.SetAvailable(0, 1);
  EXPECT_FALSE(grid.editing.Clears(grid.Cells(), grid::CutBlock(grid.model, 0, 0, 2, 2)));
}

}  // namespace
