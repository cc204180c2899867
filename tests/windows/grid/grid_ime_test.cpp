// The state of the input method while a grid is edited, as the system keeps it; and what an input method types.
#include <windows.h>

#include <imm.h>

#include <gtest/gtest.h>

#include "tests/windows/grid/grid_keyed.h"

namespace {

using driver::User;
using grid_test::Edited;
using grid_test::Host;
using grid_test::HostKind;
using grid_test::kMaterial;
using grid_test::kName;
using grid_test::kNumber;
using grid_test::kSwatch;
using grid_test::kUnit;

constexpr int kOff = 1;
constexpr int kHiragana = 2;
constexpr int kHalfWidthKatakana = 4;

struct Status {
  bool isOpen = false;
  DWORD conversion = 0;

  friend bool operator==(const Status&, const Status&) = default;
};

void PrintTo(const Status& status, std::ostream* out) {
  *out << (status.isOpen ? "open " : "closed ") << status.conversion;
}

constexpr Status kLetters = {false, 0};
constexpr Status kBefore = {true, IME_CMODE_FULLSHAPE};

class GridImeTest : public grid_test::KeyedGridTest {
 protected:
  /// Of the control that has the focus.
  [[nodiscard]] Status Now() {
    Status status;
    host_->Do([&] {
      const HWND focus = ::GetFocus();
      const HIMC context = ::ImmGetContext(focus);
      DWORD sentence = 0;
      status.isOpen = ::ImmGetOpenStatus(context) != FALSE;
      ::ImmGetConversionStatus(context, &status.conversion, &sentence);
      ::ImmReleaseContext(focus, context);
    });
    return status;
  }
  void Set(const Status& status) {
    host_->Do([&] {
      const HWND focus = ::GetFocus();
      const HIMC context = ::ImmGetContext(focus);
      ::ImmSetConversionStatus(context, status.conversion, 0);
      ::ImmSetOpenStatus(context, status.isOpen ? TRUE : FALSE);
      ::ImmReleaseContext(focus, context);
    });
  }
  void SetMode(int col, int mode) {
    host_->Do([&] { host_->list->SetImeMode(col, mode); });
  }
  void FocusOther(User& user) {
    host_->Do([&] { ::SetFocus(host_->Child(grid_test::kOther)); });
    user.Settle();
  }
};

INSTANTIATE_TEST_SUITE_P(Hosts, GridImeTest, testing::Values(HostKind::Framework, HostKind::Plain),
                         grid_test::NameOfHost);

TEST_P(GridImeTest, AColumnHasItsModeAndLeavingPutsBackWhatWasThere) {
  Use([&](User& user) {
    SetMode(kName, kHiragana);
    SetMode(kMaterial, kOff);
    FocusOther(user);
    Set(kBefore);
    ClickCell(user, 1, kName);
    EXPECT_EQ(Now(), (Status{true, IME_CMODE_NATIVE | IME_CMODE_FULLSHAPE}));
    user.Key(VK_TAB);
    EXPECT_FALSE(Now().isOpen);
    user.Key(VK_DOWN);
    EXPECT_FALSE(Now().isOpen);
    user.Key(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(Now().isOpen);
    FocusOther(user);
    EXPECT_EQ(Now(), kBefore);
  });
}

TEST_P(GridImeTest, AColumnWithoutAModePutsBackWhatWasThere) {
  Use([&](User& user) {
    SetMode(kMaterial, kHalfWidthKatakana);
    FocusOther(user);
    Set(kLetters);
    ClickCell(user, 1, kName);
    EXPECT_EQ(Now(), kLetters);
    user.Key(VK_TAB);
    EXPECT_EQ(Now(), (Status{true, IME_CMODE_NATIVE | IME_CMODE_KATAKANA}));
    user.Key(VK_TAB, {VK_SHIFT});
    EXPECT_FALSE(Now().isOpen);
    ClickCell(user, 2, kMaterial);
    EXPECT_TRUE(Now().isOpen);
    host_->Do([&] { host_->list->ClickItem(2, kNumber); });
    EXPECT_FALSE(Now().isOpen) << "no cell is edited";
  });
}

TEST_P(GridImeTest, WhatTheUserSwitchesInTheGridEndsWithIt) {
  Use([&](User& user) {
    SetMode(kMaterial, kOff);
    FocusOther(user);
    Set(kLetters);
    ClickCell(user, 1, kName);
    Set(kBefore);
    FocusOther(user);
    EXPECT_EQ(Now(), kLetters) << "as it was when the grid was entered";
    ClickCell(user, 1, kName);
    Set(kBefore);
    user.Key(VK_TAB);
    user.Key(VK_TAB);
    EXPECT_EQ(EditedCell(), Edited(1, kUnit));
    EXPECT_EQ(Now(), kLetters);
    Set(kBefore);
    user.Key(VK_F4);
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    user.Key(VK_F4);
    user.WaitUntil("the list closes", [&] { return !host_->ComboBox(); });
    EXPECT_EQ(Now(), kBefore) << "within a cell the user has the say";
    user.Key(VK_DOWN);
    EXPECT_EQ(Now(), kLetters) << "from one cell without a mode to another";
  });
}

TEST_P(GridImeTest, AGridWithoutAModeNeverTouchesIt) {
  Use([&](User& user) {
    FocusOther(user);
    Set(kLetters);
    ClickCell(user, 1, kName);
    Set(kBefore);
    user.Key(VK_TAB);
    EXPECT_EQ(Now(), kBefore);
    FocusOther(user);
    EXPECT_EQ(Now(), kBefore) << "the user's own choice";
  });
}

TEST_P(GridImeTest, AModeIsInForceAtOnceAndGoesWithItsColumn) {
  Use([&](User& user) {
    FocusOther(user);
    Set(kBefore);
    ClickCell(user, 1, kName);
    SetMode(kName, kOff);
    EXPECT_FALSE(Now().isOpen);
    SetMode(kName, 0);
    EXPECT_EQ(Now(), kBefore);
    SetMode(kName, kOff);
    SetMode(kName, 77);
    EXPECT_EQ(Now(), kBefore) << "a number that is no mode";
    SetMode(-1, kOff);
    SetMode(5, kOff);
    SetMode(kName, kOff);
    host_->Do([&] { host_->list->SetColumn(kName, "品名", 3.0); });
    EXPECT_EQ(Now(), kBefore);
    host_->Do([&] { host_->list->SetEdit(kName, 0, 10, ""); });
    ClickCell(user, 1, kName);
    EXPECT_EQ(Now(), kBefore) << "SetColumn has forgotten the mode";
  });
}

TEST_P(GridImeTest, ModesStayInANewListUntilTheirColumnIsSetAnew) {
  Use([&](User& user) {
    SetMode(kName, kOff);
    SetMode(kSwatch, kOff);
    FocusOther(user);
    Set(kBefore);
    host_->Do([&] {
      CvListControl& list = *host_->list;
      list.SetItemCount(11);
      list.InitList0(host_->Window(), grid_test::kList, 5, 3, 30, kNumber);
      list.SetEdit(kName, 0, 10, "");
      list.SetEdit(kMaterial, 0, 10, "");
      for (int col = kName; col <= kMaterial; ++col) list.SetAvailableFlag(0, col, 0);
      list.ClickItem(0, kName);
    });
    EXPECT_FALSE(Now().isOpen) << "the mode is still there";
    host_->Do([&] { host_->list->ClickItem(0, kMaterial); });
    EXPECT_EQ(Now(), kBefore);
    host_->Do([&] {
      host_->list->SetColumn(kName, "品名", 3.0);
      host_->list->SetEdit(kName, 0, 10, "");
      host_->list->ClickItem(0, kName);
    });
    EXPECT_EQ(Now(), kBefore) << "SetColumn has forgotten it";
  });
}

TEST_P(GridImeTest, TheEndOfTheListPutsBackWhatWasThere) {
  Use([&](User& user) {
    SetMode(kName, kOff);
    FocusOther(user);
    Set(kBefore);
    ClickCell(user, 1, kName);
    EXPECT_FALSE(Now().isOpen);
    host_->Do([&] { host_->list->TermList(); });
    FocusOther(user);
    EXPECT_EQ(Now(), kBefore);
  });
}

TEST_P(GridImeTest, WhatAnInputMethodTypesBeginsTheEditToo) {
  Use([&](User& user) {
    const auto select = [&](int row) {
      host_->Do([&] {
        host_->list->ClickItem(row, kNumber);
        ::SetFocus(host_->Child(grid_test::kList));
      });
    };
    const HWND list = host_->Child(grid_test::kList);
    select(1);
    host_->Do([&] {
      ::SendMessageW(list, WM_IME_CHAR, 0x8868, 1);
      ::SendMessageW(list, WM_IME_CHAR, 0x793A, 1);
    });
    EXPECT_EQ(host_->Text(1, kName), "表示");
    select(2);
    host_->Do([&] { ::SendMessageW(list, WM_KEYDOWN, VK_PROCESSKEY, 1); });
    EXPECT_EQ(EditedCell(), Edited(2, kName));
    EXPECT_TRUE(host_->EditBox().HasFocus());
    EXPECT_EQ(host_->EditBox().TextSelection(), std::pair(0, 3));
    select(3);
    host_->Do([&] {
      ::SendMessageW(list, WM_IME_STARTCOMPOSITION, 0, 0);
      EXPECT_TRUE(host_->EditBox().HasFocus());
      ::SendMessageW(host_->EditBox().Handle(), EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L"かな"));
      EXPECT_EQ(host_->Text(3, kName), "部品3") << "an open composition is no text yet";
      ::SendMessageW(list, WM_IME_ENDCOMPOSITION, 0, 0);
    });
    EXPECT_EQ(host_->Text(3, kName), "かな");
    user.Settle();
  });
}

TEST_P(GridImeTest, ACompositionOverAnOpenListMovesInItOnlyAtItsEnd) {
  Use([&](User& user) {
    ClickCell(user, 1, kUnit);
    user.Key(VK_F4);
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    ASSERT_EQ(host_->ComboBox().Selection(), 2);
    const HWND list = host_->Child(grid_test::kList);
    const auto send = [&](UINT id, WPARAM what) { host_->Do([=] { ::SendMessageW(list, id, what, 1); }); };
    send(WM_IME_STARTCOMPOSITION, 0);
    EXPECT_EQ(host_->ComboBox().Selection(), 2) << "nothing has been typed yet";
    for (const int key : {VK_DOWN, VK_END, VK_RETURN, VK_TAB, VK_F4}) send(WM_KEYDOWN, static_cast<WPARAM>(key));
    ASSERT_TRUE(host_->ComboBox().IsDropped());
    EXPECT_EQ(host_->ComboBox().Selection(), 2);
    EXPECT_EQ(EditedCell(), Edited(1, kUnit));
    send(WM_IME_CHAR, 0x672C);
    EXPECT_EQ(host_->ComboBox().Selection(), 3) << "a letter";
    send(WM_IME_ENDCOMPOSITION, 0);
    user.Key(VK_RETURN);
    EXPECT_EQ(host_->Text(1, kUnit), "本");
  });
}

TEST_P(GridImeTest, TheDialogGetsNoKeyOfACompositionOverAnOpenList) {
  Use([&](User& user) {
    ClickCell(user, 1, kUnit);
    user.Key(VK_F4);
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    const HWND list = host_->Child(grid_test::kList);
    host_->Do([&] { ::SendMessageW(list, WM_IME_STARTCOMPOSITION, 0, 0); });
    Press(user, {VK_ESCAPE, VK_RETURN, VK_TAB});
    user.Settle();
    ASSERT_NE(host_->Handle(), nullptr);
    EXPECT_TRUE(host_->ComboBox() && host_->ComboBox().IsDropped());
    EXPECT_TRUE(host_->ListView().HasFocus());
    EXPECT_EQ(host_->Text(1, kUnit), "個");
    host_->Do([&] { ::SendMessageW(list, WM_IME_ENDCOMPOSITION, 0, 0); });
    user.Key(VK_ESCAPE);
    user.WaitUntil("the list closes", [&] { return !host_->ComboBox(); });
    EXPECT_NE(host_->Handle(), nullptr);
  });
}

TEST_P(GridImeTest, TheDialogGetsNoKeyOfACompositionInABox) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    const HWND box = host_->EditBox().Handle();
    host_->Do([&] { ::SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0); });
    Press(user, {VK_RETURN, VK_TAB, VK_ESCAPE});
    user.Settle();
    ASSERT_NE(host_->Handle(), nullptr);
    EXPECT_EQ(EditedCell(), Edited(2, kName));
    EXPECT_TRUE(host_->EditBox().HasFocus());
    host_->Do([&] { ::SendMessageW(box, WM_IME_ENDCOMPOSITION, 0, 0); });
    user.Key(VK_TAB);
    EXPECT_EQ(EditedCell(), Edited(2, kMaterial));
  });
}

