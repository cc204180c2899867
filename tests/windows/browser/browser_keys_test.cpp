// The browser without a mouse.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <vector>

#include "dlglib/resources/resource.h"
#include "tests/windows/browser/browser_world.h"

namespace browser_test {
namespace {

using driver::User;
using driver::Window;

class BrowserKeysTest : public BrowserTest {
 protected:
  /// Alt is let go before the other key, as some keyboards and hands do it.
  static void PressAltFirst(const User& user, WORD key) {
    user.HoldKey(VK_MENU);
    user.HoldKey(key);
    user.ReleaseKey(VK_MENU);
    user.ReleaseKey(key);
    user.Settle();
  }

  static void Press(const User& user, const std::vector<WORD>& keys) {
    for (const WORD key : keys) user.Key(key);
  }

  static void WaitForTrail(const Browser& browser, const Texts& trail) {
    browser.Person().WaitUntil("the folder is shown", [&] { return browser.Trail() == trail; });
    browser.Person().Settle();
  }

  static void AddFiles(int count) {
    for (int i = 0; i < count; ++i) {
      char name[32];
      std::snprintf(name, sizeof name, "C:\\data\\f%04d.mdl", i);
      World().files.AddFile(name);
    }
  }

  static std::string Focused(const Browser& browser) {
    const int row = browser.List().FocusedRow();
    return row < 0 ? std::string() : browser.List().Cell(row);
  }
};

// ---------------------------------------------------------------------------------------------------------------------
// Alt: told by what the next keys do

TEST_F(BrowserKeysTest, TheKeysBehindAltUpWalkInTheList) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.OpenRow("表示");
    PressAltFirst(user, VK_UP);
    WaitForTrail(browser, {"data"});
    EXPECT_EQ(Focused(browser), "表示");
    EXPECT_EQ(browser.SelectedNames(), Texts{});
    Press(user, {VK_DOWN, VK_DOWN, VK_DOWN});
    EXPECT_FALSE(user.Sees("#32768"));
    EXPECT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
  });
}

TEST_F(BrowserKeysTest, TheKeysBehindAltLeftWalkInTheList) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.OpenRow("Sub");
    PressAltFirst(user, VK_LEFT);
    WaitForTrail(browser, {"data"});
    Press(user, {VK_DOWN, VK_DOWN, VK_DOWN});
    EXPECT_FALSE(user.Sees("#32768"));
    EXPECT_EQ(browser.SelectedNames().size(), 1U);
  });
}

TEST_F(BrowserKeysTest, TheKeysBehindAltRWalkInTheCounts) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    PressAltFirst(user, 'R');
    const Window counts = browser.Window().Child(IDC_RECENT_COUNT);
    user.WaitUntil("the counts drop down", [&] { return counts.IsDropped(); });
    EXPECT_EQ(counts.Selection(), 10);
    Press(user, {VK_UP, VK_UP, VK_UP});
    EXPECT_FALSE(user.Sees("#32768"));
    EXPECT_EQ(counts.Selection(), 7);
    user.Key(VK_RETURN);
    user.WaitUntil("the counts close", [&] { return !counts.IsVisible(); });
    EXPECT_EQ(SavedNumber("FileCount"), 7);
  });
}

TEST_F(BrowserKeysTest, TheKeysBehindAltVWalkInTheMenuOfTheViews) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    user.HoldKey(VK_MENU);
    user.HoldKey('V');
    user.ReleaseKey(VK_MENU);
    user.ReleaseKey('V');
    const auto menu = user.WaitMenu();
    EXPECT_EQ(menu.items.front().text, "大きいアイコン");
    Press(user, {VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
    user.WaitUntil("the view is the list", [&] { return (browser.List().Style() & LVS_TYPEMASK) == DWORD{LVS_LIST}; });
    EXPECT_TRUE(browser.List().HasFocus());
  });
}

