// The conditions for sorting many models by a title, and the question before it, as a user meets them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "dlglib/filedialog/dialogs/CvMdlConfirm.h"
#include "dlglib/filedialog/dialogs/CvMdlSort.h"
#include "dlglib/resources/resource.h"
#include "platform/os/os_scripted.h"
#include "platform/os/sjis_wide.h"
#include "tests/windows/dialogs/title_dialogs_look.h"
#include "tests/windows/driver/accessible.h"
#include "tests/windows/driver/events.h"

namespace {

using driver::User;
using driver::Window;
using filedialog::SlowSort;
using filedialog::SlowSortRule;
using os::scripted::World;
using title_dialogs::ControlRow;
using title_dialogs::ExpectControls;
using title_dialogs::ExpectZone;

constexpr char kSortTitle[] = "モデルタイトルでのソート条件設定";
constexpr char kConfirmTitle[] = "確認";
constexpr char kPrompt[] = "個数の制限を入力してください。";
constexpr char kTooSmall[] = "個数の制限が小さすぎます。（≧１０）";
constexpr std::uint32_t kSimpleBeep = 0xFFFFFFFF;

/// Which of the three option buttons are checked, such as "001".
std::string Checked(const Window& window) {
  std::string checked;
  for (const int id : {IDC_SORT_ALWAYS, IDC_SORT_WITHIN_LIMIT, IDC_SORT_ASK}) {
    checked += window.Child(id).CheckState() == BST_CHECKED ? '1' : '0';
  }
  return checked;
}

/// Sets the limit and presses the default button by the keyboard.
void Submit(const User& user, const Window& window, const std::string& limit) {
  ::SetWindowTextW(window.Child(IDC_SORT_LIMIT).Handle(), os::WideOf(limit).c_str());
  user.Key(VK_RETURN);
}

void CloseByTitleBar(const User& user) { user.Key(VK_F4, {VK_MENU}); }

// ---- conditions

class SortConditionsTest : public testing::Test {
 protected:
  SortConditionsTest() { World().Reset(); }
  ~SortConditionsTest() override { World().Reset(); }

  /// Runs the dialog; `act` plays the user and has to end it.
  template <class Act>
  INT_PTR Run(SlowSortRule given, const Act& act) {
    INT_PTR result = -1;
    CvMdlSort dialog(nullptr, given);
    driver::RunDialog([&] { result = dialog.DoModal(); },
                      [&](User& user) {
                        const Window window = user.WaitDialog(kSortTitle);
                        user.Settle();
                        act(user, window);
                      });
    taken_ = dialog.Rule();
    return result;
  }

  void ExpectTaken(SlowSort mode, int limit) const {
    EXPECT_EQ(taken_.mode, mode);
    EXPECT_EQ(taken_.limit, limit);
  }

