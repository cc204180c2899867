// The grid under a Japanese input method, in whichever place it shows its compositions.
#include <gtest/gtest.h>

#include "platform/os/os_scripted.h"
#include "tests/windows/grid/grid_keyed.h"
#include "tests/windows/input/typist.h"

namespace {

using driver::User;
using grid_test::CellPoint;
using grid_test::Edited;
using grid_test::HostKind;
using grid_test::kMaterial;
using grid_test::kName;
using grid_test::kNumber;
using japanese_input::PressKeys;
using japanese_input::SwitchInputMethod;

class JapaneseGrid : public grid_test::KeyedGridTest {
 protected:
  void SetUp() override { ASSERT_TRUE(japanese_input::ServerIsThere()); }

  void EditCell(User& user, int row, int col) {
    ClickCell(user, row, col);
    SwitchInputMethod(user);
  }
  void WaitForText(const User& user, int row, int col, const std::string& text) {
    japanese_input::WaitForText(
        user, [&] { return host_->Text(row, col); }, text);
  }
  void WaitForBox(const User& user, const std::string& text) {
    japanese_input::WaitForText(
        user, [&] { return host_->EditBox().Text(); }, text);
  }
};

INSTANTIATE_TEST_SUITE_P(Hosts, JapaneseGrid, testing::Values(HostKind::Framework, HostKind::Plain),
                         grid_test::NameOfHost);

TEST_P(JapaneseGrid, TheFirstKeyOverTheListIsNotLost) {
  Use([&](User& user) {
    user.MoveTo(CellPoint(*host_, 2, kName));
    host_->Do([&] {
      host_->list->ClickItem(2, kNumber);
      ::SetFocus(host_->Child(grid_test::kList));
    });
    SwitchInputMethod(user);
    PressKeys("n i h o n g o space Return");
    WaitForText(user, 2, kName, "日本語");
    EXPECT_EQ(EditedCell(), Edited(2, kName));
    EXPECT_TRUE(host_->EditBox().HasFocus());
  });
}

TEST_P(JapaneseGrid, EnterCommitsTheCompositionOnly) {
  Use([&](User& user) {
    EditCell(user, 1, kName);
    PressKeys("n i h o n g o space Return");
    WaitForText(user, 1, kName, "日本語");
    EXPECT_EQ(EditedCell(), Edited(1, kName));
    PressKeys("Return");
    user.WaitUntil("the next cell is edited", [&] { return EditedCell() != Edited(1, kName); });
    EXPECT_EQ(host_->Text(1, kName), "日本語");
  });
}

TEST_P(JapaneseGrid, EscGivesTheCompositionUpOnly) {
  Use([&](User& user) {
    EditCell(user, 1, kName);
    PressKeys("n i");
    if (japanese_input::ShowsInTheBox()) WaitForBox(user, "に");
    PressKeys("Escape");
    WaitForBox(user, "部品1");
    EXPECT_EQ(host_->Text(1, kName), "部品1");
    EXPECT_EQ(EditedCell(), Edited(1, kName));
    PressKeys("k a Return");
    WaitForText(user, 1, kName, "か");
    EXPECT_EQ(EditedCell(), Edited(1, kName));
    PressKeys("Escape");
    WaitForText(user, 1, kName, "部品1");
    WaitForBox(user, "部品1");
    EXPECT_TRUE(host_->EditBox().HasFocus());
    PressKeys("Escape");
    user.WaitUntil("the next one ends the dialog", [&] { return host_->Handle() == nullptr; });
  });
}

TEST_P(JapaneseGrid, AnOpenCompositionIsNoTextYet) {
  Use([&](User& user) {
    EditCell(user, 1, kName);
    PressKeys("k a Return");
    WaitForText(user, 1, kName, "か");
    PressKeys("n i");
    if (japanese_input::ShowsInTheBox()) {
      WaitForBox(user, "かに");
      EXPECT_EQ(host_->Text(1, kName), "か");
    }
    PressKeys("Escape");
    SwitchInputMethod(user);
    PressKeys("End x");
    WaitForText(user, 1, kName, "かx");
  });
}

TEST_P(JapaneseGrid, NoMoreBytesGetInThanTheCellHolds) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetItemText(1, kName, "部品部品部"); });
    EditCell(user, 1, kName);
    user.Key(VK_END);
    static_cast<void>(TakeBeeps());
    PressKeys("n i h o n g o space Return");
    WaitForText(user, 1, kName, "部品部品部日");
    user.WaitUntil("what is too long is refused", [] { return TakeBeeps() > 0; });
    WaitForBox(user, "部品部品部日");
  });
}

TEST_P(JapaneseGrid, HalfWidthKatakanaGetOnlyIntoColumnsThatTakeThem) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetEditMode(kName, 0); });
    EditCell(user, 1, kMaterial);
    PressKeys("k a F8 Return");
    WaitForText(user, 1, kMaterial, "ｶ");
    ClickCell(user, 2, kName);
    user.Key(VK_END);
    PressKeys("k a F8 Return");
    SwitchInputMethod(user);
    PressKeys("x");
    WaitForText(user, 2, kName, "部品2x");
  });
}

TEST_P(JapaneseGrid, FullWidthDigitsStayAsTheyAreTyped) {
  Use([&](User& user) {
    EditCell(user, 1, kMaterial);
    PressKeys("1 2 F9 Return");
    WaitForText(user, 1, kMaterial, "１２");
  });
}

}  // namespace
