// Start and end, columns, cells and rows of a grid in its list view.
#include "dlglib/listcontrol/CvGrid.h"

#include <algorithm>
#include <new>
#include <utility>

#include "dlglib/base/edge.h"
#include "dlglib/listcontrol/grid_complaints.h"
#include "platform/framework/detail/retirement.h"
#include "platform/os/display.h"
#include "platform/os/edit_composition.h"
#include "platform/os/sjis_edit.h"

namespace {

constexpr UINT kEditId = 10000;
constexpr UINT kComboId = 10002;
constexpr int kComboListHeight = 240;  ///< pixels at 96 dpi
constexpr int kBlank = ' ';            ///< the combo separator at first
constexpr RECT kNowhere = {0, 0, 1, 1};

[[nodiscard]] DWORD StyleOf(grid::LetterCase letterCase) {
  if (letterCase == grid::LetterCase::Capitals) return ES_UPPERCASE;
  return letterCase == grid::LetterCase::Small ? ES_LOWERCASE : 0;
}

/// An editor that the list needs no more. It may be in the middle of a notification.
template <class Editor>
void GiveUp(std::shared_ptr<Editor> editor) {
  if (editor == nullptr) return;
  editor->Part();
  framework::Retire(std::move(editor));
}

}  // namespace

// ------------------------------------------------------------------------------------------------------- start and end

void CvGrid::Init(CWnd* parent, int listId, int columns, int items, int maxItems, int numberColumn) {
  if (!End()) return;
  const LifeWatch watch(owner_);
  try {
    Begin(parent, listId, columns, items, maxItems, numberColumn);
  } catch (const std::bad_alloc&) {
    if (watch.Alive()) static_cast<void>(End());
  }
}

void CvGrid::Term() {
  if (!End()) return;
  owner_.SetMessageWindow(nullptr);
  comboSeparator_ = kBlank;
}

void CvGrid::BeDestroyed() {
  destroying_ = true;
  Term();
}

bool CvGrid::End() {
  const LifeWatch watch(owner_);
  HideEditors();
  if (watch.Alive() && !destroying_) EmptyListView();
  if (!watch.Alive()) return false;
  owner_.SetParentWindow(nullptr);
  GiveAllBack();
  return watch.Alive();
}

void CvGrid::EmptyListView() const {
  const ListCtrlRef view = list_;
  const int count = model_.ColumnCount();
  view.DeleteAllItems();
  for (int c = 0; c < count; ++c) view.DeleteColumn(0);
}

/// Destroying an editor may run code of the host, which finds a list without columns, and may end that too.
void CvGrid::GiveAllBack() {
  inputMethod_.Leave();
  reflector_.Release();
  paintWatch_.Release();
  listWatch_.Release();
  accessible_.End();
  painting_.reset();
  const std::vector<Column> columnsBefore = std::exchange(columns_, {});
  const std::vector<std::shared_ptr<CWnd>> retiredBefore = std::exchange(retired_, {});
  model_.Clear();
  editing_.Forget();
  news_.Forget();
  newsWait_ = false;
  visited_ = {};
  course_.End();
  lastColumn_ = grid::kNoColumn;
  page_ = {};
  columnsRecorded_ = false;
  parent_ = nullptr;
  list_ = ListCtrlRef();
  for (const Column& column : columnsBefore) {
    GiveUp(column.edit);
    GiveUp(column.ownCombo);
  }
  for (const std::shared_ptr<CWnd>& editor : retiredBefore) framework::Retire(editor);
}

void CvGrid::Begin(CWnd* dialog, int id, int columnCount, int items, int maxItems, int numberColumn) {
  // Made before the model says that there are columns: memory may run out between the two.
  std::vector<Column> made(static_cast<std::size_t>(std::clamp(columnCount, 0, grid::kMaxColumns)));
  model_.Init(columnCount, items, maxItems, numberColumn);
  columns_ = std::move(made);
  editing_.Forget();
  news_.Forget();
  course_.Begin();
  TakeListView(dialog, id);
}

void CvGrid::TakeListView(CWnd* dialog, int id) {
  parent_ = WindowRef::HandleOf(dialog);
  listId_ = id;
  list_ = ListCtrlRef(::GetDlgItem(parent_, id));
  list_.ModifyStyle(0, LVS_OWNERDRAWFIXED);
  scale_ = scale::Scale(os::ThisDisplay().DpiOf(list_.m_hWnd));
  windowColour_ = ::GetSysColor(COLOR_WINDOW);
  RememberPlace();
  const int rows = list_.GetCountPerPage() - 1;
  page_ = {rows, 0, rows};
  owner_.SetParentWindow(dialog);
  FillListView();
  paintWatch_.Watch(list_.m_hWnd);
  listWatch_.Watch(list_.m_hWnd);
  accessible_.Begin(list_.m_hWnd, tree_);
}

