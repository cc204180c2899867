// The logon that comes before a network folder is listed.
#pragma once

#include <string_view>

#include "dlglib/filedialog/place/network_level.h"
#include "platform/os/os.h"

namespace filedialog {

/// Asks for credentials and connects to `selected` until that succeeds or the user cancels, when `folder` (Shift_JIS)
/// is a network path that cannot be reached. `selected` is the network's record of the place that is chosen in the
/// location bar, null for none: then nothing is asked. Whatever comes of it, the folder is to be listed next.
void LogOnBeforeListing(std::string_view folder, const os::NetResource* selected, NetworkLogon& logon);

}  // namespace filedialog
