// The grid for programs of any language: its cells, rows and selection.
#include <string>

#include "dlglib/c_interface/CvGridTable.h"
#include "dlglib/listcontrol/grid_complaints.h"

namespace {

using c_interface::Call;
using c_interface::Encoding;
using c_interface::FindAttached;
using c_interface::Give;
using c_interface::kPathLimit;
using c_interface::kTextLimit;
using c_interface::RequireCell;
using c_interface::RequireResult;
using c_interface::RequireUsedRow;
using c_interface::Room;
using c_interface::WithGrid;

constexpr int kWholeRow = -1;

[[nodiscard]] DlglibResult SetText(Encoding encoding, DlglibGrid handle, int row, int col, const char* text) noexcept {
  return WithGrid(encoding, handle, [&](Call& call, CvGrid& grid) {
    const SjisText given = call.Sjis(text, kTextLimit);
    if (RequireCell(call, grid, row, col)) grid.SetItemText(row, col, given.bytes().c_str());
    return call.Result();
  });
}

[[nodiscard]] DlglibResult GiveText(Encoding encoding, DlglibGrid handle, int row, int col, const Room& room) noexcept {
  return Give(encoding, room, [&](Call& call) {
    const auto table = FindAttached(call, handle);
    if (table == nullptr || !RequireCell(call, table->grid, row, col)) return std::string();
    return call.Wanted(SjisText(table->grid.Model().Text(row, col)));
  });
}

/// Does something with a cell of a row in use.
template <class Act>
[[nodiscard]] DlglibResult OfUsedCell(DlglibGrid handle, int row, int col, const Act& act) noexcept {
  return WithGrid(handle, [&](Call& call, CvGrid& grid) {
    if (RequireUsedRow(call, grid, row) && RequireCell(call, grid, row, col)) act(call, grid);
    return call.Result();
  });
}

/// Answers a number.
template <class Ask>
[[nodiscard]] DlglibResult GiveNumber(DlglibGrid handle, std::int32_t* number, const Ask& ask) noexcept {
  return WithGrid(handle, [&](Call& call, CvGrid& grid) {
    if (RequireResult(call, number)) *number = ask(grid);
    return call.Result();
  });
}

/// Adds a row in front of the one that `where` answers.
template <class Where>
[[nodiscard]] DlglibResult AddRow(DlglibGrid handle, std::int32_t* row, const Where& where) noexcept {
  return WithGrid(handle, [&](Call&, CvGrid& grid) -> DlglibResult {
    const int at = where(grid.Model());
    const bool done = grid::InsertComplaint(grid.Model(), at) == nullptr;
    grid.AddInsertItem(at);
    if (done && row != nullptr) *row = at;
    return c_interface::Verdict(done);
  });
}

[[nodiscard]] DlglibResult CheckNumberOf(DlglibGrid handle, int row, const char* text, const char* complaint) noexcept {
  return WithGrid(handle, [&](Call& call, CvGrid& grid) -> DlglibResult {
    const std::string given = call.Bytes(text, kPathLimit);
    if (!RequireUsedRow(call, grid, row)) return call.Result();
    return c_interface::Verdict(grid.CheckNumberCell(row, CString(given.c_str()), complaint) != 0);
  });
}

[[nodiscard]] DlglibResult Show(Encoding encoding, DlglibGrid handle, const char* text,
                                void (CvGrid::*show)(const char*) noexcept) noexcept {
  return WithGrid(encoding, handle, [&](Call& call, CvGrid& grid) {
    const SjisText line = text != nullptr ? call.Sjis(text, kPathLimit) : SjisText();
    if (!call.Refused()) (grid.*show)(text != nullptr ? line.bytes().c_str() : nullptr);
    return call.Result();
  });
}

}  // namespace

DlglibResult DLGLIB_CALL DlglibGridSetTextSjis(DlglibGrid grid, std::int32_t row, std::int32_t col, const char* text) {
  return SetText(Encoding::Sjis, grid, row, col, text);
}

DlglibResult DLGLIB_CALL DlglibGridSetTextUtf8(DlglibGrid grid, std::int32_t row, std::int32_t col, const char* text) {
  return SetText(Encoding::Utf8, grid, row, col, text);
}

DlglibResult DLGLIB_CALL DlglibGridTextSjis(DlglibGrid grid, std::int32_t row, std::int32_t col,
                                            std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return GiveText(Encoding::Sjis, grid, row, col, {bufferSize, buffer, needed});
}

DlglibResult DLGLIB_CALL DlglibGridTextUtf8(DlglibGrid grid, std::int32_t row, std::int32_t col,
                                            std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return GiveText(Encoding::Utf8, grid, row, col, {bufferSize, buffer, needed});
}

DlglibResult DLGLIB_CALL DlglibGridSetColours(DlglibGrid grid, std::int32_t row, std::int32_t col, std::uint32_t text,
                                              std::uint32_t back) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    if (RequireCell(call, table, row, col)) table.SetColours(row, col, text, back);
    return call.Result();
  });
}

