// Fields that are checked when they are left, in the demo's window, under a Japanese input method.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "demo/input_checks_resource.h"
#include "demo/parts_table_resource.h"
#include "tests/windows/driver/accessible.h"
#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/input/typist.h"

namespace {

using driver::User;
using driver::Window;
using japanese_input::PressKeys;
using japanese_input::SwitchInputMethod;

class JapaneseDemo : public testing::Test {
 protected:
  JapaneseDemo(const std::string& window, const std::string& title)
      : demo_(std::string("\"") + DEMO_PROGRAM + "\" --home \"" + DEMO_HOME + "\" " + window), user_(demo_.Id()) {
    dialog_ = user_.WaitDialog(title);
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

  driver::ScreenReader reader_;  // before the program, so that what is drawn can be read
  driver::Program demo_;
  User user_;
  Window dialog_;
};

class JapaneseChecks : public JapaneseDemo {
 protected:
  JapaneseChecks() : JapaneseDemo("checks", "入力の確認") {}

  /// The message that the window draws.
  void WaitForMessage(const std::string& text) {
    user_.WaitUntil("the window says " + text, [&] {
      const auto parts = dialog_.Children();
      return std::ranges::any_of(parts, [&](const Window& part) { return part.Text() == text; });
    });
  }
};

TEST_F(JapaneseChecks, AFieldKeepsWhatWasComposedWhenItIsLeft) {
  const Window field = dialog_.Child(IDC_NAME).FindChildOfClass("Edit");
  GoTo(field);
  PressKeys("n i h o n g o space Return space Return");
  WaitForText(field, "日本語　");
  SwitchInputMethod(user_);
  PressKeys("End space space");
  WaitForText(field, "日本語　  ");
  PressKeys("Tab");
  user_.WaitUntil("the field is left", [&] { return !field.HasFocus(); });
  WaitForText(field, "日本語　");  // the blanks at its end go, and nothing of what was composed
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
  WaitForMessage("数値と尺度は半角文字で入力してください。");
  EXPECT_EQ(field.TextSelection(), std::pair(0, 2)) << "all of it is marked";
  EXPECT_EQ(field.Text(), "１２");
}

class JapaneseTable : public JapaneseDemo {
 protected:
  JapaneseTable() : JapaneseDemo("grid", "部品表") {}
};

// The column is for numbers: its cells begin with the input method switched off.
TEST_F(JapaneseTable, FullWidthDigitsInAColumnOfNumbersStayAndAreRefusedByTheCheck) {
  constexpr int kClass = 6;
  const driver::ListView list(dialog_.FindChildOfClass("SysListView32"));
  user_.Click(driver::Center(list.CellRect(1, kClass)));
  Window box;
  user_.WaitUntil("the cell is edited", [&] {
    for (const Window& child : dialog_.Children()) {
      if (child.ClassName() == "Edit" && child.IsVisible()) box = child;
    }
    return box && box.HasFocus();
  });
  SwitchInputMethod(user_);
  PressKeys("1 2 F9 Return");
  WaitForText(box, "１２");
  user_.Click(dialog_.Child(IDC_CHECK_PARTS));
  WaitForText(dialog_.Child(IDC_PARTS_MESSAGE), "無効なクラス番号です 2 : １２");
}

}  // namespace
