// Undo, redo and what the dialog is told of, under a person's hands.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/windows/grid/grid_keyed.h"
#include "tests/windows/support/fenced_heap.h"

namespace {

using driver::User;
using driver::Window;
using grid_test::Edited;
using grid_test::Host;
using grid_test::HostKind;
using grid_test::kMaterial;
using grid_test::kName;
using grid_test::kNumber;
using grid_test::kUnit;

class GridUndoTest : public grid_test::KeyedGridTest {
 protected:
  int Undo() {
    return Ask([](CvListControl& list) { return list.Undo(); });
  }
  int Redo() {
    return Ask([](CvListControl& list) { return list.Redo(); });
  }
  int CanUndo() {
    return Ask([](CvListControl& list) { return list.CanUndo(); });
  }
  int CanRedo() {
    return Ask([](CvListControl& list) { return list.CanRedo(); });
  }
  int Rows() {
    return Ask([](CvListControl& list) { return list.GetItemCount(); });
  }
  /// From now on what the dialog is told, as row:rows.
  void Listen() {
    host_->Do([&] { host_->list->SetChanged(&GridUndoTest::Note, this); });
  }
  [[nodiscard]] std::string TakeTold() { return std::exchange(told_, {}); }
  static void Note(void* context, int row, int rows) {
    static_cast<GridUndoTest*>(context)->told_ += std::to_string(row) + ":" + std::to_string(rows) + ";";
  }

  std::string told_;
};

INSTANTIATE_TEST_SUITE_P(Hosts, GridUndoTest, testing::Values(HostKind::Framework, HostKind::Plain),
                         grid_test::NameOfHost);

TEST_P(GridUndoTest, WhatIsTypedInACellIsOneStep) {
  Use([&](User& user) {
    EXPECT_EQ(CanUndo(), 0);
    ClickCell(user, 1, kName);
    user.Type("abc");
    user.Key(VK_DOWN);
    user.Type("def");
    EXPECT_EQ(CanUndo(), 1);
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(host_->Text(2, kName), "部品2");
    EXPECT_EQ(host_->EditBox().Text(), "部品2");
    EXPECT_EQ(host_->Text(1, kName), "abc");
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(host_->Text(1, kName), "部品1");
    EXPECT_EQ(CanUndo(), 0);
    EXPECT_EQ(CanRedo(), 1);
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(host_->Text(1, kName), "部品1") << "nothing more";
    user.Key('Y', {VK_CONTROL});
    user.Key('Y', {VK_CONTROL});
    EXPECT_EQ(host_->Text(1, kName), "abc");
    EXPECT_EQ(host_->Text(2, kName), "def");
    EXPECT_EQ(host_->EditBox().Text(), "def");
    EXPECT_EQ(CanRedo(), 0);
  });
}

TEST_P(GridUndoTest, TypingAndPickingInACellIsOneStep) {
  Use([&](User& user) {
    Listen();
    ClickCell(user, 1, kMaterial);
    user.Type("x");
    user.Key(VK_F4);
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    user.Key(VK_END);
    user.Key(VK_RETURN);
    EXPECT_EQ(host_->Text(1, kMaterial), "4");
    EXPECT_EQ(TakeTold(), "1:1;");
    user.Key(VK_DOWN);
    EXPECT_EQ(TakeTold(), "") << "told of already";
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(host_->Text(1, kMaterial), "2");
    EXPECT_EQ(Undo(), 0);
  });
}

TEST_P(GridUndoTest, APickBringsTheFlagsBackThatItHasCleared) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetErrorFlag(1, kUnit, 1); });
    ClickCell(user, 1, kUnit);
    user.Key(VK_F4);
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    user.Key(VK_HOME);
    user.Key(VK_RETURN);
    EXPECT_EQ(host_->Text(1, kUnit), "kg");
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetErrorFlag(1, kUnit); }), 1) << "no error";
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(host_->Text(1, kUnit), "個");
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetErrorFlag(1, kUnit); }), 0);
  });
}

