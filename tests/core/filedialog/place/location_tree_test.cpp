#include "dlglib/filedialog/place/location_tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "tests/core/filedialog/place/places.h"

namespace {

using namespace filedialog;
using os::DriveType;
using os::scripted::World;
using places::Add;
using places::AddClient;
using places::Line;
using places::Lines;
using places::Resource;

class LocationTreeTest : public places::Machine {
 protected:
  /// The displayed rows; the current one begins with ">", those of the path bear their number.
  Lines Rows() const {
    Lines lines;
    for (std::size_t row = 0; row < tree_.rows().size(); ++row) {
      const Place& place = tree_.rows()[row];
      const std::string sub = place.sub == 0 ? "" : " #" + std::to_string(place.sub);
      lines.push_back((row == tree_.currentRow() ? ">" : "") + Line(place) + sub + (place.marked ? " *" : ""));
    }
    return lines;
  }
};

// --------------------------------------------------------------------------------------------------------- rows

TEST_F(LocationTreeTest, TheFirstDriveIsSelectedWhenNothingElseIs) {
  AddDrive('A', DriveType::Unknown);
  AddTwoDrivesAndANetwork();
  EXPECT_EQ(Rows(), (Lines{"0 0 0 [] デスクトップ", "1 1 1 [] マイコンピュータ", ">2 11 2 [C:\\] LOCAL DRIVE (C:) *",
                           "2 13 3 [D:\\] CD-ROM (D:)", "1 2 4 [\\\\] マイネットワーク",
                           "1 3 5 [\\\\] ネットワーク全体", "2 6 6 [\\\\] 近くのコンピュータ"}));
  EXPECT_EQ(tree_.Folder(), "C:\\");
}

TEST_F(LocationTreeTest, AClientsDriveIsNotTheFirstDriveOfTheMachine) {
  World().network.terminalProvider = places::kTerminal;
  Add(AddClient(), Resource(os::kNetDisplayShare, "\\\\tsclient\\C", places::kTerminal));
  AddDrive('C', DriveType::Fixed);
  Build();
  EXPECT_EQ(tree_.fixed().at(3).kind, EntryKind::ClientDrive);
  EXPECT_EQ(tree_.FirstDrive().fixed, 2U);
  EXPECT_TRUE(tree_.TakeDrives({{"C:\\", true, std::nullopt}}));
  EXPECT_EQ(tree_.FirstDrive().fixed, kComputerPlace);
}

TEST_F(LocationTreeTest, ATreeThatIsNotBuiltHasNoDriveAndNoPlaceForAFolder) {
  EXPECT_EQ(tree_.FirstDrive().fixed, kComputerPlace);
  EXPECT_FALSE(tree_.Find("C:\\"));
}

TEST_F(LocationTreeTest, ADriveThatIsNoneIsFoundNoMoreAndGoesFromTheRows) {
  AddTwoDrivesAndANetwork();
  EXPECT_TRUE(tree_.TakeDrives({{"C:\\", true, std::nullopt}, {"X:\\", true, std::nullopt}}));
  EXPECT_EQ(tree_.rows().size(), 7U) << "an open list stays as it is";
  EXPECT_FALSE(tree_.Find("C:\\data"));
  EXPECT_EQ(tree_.FirstDrive().fixed, 3U);
  Enter("D:\\");
  EXPECT_EQ(Rows().at(2), ">2 13 3 [D:\\] CD-ROM (D:) *") << "the others keep their positions";
  EXPECT_TRUE(tree_.TakeDrives({{"D:\\", true, std::nullopt}}));
  EXPECT_FALSE(tree_.TakeDrives({{"D:\\", true, std::nullopt}})) << "that is known";
  EXPECT_EQ(tree_.FirstDrive().fixed, kComputerPlace);
  tree_.Enter(tree_.current());
  EXPECT_EQ(Rows().at(2), ">2 13 3 [D:\\] CD-ROM (D:) *") << "one stands in it";
}

TEST_F(LocationTreeTest, ANameThatComesLateChangesItsRowOnly) {
  AddTwoDrivesAndANetwork();
  Enter("C:\\data");
  EXPECT_FALSE(tree_.TakeDrives({{"C:\\", true, DriveLook{EntryKind::FixedDrive, "LOCAL DRIVE"}}})) << "as it is";
  EXPECT_FALSE(tree_.TakeDrives({{"C:\\", false, DriveLook{EntryKind::FixedDrive, ""}}})) << "not known yet";
  EXPECT_TRUE(tree_.TakeDrives({{"C:\\", true, DriveLook{EntryKind::RamDisk, "RAMDISK"}}}));
  EXPECT_EQ(Rows().at(2), "2 15 2 [C:\\] RAMDISK (C:) *");
  EXPECT_EQ(tree_.fixed()[2].text, "RAMDISK (C:)");
  EXPECT_EQ(tree_.Folder(), "C:\\data");
}

TEST_F(LocationTreeTest, AMachineWithoutDrivesStartsAtTheComputer) {
  Build();
  EXPECT_EQ(Rows(), (Lines{"0 0 0 [] デスクトップ", ">1 1 1 [] マイコンピュータ *", "1 2 2 [\\\\] マイネットワーク"}));
  EXPECT_EQ(tree_.Folder(), "");
  EXPECT_EQ(tree_.Kind(), LocationKind::Computer);
}

TEST_F(LocationTreeTest, FoldersOfThePathStandUnderTheirDrive) {
  AddDrive('C', DriveType::Fixed);
  AddDrive('D', DriveType::Removable);
  Build();
  Enter("D:\\図面\\表\\x");
  EXPECT_EQ(Rows(),
            (Lines{"0 0 0 [] デスクトップ", "1 1 1 [] マイコンピュータ", "2 11 2 [C:\\] LOCAL DRIVE (C:)",
                   "2 14 3 [D:\\] REMOVABLE (D:) *", "3 17 -1 [D:\\図面] 図面 #1", "4 17 -1 [D:\\図面\\表] 表 #2",
                   ">5 17 -1 [D:\\図面\\表\\x] x #3", "1 2 4 [\\\\] マイネットワーク"}));
  EXPECT_EQ(tree_.Folder(), "D:\\図面\\表\\x");
  EXPECT_EQ(tree_.Kind(), LocationKind::Folder);
}

TEST_F(LocationTreeTest, PathsOfTheNetworkGoThroughComputerAndShare) {
  AddTwoDrivesAndANetwork();
  Enter("\\\\srv\\docs\\sub");
  const Lines rows = Rows();
  ASSERT_EQ(rows.size(), 10U);
  EXPECT_EQ(rows[4], "1 2 4 [\\\\] マイネットワーク *");
  EXPECT_EQ(rows[5], "2 7 -1 [\\\\srv] srv #1");
  EXPECT_EQ(rows[6], "3 8 -1 [\\\\srv\\docs] docs #2");
  EXPECT_EQ(rows[7], ">4 17 -1 [\\\\srv\\docs\\sub] sub #3");
  EXPECT_EQ(tree_.Kind(), LocationKind::Folder);
  EXPECT_EQ(tree_.Folder(), "\\\\srv\\docs\\sub");
}

TEST_F(LocationTreeTest, FoldersOfAClientsDriveStandUnderIt) {
  os::scripted::NetNode& client = AddClient();
  Add(client, Resource(os::kNetDisplayShare, "\\\\tsclient\\表"));
  Build();
  Enter("\\\\TSCLIENT\\表\\a\\b");
  EXPECT_EQ(Rows(), (Lines{"0 0 0 [] デスクトップ", "1 1 1 [] マイコンピュータ",
                           "2 9 2 [\\\\tsclient\\表] クライアント の 表 *", "3 17 -1 [\\\\tsclient\\表\\a] a #1",
                           ">4 17 -1 [\\\\tsclient\\表\\a\\b] b #2", "1 2 3 [\\\\] マイネットワーク"}));
  EXPECT_EQ(tree_.Kind(), LocationKind::Folder);
}

TEST_F(LocationTreeTest, EveryRowLeadsWhereItSays) {
  AddTwoDrivesAndANetwork();
  Enter("C:\\a\\b\\c");
  const std::vector<Place> rows = tree_.rows();
  const auto find = [&](const std::string& folder) { return tree_.Find(folder).value().trail.size(); };
  for (std::size_t row = 0; row < rows.size(); ++row) {
    Enter("C:\\a\\b\\c");
    tree_.Enter(tree_.LocationOfRow(row));
    const Place& now = tree_.rows()[tree_.currentRow()];
    EXPECT_EQ(now.text, rows[row].text);
    EXPECT_EQ(now.path, rows[row].path);
    EXPECT_EQ(now.index, rows[row].index);
    if (now.sub > 0) {
      EXPECT_EQ(find(now.path), static_cast<std::size_t>(now.sub));
    }
    EXPECT_EQ(std::count_if(tree_.fixed().begin(), tree_.fixed().end(), [](const Place& p) { return p.marked; }), 1);
  }
}

TEST_F(LocationTreeTest, ARowThatIsNotThereLeadsNowhereElse) {
  AddTwoDrivesAndANetwork();
  Enter("C:\\a");
  for (const std::size_t row : {std::size_t{8}, std::size_t{1000}, static_cast<std::size_t>(-1)}) {
    EXPECT_EQ(tree_.LocationOfRow(row).trail.size(), 1U);
  }
  tree_.Enter({99, {}});
  EXPECT_EQ(tree_.Folder(), "C:\\a");
}

TEST_F(LocationTreeTest, ATreeThatWasNotBuiltIsEmpty) {
  EXPECT_TRUE(tree_.rows().empty());
  EXPECT_EQ(tree_.RowAbove(), std::nullopt);
  EXPECT_EQ(tree_.Find("C:\\"), std::nullopt);
  EXPECT_EQ(tree_.Resource(), nullptr);
  tree_.Enter({});
  EXPECT_TRUE(tree_.rows().empty());
}

// ----------------------------------------------------------------------------------------------- what is listed

TEST_F(LocationTreeTest, TheDesktopListsItsDirectory) {
  AddTwoDrivesAndANetwork();
  World().shell.desktopFolder = "C:\\デスクトップ";
  tree_.Enter({0, {}});
  EXPECT_EQ(tree_.Kind(), LocationKind::Desktop);
  EXPECT_EQ(tree_.Folder(), "C:\\デスクトップ");
  World().shell.desktopFolder.reset();
  EXPECT_EQ(tree_.Folder(), "");
}

TEST_F(LocationTreeTest, NetworkPlacesUpToTheComputerAreNoFolders) {
  AddTwoDrivesAndANetwork();
  for (const std::size_t fixed : {4U, 5U, 6U}) {
    tree_.Enter({fixed, {}});
    EXPECT_EQ(tree_.Kind(), LocationKind::Network);
    EXPECT_EQ(tree_.Folder(), "");
  }
  for (const EntryKind kind : {EntryKind::NetworkProvider, EntryKind::NetworkDomain, EntryKind::NetworkServer}) {
    Place place;
    place.kind = kind;
    place.path = "x";
    tree_.Enter(tree_.Below(place));
    EXPECT_EQ(tree_.Kind(), LocationKind::Network) << NumberOf(kind);
    EXPECT_EQ(tree_.Folder(), "");
  }
  Place share;
  share.kind = EntryKind::NetworkShare;
  share.path = "\\\\srv\\docs";
  tree_.Enter(tree_.Below(share));
  EXPECT_EQ(tree_.Kind(), LocationKind::Folder);
  EXPECT_EQ(tree_.Folder(), "\\\\srv\\docs");
}

// --------------------------------------------------------------------------------------------------------- find

TEST_F(LocationTreeTest, FindsDrivesInAnyCaseAndWithAnySeparators) {
  AddTwoDrivesAndANetwork();
  struct Case {
    const char* folder;
    std::size_t fixed;
    const char* found;
  };
  const Case cases[] = {{"C:\\", 2, "C:\\"},
                        {"C:", 2, "C:\\"},
                        {"c:\\Data", 2, "C:\\Data"},
                        {"C:\\a\\", 2, "C:\\a"},
                        {"C:\\\\a\\\\\\b", 2, "C:\\a\\b"},
                        {"D:\\表\\ソ", 3, "D:\\表\\ソ"},
                        {"\\\\", 4, ""},
                        {"\\\\srv", 4, ""},
                        {"\\\\srv\\docs\\", 4, "\\\\srv\\docs"},
                        {"C:/a\\b//表/", 2, "C:\\a\\b\\表"},
                        {"//srv/docs/a", 4, "\\\\srv\\docs\\a"},
                        {"C:\\a\x95", 2, "C:\\a\x95"}};
  for (const Case& folder : cases) {
    const auto location = tree_.Find(folder.folder);
    ASSERT_TRUE(location) << folder.folder;
    EXPECT_EQ(location->fixed, folder.fixed) << folder.folder;
    tree_.Enter(*location);
    EXPECT_EQ(tree_.Folder(), folder.found) << folder.folder;
  }
}

TEST_F(LocationTreeTest, TheDesktopsFolderIsTheDesktopWhileItIsShown) {
  AddTwoDrivesAndANetwork();
  World().shell.desktopFolder = "C:\\desk";
  Enter("D:\\");
  EXPECT_EQ(tree_.Find("C:\\desk")->fixed, 2U);
  tree_.Enter({0, {}});
  EXPECT_EQ(tree_.Find("c:\\DESK\\")->fixed, 0U);
  EXPECT_EQ(tree_.Find("C:\\desk\\sub")->fixed, 2U);
  EXPECT_FALSE(tree_.Find(""));
}

TEST_F(LocationTreeTest, FoldersBelowAPlaceOfTheNetworkStandThere) {
  AddTwoDrivesAndANetwork();
  tree_.Enter({tree_.network(), {}});
  Place domain;
  domain.kind = EntryKind::NetworkDomain;
  domain.path = domain.text = "DOMAIN";
  Place server;
  server.kind = EntryKind::NetworkServer;
  server.path = "\\\\srv";
  server.text = "srv";
  server.resource = std::make_shared<os::NetResource>();
  tree_.Enter(tree_.Below(domain));
  tree_.Enter(tree_.Below(server));
  const auto texts = [this](const std::string& folder) {
    Lines lines;
    const auto location = tree_.Find(folder);
    for (const Place& place : location->trail) {
      lines.push_back(std::to_string(place.level) + " " + std::to_string(NumberOf(place.kind)) + " " + place.text);
    }
    return lines;
  };
  const Lines deep = {"2 5 DOMAIN", "3 7 srv", "4 8 docs", "5 17 表"};
  EXPECT_EQ(texts("\\\\SRV\\docs\\.\\表\\"), deep);
  tree_.Enter(*tree_.Find("\\\\srv\\docs\\表"));
  EXPECT_EQ(texts("\\\\srv\\docs\\表"), deep);
  EXPECT_EQ(texts("\\\\srv\\docs"), (Lines{"2 5 DOMAIN", "3 7 srv", "4 8 docs"}));
  EXPECT_EQ(texts("\\\\srv\\other\\x"), (Lines{"2 5 DOMAIN", "3 7 srv", "4 8 other", "5 17 x"}));
  EXPECT_NE(tree_.Resource(), nullptr);
  EXPECT_EQ(texts("\\\\srv\\docs\\表\\.."), (Lines{"2 7 srv", "3 8 docs"}));
  EXPECT_EQ(texts("\\\\srv2\\docs"), (Lines{"2 7 srv2", "3 8 docs"}));
  EXPECT_EQ(tree_.Find("D:\\x")->fixed, 3U);
}

TEST_F(LocationTreeTest, NamesOfFoldersKeepTheirLetters) {
  AddTwoDrivesAndANetwork();
  Enter("c:\\MiXed\\ａＢ");
  EXPECT_EQ(tree_.rows()[tree_.currentRow()].text, "ａＢ");
  EXPECT_EQ(tree_.Folder(), "C:\\MiXed\\ａＢ");
}

TEST_F(LocationTreeTest, PointsInAPathAreWorkedOut) {
  AddTwoDrivesAndANetwork();
  struct Case {
    const char* folder;
    const char* found;
  };
  const Case cases[] = {{"C:\\a\\.\\b", "C:\\a\\b"},
                        {"C:\\a\\b\\..", "C:\\a"},
                        {"C:\\a\\..\\..\\..", "C:\\"},
                        {"C:\\..\\x", "C:\\x"},
                        {"C:\\.", "C:\\"},
                        {"C:\\a\\...\\b", "C:\\a\\...\\b"},
                        {"\\\\srv\\docs\\..", "\\\\srv\\docs"},
                        {"\\\\srv\\docs\\a\\..", "\\\\srv\\docs"}};
  for (const Case& folder : cases) {
    Enter(folder.folder);
    EXPECT_EQ(tree_.Folder(), folder.found);
  }
}

TEST_F(LocationTreeTest, DoesNotFindWhatNoPlaceHolds) {
  AddTwoDrivesAndANetwork();
  for (const char* folder : {"", "E:\\", "E:\\data", "data", "\\data", "\\", "C", "C:data", "CC:\\", "::\\", "表\\x"}) {
    EXPECT_FALSE(tree_.Find(folder)) << folder;
  }
  World().drives.erase('D');
  Build();
  EXPECT_FALSE(tree_.Find("D:\\data"));
}

TEST_F(LocationTreeTest, ACharactersSecondByteIsNoSeparator) {
  os::scripted::NetNode& client = AddClient();
  Add(client, Resource(os::kNetDisplayShare, "\\\\tsclient\\表"));
  Add(client, Resource(os::kNetDisplayShare, "\\\\tsclient\\\x83\x61"));
  Build();
  EXPECT_EQ(tree_.Find("\\\\tsclient\\表示\\x").value().fixed, tree_.network());
  EXPECT_EQ(tree_.Find("\\\\tsclient\\\x83\x41\\x").value().fixed, tree_.network());
  EXPECT_EQ(tree_.Find("\\\\tsclient\\表\\x").value().fixed, 2U);
}

TEST_F(LocationTreeTest, PathsBeyondTheLimitAreNotFound) {
  AddTwoDrivesAndANetwork();
  const std::string longest = "C:\\" + std::string(253, 'x');
  ASSERT_EQ(longest.size(), kPathLimit);
  Enter(longest);
  EXPECT_EQ(tree_.Folder(), longest);
  EXPECT_FALSE(tree_.Find(longest + "x"));
  std::string deep = "C:";
  while (deep.size() < 100000) deep += "\\x";
  EXPECT_FALSE(tree_.Find(deep));
  EXPECT_FALSE(tree_.Find(std::string(100000, '\\')));
  EXPECT_FALSE(tree_.Find(std::string(100000, '\x95')));
}

TEST_F(LocationTreeTest, EveryByteAndWhatFollowsItIsANameOrASeparator) {
  AddTwoDrivesAndANetwork();
  for (int first = 0; first < 256; ++first) {
    for (const char second : {'.', '/', '\\', '@', 'A', 'a', '\x80', '\x95', '\xB1', '\xE0', '\xFF'}) {
      const std::string name = {static_cast<char>(first), second};
      for (const char* root : {"C:\\", "\\\\srv\\"}) {
        const auto location = tree_.Find(root + name + "\\x");
        ASSERT_TRUE(location);
        tree_.Enter(*location);
        const std::string folder = tree_.Folder();
        EXPECT_LE(folder.size(), kPathLimit);
        EXPECT_EQ(tree_.Find(folder).value().trail.size(), location->trail.size());
      }
    }
  }
}

TEST_F(LocationTreeTest, EveryCutOfAPathIsTaken) {
  AddTwoDrivesAndANetwork();
  const std::string whole = "\\\\表サ\\ソ能\\..\\表\\.\\ｱ";
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const auto location = tree_.Find(whole.substr(0, length));
    EXPECT_EQ(location.has_value(), length >= 2) << length;
  }
}

