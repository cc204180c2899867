#include "dlglib/filsel/request_names.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/os/os_scripted.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"

namespace filsel {
namespace {

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
  static std::string Euc(const std::string& sjis) { return CwEucEncoder::Sjis2Euc(sjis, 100'000); }
};

TEST_F(RequestNamesTest, KindCodes) {
  EXPECT_EQ(KindCode("#MODEL#"), 1);
  EXPECT_EQ(KindCode("#SUBMODEL#"), 1);
  EXPECT_EQ(KindCode("#PARTS:BIN#"), 2);
  EXPECT_EQ(KindCode("#PSET:BIN#"), 3);
  EXPECT_EQ(KindCode("#MACRO#"), 4);
  EXPECT_EQ(KindCode("#MASK:SAVE#"), 5);
  EXPECT_EQ(KindCode("#TEXT#"), 6);
  EXPECT_EQ(KindCode("#CONSTANT#"), 7);
  EXPECT_EQ(KindCode("#ATRTABLE#"), 8);
  for (const char* other : {"#RASTER#", "#SXF:SFC#", "#SXF:P21#", "#model#", "#MODEL", "MODEL", " #MODEL#", ""}) {
    EXPECT_EQ(KindCode(other), 0) << other;
  }
}

TEST_F(RequestNamesTest, RealAndInternalForms) {
  EXPECT_EQ(ToReal(Euc("C:/図面/表.mdl"), 256), "C:\\図面\\表.mdl");
  EXPECT_EQ(ToInternal("C:\\図面\\表.mdl", 256), Euc("C:/図面/表.mdl"));
  EXPECT_EQ(ToReal("", 256), "");
  EXPECT_EQ(ToInternal("", 256), "");
}

TEST_F(RequestNamesTest, FormsAreCutAtACharacter) {
  EXPECT_EQ(ToReal(Euc("a表b"), 2), "a");
  EXPECT_EQ(ToInternal("a表b", 2), "a");
  EXPECT_EQ(ToInternal("ｱ", 1), "");  // two bytes in EUC-JP
  EXPECT_EQ(ToReal("abc", 0), "");
}

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
  const StartPlace place = DeriveStart("#MODEL#", "A-001");
  EXPECT_EQ(place.folder, "\\DATA\\MDL");
  EXPECT_EQ(place.name, "A-001.MDL");
}

TEST_F(RequestNamesTest, AFullNameStartsInItsOwnFolder) {
  const StartPlace place = DeriveStart("#MODEL#", Euc("D:/図面/表.mdl"));
  EXPECT_EQ(place.folder, "D:\\図面");
  EXPECT_EQ(place.name, Euc("表.mdl"));
}

TEST_F(RequestNamesTest, ANameWithoutASlashThatCannotBeResolvedIsTheFolderToo) {
  const StartPlace place = DeriveStart("#UNKNOWN#", "plain");
  EXPECT_EQ(place.folder, "plain");
  EXPECT_EQ(place.name, "plain");
}

TEST_F(RequestNamesTest, ALongPathIsNotUsed) {
  Add("#LONG#", "C:/" + std::string(249, 'x'), "*.L");
  EXPECT_EQ(DeriveStart("#LONG#", "a").name, "a.L");  // 256 bytes
  const StartPlace place = DeriveStart("#LONG#", "ab");
  EXPECT_EQ(place.folder, "ab");
  EXPECT_EQ(place.name, "ab");
}

TEST_F(RequestNamesTest, AnEmptyNameOpensTheFolderOfTheKind) {
  const StartPlace place = DeriveStart("#MODEL#", "");
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
