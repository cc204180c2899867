// One level of the network: what is enumerated and what is kept.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/keep_going.h"
#include "dlglib/filedialog/basics/reply.h"
#include "dlglib/filedialog/place/network_logon.h"
#include "platform/os/os.h"

namespace filedialog {

/// What an enumeration keeps.
enum class NetworkLevel {
  Children,  ///< everything below the parent, or the providers when there is none
  Servers,   ///< the computers of the own surroundings
};

/// The children of `parent` (null: the top) that the level keeps, in the order the network gives them. Empty when the
/// enumeration cannot be opened or closed. When a parent refuses it for want of rights, the logon runs first and the
/// answer is empty all the same: opening the place again enumerates it. An enumeration that is given up answers what it
/// has found so far.
[[nodiscard]] Reply<std::vector<os::NetResource>> EnumerateNetwork(os::Network& network, NetworkLevel level,
                                                                   const os::NetResource* parent, NetworkLogon& logon,
                                                                   const KeepGoing& keepGoing = {});

/// The record under which the network finds a computer by its name ("\\\\server").
[[nodiscard]] os::NetResource ServerRecord(const std::string& name);

/// Whether `path` names a computer ("\\\\server", perhaps with a "\" at its end) that the network can open, or could
/// after a logon. Computers are no folders, so the file system does not know them.
[[nodiscard]] bool IsServer(os::Network& network, std::string_view path);

/// The last component of a network name: "share" of "\\server\share", the whole name when it has no "\".
[[nodiscard]] std::string LastNetworkComponent(const std::string& name);

}  // namespace filedialog
