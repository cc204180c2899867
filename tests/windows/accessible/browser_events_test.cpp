// What tools are told of while somebody uses the browser.
#include <gtest/gtest.h>

#include "dlglib/resources/resource.h"
#include "tests/windows/accessible/tool.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/driver/events.h"

namespace browser_test {
namespace {

using driver::Accessible;
using driver::Events;
using driver::User;
using driver::Window;
using spoken::Named;
using spoken::Tool;

class BrowserEvents : public BrowserTest {
 protected:
  static void WaitForTrail(const Browser& browser, const Texts& trail) {
    browser.Person().WaitUntil("the folder is shown", [&] { return browser.Trail() == trail; });
    browser.Person().Settle();
  }
  /// The number by which events know a row.
  static LONG RowId(const Browser& browser, const std::string& name) { return browser.List().FindRow(name) + 1; }
  static LONG AreaId(const Browser& browser, const std::string& name) {
    const Tool tool(browser.Person());
    return tool.Ask(browser.Window(), Named(name), [](const Accessible& area) { return area.ChildId(); }).value_or(0);
  }
  static LONG AreaStates(const Browser& browser, const std::string& name) {
    const Tool tool(browser.Person());
    return tool.Ask(browser.Window(), Named(name), [](const Accessible& area) { return area.States(); }).value_or(0);
  }
  static POINT AreaPoint(const Browser& browser, const std::string& name) {
    const Tool tool(browser.Person());
    const auto place = tool.Ask(browser.Window(), Named(name), [](const Accessible& area) { return area.Place(); });
    return driver::Center(place.value());
  }
};

TEST_F(BrowserEvents, ARowThatIsAddedToTheSelectionOrLeavesItIsToldOnce) {
  startUp_.listStyle = filedialog::kListMultiple;
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.ClickRow("a.mdl");
    Events events(browser.List());
    browser.ClickRow("b.mdl", {VK_CONTROL});
    const LONG row = RowId(browser, "b.mdl");
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_SELECTIONADD, row), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_SELECTION), 0);
    browser.ClickRow("b.mdl", {VK_CONTROL});
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_SELECTIONREMOVE, row), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_SELECTIONREMOVE), 1);
  });
}

TEST_F(BrowserEvents, SeveralRowsAtOnceAreToldAsOne) {
  startUp_.listStyle = filedialog::kListMultiple;
  Run([](Browser& browser) {
    const User& user = browser.Person();
    user.Key(VK_HOME);
    Events events(browser.List());
    user.Key(VK_END, {VK_SHIFT});
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_SELECTIONWITHIN, CHILDID_SELF), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_SELECTIONADD), 0);
    EXPECT_EQ(browser.SelectedNames().size(), browser.Rows().size());
  });
}

TEST_F(BrowserEvents, ARowInPlaceOfSeveralIsToldAlone) {
  startUp_.listStyle = filedialog::kListMultiple;
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.ClickRow("a.mdl");
    browser.ClickRow("b.mdl", {VK_CONTROL});
    user.Settle();
    Events events(browser.List());
    browser.ClickRow("b.mdl");
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_SELECTION, RowId(browser, "b.mdl")), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_SELECTIONWITHIN), 0);
    browser.ClickRow("Sub", {VK_SHIFT});
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_SELECTIONWITHIN, CHILDID_SELF), 1);
  });
}

TEST_F(BrowserEvents, AListThatIsFilledIsToldOnceAndNoneOfItsRows) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.ClickRow("b.mdl");
    Events events(browser.List());
    user.Key(VK_F5);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_REORDER, CHILDID_SELF), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_SELECTION), 0);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_SELECTIONADD), 0);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_SELECTIONREMOVE), 0);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_SELECTIONWITHIN, CHILDID_SELF), 1) << "the selection that F5 keeps";
    EXPECT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
  });
}

TEST_F(BrowserEvents, AnotherPlaceInTheLocationBarIsToldOnce) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    Events events(browser.LocationBar());
    browser.OpenRow("Sub");
    WaitForTrail(browser, {"data", "Sub"});
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_VALUECHANGE, CHILDID_SELF), 1);
    events.Forget();
    user.Key(VK_BACK);
    WaitForTrail(browser, {"data"});
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_VALUECHANGE, CHILDID_SELF), 1);
  });
}

TEST_F(BrowserEvents, AFolderThatIsListedAnewIsNoOtherPlace) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    Events places(browser.LocationBar());
    const std::size_t rows = browser.Rows().size();
    World().files.AddFile("C:\\data\\zz.mdl");
    user.Key(VK_F5);
    user.WaitUntil("the folder is listed anew", [&] { return browser.Rows().size() == rows + 1; });
    user.Settle();
    places.Take();
    EXPECT_EQ(places.Heard(EVENT_OBJECT_VALUECHANGE, CHILDID_SELF), 0);
  });
}

