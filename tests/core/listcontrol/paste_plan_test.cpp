#include "dlglib/listcontrol/paste_plan.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "tests/core/listcontrol/edited_grid.h"

namespace {

using grid::CellPosition;
using grid::ColumnList;
using grid::LetterCase;
using grid::PastePlan;
using grid::RefusalReason;
using grid_test::EditedGrid;
using Strings = std::vector<std::string>;

/// "row,column=text" of each cell.
Strings CellsOf(const PastePlan& plan) {
  Strings cells;
  for (const grid::PasteCell& cell : plan.Cells()) {
    cells.push_back(std::to_string(cell.row) + "," + std::to_string(cell.column) + "=" +
                    std::string(plan.TextOf(cell)));
  }
  return cells;
}

std::optional<RefusalReason> ReasonOf(const EditedGrid& grid, const std::string& text, int row, int column) {
  const PastePlan plan = grid.Plan({text, {}}, row, column);
  if (!plan.Refused()) return std::nullopt;
  EXPECT_TRUE(plan.Cells().empty()) << "of a refused paste nothing is left";
  return plan.Refused()->reason;
}

TEST(PastePlans, PutTheBlockFromTheCellOn) {
  const EditedGrid grid(3, 4, 4);
  const PastePlan plan = grid.Plan({"a\tb\r\nc\td\r\n", {}}, 1, 1);
  EXPECT_EQ(CellsOf(plan), (Strings{"1,1=a", "1,2=b", "2,1=c", "2,2=d"}));
  EXPECT_EQ(plan.AddedRows(), 0);
  EXPECT_FALSE(plan.Refused());
}

TEST(PastePlans, LeaveTheCellsThatARowLacks) {
  const EditedGrid grid(3, 4, 4);
  EXPECT_EQ(CellsOf(grid.Plan({"a\tb\r\nc\r\nd\te", {}}, 0, 0)),
            (Strings{"0,0=a", "0,1=b", "1,0=c", "2,0=d", "2,1=e"}));
}

TEST(PastePlans, HaveNothingToDoForAnEmptyText) {
  const EditedGrid grid(1, 1, 1);
  EXPECT_TRUE(CellsOf(grid.Plan({"", {}}, 0, 0)).empty());
  EXPECT_FALSE(grid.Plan({"", {}}, 9, 9).Refused());
  EXPECT_EQ(CellsOf(grid.Plan({"\r\n", {}}, 0, 0)), Strings{"0,0="});
}

TEST(PastePlans, StayWithinTheColumns) {
  const EditedGrid grid(2, 2, 2);
  EXPECT_EQ(ReasonOf(grid, "a\tb", 0, 1), RefusalReason::NoColumn);
  EXPECT_EQ(ReasonOf(grid, "a", 0, 2), RefusalReason::NoColumn);
  EXPECT_EQ(ReasonOf(grid, "a", 0, -1), RefusalReason::NoColumn);
  EXPECT_EQ(ReasonOf(grid, "a\tb\tc", 0, 0), RefusalReason::NoColumn);
}

TEST(PastePlans, StayWithinTheUsedRows) {
  const EditedGrid grid(1, 2, 5);
  EXPECT_EQ(ReasonOf(grid, "a\r\nb\r\nc", 0, 0), RefusalReason::NoRow);
  EXPECT_EQ(ReasonOf(grid, "a", 2, 0), RefusalReason::NoRow);
  EXPECT_EQ(ReasonOf(grid, "a", -1, 0), RefusalReason::NoRow);
  EXPECT_EQ(ReasonOf(grid, "a\r\nb", 0, 0), std::nullopt);
}

TEST(PastePlans, AddRowsUpToTheRoom) {
  EditedGrid grid(1, 2, 4);
  grid.editing.SetPasteRows(1);
  EXPECT_EQ(grid.Plan({"a\r\nb\r\nc", {}}, 1, 0).AddedRows(), 2);
  EXPECT_EQ(grid.Plan({"a\r\nb", {}}, 2, 0).AddedRows(), 2);
  EXPECT_EQ(grid.Plan({"a\r\nb", {}}, 0, 0).AddedRows(), 0);
  EXPECT_EQ(ReasonOf(grid, "a\r\nb\r\nc", 2, 0), RefusalReason::NoRow) << "no room";
  EXPECT_EQ(ReasonOf(grid, "a", 3, 0), RefusalReason::NoRow) << "behind the first free row";
  EXPECT_EQ(ReasonOf(grid, "a", -1, 0), RefusalReason::NoRow);
  grid.editing.SetPasteRows(2);
  EXPECT_EQ(ReasonOf(grid, "a", 2, 0), RefusalReason::NoRow) << "no such mode";
}

TEST(PastePlans, NeedAnEditor) {
  EditedGrid grid(4, 1, 1);
  grid.editors[0] = {};
  grid.editors[1] = {0, false, ColumnList::OfDialog};
  EXPECT_EQ(ReasonOf(grid, "a", 0, 0), RefusalReason::NoEditor);
  EXPECT_EQ(ReasonOf(grid, "a\tb", 0, 0), RefusalReason::NoEditor);
  EXPECT_EQ(ReasonOf(grid, "a", 0, 1), std::nullopt) << "a list of the dialog's takes any text";
}

TEST(PastePlans, NeedAvailableCells) {
  EditedGrid grid(2, 2, 3);
  grid.model.SetAvailable(1, 0, 1);
  EXPECT_EQ(ReasonOf(grid, "a\r\nb", 0, 0), RefusalReason::NotAvailable);
  EXPECT_EQ(ReasonOf(grid, "a\r\nb", 0, 1), std::nullopt);
  grid.editing.SetPasteRows(1);
  EXPECT_EQ(ReasonOf(grid, "a", 2, 0), std::nullopt) << "those of a new row are";
}

TEST(PastePlans, KeepTheSmallerLimit) {
  EditedGrid grid(2, 1, 1);
  grid.model.SetTextLimit(0, 6);
  grid.model.Init(2, 1, 1, -1);
  grid.model.SetAvailable(0, 0);
  grid.rules[1].boxLimit = 4;
  EXPECT_EQ(ReasonOf(grid, "123456", 0, 0), std::nullopt);
  EXPECT_EQ(ReasonOf(grid, "1234567", 0, 0), RefusalReason::TooLong);
  EXPECT_EQ(ReasonOf(grid, "12表", 0, 1), std::nullopt);
  EXPECT_EQ(ReasonOf(grid, "123表", 0, 1), RefusalReason::TooLong);
  EXPECT_EQ(ReasonOf(grid, "1234  ", 0, 1), std::nullopt) << "blanks at the end go first";
  EXPECT_EQ(grid.Plan({"12345", {}}, 0, 1).Refused()->limit, 4);
}

TEST(PastePlans, RefuseHalfWidthKatakanaWhereTypingDoes) {
  EditedGrid grid(2, 1, 1);
  grid.rules[0].modes.edit = 0;
  EXPECT_EQ(ReasonOf(grid, "x\xB1", 0, 0), RefusalReason::HalfWidthKatakana);
  EXPECT_EQ(ReasonOf(grid, "x\xA0", 0, 0), RefusalReason::HalfWidthKatakana);
  EXPECT_EQ(ReasonOf(grid, "\x83\xB1", 0, 0), std::nullopt) << "a second byte is none";
  EXPECT_EQ(ReasonOf(grid, "\xB1", 0, 1), std::nullopt);
}

TEST(PastePlans, RefuseHalfWidthKatakanaOfListsToo) {
  for (const ColumnList list : {ColumnList::OfGrid, ColumnList::OfDialog}) {
    EditedGrid grid(1, 1, 1);
    grid.editors[0] = {0, false, list};
    grid.rules[0].entries = {"\xB1 x", "a"};
    EXPECT_EQ(ReasonOf(grid, "\xB1", 0, 0), std::nullopt);
    grid.rules[0].modes.edit = 0;
    EXPECT_EQ(ReasonOf(grid, "\xB1", 0, 0), RefusalReason::HalfWidthKatakana);
    EXPECT_EQ(ReasonOf(grid, "a", 0, 0), std::nullopt);
  }
}

TEST(PastePlans, NameTheCharacterThatIsLacking) {
  EditedGrid grid(3, 2, 2);
  const grid::ClipboardText text = {"a\t?\r\n", {{2, 0x1F600}}};
  const PastePlan plan = grid.Plan(text, 0, 1);
  ASSERT_TRUE(plan.Refused());
  EXPECT_EQ(plan.Refused()->reason, RefusalReason::LackingCharacter);
  EXPECT_EQ(plan.Refused()->cell, (CellPosition{0, 2}));
  EXPECT_EQ(plan.Refused()->lacking, 0x1F600U);
  EXPECT_EQ(plan.Refused()->Message(), "貼り付けできません。1行目 3列目：使えない文字です（U+1F600）。");
}

TEST(PastePlans, CareForNoCharacterInAFieldThatIsLeftAlone) {
  EditedGrid grid(2, 2, 2, 0);
  EXPECT_FALSE(grid.Plan({"?\ta\r\n", {{0, 0x20AC}}}, 0, 0).Refused());
  EXPECT_TRUE(grid.Plan({"?\t?\r\n", {{0, 0x20AC}, {2, 0x20AC}}}, 0, 0).Refused());
}

TEST(PastePlans, TakeFromAListWhatAPickWouldStore) {
  EditedGrid grid(2, 2, 2);
  grid.editors[0] = {0, false, ColumnList::OfGrid};
  grid.rules[0].entries = {"12 Steel", "7:Copper", "表"};
  EXPECT_EQ(ReasonOf(grid, "12", 0, 0), std::nullopt);
  EXPECT_EQ(ReasonOf(grid, "表", 0, 0), std::nullopt);
  EXPECT_EQ(ReasonOf(grid, "12\r\n7\r\n", 0, 0), RefusalReason::NotInList) << "the separator is a blank";
  EXPECT_EQ(ReasonOf(grid, "12 Steel", 0, 0), RefusalReason::NotInList);
  EXPECT_EQ(ReasonOf(grid, "12 ", 0, 0), RefusalReason::NotInList);
  EXPECT_EQ(ReasonOf(grid, "\r\n", 0, 0), RefusalReason::NotInList);
  grid.separator = ':';
  EXPECT_EQ(ReasonOf(grid, "12", 0, 0), RefusalReason::NotInList);
  EXPECT_EQ(ReasonOf(grid, "12 Steel", 0, 0), std::nullopt);
  EXPECT_EQ(ReasonOf(grid, "7", 0, 0), std::nullopt);
  grid.editors[0].hasBox = true;
  EXPECT_EQ(ReasonOf(grid, "anything", 0, 0), std::nullopt) << "what is typed need not be in the list";
}

TEST(PastePlans, TakeFromAListWhatAPickWouldCut) {
  EditedGrid grid(1, 1, 1);
  grid.model.SetTextLimit(0, 5);
  grid.model.Init(1, 1, 1, -1);
  grid.model.SetAvailable(0, 0);
  grid.editors[0] = {0, false, ColumnList::OfGrid};
  grid.rules[0].entries = {"1234表"};
  EXPECT_EQ(ReasonOf(grid, "1234", 0, 0), std::nullopt);
  EXPECT_EQ(ReasonOf(grid, "1234表", 0, 0), RefusalReason::NotInList);
  grid.editors[0].list = ColumnList::OfDialog;
  EXPECT_EQ(ReasonOf(grid, "1234表", 0, 0), RefusalReason::TooLong);
}

TEST(PastePlans, ShapeTextsAsTypingDoes) {
  EditedGrid grid(4, 1, 1);
  grid.rules[0].letterCase = LetterCase::Capitals;
  grid.rules[1].letterCase = LetterCase::Small;
  grid.rules[2].modes.space = 1;
  const Strings cells = {"0,0=AＢ", "0,1=aｂ", "0,2=c  ", "0,3= d"};
  EXPECT_EQ(CellsOf(grid.Plan({"aｂ  \tAＢ \tc  \t d   ", {}}, 0, 0)), cells);
  EXPECT_EQ(CellsOf(grid.Plan({"\"a\r\nb\"\tx\x81", {}}, 0, 2)), (Strings{"0,2=a b", "0,3=x"}))
      << "half a character is none";
}

TEST(PastePlans, UseUpFieldsOfWholeRows) {
  EditedGrid grid(4, 3, 3, 0);
  grid.editors[1] = {};
  grid.editors[2].kind = 1;
  grid.model.SetAvailable(1, 0, 1);
  const PastePlan plan = grid.Plan({"1\tx\t\tA\r\n2\ty\t\tB\r\n", {}}, 1, 0);
  EXPECT_EQ(CellsOf(plan), (Strings{"1,3=A", "2,3=B"}));
  EXPECT_EQ(ReasonOf(grid, "2\ty", 1, 0), RefusalReason::NotAvailable) << "not as wide as all columns";
  EXPECT_EQ(ReasonOf(grid, "x\ty\tz", 1, 1), RefusalReason::NoEditor) << "not at column 0";
  EXPECT_EQ(CellsOf(grid.Plan({"1\tx\t\tA\r\n2\ty\r\n", {}}, 0, 0)), Strings{"0,3=A"}) << "one row is as wide";
  EXPECT_EQ(ReasonOf(grid, "1\tx\t\tA\r\n2\ty\t\tB\tz", 0, 0), RefusalReason::NoEditor) << "one row is wider";
}

TEST(PastePlans, FillTheSelectedRowsWithASingleValue) {
  EditedGrid grid(2, 5, 6);
  for (const int row : {1, 3, 4}) grid.model.Select(row, 1);
  EXPECT_EQ(CellsOf(grid.Plan({"a\r\n", {}}, 1, 1)), (Strings{"1,1=a", "3,1=a", "4,1=a"}));
  EXPECT_EQ(CellsOf(grid.Plan({"\r\n", {}}, 1, 1)), (Strings{"1,1=", "3,1=", "4,1="}));
  EXPECT_EQ(CellsOf(grid.Plan({"a\r\n", {}}, 1, 0)), (Strings{"1,0=a", "3,0=a", "4,0=a"})) << "the first column too";
  EXPECT_EQ(CellsOf(grid.Plan({"a\tb", {}}, 1, 0)), (Strings{"1,0=a", "1,1=b"}))
      << "several values go where they are put";
  EXPECT_EQ(ReasonOf(grid, "a", 1, 2), RefusalReason::NoColumn);
  EXPECT_EQ(ReasonOf(grid, "a", -1, 1), RefusalReason::NoRow);
  EXPECT_EQ(ReasonOf(grid, std::string(50, 'a'), 1, 1), RefusalReason::TooLong);
  grid.model.SetAvailable(3, 1, 1);
  EXPECT_EQ(ReasonOf(grid, "a", 1, 1), RefusalReason::NotAvailable);
  EXPECT_EQ(CellsOf(grid.Plan({"", {}}, 1, 1)), Strings());
}

TEST(PastePlans, FillNothingWhenOneRowIsSelected) {
  EditedGrid grid(1, 3, 3);
  grid.model.Select(2, 1);
  EXPECT_EQ(CellsOf(grid.Plan({"a", {}}, 0, 0)), Strings{"0,0=a"});
}

TEST(PastePlans, FillAnOnlyColumn) {
  EditedGrid grid(1, 3, 3);
  for (const int row : {0, 2}) grid.model.Select(row, 1);
  EXPECT_EQ(CellsOf(grid.Plan({"a", {}}, 0, 0)), (Strings{"0,0=a", "2,0=a"}));
}

TEST(PastePlans, NeedRulesForTheirColumns) {
  EditedGrid grid(2, 1, 1);
  grid.rules.pop_back();
  EXPECT_EQ(ReasonOf(grid, "a", 0, 0), std::nullopt);
  EXPECT_EQ(ReasonOf(grid, "a", 0, 1), RefusalReason::TooLong) << "a box that takes nothing";
}

TEST(PastePlans, LeaveAnOnlyColumnAloneThatIsNotTyped) {
  EditedGrid grid(1, 3, 3);
  grid.editors[0] = {};
  EXPECT_EQ(ReasonOf(grid, "a", 0, 0), std::nullopt);
  EXPECT_TRUE(CellsOf(grid.Plan({"a", {}}, 0, 0)).empty());
  grid.model.Select(0, 1);
  grid.model.Select(1, 1);
  EXPECT_EQ(ReasonOf(grid, "a", 0, 0), std::nullopt);
  EXPECT_TRUE(CellsOf(grid.Plan({"a", {}}, 0, 0)).empty());
}

TEST(PastePlans, AskWithTheTextsThatWillBeStored) {
  EditedGrid grid(2, 2, 2);
  grid.rules[0].letterCase = LetterCase::Capitals;
  Strings asked;
  grid.editing.SetPasteCheck(
      [](void* context, int row, int column, const char* text) {
        static_cast<Strings*>(context)->push_back(std::to_string(row) + "," + std::to_string(column) + "=" + text);
        return std::string_view(text) == "no" ? 0 : 1;
      },
      &asked);
  EXPECT_FALSE(grid.Plan({"a \tb", {}}, 0, 0).Refused());
  EXPECT_EQ(asked, (Strings{"0,0=A", "0,1=b"}));
  asked.clear();
  const PastePlan plan = grid.Plan({"a\tno\r\nb\tc", {}}, 0, 0);
  ASSERT_TRUE(plan.Refused());
  EXPECT_EQ(plan.Refused()->reason, RefusalReason::NotAccepted);
  EXPECT_EQ(plan.Refused()->cell, (CellPosition{0, 1}));
  EXPECT_EQ(asked.size(), 2U) << "no further cell is asked about";
  asked.clear();
  EXPECT_TRUE(grid.Plan({"a\tb\tc", {}}, 0, 0).Refused());
  EXPECT_TRUE(asked.empty()) << "what is refused anyway is not asked about";
}

TEST(Refusals, NameRowColumnAndReason) {
  EditedGrid grid(3, 3, 3);
  grid.rules[1].title = "数量";
  grid.rules[1].boxLimit = 4;
  grid.rules[1].modes.edit = 0;
  grid.editors[2] = {};
  grid.model.SetAvailable(2, 1);
  EXPECT_EQ(grid.Refusal("12345", 0, 1), "貼り付けできません。1行目 数量：長すぎます（4バイトまで）。");
  EXPECT_EQ(grid.Refusal("\xB1", 1, 1), "貼り付けできません。2行目 数量：半角カナは使えません。");
  EXPECT_EQ(grid.Refusal("x", 2, 0), "貼り付けできません。3行目 1列目：編集できないセルです。");
  EXPECT_EQ(grid.Refusal("x", 0, 2), "貼り付けできません。1行目 3列目：編集できない列です。");
  EXPECT_EQ(grid.Refusal("x\ty\tz\tw", 0, 0), "貼り付けできません。1行目 3列目：編集できない列です。");
  EXPECT_EQ(grid.Refusal("x", 0, 3), "貼り付けできません。1行目 4列目：列がありません。");
  EXPECT_EQ(grid.Refusal("x", 3, 1), "貼り付けできません。4行目 数量：行がありません。");
  EXPECT_EQ(grid.Refusal("x", INT_MAX, 0), "貼り付けできません。2147483648行目 1列目：行がありません。");
  EXPECT_EQ(grid.Refusal("x", 0, INT_MAX), "貼り付けできません。1行目 2147483648列目：列がありません。");
  grid.editors[1] = {0, false, ColumnList::OfGrid};
  EXPECT_EQ(grid.Refusal("x", 0, 1), "貼り付けできません。1行目 数量：リストにない値です。");
  grid.editing.SetPasteCheck([](void*, int, int, const char*) { return 0; }, nullptr);
  EXPECT_EQ(grid.Refusal("x", 0, 0), "貼り付けできません。1行目 1列目：使えない値です。");
}

}  // namespace
