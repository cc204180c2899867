// What the grid tells those who do not see it.
#include "dlglib/base/edge.h"
#include "dlglib/listcontrol/CvGrid.h"
#include "dlglib/listcontrol/cell_item.h"

accessible::Item CvGrid::SpokenCell(grid::CellPosition cell) const {
  const Column& column = At(cell.column);
  return grid::CellItem(
      model_, cell,
      {std::string(column.title.Text()), column.kind, column.entries, static_cast<char>(comboSeparator_)});
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
  edge::Guarded([&] {
    for (int row = 0; row < model_.UsedRows(); ++row) {
      if (model_.Selected(row) != 0) rows.push_back(row);
    }
  });
  return rows;
}

void CvGrid::TellRows(DWORD event, int first, int count) const noexcept {
  for (int row = first; row < first + count; ++row) accessible_.Tell(event, {row + 1, 0});
}

void CvGrid::TellCell(DWORD event, grid::CellPosition cell) const noexcept {
  accessible_.Tell(event, {cell.row + 1, cell.column + 1});
}
