// Editing in place: which cell is edited, where its editors stand, what a click does.
#include <algorithm>
#include <utility>

#include "dlglib/base/edge.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/base/shown_text.h"
#include "dlglib/listcontrol/CvListControl.h"
#include "dlglib/listcontrol/CvListControlState.h"
#include "dlglib/listcontrol/grid_text.h"
#include "platform/framework/detail/wide_text.h"

namespace {

[[nodiscard]] std::wstring EntryOf(HWND combo, int index) {
  const LRESULT length = ::SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
  std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
  const LRESULT units =
      ::SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::max<LRESULT>(units, 0)));
  return text;
}

/// By value: showing it may run code of the dialog, and with that the column may go.
void ShowEditPrompt(CvListControl& list, const BoundedText<127> prompt) {
  if (*prompt.Text() != '\0') list.MessageText(prompt.Text());
}

}  // namespace

// ------------------------------------------------------------------------------------------------------ hiding editors

/// The text is committed before the cell is forgotten, and the box is hidden also when there is no memory to trim it.
/// The dialog may have placed the box anew when it was told so.
void CvListControl::ForgetEdit() {
  state_->ForgetPainting();
  const std::shared_ptr<CvEdit> edit = std::exchange(state_->currentEdit, nullptr);
  if (edit == nullptr) return;
  const LifeWatch watch(*this);
  edge::Guarded([&] { edit->Leave(); });
  if (watch.Alive() && state_->currentEdit == edit) return;
  edit->ForgetCell();
  edit->Hide();
}

/// Forgotten first: closing its list tells so, and that must find nothing open.
void CvListControl::ForgetCombo() {
  state_->ForgetPainting();
  state_->escHook.Stop();
  const ComboBoxRef combo(std::exchange(state_->openCombo, nullptr));
  if (!combo.IsWindow()) return;
  const LifeWatch watch(*this);
  if (combo.GetDroppedState()) combo.ShowDropDown(FALSE);
  if (watch.Alive() && combo.Is(state_->openCombo)) return;
  combo.SetWindowPos(HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_HIDEWINDOW);
}

