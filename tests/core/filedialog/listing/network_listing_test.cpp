#include "dlglib/filedialog/listing/network_listing.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/core/filedialog/place/places.h"

namespace {

using namespace filedialog;
using os::DriveType;
using os::scripted::NetNode;
using os::scripted::World;
using places::Add;
using places::Resource;

using Lines = std::vector<std::string>;

class NetworkListing : public places::Machine {
 protected:
  /// "kind [path] name (description) net" of each row.
  Lines Rows() const {
    Lines lines;
    for (const FileEntry& row : table_.rows()) {
      lines.push_back(std::to_string(static_cast<int>(row.kind)) + " [" + std::string(row.path) + "] " +
                      std::string(row.name) + " (" + *row.description + ") " + std::to_string(row.net));
    }
    return lines;
  }

  Lines ListedPlaces() {
    places_ = NetworkPlaces(*os::Services().network, tree_, logon_).value();
    ListPlaces(places_, &table_);
    return Rows();
  }

  /// Opens the row of that name of the last listing.
  void Open(const std::string& name) {
    for (const FileEntry& row : table_.rows()) {
      if (row.name == name) return tree_.Enter(tree_.Below(places_[static_cast<std::size_t>(row.net)]));
    }
    FAIL() << name;
  }

  void EnterNetwork() {
    World().network.present = true;
    Build();
    tree_.Enter({tree_.network(), {}});
  }

