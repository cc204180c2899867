// The grid for programs of any language: editing, keys, blocks of cells, undo.
#include <string>

#include "dlglib/base/edge.h"
#include "dlglib/c_interface/CvGridTable.h"

namespace {

using c_interface::Call;
using c_interface::CvGridTable;
using c_interface::Encoding;
using c_interface::FindAttached;
using c_interface::Give;
using c_interface::kLongTextLimit;
using c_interface::kTextLimit;
using c_interface::RequireCell;
using c_interface::RequireResult;
using c_interface::Room;
using c_interface::Verdict;
using c_interface::WithGrid;

/// Does something that needs nothing.
[[nodiscard]] DlglibResult Do(DlglibGrid handle, void (CvGrid::*act)()) noexcept {
  return WithGrid(handle, [&](Call& call, CvGrid& grid) {
    (grid.*act)();
    return call.Result();
  });
}

struct Block {
  int row;
  int col;
  int rows;
  int cols;
};

/// The first cell must be there; what of the block lies outside the table is left out.
bool RequireBlock(Call& call, CvGrid& grid, const Block& block) {
  // No sum of them leaves the numbers.
  const bool sound = block.rows >= 0 && block.cols >= 0 && block.rows <= grid::kMaxRows && block.cols <= grid::kMaxRows;
  call.Require(sound, DLGLIB_BAD_ARGUMENT);
  return RequireCell(call, grid, block.row, block.col);
}

/// Does something with a block and counts its cells.
[[nodiscard]] DlglibResult OfBlock(DlglibGrid handle, const Block& block, std::int32_t* cells,
                                   int (CvGrid::*act)(int, int, int, int)) noexcept {
  return WithGrid(handle, [&](Call& call, CvGrid& grid) {
    if (!RequireBlock(call, grid, block)) return call.Result();
    const int count = (grid.*act)(block.row, block.col, block.rows, block.cols);
    if (cells != nullptr) *cells = count;
    return call.Result();
  });
}

/// What pasting answers: cells that have changed, or below 0 a refusal.
[[nodiscard]] DlglibResult Pasted(int count, std::int32_t* cells) noexcept {
  if (cells != nullptr) *cells = count > 0 ? count : 0;
  return Verdict(count >= 0);
}

[[nodiscard]] DlglibResult SetCellsText(Encoding encoding, DlglibGrid handle, int row, int col, const char* text,
                                        std::int32_t* cells) noexcept {
  return WithGrid(encoding, handle, [&](Call& call, CvGrid& grid) -> DlglibResult {
    const SjisText given = call.Sjis(text, kLongTextLimit);
    if (!RequireCell(call, grid, row, col)) return call.Result();
    return Pasted(grid.SetCellsText(row, col, given.bytes().c_str()), cells);
  });
}

[[nodiscard]] std::string TextOf(CvGrid& grid, const Block& block) {
  const int size = grid.GetCellsText(block.row, block.col, block.rows, block.cols, nullptr, 0);
  std::string text(static_cast<std::size_t>(size), '\0');
  static_cast<void>(grid.GetCellsText(block.row, block.col, block.rows, block.cols, text.data(), size));
  text.pop_back();
  return text;
}

[[nodiscard]] DlglibResult GiveCellsText(Encoding encoding, DlglibGrid handle, const Block& block,
                                         const Room& room) noexcept {
  return Give(encoding, room, [&](Call& call) {
    const auto table = FindAttached(call, handle);
    if (table == nullptr || !RequireBlock(call, table->grid, block)) return std::string();
    return call.Wanted(SjisText(TextOf(table->grid, block)));
  });
}

/// Asks the program's check in its encoding. A text that cannot be made for it is refused.
int AskCheck(void* context, int row, int col, const char* text) {
  // Copied, as the program may end the grid meanwhile.
  const CvGridTable::PasteCheck check = *static_cast<const CvGridTable::PasteCheck*>(context);
  if (check.encoding == Encoding::Sjis) return check.ask(check.context, row, col, text);
  return edge::Guarded(0, [&] {
    const framework::ConvertedText utf8 = framework::Utf8FromSjis(text);
    const bool made = utf8.problem == framework::TextProblem::None;
    return made ? check.ask(check.context, row, col, utf8.text.c_str()) : 0;
  });
}

[[nodiscard]] DlglibResult SetPasteCheck(Encoding encoding, DlglibGrid handle, DlglibGridPasteCheck check,
                                         void* context) noexcept {
  return c_interface::Answer([&](Call& call) {
    const auto table = FindAttached(call, handle);
    if (table == nullptr) return call.Result();
    table->pasteCheck = {check, context, encoding};
    table->grid.Editing().SetPasteCheck(check != nullptr ? AskCheck : nullptr, &table->pasteCheck);
    return call.Result();
  });
}

[[nodiscard]] DlglibResult Pick(Encoding encoding, DlglibGrid handle, const char* text) noexcept {
  return WithGrid(encoding, handle, [&](Call& call, CvGrid& grid) {
    const SjisText given = call.Sjis(text, kTextLimit);
    if (!call.Refused()) grid.SelchangeComboBox(given.bytes().c_str());
    return call.Result();
  });
}

}  // namespace

DlglibResult DLGLIB_CALL DlglibGridClickCell(DlglibGrid grid, std::int32_t row, std::int32_t col) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    if (RequireCell(call, table, row, col)) table.ClickItem(row, col);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridClickedCell(DlglibGrid grid, std::int32_t* row, std::int32_t* col) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    if (!RequireResult(call, row) || !RequireResult(call, col)) return call.Result();
    const CvGrid::ClickedCell cell = table.FindClickedCell();
    *row = cell.row;
    *col = cell.column;
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridEditCell(DlglibGrid grid, std::int32_t row, std::int32_t col) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    if (!RequireCell(call, table, row, col)) return call.Result();
    table.AskForCell(row, col);
    table.SelectItem();
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridPlaceEditor(DlglibGrid grid) { return Do(grid, &CvGrid::SelectItem); }

