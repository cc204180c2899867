#include "dlglib/filsel/request_names.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "tests/support/encodings.h"

namespace filsel {
namespace {

using test_texts::Euc;

class RequestNamesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    os::scripted::World().Reset();
    CwSession::Reset();
    Add("#MODEL#", "/DATA/MDL", "*.MDL");
  }
  void TearDown() override { CwSession::Reset(); }

  static void Add(const std::string& keyword, const std::string& folder, const std::string& patterns) {
    CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType(keyword, folder, patterns, 0));
  }
};

// The functions, on bytes: the tests say themselves which encoding they give.
struct Start {
  std::string folder;
  std::string name;
};

Start DeriveStart(const std::string& keyword, const std::string& name) {
  const StartPlace place = filsel::DeriveStart(EucText(keyword), EucText(name), *os::Services().files);
  return {place.folder.bytes(), place.name.bytes()};
}

std::string WithoutDefaults(const std::string& keyword, const std::string& name) {
  return filsel::WithoutDefaults(EucText(keyword), EucText(name), *os::Services().files).bytes();
}

std::string FilterTitle(const std::string& keyword) { return filsel::FilterTitle(EucText(keyword)).bytes(); }

TEST_F(RequestNamesTest, TheFilterTitleNamesTheDefaultPattern) {
  EXPECT_EQ(FilterTitle("#MODEL#"), "#MODEL#(*.MDL)");
  EXPECT_EQ(FilterTitle("#UNKNOWN#"), "#UNKNOWN#(*)");
  Add("#RASTER#", "C:/img", "");
  EXPECT_EQ(FilterTitle("#RASTER#"), "#RASTER#(*)");
  EXPECT_EQ(FilterTitle(""), "(*)");
}

TEST_F(RequestNamesTest, TheFilterTitleIsInTheEncodingOfTheScreen) {
  Add("#DRAWING#", Euc("C:/図面"), Euc("*.図面"));
  EXPECT_EQ(FilterTitle("#DRAWING#"), "#DRAWING#(*.図面)");
}

TEST_F(RequestNamesTest, ABareNameStartsInTheFolderOfTheKind) {
  const Start place = DeriveStart("#MODEL#", "A-001");
  EXPECT_EQ(place.folder, "\\DATA\\MDL");
  EXPECT_EQ(place.name, "A-001.MDL");
}

TEST_F(RequestNamesTest, AFullNameStartsInItsOwnFolder) {
  const Start place = DeriveStart("#MODEL#", Euc("D:/図面/表.mdl"));
  EXPECT_EQ(place.folder, "D:\\図面");
  EXPECT_EQ(place.name, Euc("表.mdl"));
}

TEST_F(RequestNamesTest, ANameWithoutASlashThatCannotBeResolvedIsTheFolderToo) {
  const Start place = DeriveStart("#UNKNOWN#", "plain");
  EXPECT_EQ(place.folder, "plain");
  EXPECT_EQ(place.name, "plain");
}

TEST_F(RequestNamesTest, ALongPathIsNotUsed) {
  Add("#LONG#", "C:/" + std::string(249, 'x'), "*.L");
  EXPECT_EQ(DeriveStart("#LONG#", "a").name, "a.L");  // 256 bytes
  const Start place = DeriveStart("#LONG#", "ab");
  EXPECT_EQ(place.folder, "ab");
  EXPECT_EQ(place.name, "ab");
}

TEST_F(RequestNamesTest, AnEmptyNameOpensTheFolderOfTheKind) {
  const Start place = DeriveStart("#MODEL#", "");
  EXPECT_EQ(place.folder, "\\DATA\\MDL");
  EXPECT_EQ(place.name, "");
}

TEST_F(RequestNamesTest, FolderAndExtensionOfTheKindAreTakenOff) {
  EXPECT_EQ(WithoutDefaults("#MODEL#", "/DATA/MDL/ABC.MDL"), "ABC");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "/data/mdl/abc.mdl"), "abc");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "/DATA/OTHER/ABC.MDL"), "/DATA/OTHER/ABC");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "/DATA/MDL/ABC.TXT"), "ABC.TXT");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "/DATA/MDL/ABC"), "ABC");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "/DATA/MDL/sub/ABC.MDL"), "sub/ABC");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "abc.mdl"), "abc");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "a.b.mdl"), "a.b");
  EXPECT_EQ(WithoutDefaults("#MODEL#", ""), "");
}

TEST_F(RequestNamesTest, NamesInJapaneseKeepTheirBytes) {
  EXPECT_EQ(WithoutDefaults("#MODEL#", Euc("/DATA/MDL/も表.mdl")), Euc("も表"));
}

TEST_F(RequestNamesTest, WithoutAKindOrAnExtensionNothingIsTakenOff) {
  EXPECT_EQ(WithoutDefaults("#UNKNOWN#", "/DATA/MDL/ABC.MDL"), "/DATA/MDL/ABC.MDL");
  Add("#BARE#", "/DATA/B", "*");
  EXPECT_EQ(WithoutDefaults("#BARE#", "/DATA/B/ABC.MDL"), "ABC.MDL");
}

TEST_F(RequestNamesTest, AFolderThatLooksLikeAnExtensionIsNoTrap) {
  Add("#DOT#", "/DATA.X/Y", "*");
  EXPECT_EQ(WithoutDefaults("#DOT#", "/DATA.X/Y/*"), "");
  EXPECT_EQ(WithoutDefaults("#DOT#", "/DATA.X/Y/A"), "A");
}

// ---- folders without a drive

class CurrentDriveTest : public RequestNamesTest {
 protected:
  static void Stand(const std::string& folder) { os::scripted::World().files.currentFolder = folder; }
};

