// The keys of the grid, pressed on a real keyboard, in a dialog of the framework and in one that knows nothing of it.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/windows/grid/grid_keyed.h"

namespace {

using driver::User;
using driver::Window;
using grid_test::CellPoint;
using grid_test::Edited;
using grid_test::Host;
using grid_test::HostKind;
using grid_test::kMaterial;
using grid_test::kName;
using grid_test::kNumber;
using grid_test::kUnit;

class GridKeysTest : public grid_test::KeyedGridTest {
 protected:
  void WaitForOpenList(User& user) {
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
  }
  void WaitForClosedList(User& user) {
    user.WaitUntil("the list closes", [&] { return !host_->ComboBox(); });
  }
  /// The edit box has the focus and all of its text is marked.
  void ExpectMarkedBox(const std::string& text) {
    const Window box = host_->EditBox();
    ASSERT_TRUE(box);
    EXPECT_TRUE(box.HasFocus());
    EXPECT_EQ(box.Text(), text);
    EXPECT_EQ(box.TextSelection().first, 0);
    EXPECT_GT(box.TextSelection().second, 0);
  }
};

INSTANTIATE_TEST_SUITE_P(Hosts, GridKeysTest, testing::Values(HostKind::Framework, HostKind::Plain),
                         grid_test::NameOfHost);

TEST_P(GridKeysTest, TabGoesFromCellToCellOverTheRowsEnd) {
  Use([&](User& user) {
    ClickCell(user, 3, kName);
    user.Key(VK_TAB);
    EXPECT_EQ(EditedCell(), Edited(3, kMaterial));
    ExpectMarkedBox("2");
    user.Key(VK_TAB);
    EXPECT_EQ(EditedCell(), Edited(3, kUnit));
    EXPECT_FALSE(host_->EditBox());
    EXPECT_TRUE(host_->ListView().HasFocus()) << "a cell with a list and no box";
    user.Key(VK_TAB);
    EXPECT_EQ(EditedCell(), Edited(5, kName)) << "row 4 is not available";
    ExpectMarkedBox("部品5");
    EXPECT_EQ(host_->ZoneText(), "品名を入力");
    user.Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(EditedCell(), Edited(3, kUnit));
    user.Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(EditedCell(), Edited(3, kMaterial));
  });
}

TEST_P(GridKeysTest, TabLeavesTheGridBehindTheLastCellAndBeforeTheFirst) {
  Use([&](User& user) {
    ClickCell(user, 0, kName);
    user.Key(VK_END, {VK_CONTROL});
    EXPECT_EQ(EditedCell(), Edited(11, kUnit));
    user.Key(VK_TAB);
    EXPECT_TRUE(Window(host_->Child(grid_test::kOther)).HasFocus());
    user.Key(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(host_->ListView().HasFocus()) << "back where the list is";
    user.Key(VK_HOME, {VK_CONTROL});
    EXPECT_EQ(EditedCell(), Edited(0, kName));
    user.Type("x ");
    user.Key(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(Window(host_->Child(IDCANCEL)).HasFocus());
    EXPECT_EQ(host_->Text(0, kName), "x") << "left, without its blank";
    user.Key(VK_TAB);
    EXPECT_TRUE(host_->EditBox().HasFocus()) << "the cell is still edited";
    user.Type("y");
    EXPECT_NE(host_->Text(0, kName), "x");
  });
}

TEST_P(GridKeysTest, EnterAndArrowsMoveInTheColumnAndStayAtItsEnds) {
  const int result = Use([&](User& user) {
    ClickCell(user, 3, kName);
    user.Type("abc ");
    user.Key(VK_RETURN);
    EXPECT_EQ(EditedCell(), Edited(5, kName));
    EXPECT_EQ(host_->Text(3, kName), "abc");
    ExpectMarkedBox("部品5");
    user.Key(VK_RETURN, {VK_SHIFT});
    EXPECT_EQ(EditedCell(), Edited(3, kName));
    Press(user, {VK_UP, VK_UP, VK_UP, VK_UP});
    EXPECT_EQ(EditedCell(), Edited(0, kName));
    ExpectMarkedBox("部品0");
    Press(user, {VK_DOWN});
    EXPECT_EQ(EditedCell(), Edited(1, kName));
    for (int i = 0; i < 12; ++i) user.Key(VK_RETURN);
    EXPECT_EQ(EditedCell(), Edited(11, kName)) << "the dialog has not ended";
    EXPECT_EQ(host_->Text(11, kName), "部品11");
  });
  EXPECT_EQ(result, IDCANCEL);
}

TEST_P(GridKeysTest, PagesMoveByTheRowsThatAreSeen) {
  Use([&](User& user) {
    ClickCell(user, 1, kName);
    const int page = static_cast<int>(host_->ListView().Send(LVM_GETCOUNTPERPAGE));
    ASSERT_GT(page, 2);
    host_->Do([&] { host_->list->SetItemCount(30); });
    host_->Do([&] {
      for (int row = 12; row < 30; ++row) host_->list->SetItemText(row, kName, "x");
    });
    user.Key(VK_NEXT);
    EXPECT_EQ(EditedCell(), Edited(1 + page, kName));
    EXPECT_TRUE(host_->EditBox().HasFocus());
    Press(user, {VK_NEXT, VK_NEXT, VK_NEXT});
    EXPECT_EQ(EditedCell(), Edited(29, kName));
    user.Key(VK_PRIOR);
    EXPECT_EQ(EditedCell(), Edited(29 - page, kName));
    user.Key(VK_HOME, {VK_CONTROL});
    EXPECT_EQ(EditedCell(), Edited(0, kName));
    EXPECT_EQ(host_->ListView().TopRow(), 0);
  });
}

TEST_P(GridKeysTest, EscGivesTheTextBackAndASecondOneEndsTheDialog) {
  const int result = Use([&](User& user) {
    ClickCell(user, 2, kName);
    user.Type("abc");
    EXPECT_EQ(host_->Text(2, kName), "abc");
    user.Key(VK_ESCAPE);
    EXPECT_EQ(host_->Text(2, kName), "部品2");
    ExpectMarkedBox("部品2");
    EXPECT_NE(host_->Handle(), nullptr);
    user.Type("d");
    EXPECT_EQ(host_->Text(2, kName), "d");
    Press(user, {VK_ESCAPE});
    EXPECT_EQ(host_->Text(2, kName), "部品2");
    user.Key(VK_ESCAPE);
    user.WaitUntil("the dialog ends", [&] { return host_->Handle() == nullptr; });
  });
  EXPECT_EQ(result, IDCANCEL);
}

TEST_P(GridKeysTest, EscGivesATextBackThatTheBoxShowsInOtherLetters) {
  const int result = Use([&](User& user) {
    host_->Do([&] { host_->list->SetItemText(2, kMaterial, "sus"); });
    ClickCell(user, 2, kMaterial);
    user.Type("x");
    EXPECT_EQ(host_->Text(2, kMaterial), "X");
    user.Key(VK_ESCAPE);
    EXPECT_EQ(host_->Text(2, kMaterial), "sus");
    ExpectMarkedBox("SUS");
    EXPECT_EQ(Ask([](CvListControl& list) { return list.CanUndo(); }), 0) << "no step is left of it";
    user.Key(VK_ESCAPE);
    user.WaitUntil("a second Esc ends the dialog", [&] { return host_->Handle() == nullptr; });
  });
  EXPECT_EQ(result, IDCANCEL);
}

TEST_P(GridKeysTest, EscThatIsHeldDownGivesTheTextBackOnly) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    user.Type("abc");
    const HWND box = host_->EditBox().Handle();
    constexpr LPARAM kRepeated = 0x40000001;
    ::PostMessageW(box, WM_KEYDOWN, VK_ESCAPE, 1);
    for (int repeats = 0; repeats < 3; ++repeats) ::PostMessageW(box, WM_KEYDOWN, VK_ESCAPE, kRepeated);
    user.WaitUntil("the text is back", [&] { return host_->Text(2, kName) == "部品2"; });
    user.Settle();
    EXPECT_NE(host_->Handle(), nullptr);
    ::PostMessageW(box, WM_KEYUP, VK_ESCAPE, static_cast<LPARAM>(0xC0000001));
    ::PostMessageW(box, WM_KEYDOWN, VK_ESCAPE, 1);
    user.WaitUntil("the dialog ends", [&] { return host_->Handle() == nullptr; });
  });
}

