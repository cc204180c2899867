// Which bytes a text has that comes back from a window. A small conversion stands in for the system's: "A" and "a" are
// both shown as "a", and a pair that starts with 0x81 as one character.
#include "dlglib/base/shown_text.h"

#include <gtest/gtest.h>

namespace {

std::wstring ToWide(std::string_view bytes) {
  std::wstring wide;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const bool pair = bytes[at] == '\x81' && at + 1 < bytes.size();
    if (pair) ++at;
    const auto single = static_cast<unsigned char>(bytes[at]);
    wide += pair ? L'\x3042' : static_cast<wchar_t>(single == 'A' ? 'a' : single);
  }
  return wide;
}

std::string ToBytes(std::wstring_view wide) {
  std::string bytes;
  for (const wchar_t unit : wide) bytes += unit == L'\x3042' ? std::string("\x81\x40") : std::string(1, char(unit));
  return bytes;
}

std::string BytesOf(std::string_view former, std::wstring_view shown) {
  return shown_text::BytesOf(former, shown, {ToWide, ToBytes});
}

TEST(ShownText, ATextThatCameBackUnchangedKeepsItsBytes) {
  EXPECT_EQ(BytesOf("AxA\x81\x41", L"axa\x3042"), "AxA\x81\x41");
  EXPECT_EQ(BytesOf("", L""), "");
}

TEST(ShownText, WhatStaysAtTheStartAndAtTheEndKeepsItsBytes) {
  const struct {
    const char* former;
    const wchar_t* shown;
    const char* want;
  } cases[] = {
      {"A", L"ax", "Ax"},
      {"A", L"xa", "xA"},
      {"A  ", L"a", "A"},
      {"AAA", L"aa", "AA"},
      {"A\x81\x41"
       "A",
       L"a\x3042xa", "A\x81\x41xA"},
      {"A\x81\x41"
       "A",
       L"aa", "AA"},
      {"A\x81\x41", L"\x3042", "\x81\x41"},
      {"A-A", L"a+a", "A+A"},
      {"A", L"", ""},
      {"", L"a", "a"},
      {"A", L"b", "b"},
      {"A", L"aaa", "Aaa"},
  };
  for (const auto& each : cases) EXPECT_EQ(BytesOf(each.former, each.shown), each.want) << each.former;
}

TEST(ShownText, BytesThatMeanSomethingElseInARowAreConverted) {
  // One by one, the lead byte at the end of the start would swallow what is typed behind it.
  EXPECT_EQ(BytesOf("A\x81", L"a\x81x"), "a\x81x");
}

TEST(ShownText, AnInsertionLeavesTheBytesBesideItAlone) {
  const auto replace = [](std::string_view text, shown_text::Part part) {
    return shown_text::Replace(text, part, "+A", {ToWide, ToBytes});
  };
  EXPECT_EQ(replace("aA\x81\x41"
                    "Aa",
                    {2, 2}),
            "aA+A\x81\x41"
            "Aa");
  EXPECT_EQ(replace("aA\x81\x41"
                    "Aa",
                    {2, 3}),
            "aA+AAa");
  EXPECT_EQ(replace("aA", {0, 1}), "+AA");
  EXPECT_EQ(replace("aA", {2, 2}), "aA+A");
  EXPECT_EQ(replace("", {0, 0}), "+A");
  EXPECT_EQ(replace("A", {9, 9}), "A+A");
}

}  // namespace
