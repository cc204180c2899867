#include "dlglib/filedialog/basics/hot_areas.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace filedialog;

constexpr HotArea kAll[] = {HotArea::View, HotArea::NewFolder, HotArea::Up, HotArea::Back, HotArea::Label};

/// Five areas of 10 x 10 in a row, 20 apart, and points in and between them.
class HotAreasTest : public testing::Test {
 protected:
  HotAreasTest() {
    for (const HotArea area : kAll) areas_.Place(area, {Left(area), 10, Left(area) + 10, 20});
  }

  static int Left(HotArea area) { return static_cast<int>(area) * 20; }
  static Point In(HotArea area) { return {Left(area) + 5, 15}; }
  static constexpr Point kOutside{500, 500};

  /// The states in the order in which a press is tested.
  std::vector<int> States() const {
    std::vector<int> states;
    for (const AreaState state : areas_.states()) states.push_back(static_cast<int>(state));
    return states;
  }

  HotAreas areas_;
};

using Want = std::vector<int>;

TEST_F(HotAreasTest, StatesHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(AreaState::Disabled), -1);
  EXPECT_EQ(static_cast<int>(AreaState::Normal), 0);
  EXPECT_EQ(static_cast<int>(AreaState::Pressed), 1);
  EXPECT_EQ(static_cast<int>(AreaState::Hot), 2);
  EXPECT_EQ(kHotAreaCount, 5U);
  EXPECT_EQ(States(), (Want{0, 0, 0, 0, 0}));
}

TEST_F(HotAreasTest, KeepsTheirRectangles) {
  EXPECT_EQ(areas_.RectOf(HotArea::Up), (Rect{40, 10, 50, 20}));
  areas_.Place(HotArea::Up, {1, 2, 3, 4});
  EXPECT_EQ(areas_.RectOf(HotArea::Up), (Rect{1, 2, 3, 4}));
}

// -------------------------------------------------------------------------------------------------- the pointer

TEST_F(HotAreasTest, OnlyTheAreaUnderThePointerIsHot) {
  for (const HotArea area : kAll) {
    areas_.Move(In(area));
    Want want(5, 0);
    want[static_cast<std::size_t>(area)] = 2;
    EXPECT_EQ(States(), want);
  }
  areas_.Move(kOutside);
  EXPECT_EQ(States(), (Want{0, 0, 0, 0, 0}));
}

TEST_F(HotAreasTest, APointIsOnOneWhateverItsState) {
  for (const HotArea area : kAll) {
    EXPECT_TRUE(areas_.IsOnOne(In(area)));
    areas_.Enable(area, true);
    EXPECT_TRUE(areas_.IsOnOne(In(area)));
  }
  EXPECT_FALSE(areas_.IsOnOne(kOutside));
  EXPECT_FALSE(HotAreas().IsOnOne(kOutside));
}

TEST_F(HotAreasTest, BordersBelongToTheArea) {
  for (const Point at : {Point{20, 10}, Point{30, 10}, Point{20, 20}, Point{30, 20}}) {
    areas_.Move(at);
    EXPECT_EQ(States(), (Want{0, 2, 0, 0, 0}));
  }
  for (const Point at : {Point{19, 15}, Point{31, 15}, Point{25, 9}, Point{25, 21}, Point{-5, 15}}) {
    areas_.Move(at);
    EXPECT_EQ(States(), (Want{0, 0, 0, 0, 0}));
  }
}

TEST_F(HotAreasTest, OfAreasThatOverlapTheFirstOneIsMeant) {
  areas_.Place(HotArea::Back, areas_.RectOf(HotArea::View));
  areas_.Move(In(HotArea::View));
  EXPECT_EQ(States(), (Want{2, 0, 0, 0, 0}));
  EXPECT_EQ(areas_.Press(In(HotArea::View), false), HotArea::View);
}

TEST_F(HotAreasTest, ADisabledAreaStaysDisabled) {
  areas_.Enable(HotArea::Back, false);
  areas_.Move(In(HotArea::Back));
  EXPECT_EQ(States(), (Want{0, 0, 0, -1, 0}));
  EXPECT_EQ(areas_.Press(In(HotArea::Back), false), std::nullopt);
  areas_.Release(In(HotArea::Back));
  EXPECT_EQ(States(), (Want{0, 0, 0, -1, 0}));
}

