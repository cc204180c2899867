// The kinds of places and of rows of the file list, and how long its texts may be.
#pragma once

#include <cstddef>

namespace filedialog {

/// What a place of the location bar or a row of the list is. The numbers are part of the design: smaller ones come
/// first in every order, and in the image lists of the list each kind's icon stands at its number.
enum class EntryKind : int {
  Desktop = 0,
  Computer = 1,
  Network = 2,          ///< where the networks begin
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
[[nodiscard]] constexpr bool IsNetworkPlace(EntryKind kind) {
  return kind >= EntryKind::Network && kind <= EntryKind::NetworkShare;
}
/// Network places that are no folders.
[[nodiscard]] constexpr bool IsNetworkContainer(EntryKind kind) {
  return IsNetworkPlace(kind) && kind != EntryKind::NetworkShare;
}
[[nodiscard]] constexpr bool IsFile(EntryKind kind) {
  return kind == EntryKind::FileShortcut || kind == EntryKind::File;
}

/// The place of a kind among the kinds, from 0 on.
[[nodiscard]] constexpr int NumberOf(EntryKind kind) { return static_cast<int>(kind); }

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