void CvListControl::HideEditors() {
  const LifeWatch watch(*this);
  ForgetEdit();
  if (watch.Alive()) ForgetCombo();
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

void CvListControl::ClickItem() noexcept {
  edge::Guarded([&] {
    State& state = *state_;
    const LifeWatch watch(*this);
    state.previous = state.edited;
    HideEditors();
    if (!watch.Alive()) return;
    ClearSelectFlag();
    TakeListSelection();
    state.edited = {state.model.FirstSelected(), grid::kNoColumn};
    POINT cursor = {};
    ::GetCursorPos(&cursor);
    state.list.ScreenToClient(&cursor);
    RecordColumnsOnce();
    state.edited.column = grid::ColumnAt(state.Edges(), cursor.x);
    FinishClick();
  });
}

void CvListControl::ClickItem(int row, int col) noexcept {
  edge::Guarded([&] {
    State& state = *state_;
    const LifeWatch watch(*this);
    state.previous = state.edited;
    HideEditors();
    if (!watch.Alive()) return;
    ClearSelectFlag();
    state.edited = {};
    if (state.model.IsUsed(row)) {
      state.edited.row = row;
      state.model.Select(row, 1);
    }
    if (state.HasColumn(col)) state.edited.column = col;
    FinishClick();
  });
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
  if (watch.Alive()) SelectItem();
  if (watch.Alive()) FocusListForHiddenEditor();
  if (!watch.Alive()) return;
  DrawItem();
  if (state_->edited.row >= 0 && state_->openCombo == nullptr) ShowEditPrompt(*this, state_->EditPrompt());
}

void CvListControl::GetClickItem(int* row, int* col) noexcept {
  if (row != nullptr) *row = grid::kNoRow;
  if (col != nullptr) *col = grid::kNoColumn;
  edge::Guarded([&] {
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
  });
}

// ------------------------------------------------------------------------------------------------------------ edit box

void CvListControl::SelectItem(int row, int col) noexcept {
  edge::Guarded([&] {
    if (state_->model.IsUsed(row) && state_->HasColumn(col)) state_->pending = {row, col};
  });
}

void CvListControl::SelectItem() noexcept {
  edge::Guarded([&] {
    RecordColumnsOnce();
    const bool moved = IsVScroll() != 0 || IsHScroll() != 0;
    RefreshPage();
    SelectCell(moved);
  });
}

void CvListControl::SelectCell(bool moved) {
  State& state = *state_;
  const bool typedForNobody = state.edited.row < 0;
  FollowPending();
  const GridCell cell = {state.model.FirstSelected(), state.edited.column};
  if (!state.page.Shows(cell.row)) return;
  if (state.model.Available(cell.row, cell.column) != 0) {
    state.model.Select(cell.row, 0);
    state.edited.row = grid::kNoRow;
    return;
  }
  // What was typed into the box while no cell was edited goes to none, the one below the box neither.
  if (typedForNobody && state.currentEdit != nullptr) state.currentEdit->ForgetCell();
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
  const std::shared_ptr<CvEdit> edit = state.At(col).edit;
  const bool changed = edit != state.currentEdit;
  if (changed) ForgetEdit();
  if (!watch.Alive() || !state.MayEdit(row, col, edit)) return;
  state.currentEdit = edit;
  const bool standsElsewhere = edit != nullptr && edit->Cell() != GridCell{row, col};
  state.edited.row = row;
  if (edit != nullptr && (moved || changed || standsElsewhere)) PlaceEdit(*edit, row, col);
  if (!watch.Alive() || state.previous != GridCell{row, col}) return;
  OpenComboBox();
  if (watch.Alive()) state.previous.row = grid::kNoRow;
}

/// Leaving the former box may have made the dialog change the table, or edit another cell.
bool CvListControl::State::MayEdit(int row, int col, const std::shared_ptr<CvEdit>& edit) const {
  const bool isFree = currentEdit == nullptr || currentEdit == edit;
  return isFree && model.IsUsed(row) && HasColumn(col) && At(col).edit == edit;
}

/// The dialog may take the box away when it leaves its former cell, and when it gets its text.
void CvListControl::PlaceEdit(CvEdit& edit, int row, int col) {
  State& state = *state_;
  const LifeWatch watch(*this);
  const auto isCurrent = [&] { return watch.Alive() && state.currentEdit.get() == &edit; };
  state.ForgetPainting();
  if (edit.Cell() != GridCell{row, col}) edit.Leave();
  if (!isCurrent()) return;
  edit.TakeCell({row, col}, state.model.Text(row, col), {state.At(col).editMode, state.At(col).spaceMode});
  if (!isCurrent()) return;
  const int buttonWidth = state.At(col).combo != nullptr ? ::GetSystemMetrics(SM_CXVSCROLL) : -1;
  const std::optional<grid::Place> place = grid::EditBoxPlace(state.PlaceOf(row, col), buttonWidth);
  if (!place) {
    edit.Hide();
    return;
  }
  if (const CWnd* const parent = state.Parent(); parent != nullptr) edit.SetFont(parent->GetFont());
  edit.ShowAt(*place);
}

void CvListControl::KeyInput() noexcept {
  edge::Guarded([&] {
    if (state_->currentEdit != nullptr) CommitText(*state_->currentEdit);
  });
}

/// What the window held of a box whose window is gone is not known.
void CvListControl::CommitText(const CvEdit& edit) {
  if (edit.Cell() && edit.IsWindow()) state_->Commit(*edit.Cell(), framework::WideTextOf(edit.m_hWnd));
}

void CvListControl::State::Commit(GridCell cell, std::wstring_view shown) {
  Commit(cell, shown, model.Text(cell.row, cell.column));
}

void CvListControl::State::Commit(GridCell cell, std::wstring_view shown, std::string_view madeFrom) {
  if (edited.row < 0 || edited.column < 0) return;
  const std::string text = shown_text::BytesOf(madeFrom, shown, {framework::ToWide, framework::ToShiftJis});
  model.TypeText(cell.row, cell.column, text.c_str());
}

// ---------------------------------------------------------------------------------------------------------- combo box

void CvListControl::OpenComboBox() noexcept {
  edge::Guarded([&] {
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
  });
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
  state.escHook.Start([this](HWND focus) { return state_->ClosesOnEsc(*this, focus); });
  combo.ShowDropDown(TRUE);
  if (!watch.Alive()) return;
  if (CWnd* const parent = state.Parent(); parent != nullptr) parent->UpdateData(FALSE);
  if (watch.Alive()) MessageText("");
  if (watch.Alive() && *prompt.Text() != '\0') MessageText(prompt.Text());
}

/// A press of Esc is for the list while its dialog has the focus. A list that the user cannot see any more needs none.
bool CvListControl::State::ClosesOnEsc(CvListControl& owner, HWND focus) const {
  const ComboBoxRef combo(openCombo);
  const WindowRef dialog(parent);
  const bool inDialog = dialog.Is(focus) || ::IsChild(parent, focus) != FALSE;
  if (!inDialog || !combo.IsWindow() || !combo.GetDroppedState()) return false;
  owner.CloseComboBox();
  return true;
}

BoundedText<127> CvListControl::State::EditPrompt() const {
  return HasColumn(edited.column) ? At(edited.column).editPrompt : BoundedText<127>();
}

void CvListControl::CloseComboBox() noexcept {
  edge::Guarded([&] {
    State& state = *state_;
    if (state.openCombo == nullptr) return;
    const LifeWatch watch(*this);
    ForgetCombo();
    if (watch.Alive()) MessageText("");
    if (watch.Alive()) ShowEditPrompt(*this, state.EditPrompt());
    if (watch.Alive()) FocusList();
    if (!watch.Alive()) return;
    const std::shared_ptr<CvEdit> edit = state.currentEdit;
    if (edit != nullptr && edit->IsWindow()) edit->SetFocus();
  });
}

void CvListControl::PickEntry(const CvComboBox& combo) {
  const LifeWatch watch(*this);
  const int row = state_->model.FirstSelected();
  const int col = state_->edited.column;
  const std::optional<std::string> picked = state_->PickedEntry(combo);
  if (picked && row >= 0 && col >= 0) {
    const std::string value = grid::ValuePart(*picked, state_->comboSeparator);
    SetItemText(row, col, value.c_str());
    if (watch.Alive()) SelchangeComboBox(value.c_str());
  }
  if (watch.Alive()) CloseComboBox();
}

/// With the bytes that it was given with, unless somebody has put another text in its place.
std::optional<std::string> CvListControl::State::PickedEntry(const CvComboBox& combo) const {
  const int picked = combo.GetCurSel();
  if (picked < 0) return std::nullopt;
  const std::wstring shown = EntryOf(combo.m_hWnd, picked);
  const auto own = std::find_if(columns.begin(), columns.end(),
                                [&combo](const Column& column) { return column.ownCombo.get() == &combo; });
  const auto index = static_cast<std::size_t>(picked);
  const bool isGiven = own != columns.end() && index < own->entries.size();
  return shown_text::BytesOf(isGiven ? own->entries[index] : "", shown, {framework::ToWide, framework::ToShiftJis});
}

/// A value is given, not typed: as in every text that a cell is given, the column's limit counts and not the box's.
void CvListControl::SelchangeComboBox(const char* text) noexcept {
  edge::Guarded([&] {
    const std::shared_ptr<CvEdit> edit = state_->currentEdit;
    if (edit == nullptr) return;
    const int column = edit->Cell() ? edit->Cell()->column : grid::kNoColumn;
    const auto limit = static_cast<std::size_t>(state_->model.TextLimit(column));
    edit->GiveText(std::string(shift_jis::Truncate(text != nullptr ? text : "", limit)));
  });
}
