// A small network: a domain with one server and its two shares, which is near as well, and a provider that is no place.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/os/os_scripted.h"

namespace played_network {

inline constexpr char kProvider[] = "図面ネットワーク";

[[nodiscard]] inline os::scripted::NetNode Node(std::uint32_t displayType, const std::string& remoteName,
                                                const std::string& comment,
                                                std::vector<os::scripted::NetNode> children = {}) {
  constexpr std::uint32_t kUsageContainer = 2;
  os::scripted::NetNode node;
  node.record.scope = os::kNetScopeGlobal;
  node.record.type = 1;
  node.record.displayType = displayType;
  node.record.usage = displayType == os::kNetDisplayShare ? 1 : kUsageContainer;
  node.record.remoteName = remoteName;
  node.record.comment = comment;
  node.record.provider = kProvider;
  node.children = std::move(children);
  return node;
}

[[nodiscard]] inline os::scripted::NetNode Server() {
  return Node(os::kNetDisplayServer, "\\\\SRV", "図面サーバ",
              {Node(os::kNetDisplayShare, "\\\\SRV\\docs", "資料"), Node(os::kNetDisplayShare, "\\\\SRV\\表", "")});
}

inline void Begin() {
  os::scripted::NetworkState& network = os::scripted::World().network;
  network.present = true;
  os::scripted::NetNode web = Node(os::kNetDisplayNetwork, "Web Client Network", "");
  web.record.provider = "Web Client Network";
  const os::scripted::NetNode domain = Node(os::kNetDisplayDomain, "設計部", "部門", {Server()});
  network.global.children = {web, Node(os::kNetDisplayNetwork, kProvider, "", {domain})};
  network.context.children = {Node(os::kNetDisplayRoot, "Root", ""), Server()};
  os::scripted::World().files.AddFile("\\\\SRV\\docs\\plan.mdl", std::string(3000, 'x'));
  os::scripted::World().files.AddFile("\\\\SRV\\docs\\deep\\more.mdl");
}

/// From now on the first share is to be connected to before it can be listed.
inline void ProtectShare() {
  os::scripted::World().files.Remove("\\\\SRV\\docs");
  os::scripted::World().network.onConnected = [](const os::NetResource&) {
    os::scripted::World().files.AddFile("\\\\SRV\\docs\\plan.mdl");
  };
}

}  // namespace played_network
