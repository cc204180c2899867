#include "dlglib/filedialog/browser/label_edit.h"

#include <utility>

namespace filedialog {

void LabelEdit::Begin(std::string folder, const FileEntry& row) {
  row_.Clear();
  folder_ = std::move(folder);
  row_.Add(row.kind, row.path, row.name, false);
}

void LabelEdit::Give(std::string_view name) { name_ = name.substr(0, name.find('\0')); }

std::optional<LabelEdit::Committed> LabelEdit::Commit() {
  using Outcome = OperationResult::Outcome;
  const std::optional<std::string> name = std::exchange(name_, std::nullopt);
  if (!name || row_.size() == 0) return std::nullopt;
  const FileEntry& row = row_.rows().front();
  Committed committed{CommitLabel(services_, folder_, row, *name), folder_, std::nullopt};
  if (committed.result.outcome == Outcome::Done) committed.listedName = name;
  if (committed.result.outcome == Outcome::Stranded) committed.listedName = std::string(NameInFolder(row));
  return committed;
}

}  // namespace filedialog