void CvGrid::RememberPlace() {
  RECT place = {};
  list_.GetWindowRect(&place);
  if (::IsWindow(parent_) != FALSE) WindowRef(parent_).ScreenToClient(&place);
  const int width = place.right - place.left;
  place_ = {place.left, place.top, width - os::ThisDisplay().Metric(SM_CXVSCROLL, scale_.Dpi())};
}

bool CvGrid::FollowScale() {
  const scale::Scale now(list_.IsWindow() ? os::ThisDisplay().DpiOf(list_.m_hWnd) : scale_.Dpi());
  if (now == scale_) return false;
  const scale::Scale before = std::exchange(scale_, now);
  RememberPlace();
  for (int c = 0; c < model_.ColumnCount(); ++c) {
    scale::KeptLength& kept = keptWidths_[static_cast<std::size_t>(c)];
    list_.SetColumnWidth(c, kept.Follow(list_.GetColumnWidth(c), before, now));
  }
  for (const Column& column : columns_) {
    if (column.ownCombo == nullptr) continue;
    if (const CWnd* const parent = Parent(); parent != nullptr) column.ownCombo->SetFont(parent->GetFont());
    column.ownCombo->SetWindowPos(nullptr, 0, 0, 1, now.ToScreen(kComboListHeight), SWP_NOMOVE | SWP_NOZORDER);
  }
  return true;
}

void CvGrid::FollowGround() noexcept {
  const COLORREF now = ::GetSysColor(COLOR_WINDOW);
  const COLORREF before = std::exchange(windowColour_, now);
  if (now == before || static_cast<COLORREF>(list_.Send(LVM_GETBKCOLOR)) != before) return;
  list_.Send(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(now));
  list_.Invalidate();
}

/// The box of the edited cell stays open, with the text that it has.
void CvGrid::FollowScaleWithEditors() {
  const LifeWatch watch(owner_);
  if (!FollowScale()) return;
  if (openCombo_ != nullptr) edge::Guarded([&] { CloseComboBox(); });
  if (!watch.Alive() || currentEdit_ == nullptr || !currentEdit_->IsWindowVisible()) return;
  RecordColumns(AskPosition());
  RefreshPage();
  edge::Guarded([&] { SelectCell(true); });
}

// Redrawing is switched off, and the room asked for in advance: otherwise each row costs milliseconds. A list view that
// is hidden is left alone, as switching its redrawing on would show it.
void CvGrid::FillListView() {
  const ListCtrlRef view = list_;
  const bool shown = (view.GetStyle() & WS_VISIBLE) != 0;
  if (shown) view.SetRedraw(FALSE);
  view.SetItemCount(model_.Capacity());
  const bool filled = InsertRows();
  if (shown) view.SetRedraw(TRUE);
  if (!filled) throw std::bad_alloc();
}

/// False when the list view has no room for a row.
bool CvGrid::InsertRows() const {
  for (int row = 0; row < model_.Capacity(); ++row) {
    for (int c = 0; c < model_.ColumnCount(); ++c) {
      if (!InsertCell(row, c)) return false;
    }
  }
  return true;
}

// Called for fresh cells only, which hold no error. An empty sub-item is what the list view has anyway.
bool CvGrid::InsertCell(int row, int col) const {
  const char* const text = model_.Text(row, col);
  if (col > 0) {
    if (*text != '\0') list_.SetItemText(row, col, text);
    return true;
  }
  LVITEMA item = {};
  item.mask = LVIF_TEXT | LVIF_STATE;
  item.iItem = row;
  item.state = INDEXTOSTATEIMAGEMASK(1);
  item.stateMask = LVIS_STATEIMAGEMASK;
  item.pszText = const_cast<char*>(text);
  item.cchTextMax = 256;
  item.iImage = row;
  return list_.InsertItem(&item) >= 0;
}

// ------------------------------------------------------------------------------------------------------------- columns

void CvGrid::SetColumn(int col, const char* title, double share, const ColumnLook& look) {
  if (!HasColumn(col)) return;
  const LifeWatch watch(owner_);
  HideEditors();
  if (watch.Alive()) FocusListForHiddenEditor();
  if (!watch.Alive() || !HasColumn(col)) return;
  Column& column = At(col);
  RetireEditors(column);
  SetImeMode(col, 0);
  column.title.AssignScreen(ViewOf(title));
  column.kind = look.kind;
  column.drawFlags = static_cast<UINT>(look.drawFlags);
  const int width = grid::ColumnWidth(place_.usableWidth, share, scale_);
  edges_[static_cast<std::size_t>(col)].width = width;
  InsertListColumn(col, look.format, width);
  columnsRecorded_ = false;
}

