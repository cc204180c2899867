// Editing in place: which cell is edited, where its editors stand, what a click does.
#include <algorithm>

#include "dlglib/listcontrol/CvListControl.h"
#include "dlglib/listcontrol/CvListControlState.h"
#include "dlglib/listcontrol/grid_text.h"
#include "dlglib/utility/shift_jis.h"

// ------------------------------------------------------------------------------------------------------ hiding editors

/// The text is committed before the cell is forgotten.
void CvListControl::ForgetEdit() {
  state_->ForgetPainting();
  CvEdit* const edit = std::exchange(state_->currentEdit, nullptr);
  if (edit == nullptr) return;
  edit->Leave();
  edit->ForgetCell();
  edit->Hide();
}

/// Forgotten first: closing its list tells so, and that must find nothing open.
void CvListControl::ForgetCombo() {
  state_->ForgetPainting();
  const ComboBoxRef combo(std::exchange(state_->openCombo, nullptr));
  if (!combo.IsWindow()) return;
  if (combo.GetDroppedState()) combo.ShowDropDown(FALSE);
  combo.SetWindowPos(HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_HIDEWINDOW);
}

void CvListControl::HideEditors() {
  ForgetEdit();
  ForgetCombo();
}

void CvListControl::FocusList() {
  if (state_->list.IsWindow()) state_->list.SetFocus();
}

/// Nobody types into a box that is not there.
void CvListControl::FocusListForHiddenEditor() {
  const WindowRef focus(::GetFocus());
  const WindowRef parent(state_->parent);
  if (focus.m_hWnd == nullptr || !parent.Is(::GetParent(focus.m_hWnd)) || focus.IsWindowVisible()) return;
  const bool isEditor = std::any_of(state_->columns.begin(), state_->columns.end(), [&focus](const Column& column) {
    return focus.Is(WindowRef::HandleOf(column.edit.get())) || focus.Is(column.combo);
  });
  if (isEditor) FocusList();
}

// -------------------------------------------------------------------------------------------------------------- clicks

void CvListControl::ClickItem() {
  State& state = *state_;
  state.previous = state.edited;
  HideEditors();
  ClearSelectFlag();
  TakeListSelection();
  state.edited = {state.model.FirstSelected(), grid::kNoColumn};
  POINT cursor = {};
  ::GetCursorPos(&cursor);
  state.list.ScreenToClient(&cursor);
  RecordColumnsOnce();
  state.edited.column = grid::ColumnAt(state.Edges(), cursor.x);
  FinishClick();
}

void CvListControl::ClickItem(int row, int col) {
  State& state = *state_;
  state.previous = state.edited;
  HideEditors();
  ClearSelectFlag();
  state.edited = {};
  if (state.model.IsUsed(row)) {
    state.edited.row = row;
    state.model.Select(row, 1);
  }
  if (state.HasColumn(col)) state.edited.column = col;
  FinishClick();
}

void CvListControl::TakeListSelection() {
  int row = grid::kNoRow;
  for (int left = state_->list.GetSelectedCount(); left > 0; --left) {
    row = state_->list.GetNextItem(row, LVNI_SELECTED);
    if (row < 0) return;
    state_->model.Select(row, 1);
  }
}

void CvListControl::FinishClick() {
  const LifeWatch watch(*this);
  MessageText("");
  SelectItem();
  if (!watch.Alive()) return;
  FocusListForHiddenEditor();
  DrawItem();
  const GridCell cell = state_->edited;
  if (cell.row < 0 || !state_->HasColumn(cell.column) || state_->openCombo != nullptr) return;
  const char* const prompt = state_->At(cell.column).editPrompt.Text();
  if (*prompt != '\0') MessageText(prompt);
}

void CvListControl::GetClickItem(int* row, int* col) {
  // A list view that is not there answers 0 to everything, so its selection has no end.
  int firstSelected = grid::kNoRow;
  int at = grid::kNoRow;
  for (int left = state_->list.GetSelectedCount(); left > 0 && firstSelected < 0; --left) {
    at = state_->list.GetNextItem(at, LVNI_SELECTED);
    if (state_->model.IsUsed(at)) firstSelected = at;
  }
  POINT cursor = {};
  ::GetCursorPos(&cursor);
  state_->list.ScreenToClient(&cursor);
  RecordColumnsOnce();
  if (row != nullptr) *row = firstSelected;
  if (col != nullptr) *col = grid::ColumnUpTo(state_->Edges(), cursor.x);
}

// ------------------------------------------------------------------------------------------------------------ edit box

void CvListControl::SelectItem(int row, int col) {
  if (state_->model.IsUsed(row) && state_->HasColumn(col)) state_->pending = {row, col};
}

void CvListControl::SelectItem() {
  RecordColumnsOnce();
  const bool moved = IsVScroll() != 0 || IsHScroll() != 0;
  RefreshPage();
  SelectCell(moved);
}

void CvListControl::SelectCell(bool moved) {
  State& state = *state_;
  FollowPending();
  const GridCell cell = {state.model.FirstSelected(), state.edited.column};
  if (!state.page.Shows(cell.row)) return;
  if (state.model.Available(cell.row, cell.column) != 0) {
    state.model.Select(cell.row, 0);
    state.edited.row = grid::kNoRow;
    return;
  }
  EditCell(cell.row, cell.column, moved);
}

