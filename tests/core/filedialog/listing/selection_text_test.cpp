#include "dlglib/filedialog/listing/selection_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace filedialog;
using Outcome = SelectedPaths::Outcome;

void AddSelected(EntryTable* table, EntryKind kind, std::string_view path, bool selected = true) {
  table->Add(kind, path, path.substr(path.rfind('\\') + 1), false).selected = selected;
}

EntryTable Files(const std::vector<std::string>& paths) {
  EntryTable table;
  for (const std::string& path : paths) AddSelected(&table, EntryKind::File, path);
  return table;
}

bool AcceptAll(std::string*) { return true; }

TEST(SelectedNames, AreJoinedByOneBlank) {
  const EntryTable table = Files({"C:\\a.mdl", "C:\\b c.mdl"});
  const SelectedNames names = JoinSelectedNames(table.rows(), 1000);
  EXPECT_EQ(names.text, "a.mdl b c.mdl");
  EXPECT_EQ(names.count, 2U);
}

TEST(SelectedNames, OnlySelectedFilesCount) {
  EntryTable table;
  AddSelected(&table, EntryKind::Folder, "C:\\folder");
  AddSelected(&table, EntryKind::FolderShortcut, "C:\\shortcut");
  AddSelected(&table, EntryKind::FileShortcut, "C:\\a.lnk");
  AddSelected(&table, EntryKind::FixedDrive, "C:\\");
  AddSelected(&table, EntryKind::File, "C:\\not.mdl", false);
  EXPECT_EQ(JoinSelectedNames(table.rows(), 1000).count, 0U);
  EXPECT_EQ(JoinSelectedNames(table.rows(), 1000).text, "");
  AddSelected(&table, EntryKind::File, "C:\\one.mdl");
  EXPECT_EQ(JoinSelectedNames(table.rows(), 1000).text, "one.mdl");
}

TEST(SelectedNames, StopAtTheFirstNameBeyondTheCapacity) {
  const EntryTable table = Files({"C:\\1234", "C:\\567", "C:\\8"});
  EXPECT_EQ(JoinSelectedNames(table.rows(), 10).text, "1234 567 8");  // 8 + 1 bytes without the second blank's
  EXPECT_EQ(JoinSelectedNames(table.rows(), 9).text, "1234 567");
  EXPECT_EQ(JoinSelectedNames(table.rows(), 8).text, "1234 567");  // the blank between is not counted
  EXPECT_EQ(JoinSelectedNames(table.rows(), 7).text, "1234");
  EXPECT_EQ(JoinSelectedNames(table.rows(), 7).count, 1U);
  EXPECT_EQ(JoinSelectedNames(table.rows(), 5).text, "1234");
  EXPECT_EQ(JoinSelectedNames(table.rows(), 4).count, 0U);
  EXPECT_EQ(JoinSelectedNames(table.rows(), 0).count, 0U);
}

TEST(SelectedNames, AShorterNameBehindTheOneThatStopsIsNotTaken) {
  const EntryTable table = Files({"C:\\1234", "C:\\567890", "C:\\x"});
  EXPECT_EQ(JoinSelectedNames(table.rows(), 8).text, "1234");
}

TEST(EntryMenu, OffersNothingWithoutASelection) {
  const EntryMenu menu = EntryMenuFor({});
  EXPECT_FALSE(menu.canDelete);
  EXPECT_FALSE(menu.canRename);
}

TEST(EntryMenu, OneEntryCanBeDeletedAndRenamed) {
  for (const EntryKind kind :
       {EntryKind::FolderShortcut, EntryKind::Folder, EntryKind::FileShortcut, EntryKind::File}) {
    const EntryMenu menu = EntryMenuFor(std::vector{kind});
    EXPECT_TRUE(menu.canDelete);
    EXPECT_TRUE(menu.canRename);
  }
}

TEST(EntryMenu, SeveralEntriesCanOnlyBeDeleted) {
  const EntryMenu menu = EntryMenuFor(std::vector{EntryKind::Folder, EntryKind::File});
  EXPECT_TRUE(menu.canDelete);
  EXPECT_FALSE(menu.canRename);
}

TEST(EntryMenu, DrivesAndNetworkPlacesForbidBoth) {
  for (const EntryKind kind : {EntryKind::FixedDrive, EntryKind::ClientDrive, EntryKind::RamDisk,
                               EntryKind::NetworkShare, EntryKind::NetworkProvider}) {
    EXPECT_FALSE(EntryMenuFor(std::vector{kind}).canDelete);
    EXPECT_FALSE(EntryMenuFor(std::vector{kind}).canRename);
    EXPECT_FALSE(EntryMenuFor(std::vector{EntryKind::File, kind}).canDelete);
  }
}