  SlowSortRule taken_;
};

TEST_F(SortConditionsTest, HasItsControls) {
  Run({SlowSort::AskBeyondLimit, 1000}, [](User& user, const Window& window) {
    ExpectControls(
        window,
        {
            {IDC_SORT_ALWAYS, "Button", {12, 12, 96, 10}, "無条件にソートする。"},
            {IDC_SORT_WITHIN_LIMIT, "Button", {12, 30, 184, 10}, "モデルの個数が制限を超えたらソートしない。"},
            {IDC_SORT_ASK, "Button", {12, 48, 232, 10}, "モデルの個数が制限を超えたら確認ダイアログを表示する。"},
            {IDC_NONE, "Static", {43, 80, 73, 8}, "モデルの個数の制限"},
            {IDC_SORT_LIMIT, "Edit", {130, 78, 56, 12}, "1000"},
            {IDOK, "Button", {143, 112, 50, 14}, "設定"},
            {IDCANCEL, "Button", {207, 112, 50, 14}, "取消"},
        });
    for (const int id : {IDC_SORT_ALWAYS, IDC_SORT_WITHIN_LIMIT, IDC_SORT_ASK}) {
      EXPECT_NE(window.Child(id).Style() & WS_GROUP, 0U);
    }
    EXPECT_NE(window.Child(IDC_SORT_LIMIT).Style() & ES_NUMBER, 0U);
    RECT units = {0, 0, 264, 133};
    ::MapDialogRect(window.Handle(), &units);
    const RECT client = window.ClientScreenRect();
    EXPECT_EQ(client.right - client.left, units.right);
    EXPECT_EQ(client.bottom - client.top, units.bottom + title_dialogs::kZoneHeight);
    user.Key(VK_ESCAPE);
  });
}

TEST_F(SortConditionsTest, ShowsTheRuleItIsGiven) {
  const std::vector<std::pair<SlowSortRule, std::string>> rows = {{{SlowSort::Always, 1000}, "100"},
                                                                  {{SlowSort::NeverBeyondLimit, 10}, "010"},
                                                                  {{SlowSort::AskBeyondLimit, 0}, "001"},
                                                                  {{static_cast<SlowSort>(3), -1}, "001"},
                                                                  {{static_cast<SlowSort>(-7), 123456}, "001"}};
  for (const auto& [given, checked] : rows) {
    Run(given, [&, limit = given.limit, &checked = checked](User& user, const Window& window) {
      EXPECT_EQ(Checked(window), checked);
      EXPECT_EQ(window.Child(IDC_SORT_LIMIT).Text(), std::to_string(limit));
      user.Key(VK_ESCAPE);
    });
  }
}

TEST_F(SortConditionsTest, OneOptionIsCheckedAtATime) {
  Run({SlowSort::AskBeyondLimit, 1000}, [](User& user, const Window& window) {
    for (const auto& [id, checked] : std::vector<std::pair<int, std::string>>{
             {IDC_SORT_ALWAYS, "100"}, {IDC_SORT_WITHIN_LIMIT, "010"}, {IDC_SORT_ASK, "001"}, {IDC_SORT_ASK, "001"}}) {
      user.Click(window.Child(id));
      user.Settle();
      EXPECT_EQ(Checked(window), checked);
    }
    user.Key(VK_ESCAPE);
  });
}

TEST_F(SortConditionsTest, TheTabKeyPassesOptionsByAndTheSpaceKeyChecksThem) {
  const INT_PTR result = Run({SlowSort::AskBeyondLimit, 1000}, [](User& user, const Window& window) {
    user.WaitUntil("the first option has the focus", [&] { return window.Child(IDC_SORT_ALWAYS).HasFocus(); });
    EXPECT_EQ(Checked(window), "001");
    user.Key(VK_TAB);
    EXPECT_TRUE(window.Child(IDC_SORT_WITHIN_LIMIT).HasFocus());
    EXPECT_EQ(Checked(window), "001");
    user.Key(VK_SPACE);
    EXPECT_EQ(Checked(window), "010");
    for (const int next : {IDC_SORT_ASK, IDC_SORT_LIMIT, IDOK, IDCANCEL, IDC_SORT_ALWAYS}) {
      user.Key(VK_TAB);
      EXPECT_TRUE(window.Child(next).HasFocus());
    }
    EXPECT_EQ(Checked(window), "010");
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(result, IDOK);
  ExpectTaken(SlowSort::NeverBeyondLimit, 1000);
}

TEST_F(SortConditionsTest, OkTakesModeAndLimit) {
  const auto choose = [](int option) {
    return [option](User& user, const Window& window) {
      user.Click(window.Child(option));
      user.Replace(window.Child(IDC_SORT_LIMIT), "25");
      user.Click(window.Child(IDOK));
    };
  };
  EXPECT_EQ(Run({SlowSort::AskBeyondLimit, 1000}, choose(IDC_SORT_ALWAYS)), IDOK);
  ExpectTaken(SlowSort::Always, 25);
  EXPECT_EQ(Run({SlowSort::AskBeyondLimit, 1000}, choose(IDC_SORT_WITHIN_LIMIT)), IDOK);
  ExpectTaken(SlowSort::NeverBeyondLimit, 25);
  EXPECT_EQ(Run({SlowSort::Always, 1000}, choose(IDC_SORT_ASK)), IDOK);
  ExpectTaken(SlowSort::AskBeyondLimit, 25);
}

TEST_F(SortConditionsTest, AnUnknownModeBecomesAsking) {
  EXPECT_EQ(Run({static_cast<SlowSort>(7), 1000}, [](User& user, const Window&) { user.Key(VK_RETURN); }), IDOK);
  ExpectTaken(SlowSort::AskBeyondLimit, 1000);
}

TEST_F(SortConditionsTest, CancelKeepsTheRule) {
  const auto change = [](User& user, const Window& window) {
    user.Click(window.Child(IDC_SORT_ALWAYS));
    user.Replace(window.Child(IDC_SORT_LIMIT), "25");
  };
  const auto byButton = [&](User& user, const Window& window) {
    change(user, window);
    user.Click(window.Child(IDCANCEL));
  };
  const auto byEsc = [&](User& user, const Window& window) {
    change(user, window);
    user.Key(VK_ESCAPE);
  };
  const auto byTitleBar = [&](User& user, const Window& window) {
    change(user, window);
    CloseByTitleBar(user);
  };
  EXPECT_EQ(Run({SlowSort::NeverBeyondLimit, 77}, byButton), IDCANCEL);
  ExpectTaken(SlowSort::NeverBeyondLimit, 77);
  EXPECT_EQ(Run({SlowSort::NeverBeyondLimit, 77}, byEsc), IDCANCEL);
  ExpectTaken(SlowSort::NeverBeyondLimit, 77);
  EXPECT_EQ(Run({SlowSort::NeverBeyondLimit, 77}, byTitleBar), IDCANCEL);
  ExpectTaken(SlowSort::NeverBeyondLimit, 77);
}

// Both messages are drawn; whoever does not see them is told of them by a part of the dialog.
TEST_F(SortConditionsTest, ToolsAreToldOfARefusedLimitOnce) {
  const driver::ScreenReader reader;
  Run({SlowSort::AskBeyondLimit, 1000}, [](User& user, const Window& window) {
    user.Replace(window.Child(IDC_SORT_LIMIT), "9");
    const std::vector<Window> parts = window.Children();
    const auto zone = std::ranges::find_if(parts, [](const Window& part) { return part.Text() == kPrompt; });
    ASSERT_NE(zone, parts.end());
    driver::Events events(*zone);
    user.Key(VK_RETURN);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_NAMECHANGE, CHILDID_SELF), 1);
    EXPECT_EQ(zone->Text(), kTooSmall);
    const driver::Com com;
    EXPECT_EQ(driver::Accessible::Of(*zone).Name(), kTooSmall);
    user.Key(VK_ESCAPE);
  });
}

TEST_F(SortConditionsTest, ALimitOfNineIsRefusedAndTenAccepted) {
  const INT_PTR result = Run({SlowSort::AskBeyondLimit, 1000}, [](User& user, const Window& window) {
    user.Replace(window.Child(IDC_SORT_LIMIT), "9");
    user.Click(window.Child(IDOK));
    user.Settle();
    ExpectZone(user, window, kTooSmall);
    EXPECT_EQ(World().session.beeps, std::vector<std::uint32_t>{kSimpleBeep});
    EXPECT_TRUE(window.IsVisible());
    EXPECT_EQ(window.Child(IDC_SORT_LIMIT).Text(), "9");
    EXPECT_EQ(Checked(window), "001");
    user.Replace(window.Child(IDC_SORT_LIMIT), "10");
    ExpectZone(user, window, kPrompt);
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(result, IDOK);
  ExpectTaken(SlowSort::AskBeyondLimit, 10);
}

TEST_F(SortConditionsTest, TheZonePromptsWhileTheLimitHasTheFocus) {
  Run({SlowSort::AskBeyondLimit, 1000}, [](User& user, const Window& window) {
    ExpectZone(user, window, "");
    user.Click(window.Child(IDC_SORT_LIMIT));
    ExpectZone(user, window, kPrompt);
    user.Key(VK_TAB);
    EXPECT_TRUE(window.Child(IDOK).HasFocus());
    ExpectZone(user, window, "");
    user.Key(VK_TAB, {VK_SHIFT});
    ExpectZone(user, window, kPrompt);
    Submit(user, window, "5");
    ExpectZone(user, window, kTooSmall);
    user.Key(VK_ESCAPE);
  });
}

TEST_F(SortConditionsTest, TheZoneOutlivesPainting) {
  Run({SlowSort::AskBeyondLimit, 1000}, [](User& user, const Window& window) {
    user.Click(window.Child(IDC_SORT_LIMIT));
    ::RedrawWindow(window.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    ExpectZone(user, window, kPrompt);
    user.Key(VK_TAB);
    ::RedrawWindow(window.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    ExpectZone(user, window, "");
    user.Key(VK_ESCAPE);
  });
}

TEST_F(SortConditionsTest, OnlyDigitsCanBeTyped) {
  Run({SlowSort::AskBeyondLimit, 1000}, [](User& user, const Window& window) {
    user.Replace(window.Child(IDC_SORT_LIMIT), "a5.-表0");
    EXPECT_EQ(window.Child(IDC_SORT_LIMIT).Text(), "50");
    user.Key(VK_ESCAPE);
  });
}

TEST_F(SortConditionsTest, WhatIsNoLimitIsRefused) {
  Run({SlowSort::AskBeyondLimit, 1000}, [](User& user, const Window& window) {
    for (const std::string& text : {std::string(), std::string("x20"), std::string("-20"), std::string("１０"),
                                    std::string("0000009"), std::string("\x82"), std::string(3000, 'n')}) {
      World().session.beeps.clear();
      Submit(user, window, text);
      ExpectZone(user, window, kTooSmall);
      EXPECT_EQ(World().session.beeps, std::vector<std::uint32_t>{kSimpleBeep});
      EXPECT_TRUE(window.IsVisible());
    }
    user.Key(VK_ESCAPE);
  });
  ExpectTaken(SlowSort::AskBeyondLimit, 1000);
}

TEST_F(SortConditionsTest, TheNumberInFrontOfATextCounts) {
  EXPECT_EQ(
      Run({SlowSort::AskBeyondLimit, 5}, [](User& user, const Window& window) { Submit(user, window, " 12 models"); }),
      IDOK);
  ExpectTaken(SlowSort::AskBeyondLimit, 12);
  EXPECT_EQ(
      Run({SlowSort::AskBeyondLimit, 5}, [](User& user, const Window& window) { Submit(user, window, "99999999999"); }),
      IDOK);
  ExpectTaken(SlowSort::AskBeyondLimit, std::numeric_limits<int>::max());
}

// ---- question

class SortQuestionTest : public testing::Test {
 protected:
  SortQuestionTest() { World().Reset(); }
  ~SortQuestionTest() override { World().Reset(); }

  template <class Act>
  INT_PTR Run(const Act& act) {
    INT_PTR result = -1;
    CvMdlConfirm dialog(nullptr, rule_);
    driver::RunDialog([&] { result = dialog.DoModal(); },
                      [&](User& user) {
                        const Window window = user.WaitDialog(kConfirmTitle);
                        user.Settle();
                        act(user, window);
                      });
    return result;
  }

  /// Opens the conditions from inside and sets a mode and a limit.
  static void Change(User& user, const Window& window, int option, const std::string& limit, int button) {
    user.Click(window.Child(IDC_CONFIRM_SORT));
    const Window conditions = user.WaitDialog(kSortTitle);
    EXPECT_EQ(conditions.Owner(), window);
    EXPECT_FALSE(window.IsEnabled());
    user.Click(conditions.Child(option));
    user.Replace(conditions.Child(IDC_SORT_LIMIT), limit);
    user.Click(conditions.Child(button));
    user.WaitGone(conditions);
    user.Settle();
  }

  SlowSortRule rule_;
};

TEST_F(SortQuestionTest, HasItsControls) {
  Run([](User& user, const Window& window) {
    ExpectControls(window, {
                               {IDC_CONFIRM_COUNT, "Static", {7, 7, 206, 12}, "モデルの数が制限 1000 を超えました。"},
                               {IDC_CONFIRM_QUESTION, "Static", {7, 23, 206, 14}, "時間がかかりますがソートしますか？"},
                               {IDC_CONFIRM_SORT, "Button", {7, 52, 71, 14}, "ソート条件設定"},
                               {IDOK, "Button", {107, 52, 50, 14}, "はい"},
                               {IDCANCEL, "Button", {163, 52, 50, 14}, "いいえ"},
                           });
    EXPECT_EQ(window.ClientUnits().cx, 220);
    EXPECT_EQ(window.ClientUnits().cy, 73);
    user.Key(VK_ESCAPE);
  });
}

TEST_F(SortQuestionTest, YesIsOkAndAnythingElseIsCancel) {
  EXPECT_EQ(Run([](User& user, const Window& window) { user.Click(window.Child(IDOK)); }), IDOK);
  EXPECT_EQ(Run([](User& user, const Window&) { user.Key(VK_RETURN); }), IDOK);
  EXPECT_EQ(Run([](User& user, const Window& window) { user.Click(window.Child(IDCANCEL)); }), IDCANCEL);
  EXPECT_EQ(Run([](User& user, const Window&) { user.Key(VK_ESCAPE); }), IDCANCEL);
  EXPECT_EQ(Run([](User& user, const Window&) { CloseByTitleBar(user); }), IDCANCEL);
  EXPECT_EQ(rule_.mode, SlowSort::AskBeyondLimit);
  EXPECT_EQ(rule_.limit, 1000);
}

TEST_F(SortQuestionTest, ARuleSetFromInsideIsStoredAndTheQuestionKeepsItsNumber) {
  const INT_PTR result = Run([&](User& user, const Window& window) {
    Change(user, window, IDC_SORT_WITHIN_LIMIT, "50", IDOK);
    EXPECT_EQ(rule_.mode, SlowSort::NeverBeyondLimit);
    EXPECT_EQ(rule_.limit, 50);
    EXPECT_TRUE(window.IsVisible());
    EXPECT_TRUE(window.IsEnabled());
    EXPECT_EQ(window.Child(IDC_CONFIRM_COUNT).Text(), "モデルの数が制限 1000 を超えました。");
    user.Click(window.Child(IDC_CONFIRM_SORT));
    const Window conditions = user.WaitDialog(kSortTitle);
    EXPECT_EQ(Checked(conditions), "010");
    EXPECT_EQ(conditions.Child(IDC_SORT_LIMIT).Text(), "50");
    user.Key(VK_ESCAPE);
    user.WaitGone(conditions);
    user.Click(window.Child(IDCANCEL));
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_EQ(rule_.mode, SlowSort::NeverBeyondLimit);
  EXPECT_EQ(rule_.limit, 50);
}

TEST_F(SortQuestionTest, ARuleThatIsCancelledIsNotStored) {
  Run([&](User& user, const Window& window) {
    Change(user, window, IDC_SORT_ALWAYS, "50", IDCANCEL);
    user.Click(window.Child(IDOK));
  });
  EXPECT_EQ(rule_.mode, SlowSort::AskBeyondLimit);
  EXPECT_EQ(rule_.limit, 1000);
}

TEST_F(SortQuestionTest, AnyLimitIsShown) {
  rule_.limit = std::numeric_limits<std::int32_t>::min();
  Run([](User& user, const Window& window) {
    EXPECT_EQ(window.Child(IDC_CONFIRM_COUNT).Text(), "モデルの数が制限 -2147483648 を超えました。");
    user.Key(VK_ESCAPE);
  });
}

}  // namespace
