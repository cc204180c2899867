// A machine with drives and a network, for the tests of what the browser shows of it.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/filedialog/place/location.h"
#include "platform/os/os_scripted.h"

namespace places {

/// Counts the questions and cancels them all.
class Refusing final : public filedialog::NetworkLogon {
 public:
  bool Ask(const std::string& path, std::string*, std::string*) override {
    shown.push_back(path);
    return false;
  }

  std::vector<std::string> shown;
};

inline os::scripted::NetNode Resource(std::uint32_t displayType, const std::optional<std::string>& remoteName,
                                      const std::optional<std::string>& provider = std::nullopt,
                                      const std::optional<std::string>& comment = std::nullopt) {
  os::scripted::NetNode node;
  node.record.displayType = displayType;
  node.record.remoteName = remoteName;
  node.record.provider = provider;
  node.record.comment = comment;
  return node;
}

/// The reference is good until the next resource is added to the same parent.
inline os::scripted::NetNode& Add(os::scripted::NetNode& parent, os::scripted::NetNode node) {
  parent.children.push_back(std::move(node));
  return parent.children.back();
}

inline constexpr char kTerminal[] = "Microsoft Terminal Services";

/// The client of a remote session, in the network of `provider`.
inline os::scripted::NetNode& AddClient(const std::string& provider = kTerminal) {
  return Add(os::scripted::World().network.global, Resource(os::kNetDisplayServer, "\\\\tsclient", provider));
}

class Machine : public testing::Test {
 protected:
  Machine() {
    os::scripted::World().Reset();
    os::scripted::World().network.present = false;
  }
  ~Machine() override { os::scripted::World().Reset(); }

  static void AddDrive(char letter, os::DriveType type, const std::optional<std::string>& volumeName = "") {
    os::scripted::World().AddDrive(letter, {.type = type, .volumeName = volumeName});
  }

  void Build() { tree_.Build(logon_); }

  void Enter(const std::string& folder) {
    const auto location = tree_.Find(folder);
    ASSERT_TRUE(location) << folder;
    tree_.Enter(*location);
  }

  filedialog::LocationTree tree_;
  Refusing logon_;
};

}  // namespace places
