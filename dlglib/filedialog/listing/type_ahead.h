// Finding a row by the beginning of its name, as the user types it into the list.
#pragma once

#include <span>
#include <string_view>

#include "dlglib/filedialog/listing/file_entry.h"

namespace filedialog {

/// Where a search starts and how it goes on.
struct NameSearch {
  std::string_view text;  ///< Shift_JIS; the letters A to Z match in either case
  int start = 0;          ///< the first row that is looked at
  bool partial = true;    ///< the name begins with the text; otherwise it is the text
  bool wrap = false;      ///< after the last row the first ones are looked at
};

/// The row whose name matches; -1 when there is none or the text is empty.
[[nodiscard]] int FindByName(std::span<const FileEntry> rows, const NameSearch& search);

}  // namespace filedialog
