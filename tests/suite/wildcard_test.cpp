#include "platform/suite/wildcard.h"

#include <string>

#include "tests/suite/suite_fixture.h"

namespace {

TEST(Wildcard, Matches) {
  struct Case {
    const char* pattern;
    const char* name;
    bool matches;
  };
  const Case cases[] = {
      {"*", "", true},
      {"*", "a", true},
      {"*.*", "a", true},
      {"*.*", "a.b", true},
      {"", "", true},
      {"", "a", false},
      {"a", "", false},
      {"a", "A", true},
      {"*.MDL", "a.mdl", true},
      {"*.MDL", "a.mdlx", false},
      {"*.M?L", "a.mdl", true},
      {"*.M*", "a.mdl", true},
      {"*.表", "a.表", true},
      {"*.MDL", ".mdl", true},
      {"*.MDL", "a.mdl.mdl", true},
      {"?", "", false},
      {"?", "a", true},
      {"?", "ab", false},
      {"*.MDL", "ｱ.mdl", true},
      {"a*b*c", "axxbxxc", true},
      {"a*b*c", "axxbxx", false},
      {"**a", "a", true},
      {"a**", "a", true},
      {"*?", "", false},
      {"*?", "a", true},
      {"表*", "表ソ", true},
      {"?ソ", "表ソ", true},
      {"*ソ", "表ソ", true},
      {"*\\", "表", false},
      {"ア", "ヂ", false},
      {"[a]", "a", false},
  };
  for (const Case& example : cases) {
    EXPECT_EQ(suite::MatchesSjis(example.pattern, example.name), example.matches)
        << example.pattern << ' ' << example.name;
    EXPECT_EQ(suite::MatchesEuc(Euc(example.pattern), Euc(example.name)), example.matches) << example.pattern;
    EXPECT_EQ(suite::MatchesEither(example.pattern, example.name), example.matches);
    EXPECT_EQ(suite::MatchesEither(Euc(example.pattern), Euc(example.name)), example.matches);
  }
}

/// A second "*" changes nothing but the way in which a name is looked at.
TEST(Wildcard, AnExtensionIsFoundAsAnyOtherEndOfANameWhateverStandsBeforeIt) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string name = std::string({static_cast<char>(first), static_cast<char>(second)}) + ".Mdl";
      ASSERT_EQ(suite::MatchesSjis("*.mDL", name), suite::MatchesSjis("**.mDL", name)) << first << ' ' << second;
    }
  }
  EXPECT_FALSE(suite::MatchesSjis("*.MDL", "a\x81.MDL")) << "the dot is half of a character";
  EXPECT_FALSE(suite::MatchesSjis("*.MDL", "MDL"));
}

TEST(Wildcard, ManyStarsEndSoon) {
  std::string pattern;
  for (int i = 0; i < 50; ++i) pattern += "*a";
  EXPECT_FALSE(suite::MatchesSjis(pattern + "b", std::string(20000, 'a')));
}

short Match(const char* pattern, short patternWord, const char* name, short nameWord, int patternLength,
            int nameLength) {
  short result = -1;
  xrfwildcd(pattern, &patternWord, name, &nameWord, &result, patternLength, nameLength);
  return result;
}

TEST(Xrfwildcd, AnswersZeroForAMatch) {
  EXPECT_EQ(Match("*.MDL", 0, "a.mdl", 0, 5, 5), 0);
  EXPECT_EQ(Match("*.MDL", 5, "a.mdl", 5, 5, 5), 0);
  EXPECT_EQ(Match("*.MDL", 0, "a.txt", 0, 5, 5), 1);
}

TEST(Xrfwildcd, LengthsAndWordsLimitTheTexts) {
  EXPECT_EQ(Match("*.MDLxyz", 0, "a.mdlxyz", 0, 5, 5), 0);
  EXPECT_EQ(Match("*.MDLxyz", 5, "a.mdl", 0, 8, 5), 0);
  EXPECT_EQ(Match("a\0b", 0, "a", 0, 3, 1), 0);
  EXPECT_EQ(Match("a", 0, "a", 0, 100, 100), 0);  // the terminator counts
  EXPECT_EQ(Match("*", 0, "a", 0, -1, 1), 1);
}

TEST(Xrfwildcd, WordsReceiveTheBytesLookedAt) {
  short patternWord = 0;
  short nameWord = 3;
  short result = -1;
  xrfwildcd("*.MDL", &patternWord, "a.mdl", &nameWord, &result, 5, 5);
  EXPECT_EQ(patternWord, 5);
  EXPECT_EQ(nameWord, 3);
  EXPECT_EQ(result, 1);
}

TEST(Xrfwildcd, AWordHoldsNoMoreThanItCan) {
  short patternWord = 0;
  short nameWord = 0;
  short result = -1;
  const std::string longest(0x7FFF, 'a');
  const std::string longer = longest + "a";
  xrfwildcd(longer.c_str(), &patternWord, longest.c_str(), &nameWord, &result, 0x8000, 0x7FFF);
  EXPECT_EQ(patternWord, 0x7FFF);
  EXPECT_EQ(nameWord, 0x7FFF);
  EXPECT_EQ(result, 1);
}

TEST(Xrfwildcd, NullIsEmpty) {
  short result = -1;
  xrfwildcd(nullptr, nullptr, nullptr, nullptr, &result, 5, 5);
  EXPECT_EQ(result, 0);
  xrfwildcd("*", nullptr, "a", nullptr, nullptr, 1, 1);
}

}  // namespace
