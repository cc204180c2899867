// Bits, character classes, blanks, names, keywords, the place of the message zone.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/base/bounded_text.h"
#include "dlglib/base/keyword_class.h"
#include "dlglib/base/trailing_blanks.h"
#include "dlglib/utility/rules/bit_array.h"
#include "dlglib/utility/rules/char_class.h"
#include "dlglib/utility/rules/file_name_check.h"
#include "dlglib/utility/rules/message_text.h"
#include "dlglib/utility/rules/message_zone.h"
#include "platform/suite/crvnbc.h"
#include "tests/support/encodings.h"

namespace {

using file_name_check::IsFileName;
using file_name_check::IsModelName;
using file_name_check::Wildcards;

// ---- bits

constexpr int kQuery = 2;
using Words = std::array<std::int16_t, 4>;

TEST(BitSet, ABitBelowOneChangesNothing) {
  Words words = {0x1234, 0x1234, 0x1234, 0x1234};
  const Words before = words;
  for (const int bit : {0, -1, -1000, std::numeric_limits<int>::min()}) {
    for (const int operation : {0, 1, kQuery}) EXPECT_EQ(bit_array::BitSet(operation, bit, words.data()), -1);
  }
  EXPECT_EQ(words, before);
}

TEST(BitSet, NoWordsAnswerMinusOne) { EXPECT_EQ(bit_array::BitSet(kQuery, 1, nullptr), -1); }

TEST(BitSet, EveryBitIsSetAskedAndClearedAlone) {
  for (int bit = 1; bit <= 64; ++bit) {
    Words words = {};
    EXPECT_EQ(bit_array::BitSet(kQuery, bit, words.data()), 0);
    EXPECT_EQ(bit_array::BitSet(1, bit, words.data()), -1);
    EXPECT_EQ(bit_array::BitSet(1, bit, words.data()), -1);
    for (int other = 1; other <= 64; ++other) {
      EXPECT_EQ(bit_array::BitSet(kQuery, other, words.data()), other == bit ? 1 : 0);
      EXPECT_EQ(bit_array::BitSet(-7, other, words.data()), other == bit ? 1 : 0);
    }
    EXPECT_EQ(bit_array::BitSet(0, bit, words.data()), -1);
    EXPECT_EQ(bit_array::BitSet(0, bit, words.data()), -1);
    EXPECT_EQ(words, Words{});
  }
}

TEST(BitSet, NoOtherBitOfAPatternChanges) {
  constexpr Words kPattern = {0x5A0F, -1, 0, -21846};
  for (int bit = 1; bit <= 64; ++bit) {
    const auto index = static_cast<std::size_t>((bit - 1) / 16);
    const int mask = 1 << (15 - (bit - 1) % 16);
    const int before = static_cast<std::uint16_t>(kPattern[index]);
    for (const auto& [operation, after] : {std::pair{0, before & ~mask}, {1, before | mask}, {kQuery, before}}) {
      Words words = kPattern;
      const int expected = operation != kQuery ? -1 : (before & mask) != 0 ? 1 : 0;
      EXPECT_EQ(bit_array::BitSet(operation, bit, words.data()), expected) << bit;
      EXPECT_EQ(static_cast<std::uint16_t>(words[index]), after) << bit << ' ' << operation;
      words[index] = kPattern[index];
      EXPECT_EQ(words, kPattern) << bit << ' ' << operation;
    }
  }
}

TEST(BitSet, EveryBitOfALongArray) {
  std::vector<std::int16_t> words(4096);
  const int last = static_cast<int>(words.size()) * 16;
  for (int bit = 1; bit <= last; ++bit) {
    ASSERT_EQ(bit_array::BitSet(1, bit, words.data()), -1);
    ASSERT_EQ(bit_array::BitSet(kQuery, bit, words.data()), 1);
    ASSERT_EQ(words[static_cast<std::size_t>(bit - 1) / 16] & 1, bit % 16 == 0 ? 1 : 0) << bit;
    ASSERT_EQ(bit_array::BitSet(kQuery, std::min(bit + 1, last), words.data()), bit < last ? 0 : 1);
  }
  EXPECT_EQ(words, std::vector<std::int16_t>(4096, -1));
}

TEST(BitSet, TheFirstBitOfAWordIsItsMostSignificant) {
  Words words = {};
  bit_array::BitSet(1, 1, words.data());
  bit_array::BitSet(1, 16, words.data());
  bit_array::BitSet(1, 17, words.data());
  EXPECT_EQ(static_cast<std::uint16_t>(words[0]), 0x8001U);
  EXPECT_EQ(static_cast<std::uint16_t>(words[1]), 0x8000U);
}

// ---- characters

TEST(ClassOf, EveryCodeHasItsClass) {
  for (unsigned int code = 0; code <= 0x10000; ++code) {
    unsigned int expected = char_class::kDoubleByte;
    if (code < 0x80) expected = char_class::kOtherSingleByte;
    if (code >= 0x41 && code <= 0x5A) expected = char_class::kCapital;
    if (code >= 0x61 && code <= 0x7A) expected = char_class::kSmall;
    if (code >= 0x30 && code <= 0x39) expected = char_class::kDigit;
    if (code >= 0xA0 && code <= 0xDF) expected = char_class::kHalfWidthKatakana;
    EXPECT_EQ(char_class::ClassOf(code), expected) << code;
  }
  EXPECT_EQ(char_class::ClassOf(0xFFFFFFFF), char_class::kDoubleByte);
}

// ---- blanks

TEST(TrailingBlanks, AreTurnedIntoTerminators) {
  std::string text = "a b  ";
  trailing_blanks::Trim(text.data());
  EXPECT_EQ(text, std::string("a b\0\0", 5));
}

TEST(TrailingBlanks, ATextOfBlanksBecomesEmpty) {
  std::string text = "   ";
  trailing_blanks::Trim(text.data());
  EXPECT_EQ(text[0], '\0');
  trailing_blanks::Trim(nullptr);
}

TEST(TrailingBlanks, TheFirstByteMayCountInAnyCase) {
  EXPECT_EQ(trailing_blanks::TrimmedLengthAfterFirst(""), 0U);
  EXPECT_EQ(trailing_blanks::TrimmedLengthAfterFirst("   "), 1U);
  EXPECT_EQ(trailing_blanks::TrimmedLengthAfterFirst("a  "), 1U);
  EXPECT_EQ(trailing_blanks::TrimmedLengthAfterFirst(" a "), 2U);
}

TEST(TrailingBlanks, EveryPairOfBytes) {
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string text = {static_cast<char>(first), static_cast<char>(second)};
      const std::size_t expected = second != ' ' ? 2 : first != ' ' ? 1 : 0;
      ASSERT_EQ(trailing_blanks::TrimmedLength(text), expected) << first << ' ' << second;
      ASSERT_EQ(trailing_blanks::TrimmedLengthAfterFirst(text), second != ' ' ? 2U : 1U) << first << ' ' << second;
      std::string trimmed = text;
      trailing_blanks::Trim(trimmed.data());
      ASSERT_STREQ(trimmed.c_str(), text.substr(0, expected).c_str()) << first << ' ' << second;
    }
  }
}

