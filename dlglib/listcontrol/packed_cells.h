// Cells' texts and whole rows packed into few bytes, for steps that can be undone: a text costs its own bytes and one
// more (two from 64 bytes on), where it stands next to nothing when its neighbours are kept too.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "dlglib/listcontrol/grid_model.h"

namespace grid {

/// A bit for each column of a row.
using ColumnBits = std::uint32_t;

/// Whether a cell's text is the program's, see GridUndo.
enum class Mark : std::uint8_t { None, OfProgram };

/// A number in as few bytes as it takes, seven bits in each.
void PutNumber(std::string* bytes, std::size_t number);
/// Reads it off the front again.
[[nodiscard]] std::size_t ReadNumber(std::string_view* bytes) noexcept;

/// Texts of cells with their marks, in the order of rows and in a row of columns.
class PackedCells {
 public:
  struct Cell {
    int row = 0;
    int column = 0;
    std::string_view text;  ///< valid as long as the pack is not changed
    Mark mark = Mark::None;
  };

  /// Behind all that were added before. The text holds no zero byte. When there is no memory nothing is added.
  void Add(int row, int column, std::string_view text, Mark mark);
  /// To be called behind the last one.
  void End() noexcept;
  /// The same; gives back what has been set aside for more.
  void Finish();
  [[nodiscard]] bool IsEmpty() const noexcept { return texts_.empty(); }
  [[nodiscard]] std::size_t Bytes() const noexcept { return texts_.capacity() + runs_.capacity(); }

  /// Calls `visit` with each cell, as long as it answers true.
  template <class Visit>
  void ForEach(Visit visit) const {
    std::string_view runs = runs_;
    std::string_view texts = texts_;
    int row = 0;
    while (!runs.empty()) {
      row += static_cast<int>(ReadNumber(&runs));
      auto rows = ReadNumber(&runs);
      const auto columns = static_cast<ColumnBits>(ReadNumber(&runs));
      for (; rows > 0; --rows, ++row) {
        for (int column = 0; columns >> column != 0; ++column) {
          if ((columns >> column & 1U) != 0 && !visit(ReadCell(row, column, &texts))) return;
        }
      }
    }
  }

 private:
  [[nodiscard]] static Cell ReadCell(int row, int column, std::string_view* texts) noexcept;
  void EndRow() noexcept;
  void EndRun() noexcept;

  /// Rows that follow each other and hold the same columns.
  struct Run {
    int first = 0;
    int count = 0;
    ColumnBits columns = 0;
  };

  std::string runs_;   ///< of each run the rows left out before it, how many rows it has, and the columns
  std::string texts_;  ///< of each cell twice its length, plus one for a mark, and the text
  Run run_;
  int row_ = kNoRow;  ///< being added
  ColumnBits columns_ = 0;
  int rowsEnd_ = 0;  ///< behind the last run in `runs_`
};

/// What flags and colours are compared with: those of the row before.
using RowLooks = std::array<CellLooks, kMaxColumns>;

/// Packs rows with texts, flags, colours and marks. Flags and colours cost only where they differ from those of the
/// same column in the row before.
class RowPacker {
 public:
  void Add(const GridModel& model, int row, ColumnBits marks);
  [[nodiscard]] std::string Finish();

 private:
  std::string bytes_;
  RowLooks last_;
};

/// Puts packed rows into a model, in the order in which they were added.
class RowUnpacker {
 public:
  /// `bytes` must live as long.
  explicit RowUnpacker(std::string_view bytes) noexcept : bytes_(bytes) {}
  /// Returns the marks of the row.
  ColumnBits PutNext(GridModel* model, int row) noexcept;

 private:
  std::string_view bytes_;
  RowLooks last_;
};

}  // namespace grid
