// What the encoder promises about every text; the comparison with another implementation's tables is in
// tests/core/base/conversions_test.cpp.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <string_view>

#include "platform/suite/euc_encoder.h"
#include "tests/suite/suite_fixture.h"

namespace {

std::string ToSjis(const std::string& euc, std::size_t limit = kNoLimit) { return CwEucEncoder::Euc2Sjis(euc, limit); }
std::string ToEuc(const std::string& sjis, std::size_t limit = kNoLimit) { return CwEucEncoder::Sjis2Euc(sjis, limit); }

TEST(Encoder, ConvertsEachKindOfCharacter) {
  struct Case {
    const char* sjis;
    const char* euc;
  };
  const Case cases[] = {
      {"", ""},
      {"abc\\~\x7F\r\n", "abc\\~\x7F\r\n"},
      {"表ソ能", "\xC9\xBD\xA5\xBD\xC7\xBD"},
      {"あん、アヶ亜熙", "\xA4\xA2\xA4\xF3\xA1\xA2\xA5\xA2\xA5\xF6\xB0\xA1\xF4\xA6"},
      {"ｱｶﾞｯ", "\x8E\xB1\x8E\xB6\x8E\xDE\x8E\xAF"},
      {"①Ⅳ㎜㈱", "\xAD\xA1\xAD\xB8\xAD\xD0\xAD\xEA"},
      {"髙﨑", "\x8F\xF4\xFB\x8F\xF4\xBD"},          // IBM extensions
      {"\xF0\x40\xF5\x40", "\xF5\xA1\x8F\xF5\xA1"},  // user-defined
  };
  for (const Case& example : cases) {
    EXPECT_EQ(ToEuc(example.sjis), example.euc);
    EXPECT_EQ(ToSjis(ToEuc(example.sjis)), example.sjis);
  }
}

TEST(Encoder, ZeroBytesPass) {
  const std::string text("a\0\x95\x5C\0z", 6);
  EXPECT_EQ(ToSjis(ToEuc(text)), text);
  EXPECT_EQ(ToEuc(text), std::string("a\0\xC9\xBD\0z", 6));
}

TEST(Encoder, BadBytesBecomeQuestionMarks) {
  EXPECT_EQ(ToSjis("a\x80\x9F\xA0\xFF"
                   "b"),
            "a????b");
  EXPECT_EQ(ToSjis("\xB4"), "?");
  EXPECT_EQ(ToSjis("\xB4x"), "?x");
  EXPECT_EQ(ToSjis("\x8Ex\x8E\xE0"), "?x??");
  EXPECT_EQ(ToSjis("\x8F"), "?");
  EXPECT_EQ(ToSjis("\x8F\xB0"), "??");
  EXPECT_EQ(ToSjis("\xA9\xA1z"), "?z");      // an empty cell
  EXPECT_EQ(ToSjis("\x8F\xB0\xA1z"), "?z");  // a character that Shift_JIS lacks
  EXPECT_EQ(ToEuc("a\x80\xA0\xFD\xFF"
                  "b"),
            "a????b");
  EXPECT_EQ(ToEuc("\x81"), "?");
  EXPECT_EQ(ToEuc("\x81\x39"), "?9");
  EXPECT_EQ(ToEuc("\x85\x40z"), "?z");
}

TEST(Encoder, MetacharactersSpoilNothingBehindThem) {
  EXPECT_EQ(ToSjis("\x8D\xB1\xA4\xA2"), "??あ");
  EXPECT_EQ(ToSjis("\x8D"), "?");
}

TEST(Encoder, EucTextGivenAsSjisIsLeftAlone) {
  const std::string euc = Euc("日本語の図面");
  EXPECT_EQ(ToEuc(euc), euc);
  EXPECT_EQ(ToEuc("C:/" + euc + "/a.mdl", 5), "C:/" + euc.substr(0, 2));
  EXPECT_EQ(ToEuc("C:/" + euc, 4), "C:/");
  // A text that is neither has its bad bytes marked.
  EXPECT_EQ(ToEuc(euc + "\xFF").back(), '?');
  // One that is both is Shift_JIS.
  EXPECT_EQ(ToEuc("\xB1\xB2"), "\x8E\xB1\x8E\xB2");
}

TEST(Encoder, WhatLiesBehindTheLimitDecidesTooWhetherATextIsEuc) {
  const std::string euc = "\xB1\xB2" + Euc("日本");  // the first two bytes alone would be half-width katakana
  EXPECT_EQ(ToEuc(euc, 2), "\xB1\xB2");
}

TEST(Encoder, TheLimitSplitsNoCharacter) {
  const std::string sjis = "aあｱ髙表z";
  const std::string euc = ToEuc(sjis);
  for (std::size_t limit = 0; limit <= euc.size() + 1; ++limit) {
    const std::string cut = ToEuc(sjis, limit);
    EXPECT_LE(cut.size(), limit);
    EXPECT_TRUE(euc.starts_with(cut));
    EXPECT_EQ(cut, euc.substr(0, cut.size()));
    EXPECT_TRUE(sjis.starts_with(ToSjis(cut))) << limit;
    EXPECT_TRUE(limit < euc.size() || cut == euc);
    EXPECT_GE(cut.size() + 3, std::min(limit, euc.size()) + 1);
  }
  for (std::size_t limit = 0; limit <= sjis.size() + 1; ++limit) {
    const std::string cut = ToSjis(euc, limit);
    EXPECT_LE(cut.size(), limit);
    EXPECT_TRUE(sjis.starts_with(cut));
    EXPECT_TRUE(euc.starts_with(ToEuc(cut))) << limit;
    EXPECT_GE(cut.size() + 2, std::min(limit, sjis.size()) + 1);
  }
}

/// Characters of every kind, some bytes that are none, in runs as texts have them.
std::string RandomBytes(std::mt19937& random, std::size_t size) {
  const auto byte = [&random](std::size_t low, std::size_t high) {
    return static_cast<char>(low + random() % (high - low + 1));
  };
  std::string text;
  while (text.size() < size) {
    const std::size_t kind = random() % 8;
    for (std::size_t left = 1 + random() % 12; left > 0; --left) {
      if (kind < 2) text += byte(0x20, 0x7E);
      if (kind >= 2 && kind < 5) (text += byte(0xA1, 0xF4)) += byte(0xA1, 0xFE);
      if (kind == 5) (text += '\x8E') += byte(0xA1, 0xDF);
      if (kind == 6) (text += byte(0x81, 0x9F)) += byte(0x40, 0xFC);
      if (kind == 7 && left == 1) text += byte(0, 0xFF);
    }
  }
  text.resize(size);
  return text;
}

using Conversion = suite::Converted (*)(std::string_view text, char* out, std::size_t capacity) noexcept;

/// With the instructions of this processor, and with those of any.
constexpr Conversion kToSjis[] = {suite::EucToSjis, suite::EucToSjisOnAnyProcessor};
constexpr Conversion kToEuc[] = {suite::SjisToEuc, suite::SjisToEucOnAnyProcessor};

/// One character after the other, each in a memory block of its own size.
std::string InSteps(const std::string& text, Conversion convert) {
  std::string all;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t sizes[] = {1, 2, 3};
    for (const std::size_t capacity : sizes) {
      const auto exact = std::make_unique<char[]>(capacity);
      const suite::Converted done = convert(rest, exact.get(), capacity);
      if (done.read == 0) continue;
      all.append(exact.get(), done.written);
      rest.remove_prefix(done.read);
      break;
    }
  }
  return all;
}

