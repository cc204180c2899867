// Editing in place: where the editors of the edited cell stand, what a click does.
#include <algorithm>
#include <utility>

#include "dlglib/base/edge.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/base/shown_text.h"
#include "dlglib/listcontrol/CvGrid.h"
#include "dlglib/listcontrol/grid_text.h"
#include "platform/framework/detail/wide_text.h"
#include "platform/os/display.h"

using grid::CellPosition;

namespace {

[[nodiscard]] std::wstring EntryOf(HWND combo, int index) {
  const LRESULT length = ::SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
  std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
  const LRESULT units =
      ::SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::max<LRESULT>(units, 0)));
  return text;
}

}  // namespace

// ------------------------------------------------------------------------------------------------------ hiding editors

/// The text is committed before the cell is forgotten, and the box is hidden also when there is no memory to trim it.
/// The dialog may have placed the box anew when it was told so.
void CvGrid::ForgetEdit() {
  ForgetPainting();
  const std::shared_ptr<CvEdit> edit = std::exchange(currentEdit_, nullptr);
  if (edit == nullptr) return;
  const LifeWatch watch(owner_);
  edge::Guarded([&] { edit->Leave(); });
  if (watch.Alive() && currentEdit_ == edit) return;
  edit->ForgetCell();
  edit->Hide();
  if (watch.Alive()) LeaveVisit();
}

/// Forgotten first: closing its list tells so, and that must find nothing open.
void CvGrid::ForgetCombo() {
  ForgetPainting();
  escHook_.Stop();
  openList_.Follow(nullptr);
  const ComboBoxRef combo(std::exchange(openCombo_, nullptr));
  if (combo.m_hWnd != nullptr) news_.NoteStanding();
  if (!combo.IsWindow()) return;
  const LifeWatch watch(owner_);
  if (combo.GetDroppedState()) combo.ShowDropDown(FALSE);
  if (watch.Alive() && combo.Is(openCombo_)) return;
  combo.SetWindowPos(HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_HIDEWINDOW);
}

void CvGrid::HideEditors() {
  const LifeWatch watch(owner_);
  ForgetEdit();
  if (watch.Alive()) ForgetCombo();
  if (watch.Alive()) LeaveVisit();
}

// -------------------------------------------------------------------------------------------------------------- visits

/// A repaint comes here too, and changes nothing.
void CvGrid::EnterVisit(CellPosition cell) {
  if (visited_ == cell) return;
  const LifeWatch watch(owner_);
  LeaveVisit();
  if (!watch.Alive()) return;
  visited_ = cell;
  editing_.BeginVisit(cell);
  news_.NoteStanding();
  TellEditedCell(cell);
}

void CvGrid::LeaveVisit() {
  visited_ = {};
  const std::optional<grid::GridChange> change = editing_.CollectVisitChange();
  editing_.EndVisit();
  if (change) Tell(*change);
}

void CvGrid::FocusList() const {
  if (list_.IsWindow()) list_.SetFocus();
}

/// Nobody types into a box that is not there.
void CvGrid::FocusListForHiddenEditor() {
  const WindowRef focus(::GetFocus());
  const WindowRef parent(parent_);
  if (focus.m_hWnd == nullptr || !parent.Is(::GetParent(focus.m_hWnd)) || focus.IsWindowVisible()) return;
  const bool isEditor = std::any_of(columns_.begin(), columns_.end(), [&focus](const Column& column) {
    return focus.Is(WindowRef::HandleOf(column.edit.get())) || focus.Is(column.combo);
  });
  if (isEditor) FocusList();
}

/// The prompt is copied: showing it may run code of the dialog, and with that the column may go.
void CvGrid::ShowEditPrompt() {
  const int column = course_.Edited().column;
  const BoundedText<127> prompt = HasColumn(column) ? At(column).editPrompt : BoundedText<127>();
  if (*prompt.Text() != '\0') MessageText(prompt.Text());
}

// -------------------------------------------------------------------------------------------------------------- clicks

