#include "dlglib/filedialog/basics/file_kind.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/suite/crvncontrol.h"
#include "tests/support/encodings.h"

namespace {

using namespace filedialog;

using test_texts::Euc;

void Register(const std::string& keyword, const std::string& pattern, const std::string& description) {
  CwFileType type(keyword, "C:/plant", pattern, 0);
  type.SetDescription(Euc(description));
  CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(type);
}

void ShareSxfFolder() { CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER"); }

class FileKindTest : public testing::Test {
 protected:
  FileKindTest() { CwSession::Reset(); }
  ~FileKindTest() override { CwSession::Reset(); }
};

FileKind KindOf(std::string_view title, std::string_view description, int titleClass) {
  return MakeFileKind(title, description, titleClass, *CwSession::GetInstance());
}

std::string LineOf(const std::string& title, const std::string& description = {}) {
  return KindLine(KindOf(title, description, 0));
}

TEST_F(FileKindTest, ComesFromTitleAndSuite) {
  Register("#MODEL#", "*.MDL", "モデルファイル");
  const FileKind kind = KindOf("#MODEL#(*.MDL)", "", 1);
  EXPECT_EQ(kind.keyword, "#MODEL#");
  EXPECT_EQ(kind.pattern, "*.MDL");
  EXPECT_EQ(kind.extension, ".MDL");
  EXPECT_EQ(kind.description, "モデルファイル");
  EXPECT_EQ(kind.titleClass, 1);
  EXPECT_EQ(KindLine(kind), "#MODEL#(*.MDL) モデルファイル");
}

TEST_F(FileKindTest, TheCallersDescriptionWins) {
  Register("#MODEL#", "*.MDL", "モデルファイル");
  EXPECT_EQ(LineOf("#MODEL#(*.MDL)", "別の説明"), "#MODEL#(*.MDL) 別の説明");
}

TEST_F(FileKindTest, WithoutADescriptionTheLineEndsBehindTheBlank) {
  EXPECT_EQ(LineOf("#MODEL#(*.MDL)"), "#MODEL#(*.MDL) ");
  EXPECT_EQ(LineOf("#OTHER#(*)"), "#OTHER#(*) ");
  EXPECT_EQ(LineOf("#OTHER#(*.*)"), "#OTHER#(*.*) ");
}

TEST_F(FileKindTest, OddTitlesGiveUsableKinds) {
  EXPECT_EQ(KindOf("#MODEL#", "", 0).keyword, "#MODEL#");
  EXPECT_EQ(KindOf("#MODEL#", "", 0).pattern, "*");
  EXPECT_EQ(KindOf("#MODEL#()", "", 0).pattern, "*");
  EXPECT_EQ(KindOf("#MODEL#(*.MDL", "", 0).pattern, "*.MDL");
  EXPECT_EQ(KindOf("#MODEL#(a(1)*.MDL)", "", 0).pattern, "a(1)*.MDL");
  EXPECT_EQ(KindOf("", "", 0).pattern, "*");
  EXPECT_EQ(KindOf(")(", "", 0).keyword, ")");
  EXPECT_EQ(KindOf("#MODEL#(\x83", "", 0).pattern, "\x83");
}

TEST_F(FileKindTest, AnEmptyKeywordIsTakenFromTheDescription) {
  const FileKind kind = KindOf("(*.TXT)", "文字 #TEXT# ファイル #2", 6);
  EXPECT_EQ(kind.keyword, "#TEXT#");
  EXPECT_EQ(kind.extension, ".TXT");
  EXPECT_EQ(KindLine(kind), "文字 #TEXT# ファイル #2");
}

TEST_F(FileKindTest, OneHashIsNoKeyword) {
  EXPECT_EQ(KindOf("(*.TXT)", "文字 #TEXT", 0).keyword, "");
  EXPECT_EQ(LineOf("(*.TXT)", "文字 #TEXT"), "文字 #TEXT");
  EXPECT_EQ(KindOf("(*.TXT)", "", 0).keyword, "");
  EXPECT_EQ(LineOf("(*.TXT)", ""), "");
  EXPECT_EQ(KindOf("(*.TXT)", "##", 0).keyword, "##");
}

TEST_F(FileKindTest, RasterFilesWithoutAnExtensionHaveAFixedLine) {
  for (const char* title : {"#RASTER#(*)", "#RASTER#(*.*)", "#RASTER#()"}) {
    EXPECT_EQ(LineOf(title, "説明"), "#RASTER#(*.TIF,*.BMP,*.JPG) 画像ファイル") << title;
  }
  EXPECT_EQ(LineOf("#RASTER#(*.TIF)", "説明"), "#RASTER#(*.TIF) 説明");
}

TEST_F(FileKindTest, SxfFilesHaveAFixedLineWhileTheyShareTheirFolder) {
  EXPECT_EQ(LineOf("#SXF:P21#(*)", "説明"), "#SXF:P21#(*) 説明");
  ShareSxfFolder();
  EXPECT_EQ(LineOf("#SXF:P21#(*)", "説明"), "#SXF:xxx#(*.SFC,*.P21) SXFファイル");
  EXPECT_EQ(LineOf("#SXF:SFC#(*.*)", "説明"), "#SXF:xxx#(*.SFC,*.P21) SXFファイル");
  EXPECT_EQ(LineOf("#SXF:SFC#(*.SFC)", "説明"), "#SXF:SFC#(*.SFC) 説明");
  EXPECT_EQ(LineOf("#SXF:XYZ#(*)", "説明"), "#SXF:XYZ#(*) 説明");
}

TEST_F(FileKindTest, TheInitialNameChoosesPatternAndExtension) {
  FileKind kind = KindOf("#MODEL#(*.MDL)", "", 1);
  ApplyInitialName("表.x.BAK", &kind);
  EXPECT_EQ(kind.pattern, "*.BAK");
  EXPECT_EQ(kind.extension, ".BAK");
}

TEST_F(FileKindTest, AnInitialNameWithoutAnExtensionChangesNothing) {
  for (const char* name : {"", "ABC", "ABC.", "C:\\v1.2\\ABC", "*", "A*"}) {
    FileKind kind = KindOf("#MODEL#(*.MDL)", "", 1);
    ApplyInitialName(name, &kind);
    EXPECT_EQ(kind.pattern, "*.MDL") << name;
    EXPECT_EQ(kind.extension, ".MDL") << name;
  }
}

TEST_F(FileKindTest, AnInitialPatternChoosesTheExtensionOnly) {
  FileKind kind = KindOf("#MODEL#(*.MDL)", "", 1);
  for (const auto& [name, extension] :
       {std::pair{"A*.BAK", ".BAK"}, std::pair{"*.*", ".*"}, std::pair{"A.MD?", ".MD?"}, std::pair{"表.?ソ", ".?ソ"}}) {
    ApplyInitialName(name, &kind);
    EXPECT_EQ(kind.pattern, "*.MDL") << name;
    EXPECT_EQ(kind.extension, extension) << name;
  }
}

TEST_F(FileKindTest, AnExactExtensionHoldsNoWildcard) {
  const auto exact = [](const char* pattern) {
    FileKind kind;
    kind.pattern = pattern;
    return HasExactExtension(kind);
  };
  EXPECT_TRUE(exact("*.MDL"));
  EXPECT_TRUE(exact("A*.x.MDL"));
  EXPECT_FALSE(exact("*.*"));
  EXPECT_FALSE(exact("*.MD?"));
  EXPECT_FALSE(exact("*"));
  EXPECT_FALSE(exact(""));
}

}  // namespace
