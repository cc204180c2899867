#include "dlglib/filedialog/memory/recent_files.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace filedialog {
namespace {

using Names = std::vector<std::string>;

TEST(RecentFilesTest, AFixedFolderIsNotNamed) {
  EXPECT_EQ(RecentName("C:\\data\\a.mdl", RecentForm::FullPath), "C:\\data\\a.mdl");
  EXPECT_EQ(RecentName("C:\\data\\a.mdl", RecentForm::NameOnly), "a.mdl");
  EXPECT_EQ(RecentName("C:\\data\\表.mdl", RecentForm::NameOnly), "表.mdl");
  EXPECT_EQ(RecentName("a.mdl", RecentForm::NameOnly), "a.mdl");
  EXPECT_EQ(RecentName("", RecentForm::NameOnly), "");
}

TEST(RecentFilesTest, ANewNameComesFirst) {
  Names files = {"a", "b"};
  AddRecentFile("c", &files);
  EXPECT_EQ(files, (Names{"c", "a", "b"}));
}

TEST(RecentFilesTest, AKnownNameMovesToTheFrontInItsNewSpelling) {
  Names files = {"a", "b.MDL", "c"};
  AddRecentFile("B.mdl", &files);
  EXPECT_EQ(files, (Names{"B.mdl", "a", "c"}));
}

TEST(RecentFilesTest, OnlyTheFirstEqualNameIsTakenOut) {
  Names files = {"x", "A", "a"};
  AddRecentFile("a", &files);
  EXPECT_EQ(files, (Names{"a", "x", "a"}));
}

TEST(RecentFilesTest, SecondBytesCountAsLetters) {
  Names files = {"\x83\x61"};  // small letter as second byte
  AddRecentFile("\x83\x41", &files);
  EXPECT_EQ(files, Names{"\x83\x41"});
}

TEST(RecentFilesTest, EmptyEntriesStayAndAnEmptyNameIsNotAdded) {
  Names files = {"", "a"};
  AddRecentFile("", &files);
  EXPECT_EQ(files, (Names{"", "a"}));
}

TEST(RecentFilesTest, AnEntryOfTheListItselfCanBeAdded) {
  Names files = {"first", "second", "a rather long name that owns its memory"};
  AddRecentFile(files[2], &files);
  EXPECT_EQ(files, (Names{"a rather long name that owns its memory", "first", "second"}));
}

TEST(RecentFilesTest, TheListIsNotCut) {
  Names files(20, "same");
  AddRecentFile("new", &files);
  EXPECT_EQ(files.size(), 21U);
}

TEST(RecentFilesTest, ShowsTheFirstOnes) {
  const Names files = {"a", "", "c", "d"};
  EXPECT_EQ(ShownRecentFiles(files, 3), (Names{"a", "c"}));
  EXPECT_EQ(ShownRecentFiles(files, 20), (Names{"a", "c", "d"}));
  EXPECT_EQ(ShownRecentFiles(files, 0), Names{});
  EXPECT_EQ(ShownRecentFiles(files, -1), Names{});
  EXPECT_EQ(ShownRecentFiles({}, 10), Names{});
}

TEST(RecentFilesTest, CountsTakeTwoPlaces) {
  EXPECT_EQ(RecentCountItem(0), " 0");
  EXPECT_EQ(RecentCountItem(9), " 9");
  EXPECT_EQ(RecentCountItem(10), "10");
  EXPECT_EQ(RecentCountItem(kRecentCountItems - 1), "20");
}

}  // namespace
}  // namespace filedialog
