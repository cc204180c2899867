#include "dlglib/utility/toolbar/tool_table.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

using tool_table::Anchor;
using tool_table::BalloonSize;
using tool_table::Course;
using tool_table::Point;
using tool_table::Rect;
using tool_table::Size;
using tool_table::Step;
using tool_table::TextRect;
using tool_table::Timer;
using tool_table::ToolTable;

constexpr Rect kLeft{10, 20, 30, 40};
constexpr Rect kRight{30, 20, 50, 40};

// ---- the table

TEST(ToolTable, StartsEmpty) {
  const ToolTable table;
  EXPECT_EQ(table.Count(), 0U);
  EXPECT_FALSE(table.Find({0, 0}));
}

TEST(ToolTable, AppendsUnknownIdsAndReplacesKnownOnes) {
  ToolTable table;
  table.Register(10012, kLeft, "戻る");
  table.Register(10013, kRight, "上へ");
  table.Register(10012, {1, 2, 3, 4}, "表示メニュー");
  ASSERT_EQ(table.Count(), 2U);
  EXPECT_EQ(table.At(0).id, 10012);
  EXPECT_EQ(table.At(0).rect, (Rect{1, 2, 3, 4}));
  EXPECT_EQ(table.At(0).text, "表示メニュー");
  EXPECT_EQ(table.At(1).text, "上へ");
}

TEST(ToolTable, ChangesOneSideOfAToolOnly) {
  ToolTable table;
  table.Register(1, kLeft, "一");
  table.SetRect(1, kRight);
  EXPECT_EQ(table.At(0).rect, kRight);
  EXPECT_EQ(table.At(0).text, "一");
  table.SetText(1, "二");
  EXPECT_EQ(table.At(0).rect, kRight);
  EXPECT_EQ(table.At(0).text, "二");
}

TEST(ToolTable, ChangesNothingForAnUnknownId) {
  ToolTable table;
  table.Register(1, kLeft, "一");
  table.SetRect(2, kRight);
  table.SetText(2, "二");
  ASSERT_EQ(table.Count(), 1U);
  EXPECT_EQ(table.At(0).rect, kLeft);
  EXPECT_EQ(table.At(0).text, "一");
}

TEST(ToolTable, HoldsManyTools) {
  ToolTable table;
  for (int id = 0; id < 1000; ++id) table.Register(id, {id, 0, id, 0}, std::to_string(id));
  EXPECT_EQ(table.Count(), 1000U);
  EXPECT_EQ(table.Find({999, 0}), 999U);
}

TEST(ToolTable, CutsATextBetweenCharacters) {
  ToolTable table;
  table.Register(1, kLeft, std::string(131, 'a'));
  EXPECT_EQ(table.At(0).text.size(), 131U);
  table.SetText(1, std::string(132, 'a'));
  EXPECT_EQ(table.At(0).text.size(), 131U);
  std::string wide;
  for (int i = 0; i < 66; ++i) wide += "表";
  table.SetText(1, wide);
  EXPECT_EQ(table.At(0).text, wide.substr(0, 130));
}

TEST(ToolTable, AllFourBordersBelongToATool) {
  ToolTable table;
  table.Register(1, kLeft, "");
  for (const Point inside : {Point{10, 20}, {30, 20}, {10, 40}, {30, 40}, {20, 30}}) EXPECT_EQ(table.Find(inside), 0U);
  for (const Point outside : {Point{9, 30}, {31, 30}, {20, 19}, {20, 41}}) EXPECT_FALSE(table.Find(outside));
}

TEST(ToolTable, TheFirstToolWinsWhereTwoMeet) {
  ToolTable table;
  table.Register(1, kLeft, "");
  table.Register(2, kRight, "");
  EXPECT_EQ(table.Find({30, 30}), 0U);
  EXPECT_EQ(table.Find({31, 30}), 1U);
}

TEST(ToolTable, ATurnedRectangleHoldsNothing) {
  ToolTable table;
  table.Register(1, {30, 40, 10, 20}, "");
  EXPECT_FALSE(table.Find({20, 30}));
}

// ---- when the balloon comes and goes

TEST(Course, EnteringAToolHidesTheBalloonAndWaits) {
  Course course;
  EXPECT_FALSE(course.Current());
  EXPECT_EQ(course.Move(0), (Step{.hide = true, .start = Timer::Show, .delayMs = 500}));
  EXPECT_EQ(course.Current(), 0U);
}

TEST(Course, MovingOnTheSameToolOrOnNoneDoesNothing) {
  Course course;
  EXPECT_EQ(course.Move({}), Step{});
  (void)course.Move(2);
  EXPECT_EQ(course.Move(2), Step{});
}

TEST(Course, ShowsAfterTheDelayAndHidesAfterTheSecondOne) {
  Course course;
  (void)course.Move(0);
  EXPECT_EQ(course.Fire(Timer::Show), (Step{.stop = Timer::Show, .show = true, .start = Timer::Hide, .delayMs = 2000}));
  EXPECT_EQ(course.Fire(Timer::Hide), (Step{.stop = Timer::Hide, .hide = true}));
  EXPECT_EQ(course.Move(0), Step{});  // still on the tool: it does not come back
}

