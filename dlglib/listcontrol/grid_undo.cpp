#include "dlglib/listcontrol/grid_undo.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <utility>

namespace grid {

namespace {

[[nodiscard]] std::size_t Index(int value) noexcept { return static_cast<std::size_t>(value); }

[[nodiscard]] int CountOf(const std::vector<RowRun>& rows) noexcept {
  int count = 0;
  for (const RowRun& run : rows) count += run.count;
  return count;
}

/// Whether the text is the number of the row, as the model writes it.
[[nodiscard]] bool IsNumberOf(int row, std::string_view text) noexcept {
  std::array<char, 12> digits = {};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), row + 1).ptr;
  return text == std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

/// The last step goes from one list to the other. Nothing is moved when there is no memory for it.
template <class Steps>
void MoveLast(Steps* from, Steps* to) {
  to->push_back(std::move(from->back()));
  from->pop_back();
}

}  // namespace

// --------------------------------------------------------------------------------------------------------------- lists

void GridUndo::SetLimit(int steps) noexcept {
  limit_ = std::max(steps, 0);
  Trim();
}

/// Of what was undone the farthest goes: a step without the one before it is of no use.
void GridUndo::Trim() noexcept {
  while (undo_.size() + redo_.size() > Index(limit_)) (undo_.empty() ? redo_ : undo_).pop_front();
  if (undo_.empty()) EndVisitStep();
  if (undo_.empty() && redo_.empty()) marks_ = {};
}

void GridUndo::Forget() noexcept {
  ForgetSteps();
  EndVisit();
}

void GridUndo::ForgetSteps() noexcept {
  undo_.clear();
  redo_.clear();
  marks_ = {};
  EndVisitStep();
  if (visit_ && !model_.IsUsed(visit_->cell.row)) EndVisit();
}

bool GridUndo::IsAlive(const Step& step) const noexcept {
  bool isAlive = step.kind != Rows::None;
  if (!isAlive) {
    step.cells.ForEach([&](const PackedCells::Cell& cell) {
      isAlive = MarkOf(cell.row, cell.column) == Mark::None;
      return !isAlive;
    });
  }
  return isAlive;
}

void GridUndo::DropDeadSteps() noexcept {
  while (!undo_.empty() && !IsAlive(undo_.back())) {
    undo_.pop_back();
    EndVisitStep();
    Trim();
  }
}

bool GridUndo::CanUndo() noexcept {
  DropDeadSteps();
  return !undo_.empty();
}

std::size_t GridUndo::Bytes() const noexcept {
  std::size_t bytes = marks_.Size() * sizeof(ColumnBits);
  for (const std::deque<Step>* const steps : {&undo_, &redo_}) {
    for (const Step& step : *steps) {
      bytes += sizeof step + step.cells.Bytes() + step.images.capacity() + step.rows.capacity() * sizeof(RowRun);
      if (step.numbers) bytes += step.numbers->Bytes();
      if (step.selection) bytes += step.selection->capacity() * sizeof(RowRun);
    }
  }
  return bytes;
}

void GridUndo::Push(Step* step) {
  if (!Keeps()) return;
  undo_.push_back(std::move(*step));
  redo_.clear();
  EndVisitStep();
  Trim();
}

// --------------------------------------------------------------------------------------------------------------- marks

Mark GridUndo::MarkOf(int row, int column) const noexcept {
  const bool isMarked = marks_.Size() > 0 && (marks_[Index(row)] >> column & 1U) != 0;
  return isMarked ? Mark::OfProgram : Mark::None;
}

/// There is room for marks when there is one to be set.
void GridUndo::SetMark(int row, int column, Mark mark) noexcept {
  if (marks_.Size() == 0) return;
  ColumnBits& bits = marks_[Index(row)];
  const ColumnBits bit = 1U << column;
  bits = mark == Mark::OfProgram ? bits | bit : bits & ~bit;
}

/// As the model moves its rows.
void GridUndo::OpenMarks(std::span<const RowRun> rows, int used) noexcept {
  if (marks_.Size() == 0) return;
  int shift = 0;
  for (const RowRun& run : rows) shift += run.count;
  int end = used + shift;
  for (std::size_t left = rows.size(); left > 0; --left) {
    const RowRun& run = rows[left - 1];
    const int behind = run.first + run.count;
    std::copy_backward(marks_.Data() + behind - shift, marks_.Data() + end - shift, marks_.Data() + end);
    std::fill_n(marks_.Data() + run.first, run.count, ColumnBits{0});
    shift -= run.count;
    end = run.first;
  }
}

