#include "dlglib/filedialog/listing/entry_description.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "tests/support/encodings.h"

namespace {

using namespace filedialog;

constexpr std::int64_t kTime = 1709618828;  // 2024-03-05 15:07:08 in Japan
const std::string kDate = " 2024/03/05 15:07:08";

ShownListing Details() { return {}; }

ShownListing Titles(int titleClass, const std::vector<std::int16_t>& items = {}) {
  ShownListing listing;
  listing.mode = ListingMode::Titles;
  listing.titleClass = titleClass;
  listing.titles.count = static_cast<int>(items.size());
  listing.titles.items = {};
  std::copy(items.begin(), items.end(), listing.titles.items.begin());
  return listing;
}

using test_texts::Euc;

class EntryDescription : public testing::Test {
 protected:
  EntryDescription() {
    CwSession::Reset();
    os::scripted::World().Reset();
  }
  ~EntryDescription() override {
    CwSession::Reset();
    os::scripted::World().Reset();
  }

  static void AddFile(const std::string& path, const std::string& bytes) {
    os::scripted::World().files.AddFile(path, bytes, kTime);
  }

  static FileEntry Row(EntryKind kind, std::string_view path) {
    FileEntry row;
    row.kind = kind;
    row.path = path;
    return row;
  }

  static FileEntry Described(EntryKind kind, std::string_view path, const ShownListing& listing) {
    FileEntry row = Row(kind, path);
    Describe(*os::Services().files, &row, listing);
    EXPECT_TRUE(row.described);
    return row;
  }
};

TEST_F(EntryDescription, DrivesHaveTheTextOfTheirType) {
  const std::pair<EntryKind, const char*> texts[] = {
      {EntryKind::ClientDrive, "クライアントドライブ"},    {EntryKind::FixedDrive, "ローカルドライブ"},
      {EntryKind::NetworkDrive, "ネットワークドライブ"},   {EntryKind::CdRomDrive, "CD-ROM"},
      {EntryKind::RemovableDrive, "リムーバブルドライブ"}, {EntryKind::RamDisk, "RAM-DISK"}};
  ShownListing listing;
  listing.mode = ListingMode::Drives;
  for (const auto& [kind, text] : texts) {
    FileEntry row = Described(kind, "X:\\", listing);
    EXPECT_EQ(*row.description, text);
    row.description = "stale";
    Describe(*os::Services().files, &row, listing);
    EXPECT_EQ(*row.description, text);
  }
  EXPECT_EQ(os::scripted::World().calls.Total(), 0U);
}

TEST_F(EntryDescription, NetworkPlacesKeepTheirComment) {
  ShownListing listing;
  listing.mode = ListingMode::Network;
  FileEntry row = Row(EntryKind::NetworkShare, "\\\\srv\\share");
  row.description = "コメント";
  Describe(*os::Services().files, &row, listing);
  EXPECT_EQ(*row.description, "コメント");
  EXPECT_TRUE(row.described);
}

TEST_F(EntryDescription, FilesHaveDateAndSize) {
  AddFile("C:\\a.mdl", std::string(1025, 'x'));
  for (const EntryKind kind : {EntryKind::File, EntryKind::FileShortcut}) {
    const FileEntry row = Described(kind, "C:\\a.mdl", Details());
    EXPECT_EQ(*row.description, kDate);
    EXPECT_EQ(row.sizeKb, 2);
  }
}

TEST_F(EntryDescription, FilesAreDescribedOnce) {
  AddFile("C:\\a.mdl", "x");
  FileEntry row = Described(EntryKind::File, "C:\\a.mdl", Details());
  os::scripted::World().files.Remove("C:\\a.mdl");
  Describe(*os::Services().files, &row, Details());
  Describe(*os::Services().files, &row, Titles(1, {1}));
  EXPECT_EQ(*row.description, kDate);
  EXPECT_EQ(os::scripted::World().calls.Count("files.Status"), 1U);
}

TEST_F(EntryDescription, FoldersAreDescribedEveryTime) {
  os::scripted::World().files.AddFolder("C:\\sub").modified = kTime;
  for (const EntryKind kind : {EntryKind::Folder, EntryKind::FolderShortcut}) {
    FileEntry row = Described(kind, "C:\\sub", Details());
    EXPECT_EQ(*row.description, kDate);
    Describe(*os::Services().files, &row, Titles(1, {1}));
    EXPECT_EQ(*row.description, "");
    os::scripted::World().files.Find("C:\\sub")->modified = kTime + 1;
    Describe(*os::Services().files, &row, Details());
    EXPECT_EQ(*row.description, " 2024/03/05 15:07:09");
    os::scripted::World().files.Find("C:\\sub")->modified = kTime;
  }
}

TEST_F(EntryDescription, ThePathIsExaminedWithoutItsSeparatorButForARoot) {
  os::scripted::World().files.AddFolder("C:\\sub");
  os::scripted::World().calls.ClearLog();
  Described(EntryKind::Folder, "C:\\sub\\", Details());
  Described(EntryKind::FolderShortcut, "C:\\", Details());
  EXPECT_EQ(os::scripted::World().calls.Log()[0], "files.Status C:\\sub");
  EXPECT_EQ(os::scripted::World().calls.Log()[2], "files.Status C:\\");
}

TEST_F(EntryDescription, WhatCannotBeExaminedIsEmpty) {
  FileEntry row = Row(EntryKind::File, "C:\\gone.mdl");
  row.sizeKb = 7;
  row.description = "stale";
  Describe(*os::Services().files, &row, Details());
  EXPECT_EQ(*row.description, "");
  EXPECT_EQ(row.sizeKb, 0);
  EXPECT_TRUE(row.described);
}

TEST_F(EntryDescription, ADateThatCannotBeExpressedIsEmpty) {
  os::scripted::World().files.AddFile("C:\\old.mdl", "x", -1);
  const FileEntry row = Described(EntryKind::File, "C:\\old.mdl", Details());
  EXPECT_EQ(*row.description, "");
  EXPECT_EQ(row.sizeKb, 1);
}

TEST_F(EntryDescription, ModelsShowTheChosenTitles) {
  AddFile("C:\\表.mdl", "CORVANE MODEL 1\n1=" + Euc("図面") + "\n3=third\n201=" + Euc("ソ") + "\nEND\n");
  for (const EntryKind kind : {EntryKind::File, EntryKind::FileShortcut}) {
    const FileEntry row = Described(kind, "C:\\表.mdl", Titles(1, {201, 2, 1}));
    EXPECT_EQ(*row.titles, (std::vector<std::string>{"ソ", "", "図面"}));
    EXPECT_EQ(*row.description, "ソ");
    EXPECT_EQ(row.sizeKb, 0);
  }
}

TEST_F(EntryDescription, ModelTitlesAreReadOnce) {
  AddFile("C:\\a.mdl", "CORVANE MODEL 1\n1=one\nEND\n");
  FileEntry row = Described(EntryKind::File, "C:\\a.mdl", Titles(1, {1}));
  const std::size_t calls = os::scripted::World().calls.Total();
  Describe(*os::Services().files, &row, Titles(1, {1}));
  EXPECT_EQ(os::scripted::World().calls.Total(), calls);
}

TEST_F(EntryDescription, FilesThatAreOnlyPlaceHoldersAreNotReadForTheirTitles) {
  const std::string titles = "CORVANE MODEL 1\n201=far away\nEND\n";
  for (const std::uint32_t attribute :
       {os::kAttributeOffline, os::kAttributeRecallOnOpen, os::kAttributeRecallOnRead}) {
    os::scripted::World().files.AddFile("C:\\a.mdl", titles, kTime, attribute);
    EXPECT_EQ(*Described(EntryKind::File, "C:\\a.mdl", Titles(1, {201})).description, "") << attribute;
    EXPECT_EQ(*Described(EntryKind::File, "C:\\a.mdl", Titles(2)).description, "") << attribute;
  }
  EXPECT_EQ(os::scripted::World().calls.Count("files.Read"), 0U);
}

TEST_F(EntryDescription, ATitleCostsOneLookAtTheAttributesAndOneReading) {
  AddFile("C:\\a.mdl", "CORVANE MODEL 1\n201=near\nEND\n");
  os::scripted::World().calls.ClearLog();
  EXPECT_EQ(*Described(EntryKind::File, "C:\\a.mdl", Titles(1, {201})).description, "near");
  EXPECT_EQ(os::scripted::World().calls.Total(), 2U);
}

TEST_F(EntryDescription, TitlesAreCutAtACharacter) {
  std::string title = "a";
  while (title.size() < 100) title += "表";
  AddFile("C:\\a.mdl", "CORVANE MODEL 1\n1=" + Euc(title) + "\n2=" + std::string(100, 'x') + "\nEND\n");
  const FileEntry row = Described(EntryKind::File, "C:\\a.mdl", Titles(1, {1, 2}));
  EXPECT_EQ((*row.titles)[0], title.substr(0, 63));
  EXPECT_EQ((*row.titles)[1], std::string(64, 'x'));
}

TEST_F(EntryDescription, AModelThatCannotBeReadHasEmptyTitles) {
  AddFile("C:\\a.mdl", "no model");
  const FileEntry row = Described(EntryKind::File, "C:\\a.mdl", Titles(1, {1, 2}));
  EXPECT_EQ(*row.titles, (std::vector<std::string>{"", ""}));
  EXPECT_EQ(*row.description, "");
}

TEST_F(EntryDescription, WithoutChosenTitlesNoModelIsRead) {
  AddFile("C:\\a.mdl", "CORVANE MODEL 1\n1=one\nEND\n");
  const FileEntry row = Described(EntryKind::File, "C:\\a.mdl", Titles(1));
  EXPECT_TRUE(row.titles->empty());
  EXPECT_EQ(os::scripted::World().calls.Count("files.Read"), 0U);
}

TEST_F(EntryDescription, ACountOutOfRangeIsBounded) {
  AddFile("C:\\a.mdl", "CORVANE MODEL 1\n1=one\nEND\n");
  ShownListing listing = Titles(1, {1, 1, 1, 1});
  listing.titles.count = 99;
  EXPECT_EQ(Described(EntryKind::File, "C:\\a.mdl", listing).titles->size(), kTitleSlots);
  listing.titles.count = -1;
  EXPECT_TRUE(Described(EntryKind::File, "C:\\a.mdl", listing).titles->empty());
}

TEST_F(EntryDescription, OtherKindsShowTheirOneTitle) {
  const char* headers[] = {"PARTS", "PSET", "MACRO", "MASK", "TEXT", "CONST", "ATTR"};
  for (int titleClass = 2; titleClass <= 8; ++titleClass) {
    AddFile("C:\\a.x", std::string("CORVANE ") + headers[titleClass - 2] + " 1\nTITLE=" + Euc("表題") + "\nEND\n");
    const FileEntry row = Described(EntryKind::File, "C:\\a.x", Titles(titleClass));
    EXPECT_EQ(*row.description, "表題") << titleClass;
    EXPECT_TRUE(row.titles->empty());
  }
}

TEST_F(EntryDescription, OneTitleIsCutAt256Bytes) {
  AddFile("C:\\a.x", "CORVANE TEXT 1\nTITLE=" + std::string(500, 'x') + "\nEND\n");
  EXPECT_EQ(*Described(EntryKind::File, "C:\\a.x", Titles(6)).description, std::string(256, 'x'));
}

TEST_F(EntryDescription, OneTitleThatCannotBeReadIsEmpty) {
  EXPECT_EQ(*Described(EntryKind::File, "C:\\gone.x", Titles(6)).description, "");
}

TEST_F(EntryDescription, KindsWithoutTitlesShowTheDateThere) {
  AddFile("C:\\a.x", "x");
  for (const int titleClass : {0, 9, -1}) {
    const FileEntry row = Described(EntryKind::File, "C:\\a.x", Titles(titleClass));
    EXPECT_EQ(*row.description, kDate);
    EXPECT_EQ(row.sizeKb, 1);
  }
}

TEST_F(EntryDescription, AllRowsThatNeedItAreDescribed) {
  AddFile("C:\\a.mdl", "x");
  os::scripted::World().files.AddFolder("C:\\sub");
  EntryTable table;
  table.Add(EntryKind::Folder, "C:\\sub", "sub", false).described = true;
  table.Add(EntryKind::File, "C:\\a.mdl", "a.mdl", true);
  RowDescriptions all(table, Details());
  EXPECT_TRUE(all.FindOut(*os::Services().files));
  all.Tell(&table);
  EXPECT_EQ(*table.rows()[0].description, "");
  EXPECT_EQ(*table.rows()[1].description, kDate);
}

TEST_F(EntryDescription, DescribingAllCanBeGivenUp) {
  EntryTable table;
  for (int i = 0; i < 4; ++i) table.Add(EntryKind::File, "C:\\a.mdl", "a.mdl", true);
  table.rows()[1].described = true;
  int asked = 0;
  RowDescriptions all(table, Details());
  EXPECT_FALSE(all.FindOut(*os::Services().files, [&asked] { return ++asked < 2; }));
  EXPECT_EQ(all.Count(), 2U);
  all.Tell(&table);
  EXPECT_EQ(asked, 2);  // for the first and the third row
  EXPECT_TRUE(table.rows()[2].described);
  EXPECT_FALSE(table.rows()[3].described);
}

TEST_F(EntryDescription, WhatComesWhenNobodyWaitsAnyMoreIsNoAnswer) {
  AddFile("C:\\a.mdl", "x");
  EntryTable table;
  for (int i = 0; i < 3; ++i) table.Add(EntryKind::File, "C:\\a.mdl", "a.mdl", true);
  RowDescriptions all(table, Details());
  // While the second one is asked about, whose call is cancelled then.
  os::scripted::World().calls.Watch([&all](const std::string&) {
    if (all.Count() == 1) all.Leave();
  });
  EXPECT_FALSE(all.FindOut(*os::Services().files));
  os::scripted::World().calls.Watch({});
  all.Tell(&table);
  EXPECT_TRUE(table.rows()[0].described);
  EXPECT_FALSE(table.rows()[1].described) << "it is asked about again when it is drawn";
  EXPECT_FALSE(table.rows()[2].described);
}

/// Files of one folder with a title each, of which some are far away, and a shortcut to another folder's.
class TitlesOfAll : public EntryDescription {
 protected:
  TitlesOfAll() {
    AddFile("C:\\f\\a.mdl", kTitled);
    os::scripted::World().files.AddFile("C:\\f\\b.mdl", kTitled, kTime, os::kAttributeRecallOnRead);
    AddFile("C:\\f\\c.mdl", kTitled);
    AddFile("C:\\other\\d.mdl", kTitled);
    for (const char* name : {"a.mdl", "b.mdl", "c.mdl"}) {
      table_.Add(EntryKind::File, std::string("C:\\f\\") + name, name, false);
    }
    table_.Add(EntryKind::FileShortcut, "C:\\other\\d.mdl", "d", false);
    os::scripted::World().calls.ClearLog();
  }

