#include "dlglib/utility/path_name.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/suite/crvncontrol.h"

namespace {

using path_name::FileNamePos;
using path_name::FolderOf;
using path_name::Internal;
using path_name::kNone;
using path_name::LastByte;
using path_name::Real;

class PathNameTest : public testing::Test {
 protected:
  PathNameTest() {
    CwSession::Reset();
    CwFileTypeSet* kinds = CwSession::GetInstance()->GetActiveFileTypeSet();
    kinds->AddFileType(CwFileType("#MODEL#", "D:/shop", "*.MDL", 0, CwLetterCase::Upper));
    kinds->AddFileType(CwFileType("#TEXT#", "D:/" + std::string("\xC9\xBD") + "/", "*.txt", 0));  // "表" in EUC-JP
  }
  ~PathNameTest() override { CwSession::Reset(); }
};

// ---- searching a text

TEST(FileNamePos, IsBehindTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(FileNamePos("abc"), 0U);
  EXPECT_EQ(FileNamePos("x/y\\z"), 4U);
  EXPECT_EQ(FileNamePos("dir/"), 4U);
  EXPECT_EQ(FileNamePos(""), 0U);
  EXPECT_EQ(FileNamePos("/"), 1U);
  EXPECT_EQ(FileNamePos(std::string(100000, '\\')), 100000U);
}

TEST(FileNamePos, BytesAreSearchedOneByOne) { EXPECT_EQ(FileNamePos("表a"), 2U); }

TEST(LastByte, AnEmptyTextHasNone) { EXPECT_EQ(LastByte("", '\\'), kNone); }

TEST(LastByte, StepsOverCharacters) {
  EXPECT_EQ(LastByte("a\\b\\c", '\\'), 3U);
  EXPECT_EQ(LastByte("a\\表", '\\'), 1U);
  EXPECT_EQ(LastByte("表", '\\'), kNone);
  EXPECT_EQ(LastByte("\\\x81", '\\'), 0U);
  EXPECT_EQ(LastByte("a\x81", 'a'), 0U);
}

TEST(LastByte, EveryPairOfBytesAndEveryByteSearched) {
  const auto isLead = [](int byte) { return (byte >= 0x80 && byte <= 0x9F) || byte >= 0xE0; };
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string text = {static_cast<char>(first), static_cast<char>(second)};
      for (const int wanted : {first, second}) {
        std::size_t expected = kNone;
        if (wanted < 0x80 && first == wanted) expected = 0;
        if (wanted < 0x80 && second == wanted && !isLead(first)) expected = 1;
        EXPECT_EQ(LastByte(text, wanted), expected) << first << ' ' << second << ' ' << wanted;
      }
    }
  }
}

TEST(LastByte, NoByteIsAboveAByte) {
  EXPECT_EQ(LastByte("a\xB1", 0xB1), kNone);
  EXPECT_EQ(LastByte("a", 'a' + 256), kNone);
  EXPECT_EQ(LastByte("a", -159), kNone);
  EXPECT_EQ(LastByte("a", 0), kNone);
}

TEST(FolderOf, EndsInFrontOfTheLastSeparator) {
  EXPECT_EQ(FolderOf("D:\\w\\a.txt"), "D:\\w");
  EXPECT_EQ(FolderOf("D:\\a.txt"), "D:");
  EXPECT_EQ(FolderOf("a.txt"), "a.txt");
  EXPECT_EQ(FolderOf("D:\\表"), "D:");
}

// ---- converting

TEST_F(PathNameTest, ABareNameLiesInTheFolderOfItsKind) {
  EXPECT_EQ(Real("#MODEL#", "abc.mdl"), "D:\\shop\\abc.mdl");
  EXPECT_EQ(Internal("#MODEL#", "abc.mdl"), "D:/shop/abc.mdl");
}

TEST_F(PathNameTest, TheTypedSpellingSurvives) {
  EXPECT_EQ(Real("#MODEL#", "A/B/c.txt"), "D:\\shop\\A\\B\\c.txt");
  EXPECT_EQ(Real("#MODEL#", "Ａｂ.mdl"), "D:\\shop\\Ａｂ.mdl");
}

