#include "dlglib/filedialog/place/fixed_places.h"

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

class FixedPlacesTest : public places::Machine {
 protected:
  Lines Fixed() {
    Build();
    Lines lines;
    for (const Place& place : tree_.fixed()) lines.push_back(Line(place));
    return lines;
  }

  /// The text of the one drive of a machine.
  std::string DriveText() {
    Build();
    return tree_.fixed().at(2).text;
  }
};

// ------------------------------------------------------------------------------------------------- fixed places

TEST_F(FixedPlacesTest, AMachineWithOneFixedDriveWithoutAName) {
  AddDrive('C', DriveType::Fixed);
  EXPECT_EQ(Fixed(), (Lines{"0 0 0 [] デスクトップ", "1 1 1 [] マイコンピュータ", "2 11 2 [C:\\] LOCAL DRIVE (C:)",
                            "1 2 3 [\\\\] マイネットワーク"}));
}

TEST_F(FixedPlacesTest, EveryTypeOfDriveHasItsImageAndLabel) {
  AddDrive('A', DriveType::Removable);
  AddDrive('C', DriveType::Fixed, "システム");
  AddDrive('D', DriveType::CdRom, "DISC");
  AddDrive('R', DriveType::RamDisk, "MEMORY");
  AddDrive('Z', DriveType::Remote, "REMOTE");
  World().network.universalNames["Z:\\"] = "\\\\srv\\docs";
  EXPECT_EQ(Fixed(), (Lines{"0 0 0 [] デスクトップ", "1 1 1 [] マイコンピュータ", "2 14 2 [A:\\] REMOVABLE (A:)",
                            "2 11 3 [C:\\] システム (C:)", "2 13 4 [D:\\] CD-ROM (D:)", "2 15 5 [R:\\] RAMDISK (R:)",
                            "2 12 6 [Z:\\] 'srv' の docs (Z:)", "1 2 7 [\\\\] マイネットワーク"}));
}

TEST_F(FixedPlacesTest, DrivesOfUnknownTypeAndWithoutARootNeverAppear) {
  AddDrive('A', DriveType::Unknown);
  AddDrive('B', DriveType::NoRoot);
  AddDrive('C', DriveType::Fixed);
  AddDrive('E', static_cast<DriveType>(7));
  EXPECT_EQ(Fixed().size(), 4U);
  EXPECT_EQ(tree_.fixed()[2].path, "C:\\");
}

TEST_F(FixedPlacesTest, AllLettersAreTakenInOrder) {
  for (char letter = 'Z'; letter >= 'A'; --letter) AddDrive(letter, DriveType::Fixed);
  Build();
  ASSERT_EQ(tree_.fixed().size(), 29U);
  for (int i = 0; i < 26; ++i) {
    const Place& drive = tree_.fixed()[static_cast<std::size_t>(i) + 2];
    EXPECT_EQ(drive.path, std::string(1, static_cast<char>('A' + i)) + ":\\");
    EXPECT_EQ(drive.index, i + 2);
  }
}

TEST_F(FixedPlacesTest, LettersWithoutADriveAreNotAskedAbout) {
  AddDrive('C', DriveType::Fixed);
  Build();
  EXPECT_EQ(World().calls.Count("drives.Type"), 1U);
}

TEST_F(FixedPlacesTest, AVolumeThatCannotBeAskedIsALocalDrive) {
  AddDrive('C', DriveType::Fixed, std::nullopt);
  EXPECT_EQ(DriveText(), "LOCAL DRIVE (C:)");
}

TEST_F(FixedPlacesTest, NetworkDrivesAreNamedByServerAndShare) {
  AddDrive('Z', DriveType::Remote);
  struct Case {
    const char* universal;
    const char* text;
  };
  const Case cases[] = {{"\\\\srv\\docs", "'srv' の docs (Z:)"},
                        {"\\\\srv\\docs\\deep\\er", "'srv' の docs (Z:)"},
                        {"\\\\サーバ表\\能力\\x", "'サーバ表' の 能力 (Z:)"},
                        {"\\\\srv", "'srv' の  (Z:)"},
                        {"\\\\srv\\", "'srv' の  (Z:)"},
                        {"\\\\", "'' の  (Z:)"},
                        {"Z:\\", "Unknown (Z:)"},
                        {"\\srv\\docs", "Unknown (Z:)"},
                        {"", "Unknown (Z:)"},
                        {"\\\\srv\\do\x95", "'srv' の do\x95 (Z:)"}};
  for (const Case& name : cases) {
    World().network.universalNames["Z:\\"] = name.universal;
    EXPECT_EQ(DriveText(), name.text);
  }
  World().network.universalNames.clear();
  EXPECT_EQ(DriveText(), "Unknown (Z:)");
}

// ---------------------------------------------------------------------------------------------- client's drives

