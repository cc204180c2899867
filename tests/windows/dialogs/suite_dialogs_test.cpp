// The suite's two dialogs, used with mouse and keyboard.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "platform/os/sjis_wide.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvndlg.h"
#include "platform/suite/suite_resource.h"
#include "tests/support/encodings.h"
#include "tests/windows/accessible/spoken_page.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/input/composition.h"

namespace {

using driver::ListView;
using driver::User;
using driver::Window;

using test_texts::Euc;

/// A plain window that the dialogs belong to.
class Owner {
 public:
  Owner()
      : window_(::CreateWindowExW(0, L"STATIC", L"owner", WS_OVERLAPPED | WS_CAPTION | WS_VISIBLE, 40, 40, 300, 200,
                                  nullptr, nullptr, nullptr, nullptr)),
        child_(::CreateWindowExA(0, "STATIC", "", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, window_, nullptr, nullptr,
                                 nullptr)) {}
  ~Owner() { ::DestroyWindow(window_); }
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
  [[nodiscard]] HWND Top() const { return window_; }
  [[nodiscard]] HWND Child() const { return child_; }

 private:
  HWND window_;
  HWND child_;
};

class SuiteDialogs : public testing::Test {
 protected:
  SuiteDialogs() { CwSession::Reset(); }
  ~SuiteDialogs() override { CwSession::Reset(); }

  static CwTextLibrary& Texts() { return *CwSession::GetInstance()->GetTextLibrary(); }
  static CwRegisterSet& Registers() { return *CwSession::GetInstance()->GetRegisterSet(); }

  static void AddTexts() {
    Texts().AddText(Euc("注記一般.TLB"), Euc("寸法は仕上がり寸法を示す。"));
    Texts().AddText(Euc("注記溶接.TLB"), Euc("全周すみ肉溶接のこと。"));
    Texts().AddText("NOTES.TLB", "DO NOT SCALE.");
    Texts().AddText(Euc("注記一般.TLB"), Euc("表面処理前の寸法を示す。"));
  }

  struct TextAnswer {
    int result = -1;
    std::string text;
  };

  template <class Script>
  TextAnswer AskText(const std::string& library, const Script& script, int size = 1024) {
    std::array<char, 1024> out = {"untouched"};
    TextAnswer answer;
    driver::RunDialog([&] { answer.result = TlbDialog(owner_.Child(), 0, library, out.data(), size); },
                      [&](User& user) {
                        const Window dialog = user.WaitDialog("テキストライブラリ");
                        user.WaitUntil("it is in front", [&] { return dialog.IsForeground(); });
                        user.Settle();
                        script(user, dialog, dialog.Child(IDC_LIBRARY_TEXTS));
                      });
    answer.text = out.data();
    return answer;
  }

  template <class Script>
  int AskRegister(const Script& script, const char* title = "レジスタ") {
    int code = -1;
    driver::RunDialog([&] { code = RegDspDialog(title, owner_.Child(), 0); },
                      [&](User& user) {
                        const Window dialog = user.WaitDialog(title != nullptr ? title : "");
                        user.WaitUntil("it is in front", [&] { return dialog.IsForeground(); });
                        user.Settle();
                        script(user, dialog, ListView(dialog.Child(IDC_REGISTER_LIST)));
                      });
    return code;
  }