TEST_F(HotAreasTest, MovingOntoADisabledAreaCalmsTheOthers) {
  areas_.Enable(HotArea::Back, false);
  areas_.Move(In(HotArea::Up));
  areas_.Move(In(HotArea::Back));
  EXPECT_EQ(States(), (Want{0, 0, 0, -1, 0}));
}

TEST_F(HotAreasTest, EnablingMakesNormalAndKeepsEveryOtherState) {
  areas_.Enable(HotArea::Up, false);
  areas_.Enable(HotArea::Up, false);
  EXPECT_EQ(areas_.StateOf(HotArea::Up), AreaState::Disabled);
  areas_.Enable(HotArea::Up, true);
  EXPECT_EQ(areas_.StateOf(HotArea::Up), AreaState::Normal);
  areas_.Move(In(HotArea::Up));
  areas_.Enable(HotArea::Up, true);
  EXPECT_EQ(areas_.StateOf(HotArea::Up), AreaState::Hot);
  static_cast<void>(areas_.Press(In(HotArea::Up), false));
  areas_.Enable(HotArea::Up, true);
  EXPECT_EQ(areas_.StateOf(HotArea::Up), AreaState::Pressed);
  areas_.Enable(HotArea::Up, false);
  EXPECT_EQ(areas_.StateOf(HotArea::Up), AreaState::Disabled);
}

// ---------------------------------------------------------------------------------------------------- the button

TEST_F(HotAreasTest, APressAnswersTheAreaAndPressesItAlone) {
  for (const HotArea area : kAll) {
    areas_.Move(In(HotArea::View));
    EXPECT_EQ(areas_.Press(In(area), false), area);
    Want want(5, 0);
    want[static_cast<std::size_t>(area)] = 1;
    EXPECT_EQ(States(), want);
  }
}

TEST_F(HotAreasTest, AFixedFolderKeepsUpAndBackFromActing) {
  for (const HotArea area : {HotArea::Up, HotArea::Back}) {
    EXPECT_EQ(areas_.Press(In(area), true), std::nullopt);
    EXPECT_EQ(States(), (Want{0, 0, 0, 0, 0}));
  }
  for (const HotArea area : {HotArea::View, HotArea::NewFolder, HotArea::Label}) {
    EXPECT_EQ(areas_.Press(In(area), true), area);
  }
}

TEST_F(HotAreasTest, APressOutsideCalmsAllAreas) {
  areas_.Enable(HotArea::Back, false);
  areas_.Move(In(HotArea::Label));
  EXPECT_EQ(areas_.Press(kOutside, false), std::nullopt);
  EXPECT_EQ(States(), (Want{0, 0, 0, -1, 0}));
  static_cast<void>(areas_.Press(In(HotArea::View), false));
  EXPECT_EQ(areas_.Press(kOutside, false), std::nullopt);
  EXPECT_EQ(States(), (Want{0, 0, 0, -1, 0}));
}

TEST_F(HotAreasTest, APressedAreaStaysPressedWhileThePointerIsDraggedOff) {
  static_cast<void>(areas_.Press(In(HotArea::NewFolder), false));
  areas_.Move(In(HotArea::NewFolder));
  EXPECT_EQ(States(), (Want{0, 1, 0, 0, 0}));
  areas_.Move(In(HotArea::View));
  EXPECT_EQ(States(), (Want{2, 1, 0, 0, 0}));
  areas_.Move(kOutside);
  EXPECT_EQ(States(), (Want{0, 1, 0, 0, 0}));
  areas_.Move(In(HotArea::NewFolder));
  EXPECT_EQ(States(), (Want{0, 1, 0, 0, 0}));
}

TEST_F(HotAreasTest, ReleasingMovesThePointerThere) {
  static_cast<void>(areas_.Press(In(HotArea::Label), false));
  areas_.Release(In(HotArea::Label));
  EXPECT_EQ(States(), (Want{0, 0, 0, 0, 2}));
  static_cast<void>(areas_.Press(In(HotArea::Label), false));
  areas_.Release(In(HotArea::Up));
  EXPECT_EQ(States(), (Want{0, 0, 2, 0, 0}));
  areas_.Release(kOutside);
  EXPECT_EQ(States(), (Want{0, 0, 0, 0, 0}));
}