void GridUndo::CloseMarks(std::span<const RowRun> rows, int used) noexcept {
  if (marks_.Size() == 0) return;
  ColumnBits* to = marks_.Data() + rows.front().first;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const int end = i + 1 < rows.size() ? rows[i + 1].first : used;
    to = std::copy(marks_.Data() + rows[i].first + rows[i].count, marks_.Data() + end, to);
  }
  std::fill(to, marks_.Data() + used, ColumnBits{0});
}

void GridUndo::SetText(int row, int column, const char* text) {
  const bool hasSteps = !undo_.empty() || !redo_.empty();
  const bool isVisited = IsVisited({row, column});
  if (!hasSteps && !isVisited) return model_.SetText(row, column, text);
  const std::string former = model_.Text(row, column);
  if (hasSteps && marks_.Size() == 0) marks_ = ZeroedBlock<ColumnBits>(Index(model_.Capacity()));
  model_.SetText(row, column, text);
  if (former == model_.Text(row, column)) return;
  redo_.clear();
  SetMark(row, column, Mark::OfProgram);
  if (!isVisited) return;
  TellOfVisit();
  visit_->came = visit_->told;
}

// ------------------------------------------------------------------------------------------------------- writing texts

void GridUndo::NoteValue(CellPosition cell) const noexcept {
  if (news_ != nullptr) news_->NoteValue(cell);
}

void GridUndo::NoteState(CellPosition cell) const noexcept {
  if (news_ != nullptr) news_->NoteState(cell);
}

// A cell is written as soon as it is noted down, while its text is at hand: another round through all of them would
// take as long as this one.
bool GridUndo::Change(Step* step, const NewText& cell) {
  // What stands in a row that is not in use yet goes with that row.
  if (!model_.IsUsed(cell.row)) return !cell.text.empty();
  const std::string_view former = grid::TextOf(model_, cell.row, cell.column);
  if (former == cell.text) return false;
  if (Keeps()) step->cells.Add(cell.row, cell.column, former, MarkOf(cell.row, cell.column));
  if (step->lastRow == kNoRow) step->firstRow = cell.row;
  step->lastRow = cell.row;
  model_.PutText(cell.row, cell.column, cell.text);
  SetMark(cell.row, cell.column, Mark::None);
  NoteValue({cell.row, cell.column});
  return true;
}

/// The cells are as they were. Without steps there is nothing that could have failed.
void GridUndo::Revert(Step* step) noexcept {
  step->cells.End();
  step->cells.ForEach([this](const PackedCells::Cell& cell) {
    model_.PutText(cell.row, cell.column, cell.text);
    SetMark(cell.row, cell.column, cell.mark);
    return true;
  });
}

void GridUndo::NoteAdding(Step* step, int addedRows) const {
  if (addedRows > 0 && Keeps()) NoteRows(step, Rows::Inserted, {{model_.UsedRows(), addedRows}});
}

void GridUndo::Keep(Step* step, int addedRows) {
  step->cells.Finish();
  Push(step);
  TellOfVisit();
  if (addedRows > 0) AddRows({model_.UsedRows(), addedRows});
}

/// As inserted ones: empty and available; their colours stay what they were there.
void GridUndo::AddRows(RowRun rows) noexcept {
  OpenMarks({&rows, 1}, model_.UsedRows());
  model_.OpenRows({&rows, 1});
  for (int row = rows.first; row < model_.UsedRows(); ++row) {
    for (int column = 0; column < model_.ColumnCount(); ++column) {
      const CellLooks stood = model_.Looks(row, column);
      model_.PutText(row, column, "");
      model_.SetLooks(row, column, {0, 0, stood.text, stood.back});
    }
  }
}

// ---------------------------------------------------------------------------------------------------------------- rows

std::string GridUndo::Pack(const std::vector<RowRun>& rows) const {
  RowPacker packer;
  for (const RowRun& run : rows) {
    for (int row = run.first; row < run.first + run.count; ++row) {
      packer.Add(model_, row, marks_.Size() > 0 ? marks_[Index(row)] : 0);
    }
  }
  return packer.Finish();
}

std::string GridUndo::Pack(int first, int count) const { return Pack({{first, count}}); }