TEST_P(GridUndoTest, RowsComeBackWithTheirColoursAndGoAgain) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetItemColor(2, kName, 0x123456, 0xFFFFFF); });
    const std::string before = Block(0, 0, 30, 5);
    SelectRows(user, {2, 5}, kName);
    user.Key(VK_SUBTRACT, {VK_CONTROL});
    EXPECT_EQ(Rows(), 10);
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(Rows(), 12);
    EXPECT_EQ(Block(0, 0, 30, 5), before);
    EXPECT_EQ(SelectedRows(), (std::vector<int>{2, 5}));
    user.Key('Y', {VK_CONTROL});
    EXPECT_EQ(Rows(), 10);
    EXPECT_EQ(Undo(), 1);
    host_->Do([&] { host_->list->AddItem(); });
    host_->Do([&] { host_->list->SetItemText(12, kName, "filled"); });
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(Rows(), 12);
    EXPECT_EQ(Redo(), 1);
    EXPECT_EQ(host_->Text(12, kName), "filled") << "whole as it went";
  });
}

TEST_P(GridUndoTest, NoBoxStaysWhereRowsHaveGoneFromUnderIt) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->AddItem(); });
    host_->Do([&] { host_->list->SetItemText(12, kName, "x"); });
    ClickCell(user, 3, kName);
    user.Type("typed ");
    ASSERT_TRUE(host_->EditBox());
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(host_->Text(3, kName), "部品3");
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(Rows(), 12);
    EXPECT_FALSE(host_->EditBox()) << "no row was selected when the row was added";
    EXPECT_TRUE(host_->ListView().HasFocus());
  });
}

TEST_P(GridUndoTest, WhatTheProgramSetsIsNotUndone) {
  Use([&](User& user) {
    ClickCell(user, 1, kName);
    user.Type("abc");
    ClickCell(user, 2, kName);
    user.Type("def");
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(CanRedo(), 1);
    host_->Do([&] { host_->list->SetErrorFlag(5, kName, 1); });
    host_->Do([&] { host_->list->SetItemText(5, kName, "部品5"); });
    EXPECT_EQ(CanRedo(), 1) << "no text has changed";
    host_->Do([&] { host_->list->SetItemText(1, kName, "program"); });
    EXPECT_EQ(CanRedo(), 0);
    EXPECT_EQ(CanUndo(), 0) << "nothing is left of the first step";
    EXPECT_EQ(Undo(), 0);
    EXPECT_EQ(host_->Text(1, kName), "program");
  });
}

TEST_P(GridUndoTest, ANewCountAndANewListForgetAllSteps) {
  const std::vector<std::function<void(Host&)>> ways = {[](Host& host) { host.list->SetItemCount(11); },
                                                        [](Host& host) { grid_test::FillKeyedTable(host); },
                                                        [](Host& host) { host.list->TermList(); }};
  for (const auto& forget : ways) {
    Use([&](User& user) {
      ClickCell(user, 1, kName);
      user.Type("abc");
      user.Key(VK_DOWN);
      user.Type("def");
      EXPECT_EQ(Undo(), 1);
      EXPECT_EQ(CanUndo(), 1);
      EXPECT_EQ(CanRedo(), 1);
      host_->Do([&] { forget(*host_); });
      EXPECT_EQ(CanUndo(), 0);
      EXPECT_EQ(CanRedo(), 0);
      EXPECT_EQ(Ask([](CvListControl& list) { return list.GetKeys(); }), 15) << "nothing else is reset";
    });
  }
}

/// Everything that a program sets for editing beside texts.
struct Settings {
  static int Check(void* context, int, int, const char* text) {
    ++static_cast<Settings*>(context)->checked;
    return std::string("bad") == text ? 0 : 1;
  }
  static void Changed(void* context, int, int) { ++static_cast<Settings*>(context)->told; }
  int checked = 0;
  int told = 0;
};

TEST_P(GridUndoTest, ANewCountAndANewListResetNothingElse) {
  const std::vector<std::function<void(Host&)>> ways = {
      [](Host& host) { host.list->SetItemCount(11); },
      [](Host& host) { host.list->TermList(), grid_test::MakeKeyedTable(host); },
      [](Host& host) { grid_test::MakeKeyedTable(host); }};
  for (const auto& renew : ways) {
    Settings settings;
    Use([&](User&) {
      host_->Do([&] {
        CvListControl& list = *host_->list;
        list.SetKeys(CvListControl::kKeysMove | CvListControl::kKeysRows);
        list.SetUndoLimit(2);
        list.SetPasteRows(1);
        list.SetPasteCheck(&Settings::Check, &settings);
        list.SetChanged(&Settings::Changed, &settings);
        renew(*host_);
        EXPECT_EQ(list.GetKeys(), CvListControl::kKeysMove | CvListControl::kKeysRows);
        EXPECT_EQ(list.SetCellsText(list.GetItemCount(), kName, "x"), 1) << "rows are added";
        EXPECT_LT(list.SetCellsText(0, kName, "bad"), 0) << "the check is asked";
        EXPECT_EQ(settings.checked, 2);
        EXPECT_EQ(settings.told, 1);
        list.SetCellsText(0, kName, "y"), list.SetCellsText(1, kName, "z");
        EXPECT_EQ(list.Undo() + list.Undo() + list.Undo(), 2) << "the limit";
        list.SetChanged(nullptr, nullptr);
        list.SetPasteCheck(nullptr, nullptr);
      });
    });
  }
}

