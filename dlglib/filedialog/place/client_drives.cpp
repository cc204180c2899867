#include "dlglib/filedialog/place/client_drives.h"

#include "dlglib/base/path_text.h"
#include "dlglib/filedialog/basics/entry_kind.h"
#include "dlglib/filedialog/place/network_level.h"

namespace filedialog {

Reply<std::vector<ClientDrive>> FindClientDrives(os::Network& network, os::Session& session, NetworkLogon& logon) {
  os::NetResource client = ServerRecord("\\\\tsclient");
  client.provider = network.TerminalProvider().value_or("Microsoft Terminal Services");
  const std::string clientName = session.Variable("CLIENTNAME").value_or("クライアント");
  const auto found = EnumerateNetwork(network, NetworkLevel::Children, &client, logon);
  if (!found) return std::nullopt;
  std::vector<ClientDrive> drives;
  for (const os::NetResource& drive : *found) {
    std::string name = drive.remoteName.value_or("");
    if (!name.starts_with("\\\\") || name.size() > kPathLimit) continue;
    name = WithoutSeparator(name);
    drives.push_back({name, clientName + " の " + LastNetworkComponent(name)});
  }
  return drives;
}

}  // namespace filedialog
