// Which encoding a path is taken for: the rule told slowly, with the C library's tables, and compared for every byte,
// every pair of bytes, every text of the classes of bytes, every character and the classes of characters. The long run
// adds every pair of characters. What cannot be told apart is counted in docs/encodings.md.
#include "dlglib/utility/rules/path_encoding.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/suite/crvnbc.h"
#include "tests/robustness/runs_long.h"

namespace {

// The readings, as bytes.
struct Readings {
  std::string likely;
  std::optional<std::string> other;
};

Readings Read(std::string_view path, std::size_t limit) {
  const path_encoding::Readings readings = path_encoding::Read(path, limit);
  return {readings.likely.bytes(), readings.other ? std::optional(readings.other->bytes()) : std::nullopt};
}

constexpr std::size_t kAmple = 10000;

unsigned Byte(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
}

std::string Bytes(unsigned first, unsigned second) { return {static_cast<char>(first), static_cast<char>(second)}; }

std::string ToEuc(const std::string& sjis) { return CwEucEncoder::Sjis2Euc(sjis, kAmple); }
std::string ToSjis(const std::string& euc) { return CwEucEncoder::Euc2Sjis(euc, kAmple); }

/// Which pairs of bytes of 0x80 and above are characters that the other encoding has too, by the C library.
class PairTable {
 public:
  PairTable(const char* from, const char* to) {
    const iconv_t descriptor = ::iconv_open(to, from);
    for (unsigned code = 0x8000; code < 0x10000; ++code) {
      std::string text = Bytes(code >> 8, code);
      std::array<char, 8> out = {};
      char* in = text.data();
      char* end = out.data();
      std::size_t left = text.size();
      std::size_t room = out.size();
      ::iconv(descriptor, nullptr, nullptr, nullptr, nullptr);
      const bool whole = ::iconv(descriptor, &in, &left, &end, &room) != static_cast<std::size_t>(-1) && left == 0;
      // Two characters are no pair.
      has_[code] = whole && !IsSingle(from, code >> 8);
    }
    ::iconv_close(descriptor);
  }

  [[nodiscard]] bool Has(unsigned first, unsigned second) const { return has_[first << 8 | second]; }

 private:
  static bool IsSingle(std::string_view from, unsigned byte) {
    return from == "CP932" ? byte == 0x80 || (byte >= 0xA0 && byte <= 0xDF) || byte >= 0xFD : byte < 0x8E;
  }

  std::vector<bool> has_ = std::vector<bool>(0x10000);
};

bool IsHigh(unsigned byte) { return byte >= 0xA1 && byte <= 0xFE; }

/// The rule, one byte after the other.
class Rule {
 public:
  [[nodiscard]] bool IsEuc(std::string_view text) const {
    for (std::size_t at = 0; at < text.size();) {
      const unsigned lead = Byte(text, at);
      const unsigned second = Byte(text, at + 1);
      const bool isSupplement = lead == 0x8F && IsHigh(second) && IsHigh(Byte(text, at + 2));
      const bool isPair = lead == 0x8E ? second >= 0xA1 && second <= 0xDF : IsHigh(lead) && euc_.Has(lead, second);
      if (lead >= 0x80 && !isSupplement && !isPair) return false;
      at += lead < 0x80 ? 1 : isSupplement ? 3 : 2;
    }
    return true;
  }

  [[nodiscard]] bool HasOnlyDoubleBytes(std::string_view text) const {
    for (std::size_t at = 0; at < text.size();) {
      const bool isAscii = Byte(text, at) < 0x80;
      if (!isAscii && !sjis_.Has(Byte(text, at), Byte(text, at + 1))) return false;
      at += isAscii ? 1 : 2;
    }
    return true;
  }

  [[nodiscard]] bool IsTakenForEuc(std::string_view text) const { return IsEuc(text) && !HasOnlyDoubleBytes(text); }

  [[nodiscard]] const PairTable& Sjis() const { return sjis_; }

