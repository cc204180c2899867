// The places and rows of real drives, one of each type, as the system's own calls report them. The drives are made with
// the Wine prefix that the tests run in (cmake/wine-env.sh); elsewhere there are none to look at.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/filedialog/listing/entry_description.h"
#include "dlglib/filedialog/listing/entry_place.h"
#include "dlglib/filedialog/listing/folder_listing.h"
#include "dlglib/filedialog/listing/row_cells.h"
#include "dlglib/filedialog/place/location_tree.h"
#include "platform/os/os.h"
#include "platform/suite/crvncontrol.h"

namespace {

using namespace filedialog;

class NoLogon : public NetworkLogon {
 public:
  Reply<std::optional<Credentials>> Ask(const std::string& path, const std::string&) override {
    ADD_FAILURE() << "a logon is asked for: " << path;
    return std::optional<Credentials>();
  }
};

class SimulatedDrives : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(os::Services().session->Variable("DLGLIB_SIMULATED_DRIVES")) << "start it through cmake/wine-run.sh";
    NoLogon logon;
    DriveNames drives(os::Services(), nullptr, [] {});
    drives.Ask({});
    tree_.Build(ReadFixedPlaces(os::Services(), drives, logon).value());
    ListDrives(tree_, &table_);
  }

  /// Level, image and text of the place of a drive; empty when the drive has none.
  [[nodiscard]] std::string PlaceOf(const std::string& root) const {
    for (const Place& place : tree_.fixed()) {
      if (place.path == root)
        return std::to_string(place.level) + ' ' + std::to_string(NumberOf(place.kind)) + ' ' + place.text;
    }
    return {};
  }

  /// The texts of a drive's row behind its name.
  std::vector<std::string> CellsBehindName(const std::string& root) {
    const ShownListing listing{ListingMode::Drives, 0, {}};
    std::vector<std::string> texts;
    for (FileEntry& row : table_.rows()) {
      if (row.path != root) continue;
      Describe(*os::Services().files, &row, listing);
      for (const RowCell& cell : CellsOf(*os::Services().drives, row, listing)) {
        if (cell.column > 0) texts.push_back(cell.text);
      }
    }
    return texts;
  }

  LocationTree tree_{*os::Services().shell};
  EntryTable table_;
};

TEST_F(SimulatedDrives, EachTypeHasItsImageAndLabel) {
  EXPECT_EQ(PlaceOf("I:\\"), "2 14 REMOVABLE (I:)");
  EXPECT_EQ(PlaceOf("J:\\"), "2 11 図面 (J:)");
  EXPECT_EQ(PlaceOf("K:\\"), "2 11 LOCAL DRIVE (K:)");
  EXPECT_EQ(PlaceOf("L:\\"), "2 13 CD-ROM (L:)");
  EXPECT_EQ(PlaceOf("M:\\"), "2 15 RAMDISK (M:)");
  EXPECT_EQ(PlaceOf("N:\\"), "2 12 Unknown (N:)") << "Wine knows no universal name of it";
  EXPECT_EQ(PlaceOf("Q:\\"), "");
}

TEST_F(SimulatedDrives, EachRowNamesItsTypeAndAReadyOneItsSpace) {
  const std::vector<std::pair<std::string, std::string>> ready = {{"I:\\", "リムーバブルドライブ"},
                                                                  {"J:\\", "ローカルドライブ"},
                                                                  {"M:\\", "RAM-DISK"},
                                                                  {"N:\\", "ネットワークドライブ"}};
  for (const auto& [root, type] : ready) {
    const std::vector<std::string> texts = CellsBehindName(root);
    ASSERT_EQ(texts.size(), 3U) << root;
    EXPECT_EQ(texts[0], type);
    EXPECT_TRUE(texts[1].ends_with("B")) << texts[1];
    EXPECT_TRUE(texts[2].ends_with("B")) << texts[2];
  }
  EXPECT_EQ(CellsBehindName("L:\\"), std::vector<std::string>{"CD-ROM"}) << "the drive is not ready";
}

TEST_F(SimulatedDrives, ADriveThatIsNotReadyOpensAndIsEmpty) {
  const auto row = std::find_if(table_.rows().begin(), table_.rows().end(),
                                [](const FileEntry& entry) { return entry.path == "L:\\"; });
  ASSERT_NE(row, table_.rows().end());
  const auto location = LocationOfEntry(*os::Services().files, tree_, *row, {});
  ASSERT_TRUE(location.has_value());
  tree_.Enter(*location);
  EXPECT_EQ(tree_.Folder(), "L:\\");
  EntryTable listed;
  EXPECT_TRUE(ListFolder(
      *os::Services().files,
      {tree_.Folder(), MakeFileKind("#MODEL#(*)", "", 1, *CwSession::GetInstance()), FinderMode::FilesAndFolders},
      &listed));
  EXPECT_EQ(listed.size(), 0U);
}

}  // namespace
