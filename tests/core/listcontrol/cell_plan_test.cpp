#include "dlglib/listcontrol/cell_plan.h"

#include <gtest/gtest.h>

#include "dlglib/base/contrast.h"

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

// ---- high contrast

constexpr grid::SystemColours kSystem = {.text = 0x00FFFF,
                                         .window = 0x000000,
                                         .greyText = 0x3FF23F,
                                         .selectedText = 0x202020,
                                         .selectedPaper = 0xFFEB1A,
                                         .buttonText = 0xFEFEFE,
                                         .buttonFace = 0x010101};
constexpr CellColours kSystemSelected = {0x202020, 0xFFEB1A};

CellState Contrasted(CellState state) {
  state.system = &kSystem;
  return state;
}

CellState Plain(CellState state) {
  state.looks.text = 0x000000;
  state.looks.back = 0xFFFFFF;
  return Contrasted(state);
}

TEST(CellColoursWithHighContrast, AreTheSystemsWhereTheCellHasNoneOfItsOwn) {
  EXPECT_EQ(ColoursOf(Plain(State(true, true, false))), (CellColours{0x00FFFF, 0x000000}));
  EXPECT_EQ(ColoursOf(Plain(State(false, true, false))), (CellColours{0x00FFFF, 0x000000}));
  EXPECT_EQ(ColoursOf(Plain(State(false, true, true))), (CellColours{0x00FFFF, 0x000000}));
  EXPECT_EQ(ColoursOf(Plain(State(false, false, false))), (CellColours{0x3FF23F, 0x000000}));
  EXPECT_EQ(ColoursOf(Plain(State(true, true, true))), kSystemSelected);
}

TEST(CellColoursWithHighContrast, StayTheCallers) {
  EXPECT_EQ(ColoursOf(Contrasted(State(true, true, false))), kOwn);
  EXPECT_EQ(ColoursOf(Contrasted(State(false, true, true))), kOwn);
  EXPECT_EQ(ColoursOf(Contrasted(State(false, false, false))), kGrey);
  EXPECT_EQ(ColoursOf(Contrasted(State(true, true, true))), kSystemSelected) << "selection is the system's";
  CellState halfOwn = Plain(State(true, true, false));
  halfOwn.looks.text = kOwnInk;
  EXPECT_EQ(ColoursOf(halfOwn), (CellColours{kOwnInk, 0xFFFFFF}));
  halfOwn = Plain(State(true, true, false));
  halfOwn.looks.back = kOwnPaper;
  EXPECT_EQ(ColoursOf(halfOwn), (CellColours{0x000000, kOwnPaper}));
}

TEST(CellColoursWithHighContrast, OfErrorsCanBeReadOnAnyPaper) {
  for (const bool available : {false, true}) {
    for (const bool selected : {false, true}) {
      for (const CellState& state :
           {Plain(State(available, true, selected, true)), Contrasted(State(available, false, selected, true))}) {
        const CellColours colours = ColoursOf(state);
        EXPECT_GE(contrast::Between(colours.ink, colours.paper), 4.5) << available << selected;
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

TEST(CellPlans, WithHighContrastHaveAFrameAroundTheSwatchAndTheSystemsButton) {
  const CellPlan plan = PlanCell(Plain(State(true, true, false)), Frame(1, 16));
  EXPECT_EQ(plan.swatchColour, 0x000000U) << "as the caller gave it";
  EXPECT_EQ(plan.swatchFrame, 0x00FFFFU);
  ASSERT_TRUE(plan.button.has_value());
  EXPECT_EQ(plan.button->faceColour, 0x010101U);
  EXPECT_EQ(plan.button->lineColour, 0xFEFEFEU);
  EXPECT_TRUE(plan.button->isFilled && plan.button->isFramed) << "its face may have the colour of the paper";
  EXPECT_EQ(plan.swatchFrameWidth, 1);
  const CellPlan without = PlanCell(State(true, true, false), Frame(1, 16));
  EXPECT_EQ(without.swatchFrame, std::nullopt);
  EXPECT_EQ(without.button->faceColour, 0xFDD3C3U);
  EXPECT_EQ(without.button->lineColour, 0x000000U);
  EXPECT_FALSE(without.button->isFilled || without.button->isFramed);
  CellFrame larger = Frame(1);
  larger.scale = scale::Scale(192);
  EXPECT_EQ(PlanCell(Plain(State(true, true, false)), larger).swatchFrameWidth, 2);
}

TEST(CellPlans, KeepTheirDistancesOnEveryScreen) {
  CellFrame frame = {{0, 200, 1000, 242}, {120, 80, 200}, 0, 34};
  frame.scale = scale::Scale(192);
  const CellPlan plan = PlanCell(State(true, true, true), frame);
  EXPECT_EQ(plan.cell, (Rect{84, 200, 161, 241})) << "the line below is one pixel of the list view's";
  ASSERT_TRUE(plan.button.has_value());
  EXPECT_EQ(plan.button->face, (Rect{161, 200, 195, 240}));
  const std::array<Point, 7> arrow = {
      {{168, 216}, {176, 226}, {184, 216}, {180, 216}, {176, 224}, {172, 216}, {168, 216}}};
  EXPECT_EQ(plan.button->arrow, arrow);
  EXPECT_TRUE(plan.button->isFilled);
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
  EXPECT_FALSE(plan.button->isFilled);
}

}  // namespace