TEST_F(LocationTreeTest, ADeepPathShowsEveryFolder) {
  AddTwoDrivesAndANetwork();
  std::string deep = "C:";
  while (deep.size() + 2 <= kPathLimit) deep += "\\x";
  Enter(deep);
  EXPECT_EQ(tree_.rows().size(), 7U + 127);
  EXPECT_EQ(tree_.rows()[tree_.currentRow()].level, 2 + 127);
  EXPECT_EQ(tree_.Folder(), deep);
}

// -------------------------------------------------------------------------------------------------------- below

TEST_F(LocationTreeTest, AFolderThatIsOpenedStandsBelowTheCurrentOne) {
  AddTwoDrivesAndANetwork();
  Enter("C:\\a");
  Place place;
  place.kind = EntryKind::Folder;
  place.path = "C:\\a\\b";
  place.text = "b";
  tree_.Enter(tree_.Below(place));
  const Place& row = tree_.rows()[tree_.currentRow()];
  EXPECT_EQ(Line(row), "4 17 -1 [C:\\a\\b] b");
  EXPECT_EQ(row.sub, 2);
}

TEST_F(LocationTreeTest, ThePlacesBelowTheNetworkLeadToThemselves) {
  AddTwoDrivesAndANetwork();
  tree_.Enter({tree_.network(), {}});
  for (const std::size_t fixed : {5U, 6U}) {
    const Location location = tree_.Below(tree_.fixed()[fixed]);
    EXPECT_EQ(location.fixed, fixed);
    EXPECT_TRUE(location.trail.empty());
  }
}

