// Each row of the table of the browser's keys in README.md, done on the keyboard.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/resources/resource.h"
#include "tests/support/key_tables.h"
#include "tests/support/played_models.h"
#include "tests/windows/browser/browser_world.h"

namespace browser_test {
namespace {

using driver::User;
using driver::Window;

void WaitForTrail(const Browser& browser, const Texts& trail) {
  browser.Person().WaitUntil("the folder is shown", [&] { return browser.Trail() == trail; });
  browser.Person().Settle();
}

/// By arrows: letters that follow each other soon would be one beginning of a name.
void WalkTo(const Browser& browser, const std::string& name) {
  const User& user = browser.Person();
  user.Key(VK_HOME);
  for (std::size_t row = 1; row < kAllRows.size() && browser.SelectedNames() != Texts{name}; ++row) user.Key(VK_DOWN);
  EXPECT_EQ(browser.SelectedNames(), Texts{name});
}

void GoIntoSub(const Browser& browser) {
  WalkTo(browser, "Sub");
  browser.Person().Key(VK_RETURN);
  WaitForTrail(browser, {"data", "Sub"});
}

void ExpectSelected(const Browser& browser, const std::string& name) {
  EXPECT_EQ(browser.SelectedNames(), Texts{name});
}

void EndMenu(const User& user) {
  static_cast<void>(user.WaitMenu());
  user.Key(VK_ESCAPE);
  user.WaitUntil("the menu closes", [&] { return !user.Sees("#32768"); });
}

void EndDialog(const User& user, const std::string& title) {
  const Window dialog = user.WaitDialog(title);
  user.Key(VK_ESCAPE);
  user.WaitGone(dialog);
  user.Settle();
}

// ---------------------------------------------------------------------------------------------------------------------
// the rows

void SelectInTheList(const Browser& browser) {
  const User& user = browser.Person();
  user.Key(VK_HOME);
  ExpectSelected(browser, kAllRows.front());
  user.Key(VK_DOWN);
  ExpectSelected(browser, kAllRows.at(1));
  user.Key(VK_UP);
  ExpectSelected(browser, kAllRows.front());
  user.Key(VK_END);
  ExpectSelected(browser, kAllRows.back());
  user.Key(VK_PRIOR);
  ExpectSelected(browser, kAllRows.front());
  user.Key(VK_NEXT);
  ExpectSelected(browser, kAllRows.back());
  user.Type("b");
  ExpectSelected(browser, "b.mdl");
}

void SelectSeveral(const Browser& browser) {
  const User& user = browser.Person();
  const Texts firstTwo(kAllRows.begin(), kAllRows.begin() + 2);
  user.Key(VK_HOME);
  user.Key(VK_DOWN, {VK_SHIFT});
  EXPECT_EQ(browser.SelectedNames(), firstTwo);
  user.Key(VK_UP, {VK_SHIFT});
  ExpectSelected(browser, kAllRows.front());
  for (const auto& [there, back] : {std::pair{VK_END, VK_HOME}, std::pair{VK_NEXT, VK_PRIOR}}) {
    user.Key(static_cast<WORD>(there), {VK_SHIFT});
    EXPECT_EQ(browser.SelectedNames(), kAllRows);
    user.Key(static_cast<WORD>(back), {VK_SHIFT});
    ExpectSelected(browser, kAllRows.front());
  }
  user.Key(VK_DOWN, {VK_CONTROL});
  user.Key(VK_DOWN, {VK_CONTROL});
  ExpectSelected(browser, kAllRows.front());
  user.Key(VK_UP, {VK_CONTROL});
  user.Key(VK_SPACE, {VK_CONTROL});
  EXPECT_EQ(browser.SelectedNames(), firstTwo);
  user.Key(VK_SPACE, {VK_CONTROL});
  ExpectSelected(browser, kAllRows.front());
}

void Accept(const Browser& browser) {
  GoIntoSub(browser);
  browser.Person().Key(VK_BACK);
  WaitForTrail(browser, {"data"});
  WalkTo(browser, "b.mdl");
  browser.Person().Key(VK_RETURN);
  browser.Person().WaitGone(browser.Window());
}

void GoUp(const Browser& browser) {
  const User& user = browser.Person();
  for (const bool withAlt : {false, true}) {
    GoIntoSub(browser);
    if (withAlt) user.Key(VK_UP, {VK_MENU});
    if (!withAlt) user.Key(VK_BACK);
    WaitForTrail(browser, {"data"});
    EXPECT_EQ(browser.List().Cell(browser.List().FocusedRow()), "Sub");
    EXPECT_EQ(browser.SelectedNames(), Texts{});
  }
}

void GoBack(const Browser& browser) {
  GoIntoSub(browser);
  browser.Person().Key(VK_LEFT, {VK_MENU});
  WaitForTrail(browser, {"data"});
}

void RenameDeleteAndOpenTheMenu(const Browser& browser) {
  const User& user = browser.Person();
  user.Type("b");
  user.Key(VK_F2);
  EndDialog(user, "名前の変更");
  user.Key(VK_F10, {VK_SHIFT});
  EndMenu(user);
  user.Key(VK_DELETE);
  user.WaitUntil("the file is deleted", [&] { return browser.List().FindRow("b.mdl") < 0; });
}

void ListAnew(const Browser& browser) {
  const User& user = browser.Person();
  user.Type("b");
  os::scripted::World().files.AddFile("C:\\data\\zz.mdl");
  user.Key(VK_F5);
  user.WaitUntil("the new file is listed", [&] { return browser.List().FindRow("zz.mdl") >= 0; });
  user.Settle();
  ExpectSelected(browser, "b.mdl");
}

void WalkBetweenTheParts(const Browser& browser) {
  const User& user = browser.Person();
  user.Key(VK_F6);
  EXPECT_TRUE(browser.NameEdit().HasFocus());
  user.Key(VK_F6, {VK_SHIFT});
  EXPECT_TRUE(browser.List().HasFocus());
  std::set<int> stops;
  do {
    user.Key(VK_TAB);
    for (const Window& part : browser.Window().Children()) {
      const std::vector<Window> inner = part.Children();
      const bool isInside = std::ranges::any_of(inner, [](const Window& window) { return window.HasFocus(); });
      if (part.HasFocus() || isInside) stops.insert(part.Id());
    }
  } while (!browser.List().HasFocus());
  EXPECT_TRUE(stops.contains(browser.NameBox().Id()));
  EXPECT_TRUE(stops.contains(browser.LocationBar().Id()));
  EXPECT_TRUE(stops.contains(IDOK));
  EXPECT_TRUE(stops.contains(IDCANCEL));
}

void UseTheLocationBar(const Browser& browser) {
  const User& user = browser.Person();
  user.Key(VK_F4);
  user.WaitUntil("the places drop down", [&] { return browser.LocationBar().IsDropped(); });
  user.Key(VK_ESCAPE);
  user.WaitUntil("the list has the focus", [&] { return browser.List().HasFocus(); });
  user.Key('D', {VK_MENU});
  EXPECT_TRUE(browser.LocationBar().HasFocus());
  user.Key(VK_UP);
  WaitForTrail(browser, {});
}

void SortByEachColumn(const Browser& browser) {
  const User& user = browser.Person();
  user.WaitUntil("the titles are columns", [&] { return browser.List().ColumnCount() == 5; });
  for (const WORD key : std::vector<WORD>{'2', '3', '4', '5', '1'}) {
    const int column = key - '1';
    user.Key(key, {VK_CONTROL});
    user.WaitUntil("the column is marked", [&] { return browser.SortMark(column) >= 0; });
    for (int other = 0; other < 5; ++other) EXPECT_EQ(browser.SortMark(other) >= 0, other == column) << other;
  }
}

void OpenWhatTheAreasOpen(const Browser& browser) {
  const User& user = browser.Person();
  user.Key('V', {VK_MENU});
  EndMenu(user);
  user.Key('N', {VK_MENU});
  EndDialog(user, "新しいフォルダの作成");
  user.Key('R', {VK_MENU});
  const Window counts = browser.Window().Child(IDC_RECENT_COUNT);
  user.WaitUntil("the counts drop down", [&] { return counts.IsDropped(); });
  user.Key(VK_ESCAPE);
  user.WaitUntil("the counts close", [&] { return !counts.IsVisible(); });
  EXPECT_TRUE(browser.IsOpen());
}

void GiveUp(const Browser& browser) {
  browser.Person().Key(VK_ESCAPE);
  browser.Person().WaitGone(browser.Window());
}

/// What the browser shows at first.
enum class Shown { Details, Several, FourTitles };

/// What is done for a row of the table.
struct Step {
  std::string keys;  ///< the row's first cell
  void (*act)(const Browser& browser);
  Shown shown = Shown::Details;
};

std::vector<Step> Steps() {
  return {{"arrows, Home, End, Page Up, Page Down, the first letters of a name", &SelectInTheList},
          {"Shift with arrows, Home, End, Page Up, Page Down; Ctrl+arrows, Ctrl+Space", &SelectSeveral, Shown::Several},
          {"Enter", &Accept},
          {"Backspace, Alt+Up", &GoUp},
          {"Alt+Left", &GoBack},
          {"F2, Delete; Shift+F10", &RenameDeleteAndOpenTheMenu},
          {"F5", &ListAnew},
          {"F6, Shift+F6", &WalkBetweenTheParts},
          {"F4 in the list, Alt+D", &UseTheLocationBar},
          {"Ctrl+1 to Ctrl+5 in the list", &SortByEachColumn, Shown::FourTitles},
          {"Alt+V, Alt+N, Alt+R", &OpenWhatTheAreasOpen},
          {"Esc", &GiveUp}};
}

class BrowserKeyTable : public BrowserTest, public testing::WithParamInterface<Step> {
 protected:
  void Begin(Shown shown) {
    SaveNumber("Form", shown == Shown::FourTitles ? 4 : 2);
    if (shown == Shown::Several) startUp_.listStyle = filedialog::kListMultiple;
    if (shown != Shown::FourTitles) return;
    played_models::Begin();
    startUp_.initialFolder = played_models::kFolder;
    for (const char slot : {'1', '2', '3', '4'}) {
      const std::string number{static_cast<char>(slot - '0'), '\0'};
      World().registry.SetValue(kLayoutKey, std::string("Title") + slot, os::RegistryType::Binary, number);
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Rows, BrowserKeyTable, testing::ValuesIn(Steps()), [](const auto& step) {
  std::string name = step.param.keys;
  std::erase_if(name, [](char letter) { return !((letter >= '0' && letter <= '9') || (letter | 0x20) >= 'a'); });
  return name;
});

TEST(BrowserKeyTables, EachRowOfThePageIsTried) {
  Texts tried;
  for (const Step& step : Steps()) tried.push_back(step.keys);
  EXPECT_EQ(tried, key_tables::RowsBehind("In the browser:"));
}

TEST_P(BrowserKeyTable, DoesWhatItSays) {
  Begin(GetParam().shown);
  Run([](Browser& browser) { GetParam().act(browser); });
}

}  // namespace
}  // namespace browser_test
