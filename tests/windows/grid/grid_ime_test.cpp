// The state of the input method while a grid is edited, as the system keeps it.
#include <windows.h>

#include <imm.h>

#include <gtest/gtest.h>

#include "tests/windows/grid/grid_keyed.h"

namespace {

using driver::User;
using grid_test::Host;
using grid_test::HostKind;
using grid_test::kMaterial;
using grid_test::kName;
using grid_test::kNumber;

constexpr int kOff = 1;
constexpr int kHiragana = 2;
constexpr int kHalfWidthKatakana = 4;

struct Status {
  bool isOpen = false;
  DWORD conversion = 0;

  friend bool operator==(const Status&, const Status&) = default;
};

void PrintTo(const Status& status, std::ostream* out) {
  *out << (status.isOpen ? "open " : "closed ") << status.conversion;
}

constexpr Status kLetters = {false, 0};
constexpr Status kBefore = {true, IME_CMODE_FULLSHAPE};

class GridImeTest : public grid_test::KeyedGridTest {
 protected:
  /// Of the control that has the focus.
  [[nodiscard]] Status Now() {
    Status status;
    host_->Do([&] {
      const HWND focus = ::GetFocus();
      const HIMC context = ::ImmGetContext(focus);
      DWORD sentence = 0;
      status.isOpen = ::ImmGetOpenStatus(context) != FALSE;
      ::ImmGetConversionStatus(context, &status.conversion, &sentence);
      ::ImmReleaseContext(focus, context);
    });
    return status;
  }
  void Set(const Status& status) {
    host_->Do([&] {
      const HWND focus = ::GetFocus();
      const HIMC context = ::ImmGetContext(focus);
      ::ImmSetConversionStatus(context, status.conversion, 0);
      ::ImmSetOpenStatus(context, status.isOpen ? TRUE : FALSE);
      ::ImmReleaseContext(focus, context);
    });
  }
  void SetMode(int col, int mode) {
    host_->Do([&] { host_->list->SetImeMode(col, mode); });
  }
  void FocusOther(User& user) {
    host_->Do([&] { ::SetFocus(host_->Child(grid_test::kOther)); });
    user.Settle();
  }
};

INSTANTIATE_TEST_SUITE_P(Hosts, GridImeTest, testing::Values(HostKind::Framework, HostKind::Plain),
                         grid_test::NameOfHost);

TEST_P(GridImeTest, AColumnHasItsModeAndLeavingPutsBackWhatWasThere) {
  Use([&](User& user) {
    SetMode(kName, kHiragana);
    SetMode(kMaterial, kOff);
    FocusOther(user);
    Set(kBefore);
    ClickCell(user, 1, kName);
    EXPECT_EQ(Now(), (Status{true, IME_CMODE_NATIVE | IME_CMODE_FULLSHAPE}));
    user.Key(VK_TAB);
    EXPECT_FALSE(Now().isOpen);
    user.Key(VK_DOWN);
    EXPECT_FALSE(Now().isOpen);
    user.Key(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(Now().isOpen);
    FocusOther(user);
    EXPECT_EQ(Now(), kBefore);
  });
}

TEST_P(GridImeTest, AColumnWithoutAModePutsBackWhatWasThere) {
  Use([&](User& user) {
    SetMode(kMaterial, kHalfWidthKatakana);
    FocusOther(user);
    Set(kLetters);
    ClickCell(user, 1, kName);
    EXPECT_EQ(Now(), kLetters);
    user.Key(VK_TAB);
    EXPECT_EQ(Now(), (Status{true, IME_CMODE_NATIVE | IME_CMODE_KATAKANA}));
    user.Key(VK_TAB, {VK_SHIFT});
    EXPECT_FALSE(Now().isOpen);
    ClickCell(user, 2, kMaterial);
    EXPECT_TRUE(Now().isOpen);
    host_->Do([&] { host_->list->ClickItem(2, kNumber); });
    EXPECT_FALSE(Now().isOpen) << "no cell is edited";
  });
}

TEST_P(GridImeTest, AGridWithoutAModeNeverTouchesIt) {
  Use([&](User& user) {
    FocusOther(user);
    Set(kLetters);
    ClickCell(user, 1, kName);
    Set(kBefore);
    user.Key(VK_TAB);
    EXPECT_EQ(Now(), kBefore);
    FocusOther(user);
    EXPECT_EQ(Now(), kBefore) << "the user's own choice";
  });
}

TEST_P(GridImeTest, AModeIsInForceAtOnceAndGoesWithItsColumn) {
  Use([&](User& user) {
    FocusOther(user);
    Set(kBefore);
    ClickCell(user, 1, kName);
    SetMode(kName, kOff);
    EXPECT_FALSE(Now().isOpen);
    SetMode(kName, 0);
    EXPECT_EQ(Now(), kBefore);
    SetMode(kName, kOff);
    SetMode(kName, 77);
    EXPECT_EQ(Now(), kBefore) << "a number that is no mode";
    SetMode(-1, kOff);
    SetMode(5, kOff);
    SetMode(kName, kOff);
    host_->Do([&] { host_->list->SetColumn(kName, "品名", 3.0); });
    EXPECT_EQ(Now(), kBefore);
    host_->Do([&] { host_->list->SetEdit(kName, 0, 10, ""); });
    ClickCell(user, 1, kName);
    EXPECT_EQ(Now(), kBefore) << "SetColumn has forgotten the mode";
  });
}

TEST_P(GridImeTest, TheEndOfTheListPutsBackWhatWasThere) {
  Use([&](User& user) {
    SetMode(kName, kOff);
    FocusOther(user);
    Set(kBefore);
    ClickCell(user, 1, kName);
    EXPECT_FALSE(Now().isOpen);
    host_->Do([&] { host_->list->TermList(); });
    FocusOther(user);
    EXPECT_EQ(Now(), kBefore);
  });
}

}  // namespace
