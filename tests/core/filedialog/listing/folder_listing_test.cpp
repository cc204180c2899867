#include "dlglib/filedialog/listing/folder_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "dlglib/filedialog/listing/entry_order.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"

namespace {

using namespace filedialog;

FileKind Kind(const std::string& keyword, const std::string& pattern) {
  FileKind kind;
  kind.keyword = keyword;
  kind.pattern = pattern;
  kind.sharesSxfFolder = CwSession::GetInstance()->GetStartupParam()->IsDefined("SXF_USE_LAST_HOLDER");
  return kind;
}

const FileKind kModels = Kind("#MODEL#", "*.MDL");

class FolderListing : public testing::Test {
 protected:
  FolderListing() {
    CwSession::Reset();
    os::scripted::World().Reset();
  }
  ~FolderListing() override {
    CwSession::Reset();
    os::scripted::World().Reset();
  }

  static os::scripted::FileSystem& Files() { return os::scripted::World().files; }

  static void AddLink(const std::string& link, const std::string& target) {
    Files().AddFile(link);
    os::scripted::World().shell.links[link] = target;
  }

  static void SetDesktop(const std::string& folder) {
    Files().AddFolder(folder);
    os::scripted::World().shell.desktopFolder = folder;
  }

  /// "kind path|name|key" of each row, in order of the paths.
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (const FileEntry& row : table_.rows()) {
      rows.push_back(std::to_string(static_cast<int>(row.kind)) + " " + std::string(row.path) + "|" +
                     std::string(row.name) + "|" + std::string(row.sortKey));
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  std::vector<std::string> List(const std::string& folder, const FileKind& kind = kModels,
                                FinderMode mode = FinderMode::FilesAndFolders) {
    EXPECT_TRUE(ListFolder(*os::Services().files, {folder, kind, mode}, &table_));
    return Rows();
  }

  std::vector<std::string> Desktop(const std::string& folder, const FileKind& kind = kModels,
                                   FinderMode mode = FinderMode::FilesAndFolders) {
    DesktopRows found;
    EXPECT_TRUE(ListDesktop(os::Services(), {folder, kind, mode}, &found));
    FitShortcuts(kind.pattern, &found);
    table_ = std::move(found.table);
    return Rows();
  }

  EntryTable table_;
};

using Lines = std::vector<std::string>;

TEST_F(FolderListing, TheSearchPathIsInTheSuitesForm) {
  EXPECT_EQ(SearchPath("C:\\data", "*.MDL").bytes(), "C:/data/*.MDL");
  EXPECT_EQ(SearchPath("C:\\data\\", "*.MDL").bytes(), "C:/data/*.MDL");
  EXPECT_EQ(SearchPath("C:\\", "*").bytes(), "C:/*");
  EXPECT_EQ(SearchPath("\\\\srv\\share", "*").bytes(), "//srv/share/*");
  EXPECT_EQ(SearchPath("C:\\表", "*").bytes(), "C:/\xC9\xBD/*");
}

TEST_F(FolderListing, TheSearchPathIsNotCutWhereEucIsLonger) {
  const std::string folder = "C:\\" + std::string(200, '\xB1');  // half-width katakana: one byte here, two in EUC-JP
  EXPECT_EQ(SearchPath(folder, "*").size(), 3U + 400 + 2);
}

TEST_F(FolderListing, ListsFoldersAndTheFilesOfTheKind) {
  Files().AddFile("C:\\data\\a.mdl");
  Files().AddFile("C:\\data\\b.txt");
  Files().AddFile("C:\\data\\sub.x\\inner.mdl");
  EXPECT_EQ(List("C:\\data"), (Lines{"17 C:\\data\\sub.x|sub.x|SUB.X", "19 C:\\data\\a.mdl|a.mdl|A"}));
}

TEST_F(FolderListing, AShortNameIsOfTheKindThatItsLongNameSays) {
  Files().AddFile("C:\\data\\_~~1.JPE").longName = "??.jpeg";
  Files().AddFile("C:\\data\\_~~2.BMP").longName = "??.bmpx";
  Files().AddFile("C:\\data\\own~1.tif");
  Files().AddFile("C:\\data\\own~1.png");
  EXPECT_EQ(List("C:\\data", Kind("#RASTER#", "*")),
            (Lines{"19 C:\\data\\_~~1.JPE|_~~1.JPE|_~~1.JPE", "19 C:\\data\\own~1.tif|own~1.tif|OWN~1.TIF"}));
  EXPECT_EQ(os::scripted::World().calls.Count("files.OpenFolder"), 2U) << "the listing, and one pass for all names";
}

TEST_F(FolderListing, AShortcutIsOfTheKindThatTheLongNameOfItsTargetSays) {
  SetDesktop("C:\\desktop");
  Files().AddFile("C:\\data\\_~~1.MDL").longName = "??.mdlx";
  Files().AddFile("C:\\data\\_~~2.MD1").longName = "??.mdl";
  AddLink("C:\\desktop\\other.lnk", "C:\\data\\_~~1.MDL");
  AddLink("C:\\desktop\\model.lnk", "C:\\data\\_~~2.MD1");
  const auto rows = Desktop("C:\\desktop");
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_NE(rows.front().find("model"), std::string::npos);
}

TEST_F(FolderListing, ATrailingSeparatorIsNotDoubled) {
  Files().AddFile("C:\\data\\a.mdl");
  Files().AddFile("C:\\r.mdl");
  EXPECT_EQ(List("C:\\data\\"), (Lines{"19 C:\\data\\a.mdl|a.mdl|A"}));
  EXPECT_EQ(List("C:\\"), (Lines{"17 C:\\data|data|DATA", "19 C:\\r.mdl|r.mdl|R"}));
}

TEST_F(FolderListing, AFixedFolderShowsNoFolders) {
  Files().AddFile("C:\\data\\a.mdl");
  Files().AddFolder("C:\\data\\sub");
  EXPECT_EQ(List("C:\\data", kModels, FinderMode::Files), (Lines{"19 C:\\data\\a.mdl|a.mdl|A"}));
}

TEST_F(FolderListing, WithoutAnExactExtensionTheKeyIsWhole) {
  Files().AddFile("C:\\data\\a.b.mdl");
  EXPECT_EQ(List("C:\\data", Kind("#MODEL#", "*.*")), (Lines{"19 C:\\data\\a.b.mdl|a.b.mdl|A.B.MDL"}));
  EXPECT_EQ(List("C:\\data"), (Lines{"19 C:\\data\\a.b.mdl|a.b.mdl|A.B"}));
}

TEST_F(FolderListing, KeysAreCapitalsByteByByte) {
  Files().AddFile("C:\\data\\\x83\x61x.mdl");  // the second byte of the character is "a"
  EXPECT_EQ(List("C:\\data"), (Lines{"19 C:\\data\\\x83\x61x.mdl|\x83\x61x.mdl|\x83\x41X"}));
}

TEST_F(FolderListing, JapaneseFoldersAndNamesComeBackUnchanged) {
  Files().AddFile("C:\\表\\ソ能ｱ①.mdl");
  Files().AddFolder("C:\\表\\予定");
  EXPECT_EQ(List("C:\\表"), (Lines{"17 C:\\表\\予定|予定|予定", "19 C:\\表\\ソ能ｱ①.mdl|ソ能ｱ①.mdl|ソ能ｱ①"}));
}

TEST_F(FolderListing, ListsSharesOfTheNetwork) {
  Files().AddFile("\\\\srv\\share\\a.mdl");
  EXPECT_EQ(List("\\\\srv\\share\\"), (Lines{"19 \\\\srv\\share\\a.mdl|a.mdl|A"}));
}

TEST_F(FolderListing, TheKindsTestDecidesAboutFilesOnly) {
  Files().AddFile("C:\\data\\x.tiff");
  Files().AddFile("C:\\data\\y.JPEG");
  Files().AddFile("C:\\data\\z.png");
  Files().AddFile("C:\\data\\plain");
  Files().AddFolder("C:\\data\\folder");
  EXPECT_EQ(List("C:\\data", Kind("#RASTER#", "*.*")),
            (Lines{"17 C:\\data\\folder|folder|FOLDER", "19 C:\\data\\x.tiff|x.tiff|X.TIFF",
                   "19 C:\\data\\y.JPEG|y.JPEG|Y.JPEG"}));
}

TEST_F(FolderListing, SharedSxfFoldersShowBothKinds) {
  CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
  Files().AddFile("C:\\data\\a.P21");
  Files().AddFile("C:\\data\\b.sfc");
  Files().AddFile("C:\\data\\c.txt");
  EXPECT_EQ(List("C:\\data", Kind("#SXF:SFC#", "*")).size(), 2U);
}

TEST_F(FolderListing, RowsAreFresh) {
  Files().AddFile("C:\\data\\a.mdl", "12345");
  List("C:\\data");
  const FileEntry& row = table_.rows().front();
  EXPECT_FALSE(row.selected);
  EXPECT_FALSE(row.described);
  EXPECT_EQ(row.sizeKb, 0);
  EXPECT_EQ(*row.description, "");
}

TEST_F(FolderListing, ANewListingForgetsTheOldOne) {
  Files().AddFile("C:\\data\\a.mdl");
  Files().AddFolder("C:\\empty");
  EXPECT_EQ(List("C:\\data").size(), 1U);
  EXPECT_EQ(List("C:\\empty").size(), 0U);
}

TEST_F(FolderListing, WhatCannotBeReadListsEmpty) {
  Files().AddFile("C:\\data\\a.mdl");
  EXPECT_EQ(List("C:\\none").size(), 0U);
  EXPECT_EQ(List("").size(), 0U);
  EXPECT_EQ(List("C:\\" + std::string(300, 'x')).size(), 0U);
  os::scripted::World().calls.FailNext("files.OpenFolder");
  EXPECT_EQ(List("C:\\data").size(), 0U);
}

TEST_F(FolderListing, LeavesOutPathsBeyondTheLimit) {
  const std::string folder = "C:\\" + std::string(100, 'f');
  const std::string fits = std::string(kPathLimit - folder.size() - 1 - 4, 'a') + ".mdl";
  Files().AddFile(folder + "\\" + fits);
  Files().AddFile(folder + "\\b" + fits);
  Files().AddFolder(folder + "\\" + std::string(kPathLimit - folder.size() - 1, 'c'));
  Files().AddFolder(folder + "\\" + std::string(kPathLimit - folder.size(), 'd'));
  List(folder);
  ASSERT_EQ(table_.size(), 2U);
  for (const FileEntry& row : table_.rows()) EXPECT_EQ(row.path.size(), kPathLimit);
}

TEST_F(FolderListing, NamesThatTheScreenCannotShowAreLeftOut) {
  Files().AddFile("C:\\data\\a.mdl");
  Files().AddInexactName("C:\\data", "?.mdl");
  Files().AddInexactName("C:\\data", "e.mdl");
  Files().AddInexactName("C:\\data", "?", os::kAttributeFolder);
  EXPECT_EQ(List("C:\\data"), (Lines{"19 C:\\data\\a.mdl|a.mdl|A"}));
}

TEST_F(FolderListing, AFolderThatVanishesListsWhatHadBeenFound) {
  for (int i = 0; i < 10; ++i) Files().AddFile("C:\\data\\" + std::to_string(i) + ".mdl");
  os::scripted::World().calls.FailNumber(6);  // the folder, "." and "..", two files, the third file
  EXPECT_EQ(List("C:\\data").size(), 2U);
  Files().Remove("C:\\data");
  EXPECT_EQ(List("C:\\data").size(), 0U);
}

TEST_F(FolderListing, AMissingDriveListsEmpty) {
  os::scripted::World().AddDrive('C');
  for (const char* folder : {"Q:\\", "Q:\\data", "Q:", "\\\\gone\\share", "\\", "\\\\", "data"}) {
    EXPECT_EQ(List(folder).size(), 0U) << folder;
  }
}

TEST_F(FolderListing, FolderNamesOfEveryLengthAreBounded) {
  for (const std::size_t length : {253U, 254U, 255U, 256U, 257U, 258U, 513U, 100000U}) {
    EXPECT_EQ(List("C:\\" + std::string(length, 'x')).size(), 0U);
    EXPECT_EQ(List("C:\\" + std::string(length, '\x95')).size(), 0U);
    EXPECT_EQ(List(std::string(length, '\\')).size(), 0U);
  }
}

TEST_F(FolderListing, AFolderOfTheLongestPathHasNoRoomForFiles) {
  const std::string folder = "C:\\" + std::string(kPathLimit - 3, 'f');
  ASSERT_EQ(folder.size(), kPathLimit);
  Files().AddFile(folder + "\\a.mdl");
  Files().AddFolder(folder + "\\s");
  EXPECT_EQ(List(folder), Lines{});
  EXPECT_EQ(List("C:\\").size(), 1U);
}

TEST_F(FolderListing, HoldsAnyNumberOfEntries) {
  std::size_t have = 0;
  for (const std::size_t count : {0U, 1U, 20000U, 20001U}) {
    for (; have < count; ++have) Files().AddFile("C:\\data\\" + std::to_string(have) + ".mdl");
    ASSERT_TRUE(ListFolder(*os::Services().files, {"C:\\data", kModels, FinderMode::FilesAndFolders}, &table_));
    ASSERT_EQ(table_.size(), count);
  }
  Sort(&table_, {});
  EXPECT_EQ(table_.rows().front().path, "C:\\data\\0.mdl");
  EXPECT_EQ(table_.rows().back().path, "C:\\data\\9999.mdl");
}

TEST_F(FolderListing, HoldsTenTimesWhatItMakesRoomFor) {
  for (int i = 0; i < 200000; ++i) Files().AddFile("C:\\" + std::to_string(i));
  ASSERT_TRUE(ListFolder(*os::Services().files, {"C:\\", Kind("", "*"), FinderMode::FilesAndFolders}, &table_));
  ASSERT_EQ(table_.size(), 200000U);
  EXPECT_EQ(table_.rows().front().name, "0");
  EXPECT_EQ(table_.rows().back().name, "99999");
}

TEST_F(FolderListing, CutsNamesAtTheirLimit) {
  std::string name = "a";
  while (name.size() < 140) name += "表";
  Files().AddFile("C:\\" + name + ".mdl");
  List("C:\\");
  EXPECT_EQ(table_.rows().front().name, name.substr(0, 127));
  EXPECT_EQ(table_.rows().front().path, "C:\\" + name + ".mdl");
}

TEST_F(FolderListing, EnumeratesOnceAndAsksNothingElse) {
  for (int i = 0; i < 500; ++i) Files().AddFile("C:\\data\\" + std::to_string(i) + ".mdl");
  os::scripted::World().calls.ClearLog();
  EXPECT_EQ(List("C:\\data").size(), 500U);
  EXPECT_EQ(os::scripted::World().calls.Count("files.OpenFolder"), 1U);
  EXPECT_EQ(os::scripted::World().calls.Total() - os::scripted::World().calls.Count("files.Next"), 1U);
}

TEST_F(FolderListing, CanBeGivenUp) {
  for (int i = 0; i < 1000; ++i) Files().AddFile("C:\\data\\" + std::to_string(i) + ".mdl");
  int asked = 0;
  EXPECT_FALSE(ListFolder(*os::Services().files, {"C:\\data", kModels, FinderMode::Files}, &table_,
                          [&] { return ++asked < 3; }));
  EXPECT_EQ(asked, 3);
  EXPECT_GT(table_.size(), 0U);
  EXPECT_LT(table_.size(), 1000U);
  EXPECT_TRUE(
      ListFolder(*os::Services().files, {"C:\\data", kModels, FinderMode::Files}, &table_, [] { return true; }));
  EXPECT_EQ(table_.size(), 1000U);
}

TEST_F(FolderListing, TheDesktopAddsItsShortcuts) {
  SetDesktop("C:\\desk");
  Files().AddFile("C:\\desk\\own.mdl");
  Files().AddFolder("C:\\desk\\folder");
  Files().AddFile("D:\\far\\b.mdl");
  AddLink("C:\\desk\\to file.lnk", "D:\\far\\b.mdl");
  AddLink("C:\\desk\\to folder.lnk", "D:\\far\\");
  EXPECT_EQ(Desktop("C:\\desk"), (Lines{"16 D:\\far|to folder.lnk|TO FOLDER", "17 C:\\desk\\folder|folder|FOLDER",
                                        "18 D:\\far\\b.mdl|to file.lnk|TO FILE", "19 C:\\desk\\own.mdl|own.mdl|OWN"}));
}

TEST_F(FolderListing, ShortcutsKeepTheirWholeKeyWithoutAnExactExtension) {
  SetDesktop("C:\\desk");
  Files().AddFile("D:\\b.mdl");
  AddLink("C:\\desk\\x.lnk", "D:\\b.mdl");
  EXPECT_EQ(Desktop("C:\\empty", Kind("#MODEL#", "*.M*")), (Lines{"18 D:\\b.mdl|x.lnk|X.LNK"}));
}

TEST_F(FolderListing, AShortcutToADriveKeepsTheRoot) {
  SetDesktop("C:\\desk");
  os::scripted::World().AddDrive('D');
  AddLink("C:\\desk\\drive.lnk", "D:\\");
  EXPECT_EQ(Desktop("C:\\empty"), (Lines{"16 D:\\|drive.lnk|DRIVE"}));
}

TEST_F(FolderListing, LeavesOutShortcutsThatLeadNowhere) {
  SetDesktop("C:\\desk");
  Files().AddFile("C:\\desk\\broken.lnk");
  Files().AddFile("D:\\b.txt");
  AddLink("C:\\desk\\other kind.lnk", "D:\\b.txt");
  AddLink("C:\\desk\\other kind gone.lnk", "D:\\gone.txt");
  AddLink("C:\\desk\\nameless.lnk", "");
  AddLink("C:\\desk\\long.lnk", "D:\\" + std::string(300, 'x') + ".mdl");
  EXPECT_EQ(Desktop("C:\\desk"), Lines{});
}

TEST_F(FolderListing, AShortcutMayLeadToAPathOfTheLongestLength) {
  SetDesktop("C:\\desk");
  const std::string stem(kPathLimit - std::string("D:\\.mdl").size(), 'x');
  AddLink("C:\\desk\\longest.lnk", "D:\\" + stem + ".mdl");
  AddLink("C:\\desk\\too long.lnk", "D:\\x" + stem + ".mdl");
  EXPECT_EQ(Desktop("C:\\desk"), (Lines{"18 D:\\" + stem + ".mdl|longest.lnk|LONGEST"}));
}

TEST_F(FolderListing, AShortcutWhoseTargetHasGoneIsAFileOfThatName) {
  SetDesktop("C:\\desk");
  AddLink("C:\\desk\\dangling.lnk", "D:\\表\\gone.mdl");
  AddLink("C:\\desk\\no drive.lnk", "Q:\\gone.mdl");
  EXPECT_EQ(Desktop("C:\\desk"),
            (Lines{"18 D:\\表\\gone.mdl|dangling.lnk|DANGLING", "18 Q:\\gone.mdl|no drive.lnk|NO DRIVE"}));
  AddLink("C:\\desk\\folder.lnk", "D:\\folder\\");
  EXPECT_EQ(Desktop("C:\\empty", Kind("#ANY#", "*")).size(), 3U) << "what a name that has gone was, nobody knows";
}

TEST_F(FolderListing, AShortcutToAShortcutIsAFileOfThatName) {
  SetDesktop("C:\\desk");
  AddLink("C:\\desk\\a.lnk", "C:\\desk\\b.lnk");
  AddLink("C:\\desk\\b.lnk", "C:\\desk\\a.lnk");
  EXPECT_EQ(Desktop("C:\\empty"), Lines{});
  EXPECT_EQ(Desktop("C:\\empty", Kind("#ANY#", "*.lnk")),
            (Lines{"18 C:\\desk\\a.lnk|b.lnk|B", "18 C:\\desk\\b.lnk|a.lnk|A"}));
}

TEST_F(FolderListing, AShortcutThatVanishesIsLeftOut) {
  SetDesktop("C:\\desk");
  Files().AddFile("D:\\b.mdl");
  AddLink("C:\\desk\\a.lnk", "D:\\b.mdl");
  os::scripted::World().calls.FailNext("shell.ResolveLink");
  EXPECT_EQ(Desktop("C:\\empty"), Lines{});
  EXPECT_EQ(Desktop("C:\\empty").size(), 1U);
}

TEST_F(FolderListing, TheDesktopIsReadOnceForItsFilesAndOnceForItsShortcuts) {
  SetDesktop("C:\\desk");
  os::scripted::World().calls.ClearLog();
  Desktop("C:\\desk");
  EXPECT_EQ(os::scripted::World().calls.Count("files.OpenFolder"), 2U);
}

TEST_F(FolderListing, AShortcutToItselfIsNoTarget) {
  SetDesktop("C:\\desk");
  AddLink("C:\\desk\\self.lnk", "c:\\DESK\\Self.lnk");
  EXPECT_EQ(Desktop("C:\\empty", Kind("#ANY#", "*.*")), Lines{});
}

TEST_F(FolderListing, TheShortcutsTargetIsHeldAgainstThePatternOnly) {
  SetDesktop("C:\\desk");
  Files().AddFile("D:\\a.con", "no constant file");
  AddLink("C:\\desk\\a.lnk", "D:\\a.con");
  EXPECT_EQ(Desktop("C:\\empty", Kind("#CONSTANT#", "*.CON")), (Lines{"18 D:\\a.con|a.lnk|A"}));
}

TEST_F(FolderListing, ANameOnTheDesktopThatResolvesToJapaneseIsMatchedByCharacters) {
  SetDesktop("C:\\デスク");
  Files().AddFile("D:\\表\\ソ.mdl");
  AddLink("C:\\デスク\\能.lnk", "D:\\表\\ソ.mdl");
  EXPECT_EQ(Desktop("C:\\デスク", Kind("#MODEL#", "?.mdl")), (Lines{"18 D:\\表\\ソ.mdl|能.lnk|能"}));
}

TEST_F(FolderListing, FoldersOfTheDesktopAreListedOnce) {
  SetDesktop("C:\\desk");
  Files().AddFolder("C:\\desk\\folder");
  EXPECT_EQ(Desktop("C:\\Desk\\"), (Lines{"17 C:\\Desk\\folder|folder|FOLDER"}));
  EXPECT_EQ(Desktop("C:\\empty"), (Lines{"17 C:\\desk\\folder|folder|FOLDER"}));
  EXPECT_EQ(Desktop("C:\\empty", kModels, FinderMode::Files), Lines{});
}

TEST_F(FolderListing, ShortcutsThatThePatternFitsAreListedOnce) {
  SetDesktop("C:\\desk");
  Files().AddFile("C:\\desk\\broken.lnk");
  Files().AddFile("D:\\b.mdl");
  AddLink("C:\\desk\\file.lnk", "D:\\b.mdl");
  AddLink("C:\\desk\\folder.lnk", "D:\\");
  EXPECT_EQ(Desktop("C:\\Desk\\", Kind("#ANY#", "*")),
            (Lines{"16 D:\\|folder.lnk|FOLDER.LNK", "18 D:\\b.mdl|file.lnk|FILE.LNK",
                   "19 C:\\Desk\\broken.lnk|broken.lnk|BROKEN.LNK"}));
}

TEST_F(FolderListing, WithoutADesktopDirectoryTheFolderIsListed) {
  Files().AddFile("C:\\data\\a.mdl");
  EXPECT_EQ(Desktop("C:\\data").size(), 1U);
}

TEST_F(FolderListing, CanBeGivenUpAfterEachEntry) {
  for (const char* name : {"a.con", "b.con", "c.con"})
    Files().AddFile(std::string("C:\\data\\") + name, "CORVANE CONST 1\nEND\n");
  for (std::size_t wanted = 1; wanted < 3; ++wanted) {
    std::size_t asked = 0;
    os::scripted::World().calls.ClearLog();
    const auto goesOn = [&] { return ++asked < wanted; };
    EXPECT_FALSE(
        ListFolder(*os::Services().files, {"C:\\data", Kind("#CONSTANT#", "*"), FinderMode::Files}, &table_, goesOn));
    EXPECT_EQ(table_.size(), wanted);
    EXPECT_EQ(os::scripted::World().calls.Count("files.Read"), wanted) << "no further file is opened";
    EXPECT_EQ(Files().openPasses, 0);
  }
}

TEST_F(FolderListing, TheDesktopCanBeGivenUp) {
  SetDesktop("C:\\desk");
  for (int i = 0; i < 200; ++i) AddLink("C:\\desk\\" + std::to_string(i) + ".lnk", "C:\\desk");
  const auto stop = [] { return false; };
  DesktopRows found;
  EXPECT_FALSE(ListDesktop(os::Services(), {"C:\\empty", kModels, FinderMode::Files}, &found, stop));
  EXPECT_LT(found.table.size(), 200U);
  for (int i = 0; i < 200; ++i) Files().AddFile("C:\\data\\" + std::to_string(i) + ".mdl");
  EXPECT_FALSE(ListDesktop(os::Services(), {"C:\\data", kModels, FinderMode::Files}, &found, stop));
}

TEST_F(FolderListing, NothingIsAddedBehindAClosedGate) {
  Files().AddFile("C:\\data\\a.mdl");
  RowGate gate;
  EXPECT_TRUE(ListFolder(*os::Services().files, {"C:\\data", kModels, FinderMode::Files}, &table_, {}, &gate));
  EXPECT_EQ(gate.count, 1U);
  gate.isClosed = true;
  EXPECT_FALSE(ListFolder(*os::Services().files, {"C:\\data", kModels, FinderMode::Files}, &table_, {}, &gate));
  EXPECT_EQ(table_.size(), 1U) << "what was taken stays as it is";
}

}  // namespace
