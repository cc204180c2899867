// The browser while an input method composes: in its name box, in a name that is edited in the list, over the list.
#include <gtest/gtest.h>

#include "dlglib/resources/resource.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/input/composition.h"

namespace browser_test {
namespace {

using driver::User;
using driver::Window;
using japanese_input::BeginComposition;
using japanese_input::EndComposition;
using japanese_input::GiveCompositionUp;

class BrowserCompositionsTest : public BrowserTest {
 protected:
  /// Into the name box, with nothing marked, while a folder is selected.
  static Window SelectFolderAndGoToNames(Browser& browser) {
    browser.ClickRow("Sub");
    const User& user = browser.Person();
    user.Key(VK_F6);
    user.WaitUntil("the name box has the focus", [&] { return browser.NameEdit().HasFocus(); });
    EXPECT_EQ(browser.SelectedNames(), Texts{"Sub"});
    return browser.NameEdit();
  }

  static Window EditLabel(Browser& browser, const std::string& name) {
    if (browser.SelectedNames() != Texts{name}) browser.ClickRow(name);
    browser.List().Send(LVM_EDITLABELW, static_cast<WPARAM>(browser.List().FindRow(name)));
    browser.Person().WaitUntil("the name can be edited",
                               [&] { return browser.List().LabelEdit() && browser.List().LabelEdit().HasFocus(); });
    return browser.List().LabelEdit();
  }

  static void Press(const User& user, const std::vector<WORD>& keys) {
    for (const WORD key : keys) user.Key(key);
  }
  /// Keys that would end the dialog or leave the box.
  static void PressKeysOfDialogs(const User& user) {
    Press(user, {VK_RETURN, VK_ESCAPE, VK_TAB});
    user.Settle();
  }
};

TEST_F(BrowserCompositionsTest, AHalfWordThatIsGivenUpLeavesTheSelectionItsSay) {
  Run([](Browser& browser) {
    const Window box = SelectFolderAndGoToNames(browser);
    BeginComposition(box, "か");
    GiveCompositionUp(box);
    EXPECT_EQ(browser.Name(), "");
    browser.Person().Key(VK_RETURN);
    browser.Person().WaitUntil("the folder is open", [&] { return browser.Trail() == Texts({"data", "Sub"}); });
  });
}

TEST_F(BrowserCompositionsTest, ACompositionThatHasEndedIsTyped) {
  const Outcome outcome = Run([](Browser& browser) {
    const Window box = SelectFolderAndGoToNames(browser);
    BeginComposition(box, "b.mdl");
    EndComposition(box);
    browser.Person().Key(VK_RETURN);
    browser.Person().WaitUntil("the browser ends", [&] { return !browser.IsOpen(); });
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(BrowserCompositionsTest, TheNameBoxGetsItsMarkedTextBack) {
  Run([](Browser& browser) {
    browser.TypeName("b.mdl");
    const Window box = browser.NameEdit();
    box.Send(EM_SETSEL, 0, 1);
    BeginComposition(box, "かな");
    GiveCompositionUp(box);
    EXPECT_EQ(box.Text(), "b.mdl");
    EXPECT_EQ(box.TextSelection(), std::pair(0, 1));
  });
}

TEST_F(BrowserCompositionsTest, EnterEscAndTabOfACompositionStayInTheNameBox) {
  Run([](Browser& browser) {
    browser.TypeName("b");
    const Window box = browser.NameEdit();
    BeginComposition(box, "か");
    PressKeysOfDialogs(browser.Person());
    browser.Person().Key(VK_F5);
    ASSERT_TRUE(browser.IsOpen());
    EXPECT_TRUE(box.HasFocus());
    EXPECT_EQ(box.Text(), "bか");
    EndComposition(box);
    browser.Person().Key(VK_TAB);
    EXPECT_FALSE(box.HasFocus());
  });
}

TEST_F(BrowserCompositionsTest, AClickOnOkReadsNoHalfWord) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.TypeName("b.mdl");
    BeginComposition(browser.NameEdit(), "かn");
    browser.Ok();
    browser.Person().WaitUntil("the browser ends", [&] { return !browser.IsOpen(); });
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(BrowserCompositionsTest, KeysOfACompositionEndNoEditOfAName) {
  Run([](Browser& browser) {
    const Window label = EditLabel(browser, "b.mdl");
    BeginComposition(label, "か");
    PressKeysOfDialogs(browser.Person());
    ASSERT_TRUE(label.Exists() && label.HasFocus());
    EXPECT_EQ(World().calls.Count("files.Rename"), 0U);
    GiveCompositionUp(label);
    EXPECT_EQ(label.Text(), "b.mdl");
    EXPECT_EQ(label.TextSelection(), std::pair(0, 5));
    browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitUntil("the edit ends", [&] { return !browser.List().LabelEdit(); });
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(BrowserCompositionsTest, ACompositionInANameRenamesOnceAndWhenTheNameIsDone) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    const Window label = EditLabel(browser, "b.mdl");
    BeginComposition(label, "か.mdl");
    EndComposition(label);
    EXPECT_EQ(World().calls.Count("files.Rename"), 0U);
    user.Key(VK_RETURN);
    user.WaitUntil("the file is renamed", [&] { return browser.List().FindRow("か.mdl") >= 0; });
    user.Settle();
    EXPECT_EQ(World().calls.Count("files.Rename"), 1U);
  });
}

TEST_F(BrowserCompositionsTest, AClickElsewhereRenamesToNoHalfWord) {
  Run([](Browser& browser) {
    BeginComposition(EditLabel(browser, "b.mdl"), "かn");
    browser.ClickRow("Sub");
    browser.Person().WaitUntil("the edit ends", [&] { return !browser.List().LabelEdit(); });
    EXPECT_EQ(World().calls.Count("files.Rename"), 0U);
    EXPECT_GE(browser.List().FindRow("b.mdl"), 0);
  });
}

TEST_F(BrowserCompositionsTest, KeysOfACompositionOverTheListAreItsOwn) {
  Run([](Browser& browser) {
    browser.ClickRow("Sub");
    const driver::ListView list = browser.List();
    list.Send(WM_IME_STARTCOMPOSITION);
    PressKeysOfDialogs(browser.Person());
    Press(browser.Person(), {VK_BACK, VK_DOWN, VK_DELETE, VK_F2});
    ASSERT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.SelectedNames(), Texts{"Sub"});
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    list.Send(WM_IME_ENDCOMPOSITION);
    browser.Person().Key(VK_RETURN);
    browser.Person().WaitUntil("the folder is open", [&] { return browser.Trail() == Texts({"data", "Sub"}); });
  });
}

TEST_F(BrowserCompositionsTest, TheRenameDialogGetsItsMarkedTextBackAndStaysOpen) {
  Run([](Browser& browser) {
    browser.ClickRow("b.mdl");
    browser.Person().Key(VK_F2);
    const Window dialog = browser.Person().WaitDialog("名前の変更");
    const Window box = dialog.Child(IDC_FOLDER_NAME);
    browser.Person().WaitUntil("the name has the focus", [&] { return box.HasFocus(); });
    BeginComposition(box, "かな");
    PressKeysOfDialogs(browser.Person());
    ASSERT_TRUE(dialog.IsVisible() && box.HasFocus());
    GiveCompositionUp(box);
    EXPECT_EQ(box.Text(), "b.mdl");
    EXPECT_EQ(box.TextSelection(), std::pair(0, 5));
    browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitGone(dialog);
  });
}

}  // namespace
}  // namespace browser_test
