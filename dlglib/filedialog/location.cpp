#include "dlglib/filedialog/location.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "dlglib/utility/shift_jis.h"

namespace filedialog {
namespace {

constexpr std::size_t kDesktop = 0;
constexpr std::size_t kComputer = 1;

struct DriveLook {
  int image;
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
      return DriveLook{kImageFixedDrive, FixedDriveLabel(root)};
    case os::DriveType::Remote:
      return DriveLook{kImageNetworkDrive, RemoteDriveLabel(root)};
    case os::DriveType::CdRom:
      return DriveLook{kImageCdRom, "CD-ROM"};
    case os::DriveType::Removable:
      return DriveLook{kImageRemovable, "REMOVABLE"};
    case os::DriveType::RamDisk:
      return DriveLook{kImageRamDisk, "RAMDISK"};
    default:
      return std::nullopt;
  }
}

/// The path entries of a place stand below the network, client drives and drives only.
bool ShowsTrail(int image) {
  return image == kImageNetwork || image == kImageClientDrive || (image >= kImageFixedDrive && image <= kImageRamDisk);
}

bool SameRoot(std::string_view folder, std::string_view root) {
  return folder.size() >= root.size() &&
         shift_jis::ToUpperBytes(folder.substr(0, root.size())) == shift_jis::ToUpperBytes(root);
}

/// Whether the place's path is the folder or one of its parents.
bool Holds(const Place& place, std::string_view folder) {
  if (place.path.empty()) return false;
  const bool drive = place.path.ends_with(":\\");
  const std::string_view root = drive ? std::string_view(place.path).substr(0, 2) : std::string_view(place.path);
  if (!SameRoot(folder, root)) return false;
  return folder.size() == root.size() || root.ends_with("\\") || folder[root.size()] == '\\';
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

int TrailImage(bool network, std::size_t depth) {
  if (!network || depth >= 2) return kImageFolder;
  return depth == 0 ? kImageServer : kImageShare;
}

std::string Joined(const std::string& parent, const std::string& name) {
  return parent.ends_with("\\") && shift_jis::FindLast(parent, '\\') == parent.size() - 1 ? parent + name
                                                                                          : parent + "\\" + name;
}

}  // namespace

void LocationTree::Build(NetworkLogon& logon) {
  fixed_.clear();
  AddFixed(0, kImageDesktop, "", "デスクトップ");
  AddFixed(1, kImageComputer, "", "マイコンピュータ");
  firstDrive_ = kComputer;
  AddDrives();
  AddClientDrives(logon);
  AddNetwork();
  Enter(FirstDrive());
}

void LocationTree::AddFixed(int level, int image, std::string path, std::string text) {
  Place place;
  place.level = level;
  place.image = image;
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
    AddFixed(2, look->image, root, look->label + " (" + letter + ":)");
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
    if (!name.starts_with("\\\\")) continue;
    if (shift_jis::FindLast(name, '\\') == name.size() - 1) name.pop_back();
    AddFixed(2, kImageClientDrive, name, client + " の " + LastNetworkComponent(name));
  }
}

void LocationTree::AddNetwork() {
  network_ = fixed_.size();
  AddFixed(1, kImageNetwork, "\\\\", "マイネットワーク");
  if (!os::Services().network->Present()) return;
  AddFixed(1, kImageEntireNetwork, "\\\\", "ネットワーク全体");
  fixed_.back().index = -1;
  AddFixed(2, kImageNearby, "\\\\", "近くのコンピュータ");
  fixed_.back().index = -1;
}

LocationKind LocationTree::Kind() const {
  if (current_.fixed == kDesktop) return LocationKind::Desktop;
  if (current_.fixed == kComputer) return LocationKind::Computer;
  if (current_.fixed < network_) return LocationKind::Folder;
  const bool container = current_.trail.empty() || current_.trail.back().image <= kImageServer;
  return container ? LocationKind::Network : LocationKind::Folder;
}

std::string LocationTree::Folder() const {
  if (current_.fixed == kDesktop) return os::Services().shell->DesktopFolder().value_or("");
  if (current_.fixed == kComputer || Kind() == LocationKind::Network) return "";
  return current_.trail.empty() ? fixed_[current_.fixed].path : current_.trail.back().path;
}

std::optional<Location> LocationTree::Find(const std::string& folder) const {
  std::optional<std::size_t> holder;
  for (std::size_t i = 0; i <= network_ && !holder; ++i) {
    if (Holds(fixed_[i], folder)) holder = i;
  }
  if (!holder) return std::nullopt;
  Location location;
  location.fixed = *holder;
  const Place& root = fixed_[*holder];
  const bool network = *holder == network_;
  std::string path = root.path;
  for (const std::string& part :
       Components(std::string_view(folder).substr(std::min(root.path.size(), folder.size())))) {
    Place place;
    path = Joined(path, part);
    place.image = TrailImage(network, location.trail.size());
    place.index = -1;
    place.sub = static_cast<int>(location.trail.size()) + 1;
    place.level = root.level + place.sub;
    place.path = path;
    place.text = part;
    location.trail.push_back(std::move(place));
  }
  return location;
}

Location LocationTree::FirstDrive() const { return Location{firstDrive_, {}}; }

Location LocationTree::LocationOfRow(std::size_t row) const {
  const Place& place = rows_[row];
  if (place.sub == 0) {
    const auto isRow = [&](const Place& fixed) { return fixed.image == place.image && fixed.path == place.path; };
    const auto found = std::find_if(fixed_.begin(), fixed_.end(), isRow);
    return Location{static_cast<std::size_t>(std::distance(fixed_.begin(), found)), {}};
  }
  Location location = current_;
  location.trail.resize(static_cast<std::size_t>(place.sub));
  return location;
}

Location LocationTree::Below(const Place& place) const {
  Location location = current_;
  location.trail.push_back(place);
  Place& added = location.trail.back();
  added.index = -1;
  added.sub = static_cast<int>(location.trail.size());
  added.level = fixed_[location.fixed].level + added.sub;
  return location;
}

void LocationTree::Enter(Location location) {
  current_ = std::move(location);
  for (std::size_t i = 0; i < fixed_.size(); ++i) fixed_[i].marked = i == current_.fixed;
  Rebuild();
}

void LocationTree::Rebuild() {
  rows_.clear();
  for (std::size_t i = 0; i < fixed_.size(); ++i) {
    rows_.push_back(fixed_[i]);
    if (i != current_.fixed) continue;
    if (ShowsTrail(fixed_[i].image)) rows_.insert(rows_.end(), current_.trail.begin(), current_.trail.end());
    currentRow_ = rows_.size() - 1;
  }
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

const HistoryRecord& LocationHistory::Back() {
  records_.pop_back();
  return records_.back();
}

}  // namespace filedialog