void CvGrid::InsertListColumn(int col, int format, int width) const {
  BoundedText<256> text = At(col).title;
  LVCOLUMNA column = {};
  column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
  column.fmt = format;
  column.cx = width;
  column.pszText = text.Data();
  column.iSubItem = col;
  list_.InsertColumn(col, &column);
}

/// They are parted from the list at once, but their windows stay, hidden, until the list ends.
void CvGrid::RetireEditors(Column& column) {
  retired_.reserve(retired_.size() + 2);
  if (column.edit != nullptr) {
    column.edit->Part();
    retired_.push_back(std::exchange(column.edit, nullptr));
  }
  if (column.ownCombo != nullptr) {
    column.ownCombo->Part();
    retired_.push_back(std::exchange(column.ownCombo, nullptr));
  }
  column.editName.reset();
  GiveListBack(column);
  column.comboLastColumn = grid::kNoColumn;
  column.editPrompt.Clear();
  column.comboPrompt.Clear();
}

void CvGrid::SetEdit(int col, int caseMode, unsigned int maxChars, const char* prompt) {
  if (!HasColumn(col)) return;
  const LifeWatch watch(owner_);
  if (currentEdit_ != nullptr && currentEdit_ == At(col).edit) ForgetEdit();
  if (watch.Alive()) FocusListForHiddenEditor();
  if (!watch.Alive() || !HasColumn(col)) return;
  const int limit = grid::BoxLimit(maxChars, model_.TextLimit(col));
  const grid::LetterCase letterCase = grid::LetterCaseOf(caseMode);
  const auto edit = std::make_shared<CvEdit>(this, limit);
  CWnd* const parent = Parent();
  reflector_.Watch(parent_);
  edit->Create(WS_CHILD | StyleOf(letterCase), kNowhere, parent, kEditId);
  const bool isMade = parent == nullptr || edit->IsWindow();
  if (!watch.Alive() || !isMade || !HasColumn(col)) return edit->Part();
  if (parent != nullptr) edit->SetFont(parent->GetFont());
  edit->ModifyStyleEx(0, WS_EX_TRANSPARENT);
  edit->LimitText(static_cast<UINT>(limit));
  os::KeepToShiftJis(edit->m_hWnd);
  os::KeepsCompositionsItself(edit->m_hWnd);
  Column& column = At(col);
  column.modes = grid::kModesAtFirst;
  column.boxLimit = limit;
  column.letterCase = letterCase;
  column.editName = std::make_shared<NamedControl>(edit->m_hWnd, [this, col] { return BoxName(col); });
  column.editPrompt.AssignScreen(ViewOf(prompt));
  GiveUp(std::exchange(column.edit, edit));
}

void CvGrid::SetCombo(int col, int lastCol, std::vector<std::string> entries, int dialogComboId, const char* prompt) {
  if (!HasColumn(col) || !HasColumn(lastCol)) return;
  if (At(col).combo == nullptr) {
    const LifeWatch watch(owner_);
    Column made;
    AddCombo(made, dialogComboId);
    const bool isMade = dialogComboId != 0 || parent_ == nullptr || made.combo != nullptr;
    if (!watch.Alive() || !isMade || !HasColumn(col)) return GiveUp(made.ownCombo);
    Column& column = At(col);
    column.ownCombo = std::move(made.ownCombo);
    column.combo = made.combo;
    NameList(col);
    column.comboDialogId = dialogComboId;
    column.comboLastColumn = std::max(col, lastCol);
  }
  Column& column = At(col);
  column.entries = std::move(entries);
  const ComboBoxRef combo(column.combo);
  combo.ResetContent();
  for (const std::string& entry : column.entries) combo.AddString(entry.c_str());
  column.comboPrompt.AssignScreen(ViewOf(prompt));
  comboSeparator_ = kBlank;
}

