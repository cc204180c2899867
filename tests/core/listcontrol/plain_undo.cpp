#include "tests/core/listcontrol/plain_undo.h"

#include <algorithm>

namespace grid_test {

namespace {

std::size_t Index(int value) { return static_cast<std::size_t>(value); }

}  // namespace

PlainUndo::PlainUndo(int columnCount, int items, int rowCapacity) : columns(columnCount), capacity(rowCapacity) {
  for (int row = 0; row < items; ++row) rows.push_back(NewRow());
}

UndoCell& PlainUndo::At(int row, int column) const { return (*rows[Index(row)])[Index(column)]; }

UndoRow PlainUndo::NewRow() const {
  auto row = std::make_shared<std::vector<UndoCell>>(Index(columns));
  for (UndoCell& cell : *row) cell.available = 0;
  return row;
}

void PlainUndo::ProgramText(int row, int column, const std::string& text) {
  UndoCell& cell = At(row, column);
  cell.available = cell.error = 0;
  if (cell.text == text) return;
  cell.text = text;
  cell.byProgram = ++clock_;
  redo_.clear();
}

// --------------------------------------------------------------------------------------------------------------- steps

void PlainUndo::Push(UndoStep step) {
  if (limit_ == 0) return;
  step.when = ++clock_;
  undo_.push_back(std::move(step));
  redo_.clear();
  visitHasStep_ = false;
  Trim();
}

void PlainUndo::Trim() {
  while (undo_.size() + redo_.size() > limit_) (undo_.empty() ? redo_ : undo_).pop_front();
  if (undo_.empty()) visitHasStep_ = false;
}

int PlainUndo::Write(const std::vector<NewText>& texts, int addedRows) {
  UndoStep step;
  const int used = static_cast<int>(rows.size());
  for (int i = 0; i < addedRows; ++i) {
    rows.push_back(NewRow());
    step.rows.emplace_back(used + i, rows.back());
  }
  step.inserts = true;
  int changed = 0;
  for (const NewText& text : texts) {
    UndoCell& cell = At(text.row, text.column);
    if (cell.text == text.text) continue;
    ++changed;
    if (text.row < used) step.cells.push_back({rows[Index(text.row)], text.column, cell.text});
    cell.text = text.text;
  }
  if (changed > 0 || addedRows > 0) Push(std::move(step));
  return changed;
}

void PlainUndo::Insert(int at) {
  EndVisit();
  UndoStep step;
  step.inserts = true;
  step.rows.emplace_back(at, NewRow());
  rows.insert(rows.begin() + at, step.rows.front().second);
  Push(std::move(step));
}

void PlainUndo::Delete(const std::vector<int>& selected) {
  if (selected.empty()) return;
  EndVisit();
  UndoStep step;
  for (const int row : selected) step.rows.emplace_back(row, rows[Index(row)]);
  RemoveRows(step);
  Push(std::move(step));
}

void PlainUndo::RestoreRows(const UndoStep& step) {
  for (const auto& [at, row] : step.rows) rows.insert(rows.begin() + at, row);
}

void PlainUndo::RemoveRows(const UndoStep& step) {
  for (auto row = step.rows.rbegin(); row != step.rows.rend(); ++row) rows.erase(rows.begin() + row->first);
}

// -------------------------------------------------------------------------------------------------------------- visits

void PlainUndo::BeginVisit(int row, int column) {
  if (visited_ == rows[Index(row)] && visitedColumn_ == column) return;
  visited_ = rows[Index(row)];
  visitedColumn_ = column;
  visitHasStep_ = false;
}

void PlainUndo::Type(int row, int column, const std::string& text) { Change(row, column, text, false); }

void PlainUndo::Pick(int row, int column, const std::string& text) {
  Change(row, column, text, true);
  At(row, column).available = At(row, column).error = 0;
}

void PlainUndo::Change(int row, int column, const std::string& text, bool picks) {
  UndoCell& cell = At(row, column);
  if (cell.text == text) return;
  BeginVisit(row, column);
  if (visitHasStep_ && cell.byProgram > undo_.back().when) visitHasStep_ = false;
  if (!visitHasStep_ && limit_ > 0) {
    Push({0, {{rows[Index(row)], column, cell.text}}, {}, {}, false});
    visitHasStep_ = true;
  }
  const bool clearsFlags = picks && (cell.available != 0 || cell.error != 0);
  if (visitHasStep_ && clearsFlags && !undo_.back().picked) undo_.back().picked = cell;
  cell.text = text;
  DropUnchanged();
}

void PlainUndo::DropUnchanged() {
  if (!visitHasStep_ || undo_.back().picked) return;
  const UndoText& former = undo_.back().cells.front();
  if ((*former.row)[Index(former.column)].text != former.text) return;
  undo_.pop_back();
  visitHasStep_ = false;
}

// ------------------------------------------------------------------------------------------------------- undo and redo

bool PlainUndo::IsAlive(const UndoStep& step) const {
  return !step.rows.empty() || std::any_of(step.cells.begin(), step.cells.end(), [&step](const UndoText& cell) {
    return (*cell.row)[Index(cell.column)].byProgram < step.when;
  });
}

bool PlainUndo::CanUndo() {
  while (!undo_.empty() && !IsAlive(undo_.back())) {
    undo_.pop_back();
    visitHasStep_ = false;
  }
  return !undo_.empty();
}

void PlainUndo::SwapTexts(UndoStep* step) {
  for (UndoText& cell : step->cells) std::swap((*cell.row)[Index(cell.column)].text, cell.text);
}

bool PlainUndo::Undo() {
  if (!CanUndo()) return false;
  UndoStep step = undo_.back();
  undo_.pop_back();
  visitHasStep_ = false;
  if (!step.rows.empty()) EndVisit();
  std::erase_if(step.cells,
                [&step](const UndoText& cell) { return (*cell.row)[Index(cell.column)].byProgram > step.when; });
  SwapTexts(&step);
  if (step.picked) {
    UndoCell& cell = (*step.cells.front().row)[Index(step.cells.front().column)];
    const bool isAsPicked = cell.available == 0 && cell.error == 0;
    if (isAsPicked) {
      cell.available = step.picked->available;
      cell.error = step.picked->error;
    } else {
      step.picked.reset();
    }
  }
  if (step.inserts) {
    RemoveRows(step);
  } else {
    RestoreRows(step);
  }
  redo_.push_back(step);
  return true;
}

bool PlainUndo::Redo() {
  if (redo_.empty()) return false;
  UndoStep step = redo_.back();
  redo_.pop_back();
  visitHasStep_ = false;
  if (!step.rows.empty()) EndVisit();
  SwapTexts(&step);
  if (step.picked) {
    UndoCell& cell = (*step.cells.front().row)[Index(step.cells.front().column)];
    step.picked = cell;
    cell.available = cell.error = 0;
  }
  if (step.inserts) {
    RestoreRows(step);
  } else {
    RemoveRows(step);
  }
  undo_.push_back(step);
  return true;
}

void PlainUndo::SetLimit(int steps) {
  limit_ = Index(std::max(steps, 0));
  Trim();
}

void PlainUndo::ForgetSteps() {
  undo_.clear();
  redo_.clear();
  visitHasStep_ = false;
}

}  // namespace grid_test