TEST_F(BrowserKeysTest, AnotherViewKeepsTheFocusedRowAndSelectsNone) {
  SaveNumber("Form", 2);
  Run([](Browser& browser) {
    const User& user = browser.Person();
    user.Key('1', {VK_CONTROL});  // descending
    user.Type("b");
    ASSERT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
    user.Key('V', {VK_MENU});
    static_cast<void>(user.WaitMenu());
    Press(user, {VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
    user.WaitUntil("the view is the list", [&] { return (browser.List().Style() & LVS_TYPEMASK) == DWORD{LVS_LIST}; });
    user.Settle();
    EXPECT_EQ(Focused(browser), "b.mdl");
    EXPECT_EQ(browser.SelectedNames(), Texts{});
    EXPECT_TRUE(browser.List().HasFocus());
    user.Key(VK_UP);
    EXPECT_EQ(browser.SelectedNames().size(), 1U);
    EXPECT_NE(browser.SelectedNames(), Texts{"b.mdl"}) << "keys go on from there";
  });
}

TEST_F(BrowserKeysTest, ADeclinedDeletionKeepsTheFocusedRowAndSelectsNone) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    user.Type("b");
    ASSERT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
    const std::size_t rows = browser.Rows().size();
    World().shell.deleteOutcome.aborted = true;
    user.Key(VK_DELETE);
    user.WaitUntil("the deletion is over", [&] { return browser.SelectedNames().empty(); });
    user.Settle();
    EXPECT_EQ(Focused(browser), "b.mdl");
    EXPECT_EQ(browser.Rows().size(), rows);
    user.Key(VK_DOWN);
    EXPECT_EQ(browser.SelectedNames().size(), 1U);
    EXPECT_NE(browser.SelectedNames(), Texts{"b.mdl"}) << "keys go on from there";
  });
}

TEST_F(BrowserKeysTest, TheKeysBehindAltNAreTyped) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    PressAltFirst(user, 'N');
    const Window dialog = user.WaitDialog("新しいフォルダの作成");
    user.Settle();
    Press(user, {'A', 'B', 'C'});
    EXPECT_EQ(dialog.Child(IDC_FOLDER_NAME).Text(), "abc");
    user.Key(VK_RETURN);
    user.WaitGone(dialog);
    user.WaitUntil("the folder is selected", [&] { return browser.SelectedNames() == Texts{"abc"}; });
  });
}

TEST_F(BrowserKeysTest, AltByItselfStillOpensTheSystemsMenu) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    PressAltFirst(user, VK_LEFT);
    user.HoldKey(VK_MENU);
    user.ReleaseKey(VK_MENU);
    user.Key(VK_DOWN);
    const auto menu = user.WaitMenu();
    EXPECT_FALSE(menu.items.empty());
    EXPECT_EQ(browser.SelectedNames(), Texts{});
    user.Key(VK_ESCAPE);
    user.Key(VK_ESCAPE);
    user.WaitUntil("the menu closes", [&] { return !user.Sees("#32768"); });
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// the location bar and the parts

TEST_F(BrowserKeysTest, AltDGoesToTheLocationBarAndArrowsChooseThere) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    PressAltFirst(user, 'D');
    EXPECT_TRUE(browser.LocationBar().HasFocus());
    EXPECT_FALSE(browser.LocationBar().IsDropped());
    user.Key(VK_UP);  // the place above, which is gone to at once
    WaitForTrail(browser, {});
    EXPECT_TRUE(browser.List().HasFocus());
    Press(user, {VK_DOWN, VK_DOWN});
    EXPECT_FALSE(user.Sees("#32768"));
    EXPECT_EQ(browser.List().FocusedRow(), 1);
  });
}

TEST_F(BrowserKeysTest, ArrowsBehindAltDAndF4WalkInThePlaces) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    PressAltFirst(user, 'D');
    user.Key(VK_F4);
    user.WaitUntil("the places drop down", [&] { return browser.LocationBar().IsDropped(); });
    const int here = browser.LocationBar().Selection();
    Press(user, {VK_UP, VK_UP, VK_DOWN});
    EXPECT_FALSE(user.Sees("#32768"));
    EXPECT_EQ(browser.LocationBar().Selection(), here - 1);
    EXPECT_EQ(browser.Trail(), Texts{"data"}) << "nothing is gone to before Enter";
    user.Key(VK_RETURN);
    WaitForTrail(browser, {});
  });
}

TEST_F(BrowserKeysTest, F4InTheListOpensTheLocationBarAndEscGivesItUp) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    user.Key(VK_F4);
    user.WaitUntil("the places drop down", [&] { return browser.LocationBar().IsDropped(); });
    user.Key(VK_ESCAPE);
    user.WaitUntil("the list has the focus", [&] { return browser.List().HasFocus(); });
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    user.Key(VK_F4);
    user.WaitUntil("the places drop down", [&] { return browser.LocationBar().IsDropped(); });
    Press(user, {VK_UP, VK_RETURN});
    WaitForTrail(browser, {});
    EXPECT_TRUE(browser.List().HasFocus());
  });
}

