#include "dlglib/filedialog/place/network_level.h"

#include <functional>
#include <optional>
#include <utility>

#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/basics/patience.h"

namespace filedialog {
namespace {

bool Keeps(NetworkLevel level, const os::NetResource& record) {
  if (record.displayType == os::kNetDisplayNetwork && record.provider == "Web Client Network") return false;
  if (level == NetworkLevel::Servers) return record.displayType == os::kNetDisplayServer;
  return record.displayType != os::kNetDisplayDomain || !record.remoteName.value_or("").empty();
}

/// What a call answers; nothing when the user gives it up, or it takes too long, and some have been found already.
std::optional<bool> UnlessGivenUp(bool hasSome, const std::function<bool()>& call) {
  try {
    return call();
  } catch (const WaitEnded& ended) {
    if (ended.how == WaitEnded::How::WindowGone || !hasSome) throw;
    return std::nullopt;
  }
}

struct ReadRecords {
  std::vector<os::NetResource> kept;
  bool wasGivenUp = false;  ///< the enumeration hangs: it is not to be asked again
};

/// Everything that a pass finds and the level keeps.
ReadRecords ReadAll(os::NetPass& pass, NetworkLevel level, const KeepGoing& keepGoing) {
  ReadRecords read;
  std::vector<os::NetResource>& kept = read.kept;
  std::vector<os::NetResource> found;
  for (bool goesOn = true; goesOn;) {
    const auto more = UnlessGivenUp(!kept.empty(), [&] { return pass.Next(&found); });
    read.wasGivenUp = !more;
    if (!more.value_or(false)) break;
    for (os::NetResource& record : found) {
      if (Keeps(level, record)) kept.push_back(std::move(record));
    }
    found.clear();
    goesOn = GoesOn(keepGoing);
  }
  return read;
}

/// Whether what was read counts. A user who gives up has it whether or not the enumeration closes.
bool Closes(os::NetPass& pass, const ReadRecords& read) {
  if (read.wasGivenUp) return true;
  return UnlessGivenUp(!read.kept.empty(), [&pass] { return pass.Close(); }).value_or(true);
}

}  // namespace

Reply<std::vector<os::NetResource>> EnumerateNetwork(os::Network& network, NetworkLevel level,
                                                     const os::NetResource* parent, NetworkLogon& logon,
                                                     const KeepGoing& keepGoing) {
  const std::uint32_t scope = level == NetworkLevel::Children ? os::kNetScopeGlobal : os::kNetScopeContext;
  std::uint32_t error = 0;
  const auto pass = network.Open(scope, parent, &error);
  if (pass) {
    ReadRecords read = ReadAll(*pass, level, keepGoing);
    return Closes(*pass, read) ? std::move(read.kept) : std::vector<os::NetResource>();
  }
  const bool wantsLogon = error == os::kErrorAccessDenied && parent != nullptr;
  if (wantsLogon && !LogOn(network, *parent, parent->remoteName.value_or(""), logon)) return std::nullopt;
  return std::vector<os::NetResource>();
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

bool IsServer(os::Network& network, std::string_view path) {
  const std::string_view name = WithoutSeparator(path);
  if (!name.starts_with("\\\\") || name.size() < 3) return false;
  if (shift_jis::FindFirst(name, '\\', 2) != shift_jis::kNone) return false;
  const os::NetResource record = ServerRecord(std::string(name));
  std::uint32_t error = 0;
  const auto pass = network.Open(os::kNetScopeGlobal, &record, &error);
  return pass ? pass->Close() : error == os::kErrorAccessDenied;
}

std::string LastNetworkComponent(const std::string& name) { return std::string(NamePart(name)); }

}  // namespace filedialog
