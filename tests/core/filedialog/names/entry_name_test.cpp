#include "dlglib/filedialog/names/entry_name.h"

#include <gtest/gtest.h>

#include <string>

#include "dlglib/base/characters.h"

namespace {

using filedialog::FlawOfName;
using filedialog::NameFlaw;

std::string Repeat(const std::string& text, std::size_t count) {
  std::string repeated;
  for (; count > 0; --count) repeated += text;
  return repeated;
}

TEST(EntryName, OrdinaryNamesHaveNoFlaw) {
  for (const char* name : {"a",   "A-001.MDL", "図面 表", "ソ",    "能.txt", "ｱｲｳ",    "①Ⅳ", ".a", " a",   "a..b",
                           "a'b", "CONSOLE",   "COM0",    "COM10", "XCON",   "表.CON", "-",  "~",  "\x7F", "()[]{}"}) {
    EXPECT_EQ(FlawOfName(name), NameFlaw::None) << name;
  }
}

TEST(EntryName, EmptyIsAFlawOfItsOwn) { EXPECT_EQ(FlawOfName(""), NameFlaw::Empty); }

TEST(EntryName, EachForbiddenCharacterIsFoundWhereverItStands) {
  for (const char letter : std::string("\\/:*?\"<>|")) {
    const std::string mark(1, letter);
    for (const std::string& name : {mark, "a" + mark, mark + "a", "表" + mark + "ソ"}) {
      EXPECT_EQ(FlawOfName(name), NameFlaw::InvalidCharacter) << name;
    }
  }
}

TEST(EntryName, ControlCharactersAreForbidden) {
  for (int code = 0; code < 0x20; ++code) {
    EXPECT_EQ(FlawOfName("a" + std::string(1, static_cast<char>(code)) + "b"), NameFlaw::InvalidCharacter) << code;
  }
}

TEST(EntryName, SecondBytesAreNoCharacters) {
  for (const char* name : {"ソ", "表", "能", "ー", "ポ", "ミ"}) EXPECT_EQ(FlawOfName(name), NameFlaw::None) << name;
  EXPECT_EQ(FlawOfName("\x81\x7C"), NameFlaw::None);  // "|" as second byte
}

TEST(EntryName, HalfACharacterIsForbidden) {
  EXPECT_EQ(FlawOfName("\x95"), NameFlaw::InvalidCharacter);
  EXPECT_EQ(FlawOfName("a\x83"), NameFlaw::InvalidCharacter);
  EXPECT_EQ(FlawOfName("\x83\x20z"), NameFlaw::InvalidCharacter);
  EXPECT_EQ(FlawOfName("\x83\x7Fz"), NameFlaw::InvalidCharacter);
  EXPECT_EQ(FlawOfName("\x83\xFDz"), NameFlaw::InvalidCharacter);
}

TEST(EntryName, DotsAndBlanksAtTheEndAreForbidden) {
  for (const char* name : {".", "..", " ", "a.", "a ", "a. .", "表.", "CON."}) {
    EXPECT_EQ(FlawOfName(name), NameFlaw::Ending) << name;
  }
}

TEST(EntryName, DevicesAreForbiddenInAnyCaseAndWithAnExtension) {
  for (const char* name : {"CON", "con", "PRN", "Aux", "NUL", "nul.txt", "COM1", "com9", "LPT1.a.b", "lpt9", "CON .txt",
                           "CONIN$", "conout$"}) {
    EXPECT_EQ(FlawOfName(name), NameFlaw::Device) << name;
  }
}

TEST(EntryName, TheLimitCountsCharacters) {
  for (std::size_t count = 1; count <= 300; ++count) {
    const NameFlaw wanted = count <= 128 ? NameFlaw::None : NameFlaw::TooLong;
    EXPECT_EQ(FlawOfName(Repeat("a", count)), wanted) << count;
    EXPECT_EQ(FlawOfName(Repeat("表", count)), wanted) << count;
    EXPECT_EQ(FlawOfName(Repeat("ｱ", count)), wanted) << count;
  }
}

TEST(EntryName, EveryPairOfBytesIsJudged) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string name = {static_cast<char>(first), static_cast<char>(second)};
      static_cast<void>(FlawOfName(name));
      static_cast<void>(FlawOfName(name.substr(0, 1)));
    }
  }
}

TEST(Characters, AreCountedAsPairsAndSingles) {
  using filedialog::FirstCharacters;
  EXPECT_EQ(FirstCharacters("a表ｱb", 0), "");
  EXPECT_EQ(FirstCharacters("a表ｱb", 2), "a表");
  EXPECT_EQ(FirstCharacters("a表ｱb", 3), "a表ｱ");
  EXPECT_EQ(FirstCharacters("a表ｱb", 9), "a表ｱb");
  EXPECT_EQ(FirstCharacters("a\x95", 9), "a\x95");
  EXPECT_FALSE(filedialog::HasMoreCharacters("a表", 2));
  EXPECT_TRUE(filedialog::HasMoreCharacters("a表", 1));
  EXPECT_FALSE(filedialog::HasMoreCharacters("", 0));
}

}  // namespace
