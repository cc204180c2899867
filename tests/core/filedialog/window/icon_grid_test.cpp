#include "dlglib/filedialog/window/icon_grid.h"

#include <gtest/gtest.h>

#include <limits>

#include "dlglib/base/virtual_keys.h"

namespace {

using namespace filedialog;
using geometry::Point;

/// Eight icons in lines of three:  0 1 2 / 3 4 5 / 6 7
constexpr IconGrid kGrid{8, 3, {20, 4}, {75, 70}};

Point PlaceOf(int icon) { return {20 + 75 * (icon % 3), 4 + 70 * (icon / 3)}; }

TEST(NextIcon, LeftAndRightStayInTheLine) {
  EXPECT_EQ(NextIcon(kGrid, PlaceOf(0), IconStep::Right), 1);
  EXPECT_EQ(NextIcon(kGrid, PlaceOf(2), IconStep::Right), -1);
  EXPECT_EQ(NextIcon(kGrid, PlaceOf(7), IconStep::Right), -1);
  EXPECT_EQ(NextIcon(kGrid, PlaceOf(5), IconStep::Left), 4);
  EXPECT_EQ(NextIcon(kGrid, PlaceOf(3), IconStep::Left), -1);
}

TEST(NextIcon, UpAndDownGoFromLineToLine) {
  EXPECT_EQ(NextIcon(kGrid, PlaceOf(1), IconStep::Down), 4);
  EXPECT_EQ(NextIcon(kGrid, PlaceOf(4), IconStep::Down), 7);
  EXPECT_EQ(NextIcon(kGrid, PlaceOf(5), IconStep::Down), 7);  // above the gap
  EXPECT_EQ(NextIcon(kGrid, PlaceOf(6), IconStep::Down), -1);
  EXPECT_EQ(NextIcon(kGrid, PlaceOf(7), IconStep::Up), 4);
  EXPECT_EQ(NextIcon(kGrid, PlaceOf(2), IconStep::Up), -1);
}

TEST(NextIcon, EveryIconHasItsNeighbours) {
  struct Neighbours {
    int left, right, up, down;
  };
  constexpr Neighbours kNeighbours[] = {{-1, 1, -1, 3}, {0, 2, -1, 4}, {1, -1, -1, 5}, {-1, 4, 0, 6},
                                        {3, 5, 1, 7},   {4, -1, 2, 7}, {-1, 7, 3, -1}, {6, -1, 4, -1}};
  for (int icon = 0; icon < kGrid.count; ++icon) {
    SCOPED_TRACE(icon);
    EXPECT_EQ(NextIcon(kGrid, PlaceOf(icon), IconStep::Left), kNeighbours[icon].left);
    EXPECT_EQ(NextIcon(kGrid, PlaceOf(icon), IconStep::Right), kNeighbours[icon].right);
    EXPECT_EQ(NextIcon(kGrid, PlaceOf(icon), IconStep::Up), kNeighbours[icon].up);
    EXPECT_EQ(NextIcon(kGrid, PlaceOf(icon), IconStep::Down), kNeighbours[icon].down);
  }
}

TEST(NextIcon, TheNearestIconCounts) {
  EXPECT_EQ(NextIcon(kGrid, {20 + 75 + 30, 4 + 70 - 30}, IconStep::Left), 3);
  EXPECT_EQ(NextIcon(kGrid, {-5000, -5000}, IconStep::Right), 1);
  EXPECT_EQ(NextIcon(kGrid, {std::numeric_limits<int>::max(), 5000}, IconStep::Up), 4);
}

TEST(NextIcon, OneIconAndOneLineHaveNoSpacing) {
  const IconGrid one{1, 1, {20, 4}, {}};
  const IconGrid line{2, 2, {20, 4}, {75, 0}};
  for (const IconStep step : {IconStep::Left, IconStep::Right, IconStep::Up, IconStep::Down}) {
    EXPECT_EQ(NextIcon(one, {20, 4}, step), -1);
    EXPECT_EQ(NextIcon(IconGrid{}, {0, 0}, step), -1);
    EXPECT_EQ(NextIcon(IconGrid{3, 0, {}, {}}, {0, 0}, step), -1);
  }
  EXPECT_EQ(NextIcon(line, {20, 4}, IconStep::Right), 1);
  EXPECT_EQ(NextIcon(line, {20, 4}, IconStep::Down), -1);
}

TEST(NextIcon, EachArrowKeyHasItsStep) {
  EXPECT_EQ(filedialog::IconStepOf(virtual_key::kLeft), IconStep::Left);
  EXPECT_EQ(filedialog::IconStepOf(virtual_key::kRight), IconStep::Right);
  EXPECT_EQ(filedialog::IconStepOf(virtual_key::kUp), IconStep::Up);
  EXPECT_EQ(filedialog::IconStepOf(virtual_key::kDown), IconStep::Down);
  for (const int key : {0, virtual_key::kHome, virtual_key::kPageDown}) {
    EXPECT_EQ(filedialog::IconStepOf(key), std::nullopt);
  }
}

TEST(NextIcon, AGridHasNoIconsAtFirst) { EXPECT_EQ(IconGrid().count, 0); }

}  // namespace
