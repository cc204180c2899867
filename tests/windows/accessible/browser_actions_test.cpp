// What a tool asks of the browser's areas, its list and its places does what a click does.
#include <gtest/gtest.h>

#include "dlglib/resources/resource.h"
#include "tests/windows/accessible/tool.h"
#include "tests/windows/browser/browser_world.h"

namespace browser_test {
namespace {

using driver::User;
using driver::Window;
using spoken::Named;
using spoken::Tool;

class BrowserActions : public BrowserTest {
 protected:
  static void WaitForTrail(const Browser& browser, const Texts& trail) {
    browser.Person().WaitUntil("the folder is shown", [&] { return browser.Trail() == trail; });
    browser.Person().Settle();
  }
};

TEST_F(BrowserActions, TheAreasGoUpAndBack) {
  Run([](Browser& browser) {
    const Tool tool(browser.Person());
    EXPECT_EQ(tool.Act(browser.Window(), Named("戻る")), S_FALSE) << "there is nothing to go back to";
    EXPECT_EQ(tool.Act(browser.Window(), Named("上へ")), S_OK);
    WaitForTrail(browser, {});
    EXPECT_EQ(tool.Act(browser.Window(), Named("戻る")), S_OK);
    WaitForTrail(browser, {"data"});
  });
}

TEST_F(BrowserActions, TheAreaOfANewFolderAsksForItsName) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    EXPECT_EQ(Tool(user).Act(browser.Window(), Named("新しいフォルダ")), S_OK);
    const Window dialog = user.WaitDialog("新しいフォルダの作成");
    user.Type("new");
    user.Key(VK_RETURN);
    user.WaitGone(dialog);
    user.WaitUntil("the folder is selected", [&] { return browser.SelectedNames() == Texts{"new"}; });
  });
}

TEST_F(BrowserActions, TheAreaOfTheViewsOpensTheirMenu) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    EXPECT_EQ(Tool(user).Act(browser.Window(), Named("表示")), S_OK);
    EXPECT_EQ(user.WaitMenu().items.front().text, "大きいアイコン");
    user.Key(VK_ESCAPE);
    user.WaitUntil("the menu closes", [&] { return !user.Sees("#32768"); });
  });
}

TEST_F(BrowserActions, TheLabelOfTheCountsOpensThem) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    EXPECT_EQ(Tool(user).Act(browser.Window(), Named("ファイル数")), S_OK);
    const Window counts = browser.Window().Child(IDC_RECENT_COUNT);
    user.WaitUntil("the counts drop down", [&] { return counts.IsDropped(); });
    user.Key(VK_ESCAPE);
    user.WaitUntil("the counts close", [&] { return !counts.IsVisible(); });
  });
}

TEST_F(BrowserActions, ARowOfAFolderIsOpened) {
  Run([](Browser& browser) {
    EXPECT_EQ(Tool(browser.Person()).Act(browser.List(), Named("Sub")), S_OK);
    WaitForTrail(browser, {"data", "Sub"});
  });
}

TEST_F(BrowserActions, ARowOfAFileEndsTheBrowserWithIt) {
  const Outcome outcome = Run([](Browser& browser) {
    EXPECT_EQ(Tool(browser.Person()).Act(browser.List(), Named("b.mdl")), S_OK);
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

// An action is carried out after the call of the tool, and something may happen in between.
TEST_F(BrowserActions, ARowThatStandsElsewhereMeanwhileIsNotOpened) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    const Window dialog = browser.Window();
    const auto actThen = [&](const std::string& row, WPARAM command) {
      return Tool(user).Ask(browser.List(), Named(row), [&](const driver::Accessible& found) {
        const HRESULT asked = found.Get()->accDoDefaultAction(found.Self());
        dialog.Send(WM_COMMAND, command, 0);
        return asked;
      });
    };
    EXPECT_EQ(actThen("Sub", IDC_UP), S_OK);
    user.Settle();
    EXPECT_EQ(browser.Trail(), Texts{}) << "a folder of the drive stands there now";
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.SelectedNames(), Texts{});
  });
}

TEST_F(BrowserActions, ARowIsSelectedAsByAClick) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    EXPECT_EQ(Tool(user).Select(browser.List(), Named("b.mdl"), SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION), S_OK);
    user.Settle();
    EXPECT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
    EXPECT_EQ(browser.Name(), "b.mdl");
    EXPECT_TRUE(browser.List().HasFocus());
    EXPECT_EQ(Tool(user).Select(browser.List(), Named("Sub"), SELFLAG_TAKESELECTION), S_OK);
    user.Settle();
    EXPECT_EQ(browser.SelectedNames(), Texts{"Sub"}) << "in place of the other";
  });
}

TEST_F(BrowserActions, TheFocusAloneSelectsNothing) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    user.Key(VK_F6);
    EXPECT_EQ(Tool(user).Select(browser.List(), Named("b.mdl"), SELFLAG_TAKEFOCUS), S_OK);
    user.Settle();
    EXPECT_TRUE(browser.List().HasFocus());
    EXPECT_EQ(browser.List().FocusedRow(), browser.List().FindRow("b.mdl"));
    EXPECT_EQ(browser.SelectedNames(), Texts{});
  });
}

