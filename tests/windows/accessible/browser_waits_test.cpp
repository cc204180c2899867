// What tools are told while the browser waits for a device, and what they can do meanwhile.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/resources/resource.h"
#include "tests/windows/accessible/tool.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/driver/events.h"
#include "tests/windows/support/hanging_calls.h"

namespace browser_test {
namespace {

using driver::Accessible;
using driver::Events;
using driver::User;
using spoken::Tool;

constexpr char kLine[] = "読み込み中…　Esc で中止";

class BrowserWaits : public BrowserTest {
 protected:
  BrowserWaits() {
    World().files.AddFile("C:\\slow\\s.mdl");
    constexpr int kDetails = 2;
    SaveNumber("Form", kDetails);
  }

  template <class Call>
  static auto OfList(const Browser& browser, const Call& call) {
    return Tool(browser.Person()).Ask(browser.List(), spoken::Whole, call).value();
  }
  static std::string Value(const Browser& browser) {
    return OfList(browser, [](const Accessible& list) { return list.Value(); });
  }
  static std::string Description(const Browser& browser) {
    return OfList(browser, [](const Accessible& list) { return list.Description(); });
  }
  static LONG Count(const Browser& browser) {
    return OfList(browser, [](const Accessible& list) {
      LONG count = 0;
      list.Get()->get_accChildCount(&count);
      return count;
    });
  }
  static HRESULT ActOn(const Browser& browser, LONG child) {
    return OfList(
        browser, [child](const Accessible& list) { return list.Get()->accDoDefaultAction(Accessible::Number(child)); });
  }
  static HRESULT Select(const Browser& browser, LONG child, LONG flags) {
    return OfList(browser,
                  [=](const Accessible& list) { return list.Get()->accSelect(flags, Accessible::Number(child)); });
  }
  /// What the list answers when it is asked which child has the focus; -1 for none.
  static LONG FocusedChild(const Browser& browser) {
    return OfList(browser, [](const Accessible& list) {
      VARIANT child{};
      return list.Get()->get_accFocus(&child) == S_OK && child.vt == VT_I4 ? LONG{child.lVal} : LONG{-1};
    });
  }
  static LONG RowId(const Browser& browser, const std::string& name) { return browser.List().FindRow(name) + 1; }

  /// Goes to a folder that does not answer, out of the list.
  static void BeginWait(Browser& browser) {
    browser.TypeName("C:\\slow");
    browser.PressOk();
    browser.Person().WaitUntil("the list says what is waited for", [&] { return !Value(browser).empty(); });
  }
  static void GiveUp(const Browser& browser) {
    browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitUntil("the rows are back", [&] { return Value(browser).empty(); });
    browser.Person().Settle();
  }
};

TEST_F(BrowserWaits, TheListSaysWhatIsWaitedForInPlaceOfItsRows) {
  Run([](Browser& browser) {
    driver::HangingCalls hanging("files.OpenFolder");
    const LONG all = Count(browser);
    BeginWait(browser);
    EXPECT_EQ(Value(browser), kLine);
    EXPECT_EQ(Count(browser), 1) << "the header";
    GiveUp(browser);
    EXPECT_EQ(Count(browser), all);
    EXPECT_EQ(browser.Rows(), kAllRows);
    hanging.LetGo();
  });
}

TEST_F(BrowserWaits, TheLineIsToldWhenItComesAndWhenItGoes) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    driver::HangingCalls hanging("files.OpenFolder");
    Events events(browser.List());
    BeginWait(browser);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_VALUECHANGE, CHILDID_SELF), 1);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_REORDER, CHILDID_SELF), 1) << "the rows have gone";
    events.Forget();
    GiveUp(browser);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_VALUECHANGE, CHILDID_SELF), 1);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_REORDER, CHILDID_SELF), 1) << "they are back";
    hanging.LetGo();
  });
}

TEST_F(BrowserWaits, ThePlaceThatIsBackAfterAWaitIsToldOnce) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    driver::HangingCalls hanging("files.OpenFolder");
    BeginWait(browser);
    user.Settle();
    Events places(browser.LocationBar());
    GiveUp(browser);
    EXPECT_EQ(places.Count(user, EVENT_OBJECT_VALUECHANGE, CHILDID_SELF), 1);
    hanging.LetGo();
  });
}

