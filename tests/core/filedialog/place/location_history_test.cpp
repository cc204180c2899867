#include "dlglib/filedialog/place/location_history.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/core/filedialog/place/places.h"

namespace {

using namespace filedialog;

class LocationHistoryTest : public places::Machine {};

HistoryRecord Step(const Location& location, const std::string& name = "") { return {location, name, "*.MDL", ".MDL"}; }

TEST_F(LocationHistoryTest, BackRestoresEveryFieldOfTheStepBefore) {
  AddTwoDrivesAndANetwork();
  LocationHistory history;
  EXPECT_FALSE(history.CanGoBack());
  Enter("C:\\図面\\表");
  history.Record({tree_.current(), "a.mdl", "*.M*", ".M*"});
  EXPECT_FALSE(history.CanGoBack());
  Enter("D:\\");
  history.Record({tree_.current(), "b.txt", "*.TXT", ".TXT"});
  ASSERT_TRUE(history.CanGoBack());
  const HistoryRecord& before = history.Back();
  EXPECT_EQ(before.name, "a.mdl");
  EXPECT_EQ(before.pattern, "*.M*");
  EXPECT_EQ(before.extension, ".M*");
  tree_.Enter(before.location);
  EXPECT_EQ(tree_.Folder(), "C:\\図面\\表");
  EXPECT_EQ(tree_.rows()[tree_.currentRow()].sub, 2);
  EXPECT_TRUE(tree_.fixed()[2].marked);
  EXPECT_FALSE(tree_.fixed()[3].marked);
  EXPECT_FALSE(history.CanGoBack());
  EXPECT_EQ(history.size(), 1U);
}

TEST_F(LocationHistoryTest, StepsAreCopies) {
  AddTwoDrivesAndANetwork();
  LocationHistory history;
  Enter("C:\\a");
  Location location = tree_.current();
  history.Record(Step(location));
  location.trail.clear();
  history.Record(Step(location));
  EXPECT_EQ(history.Back().location.trail.size(), 1U);
}

TEST_F(LocationHistoryTest, GoingToTheSamePlaceAgainIsNoStep) {
  AddTwoDrivesAndANetwork();
  LocationHistory history;
  Enter("C:\\a\\b");
  EXPECT_FALSE(history.EndsAt(tree_.current(), "*.M*", ".M*"));
  history.Record({tree_.current(), "a.mdl", "*.M*", ".M*"});
  Enter("c:\\A\\B\\");
  EXPECT_TRUE(history.EndsAt(tree_.current(), "*.M*", ".M*"));
  EXPECT_FALSE(history.EndsAt(tree_.current(), "*", ".M*"));
  EXPECT_FALSE(history.EndsAt(tree_.current(), "*.M*", ""));
  Enter("C:\\a");
  EXPECT_FALSE(history.EndsAt(tree_.current(), "*.M*", ".M*"));
  Enter("D:\\a\\b");
  EXPECT_FALSE(history.EndsAt(tree_.current(), "*.M*", ".M*"));
}

TEST(LocationHistory, KeepsAThousandSteps) {
  LocationHistory history;
  for (std::size_t i = 0; i < 1500; ++i) history.Record(Step({}, std::to_string(i)));
  EXPECT_EQ(history.size(), 1000U);
  EXPECT_EQ(history.size(), LocationHistory::kCapacity);
  for (int i = 998; i >= 0; --i) {
    ASSERT_TRUE(history.CanGoBack());
    EXPECT_EQ(history.Back().name, std::to_string(i));
  }
  EXPECT_FALSE(history.CanGoBack());
}

TEST(LocationHistory, TakesStepsAgainOnceThereIsRoom) {
  LocationHistory history;
  for (std::size_t i = 0; i < LocationHistory::kCapacity; ++i) history.Record(Step({}, "old"));
  static_cast<void>(history.Back());
  history.Record(Step({}, "new"));
  history.Record(Step({}, "lost"));
  EXPECT_EQ(history.size(), LocationHistory::kCapacity);
  EXPECT_EQ(history.Back().name, "old");
}

}  // namespace