void CvGrid::AddCombo(Column& column, int dialogComboId) {
  if (dialogComboId != 0) {
    column.combo = ::GetDlgItem(parent_, dialogComboId);
    return;
  }
  constexpr DWORD kStyle = WS_CHILD | WS_VSCROLL | CBS_DISABLENOSCROLL | CBS_DROPDOWNLIST;
  CWnd* const parent = Parent();
  column.ownCombo = std::make_shared<CvComboBox>(this);
  reflector_.Watch(parent_);
  column.ownCombo->Create(kStyle, kNowhere, parent, kComboId);
  if (parent != nullptr) column.ownCombo->SetFont(parent->GetFont());
  RECT client = {};
  column.ownCombo->GetClientRect(&client);
  column.ownCombo->SetWindowPos(nullptr, 0, 0, client.right, scale_.ToScreen(kComboListHeight),
                                SWP_NOMOVE | SWP_NOZORDER);
  column.combo = column.ownCombo->m_hWnd;
}

void CvGrid::ClearEdit(int col) {
  if (!HasColumn(col)) return;
  const LifeWatch watch(owner_);
  ForgetEdit();
  if (watch.Alive()) FocusListForHiddenEditor();
  if (!watch.Alive() || !HasColumn(col)) return;
  Column& column = At(col);
  column.modes = grid::kModesAtFirst;
  column.editPrompt.Clear();
  const std::shared_ptr<CvEdit> edit = std::exchange(column.edit, nullptr);
  ReleaseHostWithoutEditors();
  GiveUp(edit);
}

void CvGrid::ClearCombo(int col) {
  if (!HasColumn(col)) return;
  const LifeWatch watch(owner_);
  ForgetCombo();
  if (watch.Alive()) FocusListForHiddenEditor();
  if (!watch.Alive() || !HasColumn(col)) return;
  Column& column = At(col);
  GiveListBack(column);
  const std::shared_ptr<CvComboBox> combo = std::exchange(column.ownCombo, nullptr);
  ReleaseHostWithoutEditors();
  GiveUp(combo);
}

/// A control of the dialog is the dialog's again, or goes on to be called after another column whose list it is too.
void CvGrid::GiveListBack(Column& column) noexcept {
  column.comboName.reset();
  column.comboDialogId = 0;
  const HWND control = std::exchange(column.combo, nullptr);
  const auto other = std::ranges::find(columns_, control, &Column::combo);
  if (control == nullptr || other == columns_.end()) return;
  edge::Guarded([&] { NameList(static_cast<int>(other - columns_.begin())); });
}

void CvGrid::NameList(int col) {
  At(col).comboName = std::make_shared<NamedControl>(At(col).combo, [this, col] { return ListName(col); });
}

void CvGrid::ReleaseHostWithoutEditors() {
  const auto hasEditor = [](const Column& column) { return column.edit != nullptr || column.ownCombo != nullptr; };
  if (std::none_of(columns_.begin(), columns_.end(), hasEditor)) reflector_.Release();
}

void CvGrid::SetEditMode(int col, int mode) {
  if (HasColumn(col)) At(col).modes.edit = mode;
}

void CvGrid::SetSpaceMode(int col, int mode) {
  if (HasColumn(col)) At(col).modes.space = mode;
}

// ------------------------------------------------------------------------------------------- cells, rows and selection

void CvGrid::SetItemText(int row, int col, const char* text) {
  {
    const grid::SetCell cell(model_, &news_, {row, col});
    editing_.SetText(row, col, text);
  }
  ShowInBox({row, col});
}

/// A colour is all that a cell of a colour column says.
void CvGrid::SetColours(int row, int col, grid::Colour text, grid::Colour back) noexcept {
  const bool isOther = model_.Looks(row, col).text != text;
  model_.SetColours(row, col, text, back);
  if (isOther && HasColumn(col) && At(col).kind == grid::kColourColumn) news_.NoteValue({row, col});
}

void CvGrid::SetAvailable(int row, unsigned int flag) noexcept {
  const auto isOther = [&](int col) { return (model_.Available(row, col) == 0) != (flag == 0); };
  for (int col = 0; col < model_.ColumnCount(); ++col) {
    if (isOther(col)) news_.NoteState({row, col});
  }
  model_.SetAvailable(row, flag);
}

void CvGrid::SetAvailable(int row, int col, unsigned int flag) noexcept {
  const grid::SetCell cell(model_, &news_, {row, col});
  model_.SetAvailable(row, col, flag);
}

void CvGrid::SetError(int row, int col, unsigned int flag) noexcept {
  const grid::SetCell cell(model_, &news_, {row, col});
  model_.SetError(row, col, flag);
}

/// A box that could not be given the text for want of memory would write its old one back. It stands over no cell then,
/// until it is placed again.
void CvGrid::ShowInBox(grid::CellPosition cell) noexcept {
  const std::shared_ptr<CvEdit> edit = currentEdit_;
  if (edit == nullptr || edit->Cell() != cell) return;
  const bool isShown = edge::Guarded([&] { edit->ShowText(model_.Text(cell.row, cell.column)); });
  if (!isShown) edit->ForgetCell();
}

