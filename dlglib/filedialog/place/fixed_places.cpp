#include "dlglib/filedialog/place/fixed_places.h"

#include <string>
#include <utility>

#include "dlglib/filedialog/basics/patience.h"
#include "dlglib/filedialog/place/client_drives.h"

namespace filedialog {
namespace {

constexpr int kOnDemand = -1;  ///< the index of a place that is shown on demand

Place& Add(int level, EntryKind kind, std::string path, std::string text, FixedPlaces* fixed) {
  Place& place = fixed->places.emplace_back();
  place.level = level;
  place.kind = kind;
  place.index = static_cast<int>(fixed->places.size()) - 1;
  place.path = std::move(path);
  place.text = std::move(text);
  return place;
}

void AddDrives(const DriveNames& drives, FixedPlaces* fixed) {
  for (const NamedDrive& drive : drives.Drives()) {
    if (!drive.look) continue;
    if (fixed->firstDrive == kComputerPlace) fixed->firstDrive = fixed->places.size();
    Add(2, drive.look->kind, drive.root, DriveText(*drive.look, drive.root), fixed);
  }
}

void AddNetwork(os::Network& network, FixedPlaces* fixed) {
  fixed->network = fixed->places.size();
  Add(1, EntryKind::Network, "\\\\", "マイネットワーク", fixed);
  if (!network.Present()) return;
  Add(1, EntryKind::EntireNetwork, "\\\\", "ネットワーク全体", fixed).index = kOnDemand;
  Add(2, EntryKind::NearbyComputers, "\\\\", "近くのコンピュータ", fixed).index = kOnDemand;
}

}  // namespace

Reply<FixedPlaces> ReadFixedPlaces(const os::ServiceTable& services, const DriveNames& drives, NetworkLogon& logon) {
  FixedPlaces fixed;
  Add(0, EntryKind::Desktop, "", "デスクトップ", &fixed);
  Add(1, EntryKind::Computer, "", "マイコンピュータ", &fixed);
  AddDrives(drives, &fixed);
  const auto clientDrives = AnswerOr(Reply<std::vector<ClientDrive>>(std::vector<ClientDrive>()),
                                     [&] { return FindClientDrives(*services.network, *services.session, logon); });
  if (!clientDrives) return std::nullopt;
  for (const ClientDrive& drive : *clientDrives) Add(2, EntryKind::ClientDrive, drive.path, drive.text, &fixed);
  AddNetwork(*services.network, &fixed);
  return fixed;
}

}  // namespace filedialog
