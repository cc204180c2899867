#include "dlglib/listcontrol/CvListControl.h"

#include <algorithm>
#include <memory>
#include <new>

#include "dlglib/base/edge.h"
#include "dlglib/listcontrol/CvListControlState.h"
#include "platform/framework/detail/retirement.h"

namespace {

constexpr UINT kEditId = 10000;
constexpr UINT kComboId = 10002;
constexpr int kComboListHeightPx = 240;
constexpr int kBlank = ' ';  ///< the combo separator at first
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

[[nodiscard]] std::vector<std::string> BytesOf(CStringList* entries) {
  std::vector<std::string> bytes;
  if (entries == nullptr) return bytes;
  for (POSITION at = entries->GetHeadPosition(); at != nullptr;) bytes.emplace_back(entries->GetNext(at).GetString());
  return bytes;
}

/// An editor that the list needs no more. It may be in the middle of a notification.
template <class Editor>
void GiveUp(std::shared_ptr<Editor> editor) {
  if (editor == nullptr) return;
  editor->Part();
  framework::Retire(std::move(editor));
}

}  // namespace

CvListControl::CvListControl() noexcept : CvListControl(nullptr) {}

CvListControl::CvListControl(CvListControl* parentList) noexcept
    : state_(edge::Made<State>([] { return std::make_unique<State>(); })) {
  if (state_) state_->parentList = parentList;
}

CvListControl::~CvListControl() {
  if (state_) state_->destroying = true;
  TermList();
}

void CvListControl::SetParentList(CvListControl* parentList) noexcept {
  edge::Guarded([&] { state_->parentList = parentList; });
}

// ------------------------------------------------------------------------------------------------------- start and end

void CvListControl::InitList(CWnd* parent, int listId, int columns, int items, int maxItems,
                             int numberColumn) noexcept {
  InitList(parent, listId, columns, nullptr, items, maxItems, numberColumn);
}

void CvListControl::InitList(CWnd* parent, int listId, int columns, const int* textLimits, int items, int maxItems,
                             int numberColumn) noexcept {
  edge::Guarded([&] {
    if (textLimits == nullptr) state_->model.ResetTextLimits();
    const int given = textLimits != nullptr ? std::min(columns, grid::kMaxColumns) : 0;
    for (int c = 0; c < given; ++c) state_->model.SetTextLimit(c, textLimits[c]);
    InitList0(parent, listId, columns, items, maxItems, numberColumn);
  });
}

void CvListControl::InitList0(CWnd* parent, int listId, int columns, int items, int maxItems,
                              int numberColumn) noexcept {
  edge::Guarded([&] {
    if (!state_->End(*this)) return;
    const LifeWatch watch(*this);
    try {
      state_->Begin(*this, parent, listId, columns, items, maxItems, numberColumn);
    } catch (const std::bad_alloc&) {
      if (watch.Alive()) static_cast<void>(state_->End(*this));
    }
  });
}

void CvListControl::TermList() noexcept {
  edge::Guarded([&] {
    if (!state_->End(*this)) return;
    SetMessageWindow(nullptr);
    state_->comboSeparator = kBlank;
  });
}

bool CvListControl::State::End(CvListControl& owner) {
  const LifeWatch watch(owner);
  owner.HideEditors();
  if (watch.Alive() && !destroying) EmptyListView();
  if (!watch.Alive()) return false;
  owner.SetParentWindow(nullptr);
  GiveBack();
  return watch.Alive();
}

void CvListControl::State::EmptyListView() const {
  const ListCtrlRef view = list;
  const int count = model.ColumnCount();
  view.DeleteAllItems();
  for (int c = 0; c < count; ++c) view.DeleteColumn(0);
}

/// Destroying an editor may run code of the host, which finds a list without columns, and may end that too.
void CvListControl::State::GiveBack() {
  reflector.Release();
  paintWatch.Release();
  painting.reset();
  const std::vector<Column> columnsBefore = std::exchange(columns, {});
  const std::vector<std::shared_ptr<CWnd>> retiredBefore = std::exchange(retired, {});
  model.Clear();
  edited = previous = pending = {};
  page = {};
  columnsRecorded = false;
  parent = nullptr;
  list = ListCtrlRef();
  for (const Column& column : columnsBefore) {
    GiveUp(column.edit);
    GiveUp(column.ownCombo);
  }
  for (const std::shared_ptr<CWnd>& editor : retiredBefore) framework::Retire(editor);
}

