// What tools are told of while somebody works on the grid.
#include <gtest/gtest.h>

#include "tests/windows/accessible/tool.h"
#include "tests/windows/driver/events.h"
#include "tests/windows/grid/grid_keyed.h"

namespace grid_test {
namespace {

using driver::Events;
using driver::User;

/// Cells are numbered from here on, 1024 to a row; both count from 1.
LONG CellId(int row, int col) { return 0x40000000 + (row + 1) * 1024 + col + 1; }
LONG RowId(int row) { return row + 1; }

class GridEvents : public KeyedGridTest {};

INSTANTIATE_TEST_SUITE_P(Hosts, GridEvents, testing::Values(HostKind::Framework, HostKind::Plain), NameOfHost);

TEST_P(GridEvents, ACellThatIsEditedIsToldOnce) {
  Use([&](User& user) {
    Events events(host_->ListView());
    ClickCell(user, 2, kName);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_FOCUS, CellId(2, kName)), 1);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_SELECTION, CellId(2, kName)), 1);
    events.Forget();
    user.Key(VK_TAB);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_FOCUS, CellId(2, kMaterial)), 1);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_SELECTION, CellId(2, kMaterial)), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_VALUECHANGE), 0) << "nothing was typed";
  });
}

TEST_P(GridEvents, WhatWasTypedIsToldOnceWhenItsCellIsLeft) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    Events events(host_->ListView());
    user.Type("abc");
    user.Settle();
    events.Take();
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_VALUECHANGE), 0);
    user.Key(VK_DOWN);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_VALUECHANGE, RowId(2)), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_VALUECHANGE), 1);
  });
}

TEST_P(GridEvents, EachRowThatIsDeletedIsToldOnce) {
  Use([&](User& user) {
    SelectRows(user, {1, 3, 6}, kName);
    Events events(host_->ListView());
    host_->Do([&] { host_->list->DeleteItem(); });
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_DESTROY, RowId(1)), 1);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_DESTROY, RowId(3)), 1);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_DESTROY, RowId(6)), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_DESTROY), 3);
  });
}

TEST_P(GridEvents, ARowThatIsInsertedIsToldOnce) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    Events events(host_->ListView());
    host_->Do([&] { host_->list->InsertItem(); });
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_CREATE, RowId(2)), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_CREATE), 1);
  });
}

TEST_P(GridEvents, RowsThatComeBackByUndoAreToldAsOne) {
  Use([&](User& user) {
    SelectRows(user, {1, 3, 6}, kName);
    host_->Do([&] { host_->list->DeleteItem(); });
    user.Settle();
    Events events(host_->ListView());
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_REORDER, CHILDID_SELF), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_CREATE), 0);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetItemCount(); }), kKeyedRows);
  });
}

}  // namespace
}  // namespace grid_test