std::vector<RowRun> GridUndo::SelectedRuns() const {
  std::vector<RowRun> runs;
  const int first = model_.FirstSelected();
  for (int row = first; row != kNoRow && row < model_.UsedRows(); ++row) {
    if (model_.Selected(row) == 0) continue;
    if (runs.empty() || runs.back().first + runs.back().count != row) runs.push_back({row, 0});
    ++runs.back().count;
  }
  return runs;
}

/// Rows are numbered when one comes or goes. Most grids are numbered before, too, and then there is nothing to keep.
std::optional<PackedCells> GridUndo::UnusualNumbers() const {
  const int column = model_.NumberColumn();
  if (!model_.HasColumn(column)) return std::nullopt;
  bool isUnusual = false;
  PackedCells numbers;
  for (int row = 0; row < model_.UsedRows() && !isUnusual; ++row)
    isUnusual = !IsNumberOf(row, model_.Text(row, column));
  if (!isUnusual) return std::nullopt;
  for (int row = 0; row < model_.UsedRows(); ++row) {
    numbers.Add(row, column, model_.Text(row, column), MarkOf(row, column));
  }
  numbers.Finish();
  return numbers;
}

void GridUndo::NoteRows(Step* step, Rows kind, std::vector<RowRun> rows) const {
  step->kind = kind;
  step->itemsBefore = model_.ItemCount();
  step->images = kind == Rows::Deleted ? Pack(rows) : Pack(model_.UsedRows(), CountOf(rows));
  step->numbers = UnusualNumbers();
  step->rows = std::move(rows);
}

bool GridUndo::InsertRow(int at) {
  const int used = model_.UsedRows();
  const bool hasRoom = model_.ItemCount() == used && used < model_.Capacity();
  if (at < 0 || at > used || !hasRoom) return false;
  const std::vector<RowRun> rows = {{at, 1}};
  Step step;
  if (Keeps()) {
    NoteRows(&step, Rows::Inserted, rows);
    step.selection = SelectedRuns();
  }
  Push(&step);
  EndVisit();
  OpenMarks(rows, used);
  model_.InsertRow(at);
  model_.Renumber();
  return true;
}

int GridUndo::DeleteSelectedRows() {
  const std::vector<RowRun> rows = SelectedRuns();
  if (rows.empty()) return 0;
  Step step;
  if (Keeps()) {
    NoteRows(&step, Rows::Deleted, rows);
    step.selection = rows;
  }
  const int used = model_.UsedRows();
  Push(&step);
  EndVisit();
  CloseMarks(rows, used);
  model_.DeleteSelectedRows();
  model_.Renumber();
  return CountOf(rows);
}

// ------------------------------------------------------------------------------------------------------- undo and redo

std::optional<GridChange> GridUndo::Undo() {
  DropDeadSteps();
  return Turn(Way::Undo);
}

std::optional<GridChange> GridUndo::Redo() { return Turn(Way::Redo); }

std::optional<GridChange> GridUndo::Turn(Way way) {
  std::deque<Step>& from = way == Way::Undo ? undo_ : redo_;
  std::deque<Step>& to = way == Way::Undo ? redo_ : undo_;
  if (from.empty()) return std::nullopt;
  Turned turned = Prepare(from.back(), way);
  MoveLast(&from, &to);
  EndVisitStep();
  const GridChange change = Apply(&to.back(), std::move(turned), way);
  TellOfVisit();
  return change;
}

/// Reads what is going to be written over. Nothing is redone when the program has changed a text since, so the cells
/// that are passed over are those of an undo.
GridUndo::Turned GridUndo::Prepare(const Step& step, Way way) const {
  Turned turned;
  const auto forEachCell = [&step](const auto& visit) {
    step.cells.ForEach([&visit](const PackedCells::Cell& cell) {
      visit(cell);
      return true;
    });
  };
  ForEachInBatches<PackedCells::Cell>(model_, forEachCell, [&](const PackedCells::Cell& cell) {
    const Mark mark = MarkOf(cell.row, cell.column);
    if (way == Way::Undo && mark == Mark::OfProgram) return;
    turned.cells.Add(cell.row, cell.column, grid::TextOf(model_, cell.row, cell.column), mark);
    if (turned.lastRow == kNoRow) turned.firstRow = cell.row;
    turned.lastRow = cell.row;
  });
  turned.cells.Finish();
  if (step.kind == Rows::None) return turned;
  const bool goOut = (step.kind == Rows::Inserted) == (way == Way::Undo);
  turned.images = goOut ? Pack(step.rows) : Pack(model_.UsedRows(), CountOf(step.rows));
  return turned;
}