/// The whole text from and into blocks of exactly its size, so that a byte read or written outside of them is seen.
std::string AtOnce(const std::string& text, std::size_t capacity, Conversion convert) {
  const auto in = std::make_unique<char[]>(text.size());
  std::copy(text.begin(), text.end(), in.get());
  const auto out = std::make_unique<char[]>(capacity);
  const suite::Converted done = convert(std::string_view(in.get(), text.size()), out.get(), capacity);
  return {out.get(), done.written};
}

TEST(Encoder, LongTextsConvertAsTheirCharactersDo) {
  std::mt19937 random(20240305);
  for (int round = 0; round < 2000; ++round) {
    const std::string text = RandomBytes(random, random() % 250);
    const std::string sjis = InSteps(text, suite::EucToSjis);
    const std::string euc = InSteps(text, suite::SjisToEuc);
    // With ample room all of it may be converted many bytes at a time.
    for (const Conversion toSjis : kToSjis) {
      ASSERT_EQ(AtOnce(text, text.size(), toSjis), sjis);
      ASSERT_EQ(AtOnce(text, text.size() + 64, toSjis), sjis);
    }
    for (const Conversion toEuc : kToEuc) {
      ASSERT_EQ(AtOnce(text, 2 * text.size(), toEuc), euc);
      ASSERT_EQ(AtOnce(text, euc.size(), toEuc), euc);
      ASSERT_EQ(AtOnce(text, 2 * text.size() + 64, toEuc), euc);
    }
  }
}

TEST(Encoder, EveryPairOfBytesConvertsAlikeAmongOthers) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string text = {'a', static_cast<char>(first), static_cast<char>(second), '\xA4', '\xA2', 'b'};
      constexpr std::size_t kAmple = 96;
      ASSERT_EQ(AtOnce(text, kAmple, suite::EucToSjis), InSteps(text, suite::EucToSjis)) << first << ' ' << second;
      ASSERT_EQ(AtOnce(text, kAmple, suite::SjisToEuc), InSteps(text, suite::SjisToEuc)) << first << ' ' << second;
    }
  }
}

