// The kinds of rows of the file list, and how long its texts may be.
#pragma once

#include <cstddef>

namespace filedialog {

/// What a row is. The numbers are part of the design: they are the index of the row's icon in the list's image lists,
/// and smaller numbers come first in every order.
enum class EntryKind : int {
  EntireNetwork = 3,    ///< all networks; container
  NetworkProvider = 4,  ///< a network, for example a vendor's; container
  NetworkDomain = 5,    ///< a domain or workgroup; container
  NearbyComputers = 6,  ///< the computers of the own workgroup; container
  NetworkServer = 7,    ///< a computer; container
  NetworkShare = 8,     ///< a shared folder of a computer
  ClientDrive = 9,
  FixedDrive = 11,
  NetworkDrive = 12,
  CdRomDrive = 13,
  RemovableDrive = 14,
  RamDisk = 15,
  FolderShortcut = 16,
  Folder = 17,
  FileShortcut = 18,
  File = 19,
};

[[nodiscard]] constexpr bool IsDrive(EntryKind kind) {
  return kind >= EntryKind::ClientDrive && kind <= EntryKind::RamDisk;
}
[[nodiscard]] constexpr bool IsNetworkPlace(EntryKind kind) { return kind <= EntryKind::NetworkShare; }
[[nodiscard]] constexpr bool IsFile(EntryKind kind) {
  return kind == EntryKind::FileShortcut || kind == EntryKind::File;
}

/// Which listing the list shows; decides the columns and what the second column says.
enum class ListingMode : int { Details = 0, Titles = 1, Network = 2, Drives = 3 };

/// Limits of the texts of a row, in bytes of Shift_JIS without the terminator.
inline constexpr std::size_t kPathLimit = 256;
inline constexpr std::size_t kNameLimit = 127;
inline constexpr std::size_t kSortKeyLimit = 127;
inline constexpr std::size_t kDescriptionLimit = 259;
inline constexpr std::size_t kTitleLimit = 64;
inline constexpr std::size_t kTitleSlots = 4;

}  // namespace filedialog
