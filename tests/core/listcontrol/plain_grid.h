// The grid's data once more, written as plainly as can be: a vector of rows, moved cell by cell, one step after the
// other. What the model's block moves are checked against.
#pragma once

#include <string>
#include <vector>

namespace grid_test {

struct PlainCell {
  unsigned int available = 1;
  unsigned int error = 0;
  unsigned int text = 0;
  unsigned int back = 0xFFFFFF;
  std::string content;
};

struct PlainRow {
  std::vector<PlainCell> cells;
  int selected = 0;
};

class PlainGrid {
 public:
  PlainGrid(const std::vector<int>& columnLimits, int items, int rowCount, int number);

  void SetText(int row, int column, const std::string& text);
  void TypeText(int row, int column, const std::string& text);
  void SetColours(int row, int column, unsigned int text, unsigned int back);
  void SetAvailable(int row, unsigned int flag);
  void SetAvailable(int row, int column, unsigned int flag);
  void SetError(int row, int column, unsigned int flag);
  void Select(int row, int flag);
  void ClearSelection();
  [[nodiscard]] int FirstSelected() const;
  void Insert(int at);
  int DeleteSelected();
  void Renumber();

  /// A text cut as cells cut it, character by character.
  [[nodiscard]] static std::string Cut(const std::string& text, int limit);

  int count;
  int capacity;
  int numberColumn;
  std::vector<int> limits;
  std::vector<PlainRow> rows;

 private:
  [[nodiscard]] bool Has(int row, int column, int rowCount) const;
};

}  // namespace grid_test
