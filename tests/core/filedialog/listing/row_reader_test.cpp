// What rows say, read on workers while they are drawn.
#include "dlglib/filedialog/listing/row_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <functional>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "platform/os/os_scripted.h"
#include "platform/os/wait_clock.h"
#include "platform/suite/crvncontrol.h"
#include "tests/core/filedialog/browser/played_wait.h"

namespace {

using namespace filedialog;
using browser_test::EmptyWorld;
using browser_test::HangingCalls;
using browser_test::PoorWorkers;
using browser_test::WatchedWorkers;
using os::scripted::World;

constexpr unsigned kPatientMs = 10'000;  ///< a glance that outlasts any delay of the machine
constexpr unsigned kHastyMs = 20;        ///< one that a test waits for
constexpr std::size_t kPage = 10;
constexpr std::int64_t kLongestMs = 3000;  ///< of the scripted machine's slow clock, for answers that are sure to come

class RowReaderTest : public testing::Test {
 protected:
  RowReaderTest() {
    for (std::size_t row = 0; row < 100; ++row) {
      const std::string path = "C:\\data\\" + Name(row);
      World().files.AddFile(path, "x");
      table_.Add(EntryKind::File, path, Name(row), false);
    }
  }
  ~RowReaderTest() override {
    calls_.Release();
    workers_.WaitIdle();
  }

  static std::string Name(std::size_t row) { return "f" + std::to_string(100 + row); }

  [[nodiscard]] RowReader Reader(unsigned glanceMs) {
    return RowReader(
        os::Services(), &workers_, [this] { ++answers_; }, glanceMs);
  }
  /// Draws so many rows as the list does.
  void Draw(RowReader& reader, std::size_t first, std::size_t count = kPage) {
    reader.BeginPaint();
    for (std::size_t row = first; row < first + count; ++row) reader.Describe(row, kPage);
  }
  [[nodiscard]] bool IsDescribed(std::size_t row) const { return table_.rows()[row].described; }
  /// The names that were asked about, in their order.
  [[nodiscard]] static std::vector<std::string> Asked() {
    std::vector<std::string> names;
    for (const std::string& call : World().calls.Log()) {
      if (call.starts_with("files.Status ")) names.push_back(call.substr(call.rfind('\\') + 1));
    }
    return names;
  }
  void WaitForAnswers(int count) const {
    while (answers_ < count) std::this_thread::yield();
  }
  static void TakeAnswersUntil(RowReader& reader, const std::function<bool()>& isThere) {
    const std::int64_t begun = os::WaitClockMs();
    while (!isThere()) {
      ASSERT_LT(os::WaitClockMs() - begun, kLongestMs);
      static_cast<void>(reader.TakeAnswers());
      std::this_thread::yield();
    }
  }

 private:
  EmptyWorld empty_;

