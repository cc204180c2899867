// What a tool asks of the grid's cells and rows does what a click does.
#include <gtest/gtest.h>

#include "tests/windows/accessible/tool.h"
#include "tests/windows/grid/grid_keyed.h"

namespace grid_test {
namespace {

using driver::User;
using spoken::PartOf;
using spoken::Tool;

class GridActions : public KeyedGridTest {};

INSTANTIATE_TEST_SUITE_P(Hosts, GridActions, testing::Values(HostKind::Framework, HostKind::Plain), NameOfHost);

TEST_P(GridActions, ACellIsEditedAsByAClick) {
  Use([&](User& user) {
    const Tool tool(user);
    EXPECT_EQ(tool.Act(host_->ListView(), PartOf(3, kName + 1)), S_OK);
    user.WaitUntil("the cell is edited", [&] { return EditedCell() == Edited(2, kName); });
    EXPECT_TRUE(host_->EditBox().HasFocus());
    EXPECT_EQ(host_->EditBox().Text(), host_->Text(2, kName));
    user.Type("x");
    EXPECT_EQ(host_->Text(2, kName), "x") << "all of it is marked";
  });
}

TEST_P(GridActions, ACellIsSelectedByItsEdit) {
  Use([&](User& user) {
    const Tool tool(user);
    for (const LONG flags : {LONG{SELFLAG_TAKEFOCUS}, LONG{SELFLAG_TAKESELECTION | SELFLAG_TAKEFOCUS}}) {
      const int row = flags == SELFLAG_TAKEFOCUS ? 1 : 5;
      EXPECT_EQ(tool.Select(host_->ListView(), PartOf(row + 1, kName + 1), flags), S_OK);
      user.Settle();
      EXPECT_EQ(EditedCell(), Edited(row, kName));
    }
  });
}

TEST_P(GridActions, WhatIsNotAvailableIsNotEdited) {
  Use([&](User& user) {
    const Tool tool(user);
    constexpr int kLocked = 4;
    EXPECT_EQ(tool.Act(host_->ListView(), PartOf(kLocked + 1, kName + 1)), DISP_E_MEMBERNOTFOUND) << "it has no action";
    EXPECT_EQ(tool.Select(host_->ListView(), PartOf(kLocked + 1, kName + 1), SELFLAG_TAKEFOCUS), S_FALSE);
    user.Settle();
    EXPECT_FALSE(host_->EditBox());
  });
}

TEST_P(GridActions, ACellWhoseRowStandsElsewhereMeanwhileIsNotEdited) {
  Use([&](User& user) {
    ClickCell(user, 0, kName);
    const auto asked = Tool(user).Ask(host_->ListView(), PartOf(3, kName + 1), [&](const driver::Accessible& cell) {
      const HRESULT answer = cell.Get()->accDoDefaultAction(cell.Self());
      host_->list->InsertItem();
      return answer;
    });
    EXPECT_EQ(asked, S_OK);
    user.Settle();
    EXPECT_NE(EditedCell(), Edited(2, kName));
    EXPECT_EQ(Tool(user).Act(host_->ListView(), PartOf(3, kName + 1)), S_OK) << "what stands there now";
    user.WaitUntil("the cell is edited", [&] { return EditedCell() == Edited(2, kName); });
  });
}

TEST_P(GridActions, ARowIsSelectedByTheEditOfItsFirstCell) {
  Use([&](User& user) {
    const Tool tool(user);
    EXPECT_EQ(tool.Select(host_->ListView(), spoken::Part(7), SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION), S_OK);
    user.Settle();
    EXPECT_EQ(SelectedRows(), std::vector<int>{6});
    EXPECT_EQ(tool.Select(host_->ListView(), spoken::Part(5), SELFLAG_TAKESELECTION), S_FALSE) << "not available";
    EXPECT_EQ(SelectedRows(), std::vector<int>{6});
  });
}

}  // namespace
}  // namespace grid_test
