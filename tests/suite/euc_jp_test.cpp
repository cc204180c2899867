#include "platform/suite/euc_jp.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(EucJp, CharLengthWalksByTheFirstByte) {
  const std::string text = "a\xB4\xC1\x8E\xB1\x8F\xB0\xA1\x8D\xB0z";
  const std::size_t lengths[] = {1, 2, 2, 3, 2, 1};
  std::size_t at = 0;
  for (const std::size_t length : lengths) {
    EXPECT_EQ(euc_jp::CharLength(text, at), length) << at;
    at += length;
  }
  EXPECT_EQ(at, text.size());
}

TEST(EucJp, CharLengthStaysInsideTheText) {
  EXPECT_EQ(euc_jp::CharLength("\xB4", 0), 1u);
  EXPECT_EQ(euc_jp::CharLength("\x8F", 0), 1u);
  EXPECT_EQ(euc_jp::CharLength("\x8F\xB0", 0), 2u);
}

TEST(EucJp, ValidLengthRefusesStrayBytes) {
  for (const char* bad : {"\x80", "\x8D\xB0", "\x8E\x41", "\x8E\xE0", "\x8F\xB0", "\x8F\xB0\x41", "\xA0", "\xA1",
                          "\xB4\x41", "\xB4\xFF", "\xFF\xB4"}) {
    EXPECT_EQ(euc_jp::ValidLength(bad, 0), 0u) << bad;
    EXPECT_FALSE(euc_jp::IsValid(bad)) << bad;
  }
  EXPECT_EQ(euc_jp::ValidLength("", 0), 0u);
  EXPECT_EQ(euc_jp::ValidLength("\x8E\xDF", 0), 2u);
  EXPECT_EQ(euc_jp::ValidLength("\x8F\xB0\xA1", 0), 3u);
  EXPECT_TRUE(euc_jp::IsValid(""));
  EXPECT_TRUE(euc_jp::IsValid("a\xB4\xC1\x8E\xB1\x8F\xB0\xA1"));
}

TEST(EucJp, TruncateSplitsNoCharacter) {
  const std::string text = "a\xB4\xC1\x8E\xB1\x8F\xB0\xA1z";
  const std::size_t kept[] = {0, 1, 1, 3, 3, 5, 5, 5, 8, 9, 9};
  for (std::size_t limit = 0; limit < std::size(kept); ++limit) {
    EXPECT_EQ(euc_jp::Truncate(text, limit), text.substr(0, kept[limit])) << limit;
  }
  EXPECT_EQ(euc_jp::Truncate("a\xB4", 10), "a");
  EXPECT_EQ(euc_jp::Truncate("a\x8F\xB0", 10), "a");
}

}  // namespace
