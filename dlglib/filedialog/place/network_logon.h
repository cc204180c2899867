// Logging on to a place of the network.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dlglib/filedialog/basics/reply.h"
#include "platform/os/os.h"

namespace filedialog {

/// What the user types to be let in, Shift_JIS.
struct Credentials {
  std::string userName;
  std::string password;
};

/// Asks the user for the credentials of a network place.
class NetworkLogon {
 public:
  virtual ~NetworkLogon() = default;
  /// Shows `path` and the user name of the try before. Inner none: the user cancels.
  [[nodiscard]] virtual Reply<std::optional<Credentials>> Ask(const std::string& path, const std::string& userName) = 0;
};

/// Connects to `resource`, asking until the connection succeeds or the user cancels. Answers whether it was made.
[[nodiscard]] Reply<bool> LogOn(os::Network& network, const os::NetResource& resource, const std::string& shownPath,
                                NetworkLogon& logon);

/// LogOn to `selected` before a folder (Shift_JIS) is listed, when it is a network path that cannot be reached.
/// `selected` is the network's record of the place that is chosen in the location bar, null for none: then nothing is
/// asked. Whether or not a connection comes of it, the folder is to be listed next.
[[nodiscard]] Reply<Done> LogOnBeforeListing(os::Files& files, os::Network& network, std::string_view folder,
                                             const os::NetResource* selected, NetworkLogon& logon);

}  // namespace filedialog
