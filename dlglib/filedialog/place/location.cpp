#include "dlglib/filedialog/place/location.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"

namespace filedialog {
namespace {

constexpr std::size_t kDesktop = 0;
constexpr std::size_t kComputer = 1;

struct DriveLook {
  EntryKind kind;
  std::string label;
};

std::string FixedDriveLabel(const std::string& root) {
  const std::string name = os::Services().drives->VolumeName(root).value_or("");
  return name.empty() ? "LOCAL DRIVE" : name;
}

/// 'server' の share, from the drive's universal name.
std::string RemoteDriveLabel(const std::string& root) {
  const std::string name = os::Services().network->UniversalName(root).value_or("");
  if (!name.starts_with("\\\\")) return "Unknown";
  const std::size_t serverEnd = shift_jis::FindFirst(name, '\\', 2);
  const std::string server = name.substr(2, serverEnd == shift_jis::kNone ? serverEnd : serverEnd - 2);
  std::string share = serverEnd == shift_jis::kNone ? "" : name.substr(serverEnd + 1);
  share.resize(std::min(share.size(), shift_jis::FindFirst(share, '\\')));
  return "'" + server + "' の " + share;
}

std::optional<DriveLook> LookOf(const std::string& root) {
  switch (os::Services().drives->Type(root)) {
    case os::DriveType::Fixed:
      return DriveLook{EntryKind::FixedDrive, FixedDriveLabel(root)};
    case os::DriveType::Remote:
      return DriveLook{EntryKind::NetworkDrive, RemoteDriveLabel(root)};
    case os::DriveType::CdRom:
      return DriveLook{EntryKind::CdRomDrive, "CD-ROM"};
    case os::DriveType::Removable:
      return DriveLook{EntryKind::RemovableDrive, "REMOVABLE"};
    case os::DriveType::RamDisk:
      return DriveLook{EntryKind::RamDisk, "RAMDISK"};
    default:
      return std::nullopt;
  }
}

/// The path entries of a place stand below the network, client drives and drives only.
bool ShowsTrail(EntryKind kind) { return kind == EntryKind::Network || IsDrive(kind); }

/// Whether the place's path is the folder or one of its parents.
bool Holds(const Place& place, std::string_view folder) {
  if (place.path.empty()) return false;
  if (place.kind == EntryKind::Network) return folder.starts_with(place.path);
  const std::string_view root = WithoutSeparator(place.path);
  if (folder.size() < root.size() || !IsSamePath(folder.substr(0, root.size()), root)) return false;
  return folder.size() == root.size() || folder[root.size()] == '\\';
}

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

/// The names below the root that the path leads through. ".." never leads out of the root; a share is one too.
std::vector<std::string> Walk(std::string_view rest, bool network) {
  const std::size_t roots = network ? 2 : 0;
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

/// The place as the `step`-th one (from 1) below a fixed place.
Place Stepped(Place place, int fixedLevel, std::size_t step) {
  place.index = -1;
  place.sub = static_cast<int>(step);
  place.level = fixedLevel + place.sub;
  return place;
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

void LocationTree::Build(NetworkLogon& logon) {
  fixed_.clear();
  AddFixed(0, EntryKind::Desktop, "", "デスクトップ");
  AddFixed(1, EntryKind::Computer, "", "マイコンピュータ");
  firstDrive_ = kComputer;
  AddDrives();
  AddClientDrives(logon);
  AddNetwork();
  Enter(FirstDrive());
}

void LocationTree::AddFixed(int level, EntryKind kind, std::string path, std::string text) {
  Place place;
  place.level = level;
  place.kind = kind;
  place.index = static_cast<int>(fixed_.size());
  place.path = std::move(path);
  place.text = std::move(text);
  fixed_.push_back(std::move(place));
}

void LocationTree::AddDrives() {
  const std::uint32_t mask = os::Services().drives->Mask();
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if ((mask >> (letter - 'A') & 1U) == 0) continue;
    const std::string root = std::string(1, letter) + ":\\";
    const auto look = LookOf(root);
    if (!look) continue;
    if (firstDrive_ == kComputer) firstDrive_ = fixed_.size();
    AddFixed(2, look->kind, root, look->label + " (" + letter + ":)");
  }
}

void LocationTree::AddClientDrives(NetworkLogon& logon) {
  os::NetResource container;
  container.scope = os::kNetScopeGlobal;
  container.type = 1;   // disk
  container.usage = 2;  // container
  container.displayType = os::kNetDisplayServer;
  container.remoteName = "\\\\tsclient";
  container.provider = os::Services().network->TerminalProvider().value_or("Microsoft Terminal Services");
  const std::string client = os::Services().session->Variable("CLIENTNAME").value_or("クライアント");
  for (const os::NetResource& drive : EnumerateNetwork(kNetLevelChildren, &container, logon)) {
    std::string name = drive.remoteName.value_or("");
    if (!name.starts_with("\\\\") || name.size() > kPathLimit) continue;
    name = WithoutSeparator(name);
    AddFixed(2, EntryKind::ClientDrive, name, client + " の " + LastNetworkComponent(name));
  }
}

void LocationTree::AddNetwork() {
  network_ = fixed_.size();
  AddFixed(1, EntryKind::Network, "\\\\", "マイネットワーク");
  if (!os::Services().network->Present()) return;
  AddFixed(1, EntryKind::EntireNetwork, "\\\\", "ネットワーク全体");
  fixed_.back().index = -1;
  AddFixed(2, EntryKind::NearbyComputers, "\\\\", "近くのコンピュータ");
  fixed_.back().index = -1;
}

LocationKind LocationTree::Kind() const {
  if (current_.fixed == kDesktop) return LocationKind::Desktop;
  if (current_.fixed == kComputer) return LocationKind::Computer;
  if (current_.fixed < network_) return LocationKind::Folder;
  const bool container = current_.trail.empty() || IsNetworkContainer(current_.trail.back().kind);
  return container ? LocationKind::Network : LocationKind::Folder;
}

std::string LocationTree::Folder() const {
  if (current_.fixed == kDesktop) return os::Services().shell->DesktopFolder().value_or("");
  if (current_.fixed == kComputer || Kind() == LocationKind::Network) return "";
  return current_.trail.empty() ? fixed_[current_.fixed].path : current_.trail.back().path;
}

std::optional<Location> LocationTree::Find(const std::string& folder) const {
  if (folder.size() > kPathLimit) return std::nullopt;
  std::string path = folder;
  std::replace(path.begin(), path.end(), '/', '\\');  // no byte of a longer character looks like "/"
  if (auto location = FindFromHere(path)) return location;
  for (std::size_t i = 0; i <= network_ && i < fixed_.size(); ++i) {
    if (Holds(fixed_[i], path)) return Location{i, TrailOf(i, path)};
  }
  return std::nullopt;
}

std::vector<Place> LocationTree::TrailOf(std::size_t holder, std::string_view folder) const {
  const Place& root = fixed_[holder];
  std::vector<Place> trail;
  Extend(root.path, Walk(Rest(folder, root.path), holder == network_), root.level, &trail);
  return trail;
}

std::optional<Location> LocationTree::FindFromHere(std::string_view folder) const {
  if (fixed_.empty() || folder.empty()) return std::nullopt;
  if (current_.fixed == kDesktop) return IsSamePath(folder, Folder()) ? std::optional(current_) : std::nullopt;
  for (std::size_t depth = current_.trail.size(); depth > 0 && current_.fixed == network_; --depth) {
    const Place& holder = current_.trail[depth - 1];
    if (!holder.path.starts_with("\\\\") || !Holds(holder, folder)) continue;
    std::vector<std::string> names = Components(Rest(folder, holder.path));
    if (std::find(names.begin(), names.end(), "..") != names.end()) return std::nullopt;
    std::erase(names, ".");
    Location location = current_;
    location.trail.resize(depth);
    Extend(holder.path, std::move(names), fixed_[network_].level, &location.trail);
    return location;
  }
  return std::nullopt;
}

Location LocationTree::FirstDrive() const { return Location{firstDrive_, {}}; }

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
    shown.rows.push_back(fixed_[i]);
    shown.rows.back().index = static_cast<int>(i);
    shown.rows.back().marked = i == location.fixed;
    if (i != location.fixed) continue;
    if (ShowsTrail(fixed_[i].kind)) shown.rows.insert(shown.rows.end(), location.trail.begin(), location.trail.end());
    shown.current = shown.rows.size() - 1;
  }
  return shown;
}

std::optional<std::size_t> LocationTree::RowAbove() const {
  for (std::size_t row = currentRow_; row-- > 0;) {
    if (rows_[row].level < rows_[currentRow_].level) return row;
  }
  return std::nullopt;
}

void LocationHistory::Record(HistoryRecord record) {
  if (records_.size() < kCapacity) records_.push_back(std::move(record));
}

bool LocationHistory::EndsAt(const Location& location, std::string_view pattern, std::string_view extension) const {
  if (records_.empty()) return false;
  const HistoryRecord& newest = records_.back();
  const auto isSame = [](const Place& a, const Place& b) { return a.kind == b.kind && IsSamePath(a.path, b.path); };
  return newest.location.fixed == location.fixed && newest.pattern == pattern && newest.extension == extension &&
         std::equal(newest.location.trail.begin(), newest.location.trail.end(), location.trail.begin(),
                    location.trail.end(), isSame);
}

const HistoryRecord& LocationHistory::Back() {
  records_.pop_back();
  return records_.back();
}

}  // namespace filedialog
