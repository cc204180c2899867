// What those who do not see a grid are to be told of it. What happens is noted as it happens and told once things have
// settled: each thing once, whatever has become of it meanwhile, and a grid that is filled anew as one. Knows no
// window.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "dlglib/listcontrol/editable_cells.h"
#include "dlglib/listcontrol/grid_model.h"

namespace grid {

enum class NewsKind : std::uint8_t {
  Reordered,        ///< rows are others, or more cells than can be told one by one
  RowCame,          ///< at the end
  RowWent,          ///< from the end
  Value,            ///< of a cell
  State,            ///< of a cell: an error, or whether it is available
  OnlySelected,     ///< a row, or a cell
  Selected,         ///< a further row
  NotSelected,      ///< a row
  SeveralSelected,  ///< rows at once, or no more
  Focused,          ///< a row, or a cell
  Entry,            ///< of the open list; of no cell
};

/// A row's column is kNoColumn, the grid's own row kNoRow as well.
struct News {
  NewsKind kind = NewsKind::Reordered;
  CellPosition cell = {};

  friend bool operator==(const News&, const News&) = default;
};

/// Where the keyboard is.
struct Standing {
  enum class Focus : std::uint8_t { Elsewhere, List, Box };
  Focus focus = Focus::Elsewhere;
  CellPosition edited = {};                 ///< its row is kNoRow when no cell is
  int row = kNoRow;                         ///< the list view's focused one
  std::optional<int> entry = std::nullopt;  ///< of the open list: below 0 none; nothing without an open one
};

class GridNews {
 public:
  /// More changes of cells at once, or rows that come or go, are told as one.
  static constexpr int kMostAtOnce = 32;

  /// The model must live as long. `begin` is called for the first thing that is noted since the last Take: it sees to
  /// it that there is a Take soon, and answers whether anybody hears what that says.
  GridNews(const GridModel* model, std::function<bool()> begin) : model_(*model), begin_(std::move(begin)) {}

  /// The grid is another one, without a selection, of which nothing has to be told.
  void Forget() noexcept;

  /// Whether there is somebody who is going to be told of what has been noted.
  [[nodiscard]] bool WillTell() const noexcept { return mode_ == Mode::Gathering || mode_ == Mode::AsOne; }
  /// Whether it matters which cells change; in between, comparing their texts would be in vain.
  [[nodiscard]] bool WantsCells() const noexcept { return mode_ == Mode::Idle || mode_ == Mode::Gathering; }
  /// Cells that are not in use are nobody's.
  void NoteValue(CellPosition cell) noexcept { Note({NewsKind::Value, cell}); }
  void NoteState(CellPosition cell) noexcept { Note({NewsKind::State, cell}); }
  /// Rows have come or gone somewhere, or all may be others.
  void NoteReorder() noexcept;
  /// What is selected or has the focus may be another.
  void NoteStanding() noexcept { static_cast<void>(IsHeard()); }
  /// The program has set how many rows there are: those at the end may be others.
  void NoteRowCount() noexcept;
  /// Another number once other rows may stand in the places of rows.
  [[nodiscard]] std::uint64_t Arrangement() const noexcept { return arrangement_; }

  /// Whether the cell is the focused one for those who were told.
  [[nodiscard]] bool IsTold(CellPosition cell) const noexcept { return toldFocus_ == cell; }
  /// The cell has been told of as the focused and the selected one.
  void CellTold(CellPosition cell) noexcept {
    toldFocus_ = cell;
    toldEntry_.reset();
  }
  /// Rows have been told of that came or went in between: what follows them has other numbers now.
  void RowsTold() noexcept;
  /// The cells that have changed, before their rows move.
  [[nodiscard]] std::vector<News> TakeCells();
  /// The cell, or a row with kNoColumn, that the keyboard is at; kNoRow for none, and while it is elsewhere.
  [[nodiscard]] static CellPosition FocusOf(const GridModel& model, const Standing& standing) noexcept;
  /// Of the rows in use.
  [[nodiscard]] std::vector<int> SelectedRows() const;
  /// All of it, in the order in which it is to be told.
  [[nodiscard]] std::vector<News> Take(const Standing& standing);

 private:
  enum class Mode : std::uint8_t {
    Idle,       ///< nothing has been noted
    Gathering,  ///< what is noted will be told
    AsOne,      ///< the same, but as one
    Unheard,    ///< nobody is going to be told
  };

  bool IsHeard() noexcept;
  void Note(const News& news) noexcept;
  [[nodiscard]] bool HaveManyRowsMoved() const noexcept;
  void AddRows(std::vector<News>* news) const;
  void AddCells(std::vector<News>* news) const;
  void AddSelection(std::span<const int> selected, const Standing& standing, std::vector<News>* news) const;
  void AddFocus(const Standing& standing, std::vector<News>* news);

  const GridModel& model_;
  std::function<bool()> begin_;
  Mode mode_ = Mode::Idle;
  std::array<News, kMostAtOnce> cells_ = {};
  std::size_t cellCount_ = 0;
  int toldRows_ = 0;
  std::vector<int> toldSelection_;
  CellPosition toldFocus_;        ///< a row's column is kNoColumn
  std::optional<int> toldEntry_;  ///< as in Standing
  std::uint64_t arrangement_ = 0;
};

/// A cell that the program is about to set: at the end of the scope it is noted whether it is another one.
class SetCell {
 public:
  SetCell(const GridModel& model, GridNews* news, CellPosition cell) noexcept;
  SetCell(const SetCell&) = delete;
  SetCell& operator=(const SetCell&) = delete;
  ~SetCell();

 private:
  const GridModel& model_;
  GridNews* news_;  ///< null when it does not matter
  CellPosition cell_;
  std::array<char, kMaxTextLimit + 1> text_;  ///< left as it is when it does not matter
  CellLooks looks_;
};

}  // namespace grid
