#include "dlglib/filedialog/file_entry.h"

#include <algorithm>
#include <utility>

#include "dlglib/utility/shift_jis.h"

namespace filedialog {

void EntryTable::Clear(std::size_t capacity) {
  rows_.clear();
  blocks_.clear();
  free_ = nullptr;
  freeBytes_ = 0;
  rows_.reserve(capacity);
}

char* EntryTable::Room(std::size_t bytes) {
  if (bytes > freeBytes_) {
    freeBytes_ = std::max(kBlockBytes, bytes);
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(freeBytes_));
    free_ = blocks_.back().get();
  }
  freeBytes_ -= bytes;
  return std::exchange(free_, free_ + bytes);
}

std::string_view EntryTable::Keep(std::string_view text) {
  char* const start = Room(text.size());
  std::copy(text.begin(), text.end(), start);
  return {start, text.size()};
}

std::string_view EntryTable::KeepUpper(std::string_view text) {
  char* const start = Room(text.size());
  std::transform(text.begin(), text.end(), start, shift_jis::ToUpperByte);
  return {start, text.size()};
}

FileEntry& EntryTable::Add(EntryKind kind, std::string_view path, std::string_view name, bool cutExtension) {
  static_assert(kSortKeyLimit == kNameLimit, "the sort key is made of the shown name");
  const std::string_view shown = shift_jis::Truncate(name, kNameLimit);
  const std::string_view keyName = cutExtension ? shown.substr(0, shift_jis::FindLast(shown, '.')) : shown;
  FileEntry& row = rows_.emplace_back();
  row.kind = kind;
  row.path = Keep(path);
  const std::size_t tail = path.size() - std::min(path.size(), name.size());
  const bool nameEndsPath = !name.empty() && path.substr(tail) == name;
  row.name = nameEndsPath ? row.path.substr(tail, shown.size()) : Keep(shown);
  row.sortKey = KeepUpper(keyName);
  return row;
}

}  // namespace filedialog