TEST_P(GridImeTest, ACompositionThatIsGivenUpTypesNothing) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetItemText(1, kMaterial, "sus"); });
    ClickCell(user, 1, kMaterial);
    const HWND box = host_->EditBox().Handle();
    host_->Do([&] {
      ::SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0);
      ::SendMessageW(box, WM_IME_ENDCOMPOSITION, 0, 0);
    });
    EXPECT_EQ(Ask([](CvListControl& list) { return list.CanUndo(); }), 0);
    user.Settle();
  });
}

TEST_P(GridImeTest, ACompositionThatDropsAListKeepsItsKeys) {
  Use([&](User& user) {
    ClickCell(user, 1, kUnit);
    const HWND list = host_->Child(grid_test::kList);
    host_->Do([&] { ::SendMessageW(list, WM_IME_STARTCOMPOSITION, 0, 0); });
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    host_->Do([&] { ::SendMessageW(list, WM_KEYDOWN, VK_RETURN, 1); });
    EXPECT_TRUE(host_->ComboBox().IsDropped()) << "it commits the composition";
    host_->Do([&] { ::SendMessageW(list, WM_IME_ENDCOMPOSITION, 0, 0); });
    host_->Do([&] { ::SendMessageW(list, WM_KEYDOWN, VK_F4, 1); });
    user.WaitUntil("the list closes", [&] { return !host_->ComboBox(); });
  });
}

