#include "dlglib/filedialog/titles/slow_sort_choice.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace filedialog;

constexpr int kOn = kOptionChecked;
constexpr int kOff = kOptionUnchecked;

TEST(SlowSort, EachModeChecksOneButton) {
  EXPECT_EQ(StatesOf(SlowSort::Always), (OptionStates{kOn, kOff, kOff}));
  EXPECT_EQ(StatesOf(SlowSort::NeverBeyondLimit), (OptionStates{kOff, kOn, kOff}));
  EXPECT_EQ(StatesOf(SlowSort::AskBeyondLimit), (OptionStates{kOff, kOff, kOn}));
}

TEST(SlowSort, AnyOtherModeAsks) {
  for (const int number : {3, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    const auto mode = static_cast<SlowSort>(number);
    EXPECT_EQ(StatesOf(mode), StatesOf(SlowSort::AskBeyondLimit)) << number;
    EXPECT_EQ(ModeOf(StatesOf(mode)), SlowSort::AskBeyondLimit) << number;
  }
}

TEST(SlowSort, TheUpperCheckedButtonDecides) {
  EXPECT_EQ(ModeOf({kOn, kOn, kOn}), SlowSort::Always);
  EXPECT_EQ(ModeOf({kOff, kOn, kOn}), SlowSort::NeverBeyondLimit);
  EXPECT_EQ(ModeOf({kOff, kOff, kOn}), SlowSort::AskBeyondLimit);
  EXPECT_EQ(ModeOf({kOff, kOff, kOff}), SlowSort::AskBeyondLimit);
  EXPECT_EQ(ModeOf({7, 1, kOff}), SlowSort::AskBeyondLimit);
}

TEST(SlowSort, AClickUnchecksTheOthers) {
  EXPECT_EQ(StatesAfterClick({kOn, kOff, kOn}, 0), StatesOf(SlowSort::Always));
  EXPECT_EQ(StatesAfterClick({kOn, kOn, kOff}, 1), StatesOf(SlowSort::NeverBeyondLimit));
  EXPECT_EQ(StatesAfterClick({kOn, kOn, kOn}, 2), StatesOf(SlowSort::AskBeyondLimit));
}

TEST(SlowSort, AButtonThatIsOnlyReachedChangesNothing) {
  EXPECT_EQ(StatesAfterClick({kOff, kOn, kOff}, 0), StatesOf(SlowSort::NeverBeyondLimit));
  EXPECT_EQ(StatesAfterClick({kOn, kOff, kOff}, 2), StatesOf(SlowSort::Always));
}

TEST(SlowSort, TenModelsAreTheLeastLimit) {
  EXPECT_FALSE(IsLargeEnough(LimitOf("9")));
  EXPECT_TRUE(IsLargeEnough(LimitOf("10")));
  EXPECT_FALSE(IsLargeEnough(LimitOf("")));
  EXPECT_FALSE(IsLargeEnough(LimitOf("-10")));
  EXPECT_FALSE(IsLargeEnough(LimitOf("x10")));
  EXPECT_TRUE(IsLargeEnough(LimitOf("99999999999999999999")));
  EXPECT_EQ(LimitOf("99999999999999999999"), std::numeric_limits<int>::max());
  EXPECT_EQ(LimitOf(" 12models"), 12);
}

TEST(SlowSort, LimitsAreShownAsTheyAre) {
  EXPECT_EQ(LimitText(1000), "1000");
  EXPECT_EQ(LimitText(-3), "-3");
  EXPECT_EQ(LimitText(0), "0");
  EXPECT_EQ(BeyondLimitText(1000), "モデルの数が制限 1000 を超えました。");
  EXPECT_EQ(BeyondLimitText(std::numeric_limits<int>::min()), "モデルの数が制限 -2147483648 を超えました。");
}

}  // namespace
