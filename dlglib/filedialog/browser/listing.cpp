#include "dlglib/filedialog/browser/listing.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/base/path_text.h"
#include "dlglib/filedialog/listing/entry_description.h"
#include "dlglib/filedialog/listing/entry_place.h"
#include "dlglib/filedialog/listing/folder_listing.h"
#include "dlglib/filedialog/listing/network_listing.h"
#include "dlglib/filedialog/names/folder_operations.h"
#include "dlglib/filedialog/place/network_logon.h"

namespace filedialog {

namespace {

/// A folder's listing, which owns what it touches: it may go on when nobody waits for it any more.
class FolderWork {
 public:
  FolderWork(const Journey& journey, const os::ServiceTable& services)
      : services_(services),
        folder_(journey.Folder()),
        kind_(journey.Kind()),
        search_{folder_, kind_, journey.FolderFixed() ? FinderMode::Files : FinderMode::FilesAndFolders},
        isDesktop_(journey.Places().Kind() == LocationKind::Desktop) {}
  FolderWork(const FolderWork&) = delete;
  FolderWork& operator=(const FolderWork&) = delete;
  ~FolderWork() = default;

  void List(const KeepGoing& keepGoing) {
    if (isDesktop_) {
      ListDesktop(services_, search_, &found_, keepGoing, &gate_);
    } else {
      ListFolder(*services_.files, search_, &found_.table, keepGoing, &gate_);
    }
  }
  /// Whether it lists where the browser stands.
  [[nodiscard]] bool IsOf(const Journey& journey) const { return folder_ == journey.Folder(); }
  [[nodiscard]] bool IsLeft() const { return gate_.isClosed; }
  /// No row is added from now on.
  void Leave() {
    const std::lock_guard<os::Lock> held(gate_.lock);
    gate_.isClosed = true;
  }
  [[nodiscard]] std::size_t Count() const { return gate_.count; }
  /// The rows so far. None is added any more.
  [[nodiscard]] EntryTable Take() {
    const std::lock_guard<os::Lock> held(gate_.lock);
    gate_.isClosed = true;
    if (isDesktop_) FitShortcuts(kind_.pattern, &found_);
    return std::move(found_.table);
  }

 private:
  const os::ServiceTable& services_;
  std::string folder_;
  FileKind kind_;
  FolderSearch search_;
  bool isDesktop_;
  DesktopRows found_;
  RowGate gate_;
};

/// What sorts of one folder have in common: where one hangs, the next one would hang at the same row.
std::string SortPath(const RowDescriptions& rows) {
  const std::string_view path = rows.FirstPath();
  return std::string(path.substr(0, path.size() - NamePart(path).size())) + "*";
}

}  // namespace

/// A folder's listing on its way.
class Listing::Begun {
 public:
  Begun(const PatientServices& machine, const Journey& journey, const KeepGoing& keepGoing)
      : work_(std::make_shared<FolderWork>(journey, machine.Plain())),
        asked_(machine.Waits().Begin(
            {journey.Folder(),
             [work = work_, onWorker = machine.Waits().Workers() != nullptr, keepGoing] {
               work->List(onWorker ? KeepGoing([&work] { return !work->IsLeft(); }) : keepGoing);
             },
             [work = work_] { return work->Count(); }, Question::kReading, [work = work_] { work->Leave(); }})) {}

  [[nodiscard]] bool IsOf(const Journey& journey) const { return work_->IsOf(journey); }
  /// False when it was given up. The rows so far are there in any case.
  [[nodiscard]] bool Wait(Patience& patience, EntryTable* table) {
    bool answered = false;
    DoBoth([&] { answered = patience.WaitForPart(std::move(asked_)); }, [&] { *table = work_->Take(); });
    return answered;
  }