TEST_F(CurrentDriveTest, AFolderWithoutADriveIsOneOfTheCurrentDrive) {
  Stand("D:\\仕事\\表");
  EXPECT_EQ(DeriveStart("#MODEL#", "A-001").folder, "D:\\DATA\\MDL");
  EXPECT_EQ(DeriveStart("#MODEL#", "A-001").name, "A-001.MDL");
  EXPECT_EQ(DeriveStart("#MODEL#", "/other/a").folder, "D:\\other");
  EXPECT_EQ(DeriveStart("#MODEL#", "/a").folder, "D:\\");
  EXPECT_EQ(DeriveStart("#MODEL#", "E:/other/a").folder, "E:\\other");
  EXPECT_EQ(DeriveStart("#MODEL#", "//srv/share/a").folder, "\\\\srv\\share");
  Add("#BACK#", "\\DATA\\MDL", "*.MDL");
  EXPECT_EQ(DeriveStart("#BACK#", "a").folder, "D:\\DATA\\MDL");
}

TEST_F(CurrentDriveTest, AFolderWithoutARootLiesInTheCurrentFolder) {
  Stand("D:\\仕事\\表");
  Add("#NEAR#", "models", "*.MDL");
  EXPECT_EQ(DeriveStart("#NEAR#", "a").folder, "D:\\仕事\\表\\models");
  EXPECT_EQ(DeriveStart("#UNKNOWN#", "plain").folder, "D:\\仕事\\表\\plain");
  EXPECT_EQ(DeriveStart("#UNKNOWN#", "plain").name, "plain");
  EXPECT_EQ(DeriveStart("#UNKNOWN#", "").folder, "") << "no folder is named";
  Stand("D:\\");
  EXPECT_EQ(DeriveStart("#NEAR#", "a").folder, "D:\\models");
}

TEST_F(CurrentDriveTest, ACurrentFolderOfTheNetworkGivesItsShare) {
  Stand("\\\\srv\\share\\deep");
  EXPECT_EQ(DeriveStart("#MODEL#", "a").folder, "\\\\srv\\share\\DATA\\MDL");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "//srv/share/DATA/MDL/ABC.MDL"), "ABC");
  Stand("\\\\srv\\share");
  EXPECT_EQ(DeriveStart("#MODEL#", "a").folder, "\\\\srv\\share\\DATA\\MDL");
}

TEST_F(CurrentDriveTest, AFileChosenInTheFolderOfTheKindLosesIt) {
  Stand("D:\\仕事");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "D:/DATA/MDL/ABC.MDL"), "ABC");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "d:/data/Mdl/sub/abc.mdl"), "sub/abc");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "/DATA/MDL/ABC.MDL"), "ABC");
  EXPECT_EQ(WithoutDefaults("#MODEL#", Euc("D:/DATA/MDL/も表.mdl")), Euc("も表"));
  EXPECT_EQ(WithoutDefaults("#MODEL#", "D:/DATA/MDL/.MDL"), "");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "E:/DATA/MDL/ABC.MDL"), "E:/DATA/MDL/ABC") << "another drive's folder";
  EXPECT_EQ(WithoutDefaults("#MODEL#", "D:/DATA/MDLX/ABC.MDL"), "D:/DATA/MDLX/ABC");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "D:/DATA/MDL"), "D:/DATA/MDL");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "D:ABC.MDL"), "D:ABC");
}

TEST_F(CurrentDriveTest, BothSidesOfTheComparisonAreResolvedAlike) {
  Stand("D:\\仕事");
  Add("#FULL#", "D:/DATA/MDL", "*.MDL");
  EXPECT_EQ(WithoutDefaults("#FULL#", "/DATA/MDL/ABC.MDL"), "ABC");
  Add("#BACK#", "\\DATA\\MDL", "*.MDL");
  EXPECT_EQ(WithoutDefaults("#BACK#", "D:/DATA/MDL/ABC.MDL"), "ABC");
  Add("#NEAR#", "../DATA/./MDL", "*.MDL");
  EXPECT_EQ(WithoutDefaults("#NEAR#", "D:/DATA/MDL/ABC.MDL"), "ABC");
  EXPECT_EQ(WithoutDefaults("#NEAR#", "../DATA/./MDL/ABC.MDL"), "ABC");
  Add("#ROOT#", "/", "*.MDL");
  EXPECT_EQ(WithoutDefaults("#ROOT#", "D:/a/ABC.MDL"), "a/ABC");
}

TEST_F(CurrentDriveTest, NothingLeadsOutOfADrive) {
  Stand("D:\\仕事");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "D:/../../DATA/x/../MDL/ABC.MDL"), "ABC");
}

TEST_F(CurrentDriveTest, ANameMayBeginWithABackslash) {
  Stand("D:\\仕事");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "\\DATA\\MDL\\ABC.MDL"), "ABC");
}

TEST_F(CurrentDriveTest, ANameInNoFolderIsNotSoughtInTheCurrentOne) {
  Stand("D:\\DATA");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "MDL/ABC.MDL"), "MDL/ABC") << "of the kind's own folder";
  Stand("D:\\DATA\\MDL");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "ABC.MDL"), "ABC");
}

TEST_F(CurrentDriveTest, WithoutACurrentFolderTextsStayAsTheyAre) {
  EXPECT_EQ(DeriveStart("#MODEL#", "a").folder, "\\DATA\\MDL");
  EXPECT_EQ(WithoutDefaults("#MODEL#", "D:/DATA/MDL/ABC.MDL"), "D:/DATA/MDL/ABC");
  Stand("D:\\");
  os::scripted::World().calls.FailNext("files.CurrentFolder");
  EXPECT_EQ(DeriveStart("#MODEL#", "a").folder, "\\DATA\\MDL");
}

}  // namespace
}  // namespace filsel
