#include "dlglib/base/path_text.h"

#include <gtest/gtest.h>

namespace {

using namespace filedialog;

TEST(PathText, DropsOneSeparatorAtTheEnd) {
  EXPECT_EQ(WithoutSeparator("C:\\a\\"), "C:\\a");
  EXPECT_EQ(WithoutSeparator("C:\\a\\\\"), "C:\\a\\");
  EXPECT_EQ(WithoutSeparator("C:\\a"), "C:\\a");
  EXPECT_EQ(WithoutSeparator("C:\\"), "C:");
  EXPECT_EQ(WithoutSeparator(""), "");
}

TEST(PathText, ASecondByteIsNoSeparator) {
  EXPECT_EQ(WithoutSeparator("C:\\表"), "C:\\表");  // 表 ends in the byte of "\"
  EXPECT_EQ(NamePart("C:\\表a"), "表a");
  EXPECT_EQ(NamePart("表"), "表");
}

TEST(PathText, ADriveIsAskedForByItsRoot) {
  EXPECT_EQ(FolderPath("C:"), "C:\\");
  EXPECT_EQ(FolderPath("C:\\"), "C:\\");
  EXPECT_EQ(FolderPath("C:\\a\\"), "C:\\a");
  EXPECT_EQ(FolderPath("\\\\server\\share\\"), "\\\\server\\share");
  EXPECT_EQ(FolderPath(""), "");
}

TEST(PathText, SamePathsDifferInCaseOrTheLastSeparator) {
  EXPECT_TRUE(IsSamePath("C:\\Data\\", "c:\\dATA"));
  EXPECT_TRUE(IsSamePath("C:", "c:\\"));
  EXPECT_FALSE(IsSamePath("C:\\Data", "C:\\Data2"));
  EXPECT_FALSE(IsSamePath("C:\\\x83\x41", "C:\\\x83\x61"));  // two characters whose second bytes are "A" and "a"
}

TEST(PathText, NameIsWhatFollowsTheLastSeparator) {
  EXPECT_EQ(NamePart("C:\\a\\b.mdl"), "b.mdl");
  EXPECT_EQ(NamePart("C:\\a\\"), "");
  EXPECT_EQ(NamePart("b.mdl"), "b.mdl");
}

TEST(PathText, ExtensionBeginsAtTheLastPoint) {
  EXPECT_EQ(ExtensionPart("a.b.mdl"), ".mdl");
  EXPECT_EQ(ExtensionPart("a."), ".");
  EXPECT_EQ(ExtensionPart(".mdl"), ".mdl");
  EXPECT_EQ(ExtensionPart("a"), "");
  EXPECT_EQ(ExtensionPart(""), "");
}

TEST(PathText, AnExactExtensionHoldsNoWildcard) {
  EXPECT_TRUE(IsExactExtension(".MDL"));
  EXPECT_TRUE(IsExactExtension("."));
  EXPECT_FALSE(IsExactExtension(".*"));
  EXPECT_FALSE(IsExactExtension(".M?L"));
  EXPECT_FALSE(IsExactExtension("MDL"));
  EXPECT_FALSE(IsExactExtension(""));
}

}  // namespace
