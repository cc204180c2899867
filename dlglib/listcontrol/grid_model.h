// The grid's data: a table of text cells of fixed capacity. Knows no window.
//
// Rows and columns are counted from 0. Three counts matter: the capacity, for which there is storage; the item count,
// the rows in use, which callers set without any check and which therefore may lie outside; and the used rows, the item
// count brought into 0 to the capacity. Setters ignore what lies outside, getters answer it as they say. Texts are
// Shift_JIS. No text passes its column's limit, whatever is given.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "dlglib/listcontrol/grid_text.h"
#include "dlglib/listcontrol/zeroed_block.h"

namespace grid {

inline constexpr int kMaxColumns = 20;
/// Far more rows than a list view can hold in the memory of today's machines, and few enough that no length in pixels
/// and no count of bytes overflows.
inline constexpr int kMaxRows = 10'000'000;
inline constexpr int kNoRow = -1;
inline constexpr int kNoColumn = -1;

/// 0x00BBGGRR.
using Colour = std::uint32_t;
inline constexpr Colour kBlack = 0x000000;
inline constexpr Colour kWhite = 0xFFFFFF;

/// What a cell holds beside its text. `available` is other than 0 when the cell is *not* available; callers rely on the
/// sense.
struct CellLooks {
  unsigned int available = 1;
  unsigned int error = 0;
  Colour text = kBlack;
  Colour back = kWhite;
};

/// Rows that follow each other.
struct RowRun {
  int first = 0;
  int count = 0;

  friend bool operator==(const RowRun&, const RowRun&) = default;
};

class GridModel {
 public:
  /// No columns, no rows; all text limits 385.
  GridModel() noexcept;

  /// The limit of one of the 20 columns, clamped to 4 to 385 bytes; counts from the next Init on.
  void SetTextLimit(int column, int limit) noexcept;
  /// All of them 385.
  void ResetTextLimits() noexcept;

  /// Makes the storage anew: at most 20 columns and `capacity` rows (none for a value below 1), every cell empty, not
  /// available, black on white. The item count becomes the smaller of `items` and `capacity`. `numberColumn`: the
  /// column of the row numbers; 20 and above counts as 0, a column that does not exist numbers nothing. Throws
  /// std::bad_alloc, for more than kMaxRows rows in any case, and then changes nothing.
  void Init(int columns, int items, int capacity, int numberColumn);
  /// Back to no columns and no rows; the text limits stay.
  void Clear() noexcept;

  [[nodiscard]] int ColumnCount() const noexcept { return columnCount_; }
  [[nodiscard]] int Capacity() const noexcept { return capacity_; }
  [[nodiscard]] int ItemCount() const noexcept { return itemCount_; }
  void SetItemCount(int count) noexcept { itemCount_ = count; }
  [[nodiscard]] int UsedRows() const noexcept;
  /// The column of the row numbers; may be one that does not exist.
  [[nodiscard]] int NumberColumn() const noexcept { return numberColumn_; }
  /// Bytes; 385 for a column that does not exist.
  [[nodiscard]] int TextLimit(int column) const noexcept;

  [[nodiscard]] bool HasColumn(int column) const noexcept { return column >= 0 && column < columnCount_; }
  [[nodiscard]] bool HasCell(int row, int column) const noexcept;
  [[nodiscard]] bool IsUsed(int row) const noexcept { return row >= 0 && row < UsedRows(); }

