#include "dlglib/filedialog/place/drive_label.h"

#include <algorithm>

#include "dlglib/base/shift_jis.h"

namespace filedialog {
namespace {

std::string FixedDriveLabel(os::Drives& drives, const std::string& root) {
  const std::string name = drives.VolumeName(root).value_or("");
  return name.empty() ? "LOCAL DRIVE" : name;
}

/// 'server' の share, from the drive's universal name.
std::string RemoteDriveLabel(os::Network& network, const std::string& root) {
  const std::string name = network.UniversalName(root).value_or("");
  if (!name.starts_with("\\\\")) return "Unknown";
  const std::size_t serverEnd = shift_jis::FindFirst(name, '\\', 2);
  const std::string server = name.substr(2, serverEnd == shift_jis::kNone ? serverEnd : serverEnd - 2);
  std::string share = serverEnd == shift_jis::kNone ? "" : name.substr(serverEnd + 1);
  share.resize(std::min(share.size(), shift_jis::FindFirst(share, '\\')));
  return "'" + server + "' の " + share;
}

}  // namespace

std::optional<DriveLook> LookOf(os::Drives& drives, os::Network& network, const std::string& root) {
  switch (drives.Type(root)) {
    case os::DriveType::Fixed:
      return DriveLook{EntryKind::FixedDrive, FixedDriveLabel(drives, root)};
    case os::DriveType::Remote:
      return DriveLook{EntryKind::NetworkDrive, RemoteDriveLabel(network, root)};
    case os::DriveType::CdRom:
      return DriveLook{EntryKind::CdRomDrive, "CD-ROM"};
    case os::DriveType::Removable:
      return DriveLook{EntryKind::RemovableDrive, "REMOVABLE"};
    case os::DriveType::RamDisk:
      return DriveLook{EntryKind::RamDisk, "RAMDISK"};
    default:
      return std::nullopt;
  }
}

}  // namespace filedialog
