#include "dlglib/listcontrol/editable_cells.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "dlglib/listcontrol/cell_plan.h"

namespace grid {

ColumnEditors EditableCells::EditorsOf(int column) const noexcept {
  const bool isKnown = model_.HasColumn(column) && static_cast<std::size_t>(column) < columns_.size();
  return isKnown ? columns_[static_cast<std::size_t>(column)] : ColumnEditors();
}

bool EditableCells::CanEdit(CellPosition cell) const noexcept {
  return HasEditor(cell.column) && model_.Available(cell.row, cell.column) == 0;
}

bool EditableCells::HoldsTypedText(int column) const noexcept {
  const ColumnEditors editors = EditorsOf(column);
  return editors.Any() && editors.kind != kColourColumn && column != model_.NumberColumn();
}

std::vector<int> EditableCells::ColourColumns() const {
  std::vector<int> columns;
  for (int column = 0; column < model_.ColumnCount(); ++column) {
    if (EditorsOf(column).kind == kColourColumn) columns.push_back(column);
  }
  return columns;
}

CellPosition EditableCells::Search(CellPosition from, int step) const noexcept {
  CellPosition cell = from;
  while (model_.IsUsed(cell.row)) {
    if (CanEdit(cell)) return cell;
    cell.column += step;
    if (model_.HasColumn(cell.column)) continue;
    cell.row += step;
    cell.column = step > 0 ? 0 : model_.ColumnCount() - 1;
  }
  return {};
}

CellPosition EditableCells::SearchColumn(CellPosition from, int step) const noexcept {
  CellPosition cell = from;
  while (model_.IsUsed(cell.row) && !CanEdit(cell)) cell.row += step;
  return model_.IsUsed(cell.row) ? cell : CellPosition();
}

CellPosition EditableCells::Next(CellPosition from) const noexcept { return Search({from.row, from.column + 1}, 1); }

CellPosition EditableCells::Former(CellPosition from) const noexcept { return Search({from.row, from.column - 1}, -1); }

CellPosition EditableCells::First() const noexcept { return Search({0, 0}, 1); }

CellPosition EditableCells::Last() const noexcept {
  return Search({model_.UsedRows() - 1, model_.ColumnCount() - 1}, -1);
}

CellPosition EditableCells::Below(CellPosition from) const noexcept {
  return SearchColumn({from.row + 1, from.column}, 1);
}

CellPosition EditableCells::Above(CellPosition from) const noexcept {
  return SearchColumn({from.row - 1, from.column}, -1);
}

CellPosition EditableCells::Page(CellPosition from, int rows) const noexcept {
  const int step = rows > 0 ? 1 : -1;
  const std::int64_t wanted = std::int64_t{from.row} + rows;
  const auto row = static_cast<int>(std::clamp<std::int64_t>(wanted, 0, std::max(model_.UsedRows() - 1, 0)));
  const auto isOnTheWay = [&](CellPosition cell) { return cell.row != kNoRow && step * (cell.row - from.row) > 0; };
  for (const int direction : {step, -step}) {
    const CellPosition cell = SearchColumn({row, from.column}, direction);
    if (isOnTheWay(cell)) return cell;
  }
  return {};
}

CellPosition EditableCells::InRow(int row, int column) const noexcept {
  if (CanEdit({row, column})) return {row, column};
  for (int c = 0; c < model_.ColumnCount(); ++c) {
    if (CanEdit({row, c})) return {row, c};
  }
  return {};
}

}  // namespace grid
