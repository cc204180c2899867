#include "platform/os/workers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace {

using os::Urgency;

const os::Site kDead = {"C:\\dead", {}};

/// A gate at which errands hang until it is opened.
class Gate {
 public:
  void Pass() {
    std::unique_lock<std::mutex> held(lock_);
    ++inside_;
    changed_.notify_all();
    changed_.wait(held, [this] { return open_; });
    --inside_;
    ++passed_;
    changed_.notify_all();
  }
  void Open() {
    const std::lock_guard<std::mutex> held(lock_);
    open_ = true;
    changed_.notify_all();
  }
  /// True when so many hang here at last.
  [[nodiscard]] bool WaitInside(int count) {
    std::unique_lock<std::mutex> held(lock_);
    return changed_.wait_for(held, std::chrono::seconds(10), [&] { return inside_ == count; });
  }
  [[nodiscard]] bool WaitPassed(int count) {
    std::unique_lock<std::mutex> held(lock_);
    return changed_.wait_for(held, std::chrono::seconds(10), [&] { return passed_ == count; });
  }
  /// No further one has come within a moment.
  [[nodiscard]] bool StaysAt(int count) {
    std::unique_lock<std::mutex> held(lock_);
    return !changed_.wait_for(held, std::chrono::milliseconds(50), [&] { return inside_ > count; });
  }

 private:
  std::mutex lock_;
  std::condition_variable changed_;
  int inside_ = 0;
  int passed_ = 0;
  bool open_ = false;
};

class Task final : public os::Errand {
 public:
  explicit Task(std::function<void()> run) : run_(std::move(run)) {}
  void Run() noexcept override { run_(); }

 private:
  std::function<void()> run_;
};

class WorkersTest : public testing::Test {
 protected:
  ~WorkersTest() override {
    gate_.Open();
    static_cast<void>(gate_.WaitPassed(begun_));
  }

  std::shared_ptr<os::Errand> Hang(const os::Site& site, Urgency urgency = Urgency::Awaited) {
    auto task = std::make_shared<Task>([this] { gate_.Pass(); });
    EXPECT_TRUE(workers_->Begin(task, site, urgency));
    ++begun_;
    return task;
  }

  Gate gate_;
  int begun_ = 0;
  std::unique_ptr<os::Workers> workers_ = os::MakeWorkers(nullptr);
};

TEST_F(WorkersTest, FourAtATimeAndTheFifthWaitsForAFreeOne) {
  for (int i = 0; i < 5; ++i) Hang({"C:\\" + std::to_string(i), {}});
  EXPECT_TRUE(gate_.WaitInside(4));
  EXPECT_TRUE(gate_.StaysAt(4));
  gate_.Open();
  EXPECT_TRUE(gate_.WaitPassed(5));
}

TEST_F(WorkersTest, APathOnWhichOneHangsIsNotAskedBesideIt) {
  Hang(kDead);
  Hang(kDead);
  Hang({"C:\\other", {}});
  EXPECT_TRUE(gate_.WaitInside(2));
  EXPECT_TRUE(gate_.StaysAt(2));
}

TEST_F(WorkersTest, ADeviceThatHangsTakesThreeHoweverManyOfItsPathsAreAsked) {
  for (int i = 0; i < 5; ++i) Hang({"Z:\\" + std::to_string(i), "Z:"});
  EXPECT_TRUE(gate_.WaitInside(3));
  EXPECT_TRUE(gate_.StaysAt(3));
  Hang({"C:\\a", "C:"});
  EXPECT_TRUE(gate_.WaitInside(4)) << "another device has its worker";
  gate_.Open();
  EXPECT_TRUE(gate_.WaitPassed(6)) << "what waited comes when it answers";
}

TEST_F(WorkersTest, TheBackgroundUsesTwo) {
  for (int i = 0; i < 4; ++i) Hang({}, Urgency::Background);
  EXPECT_TRUE(gate_.WaitInside(2));
  EXPECT_TRUE(gate_.StaysAt(2));
  Hang({});
  EXPECT_TRUE(gate_.WaitInside(3));
}

TEST_F(WorkersTest, WhatIsAwaitedComesBeforeTheBackground) {
  Gate first;
  const auto runs = std::make_shared<Task>([&first] { first.Pass(); });
  ASSERT_TRUE(workers_->Begin(runs, kDead, Urgency::Background));
  ASSERT_TRUE(first.WaitInside(1));
  std::mutex lock;
  std::vector<Urgency> order;
  for (const Urgency urgency : {Urgency::Background, Urgency::Awaited}) {
    const auto task = std::make_shared<Task>([&, urgency] {
      const std::lock_guard<std::mutex> held(lock);
      order.push_back(urgency);
    });
    ASSERT_TRUE(workers_->Begin(task, kDead, urgency));
  }
  Hang(kDead, Urgency::Background);
  first.Open();
  ASSERT_TRUE(gate_.WaitInside(1));
  const std::lock_guard<std::mutex> held(lock);
  EXPECT_EQ(order, (std::vector<Urgency>{Urgency::Awaited, Urgency::Background}));
}

TEST_F(WorkersTest, TwoThatTheEndOfOneLetsBeginBeginSideBySide) {
  Gate first;
  const auto ends = std::make_shared<Task>([&first] { first.Pass(); });
  ASSERT_TRUE(workers_->Begin(ends, kDead, Urgency::Background));
  ASSERT_TRUE(first.WaitInside(1));
  Hang({}, Urgency::Background);
  Hang(kDead);
  Hang({}, Urgency::Background);
  ASSERT_TRUE(gate_.WaitInside(1));
  first.Open();
  EXPECT_TRUE(gate_.WaitInside(3)) << "its path and its place in the background are free";
}

/// Of this process.
std::size_t CountThreads() {
  std::size_t count = 0;
  for ([[maybe_unused]] const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) ++count;
  return count;
}

TEST_F(WorkersTest, TheBackgroundStartsNoMoreThreadsThanItUses) {
  const std::size_t before = CountThreads();
  for (int i = 0; i < 20; ++i) Hang({}, Urgency::Background);
  EXPECT_TRUE(gate_.WaitInside(2));
  EXPECT_LE(CountThreads(), before + os::kMostInBackground);
}

TEST_F(WorkersTest, WhatIsForgottenBeforeItBeginsNeverDoes) {
  Hang(kDead);
  EXPECT_TRUE(gate_.WaitInside(1));
  std::atomic<bool> ran = false;
  auto second = std::make_shared<Task>([&ran] { ran = true; });
  EXPECT_TRUE(workers_->Begin(second, kDead, Urgency::Awaited));
  workers_->Forget(*second);
  EXPECT_EQ(second.use_count(), 1) << "nobody holds it any more";
  gate_.Open();
  EXPECT_TRUE(gate_.WaitPassed(1));
  EXPECT_FALSE(ran);
}

TEST_F(WorkersTest, NobodyWaitsForWhatHangsWhenTheWorkersGo) {
  Hang(kDead);
  EXPECT_TRUE(gate_.WaitInside(1));
  workers_.reset();
}

TEST_F(WorkersTest, AThousandCallsNeedNoThousandThreads) {
  std::mutex lock;
  std::condition_variable changed;
  int done = 0;
  for (int i = 0; i < 1000; ++i) {
    const auto task = std::make_shared<Task>([&] {
      const std::lock_guard<std::mutex> held(lock);
      ++done;
      changed.notify_all();
    });
    ASSERT_TRUE(workers_->Begin(task, {}, Urgency::Awaited));
    std::unique_lock<std::mutex> held(lock);
    changed.wait(held, [&] { return done == i + 1; });
  }
}

}  // namespace
