#include "dlglib/base/monitors.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using geometry::Rect;
using monitors::BroughtTo;
using monitors::DroppedFrom;
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

TEST(DroppedFrom, AListStaysWhereItLiesOnTheMonitorOfItsBox) {
  EXPECT_EQ(DroppedFrom({1000, 500, 1200, 520}, {1000, 520, 1200, 720}, kTwo), (Rect{1000, 520, 1200, 720}));
  EXPECT_EQ(DroppedFrom({1000, 900, 1200, 920}, {1000, 700, 1200, 900}, kTwo), (Rect{1000, 700, 1200, 900}));
}

TEST(DroppedFrom, AListThatReachesAnotherMonitorComesBackSideways) {
  EXPECT_EQ(DroppedFrom({1100, 500, 1260, 520}, {1100, 520, 1400, 720}, kTwo), (Rect{980, 520, 1280, 720}));
  EXPECT_EQ(DroppedFrom({1290, 500, 1400, 520}, {1270, 520, 1400, 720}, kTwo), (Rect{1280, 520, 1410, 720}));
  EXPECT_EQ(DroppedFrom({1000, 500, 1200, 520}, {1000, 520, 2500, 720}, kTwo), (Rect{0, 520, 1500, 720}))
      << "one that is wider begins at the side";
}

TEST(DroppedFrom, AListOnAnotherMonitorComesBelowItsBoxOrAboveIt) {
  const std::vector<Rect> below{{0, 0, 1280, 1024}, {0, 1024, 1280, 2048}};
  EXPECT_EQ(DroppedFrom({10, 1000, 200, 1020}, {10, 1020, 200, 1220}, below), (Rect{10, 800, 200, 1000}))
      << "no room below";
  EXPECT_EQ(DroppedFrom({10, 1030, 200, 1050}, {10, 830, 200, 1030}, below), (Rect{10, 1050, 200, 1250}))
      << "the system has taken the room of the other one";
  EXPECT_EQ(DroppedFrom({10, 500, 200, 520}, {10, 520, 200, 1120}, below), (Rect{10, 424, 200, 1024}))
      << "room neither below nor above";
  EXPECT_EQ(DroppedFrom({10, 500, 200, 520}, {10, 520, 200, 1920}, below), (Rect{10, 0, 200, 1400}));
}

TEST(DroppedFrom, ABoxOnTwoMonitorsHasItsListOnTheOneThatHasTheMostOfIt) {
  EXPECT_EQ(DroppedFrom({1200, 500, 1340, 520}, {1200, 520, 1340, 720}, kTwo), (Rect{1140, 520, 1280, 720}));
  EXPECT_EQ(DroppedFrom({1240, 500, 1340, 520}, {1240, 520, 1340, 720}, kTwo), (Rect{1280, 520, 1380, 720}));
}

TEST(DroppedFrom, WithOneMonitorOrNoneTheSystemsPlaceStays) {
  const Rect list{1200, 900, 1500, 1300};
  EXPECT_EQ(DroppedFrom({1200, 880, 1260, 900}, list, {{0, 0, 1280, 1024}}), list);
  EXPECT_EQ(DroppedFrom({1200, 880, 1260, 900}, list, {}), list);
  EXPECT_EQ(DroppedFrom({-900, 880, -800, 900}, list, kTwo), list) << "a box on no monitor";
}

}  // namespace
