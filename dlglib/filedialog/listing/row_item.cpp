#include "dlglib/filedialog/listing/row_item.h"

#include <functional>

namespace filedialog {

const char* KindText(EntryKind kind) {
  switch (kind) {
    case EntryKind::Desktop:
      return "デスクトップ";
    case EntryKind::Computer:
      return "コンピュータ";
    case EntryKind::Network:
    case EntryKind::EntireNetwork:
    case EntryKind::NetworkProvider:
    case EntryKind::NetworkDomain:
    case EntryKind::NearbyComputers:
      return "ネットワーク";
    case EntryKind::NetworkServer:
      return "ネットワークのコンピュータ";
    case EntryKind::NetworkShare:
      return "共有フォルダ";
    case EntryKind::ClientDrive:
    case EntryKind::FixedDrive:
    case EntryKind::NetworkDrive:
    case EntryKind::CdRomDrive:
    case EntryKind::RemovableDrive:
    case EntryKind::RamDisk:
      return "ドライブ";
    case EntryKind::FolderShortcut:
      return "フォルダへのショートカット";
    case EntryKind::Folder:
      return "フォルダ";
    case EntryKind::FileShortcut:
      return "ショートカット";
    case EntryKind::File:
      break;
  }
  return "ファイル";
}

std::uint64_t IdentityOf(EntryKind kind, std::string_view path, std::string_view name) {
  constexpr std::uint64_t kFactor = 31;
  return std::hash<std::string_view>{}(path.empty() ? name : path) * kFactor + static_cast<std::uint64_t>(kind);
}

accessible::Item RowItem(os::Drives& drives, const FileEntry& entry, const ShownListing& listing,
                         const std::vector<std::string>& titles) {
  accessible::Item item;
  item.name = entry.name;
  item.description = KindText(entry.kind);
  item.action = "開く";
  item.role = accessible::Role::ListItem;
  if (titles.empty() || !entry.described) return item;
  for (const RowCell& cell : CellsOf(drives, entry, listing)) {
    const auto column = static_cast<std::size_t>(cell.column);
    const std::size_t begin = cell.text.find_first_not_of(' ');
    if (column == 0 || column >= titles.size() || begin == std::string::npos) continue;
    item.description += "、" + titles[column] + " " + cell.text.substr(begin);
  }
  return item;
}

}  // namespace filedialog