TEST_P(GridImeTest, ACompositionInTheListItselfKeepsItsKeysToo) {
  Use([&](User& user) {
    ClickCell(user, 1, kUnit);
    user.Key(VK_F4);
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    const HWND combo = host_->ComboBox().Handle();
    host_->Do([&] {
      ::SendMessageW(combo, WM_IME_STARTCOMPOSITION, 0, 0);
      ::SendMessageW(combo, WM_KEYDOWN, VK_TAB, 1);
      ::SendMessageW(combo, WM_IME_ENDCOMPOSITION, 0, 0);
    });
    EXPECT_EQ(EditedCell(), Edited(1, kUnit));
    host_->Do([&] { ::SendMessageW(combo, WM_KEYDOWN, VK_TAB, 1); });
    EXPECT_EQ(EditedCell(), Edited(2, kName));
  });
}

TEST_P(GridImeTest, ACompositionEndsWithTheFocusOfItsList) {
  Use([&](User& user) {
    ClickCell(user, 1, kUnit);
    const HWND list = host_->Child(grid_test::kList);
    host_->Do([&] { ::SendMessageW(list, WM_IME_STARTCOMPOSITION, 0, 0); });
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    host_->Do([&] { host_->list->CloseComboBox(); });
    FocusOther(user);
    ClickCell(user, 2, kName);
    user.Key(VK_DOWN);
    EXPECT_EQ(EditedCell(), Edited(3, kName));
  });
}

