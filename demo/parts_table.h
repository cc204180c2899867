// A table of parts in a grid: texts, numbers, choices and colours, edited in place.
#pragma once

#include "demo/demo_window.h"

namespace demo {

namespace parts_table {

/// The columns of the table.
enum Column {
  kNumber,
  kCode,
  kName,
  kMaterial,
  kQuantity,
  kUnit,
  kClass,
  kRevision,
  kColour,
  kPrice,
  kWeight,
  kRemark,
  kColumnCount
};

}  // namespace parts_table

/// Runs the window; it takes no arguments. With OK it prints how many parts there are and how many pieces they make.
int RunPartsTable(const Arguments& arguments);

}  // namespace demo
