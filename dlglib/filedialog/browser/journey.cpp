#include "dlglib/filedialog/browser/journey.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "dlglib/filedialog/basics/patience.h"
#include "dlglib/filedialog/names/folder_operations.h"
#include "dlglib/filedialog/place/start_location.h"

namespace filedialog {

Reply<Done> Journey::ReadPlaces(const DriveNames& drives, NetworkLogon& logon) {
  auto fixed = ReadFixedPlaces(services_, drives, logon);
  if (!fixed) return std::nullopt;
  places_.Build(std::move(*fixed));
  return Done{};
}

void Journey::StandAtStart(std::string_view initialFolder) {
  places_.Enter(StartLocation(*services_.files, places_, initialFolder));
}

void Journey::Enter(Location location, const std::string& name) {
  places_.Enter(std::move(location));
  if (!history_.EndsAt(places_.current(), kind_.pattern, kind_.extension)) Record(name);
}

void Journey::Record(const std::string& name) {
  if (folderFixed_) return;
  history_.Record({places_.current(), name, kind_.pattern, kind_.extension});
}

void Journey::UsePattern(const PatternChange& change) {
  if (change.pattern) kind_.pattern = *change.pattern;
  if (change.extension) kind_.extension = *change.extension;
}

std::optional<Location> Journey::Above() const {
  if (folderFixed_) return std::nullopt;
  const auto row = places_.RowAbove();
  return row ? std::optional(places_.LocationOfRow(*row)) : std::nullopt;
}

std::vector<Location> Journey::Instead() const {
  std::vector<Location> instead;
  if (folderFixed_) return instead;
  const std::vector<std::size_t> above = places_.FolderRowsAbove();
  const auto silent = std::ranges::find_if_not(above, [this](std::size_t row) { return Answers(row); });
  if (silent != above.begin()) instead.push_back(places_.LocationOfRow(*std::prev(silent)));
  if (silent - above.begin() > 1) instead.push_back(places_.LocationOfRow(above.front()));
  const std::size_t device = above.empty() ? places_.currentRow() : above.front();
  for (auto row = places_.RowAbove(device); row; row = places_.RowAbove(*row)) {
    instead.push_back(places_.LocationOfRow(*row));
  }
  return instead;
}

bool Journey::Answers(std::size_t row) const {
  return AnswerOr(false, [&] { return IsFolder(*services_.files, places_.rows()[row].path); });
}

std::optional<std::string> Journey::Back() {
  if (!history_.CanGoBack()) return std::nullopt;
  const HistoryRecord& record = history_.Back();
  UsePattern({record.pattern, record.extension});
  places_.Enter(record.location);
  return record.name;
}

void Journey::PutBack(State state) {
  kind_ = std::move(state.kind);
  places_ = std::move(state.places);
  history_ = std::move(state.history);
}

Ways Journey::OpenWays() const {
  Ways ways;
  ways.up = places_.currentRow() != 0 && !folderFixed_;
  ways.back = history_.CanGoBack();
  ways.newFolder = CanCreateFolder(Folder());
  return ways;
}

bool Journey::CanOpen(const Location& location) const {
  if (location.trail.empty() || location.trail.back().kind != EntryKind::Folder) return true;
  return services_.files->Exists(location.trail.back().path);
}

}  // namespace filedialog
