#include "dlglib/listcontrol/CvListControl.h"

#include <algorithm>

#include "dlglib/listcontrol/CvListControlState.h"

namespace {

constexpr UINT kEditId = 10000;
constexpr UINT kComboId = 10002;
constexpr int kComboListHeightPx = 240;
constexpr RECT kNowhere = {0, 0, 1, 1};
constexpr char kSelectFirst[] = "アイテムを選択してください。";
constexpr char kNoRoom[] = "追加・挿入できません。";

[[nodiscard]] DWORD CaseStyle(int caseMode) {
  if (caseMode > 0) return ES_UPPERCASE;
  return caseMode < 0 ? ES_LOWERCASE : 0;
}

/// What an edit box takes at most, of a caller's number of bytes and the column's limit.
[[nodiscard]] int EditLimit(unsigned int maxChars, int columnLimit) {
  const auto limit = static_cast<unsigned int>(columnLimit);
  return static_cast<int>(maxChars == 0 ? limit : std::min(maxChars, limit));
}

void AddEntries(const ComboBoxRef& combo, CStringList* entries) {
  if (entries == nullptr) return;
  for (POSITION at = entries->GetHeadPosition(); at != nullptr;) combo.AddString(entries->GetNext(at).GetString());
}

}  // namespace

CvListControl::CvListControl() : CvListControl(nullptr) {}

CvListControl::CvListControl(CvListControl* parentList) : state_(std::make_unique<State>()) {
  state_->parentList = parentList;
}

CvListControl::~CvListControl() {
  state_->destroying = true;
  TermList();
}

void CvListControl::SetParentList(CvListControl* parentList) { state_->parentList = parentList; }

// ------------------------------------------------------------------------------------------------------- start and end

void CvListControl::InitList(CWnd* parent, int listId, int columns, int items, int maxItems, int numberColumn) {
  InitList(parent, listId, columns, nullptr, items, maxItems, numberColumn);
}

void CvListControl::InitList(CWnd* parent, int listId, int columns, const int* textLimits, int items, int maxItems,
                             int numberColumn) {
  if (textLimits == nullptr) state_->model.ResetTextLimits();
  const int given = textLimits != nullptr ? std::min(columns, grid::kMaxColumns) : 0;
  for (int c = 0; c < given; ++c) state_->model.SetTextLimit(c, textLimits[c]);
  InitList0(parent, listId, columns, items, maxItems, numberColumn);
}

void CvListControl::InitList0(CWnd* parent, int listId, int columns, int items, int maxItems, int numberColumn) {
  TermList();
  // Made before the model says that there are columns: memory may run out between the two.
  std::vector<Column> made(static_cast<std::size_t>(std::clamp(columns, 0, grid::kMaxColumns)));
  state_->model.Init(columns, items, maxItems, numberColumn);
  state_->columns = std::move(made);
  state_->edited.column = 0;
  SetWindow(parent, listId);
}

void CvListControl::TermList() {
  HideEditors();
  if (!state_->destroying) {
    state_->list.DeleteAllItems();
    for (int c = 0; c < state_->model.ColumnCount(); ++c) state_->list.DeleteColumn(0);
  }
  state_->reflector.Release();
  state_->paintWatch.Release();
  state_->painting.reset();
  // Destroying an editor may run code of the host, which finds a list without columns.
  const std::vector<Column> columns = std::exchange(state_->columns, {});
  const std::vector<std::unique_ptr<CWnd>> retired = std::exchange(state_->retired, {});
  state_->model.Clear();
  state_->edited = state_->previous = state_->pending = {};
  state_->page = {};
  state_->columnsRecorded = false;
  state_->parent = nullptr;
  state_->list = ListCtrlRef();
}

void CvListControl::SetWindow(CWnd* parent, int listId) {
  State& state = *state_;
  state.parent = HandleOf(parent);
  state.listId = listId;
  state.list = ListCtrlRef(::GetDlgItem(state.parent, listId));
  state.list.ModifyStyle(0, LVS_OWNERDRAWFIXED);
  RECT place = {};
  state.list.GetWindowRect(&place);
  if (parent != nullptr) parent->ScreenToClient(&place);
  const int width = place.right - place.left;
  state.place = {place.left, place.top, width - ::GetSystemMetrics(SM_CXVSCROLL)};
  state.edited.row = grid::kNoRow;
  const int rows = state.list.GetCountPerPage() - 1;
  state.page = {rows, 0, rows};
  SetParentWindow(parent);
  FillListView();
  state.paintWatch.Watch(state.list.m_hWnd);
}