// The grid keeps the opposite: what is other than 0 there is not available.
DlglibResult DLGLIB_CALL DlglibGridSetAvailable(DlglibGrid grid, std::int32_t row, std::int32_t col,
                                                std::int32_t available) {
  const unsigned int flag = available != 0 ? 0 : 1;
  if (col != kWholeRow) {
    return OfUsedCell(grid, row, col, [=](Call&, CvGrid& table) { table.SetAvailable(row, col, flag); });
  }
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    if (RequireUsedRow(call, table, row)) table.SetAvailable(row, flag);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridAvailable(DlglibGrid grid, std::int32_t row, std::int32_t col,
                                             std::int32_t* available) {
  return OfUsedCell(grid, row, col, [=](Call& call, const CvGrid& table) {
    if (RequireResult(call, available)) *available = table.Model().Available(row, col) == 0 ? 1 : 0;
  });
}

DlglibResult DLGLIB_CALL DlglibGridSetError(DlglibGrid grid, std::int32_t row, std::int32_t col, std::int32_t error) {
  const unsigned int flag = error != 0 ? 1 : 0;
  return OfUsedCell(grid, row, col, [=](Call&, CvGrid& table) { table.SetError(row, col, flag); });
}

DlglibResult DLGLIB_CALL DlglibGridError(DlglibGrid grid, std::int32_t row, std::int32_t col, std::int32_t* error) {
  return OfUsedCell(grid, row, col, [=](Call& call, const CvGrid& table) {
    if (RequireResult(call, error)) *error = table.Model().Error(row, col) != 0 ? 1 : 0;
  });
}

DlglibResult DLGLIB_CALL DlglibGridRowCount(DlglibGrid grid, std::int32_t* count) {
  return GiveNumber(grid, count, [](CvGrid& table) { return table.Model().Capacity(); });
}

DlglibResult DLGLIB_CALL DlglibGridItemCount(DlglibGrid grid, std::int32_t* count) {
  return GiveNumber(grid, count, [](CvGrid& table) { return table.Model().ItemCount(); });
}

DlglibResult DLGLIB_CALL DlglibGridSetItemCount(DlglibGrid grid, std::int32_t count) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    call.Require(count >= 0 && count <= table.Model().Capacity(), DLGLIB_BAD_ARGUMENT);
    if (!call.Refused()) table.SetItemCount(count);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridSelectRow(DlglibGrid grid, std::int32_t row, std::int32_t selected) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    if (RequireUsedRow(call, table, row)) table.SetSelectFlag(row, selected != 0 ? 1 : 0);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridIsSelected(DlglibGrid grid, std::int32_t row, std::int32_t* selected) {
  return WithGrid(grid, [=](Call& call, CvGrid& table) {
    if (RequireResult(call, selected) && RequireUsedRow(call, table, row)) {
      *selected = table.Model().Selected(row) != 0 ? 1 : 0;
    }
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridClearSelection(DlglibGrid grid) {
  return WithGrid(grid, [](Call& call, CvGrid& table) {
    table.ClearSelectFlag();
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibGridSelectedRow(DlglibGrid grid, std::int32_t* row) {
  return GiveNumber(grid, row, [](CvGrid& table) { return table.Model().FirstSelected(); });
}

DlglibResult DLGLIB_CALL DlglibGridSelectedColumn(DlglibGrid grid, std::int32_t* col) {
  return GiveNumber(grid, col, [](CvGrid& table) { return table.SelectedColumn(); });
}

DlglibResult DLGLIB_CALL DlglibGridAddRow(DlglibGrid grid, std::int32_t* row) {
  return AddRow(grid, row, [](const grid::GridModel& model) { return model.ItemCount(); });
}

DlglibResult DLGLIB_CALL DlglibGridInsertRow(DlglibGrid grid, std::int32_t* row) {
  return AddRow(grid, row, [](const grid::GridModel& model) { return model.FirstSelected(); });
}

DlglibResult DLGLIB_CALL DlglibGridDeleteRows(DlglibGrid grid) {
  return WithGrid(grid, [](Call&, CvGrid& table) -> DlglibResult {
    const bool some = table.Model().FirstSelected() >= 0;
    table.DeleteItem();
    return c_interface::Verdict(some);
  });
}

DlglibResult DLGLIB_CALL DlglibGridCheckClassNumber(DlglibGrid grid, std::int32_t row, const char* text) {
  return CheckNumberOf(grid, row, text, grid::kBadClassNumber);
}

DlglibResult DLGLIB_CALL DlglibGridCheckRevisionNumber(DlglibGrid grid, std::int32_t row, const char* text) {
  return CheckNumberOf(grid, row, text, grid::kBadRevision);
}

DlglibResult DLGLIB_CALL DlglibGridShowMessageSjis(DlglibGrid grid, const char* text) {
  return Show(Encoding::Sjis, grid, text, &CvGrid::MessageText);
}

DlglibResult DLGLIB_CALL DlglibGridShowMessageUtf8(DlglibGrid grid, const char* text) {
  return Show(Encoding::Utf8, grid, text, &CvGrid::MessageText);
}

DlglibResult DLGLIB_CALL DlglibGridShowErrorSjis(DlglibGrid grid, const char* text) {
  return Show(Encoding::Sjis, grid, text, &CvGrid::ErrorText);
}

DlglibResult DLGLIB_CALL DlglibGridShowErrorUtf8(DlglibGrid grid, const char* text) {
  return Show(Encoding::Utf8, grid, text, &CvGrid::ErrorText);
}