/// Whether the instructions that this processor has besides change nothing.
bool AreAlike(const std::string& text, const Conversion (&ways)[2]) {
  char special[256];
  char plain[256];
  const suite::Converted done = ways[0](text, special, sizeof special);
  const suite::Converted expected = ways[1](text, plain, sizeof plain);
  const bool isSameWay = done.read == expected.read && done.clean == expected.clean;
  return isSameWay && std::string_view(special, done.written) == std::string_view(plain, expected.written);
}

TEST(Encoder, EveryPairOfBytesConvertsAlikeOnEveryProcessor) {
  const std::string tail = "b\x8E\xB1\xB1" + std::string(96, 'c');
  for (const std::size_t place : {0U, 30U, 31U}) {  // 32 bytes are the widest block
    std::string euc(place % 2, 'a');
    std::string sjis = euc;
    while (euc.size() < place) euc += "\xA4\xA2";
    while (sjis.size() < place) sjis += "\x82\xA0";
    constexpr int kPairs = 1 << 16;
    for (int code = 0; code < kPairs; ++code) {
      const std::string rest = std::string{static_cast<char>(code >> 8), static_cast<char>(code)} + tail;
      ASSERT_TRUE(AreAlike(euc + rest, kToSjis)) << std::hex << code << " at " << place;
      ASSERT_TRUE(AreAlike(sjis + rest, kToEuc)) << std::hex << code << " at " << place;
    }
  }
}

TEST(Encoder, TheEndOfATextOfAnyLengthConverts) {
  const std::string euc = ToEuc("a漢字ｱ表-ソ能ｲb図面ヴ①zﾎﾟﾝﾌﾟ");
  for (std::size_t length = 0; length <= euc.size(); ++length) {
    const std::string text = euc.substr(0, length);
    ASSERT_EQ(ToSjis(text), InSteps(text, suite::EucToSjis)) << length;
  }
  const std::string sjis = ToSjis(euc);
  for (std::size_t length = 0; length <= sjis.size(); ++length) {
    const std::string text = sjis.substr(0, length);
    ASSERT_EQ(AtOnce(text, 2 * length + 64, suite::SjisToEuc), InSteps(text, suite::SjisToEuc)) << length;
  }
}

TEST(Encoder, EveryCapacityGivesAStartOfTheWhole) {
  std::mt19937 random(7);
  for (int round = 0; round < 60; ++round) {
    const std::string text = RandomBytes(random, 130);
    const std::string sjis = InSteps(text, suite::EucToSjis);
    const std::string euc = InSteps(text, suite::SjisToEuc);
    for (std::size_t capacity = 0; capacity < euc.size(); ++capacity) {
      for (const Conversion toEuc : kToEuc) ASSERT_TRUE(euc.starts_with(AtOnce(text, capacity, toEuc)));
      for (const Conversion toSjis : kToSjis) ASSERT_TRUE(sjis.starts_with(AtOnce(text, capacity, toSjis)));
    }
  }
}

TEST(Encoder, TextsLongerThanOnePieceAreWhole) {
  std::mt19937 random(11);
  const std::string euc = ToEuc("図面ｱｲ髙 A-001、");
  std::string text;
  while (text.size() < 50000) text += euc.substr(0, 4) + std::string(random() % 9, 'x') + euc.substr(4);
  const std::string sjis = ToSjis(text);
  EXPECT_EQ(sjis, InSteps(text, suite::EucToSjis));
  EXPECT_EQ(ToEuc(sjis), text);
}

TEST(Encoder, TheLimitOfATextLongerThanOnePieceHolds) {
  std::string euc;
  while (euc.size() < 50000) euc += Euc("図面ｱｲ髙 A-001、x");
  const std::string sjis = ToSjis(euc);
  for (const std::size_t limit : {8191U, 8192U, 8193U, 8194U, 12345U, 16383U, 16384U, 16385U, 24577U, 40000U}) {
    const std::string cutEuc = ToEuc(sjis, limit);
    EXPECT_LE(cutEuc.size(), limit);
    EXPECT_GT(cutEuc.size() + 3, limit);
    EXPECT_TRUE(euc.starts_with(cutEuc)) << limit;
    const std::string cutSjis = ToSjis(euc, limit);
    EXPECT_LE(cutSjis.size(), std::min(limit, sjis.size()));
    EXPECT_GT(cutSjis.size() + 2, std::min(limit, sjis.size()));
    EXPECT_TRUE(sjis.starts_with(cutSjis)) << limit;
  }
}

}  // namespace
