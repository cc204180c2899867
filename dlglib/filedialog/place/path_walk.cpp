#include "dlglib/filedialog/place/path_walk.h"

#include <algorithm>
#include <string>
#include <utility>

#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"

namespace filedialog {
namespace {

/// The components of `rest`, empty ones left out.
std::vector<std::string> Components(std::string_view rest) {
  std::vector<std::string> parts;
  while (!rest.empty()) {
    const std::size_t end = std::min(shift_jis::FindFirst(rest, '\\'), rest.size());
    if (end > 0) parts.emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return parts;
}

/// The first two components of a network path are no folders.
EntryKind TrailKind(std::string_view path) {
  if (!path.starts_with("\\\\")) return EntryKind::Folder;
  const std::size_t depth = Components(path).size();
  if (depth == 1) return EntryKind::NetworkServer;
  return depth == 2 ? EntryKind::NetworkShare : EntryKind::Folder;
}

std::string Joined(const std::string& parent, const std::string& name) {
  return std::string(WithoutSeparator(parent)) + '\\' + name;
}

/// The names below a fixed place that the path leads through. Nothing leads out of a share, which is the second one in
/// the network.
std::vector<std::string> Walk(std::string_view rest, EntryKind fixed) {
  const std::size_t roots = fixed == EntryKind::Network ? 2 : 0;
  std::vector<std::string> names;
  for (std::string& part : Components(rest)) {
    if (part == ".") continue;
    if (part != "..") {
      names.push_back(std::move(part));
    } else if (names.size() > roots) {
      names.pop_back();
    }
  }
  return names;
}

/// Appends the folders that `names` lead through below `path`.
void Extend(std::string path, std::vector<std::string> names, int fixedLevel, std::vector<Place>* trail) {
  for (std::string& name : names) {
    path = Joined(path, name);
    Place place;
    place.kind = TrailKind(path);
    place.path = path;
    place.text = std::move(name);
    trail->push_back(Stepped(std::move(place), fixedLevel, trail->size() + 1));
  }
}

std::string_view Rest(std::string_view folder, std::string_view parent) {
  return folder.substr(std::min(parent.size(), folder.size()));
}

}  // namespace

bool Holds(const Place& place, std::string_view folder) {
  if (place.path.empty()) return false;
  if (place.kind == EntryKind::Network) return folder.starts_with(place.path);
  const std::string_view root = WithoutSeparator(place.path);
  if (folder.size() < root.size() || !IsSamePath(folder.substr(0, root.size()), root)) return false;
  return folder.size() == root.size() || folder[root.size()] == '\\';
}

std::vector<Place> TrailBelow(const Place& fixed, std::string_view folder) {
  std::vector<Place> trail;
  Extend(fixed.path, Walk(Rest(folder, fixed.path), fixed.kind), fixed.level, &trail);
  return trail;
}

bool ExtendTrail(std::string_view folder, int fixedLevel, std::vector<Place>* trail) {
  const std::string last = trail->back().path;
  std::vector<std::string> names = Components(Rest(folder, last));
  if (std::find(names.begin(), names.end(), "..") != names.end()) return false;
  std::erase(names, ".");
  Extend(last, std::move(names), fixedLevel, trail);
  return true;
}

Place Stepped(Place place, int fixedLevel, std::size_t step) {
  place.index = -1;
  place.sub = static_cast<int>(step);
  place.level = fixedLevel + place.sub;
  return place;
}

}  // namespace filedialog
