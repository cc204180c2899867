#include "dlglib/filedialog/window_layout.h"

#include <gtest/gtest.h>

#include <limits>

#include "dlglib/resources/resource.h"

namespace {

using namespace filedialog;

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

// --------------------------------------------------------------------------------------------------- placement

constexpr Size kScreen{1280, 1024};
constexpr Size kTemplate{550, 340};

TEST(PlaceWindow, APositionOfZeroCentresTheWindow) {
  EXPECT_EQ(PlaceWindow(kTemplate, {0, 0}, {0, 0}, kScreen), (Rect{365, 342, 915, 682}));
  EXPECT_EQ(PlaceWindow(kTemplate, {0, 0}, {800, 601}, kScreen), (Rect{240, 211, 1040, 812}));
}

TEST(PlaceWindow, OneCoordinateOfZeroIsAPosition) {
  EXPECT_EQ(PlaceWindow(kTemplate, {0, 1}, {0, 0}, kScreen), (Rect{0, 1, 550, 341}));
  EXPECT_EQ(PlaceWindow(kTemplate, {7, 0}, {0, 0}, kScreen), (Rect{7, 0, 557, 340}));
}

TEST(PlaceWindow, AnyOtherPositionIsTakenExactly) {
  for (const Point at : {Point{100, 50}, Point{-300, -200}, Point{1279, 1023}, Point{5000, 5000}, Point{-32000, 3}}) {
    const Rect placed = PlaceWindow(kTemplate, at, {600, 400}, kScreen);
    EXPECT_EQ(placed, (Rect{at.x, at.y, at.x + 600, at.y + 400}));
  }
}

TEST(PlaceWindow, ASmallerSavedSizeIsRaised) {
  EXPECT_EQ(PlaceWindow(kTemplate, {1, 1}, {549, 339}, kScreen), (Rect{1, 1, 551, 341}));
  EXPECT_EQ(PlaceWindow(kTemplate, {1, 1}, {700, 10}, kScreen), (Rect{1, 1, 701, 341}));
  EXPECT_EQ(PlaceWindow(kTemplate, {1, 1}, {-700, kSmallest}, kScreen), (Rect{1, 1, 551, 341}));
}

TEST(PlaceWindow, ALargerSavedSizeIsCutToTheScreen) {
  EXPECT_EQ(PlaceWindow(kTemplate, {0, 0}, {1281, 1025}, kScreen), (Rect{0, 0, 1280, 1024}));
  EXPECT_EQ(PlaceWindow(kTemplate, {10, 20}, {kLargest, kLargest}, kScreen), (Rect{10, 20, 1290, 1044}));
  EXPECT_EQ(PlaceWindow(kTemplate, {0, 0}, {1280, 1024}, kScreen), (Rect{0, 0, 1280, 1024}));
}

TEST(PlaceWindow, ASmallScreenCutsTheTemplatesSizeToo) {
  EXPECT_EQ(PlaceWindow(kTemplate, {0, 0}, {0, 0}, {320, 240}), (Rect{0, 0, 320, 240}));
}

TEST(PlaceWindow, EveryPositionCanBeCounted) {
  const Rect far = PlaceWindow(kTemplate, {kLargest, kLargest}, {0, 0}, kScreen);
  EXPECT_EQ(far.width(), 550);
  EXPECT_EQ(far.height(), 340);
  EXPECT_EQ(far.right, kLargest);
  EXPECT_EQ(PlaceWindow(kTemplate, {kSmallest, kSmallest}, {0, 0}, kScreen).left, kSmallest);
}

// ------------------------------------------------------------------------------------------------------ controls

TEST(AnchorOf, EveryControlHasItsWayToFollow) {
  struct Case {
    int id;
    Anchor anchor;
  };
  const Case cases[] = {{IDC_LOCATION_LABEL, Anchor::TopLeft},
                        {IDC_LOCATION, Anchor::TopWide},
                        {IDC_BACK, Anchor::TopRight},
                        {IDC_UP, Anchor::TopRight},
                        {IDC_CREATE_FOLDER, Anchor::TopRight},
                        {IDC_VIEW, Anchor::TopRight},
                        {IDC_FILE_LIST, Anchor::All},
                        {IDC_NAME_LABEL, Anchor::BottomLeft},
                        {IDC_RECENT_COUNT, Anchor::BottomLeft},
                        {IDC_FILE_NAME, Anchor::BottomWide},
                        {IDC_KIND_LABEL, Anchor::BottomLeft},
                        {IDC_FILE_KIND, Anchor::BottomWide},
                        {1, Anchor::BottomRight},
                        {2, Anchor::BottomRight}};
  for (const Case& control : cases) EXPECT_EQ(AnchorOf(control.id), control.anchor) << control.id;
}

TEST(AnchorOf, OtherNumbersAreNoControls) {
  for (const int id : {0, -1, 3, 10007, 10011, 10046, kLargest}) EXPECT_EQ(AnchorOf(id), std::nullopt) << id;
}

constexpr Rect kStart{10, 20, 110, 220};

TEST(Anchored, WithoutGrowthNothingMoves) {
  for (int i = 0; i <= static_cast<int>(Anchor::All); ++i) {
    EXPECT_EQ(Anchored(kStart, static_cast<Anchor>(i), {0, 0}), kStart) << i;
  }
}

TEST(Anchored, EachAnchorFollowsInItsWay) {
  const Size growth{5, 7};
  EXPECT_EQ(Anchored(kStart, Anchor::TopLeft, growth), (Rect{10, 20, 110, 220}));
  EXPECT_EQ(Anchored(kStart, Anchor::TopRight, growth), (Rect{15, 20, 115, 220}));
  EXPECT_EQ(Anchored(kStart, Anchor::BottomLeft, growth), (Rect{10, 27, 110, 227}));
  EXPECT_EQ(Anchored(kStart, Anchor::BottomRight, growth), (Rect{15, 27, 115, 227}));
  EXPECT_EQ(Anchored(kStart, Anchor::TopWide, growth), (Rect{10, 20, 115, 220}));
  EXPECT_EQ(Anchored(kStart, Anchor::BottomWide, growth), (Rect{10, 27, 115, 227}));
  EXPECT_EQ(Anchored(kStart, Anchor::All, growth), (Rect{10, 20, 115, 227}));
}

TEST(Anchored, ShrinkingEndsAtNothing) {
  EXPECT_EQ(Anchored(kStart, Anchor::All, {-40, -50}), (Rect{10, 20, 70, 170}));
  EXPECT_EQ(Anchored(kStart, Anchor::All, {-1000, -1000}), (Rect{10, 20, 10, 20}));
  EXPECT_EQ(Anchored(kStart, Anchor::BottomRight, {-15, -25}), (Rect{-5, -5, 95, 195}));
}

// --------------------------------------------------------------------------------------------------- button row

TEST(RowEndingAt, EachImageEndsTwoPixelsLeftOfTheNext) {
  const std::vector<Rect> row = RowEndingAt(500, 10, {{24, 22}, {24, 22}, {24, 22}, {32, 22}}, 2);
  ASSERT_EQ(row.size(), 4U);
  EXPECT_EQ(row[3], (Rect{468, 10, 500, 32}));
  EXPECT_EQ(row[2], (Rect{442, 10, 466, 32}));
  EXPECT_EQ(row[1], (Rect{416, 10, 440, 32}));
  EXPECT_EQ(row[0], (Rect{390, 10, 414, 32}));
}

TEST(RowEndingAt, TakesAnyNumberOfImages) {
  EXPECT_TRUE(RowEndingAt(500, 10, {}, 2).empty());
  EXPECT_EQ(RowEndingAt(500, 10, {{5, 6}}, 2).front(), (Rect{495, 10, 500, 16}));
}

// ------------------------------------------------------------------------------------------------------ geometry

TEST(Rect, TouchesItsBorders) {
  constexpr Rect kRect{1, 2, 4, 6};
  EXPECT_EQ(kRect.width(), 3);
  EXPECT_EQ(kRect.height(), 4);
  EXPECT_TRUE(kRect.Touches({1, 2}));
  EXPECT_TRUE(kRect.Touches({4, 6}));
  EXPECT_FALSE(kRect.Touches({0, 2}));
  EXPECT_FALSE(kRect.Touches({4, 7}));
}

}  // namespace
