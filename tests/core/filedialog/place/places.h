// A machine with drives and a network, for the tests of what the browser shows of it.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/filedialog/place/location_tree.h"
#include "platform/os/os_scripted.h"

namespace places {

/// Counts the questions and cancels them all, or closes the window for which they are asked.
class Refusing final : public filedialog::NetworkLogon {
 public:
  filedialog::Reply<std::optional<filedialog::Credentials>> Ask(const std::string& path, const std::string&) override {
    shown.push_back(path);
    if (takesTheWindowAway) return std::nullopt;
    return std::optional<filedialog::Credentials>();
  }

  std::vector<std::string> shown;
  bool takesTheWindowAway = false;
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

using Lines = std::vector<std::string>;

/// "level kind index [path] text".
inline std::string Line(const filedialog::Place& place) {
  return std::to_string(place.level) + " " + std::to_string(NumberOf(place.kind)) + " " + std::to_string(place.index) +
         " [" + place.path + "] " + place.text;
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

  void Build() {
    filedialog::DriveNames drives(os::Services(), nullptr, [] {});
    drives.Ask({});
    auto fixed = filedialog::ReadFixedPlaces(os::Services(), drives, logon_);
    ASSERT_TRUE(fixed);
    tree_.Build(std::move(*fixed));
  }

  void AddTwoDrivesAndANetwork() {
    AddDrive('C', os::DriveType::Fixed);
    AddDrive('D', os::DriveType::CdRom);
    os::scripted::World().network.present = true;
    Build();
  }

  void Enter(const std::string& folder) {
    const auto location = tree_.Find(folder);
    ASSERT_TRUE(location) << folder;
    tree_.Enter(*location);
  }

  filedialog::LocationTree tree_{*os::Services().shell};
  Refusing logon_;
};

}  // namespace places