void CvListControl::State::Begin(CvListControl& owner, CWnd* dialog, int id, int columnCount, int items, int maxItems,
                                 int numberColumn) {
  // Made before the model says that there are columns: memory may run out between the two.
  std::vector<Column> made(static_cast<std::size_t>(std::clamp(columnCount, 0, grid::kMaxColumns)));
  model.Init(columnCount, items, maxItems, numberColumn);
  columns = std::move(made);
  edited.column = 0;
  owner.SetWindow(dialog, id);
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
  const ListCtrlRef view = state_->list;
  const bool shown = (view.GetStyle() & WS_VISIBLE) != 0;
  if (shown) view.SetRedraw(FALSE);
  view.SetItemCount(state_->model.Capacity());
  const bool filled = state_->InsertRows(*this);
  if (shown) view.SetRedraw(TRUE);
  if (!filled) throw std::bad_alloc();
}

/// False when the list view has no room for a row.
bool CvListControl::State::InsertRows(CvListControl& owner) const {
  for (int row = 0; row < model.Capacity(); ++row) {
    for (int c = 0; c < model.ColumnCount(); ++c) {
      if (!owner.SetItem(row, c)) return false;
    }
  }
  return true;
}

// Called for fresh cells only, which hold no error. An empty sub-item is what the list view has anyway.
bool CvListControl::SetItem(int row, int col) {
  const char* const text = state_->model.Text(row, col);
  if (col > 0) {
    if (*text != '\0') state_->list.SetItemText(row, col, text);
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
  return state_->list.InsertItem(&item) >= 0;
}

void CvListControl::SetExtendedStyle(unsigned long style) noexcept {
  edge::Guarded([&] { state_->list.SetExtendedStyle(style); });
}

// ------------------------------------------------------------------------------------------------------------- columns

void CvListControl::SetColumn(int col, const char* title, double share, int format, int drawFlags, int kind) noexcept {
  edge::Guarded([&] {
    if (!state_->HasColumn(col)) return;
    const LifeWatch watch(*this);
    HideEditors();
    if (watch.Alive()) FocusListForHiddenEditor();
    if (!watch.Alive() || !state_->HasColumn(col)) return;
    Column& column = state_->At(col);
    RetireEditors(column);
    column.kind = kind;
    column.drawFlags = static_cast<UINT>(drawFlags);
    const int width = grid::ColumnWidth(state_->place.usableWidth, share);
    state_->edges[static_cast<std::size_t>(col)].width = width;
    InsertListColumn(col, title, format, width);
    state_->columnsRecorded = false;
  });
}

void CvListControl::SetColumn(int col, const char* title, double share) noexcept {
  SetColumn(col, title, share, 0, 0, 0);
}

void CvListControl::SetColumn(int col, const char* title, double share, int kind) noexcept {
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

/// They are parted from the list at once, but their windows stay, hidden, until the list ends.
void CvListControl::RetireEditors(Column& column) {
  state_->retired.reserve(state_->retired.size() + 2);
  if (column.edit != nullptr) {
    column.edit->Part();
    state_->retired.push_back(std::exchange(column.edit, nullptr));
  }
  if (column.ownCombo != nullptr) {
    column.ownCombo->Part();
    state_->retired.push_back(std::exchange(column.ownCombo, nullptr));
  }
  column.combo = nullptr;
  column.comboDialogId = 0;
  column.comboLastColumn = grid::kNoColumn;
  column.editPrompt.Clear();
  column.comboPrompt.Clear();
}

void CvListControl::SetEdit(int col, int caseMode, unsigned int maxChars, const char* prompt) noexcept {
  edge::Guarded([&] {
    if (!state_->HasColumn(col)) return;
    const LifeWatch watch(*this);
    if (state_->currentEdit != nullptr && state_->currentEdit == state_->At(col).edit) ForgetEdit();
    if (watch.Alive()) FocusListForHiddenEditor();
    if (!watch.Alive() || !state_->HasColumn(col)) return;
    const int limit = EditLimit(maxChars, state_->model.TextLimit(col));
    const auto edit = std::make_shared<CvEdit>(this, limit);
    CWnd* const parent = state_->Parent();
    state_->reflector.Watch(state_->parent);
    edit->Create(WS_CHILD | CaseStyle(caseMode), kNowhere, parent, kEditId);
    const bool isMade = parent == nullptr || edit->IsWindow();
    if (!watch.Alive() || !isMade || !state_->HasColumn(col)) return edit->Part();
    if (parent != nullptr) edit->SetFont(parent->GetFont());
    edit->ModifyStyleEx(0, WS_EX_TRANSPARENT);
    edit->LimitText(static_cast<UINT>(limit));
    Column& column = state_->At(col);
    column.editMode = 1;
    column.spaceMode = 0;
    SetPrompt(0, col, prompt);
    GiveUp(std::exchange(column.edit, edit));
  });
}

void CvListControl::SetCombo(int col, int lastCol, CStringList* entries, int dialogComboId,
                             const char* prompt) noexcept {
  edge::Guarded([&] {
    if (!state_->HasColumn(col) || !state_->HasColumn(lastCol)) return;
    std::vector<std::string> given = BytesOf(entries);
    if (state_->At(col).combo == nullptr) {
      const LifeWatch watch(*this);
      Column made;
      AddCombo(made, dialogComboId);
      const bool isMade = dialogComboId != 0 || state_->parent == nullptr || made.combo != nullptr;
      if (!watch.Alive() || !isMade || !state_->HasColumn(col)) return GiveUp(made.ownCombo);
      Column& column = state_->At(col);
      column.ownCombo = std::move(made.ownCombo);
      column.combo = made.combo;
      column.comboDialogId = dialogComboId;
      column.comboLastColumn = std::max(col, lastCol);
    }
    Column& column = state_->At(col);
    column.entries = std::move(given);
    const ComboBoxRef combo(column.combo);
    combo.ResetContent();
    for (const std::string& entry : column.entries) combo.AddString(entry.c_str());
    SetPrompt(1, col, prompt);
    state_->comboSeparator = kBlank;
  });
}

void CvListControl::SetCombo(int col, int lastCol, CStringList* entries, const char* prompt) noexcept {
  SetCombo(col, lastCol, entries, 0, prompt);
}

void CvListControl::AddCombo(Column& column, int dialogComboId) {
  if (dialogComboId != 0) {
    column.combo = ::GetDlgItem(state_->parent, dialogComboId);
    return;
  }
  constexpr DWORD kStyle = WS_CHILD | WS_VSCROLL | CBS_DISABLENOSCROLL | CBS_DROPDOWNLIST;
  CWnd* const parent = state_->Parent();
  column.ownCombo = std::make_shared<CvComboBox>(this);
  state_->reflector.Watch(state_->parent);
  column.ownCombo->Create(kStyle, kNowhere, parent, kComboId);
  if (parent != nullptr) column.ownCombo->SetFont(parent->GetFont());
  RECT client = {};
  column.ownCombo->GetClientRect(&client);
  column.ownCombo->SetWindowPos(nullptr, 0, 0, client.right, kComboListHeightPx, SWP_NOMOVE | SWP_NOZORDER);
  column.combo = column.ownCombo->m_hWnd;
}

void CvListControl::ClearEdit(int col) noexcept {
  edge::Guarded([&] {
    if (!state_->HasColumn(col)) return;
    const LifeWatch watch(*this);
    ForgetEdit();
    if (watch.Alive()) FocusListForHiddenEditor();
    if (!watch.Alive() || !state_->HasColumn(col)) return;
    Column& column = state_->At(col);
    column.editMode = 1;
    column.spaceMode = 0;
    column.editPrompt.Clear();
    const std::shared_ptr<CvEdit> edit = std::exchange(column.edit, nullptr);
    ReleaseHostWithoutEditors();
    GiveUp(edit);
  });
}

void CvListControl::ClearCombo(int col) noexcept {
  edge::Guarded([&] {
    if (!state_->HasColumn(col)) return;
    const LifeWatch watch(*this);
    ForgetCombo();
    if (watch.Alive()) FocusListForHiddenEditor();
    if (!watch.Alive() || !state_->HasColumn(col)) return;
    Column& column = state_->At(col);
    column.combo = nullptr;
    column.comboDialogId = 0;
    const std::shared_ptr<CvComboBox> combo = std::exchange(column.ownCombo, nullptr);
    ReleaseHostWithoutEditors();
    GiveUp(combo);
  });
}

void CvListControl::ReleaseHostWithoutEditors() {
  const auto hasEditor = [](const Column& column) { return column.edit != nullptr || column.ownCombo != nullptr; };
  if (std::none_of(state_->columns.begin(), state_->columns.end(), hasEditor)) state_->reflector.Release();
}

void CvListControl::SetComboSeparator(int ch) noexcept {
  edge::Guarded([&] { state_->comboSeparator = ch; });
}

int CvListControl::GetComboSeparator() noexcept {
  return edge::Guarded(kBlank, [&] { return state_->comboSeparator; });
}

void CvListControl::SetEditMode(int col, int mode) noexcept {
  edge::Guarded([&] {
    if (state_->HasColumn(col)) state_->At(col).editMode = mode;
  });
}

void CvListControl::SetSpaceMode(int col, int mode) noexcept {
  edge::Guarded([&] {
    if (state_->HasColumn(col)) state_->At(col).spaceMode = mode;
  });
}

void CvListControl::SetPrompt(int which, int col, const char* text) {
  Column& column = state_->At(col);
  (which == 0 ? column.editPrompt : column.comboPrompt).AssignScreen(ViewOf(text));
}

// --------------------------------------------------------------------------------------------------------------- cells

void CvListControl::SetItemText(int row, int col, const char* text) noexcept {
  edge::Guarded([&] {
    state_->model.SetText(row, col, text);
    const std::shared_ptr<CvEdit> edit = state_->currentEdit;
    if (edit != nullptr && edit->Cell() == GridCell{row, col}) edit->ShowText(state_->model.Text(row, col));
  });
}

void CvListControl::GetItemText(int row, int col, char* out) noexcept {
  const char* const none = "";
  grid::CopyText(out, edge::Guarded(none, [&] { return state_->model.Text(row, col); }), grid::kMaxTextLimit);
}

void CvListControl::TextCopy(char* dst, const char* src, int n) noexcept { grid::CopyText(dst, src, n); }

void CvListControl::SetItemColor(int row, int col, unsigned long textColour, unsigned long backColour) noexcept {
  edge::Guarded([&] {
    state_->model.SetColours(row, col, static_cast<grid::Colour>(textColour), static_cast<grid::Colour>(backColour));
  });
}

void CvListControl::SetAvailableFlag(int row, int flag) noexcept {
  edge::Guarded([&] { state_->model.SetAvailable(row, static_cast<unsigned int>(flag)); });
}

void CvListControl::SetAvailableFlag(int row, int col, int flag) noexcept {
  edge::Guarded([&] { state_->model.SetAvailable(row, col, static_cast<unsigned int>(flag)); });
}

int CvListControl::GetAvailableFlag(int row) noexcept {
  return edge::Guarded(1, [&] { return static_cast<int>(state_->model.Available(row)); });
}

int CvListControl::GetAvailableFlag(int row, int col) noexcept {
  return edge::Guarded(1, [&] { return static_cast<int>(state_->model.Available(row, col)); });
}

void CvListControl::SetErrorFlag(int row, int col, int flag) noexcept {
  edge::Guarded([&] { state_->model.SetError(row, col, static_cast<unsigned int>(flag)); });
}

int CvListControl::GetErrorFlag(int row, int col) noexcept {
  return edge::Guarded(0, [&] { return state_->model.Error(row, col) == 0 ? 1 : 0; });
}

// -------------------------------------------------------------------------------------------------- rows and selection

int CvListControl::GetListCount() noexcept {
  return edge::Guarded(0, [&] { return state_->model.Capacity(); });
}

int CvListControl::GetItemCount() noexcept {
  return edge::Guarded(0, [&] { return state_->model.ItemCount(); });
}

void CvListControl::SetItemCount(int count) noexcept {
  edge::Guarded([&] { state_->model.SetItemCount(count); });
}

void CvListControl::SetSelectFlag(int row, int flag) noexcept {
  edge::Guarded([&] {
    if (!state_->model.IsUsed(row)) return;
    state_->model.Select(row, flag);
    state_->list.SetItemState(row, flag != 0 ? LVIS_SELECTED : 0, LVIS_SELECTED);
  });
}

int CvListControl::GetSelectFlag(int row) noexcept {
  return edge::Guarded(0, [&] { return state_->model.Selected(row); });
}

void CvListControl::ClearSelectFlag() noexcept {
  edge::Guarded([&] {
    state_->model.ClearSelection();
    state_->edited.row = grid::kNoRow;
  });
}

int CvListControl::GetSelectedItem() noexcept {
  return edge::Guarded(grid::kNoRow, [&] { return state_->model.FirstSelected(); });
}

int CvListControl::GetSelectedColumn() noexcept {
  return edge::Guarded(grid::kNoColumn, [&] { return state_->edited.column; });
}

int CvListControl::AddItem() noexcept {
  return edge::Guarded(grid::kNoRow, [&] { return AddInsertItem(state_->model.ItemCount()); });
}

int CvListControl::InsertItem() noexcept {
  return edge::Guarded(grid::kNoRow, [&] { return AddInsertItem(state_->model.FirstSelected()); });
}

int CvListControl::AddInsertItem(int at) {
  if (at < 0) {
    Warn(kSelectFirst);
    return at;
  }
  if (state_->model.ItemCount() >= state_->model.Capacity()) {
    Warn(kNoRoom);
    return at;
  }
  const LifeWatch watch(*this);
  HideEditors();
  if (!watch.Alive()) return at;
  state_->model.InsertRow(at);
  edge::Guarded([&] { Refresh(); });  // the row is there by now, shown or not
  return at;
}

void CvListControl::DeleteItem() noexcept {
  edge::Guarded([&] {
    const LifeWatch watch(*this);
    if (state_->model.FirstSelected() >= 0) {
      HideEditors();
      if (watch.Alive()) state_->model.DeleteSelectedRows();
    } else {
      Warn(kSelectFirst);
    }
    if (watch.Alive()) Refresh();
  });
}

void CvListControl::Refresh() {
  const LifeWatch watch(*this);
  Renumber();
  state_->edited.row = grid::kNoRow;
  SelectItem();
  if (watch.Alive()) FocusListForHiddenEditor();
  if (!watch.Alive()) return;
  DrawItem();
  MessageText("");
}

void CvListControl::Renumber() { state_->model.Renumber(); }

// Without a dialog there is nobody to tell.
void CvListControl::Warn(const char* text) {
  const WindowRef parent(state_->parent);
  if (parent.IsWindow()) parent.MessageBox(text, "", MB_ICONEXCLAMATION);
}

int CvListControl::CheckClassNumber(int row, CString text) noexcept {
  return edge::Guarded(0, [&] { return CheckNumberCell(row, text, "無効なクラス番号です"); });
}

int CvListControl::CheckRevisionNumber(int row, CString text) noexcept {
  return edge::Guarded(0, [&] { return CheckNumberCell(row, text, "無効なレビジョンです"); });
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

void CvListControl::MessageText(const char* text) noexcept {
  edge::Guarded([&] {
    CvListControl* const list = OutermostList();
    const HWND parent = list->state_->parent;
    if (parent != nullptr && ::IsWindow(parent) == FALSE) return;
    list->CvUtility::MessageText(text);
  });
}

void CvListControl::ErrorText(const char* text) noexcept {
  edge::Guarded([&] {
    CvListControl* const list = OutermostList();
    const HWND parent = list->state_->parent;
    if (parent != nullptr && ::IsWindow(parent) == FALSE) return;
    list->CvUtility::ErrorText(text);
  });
}
