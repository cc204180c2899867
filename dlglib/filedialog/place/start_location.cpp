#include "dlglib/filedialog/place/start_location.h"

#include <string>
#include <utility>

#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/basics/entry_kind.h"
#include "dlglib/filedialog/basics/patience.h"

namespace filedialog {
namespace {

/// The folder without its last component; empty when it has none.
std::string ParentOf(std::string_view folder) {
  const std::size_t at = shift_jis::FindLast(WithoutSeparator(folder), '\\');
  return at == shift_jis::kNone ? std::string() : FolderPath(folder.substr(0, at));
}

bool IsNetworkPath(std::string_view path) { return path.starts_with("\\\\"); }

}  // namespace

bool IsFolder(os::Files& files, const std::string& path) {
  const auto attributes = files.Attributes(path);
  return attributes && (*attributes & os::kAttributeFolder) != 0;
}

Location StartLocation(os::Files& files, const LocationTree& places, std::string_view folder) {
  const bool fits = folder.size() <= kPathLimit;
  std::string path = fits ? FolderPath(folder) : ParentOf(shift_jis::Truncate(folder, kPathLimit));
  // A folder that does not answer in time is not one to start in.
  const auto isFolder = [&files, &path] { return AnswerOr(false, [&] { return IsFolder(files, path); }); };
  while (!path.empty() && !IsNetworkPath(path) && !isFolder()) {
    std::string parent = ParentOf(path);
    if (parent.size() >= path.size()) break;
    path = std::move(parent);
  }
  return places.Find(path).value_or(places.FirstDrive());
}

}  // namespace filedialog