GridChange GridUndo::Apply(Step* step, Turned turned, Way way) noexcept {
  // Cells and rows of one step are not the same, and its rows stand behind its cells.
  step->cells.ForEach([&](const PackedCells::Cell& cell) {
    if (way == Way::Undo && MarkOf(cell.row, cell.column) == Mark::OfProgram) return true;
    model_.PutText(cell.row, cell.column, cell.text);
    SetMark(cell.row, cell.column, cell.mark);
    NoteValue({cell.row, cell.column});
    return true;
  });
  TurnFlags(step, way);
  step->cells = std::move(turned.cells);
  step->firstRow = turned.firstRow;
  step->lastRow = turned.lastRow;
  TurnRows(step, &turned, way);
  if (step->kind != Rows::None) return {kNoRow, model_.UsedRows()};
  return {step->firstRow, step->lastRow - step->firstRow + 1};
}

/// Flags that are no longer as the pick has left them are the program's.
void GridUndo::TurnFlags(Step* step, Way way) noexcept {
  if (!step->flags) return;
  step->cells.ForEach([&](const PackedCells::Cell& cell) {
    const CellLooks looks = model_.Looks(cell.row, cell.column);
    if (way == Way::Redo) {
      step->flags = PickedFlags{looks.available, looks.error};
      model_.SetLooks(cell.row, cell.column, {0, 0, looks.text, looks.back});
    } else if (looks.available == 0 && looks.error == 0) {
      model_.SetLooks(cell.row, cell.column, {step->flags->available, step->flags->error, looks.text, looks.back});
    } else {
      step->flags.reset();
    }
    NoteState({cell.row, cell.column});
    return false;
  });
}

void GridUndo::TurnRows(Step* step, Turned* turned, Way way) noexcept {
  if (step->kind == Rows::None) return;
  EndVisit();
  const bool goOut = (step->kind == Rows::Inserted) == (way == Way::Undo);
  if (goOut) {
    RemoveRows(step->rows, step->images);
  } else {
    RestoreRows(step->rows, step->images);
  }
  step->images = std::move(turned->images);
  if (way == Way::Undo) model_.SetItemCount(step->itemsBefore);
  SetNumbers(*step, way);
  SetSelection(*step, way);
}

void GridUndo::RestoreRows(const std::vector<RowRun>& rows, std::string_view images) noexcept {
  OpenMarks(rows, model_.UsedRows());
  model_.OpenRows(rows);
  RowUnpacker unpacker(images);
  for (const RowRun& run : rows) Unpack(&unpacker, run);
}

void GridUndo::RemoveRows(const std::vector<RowRun>& rows, std::string_view images) noexcept {
  CloseMarks(rows, model_.UsedRows());
  model_.CloseRows(rows);
  RowUnpacker unpacker(images);
  Unpack(&unpacker, {model_.UsedRows(), CountOf(rows)});
}

void GridUndo::Unpack(RowUnpacker* rows, RowRun run) noexcept {
  for (int row = run.first; row < run.first + run.count; ++row) {
    const ColumnBits marks = rows->PutNext(&model_, row);
    if (marks_.Size() > 0) marks_[Index(row)] = marks;
  }
}

void GridUndo::SetNumbers(const Step& step, Way way) noexcept {
  if (way == Way::Redo || !step.numbers) return model_.Renumber();
  step.numbers->ForEach([&](const PackedCells::Cell& cell) {
    if (MarkOf(cell.row, cell.column) == cell.mark) model_.PutText(cell.row, cell.column, cell.text);
    return true;
  });
}

void GridUndo::SetSelection(const Step& step, Way way) noexcept {
  if (!step.selection) return;
  model_.ClearSelection();
  const bool isInserted = way == Way::Redo && step.kind == Rows::Inserted;
  if (isInserted) return model_.Select(step.rows.front().first, 1);
  if (way == Way::Redo) return;
  for (const RowRun& run : *step.selection) {
    for (int row = run.first; row < run.first + run.count; ++row) model_.Select(row, 1);
  }
}

// -------------------------------------------------------------------------------------------------------------- visits