TEST_F(FixedPlacesTest, DrivesOfASessionsClientStandBehindTheDrives) {
  AddDrive('C', DriveType::Fixed);
  os::scripted::NetNode& client = AddClient();
  Add(client, Resource(os::kNetDisplayShare, "\\\\tsclient\\C"));
  Add(client, Resource(os::kNetDisplayShare, "\\\\tsclient\\表\\"));
  World().session.variables["CLIENTNAME"] = "PC-7";
  const Lines fixed = Fixed();
  ASSERT_EQ(fixed.size(), 6U);
  EXPECT_EQ(fixed[3], "2 9 3 [\\\\tsclient\\C] PC-7 の C");
  EXPECT_EQ(fixed[4], "2 9 4 [\\\\tsclient\\表] PC-7 の 表");
  EXPECT_EQ(fixed[5], "1 2 5 [\\\\] マイネットワーク");
}

TEST_F(FixedPlacesTest, AClientWithoutANameHasAWordForIt) {
  Add(AddClient(), Resource(os::kNetDisplayShare, "\\\\tsclient\\C"));
  EXPECT_EQ(Fixed().at(2), "2 9 2 [\\\\tsclient\\C] クライアント の C");
}

TEST_F(FixedPlacesTest, TheProviderIsTheOneThatTheSystemNames) {
  Add(AddClient("端末サービス"), Resource(os::kNetDisplayShare, "\\\\tsclient\\C"));
  EXPECT_EQ(Fixed().size(), 3U);
  World().network.terminalProvider = "端末サービス";
  EXPECT_EQ(Fixed().size(), 4U);
}

TEST_F(FixedPlacesTest, OtherResourcesOfTheClientAreNoDrives) {
  os::scripted::NetNode& client = AddClient();
  Add(client, Resource(os::kNetDisplayShare, "tsclient\\C"));
  Add(client, Resource(os::kNetDisplayShare, "\\tsclient\\C"));
  Add(client, Resource(os::kNetDisplayShare, std::nullopt));
  Add(client, Resource(os::kNetDisplayShare, ""));
  Add(client, Resource(os::kNetDisplayDomain, std::nullopt));
  Add(client, Resource(os::kNetDisplayNetwork, "\\\\tsclient\\web", "Web Client Network"));
  Add(client, Resource(os::kNetDisplayShare, "\\\\tsclient\\" + std::string(kPathLimit, 'x')));
  EXPECT_EQ(Fixed().size(), 3U);
}

TEST_F(FixedPlacesTest, AClientThatCannotBeListedHasNoDrives) {
  os::scripted::NetNode& client = AddClient();
  Add(client, Resource(os::kNetDisplayShare, "\\\\tsclient\\C"));
  client.closeFails = true;
  EXPECT_EQ(Fixed().size(), 3U);
  client.closeFails = false;
  client.openError = 1203;
  EXPECT_EQ(Fixed().size(), 3U);
  EXPECT_TRUE(logon_.shown.empty());
}

TEST_F(FixedPlacesTest, AClientThatRefusesIsAskedForALogonAndHasNoDrives) {
  os::scripted::NetNode& client = AddClient();
  Add(client, Resource(os::kNetDisplayShare, "\\\\tsclient\\C"));
  client.openError = os::kErrorAccessDenied;
  EXPECT_EQ(Fixed().size(), 3U);
  EXPECT_EQ(logon_.shown, Lines{"\\\\tsclient"});
}

TEST_F(FixedPlacesTest, BuildingAgainTakesTheMachineAsItIsNow) {
  AddDrive('C', DriveType::Fixed);
  AddDrive('D', DriveType::Fixed);
  Build();
  World().drives.erase('C');
  EXPECT_EQ(Fixed().at(2), "2 11 2 [D:\\] LOCAL DRIVE (D:)");
  EXPECT_EQ(tree_.FirstDrive().fixed, 2U);
}

// ------------------------------------------------------------------------------------------------------ network

TEST_F(FixedPlacesTest, ANetworkHasTwoMorePlacesUnderIt) {
  World().network.present = true;
  EXPECT_EQ(Fixed(), (Lines{"0 0 0 [] デスクトップ", "1 1 1 [] マイコンピュータ", "1 2 2 [\\\\] マイネットワーク",
                            "1 3 -1 [\\\\] ネットワーク全体", "2 6 -1 [\\\\] 近くのコンピュータ"}));
  EXPECT_EQ(kComputerPlace, 1U);
  EXPECT_EQ(tree_.network(), 2U);
}

// ------------------------------------------------------------------------------------------------------ the window

TEST_F(FixedPlacesTest, AWindowThatHasGoneDuringTheLogonGetsNoPlaces) {
  World().network.present = true;
  AddClient().openError = os::kErrorAccessDenied;
  logon_.takesTheWindowAway = true;
  EXPECT_FALSE(ReadFixedPlaces(os::Services(), DriveNames(os::Services(), nullptr, [] {}), logon_));
  EXPECT_EQ(logon_.shown.size(), 1U);
  EXPECT_EQ(World().calls.Count("network.Present"), 0U) << "nothing is asked any more";
}

}  // namespace
