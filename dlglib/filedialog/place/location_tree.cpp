#include "dlglib/filedialog/place/location_tree.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "dlglib/base/path_text.h"
#include "dlglib/filedialog/place/path_walk.h"

namespace filedialog {
namespace {

/// The path entries of a place stand below the network, client drives and drives only.
bool ShowsTrail(EntryKind kind) { return kind == EntryKind::Network || IsDrive(kind); }

}  // namespace

void LocationTree::Build(FixedPlaces places) {
  fixed_ = std::move(places.places);
  firstDrive_ = places.firstDrive;
  network_ = places.network;
  Enter(FirstDrive());
}

bool LocationTree::TakeDrives(const std::vector<NamedDrive>& drives) {
  bool changed = false;
  for (const NamedDrive& drive : drives) {
    const auto isDrive = [&drive](const Place& place) { return IsDrive(place.kind) && place.path == drive.root; };
    const auto found = std::find_if(fixed_.begin(), fixed_.end(), isDrive);
    if (found == fixed_.end() || !drive.isKnown) continue;
    if (std::exchange(found->hidden, !drive.look) != !drive.look) changed = true;
    if (drive.look && ShowDrive(static_cast<std::size_t>(found - fixed_.begin()), *drive.look)) changed = true;
  }
  return changed;
}

bool LocationTree::ShowDrive(std::size_t fixed, const DriveLook& look) {
  Place& drive = fixed_[fixed];
  const std::string text = DriveText(look, drive.path);
  if (drive.kind == look.kind && drive.text == text) return false;
  drive.kind = look.kind;
  drive.text = text;
  for (Place& row : rows_) {
    if (row.sub != 0 || row.index != static_cast<int>(fixed)) continue;
    row.kind = look.kind;
    row.text = text;
  }
  return true;
}

LocationKind LocationTree::Kind() const {
  if (current_.fixed == kDesktopPlace) return LocationKind::Desktop;
  if (current_.fixed == kComputerPlace) return LocationKind::Computer;
  if (current_.fixed < network_) return LocationKind::Folder;
  const bool container = current_.trail.empty() || IsNetworkContainer(current_.trail.back().kind);
  return container ? LocationKind::Network : LocationKind::Folder;
}

std::string LocationTree::Folder() const {
  if (current_.fixed == kDesktopPlace) return shell_->DesktopFolder().value_or("");
  if (current_.fixed == kComputerPlace || Kind() == LocationKind::Network) return "";
  return current_.trail.empty() ? fixed_[current_.fixed].path : current_.trail.back().path;
}

std::optional<Location> LocationTree::Find(const std::string& folder) const {
  if (folder.size() > kPathLimit) return std::nullopt;
  std::string path = folder;
  std::replace(path.begin(), path.end(), '/', '\\');  // no byte of a longer character looks like "/"
  if (auto location = FindFromHere(path)) return location;
  for (std::size_t i = 0; i <= network_ && i < fixed_.size(); ++i) {
    if (!fixed_[i].hidden && Holds(fixed_[i], path)) return Location{i, TrailBelow(fixed_[i], path)};
  }
  return std::nullopt;
}

std::optional<Location> LocationTree::FindFromHere(std::string_view folder) const {
  if (fixed_.empty() || folder.empty()) return std::nullopt;
  if (current_.fixed == kDesktopPlace) return IsSamePath(folder, Folder()) ? std::optional(current_) : std::nullopt;
  for (std::size_t depth = current_.trail.size(); depth > 0 && current_.fixed == network_; --depth) {
    const Place& holder = current_.trail[depth - 1];
    if (!holder.path.starts_with("\\\\") || !Holds(holder, folder)) continue;
    Location location = current_;
    location.trail.resize(depth);
    return ExtendTrail(folder, fixed_[network_].level, &location.trail) ? std::optional(location) : std::nullopt;
  }
  return std::nullopt;
}

Location LocationTree::FirstDrive() const {
  std::size_t drive = firstDrive_;
  while (drive < fixed_.size() && fixed_[drive].hidden) ++drive;
  const auto isDrive = [](EntryKind kind) { return IsDrive(kind) && kind != EntryKind::ClientDrive; };
  const bool isThere = drive < fixed_.size() && isDrive(fixed_[drive].kind);
  return Location{isThere ? drive : kComputerPlace, {}};
}

Location LocationTree::LocationOfRow(std::size_t row) const {
  if (row >= rows_.size()) return current_;
  const Place& place = rows_[row];
  if (place.sub == 0) return Location{static_cast<std::size_t>(place.index), {}};
  Location location = current_;
  location.trail.resize(static_cast<std::size_t>(place.sub));
  return location;
}

Location LocationTree::Below(const Place& place) const {
  const bool fixed = place.kind == EntryKind::EntireNetwork || place.kind == EntryKind::NearbyComputers;
  for (std::size_t i = network_ + 1; fixed && i < fixed_.size(); ++i) {
    if (fixed_[i].kind == place.kind) return Location{i, {}};
  }
  Location location = current_;
  location.fixed = std::min(location.fixed, network_);
  location.trail.push_back(Stepped(place, fixed_[location.fixed].level, location.trail.size() + 1));
  return location;
}

const os::NetResource* LocationTree::Resource() const {
  const auto& trail = current_.trail;
  const auto last =
      std::find_if(trail.rbegin(), trail.rend(), [](const Place& place) { return place.resource != nullptr; });
  return last == trail.rend() ? nullptr : last->resource.get();
}

void LocationTree::Enter(Location location) {
  if (location.fixed >= fixed_.size()) return;
  auto [rows, currentRow] = RowsAt(location);
  for (Place& place : fixed_) place.marked = false;
  fixed_[location.fixed].marked = true;
  current_ = std::move(location);
  rows_ = std::move(rows);
  currentRow_ = currentRow;
}

LocationTree::Rows LocationTree::RowsAt(const Location& location) const {
  Rows shown;
  for (std::size_t i = 0; i < fixed_.size(); ++i) {
    if (fixed_[i].hidden && i != location.fixed) continue;
    shown.rows.push_back(fixed_[i]);
    shown.rows.back().index = static_cast<int>(i);
    shown.rows.back().marked = i == location.fixed;
    if (i != location.fixed) continue;
    if (ShowsTrail(fixed_[i].kind)) shown.rows.insert(shown.rows.end(), location.trail.begin(), location.trail.end());
    shown.current = shown.rows.size() - 1;
  }
  return shown;
}

std::optional<std::size_t> LocationTree::RowAbove(std::size_t below) const {
  for (std::size_t row = below; row-- > 0;) {
    if (rows_[row].level < rows_[below].level) return row;
  }
  return std::nullopt;
}

std::vector<std::size_t> LocationTree::FolderRowsAbove() const {
  std::vector<std::size_t> above;
  const std::size_t first = currentRow_ - static_cast<std::size_t>(rows_[currentRow_].sub);
  for (std::size_t row = first; row < currentRow_; ++row) {
    if (!IsNetworkContainer(rows_[row].kind)) above.push_back(row);
  }
  return above;
}

}  // namespace filedialog
