#include "dlglib/base/scale.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using geometry::Rect;
using geometry::Size;
using scale::Scale;

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

TEST(ScaleTest, NothingChangesAt96Dpi) {
  for (const int length : {kLeast, -20000, -1, 0, 1, 2, 3, 4, 16, 32, 767, 20000, kMost}) {
    EXPECT_EQ(Scale().ToScreen(length), length);
    EXPECT_EQ(Scale(96).ToScreen(length), length);
    EXPECT_EQ(Scale(96).FromScreen(length), length);
  }
  EXPECT_EQ(Scale(96).ToScreen(Size{3, 7}), (Size{3, 7}));
  EXPECT_EQ(Scale(96).FromScreen(Size{3, 7}), (Size{3, 7}));
}

TEST(ScaleTest, IconsTakeTheUsualSidesAtTheUsualScales) {
  constexpr struct {
    int dpi;
    int small;
    int large;
  } kSides[] = {{96, 16, 32}, {120, 20, 40}, {144, 24, 48}, {168, 28, 56}, {192, 32, 64}, {240, 40, 80}, {288, 48, 96}};
  for (const auto& sides : kSides) {
    EXPECT_EQ(Scale(sides.dpi).ToScreen(16), sides.small) << sides.dpi;
    EXPECT_EQ(Scale(sides.dpi).ToScreen(32), sides.large) << sides.dpi;
  }
}

TEST(ScaleTest, HalvesAreRoundedAwayFromZero) {
  EXPECT_EQ(Scale(144).ToScreen(1), 2);
  EXPECT_EQ(Scale(144).ToScreen(3), 5);
  EXPECT_EQ(Scale(144).ToScreen(-1), -2);
  EXPECT_EQ(Scale(144).ToScreen(-3), -5);
  EXPECT_EQ(Scale(120).ToScreen(1), 1);
  EXPECT_EQ(Scale(120).ToScreen(2), 3);
  EXPECT_EQ(Scale(192).FromScreen(1), 1);
  EXPECT_EQ(Scale(192).FromScreen(3), 2);
  EXPECT_EQ(Scale(192).FromScreen(-3), -2);
}

TEST(ScaleTest, ALengthComesBackFromTheScreenAsItWas) {
  for (int dpi = 96; dpi <= 288; ++dpi) {
    for (int length = -300; length <= 3000; ++length) {
      ASSERT_EQ(Scale(dpi).FromScreen(Scale(dpi).ToScreen(length)), length) << dpi;
    }
  }
}

TEST(ScaleTest, ALongerLengthNeverBecomesTheShorterOne) {
  for (int dpi = 96; dpi <= 288; ++dpi) {
    for (int length = -50; length <= 300; ++length) {
      ASSERT_LT(Scale(dpi).ToScreen(length), Scale(dpi).ToScreen(length + 1)) << dpi;
    }
  }
}

TEST(ScaleTest, DpiThatNoScreenHasCountAs96) {
  for (const int dpi : {kLeast, -96, 0, 1, 47, 961, 10000, kMost}) {
    EXPECT_EQ(Scale(dpi), Scale()) << dpi;
    EXPECT_EQ(Scale(dpi).ToScreen(16), 16) << dpi;
  }
  EXPECT_EQ(Scale(48).ToScreen(16), 8);
  EXPECT_EQ(Scale(960).ToScreen(16), 160);
}

TEST(ScaleTest, LengthsStopAtTheEndsOfAnInt) {
  EXPECT_EQ(Scale(960).ToScreen(kMost), kMost);
  EXPECT_EQ(Scale(960).ToScreen(kLeast), kLeast);
  EXPECT_EQ(Scale(48).FromScreen(kMost), kMost);
  EXPECT_EQ(scale::Rescaled(kMost, Scale(48), Scale(960)), kMost);
}

TEST(ScaleTest, ALineIsThereOnScreensOfFewerDots) {
  EXPECT_EQ(Scale(48).LineToScreen(0), 1);
  EXPECT_EQ(Scale(96).LineToScreen(1), 1);
  EXPECT_EQ(Scale(144).LineToScreen(1), 2);
  EXPECT_EQ(Scale(192).LineToScreen(1), 2);
  EXPECT_EQ(Scale(288).LineToScreen(1), 3);
}

TEST(ScaleTest, FromOneScreenToAnother) {
  EXPECT_EQ(scale::Rescaled(24, Scale(144), Scale(192)), 32);
  EXPECT_EQ(scale::Rescaled(32, Scale(192), Scale(96)), 16);
  EXPECT_EQ(scale::Rescaled(7, Scale(168), Scale(168)), 7);
  EXPECT_EQ(scale::Rescaled(Rect{1, 2, 3, 4}, Scale(96), Scale(192)), (Rect{2, 4, 6, 8}));
}

}  // namespace
