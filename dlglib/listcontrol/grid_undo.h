// Undo and redo of what a user does to a grid. The model is changed through here, so that each step knows what was
// there before.
//
// A step keeps only what is not in the grid: before an undo the former texts, after it the later ones. What the program
// sets is no step: such a text is marked, and a step leaves marked cells alone when it is undone. Marks move with their
// rows, and a step that writes over one keeps it, so a mark always says "by the program, after the last step that wrote
// here".
//
// Whatever throws std::bad_alloc has changed nothing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dlglib/listcontrol/cell_batches.h"
#include "dlglib/listcontrol/editable_cells.h"
#include "dlglib/listcontrol/grid_news.h"
#include "dlglib/listcontrol/packed_cells.h"
#include "dlglib/listcontrol/zeroed_block.h"

namespace grid {

/// Where the grid looks different now.
struct GridChange {
  int row = kNoRow;  ///< the first; kNoRow when the number of rows has changed
  int rows = 0;      ///< how many; when their number has changed, those in use now

  friend bool operator==(const GridChange&, const GridChange&) = default;
};

/// What a cell is to hold: no zero byte, no half character.
struct NewText {
  int row = 0;
  int column = 0;
  std::string_view text = {};
};

/// What writing texts has done.
struct Written {
  int cells = 0;                          ///< whose text has changed
  std::optional<GridChange> change = {};  ///< none when nothing is different
};

class GridUndo {
 public:
  static constexpr int kFirstLimit = 100;

  /// The model must live as long. Forget says that it is made anew, ForgetSteps that its item count has been set.
  explicit GridUndo(GridModel* model) : model_(*model) {}
  /// Where the cells that a user's steps change are noted; null for nowhere. Must live as long.
  void NoteIn(GridNews* news) noexcept { news_ = news; }

  /// How many steps are kept, those that were undone included; the oldest ones go. Below 0 counts as 0.
  void SetLimit(int steps) noexcept;
  /// No steps and no visit.
  void Forget() noexcept;
  /// No steps. A visit goes on, and gives back what it did, unless its row is not in use any more.
  void ForgetSteps() noexcept;
  /// Whether a step is left of which anything can be undone.
  [[nodiscard]] bool CanUndo() noexcept;
  [[nodiscard]] bool CanRedo() const noexcept { return !redo_.empty(); }
  /// Whether the next step moves rows. A box over a cell must be gone before, as it would commit to another one.
  [[nodiscard]] bool UndoMovesRows() noexcept { return CanUndo() && undo_.back().kind != Rows::None; }
  [[nodiscard]] bool RedoMovesRows() const noexcept { return CanRedo() && redo_.back().kind != Rows::None; }
  /// Nothing when there was no such step. What is typed afterwards in a visit that goes on is a step of its own; a step
  /// that moves rows ends the visit.
  std::optional<GridChange> Undo();
  std::optional<GridChange> Redo();
  /// What the steps hold.
  [[nodiscard]] std::size_t Bytes() const noexcept;

  /// A text that the program sets, as GridModel::SetText. When it differs from the cell's, nothing can be redone, and a
  /// visit of the cell begins anew with it: it is what is given back, and there is nothing to tell of.
  void SetText(int row, int column, const char* text);

  // ---- steps; each empties the list of what can be redone

  /// Writes texts as one step. `forEachCell` calls what it is given with each NewText, row by row and from left to
  /// right. `addedRows`: so many are added at the end as well, and then it is called twice and must say the same again.
  template <class ForEachCell>
  Written Write(const ForEachCell& forEachCell, int addedRows = 0) {
    const int firstAdded = model_.UsedRows();
    Step step;
    int cells = 0;
    NoteAdding(&step, addedRows);
    try {
      ForEachInBatches<NewText>(model_, forEachCell, [&](const NewText& cell) {
        if (Change(&step, cell)) ++cells;
      });
      if (cells == 0 && addedRows == 0) return {};
      const GridChange change = {step.firstRow, step.lastRow - step.firstRow + 1};
      Keep(&step, addedRows);
      if (addedRows == 0) return {cells, change};
    } catch (...) {
      Revert(&step);
      throw;
    }
    forEachCell([&](const NewText& cell) {
      if (cell.row >= firstAdded) model_.PutText(cell.row, cell.column, cell.text);
    });
    model_.Renumber();
    return {cells, GridChange{kNoRow, model_.UsedRows()}};
  }
  /// As GridModel has them, and numbered. Both end a visit. When nothing can be inserted it is no step.
  bool InsertRow(int at);
  int DeleteSelectedRows();

  // ---- visits: all that is typed and picked in a cell, from when it is edited until it is left or told of, is one
  // step. In a row that is not in use it is none.

  /// Nothing when the cell is being visited already.
  void BeginVisit(CellPosition cell) noexcept;
  void EndVisit() noexcept { visit_.reset(); }
  /// A text that is typed, as GridModel::TypeText. Without a visit of that cell one begins. False when nothing is
  /// different.
  bool Type(CellPosition cell, const char* text);
  /// A text that is picked, as GridModel::SetText. The flags that a pick clears come back with an undo. Flags alone are
  /// no step.
  bool Pick(CellPosition cell, const char* text);
  /// What the cell's box has made of its text, which nobody has typed: no step, nothing to tell of and nothing to give
  /// back. What could be redone can be redone still.
  void Reshape(CellPosition cell, const char* text) noexcept;
  /// What the visited cell held when the visit began; nothing when it holds that, and without a visit.
  [[nodiscard]] std::optional<std::string> TextToGiveBack() const;
  /// What the visit has changed since this was asked last, or since another step was told of. To be asked before each
  /// other step and at the end of a visit. What the visit does afterwards is a step of its own, so each is told of
  /// once.
  std::optional<GridChange> CollectVisitChange() noexcept;

