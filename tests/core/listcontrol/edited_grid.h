// A grid with the editors of its columns, as the tests of editing use it, and what it holds as one value.
#pragma once

#include <string>
#include <vector>

#include "dlglib/listcontrol/grid_editing.h"

namespace grid_test {

/// Texts row by row, "|" between the cells of a row.
inline std::vector<std::string> RowsOf(const grid::GridModel& model) {
  std::vector<std::string> rows;
  for (int row = 0; row < model.UsedRows(); ++row) {
    std::string text;
    for (int column = 0; column < model.ColumnCount(); ++column) {
      text += column > 0 ? "|" : "";
      text += model.Text(row, column);
    }
    rows.push_back(text);
  }
  return rows;
}

/// Everything that a program can see of a grid, and what stands behind its used rows.
struct Snapshot {
  explicit Snapshot(const grid::GridModel& model) : items(model.ItemCount()) {
    for (int row = 0; row < model.Capacity(); ++row) {
      for (int column = 0; column < model.ColumnCount(); ++column) {
        const grid::CellLooks looks = model.Looks(row, column);
        cells.push_back(std::string(model.Text(row, column)) + "/" + std::to_string(looks.available) +
                        std::to_string(looks.error) + "/" + std::to_string(looks.text) + std::to_string(looks.back));
      }
    }
  }
  friend bool operator==(const Snapshot&, const Snapshot&) = default;

  int items;
  std::vector<std::string> cells;
};

/// By default every column has a box of 40 bytes, every cell of a used row is available, and nothing is numbered.
class EditedGrid {
 public:
  EditedGrid(int columns, int items, int capacity, int numberColumn = -1)
      : editors(static_cast<std::size_t>(columns), grid::ColumnEditors{0, true, grid::ColumnList::None}),
        rules(static_cast<std::size_t>(columns)) {
    model.Init(columns, items, capacity, numberColumn);
    for (int row = 0; row < model.UsedRows(); ++row) model.SetAvailable(row, 0);
    for (grid::PasteColumn& column : rules) column.boxLimit = 40;
  }

  /// Sets the texts of rows, "|" between cells.
  void Fill(const std::vector<std::string>& rows) {
    for (std::size_t row = 0; row < rows.size(); ++row) {
      int column = 0;
      std::size_t from = 0;
      while (from <= rows[row].size()) {
        const std::size_t to = std::min(rows[row].find('|', from), rows[row].size());
        model.SetText(static_cast<int>(row), column++, rows[row].substr(from, to - from).c_str());
        from = to + 1;
      }
    }
  }
  [[nodiscard]] grid::EditableCells Cells() const { return {model, editors}; }
  [[nodiscard]] grid::PasteRules Rules() const { return {Cells(), rules, separator}; }
  [[nodiscard]] std::vector<std::string> Rows() const { return RowsOf(model); }

  [[nodiscard]] grid::PastePlan Plan(const grid::ClipboardText& text, int row, int column) const {
    return editing.Plan(Rules(), text, {row, column});
  }
  grid::Written PasteText(const std::string& text, int row, int column) {
    return editing.Paste(Plan({text, {}}, row, column));
  }
  /// What is refused, with its message; empty when nothing is.
  [[nodiscard]] std::string Refusal(const std::string& text, int row, int column) const {
    const grid::PastePlan plan = Plan({text, {}}, row, column);
    return plan.Refused() ? plan.Refused()->Message() : "";
  }

  grid::GridModel model;
  grid::GridEditing editing{&model};
  std::vector<grid::ColumnEditors> editors;
  std::vector<grid::PasteColumn> rules;
  int separator = ' ';
};

}  // namespace grid_test
