#include "dlglib/listcontrol/cell_plan.h"

namespace grid {

namespace {

[[nodiscard]] CellColours ColoursWithoutError(const CellState& state) noexcept {
  const bool available = state.looks.available == 0;
  if (!available && !state.firstCellAvailable) return {kBlack, kGreyPaper};
  if (!available || !state.rowSelected) return {state.looks.text, state.looks.back};
  return {kSelectedInk, kSelectedPaper};
}

[[nodiscard]] DropButton PlanButton(const Rect& face) noexcept {
  const auto [left, top, right, bottom] = face;
  const int x = (left + right) / 2;
  const int y = (top + bottom) / 2;
  return {face,
          {{{left, bottom}, {right, bottom}, {right, top}}},
          {{{left + 1, bottom - 1}, {right - 1, bottom - 1}, {right - 1, top - 1}}},
          {{{x - 5, y - 2},
            {x - 1, y + 3},
            {x + 3, y - 2},
            {x + 1, y - 2},
            {x - 1, y + 2},
            {x - 3, y - 2},
            {x - 5, y - 2}}}};
}

[[nodiscard]] Rect SwatchIn(const Rect& cell) noexcept {
  const int inset = (cell.bottom - cell.top) / 4;
  return {cell.left + 2 * inset, cell.top + inset, cell.right - 2 * inset, cell.bottom - inset};
}

[[nodiscard]] CellContent ContentOf(int kind) noexcept {
  if (kind == kTextColumn) return CellContent::Text;
  return kind == kColourColumn ? CellContent::Swatch : CellContent::Nothing;
}

}  // namespace

CellColours ColoursOf(const CellState& state) noexcept {
  CellColours colours = ColoursWithoutError(state);
  if (state.looks.error != 0) colours.ink = kErrorInk;
  return colours;
}

CellPlan PlanCell(const CellState& state, const CellFrame& frame) noexcept {
  CellPlan plan;
  plan.cell = {frame.column.left + 2, frame.row.top, frame.column.right - 2, frame.row.bottom - 1};
  plan.colours = ColoursOf(state);
  plan.content = ContentOf(frame.kind);
  plan.swatchColour = state.looks.text;
  if (frame.buttonWidth >= 0) {
    plan.cell.right -= frame.buttonWidth + 1;
    plan.button =
        PlanButton({plan.cell.right, plan.cell.top, plan.cell.right + frame.buttonWidth, plan.cell.bottom - 1});
  }
  plan.swatch = SwatchIn(plan.cell);
  return plan;
}

}  // namespace grid