TEST_F(BrowserWaits, AListThatIsFilledBehindTheLineIsToldWhenItIsSeen) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    driver::HangingCalls hanging("files.OpenFolder");
    Events events(browser.List());
    BeginWait(browser);
    user.Settle();
    events.Forget();
    hanging.LetGo();
    user.WaitUntil("the folder is listed", [&] { return browser.Rows() == Texts{"s.mdl"}; });
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_REORDER, CHILDID_SELF), 1);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_VALUECHANGE, CHILDID_SELF), 1);
    EXPECT_EQ(Value(browser), "");
  });
}

TEST_F(BrowserWaits, RowsBehindTheLineAreNobodysToReadOrToChoose) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.ClickRow("a.mdl");
    const LONG row = RowId(browser, "a.mdl");
    const LONG other = RowId(browser, "b.mdl");
    ASSERT_GT(std::min(row, other), 1) << "the first number is the header's meanwhile";
    driver::HangingCalls hanging("files.OpenFolder");
    BeginWait(browser);
    user.Settle();
    EXPECT_EQ(ActOn(browser, other), E_INVALIDARG);
    EXPECT_EQ(Select(browser, other, SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION), E_INVALIDARG);
    EXPECT_EQ(Select(browser, other, SELFLAG_TAKEFOCUS), E_INVALIDARG);
    EXPECT_EQ(OfList(browser,
                     [row](const Accessible& list) {
                       BSTR name = nullptr;
                       return list.Get()->get_accName(Accessible::Number(row), &name);
                     }),
              E_INVALIDARG);
    EXPECT_EQ(OfList(browser,
                     [](const Accessible& list) {
                       VARIANT rows{};
                       return list.Get()->get_accSelection(&rows);
                     }),
              S_FALSE);
    EXPECT_EQ(Select(browser, CHILDID_SELF, SELFLAG_TAKEFOCUS), S_OK) << "the list itself is there";
    EXPECT_EQ(FocusedChild(browser), CHILDID_SELF);
    GiveUp(browser);
    EXPECT_EQ(FocusedChild(browser), row);
    hanging.LetGo();
  });
}

TEST_F(BrowserWaits, TheRemarkAtTheLowerEdgeIsTheListsDescriptionUntilTheNextKey) {
  std::vector<char> buffer(startUp_.capacity = 1000);
  startUp_.fileBuffer = buffer.data();
  driver::HangingCalls hanging("files.OpenFolder");
  driver::RunDialog([&] { CvFileDialog(nullptr, startUp_).DoModal(); },
                    [&](User& user) {
                      const driver::Window dialog = user.WaitDialog(startUp_.caption);
                      const auto list = [&] { return dialog.FindChild(IDC_FILE_LIST); };
                      user.WaitUntil("the list says what is waited for", [&] { return !list().Text().empty(); });
                      user.Key(VK_ESCAPE);
                      user.WaitUntil("the folder above is asked for", [&] { return hanging.Now() > 1; });
                      hanging.LetGo();
                      Browser browser(user, startUp_.caption);
                      EXPECT_NE(Description(browser), "");
                      EXPECT_EQ(Value(browser), "");
                      Events events(browser.List());
                      user.Key(VK_DOWN);
                      EXPECT_EQ(events.Count(user, EVENT_OBJECT_DESCRIPTIONCHANGE, CHILDID_SELF), 1);
                      EXPECT_EQ(Description(browser), "");
                      browser.Cancel();
                    });
}

TEST_F(BrowserWaits, TextsThatComeLateAreToldOfTheRowWithTheFocusAlone) {
  driver::HangingCalls hanging("files.Status");
  Run([&](Browser& browser) {
    const User& user = browser.Person();
    Events events(browser.List());
    browser.ClickRow("a.mdl");
    user.Settle();
    events.Forget();
    hanging.LetGo();
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_DESCRIPTIONCHANGE, RowId(browser, "a.mdl")), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_DESCRIPTIONCHANGE), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_NAMECHANGE), 0);
  });
}

}  // namespace
}  // namespace browser_test
