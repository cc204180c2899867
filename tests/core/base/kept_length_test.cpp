#include "dlglib/base/kept_length.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using geometry::Rect;
using scale::KeptLength;
using scale::KeptRect;
using scale::Scale;

/// There and on to others, but never back to the first scale until the end.
constexpr int kWay[] = {144, 120, 168, 97, 288, 192, 250};

TEST(KeptLengthTest, ALengthComesBackByWhateverWay) {
  for (const int first : {96, 120, 144, 168, 192, 288}) {
    for (int length = -40; length <= 1200; ++length) {
      KeptLength kept;
      int now = length;
      Scale at(first);
      for (const int dpi : kWay) now = kept.Follow(now, std::exchange(at, Scale(dpi)), Scale(dpi));
      ASSERT_EQ(kept.Follow(now, at, Scale(first)), length) << first;
    }
  }
}

TEST(KeptLengthTest, ItIsRoundedOnce) {
  KeptLength kept;
  EXPECT_EQ(kept.Follow(5, Scale(96), Scale(144)), 8);
  EXPECT_EQ(kept.Follow(8, Scale(144), Scale(120)), 6) << "of 5, and not of 8";
  EXPECT_EQ(kept.Follow(6, Scale(120), Scale(96)), 5);
}

TEST(KeptLengthTest, AScreenOfFewerDotsLosesNothing) {
  KeptLength kept;
  EXPECT_EQ(kept.Follow(7, Scale(192), Scale(96)), 4);
  EXPECT_EQ(kept.Follow(4, Scale(96), Scale(192)), 7);
}

TEST(KeptLengthTest, WhatSomebodyElseHasGivenIsAFirstLength) {
  KeptLength kept;
  EXPECT_EQ(kept.Follow(100, Scale(96), Scale(144)), 150);
  EXPECT_EQ(kept.Follow(31, Scale(144), Scale(96)), 21);
  EXPECT_EQ(kept.Follow(21, Scale(96), Scale(144)), 31);
}

TEST(KeptLengthTest, ARectangleKeepsEachSide) {
  KeptRect kept;
  const Rect first{5, 7, 106, 33};
  const Rect larger = kept.Follow(first, Scale(96), Scale(144));
  EXPECT_EQ(larger, (Rect{8, 11, 159, 50}));
  const Rect between = kept.Follow(larger, Scale(144), Scale(120));
  EXPECT_EQ(between, (Rect{6, 9, 133, 41}));
  EXPECT_EQ(kept.Follow(between, Scale(120), Scale(96)), first);
}

}  // namespace