TEST_P(GridKeysTest, F2TakesTheMarkingOff) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    ExpectMarkedBox("部品2");
    user.Key(VK_F2);
    EXPECT_EQ(host_->EditBox().TextSelection(), std::pair(3, 3));
    user.Type("x");
    EXPECT_EQ(host_->Text(2, kName), "部品2x");
  });
}

TEST_P(GridKeysTest, AltDownAndF4DropTheListAndCloseIt) {
  Use([&](User& user) {
    ClickCell(user, 1, kMaterial);
    user.Key(VK_F4);
    WaitForOpenList(user);
    EXPECT_EQ(host_->ZoneText(), "材質を選択");
    user.Key(VK_F4);
    WaitForClosedList(user);
    EXPECT_EQ(host_->Text(1, kMaterial), "2");
    user.Key(VK_DOWN, {VK_MENU});
    WaitForOpenList(user);
    user.Key(VK_ESCAPE);
    WaitForClosedList(user);
    EXPECT_NE(host_->Handle(), nullptr);
    EXPECT_TRUE(host_->EditBox().HasFocus());
    ClickCell(user, 1, kName);
    user.Key(VK_F4);
    user.Key(VK_DOWN, {VK_MENU});
    EXPECT_FALSE(host_->ComboBox()) << "a column without a list";
    EXPECT_EQ(EditedCell(), Edited(1, kName));
  });
}

