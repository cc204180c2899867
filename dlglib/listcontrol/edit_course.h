// Which cell of a grid is edited, and what has to be done for it. Decides only: the window tells what has happened, and
// carries the steps out.
//
// Three cells matter. The edited one; its row is kNoRow when none is edited, and its column is kept then. The previous
// one, which was edited before the last click, so that a second click on a cell is known. The one asked for, which the
// program wants to be edited at the next occasion.
//
// Carrying a step out may run code of the dialog, which may click, ask, or end everything. So a step is small, and
// behind each the window asks what holds now.
#pragma once

#include "dlglib/listcontrol/editable_cells.h"
#include "dlglib/listcontrol/grid_places.h"

namespace grid {

/// The edit box of the cell that is to be edited.
struct BoxState {
  bool exists = false;          ///< the cell's column has one
  bool isCurrent = false;       ///< it is the one that was placed last; without one, none was
  bool standsOverCell = false;  ///< over this cell
  bool hasMoved = false;        ///< rows or columns have, since it was placed
};

/// What is to be done for the cell that is to be edited, in this order.
struct BoxStep {
  bool forget = false;  ///< the current box stands over no cell: what was typed into it is for none
  bool leave = false;   ///< the current box is another one, and is left
  bool place = false;   ///< the cell's box is put over the cell

  friend bool operator==(const BoxStep&, const BoxStep&) = default;
};

class EditCourse {
 public:
  /// A list begins, or ends.
  void Begin() noexcept;
  void End() noexcept;

  /// The row is kNoRow when no cell is edited; its column is that of the last one.
  [[nodiscard]] CellPosition Edited() const noexcept { return edited_; }
  /// Whether what is typed goes to a cell.
  [[nodiscard]] bool TakesText() const noexcept { return edited_.row >= 0 && edited_.column >= 0; }
  /// No cell is edited any more.
  void Leave() noexcept { edited_.row = kNoRow; }

  /// A click has happened. The cell that was edited until now is the previous one.
  void BeginClick() noexcept { previous_ = edited_; }
  /// What the click was on: a part outside the table is kNoRow or kNoColumn.
  void Click(CellPosition cell) noexcept { edited_ = cell; }

  /// The program asks for a cell.
  void Ask(CellPosition cell) noexcept { asked_ = cell; }
  /// Takes up what was asked for: the cell is the edited one, and its row selected. Nothing when its row has gone
  /// meanwhile. Returns the row that has to be brought to the top for it; kNoRow when it is on the page.
  [[nodiscard]] int FollowRequest(GridModel* model, const Page& page) noexcept;

  /// The cell to be edited: in the first selected row, when that is on the page. A row whose cell is not available
  /// loses its selection, and no cell is edited then. The row is kNoRow when there is nothing to do.
  [[nodiscard]] CellPosition Choose(GridModel* model, const Page& page) noexcept;
  /// What the cell's box needs. `wasEdited`: a cell was edited when this began.
  [[nodiscard]] static BoxStep PlanBox(const BoxState& box, bool wasEdited) noexcept;
  /// The cell is edited now.
  void Enter(CellPosition cell) noexcept { edited_.row = cell.row; }
  /// Whether it was clicked for the second time, which drops its list down. The next click counts anew.
  [[nodiscard]] bool IsSecondClick(CellPosition cell) const noexcept { return previous_ == cell; }
  void EndSecondClick() noexcept { previous_.row = kNoRow; }

  /// The cell whose list is to be dropped down; its row is kNoRow when it is not on the page.
  [[nodiscard]] CellPosition DropDown(const GridModel& model, const Page& page) const noexcept;

 private:
  CellPosition edited_;
  CellPosition previous_;
  CellPosition asked_;
};

}  // namespace grid
