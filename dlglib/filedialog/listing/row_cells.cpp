#include "dlglib/filedialog/listing/row_cells.h"

#include <algorithm>

#include "dlglib/base/path_text.h"
#include "dlglib/filedialog/listing/size_text.h"

namespace filedialog {

namespace {

void AddText(int column, std::string_view text, std::vector<RowCell>* cells) {
  cells->push_back({column, std::string(text), TextAlign::Left, false});
}

void AddDetails(const FileEntry& entry, std::vector<RowCell>* cells) {
  if (entry.kind == EntryKind::File) cells->push_back({1, FileSizeText(entry.sizeKb), TextAlign::Right, true});
  AddText(2, *entry.description, cells);
}

void AddModelTitles(const FileEntry& entry, std::size_t titleCount, std::vector<RowCell>* cells) {
  if (entry.kind != EntryKind::File) {
    if (titleCount > 0) AddText(1, *entry.description, cells);
    return;
  }
  const std::size_t count = std::min(titleCount, entry.titles->size());
  for (std::size_t i = 0; i < count; ++i) AddText(static_cast<int>(i) + 1, (*entry.titles)[i], cells);
}

/// A drive's root, or a client drive's network name, as the platform wants it: with "\" at its end.
std::string SpaceRoot(std::string_view path) { return std::string(WithoutSeparator(path)) + '\\'; }

void AddDriveSpace(os::Drives& drives, const FileEntry& entry, std::vector<RowCell>* cells) {
  if (!IsDrive(entry.kind)) return;
  const auto space = drives.Space(SpaceRoot(entry.path));
  if (!space) return;
  cells->push_back({2, DriveSizeText(space->total), TextAlign::Right, false});
  cells->push_back({3, DriveSizeText(space->free), TextAlign::Right, false});
}

}  // namespace

std::vector<RowCell> CellsOf(os::Drives& drives, const FileEntry& entry, const ShownListing& listing) {
  std::vector<RowCell> cells;
  AddText(0, entry.name, &cells);
  if (listing.mode == ListingMode::Details) {
    AddDetails(entry, &cells);
  } else if (ShowsModelTitles(listing)) {
    AddModelTitles(entry, TitleCount(listing), &cells);
  } else {
    AddText(1, *entry.description, &cells);
  }
  if (listing.mode == ListingMode::Drives) AddDriveSpace(drives, entry, &cells);
  return cells;
}

std::string_view TextOfItem(const FileEntry& entry, int part) {
  switch (part) {
    case 0:
      return entry.name;
    case 1:
      return *entry.description;
    default:
      return {};
  }
}

}  // namespace filedialog
