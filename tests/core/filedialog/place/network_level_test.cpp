#include "dlglib/filedialog/place/network_level.h"

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/os/os_scripted.h"

namespace {

using namespace filedialog;
using os::scripted::NetNode;
using os::scripted::World;

constexpr char kWebClient[] = "Web Client Network";

/// Plays the user before the logon: gives one answer after another, then cancels.
class ScriptedLogon final : public NetworkLogon {
 public:
  bool Ask(const std::string& path, std::string* userName, std::string* password) override {
    shown.push_back(path);
    seen.push_back(*userName + "/" + *password);
    if (answers.empty()) return false;
    *userName = answers.front().first;
    *password = answers.front().second;
    answers.pop_front();
    return true;
  }

  std::deque<std::pair<std::string, std::string>> answers;
  std::vector<std::string> shown;
  std::vector<std::string> seen;  ///< what stood in the fields when the question came
};

NetNode Node(std::uint32_t displayType, const std::optional<std::string>& remoteName,
             const std::optional<std::string>& provider = std::nullopt) {
  NetNode node;
  node.record.displayType = displayType;
  node.record.remoteName = remoteName;
  node.record.provider = provider;
  return node;
}

using Names = std::vector<std::string>;

class NetworkLevel : public testing::Test {
 protected:
  NetworkLevel() { World().Reset(); }
  ~NetworkLevel() override {
    EXPECT_EQ(World().network.openPasses, 0);
    World().Reset();
  }

  static NetNode& Global(NetNode node) { return Added(World().network.global, std::move(node)); }
  static NetNode& Context(NetNode node) { return Added(World().network.context, std::move(node)); }
  static NetNode& Added(NetNode& parent, NetNode node) {
    parent.children.push_back(std::move(node));
    return parent.children.back();
  }

  std::vector<os::NetResource> Level(int level, const os::NetResource* parent = nullptr) {
    return EnumerateNetwork(level, parent, logon_);
  }

  Names Kept(int level, const os::NetResource* parent = nullptr) {
    Names names;
    for (const os::NetResource& record : Level(level, parent)) names.push_back(record.remoteName.value_or("(none)"));
    return names;
  }

  static void AddOneOfEach(NetNode& parent) {
    for (std::uint32_t type = 0; type <= 11; ++type) Added(parent, Node(type, "type " + std::to_string(type)));
  }