/// A row that is gone meanwhile is not asked for any more.
void CvListControl::FollowPending() {
  State& state = *state_;
  const GridCell cell = std::exchange(state.pending, {});
  if (!state.model.IsUsed(cell.row)) return;
  state.edited = cell;
  state.model.Select(cell.row, 1);
  if (state.page.Shows(cell.row)) return;
  const int target = grid::ScrollTarget(cell.row, state.page.rows, state.model.Capacity());
  RECT first = {};
  state.list.GetItemRect(0, &first, LVIR_BOUNDS);
  state.ForgetPainting();
  state.list.Scroll(0, (target - state.page.top) * (first.bottom - first.top));
  state.page.top = state.list.GetTopIndex();
  state.page.end = state.page.top + state.page.rows;
}

void CvListControl::EditCell(int row, int col, bool moved) {
  State& state = *state_;
  const LifeWatch watch(*this);
  CvEdit* const edit = state.At(col).edit.get();
  const bool changed = edit != state.currentEdit;
  if (changed) ForgetEdit();
  if (!watch.Alive()) return;
  state.currentEdit = edit;
  const bool standsElsewhere = edit != nullptr && edit->Cell() != GridCell{row, col};
  state.edited.row = row;
  if (edit != nullptr && (moved || changed || standsElsewhere)) PlaceEdit(*edit, row, col);
  if (!watch.Alive() || state.previous != GridCell{row, col}) return;
  OpenComboBox();
  if (watch.Alive()) state.previous.row = grid::kNoRow;
}

void CvListControl::PlaceEdit(CvEdit& edit, int row, int col) {
  State& state = *state_;
  state.ForgetPainting();
  const Column& column = state.At(col);
  const int buttonWidth = column.combo != nullptr ? ::GetSystemMetrics(SM_CXVSCROLL) : -1;
  const std::optional<grid::Place> place = grid::EditBoxPlace(state.PlaceOf(row, col), buttonWidth);
  edit.TakeCell({row, col}, state.model.Text(row, col), {column.editMode, column.spaceMode});
  if (!place) {
    edit.Hide();
    return;
  }
  if (const CWnd* const parent = state.Parent(); parent != nullptr) edit.SetFont(parent->GetFont());
  edit.ShowAt(*place);
}

void CvListControl::KeyInput() {
  const State& state = *state_;
  if (state.currentEdit != nullptr && state.edited.row >= 0 && state.edited.column >= 0) CommitText(*state.currentEdit);
}

void CvListControl::CommitText(const CvEdit& edit) {
  if (!edit.Cell()) return;
  state_->model.TypeText(edit.Cell()->row, edit.Cell()->column, edit.Text().c_str());
}

// ---------------------------------------------------------------------------------------------------------- combo box

void CvListControl::OpenComboBox() {
  State& state = *state_;
  if (state.openCombo != nullptr) {
    CloseComboBox();
    return;
  }
  RecordColumnsOnce();
  const int row = state.model.FirstSelected();
  const int col = state.edited.column;
  if (!state.page.Shows(row) || !state.HasColumn(col)) return;
  if (::IsWindow(state.At(col).combo) == FALSE || state.EdgesOf(col).left < 0) return;
  ShowCombo(row, col);
}

void CvListControl::ShowCombo(int row, int col) {
  State& state = *state_;
  const LifeWatch watch(*this);
  const Column& column = state.At(col);
  const ComboBoxRef combo(column.combo);
  state.openCombo = column.combo;
  state.ForgetPainting();
  int furtherWidth = 0;
  for (int c = col + 1; c <= column.comboLastColumn; ++c) furtherWidth += state.list.GetColumnWidth(c);
  const grid::Place place = grid::ComboBoxPlace(state.PlaceOf(row, col), furtherWidth);
  const BoundedText<127> prompt = column.comboPrompt;
  combo.SetCurSel(combo.FindStringExact(-1, state.model.Text(row, col)));
  combo.SetWindowPos(HWND_TOP, place.x, place.y, place.width, place.height, SWP_SHOWWINDOW);
  combo.ShowDropDown(TRUE);
  if (!watch.Alive()) return;
  if (CWnd* const parent = state.Parent(); parent != nullptr) parent->UpdateData(FALSE);
  if (!watch.Alive()) return;
  MessageText("");
  if (*prompt.Text() != '\0') MessageText(prompt.Text());
}

void CvListControl::CloseComboBox() {
  State& state = *state_;
  if (state.openCombo == nullptr) return;
  const LifeWatch watch(*this);
  ForgetCombo();
  if (!watch.Alive()) return;
  MessageText("");
  if (state.HasColumn(state.edited.column)) {
    const char* const prompt = state.At(state.edited.column).editPrompt.Text();
    if (*prompt != '\0') MessageText(prompt);
  }
  FocusList();
  if (watch.Alive() && state.currentEdit != nullptr) state.currentEdit->SetFocus();
}

void CvListControl::PickEntry(const CvComboBox& combo) {
  const LifeWatch watch(*this);
  const int picked = combo.GetCurSel();
  const int row = state_->model.FirstSelected();
  const int col = state_->edited.column;
  if (picked >= 0 && row >= 0 && col >= 0) {
    CString entry;
    combo.GetLBText(picked, entry);
    const std::string value = grid::ValuePart(entry.View(), state_->comboSeparator);
    SetItemText(row, col, value.c_str());
    if (watch.Alive()) SelchangeComboBox(value.c_str());
  }
  if (watch.Alive()) CloseComboBox();
}

/// A value is given, not typed: as in every text that a cell is given, the column's limit counts and not the box's.
void CvListControl::SelchangeComboBox(const char* text) {
  CvEdit* const edit = state_->currentEdit;
  if (edit == nullptr) return;
  const int column = edit->Cell() ? edit->Cell()->column : grid::kNoColumn;
  const auto limit = static_cast<std::size_t>(state_->model.TextLimit(column));
  edit->GiveText(std::string(shift_jis::Truncate(text != nullptr ? text : "", limit)).c_str());
}
