#include "dlglib/base/shift_jis.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using shift_jis::CopyBounded;
using shift_jis::FindFirst;
using shift_jis::FindLast;
using shift_jis::kNone;
using shift_jis::Truncate;

[[nodiscard]] bool IsLeadByte(int byte) { return (byte >= 0x80 && byte <= 0x9F) || byte >= 0xE0; }

TEST(ShiftJis, EveryByteIsALeadAKatakanaOrASingleByte) {
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(shift_jis::IsLead(static_cast<char>(byte)), IsLeadByte(byte)) << byte;
    EXPECT_EQ(shift_jis::IsHalfWidthKatakana(static_cast<char>(byte)), byte >= 0xA0 && byte <= 0xDF) << byte;
  }
}

TEST(ShiftJis, EveryPairOfBytesIsWalked) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string text = {static_cast<char>(first), static_cast<char>(second)};
      const std::size_t length = IsLeadByte(first) ? 2 : 1;
      EXPECT_EQ(shift_jis::CharLength(text, 0), length);
      EXPECT_EQ(shift_jis::CharLength(text, 1), 1U);
      EXPECT_EQ(Truncate(text, 1).size(), length == 2 ? 0U : 1U);
      EXPECT_EQ(Truncate(text, 2).size(), length == 2 || !IsLeadByte(second) ? 2U : 1U);
      std::size_t found = kNone;
      if (length == 1 && second == '\\') found = 1;
      if (first == '\\') found = 0;
      EXPECT_EQ(FindFirst(text, '\\'), found);
    }
  }
}

TEST(ShiftJis, TheSecondByteOfACharacterIsNotFound) {
  EXPECT_EQ(FindFirst("表\\a\\", '\\'), 2U);
  EXPECT_EQ(FindLast("表\\a\\能", '\\'), 4U);
  EXPECT_EQ(FindLast("表", '\\'), kNone);
  EXPECT_EQ(FindFirst("", '\\'), kNone);
  EXPECT_EQ(FindFirst("a\\b\\c", '\\', 2), 3U);
  EXPECT_EQ(FindFirst("abc", 'a', 100), kNone);
}

TEST(ShiftJis, WildcardsAreCharacters) {
  EXPECT_TRUE(shift_jis::HasWildcard("a*"));
  EXPECT_TRUE(shift_jis::HasWildcard("?"));
  EXPECT_FALSE(shift_jis::HasWildcard("abc"));
  EXPECT_FALSE(shift_jis::HasWildcard("\x83\x3F"));  // no character of the table, but a pair all the same
}

TEST(ShiftJis, TruncateDropsHalfACharacter) {
  EXPECT_EQ(Truncate("ああ", 3), "あ");
  EXPECT_EQ(Truncate("ああ", 4), "ああ");
  EXPECT_EQ(Truncate("ああ", 100), "ああ");
  EXPECT_EQ(Truncate("a\x81", 100), "a");
  EXPECT_EQ(Truncate("abc", 0), "");
}

TEST(ShiftJis, CapitalsAreMadeByteByByte) {
  EXPECT_EQ(shift_jis::ToUpperBytes("aZ1 ｱ"), "AZ1 ｱ");
  EXPECT_EQ(shift_jis::ToUpperBytes("\x83\x61"), "\x83\x41");
  EXPECT_EQ(shift_jis::ToUpperBytes(""), "");
}

TEST(ShiftJis, EveryByteHasItsCapital) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    const int expected = byte >= 'a' && byte <= 'z' ? byte - 0x20 : byte;
    EXPECT_EQ(shift_jis::ToUpperBytes(text), std::string(1, static_cast<char>(expected))) << byte;
  }
}

TEST(ShiftJis, ATextMayBeCopiedOntoItself) {
  char out[8] = "abc表";
  EXPECT_EQ(CopyBounded(out, sizeof(out), out), 5U);
  EXPECT_STREQ(out, "abc表");
  EXPECT_EQ(CopyBounded(out, 5, out), 3U);
  EXPECT_STREQ(out, "abc");
}

TEST(ShiftJis, ACopyFitsItsRoomExactly) {
  for (std::size_t capacity = 1; capacity <= 8; ++capacity) {
    std::vector<char> out(capacity, 'x');
    const std::size_t copied = CopyBounded(out.data(), capacity, "あいう");
    EXPECT_EQ(copied, (capacity - 1) / 2 * 2 < 6 ? (capacity - 1) / 2 * 2 : 6);
    EXPECT_EQ(out[copied], '\0');
  }
}

TEST(ShiftJis, ACopyEndsAtATerminator) {
  char out[8] = "xxxxxxx";
  EXPECT_EQ(CopyBounded(out, sizeof(out), std::string_view("ab\0cd", 5)), 2U);
  EXPECT_STREQ(out, "ab");
  EXPECT_EQ(CopyBounded(nullptr, 8, "a"), 0U);
  EXPECT_EQ(CopyBounded(out, 0, "a"), 0U);
}

}  // namespace