 protected:
  WatchedWorkers workers_;
  HangingCalls calls_;
  std::atomic<int> answers_ = 0;
  EntryTable table_;
};

TEST_F(RowReaderTest, RowsThatAreSeenAreAskedAboutAndNoOthers) {
  RowReader reader = Reader(kPatientMs);
  reader.Show(&table_, {});
  Draw(reader, 50);
  EXPECT_EQ(Asked().size(), kPage);
  EXPECT_EQ(Asked().front(), Name(50));
  EXPECT_EQ(Asked().back(), Name(59));
  Draw(reader, 50);
  EXPECT_EQ(Asked().size(), kPage) << "files are asked about once";
}

TEST_F(RowReaderTest, ADrawingWaitsForADeviceThatAnswers) {
  RowReader reader = Reader(kPatientMs);
  reader.Show(&table_, {});
  reader.Describe(0, kPage);
  EXPECT_TRUE(IsDescribed(0));
  EXPECT_EQ(table_.rows()[0].sizeKb, 1);
  EXPECT_EQ(workers_.Begun(), 1U) << "a page is one question";
}

TEST_F(RowReaderTest, ADeviceThatDoesNotAnswerLetsOneRowWaitAndNoOther) {
  calls_.HangAll("files.Status");
  RowReader reader = Reader(1000);
  reader.Show(&table_, {});
  const std::int64_t begun = os::WaitClockMs();
  Draw(reader, 0);
  Draw(reader, 50);
  constexpr std::int64_t kSlowedDown = 10;  // the scripted machine's clock
  EXPECT_LT((os::WaitClockMs() - begun) * kSlowedDown, 5000) << "twenty rows of a second each";
  EXPECT_FALSE(IsDescribed(0));
}

TEST_F(RowReaderTest, WhatIsAnsweredLateIsDrawnThenWithoutAQuestion) {
  World().files.AddFolder("C:\\data\\Sub");
  EntryTable folders;
  folders.Add(EntryKind::Folder, "C:\\data\\Sub", "Sub", false);
  calls_.HangAll("files.Status");
  RowReader reader = Reader(kHastyMs);
  reader.Show(&folders, {});
  Draw(reader, 0, 1);
  EXPECT_FALSE(reader.TakeAnswers()) << "there is none";
  calls_.Release();
  WaitForAnswers(1);
  EXPECT_TRUE(reader.TakeAnswers());
  EXPECT_TRUE(folders.rows()[0].described);
  EXPECT_FALSE(reader.TakeAnswers()) << "it is told once";
  Draw(reader, 0, 1);
  EXPECT_EQ(Asked().size(), 1U) << "or drawing and answering would go on for ever";
  Draw(reader, 0, 1);
  workers_.WaitIdle();
  EXPECT_EQ(Asked().size(), 2U) << "a folder is asked about at each drawing";
}

TEST_F(RowReaderTest, APageThatIsSeenNoMoreIsLeftWhereItIs) {
  calls_.HangAll("files.Status");
  RowReader reader = Reader(kHastyMs);
  reader.Show(&table_, {});
  Draw(reader, 0);
  ASSERT_TRUE(calls_.WaitHanging(2));
  Draw(reader, 50);
  EXPECT_EQ(calls_.HangingNow(), 2) << "no more than two wait in the background";
  calls_.Release();
  workers_.WaitIdle();
  std::vector<std::string> expected = {Name(0), Name(1)};
  for (std::size_t row = 50; row < 60; ++row) expected.push_back(Name(row));
  std::vector<std::string> asked = Asked();
  std::sort(asked.begin(), asked.end());
  EXPECT_EQ(asked, expected);
}

TEST_F(RowReaderTest, AnotherFolderIsReadWhileOneHangs) {
  World().files.AddFile("C:\\other\\o", "x");
  EntryTable other;
  other.Add(EntryKind::File, "C:\\other\\o", "o", false);
  calls_.HangAt(1);
  RowReader reader = Reader(kHastyMs);
  reader.Show(&table_, {});
  reader.Describe(0, kPage);
  ASSERT_TRUE(calls_.WaitHanging(1));
  reader.Show(&other, {});
  reader.Describe(0, kPage);
  TakeAnswersUntil(reader, [&other] { return other.rows()[0].described; });
}

// ---------------------------------------------------------------------------------------------------------------------
// one row that hangs

constexpr std::size_t kBadRow = 2;

/// The row that hangs is the third that is asked about.
class RowReaderWithABadRow : public RowReaderTest {
 protected:
  RowReaderWithABadRow() {
    for (std::size_t row = 0; row < kPage; ++row) {
      const std::string path = "C:\\data\\s" + std::to_string(row);
      World().files.AddFolder(path);
      folders_.Add(EntryKind::Folder, path, "s" + std::to_string(row), false);
    }
    constexpr std::size_t kCallsOfRow = 2;  // its status, and the date as the machine says it
    calls_.HangAt(kBadRow * kCallsOfRow + 1);
  }

  /// Draws a page and waits until all its rows but the bad one say what they are.
  void DrawAroundIt(RowReader& reader, EntryTable& table) {
    reader.Show(&table, {});
    Draw(reader, 0);
    TakeAnswersUntil(reader, [&table] { return Described(table) == kPage - 1; });
    EXPECT_FALSE(table.rows()[kBadRow].described);
  }
  static std::size_t Described(const EntryTable& table) {
    const auto isDescribed = [](const FileEntry& entry) { return entry.described; };
    return static_cast<std::size_t>(std::count_if(table.rows().begin(), table.rows().end(), isDescribed));
  }

