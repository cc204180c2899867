#include "dlglib/listcontrol/clipboard_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using grid::ClipboardText;
using grid::LackingCharacter;

/// Knows ASCII and one character of two bytes.
class Converter {
 public:
  std::optional<std::string> operator()(std::u16string_view piece) {
    ++calls;
    std::string sjis;
    for (const char16_t unit : piece) {
      if (unit >= 0x80 && unit != u'あ') return std::nullopt;
      sjis += unit < 0x80 ? std::string(1, static_cast<char>(unit)) : "\x82\xA0";
    }
    return sjis;
  }

  int calls = 0;
};

ClipboardText Read(std::u16string_view text, int* calls = nullptr) {
  Converter converter;
  const ClipboardText read = grid::ReadClipboardText(text, std::ref(converter));
  if (calls != nullptr) *calls = converter.calls;
  return read;
}

TEST(ClipboardTexts, AreConvertedInOnePiece) {
  int calls = 0;
  const ClipboardText read = Read(u"a\tあ\r\n", &calls);
  EXPECT_EQ(read.sjis, "a\t\x82\xA0\r\n");
  EXPECT_TRUE(read.lacking.empty());
  EXPECT_EQ(calls, 1);
}

TEST(ClipboardTexts, NoteDownWhatIsLackingAndWhere) {
  const ClipboardText read = Read(u"あ\u20ACb\U0001F600c");
  EXPECT_EQ(read.sjis, "\x82\xA0?b?c");
  EXPECT_EQ(read.lacking, (std::vector<LackingCharacter>{{2, 0x20AC}, {4, 0x1F600}}));
}

TEST(ClipboardTexts, TakeHalfOfASurrogatePairForACharacterThatIsLacking) {
  const std::u16string text = {u'a', 0xD83D, u'b', 0xDE00, 0xD83D};
  const ClipboardText read = Read(text);
  EXPECT_EQ(read.sjis, "a?b??");
  EXPECT_EQ(read.lacking, (std::vector<LackingCharacter>{{1, 0xD83D}, {3, 0xDE00}, {4, 0xD83D}}));
}

TEST(ClipboardTexts, FindOneCharacterInALongTextWithoutTryingEachOne) {
  std::u16string text(100000, u'x');
  text[77777] = 0x20AC;
  int calls = 0;
  const ClipboardText read = Read(text, &calls);
  EXPECT_EQ(read.lacking, (std::vector<LackingCharacter>{{77777, 0x20AC}}));
  EXPECT_EQ(read.sjis.size(), text.size());
  EXPECT_LT(calls, 60);
}

TEST(ClipboardTexts, NeverPartAPairWhereTheyAreHalved) {
  for (std::size_t before = 0; before < 40; ++before) {
    const ClipboardText read = Read(std::u16string(before, u'x') + u"\U0001F600" + std::u16string(20, u'y'));
    EXPECT_EQ(read.lacking, (std::vector<LackingCharacter>{{before, 0x1F600}})) << before;
  }
}

TEST(ClipboardTexts, MayHoldAnyUnitWhereTheyAreHalved) {
  for (const char16_t unit : {char16_t{0xDC00}, char16_t{0xDFFF}, char16_t{0xE000}, char16_t{0xFF21}}) {
    for (std::size_t before = 0; before < 40; ++before) {
      const ClipboardText read = Read(std::u16string(before, u'x') + unit + std::u16string(20, u'y'));
      EXPECT_EQ(read.lacking, (std::vector<LackingCharacter>{{before, unit}})) << before;
    }
  }
}

TEST(ClipboardTexts, EndAtAZeroUnit) {
  EXPECT_EQ(Read(std::u16string_view(u"ab\0c", 4)).sjis, "ab");
  EXPECT_EQ(Read(u"").sjis, "");
}

TEST(ClipboardTexts, TakeNoCharacterForOneThatLooksLikeIt) {
  const ClipboardText read = Read(u"\u00A5100\u301C\u00A0b");
  EXPECT_EQ(read.sjis, "?100??b");
  EXPECT_EQ(read.lacking, (std::vector<LackingCharacter>{{0, 0x00A5}, {4, 0x301C}, {5, 0x00A0}}));
}

}  // namespace
