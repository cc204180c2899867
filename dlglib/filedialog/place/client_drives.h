// The drives of the client in a remote session.
#pragma once

#include <string>
#include <vector>

#include "dlglib/filedialog/basics/reply.h"
#include "dlglib/filedialog/place/network_logon.h"
#include "platform/os/os.h"

namespace filedialog {

struct ClientDrive {
  std::string path;  ///< network name without a "\\" at its end
  std::string text;  ///< Shift_JIS
};

/// Looks in every session, as only the network knows of them; `logon` is asked when it refuses to list them.
[[nodiscard]] Reply<std::vector<ClientDrive>> FindClientDrives(os::Network& network, os::Session& session,
                                                               NetworkLogon& logon);

}  // namespace filedialog