TEST(TrailingBlanks, TextsOfAnyLength) {
  for (const std::size_t length : {0U, 1U, 511U, 512U, 513U, 100000U}) {
    std::string text = "x" + std::string(length, ' ');
    trailing_blanks::Trim(text.data());
    EXPECT_EQ(text, "x" + std::string(length, '\0'));
    EXPECT_EQ(trailing_blanks::TrimmedLength(std::string(length, ' ')), 0U);
    EXPECT_EQ(trailing_blanks::TrimmedLengthAfterFirst(std::string(length, ' ')), std::min<std::size_t>(length, 1));
  }
}

TEST(TrailingBlanks, OnlyBlanksAreRemoved) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string text = "x" + std::string(1, static_cast<char>(byte));
    EXPECT_EQ(trailing_blanks::TrimmedLength(text), byte == ' ' ? 1U : 2U) << byte;
  }
}

// ---- names

TEST(IsFileName, AnEmptyNameIsAcceptable) {
  EXPECT_TRUE(IsFileName("", Wildcards::Forbidden));
  EXPECT_TRUE(IsModelName(""));
}

TEST(IsFileName, EverySingleByte) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string name(1, static_cast<char>(byte));
    const bool isForbidden = std::string("'|\"<>").find(name) != std::string::npos;
    const bool isWildcard = name == "*" || name == "?";
    EXPECT_EQ(IsFileName(name, Wildcards::Allowed), !isForbidden) << byte;
    EXPECT_EQ(IsFileName(name, Wildcards::Forbidden), !isForbidden && !isWildcard) << byte;
  }
}

TEST(IsFileName, EveryPairOfBytes) {
  const auto isLead = [](int byte) { return (byte >= 0x80 && byte <= 0x9F) || byte >= 0xE0; };
  const auto isForbidden = [](int byte) {
    return byte < 0x80 && std::string("'|\"<>*?").find(static_cast<char>(byte)) != std::string::npos;
  };
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string name = {static_cast<char>(first), static_cast<char>(second)};
      const bool expected = isLead(first) || (!isForbidden(first) && !isForbidden(second));
      EXPECT_EQ(IsFileName(name, Wildcards::Forbidden), expected) << first << ' ' << second;
    }
  }
}