TEST(Course, GoingToAnotherToolStartsAnew) {
  Course course;
  (void)course.Move(0);
  EXPECT_EQ(course.Move(1), (Step{.stop = Timer::Show, .hide = true, .start = Timer::Show, .delayMs = 500}));
  (void)course.Fire(Timer::Show);
  EXPECT_EQ(course.Move(0), (Step{.stop = Timer::Hide, .hide = true, .start = Timer::Show, .delayMs = 500}));
}

TEST(Course, LeavingAToolHidesTheBalloon) {
  Course course;
  (void)course.Move(0);
  EXPECT_EQ(course.Move({}), (Step{.stop = Timer::Show, .hide = true}));
  EXPECT_FALSE(course.Current());
  (void)course.Move(0);
  (void)course.Fire(Timer::Show);
  EXPECT_EQ(course.Move({}), (Step{.stop = Timer::Hide, .hide = true}));
}

TEST(Course, WithoutADelayItShowsAtOnceAndHidesNothing) {
  Course course(0, 300);
  EXPECT_EQ(course.Move(0), (Step{.show = true, .start = Timer::Hide, .delayMs = 300}));
  EXPECT_EQ(course.Move(1), (Step{.stop = Timer::Hide, .show = true, .start = Timer::Hide, .delayMs = 300}));
  EXPECT_EQ(course.Move({}), (Step{.stop = Timer::Hide, .hide = true}));
}

TEST(Course, DismissingStopsWhateverRuns) {
  Course course;
  EXPECT_EQ(course.Dismiss(), (Step{.hide = true}));
  (void)course.Move(0);
  EXPECT_EQ(course.Dismiss(), (Step{.stop = Timer::Show, .hide = true}));
  EXPECT_EQ(course.Move(0), Step{});
  EXPECT_EQ(course.Fire(Timer::Show), Step{});
  (void)course.Move({});
  EXPECT_EQ(course.Move(0), (Step{.hide = true, .start = Timer::Show, .delayMs = 500}));
}

TEST(Course, IgnoresATimerThatDoesNotRun) {
  Course course;
  EXPECT_EQ(course.Fire(Timer::Show), Step{});
  EXPECT_EQ(course.Fire(Timer::None), Step{});
  (void)course.Move(0);
  EXPECT_EQ(course.Fire(Timer::Hide), Step{});
  EXPECT_EQ(course.Fire(static_cast<Timer>(77)), Step{});
}

TEST(Course, TakesDelaysAboveTheLeastOnly) {
  Course course;
  course.SetShowDelay(100);
  course.SetHideDelay(0);
  EXPECT_EQ(course.Move(0).delayMs, 500U);
  EXPECT_EQ(course.Fire(Timer::Show).delayMs, 2000U);
  course.SetShowDelay(101);
  course.SetHideDelay(3000);
  EXPECT_EQ(course.Move(1).delayMs, 101U);
  EXPECT_EQ(course.Fire(Timer::Show).delayMs, 3000U);
}

// ---- place and size

TEST(Balloon, StandsAboveTheMiddleOfItsTool) {
  EXPECT_EQ(Anchor({10, 20, 30, 40}), (Point{20, 10}));
  EXPECT_EQ(Anchor({10, 20, 31, 41}), (Point{20, 10}));
  EXPECT_EQ(Anchor({0, 0, 0, 0}), (Point{0, 0}));
}

TEST(Balloon, IsAsWideAsItsText) {
  EXPECT_EQ(BalloonSize(12, 12), (Size{84, 20}));
  EXPECT_EQ(BalloonSize(12, 0), (Size{12, 20}));
  EXPECT_EQ(BalloonSize(13, 1), (Size{18, 21}));  // 13 / 2 drops the remainder
  EXPECT_EQ(BalloonSize(13, 3), (Size{31, 21}));  // 39 / 2 too: the product comes first
}

TEST(Balloon, TheTextKeepsItsMargins) { EXPECT_EQ(TextRect(12, 84), (Rect{6, 4, 78, 16})); }

TEST(Balloon, HasItsMarginsOnEveryScreen) {
  EXPECT_EQ(BalloonSize(24, 12, scale::Scale(192)), (Size{168, 40}));
  EXPECT_EQ(TextRect(24, 168, scale::Scale(192)), (Rect{12, 8, 156, 32}));
}

TEST(Balloon, SurvivesAnyNumbers) {
  (void)Anchor({INT_MIN, INT_MIN, INT_MIN, INT_MAX});
  (void)Anchor({INT_MAX, INT_MAX, INT_MAX, INT_MIN});
  EXPECT_EQ(BalloonSize(INT_MAX, 131).width, INT_MAX);
  EXPECT_EQ(BalloonSize(12, static_cast<std::size_t>(-1)).width, 12 * 131 / 2 + 12);
  EXPECT_EQ(TextRect(INT_MAX, INT_MIN).bottom, INT_MAX);
}

}  // namespace
