// Long random sequences of what users and programs do, with undo and redo in between: against the states that the grid
// had before, and against a plain grid whose steps are whole texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "tests/core/listcontrol/edited_grid.h"
#include "tests/core/listcontrol/plain_undo.h"

namespace {

using grid_test::NewText;
using grid_test::PlainUndo;
using grid_test::Snapshot;

constexpr int kColumns = 4;
constexpr int kCapacity = 14;

class Dice {
 public:
  explicit Dice(unsigned int seed) : random_(seed) {}

  int Pick(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }
  /// Often one of few, so that texts repeat.
  std::string Text() { return Pick(0, 9) == 0 ? std::string(static_cast<std::size_t>(Pick(60, 80)), 'x') : Short(); }
  std::string Short() { return std::vector<std::string>{"", "a", "b", "表"}[static_cast<std::size_t>(Pick(0, 3))]; }
  /// In the order of rows and columns.
  std::vector<NewText> Texts(int rows, int columns) {
    std::vector<NewText> texts;
    const int rarity = Pick(1, 4);
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < columns; ++column) {
        if (Pick(1, rarity) == 1) texts.push_back({row, column, Text()});
      }
    }
    return texts;
  }

 private:
  std::mt19937 random_;
};

grid::Written Write(grid::GridEditing* editing, const std::vector<NewText>& texts, int addedRows) {
  const auto forEachCell = [&texts](const auto& visit) {
    for (const NewText& text : texts) visit(grid::NewText{text.row, text.column, text.text});
  };
  return editing->Write(forEachCell, addedRows);
}

// ------------------------------------------------------------------------------------------------------- former states

/// The states that a grid has had, and where it is among them.
class History {
 public:
  History(unsigned int seed, int numberColumn) : dice_(seed), grid_(kColumns, 6, kCapacity, numberColumn) {
    for (int row = 0; row < kCapacity; ++row) {
      for (int column = 0; column < kColumns; ++column) {
        grid_.model.SetText(row, column, dice_.Text().c_str());
        grid_.model.SetColours(row, column, static_cast<unsigned>(row), static_cast<unsigned>(dice_.Pick(0, 2)));
        grid_.model.SetError(row, column, static_cast<unsigned>(dice_.Pick(0, 1)));
      }
    }
    states_.emplace_back(grid_.model);
  }

  void Play(int steps) {
    for (int step = 0; step < steps; ++step) {
      const int what = dice_.Pick(0, 11);
      if (what < 3) {
        Undo();
      } else if (what < 5) {
        Redo();
      } else {
        Change(what);
      }
      ASSERT_EQ(Snapshot(grid_.model), states_[at_]) << "step " << step << ", " << what;
      ASSERT_EQ(grid_.editing.CanUndo(), at_ > 0) << step;
      ASSERT_EQ(grid_.editing.CanRedo(), at_ + 1 < states_.size()) << step;
    }
  }

 private:
  void Undo() {
    const auto change = grid_.editing.Undo();
    ASSERT_EQ(change.has_value(), at_ > 0);
    if (!change) return;
    --at_;
    ExpectChange(*change, states_[at_ + 1]);
  }
  void Redo() {
    const auto change = grid_.editing.Redo();
    ASSERT_EQ(change.has_value(), at_ + 1 < states_.size());
    if (!change) return;
    ++at_;
    ExpectChange(*change, states_[at_ - 1]);
  }
  /// What is said to be different is, and nothing else.
  void ExpectChange(const grid::GridChange& change, const Snapshot& before) {
    const Snapshot now(grid_.model);
    if (change.row == grid::kNoRow) {
      EXPECT_EQ(change.rows, grid_.model.UsedRows());
      EXPECT_NE(now.items, before.items);
      return;
    }
    EXPECT_EQ(now.items, before.items);
    for (std::size_t i = 0; i < now.cells.size(); ++i) {
      const int row = static_cast<int>(i) / kColumns;
      const bool isTold = row >= change.row && row < change.row + change.rows;
      EXPECT_TRUE(isTold || now.cells[i] == before.cells[i]) << i;
    }
  }

  void Change(int what) {
    const Snapshot before(grid_.model);
    Do(what);
    const Snapshot now(grid_.model);
    if (now == before) return;
    states_.resize(at_ + 1, before);
    states_.push_back(now);
    ++at_;
    if (at_ <= 100) return;
    states_.erase(states_.begin());
    --at_;
  }

