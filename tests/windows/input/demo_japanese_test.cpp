// Fields that are checked when they are left, in the demo's window, under a Japanese input method.
#include <gtest/gtest.h>

#include <string>

#include "demo/input_checks_resource.h"
#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/input/typist.h"

namespace {

using driver::User;
using driver::Window;
using japanese_input::PressKeys;
using japanese_input::SwitchInputMethod;

class JapaneseChecks : public testing::Test {
 protected:
  JapaneseChecks()
      : demo_(std::string("\"") + DEMO_PROGRAM + "\" --home \"" + DEMO_HOME + "\" checks"), user_(demo_.Id()) {
    dialog_ = user_.WaitDialog("入力の確認");
    user_.WaitUntil("the window is in front", [this] { return dialog_.IsForeground(); });
  }
  void SetUp() override { ASSERT_TRUE(japanese_input::ServerIsThere()); }
  void TearDown() override {
    ::PostMessageW(dialog_.Handle(), WM_CLOSE, 0, 0);
    static_cast<void>(demo_.WaitForEnd());
  }

  void GoTo(const Window& field) {
    user_.Click(field);
    user_.WaitUntil("the field has the focus", [&] { return field.HasFocus(); });
    SwitchInputMethod(user_);
  }
  void WaitForText(const Window& field, const std::string& text) {
    japanese_input::WaitForText(
        user_, [&] { return field.Text(); }, text);
  }

  driver::Program demo_;
  User user_;
  Window dialog_;
};

TEST_F(JapaneseChecks, AFieldKeepsWhatWasComposedWhenItIsLeft) {
  const Window field = dialog_.Child(IDC_NAME).FindChildOfClass("Edit");
  GoTo(field);
  PressKeys("n i h o n g o space Return space Return");
  WaitForText(field, "日本語　");
  PressKeys("Tab");
  user_.WaitUntil("the field is left", [&] { return !field.HasFocus(); });
  EXPECT_EQ(field.Text(), "日本語　");
}

// Where compositions are shown over the box it never holds half a word.
TEST_F(JapaneseChecks, AFieldThatIsLeftInTheMiddleOfAWordKeepsItsText) {
  const Window field = dialog_.Child(IDC_SCALE);
  GoTo(field);
  PressKeys("n i h o n g o space Return");
  WaitForText(field, "日本語");
  PressKeys("k a t a");
  if (japanese_input::ShowsInTheBox()) WaitForText(field, "日本語かた");
  user_.Click(dialog_.Child(IDC_REAL));
  user_.WaitUntil("the field is left", [&] { return !field.HasFocus(); });
  user_.Settle();
  EXPECT_EQ(field.Text(), "日本語");
}

TEST_F(JapaneseChecks, FullWidthDigitsAreNoNumber) {
  const Window field = dialog_.Child(IDC_NUMBER);
  GoTo(field);
  PressKeys("1 2 F9 Return");
  WaitForText(field, "１２");
  user_.WaitUntil("they are committed", [&] { return field.TextSelection() == std::pair(2, 2); });
  PressKeys("Return");
  user_.WaitUntil("the field is refused", [&] { return field.TextSelection() == std::pair(0, 2); });
  EXPECT_EQ(field.Text(), "１２");
}

}  // namespace