 private:
  std::shared_ptr<FolderWork> work_;
  Patience::Begun asked_;
};

Listing::Listing(const PatientServices& machine) : machine_(machine) {}

Listing::~Listing() = default;

void Listing::Begin(const Journey& journey) {
  const bool isFolder = journey.Places().Kind() == LocationKind::Folder;
  if (isFolder && machine_.Waits().Workers() != nullptr)
    begun_ = std::make_unique<Begun>(machine_, journey, KeepGoing{});
}

void Listing::Announce(const Journey& journey, ViewMode view) { now_.mode = ModeAt(journey, view); }

ListingMode Listing::ModeAt(const Journey& journey, ViewMode view) {
  switch (journey.Places().Kind()) {
    case LocationKind::Computer:
      return ListingMode::Drives;
    case LocationKind::Network:
      return ListingMode::Network;
    case LocationKind::Desktop:
    case LocationKind::Folder:
      break;
  }
  return view == ViewMode::Titles ? ListingMode::Titles : ListingMode::Details;
}

/// The rows of before are there until others are: a wait that is given up with nothing found changes nothing. Any other
/// failure shows what it has found.
Reply<Done> Listing::Fill(const Journey& journey, ViewMode view, NetworkLogon& logon, const KeepGoing& keepGoing) {
  running_ = true;
  const AtScopeEnd over([this] { running_ = false; });
  Contents next;
  Reply<Done> filled;
  try {
    filled = Collect(journey, view, {logon, keepGoing}, &next);
  } catch (const WaitEnded&) {
    throw;
  } catch (...) {
    now_ = std::move(next);
    throw;
  }
  if (filled) now_ = std::move(next);
  return filled;
}

Reply<Done> Listing::Collect(const Journey& journey, ViewMode view, const Asks& asks, Contents* next) {
  next->mode = ModeAt(journey, view);
  if (next->mode == ListingMode::Network) return FillByNetwork(journey, asks, next);
  if (next->mode != ListingMode::Drives) return FillByFolder(journey, asks, next);
  ListDrives(journey.Places(), &next->table);
  return Done{};
}

Reply<Done> Listing::FillByNetwork(const Journey& journey, const Asks& asks, Contents* next) const {
  auto places = NetworkPlaces(*machine_.Table().network, journey.Places(), asks.logon, asks.keepGoing);
  if (!places) return std::nullopt;
  next->networkPlaces = std::move(*places);
  ListPlaces(next->networkPlaces, &next->table);
  return Done{};
}

Reply<Done> Listing::FillByFolder(const Journey& journey, const Asks& asks, Contents* next) {
  const LocationTree& places = journey.Places();
  const os::ServiceTable& services = machine_.Table();
  const bool mayWantLogon = places.Kind() == LocationKind::Folder;
  if (mayWantLogon &&
      !LogOnBeforeListing(*services.files, *services.network, places.Folder(), places.Resource(), asks.logon)) {
    return std::nullopt;
  }
  DoBoth([&] { ListRows(journey, asks.keepGoing, &next->table); }, [next] { Sort(&next->table, next->order); });
  return Done{};
}

/// Given up with rows there, these are the listing.
void Listing::ListRows(const Journey& journey, const KeepGoing& keepGoing, EntryTable* table) {
  try {
    const bool answered = BegunAt(journey, keepGoing).Wait(machine_.Waits(), table);
    if (!answered && table->size() == 0) throw WaitEnded{};
  } catch (const WaitEnded&) {
    table->Clear();  // nobody will see them: they need no order
    throw;
  }
}

/// What was begun beforehand serves once, and only where it was begun.
Listing::Begun Listing::BegunAt(const Journey& journey, const KeepGoing& keepGoing) {
  const std::unique_ptr<Begun> before = std::move(begun_);
  if (before != nullptr && before->IsOf(journey)) return std::move(*before);
  return {machine_, journey, keepGoing};
}

const FileEntry* Listing::Row(int row) const {
  const bool known = row >= 0 && static_cast<std::size_t>(row) < now_.table.size();
  return known ? &now_.table.rows()[static_cast<std::size_t>(row)] : nullptr;
}

HeaderClick Listing::Click(int column, const LayoutRecord& layout) const {
  HeaderState state;
  state.view = layout.view;
  state.listing = now_.mode;
  state.order = now_.order;
  state.slowSort = layout.slowSort;
  state.slowSortAgreed = now_.slowSortAgreed;
  state.entryCount = now_.table.size();
  return DecideHeaderClick(state, column);
}

bool Listing::SortBy(const SortOrder& order, const ShownListing& shown, const KeepGoing& keepGoing) {
  if (order.key != kSortName && !DescribeRows(shown, keepGoing)) return false;
  Sort(&now_.table, order);
  now_.order = order;
  return true;
}

/// What was found out stays so, also when it was given up.
bool Listing::DescribeRows(const ShownListing& shown, const KeepGoing& keepGoing) {
  Patience& patience = machine_.Waits();
  const auto work = std::make_shared<RowDescriptions>(now_.table, shown);
  const auto whole = std::make_shared<std::atomic<bool>>(false);
  const auto find = [work, whole, files = machine_.Plain().files, onWorker = patience.Workers() != nullptr, keepGoing] {
    *whole = work->FindOut(*files, onWorker ? KeepGoing{} : keepGoing);
  };
  bool answered = false;
  DoBoth(
      [&] {
        answered = patience.AskForPart(
            {SortPath(*work), find, [work] { return work->Count(); }, Question::kReading, [work] { work->Leave(); }});
      },
      [&] {
        work->Leave();
        work->Tell(&now_.table);
      });
  return answered && *whole;
}

void Listing::MarkSelected(std::span<const int> rows) {
  for (FileEntry& entry : now_.table.rows()) entry.selected = false;
  for (const int row : rows) now_.table.rows()[static_cast<std::size_t>(row)].selected = true;
}

std::optional<std::size_t> Listing::MarkNamed(std::string_view name) {
  const auto row = FindRowNamed(now_.table.rows(), name);
  if (row) now_.table.rows()[*row].selected = true;
  return row;
}

std::optional<Location> Listing::Opened(const FileEntry& entry, const LocationTree& places) const {
  return LocationOfEntry(*machine_.Table().files, places, entry, now_.networkPlaces);
}

}  // namespace filedialog