void CvGrid::ClickItem() {
  const LifeWatch watch(owner_);
  course_.BeginClick();
  HideEditors();
  if (!watch.Alive()) return;
  ClearSelectFlag();
  walksRows_ = false;
  AdoptListSelection();
  POINT cursor = {};
  ::GetCursorPos(&cursor);
  list_.ScreenToClient(&cursor);
  RecordColumnsOnce();
  course_.Click({model_.FirstSelected(), grid::ColumnAt(Edges(), cursor.x)});
  FinishClick();
}

void CvGrid::ClickItem(int row, int col) {
  const LifeWatch watch(owner_);
  course_.BeginClick();
  HideEditors();
  if (!watch.Alive()) return;
  ClearSelectFlag();
  walksRows_ = false;
  const bool isUsed = model_.IsUsed(row);
  if (isUsed) model_.Select(row, 1);
  course_.Click({isUsed ? row : grid::kNoRow, HasColumn(col) ? col : grid::kNoColumn});
  FinishClick();
}

void CvGrid::AdoptListSelection() {
  int row = grid::kNoRow;
  for (int left = list_.GetSelectedCount(); left > 0; --left) {
    row = list_.GetNextItem(row, LVNI_SELECTED);
    if (row < 0) return;
    model_.Select(row, 1);
  }
}

/// The click counts also when there is no memory to show all of it.
void CvGrid::FinishClick() {
  const LifeWatch watch(owner_);
  MessageText("");
  if (watch.Alive()) edge::Guarded([&] { SelectItem(); });
  if (watch.Alive()) FocusListForHiddenEditor();
  if (!watch.Alive()) return;
  DrawItem();
  SettleInputMethod();
  if (course_.Edited().row >= 0 && openCombo_ == nullptr) ShowEditPrompt();
}

CvGrid::ClickedCell CvGrid::FindClickedCell() {
  ClickedCell cell;
  // A list view that is not there answers 0 to everything, so its selection has no end.
  int at = grid::kNoRow;
  for (int left = list_.GetSelectedCount(); left > 0 && cell.row < 0; --left) {
    at = list_.GetNextItem(at, LVNI_SELECTED);
    if (model_.IsUsed(at)) cell.row = at;
  }
  POINT cursor = {};
  ::GetCursorPos(&cursor);
  list_.ScreenToClient(&cursor);
  RecordColumnsOnce();
  cell.column = grid::ColumnUpTo(Edges(), cursor.x);
  return cell;
}

// ------------------------------------------------------------------------------------------------------------ edit box

void CvGrid::AskForCell(int row, int col) noexcept {
  if (!model_.IsUsed(row) || !HasColumn(col)) return;
  course_.Ask({row, col});
  walksRows_ = false;
}

void CvGrid::SelectItem() {
  RecordColumnsOnce();
  const bool moved = HaveRowsMoved() || HaveColumnsMoved();
  RefreshPage();
  SelectCell(moved);
}

void CvGrid::SelectCell(bool moved) {
  const bool wasEdited = course_.Edited().row >= 0;
  const int selected = model_.FirstSelected();
  const int row = course_.FollowRequest(&model_, page_);
  if (row != grid::kNoRow) ScrollTo(row);
  const CellPosition cell = course_.Choose(&model_, page_);
  if (model_.FirstSelected() != selected) news_.NoteStanding();
  if (cell.row != grid::kNoRow) EditCell(cell, moved, wasEdited);
}

/// Brings a row to the top, and records which rows are on the page then.
void CvGrid::ScrollTo(int row) {
  RECT first = {};
  list_.GetItemRect(0, &first, LVIR_BOUNDS);
  ForgetPainting();
  list_.Scroll(0, (row - page_.top) * (first.bottom - first.top));
  page_.top = list_.GetTopIndex();
  page_.end = page_.top + page_.rows;
}

void CvGrid::EditCell(CellPosition cell, bool moved, bool wasEdited) {
  const LifeWatch watch(owner_);
  const std::shared_ptr<CvEdit> edit = At(cell.column).edit;
  const bool stands = edit != nullptr && edit->Cell() == cell;
  const grid::BoxStep step =
      grid::EditCourse::PlanBox({edit != nullptr, edit == currentEdit_, stands, moved}, wasEdited);
  if (step.forget && currentEdit_ != nullptr) currentEdit_->ForgetCell();
  if (step.leave) ForgetEdit();
  if (!watch.Alive() || !MayEdit(cell, edit)) return;
  currentEdit_ = edit;
  course_.Enter(cell);
  if (edit != nullptr || At(cell.column).combo != nullptr) lastColumn_ = cell.column;
  if (step.place) {
    PlaceEdit(*edit, cell);
  } else {
    EnterVisit(cell);
  }
  if (!watch.Alive() || placing_ == cell || !course_.IsSecondClick(cell)) return;
  edge::Guarded([&] { OpenComboBox(); });
  if (watch.Alive()) course_.EndSecondClick();
}