  /// The middle of a list box's entry on the screen.
  static POINT EntryAt(const Window& list, int index) {
    RECT rect = {};
    list.Send(LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
    const RECT client = list.ClientScreenRect();
    return {client.left + 20, client.top + (rect.top + rect.bottom) / 2};
  }

  Owner owner_;
};

// ---- screen readers

void ExpectTold(const std::string& block, const Window& dialog) {
  const std::string told = spoken::PartsOf(dialog);
  EXPECT_EQ(told, spoken::Block(block)) << "says:\n" << told << "----\n";
}

TEST_F(SuiteDialogs, TellTheirParts) {
  AddTexts();
  constexpr int kMore = 7;  // the demo has eleven
  for (int i = 0; i < kMore; ++i) Texts().AddText("NOTES.TLB", "NOTE " + std::to_string(i));
  Registers().AddRegister("A2")->SetScalar(0.1);
  AskText("*", [&](User&, Window dialog, Window) {
    ExpectTold("TextLibrary", dialog);
    ::PostMessageW(dialog.Handle(), WM_CLOSE, 0, 0);
  });
  AskRegister([&](User&, Window dialog, const ListView&) {
    ExpectTold("Registers", dialog);
    ::PostMessageW(dialog.Handle(), WM_CLOSE, 0, 0);
  });
}

// ---- the keyboard alone

/// The stops of the Tab key in their order and back.
void WalkByTab(const User& user, const Window& dialog, const std::vector<int>& stops) {
  const auto expectFocus = [&](int id) {
    const HWND focused = dialog.Child(id).Handle();
    const auto parts = dialog.Child(id).Children();
    const bool isInside = std::ranges::any_of(parts, [](const Window& part) { return part.HasFocus(); });
    EXPECT_TRUE(Window(focused).HasFocus() || isInside) << "control " << id;
  };
  for (const int id : stops) {
    expectFocus(id);
    user.Key(VK_TAB);
  }
  expectFocus(stops.front());
  for (auto id = stops.rbegin(); id != stops.rend(); ++id) {
    user.Key(VK_TAB, {VK_SHIFT});
    expectFocus(*id);
  }
}

TEST_F(SuiteDialogs, TheTextsAreWalkedAndChosenByKeysAlone) {
  AddTexts();
  const TextAnswer answer = AskText("*", [](User& user, Window dialog, Window list) {
    WalkByTab(user, dialog, {IDC_LIBRARY_TEXTS, IDCANCEL, IDC_LIBRARY_NAME});
    user.Key(VK_DOWN);  // something to take, by OK
    WalkByTab(user, dialog, {IDC_LIBRARY_TEXTS, IDOK, IDCANCEL, IDC_LIBRARY_NAME});
    for (const WORD key : std::vector<WORD>{VK_DOWN, VK_DOWN, VK_UP}) user.Key(key);
    EXPECT_EQ(list.Selection(), 1);
    user.Key(VK_END);
    EXPECT_EQ(list.Selection(), 3);
    user.Key(VK_HOME);
    EXPECT_EQ(list.Selection(), 0);
    EXPECT_TRUE(dialog.IsVisible());
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(answer.text, Euc("寸法は仕上がり寸法を示す。"));
}

TEST_F(SuiteDialogs, TheTextsOfALibraryAreChosenByKeysAlone) {
  AddTexts();
  const TextAnswer answer = AskText("*", [](User& user, Window dialog, Window list) {
    user.Key('F', {VK_MENU});
    user.Key(VK_DOWN, {VK_MENU});
    user.WaitUntil("the libraries drop down", [&] { return dialog.Child(IDC_LIBRARY_NAME).IsDropped(); });
    for (const WORD key : std::vector<WORD>{VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN}) user.Key(key);
    user.WaitUntil("its texts are listed", [&] { return list.Items().size() == 1; });
    user.Key('T', {VK_MENU});
    user.Key(VK_DOWN);
    user.Key(VK_RETURN);
    user.WaitGone(dialog);
  });
  EXPECT_EQ(answer.text, "DO NOT SCALE.");
}

TEST_F(SuiteDialogs, TheRegistersAreWalkedAndChosenByKeysAlone) {
  for (const char* const name : {"C1", "C2", "C3"}) Registers().AddRegister(name)->SetScalar(1.0);
  const int code = AskRegister([](User& user, Window dialog, const ListView& list) {
    WalkByTab(user, dialog, {IDC_REGISTER_LIST, IDCANCEL});
    user.Key(VK_HOME);
    WalkByTab(user, dialog, {IDC_REGISTER_LIST, IDOK, IDCANCEL});
    for (const WORD key : std::vector<WORD>{VK_DOWN, VK_DOWN, VK_UP}) user.Key(key);
    EXPECT_EQ(list.SelectedRows(), std::vector<int>{1});
    EXPECT_TRUE(dialog.IsVisible());
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(code, 2002);
}

TEST_F(SuiteDialogs, EscGivesThemUpFromEveryStop) {
  AddTexts();
  Registers().AddRegister("A1")->SetScalar(1.0);
  for (int stop = 0; stop < 4; ++stop) {
    const auto giveUp = [stop](const User& user, const Window& dialog) {
      for (int i = 0; i < stop; ++i) user.Key(VK_TAB);
      user.Key(VK_ESCAPE);
      user.WaitGone(dialog);
    };
    EXPECT_EQ(AskText("*", [&](User& user, Window dialog, Window) { giveUp(user, dialog); }).text, "untouched") << stop;
    EXPECT_EQ(AskRegister([&](User& user, Window dialog, const ListView&) { giveUp(user, dialog); }), 0) << stop;
  }
}

// ---- texts

TEST_F(SuiteDialogs, ListTheTextsOfAllLibraries) {
  AddTexts();
  const TextAnswer answer = AskText("*", [&](User& user, Window dialog, Window list) {
    EXPECT_EQ(list.Items(), (std::vector<std::string>{"寸法は仕上がり寸法を示す。", "全周すみ肉溶接のこと。",
                                                      "DO NOT SCALE.", "表面処理前の寸法を示す。"}));
    EXPECT_EQ(dialog.Child(IDC_LIBRARY_NAME).Items(),
              (std::vector<std::string>{"*", "注記一般.TLB", "注記溶接.TLB", "NOTES.TLB"}));
    EXPECT_EQ(dialog.Child(IDC_LIBRARY_NAME).Text(), "*");
    EXPECT_EQ(dialog.Child(IDC_LIBRARY_COUNT).Text(), "4 件");
    EXPECT_EQ(dialog.Owner().Handle(), owner_.Top());
    EXPECT_FALSE(Window(owner_.Top()).IsEnabled());
    EXPECT_FALSE(dialog.Child(IDOK).IsEnabled());
    EXPECT_TRUE(list.HasFocus());
    user.Click(EntryAt(list, 1));
    user.Click(dialog.Child(IDOK));
  });
  EXPECT_EQ(answer.result, 1);
  EXPECT_EQ(answer.text, Euc("全周すみ肉溶接のこと。"));
  EXPECT_TRUE(Window(owner_.Top()).IsEnabled());
}

TEST_F(SuiteDialogs, FilterTheTextsByFileName) {
  AddTexts();
  const TextAnswer answer = AskText(Euc("注記一般.TLB"), [&](User& user, Window dialog, Window list) {
    EXPECT_EQ(list.Items().size(), 2U);
    user.ChooseComboItem(dialog.Child(IDC_LIBRARY_NAME), 3);
    user.WaitUntil("another library is shown", [&] { return list.Items().size() == 1; });
    user.Replace(dialog.Child(IDC_LIBRARY_NAME).FindChildOfClass("Edit"), "注記*");
    user.WaitUntil("a pattern is in force", [&] { return list.Items().size() == 3; });
    user.DoubleClick(EntryAt(list, 2));
  });
  EXPECT_EQ(answer.result, 1);
  EXPECT_EQ(answer.text, Euc("表面処理前の寸法を示す。"));
}

TEST_F(SuiteDialogs, AHalfWordIsNoFileName) {
  AddTexts();
  AskText("*", [&](User& user, Window dialog, Window list) {
    const Window name = dialog.Child(IDC_LIBRARY_NAME).FindChildOfClass("Edit");
    user.Replace(name, "");
    user.WaitUntil("no library is named", [&] { return list.Items().empty(); });
    japanese_input::BeginComposition(name, "*");
    EXPECT_TRUE(list.Items().empty());
    japanese_input::EndComposition(name);
    EXPECT_EQ(list.Items().size(), 4U);
    user.Key(VK_ESCAPE);
  });
}

TEST_F(SuiteDialogs, WithoutATextNothingCanBeChosen) {
  const TextAnswer answer = AskText("none.TLB", [](User& user, Window dialog, Window list) {
    EXPECT_TRUE(list.Items().empty());
    user.Key(VK_RETURN);
    user.DoubleClick(EntryAt(list, 0));
    user.Settle();
    EXPECT_TRUE(dialog.IsVisible());
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(answer.result, 0);
  EXPECT_EQ(answer.text, "untouched");
}

TEST_F(SuiteDialogs, ATextIsChosenByKeyboard) {
  AddTexts();
  const TextAnswer answer = AskText("*", [](User& user, Window dialog, Window) {
    user.Key(VK_DOWN);
    user.Key(VK_DOWN);
    user.Key(VK_RETURN);
    user.WaitGone(dialog);
  });
  EXPECT_EQ(answer.result, 1);
  EXPECT_EQ(answer.text, Euc("全周すみ肉溶接のこと。"));
}

TEST_F(SuiteDialogs, ALongTextIsCutBetweenCharacters) {
  std::string pairs;
  for (int i = 0; i < 2500; ++i) pairs += "表";
  Texts().AddText("L", Euc(pairs));
  const auto choose = [](User& user, Window, Window list) { user.DoubleClick(EntryAt(list, 0)); };
  EXPECT_EQ(AskText("*", choose).text, Euc(pairs).substr(0, 1022));
  EXPECT_EQ(AskText("*", choose, 4).text, Euc(pairs).substr(0, 2));
  EXPECT_EQ(AskText("*", choose, 1).text, "");
}

TEST_F(SuiteDialogs, WithoutRoomNothingIsShown) {
  AddTexts();
  std::array<char, 8> out = {"x"};
  EXPECT_EQ(TlbDialog(nullptr, 0, "*", nullptr, 1024), 0);
  EXPECT_EQ(TlbDialog(nullptr, 0, "*", out.data(), 0), 0);
  EXPECT_EQ(TlbDialog(nullptr, 0, "*", out.data(), -5), 0);
  EXPECT_STREQ(out.data(), "x");
}

// ---- registers

TEST_F(SuiteDialogs, ListTheRegisters) {
  Registers().AddRegister("A2")->SetScalar(0.1);
  Registers().AddRegister("B3")->SetText(Euc("ﾎﾟﾝﾌﾟ表"));
  Registers().AddRegister("T1");
  const int code = AskRegister([](User& user, Window dialog, ListView list) {
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(list.ColumnAt(0).title, "グループ");
    EXPECT_EQ(list.ColumnAt(1).title, "名前");
    EXPECT_EQ(list.ColumnAt(2).title, "値");
    EXPECT_EQ(list.Cell(0, 0) + list.Cell(0, 1) + list.Cell(0, 2), "AA20.1");
    EXPECT_EQ(list.Cell(1, 0) + list.Cell(1, 1) + list.Cell(1, 2), "BB3ﾎﾟﾝﾌﾟ表");
    EXPECT_EQ(list.Cell(2, 0) + list.Cell(2, 1) + list.Cell(2, 2), "TT1");
    EXPECT_FALSE(dialog.Child(IDOK).IsEnabled());
    user.Click(driver::Center(list.CellRect(1, 2)));
    user.Click(dialog.Child(IDOK));
  });
  EXPECT_EQ(code, 1003);
}

TEST_F(SuiteDialogs, ARegisterIsChosenByADoubleClickOrByKeyboard) {
  Registers().AddRegister("A2")->SetScalar(0.1);
  Registers().AddRegister("C12")->SetScalar(3);
  EXPECT_EQ(
      AskRegister([](User& user, Window, ListView list) { user.DoubleClick(driver::Center(list.CellRect(1, 1))); }),
      2012);
  EXPECT_EQ(AskRegister([](User& user, Window dialog, ListView) {
              user.Key(VK_END);
              user.Key(VK_RETURN);
              user.WaitGone(dialog);
            }),
            2012);
}

TEST_F(SuiteDialogs, ARegisterWithoutACodeCannotBeChosen) {
  Registers().AddRegister("A0")->SetScalar(841);
  Registers().AddRegister("WIDTH")->SetScalar(1);
  for (const int row : {0, 1}) {
    EXPECT_EQ(AskRegister([row](User& user, Window dialog, ListView list) {
                user.DoubleClick(driver::Center(list.CellRect(row, 1)));
                user.Settle();
                EXPECT_TRUE(dialog.IsVisible());
                EXPECT_FALSE(dialog.Child(IDOK).IsEnabled());
                EXPECT_EQ(dialog.Child(IDC_REGISTER_NOTE).Text(), "このレジスタは選択できません。");
                user.Key(VK_ESCAPE);
              }),
              0);
  }
}

TEST_F(SuiteDialogs, GivingUpAnswersZero) {
  Registers().AddRegister("A2")->SetScalar(0.1);
  EXPECT_EQ(AskRegister([](User& user, Window dialog, ListView) { user.Click(dialog.Child(IDCANCEL)); }), 0);
  EXPECT_EQ(
      AskRegister([](User&, Window dialog, ListView) { ::PostMessageW(dialog.Handle(), WM_CLOSE, 0, 0); }, nullptr), 0);
}

TEST_F(SuiteDialogs, NeedNoOwner) {
  int code = -1;
  driver::RunDialog([&] { code = RegDspDialog("値", nullptr, 0); },
                    [](User& user) {
                      const Window dialog = user.WaitDialog("値");
                      user.Settle();
                      user.Click(dialog.Child(IDCANCEL));
                    });
  EXPECT_EQ(code, 0);
  const HWND gone = ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
  ::DestroyWindow(gone);
  driver::RunDialog([&] { code = RegDspDialog("値", gone, 0); },
                    [](User& user) { user.Click(user.WaitDialog("値").Child(IDCANCEL)); });
  EXPECT_EQ(code, 0);
}

}  // namespace
