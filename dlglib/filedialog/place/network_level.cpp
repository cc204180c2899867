#include "dlglib/filedialog/place/network_level.h"

#include <utility>

#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"

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

std::vector<os::NetResource> EnumerateNetwork(int level, const os::NetResource* parent, NetworkLogon& logon,
                                              const KeepGoing& keepGoing) {
  const std::uint32_t scope = level == kNetLevelChildren ? os::kNetScopeGlobal : os::kNetScopeContext;
  std::uint32_t error = 0;
  const auto pass = os::Services().network->Open(scope, parent, &error);
  if (!pass) {
    if (error == os::kErrorAccessDenied && parent != nullptr) LogOn(*parent, parent->remoteName.value_or(""), logon);
    return {};
  }
  std::vector<os::NetResource> kept;
  std::vector<os::NetResource> found;
  bool goesOn = true;
  while (goesOn && pass->Next(&found)) {
    for (os::NetResource& record : found) {
      if (Keeps(level, record)) kept.push_back(std::move(record));
    }
    found.clear();
    goesOn = GoesOn(keepGoing);
  }
  if (!pass->Close()) return {};
  return kept;
}

os::NetResource ServerRecord(const std::string& name) {
  constexpr std::uint32_t kTypeDisk = 1;
  constexpr std::uint32_t kUsageContainer = 2;
  os::NetResource record;
  record.scope = os::kNetScopeGlobal;
  record.type = kTypeDisk;
  record.displayType = os::kNetDisplayServer;
  record.usage = kUsageContainer;
  record.remoteName = name;
  return record;
}

bool IsServer(std::string_view path) {
  const std::string_view name = WithoutSeparator(path);
  if (!name.starts_with("\\\\") || name.size() < 3) return false;
  if (shift_jis::FindFirst(name, '\\', 2) != shift_jis::kNone) return false;
  const os::NetResource record = ServerRecord(std::string(name));
  std::uint32_t error = 0;
  const auto pass = os::Services().network->Open(os::kNetScopeGlobal, &record, &error);
  return pass ? pass->Close() : error == os::kErrorAccessDenied;
}

std::string LastNetworkComponent(const std::string& name) { return std::string(NamePart(name)); }

}  // namespace filedialog
