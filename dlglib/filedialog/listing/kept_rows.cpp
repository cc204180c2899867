#include "dlglib/filedialog/listing/kept_rows.h"

#include <algorithm>
#include <set>
#include <utility>

#include "dlglib/base/path_text.h"

namespace filedialog {

namespace {

KeptRow Keep(std::span<const FileEntry> rows, int row) {
  const FileEntry& entry = rows[static_cast<std::size_t>(row)];
  return {entry.kind, std::string(entry.name)};
}

bool IsRow(const FileEntry& entry, const KeptRow& kept) { return entry.kind == kept.kind && entry.name == kept.name; }

}  // namespace

KeptRows KeepRows(std::span<const FileEntry> rows, const RowStates& states) {
  KeptRows kept;
  kept.scroll = states.scroll;
  const auto isRow = [&](int row) { return row >= 0 && static_cast<std::size_t>(row) < rows.size(); };
  for (const int row : states.selected) {
    if (isRow(row)) kept.selected.push_back(Keep(rows, row));
  }
  if (states.focused && isRow(*states.focused)) kept.focused = Keep(rows, *states.focused);
  return kept;
}

RowStates FindRows(std::span<const FileEntry> rows, const KeptRows& kept) {
  std::set<std::pair<EntryKind, std::string_view>> selected;
  for (const KeptRow& row : kept.selected) selected.emplace(row.kind, row.name);
  RowStates states;
  states.scroll = kept.scroll;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const auto position = static_cast<int>(row);
    if (selected.contains({rows[row].kind, rows[row].name})) states.selected.push_back(position);
    if (kept.focused && IsRow(rows[row], *kept.focused)) states.focused = position;
  }
  return states;
}

std::optional<std::size_t> FindRowAt(std::span<const FileEntry> rows, EntryKind kind, std::string_view path) {
  const auto isPlace = [&](const FileEntry& entry) { return entry.kind == kind && IsSamePath(entry.path, path); };
  const auto found = std::ranges::find_if(rows, isPlace);
  if (found == rows.end()) return std::nullopt;
  return static_cast<std::size_t>(found - rows.begin());
}

}  // namespace filedialog