TEST_P(GridKeysTest, AnOpenListIsMovedInWithoutAPickUntilEnter) {
  Use([&](User& user) {
    ClickCell(user, 1, kMaterial);
    user.Key(VK_F4);
    WaitForOpenList(user);
    user.Key(VK_DOWN);
    user.Key(VK_DOWN);
    EXPECT_TRUE(host_->ComboBox().IsDropped());
    EXPECT_EQ(host_->ComboBox().Selection(), 1) << "none was shown at first, as 2 is no whole entry";
    EXPECT_EQ(host_->Text(1, kMaterial), "2");
    user.Key(VK_END);
    EXPECT_EQ(host_->ComboBox().Selection(), 3);
    user.Type("1");
    EXPECT_EQ(host_->ComboBox().Selection(), 0);
    user.Key(VK_RETURN);
    WaitForClosedList(user);
    EXPECT_EQ(host_->Text(1, kMaterial), "1");
    EXPECT_EQ(host_->EditBox().Text(), "1");
    EXPECT_TRUE(host_->EditBox().HasFocus());
    user.Key(VK_F4);
    WaitForOpenList(user);
    user.Key(VK_END);
    user.Key(VK_F4);
    WaitForClosedList(user);
    EXPECT_EQ(host_->Text(1, kMaterial), "1") << "closed without a pick";
  });
}

TEST_P(GridKeysTest, KeysOfTheGridCloseAnOpenListWithoutAPickAndAct) {
  Use([&](User& user) {
    const auto open = [&](int row, int col) {
      ClickCell(user, row, col);
      user.Key(VK_F4);
      WaitForOpenList(user);
      user.Key(VK_END);
    };
    host_->Do([&] { host_->list->SetCellsText(1, kName, "typed"); });
    open(1, kUnit);
    user.Key('Z', {VK_CONTROL});
    WaitForClosedList(user);
    EXPECT_EQ(host_->Text(1, kName), "部品1");
    EXPECT_EQ(host_->Text(1, kUnit), "個");
    EXPECT_EQ(EditedCell(), Edited(1, kUnit));
    user.Key(VK_F4);
    WaitForOpenList(user);
    user.Key('C', {VK_CONTROL});
    WaitForClosedList(user);
    EXPECT_EQ(grid_test::ClipboardText(), L"2\t部品1\t2\t個\t\r\n");
    open(1, kMaterial);
    user.Key(VK_DELETE);
    WaitForClosedList(user);
    EXPECT_EQ(host_->Text(1, kMaterial), "") << "what was marked in the box";
    EXPECT_TRUE(host_->EditBox().HasFocus());
    open(2, kUnit);
    user.Key(VK_SUBTRACT, {VK_CONTROL});
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetItemCount(); }), grid_test::kKeyedRows - 1);
    EXPECT_FALSE(host_->ComboBox());
  });
}

