#include "dlglib/c_interface/CvGridTable.h"

#include "dlglib/base/edge.h"

namespace c_interface {

namespace {

void SetLimits(CvGrid& grid, const CvGridTable::Size& size) {
  grid.ResetTextLimits();
  if (size.textLimits == nullptr) return;
  for (int col = 0; col < size.columns; ++col) grid.SetTextLimit(col, size.textLimits[col]);
}

}  // namespace

CvGridTable::~CvGridTable() { End(); }

// A handle that the system has given to another window meanwhile has another object.
bool CvGridTable::IsAttached() const {
  if (parent == nullptr || ::IsWindow(parent) == FALSE || ::IsWindow(view) == FALSE) return false;
  return CWnd::FromHandle(parent) == parentObject && ::IsChild(parent, view) != FALSE;
}

bool CvGridTable::Attach(HWND parentWindow, int viewId, const Size& size, int numberColumn) {
  if (!IsAttached()) utility.SetParentWindow(nullptr);
  parentObject = CWnd::FromHandle(parentWindow);
  parent = parentWindow;
  view = ::GetDlgItem(parentWindow, viewId);
  SetLimits(grid, size);
  grid.Init(parentObject, viewId, size.columns, size.items, size.rows, numberColumn);
  if (grid.Model().Capacity() == size.rows) return true;
  parent = nullptr;
  return false;
}

bool CvGridTable::Wants(UINT message) const { return (message == WM_DRAWITEM || message == WM_NOTIFY) && IsAttached(); }

bool CvGridTable::Takes(UINT message, const void* data) {
  const WindowRef list(view);
  if (message == WM_DRAWITEM) {
    const auto& item = *static_cast<const DRAWITEMSTRUCT*>(data);
    if (!list.Is(item.hwndItem)) return false;
    grid.OnDrawItem(static_cast<int>(item.itemID));
    return true;
  }
  const auto& notice = *static_cast<const NMHDR*>(data);
  if (!list.Is(notice.hwndFrom) || notice.code != NM_CLICK) return false;
  grid.ClickItem();
  return true;
}

void CvGridTable::End() noexcept {
  edge::Guarded([&] {
    if (!IsAttached()) utility.SetParentWindow(nullptr);
    grid.BeDestroyed();
    parent = nullptr;
  });
}

std::shared_ptr<CvGridTable> FindGrid(Call& call, DlglibGrid handle) {
  std::shared_ptr<CvGridTable> table = Grids::All().Find(handle);
  call.Require(table != nullptr, DLGLIB_BAD_HANDLE);
  if (table == nullptr) return nullptr;
  call.Require(table->thread == ::GetCurrentThreadId(), DLGLIB_WRONG_THREAD);
  return call.Refused() ? nullptr : table;
}

std::shared_ptr<CvGridTable> FindAttached(Call& call, DlglibGrid handle) {
  std::shared_ptr<CvGridTable> table = FindGrid(call, handle);
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