  // --- cells
  /// Stores a text and makes the cell available and free of error.
  void SetText(int row, int column, const char* text) noexcept;
  /// Stores a text and leaves the flags alone.
  void TypeText(int row, int column, const char* text) noexcept;
  /// The same for a text without a zero byte that ends with a whole character; what passes the limit is cut off. For
  /// texts that have been checked or have stood in a cell already.
  void PutText(int row, int column, std::string_view text) noexcept;
  /// The cell's text, closed with a terminator; valid until the model changes. Empty for a cell outside.
  [[nodiscard]] const char* Text(int row, int column) const noexcept;
  void SetColours(int row, int column, Colour text, Colour back) noexcept;
  /// Of every cell of a used row, or of one.
  void SetAvailable(int row, unsigned int flag) noexcept;
  void SetAvailable(int row, int column, unsigned int flag) noexcept;
  /// Of the cell of a used row; 1 outside. The row's own flag is that of its first cell, also when there is no column.
  [[nodiscard]] unsigned int Available(int row) const noexcept;
  [[nodiscard]] unsigned int Available(int row, int column) const noexcept;
  void SetError(int row, int column, unsigned int flag) noexcept;
  /// Of the cell of a used row; other than 0 outside.
  [[nodiscard]] unsigned int Error(int row, int column) const noexcept;
  /// All of it, for any row of the capacity; an untouched cell's outside.
  [[nodiscard]] CellLooks Looks(int row, int column) const noexcept;
  /// Of any row of the capacity.
  void SetLooks(int row, int column, const CellLooks& looks) noexcept;

  // --- selection
  void Select(int row, int flag) noexcept;
  /// Also answers the row behind the last used one, which is never selected when the list is full. 0 outside.
  [[nodiscard]] int Selected(int row) const noexcept;
  /// The row's flag as it stands, for drawing: a row that has gone out of use keeps it. False outside the capacity.
  [[nodiscard]] bool ShowsSelected(int row) const noexcept;
  void ClearSelection() noexcept;
  /// The first used row whose flag is set, kNoRow when there is none.
  [[nodiscard]] int FirstSelected() const noexcept;

  // --- rows
  /// Moves the rows from `at` on one place down, empties row `at`, makes it available and the only selected one of the
  /// rows in use. Its colours stay what they were there. False, and nothing changed, when `at` is no row of the list or
  /// the row behind it, or the list is full.
  bool InsertRow(int at) noexcept;
  /// Removes the selected rows, as if they went one after the other: the rows that fall free are empty, not available
  /// and not selected, and keep the colours and the error flags of the last row. Returns how many went.
  int DeleteSelectedRows() noexcept;
  /// Makes room: `runs` are the rows that are to be free, as they will be numbered, one behind the other and none of
  /// them behind the last row. The item count grows by them. Texts, flags and colours of the free rows are not settled;
  /// they are not selected. There must be room for them.
  void OpenRows(std::span<const RowRun> runs) noexcept;
  /// The reverse: the rows go, those behind them move up. The rows that fall free are as after OpenRows.
  void CloseRows(std::span<const RowRun> runs) noexcept;
  /// Writes the row numbers, from 1, into the number column of every used row; flags stay.
  void Renumber() noexcept;

 private:
  /// The flags and colours of a cell so that all bytes zero are an untouched cell's.
  struct StoredLooks {
    std::uint32_t availableFlipped;
    std::uint32_t error;
    Colour text;
    Colour backFlipped;
  };
  struct Column {
    ZeroedBlock<StoredLooks> looks;
    ZeroedBlock<char> texts;  ///< `width` bytes for each row: the limit and a terminator
    std::size_t width = 0;
  };
  using Columns = std::array<Column, kMaxColumns>;

  [[nodiscard]] char* TextAt(int row, int column) noexcept;
  [[nodiscard]] StoredLooks& LooksAt(int row, int column) noexcept;
  [[nodiscard]] const StoredLooks& LooksAt(int row, int column) const noexcept;
  [[nodiscard]] bool IsUsedCell(int row, int column) const noexcept { return IsUsed(row) && HasColumn(column); }
  void MoveRows(int from, int to, int count) noexcept;
  void MoveFlags(int from, int to, int count) noexcept;
  void EmptyRows(int first, int count, unsigned int available) noexcept;
  void FreeRows(int first, int count) noexcept;

  std::array<int, kMaxColumns> limits_;
  // Cells exist for all 20 columns, as a row's flag is that of its first cell whether or not there is a column.
  Columns columns_;
  ZeroedBlock<int> selected_;  ///< one more than the capacity
  int columnCount_ = 0;
  int capacity_ = 0;
  int itemCount_ = 0;
  int numberColumn_ = kNoColumn;
  mutable int firstMaybeSelected_ = 0;  ///< no flag is set above it
};

}  // namespace grid
