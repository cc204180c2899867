#include "dlglib/filedialog/listing/type_ahead.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <string_view>

namespace {

using namespace filedialog;

class FindByNameTest : public testing::Test {
 protected:
  void SetNames(std::initializer_list<std::string_view> names) {
    table_.Clear();
    for (const std::string_view name : names) table_.Add(EntryKind::File, name, name, false);
  }

  int Find(std::string_view text, int start = 0, bool partial = true, bool wrap = false) const {
    return FindByName(table_.rows(), {.text = text, .start = start, .partial = partial, .wrap = wrap});
  }

  EntryTable table_;
};

TEST_F(FindByNameTest, FindsTheFirstNameThatBeginsWithTheText) {
  SetNames({"a.mdl", "bc.mdl", "bcd.mdl", "b"});
  EXPECT_EQ(Find("b"), 1);
  EXPECT_EQ(Find("bcd"), 2);
  EXPECT_EQ(Find("c"), -1);
  EXPECT_EQ(Find("bcd.mdl2"), -1);
}

TEST_F(FindByNameTest, LettersMatchInEitherCase) {
  SetNames({"ABC", "xyz", "{a", "[A"});
  EXPECT_EQ(Find("aB"), 0);
  EXPECT_EQ(Find("XY"), 1);
  EXPECT_EQ(Find("{A"), 2);
  EXPECT_EQ(Find("[a"), 3);
}

TEST_F(FindByNameTest, TheWholeNameCanBeAskedFor) {
  SetNames({"ab", "a"});
  EXPECT_EQ(Find("a", 0, false), 1);
  EXPECT_EQ(Find("A", 0, false), 1);
  EXPECT_EQ(Find("abc", 0, false), -1);
}

TEST_F(FindByNameTest, StartsWhereItIsToldAndGoesAroundOnRequest) {
  SetNames({"a1", "a2", "b"});
  EXPECT_EQ(Find("a", 1), 1);
  EXPECT_EQ(Find("a", 2), -1);
  EXPECT_EQ(Find("a", 2, true, true), 0);
  EXPECT_EQ(Find("b", 0, true, true), 2);
  EXPECT_EQ(Find("x", 1, true, true), -1);
}

TEST_F(FindByNameTest, AnyStartIsTaken) {
  SetNames({"a", "b"});
  EXPECT_EQ(Find("a", -1), 0);
  EXPECT_EQ(Find("a", std::numeric_limits<int>::min()), 0);
  EXPECT_EQ(Find("a", 2), -1);
  EXPECT_EQ(Find("a", std::numeric_limits<int>::max(), true, true), 0);
}

TEST_F(FindByNameTest, CharactersMatchWhole) {
  SetNames({"\x83\x41", "\x83\x61", "表", "ｱ"});
  EXPECT_EQ(Find("\x83\x61"), 1);
  EXPECT_EQ(Find("表"), 2);
  EXPECT_EQ(Find("ｱ"), 3);
}

TEST_F(FindByNameTest, NothingFindsNothing) {
  SetNames({});
  EXPECT_EQ(Find("a"), -1);
  SetNames({"", "a"});
  EXPECT_EQ(Find(""), -1);
  EXPECT_EQ(Find("a"), 1);
}

}  // namespace