TEST_F(PathNameTest, AFullNameStays) {
  EXPECT_EQ(Real("#MODEL#", "C:/x/y.z"), "C:\\x\\y.z");
  EXPECT_EQ(Real("#MODEL#", "C:\\x\\y.z"), "C:\\x\\y.z");
  EXPECT_EQ(Internal("#MODEL#", "C:\\x\\y.z"), "C:/x/y.z");
  EXPECT_EQ(Internal("#MODEL#", "\\\\server\\share\\y.z"), "//server/share/y.z");
}

TEST_F(PathNameTest, WhatCannotBeResolvedIsConvertedAsItStands) {
  EXPECT_EQ(Real("#NONE#", "a/b"), "a\\b");
  EXPECT_EQ(Internal("#NONE#", "a\\b"), "a/b");
  EXPECT_EQ(Real("", "a"), "a");
  EXPECT_EQ(Real("#NONE#", ""), "");
}

TEST_F(PathNameTest, AnEmptyNameIsTheFolderOfItsKind) {
  EXPECT_EQ(Real("#MODEL#", ""), "D:\\shop\\");
  EXPECT_EQ(Internal("#MODEL#", ""), "D:/shop/");
}

TEST_F(PathNameTest, JapaneseNamesPassBothWays) {
  EXPECT_EQ(Real("#TEXT#", "能ソ.txt"), "D:\\表\\能ソ.txt");
  EXPECT_EQ(Internal("#TEXT#", "表\\ソ.txt"), "D:/\xC9\xBD/\xC9\xBD/\xA5\xBD.txt");
  EXPECT_EQ(Internal("#TEXT#", "ｱ"), "D:/\xC9\xBD/\x8E\xB1");
}

TEST_F(PathNameTest, TheInternalFormHasNoPlatformSeparator) {
  for (const char* path : {"C:\\a\\b", "a\\b\\", "\\\\s\\t", "表\\表", "a/b\\c"}) {
    EXPECT_EQ(Internal("#MODEL#", path).find('\\'), std::string::npos) << path;
  }
}

TEST_F(PathNameTest, LongPathsAreBounded) {
  for (const std::size_t length : {511U, 512U, 513U, 100000U}) {
    EXPECT_EQ(Real("#NONE#", std::string(length, 'x')), std::string(std::min<std::size_t>(length, 512), 'x'));
    EXPECT_LE(Real("#MODEL#", std::string(length, 'x')).size(), path_name::kMaxLength);
    EXPECT_LE(Internal("#MODEL#", std::string(length, 'x')).size(), path_name::kMaxLength);
  }
  // A resolution beyond 512 bytes leaves the name unresolved.
  EXPECT_EQ(Real("#MODEL#", std::string(504, 'x')), "D:\\shop\\" + std::string(504, 'x'));
  EXPECT_EQ(Real("#MODEL#", std::string(505, 'x')), std::string(505, 'x'));
}

TEST_F(PathNameTest, NoCharacterIsSplit) {
  std::string name;
  for (int i = 0; i < 256; ++i) name += "表";
  EXPECT_EQ(Real("#NONE#", name), name);
  EXPECT_EQ(Real("#NONE#", "a" + name), ("a" + name).substr(0, 511));
  std::string stored = "a";
  for (int i = 0; i < 255; ++i) stored += "\xC9\xBD";
  EXPECT_EQ(Internal("#NONE#", "a" + name), stored);
  // Half-width katakana takes two bytes on its way.
  std::string katakana;
  for (int i = 0; i < 300; ++i) katakana += "ｱ";
  EXPECT_EQ(Real("#NONE#", katakana), katakana.substr(0, 256));
  EXPECT_EQ(Real("#NONE#", "a" + katakana), "a" + katakana.substr(0, 255));
}

TEST_F(PathNameTest, AnyBytesAreSurvived) {
  std::mt19937 random(5);
  for (int round = 0; round < 2000; ++round) {
    std::string path(random() % 600, '\0');
    for (char& byte : path) byte = static_cast<char>(1 + random() % 255);
    EXPECT_LE(Real("#MODEL#", path).size(), path_name::kMaxLength);
    EXPECT_EQ(Internal("#MODEL#", path).find('\\'), std::string::npos);
  }
}

}  // namespace
