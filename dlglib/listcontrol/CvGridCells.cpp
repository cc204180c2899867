// Cells by the block: copying, pasting, clearing, undo.
#include <algorithm>
#include <utility>

#include "dlglib/base/edge.h"
#include "dlglib/listcontrol/CvClipboard.h"
#include "dlglib/listcontrol/CvGrid.h"
#include "dlglib/listcontrol/block_text.h"

namespace {

constexpr char kClipboardHeld[] = "他のプログラムがクリップボードを使用中です。";
constexpr char kNoMemoryToCopy[] = "メモリが足りないので、コピーできません。";

}  // namespace

// ------------------------------------------------------------------------------------------------------------- telling

void CvGrid::SetChanged(Changed changed, void* context) noexcept {
  changed_ = changed;
  changedContext_ = context;
}

void CvGrid::Tell(const grid::GridChange& change) const noexcept {
  if (changed_ == nullptr || destroying_) return;
  edge::Guarded([&] { changed_(changedContext_, change.row, change.rows); });
}

void CvGrid::TellVisit() {
  const std::optional<grid::GridChange> change = editing_.CollectVisitChange();
  if (change) Tell(*change);
}

/// Rows that have come or gone are shown as after AddItem: the editors were hidden before, and the first selected row
/// is edited again.
void CvGrid::Show(const std::optional<grid::GridChange>& change) {
  if (!change) return;
  const LifeWatch watch(owner_);
  if (change->row == grid::kNoRow) {
    news_.NoteReorder();
    edge::Guarded([&] { ShowRows(); });
  } else {
    if (currentEdit_ != nullptr && currentEdit_->Cell()) ShowInBox(*currentEdit_->Cell());
    if (watch.Alive()) edge::Guarded([&] { DrawItem(); });
  }
  if (watch.Alive()) Tell(*change);
}

// ----------------------------------------------------------------------------------------------------------- the rules

/// The list of a column that has a box as well is an aid to typing; what it holds is asked for only where it is all
/// that a user can choose from.
std::vector<grid::PasteColumn> CvGrid::PasteColumns() const {
  std::vector<grid::PasteColumn> rules;
  rules.reserve(columns_.size());
  for (const Column& column : columns_) {
    grid::PasteColumn rule = {column.title.Text(), column.boxLimit, column.letterCase, column.modes, {}};
    const bool isListOnly = column.edit == nullptr && column.ownCombo != nullptr;
    const int count = isListOnly ? ComboBoxRef(column.combo).GetCount() : 0;
    for (int i = 0; i < count; ++i) rule.entries.push_back(EntryText(column, column.combo, i));
    rules.push_back(std::move(rule));
  }
  return rules;
}

grid::EditableCells CvGrid::Cells() {
  const auto editorsOf = [](const Column& column) {
    const grid::ColumnList list = column.combo == nullptr      ? grid::ColumnList::None
                                  : column.ownCombo == nullptr ? grid::ColumnList::OfDialog
                                                               : grid::ColumnList::OfGrid;
    return grid::ColumnEditors{column.kind, column.edit != nullptr, list};
  };
  std::transform(columns_.begin(), columns_.end(), editors_.begin(), editorsOf);
  return {model_, std::span<const grid::ColumnEditors>(editors_).first(columns_.size())};
}

// -------------------------------------------------------------------------------------------------------------- blocks

/// What there is no memory for is said too.
template <class FindBlock>
int CvGrid::Copy(const FindBlock& findBlock) {
  std::size_t count = 0;
  CvClipboard::Result result = CvClipboard::Result::NoMemory;
  edge::Guarded([&] {
    const grid::CellBlock block = findBlock();
    count = block.Count();
    result =
        count > 0 ? CvClipboard::Put(ClipboardOwner(), grid::BlockText(Cells(), block)) : CvClipboard::Result::Done;
  });
  if (result == CvClipboard::Result::Done) return static_cast<int>(count);
  ErrorText(result == CvClipboard::Result::Held ? kClipboardHeld : kNoMemoryToCopy);
  return 0;
}

int CvGrid::CopyCells(int row, int col, int rows, int cols) {
  return Copy([&] { return grid::CutBlock(model_, row, col, rows, cols); });
}

bool CvGrid::CopySelectedRows() {
  return Copy([&] { return grid::SelectedBlock(model_); }) > 0;
}

int CvGrid::ClearCells(int row, int col, int rows, int cols) {
  return ClearBlock(grid::CutBlock(model_, row, col, rows, cols));
}

/// The dialog may have changed the table when it was told of what was typed, but a block of cells that are no more is
/// only less.
int CvGrid::ClearBlock(const grid::CellBlock& block) {
  if (!editing_.Clears(Cells(), block)) return 0;
  const LifeWatch watch(owner_);
  TellVisit();
  if (!watch.Alive()) return 0;
  const grid::Written written = editing_.Clear(Cells(), block);
  Show(written.change);
  return written.cells;
}

int CvGrid::GetCellsText(int row, int col, int rows, int cols, char* out, int size) {
  return grid::CellsText(Cells(), grid::CutBlock(model_, row, col, rows, cols), out, size);
}

int CvGrid::SetCellsText(int row, int col, const char* text) {
  return PasteText({text != nullptr ? text : "", {}}, {row, col});
}

int CvGrid::PasteCells(int row, int col) {
  const std::optional<grid::ClipboardText> text = ReadClipboard();
  return text ? PasteText(*text, {row, col}) : grid::kRefused;
}

std::optional<grid::ClipboardText> CvGrid::ReadClipboard() {
  std::optional<grid::ClipboardText> text = CvClipboard::Read(ClipboardOwner());
  if (!text) ErrorText(kClipboardHeld);
  return text;
}

/// The rules borrow the columns, which are there until the caller's check is asked, and that asks no more of them. What
/// was typed is told of only when there is a further step; the dialog may change the table then, as in its check.
int CvGrid::PasteText(const grid::ClipboardText& text, grid::CellPosition at) {
  const LifeWatch watch(owner_);
  const std::vector<grid::PasteColumn> columns = PasteColumns();
  const grid::PastePlan plan = editing_.Plan({Cells(), columns, comboSeparator_}, text, at);
  if (!watch.Alive()) return grid::kRefused;
  if (plan.Refused()) {
    ErrorText(plan.Refused()->Message().c_str());
    return grid::kRefused;
  }
  if (!editing_.Changes(plan)) return plan.Fits(model_) ? 0 : grid::kRefused;
  TellVisit();
  if (watch.Alive() && plan.AddedRows() > 0) HideEditors();
  if (!watch.Alive()) return grid::kRefused;
  const grid::Written written = editing_.Paste(plan);
  Show(written.change);
  return written.cells;
}

// ---------------------------------------------------------------------------------------------------------------- undo

/// Hiding the editors, and telling of what was typed, may change what is undone next.
int CvGrid::Undo() {
  if (!editing_.CanUndo()) return 0;
  const LifeWatch watch(owner_);
  TellVisit();
  if (watch.Alive() && editing_.UndoMovesRows()) HideEditors();
  if (!watch.Alive()) return 0;
  const std::optional<grid::GridChange> change = editing_.Undo();
  Show(change);
  return change ? 1 : 0;
}

int CvGrid::Redo() {
  if (!editing_.CanRedo()) return 0;
  const LifeWatch watch(owner_);
  TellVisit();
  if (watch.Alive() && editing_.RedoMovesRows()) HideEditors();
  if (!watch.Alive()) return 0;
  const std::optional<grid::GridChange> change = editing_.Redo();
  Show(change);
  return change ? 1 : 0;
}
