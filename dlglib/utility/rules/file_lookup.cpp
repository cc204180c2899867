#include "dlglib/utility/rules/file_lookup.h"

#include <algorithm>
#include <string>

#include "dlglib/utility/rules/path_name.h"

namespace file_lookup {

SjisText ChooseExisting(const std::vector<SjisText>& paths, os::Files& files) {
  if (paths.size() == 1) return paths.front();
  const auto exists = [&files](const SjisText& path) { return files.Exists(path.bytes()); };
  const auto found = std::find_if(paths.begin(), paths.end(), exists);
  return found != paths.end() ? *found : paths.front();
}

Output ChooseOutput(const std::vector<SjisText>& paths, os::Files& files) {
  for (const SjisText& path : paths) {
    if (files.Exists(path.bytes())) return {path, Place::Taken};
  }
  for (const SjisText& path : paths) {
    if (files.Exists(std::string(path_name::FolderOf(path).bytes()))) return {path, Place::Free};
  }
  return {paths.front(), Place::NoFolder};
}

}  // namespace file_lookup
