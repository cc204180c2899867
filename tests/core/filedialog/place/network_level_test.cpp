#include "dlglib/filedialog/place/network_level.h"

#include <gtest/gtest.h>

#include <deque>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/filedialog/basics/patience.h"
#include "platform/os/os_scripted.h"

namespace {

using namespace filedialog;
using os::scripted::NetNode;
using os::scripted::World;

constexpr char kWebClient[] = "Web Client Network";

/// Plays the user before the logon: gives one answer after another, then cancels.
class ScriptedLogon final : public NetworkLogon {
 public:
  Reply<std::optional<Credentials>> Ask(const std::string& path, const std::string& /*userName*/) override {
    shown.push_back(path);
    if (takesTheWindowAway) return std::nullopt;
    if (answers.empty()) return std::optional<Credentials>();
    const auto [name, password] = answers.front();
    answers.pop_front();
    return std::optional(Credentials{name, password});
  }

  std::deque<std::pair<std::string, std::string>> answers;
  std::vector<std::string> shown;
  bool takesTheWindowAway = false;
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

class NetworkLevelTest : public testing::Test {
 protected:
  NetworkLevelTest() { World().Reset(); }
  ~NetworkLevelTest() override {
    EXPECT_EQ(World().network.openPasses, 0);
    World().Reset();
  }

  static NetNode& Global(NetNode node) { return Added(World().network.global, std::move(node)); }
  static NetNode& Context(NetNode node) { return Added(World().network.context, std::move(node)); }
  static NetNode& Added(NetNode& parent, NetNode node) {
    parent.children.push_back(std::move(node));
    return parent.children.back();
  }

  std::vector<os::NetResource> Level(NetworkLevel level, const os::NetResource* parent = nullptr) {
    return EnumerateNetwork(*os::Services().network, level, parent, logon_).value();
  }

