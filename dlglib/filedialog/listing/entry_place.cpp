#include "dlglib/filedialog/listing/entry_place.h"

#include <algorithm>
#include <string>

#include "dlglib/filedialog/place/start_location.h"

namespace filedialog {
namespace {

Location DriveLocation(const LocationTree& places, std::string_view root) {
  const auto& fixed = places.fixed();
  const auto isDrive = [root](const Place& place) { return place.level == 2 && place.path == root; };
  const auto found = std::find_if(fixed.begin(), fixed.end(), isDrive);
  return found == fixed.end() ? places.FirstDrive() : Location{static_cast<std::size_t>(found - fixed.begin()), {}};
}

Place FolderPlace(const FileEntry& entry) {
  Place place;
  place.kind = EntryKind::Folder;
  place.path = entry.path;
  place.text = entry.name;
  return place;
}

}  // namespace

void ListDrives(const LocationTree& places, EntryTable* table) {
  table->Clear(places.fixed().size());
  for (const Place& place : places.fixed()) {
    if (IsDrive(place.kind) && !place.hidden) table->Add(place.kind, place.path, place.text, false);
  }
}

std::optional<Location> LocationOfEntry(os::Files& files, const LocationTree& places, const FileEntry& entry,
                                        std::span<const Place> network) {
  if (entry.net >= 0 && static_cast<std::size_t>(entry.net) < network.size()) {
    return places.Below(network[static_cast<std::size_t>(entry.net)]);
  }
  if (IsDrive(entry.kind)) return DriveLocation(places, entry.path);
  if (entry.kind != EntryKind::Folder && entry.kind != EntryKind::FolderShortcut) return std::nullopt;
  if (!IsFolder(files, std::string(entry.path))) return std::nullopt;
  if (entry.kind == EntryKind::Folder && places.Kind() == LocationKind::Folder) return places.Below(FolderPlace(entry));
  return places.Find(std::string(entry.path));
}

}  // namespace filedialog
