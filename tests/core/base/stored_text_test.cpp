#include "dlglib/base/stored_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>
#include "tests/support/stored_bytes.h"

namespace {

using stored_bytes::Escape;
using stored_bytes::ToScreen;
using stored_bytes::ToScreenInWholeEscapes;
using stored_bytes::ToStored;
using stored_bytes::Unescape;

constexpr std::size_t kAmple = 10000;

const char* const kStoredA = "\xA4\xA2";        // "あ" in EUC-JP
const char* const kThreeByte = "\x8F\xB0\xA1";  // of the supplementary set, which Shift_JIS lacks

/// As the rules are told, one byte after the other.
[[nodiscard]] std::string SlowEscape(const std::string& euc) {
  std::string out;
  const auto byteAt = [&euc](std::size_t at) { return at < euc.size() ? static_cast<unsigned char>(euc[at]) : 0; };
  for (std::size_t at = 0; at < euc.size();) {
    const int byte = byteAt(at);
    const bool isThreeByte = byte == 0x8F && byteAt(at + 1) >= 0xA1 && byteAt(at + 1) <= 0xFE &&
                             byteAt(at + 2) >= 0xA1 && byteAt(at + 2) <= 0xFE;
    const std::size_t length = isThreeByte ? 3 : byte >= 0x80 ? 2 : 1;
    if (at + length > euc.size()) break;
    if (byte == 0x8D) {
      const int code = byteAt(at + 1);
      out += "<mc>";
      out += code == 0xD9 ? ',' : code == 0xDA ? ';' : static_cast<char>(code - 0x80);
    } else if (byte == 0x0D || byte == 0x0A) {
      out += "<cr>";
    } else {
      out += euc.substr(at, length);
    }
    at += length;
  }
  return out;
}

TEST(ToScreen, MetacharactersBecomeEscapes) {
  EXPECT_EQ(ToScreen("\x8D\xB1", kAmple), "<mc>1");
  EXPECT_EQ(ToScreen("\x8D\xB0", kAmple), "<mc>0");
  EXPECT_EQ(ToScreen("\x8D\xBA", kAmple), "<mc>:");
  EXPECT_EQ(ToScreen("\x8D\xD9", kAmple), "<mc>,");
  EXPECT_EQ(ToScreen("\x8D\xDA", kAmple), "<mc>;");
  EXPECT_EQ(ToScreen("A\x8D\xC6 Z", kAmple), "A<mc>F Z");
}

TEST(ToScreen, EachByteOfALineBreakBecomesAnEscape) {
  EXPECT_EQ(ToScreen("A\rB", kAmple), "A<cr>B");
  EXPECT_EQ(ToScreen("A\nB", kAmple), "A<cr>B");
  EXPECT_EQ(ToScreen("A\r\nB", kAmple), "A<cr><cr>B");
}

TEST(ToScreen, JapaneseTextsAreConverted) {
  EXPECT_EQ(ToScreen(std::string(kStoredA) + "\x8E\xB1" + "a", kAmple), "あｱa");
}

TEST(ToScreen, NothingBehindAThreeByteCharacterIsTakenForItsEnd) {
  EXPECT_TRUE(ToScreen(std::string(kThreeByte) + "\rA", kAmple).ends_with("<cr>A"));
  EXPECT_TRUE(ToScreen(std::string(kThreeByte) + "\x8D\xB1", kAmple).ends_with("<mc>1"));
}

TEST(ToScreen, TheLimitSplitsNoCharacter) {
  const std::string euc = std::string(kStoredA) + kStoredA;
  EXPECT_EQ(ToScreen(euc, 4), "ああ");
  EXPECT_EQ(ToScreen(euc, 3), "あ");
  EXPECT_EQ(ToScreen(euc, 1), "");
  EXPECT_EQ(ToScreen(euc, 0), "");
}

TEST(ToScreen, EscapedTextsAreBounded) {
  for (const std::size_t length : {0U, 511U, 512U, 513U, 100000U}) {
    EXPECT_EQ(ToScreen(std::string(length, 'x'), 1000000).size(), std::min<std::size_t>(length, 16383));
    EXPECT_LE(Escape(std::string(length, '\r')).size(), stored_text::kEscapedLimit);
  }
  // An escape that does not fit whole is left out.
  EXPECT_EQ(Escape(std::string(100000, '\r')).size() % 4, 0U);
}

TEST(ToScreen, HalfACharacterAtTheEndIsDropped) {
  EXPECT_EQ(ToScreen("A\x8D", kAmple), "A");
  EXPECT_EQ(ToScreen("A\xA4", kAmple), "A");
  EXPECT_LE(ToScreen("\x8F\xB0", kAmple).size(), 2U);
}

TEST(Escape, EveryByteAndPairIsAsTheRulesAreTold) {
  for (int first = 1; first < 256; ++first) {
    const std::string one(1, static_cast<char>(first));
    EXPECT_EQ(Escape(one), SlowEscape(one)) << first;
    for (int second = 1; second < 256; ++second) {
      const std::string two = {static_cast<char>(first), static_cast<char>(second)};
      EXPECT_EQ(Escape(two), SlowEscape(two)) << first << ' ' << second;
      EXPECT_EQ(Escape(two + "\rA\x8D\xB1"), SlowEscape(two + "\rA\x8D\xB1")) << first << ' ' << second;
    }
  }
}

TEST(Unescape, EveryCharacterOfAMetacharacter) {
  for (int byte = 1; byte < 256; ++byte) {
    const char shown = static_cast<char>(byte);
    const std::string text = std::string("<mc>") + shown + "z";
    std::string expected = {'\x8D', static_cast<char>(byte + 0x80), 'z'};
    if (shown == ',') expected[1] = '\xD9';
    if (shown == ';') expected[1] = '\xDA';
    EXPECT_EQ(Unescape(text), byte < 0x80 ? expected : text) << byte;
  }
}

TEST(Unescape, TextBetweenEscapesIsKept) {
  EXPECT_EQ(Unescape("a<mc>0b<mc>1c<cr>d<cr>"),
            "a\x8D\xB0"
            "b\x8D\xB1"
            "c\rd\r");
  EXPECT_EQ(Unescape("<MC>0<CR><mc 0<c r>"), "<MC>0<CR><mc 0<c r>");
  EXPECT_EQ(Unescape("<mc><mc>0"),
            "\x8D\xBC"
            "mc>0");
  EXPECT_EQ(Unescape("<mc><cr>"),
            "\x8D\xBC"
            "cr>");
}

TEST(Unescape, AnEscapeWithoutACharacterIsText) {
  EXPECT_EQ(Unescape("a<mc>"), "a<mc>");
  EXPECT_EQ(Unescape("<mc>0<mc>"), "\x8D\xB0<mc>");
  EXPECT_EQ(Unescape(std::string("<mc>") + kStoredA + "<mc>0"), std::string("<mc>") + kStoredA + "\x8D\xB0");
}

TEST(ToScreenInWholeEscapes, NothingIsCutInHalf) {
  const std::string euc = std::string(kStoredA) + "\x8D\xB1" + kStoredA + "\rz\x8D\xBCmc>0";
  const std::string screen = "あ<mc>1あ<cr>z<mc><mc>0";
  ASSERT_EQ(ToScreen(euc, kAmple), screen);
  for (std::size_t limit = 0; limit <= screen.size() + 1; ++limit) {
    const std::string cut = ToScreenInWholeEscapes(euc, limit);
    // The ends of あ, <mc>1, あ, <cr>, z, <mc><, m, c, > and 0.
    std::size_t end = 0;
    for (const std::size_t place : {0U, 2U, 7U, 9U, 13U, 14U, 19U, 20U, 21U, 22U, 23U}) {
      if (place <= limit) end = place;
    }
    EXPECT_EQ(cut, screen.substr(0, end)) << limit;
  }
}

TEST(ToScreenInWholeEscapes, WhatIsNoEscapeIsCutAsText) {
  EXPECT_EQ(ToScreenInWholeEscapes(std::string("<mc>") + kStoredA, 5), "<mc>");
  EXPECT_EQ(ToScreenInWholeEscapes("<mc>", 3), "<mc");
  EXPECT_EQ(ToScreenInWholeEscapes("<mc>1", 4), "") << "written out, it is one when it is stored again";
}

TEST(ToStored, EscapesBecomeMetacharacters) {
  EXPECT_EQ(ToStored("<mc>;", kAmple), "\x8D\xDA");
  EXPECT_EQ(ToStored("A<cr>B", kAmple), "A\rB");
  EXPECT_EQ(ToStored("あ<mc>0ｱ", kAmple), std::string(kStoredA) + "\x8D\xB0\x8E\xB1");
}

TEST(ToStored, EscapesThatShareACodeComeBackAsTheOther) {
  EXPECT_EQ(ToStored("<mc>Y<mc>Z", kAmple), ToStored("<mc>,<mc>;", kAmple));
  EXPECT_EQ(ToScreen(ToStored("<mc>Y<mc>Z", kAmple), kAmple), "<mc>,<mc>;");
}

TEST(ToStored, TheResultIsCutAtTheByte) {
  EXPECT_EQ(ToStored("0123456789", 3), "012");
  EXPECT_EQ(ToStored("あああああ", 3), std::string(kStoredA) + "\xA4");
  EXPECT_EQ(ToStored("0123456789", 0), "");
}

TEST(ToStored, TheConvertedTextIsBounded) { EXPECT_EQ(ToStored(std::string(100000, 'x'), 1000000).size(), 8191U); }

TEST(ToStored, EveryLimitCutsTheSameText) {
  const std::string screen = "a漢<mc>0ｱ<cr>表z";
  const std::string whole = ToStored(screen, kAmple);
  for (std::size_t limit = 0; limit <= whole.size() + 2; ++limit) {
    EXPECT_EQ(ToStored(screen, limit), whole.substr(0, limit)) << limit;
  }
}

TEST(ToStored, EveryPairOfBytesIsSurvived) {
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string text = {static_cast<char>(first), static_cast<char>(second)};
      ASSERT_LE(ToStored(text, kAmple).size(), 3 * text.size()) << first << ' ' << second;
      ASSERT_LE(ToStored("<mc>" + text, 3).size(), 3U) << first << ' ' << second;
      ASSERT_LE(ToScreen(text, kAmple).size(), 10U) << first << ' ' << second;
    }
  }
}

