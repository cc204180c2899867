#include "dlglib/filedialog/network_level.h"

#include <utility>

#include "dlglib/filedialog/path_text.h"
namespace filedialog {
namespace {

bool Keeps(int level, const os::NetResource& record) {
  if (record.displayType == os::kNetDisplayNetwork && record.provider == "Web Client Network") return false;
  if (level == kNetLevelRoots) return record.displayType == os::kNetDisplayRoot;
  if (level == kNetLevelChildren) {
    return record.displayType != os::kNetDisplayDomain || !record.remoteName.value_or("").empty();
  }
  return record.displayType == os::kNetDisplayServer;
}

}  // namespace

bool LogOn(const os::NetResource& resource, const std::string& shownPath, NetworkLogon& logon) {
  std::string userName;
  std::string password;
  while (logon.Ask(shownPath, &userName, &password)) {
    if (os::Services().network->Connect(resource, password, userName) == 0) return true;
  }
  return false;
}

std::vector<os::NetResource> EnumerateNetwork(int level, const os::NetResource* parent, NetworkLogon& logon) {
  const std::uint32_t scope = level == kNetLevelChildren ? os::kNetScopeGlobal : os::kNetScopeContext;
  std::uint32_t error = 0;
  const auto pass = os::Services().network->Open(scope, parent, &error);
  if (!pass) {
    if (error == os::kErrorAccessDenied && parent != nullptr) LogOn(*parent, parent->remoteName.value_or(""), logon);
    return {};
  }
  std::vector<os::NetResource> kept;
  std::vector<os::NetResource> found;
  while (pass->Next(&found)) {
    for (os::NetResource& record : found) {
      if (Keeps(level, record)) kept.push_back(std::move(record));
    }
    found.clear();
  }
  if (!pass->Close()) return {};
  return kept;
}

std::string LastNetworkComponent(const std::string& name) { return std::string(NamePart(name)); }

}  // namespace filedialog
