#include "dlglib/filsel/result_buffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace filsel {
namespace {

TEST(ResultBufferTest, HoldsATextAndTakesAnother) {
  ResultBuffer buffer("C:\\a.mdl");
  EXPECT_EQ(buffer.Text(), "C:\\a.mdl");
  constexpr std::string_view other = "D:\\b.mdl";
  *std::copy(other.begin(), other.end(), buffer.Data()) = '\0';
  EXPECT_EQ(buffer.Text(), other);
}

TEST(ResultBufferTest, ATextThatDoesNotFitIsCut) {
  EXPECT_EQ(ResultBuffer(std::string(300'000, 'a')).Text().size(), ResultBuffer::kCapacity - 1);
}

TEST(ResultBufferTest, ABufferWithoutATerminatorEndsAtItsCapacity) {
  ResultBuffer buffer("");
  std::fill_n(buffer.Data(), ResultBuffer::kCapacity, 'a');
  EXPECT_EQ(buffer.Text().size(), ResultBuffer::kCapacity);
}

TEST(WholePathsTest, ABlankDividesOnlyInFrontOfADriveOrAServer) {
  using Paths = std::vector<std::string_view>;
  EXPECT_EQ(WholePaths(""), Paths{});
  EXPECT_EQ(WholePaths("C:\\a"), Paths{"C:\\a"});
  EXPECT_EQ(WholePaths("C:\\a C:\\表 \\\\srv\\x\\c"), (Paths{"C:\\a", "C:\\表", "\\\\srv\\x\\c"}));
  EXPECT_EQ(WholePaths("C:\\my  files\\a b D:\\c d"), (Paths{"C:\\my  files\\a b", "D:\\c d"}));
  EXPECT_EQ(WholePaths("C:\\a \\b"), Paths{"C:\\a \\b"}) << "a folder whose name ends in a blank";
  EXPECT_EQ(WholePaths("C:\\a "), Paths{"C:\\a "});
  EXPECT_EQ(WholePaths("C:\\a C:"), Paths{"C:\\a C:"});
}

TEST(NameWalkTest, OneNameIsTheWholeResult) {
  NameWalk walk;
  EXPECT_EQ(walk.First("C:\\my files\\a.mdl", ResultForm::OneName), "C:\\my files\\a.mdl");
  EXPECT_EQ(walk.Next("C:\\my files\\a.mdl"), "");
}

TEST(NameWalkTest, AListIsDividedAtItsBlanks) {
  constexpr std::string_view result = "C:\\a C:\\表 C:\\c";
  NameWalk walk;
  EXPECT_EQ(walk.First(result, ResultForm::List), "C:\\a");
  EXPECT_EQ(walk.Next(result), "C:\\表");
  EXPECT_EQ(walk.Next(result), "C:\\c");
  EXPECT_EQ(walk.Next(result), "");
  EXPECT_EQ(walk.Next(result), "");
  EXPECT_EQ(walk.First(result, ResultForm::List), "C:\\a");
}

TEST(NameWalkTest, AListOfOneHasNoMore) {
  NameWalk walk;
  EXPECT_EQ(walk.First("C:\\a", ResultForm::List), "C:\\a");
  EXPECT_EQ(walk.Next("C:\\a"), "");
}

TEST(NameWalkTest, TwoBlanksHoldAnEmptyName) {
  NameWalk walk;
  EXPECT_EQ(walk.First("a  b", ResultForm::List), "a");
  EXPECT_EQ(walk.Next("a  b"), "");
  EXPECT_EQ(walk.Next("a  b"), "b");
}

TEST(NameWalkTest, NothingComesBeforeTheFirstNameOrFromAnEmptyResult) {
  NameWalk walk;
  EXPECT_EQ(walk.Next("a b"), "");
  EXPECT_EQ(walk.First("", ResultForm::List), "");
  EXPECT_EQ(walk.Next(""), "");
}

TEST(NameWalkTest, AResultThatChangedUnderTheWalkIsNotReadBeyondItsEnd) {
  NameWalk walk;
  EXPECT_EQ(walk.First("a long name", ResultForm::List), "a");
  EXPECT_EQ(walk.Next("x"), "");
  EXPECT_EQ(walk.Next("xyz"), "");
}

TEST(NameWalkTest, ACopyWalksOnItsOwn) {
  constexpr std::string_view result = "a b c";
  NameWalk walk;
  EXPECT_EQ(walk.First(result, ResultForm::List), "a");
  NameWalk copy = walk;
  EXPECT_EQ(walk.Next(result), "b");
  EXPECT_EQ(copy.Next(result), "b");
}

}  // namespace
}  // namespace filsel
