#include "dlglib/filedialog/listing/entry_place.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "dlglib/filedialog/listing/entry_description.h"
#include "dlglib/filedialog/listing/network_listing.h"
#include "dlglib/filedialog/listing/row_cells.h"
#include "tests/core/filedialog/place/places.h"

namespace {

using namespace filedialog;
using os::DriveType;
using os::scripted::World;
using places::Add;
using places::Resource;

class EntryPlace : public places::Machine {
 protected:
  void BuildTwoDrives() {
    AddDrive('C', DriveType::Fixed);
    AddDrive('D', DriveType::CdRom);
    Build();
  }

  /// The folder of a location; "(none)" without one.
  std::string FolderOf(const std::optional<Location>& location) {
    if (!location) return "(none)";
    tree_.Enter(*location);
    return tree_.Folder();
  }

  std::string Open(EntryKind kind, const std::string& path) {
    EntryTable table;
    return FolderOf(LocationOfEntry(*os::Services().files, tree_, table.Add(kind, path, path, false), {}));
  }
};

// ------------------------------------------------------------------------------------------------------- drives

TEST_F(EntryPlace, TheComputerShowsItsDrivesInTheBarsOrder) {
  AddDrive('A', DriveType::Removable);
  AddDrive('C', DriveType::Fixed, "システム");
  AddDrive('D', DriveType::CdRom);
  AddDrive('R', DriveType::RamDisk);
  AddDrive('Z', DriveType::Remote);
  Add(places::AddClient(), Resource(os::kNetDisplayShare, "\\\\tsclient\\C"));
  World().network.present = true;
  Build();
  EntryTable table;
  table.Add(EntryKind::File, "C:\\old", "old", false);
  ListDrives(tree_, &table);
  std::vector<std::string> rows;
  for (const FileEntry& row : table.rows()) {
    rows.push_back(std::to_string(static_cast<int>(row.kind)) + " " + std::string(row.path) + "|" +
                   std::string(row.name));
    EXPECT_EQ(row.net, -1);
  }
  EXPECT_EQ(rows, (std::vector<std::string>{"14 A:\\|REMOVABLE (A:)", "11 C:\\|システム (C:)", "13 D:\\|CD-ROM (D:)",
                                            "15 R:\\|RAMDISK (R:)", "12 Z:\\|Unknown (Z:)",
                                            "9 \\\\tsclient\\C|クライアント の C"}));
}

TEST_F(EntryPlace, DrivesAreDescribedByTypeAndSpace) {
  AddDrive('C', DriveType::Fixed);
  Build();
  EntryTable table;
  ListDrives(tree_, &table);
  FileEntry& row = table.rows().front();
  ShownListing listing;
  listing.mode = ListingMode::Drives;
  Describe(*os::Services().files, &row, listing);
  const std::vector<RowCell> cells = CellsOf(*os::Services().drives, row, listing);
  ASSERT_EQ(cells.size(), 4U);
  EXPECT_EQ(cells[0].text, "LOCAL DRIVE (C:)");
  EXPECT_EQ(cells[1].text, "ローカルドライブ");
  EXPECT_EQ(cells[2].text, "1.00 GB");
  EXPECT_EQ(cells[3].text, "512.00 MB");
}

// ------------------------------------------------------------------------------------------------------ opening

TEST_F(EntryPlace, ADriveIsOpenedReadyOrNot) {
  BuildTwoDrives();
  World().AddDrive('E', {.type = DriveType::Removable, .volumeName = std::nullopt, .space = std::nullopt});
  Build();
  EXPECT_EQ(Open(EntryKind::CdRomDrive, "D:\\"), "D:\\");
  EXPECT_EQ(Open(EntryKind::RemovableDrive, "E:\\"), "E:\\");
}

TEST_F(EntryPlace, AFolderOpensBelowTheCurrentOne) {
  BuildTwoDrives();
  World().files.AddFolder("D:\\a\\表");
  Enter("D:\\a");
  EXPECT_EQ(Open(EntryKind::Folder, "D:\\a\\表"), "D:\\a\\表");
  EXPECT_EQ(tree_.current().trail.size(), 2U);
}

TEST_F(EntryPlace, AFolderOfTheDesktopOpensBelowItsDrive) {
  BuildTwoDrives();
  World().files.AddFolder("C:\\desk\\a");
  World().shell.desktopFolder = "C:\\desk";
  tree_.Enter({0, {}});
  EXPECT_EQ(Open(EntryKind::Folder, "C:\\desk\\a"), "C:\\desk\\a");
  EXPECT_EQ(tree_.current().fixed, 2U);
  EXPECT_EQ(tree_.current().trail.size(), 2U);
}

TEST_F(EntryPlace, AShortcutToAFolderOpensItsTarget) {
  BuildTwoDrives();
  World().files.AddFolder("D:\\far\\x");
  EXPECT_EQ(Open(EntryKind::FolderShortcut, "D:\\far\\x"), "D:\\far\\x");
  EXPECT_EQ(Open(EntryKind::FolderShortcut, "D:\\"), "D:\\");
}

TEST_F(EntryPlace, WhatHasVanishedDoesNotOpen) {
  BuildTwoDrives();
  EXPECT_EQ(Open(EntryKind::Folder, "C:\\gone"), "(none)");
  EXPECT_EQ(Open(EntryKind::FolderShortcut, "D:\\gone"), "(none)");
  EXPECT_EQ(Open(EntryKind::FolderShortcut, "Q:\\gone"), "(none)");
}

TEST_F(EntryPlace, FilesLeadNowhere) {
  BuildTwoDrives();
  World().files.AddFile("C:\\a.mdl");
  EXPECT_EQ(Open(EntryKind::File, "C:\\a.mdl"), "(none)");
  EXPECT_EQ(Open(EntryKind::FileShortcut, "C:\\a.mdl"), "(none)");
  EXPECT_EQ(Open(EntryKind::Folder, "C:\\a.mdl"), "(none)");
}

TEST_F(EntryPlace, APlaceOfTheNetworkOpensItself) {
  Add(World().network.context, Resource(os::kNetDisplayServer, "\\\\NEAR"));
  World().network.present = true;
  Build();
  tree_.Enter({tree_.network(), {}});
  EntryTable table;
  std::vector<Place> shown = NetworkPlaces(*os::Services().network, tree_, logon_).value();
  ListPlaces(shown, &table);
  ASSERT_EQ(table.size(), 2U);
  const auto nearby = LocationOfEntry(*os::Services().files, tree_, table.rows()[1], shown);
  ASSERT_TRUE(nearby);
  tree_.Enter(*nearby);
  shown = NetworkPlaces(*os::Services().network, tree_, logon_).value();
  ListPlaces(shown, &table);
  ASSERT_EQ(table.size(), 1U);
  const auto server = LocationOfEntry(*os::Services().files, tree_, table.rows()[0], shown);
  ASSERT_TRUE(server);
  ASSERT_EQ(server->trail.size(), 1U);
  EXPECT_EQ(server->trail[0].path, "\\\\NEAR");
  EXPECT_FALSE(LocationOfEntry(*os::Services().files, tree_, table.rows()[0], {}));
}

}  // namespace
