// A grid with undo and redo once more, written as plainly as can be: rows are objects that come and go, each text
// remembers when the program set it last, and a step holds whole texts. What the packed steps are checked against.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace grid_test {

struct UndoCell {
  std::string text;
  unsigned int available = 1;
  unsigned int error = 0;
  long byProgram = 0;  ///< when the program changed the text
};

using UndoRow = std::shared_ptr<std::vector<UndoCell>>;

/// A cell and the text that is not in it.
struct UndoText {
  UndoRow row;
  int column = 0;
  std::string text;
};

struct UndoStep {
  long when = 0;
  std::vector<UndoText> cells;
  std::optional<UndoCell> picked;  ///< its flags
  std::vector<std::pair<int, UndoRow>> rows;
  bool inserts = false;
};

/// A text to be written.
struct NewText {
  int row = 0;
  int column = 0;
  std::string text;
};

class PlainUndo {
 public:
  PlainUndo(int columnCount, int items, int rowCapacity);

  void ProgramText(int row, int column, const std::string& text);
  int Write(const std::vector<NewText>& texts, int addedRows);
  void Insert(int at);
  void Delete(const std::vector<int>& selected);
  void BeginVisit(int row, int column);
  void EndVisit() { visited_ = nullptr; }
  /// What the visit does afterwards is a step of its own.
  void Tell() { visitHasStep_ = false; }
  void Type(int row, int column, const std::string& text);
  void Pick(int row, int column, const std::string& text);
  bool CanUndo();
  [[nodiscard]] bool CanRedo() const { return !redo_.empty(); }
  bool Undo();
  bool Redo();
  void SetLimit(int steps);
  void ForgetSteps();

  std::vector<UndoRow> rows;  ///< in use
  int columns;
  int capacity;

 private:
  [[nodiscard]] UndoCell& At(int row, int column) const;
  [[nodiscard]] UndoRow NewRow() const;
  void Push(UndoStep step);
  void Trim();
  [[nodiscard]] bool IsAlive(const UndoStep& step) const;
  void SwapTexts(UndoStep* step);
  void RestoreRows(const UndoStep& step);
  void RemoveRows(const UndoStep& step);
  void Change(int row, int column, const std::string& text, bool picks);
  void DropUnchanged();

  std::deque<UndoStep> undo_;
  std::deque<UndoStep> redo_;
  UndoRow visited_;
  int visitedColumn_ = 0;
  bool visitHasStep_ = false;
  long clock_ = 1;
  std::size_t limit_ = 100;
};

}  // namespace grid_test
