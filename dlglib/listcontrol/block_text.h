// Rows of cells as one text, as spreadsheets write and read it: tabs between the cells of a row, a line end behind each
// row. Texts are Shift_JIS and walked by character: the second byte of a character is never a quote or a tab.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/listcontrol/grid_model.h"

namespace grid {

/// Cells of a grid: some of its rows, ascending, and columns that follow each other.
struct CellBlock {
  std::vector<int> rows;
  int firstColumn = 0;
  int columns = 0;

  [[nodiscard]] std::size_t Count() const noexcept { return rows.size() * static_cast<std::size_t>(columns); }
};

/// The part of a block that lies within the rows in use and the columns. Any numbers may be given.
[[nodiscard]] CellBlock CutBlock(const GridModel& model, int row, int column, int rows, int columns);
/// All columns of the selected rows.
[[nodiscard]] CellBlock SelectedBlock(const GridModel& model);

/// Columns whose fields are empty, as their cells show no text.
using TextlessColumns = std::span<const int>;

/// The cells as a text. Every row ends with CR LF. A cell with a tab, a CR, an LF or a quote is quoted, quotes in it
/// are doubled.
[[nodiscard]] std::string WriteBlock(const GridModel& model, const CellBlock& block, TextlessColumns textless);
/// The same into a buffer of `size` bytes, closed with a terminator. A buffer that is too small becomes the empty text;
/// a null one or a size below 1 receives nothing. Returns the bytes needed with the terminator.
[[nodiscard]] std::size_t WriteBlock(const GridModel& model, const CellBlock& block, TextlessColumns textless,
                                     char* out, std::size_t size);

/// One cell of a text that is being read.
struct BlockField {
  std::string_view text;  ///< without its quotes; valid until the next field is read
  std::size_t from = 0;   ///< its part of the source, without the separator behind it
  std::size_t to = 0;
  bool endsRow = false;
};

/// Takes a text apart. A row ends with LF, CR LF, CR or the text; an empty line is a row of one empty cell, an empty
/// text has no row. A cell that begins with a quote goes on to the next single one, and what follows that up to the
/// separator belongs to it too; an open quote takes the rest of the text. A line break within a cell becomes one blank.
/// Quotes that do not begin a cell are ordinary characters. The text ends at a zero byte.
class BlockReader {
 public:
  /// `text` must live as long as the reader.
  explicit BlockReader(std::string_view text) noexcept : text_(text.substr(0, text.find('\0'))) {}

  /// The next cell, row by row; none at the end of the text.
  [[nodiscard]] std::optional<BlockField> Next();

 private:
  [[nodiscard]] BlockField ReadPlain() noexcept;
  [[nodiscard]] BlockField ReadQuoted();
  void ReadWithinQuotes();
  void Append();
  [[nodiscard]] bool EndField() noexcept;

  std::string_view text_;
  std::size_t at_ = 0;
  bool rowIsOpen_ = false;  ///< a tab came last, and so a cell follows
  std::string unquoted_;
};

/// What the only cell of a text holds; nothing when the text holds none, or several.
[[nodiscard]] std::optional<std::string> SingleCell(std::string_view text);
/// Whether a text holds more than one cell.
[[nodiscard]] bool HoldsSeveralCells(std::string_view text);

}  // namespace grid
