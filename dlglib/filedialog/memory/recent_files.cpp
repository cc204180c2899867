#include "dlglib/filedialog/memory/recent_files.h"

#include <algorithm>
#include <utility>

#include "dlglib/base/shift_jis.h"

namespace filedialog {

std::string RecentName(std::string_view path, RecentForm form) {
  if (form == RecentForm::FullPath) return std::string(path);
  const std::size_t separator = shift_jis::FindLast(path, '\\');
  return std::string(separator == shift_jis::kNone ? path : path.substr(separator + 1));
}

void AddRecentFile(std::string_view name, std::vector<std::string>* files) {
  if (name.empty()) return;
  std::string added(name);  // the name may be an entry of the list, which moves
  const std::string capitals = shift_jis::ToUpperBytes(name);
  const auto same = std::find_if(files->begin(), files->end(), [&capitals](const std::string& entry) {
    return !entry.empty() && shift_jis::ToUpperBytes(entry) == capitals;
  });
  if (same != files->end()) files->erase(same);
  files->emplace_back();
  std::rotate(files->begin(), files->end() - 1, files->end());
  files->front() = std::move(added);
}

std::vector<std::string> ShownRecentFiles(const std::vector<std::string>& files, int count) {
  const std::size_t wanted = std::min(files.size(), static_cast<std::size_t>(std::max(count, 0)));
  std::vector<std::string> shown(files.begin(), files.begin() + static_cast<std::ptrdiff_t>(wanted));
  std::erase(shown, std::string());
  return shown;
}

std::string RecentCountItem(int count) {
  const std::string digits = std::to_string(count);
  return digits.size() < 2 ? " " + digits : digits;
}

}  // namespace filedialog
