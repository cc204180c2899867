// CvInputMethod: the input method of the thread's windows, as the columns of a grid want it. As long as no column has a
// mode it never asks nor sets anything.
#pragma once

#include "dlglib/listcontrol/ime_plan.h"
#include "platform/framework/win32.h"

class CvInputMethod {
 public:
  /// As CvListControl::SetImeMode numbers them. `focus`: the window that is typed into, null when that is none of the
  /// grid's; `edited`: its cell. In force at once.
  void SetMode(int column, int mode, HWND focus, grid::CellPosition edited) noexcept;
  /// A window of the grid has the focus, and the cell is edited, or none.
  void Enter(HWND focus, grid::CellPosition edited) noexcept;
  /// The grid has lost the focus: what was there when it was entered comes back.
  void Leave() noexcept;

 private:
  void PutBack() noexcept;

  grid::ImePlan plan_;
  HWND window_ = nullptr;  ///< that had the focus last
};