// It passes through several texts, of which the cell gets the last one only, and the dialog hears of it once.
TEST_P(GridImeTest, EachCompositionIsOneChangeAndOneThatIsGivenUpIsNone) {
  Use([&](User& user) {
    std::vector<int> rows;
    const auto note = [](void* context, int row, int) { static_cast<std::vector<int>*>(context)->push_back(row); };
    host_->Do([&] { host_->list->SetChanged(note, &rows); });
    const auto compose = [&](int row, const std::vector<const wchar_t*>& texts) {
      ClickCell(user, row, kName);
      const std::string before = host_->Text(row, kName);
      const HWND box = host_->EditBox().Handle();
      host_->Do([&] {
        ::SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0);
        for (const wchar_t* const text : texts) {
          ::SendMessageW(box, EM_SETSEL, 0, -1);
          ::SendMessageW(box, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(text));
          EXPECT_EQ(host_->Text(row, kName), before) << "it is open";
        }
        ::SendMessageW(box, WM_IME_ENDCOMPOSITION, 0, 0);
      });
    };
    compose(1, {L"に", L"にほん", L"日本"});
    EXPECT_EQ(host_->Text(1, kName), "日本");
    compose(2, {L"に", L""});
    EXPECT_EQ(host_->Text(2, kName), "部品2");
    ClickCell(user, 3, kName);
    EXPECT_EQ(rows, std::vector<int>{1});
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(host_->Text(1, kName), "部品1") << "one step";
    EXPECT_EQ(Ask([](CvListControl& list) { return list.CanUndo(); }), 0);
    host_->Do([&] { host_->list->SetChanged(nullptr, nullptr); });
  });
}