TEST_P(GridKeysTest, ShiftAndEnterMoveUpOverAnOpenListToo) {
  Use([&](User& user) {
    ClickCell(user, 1, kMaterial);
    for (const char* const where : {"from the second row", "in the first one, to stay there"}) {
      user.Key(VK_F4);
      WaitForOpenList(user);
      user.Key(VK_END);
      user.Key(VK_RETURN, {VK_SHIFT});
      WaitForClosedList(user);
      EXPECT_EQ(EditedCell(), Edited(0, kMaterial)) << where;
    }
    EXPECT_EQ(Block(0, kMaterial, 2, 1), "2\r\n2\r\n") << "without a pick";
    EXPECT_NE(host_->Handle(), nullptr);
  });
}

TEST_P(GridKeysTest, KeysOverAnOpenListLeaveTheListViewsOwnSelectionAlone) {
  Use([&](User& user) {
    ClickCell(user, 2, kUnit);
    user.Key(VK_F4);
    WaitForOpenList(user);
    for (const int code : {VK_DOWN, VK_UP, VK_HOME, VK_END, VK_NEXT, VK_PRIOR, VK_SPACE}) {
      const auto key = static_cast<WORD>(code);
      user.Key(key, {VK_SHIFT});
      user.Key(key, {VK_CONTROL});
      EXPECT_EQ(host_->ListView().SelectedRows(), (std::vector<int>{2})) << key;
      EXPECT_EQ(host_->ListView().FocusedRow(), 2) << key;
    }
    EXPECT_EQ(EditedCell(), Edited(2, kUnit));
    EXPECT_TRUE(host_->ComboBox().IsDropped());
    user.Key(VK_F4);
    WaitForClosedList(user);
  });
}

TEST_P(GridKeysTest, ACellWithAListAndNoBoxIsUsedFromTheListView) {
  Use([&](User& user) {
    ClickCell(user, 2, kUnit);
    EXPECT_TRUE(host_->ListView().HasFocus());
    EXPECT_FALSE(host_->EditBox());
    user.Type("m");
    WaitForOpenList(user);
    EXPECT_EQ(host_->ComboBox().Selection(), 2) << "the letter only drops the list";
    user.Type("m");
    EXPECT_EQ(host_->ComboBox().Selection(), 1);
    user.Key(VK_RETURN);
    WaitForClosedList(user);
    EXPECT_EQ(host_->Text(2, kUnit), "mm");
    EXPECT_TRUE(host_->ListView().HasFocus());
    user.Key(VK_DOWN);
    EXPECT_EQ(EditedCell(), Edited(3, kUnit));
    user.Key(VK_F2);
    WaitForOpenList(user);
    user.Key(VK_ESCAPE);
    WaitForClosedList(user);
    user.Key(VK_DOWN, {VK_MENU});
    WaitForOpenList(user);
    user.Key(VK_TAB, {VK_SHIFT});
    WaitForClosedList(user);
    EXPECT_EQ(EditedCell(), Edited(3, kMaterial));
    user.Key(VK_TAB);
    user.Key(VK_RETURN);
    EXPECT_EQ(EditedCell(), Edited(5, kUnit)) << "Enter has not ended the dialog";
    user.Key(VK_RETURN, {VK_SHIFT});
    Press(user, {VK_UP});
    EXPECT_EQ(EditedCell(), Edited(2, kUnit));
    user.Key(VK_ESCAPE);
    user.WaitUntil("Esc is the dialog's", [&] { return host_->Handle() == nullptr; });
  });
}

TEST_P(GridKeysTest, EscGivesAPickBackBeforeTheDialogSeesIt) {
  Use([&](User& user) {
    ClickCell(user, 2, kUnit);
    user.Key(VK_F4);
    WaitForOpenList(user);
    Press(user, {VK_HOME, VK_RETURN});
    WaitForClosedList(user);
    EXPECT_EQ(host_->Text(2, kUnit), "kg");
    user.Key(VK_ESCAPE);
    EXPECT_EQ(host_->Text(2, kUnit), "個");
    EXPECT_NE(host_->Handle(), nullptr);
  });
}

