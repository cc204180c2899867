#include "dlglib/filsel/result_buffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace filsel {
namespace {

TEST(ResultBufferTest, HoldsATextAndTakesAnother) {
  ResultBuffer buffer{SjisView("C:\\a.mdl")};
  EXPECT_EQ(buffer.Text().bytes(), "C:\\a.mdl");
  constexpr std::string_view other = "D:\\b.mdl";
  *std::copy(other.begin(), other.end(), buffer.Data()) = '\0';
  EXPECT_EQ(buffer.Text().bytes(), other);
}

TEST(ResultBufferTest, ATextThatDoesNotFitIsCut) {
  EXPECT_EQ(ResultBuffer(SjisText(std::string(300'000, 'a'))).Text().size(), ResultBuffer::kCapacity - 1);
}

TEST(ResultBufferTest, ABufferWithoutATerminatorEndsAtItsCapacity) {
  ResultBuffer buffer{SjisView("")};
  std::fill_n(buffer.Data(), ResultBuffer::kCapacity, 'a');
  EXPECT_EQ(buffer.Text().size(), ResultBuffer::kCapacity);
}

std::vector<std::string_view> Whole(std::string_view result) {
  std::vector<std::string_view> paths;
  for (const SjisView path : WholePaths(SjisView(result))) paths.push_back(path.bytes());
  return paths;
}

TEST(WholePathsTest, ABlankDividesOnlyInFrontOfADriveOrAServer) {
  using Paths = std::vector<std::string_view>;
  EXPECT_EQ(Whole(""), Paths{});
  EXPECT_EQ(Whole("C:\\a"), Paths{"C:\\a"});
  EXPECT_EQ(Whole("C:\\a C:\\表 \\\\srv\\x\\c"), (Paths{"C:\\a", "C:\\表", "\\\\srv\\x\\c"}));
  EXPECT_EQ(Whole("C:\\my  files\\a b D:\\c d"), (Paths{"C:\\my  files\\a b", "D:\\c d"}));
  EXPECT_EQ(Whole("C:\\a \\b"), Paths{"C:\\a \\b"}) << "a folder whose name ends in a blank";
  EXPECT_EQ(Whole("C:\\a "), Paths{"C:\\a "});
  EXPECT_EQ(Whole("C:\\a C:"), Paths{"C:\\a C:"});
}

TEST(NameWalkTest, OneNameIsTheWholeResult) {
  NameWalk walk;
  EXPECT_EQ(walk.First(SjisView("C:\\my files\\a.mdl"), ResultForm::OneName).bytes(), "C:\\my files\\a.mdl");
  EXPECT_EQ(walk.Next(SjisView("C:\\my files\\a.mdl")).bytes(), "");
}

TEST(NameWalkTest, AListIsDividedAtItsBlanks) {
  constexpr std::string_view result = "C:\\a C:\\表 C:\\c";
  NameWalk walk;
  EXPECT_EQ(walk.First(SjisView(result), ResultForm::List).bytes(), "C:\\a");
  EXPECT_EQ(walk.Next(SjisView(result)).bytes(), "C:\\表");
  EXPECT_EQ(walk.Next(SjisView(result)).bytes(), "C:\\c");
  EXPECT_EQ(walk.Next(SjisView(result)).bytes(), "");
  EXPECT_EQ(walk.Next(SjisView(result)).bytes(), "");
  EXPECT_EQ(walk.First(SjisView(result), ResultForm::List).bytes(), "C:\\a");
}

TEST(NameWalkTest, AListOfOneHasNoMore) {
  NameWalk walk;
  EXPECT_EQ(walk.First(SjisView("C:\\a"), ResultForm::List).bytes(), "C:\\a");
  EXPECT_EQ(walk.Next(SjisView("C:\\a")).bytes(), "");
}

TEST(NameWalkTest, TwoBlanksHoldAnEmptyName) {
  NameWalk walk;
  EXPECT_EQ(walk.First(SjisView("a  b"), ResultForm::List).bytes(), "a");
  EXPECT_EQ(walk.Next(SjisView("a  b")).bytes(), "");
  EXPECT_EQ(walk.Next(SjisView("a  b")).bytes(), "b");
}

TEST(NameWalkTest, NothingComesBeforeTheFirstNameOrFromAnEmptyResult) {
  NameWalk walk;
  EXPECT_EQ(walk.Next(SjisView("a b")).bytes(), "");
  EXPECT_EQ(walk.First(SjisView(""), ResultForm::List).bytes(), "");
  EXPECT_EQ(walk.Next(SjisView("")).bytes(), "");
}

TEST(NameWalkTest, AResultThatChangedUnderTheWalkIsNotReadBeyondItsEnd) {
  NameWalk walk;
  EXPECT_EQ(walk.First(SjisView("a long name"), ResultForm::List).bytes(), "a");
  EXPECT_EQ(walk.Next(SjisView("x")).bytes(), "");
  EXPECT_EQ(walk.Next(SjisView("xyz")).bytes(), "");
}

TEST(NameWalkTest, ACopyWalksOnItsOwn) {
  constexpr std::string_view result = "a b c";
  NameWalk walk;
  EXPECT_EQ(walk.First(SjisView(result), ResultForm::List).bytes(), "a");
  NameWalk copy = walk;
  EXPECT_EQ(walk.Next(SjisView(result)).bytes(), "b");
  EXPECT_EQ(copy.Next(SjisView(result)).bytes(), "b");
}

}  // namespace
}  // namespace filsel