// As the systems' boxes do it: the composition takes the place of the marked text, and goes again when it is given up.
TEST_P(GridImeTest, ACompositionThatIsGivenUpPutsBackTheMarkedText) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    const HWND box = host_->EditBox().Handle();
    host_->Do([&] {
      ::SendMessageW(box, EM_SETSEL, 0, 2);
      ::SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0);
      ::SendMessageW(box, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L"かな"));
      ::SendMessageW(box, EM_SETSEL, 0, 2);
      ::SendMessageW(box, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L""));
      ::SendMessageW(box, WM_IME_ENDCOMPOSITION, 0, 0);
    });
    EXPECT_EQ(host_->EditBox().Text(), "部品2");
    EXPECT_EQ(host_->EditBox().TextSelection(), std::pair(0, 2));
    EXPECT_EQ(host_->Text(2, kName), "部品2");
    EXPECT_EQ(EditedCell(), Edited(2, kName));
  });
}

TEST_P(GridImeTest, ABoxThatIsLeftWithAnOpenCompositionCommitsNoHalfWord) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    const HWND box = host_->EditBox().Handle();
    host_->Do([&] {
      ::SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0);
      ::SendMessageW(box, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L"かn"));
    });
    ClickCell(user, 3, kName);
    EXPECT_EQ(host_->Text(2, kName), "部品2");
    host_->Do([&] { ::SendMessageW(box, WM_IME_ENDCOMPOSITION, 0, 0); });
    EXPECT_EQ(host_->Text(3, kName), "部品3") << "the end of it means the box it was in no more";
    EXPECT_EQ(host_->Text(2, kName), "部品2");
  });
}

TEST_P(GridImeTest, AProgramThatCommitsDuringACompositionGetsNoHalfWord) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    user.Type("abc");
    const HWND box = host_->EditBox().Handle();
    host_->Do([&] {
      ::SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0);
      ::SendMessageW(box, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L"かn"));
      host_->list->KeyInput();
      EXPECT_EQ(host_->Text(2, kName), "abc");
      ::SendMessageW(box, EM_SETSEL, 3, -1);
      ::SendMessageW(box, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L""));
      ::SendMessageW(box, WM_IME_ENDCOMPOSITION, 0, 0);
    });
    EXPECT_EQ(host_->EditBox().Text(), "abc");
    EXPECT_EQ(host_->Text(2, kName), "abc");
    host_->Do([&] { host_->list->KeyInput(); });
    EXPECT_EQ(host_->Text(2, kName), "abc");
  });
}

TEST_P(GridImeTest, WhatTheProgramSetsDuringACompositionIsNotPutBack) {
  Use([&](User& user) {
    const auto composeAnd = [&](int row, const std::function<void()>& set) {
      ClickCell(user, row, kName);
      const HWND box = host_->EditBox().Handle();
      host_->Do([&] {
        ::SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0);
        ::SendMessageW(box, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L"かn"));
        set();
      });
    };
    composeAnd(2, [&] { host_->list->SetItemText(2, kName, "set"); });
    composeAnd(3, [&] { host_->list->SelchangeComboBox("picked"); });
    ClickCell(user, 5, kName);
    EXPECT_EQ(host_->Text(2, kName), "set");
    EXPECT_EQ(host_->Text(3, kName), "picked");
  });
}

// The dialog asks the box about Esc and Enter before it takes them.
TEST_P(GridImeTest, ADialogLeavesAnOpenCompositionItsKeys) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    const HWND box = host_->EditBox().Handle();
    host_->Do([&] {
      for (const WPARAM key : {WPARAM{VK_ESCAPE}, WPARAM{VK_RETURN}}) {
        MSG asked{box, WM_KEYDOWN, key, 1, 0, {}};
        ::SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0);
        const auto code = ::SendMessageW(box, WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(&asked));
        EXPECT_NE(code & DLGC_WANTALLKEYS, 0);
        ::SendMessageW(box, WM_IME_ENDCOMPOSITION, 0, 0);
      }
    });
    EXPECT_EQ(host_->Text(2, kName), "部品2");
    user.Settle();
  });
}

TEST_P(GridImeTest, KeysOfAnOpenCompositionAreItsOwn) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    const HWND box = host_->EditBox().Handle();
    host_->Do([&] { ::SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0); });
    host_->Do([&] {
      for (const int key : {VK_TAB, VK_RETURN, VK_DOWN, VK_UP, VK_ESCAPE, VK_NEXT, VK_F4, VK_INSERT}) {
        ::SendMessageW(box, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
      }
    });
    EXPECT_EQ(EditedCell(), Edited(2, kName));
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetItemCount(); }), grid_test::kKeyedRows);
    EXPECT_FALSE(host_->ComboBox());
    host_->Do([&] { ::SendMessageW(box, WM_IME_ENDCOMPOSITION, 0, 0); });
    user.Key(VK_DOWN);
    EXPECT_EQ(EditedCell(), Edited(3, kName));
  });
}

}  // namespace
