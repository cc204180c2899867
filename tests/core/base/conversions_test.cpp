// Every byte, every pair of bytes and every cut of a text, converted and compared with the C library's tables. Where
// the tables differ, docs/encodings.md says what is done here, and these tests hold it to be the whole list.
#include <gtest/gtest.h>
#include <iconv.h>

#include <fstream>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/suite/crvnbc.h"
#include "platform/suite/unicode_table.h"
#include "tests/support/stored_bytes.h"

namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

/// One conversion of the C library.
class Reference {
 public:
  Reference(const char* from, const char* to)
      : name_(std::string(from) + " to " + to), descriptor_(::iconv_open(to, from)) {
    EXPECT_NE(descriptor_, reinterpret_cast<iconv_t>(-1)) << name_;
  }
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;
  ~Reference() { ::iconv_close(descriptor_); }

  [[nodiscard]] const std::string& Name() const { return name_; }

  /// The other form of a text; none when it does not convert whole.
  [[nodiscard]] std::optional<std::string> Convert(std::string text) const {
    std::string out(2 * text.size() + 8, '\0');
    char* from = text.data();
    char* to = out.data();
    std::size_t left = text.size();
    std::size_t room = out.size();
    ::iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
    if (::iconv(descriptor_, &from, &left, &to, &room) == static_cast<std::size_t>(-1) || left != 0)
      return std::nullopt;
    out.resize(out.size() - room);
    return out;
  }

 private:
  std::string name_;
  iconv_t descriptor_;
};

std::string Hex(const std::string& bytes) {
  std::string hex;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    hex += "0123456789ABCDEF"[value >> 4];
    hex += "0123456789ABCDEF"[value & 15];
  }
  return hex;
}

std::string Bytes(unsigned first, unsigned second) { return {static_cast<char>(first), static_cast<char>(second)}; }

std::string ToEuc(const std::string& sjis) { return CwEucEncoder::Sjis2Euc(sjis, kNoLimit); }
std::string ToSjis(const std::string& euc) { return CwEucEncoder::Euc2Sjis(euc, kNoLimit); }

using Rows = std::set<std::string>;

std::string Row(const Reference& reference, const std::string& code, const std::string& here,
                const std::string& there) {
  return "| " + reference.Name() + " | " + code + " | " + (here == "?" ? here : Hex(here)) + " | " + Hex(there) + " |";
}

/// The rows of the tables in the documentation whose first column is the reference.
Rows DocumentedRows(const std::string& reference) {
  Rows rows;
  std::ifstream file(DLGLIB_ENCODINGS_PAGE);
  EXPECT_TRUE(file.is_open());
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with("| " + reference + " |")) continue;
    EXPECT_TRUE(rows.insert(line).second) << "twice: " << line;
  }
  return rows;
}

void ExpectDocumented(const std::string& reference, const Rows& found) {
  const Rows documented = DocumentedRows(reference);
  for (const std::string& row : found) EXPECT_TRUE(documented.contains(row)) << "not in the documentation: " << row;
  for (const std::string& row : documented) EXPECT_TRUE(found.contains(row)) << "no longer so: " << row;
}

/// Calls `check` for every byte, every pair whose first byte starts no single-byte character, and every three-byte
/// code.
void ForEveryCode(bool hasThreeBytes, const std::function<void(const std::string& code)>& check) {
  for (unsigned byte = 0; byte < 0x100; ++byte) check(std::string(1, static_cast<char>(byte)));
  for (unsigned first = 0x80; first < 0x100; ++first) {
    for (unsigned second = 0; second < 0x100; ++second) check(Bytes(first, second));
  }
  if (!hasThreeBytes) return;
  for (unsigned second = 0x80; second < 0x100; ++second) {
    for (unsigned third = 0x80; third < 0x100; ++third) check("\x8F" + Bytes(second, third));
  }
}

bool HasMark(const std::string& text) { return text.find('?') != std::string::npos; }