/// Leaving the former box may have made the dialog change the table, or edit another cell.
bool CvGrid::MayEdit(CellPosition cell, const std::shared_ptr<CvEdit>& edit) const {
  const bool isFree = currentEdit_ == nullptr || currentEdit_ == edit;
  return isFree && model_.IsUsed(cell.row) && HasColumn(cell.column) && At(cell.column).edit == edit;
}

/// The dialog may take the box away when it leaves its former cell, and when it gets its text.
void CvGrid::PlaceEdit(CvEdit& edit, CellPosition cell) {
  const LifeWatch watch(owner_);
  const auto isCurrent = [&] { return watch.Alive() && currentEdit_.get() == &edit; };
  ForgetPainting();
  if (edit.Cell() != cell) edit.Leave();
  if (isCurrent()) EnterVisit(cell);
  if (!isCurrent() || !MayEdit(cell, currentEdit_)) return;
  const Column& column = At(cell.column);
  edit.StandFor(cell, model_.Text(cell.row, cell.column), column.modes);
  if (!isCurrent()) return;
  const int buttonWidth = At(cell.column).combo != nullptr ? os::ThisDisplay().Metric(SM_CXVSCROLL, scale_.Dpi()) : -1;
  const std::optional<grid::Place> place = grid::EditBoxPlace(PlaceOf(cell), buttonWidth);
  if (!place) {
    edit.Hide();
    return;
  }
  if (const CWnd* const parent = Parent(); parent != nullptr) edit.SetFont(parent->GetFont());
  placing_ = cell;
  edit.ShowAt(*place);
  if (watch.Alive()) placing_ = {};
}

/// What the window held of a box whose window is gone is not known. An open composition is no text yet; what stood
/// there before it has been committed.
void CvGrid::KeyInput() {
  const std::shared_ptr<CvEdit> edit = currentEdit_;
  if (edit == nullptr || !edit->Cell() || !edit->IsWindow() || edit->IsComposing()) return;
  Commit(*edit->Cell(), framework::WideTextOf(edit->m_hWnd), edit->Origin());
}

void CvGrid::Commit(CellPosition cell, std::wstring_view shown, grid::TextOrigin origin) {
  Commit(cell, {shown, model_.Text(cell.row, cell.column), origin});
}

void CvGrid::Commit(CellPosition cell, const BoxText& text) {
  if (!course_.TakesText()) return;
  const std::string bytes = shown_text::BytesOf(text.madeFrom, text.shown, {framework::ToWide, framework::ToShiftJis});
  if (text.origin == grid::TextOrigin::Typed) {
    editing_.Type(cell, bytes.c_str());
  } else {
    editing_.Reshape(cell, bytes.c_str());
  }
}

// ---------------------------------------------------------------------------------------------------------- combo box

void CvGrid::OpenComboBox() {
  if (openCombo_ != nullptr) {
    CloseComboBox();
    return;
  }
  RecordColumnsOnce();
  const CellPosition cell = course_.DropDown(model_, page_);
  if (cell.row == grid::kNoRow) return;
  if (::IsWindow(At(cell.column).combo) == FALSE || EdgesOf(cell.column).left < 0) return;
  ShowCombo(cell);
}

