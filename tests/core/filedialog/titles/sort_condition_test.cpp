#include "dlglib/filedialog/titles/sort_condition.h"

#include <gtest/gtest.h>

#include <limits>

#include "dlglib/filedialog/listing/entry_order.h"

namespace {

using namespace filedialog;

constexpr int kOn = kOptionChecked;
constexpr int kOff = kOptionUnchecked;

TEST(SortCondition, EachModeChecksOneButton) {
  EXPECT_EQ(StatesOf(kSortAlways), (OptionStates{kOn, kOff, kOff}));
  EXPECT_EQ(StatesOf(kSortNeverBeyondLimit), (OptionStates{kOff, kOn, kOff}));
  EXPECT_EQ(StatesOf(kSortAskBeyondLimit), (OptionStates{kOff, kOff, kOn}));
}

TEST(SortCondition, AnyOtherModeAsks) {
  for (const int mode : {3, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_EQ(StatesOf(mode), StatesOf(kSortAskBeyondLimit)) << mode;
    EXPECT_EQ(ModeOf(StatesOf(mode)), kSortAskBeyondLimit) << mode;
  }
}

TEST(SortCondition, TheUpperCheckedButtonDecides) {
  EXPECT_EQ(ModeOf({kOn, kOn, kOn}), kSortAlways);
  EXPECT_EQ(ModeOf({kOff, kOn, kOn}), kSortNeverBeyondLimit);
  EXPECT_EQ(ModeOf({kOff, kOff, kOn}), kSortAskBeyondLimit);
  EXPECT_EQ(ModeOf({kOff, kOff, kOff}), kSortAskBeyondLimit);
  EXPECT_EQ(ModeOf({7, 1, kOff}), kSortAskBeyondLimit);
}

TEST(SortCondition, AClickUnchecksTheOthers) {
  EXPECT_EQ(StatesAfterClick({kOn, kOff, kOn}, 0), StatesOf(kSortAlways));
  EXPECT_EQ(StatesAfterClick({kOn, kOn, kOff}, 1), StatesOf(kSortNeverBeyondLimit));
  EXPECT_EQ(StatesAfterClick({kOn, kOn, kOn}, 2), StatesOf(kSortAskBeyondLimit));
}

TEST(SortCondition, AButtonThatIsOnlyReachedChangesNothing) {
  EXPECT_EQ(StatesAfterClick({kOff, kOn, kOff}, 0), StatesOf(kSortNeverBeyondLimit));
  EXPECT_EQ(StatesAfterClick({kOn, kOff, kOff}, 2), StatesOf(kSortAlways));
}

TEST(SortCondition, TenModelsAreTheLeastLimit) {
  EXPECT_FALSE(IsLargeEnough(LimitOf("9")));
  EXPECT_TRUE(IsLargeEnough(LimitOf("10")));
  EXPECT_FALSE(IsLargeEnough(LimitOf("")));
  EXPECT_FALSE(IsLargeEnough(LimitOf("-10")));
  EXPECT_FALSE(IsLargeEnough(LimitOf("x10")));
  EXPECT_TRUE(IsLargeEnough(LimitOf("99999999999999999999")));
  EXPECT_EQ(LimitOf("99999999999999999999"), std::numeric_limits<int>::max());
  EXPECT_EQ(LimitOf(" 12models"), 12);
}

TEST(SortCondition, LimitsAreShownAsTheyAre) {
  EXPECT_EQ(LimitText(1000), "1000");
  EXPECT_EQ(LimitText(-3), "-3");
  EXPECT_EQ(LimitText(0), "0");
  EXPECT_EQ(BeyondLimitText(1000), "モデルの数が制限 1000 を超えました。");
  EXPECT_EQ(BeyondLimitText(std::numeric_limits<int>::min()), "モデルの数が制限 -2147483648 を超えました。");
}

}  // namespace
