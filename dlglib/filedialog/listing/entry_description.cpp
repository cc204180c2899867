#include "dlglib/filedialog/listing/entry_description.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "dlglib/base/encoder.h"
#include "dlglib/base/path_text.h"
#include "dlglib/filedialog/listing/size_text.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncui.h"

namespace filedialog {

namespace {

constexpr std::size_t kSingleTitleLimit = 256;

const char* DriveText(EntryKind kind) {
  switch (kind) {
    case EntryKind::ClientDrive:
      return "クライアントドライブ";
    case EntryKind::FixedDrive:
      return "ローカルドライブ";
    case EntryKind::NetworkDrive:
      return "ネットワークドライブ";
    case EntryKind::CdRomDrive:
      return "CD-ROM";
    case EntryKind::RemovableDrive:
      return "リムーバブルドライブ";
    default:
      return "RAM-DISK";
  }
}

void DescribeByDate(os::Files& files, FileEntry* entry) {
  entry->sizeKb = 0;
  entry->description.clear();
  const auto status = files.Status(FolderPath(entry->path));
  if (!status) return;
  entry->sizeKb = SizeKb(status->size);
  if (const auto local = files.LocalTime(status->modified)) entry->description = DateText(*local);
}

void DescribeByModelTitles(FileEntry* entry, const ShownListing& listing) {
  entry->titles.clear();
  entry->description.clear();
  const std::size_t count = TitleCount(listing);
  if (count == 0) return;
  std::array<int, kTitleSlots> numbers{};
  std::copy(listing.titles.items.begin(), listing.titles.items.end(), numbers.begin());
  std::array<std::string, kTitleSlots> texts;
  const EucText internal = encoder::ToInternalPath(SjisText(std::string(entry->path)));
  const std::string path = CwFile::ToFullPath("#MODEL#", internal.bytes(), true, false);
  const bool failed = GetFilTtl(path, numbers.data(), static_cast<int>(count), texts.data()) != 0;
  if (failed) texts = {};
  for (std::size_t i = 0; i < count; ++i) {
    entry->titles.push_back(encoder::ToSjis(EucText(std::move(texts[i])), kTitleLimit).bytes());
  }
  entry->description = entry->titles.front();
}

void DescribeBySingleTitle(FileEntry* entry, int titleClass) {
  std::string title;
  const EucText path = encoder::ToInternalPath(SjisText(std::string(entry->path)));
  if (GetFilTtl(titleClass, path.bytes(), &title) != 0) title.clear();
  entry->description = encoder::ToSjis(EucText(std::move(title)), kSingleTitleLimit).bytes();
}

void DescribeFile(os::Files& files, FileEntry* entry, const ShownListing& listing) {
  if (ShowsModelTitles(listing)) {
    DescribeByModelTitles(entry, listing);
  } else if (listing.mode == ListingMode::Titles && HasSingleTitle(listing.titleClass)) {
    DescribeBySingleTitle(entry, listing.titleClass);
  } else {
    DescribeByDate(files, entry);
  }
}

void DescribeFolder(os::Files& files, FileEntry* entry, ListingMode mode) {
  if (mode == ListingMode::Titles) {
    entry->description.clear();
  } else {
    DescribeByDate(files, entry);
  }
}

}  // namespace

void Describe(os::Files& files, FileEntry* entry, const ShownListing& listing) {
  const bool known = IsFile(entry->kind) && entry->described;
  if (known) return;
  if (IsFile(entry->kind)) {
    DescribeFile(files, entry, listing);
  } else if (IsDrive(entry->kind)) {
    entry->description = DriveText(entry->kind);
  } else if (!IsNetworkPlace(entry->kind)) {
    DescribeFolder(files, entry, listing.mode);
  }
  entry->described = true;
}

bool DescribeAll(os::Files& files, EntryTable* table, const ShownListing& listing, const KeepGoing& keepGoing) {
  for (FileEntry& row : table->rows()) {
    if (row.described) continue;
    Describe(files, &row, listing);
    if (!GoesOn(keepGoing)) return false;
  }
  return true;
}

}  // namespace filedialog