TEST_P(GridUndoTest, ALowerLimitDropsTheOldestSteps) {
  Use([&](User&) {
    for (int row = 0; row < 4; ++row) Ask([=](CvListControl& list) { return list.SetCellsText(row, kName, "x"); });
    host_->Do([&] { host_->list->SetUndoLimit(2); });
    EXPECT_EQ(Undo() + Undo() + Undo(), 2);
    EXPECT_EQ(Block(0, kName, 4, 1), "x\r\nx\r\n部品2\r\n部品3\r\n");
    host_->Do([&] { host_->list->SetUndoLimit(-5); });
    EXPECT_EQ(CanRedo(), 0);
    Ask([](CvListControl& list) { return list.SetCellsText(5, kName, "x"); });
    EXPECT_EQ(CanUndo(), 0);
  });
}

TEST_P(GridUndoTest, TheDialogIsToldOnceForEachStep) {
  Use([&](User& user) {
    Listen();
    ClickCell(user, 1, kName);
    user.Type("abc");
    EXPECT_EQ(TakeTold(), "") << "the cell is still edited";
    user.Key(VK_RETURN);
    EXPECT_EQ(TakeTold(), "1:1;");
    user.Key(VK_RETURN);
    EXPECT_EQ(TakeTold(), "") << "nothing has changed";
    EXPECT_EQ(EditedCell(), Edited(3, kName));
    user.Type("x");
    host_->Do([&] { ::SetFocus(host_->Child(grid_test::kOther)); });
    EXPECT_EQ(TakeTold(), "3:1;") << "the grid was left";
    Ask([](CvListControl& list) { return list.SetCellsText(5, kName, "a\nb\nc"); });
    EXPECT_EQ(TakeTold(), "5:3;");
    Ask([](CvListControl& list) { return list.ClearCells(6, 0, 2, 5); });
    EXPECT_EQ(TakeTold(), "6:2;");
    host_->Do([&] { host_->list->AddItem(); });
    EXPECT_EQ(TakeTold(), "-1:13;");
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(TakeTold(), "-1:12;");
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(TakeTold(), "6:2;");
    EXPECT_EQ(Redo(), 1);
    EXPECT_EQ(TakeTold(), "6:2;");
    host_->Do([&] { host_->list->SetItemText(5, kName, "program"); });
    EXPECT_EQ(TakeTold(), "");
  });
}

TEST_P(GridUndoTest, ATextGivenBackIsNoStep) {
  Use([&](User& user) {
    Listen();
    ClickCell(user, 1, kName);
    user.Type("abc");
    user.Key(VK_ESCAPE);
    user.Key(VK_DOWN);
    EXPECT_EQ(TakeTold(), "");
    EXPECT_EQ(CanUndo(), 0);
  });
}

TEST_P(GridUndoTest, WhatABoxMakesOfTheProgramsTextIsNoStep) {
  Use([&](User& user) {
    host_->Do([&] {
      host_->list->SetItemText(1, kMaterial, "sus");
      host_->list->SetItemText(2, kMaterial, "b ");
    });
    ClickCell(user, 0, kName);
    user.Type("a");
    EXPECT_EQ(Undo(), 1);
    Listen();
    ClickCell(user, 1, kMaterial);
    Press(user, {VK_DOWN, VK_DOWN});
    EXPECT_EQ(Block(1, kMaterial, 2, 1), "SUS\r\nB\r\n") << "a box that is left commits what it shows";
    EXPECT_EQ(TakeTold(), "");
    EXPECT_EQ(CanUndo(), 0);
    EXPECT_EQ(CanRedo(), 1);
    EXPECT_EQ(Redo(), 1);
    EXPECT_EQ(host_->Text(0, kName), "a");
  });
}

