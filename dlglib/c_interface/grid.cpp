// The grid for programs of any language: its life, its messages, its columns.
#include <algorithm>
#include <string>
#include <vector>

#include "dlglib/c_interface/CvGridTable.h"

namespace {

using c_interface::Answer;
using c_interface::Call;
using c_interface::CvGridTable;
using c_interface::Encoding;
using c_interface::FindGrid;
using c_interface::Grids;
using c_interface::kLongTextLimit;
using c_interface::kSettingLimit;
using c_interface::RequireColumn;
using c_interface::RequireResult;
using c_interface::WithGrid;

constexpr std::size_t kPromptLimit = 127;

// ---- life

void ForgetParentGrid(DlglibGrid parentGrid) {
  Grids::All().ForEach([&](CvGridTable& table) {
    if (table.parentGrid != parentGrid) return;
    table.parentGrid = nullptr;
    table.grid.SetParentGrid(nullptr);
  });
}

void RequireSize(Call& call, const CvGridTable::Size& size) {
  const bool columns = size.columns >= 1 && size.columns <= grid::kMaxColumns;
  const bool rows = size.rows >= 0 && size.rows <= grid::kMaxRows && size.items >= 0 && size.items <= size.rows;
  call.Require(columns && rows, DLGLIB_BAD_ARGUMENT);
}

// ---- columns

[[nodiscard]] DlglibResult SetColumn(Encoding encoding, DlglibGrid handle, int col, const char* title, double share,
                                     const CvGrid::ColumnLook& look) noexcept {
  return WithGrid(encoding, handle, [&](Call& call, CvGrid& grid) {
    const SjisText text = call.Sjis(title, kSettingLimit);
    call.Require(share >= 0, DLGLIB_BAD_ARGUMENT);
    if (RequireColumn(call, grid, col)) grid.SetColumn(col, text.bytes().c_str(), share, look);
    return call.Result();
  });
}

/// A message of a column; null is none.
[[nodiscard]] SjisText PromptOf(Call& call, const char* prompt) {
  return prompt != nullptr ? call.Sjis(prompt, kPromptLimit) : SjisText();
}

[[nodiscard]] DlglibResult SetEdit(Encoding encoding, DlglibGrid handle, int col, int letterCase,
                                   std::uint32_t maxBytes, const char* prompt) noexcept {
  return WithGrid(encoding, handle, [&](Call& call, CvGrid& grid) {
    const SjisText text = PromptOf(call, prompt);
    if (RequireColumn(call, grid, col)) grid.SetEdit(col, letterCase, maxBytes, text.bytes().c_str());
    return call.Result();
  });
}

/// The lines of a text; a line break at its end ends the last one.
[[nodiscard]] std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

[[nodiscard]] DlglibResult SetList(Encoding encoding, DlglibGrid handle, int col, int lastCol, const char* entries,
                                   int comboId, const char* prompt) noexcept {
  return WithGrid(encoding, handle, [&](Call& call, CvGrid& grid) {
    const SjisText lines = entries != nullptr ? call.Sjis(entries, kLongTextLimit) : SjisText();
    const SjisText text = PromptOf(call, prompt);
    call.Require(lastCol >= col, DLGLIB_BAD_ARGUMENT);
    if (RequireColumn(call, grid, col) && RequireColumn(call, grid, lastCol)) {
      grid.SetCombo(col, lastCol, LinesOf(lines.bytes()), comboId, text.bytes().c_str());
    }
    return call.Result();
  });
}

/// Does something with a column.
template <class Act>
[[nodiscard]] DlglibResult OfColumn(DlglibGrid handle, int col, const Act& act) noexcept {
  return WithGrid(handle, [&](Call& call, CvGrid& grid) {
    if (RequireColumn(call, grid, col)) act(grid);
    return call.Result();
  });
}

}  // namespace

