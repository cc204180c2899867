// All that a user does to the cells of a grid, whatever calls for it: copying, pasting, clearing, typing, picking,
// rows, undo. The window gives it the columns' rules, carries texts between it and the clipboard, and shows what has
// changed.
//
// What a window does:
//
//   the program sets a text        SetText
//   it sets the item count         tells of CollectVisitChange, sets it in the model, then ForgetSteps
//   the list begins or ends        Forget
//   a cell is edited               BeginVisit, with a box or without
//   the box's text changes         Type, each time
//   a pick from the grid's list    Pick, then tells of CollectVisitChange
//   Esc                            Type with TextToGiveBack; the box shows it
//   a box is left that nobody      Reshape with what it shows
//   has typed into
//   the cell is left               tells of CollectVisitChange, then EndVisit
//   rows come and go               InsertRow, DeleteSelectedRows
//   copy                           BlockText of a CutBlock or the SelectedBlock, in wide form to the clipboard
//   paste                          ReadClipboardText, Plan, then Paste or the refusal's message; a text of the program
//                                  is a ClipboardText without lacking characters
//   undo                           when UndoMovesRows hides the editors first; Undo; redo likewise
//
// Before anything that is going to change something, but typing and picking, it tells of CollectVisitChange. Row
// operations, and a paste that adds rows, hide the editors first, which ends the visit. To tell of a change means the
// caller's callback and painting. When the row of a change is kNoRow the number of rows has changed, and everything is
// painted; otherwise a box over a changed cell shows the cell's text anew.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "dlglib/listcontrol/block_text.h"
#include "dlglib/listcontrol/editable_cells.h"
#include "dlglib/listcontrol/grid_undo.h"
#include "dlglib/listcontrol/paste_plan.h"

namespace grid {

/// What a paste answers when it is refused.
inline constexpr int kRefused = -1;

/// The cells of the block as a text, colours as empty fields.
[[nodiscard]] std::string BlockText(const EditableCells& cells, const CellBlock& block);

/// CvListControl::GetCellsText: the text of the part of the block that exists, in `size` bytes with its terminator; a
/// buffer that is too small becomes the empty text. Returns the bytes needed, 1 when there is nothing to give.
int CellsText(const EditableCells& cells, const CellBlock& block, char* out, int size);

class GridEditing : public GridUndo {
 public:
  using GridUndo::GridUndo;

  void SetPasteRows(int mode) noexcept { pasteRows_ = mode == 1 ? PasteRows::Added : PasteRows::Refused; }
  /// Null for none. `context` is passed on to it.
  void SetPasteCheck(PasteCheck check, void* context) noexcept {
    check_ = check;
    checkContext_ = context;
  }

  /// Plans to store the text at the cell, the caller's check included. The check may do anything, so the window looks
  /// afterwards whether this object is still there.
  [[nodiscard]] PastePlan Plan(const PasteRules& rules, const ClipboardText& text, CellPosition at) const;
  /// Whether carrying the plan out would change anything.
  [[nodiscard]] bool Changes(const PastePlan& plan) const noexcept;
  /// Carries a plan out as one step. A plan that is refused, or that a check has made obsolete by giving the grid
  /// another size, changes nothing and counts kRefused cells.
  Written Paste(const PastePlan& plan);
  /// Whether clearing the block would change anything.
  [[nodiscard]] bool Clears(const EditableCells& cells, const CellBlock& block) const noexcept;
  /// Empties the cells of the block as one step; leaves row numbers, colours, columns without an editor and cells that
  /// are not available alone.
  Written Clear(const EditableCells& cells, const CellBlock& block);

 private:
  PasteRows pasteRows_ = PasteRows::Refused;
  PasteCheck check_ = nullptr;
  void* checkContext_ = nullptr;
};

}  // namespace grid
