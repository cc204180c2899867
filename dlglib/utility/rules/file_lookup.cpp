#include "dlglib/utility/rules/file_lookup.h"

#include <algorithm>

#include "dlglib/utility/rules/path_name.h"

namespace file_lookup {

std::string ChooseExisting(const std::vector<std::string>& paths, os::Files& files) {
  if (paths.size() == 1) return paths.front();
  const auto exists = [&files](const std::string& path) { return files.Exists(path); };
  const auto found = std::find_if(paths.begin(), paths.end(), exists);
  return found != paths.end() ? *found : paths.front();
}

Output ChooseOutput(const std::vector<std::string>& paths, os::Files& files) {
  for (const std::string& path : paths) {
    if (files.Exists(path)) return {path, Place::Taken};
  }
  for (const std::string& path : paths) {
    if (files.Exists(std::string(path_name::FolderOf(path)))) return {path, Place::Free};
  }
  return {paths.front(), Place::NoFolder};
}

}  // namespace file_lookup