 protected:
  [[nodiscard]] const GridModel& Model() const noexcept { return model_; }

 private:
  enum class Rows : std::uint8_t { None, Inserted, Deleted };
  enum class Way : std::uint8_t { Undo, Redo };

  /// The flags that a pick clears.
  struct PickedFlags {
    unsigned int available = 0;
    unsigned int error = 0;
  };

  struct Step {
    PackedCells cells;
    int firstRow = 0;  ///< of the cells
    int lastRow = kNoRow;
    std::optional<PickedFlags> flags = {};  ///< of the one cell of a pick

    Rows kind = Rows::None;
    int itemsBefore = 0;
    std::vector<RowRun> rows = {};  ///< as they are numbered when they are in the grid
    std::string images = {};        ///< of those rows when they are not in the grid, else of what stood behind the last
    std::optional<PackedCells> numbers = {};            ///< before, when they were not those of the rows
    std::optional<std::vector<RowRun>> selection = {};  ///< before, of a step that changes it
  };

  /// What a step becomes when it is undone or redone.
  struct Turned {
    PackedCells cells;
    int firstRow = 0;
    int lastRow = kNoRow;
    std::string images = {};
  };

  /// A text as a cell of the limit keeps it.
  class CutText {
   public:
    CutText(const char* text, int limit) noexcept { CopyText(bytes_.data(), text, limit); }
    [[nodiscard]] std::string_view View() const noexcept { return bytes_.data(); }

   private:
    std::array<char, kMaxTextLimit + 1> bytes_ = {};
  };

  struct Visit {
    CellPosition cell;
    CutText came;          ///< when the visit began, or the program set it last
    CutText told;          ///< when it was told of last
    bool hasStep = false;  ///< it is the last one
  };

  [[nodiscard]] bool Keeps() const noexcept { return limit_ > 0; }
  void NoteValue(CellPosition cell) const noexcept;
  void NoteState(CellPosition cell) const noexcept;
  bool Change(Step* step, const NewText& cell);
  void Revert(Step* step) noexcept;
  void NoteAdding(Step* step, int addedRows) const;
  void Keep(Step* step, int addedRows);
  void AddRows(RowRun rows) noexcept;
  void Push(Step* step);
  void Trim() noexcept;
  void DropDeadSteps() noexcept;
  [[nodiscard]] bool IsAlive(const Step& step) const noexcept;

  void NoteRows(Step* step, Rows kind, std::vector<RowRun> rows) const;
  [[nodiscard]] std::optional<PackedCells> UnusualNumbers() const;
  [[nodiscard]] std::string Pack(int first, int count) const;
  [[nodiscard]] std::string Pack(const std::vector<RowRun>& rows) const;
  [[nodiscard]] std::vector<RowRun> SelectedRuns() const;

  std::optional<GridChange> Turn(Way way);
  [[nodiscard]] Turned Prepare(const Step& step, Way way) const;
  [[nodiscard]] GridChange Apply(Step* step, Turned turned, Way way) noexcept;
  void TurnFlags(Step* step, Way way) noexcept;
  void TurnRows(Step* step, Turned* turned, Way way) noexcept;
  void RestoreRows(const std::vector<RowRun>& rows, std::string_view images) noexcept;
  void RemoveRows(const std::vector<RowRun>& rows, std::string_view images) noexcept;
  void Unpack(RowUnpacker* rows, RowRun run) noexcept;
  void SetNumbers(const Step& step, Way way) noexcept;
  void SetSelection(const Step& step, Way way) noexcept;

  [[nodiscard]] bool IsVisited(CellPosition cell) const noexcept { return visit_ && visit_->cell == cell; }
  bool ChangeVisited(CellPosition cell, std::string_view text, std::optional<PickedFlags> flags);
  void KeepVisited(CellPosition cell, std::optional<PickedFlags> flags);
  void DropUnchangedVisit() noexcept;
  void EndVisitStep() noexcept;
  void TellOfVisit() noexcept;
  [[nodiscard]] std::string_view TextOf(CellPosition cell) const noexcept { return model_.Text(cell.row, cell.column); }

  [[nodiscard]] Mark MarkOf(int row, int column) const noexcept;
  void SetMark(int row, int column, Mark mark) noexcept;
  void OpenMarks(std::span<const RowRun> rows, int used) noexcept;
  void CloseMarks(std::span<const RowRun> rows, int used) noexcept;

  GridModel& model_;
  GridNews* news_ = nullptr;
  std::deque<Step> undo_;  ///< the last one is undone next
  std::deque<Step> redo_;  ///< the last one is redone next
  // Made with the first mark, and kept as long as there is a step: marks that steps keep find room again.
  ZeroedBlock<ColumnBits> marks_;
  std::optional<Visit> visit_;
  int limit_ = kFirstLimit;
};

}  // namespace grid
