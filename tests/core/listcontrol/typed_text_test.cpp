#include "dlglib/listcontrol/typed_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using grid::TextRange;

std::size_t BytesOf(wchar_t unit) {
  return unit < 0x80 || grid::IsHalfWidthKatakana(static_cast<unsigned>(unit)) ? 1 : 2;
}

std::optional<TextRange> Excess(const std::wstring& before, const std::wstring& after, std::size_t limit) {
  return grid::Excess(before, after, limit, BytesOf);
}

TEST(TypedTexts, WithinTheLimitStay) {
  EXPECT_EQ(Excess(L"", L"abcd", 4), std::nullopt);
  EXPECT_EQ(Excess(L"", L"\x8868\x8868", 4), std::nullopt);
  EXPECT_EQ(Excess(L"abc", L"", 4), std::nullopt);
}

TEST(TypedTexts, LoseTheEndOfWhatWasPutIn) {
  EXPECT_EQ(Excess(L"", L"abcdef", 4), (TextRange{4, 6}));
  EXPECT_EQ(Excess(L"abcd", L"abcXYd", 5), (TextRange{4, 5})) << "in the middle: what stands behind stays";
  EXPECT_EQ(Excess(L"ab", L"XYab", 2), (TextRange{0, 2}));
  EXPECT_EQ(Excess(L"abc", L"abc\x8868", 4), (TextRange{3, 4})) << "a double-byte character that fits by half";
}

TEST(TypedTexts, ThatWereTooLongMayShrink) {
  EXPECT_EQ(Excess(L"abcdefgh", L"abcdefg", 4), std::nullopt);
  EXPECT_EQ(Excess(L"abcdefgh", L"abcdeXfgh", 4), (TextRange{5, 6}));
}

TEST(TypedTexts, OfRepeatedCharactersLoseAsManyAsAreTooMany) {
  EXPECT_EQ(Excess(L"aa", L"aaaa", 3), (TextRange{3, 4}));
  EXPECT_EQ(Excess(L"aaa", L"aaaa", 3), (TextRange{3, 4}));
}

// Whatever is changed into whatever: what stays fits or holds nothing new.
TEST(TypedTexts, FitAfterAnyChange) {
  std::mt19937 random(3);
  const auto text = [&] {
    std::wstring made;
    for (unsigned left = random() % 8; left > 0; --left) made += L"ab\x8868\xFF71"[random() % 4];
    return made;
  };
  for (int round = 0; round < 20000; ++round) {
    const std::wstring before = text();
    std::wstring after = text();
    const std::size_t limit = random() % 8;
    if (const auto excess = Excess(before, after, limit)) {
      ASSERT_LT(excess->from, excess->to);
      ASSERT_LE(excess->to, after.size());
      after.erase(excess->from, excess->to - excess->from);
    }
    const std::size_t bytes = grid::CountBytes(after, BytesOf);
    ASSERT_TRUE(bytes <= limit || bytes <= grid::CountBytes(before, BytesOf));
  }
}

TEST(Typing, IsRefusedAtTheLimit) {
  EXPECT_TRUE(grid::MayType(L"abc", {3, 3}, L'd', 4, BytesOf));
  EXPECT_FALSE(grid::MayType(L"abc", {3, 3}, L'\x8868', 4, BytesOf));
  EXPECT_FALSE(grid::MayType(L"abcd", {4, 4}, L'e', 4, BytesOf));
  EXPECT_TRUE(grid::MayType(L"abcd", {0, 1}, L'e', 4, BytesOf)) << "over a selection";
  EXPECT_TRUE(grid::MayType(L"abcd", {0, 2}, L'\x8868', 4, BytesOf));
  EXPECT_TRUE(grid::MayType(L"abcdefgh", {0, 1}, L'x', 4, BytesOf)) << "a text that was too long";
  EXPECT_FALSE(grid::MayType(L"abcd", {9, 12}, L'x', 4, BytesOf)) << "a selection outside";
}

TEST(HalfWidthKatakana, IsNeitherLatinNorFullWidth) {
  EXPECT_TRUE(grid::IsHalfWidthKatakana(0xFF61));
  EXPECT_TRUE(grid::IsHalfWidthKatakana(0xFF9F));
  EXPECT_TRUE(grid::IsHalfWidthKatakana(0xF8F0)) << "the byte 0xA0";
  EXPECT_FALSE(grid::IsHalfWidthKatakana(0xF8F1));
  EXPECT_FALSE(grid::IsHalfWidthKatakana(0xFF60));
  EXPECT_FALSE(grid::IsHalfWidthKatakana(0xFFA0));
  EXPECT_FALSE(grid::IsHalfWidthKatakana(0xB0)) << "the degree sign is double-byte";
  EXPECT_FALSE(grid::IsHalfWidthKatakana(0x30A2));
}

TEST(TypedTexts, AreGivenBackWithoutAPart) {
  EXPECT_EQ(grid::Without(L"abcd", {1, 3}), L"ad");
  EXPECT_EQ(grid::Without(L"abcd", {0, 4}), L"");
  EXPECT_EQ(grid::Without(L"abcd", {2, 2}), L"abcd");
  EXPECT_EQ(grid::Without(L"abcd", {3, 9}), L"abc") << "no more than there is";
  EXPECT_EQ(grid::Without(L"abcd", {4, 5}), L"abcd") << "behind the end";
  EXPECT_EQ(grid::Without(L"abcd", {9, 10}), L"abcd");
  EXPECT_EQ(grid::Without(L"abcd", {3, 1}), L"abcd") << "no part";
}

TEST(TypedTexts, TakeTheLowerOfTwoLimits) {
  EXPECT_EQ(grid::BoxLimit(0, 20), 20) << "none was asked for";
  EXPECT_EQ(grid::BoxLimit(5, 20), 5);
  EXPECT_EQ(grid::BoxLimit(20, 20), 20);
  EXPECT_EQ(grid::BoxLimit(21, 20), 20);
  EXPECT_EQ(grid::BoxLimit(0xFFFFFFFFU, 20), 20);
}

TEST(TypedTexts, LetHalfWidthKatakanaInWhereTheColumnDoes) {
  EXPECT_TRUE(grid::Lets({.edit = 1}, L'\xFF71'));
  EXPECT_TRUE(grid::Lets({.edit = -1}, L'\xFF71'));
  EXPECT_FALSE(grid::Lets({.edit = 0}, L'\xFF71'));
  EXPECT_TRUE(grid::Lets({.edit = 0}, L'a'));
  EXPECT_TRUE(grid::Lets({.edit = 0}, L'\x30A2')) << "full width";
  EXPECT_TRUE(grid::Lets(grid::kModesAtFirst, L'\xFF71'));
}

TEST(TypedTexts, LoseTheBlanksAtTheirEndUnlessTheColumnKeepsThem) {
  EXPECT_EQ(grid::KeptWhenLeft({.space = 0}, L" a b  "), L" a b");
  EXPECT_EQ(grid::KeptWhenLeft({.space = 0}, L"   "), L"");
  EXPECT_EQ(grid::KeptWhenLeft({.space = 0}, L""), L"");
  EXPECT_EQ(grid::KeptWhenLeft({.space = 0}, L"a\x3000"), L"a\x3000") << "a full-width blank is a character";
  EXPECT_EQ(grid::KeptWhenLeft({.space = 1}, L" a  "), L" a  ");
  EXPECT_EQ(grid::KeptWhenLeft(grid::kModesAtFirst, L"a "), L"a");
}

}  // namespace