TEST_F(BrowserKeysTest, F6WalksBetweenListNamesAndPlaces) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    ASSERT_TRUE(browser.List().HasFocus());
    user.Key(VK_F6);
    EXPECT_TRUE(browser.NameEdit().HasFocus());
    user.Key(VK_F6);
    EXPECT_TRUE(browser.LocationBar().HasFocus());
    user.Key(VK_F6);
    EXPECT_TRUE(browser.List().HasFocus());
    user.Key(VK_F6, {VK_SHIFT});
    EXPECT_TRUE(browser.LocationBar().HasFocus());
    Press(user, {VK_TAB, VK_TAB, VK_TAB, VK_F6});
    EXPECT_TRUE(browser.List().HasFocus()) << "from a part that F6 does not know";
  });
}

TEST_F(BrowserKeysTest, F6PassesOverALocationBarThatCannotBeUsed) {
  startUp_.folderFixed = true;
  Run([](Browser& browser) {
    const User& user = browser.Person();
    Press(user, {VK_F6, VK_F6});
    EXPECT_TRUE(browser.List().HasFocus());
    PressAltFirst(user, 'D');
    user.Key(VK_F4);
    PressAltFirst(user, VK_UP);
    EXPECT_TRUE(browser.List().HasFocus());
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

// The dropped list's own key.
TEST_F(BrowserKeysTest, AltUpClosesADroppedList) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    user.Key(VK_F4);
    user.WaitUntil("the places drop down", [&] { return browser.LocationBar().IsDropped(); });
    PressAltFirst(user, VK_UP);
    user.WaitUntil("the places close", [&] { return !browser.LocationBar().IsDropped(); });
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

TEST_F(BrowserKeysTest, CtrlAndANumberSortByThatColumn) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    user.Key('1', {VK_CONTROL});
    EXPECT_EQ(browser.SortMark(0), 1) << "descending";
    user.Key('2', {VK_CONTROL});
    EXPECT_EQ(browser.SortMark(1), 0);
    user.Key('4', {VK_CONTROL});
    user.Key('5', {VK_CONTROL});
    EXPECT_EQ(browser.SortMark(1), 0) << "there is no such column";
    user.Key('3', {VK_CONTROL});
    EXPECT_EQ(browser.SortMark(2), 0);
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// listing anew

TEST_F(BrowserKeysTest, F5KeepsSelectionFocusAndScrollingInEachView) {
  AddFiles(200);
  Run([](Browser& browser) {
    const User& user = browser.Person();
    for (const char* const view : {"詳細表示", "一覧表示", "大きいアイコン", "小さいアイコン", "タイトル表示"}) {
      SCOPED_TRACE(view);
      browser.ChooseView(view);
      if (const auto titles = Window(FindWindowA("#32770", "表示モデルタイトル項目の設定"))) {
        user.Key(VK_ESCAPE);
        user.WaitGone(titles);
      }
      user.Key(VK_END);
      Press(user, {VK_PRIOR, VK_UP});
      const auto selected = browser.SelectedNames();
      const int focused = browser.List().FocusedRow();
      const RECT place = browser.List().ItemRect(focused);
      World().files.AddFile("C:\\data\\zz" + std::to_string(browser.Rows().size()) + ".mdl");
      const std::size_t rows = browser.Rows().size();
      user.Key(VK_F5);
      user.WaitUntil("the new file is listed", [&] { return browser.Rows().size() == rows + 1; });
      user.Settle();
      EXPECT_EQ(browser.SelectedNames(), selected);
      EXPECT_EQ(browser.List().FocusedRow(), focused);
      EXPECT_EQ(browser.List().ItemRect(focused).top, place.top);
      EXPECT_EQ(browser.List().ItemRect(focused).left, place.left);
    }
  });
}

TEST_F(BrowserKeysTest, OkAfterF5TakesWhatIsSelected) {
  const Outcome outcome = Run([](Browser& browser) {
    const User& user = browser.Person();
    user.Type("b");
    user.Key(VK_F5);
    user.Key(VK_RETURN);
    user.WaitGone(browser.Window());
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(BrowserKeysTest, F5GivesANameThatIsEditedFirst) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.ClickRow("b.mdl");
    browser.List().Send(LVM_EDITLABELW, static_cast<WPARAM>(browser.List().FindRow("b.mdl")));
    user.WaitUntil("the name is edited", [&] { return static_cast<bool>(browser.List().LabelEdit()); });
    user.Key('A', {VK_CONTROL});
    user.Type("c.mdl");
    user.Key(VK_F5);
    user.WaitUntil("the entry is renamed", [&] { return browser.List().FindRow("c.mdl") >= 0; });
    EXPECT_EQ(browser.List().FindRow("b.mdl"), -1);
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// everything

void WalkThroughFolders(Browser& browser, const std::function<void(const Texts&)>& waitForTrail) {
  const User& user = browser.Person();
  user.Type("s");
  user.Key(VK_RETURN);
  waitForTrail({"data", "Sub"});
  user.Key(VK_BACK);
  waitForTrail({"data"});
  user.Key(VK_RETURN);  // the focused folder is not selected: the empty name box says nothing
  EXPECT_TRUE(browser.IsOpen());
  user.Key(VK_LEFT, {VK_MENU});
  waitForTrail({"data", "Sub"});
  user.Key(VK_UP, {VK_MENU});
  waitForTrail({"data"});
}

void MakeRenameAndDeleteAFolder(Browser& browser) {
  const User& user = browser.Person();
  user.Key('N', {VK_MENU});
  const Window folder = user.WaitDialog("新しいフォルダの作成");
  user.Type("new");
  user.Key(VK_RETURN);
  user.WaitGone(folder);
  user.WaitUntil("the folder is selected", [&] { return browser.SelectedNames() == Texts{"new"}; });
  user.Key(VK_F2);
  const Window rename = user.WaitDialog("名前の変更");
  user.Type("newer");
  user.Key(VK_RETURN);
  user.WaitGone(rename);
  user.WaitUntil("the folder is renamed", [&] { return browser.List().FindRow("newer") >= 0; });
  user.Settle();
  user.Key(VK_HOME);
  for (std::size_t row = 0; row < browser.Rows().size() && browser.SelectedNames() != Texts{"newer"}; ++row) {
    user.Key(VK_DOWN);
  }
  user.Key(VK_DELETE);
  user.WaitUntil("the folder is deleted", [&] { return browser.List().FindRow("newer") < 0; });
}

void UseTheMenus(Browser& browser) {
  const User& user = browser.Person();
  user.Key('V', {VK_MENU});
  static_cast<void>(user.WaitMenu());
  for (const WORD key : std::vector<WORD>{VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN}) user.Key(key);
  user.WaitUntil("the view is the details",
                 [&] { return (browser.List().Style() & LVS_TYPEMASK) == DWORD{LVS_REPORT}; });
  user.Key('1', {VK_CONTROL});
  EXPECT_EQ(browser.SortMark(0), 1);
  user.Key(VK_HOME);
  user.Key(VK_F10, {VK_SHIFT});
  static_cast<void>(user.WaitMenu());
  user.Key(VK_ESCAPE);
  user.WaitUntil("the menu closes", [&] { return !user.Sees("#32768"); });
  user.Key('R', {VK_MENU});
  const Window counts = browser.Window().Child(IDC_RECENT_COUNT);
  user.WaitUntil("the counts drop down", [&] { return counts.IsDropped(); });
  user.Key(VK_DOWN);
  user.Key(VK_RETURN);
  user.WaitUntil("the counts close", [&] { return !counts.IsVisible(); });
}

void ChooseAnotherPlace(const Browser& browser) {
  const User& user = browser.Person();
  user.Key(VK_F4);
  user.WaitUntil("the places drop down", [&] { return browser.LocationBar().IsDropped(); });
  user.Key(VK_HOME);
  user.Key(VK_RETURN);
}

TEST_F(BrowserKeysTest, EverythingIsDoneWithoutAMouse) {
  SaveNumber("Form", 2);
  const Outcome outcome = Run([](Browser& browser) {
    const User& user = browser.Person();
    const auto waitForTrail = [&](const Texts& trail) { WaitForTrail(browser, trail); };
    WalkThroughFolders(browser, waitForTrail);
    MakeRenameAndDeleteAFolder(browser);
    UseTheMenus(browser);
    ChooseAnotherPlace(browser);
    waitForTrail({});
    user.Key(VK_LEFT, {VK_MENU});
    waitForTrail({"data"});
    user.Key(VK_F6);
    user.Type("A-001");
    user.Key(VK_RETURN);
    user.WaitGone(browser.Window());
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\A-001.MDL");
}

}  // namespace
}  // namespace browser_test
