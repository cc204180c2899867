// One row of the file list, and the table that holds the rows of a listing.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/entry_kind.h"
#include "dlglib/filedialog/listing/seldom.h"

namespace filedialog {

/// One row. The views point into the table that made the row and live as long as it.
struct FileEntry {
  std::string_view path;  ///< full path, Shift_JIS, "\" separators, no trailing "\" but for a drive's root
  std::string_view name;  ///< shown name: the part of the path after its last "\"; a shortcut has its own
  /// The name in capitals byte by byte; without its extension where the kind has an exact one.
  std::string_view sortKey;
  EntryKind kind = EntryKind::File;
  std::int32_t sizeKb = 0;  ///< kilobytes, rounded up; 0 until described
  std::int32_t net = -1;    ///< index of the row's record in the network listing; -1 for all other rows
  bool selected = false;
  bool described = false;
  Seldom<std::string> description;  ///< second column
  /// Title display of models: one text for each chosen item, at most kTitleSlots.
  Seldom<std::vector<std::string>> titles;
};

/// The rows of one listing and their texts. Adding a row may move the rows, never their texts.
class EntryTable {
 public:
  EntryTable() = default;
  EntryTable(const EntryTable&) = delete;
  EntryTable& operator=(const EntryTable&) = delete;
  EntryTable(EntryTable&&) noexcept = default;
  EntryTable& operator=(EntryTable&&) noexcept = default;

  /// Forgets all rows and their texts and makes room for `capacity` rows.
  void Clear(std::size_t capacity = 0);

  /// Keeps a copy of the text for the rest of the listing.
  [[nodiscard]] std::string_view Keep(std::string_view text);

  /// Appends a row. Its texts are copied; the name is cut to its limit without splitting a character. The sort key is
  /// the name, cut in the same way, in capitals byte by byte; when `cutExtension` is set it ends before its last ".".
  /// Without memory it throws std::bad_alloc, and the rows are as before.
  FileEntry& Add(EntryKind kind, std::string_view path, std::string_view name, bool cutExtension);

  [[nodiscard]] std::vector<FileEntry>& rows() { return rows_; }
  [[nodiscard]] const std::vector<FileEntry>& rows() const { return rows_; }
  [[nodiscard]] std::size_t size() const { return rows_.size(); }

 private:
  static constexpr std::size_t kBlockBytes = 256 * 1024;

  [[nodiscard]] char* Room(std::size_t bytes);
  [[nodiscard]] std::string_view KeepUpper(std::string_view text);
  void Grow();

  std::vector<FileEntry> rows_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t freeBytes_ = 0;
};

}  // namespace filedialog
