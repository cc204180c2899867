// What a row of the report views draws in its columns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/shown_listing.h"
#include "platform/os/os.h"

namespace filedialog {

struct RowCell {
  int column = 0;
  std::string text;  ///< Shift_JIS
  TextAlign align = TextAlign::Left;
  bool fillsBackground = false;  ///< the cell's background is filled before its text is drawn
};

/// The cells of a described row, in the order of their columns, the name in column 0 first; a column without a cell
/// stays empty. Only files (no folders, no shortcuts) show a size or their titles by column; all other rows show their
/// description. Drives that are ready show their total and free space, which `drives` is asked for at every call.
[[nodiscard]] std::vector<RowCell> CellsOf(os::Drives& drives, const FileEntry& entry, const ShownListing& listing);

/// What the list says of an item when it is asked for one of its texts, whatever the view shows: the name (0), and the
/// description as of the last time that it was drawn (1).
[[nodiscard]] std::string_view TextOfItem(const FileEntry& entry, int part);

}  // namespace filedialog
