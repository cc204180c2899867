// One level of the network: what is enumerated, what is kept, and the logon before it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/keep_going.h"
#include "platform/os/os.h"

namespace filedialog {

/// Asks the user for the credentials of a network place. The browser implements it with its logon dialog.
class NetworkLogon {
 public:
  virtual ~NetworkLogon() = default;
  /// Shows `path` and fills in what the user typed (Shift_JIS); false when the user cancels.
  [[nodiscard]] virtual bool Ask(const std::string& path, std::string* userName, std::string* password) = 0;
};

/// Connects to `resource`, asking until the connection succeeds or the user cancels. Answers whether it was made.
bool LogOn(const os::NetResource& resource, const std::string& shownPath, NetworkLogon& logon);

/// Levels of an enumeration by what they keep.
inline constexpr int kNetLevelChildren = 0;  ///< everything below the parent, or the providers when there is none
inline constexpr int kNetLevelRoots = 1;     ///< the roots of the own surroundings
inline constexpr int kNetLevelServers = 2;   ///< the computers of the own surroundings

/// The children of `parent` (null: the top) that the level keeps, in the order the network gives them. Empty when the
/// enumeration cannot be opened or closed. When a parent refuses it for want of rights, the logon runs first and the
/// answer is empty all the same: opening the place again enumerates it. An enumeration that is given up answers what it
/// has found so far.
[[nodiscard]] std::vector<os::NetResource> EnumerateNetwork(int level, const os::NetResource* parent,
                                                            NetworkLogon& logon, const KeepGoing& keepGoing = {});

/// The record under which the network finds a computer by its name ("\\\\server").
[[nodiscard]] os::NetResource ServerRecord(const std::string& name);

/// Whether `path` names a computer ("\\\\server", perhaps with a "\" at its end) that the network can open, or could
/// after a logon. Computers are no folders, so the file system does not know them.
[[nodiscard]] bool IsServer(std::string_view path);

/// The last component of a network name: "share" of "\\server\share", the whole name when it has no "\".
[[nodiscard]] std::string LastNetworkComponent(const std::string& name);

}  // namespace filedialog