  EntryTable folders_;
};

TEST_F(RowReaderWithABadRow, KeepsNoOtherRowOfItsPageBack) {
  RowReader reader = Reader(kHastyMs);
  DrawAroundIt(reader, table_);
  calls_.Release();
  TakeAnswersUntil(reader, [this] { return IsDescribed(kBadRow); });
  EXPECT_EQ(Asked().size(), kPage);
}

TEST_F(RowReaderWithABadRow, IsNotAskedAboutBesideItself) {
  RowReader reader = Reader(kHastyMs);
  DrawAroundIt(reader, table_);
  Draw(reader, 1);
  TakeAnswersUntil(reader, [this] { return IsDescribed(kPage); });
  Draw(reader, 1);
  EXPECT_EQ(calls_.HangingNow(), 1);
  calls_.Release();
  workers_.WaitIdle();
  const std::vector<std::string> asked = Asked();
  EXPECT_EQ(std::count(asked.begin(), asked.end(), Name(kBadRow)), 1);
  EXPECT_TRUE(reader.TakeAnswers()) << "it is drawn anew";
  Draw(reader, 1);
  TakeAnswersUntil(reader, [this] { return IsDescribed(kBadRow); });
}

TEST_F(RowReaderWithABadRow, IsDrawnAnewWhenItAnswersWhileNothingElseIsAsked) {
  RowReader reader = Reader(kHastyMs);
  DrawAroundIt(reader, table_);
  Draw(reader, 1);
  TakeAnswersUntil(reader, [this] { return IsDescribed(kPage); });
  Draw(reader, 1);
  Draw(reader, 2 * kPage);
  TakeAnswersUntil(reader, [this] { return IsDescribed(3 * kPage - 1); });
  calls_.Release();
  workers_.WaitIdle();
  EXPECT_TRUE(reader.TakeAnswers());
}

TEST_F(RowReaderWithABadRow, IsNotAskedAboutAgainWhenItsFolderIsListedAnew) {
  RowReader reader = Reader(kHastyMs);
  DrawAroundIt(reader, table_);
  for (FileEntry& entry : table_.rows()) entry.described = false;
  DrawAroundIt(reader, table_);
  EXPECT_EQ(calls_.HangingNow(), 1);
}

TEST_F(RowReaderWithABadRow, LetsTheFoldersAroundItBeDrawnWithoutEnd) {
  RowReader reader = Reader(kHastyMs);
  DrawAroundIt(reader, folders_);
  for (int drawings = 0; drawings < 3; ++drawings) Draw(reader, 0);
  EXPECT_FALSE(reader.TakeAnswers());
  calls_.Release();
  workers_.WaitIdle();
  EXPECT_TRUE(reader.TakeAnswers());
  EXPECT_TRUE(folders_.rows()[kBadRow].described);
  EXPECT_EQ(Asked().size(), kPage);
  Draw(reader, 0);
  EXPECT_EQ(Asked().size(), kPage) << "the drawing for the answers asks nothing";
  Draw(reader, 0);
  workers_.WaitIdle();
  EXPECT_EQ(Asked().size(), 2 * kPage);
}

TEST_F(RowReaderTest, NothingOfWhatWasShownBeforeIsTold) {
  calls_.HangAll("files.Status");
  RowReader reader = Reader(kHastyMs);
  reader.Show(&table_, {});
  Draw(reader, 0);
  reader.Show(nullptr, {});
  calls_.Release();
  workers_.WaitIdle();
  EXPECT_FALSE(reader.TakeAnswers());
  EXPECT_FALSE(IsDescribed(0));
}

TEST_F(RowReaderTest, ADriveSaysItsSpaceWhenItAnswers) {
  World().AddDrive('C');
  calls_.HangAll("drives.Space");
  RowReader reader = Reader(kHastyMs);
  reader.Show(nullptr, {});
  EXPECT_FALSE(reader.Drives().Space("C:\\"));
  calls_.Release();
  WaitForAnswers(1);
  EXPECT_TRUE(reader.TakeAnswers());
  EXPECT_TRUE(reader.Drives().Space("C:\\"));
  EXPECT_EQ(World().calls.Count("drives.Space"), 1U);
}

TEST_F(RowReaderTest, ADriveThatAnswersAtOnceIsWaitedForAndAskedAtEachDrawing) {
  World().AddDrive('C');
  RowReader reader = Reader(kPatientMs);
  EXPECT_TRUE(reader.Drives().Space("C:\\"));
  World().drives['C'].space = std::nullopt;
  EXPECT_FALSE(reader.Drives().Space("C:\\"));
  EXPECT_FALSE(reader.TakeAnswers()) << "both were drawn with the question";
  EXPECT_EQ(World().calls.Count("drives.Space"), 2U);
}

TEST_F(RowReaderTest, ADriveThatHangsIsAskedOnceAndLetsNoOtherWait) {
  World().AddDrive('C');
  World().AddDrive('D');
  calls_.HangAt(1);
  RowReader reader = Reader(kHastyMs);
  for (int drawings = 0; drawings < 3; ++drawings) EXPECT_FALSE(reader.Drives().Space("C:\\"));
  static_cast<void>(reader.Drives().Space("D:\\"));
  WaitForAnswers(1);
  EXPECT_TRUE(reader.TakeAnswers());
  EXPECT_TRUE(reader.Drives().Space("D:\\"));
  EXPECT_FALSE(reader.TakeAnswers()) << "that of the other one is still on its way";
  EXPECT_EQ(calls_.Made(), 2U);
}

TEST_F(RowReaderTest, WhoeverOnlyWantsToKnowWhatIsSeenAsksNoDrive) {
  World().AddDrive('C');
  for (os::Workers* const workers : {static_cast<os::Workers*>(&workers_), static_cast<os::Workers*>(nullptr)}) {
    World().calls.ClearLog();
    RowReader reader(
        os::Services(), workers, [] {}, kPatientMs);
    EXPECT_FALSE(reader.ToldDrives().Space("C:\\")) << "it has not been drawn";
    EXPECT_EQ(World().calls.Count("drives.Space"), 0U);
    static_cast<void>(reader.Drives().Space("C:\\"));
    EXPECT_TRUE(reader.ToldDrives().Space("C:\\"));
    EXPECT_TRUE(reader.ToldDrives().Space("C:\\"));
    EXPECT_EQ(World().calls.Count("drives.Space"), 1U);
    EXPECT_EQ(reader.ToldDrives().Mask(), 0U);
    EXPECT_EQ(reader.ToldDrives().Type("C:\\"), os::DriveType::Unknown);
    EXPECT_FALSE(reader.ToldDrives().VolumeName("C:\\"));
  }
}

TEST_F(RowReaderTest, APageAsksOnlyAboutRowsThatNeedAnAnswer) {
  EntryTable mixed;
  mixed.Add(EntryKind::FixedDrive, "C:\\", "SYSTEM (C:)", false);
  mixed.Add(EntryKind::File, "C:\\data\\" + Name(0), Name(0), false);
  mixed.Add(EntryKind::NetworkServer, "\\\\SRV", "SRV", false);
  mixed.Add(EntryKind::File, "C:\\data\\" + Name(1), Name(1), false);
  RowReader reader = Reader(kPatientMs);
  reader.Show(&mixed, {});
  reader.Describe(3, kPage);
  EXPECT_EQ(Asked(), std::vector<std::string>{Name(1)});
  Draw(reader, 0, mixed.size());
  EXPECT_EQ(Asked(), (std::vector<std::string>{Name(1), Name(0)})) << "what is known is not asked about again";
  EXPECT_TRUE(mixed.rows()[0].described);
  EXPECT_TRUE(mixed.rows()[2].described);
}

TEST_F(RowReaderTest, WantOfMemoryEndsAPageAndItsRowsAreAskedAboutAtTheNextDrawing) {
  RowReader reader = Reader(kPatientMs);
  reader.Show(&table_, {});
  World().calls.Watch([](const std::string& call) {
    if (call == "files.Status") throw std::bad_alloc();
  });
  reader.Describe(0, kPage);
  EXPECT_FALSE(IsDescribed(0));
  World().calls.Watch({});
  reader.Describe(0, kPage);
  EXPECT_TRUE(IsDescribed(0));
}

TEST_F(RowReaderTest, APageThatCannotBeAskedAboutIsAskedAboutAtTheNextDrawing) {
  PoorWorkers workers(&workers_);
  RowReader reader(
      os::Services(), &workers, [] {}, kPatientMs);
  reader.Show(&table_, {});
  workers.isPoor = true;
  for (int drawings = 0; drawings < 2; ++drawings) EXPECT_THROW(reader.Describe(0, kPage), std::bad_alloc);
  EXPECT_FALSE(reader.TakeAnswers());
  workers.isPoor = false;
  reader.Describe(0, kPage);
  EXPECT_TRUE(IsDescribed(0));
}

TEST_F(RowReaderTest, WithoutRowsNothingIsAsked) {
  RowReader reader = Reader(kPatientMs);
  reader.Describe(0, kPage);
  EXPECT_EQ(workers_.Begun(), 0U);
}

TEST_F(RowReaderTest, WithoutWorkersARowIsDescribedInPlace) {
  World().AddDrive('C');
  RowReader reader(os::Services(), nullptr, [] {});
  EXPECT_TRUE(reader.Drives().Space("C:\\"));
  reader.Show(&table_, {});
  reader.Describe(7, kPage);
  EXPECT_TRUE(IsDescribed(7));
  EXPECT_FALSE(IsDescribed(8));
}

}  // namespace
