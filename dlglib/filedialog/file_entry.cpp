#include "dlglib/filedialog/file_entry.h"

#include <algorithm>

#include "dlglib/utility/shift_jis.h"

namespace filedialog {

void EntryTable::Clear(std::size_t capacity) {
  rows_.clear();
  blocks_.clear();
  free_ = nullptr;
  freeBytes_ = 0;
  rows_.reserve(capacity);
}

std::string_view EntryTable::Keep(std::string_view text) {
  if (text.size() > freeBytes_) {
    const std::size_t bytes = std::max(kBlockBytes, text.size());
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(bytes));
    free_ = blocks_.back().get();
    freeBytes_ = bytes;
  }
  char* const start = free_;
  free_ = std::copy(text.begin(), text.end(), start);
  freeBytes_ -= text.size();
  return {start, text.size()};
}

FileEntry& EntryTable::Add(EntryKind kind, std::string_view path, std::string_view name, bool cutExtension) {
  std::string_view keyName = shift_jis::Truncate(name, kSortKeyLimit);
  if (cutExtension) keyName = keyName.substr(0, shift_jis::FindLast(keyName, '.'));
  FileEntry& row = rows_.emplace_back();
  row.kind = kind;
  row.path = Keep(path);
  const std::size_t tail = path.size() - std::min(path.size(), name.size());
  const bool nameEndsPath = !name.empty() && path.substr(tail) == name;
  row.name = shift_jis::Truncate(nameEndsPath ? row.path.substr(tail) : Keep(name), kNameLimit);
  row.sortKey = Keep(shift_jis::ToUpperBytes(keyName));
  return row;
}

}  // namespace filedialog
