// What the grid tells those who do not see it.
#include "dlglib/base/edge.h"
#include "dlglib/listcontrol/CvGrid.h"
#include "dlglib/listcontrol/cell_item.h"

namespace {

/// Posted to the list view. What is noted until it comes is told then.
[[nodiscard]] UINT NewsMessage() noexcept {
  static const UINT message = ::RegisterWindowMessageW(L"corvane.grid.news");
  return message;
}

[[nodiscard]] bool IsPressed() noexcept { return ::GetKeyState(VK_LBUTTON) < 0 || ::GetKeyState(VK_RBUTTON) < 0; }

[[nodiscard]] bool MayMoveFocus(UINT message) noexcept {
  return message == WM_KEYDOWN || message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN;
}

[[nodiscard]] DWORD EventOf(grid::NewsKind kind) noexcept {
  switch (kind) {
    case grid::NewsKind::RowCame:
      return EVENT_OBJECT_CREATE;
    case grid::NewsKind::RowWent:
      return EVENT_OBJECT_DESTROY;
    case grid::NewsKind::Value:
      return EVENT_OBJECT_VALUECHANGE;
    case grid::NewsKind::State:
      return EVENT_OBJECT_STATECHANGE;
    case grid::NewsKind::OnlySelected:
      return EVENT_OBJECT_SELECTION;
    case grid::NewsKind::Selected:
      return EVENT_OBJECT_SELECTIONADD;
    case grid::NewsKind::NotSelected:
      return EVENT_OBJECT_SELECTIONREMOVE;
    case grid::NewsKind::SeveralSelected:
      return EVENT_OBJECT_SELECTIONWITHIN;
    case grid::NewsKind::Focused:
      return EVENT_OBJECT_FOCUS;
    default:
      return EVENT_OBJECT_REORDER;
  }
}

}  // namespace

accessible::Item CvGrid::SpokenCell(grid::CellPosition cell) const {
  const Column& column = At(cell.column);
  return grid::CellItem(model_, cell,
                        {.title = std::string(column.title.Text()),
                         .kind = column.kind,
                         .entries = column.entries,
                         .separator = static_cast<char>(comboSeparator_),
                         .hasBox = column.edit != nullptr,
                         .hasList = column.combo != nullptr});
}

/// By its texts. Its number is its name, and a colour says nothing alone.
accessible::Item CvGrid::SpokenRow(int row) const {
  std::vector<int> columns;
  for (int col = 0; col < model_.ColumnCount(); ++col) {
    if (col != model_.NumberColumn() && At(col).kind != grid::kColourColumn) columns.push_back(col);
  }
  return grid::RowItem(model_, row, columns);
}

/// By its cell. A grid that ends has no columns any more.
std::string CvGrid::BoxName(int col) const {
  if (static_cast<std::size_t>(col) >= columns_.size()) return {};
  const std::string title(At(col).title.Text());
  const auto& edit = At(col).edit;
  return edit != nullptr && edit->Cell() ? grid::BoxName(*edit->Cell(), title) : title;
}

/// A control of the dialog may be the list of several columns: an open one is called after the column that it is open
/// in. A grid that ends has no columns any more.
std::string CvGrid::ListName(int col) const {
  if (static_cast<std::size_t>(col) >= columns_.size()) return {};
  const bool isOpen = openCombo_ != nullptr && openCombo_ == At(col).combo;
  const int edited = course_.Edited().column;
  return std::string(At(isOpen && HasColumn(edited) ? edited : col).title.Text());
}

CvGrid::SpokenPlace CvGrid::PlaceToSpeakOf(int row, int col) const {
  RECT place = {};
  RECT client = {};
  RECT seen = {};
  list_.GetClientRect(&client);
  if (!list_.GetItemRect(row, &place, LVIR_BOUNDS)) return {};
  if (col >= 0) {
    for (int c = 0; c < col; ++c) place.left += list_.GetColumnWidth(c);
    place.right = place.left + list_.GetColumnWidth(col);
  }
  const bool inSight = ::IntersectRect(&seen, &place, &client) != FALSE;
  list_.ClientToScreen(&place);
  return {place, inSight};
}

grid::CellPosition CvGrid::CellToSpeakOfAt(POINT onScreen) const {
  LVHITTESTINFO hit = {};
  hit.pt = onScreen;
  list_.ScreenToClient(&hit.pt);
  list_.SendPointer(LVM_SUBITEMHITTEST, 0, &hit);
  return {hit.iItem, hit.iSubItem};
}

/// None without memory for them: the rows change all the same.
std::vector<int> CvGrid::RowsToSpeakOf() const noexcept {
  std::vector<int> rows;
  edge::Guarded([&] { rows = news_.SelectedRows(); });
  return rows;
}