 private:
  PairTable euc_{"EUC-JP-MS", "CP932"};
  PairTable sjis_{"CP932", "EUC-JP-MS"};
};

const Rule& TheRule() {
  static const Rule rule;
  return rule;
}

std::string Hex(std::string_view bytes) {
  std::string hex;
  for (const char byte : bytes) {
    hex += "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> 4];
    hex += "0123456789ABCDEF"[static_cast<unsigned char>(byte) & 15];
  }
  return hex;
}

void ExpectRule(const std::string& text) {
  const Readings readings = Read(text, kAmple);
  const std::string asSjis = ToEuc(text);
  const bool isEuc = TheRule().IsTakenForEuc(text);
  ASSERT_EQ(readings.likely, isEuc ? text : asSjis) << Hex(text);
  const bool mayBeBoth = TheRule().IsEuc(text) && asSjis != text;
  ASSERT_EQ(readings.other.has_value(), mayBeBoth) << Hex(text);
  if (mayBeBoth) {
    ASSERT_EQ(*readings.other, isEuc ? asSjis : text) << Hex(text);
  }
}

TEST(PathEncoding, EveryByteAndEveryPairOfBytesIsReadByTheRule) {
  ExpectRule("");
  for (unsigned first = 0; first < 0x100; ++first) {
    ExpectRule(std::string(1, static_cast<char>(first)));
    for (unsigned second = 0; second < 0x100; ++second) ExpectRule(Bytes(first, second));
  }
}

/// One byte at least of every class that either encoding knows, and of rows that have no characters, or not all.
constexpr std::string_view kClasses =
    "/3A\\|\x7F\x80\x81\x85\x8D\x8E\x8F\x90\x9F\xA0\xA1\xA9\xB1\xCF\xDF\xE0\xEA\xEB\xED\xEF\xF0\xF4\xF5\xF9\xFA\xFC\xFD"
    "\xFF";

void ForEachTextOfClasses(std::size_t length, const std::function<void(const std::string&)>& check) {
  std::vector<std::size_t> digits(length);
  for (;;) {
    std::string text;
    for (const std::size_t digit : digits) text += kClasses[digit];
    check(text);
    std::size_t at = 0;
    while (at < length && ++digits[at] == kClasses.size()) digits[at++] = 0;
    if (at == length) return;
  }
}

TEST(PathEncoding, EveryTextOfTheClassesOfBytesIsReadByTheRule) {
  const std::size_t longest = robustness::RunsLong() ? 4 : 3;
  for (std::size_t length = 1; length <= longest; ++length) ForEachTextOfClasses(length, ExpectRule);
}

// ---------------------------------------------------------------------------------------------------------------------
// characters

struct Character {
  std::string sjis;
  std::string euc;
};

/// Half-width katakana and every pair that Shift_JIS has; the NEC-selected ones count as the IBM extensions that they
/// come back as.
const std::vector<Character>& Characters() {
  static const std::vector<Character> characters = [] {
    std::vector<Character> found;
    const auto add = [&found](const std::string& sjis) {
      const std::string euc = ToEuc(sjis + "\x81\x40");  // a blank behind it: no EUC-JP
      if (ToSjis(euc) == sjis + "\x81\x40") found.push_back({sjis, euc.substr(0, euc.size() - 2)});
    };
    for (unsigned katakana = 0xA1; katakana < 0xE0; ++katakana) add(std::string(1, static_cast<char>(katakana)));
    for (unsigned code = 0x8000; code < 0x10000; ++code) {
      if (TheRule().Sjis().Has(code >> 8, code & 0xFF)) add(Bytes(code >> 8, code));
    }
    return found;
  }();
  return characters;
}

/// Names that do not come back, of each number of characters.
struct Counts {
  std::uint64_t names = 0;
  std::uint64_t internalAsSjis = 0;  ///< the internal name is taken for Shift_JIS
  std::uint64_t realAsEuc = 0;       ///< the real name is taken for EUC-JP

