// A grid of the C interface, and how its functions come by it. Internal to the interface.
//
// It is built on what stands behind the class of C++ programs, not on the class itself, which answers want of memory
// like any other "no"; a function here says which it was.
#pragma once

#include <memory>

#include "dlglib/c_interface/call.h"
#include "dlglib/c_interface/handles.h"
#include "dlglib/listcontrol/CvGrid.h"
#include "dlglib/utility/CvUtility.h"

namespace c_interface {

struct GridTable {
  GridTable() = default;
  GridTable(const GridTable&) = delete;
  GridTable& operator=(const GridTable&) = delete;
  ~GridTable();

  /// Whether the list view, and the window that it lies in, are still those that were given.
  [[nodiscard]] bool IsAttached() const;
  /// Hides the editors and gives all back. Without the window nothing of it is touched.
  void End() noexcept;

  /// The program's check, and what it is to be asked in.
  struct PasteCheck {
    DlglibGridPasteCheck ask = nullptr;
    void* context = nullptr;
    Encoding encoding = Encoding::Sjis;
  };

  const DWORD thread = ::GetCurrentThreadId();
  HWND parent = nullptr;
  HWND view = nullptr;
  CWnd* parentObject = nullptr;  ///< good as long as the parent's window is there
  DlglibGrid parentGrid = nullptr;
  PasteCheck pasteCheck;
  CvUtility utility;
  CvGrid grid{utility};
};

using Grids = Handles<DlglibGrid, GridTable>;

/// The grid of a handle, on its own thread; null when the call is refused.
[[nodiscard]] std::shared_ptr<GridTable> FindGrid(Call& call, DlglibGrid handle);
/// The same of one that has its list view.
[[nodiscard]] std::shared_ptr<GridTable> FindAttached(Call& call, DlglibGrid handle);

/// What `use` answers of a grid with its list view. The table lives as long as that, whatever the host does.
template <class Use>
[[nodiscard]] DlglibResult WithGrid(Encoding encoding, DlglibGrid handle, const Use& use) noexcept {
  return Answer(encoding, [&](Call& call) -> DlglibResult {
    const std::shared_ptr<GridTable> table = FindAttached(call, handle);
    return table != nullptr ? use(call, table->grid) : call.Result();
  });
}

template <class Use>
[[nodiscard]] DlglibResult WithGrid(DlglibGrid handle, const Use& use) noexcept {
  return WithGrid(Encoding::Sjis, handle, use);
}

// What a call refuses. Each answers whether it has not been refused so far.

bool RequireColumn(Call& call, CvGrid& grid, int col);
/// A row that there is room for.
bool RequireCell(Call& call, CvGrid& grid, int row, int col);
/// A row in use.
bool RequireUsedRow(Call& call, CvGrid& grid, int row);
/// Where an answer goes.
bool RequireResult(Call& call, const void* result);

}  // namespace c_interface
