// Which cells of a grid a user may edit, and how one gets from one to the next.
#pragma once

#include <span>
#include <vector>

#include "dlglib/listcontrol/grid_model.h"

namespace grid {

struct CellPosition {
  int row = kNoRow;
  int column = kNoColumn;

  friend bool operator==(const CellPosition&, const CellPosition&) = default;
};

/// The list that a column drops down. The entries of a list of the dialog's are the dialog's business.
enum class ColumnList { None, OfGrid, OfDialog };

/// What of a column decides whether its cells are edited.
struct ColumnEditors {
  int kind = 0;  ///< as in cell_plan.h
  bool hasBox = false;
  ColumnList list = ColumnList::None;

  [[nodiscard]] bool Any() const noexcept { return hasBox || list != ColumnList::None; }
};

/// A model's cells with the editors of its columns. Borrows both.
class EditableCells {
 public:
  /// `columns`: one for each column of the model; columns behind them have no editor.
  EditableCells(const GridModel& model, std::span<const ColumnEditors> columns) noexcept
      : model_(model), columns_(columns) {}

  [[nodiscard]] const GridModel& Model() const noexcept { return model_; }
  /// Without editors for a column outside.
  [[nodiscard]] ColumnEditors EditorsOf(int column) const noexcept;
  [[nodiscard]] bool HasEditor(int column) const noexcept { return EditorsOf(column).Any(); }
  /// A used row's cell that has an editor and is available.
  [[nodiscard]] bool CanEdit(CellPosition cell) const noexcept;
  /// What clearing empties, and what a block of whole rows fills: no row numbers, no colours, nothing without an
  /// editor. Whether the cell is available does not count.
  [[nodiscard]] bool HoldsTypedText(int column) const noexcept;
  [[nodiscard]] std::vector<int> ColourColumns() const;

  // Each answers a cell that can be edited, or one whose row is kNoRow when there is none.

  /// Behind the given cell, row by row, from left to right; before it.
  [[nodiscard]] CellPosition Next(CellPosition from) const noexcept;
  [[nodiscard]] CellPosition Former(CellPosition from) const noexcept;
  [[nodiscard]] CellPosition First() const noexcept;
  [[nodiscard]] CellPosition Last() const noexcept;
  /// In the same column.
  [[nodiscard]] CellPosition Below(CellPosition from) const noexcept;
  [[nodiscard]] CellPosition Above(CellPosition from) const noexcept;
  /// `rows` further down (up when below 0) or, where that cell cannot be edited or does not exist, the nearest one on
  /// that way or behind it; never one on the other side of `from`.
  [[nodiscard]] CellPosition Page(CellPosition from, int rows) const noexcept;
  /// In one row: the column asked for when it can be edited, else the first that can.
  [[nodiscard]] CellPosition InRow(int row, int column) const noexcept;

 private:
  /// From the cell on, by `step` cells of a row-by-row count or of a column.
  [[nodiscard]] CellPosition Search(CellPosition from, int step) const noexcept;
  [[nodiscard]] CellPosition SearchColumn(CellPosition from, int step) const noexcept;

  const GridModel& model_;
  std::span<const ColumnEditors> columns_;
};

}  // namespace grid
