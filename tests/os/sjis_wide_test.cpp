// Shift_JIS and UTF-16, by the platform's own table of code page 932, compared with the suite's tables: a name that the
// suite stores must be the one that the system shows.
#include "platform/os/sjis_wide.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <optional>
#include <string>

#include "platform/suite/crvnbc.h"
#include "platform/suite/unicode_table.h"

namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

std::string Utf8Of(std::wstring_view wide) {
  std::string utf8(wide.size() * 3, '\0');
  const int size = ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(),
                                         static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(size));
  return utf8;
}

/// By the suite's tables.
std::string SuiteSjisOf(std::wstring_view wide) {
  const std::optional<std::string> euc = suite::Utf8ToEuc(Utf8Of(wide));
  return euc ? CwEucEncoder::Euc2Sjis(*euc, kNoLimit) : std::string();
}

std::string Pair(unsigned lead, unsigned trail) { return {static_cast<char>(lead), static_cast<char>(trail)}; }

/// Characters of the JIS standards for which the suite's tables also take the form of other systems.
bool IsOtherForm(wchar_t unit) {
  constexpr std::wstring_view kForms = L"\u301C\u2016\u2212\u2014\u00A2\u00A3\u00AC\u00A6";
  return kForms.find(unit) != std::wstring_view::npos;
}

/// What the platform makes of single bytes that no text holds.
bool IsFiller(wchar_t unit) { return unit == 0x80 || unit == 0xA0 || (unit >= 0xF8F0 && unit <= 0xF8F3); }

TEST(SjisWide, AgreesWithTheSuiteOverAllPairs) {
  int characters = 0;
  for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
    for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
      const std::optional<std::wstring> wide = os::ExactWideOf(Pair(lead, trail));
      if (!wide || wide->size() != 1) continue;
      ++characters;
      EXPECT_EQ(SuiteSjisOf(*wide), os::SjisOf(*wide, os::kUnknown).bytes) << std::hex << lead << trail;
    }
  }
  EXPECT_GT(characters, 9000);
}

TEST(SjisWide, HoldsTheCharactersThatTheSuiteHoldsAndNoOther) {
  for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
    const auto character = static_cast<wchar_t>(unit);
    if (unit >= 0xD800 && unit <= 0xDFFF) continue;
    if (IsOtherForm(character) || IsFiller(character)) continue;
    const std::wstring text(1, character);
    const os::NarrowText sjis = os::SjisOf(text, os::kUnknown);
    EXPECT_EQ(sjis.exact, unit == '?' || SuiteSjisOf(text) != "?") << std::hex << unit;
    if (!sjis.exact) continue;
    EXPECT_EQ(SuiteSjisOf(text), sjis.bytes) << std::hex << unit;
  }
}

TEST(SjisWide, EveryByteKeepsItsWay) {
  for (unsigned value = 1; value <= 0xFF; ++value) {
    const std::string byte(1, static_cast<char>(value));
    if (::IsDBCSLeadByteEx(os::kShiftJis, static_cast<BYTE>(value)) != FALSE) continue;
    EXPECT_EQ(os::SjisOf(os::WideOf(byte), os::kUnknown).bytes, byte) << std::hex << value;
  }
}

TEST(SjisWide, AMissingCharacterIsTheStandInAndNoLookAlike) {
  const std::array<std::wstring, 4> missing = {L"\u00E9", L"\u00A5", L"\uD55C", L"\U0001F600"};
  for (const std::wstring& text : missing) {
    const os::NarrowText sjis = os::SjisOf(text, os::kNoNameCharacter);
    EXPECT_FALSE(sjis.exact);
    EXPECT_EQ(sjis.bytes, std::string(text.size(), '|'));
  }
}

TEST(SjisWide, BytesThatAreNoCharacterFailOnlyWhereThatIsAsked) {
  EXPECT_EQ(os::ExactWideOf("a\x81"), std::nullopt);
  EXPECT_EQ(os::WideOf("a\x81").front(), L'a');
  EXPECT_EQ(os::ExactWideOf(""), std::wstring());
  EXPECT_TRUE(os::SjisOf(L"", os::kUnknown).exact);
}

}  // namespace