  ScriptedLogon logon_;
};

// ------------------------------------------------------------------------------------------- what a level keeps

TEST_F(NetworkLevel, LevelZeroKeepsEveryType) {
  AddOneOfEach(World().network.global);
  EXPECT_EQ(Kept(kNetLevelChildren).size(), 12U);
}

TEST_F(NetworkLevel, LevelZeroDropsDomainsWithoutAName) {
  Global(Node(os::kNetDisplayDomain, std::nullopt));
  Global(Node(os::kNetDisplayDomain, ""));
  Global(Node(os::kNetDisplayDomain, "WORKGROUP"));
  Global(Node(os::kNetDisplayServer, std::nullopt));
  Global(Node(os::kNetDisplayShare, ""));
  EXPECT_EQ(Kept(kNetLevelChildren), (Names{"WORKGROUP", "(none)", ""}));
}

TEST_F(NetworkLevel, LevelOneKeepsRootsOnly) {
  AddOneOfEach(World().network.context);
  EXPECT_EQ(Kept(kNetLevelRoots), (Names{"type 7"}));
}

TEST_F(NetworkLevel, EveryOtherLevelKeepsComputersOnly) {
  AddOneOfEach(World().network.context);
  for (const int level : {2, 3, 7, -1, 1000}) EXPECT_EQ(Kept(level), (Names{"type 2"})) << level;
}

TEST_F(NetworkLevel, OnlyLevelZeroAsksForTheWholeNetwork) {
  Global(Node(os::kNetDisplayServer, "global"));
  Context(Node(os::kNetDisplayServer, "context"));
  EXPECT_EQ(Kept(kNetLevelChildren), (Names{"global"}));
  EXPECT_EQ(Kept(kNetLevelServers), (Names{"context"}));
}

TEST_F(NetworkLevel, TheWebClientNetworkIsDroppedAtEveryLevel) {
  Global(Node(os::kNetDisplayNetwork, "web", kWebClient));
  Global(Node(os::kNetDisplayNetwork, "other", "Web Client Network 2"));
  Global(Node(os::kNetDisplayNetwork, "letters", "web client network"));
  Global(Node(os::kNetDisplayNetwork, "none"));
  Global(Node(os::kNetDisplayServer, "server", kWebClient));
  EXPECT_EQ(Kept(kNetLevelChildren), (Names{"other", "letters", "none", "server"}));
  Context(Node(os::kNetDisplayNetwork, "web", kWebClient));
  EXPECT_EQ(Kept(kNetLevelRoots), Names{});
  EXPECT_EQ(Kept(kNetLevelServers), Names{});
}

TEST_F(NetworkLevel, GivenUpItKeepsWhatCameBefore) {
  World().network.global.batch = 2;
  for (const char* name : {"a", "b", "c", "d", "e"}) Global(Node(os::kNetDisplayServer, name));
  int asked = 0;
  const auto kept = EnumerateNetwork(kNetLevelChildren, nullptr, logon_, [&] { return ++asked < 2; });
  EXPECT_EQ(kept.size(), 4U);
  EXPECT_EQ(World().calls.Count("network.Next"), 2U);
  EXPECT_EQ(World().calls.Count("network.Close"), 1U);
}

TEST_F(NetworkLevel, AParentGivesItsChildren) {
  NetNode& provider = Global(Node(os::kNetDisplayNetwork, "Net", "Net"));
  NetNode& group = Added(provider, Node(os::kNetDisplayDomain, "WORKGROUP", "Net"));
  NetNode& server = Added(group, Node(os::kNetDisplayServer, "\\\\SRV", "Net"));
  Added(server, Node(os::kNetDisplayShare, "\\\\SRV\\表", "Net"));
  Added(server, Node(os::kNetDisplayShare, "\\\\SRV\\docs", "Net"));
  EXPECT_EQ(Kept(kNetLevelChildren, &provider.record), (Names{"WORKGROUP"}));
  EXPECT_EQ(Kept(kNetLevelChildren, &group.record), (Names{"\\\\SRV"}));
  EXPECT_EQ(Kept(kNetLevelChildren, &server.record), (Names{"\\\\SRV\\表", "\\\\SRV\\docs"}));
}

TEST_F(NetworkLevel, AComputerIsKnownByItsNameAlone) {
  NetNode& provider = Global(Node(os::kNetDisplayNetwork, "Net", "Net"));
  NetNode& server = Added(provider, Node(os::kNetDisplayServer, "\\\\表", "Net"));
  EXPECT_TRUE(IsServer("\\\\表"));
  EXPECT_TRUE(IsServer("\\\\表\\"));
  for (const char* path : {"", "\\", "\\\\", "\\\\\\", "\\\\none", "\\\\表\\share", "C:\\表", "表"}) {
    EXPECT_FALSE(IsServer(path)) << path;
  }
  server.openError = os::kErrorAccessDenied;
  EXPECT_TRUE(IsServer("\\\\表")) << "a logon may open it";
  server.openError = 53;
  EXPECT_FALSE(IsServer("\\\\表"));
  server.openError = 0;
  server.closeFails = true;
  EXPECT_FALSE(IsServer("\\\\表"));
  EXPECT_TRUE(logon_.shown.empty());
}

TEST_F(NetworkLevel, RecordsComeWholeAndMissingTextsStayMissing) {
  NetNode full = Node(os::kNetDisplayShare, "\\\\SRV\\docs", "Net");
  full.record.scope = os::kNetScopeGlobal;
  full.record.type = 1;
  full.record.usage = 3;
  full.record.localName = "";
  full.record.comment = "共有";
  Global(full);
  Global(Node(os::kNetDisplayShare, std::nullopt));
  const std::vector<os::NetResource> records = Level(kNetLevelChildren);
  ASSERT_EQ(records.size(), 2U);
  EXPECT_EQ(records[0].scope, os::kNetScopeGlobal);
  EXPECT_EQ(records[0].type, 1U);
  EXPECT_EQ(records[0].displayType, os::kNetDisplayShare);
  EXPECT_EQ(records[0].usage, 3U);
  EXPECT_EQ(records[0].localName, "");
  EXPECT_EQ(records[0].remoteName, "\\\\SRV\\docs");
  EXPECT_EQ(records[0].comment, "共有");
  EXPECT_EQ(records[0].provider, "Net");
  EXPECT_FALSE(records[1].localName || records[1].remoteName || records[1].comment || records[1].provider);
}

// --------------------------------------------------------------------------------------------------- the reading

TEST_F(NetworkLevel, ReadsOnUntilNothingComes) {
  for (const int count : {0, 1, 99, 100, 101, 200, 201, 350, 1000}) {
    World().network.global = {};
    World().network.global.batch = 7;
    for (int i = 0; i < count; ++i) Global(Node(os::kNetDisplayServer, std::to_string(i)));
    const Names kept = Kept(kNetLevelChildren);
    ASSERT_EQ(kept.size(), static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) EXPECT_EQ(kept[static_cast<std::size_t>(i)], std::to_string(i));
  }
}

TEST_F(NetworkLevel, KeepsWhatCameBeforeAFailure) {
  World().network.global.batch = 1;
  Global(Node(os::kNetDisplayServer, "a"));
  Global(Node(os::kNetDisplayServer, "b"));
  World().calls.FailNumber(3);  // open, first record, second record
  EXPECT_EQ(Kept(kNetLevelChildren), (Names{"a"}));
}

TEST_F(NetworkLevel, AFailingCloseGivesNothing) {
  Global(Node(os::kNetDisplayServer, "a"));
  World().network.global.closeFails = true;
  EXPECT_EQ(Kept(kNetLevelChildren), Names{});
  EXPECT_TRUE(logon_.shown.empty());
}

TEST_F(NetworkLevel, AFailingOpenGivesNothing) {
  Global(Node(os::kNetDisplayServer, "a"));
  for (const std::uint32_t error : {1U, 50U, 1203U, 1222U}) {
    World().network.global.openError = error;
    EXPECT_EQ(Kept(kNetLevelChildren), Names{}) << error;
  }
  EXPECT_TRUE(logon_.shown.empty());
  EXPECT_EQ(World().calls.Count("network.Close"), 0U);
}

TEST_F(NetworkLevel, AnUnknownParentGivesNothing) {
  const os::NetResource stranger = Node(os::kNetDisplayServer, "\\\\GONE").record;
  EXPECT_EQ(Kept(kNetLevelChildren, &stranger), Names{});
}

// ------------------------------------------------------------------------------------------------------ the logon

class RefusingServer : public NetworkLevel {
 protected:
  RefusingServer() {
    NetNode node = Node(os::kNetDisplayServer, "\\\\SRV", "Net");
    node.children.push_back(Node(os::kNetDisplayShare, "\\\\SRV\\docs", "Net"));
    node.openError = os::kErrorAccessDenied;
    server_ = node.record;
    Global(std::move(node));
  }