void CvGrid::ShowCombo(CellPosition cell) {
  const LifeWatch watch(owner_);
  const Column& column = At(cell.column);
  const ComboBoxRef combo(column.combo);
  openCombo_ = column.combo;
  ForgetPainting();
  int furtherWidth = 0;
  for (int c = cell.column + 1; c <= column.comboLastColumn; ++c) furtherWidth += list_.GetColumnWidth(c);
  const grid::Place place = grid::ComboBoxPlace(PlaceOf(cell), furtherWidth);
  const BoundedText<127> prompt = column.comboPrompt;
  combo.SetCurSel(combo.FindStringExact(-1, model_.Text(cell.row, cell.column)));
  combo.SetWindowPos(HWND_TOP, place.x, place.y, place.width, place.height, SWP_SHOWWINDOW);
  escHook_.Start([this](HWND focus) { return ClosesOnEsc(focus); });
  edge::Guarded([&] { openList_.Follow(combo.m_hWnd); });
  combo.ShowDropDown(TRUE);
  if (!watch.Alive()) return;
  news_.NoteStanding();
  if (CWnd* const parent = Parent(); parent != nullptr) parent->UpdateData(FALSE);
  if (watch.Alive()) MessageText("");
  if (watch.Alive() && *prompt.Text() != '\0') MessageText(prompt.Text());
}

/// A press of Esc is for the list while its dialog has the focus. A list that the user cannot see any more needs none,
/// and a composition has the key for itself.
bool CvGrid::ClosesOnEsc(HWND focus) {
  const ComboBoxRef combo(openCombo_);
  const WindowRef dialog(parent_);
  const bool inDialog = dialog.Is(focus) || ::IsChild(parent_, focus) != FALSE;
  const bool isOfComposition = keys_ != 0 && IsComposing();
  if (isOfComposition || !inDialog || !combo.IsWindow() || !combo.GetDroppedState()) return false;
  edge::Guarded([&] { CloseComboBox(); });
  return true;
}

void CvGrid::CloseComboBox() {
  if (openCombo_ == nullptr) return;
  const LifeWatch watch(owner_);
  ForgetCombo();
  if (watch.Alive()) MessageText("");
  if (watch.Alive()) ShowEditPrompt();
  if (watch.Alive()) FocusList();
  if (!watch.Alive()) return;
  const std::shared_ptr<CvEdit> edit = currentEdit_;
  if (edit != nullptr && edit->IsWindow()) edit->SetFocus();
}

/// The list closes also when there is no memory for the value.
void CvGrid::PickEntry(const CvComboBox& combo) {
  const LifeWatch watch(owner_);
  const CellPosition cell = {model_.FirstSelected(), course_.Edited().column};
  const std::optional<std::string> picked = PickedEntry(combo);
  if (picked && cell.row >= 0 && cell.column >= 0) {
    const std::string value = grid::ValuePart(*picked, comboSeparator_);
    edge::Guarded([&] { editing_.Pick(cell, value.c_str()); });
    ShowInBox(cell);
    if (watch.Alive()) edge::Guarded([&] { SelchangeComboBox(value.c_str()); });
  }
  if (watch.Alive()) CloseComboBox();
  if (watch.Alive()) TellVisit();
}

std::optional<std::string> CvGrid::PickedEntry(const CvComboBox& combo) const {
  const int picked = combo.GetCurSel();
  if (picked < 0) return std::nullopt;
  const auto own = std::find_if(columns_.begin(), columns_.end(),
                                [&combo](const Column& column) { return column.ownCombo.get() == &combo; });
  return EntryText(own != columns_.end() ? *own : Column(), combo.m_hWnd, picked);
}

std::string CvGrid::EntryText(const Column& column, HWND combo, int index) {
  const std::wstring shown = EntryOf(combo, index);
  const auto at = static_cast<std::size_t>(index);
  const std::string given = at < column.entries.size() ? column.entries[at] : std::string();
  return shown_text::BytesOf(given, shown, {framework::ToWide, framework::ToShiftJis});
}

/// A value is given, not typed: as in every text that a cell is given, the column's limit counts and not the box's.
void CvGrid::SelchangeComboBox(const char* text) {
  const std::shared_ptr<CvEdit> edit = currentEdit_;
  if (edit == nullptr) return;
  const CellPosition cell = edit->Cell().value_or(CellPosition());
  const auto limit = static_cast<std::size_t>(model_.TextLimit(cell.column));
  const std::string value(shift_jis::Truncate(text != nullptr ? text : "", limit));
  const bool isInCell = value == model_.Text(cell.row, cell.column);
  edit->GiveText(value, isInCell ? grid::TextOrigin::Given : grid::TextOrigin::Typed);
}
