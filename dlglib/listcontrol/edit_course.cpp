#include "dlglib/listcontrol/edit_course.h"

#include <utility>

namespace grid {

void EditCourse::Begin() noexcept {
  End();
  edited_.column = 0;
}

void EditCourse::End() noexcept { *this = EditCourse(); }

int EditCourse::FollowRequest(GridModel* model, const Page& page) noexcept {
  const CellPosition cell = std::exchange(asked_, {});
  if (!model->IsUsed(cell.row)) return kNoRow;
  edited_ = cell;
  model->Select(cell.row, 1);
  return page.Shows(cell.row) ? kNoRow : ScrollTarget(cell.row, page.rows, model->Capacity());
}

CellPosition EditCourse::Choose(GridModel* model, const Page& page) noexcept {
  const CellPosition cell = {model->FirstSelected(), edited_.column};
  if (!page.Shows(cell.row)) return {};
  if (model->Available(cell.row, cell.column) == 0) return cell;
  model->Select(cell.row, 0);
  Leave();
  return {};
}

BoxStep EditCourse::PlanBox(const BoxState& box, bool wasEdited) noexcept {
  BoxStep step;
  step.forget = !wasEdited;
  step.leave = !box.isCurrent;
  step.place = box.exists && (step.forget || step.leave || box.hasMoved || !box.standsOverCell);
  return step;
}

CellPosition EditCourse::DropDown(const GridModel& model, const Page& page) const noexcept {
  const int row = model.FirstSelected();
  return page.Shows(row) && model.HasColumn(edited_.column) ? CellPosition{row, edited_.column} : CellPosition();
}

}  // namespace grid
