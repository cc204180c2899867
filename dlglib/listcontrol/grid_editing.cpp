#include "dlglib/listcontrol/grid_editing.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace grid {

namespace {

[[nodiscard]] bool MayClear(const EditableCells& cells, CellPosition cell) noexcept {
  return cells.HoldsTypedText(cell.column) && cells.CanEdit(cell);
}

}  // namespace

std::string BlockText(const EditableCells& cells, const CellBlock& block) {
  return WriteBlock(cells.Model(), block, cells.ColourColumns());
}

int CellsText(const EditableCells& cells, const CellBlock& block, char* out, int size) {
  const std::size_t room = size > 0 ? static_cast<std::size_t>(size) : 0;
  const std::size_t needed = WriteBlock(cells.Model(), block, cells.ColourColumns(), out, room);
  constexpr std::size_t kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::min(needed, kMost));
}

PastePlan GridEditing::Plan(const PasteRules& rules, const ClipboardText& text, CellPosition at) const {
  // The check may end this object.
  const PasteCheck check = check_;
  void* const context = checkContext_;
  PastePlan plan = PlanPaste(rules, text, {at.row, at.column, pasteRows_});
  plan.Ask(check, context);
  return plan;
}

bool GridEditing::Changes(const PastePlan& plan) const noexcept {
  const auto differs = [&](const PasteCell& cell) { return plan.TextOf(cell) != Model().Text(cell.row, cell.column); };
  return plan.AddedRows() > 0 || std::any_of(plan.Cells().begin(), plan.Cells().end(), differs);
}

Written GridEditing::Paste(const PastePlan& plan) {
  if (plan.Refused() || !plan.Fits(Model())) return {kRefused};
  const auto forEachCell = [&plan](const auto& visit) {
    for (const PasteCell& cell : plan.Cells()) visit(NewText{cell.row, cell.column, plan.TextOf(cell)});
  };
  return Write(forEachCell, plan.AddedRows());
}

bool GridEditing::Clears(const EditableCells& cells, const CellBlock& block) const noexcept {
  return std::any_of(block.rows.begin(), block.rows.end(), [&](int row) {
    for (int column = block.firstColumn; column < block.firstColumn + block.columns; ++column) {
      if (MayClear(cells, {row, column}) && *Model().Text(row, column) != '\0') return true;
    }
    return false;
  });
}

Written GridEditing::Clear(const EditableCells& cells, const CellBlock& block) {
  const auto forEachCell = [&](const auto& visit) {
    for (const int row : block.rows) {
      for (int column = block.firstColumn; column < block.firstColumn + block.columns; ++column) {
        if (MayClear(cells, {row, column})) visit(NewText{row, column});
      }
    }
  };
  return Write(forEachCell);
}

}  // namespace grid
