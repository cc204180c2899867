#include "dlglib/c_interface/grid_table.h"

#include "dlglib/base/edge.h"

namespace c_interface {

GridTable::~GridTable() { End(); }

// A handle that the system has given to another window meanwhile has another object.
bool GridTable::IsAttached() const {
  if (parent == nullptr || ::IsWindow(parent) == FALSE || ::IsWindow(view) == FALSE) return false;
  return CWnd::FromHandle(parent) == parentObject && ::IsChild(parent, view) != FALSE;
}

void GridTable::End() noexcept {
  edge::Guarded([&] {
    if (!IsAttached()) utility.SetParentWindow(nullptr);
    grid.BeDestroyed();
    parent = nullptr;
  });
}

std::shared_ptr<GridTable> FindGrid(Call& call, DlglibGrid handle) {
  std::shared_ptr<GridTable> table = Grids::All().Find(handle);
  call.Require(table != nullptr, DLGLIB_BAD_HANDLE);
  if (table == nullptr) return nullptr;
  call.Require(table->thread == ::GetCurrentThreadId(), DLGLIB_WRONG_THREAD);
  return call.Refused() ? nullptr : table;
}

std::shared_ptr<GridTable> FindAttached(Call& call, DlglibGrid handle) {
  std::shared_ptr<GridTable> table = FindGrid(call, handle);
  if (table == nullptr) return nullptr;
  call.Require(table->IsAttached(), DLGLIB_NOT_ATTACHED);
  return call.Refused() ? nullptr : table;
}

bool RequireColumn(Call& call, CvGrid& grid, int col) {
  call.Require(grid.Model().HasColumn(col), DLGLIB_BAD_ARGUMENT);
  return !call.Refused();
}

bool RequireCell(Call& call, CvGrid& grid, int row, int col) {
  call.Require(grid.Model().HasCell(row, col), DLGLIB_BAD_ARGUMENT);
  return !call.Refused();
}

bool RequireUsedRow(Call& call, CvGrid& grid, int row) {
  call.Require(grid.Model().IsUsed(row), DLGLIB_BAD_ARGUMENT);
  return !call.Refused();
}

bool RequireResult(Call& call, const void* result) {
  call.Require(result != nullptr, DLGLIB_NULL_ARGUMENT);
  return !call.Refused();
}

}  // namespace c_interface