TEST_P(GridKeysTest, MovingBackToACellIsNoSecondClick) {
  Use([&](User& user) {
    ClickCell(user, 1, kMaterial);
    user.Key(VK_TAB);
    user.Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(EditedCell(), Edited(1, kMaterial));
    EXPECT_FALSE(host_->ComboBox());
    user.Key(VK_DOWN);
    user.Key(VK_UP);
    EXPECT_EQ(EditedCell(), Edited(1, kMaterial));
    EXPECT_FALSE(host_->ComboBox());
    ClickCell(user, 2, kMaterial);
    user.Key(VK_UP);
    EXPECT_EQ(EditedCell(), Edited(1, kMaterial));
    EXPECT_FALSE(host_->ComboBox()) << "it was clicked before, but not twice in a row";
  });
}

TEST_P(GridKeysTest, WithoutACellArrowsAndF2EditOne) {
  Use([&](User& user) {
    FocusListView(user);
    user.Key(VK_RIGHT);
    EXPECT_EQ(EditedCell(), Edited(0, kName)) << "the first row, the first column with an editor";
    host_->Do([&] { host_->list->ClickItem(6, kNumber); });
    FocusListView(user);
    user.Key(VK_F2);
    EXPECT_EQ(EditedCell(), Edited(6, kName));
    user.Key(VK_TAB);
    EXPECT_EQ(EditedCell(), Edited(6, kMaterial));
    host_->Do([&] { host_->list->ClickItem(6, kNumber); });
    FocusListView(user);
    user.Key(VK_DOWN);
    EXPECT_EQ(EditedCell(), Edited(7, kMaterial)) << "the column edited last, the row below the selected one";
    host_->Do([&] { host_->list->ClickItem(5, kNumber); });
    FocusListView(user);
    user.Key(VK_UP);
    EXPECT_EQ(EditedCell(), Edited(3, kMaterial));
    EXPECT_TRUE(host_->EditBox().HasFocus());
  });
}

TEST_P(GridKeysTest, ANewListKnowsNoColumnThatWasEditedLast) {
  Use([&](User& user) {
    ClickCell(user, 1, kMaterial);
    host_->Do([&] { grid_test::FillKeyedTable(*host_); });
    FocusListView(user);
    user.Key(VK_F2);
    EXPECT_EQ(EditedCell(), Edited(0, kName)) << "the first that has an editor";
  });
}

TEST_P(GridKeysTest, WithShiftTheListViewSelectsAndTheGridFollows) {
  Use([&](User& user) {
    ClickCell(user, 0, kName);
    Press(user, {VK_DOWN, VK_DOWN, VK_TAB, VK_TAB});
    EXPECT_EQ(EditedCell(), Edited(2, kUnit));
    user.Key(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(SelectedRows(), (std::vector<int>{2, 3}));
    user.Key(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(SelectedRows(), (std::vector<int>{2, 3, 4}));
    user.Key(VK_HOME, {VK_SHIFT});
    EXPECT_EQ(SelectedRows(), (std::vector<int>{0, 1, 2}));
    EXPECT_FALSE(host_->EditBox());
  });
}

TEST_P(GridKeysTest, TypingOnTheListViewReplacesTheTextOfTheSelectedRow) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->ClickItem(5, kNumber); });
    FocusListView(user);
    user.Type("表xy");
    EXPECT_EQ(EditedCell(), Edited(5, kName));
    EXPECT_EQ(host_->EditBox().Text(), "表xy");
    EXPECT_EQ(host_->Text(5, kName), "表xy");
    user.Key(VK_RETURN);
    EXPECT_EQ(EditedCell(), Edited(6, kName));
  });
}

TEST_P(GridKeysTest, TypingBringsABoxBackThatHasBeenScrolledOutOfSight) {
  Use([&](User& user) {
    ClickCell(user, 1, kName);
    host_->Do([&] { host_->ListView().Send(LVM_SCROLL, 0, 400); });
    user.WaitUntil("the box has left the page", [&] { return !host_->EditBox(); });
    user.Type("x");
    EXPECT_EQ(EditedCell(), Edited(1, kName));
    EXPECT_EQ(host_->Text(1, kName), "x");
    ASSERT_TRUE(host_->EditBox());
    EXPECT_TRUE(host_->EditBox().HasFocus());
  });
}