  [[nodiscard]] std::string Row(const std::string& of) const {
    return "| " + of + " | " + std::to_string(names) + " | " + std::to_string(internalAsSjis) + " | " +
           std::to_string(realAsEuc) + " |";
  }
};

/// Reads a name in its two forms, each of which must give the internal one but where the rule cannot tell.
void CheckName(const std::string& sjis, const std::string& euc, Counts* counts) {
  ++counts->names;
  const std::string ofInternal = Read(euc, kAmple).likely;
  const bool isAscii = ofInternal == sjis;
  const bool internalAsSjis = !isAscii && TheRule().HasOnlyDoubleBytes(euc);
  if ((ofInternal != euc) != internalAsSjis) FAIL() << "internal " << Hex(euc) << " gives " << Hex(ofInternal);
  counts->internalAsSjis += internalAsSjis ? 1 : 0;
  const std::string ofReal = Read(sjis, kAmple).likely;
  const bool realAsEuc = TheRule().IsTakenForEuc(sjis);
  if ((ofReal != euc) != realAsEuc) FAIL() << "real " << Hex(sjis) << " gives " << Hex(ofReal);
  counts->realAsEuc += realAsEuc ? 1 : 0;
}

void ExpectDocumented(const std::string& row) {
  std::ifstream file(DLGLIB_ENCODINGS_PAGE);
  ASSERT_TRUE(file.is_open());
  for (std::string line; std::getline(file, line);) {
    if (line == row) return;
  }
  FAIL() << "not in the documentation: " << row;
}

TEST(PathEncoding, EveryCharacterIsReadInBothFormsButThoseThatAreCounted) {
  Counts counts;
  for (const Character& character : Characters()) CheckName(character.sjis, character.euc, &counts);
  EXPECT_EQ(counts.realAsEuc, 0U);
  ExpectDocumented(counts.Row("one character"));
}

/// What a byte may be in either encoding, of the bytes that characters are made of.
unsigned ClassOfByte(unsigned byte) {
  static constexpr std::string_view kStarts = "\x80\x8E\x8F\x90\xA1\xE0\xFD";
  unsigned number = 0;
  for (const char start : kStarts) number += byte >= static_cast<unsigned char>(start) ? 1 : 0;
  return number;
}

/// The first and the last character of each class: those whose bytes are of the same classes in both encodings.
std::vector<Character> OfEveryClass() {
  std::map<std::string, std::pair<Character, Character>> classes;
  for (const Character& character : Characters()) {
    std::string key;
    for (const char byte : character.sjis + "-" + character.euc) {
      key += static_cast<char>(ClassOfByte(static_cast<unsigned char>(byte)));
    }
    const auto [at, isNew] = classes.try_emplace(key, character, character);
    if (!isNew) at->second.second = character;
  }
  std::vector<Character> found;
  for (const auto& [key, ends] : classes) {
    found.push_back(ends.first);
    if (ends.second.sjis != ends.first.sjis) found.push_back(ends.second);
  }
  return found;
}

/// Side by side, with a letter between, and with letters around.
TEST(PathEncoding, EveryPairOfClassesOfCharactersIsReadInBothForms) {
  const std::vector<Character> characters = OfEveryClass();
  Counts counts;
  for (const Character& first : characters) {
    for (const Character& second : characters) {
      CheckName(first.sjis + second.sjis, first.euc + second.euc, &counts);
      CheckName(first.sjis + "A" + second.sjis, first.euc + "A" + second.euc, &counts);
      CheckName("C:/" + first.sjis + second.sjis + ".a", "C:/" + first.euc + second.euc + ".a", &counts);
    }
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_GT(counts.internalAsSjis, 0U);
  EXPECT_GT(counts.realAsEuc, 0U);
}

/// A sample; in the long run all of them, some 86 million names.
TEST(PathEncoding, EveryPairOfCharactersIsReadInBothFormsButThoseThatAreCounted) {
  const std::vector<Character>& characters = Characters();
  const std::size_t step = robustness::RunsLong() ? 1 : 61;
  Counts counts;
  for (std::size_t i = 0; i < characters.size(); i += step) {
    for (std::size_t j = 0; j < characters.size(); j += step) {
      CheckName(characters[i].sjis + characters[j].sjis, characters[i].euc + characters[j].euc, &counts);
    }
    if (testing::Test::HasFailure()) return;
  }
  if (robustness::RunsLong()) ExpectDocumented(counts.Row("two characters"));
}

// ---------------------------------------------------------------------------------------------------------------------
// limits

TEST(PathEncoding, NoCharacterIsSplitAtTheLimit) {
  const std::string euc = ToEuc("図面髙A") + "\x8F\xB0\xA1" + ToEuc("ｱ表");
  for (std::size_t limit = 0; limit <= euc.size() + 1; ++limit) {
    const Readings readings = Read(euc, limit);
    EXPECT_LE(readings.likely.size(), limit);
    EXPECT_TRUE(euc.starts_with(readings.likely)) << limit;
    if (readings.other) {
      EXPECT_LE(readings.other->size(), limit);
    }
  }
}

TEST(PathEncoding, WhatLiesBehindTheLimitDecidesToo) {
  EXPECT_EQ(Read(ToEuc("図面") + "/\xB1", 4).likely, ToEuc("ｿ\xDE")) << "an odd byte: no EUC-JP";
  EXPECT_EQ(Read("\x8E\xB1" + ToEuc("/図"), 2).likely, "\x8E\xB1");
}

}  // namespace