DlglibResult DLGLIB_CALL DlglibGridCommit(DlglibGrid grid) { return Do(grid, &CvGrid::KeyInput); }

DlglibResult DLGLIB_CALL DlglibGridOpenList(DlglibGrid grid) { return Do(grid, &CvGrid::OpenComboBox); }

DlglibResult DLGLIB_CALL DlglibGridCloseList(DlglibGrid grid) { return Do(grid, &CvGrid::CloseComboBox); }

DlglibResult DLGLIB_CALL DlglibGridPickSjis(DlglibGrid grid, const char* text) {
  return Pick(Encoding::Sjis, grid, text);
}

DlglibResult DLGLIB_CALL DlglibGridPickUtf8(DlglibGrid grid, const char* text) {
  return Pick(Encoding::Utf8, grid, text);
}

DlglibResult DLGLIB_CALL DlglibGridSetKeys(DlglibGrid grid, std::int32_t keys) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    call.Require((keys & ~DLGLIB_KEYS_ALL) == 0, DLGLIB_BAD_ARGUMENT);
    if (!call.Refused()) table.SetKeys(keys);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridKeys(DlglibGrid grid, std::int32_t* keys) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    if (RequireResult(call, keys)) *keys = table.Keys();
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridCopyCells(DlglibGrid grid, std::int32_t row, std::int32_t col, std::int32_t rows,
                                             std::int32_t cols, std::int32_t* cells) {
  return OfBlock(grid, {row, col, rows, cols}, cells, &CvGrid::CopyCells);
}

DlglibResult DLGLIB_CALL DlglibGridPasteCells(DlglibGrid grid, std::int32_t row, std::int32_t col,
                                              std::int32_t* cells) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) -> DlglibResult {
    if (!RequireCell(call, table, row, col)) return call.Result();
    return Pasted(table.PasteCells(row, col), cells);
  });
}

DlglibResult DLGLIB_CALL DlglibGridClearCells(DlglibGrid grid, std::int32_t row, std::int32_t col, std::int32_t rows,
                                              std::int32_t cols, std::int32_t* cells) {
  return OfBlock(grid, {row, col, rows, cols}, cells, &CvGrid::ClearCells);
}

DlglibResult DLGLIB_CALL DlglibGridCellsTextSjis(DlglibGrid grid, std::int32_t row, std::int32_t col, std::int32_t rows,
                                                 std::int32_t cols, std::int32_t bufferSize, char* buffer,
                                                 std::int32_t* needed) {
  return GiveCellsText(Encoding::Sjis, grid, {row, col, rows, cols}, {bufferSize, buffer, needed});
}

DlglibResult DLGLIB_CALL DlglibGridCellsTextUtf8(DlglibGrid grid, std::int32_t row, std::int32_t col, std::int32_t rows,
                                                 std::int32_t cols, std::int32_t bufferSize, char* buffer,
                                                 std::int32_t* needed) {
  return GiveCellsText(Encoding::Utf8, grid, {row, col, rows, cols}, {bufferSize, buffer, needed});
}

DlglibResult DLGLIB_CALL DlglibGridSetCellsTextSjis(DlglibGrid grid, std::int32_t row, std::int32_t col,
                                                    const char* text, std::int32_t* cells) {
  return SetCellsText(Encoding::Sjis, grid, row, col, text, cells);
}

DlglibResult DLGLIB_CALL DlglibGridSetCellsTextUtf8(DlglibGrid grid, std::int32_t row, std::int32_t col,
                                                    const char* text, std::int32_t* cells) {
  return SetCellsText(Encoding::Utf8, grid, row, col, text, cells);
}

DlglibResult DLGLIB_CALL DlglibGridSetPasteRows(DlglibGrid grid, std::int32_t mode) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    call.Require(mode == 0 || mode == 1, DLGLIB_BAD_ARGUMENT);
    if (!call.Refused()) table.Editing().SetPasteRows(mode);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridSetPasteCheckSjis(DlglibGrid grid, DlglibGridPasteCheck check, void* context) {
  return SetPasteCheck(Encoding::Sjis, grid, check, context);
}

DlglibResult DLGLIB_CALL DlglibGridSetPasteCheckUtf8(DlglibGrid grid, DlglibGridPasteCheck check, void* context) {
  return SetPasteCheck(Encoding::Utf8, grid, check, context);
}

DlglibResult DLGLIB_CALL DlglibGridUndo(DlglibGrid grid) {
  return WithGrid(grid, [](Call&, CvGrid& table) { return Verdict(table.Undo() != 0); });
}

DlglibResult DLGLIB_CALL DlglibGridRedo(DlglibGrid grid) {
  return WithGrid(grid, [](Call&, CvGrid& table) { return Verdict(table.Redo() != 0); });
}

DlglibResult DLGLIB_CALL DlglibGridCanUndo(DlglibGrid grid) {
  return WithGrid(grid, [](Call&, CvGrid& table) { return Verdict(table.Editing().CanUndo()); });
}

DlglibResult DLGLIB_CALL DlglibGridCanRedo(DlglibGrid grid) {
  return WithGrid(grid, [](Call&, CvGrid& table) { return Verdict(table.Editing().CanRedo()); });
}

DlglibResult DLGLIB_CALL DlglibGridSetUndoLimit(DlglibGrid grid, std::int32_t steps) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    table.Editing().SetLimit(steps);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridSetChanged(DlglibGrid grid, DlglibGridChanged changed, void* context) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    table.SetChanged(changed, context);
    return call.Result();
  });
}