TEST_F(LocationTreeTest, WhatIsFoundInThemStandsBelowTheNetwork) {
  AddTwoDrivesAndANetwork();
  Place provider;
  provider.kind = EntryKind::NetworkProvider;
  provider.path = "Net";
  provider.text = "Net";
  for (const std::size_t fixed : {4U, 5U, 6U}) {
    tree_.Enter({fixed, {}});
    tree_.Enter(tree_.Below(provider));
    EXPECT_EQ(Rows().at(4), "1 2 4 [\\\\] マイネットワーク *");
    EXPECT_EQ(Rows().at(5), ">2 4 -1 [Net] Net #1");
  }
}

TEST_F(LocationTreeTest, TheInnermostRecordIsTheResource) {
  AddTwoDrivesAndANetwork();
  EXPECT_EQ(tree_.Resource(), nullptr);
  Place share;
  share.kind = EntryKind::NetworkShare;
  share.path = "\\\\srv\\docs";
  share.resource = std::make_shared<const os::NetResource>(Resource(os::kNetDisplayShare, "\\\\srv\\docs").record);
  tree_.Enter({tree_.network(), {}});
  tree_.Enter(tree_.Below(share));
  Place folder;
  folder.kind = EntryKind::Folder;
  folder.path = "\\\\srv\\docs\\a";
  tree_.Enter(tree_.Below(folder));
  ASSERT_NE(tree_.Resource(), nullptr);
  EXPECT_EQ(tree_.Resource()->remoteName, "\\\\srv\\docs");
}

// ----------------------------------------------------------------------------------------------------------- up

TEST_F(LocationTreeTest, UpWalksThePathThenTheTree) {
  AddTwoDrivesAndANetwork();
  Enter("D:\\a\\b");
  Lines climbed;
  while (const auto row = tree_.RowAbove()) {
    tree_.Enter(tree_.LocationOfRow(*row));
    climbed.push_back(tree_.rows()[tree_.currentRow()].text);
  }
  EXPECT_EQ(climbed, (Lines{"a", "CD-ROM (D:)", "マイコンピュータ", "デスクトップ"}));
}

TEST_F(LocationTreeTest, UpFromTheNetwork) {
  AddTwoDrivesAndANetwork();
  Enter("\\\\srv\\docs");
  Lines climbed;
  while (const auto row = tree_.RowAbove()) {
    tree_.Enter(tree_.LocationOfRow(*row));
    climbed.push_back(tree_.rows()[tree_.currentRow()].text);
  }
  EXPECT_EQ(climbed, (Lines{"srv", "マイネットワーク", "デスクトップ"}));
  tree_.Enter({6, {}});
  EXPECT_EQ(tree_.RowAbove(), 5U);
}

}  // namespace
