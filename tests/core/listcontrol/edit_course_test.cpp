#include "dlglib/listcontrol/edit_course.h"

#include <gtest/gtest.h>

namespace {

using grid::BoxStep;
using grid::CellPosition;
using grid::EditCourse;
using grid::kNoColumn;
using grid::kNoRow;
using grid::Page;

/// Three columns, 20 of 30 rows in use, all available; the page shows rows 5 to 9.
class EditCourseTest : public testing::Test {
 protected:
  EditCourseTest() {
    model_.Init(3, 20, 30, -1);
    for (int row = 0; row < 20; ++row) model_.SetAvailable(row, 0);
    course_.Begin();
  }
  void Click(int row, int column) {
    course_.BeginClick();
    model_.ClearSelection();
    course_.Leave();
    model_.Select(row, 1);
    course_.Click({row, column});
  }

  static constexpr CellPosition kNoCell = {};
  grid::GridModel model_;
  Page page_ = {5, 5, 10};
  EditCourse course_;
};

TEST_F(EditCourseTest, BeginsInTheFirstColumnWithoutACell) {
  EXPECT_EQ(course_.Edited(), (CellPosition{kNoRow, 0}));
  EXPECT_FALSE(course_.TakesText());
  course_.End();
  EXPECT_EQ(course_.Edited(), kNoCell);
}

TEST_F(EditCourseTest, TheClickedCellIsTheOneToBeEdited) {
  Click(6, 1);
  EXPECT_TRUE(course_.TakesText());
  EXPECT_EQ(course_.Choose(&model_, page_), (CellPosition{6, 1}));
  EXPECT_FALSE(course_.IsSecondClick({6, 1}));
}

TEST_F(EditCourseTest, TextGoesNowhereWithoutARowOrAColumn) {
  Click(6, kNoColumn);
  EXPECT_FALSE(course_.TakesText());
  Click(6, 1);
  course_.Leave();
  EXPECT_FALSE(course_.TakesText());
  EXPECT_EQ(course_.Edited(), (CellPosition{kNoRow, 1})) << "the column is kept";
}

TEST_F(EditCourseTest, TheSameCellClickedAgainIsASecondClick) {
  Click(6, 1);
  Click(6, 1);
  EXPECT_TRUE(course_.IsSecondClick({6, 1}));
  EXPECT_FALSE(course_.IsSecondClick({6, 2}));
  course_.EndSecondClick();
  EXPECT_FALSE(course_.IsSecondClick({6, 1}));
  Click(6, 1);
  EXPECT_TRUE(course_.IsSecondClick({6, 1})) << "each further click is one";
  Click(7, 1);
  EXPECT_FALSE(course_.IsSecondClick({7, 1}));
}

TEST_F(EditCourseTest, ACellThatIsNotAvailableLosesItsSelection) {
  model_.SetAvailable(6, 1, 1);
  Click(6, 1);
  EXPECT_EQ(course_.Choose(&model_, page_), kNoCell);
  EXPECT_EQ(model_.Selected(6), 0);
  EXPECT_EQ(course_.Edited(), (CellPosition{kNoRow, 1}));
  Click(6, kNoColumn);
  EXPECT_EQ(course_.Choose(&model_, page_), kNoCell);
  EXPECT_EQ(model_.Selected(6), 0) << "beside the columns there is none";
}

TEST_F(EditCourseTest, OnlyRowsOfThePageAreEdited) {
  for (const int row : {4, 10, 19}) {
    Click(row, 1);
    EXPECT_EQ(course_.Choose(&model_, page_), kNoCell);
    EXPECT_EQ(model_.Selected(row), 1);
  }
  model_.ClearSelection();
  EXPECT_EQ(course_.Choose(&model_, page_), kNoCell);
}

TEST_F(EditCourseTest, WhatTheProgramAsksForIsTakenUpOnce) {
  course_.Ask({7, 2});
  EXPECT_EQ(course_.Edited(), (CellPosition{kNoRow, 0}));
  EXPECT_EQ(course_.FollowRequest(&model_, page_), kNoRow) << "on the page already";
  EXPECT_EQ(course_.Choose(&model_, page_), (CellPosition{7, 2}));
  Click(5, 0);
  EXPECT_EQ(course_.FollowRequest(&model_, page_), kNoRow);
  EXPECT_EQ(course_.Edited(), (CellPosition{5, 0}));
}

TEST_F(EditCourseTest, ARequestBesideThePageBringsItsRowToTheTop) {
  course_.Ask({12, 0});
  EXPECT_EQ(course_.FollowRequest(&model_, page_), 12);
  EXPECT_EQ(model_.Selected(12), 1);
  model_.SetItemCount(30);
  course_.Ask({28, 0});
  EXPECT_EQ(course_.FollowRequest(&model_, page_), 25) << "not past the end of the list";
  course_.Ask({2, 0});
  EXPECT_EQ(course_.FollowRequest(&model_, page_), 2);
}

TEST_F(EditCourseTest, ARequestForARowThatHasGoneIsDropped) {
  course_.Ask({19, 1});
  model_.SetItemCount(10);
  EXPECT_EQ(course_.FollowRequest(&model_, page_), kNoRow);
  EXPECT_EQ(course_.Edited(), (CellPosition{kNoRow, 0}));
  model_.SetItemCount(20);
  EXPECT_EQ(course_.FollowRequest(&model_, page_), kNoRow) << "for good";
  EXPECT_EQ(model_.Selected(19), 0);
}

TEST_F(EditCourseTest, ABoxThatStandsWhereItShouldIsLeftAlone) {
  EXPECT_EQ(EditCourse::PlanBox({true, true, true, false}, true), BoxStep());
  EXPECT_EQ(EditCourse::PlanBox({false, true, false, true}, true), BoxStep()) << "no box, and none before";
}

TEST_F(EditCourseTest, ABoxIsPlacedWhereItIsNewOrHasMoved) {
  constexpr BoxStep kPlace = {false, false, true};
  EXPECT_EQ(EditCourse::PlanBox({true, true, true, true}, true), kPlace) << "moved";
  EXPECT_EQ(EditCourse::PlanBox({true, true, false, false}, true), kPlace) << "over another cell";
  EXPECT_EQ(EditCourse::PlanBox({true, false, false, false}, true), (BoxStep{false, true, true})) << "another box";
  EXPECT_EQ(EditCourse::PlanBox({false, false, false, false}, true), (BoxStep{false, true, false}))
      << "no box any more";
}

TEST_F(EditCourseTest, WhatWasTypedWhileNoCellWasEditedIsForNone) {
  EXPECT_EQ(EditCourse::PlanBox({true, true, true, false}, false), (BoxStep{true, false, true}));
  EXPECT_EQ(EditCourse::PlanBox({false, true, false, false}, false), (BoxStep{true, false, false}));
}

TEST_F(EditCourseTest, AListDropsDownFromTheEditedColumnOfTheSelectedRow) {
  Click(6, 2);
  EXPECT_EQ(course_.DropDown(model_, page_), (CellPosition{6, 2}));
  Click(12, 2);
  EXPECT_EQ(course_.DropDown(model_, page_), kNoCell) << "not on the page";
  Click(6, kNoColumn);
  EXPECT_EQ(course_.DropDown(model_, page_), kNoCell);
}

}  // namespace