/// As their numbers were.
void CvGrid::TellOfDeletion(std::span<const int> rows) noexcept {
  if (rows.empty() || rows.size() > grid::GridNews::kMostAtOnce) return news_.NoteReorder();
  for (const int row : rows) TellCell(EVENT_OBJECT_DESTROY, {row, grid::kNoColumn});
}

/// Of a row without a column, of the grid without either.
void CvGrid::TellCell(DWORD event, grid::CellPosition cell) const noexcept {
  accessible_.Tell(event, {cell.row + 1, cell.column + 1});
}

/// Before its box gets the focus, which the system tells of: the box may be the one that had it before. A cell without
/// one is told of when things have settled.
void CvGrid::TellEditedCell(grid::CellPosition cell) noexcept {
  if (At(cell.column).edit == nullptr || news_.IsTold(cell)) return;
  news_.CellTold(cell);
  TellCell(EVENT_OBJECT_SELECTION, cell);
  TellCell(EVENT_OBJECT_FOCUS, cell);
}

/// A selected row has an edited cell also where nobody edits: the keys that select rows go on from the list view's own
/// row, and the cell of a row's number stands for the row.
grid::Standing CvGrid::StandingNow() {
  using Focus = grid::Standing::Focus;
  const HWND focus = OwnFocus();
  const grid::CellPosition edited = course_.Edited();
  grid::Standing standing;
  if (focus != nullptr) standing.focus = list_.Is(focus) ? Focus::List : Focus::Box;
  const bool isOfBox = standing.focus == Focus::Box;
  const bool isRow = !isOfBox && (walksRows_ || edited.column == model_.NumberColumn());
  if (course_.TakesText() && !isRow) standing.edited = edited;
  standing.row = list_.GetNextItem(grid::kNoRow, LVNI_FOCUSED);
  if (focus != nullptr && IsListOpen()) standing.entry = ComboBoxRef(openCombo_).GetCurSel();
  return standing;
}

// --------------------------------------------------------------------------------------------------------------- news

/// A list view that is not shown is being filled.
bool CvGrid::BeginNews() noexcept {
  if (list_.m_hWnd == nullptr) return false;
  PostNews();
  return accessible_.IsHeard();
}

/// What could not be posted waits for the next message to the list view.
void CvGrid::PostNews() noexcept { newsWait_ = ::PostMessageW(list_.m_hWnd, NewsMessage(), 0, 0) == FALSE; }

Handled CvGrid::OnMessageToSpeakOf(const Message& message) {
  if (const Handled answered = accessible_.Answer(message)) return answered;
  if (message.id == NewsMessage()) {
    OnNews();
    return 0;
  }
  if (MayMoveFocus(message.id)) news_.NoteStanding();
  if (newsWait_ && !IsPressed()) PostNews();
  return std::nullopt;
}

/// A press of the mouse is going to say which cell is meant, and painting which one is edited.
void CvGrid::OnNews() noexcept {
  newsWait_ = IsPressed() && list_.Is(::GetFocus());
  if (newsWait_) return;
  const LifeWatch watch(owner_);
  if (news_.WillTell()) list_.UpdateWindow();
  if (watch.Alive()) edge::Guarded([&] { TellNews(news_.Take(StandingNow())); });
}

/// What is wrong with a cell, and that it cannot be used, its description says as well.
void CvGrid::TellNews(const std::vector<grid::News>& news) const noexcept {
  for (const grid::News& item : news) {
    if (item.kind == grid::NewsKind::Entry) {
      TellEntry();
      continue;
    }
    TellCell(EventOf(item.kind), item.cell);
    if (item.kind == grid::NewsKind::State) TellCell(EVENT_OBJECT_DESCRIPTIONCHANGE, item.cell);
  }
}

/// As a list does that has the keyboard itself: its entries are numbered from 1, and it is meant as a whole when none
/// is selected.
void CvGrid::TellEntry() const noexcept {
  COMBOBOXINFO parts = {};
  parts.cbSize = sizeof parts;
  if (openCombo_ == nullptr || ::GetComboBoxInfo(openCombo_, &parts) == FALSE) return;
  const LONG entry = ComboBoxRef(openCombo_).GetCurSel() + 1;
  ::NotifyWinEvent(EVENT_OBJECT_FOCUS, parts.hwndList, OBJID_CLIENT, entry);
  if (entry > 0) ::NotifyWinEvent(EVENT_OBJECT_SELECTION, parts.hwndList, OBJID_CLIENT, entry);
}

void CvGrid::TellCellsBeforeRows() noexcept {
  edge::Guarded([&] { TellNews(news_.TakeCells()); });
}
