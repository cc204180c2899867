// CvEdit: the edit box that stands over a cell of a grid. It commits to its cell whatever changes in it.
//
// The control counts characters, a cell bytes; the box sees to it that no more bytes get in than the cell may hold.
// While the input method composes, nothing is touched and nothing committed: the end of the composition commits once,
// and one that is given up, or still open when the box is left, puts back what the box held when it began, marked text
// included. What the grid gives the box meanwhile takes the place of that.
//
// The control tells its dialog of every change, and the dialog may take the box, the list or itself away at that. So
// what is in the box is committed before it is shown in another form, whoever works with a box shares it, and behind
// each change of its text the box asks whether it still belongs to a list.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "dlglib/listcontrol/editable_cells.h"
#include "dlglib/listcontrol/grid_places.h"
#include "dlglib/listcontrol/typed_text.h"
#include "platform/framework/controls.h"
#include "platform/os/composed_text.h"

class CvGrid;

class CvEdit : public CEdit, public std::enable_shared_from_this<CvEdit> {
 public:
  /// `grid` owns the box. Takes at most `byteLimit` bytes of Shift_JIS.
  CvEdit(CvGrid* grid, int byteLimit) noexcept;

  /// Stands for `cell` from now on and holds its text (Shift_JIS). Commits nothing.
  void StandFor(grid::CellPosition cell, const char* text, grid::BoxModes modes);
  /// Appears over its cell, all of its text selected, with the focus.
  void ShowAt(const grid::Place& place);
  /// Commits the text as it is when the box is left: without the blanks at its end.
  void Leave();
  /// Hides the box; it keeps its cell.
  void Hide();
  /// Stands over no cell any more, and so commits nothing.
  void ForgetCell() noexcept { cell_.reset(); }
  /// Belongs to no list any more.
  void Part() noexcept;
  /// Shows what the cell has been given meanwhile. Commits nothing.
  void ShowText(const char* text);
  /// Shows a text (Shift_JIS) and commits it whole, whatever the box itself may take.
  void GiveText(const std::string& text, grid::TextOrigin origin);

  /// Nothing is marked, and the caret stands behind the text.
  void CaretToEnd();

  /// Whether what the box holds is the user's, or still what the grid has given it.
  [[nodiscard]] grid::TextOrigin Origin() const;
  /// Whether an input method has a composition open.
  [[nodiscard]] bool IsComposing() const noexcept { return composing_; }
  [[nodiscard]] const std::optional<grid::CellPosition>& Cell() const noexcept { return cell_; }

  Handled RouteMessage(const Message& message) override;

 private:
  Handled OnInput(const Message& message);
  Handled OnDialogCode(const Message& message);
  Handled OnFocus();
  Handled OnChar(const Message& message);
  Handled OnSetText();
  Handled OnStartComposition();
  LRESULT OnEndComposition(const Message& message);
  void PutBackComposed();
  void OnChange();
  void OnKillFocus();
  Handled OnDeleteKey(const Message& message);
  Handled OnReplace(const Message& message);
  Handled OnPaste();
  Handled OnCut();
  Handled OnClear();

  [[nodiscard]] std::wstring WideText() const;
  void Commit(std::wstring_view shown);
  void ShowHeld(std::wstring_view typed, const std::wstring& held);
  void Remove(const std::optional<grid::TextRange>& excess);
  [[nodiscard]] bool Fits(wchar_t typed) const;
  [[nodiscard]] grid::TextRange Selection() const;
  [[nodiscard]] bool IsBeyondBoxWithout(grid::TextRange part) const;
  bool DeleteBeyondBox(grid::TextRange part);
  void SetQuietly(const std::wstring& text);

  CvGrid* grid_;  ///< null once it has parted from this box
  int byteLimit_;
  grid::BoxModes modes_;
  std::optional<grid::CellPosition> cell_;
  std::wstring accepted_;  ///< the text after the last change
  grid::TextOrigin origin_ = grid::TextOrigin::Given;
  bool composing_ = false;
  os::ComposedText composed_;  ///< when the open composition began
  int quiet_ = 0;              ///< above 0: the change comes from the grid
};
