#include "dlglib/listcontrol/cell_plan.h"

#include "dlglib/base/contrast.h"

namespace grid {

namespace {

[[nodiscard]] CellColours ColoursWithoutError(const CellState& state) noexcept {
  const bool available = state.looks.available == 0;
  if (!available && !state.firstCellAvailable) return {kBlack, kGreyPaper};
  if (!available || !state.rowSelected) return {state.looks.text, state.looks.back};
  return {kSelectedInk, kSelectedPaper};
}

[[nodiscard]] bool HasDefaultColours(const CellLooks& looks) noexcept {
  return looks.text == kBlack && looks.back == kWhite;
}

[[nodiscard]] CellColours ContrastColours(const CellState& state, const SystemColours& system) noexcept {
  const bool available = state.looks.available == 0;
  if (available && state.rowSelected) return {system.selectedText, system.selectedPaper};
  if (!HasDefaultColours(state.looks)) return ColoursWithoutError(state);
  const bool grey = !available && !state.firstCellAvailable;
  return {grey ? system.greyText : system.text, system.window};
}

[[nodiscard]] DropButton PlanButton(const Rect& face, scale::Scale scale) noexcept {
  const auto [left, top, right, bottom] = face;
  const int x = (left + right) / 2;
  const int y = (top + bottom) / 2;
  const auto at = [&](int dx, int dy) { return Point{x + scale.ToScreen(dx), y + scale.ToScreen(dy)}; };
  DropButton button;
  button.face = face;
  button.outerEdge = {{{left, bottom}, {right, bottom}, {right, top}}};
  button.innerEdge = {{{left + 1, bottom - 1}, {right - 1, bottom - 1}, {right - 1, top - 1}}};
  button.arrow = {{at(-5, -2), at(-1, 3), at(3, -2), at(1, -2), at(-1, 2), at(-3, -2), at(-5, -2)}};
  button.isFilled = scale.Dpi() > scale::kDesignDpi;
  return button;
}

[[nodiscard]] Rect SwatchIn(const Rect& cell) noexcept {
  const int inset = (cell.bottom - cell.top) / 4;
  return {cell.left + 2 * inset, cell.top + inset, cell.right - 2 * inset, cell.bottom - inset};
}

[[nodiscard]] CellContent ContentOf(int kind) noexcept {
  if (kind == kTextColumn) return CellContent::Text;
  return kind == kColourColumn ? CellContent::Swatch : CellContent::Nothing;
}

/// A swatch of the paper's own colour could not be seen without its frame.
void UseContrast(const SystemColours& system, scale::Scale scale, CellPlan* plan) noexcept {
  plan->swatchFrame = contrast::ReadableOn(plan->colours.paper, system.text);
  plan->swatchFrameWidth = scale.LineToScreen(1);
  if (!plan->button) return;
  plan->button->faceColour = system.buttonFace;
  plan->button->lineColour = system.buttonText;
  plan->button->isFilled = true;
  plan->button->isFramed = true;
}

}  // namespace

CellColours ColoursOf(const CellState& state) noexcept {
  CellColours colours = state.system != nullptr ? ContrastColours(state, *state.system) : ColoursWithoutError(state);
  if (state.looks.error == 0) return colours;
  colours.ink = state.system != nullptr ? contrast::ReadableOn(colours.paper, kErrorInk) : kErrorInk;
  return colours;
}

CellPlan PlanCell(const CellState& state, const CellFrame& frame) noexcept {
  CellPlan plan;
  const int margin = frame.scale.ToScreen(2);
  plan.cell = {frame.column.left + margin, frame.row.top, frame.column.right - margin, frame.row.bottom - 1};
  plan.colours = ColoursOf(state);
  plan.content = ContentOf(frame.kind);
  plan.swatchColour = state.looks.text;
  if (frame.buttonWidth >= 0) {
    plan.cell.right -= frame.buttonWidth + 1;
    plan.button = PlanButton(
        {plan.cell.right, plan.cell.top, plan.cell.right + frame.buttonWidth, plan.cell.bottom - 1}, frame.scale);
  }
  plan.swatch = SwatchIn(plan.cell);
  if (state.system != nullptr) UseContrast(*state.system, frame.scale, &plan);
  return plan;
}

}  // namespace grid
