// A small table for the tests: 30 rows of which 12 are in use.
#pragma once

#include <string>

#include "tests/windows/grid/grid_host.h"

namespace grid_test {

inline constexpr int kNumber = 0;    ///< row numbers, no editor
inline constexpr int kName = 1;      ///< edit box of 12 bytes in a column of 20
inline constexpr int kMaterial = 2;  ///< edit box and list
inline constexpr int kColour = 3;    ///< swatch, no editor

inline constexpr int kWidths[] = {27, 118, 88, 58};

inline void FillTable(Host& host) {
  CvListControl& list = *host.list;
  const int limits[] = {4, 20, 20, 4};
  list.InitList(host.Window(), kList, 4, limits, 12, 30, kNumber);
  list.SetMessageWindow(CWnd::FromHandle(host.Child(kZone)));
  list.SetColumn(kNumber, "No", 1.0);
  list.SetColumn(kName, "品名", 4.0);
  list.SetColumn(kMaterial, "材質", 3.0);
  list.SetColumn(kColour, "色", 2.0, 1);
  list.SetEdit(kName, 0, 12, "品名を入力");
  list.SetEdit(kMaterial, 0, 20, "材質を入力");
  CStringList entries;
  for (const char* entry : {"1 SS400", "2 SUS304", "  7 x", "表 ソ", "12345678901234567890123 long"}) {
    entries.AddTail(entry);
  }
  list.SetCombo(kMaterial, kColour, &entries, "材質を選択");
  for (int row = 0; row < 12; ++row) {
    list.SetItemText(row, kNumber, std::to_string(row + 1).c_str());
    list.SetItemText(row, kName, ("部品" + std::to_string(row)).c_str());
    list.SetItemText(row, kMaterial, "2");
    list.SetItemText(row, kColour, "");
    list.SetItemColor(row, kColour, 0x0000FF00, 0xFFFFFF);
  }
}

/// The middle of a cell, a little to the right with each `step`: two clicks at one place are a double click.
inline POINT CellPoint(Host& host, int row, int col, int step = 0) {
  const RECT cell = host.ListView().CellRect(row, col);
  return {cell.left + 12 + 8 * step, (cell.top + cell.bottom) / 2};
}

}  // namespace grid_test
