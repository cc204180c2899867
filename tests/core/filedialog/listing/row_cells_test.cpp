#include "dlglib/filedialog/listing/row_cells.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/os/os_scripted.h"

namespace {

using namespace filedialog;

class RowCells : public testing::Test {
 protected:
  RowCells() { os::scripted::World().Reset(); }
  ~RowCells() override { os::scripted::World().Reset(); }

  static ShownListing Listing(ListingMode mode, int titleClass = 0, int titleCount = 0) {
    ShownListing listing;
    listing.mode = mode;
    listing.titleClass = titleClass;
    listing.titles.count = titleCount;
    return listing;
  }

  static FileEntry Row(EntryKind kind, std::string description) {
    FileEntry row;
    row.kind = kind;
    row.path = "C:\\n";
    row.name = "n";
    row.sizeKb = 12;
    row.description = std::move(description);
    return row;
  }

  /// "column alignment text;" of each cell; "*" marks a filled background.
  static std::string Cells(const FileEntry& row, const ShownListing& listing) {
    std::string text;
    for (const RowCell& cell : CellsOf(*os::Services().drives, row, listing)) {
      text += std::to_string(cell.column) + (cell.align == TextAlign::Right ? "R" : "L") +
              (cell.fillsBackground ? "*" : " ") + cell.text + ";";
    }
    return text;
  }
};

TEST_F(RowCells, DetailsShowTheSizeOfFilesOnly) {
  const ShownListing details = Listing(ListingMode::Details);
  EXPECT_EQ(Cells(Row(EntryKind::File, "date"), details), "0L n;1R*12 KB;2L date;");
  for (const EntryKind kind : {EntryKind::FileShortcut, EntryKind::Folder, EntryKind::FolderShortcut}) {
    EXPECT_EQ(Cells(Row(kind, "date"), details), "0L n;2L date;");
  }
}

TEST_F(RowCells, ModelTitlesHaveAColumnEach) {
  FileEntry row = Row(EntryKind::File, "a");
  row.titles = {"a", "", "c"};
  EXPECT_EQ(Cells(row, Listing(ListingMode::Titles, 1, 3)), "0L n;1L a;2L ;3L c;");
  EXPECT_EQ(Cells(row, Listing(ListingMode::Titles, 1, 1)), "0L n;1L a;");
  EXPECT_EQ(Cells(row, Listing(ListingMode::Titles, 1, 4)), "0L n;1L a;2L ;3L c;");
  EXPECT_EQ(Cells(row, Listing(ListingMode::Titles, 1, 0)), "0L n;");
}

TEST_F(RowCells, OtherRowsAmongModelsShowTheirDescription) {
  FileEntry row = Row(EntryKind::FileShortcut, "first");
  row.titles = {"first", "second"};
  EXPECT_EQ(Cells(row, Listing(ListingMode::Titles, 1, 2)), "0L n;1L first;");
  EXPECT_EQ(Cells(Row(EntryKind::Folder, ""), Listing(ListingMode::Titles, 1, 2)), "0L n;1L ;");
  EXPECT_EQ(Cells(row, Listing(ListingMode::Titles, 1, 0)), "0L n;");
}

TEST_F(RowCells, SingleTitlesAndCommentsAreTheDescription) {
  EXPECT_EQ(Cells(Row(EntryKind::File, "title"), Listing(ListingMode::Titles, 2)), "0L n;1L title;");
  EXPECT_EQ(Cells(Row(EntryKind::NetworkShare, "comment"), Listing(ListingMode::Network)), "0L n;1L comment;");
}

TEST_F(RowCells, DrivesThatAreReadyShowTheirSpace) {
  os::scripted::World().AddDrive('C', {.space = os::DriveSpace{(std::uint64_t{1} << 30) - 1, 1536}});
  FileEntry row = Row(EntryKind::FixedDrive, "type");
  row.path = "C:\\";
  EXPECT_EQ(Cells(row, Listing(ListingMode::Drives)), "0L n;1L type;2R 1023.99 MB;3R 1.50 KB;");
}

TEST_F(RowCells, DrivesThatAreNotReadyShowNone) {
  os::scripted::World().AddDrive('C', {.space = std::nullopt});
  FileEntry row = Row(EntryKind::CdRomDrive, "type");
  row.path = "C:\\";
  EXPECT_EQ(Cells(row, Listing(ListingMode::Drives)), "0L n;1L type;");
}

TEST_F(RowCells, ClientDrivesAreAskedForWithASeparator) {
  FileEntry row = Row(EntryKind::ClientDrive, "type");
  row.path = "\\\\tsclient\\表";
  Cells(row, Listing(ListingMode::Drives));
  EXPECT_EQ(os::scripted::World().calls.Log().back(), "drives.Space \\\\tsclient\\表\\");
}

TEST_F(RowCells, OnlyTheDriveListingAsksForSpace) {
  os::scripted::World().AddDrive('C');
  FileEntry row = Row(EntryKind::FixedDrive, "type");
  row.path = "C:\\";
  EXPECT_EQ(Cells(row, Listing(ListingMode::Network)), "0L n;1L type;");
  EXPECT_EQ(Cells(Row(EntryKind::Folder, "x"), Listing(ListingMode::Drives)), "0L n;1L x;");
  EXPECT_EQ(os::scripted::World().calls.Count("drives.Space"), 0U);
}

TEST_F(RowCells, AnItemSaysItsNameAndItsDescription) {
  const FileEntry row = Row(EntryKind::File, "type");
  EXPECT_EQ(filedialog::TextOfItem(row, 0), "n");
  EXPECT_EQ(filedialog::TextOfItem(row, 1), "type");
  for (const int part : {-1, 2, 3}) EXPECT_EQ(filedialog::TextOfItem(row, part), "");
}

}  // namespace