DlglibResult DLGLIB_CALL DlglibGridCreate(DlglibGrid* grid) {
  return Answer([&](Call& call) {
    if (RequireResult(call, grid)) *grid = Grids::All().Add(std::make_shared<CvGridTable>());
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridDestroy(DlglibGrid grid) {
  return Answer([&](Call& call) {
    const std::shared_ptr<CvGridTable> table = FindGrid(call, grid);
    if (table == nullptr) return call.Result();
    Grids::All().Remove(grid);
    ForgetParentGrid(grid);
    table->End();
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridSetParentGrid(DlglibGrid grid, DlglibGrid parentGrid) {
  return Answer([&](Call& call) {
    const std::shared_ptr<CvGridTable> table = FindGrid(call, grid);
    const std::shared_ptr<CvGridTable> above = parentGrid != nullptr ? FindGrid(call, parentGrid) : nullptr;
    for (auto at = parentGrid; at != nullptr && !call.Refused(); at = FindGrid(call, at)->parentGrid) {
      call.Require(at != grid, DLGLIB_BAD_ARGUMENT);  // its own parent in the end
      if (call.Refused()) break;
    }
    if (table == nullptr || call.Refused()) return call.Result();
    table->parentGrid = parentGrid;
    table->grid.SetParentGrid(above != nullptr ? &above->grid : nullptr);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridAttach(DlglibGrid grid, void* parent, std::int32_t listId, std::int32_t columns,
                                          const std::int32_t* textLimits, std::int32_t items, std::int32_t maxItems,
                                          std::int32_t numberColumn) {
  return Answer([&](Call& call) -> DlglibResult {
    const std::shared_ptr<CvGridTable> table = FindGrid(call, grid);
    RequireResult(call, parent);
    const auto window = call.OwnWindow(parent);
    const CvGridTable::Size size = {columns, textLimits, items, maxItems};
    RequireSize(call, size);
    call.Require(CvGridTable::HasView(window, listId), DLGLIB_BAD_ARGUMENT);
    if (table == nullptr || call.Refused()) return call.Result();
    return table->Attach(window, listId, size, numberColumn) ? DLGLIB_OK : DLGLIB_OUT_OF_MEMORY;
  });
}

DlglibResult DLGLIB_CALL DlglibGridDetach(DlglibGrid grid) {
  return Answer([&](Call& call) {
    const std::shared_ptr<CvGridTable> table = c_interface::FindAttached(call, grid);
    if (table == nullptr) return call.Result();
    table->grid.Term();
    table->parent = nullptr;
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridMessage(DlglibGrid grid, std::uint32_t message, void* lParam) {
  return Answer([&](Call& call) -> DlglibResult {
    const std::shared_ptr<CvGridTable> table = FindGrid(call, grid);
    if (table == nullptr) return call.Result();
    if (!table->Wants(message)) return DLGLIB_NOT_MINE;
    if (!RequireResult(call, lParam)) return call.Result();
    return table->Takes(message, lParam) ? DLGLIB_OK : DLGLIB_NOT_MINE;
  });
}

DlglibResult DLGLIB_CALL DlglibGridDraw(DlglibGrid grid) {
  return WithGrid(grid, [](Call& call, CvGrid& table) {
    table.DrawItem();
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridSetExtendedStyle(DlglibGrid grid, std::uint32_t style) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    table.SetExtendedStyle(style);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridSetMessageWindow(DlglibGrid grid, void* window) {
  return Answer([&](Call& call) {
    const std::shared_ptr<CvGridTable> table = c_interface::FindAttached(call, grid);
    const auto zone = call.OwnWindow(window);
    if (table != nullptr && !call.Refused()) table->utility.SetMessageWindow(CWnd::FromHandle(zone));
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridSetColumnSjis(DlglibGrid grid, std::int32_t col, const char* title, double share,
                                                 std::int32_t format, std::int32_t drawFlags, std::int32_t kind) {
  return SetColumn(Encoding::Sjis, grid, col, title, share, {format, drawFlags, kind});
}

DlglibResult DLGLIB_CALL DlglibGridSetColumnUtf8(DlglibGrid grid, std::int32_t col, const char* title, double share,
                                                 std::int32_t format, std::int32_t drawFlags, std::int32_t kind) {
  return SetColumn(Encoding::Utf8, grid, col, title, share, {format, drawFlags, kind});
}

DlglibResult DLGLIB_CALL DlglibGridSetEditSjis(DlglibGrid grid, std::int32_t col, std::int32_t letterCase,
                                               std::uint32_t maxBytes, const char* prompt) {
  return SetEdit(Encoding::Sjis, grid, col, letterCase, maxBytes, prompt);
}

DlglibResult DLGLIB_CALL DlglibGridSetEditUtf8(DlglibGrid grid, std::int32_t col, std::int32_t letterCase,
                                               std::uint32_t maxBytes, const char* prompt) {
  return SetEdit(Encoding::Utf8, grid, col, letterCase, maxBytes, prompt);
}

DlglibResult DLGLIB_CALL DlglibGridSetListSjis(DlglibGrid grid, std::int32_t col, std::int32_t lastCol,
                                               const char* entries, std::int32_t comboId, const char* prompt) {
  return SetList(Encoding::Sjis, grid, col, lastCol, entries, comboId, prompt);
}

DlglibResult DLGLIB_CALL DlglibGridSetListUtf8(DlglibGrid grid, std::int32_t col, std::int32_t lastCol,
                                               const char* entries, std::int32_t comboId, const char* prompt) {
  return SetList(Encoding::Utf8, grid, col, lastCol, entries, comboId, prompt);
}

DlglibResult DLGLIB_CALL DlglibGridClearEdit(DlglibGrid grid, std::int32_t col) {
  return OfColumn(grid, col, [=](CvGrid& table) { table.ClearEdit(col); });
}

DlglibResult DLGLIB_CALL DlglibGridClearList(DlglibGrid grid, std::int32_t col) {
  return OfColumn(grid, col, [=](CvGrid& table) { table.ClearCombo(col); });
}

DlglibResult DLGLIB_CALL DlglibGridSetSeparator(DlglibGrid grid, std::int32_t separator) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    constexpr std::int32_t kLastByte = 0xFF;
    call.Require(separator > 0 && separator <= kLastByte, DLGLIB_BAD_ARGUMENT);
    if (!call.Refused()) table.SetComboSeparator(separator);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridSeparator(DlglibGrid grid, std::int32_t* separator) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    if (RequireResult(call, separator)) *separator = table.ComboSeparator();
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridSetEditMode(DlglibGrid grid, std::int32_t col, std::int32_t mode) {
  return OfColumn(grid, col, [=](CvGrid& table) { table.SetEditMode(col, mode); });
}

DlglibResult DLGLIB_CALL DlglibGridSetSpaceMode(DlglibGrid grid, std::int32_t col, std::int32_t mode) {
  return OfColumn(grid, col, [=](CvGrid& table) { table.SetSpaceMode(col, mode); });
}

DlglibResult DLGLIB_CALL DlglibGridSetImeMode(DlglibGrid grid, std::int32_t col, std::int32_t mode) {
  return OfColumn(grid, col, [=](CvGrid& table) { table.SetImeMode(col, mode); });
}