// Redrawing is switched off, and the room asked for in advance: otherwise each row costs milliseconds. A list view that
// is hidden is left alone, as switching its redrawing on would show it.
void CvListControl::FillListView() {
  const bool shown = (state_->list.GetStyle() & WS_VISIBLE) != 0;
  if (shown) state_->list.SetRedraw(FALSE);
  state_->list.SetItemCount(state_->model.Capacity());
  for (int row = 0; row < state_->model.Capacity(); ++row) {
    for (int c = 0; c < state_->model.ColumnCount(); ++c) SetItem(row, c);
  }
  if (shown) state_->list.SetRedraw(TRUE);
}

// Called for fresh cells only, which hold no error. An empty sub-item is what the list view has anyway.
void CvListControl::SetItem(int row, int col) {
  const char* const text = state_->model.Text(row, col);
  if (col > 0) {
    if (*text != '\0') state_->list.SetItemText(row, col, text);
    return;
  }
  LVITEMA item = {};
  item.mask = LVIF_TEXT | LVIF_STATE;
  item.iItem = row;
  item.state = INDEXTOSTATEIMAGEMASK(1);
  item.stateMask = LVIS_STATEIMAGEMASK;
  item.pszText = const_cast<char*>(text);
  item.cchTextMax = 256;
  item.iImage = row;
  state_->list.InsertItem(&item);
}

void CvListControl::SetExtendedStyle(unsigned long style) { state_->list.SetExtendedStyle(style); }

// ------------------------------------------------------------------------------------------------------------- columns

void CvListControl::SetColumn(int col, const char* title, double share, int format, int drawFlags, int kind) {
  if (!state_->HasColumn(col)) return;
  Column& column = state_->At(col);
  RetireEditors(column);
  column.kind = kind;
  column.drawFlags = static_cast<UINT>(drawFlags);
  const int width = grid::ColumnWidth(state_->place.usableWidth, share);
  state_->edges[static_cast<std::size_t>(col)].width = width;
  InsertListColumn(col, title, format, width);
  state_->columnsRecorded = false;
}

void CvListControl::SetColumn(int col, const char* title, double share) { SetColumn(col, title, share, 0, 0, 0); }

void CvListControl::SetColumn(int col, const char* title, double share, int kind) {
  SetColumn(col, title, share, 0, 0, kind);
}

void CvListControl::InsertListColumn(int col, const char* title, int format, int width) {
  BoundedText<256> text;
  text.AssignScreen(ViewOf(title));
  LVCOLUMNA column = {};
  column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
  column.fmt = format;
  column.cx = width;
  column.pszText = text.Data();
  column.iSubItem = col;
  state_->list.InsertColumn(col, &column);
}

// They stay as they are, hidden, until the list ends: a caller may be in the middle of one of their messages.
void CvListControl::RetireEditors(Column& column) {
  HideEditors();
  if (column.edit != nullptr) state_->retired.push_back(std::move(column.edit));
  if (column.ownCombo != nullptr) state_->retired.push_back(std::move(column.ownCombo));
  column.combo = nullptr;
  column.comboDialogId = 0;
  column.comboLastColumn = grid::kNoColumn;
  column.editPrompt.Clear();
  column.comboPrompt.Clear();
}

void CvListControl::SetEdit(int col, int caseMode, unsigned int maxChars, const char* prompt) {
  if (!state_->HasColumn(col)) return;
  Column& column = state_->At(col);
  if (column.edit != nullptr && column.edit.get() == state_->currentEdit) ForgetEdit();
  const int limit = EditLimit(maxChars, state_->model.TextLimit(col));
  column.edit = std::make_unique<CvEdit>(this, limit);
  CWnd* const parent = state_->Parent();
  state_->reflector.Watch(state_->parent);
  column.edit->Create(WS_CHILD | CaseStyle(caseMode), kNowhere, parent, kEditId);
  if (parent != nullptr) column.edit->SetFont(parent->GetFont());
  column.edit->ModifyStyleEx(0, WS_EX_TRANSPARENT);
  column.edit->LimitText(static_cast<UINT>(limit));
  column.editMode = 1;
  column.spaceMode = 0;
  SetPrompt(0, col, prompt);
}

