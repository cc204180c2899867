#include "tests/core/listcontrol/plain_grid.h"

#include <algorithm>

namespace grid_test {

namespace {

std::size_t At(int index) { return static_cast<std::size_t>(index); }

}  // namespace

PlainGrid::PlainGrid(const std::vector<int>& columnLimits, int items, int rowCount, int number)
    : count(std::min(items, rowCount)), capacity(rowCount), numberColumn(number), limits(columnLimits) {
  rows.resize(At(rowCount));
  for (PlainRow& row : rows) row.cells.resize(limits.size());
}

bool PlainGrid::Has(int row, int column, int rowCount) const {
  return row >= 0 && row < rowCount && column >= 0 && At(column) < limits.size();
}

void PlainGrid::SetText(int row, int column, const std::string& text) {
  if (!Has(row, column, capacity)) return;
  TypeText(row, column, text);
  rows[At(row)].cells[At(column)].available = 0;
  rows[At(row)].cells[At(column)].error = 0;
}

void PlainGrid::TypeText(int row, int column, const std::string& text) {
  if (Has(row, column, capacity)) rows[At(row)].cells[At(column)].content = Cut(text, limits[At(column)]);
}

void PlainGrid::SetColours(int row, int column, unsigned int text, unsigned int back) {
  if (!Has(row, column, capacity)) return;
  rows[At(row)].cells[At(column)].text = text;
  rows[At(row)].cells[At(column)].back = back;
}

void PlainGrid::SetAvailable(int row, unsigned int flag) {
  for (std::size_t c = 0; c < limits.size(); ++c) SetAvailable(row, static_cast<int>(c), flag);
}

void PlainGrid::SetAvailable(int row, int column, unsigned int flag) {
  if (Has(row, column, count)) rows[At(row)].cells[At(column)].available = flag;
}

void PlainGrid::SetError(int row, int column, unsigned int flag) {
  if (Has(row, column, count)) rows[At(row)].cells[At(column)].error = flag;
}

void PlainGrid::Select(int row, int flag) {
  if (row >= 0 && row < count) rows[At(row)].selected = flag;
}

void PlainGrid::ClearSelection() {
  for (int row = 0; row < count; ++row) rows[At(row)].selected = 0;
}

int PlainGrid::FirstSelected() const {
  for (int row = 0; row < count; ++row) {
    if (rows[At(row)].selected != 0) return row;
  }
  return -1;
}

void PlainGrid::Insert(int at) {
  if (at < 0 || count + 1 > capacity) return;
  for (int row = 0; row < at; ++row) rows[At(row)].selected = 0;
  for (int row = count; row > at; --row) {
    rows[At(row)].cells = rows[At(row - 1)].cells;
    rows[At(row)].selected = 0;
  }
  for (PlainCell& cell : rows[At(at)].cells) {
    cell.content.clear();
    cell.available = 0;
    cell.error = 0;
  }
  rows[At(at)].selected = 1;
  ++count;
}

int PlainGrid::DeleteSelected() {
  int deleted = 0;
  for (int row = FirstSelected(); row >= 0; row = FirstSelected()) {
    for (int next = row; next + 1 < count; ++next) rows[At(next)] = rows[At(next + 1)];
    --count;
    for (PlainCell& cell : rows[At(count)].cells) {
      cell.content.clear();
      cell.available = 1;
    }
    rows[At(count)].selected = 0;
    ++deleted;
  }
  return deleted;
}

void PlainGrid::Renumber() {
  for (int row = 0; row < count; ++row) TypeText(row, numberColumn, std::to_string(row + 1));
}

std::string PlainGrid::Cut(const std::string& text, int limit) {
  std::string cut;
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const std::size_t length = byte < 0x80 || (byte >= 0xA0 && byte <= 0xDF) ? 1 : 2;
    if (at + length > text.size() || at + length > At(limit)) break;
    cut += text.substr(at, length);
    at += length;
  }
  return cut;
}

}  // namespace grid_test