/// Compares one direction. What the reference does not convert must be marked when `whole` says that the reference
/// holds all that this library holds.
void CompareDirection(const Reference& reference, std::string (*convert)(const std::string&), bool fromEuc,
                      bool whole) {
  Rows differences;
  ForEveryCode(fromEuc, [&](const std::string& code) {
    const std::string here = convert(code);
    const std::optional<std::string> there = reference.Convert(code);
    const bool isLeftAlone = !fromEuc && here == code;  // it is EUC-JP already
    if (!there) {
      ASSERT_TRUE(!whole || HasMark(here) || isLeftAlone) << Hex(code);
    } else if (here != *there) {
      differences.insert(Row(reference, Hex(code), here, *there));
    }
  });
  ExpectDocumented(reference.Name(), differences);
}

TEST(Conversions, EveryShiftJisCodeAsTheVendorsTablesSay) {
  CompareDirection(Reference("CP932", "EUC-JP-MS"), ToEuc, false, true);
}

TEST(Conversions, EveryEucCodeAsTheVendorsTablesSay) {
  CompareDirection(Reference("EUC-JP-MS", "CP932"), ToSjis, true, true);
}

TEST(Conversions, EveryShiftJisCodeAsTheStandardsTablesSay) {
  CompareDirection(Reference("SHIFT_JIS", "EUC-JP"), ToEuc, false, false);
}

TEST(Conversions, EveryEucCodeAsTheStandardsTablesSay) {
  CompareDirection(Reference("EUC-JP", "SHIFT_JIS"), ToSjis, true, false);
}

