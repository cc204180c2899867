#include "dlglib/filedialog/browser/listing.h"

#include <utility>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/filedialog/listing/entry_description.h"
#include "dlglib/filedialog/listing/entry_place.h"
#include "dlglib/filedialog/listing/folder_listing.h"
#include "dlglib/filedialog/listing/network_listing.h"
#include "dlglib/filedialog/names/folder_operations.h"
#include "dlglib/filedialog/place/network_logon.h"

namespace filedialog {

namespace {

constexpr std::size_t kUsualEntries = 20000;

}  // namespace

Listing::Listing(const os::ServiceTable& services) : services_(services) { table_.Clear(kUsualEntries); }

/// Nothing of the former listing is left to be acted on in the new place.
Reply<Done> Listing::Fill(const Journey& journey, ViewMode view, NetworkLogon& logon, const KeepGoing& keepGoing) {
  running_ = true;
  const AtScopeEnd over([this] { running_ = false; });
  slowSortAgreed_ = false;
  order_ = SortOrder{};
  table_.Clear();
  networkPlaces_.clear();
  switch (journey.Places().Kind()) {
    case LocationKind::Computer:
      mode_ = ListingMode::Drives;
      ListDrives(journey.Places(), &table_);
      return Done{};
    case LocationKind::Network:
      mode_ = ListingMode::Network;
      return FillByNetwork(journey, logon, keepGoing);
    case LocationKind::Desktop:
    case LocationKind::Folder:
      break;
  }
  mode_ = view == ViewMode::Titles ? ListingMode::Titles : ListingMode::Details;
  return FillByFolder(journey, logon, keepGoing);
}

Reply<Done> Listing::FillByNetwork(const Journey& journey, NetworkLogon& logon, const KeepGoing& keepGoing) {
  auto places = NetworkPlaces(*services_.network, journey.Places(), logon, keepGoing);
  if (!places) return std::nullopt;
  networkPlaces_ = std::move(*places);
  ListPlaces(networkPlaces_, &table_);
  return Done{};
}

Reply<Done> Listing::FillByFolder(const Journey& journey, NetworkLogon& logon, const KeepGoing& keepGoing) {
  const LocationTree& places = journey.Places();
  const bool mayWantLogon = places.Kind() == LocationKind::Folder;
  if (mayWantLogon &&
      !LogOnBeforeListing(*services_.files, *services_.network, places.Folder(), places.Resource(), logon)) {
    return std::nullopt;
  }
  DoBoth([&] { ListRows(journey, keepGoing); }, [this] { Sort(&table_, order_); });
  return Done{};
}

void Listing::ListRows(const Journey& journey, const KeepGoing& keepGoing) {
  const std::string folder = journey.Folder();
  const FinderMode finder = journey.FolderFixed() ? FinderMode::Files : FinderMode::FilesAndFolders;
  const FolderSearch search{folder, journey.Kind(), finder};
  if (journey.Places().Kind() == LocationKind::Desktop) {
    ListDesktop(services_, search, &table_, keepGoing);
  } else {
    ListFolder(search, &table_, keepGoing);
  }
}

const FileEntry* Listing::Row(int row) const {
  const bool known = row >= 0 && static_cast<std::size_t>(row) < table_.size();
  return known ? &table_.rows()[static_cast<std::size_t>(row)] : nullptr;
}

HeaderClick Listing::Click(int column, const LayoutRecord& layout) const {
  HeaderState state;
  state.view = layout.view;
  state.listing = mode_;
  state.order = order_;
  state.slowSort = layout.slowSort;
  state.slowSortAgreed = slowSortAgreed_;
  state.entryCount = table_.size();
  return DecideHeaderClick(state, column);
}

bool Listing::SortBy(const SortOrder& order, const ShownListing& shown, const KeepGoing& keepGoing) {
  if (order.key != kSortName && !DescribeAll(*services_.files, &table_, shown, keepGoing)) return false;
  Sort(&table_, order);
  order_ = order;
  return true;
}

void Listing::MarkSelected(std::span<const int> rows) {
  for (FileEntry& entry : table_.rows()) entry.selected = false;
  for (const int row : rows) table_.rows()[static_cast<std::size_t>(row)].selected = true;
}

std::optional<std::size_t> Listing::MarkNamed(std::string_view name) {
  const auto row = FindRowNamed(table_.rows(), name);
  if (row) table_.rows()[*row].selected = true;
  return row;
}

std::optional<Location> Listing::Opened(const FileEntry& entry, const LocationTree& places) const {
  return LocationOfEntry(*services_.files, places, entry, networkPlaces_);
}

}  // namespace filedialog