TEST_P(GridUndoTest, ATextThatCameBackIsTheProgramsAgain) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetItemText(1, kMaterial, "sus"); });
    ClickCell(user, 1, kMaterial);
    user.Type("x");
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(host_->Text(1, kMaterial), "sus");
    Listen();
    user.Key(VK_DOWN);
    EXPECT_EQ(host_->Text(1, kMaterial), "SUS");
    EXPECT_EQ(TakeTold(), "");
    EXPECT_EQ(CanUndo(), 0);
    EXPECT_EQ(CanRedo(), 1) << "nobody has typed since";
    const HWND box = host_->EditBox().Handle();
    host_->Do([&] { host_->list->SetItemText(2, kMaterial, "abc"); });
    host_->Do([&] { ::SetFocus(host_->Child(grid_test::kOther)); });
    host_->Do([&] { ::SetFocus(box); });
    EXPECT_EQ(host_->Text(2, kMaterial), "ABC");
    user.Key(VK_ESCAPE);
    user.WaitUntil("there is nothing to give back", [&] { return host_->Handle() == nullptr; });
  });
}

TEST_P(GridUndoTest, WhatChangesNothingSplitsNoVisit) {
  Use([&](User& user) {
    Listen();
    ClickCell(user, 1, kName);
    user.Type("a");
    user.Key('Y', {VK_CONTROL});
    grid_test::EmptyTheClipboard();
    EXPECT_EQ(Ask([](CvListControl& list) { return list.PasteCells(5, kName); }), 0);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.SetCellsText(5, kName, ""); }), 0);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.SetCellsText(5, kName, "部品5\r\n部品6"); }), 0);
    EXPECT_LT(Ask([](CvListControl& list) { return list.SetCellsText(5, kNumber, "x"); }), 0);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.ClearCells(12, 0, 1, 5); }), 0);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.ClearCells(0, kNumber, 4, 1); }), 0);
    EXPECT_EQ(TakeTold(), "");
    user.Type("b");
    EXPECT_EQ(TakeTold(), "");
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(host_->Text(1, kName), "部品1") << "one step";
    EXPECT_EQ(CanUndo(), 0);
  });
}

TEST_P(GridUndoTest, AnUndoOfNothingTellsNothing) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetUndoLimit(0); });
    Listen();
    ClickCell(user, 1, kName);
    user.Type("a");
    EXPECT_EQ(Undo(), 0);
    EXPECT_EQ(TakeTold(), "");
    user.Key(VK_DOWN);
    EXPECT_EQ(TakeTold(), "1:1;");
  });
}

TEST_P(GridUndoTest, WhatTheProgramPutsOverTheVisitedCellIsNotTheUsers) {
  Use([&](User& user) {
    Listen();
    ClickCell(user, 1, kName);
    user.Type("abc");
    host_->Do([&] { host_->list->SetItemText(1, kName, "program"); });
    EXPECT_EQ(CanUndo(), 0);
    ClickCell(user, 2, kName);
    EXPECT_EQ(TakeTold(), "") << "nothing of the user's is left";
    host_->Do([&] { host_->list->SetItemText(2, kName, "program"); });
    user.Type("x");
    user.Key(VK_ESCAPE);
    EXPECT_EQ(host_->Text(2, kName), "program");
    EXPECT_EQ(host_->EditBox().Text(), "program");
    user.Type("y");
    user.Key(VK_DOWN);
    EXPECT_EQ(TakeTold(), "2:1;");
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(host_->Text(2, kName), "program");
    EXPECT_EQ(Undo(), 0);
  });
}

TEST_P(GridUndoTest, TheGridThatIsLeftAndComeBackToIsToldOfOnceForEachStep) {
  Use([&](User& user) {
    Listen();
    ClickCell(user, 1, kName);
    const HWND box = host_->EditBox().Handle();
    const auto goAndComeBack = [&] {
      host_->Do([&] { ::SetFocus(host_->Child(grid_test::kOther)); });
      host_->Do([&] { ::SetFocus(box); });
    };
    user.Type("a");
    goAndComeBack();
    EXPECT_EQ(TakeTold(), "1:1;");
    goAndComeBack();
    EXPECT_EQ(TakeTold(), "") << "nothing has changed";
    host_->Do([&] { ::SendMessageW(box, EM_SETSEL, 1, 1); });
    user.Type("b");
    user.Key(VK_DOWN);
    EXPECT_EQ(TakeTold(), "1:1;");
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(host_->Text(1, kName), "a") << "a step for each time that it was told";
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(host_->Text(1, kName), "部品1");
    EXPECT_EQ(Undo(), 0);
  });
}