// ----------------------------------------------------------------------------------------------------- the label

constexpr Rect kLabel{100, 200, 160, 212};

std::string Drawn(const std::vector<FrameLine>& lines) {
  std::string text;
  for (const FrameLine& line : lines) {
    for (const Point& at : line.points) text += std::to_string(at.x) + "," + std::to_string(at.y) + " ";
    text += std::to_string(line.colour) + ";";
  }
  return text;
}

std::string Line(const std::string& points, std::uint32_t colour) { return points + std::to_string(colour) + ";"; }

const std::string kRightBottom = "160,196 160,216 96,216 ";
const std::string kOuter = "161,196 161,217 96,217 ";
const std::string kLeftTop = "96,216 96,196 160,196 ";
constexpr std::uint32_t kOwnColour = 0x123456;

TEST(LabelFrame, OfAHotLabelIsRaised) {
  EXPECT_EQ(Drawn(LabelFrame(kLabel, AreaState::Hot, kOwnColour)),
            Line(kRightBottom, 0x808080) + Line(kLeftTop, 0xE0E0E0));
}

TEST(LabelFrame, OfAPressedLabelHasABlackLineMore) {
  EXPECT_EQ(Drawn(LabelFrame(kLabel, AreaState::Pressed, kOwnColour)),
            Line(kRightBottom, 0x808080) + Line(kOuter, 0x000000) + Line(kLeftTop, 0xE0E0E0));
}

TEST(LabelFrame, OtherwiseEveryLineIsErased) {
  const std::string erased = Line(kRightBottom, kOwnColour) + Line(kOuter, kOwnColour) + Line(kLeftTop, kOwnColour);
  EXPECT_EQ(Drawn(LabelFrame(kLabel, AreaState::Normal, kOwnColour)), erased);
  EXPECT_EQ(Drawn(LabelFrame(kLabel, AreaState::Disabled, kOwnColour)), erased);
}

TEST(LabelFrame, TakesTheDialogsColourFromBesideIt) { EXPECT_EQ(LabelBackgroundPoint(kLabel), (Point{95, 195})); }

TEST(LabelFrame, TakesTheColoursThatItIsGiven) {
  EXPECT_EQ(Drawn(LabelFrame(kLabel, AreaState::Pressed, kOwnColour, {}, {0x111111, 0x222222, 0x333333})),
            Line(kRightBottom, 0x111111) + Line(kOuter, 0x333333) + Line(kLeftTop, 0x222222));
}

TEST(LabelFrame, OfAnotherScaleStandsOffFurtherAndHasWiderLines) {
  const scale::Scale scale(192);
  EXPECT_EQ(Drawn(LabelFrame(kLabel, AreaState::Hot, kOwnColour, scale)),
            Line("160,192 160,220 92,220 ", 0x808080) + Line("161,192 161,221 92,221 ", 0x808080) +
                Line("92,220 92,192 160,192 ", 0xE0E0E0) + Line("93,220 93,193 160,193 ", 0xE0E0E0));
  EXPECT_EQ(Drawn(LabelFrame(kLabel, AreaState::Pressed, kOwnColour, scale)),
            Line("160,192 160,220 92,220 ", 0x808080) + Line("161,192 161,221 92,221 ", 0x808080) +
                Line("162,192 162,222 92,222 ", 0x000000) + Line("163,192 163,223 92,223 ", 0x000000) +
                Line("92,220 92,192 160,192 ", 0xE0E0E0) + Line("93,220 93,193 160,193 ", 0xE0E0E0));
  EXPECT_EQ(LabelBackgroundPoint(kLabel, scale), (Point{91, 191}));
}

TEST(LabelText, OffersTheNumberOfFilesWhileItIsHotOrPressed) {
  EXPECT_STREQ(LabelText(AreaState::Hot), "ファイル数");
  EXPECT_STREQ(LabelText(AreaState::Pressed), "ファイル数");
  EXPECT_STREQ(LabelText(AreaState::Normal), "ファイル名");
  EXPECT_STREQ(LabelText(AreaState::Disabled), "ファイル名");
}

}  // namespace