void GridUndo::BeginVisit(CellPosition cell) noexcept {
  if (IsVisited(cell)) return;
  const CutText text(model_.Text(cell.row, cell.column), kMaxTextLimit);
  visit_ = Visit{cell, text, text};
}

/// What follows in the visit is a step of its own.
void GridUndo::EndVisitStep() noexcept {
  if (visit_) visit_->hasStep = false;
}

bool GridUndo::Type(CellPosition cell, const char* text) {
  const CutText cut(text, model_.TextLimit(cell.column));
  return ChangeVisited(cell, cut.View(), std::nullopt);
}

bool GridUndo::Pick(CellPosition cell, const char* text) {
  if (!model_.HasCell(cell.row, cell.column)) return false;
  const CutText cut(text, model_.TextLimit(cell.column));
  const CellLooks looks = model_.Looks(cell.row, cell.column);
  const bool changes = ChangeVisited(cell, cut.View(), PickedFlags{looks.available, looks.error});
  model_.SetLooks(cell.row, cell.column, {0, 0, looks.text, looks.back});
  if (looks.available != 0 || looks.error != 0) NoteState(cell);
  return changes;
}

/// What the visit holds of the former text goes along with it.
void GridUndo::Reshape(CellPosition cell, const char* text) noexcept {
  if (!model_.HasCell(cell.row, cell.column)) return;
  const CutText former(model_.Text(cell.row, cell.column), kMaxTextLimit);
  const CutText shaped(text, model_.TextLimit(cell.column));
  model_.PutText(cell.row, cell.column, shaped.View());
  if (!IsVisited(cell)) return;
  for (CutText* const kept : {&visit_->came, &visit_->told}) {
    if (kept->View() == former.View()) *kept = shaped;
  }
  DropUnchangedVisit();
}

bool GridUndo::ChangeVisited(CellPosition cell, std::string_view text, std::optional<PickedFlags> flags) {
  if (!model_.HasCell(cell.row, cell.column) || text == model_.Text(cell.row, cell.column)) return false;
  if (!model_.IsUsed(cell.row)) {
    model_.PutText(cell.row, cell.column, text);
    return true;
  }
  BeginVisit(cell);
  // What the program has put over it is not to be lost with the visit's own texts.
  if (MarkOf(cell.row, cell.column) == Mark::OfProgram) EndVisitStep();
  if (flags && flags->available == 0 && flags->error == 0) flags.reset();
  KeepVisited(cell, flags);
  model_.PutText(cell.row, cell.column, text);
  SetMark(cell.row, cell.column, Mark::None);
  DropUnchangedVisit();
  return true;
}

void GridUndo::KeepVisited(CellPosition cell, std::optional<PickedFlags> flags) {
  if (visit_->hasStep) {
    if (!undo_.back().flags) undo_.back().flags = flags;
    return;
  }
  Step step;
  step.firstRow = step.lastRow = cell.row;
  step.flags = flags;
  if (!Keeps()) return;
  step.cells.Add(cell.row, cell.column, model_.Text(cell.row, cell.column), MarkOf(cell.row, cell.column));
  step.cells.Finish();
  Push(&step);
  visit_->hasStep = true;
}

/// A visit that has brought the former text back is no step.
void GridUndo::DropUnchangedVisit() noexcept {
  if (!visit_->hasStep || undo_.back().flags) return;
  bool isUnchanged = false;
  undo_.back().cells.ForEach([&](const PackedCells::Cell& cell) {
    isUnchanged = cell.text == model_.Text(cell.row, cell.column);
    if (isUnchanged) SetMark(cell.row, cell.column, cell.mark);
    return false;
  });
  if (!isUnchanged) return;
  undo_.pop_back();
  EndVisitStep();
}

std::optional<std::string> GridUndo::TextToGiveBack() const {
  if (!visit_ || visit_->came.View() == TextOf(visit_->cell)) return std::nullopt;
  return std::string(visit_->came.View());
}

void GridUndo::TellOfVisit() noexcept {
  if (visit_) visit_->told = CutText(TextOf(visit_->cell).data(), kMaxTextLimit);
}

std::optional<GridChange> GridUndo::CollectVisitChange() noexcept {
  if (!visit_ || visit_->told.View() == TextOf(visit_->cell)) return std::nullopt;
  TellOfVisit();
  EndVisitStep();
  NoteValue(visit_->cell);
  return GridChange{visit_->cell.row, 1};
}

}  // namespace grid
