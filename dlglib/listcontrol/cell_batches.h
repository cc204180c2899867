// Going through many cells. Their texts lie far from each other in memory, each in a line of its own, and a program
// that reads one after the other waits for each. Reading the first bytes of a few hundred at once, before their texts
// are worked on, has them fetched side by side.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "dlglib/listcontrol/grid_model.h"

namespace grid {

inline constexpr std::size_t kCellBatch = 256;

/// Has the texts of the cells fetched. `Cell` has a row and a column.
template <class Cell>
void FetchTexts(const GridModel& model, std::span<const Cell> cells) noexcept {
  unsigned int read = 0;
  for (const Cell& cell : cells) read += static_cast<unsigned char>(*model.Text(cell.row, cell.column));
  // So that the compiler does not leave out what nobody needs.
  [[maybe_unused]] const volatile unsigned int kept = read;
}

/// The cell's text. Its bytes are counted one by one: the library's own call, as which the compiler would recognise a
/// loop without a bound, reads far behind a short text's end at once and so waits for memory that holds nothing of it.
[[nodiscard]] inline std::string_view TextOf(const GridModel& model, int row, int column) noexcept {
  const char* const text = model.Text(row, column);
  std::size_t size = 0;
  while (size < std::size_t{kMaxTextLimit} && text[size] != '\0') ++size;
  return {text, size};
}

/// Hands cells on to `process` in their order, a batch at a time.
template <class Cell, class Process>
class CellBatches {
 public:
  CellBatches(const GridModel& model, Process process) : model_(model), process_(process) {}

  void Add(const Cell& cell) {
    cells_[count_++] = cell;
    if (count_ == kCellBatch) End();
  }
  /// To be called behind the last cell.
  void End() {
    const std::span<const Cell> batch = std::span<const Cell>(cells_).first(count_);
    count_ = 0;
    FetchTexts(model_, batch);
    for (const Cell& cell : batch) process_(cell);
  }

 private:
  const GridModel& model_;
  Process process_;
  std::array<Cell, kCellBatch> cells_ = {};
  std::size_t count_ = 0;
};

/// The same for cells that a function goes through by calling what it is given with each.
template <class Cell, class ForEach, class Process>
void ForEachInBatches(const GridModel& model, const ForEach& forEach, Process process) {
  CellBatches<Cell, Process> batches(model, process);
  forEach([&batches](const Cell& cell) { batches.Add(cell); });
  batches.End();
}

}  // namespace grid
