// What is said of the list's rows to those who do not see them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/row_cells.h"
#include "platform/os/accessible.h"

namespace filedialog {

/// What a kind of row or place is called, Shift_JIS.
[[nodiscard]] const char* KindText(EntryKind kind);

/// Another number for another row or place: by its path, or by its name where it has none.
[[nodiscard]] std::uint64_t IdentityOf(EntryKind kind, std::string_view path, std::string_view name);

/// A row: its name, and as its description its kind and what its columns say below their `titles`, which are as many as
/// the view has. Of a row that nobody has described yet only its kind is said: nothing is read for this. States and
/// place are the caller's to fill in.
[[nodiscard]] accessible::Item RowItem(os::Drives& drives, const FileEntry& entry, const ShownListing& listing,
                                       const std::vector<std::string>& titles);

}  // namespace filedialog
