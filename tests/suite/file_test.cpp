#include <string>

#include "tests/suite/suite_fixture.h"

namespace {

class FileNames : public SuiteTest {
 protected:
  FileNames() {
    Add("#MODEL#", "C:/plant/model", "*.MDL", CwLetterCase::Upper);
    Add("#TEXT#", "C:/plant/text/", "*.txt;*.doc", CwLetterCase::Lower);
    Add("#RASTER#", "C:/raster", "*", CwLetterCase::AsIs);
    Add("#ANY#", "C:/any", "*.*", CwLetterCase::AsIs);
  }

  void Add(const char* keyword, const char* folder, const char* patterns, CwLetterCase letterCase) {
    session_.GetActiveFileTypeSet()->AddFileType(CwFileType(keyword, folder, patterns, 0, letterCase));
  }
};

TEST_F(FileNames, ARelativeNameIsPutBehindTheKindsFolder) {
  EXPECT_EQ(CwFile::ToFullPath("#MODEL#", "a-1.mdl", false, false), "C:/plant/model/A-1.MDL");
  EXPECT_EQ(CwFile::ToFullPath("#TEXT#", "NOTE.TXT", false, false), "C:/plant/text/note.txt");
  EXPECT_EQ(CwFile::ToFullPath("#RASTER#", "Map.Tif", false, false), "C:/raster/Map.Tif");
  EXPECT_EQ(CwFile::ToFullPath("#MODEL#", "sub/a.mdl", false, false), "C:/plant/model/sub/A.MDL");
}

TEST_F(FileNames, AKindWithoutAFolderAddsNone) {
  Add("#HERE#", "", "*.MDL", CwLetterCase::AsIs);
  EXPECT_EQ(CwFile::ToFullPath("#HERE#", "a", false, true), "a.MDL");
}

TEST_F(FileNames, AFullNameStaysAsItIs) {
  for (const char* name : {"/data/a.mdl", "\\data\\a.mdl", "D:/w/a.mdl", "D:a.mdl", "//server/share/a.mdl"}) {
    EXPECT_EQ(CwFile::ToFullPath("#MODEL#", name, false, false), name);
    EXPECT_EQ(CwFile::ToFullPath("#NONE#", name, true, true), name);
  }
}

TEST_F(FileNames, AnUnknownKindResolvesNoRelativeName) {
  EXPECT_EQ(CwFile::ToFullPath("#NONE#", "a.mdl", false, true), "");
  EXPECT_EQ(CwFile::ToFullPath("#NONE#", "", false, true), "");
}

TEST_F(FileNames, AnEmptyNameIsTheKindsFolder) {
  EXPECT_EQ(CwFile::ToFullPath("#MODEL#", "", false, true), "C:/plant/model/");
  EXPECT_EQ(CwFile::ToFullPath("#TEXT#", "", false, true), "C:/plant/text/");
}

TEST_F(FileNames, TheExtensionIsThatOfTheFirstPattern) {
  EXPECT_EQ(CwFile::ToFullPath("#MODEL#", "*", false, true), "C:/plant/model/*.MDL");
  EXPECT_EQ(CwFile::ToFullPath("#MODEL#", "a", false, true), "C:/plant/model/A.MDL");
  EXPECT_EQ(CwFile::ToFullPath("#MODEL#", "a.dat", false, true), "C:/plant/model/A.DAT");
  EXPECT_EQ(CwFile::ToFullPath("#MODEL#", "a", true, false), "C:/plant/model/A");
  EXPECT_EQ(CwFile::ToFullPath("#TEXT#", "A", true, true), "C:/plant/text/a.txt");
  EXPECT_EQ(CwFile::ToFullPath("#RASTER#", "*", false, true), "C:/raster/*");
  EXPECT_EQ(CwFile::ToFullPath("#RASTER#", "a", false, true), "C:/raster/a");
}

TEST_F(FileNames, AFullNameGetsTheExtensionToo) {
  EXPECT_EQ(CwFile::ToFullPath("#MODEL#", "D:/w.d/a", false, true), "D:/w.d/a.MDL");
  EXPECT_EQ(CwFile::ToFullPath("#MODEL#", "D:/w/", false, true), "D:/w/");
}

TEST_F(FileNames, AnExtensionWithAWildcardGoesToPatternsOnly) {
  EXPECT_EQ(CwFile::ToFullPath("#ANY#", "a", false, true), "C:/any/a");
  EXPECT_EQ(CwFile::ToFullPath("#ANY#", "*", false, true), "C:/any/*.*");
}

TEST_F(FileNames, LettersOfTwoByteCharactersKeepTheirCase) {
  const std::string name = Euc("表ａ能z");
  EXPECT_EQ(CwFile::ToFullPath("#MODEL#", name, false, false), "C:/plant/model/" + Euc("表ａ能Z"));
}

TEST_F(FileNames, GetFilenameIsThePartBehindTheLastSeparator) {
  EXPECT_EQ(CwFile::GetFilename("C:/a/b.mdl"), "b.mdl");
  EXPECT_EQ(CwFile::GetFilename("C:\\a\\b.mdl"), "b.mdl");
  EXPECT_EQ(CwFile::GetFilename("b.mdl"), "b.mdl");
  EXPECT_EQ(CwFile::GetFilename("/b.mdl"), "b.mdl");
  EXPECT_EQ(CwFile::GetFilename("ソb.mdl"), "ソb.mdl");
  EXPECT_EQ(CwFile::GetFilename("C:/a/"), "");
  EXPECT_EQ(CwFile::GetFilename(""), "");
  EXPECT_EQ(CwFile::GetFilename(Euc("C:/図面/表.mdl")), Euc("表.mdl"));
}

TEST_F(FileNames, SeparatorsAreTurnedInPlace) {
  std::string path = Euc("C:/図面/表.mdl");
  CwFile::ToPlatformPathSeparator(path.data());
  EXPECT_EQ(path, Euc("C:\\図面\\表.mdl"));
  CwFile::ToAbstractPathSeparator(path.data());
  EXPECT_EQ(path, Euc("C:/図面/表.mdl"));
  CwFile::ToPlatformPathSeparator(path);
  CwFile::ToAbstractPathSeparator(path);
  EXPECT_EQ(path, Euc("C:/図面/表.mdl"));
  CwFile::ToPlatformPathSeparator(static_cast<char*>(nullptr));
  CwFile::ToAbstractPathSeparator(static_cast<char*>(nullptr));
}

TEST_F(FileNames, ASecondByteOfShiftJisIsNoSeparator) {
  std::string path = "C:\\表\\ソ能.mdl";
  CwFile::ToAbstractPathSeparator(path);
  EXPECT_EQ(path, "C:/表/ソ能.mdl");
  EXPECT_EQ(CwFile::GetFilename("C:\\表\\ソ能.mdl"), "ソ能.mdl");
}

TEST_F(FileNames, HalfACharacterAtTheEndIsHarmless) {
  std::string path = "C:\\a\\\x95";
  CwFile::ToAbstractPathSeparator(path);
  EXPECT_EQ(path, "C:/a/\x95");
  EXPECT_EQ(CwFile::ToFullPath("#MODEL#", "a\xB4", false, true), "C:/plant/model/A\xB4.MDL");
}

}  // namespace