TEST_P(GridUndoTest, ANewCountLeavesTheVisitOfAnOpenBoxWhole) {
  Use([&](User& user) {
    Listen();
    ClickCell(user, 1, kName);
    user.Type("ab");
    host_->Do([&] { host_->list->SetItemCount(11); });
    EXPECT_EQ(TakeTold(), "1:1;");
    EXPECT_EQ(CanUndo(), 0);
    user.Type("c");
    host_->Do(
        [&] { ::RedrawWindow(host_->Child(grid_test::kList), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); });
    user.Type("d");
    user.Key(VK_DOWN);
    EXPECT_EQ(TakeTold(), "1:1;");
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(host_->Text(1, kName), "ab");
    EXPECT_EQ(Undo(), 0);
    user.Type("x");
    host_->Do([&] { host_->list->SetItemCount(10); });
    host_->Do(
        [&] { ::RedrawWindow(host_->Child(grid_test::kList), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); });
    user.Key(VK_ESCAPE);
    EXPECT_EQ(host_->Text(2, kName), "部品2") << "what it was when the box came";
  });
}

TEST_P(GridUndoTest, ABoxOverARowThatIsNoLongerInUseTellsNothing) {
  Use([&](User& user) {
    ClickCell(user, 3, kName);
    user.Type("ab");
    Listen();
    host_->Do([&] { host_->list->SetItemCount(2); });
    EXPECT_EQ(TakeTold(), "3:1;") << "while it was in use";
    user.Type("c");
    EXPECT_EQ(CanUndo(), 0);
    ClickCell(user, 1, kName);
    EXPECT_EQ(TakeTold(), "");
    EXPECT_EQ(CanUndo(), 0);
    user.Type("x");
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(host_->Text(1, kName), "部品1");
  });
}

TEST_P(GridUndoTest, TheBoxKeepsItsOwnUndoWithoutTheFlag) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetKeys(CvListControl::kKeysMove); });
    Ask([](CvListControl& list) { return list.SetCellsText(5, kName, "x"); });
    ClickCell(user, 1, kName);
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(host_->Text(5, kName), "x");
    EXPECT_EQ(Undo(), 1) << "but the step is there";
    EXPECT_EQ(host_->Text(5, kName), "部品5");
  });
}

// ---- a dialog that takes the list, or itself, away when it is told of a change

struct Change {
  const char* name;
  std::function<void(Host&)> before;
  std::function<void(Host&)> happen;
};

void PrintTo(const Change& change, std::ostream* out) { *out << change.name; }

void TypeInCell(Host& host) {
  host.list->ClickItem(1, kName);
  for (const int unit : {'a', 'b', ' '}) {
    ::SendMessageW(host.EditBox().Handle(), WM_CHAR, static_cast<WPARAM>(unit), 1);
  }
}
void PressKey(HWND window, int key) { ::SendMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(key), 1); }
void Step(Host& host) { host.list->SetCellsText(5, kName, "x"); }

const Change kChanges[] = {
    {"MovingByKey", TypeInCell, [](Host& host) { PressKey(host.EditBox().Handle(), VK_DOWN); }},
    {"Clicking", TypeInCell, [](Host& host) { host.list->ClickItem(3, kMaterial); }},
    {"LeavingTheGrid", TypeInCell, [](Host& host) { ::SetFocus(host.Child(grid_test::kOther)); }},
    {"RequestingTheSameBox", TypeInCell,
     [](Host& host) {
       host.list->SetSelectFlag(1, 0);
       host.list->SelectItem(3, kName);
       host.list->SelectItem();
     }},
    {"TakingTheBoxAway", TypeInCell, [](Host& host) { host.list->ClearEdit(kName); }},
    {"EndingTheList", TypeInCell, [](Host& host) { host.list->TermList(); }},
    {"SettingTheCount", TypeInCell, [](Host& host) { host.list->SetItemCount(5); }},
    {"Pasting", [](Host&) {}, Step},
    {"PastingWhileTyping", TypeInCell, Step},
    {"PastingWithRows", [](Host& host) { host.list->SetPasteRows(1); },
     [](Host& host) { host.list->SetCellsText(11, kName, "a\nb"); }},
    {"Clearing", [](Host&) {}, [](Host& host) { host.list->ClearCells(1, 0, 2, 5); }},
    {"Undoing", Step, [](Host& host) { host.list->Undo(); }},
    {"DoingAgain", [](Host& host) { Step(host), host.list->Undo(); }, [](Host& host) { host.list->Redo(); }},
    {"UndoingByKey", [](Host& host) { Step(host), TypeInCell(host); },
     [](Host& host) {
       ::SetFocus(host.EditBox().Handle());
       host.list->Undo();
     }},
    {"AddingARow", [](Host&) {}, [](Host& host) { host.list->AddItem(); }},
    {"DeletingRows", [](Host& host) { host.list->ClickItem(2, kName); }, [](Host& host) { host.list->DeleteItem(); }},
    {"UndoingRows", [](Host& host) { host.list->AddItem(); }, [](Host& host) { host.list->Undo(); }},
    {"Picking", [](Host& host) { host.list->ClickItem(1, kUnit), host.list->OpenComboBox(); },
     [](Host& host) {
       PressKey(host.Child(grid_test::kList), VK_END);
       PressKey(host.Child(grid_test::kList), VK_RETURN);
     }},
};

