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

struct CvGridTable {
  CvGridTable() = default;
  CvGridTable(const CvGridTable&) = delete;
  CvGridTable& operator=(const CvGridTable&) = delete;
  ~CvGridTable();

  /// Whether the list view, and the window that it lies in, are still those that were given.
  [[nodiscard]] bool IsAttached() const;
  /// The room of a grid. `textLimits`: null for the columns' own, else one for each column.
  struct Size {
    int columns;
    const std::int32_t* textLimits;
    int items;
    int rows;
  };
  /// `parent` may be null.
  [[nodiscard]] static bool HasView(HWND parent, int id) {
    return parent != nullptr && ::GetDlgItem(parent, id) != nullptr;
  }
  /// Works on that list view from now on. False without memory: it has none then.
  [[nodiscard]] bool Attach(HWND parentWindow, int viewId, const Size& size, int numberColumn);

  /// Whether the message is one that a grid with a list view asks for.
  [[nodiscard]] bool Wants(UINT message) const;
  /// Whether such a message was for this list view; it has been carried out then. `data`: its lParam.
  [[nodiscard]] bool Takes(UINT message, const void* data);

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

using Grids = Handles<DlglibGrid, CvGridTable>;

/// The grid of a handle, on its own thread; null when the call is refused.
[[nodiscard]] std::shared_ptr<CvGridTable> FindGrid(Call& call, DlglibGrid handle);
/// The same of one that has its list view.
[[nodiscard]] std::shared_ptr<CvGridTable> FindAttached(Call& call, DlglibGrid handle);

/// What `use` answers of a grid with its list view. The table lives as long as that, whatever the host does.
template <class Use>
[[nodiscard]] DlglibResult WithGrid(Encoding encoding, DlglibGrid handle, const Use& use) noexcept {
  return Answer(encoding, [&](Call& call) -> DlglibResult {
    const std::shared_ptr<CvGridTable> table = FindAttached(call, handle);
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
