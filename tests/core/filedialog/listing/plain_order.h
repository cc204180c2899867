// The order of the rows as one would write it down, to hold the sorting against.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "dlglib/filedialog/listing/entry_order.h"

namespace filedialog {

inline std::string_view PlainTitle(const FileEntry& row, std::size_t slot) {
  if (slot < row.titles->size()) return (*row.titles)[slot];
  return slot == 0 ? std::string_view(*row.description) : std::string_view();
}

inline int PlainByKey(const FileEntry& a, const FileEntry& b, SortKey key) {
  if (key == kSortSize) return (a.sizeKb > b.sizeKb) - (a.sizeKb < b.sizeKb);
  if (key == kSortDate) return a.description->compare(*b.description);
  if (key < kSortFirstTitle) return 0;
  const auto slot = static_cast<std::size_t>(key - kSortFirstTitle);
  return PlainTitle(a, slot).compare(PlainTitle(b, slot));
}

/// Whether `a` comes before `b`.
inline bool PlainBefore(const FileEntry& a, const FileEntry& b, const SortOrder& order) {
  if (a.kind != b.kind) return a.kind < b.kind;
  const int byKey = PlainByKey(a, b, order.key);
  const int difference = byKey != 0 ? byKey : a.sortKey.compare(b.sortKey);
  return order.direction < 0 ? difference > 0 : difference < 0;
}

}  // namespace filedialog
