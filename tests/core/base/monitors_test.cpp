#include "dlglib/base/monitors.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using geometry::Rect;
using monitors::BroughtTo;
using monitors::Under;

const std::vector<Rect> kTwo{{0, 0, 1280, 1024}, {1280, -200, 1280 + 2560, 1400}};

TEST(MonitorsTest, TheFirstOfThoseThatHaveTheMostCounts) {
  const Rect half{1180, 100, 1380, 200};
  EXPECT_EQ(Under(half, kTwo), kTwo.data());
  EXPECT_EQ(Under({1181, 100, 1381, 200}, kTwo), kTwo.data() + 1);
  EXPECT_EQ(Under({-500, 0, -1, 100}, kTwo), nullptr);
  EXPECT_EQ(Under(half, {}), nullptr);
}

TEST(MonitorsTest, AnyNumbersCanBeCompared) {
  constexpr int kLeast = std::numeric_limits<int>::min();
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_EQ(Under({kLeast, kLeast, kMost, kMost}, kTwo), kTwo.data() + 1);
  EXPECT_EQ(BroughtTo({0, 0, 10, 10}, {kMost - 10, 5, kMost, 10}, kTwo), (Rect{1270, 5, 1280, 10}));
}

TEST(OnMonitorOf, ABalloonStaysOnTheMonitorOfItsOwner) {
  const Rect owner{900, 100, 1270, 500};
  EXPECT_EQ(BroughtTo(owner, {1200, 80, 1400, 100}, kTwo), (Rect{1080, 80, 1280, 100}));
  EXPECT_EQ(BroughtTo(owner, {1000, -15, 1200, 5}, kTwo), (Rect{1000, 0, 1200, 20}));
  EXPECT_EQ(BroughtTo(owner, {1000, 80, 1200, 100}, kTwo), (Rect{1000, 80, 1200, 100}));
  EXPECT_EQ(BroughtTo(owner, {-10, 80, 2000, 100}, kTwo), (Rect{0, 80, 2010, 100}));
}

TEST(OnMonitorOf, OnASingleMonitorItKeepsItsPlace) {
  const std::vector<Rect> one{{0, 0, 1280, 1024}};
  EXPECT_EQ(BroughtTo({900, 100, 1270, 500}, {1200, 80, 1400, 100}, one), (Rect{1200, 80, 1400, 100}));
  EXPECT_EQ(BroughtTo({900, 100, 1270, 500}, {1200, 80, 1400, 100}, {}), (Rect{1200, 80, 1400, 100}));
  EXPECT_EQ(BroughtTo({-900, 100, -700, 500}, {1200, 80, 1400, 100}, kTwo), (Rect{1200, 80, 1400, 100}));
}

}  // namespace
