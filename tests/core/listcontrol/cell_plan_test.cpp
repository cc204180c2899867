#include "dlglib/listcontrol/cell_plan.h"

#include <gtest/gtest.h>

namespace {

using grid::CellColours;
using grid::CellContent;
using grid::CellFrame;
using grid::CellPlan;
using grid::CellState;
using grid::Point;
using grid::Rect;

constexpr grid::Colour kOwnInk = 0x123456;
constexpr grid::Colour kOwnPaper = 0xABCDEF;
constexpr CellColours kOwn = {kOwnInk, kOwnPaper};
constexpr CellColours kGrey = {0x000000, 0xC0C0C0};
constexpr CellColours kSelected = {0xFFFFFF, 0xC00000};

CellState State(bool available, bool firstAvailable, bool selected, bool error = false) {
  return {{available ? 0U : 1U, error ? 1U : 0U, kOwnInk, kOwnPaper}, firstAvailable, selected};
}

TEST(CellColoursOf, EveryState) {
  EXPECT_EQ(ColoursOf(State(false, false, false)), kGrey);
  EXPECT_EQ(ColoursOf(State(false, false, true)), kGrey);
  EXPECT_EQ(ColoursOf(State(false, true, false)), kOwn);
  EXPECT_EQ(ColoursOf(State(false, true, true)), kOwn) << "never white on blue";
  EXPECT_EQ(ColoursOf(State(true, false, false)), kOwn);
  EXPECT_EQ(ColoursOf(State(true, true, false)), kOwn);
  EXPECT_EQ(ColoursOf(State(true, false, true)), kSelected);
  EXPECT_EQ(ColoursOf(State(true, true, true)), kSelected);
}

TEST(CellColoursOf, ErrorsAreRedOnAnyPaper) {
  for (const bool available : {false, true}) {
    for (const bool first : {false, true}) {
      for (const bool selected : {false, true}) {
        const CellColours without = ColoursOf(State(available, first, selected));
        EXPECT_EQ(ColoursOf(State(available, first, selected, true)), (CellColours{0x0000FF, without.paper}));
      }
    }
  }
}

CellFrame Frame(int kind, int buttonWidth = -1) { return {{0, 100, 500, 121}, {60, 40, 100}, kind, buttonWidth}; }

TEST(CellPlans, KeepADistanceFromTheGrid) {
  const CellPlan plan = PlanCell(State(true, true, false), Frame(0));
  EXPECT_EQ(plan.cell, (Rect{42, 100, 98, 120}));
  EXPECT_EQ(plan.colours, kOwn);
  EXPECT_EQ(plan.content, CellContent::Text);
  EXPECT_FALSE(plan.button.has_value());
}

TEST(CellPlans, OfColourColumnsHaveASwatch) {
  const CellPlan plan = PlanCell(State(true, true, true, true), Frame(1));
  EXPECT_EQ(plan.content, CellContent::Swatch);
  EXPECT_EQ(plan.swatch, (Rect{52, 105, 88, 115})) << "20 pixels high: 5 from above and below, 10 from the sides";
  EXPECT_EQ(plan.swatchColour, kOwnInk) << "in every state";
  EXPECT_EQ(plan.colours.paper, 0xC00000U);
}

TEST(CellPlans, OfOtherColumnsHaveThePaperOnly) {
  EXPECT_EQ(PlanCell(State(true, true, true), Frame(2)).content, CellContent::Nothing);
  EXPECT_EQ(PlanCell(State(true, true, true), Frame(-1)).content, CellContent::Nothing);
}

TEST(CellPlans, MakeRoomForADropButton) {
  const CellPlan plan = PlanCell(State(true, true, true), Frame(0, 16));
  EXPECT_EQ(plan.cell, (Rect{42, 100, 81, 120}));
  ASSERT_TRUE(plan.button.has_value());
  EXPECT_EQ(plan.button->face, (Rect{81, 100, 97, 119}));
  EXPECT_EQ(plan.button->outerEdge, (std::array<Point, 3>{{{81, 119}, {97, 119}, {97, 100}}}));
  EXPECT_EQ(plan.button->innerEdge, (std::array<Point, 3>{{{82, 118}, {96, 118}, {96, 99}}}));
  const std::array<Point, 7> arrow = {{{84, 107}, {88, 112}, {92, 107}, {90, 107}, {88, 111}, {86, 107}, {84, 107}}};
  EXPECT_EQ(plan.button->arrow, arrow);
}

}  // namespace
