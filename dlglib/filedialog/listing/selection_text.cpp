#include "dlglib/filedialog/listing/selection_text.h"

#include <algorithm>

namespace filedialog {

namespace {

/// A shortcut has no place in the name box: what is typed there is a name of this folder.
bool IsNamed(const FileEntry& row) { return row.selected && row.kind == EntryKind::File; }

bool IsDelivered(const FileEntry& row) { return row.selected && IsFile(row.kind); }

bool IsOnDisk(EntryKind kind) { return kind >= EntryKind::FolderShortcut; }

void AppendWithBlank(std::string_view part, std::string* text) {
  if (!text->empty()) *text += ' ';
  *text += part;
}

}  // namespace

SelectedNames JoinSelectedNames(std::span<const FileEntry> rows, std::size_t capacity) {
  SelectedNames joined;
  for (const FileEntry& row : rows) {
    if (!IsNamed(row)) continue;
    if (joined.text.size() + row.name.size() + 1 > capacity) break;
    AppendWithBlank(row.name, &joined.text);
    ++joined.count;
  }
  return joined;
}

EntryMenu EntryMenuFor(std::span<const EntryKind> selected) {
  const bool allOnDisk = !selected.empty() && std::all_of(selected.begin(), selected.end(), IsOnDisk);
  return {.canDelete = allOnDisk, .canRename = allOnDisk && selected.size() == 1};
}

Reply<SelectedPaths> JoinSelectedPaths(std::span<const FileEntry> rows, std::size_t capacity, const PathCheck& check) {
  using Outcome = SelectedPaths::Outcome;
  SelectedPaths joined;
  for (const FileEntry& row : rows) {
    if (!IsDelivered(row)) continue;
    std::string path(row.path);
    const Reply<bool> accepted = check(&path);
    if (!accepted) return std::nullopt;
    if (!*accepted) return SelectedPaths{Outcome::Refuse, {}};
    const std::size_t blank = joined.text.empty() ? 0 : 1;
    if (joined.text.size() + blank + path.size() + 1 > capacity) return SelectedPaths{Outcome::TooLong, {}};
    AppendWithBlank(path, &joined.text);
    joined.outcome = Outcome::Accept;
  }
  return joined;
}

}  // namespace filedialog
