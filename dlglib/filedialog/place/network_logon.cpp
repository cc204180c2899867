#include "dlglib/filedialog/place/network_logon.h"

#include "dlglib/base/path_text.h"

namespace filedialog {

Reply<bool> LogOn(os::Network& network, const os::NetResource& resource, const std::string& shownPath,
                  NetworkLogon& logon) {
  std::string userName;
  while (true) {
    const auto credentials = logon.Ask(shownPath, userName);
    if (!credentials) return std::nullopt;
    if (!*credentials) return false;
    userName = (*credentials)->userName;
    if (network.Connect(resource, (*credentials)->password, userName) == 0) return true;
  }
}

Reply<Done> LogOnBeforeListing(os::Files& files, os::Network& network, std::string_view folder,
                               const os::NetResource* selected, NetworkLogon& logon) {
  const std::string path(WithoutSeparator(folder));
  if (selected == nullptr || !path.starts_with("\\\\") || files.Exists(path)) return Done{};
  return LogOn(network, *selected, path, logon) ? Reply<Done>(Done{}) : std::nullopt;
}

}  // namespace filedialog
