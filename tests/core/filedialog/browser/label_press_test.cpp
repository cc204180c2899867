// Presses of a mouse button while a name is being edited in the list.
#include "dlglib/filedialog/browser/label_press.h"

#include <stdexcept>
#include <string>

#include "tests/core/filedialog/browser/file_browser_fixture.h"

namespace browser_test {
namespace {

using filedialog::LabelPress;

constexpr LabelPress::Press kBeside{.endsEdit = true};
constexpr LabelPress::Press kInList{.endsEdit = true, .isInList = true};
constexpr LabelPress::Press kOnCancel{.endsEdit = true, .isCancel = true};
constexpr LabelPress::Press kSecondHalf{.isInList = true, .isSecondOfTwo = true};

class LabelPressTest : public FileBrowserTest {
 protected:
  /// Runs `script` while "b.mdl" is being edited and its box holds `text`. How often the dialog was cancelled.
  int RunEditing(const std::string& text, const std::function<void(PlayedBrowser&, LabelPress&)>& script) {
    int cancels = 0;
    Run([&](PlayedBrowser& browser) {
      LabelPress presses(browser.Core(), [&cancels] { ++cancels; });
      ASSERT_TRUE(browser.EditLabel("b.mdl"));
      browser.TypeLabel(text);
      script(browser, presses);
    });
    return cancels;
  }

  static bool Exists(const std::string& path) { return World().files.Find(path) != nullptr; }
};

TEST_F(LabelPressTest, WithoutAnEditAPressDoesItsWork) {
  RunEditing("b.mdl", [](PlayedBrowser& browser, LabelPress& presses) {
    browser.GiveUpLabel();
    EXPECT_FALSE(presses.UsesUp({.isInList = true}));
    EXPECT_FALSE(presses.UsesUp(kSecondHalf));
    EXPECT_TRUE(presses.OpensByDoubleClick(true));
    EXPECT_TRUE(presses.OpensByDoubleClick(false)) << "beside the rows is OK";
  });
}

TEST_F(LabelPressTest, APressInTheListThatRenamesDoesNothingMore) {
  RunEditing("z.mdl", [](PlayedBrowser& browser, LabelPress& presses) {
    EXPECT_TRUE(presses.UsesUp(kInList));
    EXPECT_TRUE(Exists("C:\\data\\z.mdl"));
    EXPECT_EQ(browser.SelectedNames(), Texts{"z.mdl"});
    EXPECT_TRUE(presses.UsesUp(kSecondHalf)) << "nor its second half";
    EXPECT_FALSE(presses.UsesUp({.isInList = true})) << "the next one does";
  });
}

TEST_F(LabelPressTest, APressElsewhereThatRenamesDoesItsWork) {
  const int cancels = RunEditing("z.mdl", [](PlayedBrowser&, LabelPress& presses) {
    EXPECT_FALSE(presses.UsesUp(kBeside));
    EXPECT_TRUE(Exists("C:\\data\\z.mdl"));
  });
  EXPECT_EQ(cancels, 0);
}

TEST_F(LabelPressTest, APressThatChangesNoNameDoesItsWork) {
  RunEditing("b.mdl", [](PlayedBrowser&, LabelPress& presses) {
    EXPECT_FALSE(presses.UsesUp(kInList));
    EXPECT_FALSE(presses.UsesUp(kSecondHalf));
    EXPECT_TRUE(presses.OpensByDoubleClick(true));
    EXPECT_FALSE(presses.OpensByDoubleClick(false)) << "beside the rows it was meant for the edit";
    EXPECT_FALSE(presses.UsesUp({.isInList = true}));
    EXPECT_TRUE(presses.OpensByDoubleClick(false)) << "the next one is OK";
  });
}

TEST_F(LabelPressTest, APressThatGivesARefusedNameDoesNothingMore) {
  const int cancels = RunEditing("a.mdl", [](PlayedBrowser& browser, LabelPress& presses) {
    EXPECT_TRUE(presses.UsesUp(kBeside));
    EXPECT_EQ(browser.TakeShown().size(), 1U);
    EXPECT_TRUE(presses.UsesUp(kSecondHalf));
  });
  EXPECT_EQ(cancels, 0) << "the dialog stays";
}

TEST_F(LabelPressTest, CancelEndsTheDialogThoughTheNameIsRefused) {
  EXPECT_EQ(RunEditing("a.mdl", [](PlayedBrowser&, LabelPress& presses) { EXPECT_TRUE(presses.UsesUp(kOnCancel)); }),
            1);
}

TEST_F(LabelPressTest, CancelDoesItsOwnWorkWhenTheNameIsTaken) {
  EXPECT_EQ(RunEditing("z.mdl", [](PlayedBrowser&, LabelPress& presses) { EXPECT_FALSE(presses.UsesUp(kOnCancel)); }),
            0);
}

TEST_F(LabelPressTest, AfterAnExceptionThePressIsUsedUpAndCancelEndsTheDialog) {
  const int cancels = RunEditing("z.mdl", [](PlayedBrowser&, LabelPress& presses) {
    World().calls.Watch([](const std::string& call) {
      if (call == "files.Rename") throw std::runtime_error("out of order");
    });
    EXPECT_THROW((void)presses.UsesUp(kOnCancel), std::runtime_error);
    World().calls.Watch({});
    EXPECT_TRUE(presses.UsesUp(kSecondHalf));
  });
  EXPECT_EQ(cancels, 1);
}

TEST_F(LabelPressTest, NothingIsDoneInAWindowThatHasGone) {
  const int cancels = RunEditing("a.mdl", [](PlayedBrowser& browser, LabelPress& presses) {
    browser.whileReading = [&browser] { browser.CloseNow(); };
    EXPECT_TRUE(presses.UsesUp(kOnCancel));
  });
  EXPECT_EQ(cancels, 0);
}

}  // namespace
}  // namespace browser_test
