#include "dlglib/filedialog/listing/network_listing.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"

namespace filedialog {
namespace {

constexpr std::uint32_t kUsageContainer = 2;

EntryKind KindOf(const os::NetResource& record) {
  switch (record.displayType) {
    case os::kNetDisplayRoot:
      return EntryKind::EntireNetwork;
    case os::kNetDisplayNetwork:
      return EntryKind::NetworkProvider;
    case os::kNetDisplayServer:
      return EntryKind::NetworkServer;
    case os::kNetDisplayShare:
      return EntryKind::NetworkShare;
    default:
      return (record.usage & kUsageContainer) != 0 || record.displayType == os::kNetDisplayDomain
                 ? EntryKind::NetworkDomain
                 : EntryKind::NetworkShare;
  }
}

/// The first of the texts that says something.
std::string FirstText(const std::optional<std::string>& first, const std::optional<std::string>& second) {
  return first && !first->empty() ? *first : second.value_or("");
}

std::optional<Place> PlaceOf(os::NetResource record) {
  Place place;
  place.path = WithoutSeparator(FirstText(record.remoteName, record.provider));
  place.text = LastNetworkComponent(place.path);
  if (place.text.empty() || place.path.size() > kPathLimit) return std::nullopt;
  place.kind = KindOf(record);
  place.index = -1;
  place.resource = std::make_shared<const os::NetResource>(std::move(record));
  return place;
}

Reply<std::vector<Place>> PlacesOf(Reply<std::vector<os::NetResource>> records) {
  if (!records) return std::nullopt;
  std::vector<Place> places;
  for (os::NetResource& record : *records) {
    if (auto place = PlaceOf(std::move(record))) places.push_back(std::move(*place));
  }
  return places;
}

std::vector<Place> FixedPlacesBelowNetwork(const LocationTree& tree) {
  const auto first = static_cast<std::ptrdiff_t>(tree.network()) + 1;
  return {tree.fixed().begin() + first, tree.fixed().end()};
}

/// A computer that was typed has no record of its own.
os::NetResource RecordOf(const Place& place) { return place.resource ? *place.resource : ServerRecord(place.path); }

}  // namespace

Reply<std::vector<Place>> NetworkPlaces(os::Network& network, const LocationTree& tree, NetworkLogon& logon,
                                        const KeepGoing& keepGoing) {
  if (tree.Kind() != LocationKind::Network) return std::vector<Place>();
  const Location& at = tree.current();
  if (!at.trail.empty()) {
    const os::NetResource parent = RecordOf(at.trail.back());
    return PlacesOf(EnumerateNetwork(network, NetworkLevel::Children, &parent, logon, keepGoing));
  }
  if (at.fixed == tree.network()) return FixedPlacesBelowNetwork(tree);
  const bool nearby = tree.fixed()[at.fixed].kind == EntryKind::NearbyComputers;
  const NetworkLevel level = nearby ? NetworkLevel::Servers : NetworkLevel::Children;
  return PlacesOf(EnumerateNetwork(network, level, nullptr, logon, keepGoing));
}

void ListPlaces(const std::vector<Place>& places, EntryTable* table) {
  table->Clear(places.size());
  for (std::size_t i = 0; i < places.size(); ++i) {
    const Place& place = places[i];
    FileEntry& row = table->Add(place.kind, place.path, place.text, false);
    row.net = static_cast<std::int32_t>(i);
    const std::string comment = place.resource ? place.resource->comment.value_or("") : std::string();
    row.description = std::string(shift_jis::Truncate(comment, kDescriptionLimit));
  }
}

}  // namespace filedialog