// The bar is shown anew when a question has been answered, and stands where it stood.
TEST_F(BrowserEvents, ANewFolderIsNoOtherPlace) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    Events places(browser.LocationBar());
    user.Key('N', {VK_MENU});
    const Window dialog = user.WaitDialog("新しいフォルダの作成");
    user.Type("new");
    user.Key(VK_RETURN);
    user.WaitGone(dialog);
    user.WaitUntil("the folder is selected", [&] { return browser.SelectedNames() == Texts{"new"}; });
    user.Settle();
    places.Take();
    EXPECT_EQ(places.Heard(EVENT_OBJECT_VALUECHANGE, CHILDID_SELF), 0);
    browser.OpenRow("new");
    WaitForTrail(browser, {"data", "new"});
    EXPECT_EQ(places.Count(user, EVENT_OBJECT_VALUECHANGE, CHILDID_SELF), 1);
  });
}

// Two folders of one name, one in the other.
TEST_F(BrowserEvents, AnotherPlaceOfTheSameNameIsToldToo) {
  World().files.AddFolder("C:\\data\\Sub\\Sub");
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.OpenRow("Sub");
    WaitForTrail(browser, {"data", "Sub"});
    Events places(browser.LocationBar());
    browser.OpenRow("Sub");
    WaitForTrail(browser, {"data", "Sub", "Sub"});
    EXPECT_EQ(places.Count(user, EVENT_OBJECT_VALUECHANGE, CHILDID_SELF), 1);
  });
}

TEST_F(BrowserEvents, AnAreaThatIsPressedSaysSo) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    browser.OpenRow("Sub");
    WaitForTrail(browser, {"data", "Sub"});
    const LONG area = AreaId(browser, "上へ");
    const POINT at = AreaPoint(browser, "上へ");
    user.MoveTo(at);
    user.Settle();
    EXPECT_NE(AreaStates(browser, "上へ") & STATE_SYSTEM_HOTTRACKED, 0);
    Events events(browser.Window());
    user.Press(at);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_STATECHANGE, area), 1);
    EXPECT_NE(AreaStates(browser, "上へ") & STATE_SYSTEM_PRESSED, 0);
    user.Release(at);
    WaitForTrail(browser, {"data"});
    EXPECT_EQ(AreaStates(browser, "上へ") & STATE_SYSTEM_PRESSED, 0);
  });
}

TEST_F(BrowserEvents, AnAreaThatCanBeUsedOrNoMoreSaysSo) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    const LONG area = AreaId(browser, "戻る");
    EXPECT_NE(AreaStates(browser, "戻る") & STATE_SYSTEM_UNAVAILABLE, 0);
    Events events(browser.Window());
    browser.OpenRow("Sub");
    WaitForTrail(browser, {"data", "Sub"});
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_STATECHANGE, area), 1);
    EXPECT_EQ(AreaStates(browser, "戻る") & STATE_SYSTEM_UNAVAILABLE, 0);
    events.Forget();
    user.Key(VK_LEFT, {VK_MENU});
    WaitForTrail(browser, {"data"});
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_STATECHANGE, area), 1);
    EXPECT_NE(AreaStates(browser, "戻る") & STATE_SYSTEM_UNAVAILABLE, 0);
  });
}

/// The balloon of the areas, shown or not.
Window BalloonOf(const Browser& browser) {
  for (HWND window = ::FindWindowExA(nullptr, nullptr, "#32770", nullptr); window != nullptr;
       window = ::FindWindowExA(nullptr, window, "#32770", nullptr)) {
    if (driver::IsSameWindow(::GetWindow(window, GW_OWNER), browser.Window().Handle())) return Window(window);
  }
  return {};
}

TEST_F(BrowserEvents, TheBalloonIsATipThatIsToldWhenItAppears) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    Window balloon;
    user.MoveTo(AreaPoint(browser, "表示"));
    user.WaitUntil("the first balloon appears", [&] {
      balloon = BalloonOf(browser);
      return balloon && balloon.IsVisible();
    });
    user.Settle();  // it is told behind that
    Events events(balloon);
    user.MoveTo(AreaPoint(browser, "上へ"));
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_NAMECHANGE, CHILDID_SELF), 1);
    const auto told = Tool(user).Ask(balloon, spoken::Whole, [](const Accessible& tip) {
      return std::tuple(tip.Role(), tip.Name(), tip.States() & STATE_SYSTEM_INVISIBLE, tip.Place());
    });
    ASSERT_TRUE(told);
    EXPECT_EQ(std::get<0>(*told), LONG{ROLE_SYSTEM_TOOLTIP});
    EXPECT_EQ(std::get<1>(*told), "１つ上のホルダに移動");
    EXPECT_TRUE(std::get<2>(*told) == 0 || !balloon.IsVisible()) << "it hides after two seconds";
    const RECT place = balloon.ScreenRect();
    EXPECT_NE(::EqualRect(&std::get<3>(*told), &place), FALSE);
  });
}

}  // namespace
}  // namespace browser_test
