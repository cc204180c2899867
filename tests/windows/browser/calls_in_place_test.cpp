// The browser as it is built for a suite that bears no other threads: it does all that it does elsewhere, on its own.
#include <atomic>
#include <string>

#include "dlglib/filedialog/waiting/CvWait.h"
#include "dlglib/resources/resource.h"
#include "tests/windows/browser/browser_world.h"

namespace browser_test {
namespace {

using driver::Window;

/// Counts the calls of the machine by the thread that makes them: that of the dialog is the test's own.
class CallsInPlaceTest : public BrowserTest {
 protected:
  CallsInPlaceTest() {
    World().calls.Watch([this, own = ::GetCurrentThreadId()](const std::string&) {
      ++(::GetCurrentThreadId() == own ? here_ : elsewhere_);
    });
  }
  ~CallsInPlaceTest() override { World().calls.Watch({}); }

  void ExpectAllHere() const {
    EXPECT_GT(here_, 0);
    EXPECT_EQ(elsewhere_, 0);
  }

 private:
  std::atomic<int> here_ = 0;
  std::atomic<int> elsewhere_ = 0;
};

TEST_F(CallsInPlaceTest, ThereAreNoWorkers) { EXPECT_EQ(CvWait::Workers(), nullptr); }

TEST_F(CallsInPlaceTest, FoldersAreListedAndSortedAndAFileIsChosen) {
  const Outcome outcome = Run([](Browser& browser) {
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.OpenRow("Sub");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    browser.Up();
    browser.ClickHeader(1);
    EXPECT_EQ(browser.SortMark(1), 0);
    browser.ChooseView("一覧表示");
    browser.Enter("a.mdl");
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\a.mdl");
  ExpectAllHere();
}

TEST_F(CallsInPlaceTest, DrivesHaveTheirNamesAndSpace) {
  Run([](Browser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    EXPECT_EQ(browser.Rows().front(), "SYSTEM (C:)");
  });
  ExpectAllHere();
}

TEST_F(CallsInPlaceTest, AFolderIsMade) {
  Run([](Browser& browser) {
    browser.Person().Click(driver::Center(browser.Window().Child(IDC_CREATE_FOLDER).ScreenRect()));
    const Window dialog = browser.Person().WaitDialog("新しいフォルダの作成");
    browser.Person().Replace(dialog.Child(IDC_FOLDER_NAME), "made");
    browser.Person().Key(VK_RETURN);
    browser.Person().WaitGone(dialog);
    browser.Person().Settle();
    EXPECT_EQ(browser.SelectedNames(), Texts{"made"});
  });
  ExpectAllHere();
}

}  // namespace
}  // namespace browser_test