  EntryTable table_;
  std::vector<Place> places_;
};

// ------------------------------------------------------------------------------------------------------ network

TEST_F(NetworkListing, TheNetworkShowsItsTwoPlaces) {
  EnterNetwork();
  EXPECT_EQ(ListedPlaces(), (Lines{"3 [\\\\] ネットワーク全体 () 0", "6 [\\\\] 近くのコンピュータ () 1"}));
}

TEST_F(NetworkListing, EachLevelCanBeGivenUp) {
  NetNode& provider = Add(World().network.global, Resource(os::kNetDisplayNetwork, "Net", "Net"));
  World().network.global.batch = World().network.context.batch = 1;
  provider.batch = 1;
  for (const char* name : {"one", "two", "three"}) {
    Add(provider, Resource(os::kNetDisplayDomain, name, "Net"));
    Add(World().network.context, Resource(os::kNetDisplayServer, name));
  }
  EnterNetwork();
  ListedPlaces();
  Open("ネットワーク全体");
  ListedPlaces();
  Open("Net");
  const auto atOnce = [] { return false; };
  EXPECT_EQ(NetworkPlaces(*os::Services().network, tree_, logon_, atOnce)->size(), 1U);
  tree_.Enter({tree_.network() + 2, {}});
  EXPECT_EQ(NetworkPlaces(*os::Services().network, tree_, logon_, atOnce)->size(), 1U);
  EXPECT_EQ(NetworkPlaces(*os::Services().network, tree_, logon_)->size(), 3U);
}

TEST_F(NetworkListing, WithoutANetworkThereIsNothingInIt) {
  Build();
  tree_.Enter({tree_.network(), {}});
  EXPECT_EQ(ListedPlaces(), Lines{});
}

TEST_F(NetworkListing, WalksFromTheEntireNetworkToAShare) {
  Add(World().network.global, Resource(os::kNetDisplayNetwork, "Web", "Web Client Network"));
  NetNode& provider = Add(World().network.global, Resource(os::kNetDisplayNetwork, "Net", "Net", "ネット"));
  Add(provider, Resource(os::kNetDisplayDomain, "", "Net"));
  NetNode& group = Add(provider, Resource(os::kNetDisplayDomain, "設計課", "Net"));
  NetNode& server = Add(group, Resource(os::kNetDisplayServer, "\\\\表SRV", "Net", "図面サーバ"));
  Add(server, Resource(os::kNetDisplayShare, "\\\\表SRV\\能力", "Net", "共有"));
  EnterNetwork();
  ListedPlaces();
  Open("ネットワーク全体");
  EXPECT_EQ(ListedPlaces(), (Lines{"4 [Net] Net (ネット) 0"}));
  Open("Net");
  EXPECT_EQ(ListedPlaces(), (Lines{"5 [設計課] 設計課 () 0"}));
  Open("設計課");
  EXPECT_EQ(ListedPlaces(), (Lines{"7 [\\\\表SRV] 表SRV (図面サーバ) 0"}));
  Open("表SRV");
  EXPECT_EQ(ListedPlaces(), (Lines{"8 [\\\\表SRV\\能力] 能力 (共有) 0"}));
  Open("能力");
  EXPECT_EQ(tree_.Kind(), LocationKind::Folder);
  EXPECT_EQ(tree_.Folder(), "\\\\表SRV\\能力");
  ASSERT_NE(tree_.Resource(), nullptr);
  EXPECT_EQ(tree_.Resource()->remoteName, "\\\\表SRV\\能力");
  EXPECT_EQ(ListedPlaces(), Lines{});
}

TEST_F(NetworkListing, AProviderWhoseFirstChildIsAComputerStandsInForTheWorkgroup) {
  NetNode& provider = Add(World().network.global, Resource(os::kNetDisplayNetwork, "Net", "Net"));
  Add(provider, Resource(os::kNetDisplayServer, "\\\\SRV", "Net"));
  EnterNetwork();
  ListedPlaces();
  Open("ネットワーク全体");
  ListedPlaces();
  Open("Net");
  EXPECT_EQ(ListedPlaces(), (Lines{"7 [\\\\SRV] SRV () 0"}));
}

TEST_F(NetworkListing, TheNearbyComputersAreTheComputersOfTheContext) {
  Add(World().network.context, Resource(os::kNetDisplayRoot, "全体"));
  Add(World().network.context, Resource(os::kNetDisplayServer, "\\\\NEAR", "Net", "隣"));
  Add(World().network.global, Resource(os::kNetDisplayServer, "\\\\FAR", "Net"));
  EnterNetwork();
  ListedPlaces();
  Open("近くのコンピュータ");
  EXPECT_EQ(ListedPlaces(), (Lines{"7 [\\\\NEAR] NEAR (隣) 0"}));
}

TEST_F(NetworkListing, ATypedComputerIsAskedForItsShares) {
  NetNode& server = Add(World().network.global, Resource(os::kNetDisplayServer, "\\\\srv"));
  Add(server, Resource(os::kNetDisplayShare, "\\\\srv\\docs"));
  EnterNetwork();
  Enter("\\\\srv");
  EXPECT_EQ(ListedPlaces(), (Lines{"8 [\\\\srv\\docs] docs () 0"}));
}

TEST_F(NetworkListing, AComputerThatRefusesAsksForALogon) {
  NetNode& server = Add(World().network.global, Resource(os::kNetDisplayServer, "\\\\srv"));
  server.openError = os::kErrorAccessDenied;
  EnterNetwork();
  Enter("\\\\srv");
  EXPECT_EQ(ListedPlaces(), Lines{});
  EXPECT_EQ(logon_.shown, (Lines{"\\\\srv"}));
}

TEST_F(NetworkListing, AWindowThatHasGoneDuringTheLogonGetsNoPlaces) {
  EnterNetwork();
  Enter("\\\\srv");
  Add(World().network.global, Resource(os::kNetDisplayServer, "\\\\srv")).openError = os::kErrorAccessDenied;
  logon_.takesTheWindowAway = true;
  EXPECT_FALSE(NetworkPlaces(*os::Services().network, tree_, logon_));
}

TEST_F(NetworkListing, OtherTypesAreTakenByTheirUse) {
  NetNode& server = Add(World().network.global, Resource(os::kNetDisplayServer, "\\\\srv"));
  Add(server, Resource(0, "\\\\srv\\unknown"));
  Add(server, Resource(9, "\\\\srv\\tree")).record.usage = 2;
  Add(server, Resource(os::kNetDisplayRoot, "\\\\srv\\root"));
  EnterNetwork();
  Enter("\\\\srv");
  EXPECT_EQ(ListedPlaces(),
            (Lines{"8 [\\\\srv\\unknown] unknown () 0", "5 [\\\\srv\\tree] tree () 1", "3 [\\\\srv\\root] root () 2"}));
}

TEST_F(NetworkListing, ARecordWithoutARemoteNameIsNamedByItsProvider) {
  Add(World().network.global, Resource(os::kNetDisplayNetwork, std::nullopt, "ネット"));
  Add(World().network.global, Resource(os::kNetDisplayNetwork, "", "Net 2"));
  Add(World().network.global, Resource(os::kNetDisplayNetwork, std::nullopt));
  Add(World().network.global, Resource(os::kNetDisplayServer, "\\\\"));
  Add(World().network.global, Resource(os::kNetDisplayServer, "\\\\srv\\"));
  Add(World().network.global, Resource(os::kNetDisplayShare, "\\\\srv\\" + std::string(kPathLimit, 'x')));
  EnterNetwork();
  ListedPlaces();
  Open("ネットワーク全体");
  EXPECT_EQ(ListedPlaces(), (Lines{"4 [ネット] ネット () 0", "4 [Net 2] Net 2 () 1", "7 [\\\\srv] srv () 2"}));
}

TEST_F(NetworkListing, CutsACommentAtItsLimit) {
  const std::string comment = "x" + std::string(300, '\x95');
  Add(World().network.global, Resource(os::kNetDisplayNetwork, "Net", "Net", comment));
  EnterNetwork();
  ListedPlaces();
  Open("ネットワーク全体");
  ListedPlaces();
  EXPECT_EQ(*table_.rows().front().description, comment.substr(0, kDescriptionLimit));
}

TEST_F(NetworkListing, ListsHundredsOfComputersOnce) {
  World().network.context.batch = 30;
  for (int i = 0; i < 350; ++i) {
    Add(World().network.context, Resource(os::kNetDisplayServer, "\\\\PC" + std::to_string(i)));
  }
  EnterNetwork();
  ListedPlaces();
  Open("近くのコンピュータ");
  World().calls.ClearLog();
  EXPECT_EQ(ListedPlaces().size(), 350U);
  EXPECT_EQ(World().calls.Count("network.Open"), 1U);
  EXPECT_EQ(table_.rows()[349].net, 349);
}

TEST_F(NetworkListing, PlacesThatAreNoNetworkHaveNoNetworkPlaces) {
  AddDrive('C', DriveType::Fixed);
  EnterNetwork();
  for (const std::size_t fixed : {0U, 1U, 2U}) {
    tree_.Enter({fixed, {}});
    EXPECT_TRUE(NetworkPlaces(*os::Services().network, tree_, logon_)->empty());
  }
}

}  // namespace
