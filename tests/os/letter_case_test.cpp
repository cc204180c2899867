#include "platform/os/letter_case.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <set>
#include <string>

namespace {

using Names = std::set<std::string>;

/// A folder whose system takes letter case alone for no change; steps fail as the test says.
class LetterCase : public testing::Test {
 protected:
  int Respell() {
    return os::Respell(
        "A", "a", [this](const std::string& from, const std::string& to) { return Rename(from, to); },
        [this] { ++pauses_; });
  }

  int Rename(const std::string& from, const std::string& to) {
    ++steps_;
    if (failing_.contains(steps_)) return EACCES;
    const auto entry = Find(from);
    if (entry == names_.end()) return ENOENT;
    const auto taken = Find(to);
    if (taken != names_.end() && taken != entry) return EEXIST;
    if (taken == entry) return 0;
    names_.erase(entry);
    names_.insert(to);
    return 0;
  }
  [[nodiscard]] Names::iterator Find(const std::string& name) {
    return std::find_if(names_.begin(), names_.end(),
                        [&](const std::string& other) { return Fold(other) == Fold(name); });
  }
  static std::string Fold(std::string name) {
    for (char& letter : name) letter = letter == 'A' ? 'a' : letter;
    return name;
  }
  static std::set<int> Between(int first, int last) {
    std::set<int> steps;
    for (; first <= last; ++first) steps.insert(first);
    return steps;
  }

  Names names_ = {"a"};
  std::set<int> failing_;
  int steps_ = 0;
  int pauses_ = 0;
};

TEST_F(LetterCase, IsChangedInTwoSteps) {
  EXPECT_EQ(Respell(), 0);
  EXPECT_EQ(names_, Names{"A"});
  EXPECT_EQ(steps_, 2);
  EXPECT_EQ(pauses_, 0);
}

TEST_F(LetterCase, TakesTheFirstNameThatIsFree) {
  names_ = {"a", "a~0", "a~1"};
  EXPECT_EQ(Respell(), 0);
  EXPECT_EQ(names_, (Names{"A", "a~0", "a~1"}));
}

TEST_F(LetterCase, StaysWhenTheFirstStepFails) {
  failing_ = {1};
  EXPECT_EQ(Respell(), EACCES);
  EXPECT_EQ(names_, Names{"a"});
}

TEST_F(LetterCase, IsAsBeforeWhenTheSecondStepFails) {
  failing_ = {2};
  EXPECT_EQ(Respell(), EACCES);
  EXPECT_EQ(names_, Names{"a"});
  EXPECT_EQ(pauses_, 0);
}

TEST_F(LetterCase, IsChangedOnceWhatHeldTheEntryLetsItGo) {
  failing_ = Between(2, 5);
  EXPECT_EQ(Respell(), 0);
  EXPECT_EQ(names_, Names{"A"});
  EXPECT_EQ(pauses_, 2);
}

TEST_F(LetterCase, IsAsBeforeOnceOnlyTheWayBackIsFree) {
  failing_ = Between(2, 6);
  EXPECT_EQ(Respell(), EACCES);
  EXPECT_EQ(names_, Names{"a"});
  EXPECT_EQ(pauses_, 2);
}

TEST_F(LetterCase, GivesUpWhenNothingHelps) {
  failing_ = Between(2, 1000);
  EXPECT_EQ(Respell(), EACCES);
  EXPECT_EQ(names_, Names{"A~0"}) << "nothing is lost";
  EXPECT_LT(pauses_, 20);
}

}  // namespace
