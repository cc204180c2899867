#include "dlglib/filedialog/listing/file_entry.h"

#include <algorithm>
#include <utility>

#include "dlglib/base/shift_jis.h"

namespace filedialog {
namespace {

bool IsUpper(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char byte) { return shift_jis::ToUpperByte(byte) == byte; });
}

}  // namespace

void EntryTable::Clear(std::size_t capacity) {
  rows_.clear();
  blocks_.clear();
  free_ = nullptr;
  freeBytes_ = 0;
  rows_.reserve(capacity);
}

char* EntryTable::Room(std::size_t bytes) {
  if (bytes > freeBytes_) {
    const std::size_t size = std::max(kBlockBytes, bytes);
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(size));
    free_ = blocks_.back().get();
    freeBytes_ = size;
  }
  freeBytes_ -= bytes;
  return std::exchange(free_, free_ + bytes);
}

std::string_view EntryTable::Keep(std::string_view text) {
  char* const start = Room(text.size());
  std::copy(text.begin(), text.end(), start);
  return {start, text.size()};
}

/// While a table grows its rows are there twice, and what is reserved takes no memory before it is used: so it grows in
/// few large steps.
void EntryTable::Grow() {
  constexpr std::size_t kFactor = 3;
  if (rows_.size() == rows_.capacity()) rows_.reserve(std::max<std::size_t>(kFactor * rows_.size(), 1));
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
  const std::string_view keptPath = Keep(path);
  const std::size_t tail = path.size() - std::min(path.size(), name.size());
  const bool nameEndsPath = !name.empty() && path.substr(tail) == name;
  const std::string_view keptName = nameEndsPath ? keptPath.substr(tail, shown.size()) : Keep(shown);
  const std::string_view sortKey = IsUpper(keyName) ? keptName.substr(0, keyName.size()) : KeepUpper(keyName);
  Grow();
  // Last, when its texts have found room: a row without a path would stand for the folder itself.
  FileEntry& row = rows_.emplace_back();
  row.kind = kind;
  row.path = keptPath;
  row.name = keptName;
  row.sortKey = sortKey;
  return row;
}

}  // namespace filedialog
