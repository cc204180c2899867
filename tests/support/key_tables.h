// The tables of keys in README.md, so that each of their rows is tried.
#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace key_tables {

/// The first cells of the first table behind a line that ends with `intro`.
inline std::vector<std::string> RowsBehind(std::string_view intro) {
  constexpr std::string_view kRow = "| ";
  std::vector<std::string> rows;
  bool isBehind = false;
  std::ifstream page(README_PAGE);
  for (std::string line; std::getline(page, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!isBehind) {
      isBehind = line.ends_with(intro);
    } else if (line.starts_with(kRow)) {
      rows.push_back(line.substr(kRow.size(), line.find(" |", kRow.size()) - kRow.size()));
    } else if (!rows.empty() && !line.starts_with("|")) {
      break;
    }
  }
  if (!rows.empty()) rows.erase(rows.begin());  // the table's head
  return rows;
}

}  // namespace key_tables
