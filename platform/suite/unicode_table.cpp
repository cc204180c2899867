#include "platform/suite/unicode_table.h"

#include <cstdint>
#include <limits>
#include <vector>

#include "platform/suite/crvnbc.h"
#include "platform/suite/encoding_tables.h"

namespace suite {
namespace {

struct UnicodeRow {
  unsigned row;
  const char16_t* cells;
};

#include "platform/suite/unicode_rows.inc"

struct OtherForm {
  char32_t unicode;
  std::uint16_t sjis;
};

/// Characters that JIS-based systems map to another Unicode character than Windows does.
constexpr OtherForm kOtherForms[] = {{0x301C, 0x8160}, {0x2016, 0x8161}, {0x2212, 0x817C}, {0x2014, 0x815C},
                                     {0x00A2, 0x8191}, {0x00A3, 0x8192}, {0x00AC, 0x81CA}, {0x00A6, 0xFA55}};

constexpr char32_t kFirstHalfWidth = 0xFF61;
constexpr char32_t kLastHalfWidth = 0xFF9F;
constexpr char32_t kFirstUser = 0xE000;
constexpr char32_t kLastUser = 0xE757;
constexpr unsigned kFirstUserRow = 95;
constexpr unsigned kCells = 94;

/// Shift_JIS codes by Unicode character below 0x10000; 0 for none.
std::vector<std::uint16_t> BuildTable() {
  std::vector<std::uint16_t> table(0x10000);
  for (const UnicodeRow& row : kUnicodeRows) {
    for (unsigned cell = 1; cell <= kCells; ++cell) {
      const char16_t unicode = row.cells[cell - 1];
      // A character that stands in several rows has its preferred code in the first one.
      if (unicode != u' ' && table[unicode] == 0) table[unicode] = SjisOfCell(row.row, cell);
    }
  }
  for (const OtherForm& other : kOtherForms) table[other.unicode] = other.sjis;
  return table;
}

std::uint16_t SjisOf(char32_t unicode) {
  static const std::vector<std::uint16_t> table = BuildTable();
  if (unicode >= kFirstHalfWidth && unicode <= kLastHalfWidth) {
    return static_cast<std::uint16_t>(unicode - kFirstHalfWidth + 0xA1);
  }
  if (unicode >= kFirstUser && unicode <= kLastUser) {
    const unsigned at = unicode - kFirstUser;
    return SjisOfCell(kFirstUserRow + at / kCells, at % kCells + 1);
  }
  return unicode < table.size() ? table[unicode] : std::uint16_t{0};
}

void AppendSjis(char32_t unicode, std::string* sjis) {
  if (unicode < 0x80) {
    *sjis += static_cast<char>(unicode);
    return;
  }
  const unsigned code = SjisOf(unicode);
  if (code > 0xFF) *sjis += static_cast<char>(code >> 8);
  *sjis += code == 0 ? '?' : static_cast<char>(code);
}

/// Takes one character off a text; none when it is not well-formed (overlong forms, surrogates and what lies behind
/// U+10FFFF included).
std::optional<char32_t> TakeCharacter(std::string_view* utf8) {
  const auto lead = static_cast<unsigned char>(utf8->front());
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
  if (length == 0 || length > utf8->size()) return std::nullopt;
  char32_t unicode = length == 1 ? lead : lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>((*utf8)[i]);
    if ((byte & 0xC0) != 0x80) return std::nullopt;
    unicode = unicode << 6 | (byte & 0x3Fu);
  }
  const bool isOverlong = (length == 3 && unicode < 0x800) || (length == 4 && unicode < 0x10000);
  if (isOverlong || unicode > 0x10FFFF || (unicode >= 0xD800 && unicode <= 0xDFFF)) return std::nullopt;
  utf8->remove_prefix(length);
  return unicode;
}

}  // namespace

std::optional<std::string> Utf8ToEuc(std::string_view utf8) {
  std::string sjis;
  while (!utf8.empty()) {
    const std::optional<char32_t> unicode = TakeCharacter(&utf8);
    if (!unicode) return std::nullopt;
    AppendSjis(*unicode, &sjis);
  }
  return CwEucEncoder::Sjis2Euc(sjis, std::numeric_limits<std::size_t>::max());
}

}  // namespace suite