/// What has been typed until now is told of before; the rows that it was typed into may be others then.
void CvGrid::SetItemCount(int count) {
  const LifeWatch watch(owner_);
  TellVisit();
  if (!watch.Alive()) return;
  model_.SetItemCount(count);
  news_.NoteRowCount();
  editing_.ForgetSteps();
  if (!model_.IsUsed(visited_.row)) visited_ = {};
}

void CvGrid::SetSelectFlag(int row, int flag) {
  if (!model_.IsUsed(row)) return;
  model_.Select(row, flag);
  news_.NoteStanding();
  list_.SetItemState(row, flag != 0 ? LVIS_SELECTED : 0, LVIS_SELECTED);
}

void CvGrid::ClearSelectFlag() noexcept {
  model_.ClearSelection();
  news_.NoteStanding();
  course_.Leave();
}

int CvGrid::AddInsertItem(int at) {
  if (const char* const complaint = grid::InsertComplaint(model_, at); complaint != nullptr) {
    Warn(complaint);
    return at;
  }
  const LifeWatch watch(owner_);
  HideEditors();
  if (!watch.Alive()) return at;
  TellCellsBeforeRows();
  const bool added = editing_.InsertRow(at);
  if (added) news_.RowsTold();
  edge::Guarded([&] {  // the row is there by now, shown or not
    ShowRows();
    if (added && watch.Alive()) TellCell(EVENT_OBJECT_CREATE, {at, grid::kNoColumn});
    if (added && watch.Alive()) Tell({grid::kNoRow, model_.UsedRows()});
  });
  return at;
}

void CvGrid::DeleteItem() {
  const LifeWatch watch(owner_);
  int deleted = 0;
  std::vector<int> rows;
  if (const char* const complaint = grid::DeleteComplaint(model_); complaint == nullptr) {
    HideEditors();
    if (watch.Alive()) TellCellsBeforeRows();
    if (watch.Alive()) rows = RowsToSpeakOf();
    if (watch.Alive()) deleted = editing_.DeleteSelectedRows();
    if (deleted > 0) news_.RowsTold();
  } else {
    Warn(complaint);
    if (watch.Alive()) model_.Renumber();
  }
  if (watch.Alive()) ShowRows();
  if (deleted > 0 && watch.Alive()) TellOfDeletion(rows);
  if (deleted > 0 && watch.Alive()) Tell({grid::kNoRow, model_.UsedRows()});
}

/// After rows have come or gone. Also when there is no memory to edit a cell.
void CvGrid::ShowRows() {
  const LifeWatch watch(owner_);
  course_.Leave();
  news_.NoteStanding();
  edge::Guarded([&] { SelectItem(); });
  if (watch.Alive()) FocusListForHiddenEditor();
  if (!watch.Alive()) return;
  DrawItem();
  MessageText("");
}

// Without a dialog there is nobody to tell.
void CvGrid::Warn(const char* text) const {
  const WindowRef parent(parent_);
  if (parent.IsWindow()) parent.MessageBox(text, "", MB_ICONEXCLAMATION);
}

int CvGrid::CheckNumberCell(int row, const CString& text, const char* complaint) {
  if (owner_.CheckNumber(text, 0, grid::kLeastNumber, grid::kGreatestNumber) != 0) return 1;
  ErrorText(grid::NumberComplaint(complaint, row, text.GetString()).c_str());
  return 0;
}

// ------------------------------------------------------------------------------------------------------------ messages

// A circle of parents has no outermost list; then the list speaks for itself.
CvGrid& CvGrid::Outermost() noexcept {
  CvGrid* slow = this;
  CvGrid* grid = this;
  for (bool step = false; grid->parentGrid_ != nullptr; step = !step) {
    grid = grid->parentGrid_;
    if (step) slow = slow->parentGrid_;
    if (grid == slow) return *this;
  }
  return *grid;
}

bool CvGrid::HasZone() const noexcept { return parent_ == nullptr || ::IsWindow(parent_) != FALSE; }

void CvGrid::MessageText(const char* text) noexcept {
  CvGrid& outermost = Outermost();
  if (outermost.HasZone()) outermost.owner_.MessageText(text);
}

void CvGrid::ErrorText(const char* text) noexcept {
  CvGrid& outermost = Outermost();
  if (outermost.HasZone()) outermost.owner_.ErrorText(text);
}
