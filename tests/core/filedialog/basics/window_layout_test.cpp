#include "dlglib/filedialog/basics/window_layout.h"

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

// --------------------------------------------------------------------------------------------------- monitors

const Screens kTwo{{1280, 1024}, {{0, 0, 1280, 1024}, {1280, -200, 1280 + 2560, 1400}}};

TEST(ScreenUnder, IsTheMonitorThatHasTheMostOfTheWindow) {
  EXPECT_EQ(ScreenUnder({100, 100, 700, 500}, kTwo), (Size{1280, 1024}));
  EXPECT_EQ(ScreenUnder({1300, 100, 1900, 500}, kTwo), (Size{2560, 1600}));
  EXPECT_EQ(ScreenUnder({1000, 100, 1550, 500}, kTwo), (Size{1280, 1024})) << "280 pixels of 550 here, 270 there";
  EXPECT_EQ(ScreenUnder({1010, 100, 1560, 500}, kTwo), (Size{2560, 1600}));
}

TEST(ScreenUnder, IsThePrimaryOneForAWindowThatIsOnNone) {
  EXPECT_EQ(ScreenUnder({-900, 0, -300, 400}, kTwo), (Size{1280, 1024}));
  EXPECT_EQ(ScreenUnder({100, 100, 700, 500}, {{800, 600}, {}}), (Size{800, 600}));
  EXPECT_EQ(ScreenUnder({100, 100, 100, 100}, kTwo), (Size{1280, 1024}));
  EXPECT_EQ(ScreenUnder({kSmallest, kSmallest, kLargest, kLargest}, kTwo), (Size{2560, 1600}));
  EXPECT_EQ(ScreenUnder({100, 100, 700, 500}, {{800, 600}, {{5, 5, 5, 5}, {0, 0, -10, -10}}}), (Size{800, 600}));
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

// ------------------------------------------------------------------------------------------------ caption in sight

// A caption 20 pixels high, below and between frames of 4 pixels.
constexpr CaptionStrip kCaption{.inset = 4, .top = 4, .height = 20};
const std::vector<Rect> kOneMonitor = {{0, 0, 1280, 1024}};

constexpr Rect WindowAt(int x, int y) { return {x, y, x + 550, y + 340}; }

TEST(BroughtIntoSight, ACaptionThatIsSeenInPartStaysWhereItIs) {
  for (const Point at : {Point{100, 50}, Point{1275, 0}, Point{-545, 0}, Point{0, -23}, Point{0, 1019},
                         Point{-545, -23}, Point{1275, 1019}}) {
    EXPECT_EQ(BroughtIntoSight(WindowAt(at.x, at.y), kCaption, kOneMonitor), WindowAt(at.x, at.y)) << at.x;
  }
}

TEST(BroughtIntoSight, ACaptionOutOfSightComesTheShortestWay) {
  struct Case {
    Point at;
    Point want;
  };
  const Case cases[] = {{{1276, 50}, {1076, 50}},  // 200 pixels of the caption, and the frame beside it
                        {{5000, 50}, {1076, 50}},
                        {{-546, 50}, {-346, 50}},
                        {{-32000, 50}, {-346, 50}},
                        {{300, -24}, {300, -4}},  // the whole height, with the frame above out of sight
                        {{300, 1020}, {300, 1000}},
                        {{1276, -24}, {1076, -4}},
                        {{-546, 1020}, {-346, 1000}},
                        {{1100, 5000}, {1076, 1000}},  // 176 pixels would show
                        {{-400, 5000}, {-346, 1000}},
                        {{kLargest - 550, kLargest - 340}, {1076, 1000}},
                        {{kSmallest, kSmallest}, {-346, -4}}};
  for (const Case& row : cases) {
    EXPECT_EQ(BroughtIntoSight(WindowAt(row.at.x, row.at.y), kCaption, kOneMonitor), WindowAt(row.want.x, row.want.y))
        << row.at.x << " " << row.at.y;
  }
}

TEST(BroughtIntoSight, ACaptionOfALargerScaleShowsMoreOfIt) {
  CaptionStrip caption = kCaption;
  caption.inSight = 250;
  EXPECT_EQ(BroughtIntoSight(WindowAt(2000, 50), caption, kOneMonitor), WindowAt(1026, 50));
}

TEST(BroughtIntoSight, TheFrameAloneIsNoCaption) {
  EXPECT_EQ(BroughtIntoSight(WindowAt(1279, 50), kCaption, kOneMonitor), WindowAt(1076, 50));
  EXPECT_EQ(BroughtIntoSight(WindowAt(50, -300), kCaption, kOneMonitor), WindowAt(50, -4)) << "nor is what is below it";
}

TEST(BroughtIntoSight, AnyMonitorWillDoAndTheNearestOneIsTaken) {
  const std::vector<Rect> monitors = {{0, 0, 1280, 1024}, {-1920, -200, 0, 880}};
  EXPECT_EQ(BroughtIntoSight(WindowAt(-1800, -100), kCaption, monitors), WindowAt(-1800, -100));
  EXPECT_EQ(BroughtIntoSight(WindowAt(-3000, 100), kCaption, monitors), WindowAt(-2266, 100));
  EXPECT_EQ(BroughtIntoSight(WindowAt(2000, -100), kCaption, monitors), WindowAt(1076, -4));
  EXPECT_EQ(BroughtIntoSight(WindowAt(-1200, 2000), kCaption, monitors), WindowAt(-1200, 856));
  EXPECT_EQ(BroughtIntoSight(WindowAt(-700, 2000), kCaption, monitors), WindowAt(-346, 1000));
}

TEST(BroughtIntoSight, MonitorsWithoutAnAreaShowNothing) {
  const std::vector<Rect> monitors = {{0, 0, 0, 1024}, {0, 0, 1280, 0}, {0, 0, 1280, 1024}};
  EXPECT_EQ(BroughtIntoSight(WindowAt(2000, 50), kCaption, monitors), WindowAt(1076, 50));
  EXPECT_EQ(BroughtIntoSight(WindowAt(2000, 50), kCaption, {{0, 0, 1280, 0}}), WindowAt(2000, 50));
}

TEST(BroughtIntoSight, ANarrowCaptionOrMonitorShowsWhatItCan) {
  const Rect narrow{2000, 50, 2108, 390};
  EXPECT_EQ(BroughtIntoSight(narrow, kCaption, kOneMonitor).left, 1176);
  const std::vector<Rect> slit = {{0, 0, 100, 10}};
  const Rect shown = BroughtIntoSight(WindowAt(2000, 50), kCaption, slit);
  EXPECT_EQ(shown.left, -4);
  EXPECT_EQ(shown.top, -4);
}

TEST(BroughtIntoSight, WithoutAMonitorNothingIsMoved) {
  EXPECT_EQ(BroughtIntoSight(WindowAt(5000, 50), kCaption, {}), WindowAt(5000, 50));
  EXPECT_EQ(BroughtIntoSight(WindowAt(5000, 50), kCaption, {{{3, 3, 3, 3}}}), WindowAt(5000, 50));
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