TEST(ToStored, EveryMetacharacterComesBack) {
  for (int byte = 0x21; byte < 0x7F; ++byte) {
    const std::string screen = std::string("<mc>") + static_cast<char>(byte);
    // What would be stored as the byte of "," or ";" comes back as those.
    const std::string expected = byte == 0x59 ? "<mc>," : byte == 0x5A ? "<mc>;" : screen;
    EXPECT_EQ(ToScreen(ToStored(screen, kAmple), kAmple), expected) << byte;
  }
}

TEST(ToStored, TextsOfAnyLengthAreBounded) {
  for (const std::size_t length : {0U, 511U, 512U, 513U, 100000U}) {
    const std::size_t expected = std::min<std::size_t>(length, 512);
    EXPECT_EQ(ToStored(std::string(length, 'x'), 512), std::string(expected, 'x'));
    EXPECT_EQ(ToScreen(std::string(length, 'x'), 512), std::string(expected, 'x'));
  }
}

TEST(ToStored, ScreenTextsComeBack) {
  std::mt19937 random(4);
  const std::vector<std::string> pieces = {"a",    "漢", "ｱ", "表", "<mc>0", "<mc>,", "<mc>;",
                                           "<cr>", " ",  "<", ">",  "mc",    "①"};
  for (int round = 0; round < 3000; ++round) {
    std::string screen;
    for (std::size_t count = random() % 40; count > 0; --count) screen += pieces[random() % pieces.size()];
    // What was typed need not come back ("<" and "mc>…" may have met), but what is stored stays the same from then on.
    const std::string stored = ToStored(screen, kAmple);
    const std::string shown = ToScreen(stored, kAmple);
    EXPECT_EQ(ToScreen(ToStored(shown, kAmple), kAmple), shown);
  }
}

TEST(ToStored, AStoredLineBreakPairComesBackAsTwoReturns) {
  EXPECT_EQ(ToStored(ToScreen("A\r\nB", kAmple), kAmple), "A\r\rB");
}

TEST(CopyBounded, SplitsNoStoredCharacter) {
  char out[5] = "xxxx";
  EXPECT_EQ(stored_text::CopyBounded(out, sizeof(out), EucView(std::string(kStoredA) + kThreeByte)), 2U);
  EXPECT_STREQ(out, kStoredA);
  EXPECT_EQ(stored_text::CopyBounded(out, sizeof(out), EucView(std::string("a\0b", 3))), 1U);
  EXPECT_EQ(stored_text::CopyBounded(out, 1, EucView("abc")), 0U);
  EXPECT_STREQ(out, "");
  EXPECT_EQ(stored_text::CopyBounded(nullptr, 5, EucView("abc")), 0U);
  EXPECT_EQ(stored_text::CopyBounded(out, 0, EucView("abc")), 0U);
}

}  // namespace