TEST_P(GridKeysTest, InsertAndCtrlMinusInsertAndDeleteRows) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    user.Key(VK_INSERT);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetItemCount(); }), 13);
    EXPECT_EQ(host_->Text(2, kName), "");
    EXPECT_EQ(host_->Text(3, kName), "部品2");
    EXPECT_EQ(EditedCell(), Edited(2, kName));
    user.Key(VK_SUBTRACT, {VK_CONTROL});
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetItemCount(); }), 12);
    EXPECT_EQ(host_->Text(2, kName), "部品2");
    EXPECT_TRUE(host_->ListView().HasFocus());
    ClickCell(user, 2, kName);
    user.Key(VK_OEM_MINUS, {VK_CONTROL});
    EXPECT_EQ(host_->Text(2, kName), "部品3");
    EXPECT_EQ(host_->Text(2, kNumber), "3");
  });
}

TEST_P(GridKeysTest, InsertAndCtrlMinusSayWhatTheyCannotDo) {
  Use([&](User& user) {
    FocusListView(user);
    const auto expectBox = [&](WORD key, const std::vector<WORD>& held, const std::string& text) {
      user.Key(key, held);
      const driver::MessageBoxView box = user.WaitMessageBox();
      EXPECT_EQ(box.text, text);
      user.Answer(box, IDOK);
    };
    expectBox(VK_INSERT, {}, "アイテムを選択してください。");
    expectBox(VK_SUBTRACT, {VK_CONTROL}, "アイテムを選択してください。");
    host_->Do([&] { host_->list->SetItemCount(30); });
    ClickCell(user, 1, kName);
    expectBox(VK_INSERT, {}, "追加・挿入できません。");
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetItemCount(); }), 30);
    EXPECT_EQ(host_->Text(1, kName), "部品1");
  });
}

TEST_P(GridKeysTest, WithoutFlagsKeysAreTheBoxsAndTheDialogs) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetKeys(0); });
    grid_test::SetClipboard(L"x\ty\r\nz\r\n");
    const std::string others = Block(3, 0, 27, 5);
    ClickCell(user, 2, kName);
    user.Key(VK_END, {VK_CONTROL});
    user.Key(VK_HOME, {VK_CONTROL});
    EXPECT_EQ(EditedCell(), Edited(2, kName));
    user.Key('V', {VK_CONTROL});
    EXPECT_EQ(Block(2, kMaterial, 1, 1), "2\r\n") << "the box pastes by itself";
    EXPECT_EQ(Block(3, 0, 27, 5), others);
    ClickCell(user, 1, kMaterial);
    user.Key(VK_DOWN, {VK_MENU});
    EXPECT_FALSE(host_->ComboBox());
    SelectRows(user, {6, 8}, kName);
    user.Key(VK_DELETE);
    EXPECT_EQ(Block(8, kName, 1, 1), "部品8\r\n") << "the box's own text only";
  });
}

TEST_P(GridKeysTest, WithoutFlagsTheListViewKeepsItsKeys) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetKeys(0); });
    host_->Do([&] { host_->list->ClickItem(5, kNumber); });
    FocusListView(user);
    const std::string before = Block(0, 0, 30, 5);
    user.Type("x");
    const HWND list = host_->Child(grid_test::kList);
    host_->Do([&] {
      ::SendMessageW(list, WM_KEYDOWN, VK_PROCESSKEY, 1);
      ::SendMessageW(list, WM_IME_STARTCOMPOSITION, 0, 0);
      ::SendMessageW(list, WM_IME_ENDCOMPOSITION, 0, 0);
    });
    EXPECT_FALSE(host_->EditBox());
    user.Key(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(SelectedRows(), (std::vector<int>{5})) << "what the list view selects is not taken over";
    EXPECT_EQ(Block(0, 0, 30, 5), before);
  });
}

TEST_P(GridKeysTest, NoneIsTakenWithoutItsFlag) {
  const int result = Use([&](User& user) {
    host_->Do([&] { host_->list->SetKeys(0); });
    ClickCell(user, 2, kName);
    Press(user, {VK_DOWN, VK_NEXT, VK_F4, VK_F2, VK_INSERT});
    EXPECT_EQ(EditedCell(), Edited(2, kName));
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetItemCount(); }), 12);
    user.Key(VK_OEM_MINUS, {VK_CONTROL});
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetItemCount(); }), 12);
    user.Key(VK_RETURN);
    user.WaitUntil("Enter is the dialog's", [&] { return host_->Handle() == nullptr; });
  });
  EXPECT_EQ(result, IDOK);
}