TEST(IsFileName, HalfWidthKatakanaIsAcceptable) { EXPECT_TRUE(IsFileName("ｱｲｳ.txt", Wildcards::Forbidden)); }

TEST(IsFileName, LongNamesAreWalkedWhole) {
  EXPECT_TRUE(IsFileName(std::string(100000, 'a'), Wildcards::Forbidden));
  EXPECT_FALSE(IsFileName(std::string(100000, 'a') + "*", Wildcards::Forbidden));
  EXPECT_TRUE(IsFileName(std::string(100000, 'a') + "*", Wildcards::Allowed));
}

TEST(IsModelName, NineBytesAreForbiddenWhereverTheyStand) {
  for (int byte = 1; byte < 256; ++byte) {
    const bool isForbidden = std::string("*?'\"\\/|<>").find(static_cast<char>(byte)) != std::string::npos;
    EXPECT_EQ(IsModelName("a" + std::string(1, static_cast<char>(byte))), !isForbidden) << byte;
  }
  EXPECT_FALSE(IsModelName("表"));        // ends in the byte of a backslash
  EXPECT_FALSE(IsModelName("\x83\x7C"));  // ends in the byte of a vertical bar
  EXPECT_TRUE(IsModelName("漢字"));
}

TEST(IsModelName, EveryPairOfBytesIsSearchedByteByByte) {
  const auto isForbidden = [](int byte) {
    return byte < 0x80 && std::string("*?'\"\\/|<>").find(static_cast<char>(byte)) != std::string::npos;
  };
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string name = {static_cast<char>(first), static_cast<char>(second)};
      ASSERT_EQ(IsModelName(name), !isForbidden(first) && !isForbidden(second)) << first << ' ' << second;
    }
  }
}

TEST(IsModelName, NamesOfAnyLengthAreSearchedWhole) {
  for (const std::size_t length : {511U, 512U, 513U, 100000U}) {
    EXPECT_TRUE(IsModelName(std::string(length, 'a'))) << length;
    EXPECT_FALSE(IsModelName(std::string(length - 1, 'a') + "|")) << length;
  }
}

TEST(FileMessages, AreWrittenAsUsersKnowThem) {
  EXPECT_EQ(file_name_check::InputMissingText(SjisView("D:\\a.txt")).bytes(),
            "File : D:\\a.txt\n\n入力ファイルが見つかりません");
  EXPECT_EQ(file_name_check::OverwriteText(SjisView("D:\\a.txt")).bytes(),
            "File : D:\\a.txt\n\n出力ファイルが既に存在します\n上書きしますか？");
  EXPECT_EQ(file_name_check::FolderMissingText(SjisView("D:")).bytes(), "Folder : D:\n\nフォルダが見つかりません");
}

// ---- keywords

using keyword_class::TitleDisplay;

TEST(KeywordClass, ComparesTheWholeKeyword) {
  EXPECT_EQ(keyword_class::ClassOf("#MODEL#", TitleDisplay::On), 1);
  EXPECT_EQ(keyword_class::ClassOf("#MODEL#", TitleDisplay::Off), 0);
  EXPECT_EQ(keyword_class::ClassOf("#SUBMODEL#", TitleDisplay::On), 1);
  EXPECT_EQ(keyword_class::ClassOf("#SUBMODEL#", TitleDisplay::Off), 0);
  EXPECT_EQ(keyword_class::ClassOf("#PARTS:BIN#", TitleDisplay::Off), 2);
  EXPECT_EQ(keyword_class::ClassOf("#PSET:BIN#", TitleDisplay::Off), 3);
  EXPECT_EQ(keyword_class::ClassOf("#MACRO#", TitleDisplay::Off), 4);
  EXPECT_EQ(keyword_class::ClassOf("#MASK:SAVE#", TitleDisplay::Off), 5);
  EXPECT_EQ(keyword_class::ClassOf("#TEXT#", TitleDisplay::Off), 6);
  EXPECT_EQ(keyword_class::ClassOf("#CONSTANT#", TitleDisplay::Off), 7);
  EXPECT_EQ(keyword_class::ClassOf("#ATRTABLE#", TitleDisplay::Off), 8);
  for (const char* other : {"", "#", "#MODEL", "MODEL#", "#model#", "#MODEL# ", "#RASTER#", "#PARTS#"}) {
    EXPECT_EQ(keyword_class::ClassOf(other, TitleDisplay::On), 0) << other;
  }
}

