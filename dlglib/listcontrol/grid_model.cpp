#include "dlglib/listcontrol/grid_model.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <new>
#include <utility>

namespace grid {

namespace {

[[nodiscard]] std::size_t Index(int value) noexcept { return static_cast<std::size_t>(value); }

}  // namespace

GridModel::GridModel() noexcept { ResetTextLimits(); }

void GridModel::SetTextLimit(int column, int limit) noexcept {
  if (column >= 0 && column < kMaxColumns) limits_[Index(column)] = ClampTextLimit(limit);
}

void GridModel::ResetTextLimits() noexcept { limits_.fill(kMaxTextLimit); }

void GridModel::Init(int columns, int items, int capacity, int numberColumn) {
  if (capacity > kMaxRows) throw std::bad_alloc();
  const int columnCount = std::clamp(columns, 0, kMaxColumns);
  const std::size_t rows = Index(std::max(capacity, 0));
  Columns made;
  for (int c = 0; c < kMaxColumns; ++c) {
    Column& column = made[Index(c)];
    column.looks = ZeroedBlock<StoredLooks>(rows);
    if (c >= columnCount) continue;
    column.width = Index(limits_[Index(c)]) + 1;
    column.texts = ZeroedBlock<char>(rows * column.width);
  }
  selected_ = ZeroedBlock<int>(rows + 1);
  columns_ = std::move(made);
  columnCount_ = columnCount;
  capacity_ = std::max(capacity, 0);
  itemCount_ = std::min(items, capacity_);
  numberColumn_ = numberColumn < kMaxColumns ? numberColumn : 0;
  firstMaybeSelected_ = 0;
}

void GridModel::Clear() noexcept {
  columns_ = {};
  selected_ = {};
  columnCount_ = 0;
  capacity_ = 0;
  itemCount_ = 0;
  numberColumn_ = kNoColumn;
  firstMaybeSelected_ = 0;
}

int GridModel::UsedRows() const noexcept { return std::clamp(itemCount_, 0, capacity_); }

int GridModel::TextLimit(int column) const noexcept {
  return column >= 0 && column < kMaxColumns ? limits_[Index(column)] : kMaxTextLimit;
}

bool GridModel::HasCell(int row, int column) const noexcept { return row >= 0 && row < capacity_ && HasColumn(column); }

char* GridModel::TextAt(int row, int column) noexcept {
  Column& at = columns_[Index(column)];
  return at.texts.Data() + Index(row) * at.width;
}

GridModel::StoredLooks& GridModel::LooksAt(int row, int column) noexcept {
  return columns_[Index(column)].looks[Index(row)];
}

const GridModel::StoredLooks& GridModel::LooksAt(int row, int column) const noexcept {
  return columns_[Index(column)].looks[Index(row)];
}

// --------------------------------------------------------------------------------------------------------------- cells

void GridModel::SetText(int row, int column, const char* text) noexcept {
  if (!HasCell(row, column)) return;
  TypeText(row, column, text);
  LooksAt(row, column).availableFlipped = 1;
  LooksAt(row, column).error = 0;
}

void GridModel::TypeText(int row, int column, const char* text) noexcept {
  if (!HasCell(row, column)) return;
  // The limits may have been changed for the next Init; the store's own width is what counts.
  CopyText(TextAt(row, column), text, static_cast<int>(columns_[Index(column)].width) - 1);
}

void GridModel::PutText(int row, int column, std::string_view text) noexcept {
  if (!HasCell(row, column)) return;
  const std::string_view kept = text.substr(0, columns_[Index(column)].width - 1);
  char* const out = TextAt(row, column);
  std::copy(kept.begin(), kept.end(), out);
  out[kept.size()] = '\0';
}

const char* GridModel::Text(int row, int column) const noexcept {
  if (!HasCell(row, column)) return "";
  const Column& at = columns_[Index(column)];
  return at.texts.Data() + Index(row) * at.width;
}

void GridModel::SetColours(int row, int column, Colour text, Colour back) noexcept {
  if (!HasCell(row, column)) return;
  LooksAt(row, column).text = text;
  LooksAt(row, column).backFlipped = back ^ kWhite;
}

void GridModel::SetAvailable(int row, unsigned int flag) noexcept {
  if (!IsUsed(row)) return;
  for (int c = 0; c < kMaxColumns; ++c) LooksAt(row, c).availableFlipped = flag ^ 1U;
}

void GridModel::SetAvailable(int row, int column, unsigned int flag) noexcept {
  if (IsUsedCell(row, column)) LooksAt(row, column).availableFlipped = flag ^ 1U;
}

unsigned int GridModel::Available(int row) const noexcept {
  return IsUsed(row) ? LooksAt(row, 0).availableFlipped ^ 1U : 1U;
}

unsigned int GridModel::Available(int row, int column) const noexcept {
  return IsUsedCell(row, column) ? LooksAt(row, column).availableFlipped ^ 1U : 1U;
}

void GridModel::SetError(int row, int column, unsigned int flag) noexcept {
  if (IsUsedCell(row, column)) LooksAt(row, column).error = flag;
}

unsigned int GridModel::Error(int row, int column) const noexcept {
  return IsUsedCell(row, column) ? LooksAt(row, column).error : 1U;
}

CellLooks GridModel::Looks(int row, int column) const noexcept {
  if (!HasCell(row, column)) return {};
  const StoredLooks& stored = LooksAt(row, column);
  return {stored.availableFlipped ^ 1U, stored.error, stored.text, stored.backFlipped ^ kWhite};
}

void GridModel::SetLooks(int row, int column, const CellLooks& looks) noexcept {
  if (HasCell(row, column)) LooksAt(row, column) = {looks.available ^ 1U, looks.error, looks.text, looks.back ^ kWhite};
}

// ----------------------------------------------------------------------------------------------------------- selection

void GridModel::Select(int row, int flag) noexcept {
  if (!IsUsed(row)) return;
  selected_[Index(row)] = flag;
  if (flag != 0) firstMaybeSelected_ = std::min(firstMaybeSelected_, row);
}

int GridModel::Selected(int row) const noexcept {
  const bool behindLast = row == itemCount_ && row <= capacity_;
  return row >= 0 && (IsUsed(row) || behindLast) && capacity_ > 0 ? selected_[Index(row)] : 0;
}

bool GridModel::ShowsSelected(int row) const noexcept {
  return row >= 0 && row < capacity_ && selected_[Index(row)] != 0;
}

void GridModel::ClearSelection() noexcept {
  for (int row = firstMaybeSelected_; row < UsedRows(); ++row) selected_[Index(row)] = 0;
}

int GridModel::FirstSelected() const noexcept {
  const int used = UsedRows();
  int row = firstMaybeSelected_;
  while (row < used && selected_[Index(row)] == 0) ++row;
  firstMaybeSelected_ = row;
  return row < used ? row : kNoRow;
}

// ---------------------------------------------------------------------------------------------------------------- rows

void GridModel::MoveRows(int from, int to, int count) noexcept {
  if (count <= 0 || from == to) return;
  for (int c = 0; c < columnCount_; ++c) {
    Column& column = columns_[Index(c)];
    std::memmove(&column.looks[Index(to)], &column.looks[Index(from)], Index(count) * sizeof(StoredLooks));
    std::memmove(TextAt(to, c), TextAt(from, c), Index(count) * column.width);
  }
}

void GridModel::MoveFlags(int from, int to, int count) noexcept {
  if (count <= 0 || from == to) return;
  std::memmove(&selected_[Index(to)], &selected_[Index(from)], Index(count) * sizeof(int));
}

void GridModel::EmptyRows(int first, int count, unsigned int available) noexcept {
  for (int c = 0; c < columnCount_; ++c) {
    for (int row = first; row < first + count; ++row) {
      *TextAt(row, c) = '\0';
      LooksAt(row, c).availableFlipped = available ^ 1U;
    }
  }
}

bool GridModel::InsertRow(int at) noexcept {
  const int used = UsedRows();
  if (at < 0 || at > used || itemCount_ != used || used >= capacity_) return false;
  MoveRows(at, at + 1, used - at);
  EmptyRows(at, 1, 0);
  for (int c = 0; c < columnCount_; ++c) LooksAt(at, c).error = 0;
  ++itemCount_;
  firstMaybeSelected_ = 0;
  ClearSelection();
  Select(at, 1);
  return true;
}

int GridModel::DeleteSelectedRows() noexcept {
  const int used = UsedRows();
  int kept = FirstSelected();
  if (kept == kNoRow) return 0;
  for (int row = kept; row < used;) {
    if (selected_[Index(row)] != 0) {
      ++row;
      continue;
    }
    int end = row;
    while (end < used && selected_[Index(end)] == 0) ++end;
    MoveRows(row, kept, end - row);
    MoveFlags(row, kept, end - row);
    kept += end - row;
    row = end;
  }
  FreeRows(kept, used - kept);
  itemCount_ = kept;
  firstMaybeSelected_ = 0;
  return used - kept;
}

// The last of them is the former last row, whose place nothing has been moved to.
void GridModel::FreeRows(int first, int count) noexcept {
  const int last = first + count - 1;
  for (int c = 0; c < columnCount_; ++c) {
    for (int row = first; row < last; ++row) LooksAt(row, c) = LooksAt(last, c);
  }
  EmptyRows(first, count, 1);
  for (int row = first; row <= last; ++row) selected_[Index(row)] = 0;
}

// From the end on, so that nothing is overwritten that is still to be moved.
void GridModel::OpenRows(std::span<const RowRun> runs) noexcept {
  int shift = 0;
  for (const RowRun& run : runs) shift += run.count;
  int end = UsedRows() + shift;
  itemCount_ = end;
  for (std::size_t left = runs.size(); left > 0; --left) {
    const RowRun& run = runs[left - 1];
    const int behind = run.first + run.count;
    MoveRows(behind - shift, behind, end - behind);
    MoveFlags(behind - shift, behind, end - behind);
    std::fill_n(&selected_[Index(run.first)], run.count, 0);
    shift -= run.count;
    end = run.first;
  }
  firstMaybeSelected_ = 0;
}

void GridModel::CloseRows(std::span<const RowRun> runs) noexcept {
  if (runs.empty()) return;
  const int used = UsedRows();
  int to = runs.front().first;
  for (std::size_t i = 0; i < runs.size(); ++i) {
    const int from = runs[i].first + runs[i].count;
    const int end = i + 1 < runs.size() ? runs[i + 1].first : used;
    MoveRows(from, to, end - from);
    MoveFlags(from, to, end - from);
    to += end - from;
  }
  std::fill_n(&selected_[Index(to)], used - to, 0);
  itemCount_ = to;
  firstMaybeSelected_ = 0;
}

void GridModel::Renumber() noexcept {
  if (!HasColumn(numberColumn_)) return;
  for (int row = 0; row < UsedRows(); ++row) {
    std::array<char, 12> digits = {};
    std::to_chars(digits.data(), digits.data() + digits.size() - 1, row + 1);
    TypeText(row, numberColumn_, digits.data());
  }
}

}  // namespace grid
