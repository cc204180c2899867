#include "dlglib/filedialog/place_opening.h"

#include <algorithm>
#include <utility>

#include "dlglib/filedialog/path_text.h"
#include "dlglib/utility/shift_jis.h"
#include "platform/os/os.h"

namespace filedialog {
namespace {

bool IsFolder(const std::string& path) {
  const auto attributes = os::Services().files->Attributes(path);
  return attributes && (*attributes & os::kAttributeFolder) != 0;
}

/// The folder without its last component; empty when it has none.
std::string ParentOf(std::string_view folder) {
  const std::size_t at = shift_jis::FindLast(WithoutSeparator(folder), '\\');
  return at == shift_jis::kNone ? std::string() : FolderPath(folder.substr(0, at));
}

bool IsNetworkPath(std::string_view path) { return path.starts_with("\\\\"); }

Location DriveLocation(const LocationTree& places, std::string_view root) {
  const auto& fixed = places.fixed();
  const auto isDrive = [root](const Place& place) { return place.level == 2 && place.path == root; };
  const auto found = std::find_if(fixed.begin(), fixed.end(), isDrive);
  return found == fixed.end() ? places.FirstDrive() : Location{static_cast<std::size_t>(found - fixed.begin()), {}};
}

Place FolderPlace(const FileEntry& entry) {
  Place place;
  place.image = kImageFolder;
  place.path = entry.path;
  place.text = entry.name;
  return place;
}

}  // namespace

Location StartLocation(const LocationTree& places, std::string_view folder) {
  const bool fits = folder.size() <= kPathLimit;
  std::string path = fits ? FolderPath(folder) : ParentOf(shift_jis::Truncate(folder, kPathLimit));
  while (!path.empty() && !IsNetworkPath(path) && !IsFolder(path)) {
    std::string parent = ParentOf(path);
    if (parent.size() >= path.size()) break;
    path = std::move(parent);
  }
  return places.Find(path).value_or(places.FirstDrive());
}

void ListDrives(const LocationTree& places, EntryTable* table) {
  table->Clear(places.fixed().size());
  for (const Place& place : places.fixed()) {
    const auto kind = static_cast<EntryKind>(place.image);
    if (IsDrive(kind)) table->Add(kind, place.path, place.text, false);
  }
}

std::optional<Location> LocationOfEntry(const LocationTree& places, const FileEntry& entry,
                                        std::span<const Place> network) {
  if (entry.net >= 0 && static_cast<std::size_t>(entry.net) < network.size()) {
    return places.Below(network[static_cast<std::size_t>(entry.net)]);
  }
  if (IsDrive(entry.kind)) return DriveLocation(places, entry.path);
  if (entry.kind != EntryKind::Folder && entry.kind != EntryKind::FolderShortcut) return std::nullopt;
  if (!IsFolder(std::string(entry.path))) return std::nullopt;
  if (entry.kind == EntryKind::Folder && places.Kind() == LocationKind::Folder) return places.Below(FolderPlace(entry));
  return places.Find(std::string(entry.path));
}

}  // namespace filedialog
