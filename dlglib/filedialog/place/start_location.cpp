#include "dlglib/filedialog/place/start_location.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/basics/entry_kind.h"
#include "dlglib/filedialog/basics/patience.h"
#include "dlglib/filedialog/place/fixed_places.h"

namespace filedialog {
namespace {

/// The folder without its last component, shorter than it; empty when it has none.
std::string ParentOf(std::string_view folder) {
  const std::size_t at = shift_jis::FindLast(WithoutSeparator(folder), '\\');
  std::string parent = at == shift_jis::kNone ? std::string() : FolderPath(folder.substr(0, at));
  return parent.size() < folder.size() ? parent : std::string();
}

bool IsNetworkPath(std::string_view path) { return path.starts_with("\\\\"); }

enum class Look { Folder, NoFolder, Silent };

/// A folder that does not answer in time is not one to start in.
Look LookAt(os::Files& files, const std::string& path) {
  return AnswerOr(Look::Silent, [&] { return IsFolder(files, path) ? Look::Folder : Look::NoFolder; });
}

/// The deepest folder above a path that does not answer; none when not even its drive does. From the drive down: a
/// drive that has died is asked once more, and not once for each folder, as every call that hangs takes a worker.
std::optional<std::string> AnsweringAbove(os::Files& files, const std::string& path) {
  std::vector<std::string> above;
  for (std::string folder = ParentOf(path); !folder.empty(); folder = ParentOf(folder)) above.push_back(folder);
  const auto silent = std::find_if(above.rbegin(), above.rend(),
                                   [&files](const auto& folder) { return LookAt(files, folder) != Look::Folder; });
  return silent == above.rbegin() ? std::nullopt : std::optional(*std::prev(silent));
}

/// Empty when no folder of that path is there; none when its drive does not answer.
std::optional<std::string> NearestFolder(os::Files& files, std::string path) {
  while (!path.empty()) {
    const Look look = LookAt(files, path);
    if (look == Look::Folder) return path;
    if (look == Look::Silent) return AnsweringAbove(files, path);
    path = ParentOf(path);
  }
  return path;
}

}  // namespace

bool IsFolder(os::Files& files, const std::string& path) {
  const auto attributes = files.Attributes(path);
  return attributes && (*attributes & os::kAttributeFolder) != 0;
}

Location StartLocation(os::Files& files, const LocationTree& places, std::string_view folder) {
  const bool fits = folder.size() <= kPathLimit;
  std::string path = fits ? FolderPath(folder) : ParentOf(shift_jis::Truncate(folder, kPathLimit));
  const auto nearest = IsNetworkPath(path) ? std::optional(std::move(path)) : NearestFolder(files, std::move(path));
  if (!nearest) return Location{kComputerPlace, {}};
  return places.Find(*nearest).value_or(places.FirstDrive());
}

}  // namespace filedialog
