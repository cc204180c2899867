// The browser and its dialogs under a Japanese input method, in whichever place it shows its compositions.
#include <gtest/gtest.h>

#include "dlglib/resources/resource.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/input/typist.h"

namespace browser_test {
namespace {

using driver::User;
using driver::Window;
using japanese_input::PressKeys;
using japanese_input::SwitchInputMethod;

class JapaneseBrowser : public BrowserTest {
 protected:
  void SetUp() override { ASSERT_TRUE(japanese_input::ServerIsThere()); }

  static void WaitForText(const User& user, const Window& box, const std::string& text) {
    japanese_input::WaitForText(
        user, [&] { return box.Text(); }, text);
  }
  static void WaitForFocus(const User& user, const Window& box) {
    user.WaitUntil("the box has the focus", [&] { return box.HasFocus(); });
    user.Hover(box);
    SwitchInputMethod(user);
  }
};

TEST_F(JapaneseBrowser, TheNameBoxKeepsTheKeysOfACompositionToItself) {
  World().files.AddFile("C:\\data\\日本語.mdl", "x");
  const Outcome outcome = Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.Person().Click(browser.NameEdit());
    WaitForFocus(user, browser.NameEdit());
    PressKeys("k a Escape n i h o n g o space Return");
    WaitForText(user, browser.NameEdit(), "日本語");
    EXPECT_TRUE(browser.IsOpen());
    PressKeys("Return");
    user.WaitUntil("the browser ends", [&] { return !browser.IsOpen(); });
  });
  EXPECT_EQ(outcome.result, "C:\\data\\日本語.MDL");
}

TEST_F(JapaneseBrowser, ACompositionThatIsGivenUpLeavesTheSelectionItsSay) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.ClickRow("Sub");
    user.Key(VK_F6);
    WaitForFocus(user, browser.NameEdit());
    PressKeys("k a Escape Return");
    user.WaitUntil("the folder is open", [&] { return browser.Trail() == Texts({"data", "Sub"}); });
  });
}

TEST_F(JapaneseBrowser, AMarkedNameComesBackWhenTheCompositionIsGivenUp) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.TypeName("b.mdl");
    WaitForFocus(user, browser.NameEdit());
    user.Key(VK_HOME);
    user.Key(VK_END, {VK_SHIFT});
    PressKeys("n i Escape");
    SwitchInputMethod(user);
    PressKeys("End x");
    WaitForText(user, browser.NameEdit(), "b.mdlx");
  });
}

TEST_F(JapaneseBrowser, ANameIsEditedInPlace) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.ClickRow("b.mdl");
    browser.List().Send(LVM_EDITLABELW, static_cast<WPARAM>(browser.List().FindRow("b.mdl")));
    user.WaitUntil("the name can be edited", [&] { return static_cast<bool>(browser.List().LabelEdit()); });
    const Window label = browser.List().LabelEdit();
    WaitForFocus(user, label);
    user.Key(VK_HOME);
    PressKeys("k a Escape n i h o n g o space Return");
    WaitForText(user, label, "日本語b.mdl");
    EXPECT_TRUE(label.HasFocus());
    EXPECT_EQ(World().calls.Count("files.Rename"), 0U);
    PressKeys("Return");
    user.WaitUntil("the file is renamed", [&] { return browser.SelectedNames() == Texts{"日本語b.mdl"}; });
  });
}

TEST_F(JapaneseBrowser, AFolderIsNamed) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    user.Key('N', {VK_MENU});
    const Window dialog = user.WaitDialog("新しいフォルダの作成");
    const Window box = dialog.Child(IDC_FOLDER_NAME);
    WaitForFocus(user, box);
    PressKeys("k a Escape n i h o n g o space Return");
    WaitForText(user, box, "日本語");
    EXPECT_TRUE(dialog.IsVisible());
    PressKeys("Return");
    user.WaitGone(dialog);
    user.WaitUntil("the folder is selected", [&] { return browser.SelectedNames() == Texts{"日本語"}; });
  });
}

TEST_F(JapaneseBrowser, AFileIsRenamed) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    browser.ClickRow("b.mdl");
    user.Key(VK_F2);
    const Window dialog = user.WaitDialog("名前の変更");
    const Window box = dialog.Child(IDC_FOLDER_NAME);
    WaitForFocus(user, box);
    PressKeys("n i Escape");
    user.Key(VK_HOME);
    PressKeys("n i h o n g o space Return");
    WaitForText(user, box, "日本語b.mdl");
    PressKeys("Return");
    user.WaitGone(dialog);
    user.WaitUntil("the file is renamed", [&] { return browser.List().FindRow("日本語b.mdl") >= 0; });
  });
}

TEST_F(JapaneseBrowser, WhatIsComposedOverTheListLooksARowUp) {
  World().files.AddFile("C:\\data\\日光.mdl", "x");
  World().files.AddFile("C:\\data\\日本.mdl", "x");
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.ClickRow("Sub");
    SwitchInputMethod(user);
    PressKeys("k a Escape n i h o n n space Return");
    user.WaitUntil("the row is selected", [&] { return browser.SelectedNames() == Texts{"日本.mdl"}; });
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

}  // namespace
}  // namespace browser_test
