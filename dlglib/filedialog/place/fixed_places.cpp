#include "dlglib/filedialog/place/fixed_places.h"

#include <optional>
#include <string>
#include <utility>

#include "dlglib/filedialog/basics/patience.h"
#include "dlglib/filedialog/place/client_drives.h"
#include "dlglib/filedialog/place/drive_label.h"

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

void AddDrives(const os::ServiceTable& services, FixedPlaces* fixed) {
  const std::uint32_t mask = services.drives->Mask();
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if ((mask >> (letter - 'A') & 1U) == 0) continue;
    const std::string root = std::string(1, letter) + ":\\";
    const auto look = AnswerOr(std::optional(DriveLook{EntryKind::FixedDrive, ""}),
                               [&services, &root] { return LookOf(*services.drives, *services.network, root); });
    if (!look) continue;
    if (fixed->firstDrive == kComputerPlace) fixed->firstDrive = fixed->places.size();
    Add(2, look->kind, root, look->label + " (" + letter + ":)", fixed);
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

Reply<FixedPlaces> ReadFixedPlaces(const os::ServiceTable& services, NetworkLogon& logon) {
  FixedPlaces fixed;
  Add(0, EntryKind::Desktop, "", "デスクトップ", &fixed);
  Add(1, EntryKind::Computer, "", "マイコンピュータ", &fixed);
  AddDrives(services, &fixed);
  const auto clientDrives = AnswerOr(Reply<std::vector<ClientDrive>>(std::vector<ClientDrive>()),
                                     [&] { return FindClientDrives(*services.network, *services.session, logon); });
  if (!clientDrives) return std::nullopt;
  for (const ClientDrive& drive : *clientDrives) Add(2, EntryKind::ClientDrive, drive.path, drive.text, &fixed);
  AddNetwork(*services.network, &fixed);
  return fixed;
}

}  // namespace filedialog