TEST_P(GridKeysTest, FlagsAreKeptAndOthersIgnored) {
  Use([&](User& user) {
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetKeys(); }), 15);
    host_->Do([&] { host_->list->SetKeys(0x7F0 | CvListControl::kKeysRows); });
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetKeys(); }), 8);
    CvListControl fresh;
    EXPECT_EQ(fresh.GetKeys(), 0);
    user.Settle();
  });
}

TEST_P(GridKeysTest, AltThatIsLetGoFirstOpensNoMenu) {
  Use([&](User& user) {
    ClickCell(user, 1, kMaterial);
    user.HoldKey(VK_MENU);
    user.HoldKey(VK_DOWN);
    user.ReleaseKey(VK_MENU);
    user.ReleaseKey(VK_DOWN);
    WaitForOpenList(user);
    for (int entry = 0; entry < 3; ++entry) {
      user.Key(VK_DOWN);
      EXPECT_FALSE(user.Sees("#32768"));
      EXPECT_EQ(host_->ComboBox().Selection(), entry) << "the arrow has moved in the list";
    }
    user.Key(VK_F4);
    WaitForClosedList(user);
  });
}

TEST_P(GridKeysTest, AListOfTheDialogsIsPickedFromByTheDialog) {
  int picked = -1;
  host_->onCommand = [&](int id, int code) {
    if (id != grid_test::kDialogCombo || code != CBN_SELCHANGE) return;
    picked = Window(host_->Child(grid_test::kDialogCombo)).Selection();
    host_->list->SetItemText(1, kUnit, "dialog");
    host_->list->CloseComboBox();
  };
  Use(
      [&](User& user) {
        ClickCell(user, 1, kUnit);
        user.Key(VK_F4);
        const Window combo(host_->Child(grid_test::kDialogCombo));
        user.WaitUntil("the list drops down", [&] { return combo.IsDropped(); });
        Press(user, {VK_DOWN, VK_DOWN});
        EXPECT_EQ(picked, -1) << "moving is no pick";
        user.Key(VK_RETURN);
        user.WaitUntil("the list closes", [&] { return !combo.IsVisible(); });
        EXPECT_EQ(picked, 1);
        EXPECT_EQ(host_->Text(1, kUnit), "dialog");
      },
      [](Host& host) {
        ::CreateWindowExA(0, "COMBOBOX", "", WS_CHILD | CBS_DROPDOWNLIST, 0, 0, 50, 200, host.Handle(),
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(grid_test::kDialogCombo)), nullptr, nullptr);
        grid_test::FillKeyedTable(host);
        CStringList entries;
        for (const char* entry : {"1", "2", "3"}) entries.AddTail(entry);
        host.list->ClearCombo(kUnit);
        host.list->SetCombo(kUnit, kUnit, &entries, grid_test::kDialogCombo, "");
      });
}

TEST_P(GridKeysTest, ACellBesideTheViewIsScrolledTo) {
  Use(
      [&](User& user) {
        ClickCell(user, 1, kName);
        user.Key(VK_TAB);
        user.Key(VK_TAB, {VK_SHIFT});
        EXPECT_TRUE(host_->EditBox());
        user.Key(VK_TAB);
        ASSERT_TRUE(host_->EditBox());
        const RECT box = host_->EditBox().ScreenRect();
        const RECT view = host_->ListView().ClientScreenRect();
        EXPECT_GE(box.left, view.left);
        EXPECT_LE(box.right, view.right);
        EXPECT_TRUE(host_->EditBox().HasFocus());
        user.Key(VK_TAB, {VK_SHIFT});
        EXPECT_TRUE(host_->EditBox());
        EXPECT_GE(host_->EditBox().ScreenRect().left, view.left);
      },
      [](Host& host) {
        grid_test::FillKeyedTable(host);
        host.ListView().Send(LVM_SETCOLUMNWIDTH, kName, 280);
        host.ListView().Send(LVM_SETCOLUMNWIDTH, kMaterial, 200);
      });
}

}  // namespace
