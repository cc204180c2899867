#include "dlglib/listcontrol/grid_news.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <utility>

namespace grid {

namespace {

[[nodiscard]] std::vector<int> Without(std::span<const int> rows, std::span<const int> others) {
  std::vector<int> left;
  std::ranges::set_difference(rows, others, std::back_inserter(left));
  return left;
}

[[nodiscard]] News OfRow(NewsKind kind, int row) noexcept { return {kind, {row, kNoColumn}}; }

}  // namespace

void GridNews::Forget() noexcept {
  mode_ = Mode::Idle;
  cellCount_ = 0;
  RowsTold();
}

bool GridNews::IsHeard() noexcept {
  if (mode_ == Mode::Idle) mode_ = begin_() ? Mode::Gathering : Mode::Unheard;
  return mode_ != Mode::Unheard;
}

void GridNews::Note(const News& news) noexcept {
  if (!model_.IsUsed(news.cell.row) || !model_.HasColumn(news.cell.column)) return;
  if (!IsHeard() || mode_ == Mode::AsOne) return;
  const auto noted = std::span(cells_).first(cellCount_);
  if (std::ranges::find(noted, news) != noted.end()) return;
  if (cellCount_ == cells_.size()) return NoteReorder();
  cells_[cellCount_++] = news;
}

void GridNews::NoteReorder() noexcept {
  if (IsHeard()) mode_ = Mode::AsOne;
  cellCount_ = 0;
  RowsTold();
}

void GridNews::NoteRowCount() noexcept {
  ++arrangement_;
  NoteStanding();
}

void GridNews::RowsTold() noexcept {
  ++arrangement_;
  toldRows_ = model_.UsedRows();
  toldSelection_.clear();
  toldFocus_ = {};
}

std::vector<News> GridNews::TakeCells() {
  std::vector<News> news;
  AddCells(&news);
  cellCount_ = 0;
  return news;
}

std::vector<News> GridNews::Take(const Standing& standing) {
  std::vector<News> news;
  const Mode mode = std::exchange(mode_, Mode::Idle);
  if (mode == Mode::AsOne || HaveManyRowsMoved()) {
    news.push_back({NewsKind::Reordered});
  } else {
    AddRows(&news);
    AddCells(&news);
  }
  cellCount_ = 0;
  toldRows_ = model_.UsedRows();
  std::vector<int> selected = SelectedRows();
  AddSelection(selected, standing, &news);
  toldSelection_ = std::move(selected);
  AddFocus(standing, &news);
  if (mode == Mode::Unheard) news.clear();
  return news;
}

bool GridNews::HaveManyRowsMoved() const noexcept { return std::abs(model_.UsedRows() - toldRows_) > kMostAtOnce; }

void GridNews::AddRows(std::vector<News>* news) const {
  const int rows = model_.UsedRows();
  for (int row = toldRows_; row < rows; ++row) news->push_back(OfRow(NewsKind::RowCame, row));
  for (int row = toldRows_; row > rows; --row) news->push_back(OfRow(NewsKind::RowWent, row - 1));
}

void GridNews::AddCells(std::vector<News>* news) const {
  const auto noted = std::span(cells_).first(cellCount_);
  std::ranges::copy_if(noted, std::back_inserter(*news), [&](const News& of) { return model_.IsUsed(of.cell.row); });
}

/// A row that is selected by the edit of one of its cells is told of with the cell.
void GridNews::AddSelection(std::span<const int> selected, const Standing& standing, std::vector<News>* news) const {
  const auto behind = std::ranges::lower_bound(toldSelection_, model_.UsedRows());
  const std::span told(toldSelection_.begin(), behind);
  const std::vector<int> came = Without(selected, told);
  const std::vector<int> went = Without(told, selected);
  const bool isOne = selected.size() == 1;
  if ((came.empty() && went.empty()) || (isOne && selected.front() == standing.edited.row)) return;
  if (isOne && came.size() == 1) {
    news->push_back(OfRow(NewsKind::OnlySelected, came.front()));
  } else if (came.size() + went.size() > 1) {
    news->push_back({NewsKind::SeveralSelected});
  } else {
    news->push_back(came.empty() ? OfRow(NewsKind::NotSelected, went.front())
                                 : OfRow(NewsKind::Selected, came.front()));
  }
}

/// A box tells of itself. The keys move in an open list while the keyboard stays where it was, and once that has closed
/// they mean the cell again.
void GridNews::AddFocus(const Standing& standing, std::vector<News>* news) {
  const CellPosition focus = FocusOf(model_, standing);
  const bool isThere = focus.row != kNoRow;
  const bool isOnList = isThere && standing.focus == Standing::Focus::List;
  const bool isOther = std::exchange(toldFocus_, focus) != focus && isOnList;
  const bool isOtherEntry = std::exchange(toldEntry_, standing.entry) != standing.entry;
  if (isOther && focus.column != kNoColumn) news->push_back({NewsKind::OnlySelected, focus});
  if (isOther || (isThere && isOtherEntry && !standing.entry)) news->push_back({NewsKind::Focused, focus});
  if (standing.entry && (isOther || isOtherEntry)) news->push_back({NewsKind::Entry});
}

std::vector<int> GridNews::SelectedRows() const {
  std::vector<int> rows;
  const int first = model_.FirstSelected();
  for (int row = first; row != kNoRow && row < model_.UsedRows(); ++row) {
    if (model_.Selected(row) != 0) rows.push_back(row);
  }
  return rows;
}

CellPosition GridNews::FocusOf(const GridModel& model, const Standing& standing) noexcept {
  const CellPosition edited = standing.edited;
  if (standing.focus == Standing::Focus::Elsewhere) return {};
  if (model.IsUsed(edited.row) && model.HasColumn(edited.column)) return edited;
  const bool isRow = standing.focus == Standing::Focus::List && model.IsUsed(standing.row);
  return isRow ? CellPosition{standing.row, kNoColumn} : CellPosition{};
}

SetCell::SetCell(const GridModel& model, GridNews* news, CellPosition cell) noexcept
    : model_(model), news_(news->WantsCells() ? news : nullptr), cell_(cell) {
  if (news_ == nullptr) return;
  CopyText(text_.data(), model_.Text(cell.row, cell.column), kMaxTextLimit);
  looks_ = model_.Looks(cell.row, cell.column);
}

/// A flag is there or not, whatever its value; the ground of a cell says nothing.
SetCell::~SetCell() {
  if (news_ == nullptr) return;
  const CellLooks looks = model_.Looks(cell_.row, cell_.column);
  const bool isOther = (looks.available == 0) != (looks_.available == 0) || (looks.error == 0) != (looks_.error == 0);
  if (std::strcmp(text_.data(), model_.Text(cell_.row, cell_.column)) != 0) news_->NoteValue(cell_);
  if (isOther) news_->NoteState(cell_);
}

}  // namespace grid