  void Do(int what) {
    const int used = grid_.model.UsedRows();
    const grid::CellPosition cell = {dice_.Pick(0, std::max(used - 1, 0)), dice_.Pick(0, kColumns - 1)};
    switch (what) {
      case 5:
        grid_.editing.InsertRow(dice_.Pick(0, used));
        return;
      case 6:
        for (int row = 0; row < used; ++row) grid_.model.Select(row, dice_.Pick(0, 2) == 0 ? 1 : 0);
        grid_.editing.DeleteSelectedRows();
        return;
      case 7:
        return Write();
      case 8:
        grid_.editing.Clear(grid_.Cells(), grid::CutBlock(grid_.model, cell.row, cell.column, dice_.Pick(0, 4), 2));
        return;
      case 9:
        if (used > 0 && grid_.model.Text(cell.row, cell.column) != std::string("picked")) {
          grid_.editing.Pick(cell, "picked");
        }
        return grid_.editing.EndVisit();
      default:
        if (used > 0) grid_.editing.Type(cell, dice_.Text().c_str());
        return grid_.editing.EndVisit();
    }
  }

  void Write() {
    const int used = grid_.model.UsedRows();
    const int added = dice_.Pick(0, 2) == 0 ? dice_.Pick(0, kCapacity - used) : 0;
    const Snapshot before(grid_.model);
    ::Write(&grid_.editing, dice_.Texts(used + added, kColumns), added);
  }

  Dice dice_;
  grid_test::EditedGrid grid_;
  std::vector<Snapshot> states_;
  std::size_t at_ = 0;
};

TEST(RandomEditing, GoesBackAndForthThroughTheFormerStates) {
  for (unsigned int seed = 0; seed < 15; ++seed) {
    SCOPED_TRACE(seed);
    History(seed, -1).Play(400);
    if (HasFatalFailure()) return;
  }
}

TEST(RandomEditing, GoesBackAndForthWithNumberedRows) {
  for (unsigned int seed = 0; seed < 15; ++seed) {
    SCOPED_TRACE(seed);
    History(seed, 1).Play(400);
    if (HasFatalFailure()) return;
  }
}

// -------------------------------------------------------------------------------------------------- beside the program

/// A grid and a plain one, which a user and a program change in turn.
class Pair {
 public:
  explicit Pair(unsigned int seed) : dice_(seed), grid_(kColumns, 5, kCapacity), plain_(kColumns, 5, kCapacity) {
    for (int row = 0; row < 5; ++row) {
      for (int column = 0; column < kColumns; ++column) SetText(row, column, dice_.Text());
    }
  }

  void Play(int steps) {
    for (int step = 0; step < steps; ++step) {
      Step();
      Compare();
      if (testing::Test::HasFatalFailure()) return;
    }
  }

 private:
  void SetText(int row, int column, const std::string& text) {
    grid_.editing.SetText(row, column, text.c_str());
    plain_.ProgramText(row, column, text);
  }

  void Step() {
    const int used = grid_.model.UsedRows();
    const int row = dice_.Pick(0, std::max(used - 1, 0));
    const int column = dice_.Pick(0, kColumns - 1);
    switch (used == 0 ? 1 : dice_.Pick(0, 14)) {
      case 0:
      case 1:
        return ChangeRows();
      case 2:
        return Write();
      case 3:
      case 4:
        return SetText(row, column, dice_.Text());
      case 5:
        return SetFlags(row, column);
      case 6:
      case 7:
        return Type(row, column);
      case 8:
        return Pick(row, column);
      case 9:
        grid_.editing.BeginVisit({row, column});
        return plain_.BeginVisit(row, column);
      case 10:
        grid_.editing.EndVisit();
        return plain_.EndVisit();
      case 11:
        return Repeat([this] { ASSERT_EQ(grid_.editing.Redo().has_value(), plain_.Redo()); });
      case 12:
        return dice_.Pick(0, 20) == 0 ? SetLimit() : void();
      case 13:
        return dice_.Pick(0, 20) == 0 ? ForgetSteps() : Tell();
      default:
        return Repeat([this] { ASSERT_EQ(grid_.editing.Undo().has_value(), plain_.Undo()); });
    }
  }