TEST_F(BrowserActions, ThePlacesOpenAndClose) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    EXPECT_EQ(Tool(user).Act(browser.LocationBar(), spoken::Whole), S_OK);
    user.WaitUntil("the places drop down", [&] { return browser.LocationBar().IsDropped(); });
    EXPECT_TRUE(browser.LocationBar().HasFocus());
    EXPECT_EQ(Tool(user).Act(browser.LocationBar(), spoken::Whole), S_OK);
    user.WaitUntil("the places close", [&] { return !browser.LocationBar().IsDropped(); });
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    EXPECT_EQ(Tool(user).Select(browser.LocationBar(), spoken::Whole, SELFLAG_TAKEFOCUS), S_OK);
    EXPECT_TRUE(browser.LocationBar().HasFocus());
  });
}

TEST_F(BrowserActions, RowsAndPlacesAreWhereTheyAreDrawn) {
  Run([](Browser& browser) {
    const auto place = [&](Window window, const Tool::Found& found) {
      const auto of = [](const driver::Accessible& thing) { return thing.Place(); };
      return Tool(browser.Person()).Ask(window, found, of).value();
    };
    const RECT row = browser.List().ItemRect(browser.List().FindRow("b.mdl"), LVIR_BOUNDS);
    const RECT toldRow = place(browser.List(), Named("b.mdl"));
    EXPECT_NE(::EqualRect(&toldRow, &row), FALSE);
    const RECT bar = browser.LocationBar().ScreenRect();
    const RECT toldBar = place(browser.LocationBar(), spoken::Whole);
    EXPECT_NE(::EqualRect(&toldBar, &bar), FALSE);
  });
}

/// What the open places say is selected, by its name.
std::string SelectedPlace(const Browser& browser) {
  return Tool(browser.Person())
      .Ask(browser.LocationBar(), spoken::Whole,
           [](const driver::Accessible& bar) {
             VARIANT selected{};
             const bool isOne = bar.Get()->get_accSelection(&selected) == S_OK && selected.vt == VT_I4;
             const driver::Accessible place = bar.Child(isOne ? selected.lVal : CHILDID_SELF);
             return isOne && (place.States() & STATE_SYSTEM_SELECTED) != 0 ? place.Name() : std::string();
           })
      .value();
}

TEST_F(BrowserActions, TheOpenPlacesSayWhichOfThemKeysHaveComeTo) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    EXPECT_EQ(SelectedPlace(browser), "data");
    user.Key(VK_F4);
    user.WaitUntil("the places drop down", [&] { return browser.LocationBar().IsDropped(); });
    EXPECT_EQ(SelectedPlace(browser), "data");
    user.Key(VK_UP);
    user.WaitUntil("the place above is marked", [&] { return SelectedPlace(browser) == "SYSTEM (C:)"; });
    user.Key(VK_ESCAPE);
    user.WaitUntil("the places close", [&] { return !browser.LocationBar().IsDropped(); });
    user.Settle();
    EXPECT_EQ(SelectedPlace(browser), "data");
  });
}

TEST_F(BrowserActions, OpenPlacesAreWhereTheyAreDrawn) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    const auto placeOf = [&](const std::string& name) {
      const auto of = [](const driver::Accessible& row) { return row.Place(); };
      return Tool(user).Ask(browser.LocationBar(), Named(name), of).value();
    };
    const RECT closed = placeOf("data");
    EXPECT_NE(::IsRectEmpty(&closed), FALSE);
    user.Key(VK_F4);
    user.WaitUntil("the places drop down", [&] { return browser.LocationBar().IsDropped(); });
    const RECT data = placeOf("data");
    const RECT bar = browser.LocationBar().ScreenRect();
    EXPECT_GE(data.top, bar.bottom) << "in the list below the bar";
    EXPECT_EQ(placeOf("SYSTEM (C:)").bottom, data.top) << "the row above";
    user.Click(driver::Center(placeOf("SYSTEM (C:)")));
    WaitForTrail(browser, {});
  });
}

TEST_F(BrowserActions, NoPlaceIsGoneToWhereTheFolderIsFixed) {
  startUp_.folderFixed = true;
  Run([](Browser& browser) {
    EXPECT_EQ(Tool(browser.Person()).Act(browser.LocationBar(), spoken::Part(1)), S_FALSE);
    EXPECT_EQ(Tool(browser.Person()).Act(browser.LocationBar(), spoken::Whole), S_FALSE);
  });
}

TEST_F(BrowserActions, APlaceIsGoneToWhetherTheyAreOpenOrNot) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.OpenRow("Sub");
    WaitForTrail(browser, {"data", "Sub"});
    EXPECT_EQ(Tool(user).Act(browser.LocationBar(), Named("data")), S_OK);
    WaitForTrail(browser, {"data"});
    browser.OpenRow("Sub");
    WaitForTrail(browser, {"data", "Sub"});
    user.Key(VK_F4);
    user.WaitUntil("the places drop down", [&] { return browser.LocationBar().IsDropped(); });
    EXPECT_EQ(Tool(user).Act(browser.LocationBar(), Named("data")), S_OK);
    WaitForTrail(browser, {"data"});
    EXPECT_FALSE(browser.LocationBar().IsDropped());
    EXPECT_TRUE(browser.List().HasFocus());
  });
}

}  // namespace
}  // namespace browser_test