TEST(SelectedPaths, AreFullAndJoinedByOneBlank) {
  const EntryTable table = Files({"C:\\x\\a.mdl", "C:\\x\\b.mdl"});
  const SelectedPaths paths = JoinSelectedPaths(table.rows(), 256000, AcceptAll).value();
  EXPECT_EQ(paths.outcome, Outcome::Accept);
  EXPECT_EQ(paths.text, "C:\\x\\a.mdl C:\\x\\b.mdl");
}

TEST(SelectedPaths, WithoutAFileThereIsNoResult) {
  EntryTable table;
  AddSelected(&table, EntryKind::Folder, "C:\\a");
  AddSelected(&table, EntryKind::FolderShortcut, "C:\\b");
  AddSelected(&table, EntryKind::File, "C:\\c", false);
  EXPECT_EQ(JoinSelectedPaths(table.rows(), 256000, AcceptAll)->outcome, Outcome::NoFile);
}

TEST(SelectedPaths, AShortcutToAFileCountsAsItsTargetInTheListsOrder) {
  EntryTable table;
  AddSelected(&table, EntryKind::FolderShortcut, "C:\\a");
  AddSelected(&table, EntryKind::FileShortcut, "D:\\far\\b");
  AddSelected(&table, EntryKind::File, "C:\\a");
  AddSelected(&table, EntryKind::FileShortcut, "D:\\far\\c");
  AddSelected(&table, EntryKind::FileShortcut, "D:\\far\\d", false);
  EXPECT_EQ(JoinSelectedPaths(table.rows(), 256000, AcceptAll)->text, "D:\\far\\b C:\\a D:\\far\\c");
}

TEST(SelectedPaths, LeaveOutWhatIsNoFile) {
  EntryTable table;
  AddSelected(&table, EntryKind::Folder, "C:\\a");
  AddSelected(&table, EntryKind::File, "C:\\b");
  EXPECT_EQ(JoinSelectedPaths(table.rows(), 256000, AcceptAll)->text, "C:\\b");
}

TEST(SelectedPaths, ARefusedNameRefusesTheWhole) {
  const EntryTable table = Files({"C:\\a", "C:\\b", "C:\\c"});
  std::vector<std::string> asked;
  const SelectedPaths paths = JoinSelectedPaths(table.rows(), 256000, [&](std::string* path) {
                                asked.push_back(*path);
                                return *path != "C:\\b";
                              }).value();
  EXPECT_EQ(paths.outcome, Outcome::Refuse);
  EXPECT_EQ(asked, (std::vector<std::string>{"C:\\a", "C:\\b"}));
}

TEST(SelectedPaths, TakeTheCompletedName) {
  const EntryTable table = Files({"C:\\a"});
  const auto complete = [](std::string* path) {
    *path += ".MDL";
    return true;
  };
  EXPECT_EQ(JoinSelectedPaths(table.rows(), 256000, complete)->text, "C:\\a.MDL");
}

TEST(SelectedPaths, ThatDoNotFitEndTheDialog) {
  const EntryTable table = Files({"C:\\a", "C:\\b"});
  EXPECT_EQ(JoinSelectedPaths(table.rows(), 10, AcceptAll)->text, "C:\\a C:\\b");
  EXPECT_EQ(JoinSelectedPaths(table.rows(), 9, AcceptAll)->outcome, Outcome::TooLong);
  EXPECT_EQ(JoinSelectedPaths(table.rows(), 9, AcceptAll)->text, "");
  EXPECT_EQ(JoinSelectedPaths(table.rows(), 0, AcceptAll)->outcome, Outcome::TooLong);
}

TEST(SelectedPaths, AWindowThatHasGoneDuringTheCheckGetsNone) {
  EntryTable table;
  for (const char* name : {"a", "b"})
    table.Add(EntryKind::File, std::string("C:\\") + name, name, false).selected = true;
  int checks = 0;
  const auto goes = [&](std::string*) -> Reply<bool> {
    ++checks;
    return std::nullopt;
  };
  EXPECT_FALSE(JoinSelectedPaths(table.rows(), 256000, goes));
  EXPECT_EQ(checks, 1);
}

}  // namespace