  Names Kept(NetworkLevel level, const os::NetResource* parent = nullptr) {
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

TEST_F(NetworkLevelTest, ChildrenAreOfEveryType) {
  AddOneOfEach(World().network.global);
  EXPECT_EQ(Kept(NetworkLevel::Children).size(), 12U);
}

TEST_F(NetworkLevelTest, DomainsWithoutANameAreNoChildren) {
  Global(Node(os::kNetDisplayDomain, std::nullopt));
  Global(Node(os::kNetDisplayDomain, ""));
  Global(Node(os::kNetDisplayDomain, "WORKGROUP"));
  Global(Node(os::kNetDisplayServer, std::nullopt));
  Global(Node(os::kNetDisplayShare, ""));
  EXPECT_EQ(Kept(NetworkLevel::Children), (Names{"WORKGROUP", "(none)", ""}));
}

TEST_F(NetworkLevelTest, TheSurroundingsKeepComputersOnly) {
  AddOneOfEach(World().network.context);
  EXPECT_EQ(Kept(NetworkLevel::Servers), (Names{"type 2"}));
}

TEST_F(NetworkLevelTest, OnlyChildrenAreOfTheWholeNetwork) {
  Global(Node(os::kNetDisplayServer, "global"));
  Context(Node(os::kNetDisplayServer, "context"));
  EXPECT_EQ(Kept(NetworkLevel::Children), (Names{"global"}));
  EXPECT_EQ(Kept(NetworkLevel::Servers), (Names{"context"}));
}

TEST_F(NetworkLevelTest, TheWebClientNetworkIsDroppedAtEveryLevel) {
  Global(Node(os::kNetDisplayNetwork, "web", kWebClient));
  Global(Node(os::kNetDisplayNetwork, "other", "Web Client Network 2"));
  Global(Node(os::kNetDisplayNetwork, "letters", "web client network"));
  Global(Node(os::kNetDisplayNetwork, "none"));
  Global(Node(os::kNetDisplayServer, "server", kWebClient));
  EXPECT_EQ(Kept(NetworkLevel::Children), (Names{"other", "letters", "none", "server"}));
  Context(Node(os::kNetDisplayNetwork, "web", kWebClient));
  EXPECT_EQ(Kept(NetworkLevel::Servers), Names{});
  EXPECT_EQ(Kept(NetworkLevel::Servers), Names{});
}

TEST_F(NetworkLevelTest, GivenUpItKeepsWhatCameBefore) {
  World().network.global.batch = 2;
  for (const char* name : {"a", "b", "c", "d", "e"}) Global(Node(os::kNetDisplayServer, name));
  int asked = 0;
  const auto kept = EnumerateNetwork(*os::Services().network, NetworkLevel::Children, nullptr, logon_, [&] {
                      return ++asked < 2;
                    }).value();
  EXPECT_EQ(kept.size(), 4U);
  EXPECT_EQ(World().calls.Count("network.Next"), 2U);
  EXPECT_EQ(World().calls.Count("network.Close"), 1U);
}

TEST_F(NetworkLevelTest, TakingTooLongItKeepsWhatCameBeforeToo) {
  World().network.global.batch = 2;
  for (const char* name : {"a", "b", "c"}) Global(Node(os::kNetDisplayServer, name));
  int asked = 0;
  World().calls.Watch([&asked](const std::string& call) {
    if (call.starts_with("network.Next") && ++asked == 2) throw WaitEnded{WaitEnded::How::TookTooLong};
  });
  EXPECT_EQ(Kept(NetworkLevel::Children), (Names{"a", "b"}));
  World().calls.Watch({});
}

TEST_F(NetworkLevelTest, AParentGivesItsChildren) {
  NetNode& provider = Global(Node(os::kNetDisplayNetwork, "Net", "Net"));
  NetNode& group = Added(provider, Node(os::kNetDisplayDomain, "WORKGROUP", "Net"));
  NetNode& server = Added(group, Node(os::kNetDisplayServer, "\\\\SRV", "Net"));
  Added(server, Node(os::kNetDisplayShare, "\\\\SRV\\表", "Net"));
  Added(server, Node(os::kNetDisplayShare, "\\\\SRV\\docs", "Net"));
  EXPECT_EQ(Kept(NetworkLevel::Children, &provider.record), (Names{"WORKGROUP"}));
  EXPECT_EQ(Kept(NetworkLevel::Children, &group.record), (Names{"\\\\SRV"}));
  EXPECT_EQ(Kept(NetworkLevel::Children, &server.record), (Names{"\\\\SRV\\表", "\\\\SRV\\docs"}));
}

TEST_F(NetworkLevelTest, AComputerIsKnownByItsNameAlone) {
  NetNode& provider = Global(Node(os::kNetDisplayNetwork, "Net", "Net"));
  NetNode& server = Added(provider, Node(os::kNetDisplayServer, "\\\\表", "Net"));
  EXPECT_TRUE(IsServer(*os::Services().network, "\\\\表"));
  EXPECT_TRUE(IsServer(*os::Services().network, "\\\\表\\"));
  for (const char* path : {"", "\\", "\\\\", "\\\\\\", "\\\\none", "\\\\表\\share", "C:\\表", "表"}) {
    EXPECT_FALSE(IsServer(*os::Services().network, path)) << path;
  }
  server.openError = os::kErrorAccessDenied;
  EXPECT_TRUE(IsServer(*os::Services().network, "\\\\表")) << "a logon may open it";
  server.openError = 53;
  EXPECT_FALSE(IsServer(*os::Services().network, "\\\\表"));
  server.openError = 0;
  server.closeFails = true;
  EXPECT_FALSE(IsServer(*os::Services().network, "\\\\表"));
  EXPECT_TRUE(logon_.shown.empty());
}

TEST_F(NetworkLevelTest, RecordsComeWholeAndMissingTextsStayMissing) {
  NetNode full = Node(os::kNetDisplayShare, "\\\\SRV\\docs", "Net");
  full.record.scope = os::kNetScopeGlobal;
  full.record.type = 1;
  full.record.usage = 3;
  full.record.localName = "";
  full.record.comment = "共有";
  Global(full);
  Global(Node(os::kNetDisplayShare, std::nullopt));
  const std::vector<os::NetResource> records = Level(NetworkLevel::Children);
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

TEST_F(NetworkLevelTest, ReadsOnUntilNothingComes) {
  for (const int count : {0, 1, 99, 100, 101, 200, 201, 350, 1000}) {
    World().network.global = {};
    World().network.global.batch = 7;
    for (int i = 0; i < count; ++i) Global(Node(os::kNetDisplayServer, std::to_string(i)));
    const Names kept = Kept(NetworkLevel::Children);
    ASSERT_EQ(kept.size(), static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) EXPECT_EQ(kept[static_cast<std::size_t>(i)], std::to_string(i));
  }
}

TEST_F(NetworkLevelTest, KeepsWhatCameBeforeAFailure) {
  World().network.global.batch = 1;
  Global(Node(os::kNetDisplayServer, "a"));
  Global(Node(os::kNetDisplayServer, "b"));
  World().calls.FailNumber(3);  // open, first record, second record
  EXPECT_EQ(Kept(NetworkLevel::Children), (Names{"a"}));
}

TEST_F(NetworkLevelTest, WantOfMemoryIsNoEndOfTheRecords) {
  Global(Node(os::kNetDisplayServer, "a"));
  World().calls.Watch([](const std::string& call) {
    if (call == "network.Next") throw std::bad_alloc();
  });
  EXPECT_THROW(static_cast<void>(Level(NetworkLevel::Children)), std::bad_alloc);
  World().calls.Watch({});
}

TEST_F(NetworkLevelTest, AFailingCloseGivesNothing) {
  Global(Node(os::kNetDisplayServer, "a"));
  World().network.global.closeFails = true;
  EXPECT_EQ(Kept(NetworkLevel::Children), Names{});
  EXPECT_TRUE(logon_.shown.empty());
}

TEST_F(NetworkLevelTest, AFailingOpenGivesNothing) {
  Global(Node(os::kNetDisplayServer, "a"));
  for (const std::uint32_t error : {1U, 50U, 1203U, 1222U}) {
    World().network.global.openError = error;
    EXPECT_EQ(Kept(NetworkLevel::Children), Names{}) << error;
  }
  EXPECT_TRUE(logon_.shown.empty());
  EXPECT_EQ(World().calls.Count("network.Close"), 0U);
}

TEST_F(NetworkLevelTest, AnUnknownParentGivesNothing) {
  const os::NetResource stranger = Node(os::kNetDisplayServer, "\\\\GONE").record;
  EXPECT_EQ(Kept(NetworkLevel::Children, &stranger), Names{});
}

// ------------------------------------------------------------------------------------------------------ the logon

class RefusingServer : public NetworkLevelTest {
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
  EXPECT_EQ(Kept(NetworkLevel::Children, &server_), Names{});
  EXPECT_EQ(logon_.shown, (Names{"\\\\SRV"}));
  EXPECT_TRUE(World().network.connections.empty());
}

TEST_F(RefusingServer, ASuccessfulLogonGivesNothingUntilThePlaceIsOpenedAgain) {
  logon_.answers = {{"suzuki", "himitsu"}};
  EXPECT_EQ(Kept(NetworkLevel::Children, &server_), Names{});
  ASSERT_EQ(World().network.connections.size(), 1U);
  EXPECT_EQ(World().network.connections[0].resource.remoteName, "\\\\SRV");
  EXPECT_EQ(World().network.connections[0].resource.provider, "Net");
  EXPECT_EQ(World().network.connections[0].userName, "suzuki");
  EXPECT_EQ(World().network.connections[0].password, "himitsu");
  EXPECT_EQ(Kept(NetworkLevel::Children, &server_), (Names{"\\\\SRV\\docs"}));
  EXPECT_EQ(logon_.shown.size(), 1U);
}

TEST_F(RefusingServer, AsksAgainUntilTheConnectionIsMade) {
  World().network.connectResults = {5, 1326, 0, 5};
  logon_.answers = {{"a", "1"}, {"b", "2"}, {"c", "3"}, {"d", "4"}};
  EXPECT_EQ(Kept(NetworkLevel::Children, &server_), Names{});
  EXPECT_EQ(World().network.connections.size(), 3U);
  EXPECT_EQ(logon_.shown, (Names{"\\\\SRV", "\\\\SRV", "\\\\SRV"}));
  EXPECT_EQ(logon_.answers.size(), 1U);
}

TEST_F(RefusingServer, AsksUntilTheUserCancels) {
  World().network.connectResults = {5, 5, 5};
  logon_.answers = {{"a", "1"}, {"b", "2"}};
  EXPECT_EQ(Kept(NetworkLevel::Children, &server_), Names{});
  EXPECT_EQ(World().network.connections.size(), 2U);
  EXPECT_EQ(logon_.shown.size(), 3U);
}

TEST_F(RefusingServer, AWindowThatHasGoneMeanwhileGivesNoAnswer) {
  logon_.takesTheWindowAway = true;
  EXPECT_FALSE(EnumerateNetwork(*os::Services().network, NetworkLevel::Children, &server_, logon_));
  EXPECT_EQ(logon_.shown.size(), 1U);
  EXPECT_TRUE(World().network.connections.empty());
}

TEST_F(RefusingServer, AParentWithoutANameIsShownEmpty) {
  Global(Node(os::kNetDisplayServer, std::nullopt)).openError = os::kErrorAccessDenied;
  const os::NetResource nameless = World().network.global.children.back().record;
  EXPECT_EQ(Kept(NetworkLevel::Children, &nameless), Names{});
  EXPECT_EQ(logon_.shown, (Names{""}));
}

TEST_F(RefusingServer, TheTopHasNothingToLogOnTo) {
  World().network.global.openError = os::kErrorAccessDenied;
  logon_.answers = {{"a", "1"}};
  EXPECT_EQ(Kept(NetworkLevel::Children), Names{});
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
