#include "dlglib/listcontrol/grid_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

// Into a buffer of exactly the promised size, so that a sanitizer sees every byte too many.
std::string Copied(const char* text, int limit) {
  std::vector<char> out(static_cast<std::size_t>(std::max(limit, 1)) + 1, '#');
  grid::CopyText(out.data(), text, limit);
  return out.data();
}

TEST(TextLimits, AreClamped) {
  EXPECT_EQ(grid::ClampTextLimit(2), 4);
  EXPECT_EQ(grid::ClampTextLimit(-1), 4);
  EXPECT_EQ(grid::ClampTextLimit(4), 4);
  EXPECT_EQ(grid::ClampTextLimit(200), 200);
  EXPECT_EQ(grid::ClampTextLimit(385), 385);
  EXPECT_EQ(grid::ClampTextLimit(1000), 385);
}

TEST(CopiedTexts, StopAtTheLimit) {
  EXPECT_EQ(Copied("abcdef", 4), "abcd");
  EXPECT_EQ(Copied("abcd", 4), "abcd");
  EXPECT_EQ(Copied("abc", 4), "abc");
  EXPECT_EQ(Copied("", 4), "");
  EXPECT_EQ(Copied("ｱｲｳｴｵ", 4), "ｱｲｳｴ");
}

TEST(CopiedTexts, AreNeverSplitInACharacter) {
  EXPECT_EQ(Copied("abcd表efgh", 5), "abcd");
  EXPECT_EQ(Copied("abcd表efgh", 6), "abcd表");
  EXPECT_EQ(Copied("ソソソ", 5), "ソソ");
  EXPECT_EQ(Copied("ソソソ", 6), "ソソソ");
}

TEST(CopiedTexts, LoseHalfACharacterAtTheEnd) {
  EXPECT_EQ(Copied("ab\x95", 10), "ab");
  EXPECT_EQ(Copied("\x95", 10), "");
}

// The first character is looked at in any case; callers rely on it.
TEST(CopiedTexts, OfNoLengthHaveOneSingleByteCharacter) {
  EXPECT_EQ(Copied("abc", 0), "a");
  EXPECT_EQ(Copied("ｱｲ", 0), "ｱ");
  EXPECT_EQ(Copied("表", 0), "");
  EXPECT_EQ(Copied("表", 1), "");
  EXPECT_EQ(Copied("abc", -5), "a");
  EXPECT_EQ(Copied("", 0), "");
}

TEST(CopiedTexts, MayBeMissing) {
  EXPECT_EQ(Copied(nullptr, 5), "");
  grid::CopyText(nullptr, "abc", 5);
}

TEST(CopiedTexts, OfEveryPairOfBytesFitTheirBuffer) {
  for (int first = 1; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string text = {static_cast<char>(first), static_cast<char>(second), 'x'};
      for (int limit = 0; limit < 4; ++limit) {
        const std::string copied = Copied(text.c_str(), limit);
        EXPECT_LE(copied.size(), static_cast<std::size_t>(std::max(limit, 1)));
        EXPECT_EQ(text.substr(0, copied.size()), copied);
      }
    }
  }
}

TEST(ValueParts, EndAtTheSeparator) {
  EXPECT_EQ(grid::ValuePart("12 Steel", ' '), "12");
  EXPECT_EQ(grid::ValuePart("  7 x", ' '), "7");
  EXPECT_EQ(grid::ValuePart("3 Red", ':'), "3 Red");
  EXPECT_EQ(grid::ValuePart("3:Red", ':'), "3");
  EXPECT_EQ(grid::ValuePart("表", ' '), "表");
  EXPECT_EQ(grid::ValuePart("   ", ' '), "");
  EXPECT_EQ(grid::ValuePart("", ' '), "");
}

// Byte by byte: the second byte of "ソ" is that of the separator.
TEST(ValueParts, AreSearchedByteByByte) { EXPECT_EQ(grid::ValuePart("Aソ", '\\'), "A\x83"); }

TEST(ValueParts, TakeTheLowestByteOfTheSeparator) {
  EXPECT_EQ(grid::ValuePart("1ｱ2", 0xB1), "1");
  EXPECT_EQ(grid::ValuePart("1ｱ2", static_cast<signed char>(0xB1)), "1");
}

}  // namespace