  /// What an older step does shows only when all later ones are undone.
  template <class Work>
  void Repeat(const Work& work) {
    for (int left = dice_.Pick(1, 6); left > 0 && !testing::Test::HasFatalFailure(); --left) {
      work();
      Compare();
    }
  }

  /// As a window does it: editors are hidden first.
  void ChangeRows() {
    grid_.editing.EndVisit();
    plain_.EndVisit();
    const int used = grid_.model.UsedRows();
    const int at = dice_.Pick(0, used);
    if (dice_.Pick(0, 1) == 0 || used == 0) {
      if (grid_.editing.InsertRow(at)) plain_.Insert(at);
      return;
    }
    std::vector<int> selected;
    for (int row = 0; row < used; ++row) {
      grid_.model.Select(row, dice_.Pick(0, 4) == 0 ? 1 : 0);
      if (grid_.model.Selected(row) != 0) selected.push_back(row);
    }
    plain_.Delete(selected);
    ASSERT_EQ(grid_.editing.DeleteSelectedRows(), static_cast<int>(selected.size()));
  }

  void Write() {
    const int used = grid_.model.UsedRows();
    const int added = dice_.Pick(0, 2) == 0 ? dice_.Pick(0, kCapacity - used) : 0;
    const std::vector<NewText> texts = dice_.Texts(used + added, kColumns);
    ASSERT_EQ(::Write(&grid_.editing, texts, added).cells, plain_.Write(texts, added));
  }

  void SetFlags(int row, int column) {
    const auto available = static_cast<unsigned>(dice_.Pick(0, 1));
    const auto error = static_cast<unsigned>(dice_.Pick(0, 1));
    grid_.model.SetAvailable(row, column, available);
    grid_.model.SetError(row, column, error);
    grid_test::UndoCell& cell = (*plain_.rows[static_cast<std::size_t>(row)])[static_cast<std::size_t>(column)];
    cell.available = available;
    cell.error = error;
  }

  void Type(int row, int column) {
    const std::string text = dice_.Text();
    grid_.editing.Type({row, column}, text.c_str());
    plain_.Type(row, column, text);
  }
  void Pick(int row, int column) {
    const std::string text = dice_.Text();
    grid_.editing.Pick({row, column}, text.c_str());
    plain_.Pick(row, column, text);
  }
  void Tell() {
    if (grid_.editing.CollectVisitChange()) plain_.Tell();
    ASSERT_FALSE(grid_.editing.CollectVisitChange());
  }
  void ForgetSteps() {
    grid_.editing.ForgetSteps();
    plain_.ForgetSteps();
  }
  void SetLimit() {
    const int limit = dice_.Pick(-1, 6);
    grid_.editing.SetLimit(limit);
    plain_.SetLimit(limit);
    if (limit > 2) return;
    grid_.editing.SetLimit(20);
    plain_.SetLimit(20);
  }

  void Compare() {
    ASSERT_EQ(grid_.model.UsedRows(), static_cast<int>(plain_.rows.size()));
    ASSERT_EQ(grid_.editing.CanUndo(), plain_.CanUndo());
    ASSERT_EQ(grid_.editing.CanRedo(), plain_.CanRedo());
    for (int row = 0; row < grid_.model.UsedRows(); ++row) {
      for (int column = 0; column < kColumns; ++column) {
        const grid_test::UndoCell& cell =
            (*plain_.rows[static_cast<std::size_t>(row)])[static_cast<std::size_t>(column)];
        ASSERT_EQ(grid_.model.Text(row, column), cell.text) << row << "," << column;
        ASSERT_EQ(grid_.model.Available(row, column), cell.available) << row << "," << column;
        ASSERT_EQ(grid_.model.Error(row, column), cell.error) << row << "," << column;
      }
    }
  }

  Dice dice_;
  grid_test::EditedGrid grid_;
  PlainUndo plain_;
};

TEST(RandomEditing, LeavesWhatTheProgramHasSet) {
  for (unsigned int seed = 0; seed < 60; ++seed) {
    SCOPED_TRACE(seed);
    Pair(seed).Play(500);
    if (HasFatalFailure()) return;
  }
}

}  // namespace
