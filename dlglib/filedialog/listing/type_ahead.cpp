#include "dlglib/filedialog/listing/type_ahead.h"

#include <algorithm>

#include "dlglib/base/shift_jis.h"

namespace filedialog {
namespace {

bool SameByte(char a, char b) {
  const auto upper = [](char byte) { return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte; };
  return upper(a) == upper(b);
}

/// Whether the two-byte characters and katakana of both, which are as long, are the same and the letters but for their
/// case.
bool SameText(std::string_view a, std::string_view b) {
  for (std::size_t at = 0; at < a.size();) {
    const std::size_t length = shift_jis::CharLength(a, at);
    const bool same = length == 1 ? SameByte(a[at], b[at]) : a.substr(at, length) == b.substr(at, length);
    if (!same) return false;
    at += length;
  }
  return true;
}

bool Matches(std::string_view name, const NameSearch& search) {
  if (name.size() < search.text.size() || (!search.partial && name.size() != search.text.size())) return false;
  return SameText(name.substr(0, search.text.size()), search.text);
}

}  // namespace

int FindByName(std::span<const FileEntry> rows, const NameSearch& search) {
  if (search.text.empty() || rows.empty()) return -1;
  const std::size_t start = std::min(static_cast<std::size_t>(std::max(search.start, 0)), rows.size());
  const auto find = [&](std::size_t from, std::size_t to) {
    for (std::size_t row = from; row < to; ++row) {
      if (Matches(rows[row].name, search)) return static_cast<int>(row);
    }
    return -1;
  };
  const int found = find(start, rows.size());
  return found >= 0 || !search.wrap ? found : find(0, start);
}

}  // namespace filedialog