void CvListControl::SetCombo(int col, int lastCol, CStringList* entries, int dialogComboId, const char* prompt) {
  if (!state_->HasColumn(col) || !state_->HasColumn(lastCol)) return;
  Column& column = state_->At(col);
  if (column.combo == nullptr) {
    AddCombo(column, dialogComboId);
    column.comboLastColumn = std::max(col, lastCol);
  }
  const ComboBoxRef combo(column.combo);
  combo.ResetContent();
  AddEntries(combo, entries);
  SetPrompt(1, col, prompt);
  state_->comboSeparator = ' ';
}

void CvListControl::SetCombo(int col, int lastCol, CStringList* entries, const char* prompt) {
  SetCombo(col, lastCol, entries, 0, prompt);
}

void CvListControl::AddCombo(Column& column, int dialogComboId) {
  column.comboDialogId = dialogComboId;
  if (dialogComboId != 0) {
    column.combo = ::GetDlgItem(state_->parent, dialogComboId);
    return;
  }
  constexpr DWORD kStyle = WS_CHILD | WS_VSCROLL | CBS_DISABLENOSCROLL | CBS_DROPDOWNLIST;
  CWnd* const parent = state_->Parent();
  column.ownCombo = std::make_unique<CvComboBox>(this);
  state_->reflector.Watch(state_->parent);
  column.ownCombo->Create(kStyle, kNowhere, parent, kComboId);
  if (parent != nullptr) column.ownCombo->SetFont(parent->GetFont());
  RECT client = {};
  column.ownCombo->GetClientRect(&client);
  column.ownCombo->SetWindowPos(nullptr, 0, 0, client.right, kComboListHeightPx, SWP_NOMOVE | SWP_NOZORDER);
  column.combo = column.ownCombo->m_hWnd;
}

void CvListControl::ClearEdit(int col) {
  if (!state_->HasColumn(col)) return;
  ForgetEdit();
  FocusListForHiddenEditor();
  Column& column = state_->At(col);
  column.editMode = 1;
  column.spaceMode = 0;
  column.editPrompt.Clear();
  const std::unique_ptr<CvEdit> edit = std::move(column.edit);
  ReleaseHostWithoutEditors();
}

void CvListControl::ClearCombo(int col) {
  if (!state_->HasColumn(col)) return;
  ForgetCombo();
  FocusListForHiddenEditor();
  Column& column = state_->At(col);
  column.combo = nullptr;
  column.comboDialogId = 0;
  const std::unique_ptr<CvComboBox> combo = std::move(column.ownCombo);
  ReleaseHostWithoutEditors();
}

void CvListControl::ReleaseHostWithoutEditors() {
  const auto hasEditor = [](const Column& column) { return column.edit != nullptr || column.ownCombo != nullptr; };
  if (std::none_of(state_->columns.begin(), state_->columns.end(), hasEditor)) state_->reflector.Release();
}

void CvListControl::SetComboSeparator(int ch) { state_->comboSeparator = ch; }

int CvListControl::GetComboSeparator() { return state_->comboSeparator; }

void CvListControl::SetEditMode(int col, int mode) {
  if (state_->HasColumn(col)) state_->At(col).editMode = mode;
}

void CvListControl::SetSpaceMode(int col, int mode) {
  if (state_->HasColumn(col)) state_->At(col).spaceMode = mode;
}

void CvListControl::SetPrompt(int which, int col, const char* text) {
  Column& column = state_->At(col);
  (which == 0 ? column.editPrompt : column.comboPrompt).AssignScreen(ViewOf(text));
}

// --------------------------------------------------------------------------------------------------------------- cells

void CvListControl::SetItemText(int row, int col, const char* text) {
  state_->model.SetText(row, col, text);
  CvEdit* const edit = state_->currentEdit;
  if (edit != nullptr && edit->Cell() == GridCell{row, col}) edit->ShowText(state_->model.Text(row, col));
}

void CvListControl::GetItemText(int row, int col, char* out) {
  grid::CopyText(out, state_->model.Text(row, col), grid::kMaxTextLimit);
}

void CvListControl::TextCopy(char* dst, const char* src, int n) { grid::CopyText(dst, src, n); }

void CvListControl::SetItemColor(int row, int col, unsigned long textColour, unsigned long backColour) {
  state_->model.SetColours(row, col, static_cast<grid::Colour>(textColour), static_cast<grid::Colour>(backColour));
}

void CvListControl::SetAvailableFlag(int row, int flag) {
  state_->model.SetAvailable(row, static_cast<unsigned int>(flag));
}

void CvListControl::SetAvailableFlag(int row, int col, int flag) {
  state_->model.SetAvailable(row, col, static_cast<unsigned int>(flag));
}