TEST(KeywordClass, WithoutASettingModelsHaveTheirClass) {
  EXPECT_EQ(keyword_class::ClassOf("#MODEL#"), 1);
  EXPECT_EQ(keyword_class::ClassOf("#SUBMODEL#"), 1);
  EXPECT_EQ(keyword_class::ClassOf("#ATRTABLE#"), 8);
  for (const char* other : {"#RASTER#", "#SXF:SFC#", "#SXF:P21#", "#model#", "MODEL", " #MODEL#"}) {
    EXPECT_EQ(keyword_class::ClassOf(other), 0) << other;
  }
}

TEST(KeywordClass, AKeywordIsTakenFromTheFirstSixteenBytes) {
  EXPECT_EQ(keyword_class::Extract("xx#MODEL#yy"), "#MODEL#");
  EXPECT_EQ(keyword_class::Extract("#MODEL#"), "#MODEL#");
  EXPECT_EQ(keyword_class::Extract("#MODEL"), "#MODEL");
  EXPECT_EQ(keyword_class::Extract("MODEL"), "");
  EXPECT_EQ(keyword_class::Extract(""), "");
  EXPECT_EQ(keyword_class::Extract("##"), "##");
  EXPECT_EQ(keyword_class::Extract("##A#"), "##");
  EXPECT_EQ(keyword_class::Extract("#"), "#");
  EXPECT_EQ(keyword_class::Extract("0123456789012345#A#"), "");
  EXPECT_EQ(keyword_class::Extract("0123456789#ABCDEFGHIJ#"), "#ABCDE");
  EXPECT_EQ(keyword_class::Extract("0123456789#ABCD#"), "#ABCD#");
}

TEST(KeywordClass, TheFloppyRootIsTheDriveOfTheFolder) {
  EXPECT_EQ(keyword_class::FloppyRoot(EucView("B:/work")).bytes(), "B:/");
  EXPECT_EQ(keyword_class::FloppyRoot(EucView("xB:/work:")).bytes(), "B:/");
  EXPECT_EQ(keyword_class::FloppyRoot(EucView("")).bytes(), "A:/");
  EXPECT_EQ(keyword_class::FloppyRoot(EucView("/work")).bytes(), "A:/");
  EXPECT_EQ(keyword_class::FloppyRoot(EucView(":/work")).bytes(), "A:/");
}

// ---- message zone

TEST(MessageZone, LiesAtTheBottomOfTheClientArea) {
  EXPECT_EQ(message_zone::TextOrigin(12, 100).x, 12);
  EXPECT_EQ(message_zone::TextOrigin(12, 100).y, 82);
  EXPECT_EQ(message_zone::TextOrigin(13, 100).y, 81);  // 19.5 counts as 19
  EXPECT_EQ(message_zone::Growth(12), 18);
  EXPECT_EQ(message_zone::Growth(13), 19);
}

// ---- bounded text

TEST(BoundedText, CutsBetweenCharacters) {
  BoundedText<5> text;
  text.AssignScreen("ああああ");
  EXPECT_EQ(text.View(), "ああ");
  text.AssignStored(EucView("\xA4\xA2\xA4\xA2\xA4\xA2"));
  EXPECT_EQ(text.View(), "\xA4\xA2\xA4\xA2");
  text.AssignStored(EucView("\xB0\xE1"));  // the second byte would start a character in Shift_JIS
  EXPECT_EQ(text.View(), "\xB0\xE1");
}

TEST(BoundedText, HoldsExactlyItsLimit) {
  BoundedText<512> text;
  for (const std::size_t length : {0U, 1U, 511U, 512U, 513U, 100000U}) {
    text.AssignScreen(std::string(length, 'x'));
    EXPECT_EQ(text.View(), std::string(std::min<std::size_t>(length, 512), 'x'));
  }
  text.Clear();
  EXPECT_EQ(text.View(), "");
}

TEST(BoundedText, WhatACallerWritesStaysWithinTheRoom) {
  BoundedText<4> text;
  std::fill_n(text.Data(), 5, 'x');
  EXPECT_EQ(text.View(), "xxxx");
}

TEST(BoundedText, ANullPointerIsTheEmptyText) {
  EXPECT_EQ(ViewOf(nullptr), "");
  EXPECT_EQ(ViewOf("a"), "a");
}

// ---- numbered messages

TEST(MessageText, IsFoundAboveZeroAmongMessagesAndBelowAmongErrors) {
  CwMessage::GetMessageTable()->SetMessage(7, test_texts::Euc("表示"));
  CwMessage::GetErrorTable()->SetMessage(7, test_texts::Euc("誤り"));
  EXPECT_EQ(message_text::Find(7).bytes(), "表示");
  EXPECT_EQ(message_text::Find(-7).bytes(), "誤り");
  for (const int unknown : {0, 8, -8, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_EQ(message_text::Find(unknown).bytes(), "");
  }
  CwMessage::GetMessageTable()->Clear();
  CwMessage::GetErrorTable()->Clear();
}

}  // namespace
