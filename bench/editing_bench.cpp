// How fast a block of cells goes into a grid, out of it and back again, without a window: a paste against setting its
// texts one by one, its undo against the paste, a block's text against reading the cells and joining them; and what a
// step that can be undone holds in memory, against the texts that it has written.
#include <array>
#include <string>
#include <vector>

#include "bench/measure.h"
#include "dlglib/listcontrol/grid_editing.h"

namespace {

constexpr int kRows = 10000;
constexpr int kColumns = 20;
constexpr int kRounds = 31;
constexpr int kWarmUps = 2;
constexpr double kPasteGoal = 3;
constexpr double kUndoGoal = 2;
constexpr double kTextGoal = 1;
constexpr double kMemoryGoal = 2;

/// Another one in each cell when the round is another one.
const char* TextOf(int row, int column, int round) {
  static constexpr std::array<const char*, 4> kTexts = {"ポンプ", "SS400", "150.25", "ﾌﾗﾝｼﾞ"};
  return kTexts[static_cast<std::size_t>(row + column + round) % kTexts.size()];
}

std::string BlockOf(int round) {
  std::string block;
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      block += TextOf(row, column, round);
      block += column + 1 < kColumns ? "\t" : "\r\n";
    }
  }
  return block;
}

class Grid {
 public:
  Grid() : editors_(kColumns, {0, true, grid::ColumnList::None}), rules_(kColumns) {
    model_.Init(kColumns, kRows, kRows, -1);
    for (int row = 0; row < kRows; ++row) model_.SetAvailable(row, 0);
    for (grid::PasteColumn& column : rules_) column.boxLimit = grid::kMaxTextLimit;
    SetTexts(-1);
  }

  void SetTexts(int round) {
    for (int row = 0; row < kRows; ++row) {
      for (int column = 0; column < kColumns; ++column) editing_.SetText(row, column, TextOf(row, column, round));
    }
  }
  void Paste(const grid::ClipboardText& text) {
    editing_.Forget();
    editing_.Paste(editing_.Plan({Cells(), rules_}, text, {0, 0}));
  }
  void Undo() { editing_.Undo(); }
  void Redo() { editing_.Redo(); }
  [[nodiscard]] std::size_t UndoBytes() const { return editing_.Bytes(); }

  /// As a program does it: asks for the size, then for the text.
  [[nodiscard]] std::string Text() const {
    const grid::CellBlock all = grid::CutBlock(model_, 0, 0, kRows, kColumns);
    std::string text(static_cast<std::size_t>(grid::CellsText(Cells(), all, nullptr, 0)), '\0');
    grid::CellsText(Cells(), all, text.data(), static_cast<int>(text.size()));
    return text;
  }
  [[nodiscard]] std::string JoinedText() const {
    std::string text;
    std::array<char, grid::kMaxTextLimit + 1> cell = {};
    for (int row = 0; row < kRows; ++row) {
      for (int column = 0; column < kColumns; ++column) {
        grid::CopyText(cell.data(), model_.Text(row, column), grid::kMaxTextLimit);
        text += cell.data();
        text += column + 1 < kColumns ? "\t" : "\r\n";
      }
    }
    return text;
  }

 private:
  [[nodiscard]] grid::EditableCells Cells() const { return {model_, editors_}; }

  grid::GridModel model_;
  grid::GridEditing editing_{&model_};
  std::vector<grid::ColumnEditors> editors_;
  std::vector<grid::PasteColumn> rules_;
};

void MeasurePasting() {
  Grid set;
  Grid pasted;
  bench::Row paste{"paste 10000 x 20 cells", "SetItemText of each", {}, {}, kPasteGoal};
  bench::Row undo{"undo of that paste", "the paste", {}, {}, kUndoGoal};
  bench::Row redo{"redo of that paste", "the paste", {}, {}};
  bench::Row memory{"memory of that step", "the texts pasted", {}, {}, kMemoryGoal};
  memory.unit = bench::kMegabytes;
  for (int round = -kWarmUps; round < kRounds; ++round) {
    const grid::ClipboardText block = {BlockOf(round + kWarmUps), {}};
    const double setting = bench::TimeOf([&] { set.SetTexts(round + kWarmUps); });
    const double pasting = bench::TimeOf([&] { pasted.Paste(block); });
    const double undoing = bench::TimeOf([&] { pasted.Undo(); });
    const double redoing = bench::TimeOf([&] { pasted.Redo(); });
    if (round < 0) continue;
    paste.theirs.push_back(setting);
    paste.ours.push_back(pasting);
    undo.theirs.push_back(pasting);
    undo.ours.push_back(undoing);
    redo.theirs.push_back(pasting);
    redo.ours.push_back(redoing);
    memory.ours.push_back(static_cast<double>(pasted.UndoBytes()));
    memory.theirs.push_back(static_cast<double>(block.sjis.size() - std::size_t{kRows} * (kColumns + 1)));
  }
  for (const bench::Row& row : {paste, undo, redo, memory}) bench::Print(row);
}

void MeasureTexts() {
  const Grid grid;
  std::string text;
  const bench::Row row{"text of 10000 x 20 cells", "reading and joining", {}, {}, kTextGoal};
  bench::Compare(row, kRounds, {[&] { text = grid.Text(); }, [&] { text = grid.JoinedText(); }});
}

}  // namespace

int main() {
  MeasurePasting();
  MeasureTexts();
  return 0;
}
