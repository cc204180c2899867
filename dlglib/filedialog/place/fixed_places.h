// The fixed places of the location bar: desktop, computer, drives, network.
#pragma once

#include <cstddef>
#include <vector>

#include "dlglib/filedialog/basics/reply.h"
#include "dlglib/filedialog/place/drive_names.h"
#include "dlglib/filedialog/place/network_logon.h"
#include "dlglib/filedialog/place/place.h"
#include "platform/os/os.h"

namespace filedialog {

inline constexpr std::size_t kDesktopPlace = 0;
inline constexpr std::size_t kComputerPlace = 1;

struct FixedPlaces {
  std::vector<Place> places;
  std::size_t firstDrive = kComputerPlace;  ///< its position; the computer's on a machine without drives
  std::size_t network = 0;                  ///< position of the network; what stands below it follows
};

/// Reads the fixed places from the machine: the drives, as far as they are known by now, the client drives of a remote
/// session, the network. `logon` is asked when the network refuses to list the client drives, before anything is shown.
[[nodiscard]] Reply<FixedPlaces> ReadFixedPlaces(const os::ServiceTable& services, const DriveNames& drives,
                                                 NetworkLogon& logon);

}  // namespace filedialog