  /// The first title of each row.
  std::vector<std::string> Told(const KeepGoing& keepGoing = {}) {
    RowDescriptions all(table_, Titles(1, {201}));
    static_cast<void>(all.FindOut(*os::Services().files, keepGoing));
    all.Tell(&table_);
    std::vector<std::string> titles;
    for (const FileEntry& row : table_.rows()) titles.push_back(row.described ? *row.description : "?");
    return titles;
  }
  static std::size_t Calls(const char* service) { return os::scripted::World().calls.Count(service); }

  const std::string kTitled = "CORVANE MODEL 1\n201=near\nEND\n";
  EntryTable table_;
};

TEST_F(TitlesOfAll, AreReadBehindOnePassThatTellsPlaceHoldersOfTheFolder) {
  EXPECT_EQ(Told(), (std::vector<std::string>{"near", "", "near", "near"}));
  EXPECT_EQ(Calls("files.OpenFolder"), 1U);
  EXPECT_EQ(Calls("files.Attributes"), 2U) << "of the place-holder and of what lies elsewhere";
  EXPECT_EQ(Calls("files.Read"), 3U);
}

TEST_F(TitlesOfAll, AreAskedOneByOneWhereThePassFails) {
  const std::vector<std::string> titles = {"near", "", "near", "near"};
  os::scripted::World().calls.FailNext("files.OpenFolder");
  EXPECT_EQ(Told(), titles);
  EXPECT_EQ(Calls("files.Attributes"), 4U);
}

TEST_F(TitlesOfAll, OfFewRowsNeedNoPass) {
  for (const std::size_t row : {0U, 1U, 2U}) table_.rows()[row].described = true;
  Told();
  EXPECT_EQ(Calls("files.OpenFolder"), 0U);
}

TEST_F(TitlesOfAll, OfWhatThePassDoesNotTellForSureAreAskedOneByOne) {
  os::scripted::World().files.AddInexactName("C:\\f", "c.mdl");
  table_.Add(EntryKind::File, "C:\\f\\gone.mdl", "gone.mdl", false);
  table_.Add(EntryKind::File, "C:\\other\\d.mdl", "d.mdl", false);
  EXPECT_EQ(Told(), (std::vector<std::string>{"near", "", "", "near", "", "near"}));
  EXPECT_EQ(Calls("files.Attributes"), 5U) << "of all but the first";
}

TEST_F(TitlesOfAll, AreNotLookedForWhereNobodyWaitsAnyMore) {
  RowDescriptions all(table_, Titles(1, {201}));
  all.Leave();
  EXPECT_FALSE(all.FindOut(*os::Services().files));
  EXPECT_EQ(Calls("files.Read"), 0U);
}

TEST_F(TitlesOfAll, CanBeGivenUpInThePass) {
  EXPECT_EQ(Told([] { return false; }), (std::vector<std::string>{"?", "?", "?", "?"}));
  EXPECT_EQ(Calls("files.Read"), 0U);
}

}  // namespace
