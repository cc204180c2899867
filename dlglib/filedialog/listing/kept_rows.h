// Rows that are found again by their names when the list has been filled anew.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/base/geometry.h"
#include "dlglib/filedialog/listing/file_entry.h"

namespace filedialog {

/// What the list shows of its rows beside their texts.
struct RowStates {
  std::vector<int> selected;   ///< in the list's order
  std::optional<int> focused;  ///< the row with the keyboard's frame
  geometry::Point scroll;      ///< as the view counts it: rows or pixels

  friend bool operator==(const RowStates&, const RowStates&) = default;
};

/// A row as it is known beyond its listing.
struct KeptRow {
  EntryKind kind = EntryKind::File;
  std::string name;
};

struct KeptRows {
  std::vector<KeptRow> selected;
  std::optional<KeptRow> focused;
  geometry::Point scroll;
};

[[nodiscard]] KeptRows KeepRows(std::span<const FileEntry> rows, const RowStates& states);

/// The same rows of another listing; those that it lacks are left out.
[[nodiscard]] RowStates FindRows(std::span<const FileEntry> rows, const KeptRows& kept);

/// The row of that kind and path, letter case aside.
[[nodiscard]] std::optional<std::size_t> FindRowAt(std::span<const FileEntry> rows, EntryKind kind,
                                                   std::string_view path);

}  // namespace filedialog