std::string Utf8(unsigned unicode) {
  const auto tail = [](unsigned bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
  if (unicode < 0x80) return {static_cast<char>(unicode)};
  if (unicode < 0x800) return {static_cast<char>(0xC0 | unicode >> 6), tail(unicode)};
  return {static_cast<char>(0xE0 | unicode >> 12), tail(unicode >> 6), tail(unicode)};
}

/// Characters that Shift_JIS lacks cannot be shown and are marked; all others are compared.
void CompareUnicode(const Reference& reference) {
  const Reference shown("EUC-JP-MS", "CP932");
  Rows differences;
  for (unsigned unicode = 0; unicode < 0x10000; ++unicode) {
    if (unicode >= 0xD800 && unicode < 0xE000) continue;
    const std::optional<std::string> here = suite::Utf8ToEuc(Utf8(unicode));
    const std::optional<std::string> there = reference.Convert(Utf8(unicode));
    ASSERT_TRUE(here.has_value()) << unicode;
    if (!there || here == there || (here == "?" && !shown.Convert(*there))) continue;
    differences.insert(Row(reference, "U+" + Hex(Bytes(unicode >> 8, unicode)), *here, *there));
  }
  ExpectDocumented(reference.Name(), differences);
}

TEST(Conversions, EveryUnicodeCharacterAsTheVendorsTablesSay) { CompareUnicode(Reference("UTF-8", "EUC-JP-MS")); }

TEST(Conversions, EveryUnicodeCharacterAsTheStandardsTablesSay) { CompareUnicode(Reference("UTF-8", "EUC-JP")); }

// ---------------------------------------------------------------------------------------------------------------------
// there and back

TEST(Conversions, ThreeByteCodesThatAreNoneAreMarked) {
  for (unsigned second = 0; second < 0x100; ++second) {
    for (unsigned third = 0; third < 0x100; ++third) {
      const bool isCode = second >= 0xA1 && second <= 0xFE && third >= 0xA1 && third <= 0xFE;
      if (isCode) continue;
      ASSERT_EQ(ToSjis("\x8F" + Bytes(second, third)), "?" + ToSjis(Bytes(second, third)));
    }
  }
}

TEST(Conversions, EveryTwoByteCharacterComesBack) {
  int count = 0;
  for (unsigned first = 0xA1; first < 0xFF; ++first) {
    for (unsigned second = 0xA1; second < 0xFF; ++second) {
      const std::string sjis = ToSjis(Bytes(first, second));
      if (sjis == "?") continue;
      ASSERT_EQ(ToEuc(sjis), Bytes(first, second));
      ++count;
    }
  }
  EXPECT_EQ(count, 6879 + 83 + 940);  // JIS X 0208, row 13, user-defined
}

TEST(Conversions, EveryIbmExtensionComesBackAsTheSameCharacter) {
  const Reference toUtf8("CP932", "UTF-8");
  for (const unsigned first : {0xEDU, 0xEEU, 0xFAU, 0xFBU, 0xFCU}) {
    for (unsigned second = 0x40; second < 0xFD; ++second) {
      const std::string sjis = Bytes(first, second);
      if (!toUtf8.Convert(sjis)) continue;
      ASSERT_EQ(toUtf8.Convert(ToSjis(ToEuc(sjis))), toUtf8.Convert(sjis));
    }
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// Unicode

/// The code point of one character in UTF-8, below 0x10000.
unsigned CodePoint(const std::string& utf8) {
  const auto bits = [&utf8](std::size_t at) { return static_cast<unsigned char>(utf8[at]) & 0x3FU; };
  if (utf8.size() == 1) return static_cast<unsigned char>(utf8[0]);
  if (utf8.size() == 2) return (static_cast<unsigned char>(utf8[0]) & 0x1FU) << 6 | bits(1);
  return (static_cast<unsigned char>(utf8[0]) & 0x0FU) << 12 | bits(1) << 6 | bits(2);
}

std::string Unicode(const std::string& utf8) { return "U+" + Hex(Bytes(CodePoint(utf8) >> 8, CodePoint(utf8))); }

TEST(Conversions, BothUnicodeFormsOfACharacterAreTaken) {
  const Reference vendor("CP932", "UTF-8");
  const Reference standard("SHIFT_JIS", "UTF-8");
  Rows differences;
  ForEveryCode(false, [&](const std::string& code) {
    const bool isKatakanaAndMore =
        code.size() == 2 && static_cast<unsigned char>(code[0]) >= 0xA0 && static_cast<unsigned char>(code[0]) <= 0xDF;
    const std::optional<std::string> ours = vendor.Convert(code);
    const std::optional<std::string> theirs = standard.Convert(code);
    if (isKatakanaAndMore || !ours || !theirs || ours == theirs) return;
    differences.insert("| Shift_JIS | " + Hex(code) + " | " + Unicode(*ours) + " | " + Unicode(*theirs) + " |");
    if (code.size() == 2) {
      EXPECT_EQ(suite::Utf8ToEuc(*ours), ToEuc(code));
      EXPECT_EQ(suite::Utf8ToEuc(*theirs), ToEuc(code));
    }
  });
  ExpectDocumented("Shift_JIS", differences);
}

// ---------------------------------------------------------------------------------------------------------------------
// texts of several characters: the reference converts each, what it does not know is marked

/// Conversions by the C library, character by character, with the documented row 13.
class CharacterTables : public testing::Test {
 protected:
  /// A text in the other encoding, walked as this library's documentation says: a byte that starts no character, and a
  /// character without a counterpart, become "?".
  [[nodiscard]] std::string SjisOf(const std::string& euc) { return Walk(euc, toSjis_, EucLength); }
  [[nodiscard]] std::string EucOf(const std::string& sjis) { return Walk(sjis, toEuc_, SjisLength); }

  void CheckShiftJisCuts(const std::string& sjis) {
    std::size_t start = 0;
    std::string before;
    for (std::size_t size = 0; size <= sjis.size(); ++size) {
      const std::size_t length = std::max<std::size_t>(SjisLength(sjis, start), 1);
      if (size > start + length) {
        before += EucOf(sjis.substr(start, length));
        start += length;
      }
      const std::string cut = sjis.substr(0, size);
      ASSERT_EQ(ToEuc(cut), before + EucOf(cut.substr(start))) << Hex(cut);
    }
  }

  static unsigned At(const std::string& text, std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
  }
  static bool IsHigh(unsigned byte) { return byte >= 0xA1 && byte <= 0xFE; }

  /// Bytes of the character at `at`; 0 when none starts there. A metacharacter is walked as one.
  static std::size_t EucLength(const std::string& euc, std::size_t at) {
    const unsigned lead = At(euc, at);
    const unsigned second = At(euc, at + 1);
    if (lead < 0x80) return 1;
    if (lead == 0x8E) return second >= 0xA1 && second <= 0xDF ? 2 : 0;
    if (lead == 0x8F) return IsHigh(second) && IsHigh(At(euc, at + 2)) ? 3 : 0;
    return (IsHigh(lead) || lead == 0x8D) && IsHigh(second) ? 2 : 0;
  }
  static std::size_t SjisLength(const std::string& sjis, std::size_t at) {
    const unsigned lead = At(sjis, at);
    const unsigned trail = At(sjis, at + 1);
    if (lead < 0x80 || (lead >= 0xA1 && lead <= 0xDF)) return 1;
    const bool isPair = lead >= 0x81 && lead <= 0xFC && lead != 0xA0 && trail >= 0x40 && trail <= 0xFC && trail != 0x7F;
    return isPair ? 2 : 0;
  }

 private:
  using Known = std::map<std::string, std::string>;

  struct Table {
    explicit Table(const char* from, const char* to) : reference(from, to) {
      const Rows rows = DocumentedRows(reference.Name());
      for (const std::string& row : rows) overrides.insert(ParsedRow(row));
    }
    static std::pair<const std::string, std::string> ParsedRow(const std::string& row) {
      const std::size_t code = row.find(" | ") + 3;
      const std::size_t here = row.find(" | ", code) + 3;
      return {FromHex(row.substr(code, here - 3 - code)), FromHex(row.substr(here, row.find(" | ", here) - here))};
    }
    static std::string FromHex(const std::string& hex) {
      std::string bytes;
      for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
      }
      return bytes;
    }
    Reference reference;
    Known overrides;
    Known known;
  };

  static std::string Character(const std::string& code, Table& table) {
    if (const auto own = table.overrides.find(code); own != table.overrides.end()) return own->second;
    const auto [known, isNew] = table.known.try_emplace(code);
    if (isNew) known->second = table.reference.Convert(code).value_or(code[0] == '\x8D' ? "??" : "?");
    return known->second;
  }

  static std::string Walk(const std::string& text, Table& table,
                          std::size_t (*lengthOf)(const std::string&, std::size_t)) {
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t length = lengthOf(text, at);
      out += length == 0 ? "?" : Character(text.substr(at, length), table);
      at += std::max<std::size_t>(length, 1);
    }
    return out;
  }

  Table toSjis_{"EUC-JP-MS", "CP932"};
  Table toEuc_{"CP932", "EUC-JP-MS"};
};

/// The stored text with its escapes written out, one byte after the other.
std::string Escaped(const std::string& stored) {
  std::string out;
  for (std::size_t at = 0; at < stored.size();) {
    const auto byte = [&stored](std::size_t place) {
      return place < stored.size() ? static_cast<unsigned char>(stored[place]) : 0U;
    };
    const bool isThreeByte = byte(at) == 0x8F && byte(at + 1) >= 0xA1 && byte(at + 1) <= 0xFE && byte(at + 2) >= 0xA1 &&
                             byte(at + 2) <= 0xFE;
    const std::size_t length = byte(at) < 0x80 ? 1 : isThreeByte ? 3 : 2;
    if (at + length > stored.size()) break;
    if (byte(at) == 0x8D) {
      const unsigned code = byte(at + 1);
      out += std::string("<mc>") + (code == 0xD9 ? ',' : code == 0xDA ? ';' : static_cast<char>(code - 0x80));
    } else if (byte(at) == 0x0D || byte(at) == 0x0A) {
      out += "<cr>";
    } else {
      out += stored.substr(at, length);
    }
    at += length;
  }
  return out;
}

TEST_F(CharacterTables, EveryStoredPairOnTheScreen) {
  for (unsigned first = 0; first < 0x100; ++first) {
    const std::string one(1, static_cast<char>(first));
    ASSERT_EQ(stored_bytes::ToScreen(one, kNoLimit), SjisOf(Escaped(one))) << first;
    for (unsigned second = 0; second < 0x100; ++second) {
      const std::string stored = Bytes(first, second) + "a";
      ASSERT_EQ(stored_bytes::ToScreen(stored, kNoLimit), SjisOf(Escaped(stored))) << Hex(stored);
    }
  }
}

TEST_F(CharacterTables, EveryScreenPairStored) {
  for (unsigned first = 0; first < 0x100; ++first) {
    for (unsigned second = 0; second < 0x100; ++second) {
      const std::string screen = "<cr>" + Bytes(first, second) + "<mc>0";
      const std::string euc = EucOf(screen.substr(4, 2));
      // A text that is well-formed EUC-JP but no Shift_JIS is left alone.
      const bool isLeftAlone =
          HasMark(euc) && first != '?' && second != '?' && EucLength(screen, 4) == 2 && first != 0x8D;
      const std::string kept = isLeftAlone ? screen.substr(4, 2) : euc;
      // The first half of a pair takes the escape's first byte for its other half only where it may be one.
      const std::string expected = "\r" + kept + "\x8D\xB0";
      const bool meets = SjisLength(screen, 5) == 2 && SjisLength(screen, 4) == 1;
      if (meets) continue;
      ASSERT_EQ(stored_bytes::ToStored(screen, kNoLimit), expected) << Hex(screen);
    }
  }
}

/// Texts that hold every character of both encodings, one for each row.
std::vector<std::string> EucRows() {
  std::vector<std::string> rows;
  for (unsigned row = 0xA1; row < 0xFF; ++row) {
    std::string text = "a";
    for (unsigned cell = 0xA1; cell < 0xFF; ++cell) text += Bytes(row, cell);
    rows.push_back(text);
  }
  std::string katakana;
  for (unsigned code = 0xA1; code < 0xE0; ++code) katakana += Bytes(0x8E, code);
  rows.push_back(katakana);
  for (const unsigned row : {0xA2U, 0xB0U, 0xF3U, 0xF4U, 0xF5U, 0xFEU}) {
    std::string text;
    for (unsigned cell = 0xA1; cell < 0xFF; ++cell) text += "\x8F" + Bytes(row, cell);
    rows.push_back(text);
  }
  return rows;
}

TEST_F(CharacterTables, EveryTextCutAtEveryByte) {
  for (const std::string& euc : EucRows()) {
    const std::string sjis = SjisOf(euc);
    std::size_t start = 0;  // of the last whole character or of the one that is cut
    std::string before;     // what stands in front of it, converted
    for (std::size_t size = 0; size <= euc.size(); ++size) {
      const std::size_t length = std::max<std::size_t>(EucLength(euc, start), 1);
      if (size > start + length) {
        before += SjisOf(euc.substr(start, length));
        start += length;
      }
      const std::string cut = euc.substr(0, size);
      const std::string end = cut.substr(start);
      ASSERT_EQ(ToSjis(cut), before + SjisOf(end)) << Hex(cut);
      ASSERT_EQ(stored_bytes::ToScreen(cut, kNoLimit), before + SjisOf(Escaped(end))) << Hex(cut);
    }
    if (!HasMark(sjis)) CheckShiftJisCuts(sjis);
  }
}

}  // namespace