  os::NetResource server_;
};

TEST_F(RefusingServer, CancellingGivesNothing) {
  EXPECT_EQ(Kept(kNetLevelChildren, &server_), Names{});
  EXPECT_EQ(logon_.shown, (Names{"\\\\SRV"}));
  EXPECT_TRUE(World().network.connections.empty());
}

TEST_F(RefusingServer, ASuccessfulLogonGivesNothingUntilThePlaceIsOpenedAgain) {
  logon_.answers = {{"suzuki", "himitsu"}};
  EXPECT_EQ(Kept(kNetLevelChildren, &server_), Names{});
  ASSERT_EQ(World().network.connections.size(), 1U);
  EXPECT_EQ(World().network.connections[0].resource.remoteName, "\\\\SRV");
  EXPECT_EQ(World().network.connections[0].resource.provider, "Net");
  EXPECT_EQ(World().network.connections[0].userName, "suzuki");
  EXPECT_EQ(World().network.connections[0].password, "himitsu");
  EXPECT_EQ(Kept(kNetLevelChildren, &server_), (Names{"\\\\SRV\\docs"}));
  EXPECT_EQ(logon_.shown.size(), 1U);
}

TEST_F(RefusingServer, AsksAgainUntilTheConnectionIsMade) {
  World().network.connectResults = {5, 1326, 0, 5};
  logon_.answers = {{"a", "1"}, {"b", "2"}, {"c", "3"}, {"d", "4"}};
  EXPECT_EQ(Kept(kNetLevelChildren, &server_), Names{});
  EXPECT_EQ(World().network.connections.size(), 3U);
  EXPECT_EQ(logon_.shown, (Names{"\\\\SRV", "\\\\SRV", "\\\\SRV"}));
  EXPECT_EQ(logon_.answers.size(), 1U);
}

TEST_F(RefusingServer, AsksUntilTheUserCancels) {
  World().network.connectResults = {5, 5, 5};
  logon_.answers = {{"a", "1"}, {"b", "2"}};
  EXPECT_EQ(Kept(kNetLevelChildren, &server_), Names{});
  EXPECT_EQ(World().network.connections.size(), 2U);
  EXPECT_EQ(logon_.shown.size(), 3U);
}

TEST_F(RefusingServer, AParentWithoutANameIsShownEmpty) {
  Global(Node(os::kNetDisplayServer, std::nullopt)).openError = os::kErrorAccessDenied;
  const os::NetResource nameless = World().network.global.children.back().record;
  EXPECT_EQ(Kept(kNetLevelChildren, &nameless), Names{});
  EXPECT_EQ(logon_.shown, (Names{""}));
}

TEST_F(RefusingServer, TheTopHasNothingToLogOnTo) {
  World().network.global.openError = os::kErrorAccessDenied;
  logon_.answers = {{"a", "1"}};
  EXPECT_EQ(Kept(kNetLevelChildren), Names{});
  EXPECT_TRUE(logon_.shown.empty());
}

// --------------------------------------------------------------------------------------------------------- names

TEST(LastNetworkComponent, IsFoundByCharacter) {
  EXPECT_EQ(LastNetworkComponent("\\\\srv\\share"), "share");
  EXPECT_EQ(LastNetworkComponent("\\\\srv"), "srv");
  EXPECT_EQ(LastNetworkComponent("WORKGROUP"), "WORKGROUP");
  EXPECT_EQ(LastNetworkComponent("\\\\srv\\表"), "表");
  EXPECT_EQ(LastNetworkComponent("\\\\ソ\\能力"), "能力");
  EXPECT_EQ(LastNetworkComponent("\\\\srv\\"), "");
  EXPECT_EQ(LastNetworkComponent(""), "");
}

}  // namespace