int CvListControl::GetAvailableFlag(int row) { return static_cast<int>(state_->model.Available(row)); }

int CvListControl::GetAvailableFlag(int row, int col) { return static_cast<int>(state_->model.Available(row, col)); }

void CvListControl::SetErrorFlag(int row, int col, int flag) {
  state_->model.SetError(row, col, static_cast<unsigned int>(flag));
}

int CvListControl::GetErrorFlag(int row, int col) { return state_->model.Error(row, col) == 0 ? 1 : 0; }

// -------------------------------------------------------------------------------------------------- rows and selection

int CvListControl::GetListCount() { return state_->model.Capacity(); }

int CvListControl::GetItemCount() { return state_->model.ItemCount(); }

void CvListControl::SetItemCount(int count) { state_->model.SetItemCount(count); }

void CvListControl::SetSelectFlag(int row, int flag) {
  if (!state_->model.IsUsed(row)) return;
  state_->model.Select(row, flag);
  state_->list.SetItemState(row, flag != 0 ? LVIS_SELECTED : 0, LVIS_SELECTED);
}

int CvListControl::GetSelectFlag(int row) { return state_->model.Selected(row); }

void CvListControl::ClearSelectFlag() {
  state_->model.ClearSelection();
  state_->edited.row = grid::kNoRow;
}

int CvListControl::GetSelectedItem() { return state_->model.FirstSelected(); }

int CvListControl::GetSelectedColumn() { return state_->edited.column; }

int CvListControl::AddItem() { return AddInsertItem(state_->model.ItemCount()); }

int CvListControl::InsertItem() { return AddInsertItem(state_->model.FirstSelected()); }

int CvListControl::AddInsertItem(int at) {
  if (at < 0) {
    Warn(kSelectFirst);
    return at;
  }
  if (state_->model.ItemCount() >= state_->model.Capacity()) {
    Warn(kNoRoom);
    return at;
  }
  HideEditors();
  state_->model.InsertRow(at);
  Refresh();
  return at;
}

void CvListControl::DeleteItem() {
  const LifeWatch watch(*this);
  if (state_->model.FirstSelected() >= 0) {
    HideEditors();
    state_->model.DeleteSelectedRows();
  } else {
    Warn(kSelectFirst);
  }
  if (watch.Alive()) Refresh();
}

void CvListControl::Refresh() {
  const LifeWatch watch(*this);
  Renumber();
  state_->edited.row = grid::kNoRow;
  SelectItem();
  if (!watch.Alive()) return;
  FocusListForHiddenEditor();
  DrawItem();
  MessageText("");
}

void CvListControl::Renumber() { state_->model.Renumber(); }

// Without a dialog there is nobody to tell.
void CvListControl::Warn(const char* text) {
  if (const CWnd* const parent = state_->Parent(); parent != nullptr) parent->MessageBox(text, "", MB_ICONEXCLAMATION);
}

int CvListControl::CheckClassNumber(int row, CString text) {
  return CheckNumberCell(row, text, "無効なクラス番号です");
}

int CvListControl::CheckRevisionNumber(int row, CString text) {
  return CheckNumberCell(row, text, "無効なレビジョンです");
}

int CvListControl::CheckNumberCell(int row, const CString& text, const char* complaint) {
  if (CheckNumber(text, 0, 1.0, 256.0) != 0) return 1;
  CString message;
  message.Format("%s %d : %s", complaint, static_cast<int>(static_cast<unsigned int>(row) + 1U), text.GetString());
  ErrorText(message.GetString());
  return 0;
}

// ------------------------------------------------------------------------------------------------------------ messages

// A circle of parents has no outermost list; then the list speaks for itself.
CvListControl* CvListControl::OutermostList() {
  CvListControl* slow = this;
  CvListControl* list = this;
  for (bool step = false; list->state_->parentList != nullptr; step = !step) {
    list = list->state_->parentList;
    if (step) slow = slow->state_->parentList;
    if (list == slow) return this;
  }
  return list;
}

void CvListControl::MessageText(const char* text) {
  CvListControl* const list = OutermostList();
  const HWND parent = list->state_->parent;
  if (parent != nullptr && ::IsWindow(parent) == FALSE) return;
  list->CvUtility::MessageText(text);
}

void CvListControl::ErrorText(const char* text) {
  CvListControl* const list = OutermostList();
  const HWND parent = list->state_->parent;
  if (parent != nullptr && ::IsWindow(parent) == FALSE) return;
  list->CvUtility::ErrorText(text);
}
