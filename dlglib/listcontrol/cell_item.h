// What is said of a grid's cells to those who do not see them. Texts are Shift_JIS.
#pragma once

#include <span>
#include <string>

#include "dlglib/listcontrol/cell_plan.h"
#include "dlglib/listcontrol/editable_cells.h"
#include "dlglib/listcontrol/grid_model.h"
#include "platform/os/accessible.h"

namespace grid {

/// What a column adds to what its cells say.
struct SpokenColumn {
  std::string title;
  int kind = kTextColumn;
  std::span<const std::string> entries;  ///< of its drop-down list
  char separator = ' ';                  ///< ends the value within an entry
  bool hasBox = false;                   ///< in which the cells are edited
  bool hasList = false;                  ///< that drops down from the cells
};

/// A cell: its column's title as the name, its text as the value; a colour cell says the entry of its list that stands
/// for it, or else the colour's name. An error and what is not available are told as the description, and that a list
/// drops down as a state. Place and focus are the caller's to fill in.
[[nodiscard]] accessible::Item CellItem(const GridModel& model, CellPosition cell, const SpokenColumn& column);

/// A row, by its number from 1. Its value is the first texts of `columns`, so that somebody who goes from row to row
/// hears what they are.
[[nodiscard]] accessible::Item RowItem(const GridModel& model, int row, std::span<const int> columns);

/// What the edit box over a cell is called.
[[nodiscard]] std::string BoxName(CellPosition cell, const std::string& title);

/// The nearest of the colours that have a common name.
[[nodiscard]] const char* ColourName(Colour colour) noexcept;

}  // namespace grid
