// Drives that never answer, and request after request: what hangs is two calls, however many dialogs were opened.
#include <gtest/gtest.h>

#include <iostream>

#include "platform/os/os_scripted.h"
#include "tests/robustness/dialog_runs.h"
#include "tests/robustness/fault_world.h"
#include "tests/robustness/live_objects.h"
#include "tests/windows/support/hanging_calls.h"

namespace robustness {
namespace {

constexpr int kWarmUpOpenings = 3;
constexpr int kOpenings = 1000;
constexpr long kMostWorkers = 4;
constexpr long kContextsOfStore = 8;   ///< of the system's own, when more happens to be drawn at one time
constexpr long kBlocksOfMachine = 20;  ///< of the scripted machine's own, whose numbers become longer texts

/// How many of them did what they were to do. One on a busy machine may take so long that the folder above is shown
/// instead, and is made up for.
int Open(int times) {
  constexpr int kOneInSoMany = 50;
  Place place;
  place.listFile = "C:/out/list.txt";
  int good = 0;
  for (int more = times + times / kOneInSoMany; more > 0 && good < times; --more) {
    good += RunListRequest(place) ? 1 : 0;
    os::scripted::World().calls.ClearLog();
  }
  return good;
}

TEST(HangingDrives, ManyOpeningsLeaveNoHandleNoMemoryAndNoMoreThanFourThreads) {
  PrepareWorld();
  os::scripted::SetClockSlowness(1);
  const long threads = CountThreads();
  driver::HangingCalls hanging("drives.Type");
  ASSERT_EQ(Open(kWarmUpOpenings), kWarmUpOpenings);
  const LiveObjects before = CountLiveObjects();
  EXPECT_EQ(Open(kOpenings), kOpenings);
  const LiveObjects after = CountLiveObjects();
  EXPECT_EQ(hanging.Now(), 2);
  EXPECT_LE(CountThreads() - threads, kMostWorkers);
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_EQ(after.menus, before.menus);
  EXPECT_LE(after.gdiObjects - before.gdiObjects, kContextsOfStore);
  EXPECT_EQ(after.kernelHandles, before.kernelHandles);
  EXPECT_LE(after.newBlocks - before.newBlocks, kBlocksOfMachine);
  std::cout << kOpenings << " openings, then " << after << '\n';
  hanging.LetGo();
  os::scripted::SetClockSlowness(os::scripted::kClockSlowness);
}

}  // namespace
}  // namespace robustness
