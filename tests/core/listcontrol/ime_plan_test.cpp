#include "dlglib/listcontrol/ime_plan.h"

#include <gtest/gtest.h>

#include "platform/os/composed_text.h"

namespace {

using grid::ImeMode;
using grid::ImePlan;
using grid::ImeStatus;

// Bits of the platform: 1 native, 2 katakana, 8 full width, 16 typed in Latin letters.
constexpr ImeStatus kHiragana = {true, 0x19};
constexpr ImeStatus kClosed = {false, 0x10};

TEST(ImeModes, ChangeWhatTheySpeakOf) {
  EXPECT_EQ(WithMode(kHiragana, ImeMode::AsItIs), kHiragana);
  EXPECT_EQ(WithMode(kHiragana, ImeMode::Off), (ImeStatus{false, 0x19}));
  EXPECT_EQ(WithMode(kClosed, ImeMode::Hiragana), (ImeStatus{true, 0x19}));
  EXPECT_EQ(WithMode(kClosed, ImeMode::FullWidthKatakana), (ImeStatus{true, 0x1B}));
  EXPECT_EQ(WithMode(kHiragana, ImeMode::HalfWidthKatakana), (ImeStatus{true, 0x13}));
  EXPECT_EQ(WithMode(kHiragana, ImeMode::FullWidthLetters), (ImeStatus{true, 0x18}));
}

TEST(ImeModes, AreKeptForEachColumn) {
  ImePlan plan;
  EXPECT_FALSE(plan.HasModes());
  plan.SetMode(3, 2);
  EXPECT_TRUE(plan.HasModes());
  EXPECT_EQ(plan.ModeOf(3), ImeMode::Hiragana);
  EXPECT_EQ(plan.ModeOf(2), ImeMode::AsItIs);
  plan.SetMode(3, 6);
  EXPECT_EQ(plan.ModeOf(3), ImeMode::AsItIs) << "no such mode";
  plan.SetMode(3, -1);
  plan.SetMode(-1, 1);
  plan.SetMode(20, 1);
  EXPECT_EQ(plan.ModeOf(-1), ImeMode::AsItIs);
  EXPECT_EQ(plan.ModeOf(20), ImeMode::AsItIs);
  EXPECT_FALSE(plan.HasModes());
}

class ImeOfAGrid : public testing::Test {
 protected:
  ImeOfAGrid() {
    plan_.SetMode(1, 1);
    plan_.SetMode(2, 2);
  }
  /// A cell of the column; each time in another row.
  void Enter(int column) { Touch(plan_.EnterCell({++row_, column}, now_)); }
  void EnterSameCell(int column) { Touch(plan_.EnterCell({row_, column}, now_)); }
  void Leave() { Touch(plan_.Leave()); }
  void Touch(const std::optional<ImeStatus>& wanted) {
    touched_ = wanted.has_value();
    if (wanted) now_ = *wanted;
  }

  ImePlan plan_;
  ImeStatus now_ = kHiragana;
  bool touched_ = false;
  int row_ = 0;
};

TEST_F(ImeOfAGrid, ComesBackWhenTheGridIsLeft) {
  Enter(1);
  EXPECT_FALSE(now_.isOpen);
  Leave();
  EXPECT_EQ(now_, kHiragana);
  Leave();
  EXPECT_FALSE(touched_);
}

TEST_F(ImeOfAGrid, ComesBackInAColumnWithoutAMode) {
  now_ = kClosed;
  Enter(0);
  EXPECT_FALSE(touched_);
  Enter(2);
  EXPECT_EQ(now_, kHiragana);
  Enter(1);
  EXPECT_FALSE(now_.isOpen);
  Enter(0);
  EXPECT_EQ(now_, kClosed);
  Leave();
  EXPECT_EQ(now_, kClosed);
}

TEST_F(ImeOfAGrid, ComesBackWhateverTheUserHasSwitched) {
  Enter(0);
  now_ = kClosed;
  Enter(3);
  EXPECT_EQ(now_, kHiragana) << "from one column without a mode to another";
  now_ = kClosed;
  Leave();
  EXPECT_EQ(now_, kHiragana) << "where no mode was ever in force";
}

TEST_F(ImeOfAGrid, IsTheUsersWithinACell) {
  for (const int column : {0, 1}) {
    Enter(column);
    now_ = {true, 0x13};
    EnterSameCell(column);
    EXPECT_FALSE(touched_) << column;
  }
  plan_.SetMode(1, 3);
  EnterSameCell(1);
  EXPECT_TRUE(touched_) << "another mode is in force at once";
  Leave();
  EnterSameCell(1);
  EXPECT_TRUE(touched_) << "and when the grid is entered anew";
}

TEST_F(ImeOfAGrid, IsNotTouchedWhereItIsRightAlready) {
  Enter(2);
  EXPECT_FALSE(touched_);
  Leave();
  EXPECT_EQ(now_, kHiragana);
}

TEST(Compositions, AreGivenUpWhenNothingButTheMarkedTextHasGone) {
  const os::ComposedText marked{L"部品1", 0, 2};
  EXPECT_TRUE(os::IsGivenUp(marked, L"1"));
  EXPECT_FALSE(os::IsGivenUp(marked, L"かな1"));
  EXPECT_FALSE(os::IsGivenUp(marked, L"2"));
  EXPECT_FALSE(os::IsGivenUp(marked, L"部品1"));
  const os::ComposedText caret{L"部品1", 2, 2};
  EXPECT_TRUE(os::IsGivenUp(caret, L"部品1"));
  EXPECT_FALSE(os::IsGivenUp(caret, L"部品か1"));
  EXPECT_TRUE(os::IsGivenUp({L"", 0, 0}, L""));
  EXPECT_FALSE(os::IsGivenUp({L"あ", 0, 9}, L"あ")) << "a mark behind the end ends with the text";
}

}  // namespace
