#include "dlglib/base/encoded_text.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

#include "dlglib/base/encoder.h"

namespace {

// Between encodings, and from bytes, there is no way that is not spelled out.
static_assert(!std::is_convertible_v<EucText, SjisText> && !std::is_constructible_v<SjisText, EucText>);
static_assert(!std::is_convertible_v<SjisText, EucText> && !std::is_constructible_v<EucText, SjisText>);
static_assert(!std::is_convertible_v<EucView, SjisView> && !std::is_constructible_v<SjisView, EucView>);
static_assert(!std::is_convertible_v<EucText, SjisView> && !std::is_constructible_v<SjisView, EucText>);
static_assert(!std::is_assignable_v<SjisText&, EucText> && !std::is_assignable_v<EucView&, SjisView>);
static_assert(!std::is_convertible_v<std::string, SjisText> && !std::is_convertible_v<const char*, SjisView>);
static_assert(!std::is_convertible_v<SjisText, std::string> && !std::is_convertible_v<SjisView, std::string_view>);
// An owner is a view of itself; an owner of a view's text is a copy, which is spelled out.
static_assert(std::is_convertible_v<SjisText, SjisView> && !std::is_convertible_v<SjisView, SjisText>);

TEST(EncodedText, HoldsTheBytesThatItIsGiven) {
  const std::string bytes("\x95\x5C\0\xFF", 4);
  EXPECT_EQ(SjisText(bytes).bytes(), bytes);
  EXPECT_EQ(SjisView(bytes).bytes(), bytes);
  EXPECT_EQ(SjisText(bytes).size(), 4U);
  EXPECT_TRUE(EucText().empty());
  EXPECT_TRUE(EucView().empty());
  EXPECT_EQ(EucText(EucView("abc")), EucText("abc"));
  EXPECT_NE(EucView("abc"), EucView("abd"));
}

TEST(EncodedText, GivesItsBytesAwayWhenItGoes) {
  SjisText text(std::string(100, 'a'));
  const char* const place = text.bytes().data();
  const std::string bytes = std::move(text).bytes();
  EXPECT_EQ(bytes.data(), place) << "moved, not copied";
}

TEST(EncodedText, TakesAnotherTextIntoItsOwnRoom) {
  EucText text(std::string(100, 'a'));
  const char* const place = text.bytes().data();
  text.Assign(EucView("bc"));
  EXPECT_EQ(text, EucText("bc"));
  EXPECT_EQ(text.bytes().data(), place);
}

TEST(Encoder, LeadsFromOneEncodingToTheOther) {
  const EucText euc("\xC9\xBD");
  EXPECT_EQ(encoder::ToSjis(euc), SjisText("表"));
  EXPECT_EQ(encoder::ToEuc(SjisText("表")), euc);
  EXPECT_EQ(encoder::ToSjis(EucText(euc.bytes() + "a"), 1), SjisText());
  EXPECT_EQ(encoder::ToEuc(SjisText("a表b"), 2), EucText("a"));
}

TEST(Encoder, PutsATextBehindAnother) {
  std::string path = "C:\\図面\\";
  encoder::AppendSjis(EucView("A~\\|"), &path);
  EXPECT_EQ(path, "C:\\図面\\A~\\|") << "ASCII as it is";
  encoder::AppendSjis(EucView("a\xC9\xBD"), &path);
  EXPECT_EQ(path, "C:\\図面\\A~\\|a表");
  encoder::AppendSjis(EucView(), &path);
  EXPECT_EQ(path, "C:\\図面\\A~\\|a表");
}

TEST(Encoder, PathsChangeTheirSeparatorsToo) {
  const EucText internal("C:/\xBF\xDE\xCC\xCC/\xC9\xBD.mdl");
  const SjisText real("C:\\図面\\表.mdl");
  EXPECT_EQ(encoder::ToRealPath(internal), real);
  EXPECT_EQ(encoder::ToInternalPath(real), internal);
  EXPECT_EQ(encoder::ToRealPath(EucText()), SjisText());
  EXPECT_EQ(encoder::ToInternalPath(SjisText()), EucText());
}

TEST(Encoder, PathsAreCutAtACharacter) {
  EXPECT_EQ(encoder::ToRealPath(EucText("a\xC9\xBD"), 2), SjisText("a"));
  EXPECT_EQ(encoder::ToInternalPath(SjisText("a表b"), 2), EucText("a"));
  EXPECT_EQ(encoder::ToInternalPath(SjisText("ｱ"), 1), EucText()) << "two bytes in EUC-JP";
  EXPECT_EQ(encoder::ToRealPath(EucText("abc"), 0), SjisText());
}

}  // namespace
