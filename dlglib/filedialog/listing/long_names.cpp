#include "dlglib/filedialog/listing/long_names.h"

#include <memory>

#include "dlglib/base/path_text.h"

namespace filedialog {

std::string LongNames::NameOf(std::string_view path) {
  const std::string_view name = NamePart(path);
  if (name.find('~') == std::string_view::npos) return std::string(name);
  ReadFolder(path.substr(0, path.size() - name.size()));
  const auto found = longOf_.find(std::string(name));
  return found == longOf_.end() ? std::string(name) : found->second;
}

void LongNames::ReadFolder(std::string_view folder) {
  if (folder == folder_) return;
  longOf_.clear();
  folder_ = folder;
  const std::unique_ptr<os::FolderPass> pass = files_.OpenFolder(FolderPath(folder));
  os::FoundName found;
  while (pass != nullptr && pass->Next(&found)) {
    if (!found.longName.empty()) longOf_[found.name] = found.longName;
  }
}

}  // namespace filedialog
