#include "dlglib/filedialog/listing/file_filter.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "tests/support/encodings.h"

namespace {

using namespace filedialog;

class FileFilterTest : public testing::Test {
 protected:
  FileFilterTest() {
    CwSession::Reset();
    os::scripted::World().Reset();
  }
  ~FileFilterTest() override {
    CwSession::Reset();
    os::scripted::World().Reset();
  }

  static bool KeepsPath(const std::string& keyword, const std::string& pattern, const std::string& path) {
    FileKind kind;
    kind.keyword = keyword;
    kind.pattern = pattern;
    kind.sharesSxfFolder = CwSession::GetInstance()->GetStartupParam()->IsDefined("SXF_USE_LAST_HOLDER");
    LongNames names(*os::Services().files);
    return FileFilter(kind).Keeps(EucView(path), names);
  }

  static bool Keeps(const std::string& keyword, const std::string& pattern, const std::string& name) {
    return KeepsPath(keyword, pattern, "C:/pl.ant/" + name);
  }
};

TEST_F(FileFilterTest, ANameThatOnlyLooksLikeAShortOneIsItsOwn) {
  os::scripted::World().files.AddFile("C:\\f\\a~1.mdl");
  LongNames names(*os::Services().files);
  EXPECT_EQ(names.NameOf("C:\\f\\a~1.mdl"), "a~1.mdl");
  os::scripted::World().calls.FailNext("files.OpenFolder");
  EXPECT_EQ(names.NameOf("C:\\g\\b~1.mdl"), "b~1.mdl") << "where the folder cannot be read too";
}

TEST_F(FileFilterTest, OtherKindsKeepWhatThePatternChose) {
  for (const char* keyword : {"#MODEL#", "", "#PARTS:BIN#", "#raster#", "#CONSTANT", "#SXF:XYZ#"}) {
    EXPECT_TRUE(Keeps(keyword, "*", "anything")) << keyword;
  }
  EXPECT_EQ(os::scripted::World().calls.Total(), 0U);
}

TEST_F(FileFilterTest, ConstantFilesAreReadToBeTold) {
  os::scripted::World().files.AddFile("C:\\pl.ant\\good.con", "CORVANE CONST 1\nEND\n");
  os::scripted::World().files.AddFile("C:\\pl.ant\\bad.con", "CORVANE MODEL 1\nEND\n");
  EXPECT_TRUE(Keeps("#CONSTANT#", "*.CON", "good.con"));
  EXPECT_FALSE(Keeps("#CONSTANT#", "*.CON", "bad.con"));
  EXPECT_FALSE(Keeps("#CONSTANT#", "*.CON", "missing.con"));
}

TEST_F(FileFilterTest, AttributeTablesAreReadToBeTold) {
  os::scripted::World().files.AddFile("C:\\pl.ant\\good.att", "CORVANE ATTR 1\nEND\n");
  os::scripted::World().files.AddFile("C:\\pl.ant\\bad.att", "CORVANE CONST 1\nEND\n");
  EXPECT_TRUE(Keeps("#ATRTABLE#", "*.ATT", "good.att"));
  EXPECT_FALSE(Keeps("#ATRTABLE#", "*.ATT", "bad.att"));
  os::scripted::World().calls.FailNext("files.Read");
  EXPECT_FALSE(Keeps("#ATRTABLE#", "*.ATT", "good.att"));
}

TEST_F(FileFilterTest, AttributeTablesAreNamedInFullForTheirKind) {
  CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType("#ATRTABLE#", "C:/plant", "*.ATT", 0));
  os::scripted::World().files.AddFile("C:\\pl.ant\\bare.ATT", "CORVANE ATTR 1\nEND\n");
  EXPECT_TRUE(Keeps("#ATRTABLE#", "*", "bare"));
}

TEST_F(FileFilterTest, RasterFilesAreToldByTheirExtensions) {
  for (const char* name : {"a.TIF", "x.tiff", "a.Bmp", "a.jpg", "a.JIF", "y.JPEG", "a.b.tif", ".tif"}) {
    EXPECT_TRUE(Keeps("#RASTER#", "*.*", name)) << name;
    EXPECT_TRUE(Keeps("#RASTER#", "*", name)) << name;
  }
  for (const char* name : {"z.png", "plain", "a.gif", "a.tif.bak", "a.", "a.tifx", "tif"}) {
    EXPECT_FALSE(Keeps("#RASTER#", "*.*", name)) << name;
  }
}

TEST_F(FileFilterTest, AnExactRasterPatternHasChosenAlready) {
  EXPECT_TRUE(Keeps("#RASTER#", "*.PNG", "z.png"));
  EXPECT_FALSE(Keeps("#RASTER#", "*.P?G", "z.png"));
}

TEST_F(FileFilterTest, AFolderWithAPointGivesNoExtension) {
  EXPECT_FALSE(KeepsPath("#RASTER#", "*", "C:/x.tif/plain"));
}

TEST_F(FileFilterTest, SxfFilesShareTheirFolderOnlyWithTheParameter) {
  for (const char* keyword : {"#SXF:P21#", "#SXF:SFC#"}) {
    EXPECT_TRUE(Keeps(keyword, "*", "a.txt"));
    EXPECT_TRUE(Keeps(keyword, "*", "plain"));
  }
  CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
  for (const char* keyword : {"#SXF:P21#", "#SXF:SFC#"}) {
    EXPECT_TRUE(Keeps(keyword, "*", "a.P21"));
    EXPECT_TRUE(Keeps(keyword, "*", "a.sfc"));
    EXPECT_FALSE(Keeps(keyword, "*", "a.txt"));
    EXPECT_FALSE(Keeps(keyword, "*", "plain"));
    EXPECT_FALSE(Keeps(keyword, "*.TXT", "a.txt"));
  }
}

TEST_F(FileFilterTest, JapaneseNamesKeepTheirExtensions) {
  EXPECT_TRUE(Keeps("#RASTER#", "*", test_texts::Euc("図面ソ表.tif")));
}

}  // namespace
