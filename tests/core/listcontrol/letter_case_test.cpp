#include "dlglib/listcontrol/letter_case.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using grid::LetterCase;

std::string Folded(std::string text, LetterCase letterCase) {
  grid::FoldCase(text, letterCase);
  return text;
}

std::string Capitals(const std::string& text) { return Folded(text, LetterCase::Capitals); }
std::string Small(const std::string& text) { return Folded(text, LetterCase::Small); }

TEST(LetterCases, FoldLettersOfEveryAlphabet) {
  EXPECT_EQ(Capitals("azAZ09@[`{"), "AZAZ09@[`{");
  EXPECT_EQ(Small("azAZ09@[`{"), "azaz09@[`{");
  EXPECT_EQ(Capitals("ａｂｚＡ"), "ＡＢＺＡ");
  EXPECT_EQ(Small("ＡＢＺａ"), "ａｂｚａ");
  EXPECT_EQ(Capitals("ασω"), "ΑΣΩ");
  EXPECT_EQ(Small("ΑΣΩ"), "ασω");
  EXPECT_EQ(Capitals("абёноя"), "АБЁНОЯ");
  EXPECT_EQ(Small("АБЁНОЯ"), "абёноя");
}

TEST(LetterCases, FoldRomanNumeralsToTheCodesThatTheSystemWrites) {
  EXPECT_EQ(Capitals("\xFA\x40\xFA\x49\xEE\xEF"), "\x87\x54\x87\x5D\x87\x54");
  EXPECT_EQ(Small("\x87\x54\x87\x5D\xFA\x4A\xFA\x53"), "\xFA\x40\xFA\x49\xFA\x40\xFA\x49");
}

TEST(LetterCases, LeaveSecondBytesAndOtherCharactersAlone) {
  // The second bytes are letters.
  EXPECT_EQ(Capitals("\x83\x61\x83\x41"), "\x83\x61\x83\x41");
  EXPECT_EQ(Small("\x83\x61\x83\x41"), "\x83\x61\x83\x41");
  EXPECT_EQ(Capitals("\xB1\xDF表\x84\x7F"), "\xB1\xDF表\x84\x7F");
  EXPECT_EQ(Capitals("a\x83"), "A\x83");
}

TEST(LetterCases, LeaveAllAsTyped) { EXPECT_EQ(Folded("aBａＢ", LetterCase::AsTyped), "aBａＢ"); }

TEST(LetterCases, GoThereAndBack) {
  for (unsigned code = 0x8100; code < 0xFD00; ++code) {
    const std::string character = {static_cast<char>(code >> 8), static_cast<char>(code)};
    if ((code >> 8 >= 0xA0 && code >> 8 < 0xE0) || (code & 0xFF) == 0) continue;
    const std::string capital = Capitals(character);
    EXPECT_EQ(Capitals(capital), capital) << std::hex << code;
    const bool isRomanNumeral = code >= 0x8700;  // has more than one code
    if (capital == character || isRomanNumeral) continue;
    EXPECT_EQ(Small(capital), character) << std::hex << code;
  }
}

TEST(LetterCases, AreChosenByTheSignOfANumber) {
  for (const int mode : {1, 2, 1000}) EXPECT_EQ(grid::LetterCaseOf(mode), LetterCase::Capitals);
  for (const int mode : {-1, -7}) EXPECT_EQ(grid::LetterCaseOf(mode), LetterCase::Small);
  EXPECT_EQ(grid::LetterCaseOf(0), LetterCase::AsTyped);
}

}  // namespace