enum class Fate { List, Dialog, Both };
constexpr const char* kFates[] = {"TheList", "TheDialog", "Both"};

class GridFateTest : public testing::TestWithParam<std::tuple<Change, Fate>> {
 protected:
  static void Meet(void* context, int, int) {
    auto& self = *static_cast<GridFateTest*>(context);
    if (std::exchange(self.met_, true)) return;
    const Fate fate = std::get<1>(GetParam());
    if (fate != Fate::List) self.host_->Destroy();
    if (fate != Fate::Dialog) self.host_->list.reset();
  }

  std::unique_ptr<Host> host_;  ///< made when the heap is fenced
  bool met_ = false;
};

INSTANTIATE_TEST_SUITE_P(Changes, GridFateTest,
                         testing::Combine(testing::ValuesIn(kChanges),
                                          testing::Values(Fate::List, Fate::Dialog, Fate::Both)),
                         [](const auto& pair) {
                           return std::string(std::get<0>(pair.param).name) + "Destroys" +
                                  kFates[static_cast<int>(std::get<1>(pair.param))];
                         });

TEST_P(GridFateTest, NothingThatIsGoneIsUsed) {
  const Change& change = std::get<0>(GetParam());
  const fenced::FencedHeap heap;
  host_ = Host::Make(HostKind::Plain);
  host_->Open(grid_test::FillKeyedTable);
  change.before(*host_);
  host_->list->SetChanged(&GridFateTest::Meet, this);
  change.happen(*host_);
  EXPECT_TRUE(met_);
  Host::Pump();
  host_.reset();
  Host::Pump();
  EXPECT_EQ(heap.Violations(), 0);
}

// ---- the caller's own check of a paste

class GridCheckTest : public testing::TestWithParam<std::tuple<Fate, int>> {
 protected:
  static int Meet(void* context, int, int, const char*) {
    auto& self = *static_cast<GridCheckTest*>(context);
    if (std::exchange(self.met_, true)) return 1;
    const auto [fate, accepts] = GetParam();
    if (fate != Fate::List) self.host_->Destroy();
    if (fate != Fate::Dialog) self.host_->list.reset();
    return accepts;
  }

  std::unique_ptr<Host> host_;  ///< made when the heap is fenced
  bool met_ = false;
};

INSTANTIATE_TEST_SUITE_P(Fates, GridCheckTest,
                         testing::Combine(testing::Values(Fate::List, Fate::Dialog, Fate::Both), testing::Values(0, 1)),
                         [](const auto& pair) {
                           const char* const fate = kFates[static_cast<int>(std::get<0>(pair.param))];
                           return fate + std::string(std::get<1>(pair.param) == 0 ? "AndRefuses" : "AndAccepts");
                         });

TEST_P(GridCheckTest, MayDestroyWhatIsPastedInto) {
  const fenced::FencedHeap heap;
  host_ = Host::Make(HostKind::Plain);
  host_->Open(grid_test::FillKeyedTable);
  host_->list->ClickItem(2, kName);
  host_->list->SetPasteCheck(&GridCheckTest::Meet, this);
  const int answer = host_->list->SetCellsText(0, kName, "a\nb\nc");
  EXPECT_TRUE(met_);
  const auto [fate, accepts] = GetParam();
  EXPECT_EQ(answer < 0, fate != Fate::Dialog || accepts == 0) << "a list without its dialog is still a list";
  Host::Pump();
  host_.reset();
  Host::Pump();
  EXPECT_EQ(heap.Violations(), 0);
}

}  // namespace
