// Faults under the windows: each dialog of the library from its opening to its end, on the scripted machine.
#include <gtest/gtest.h>

#include <new>

#include "platform/framework/framework.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "tests/robustness/dialog_runs.h"
#include "tests/robustness/fault_world.h"
#include "tests/robustness/faults.h"
#include "tests/robustness/heap_watch.h"
#include "tests/robustness/live_objects.h"
#include "tests/robustness/watchdog.h"

namespace robustness {
namespace {

using os::scripted::World;

Place ScriptedPlace() {
  Place place;
  place.listFile = "C:/out/list.txt";
  place.walksNetwork = true;
  place.deletes = true;
  return place;
}

void CheckStored() {
  CheckLayout();
  CheckRecentFiles();
}

/// What was made in an earlier run is not in the way of the next one.
void RemoveMade() {
  for (const char* folder : {"C:\\data\\made", "C:\\data\\remade", "C:\\data\\named"}) World().files.Remove(folder);
}

Scenario Request() {
  return {"a file request", PrepareWorld,
          [] {
            RemoveMade();
            PrepareNetwork();
            return RunRequest(ScriptedPlace());
          },
          CheckStored};
}

Scenario ListRequest() {
  return {"a request for a list of files", PrepareWorld, [] { return RunListRequest(ScriptedPlace()); },
          [] {
            CheckStored();
            CheckListFile("a\r\nb\r\n");
          }};
}

Scenario UtilityBrowser() {
  return {"the utility's browser", PrepareWorld, [] { return RunUtilityBrowser(ScriptedPlace()); }, CheckStored};
}

Scenario NewFolder() {
  return {"the dialog for a new folder", PrepareWorld, [] {
            RemoveMade();
            return RunNewFolder(kFolder, "made");
          }};
}

Scenario Rename() {
  return {"the dialog for another name", PrepareWorld, [] {
            RemoveMade();
            World().files.AddFolder("C:\\data\\made");
            return RunRename(kFolder, "made", "remade");
          }};
}

Scenario Logon() { return {"the logon", PrepareWorld, RunLogon}; }
Scenario SortConditions() { return {"the sort conditions", PrepareWorld, RunSortConditions}; }
Scenario SortQuestion() { return {"the question before a slow sort", PrepareWorld, RunSortQuestion}; }
Scenario Titles() { return {"the titles", PrepareWorld, RunTitles}; }
Scenario MetaChars() { return {"the metacharacters", PrepareWorld, RunMetaChars}; }
Scenario Grid() {
  return {"a session with a grid", PrepareWorld, [] { return RunGrid(false); }};
}
Scenario PlainGrid() {
  return {"a session with a grid in a plain dialog", PrepareWorld, [] { return RunGrid(true); }};
}
Scenario ToolBar() {
  return {"a dialog with a toolbar", PrepareWorld, [] { return RunToolBarHost(false); }};
}

class WindowFaults : public testing::TestWithParam<Scenario (*)()> {
 protected:
  WindowFaults() {
    scenario_.settle = ForgetDeadWindows;
    if (RunsLong()) before_ = CountWarm();
  }
  ~WindowFaults() override {
    if (RunsLong()) ExpectSameAs(before_);
  }

  Scenario scenario_ = GetParam()();

 private:
  LiveObjects CountWarm() const {
    scenario_.prepare();
    SCOPED_TRACE("before the first fault");  // the first trace opens a handle that stays
    EXPECT_TRUE(scenario_.run());
    return CountLiveObjects();
  }
  static void ExpectSameAs(const LiveObjects& before) {
    const LiveObjects after = CountLiveObjects();
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.menus, before.menus);
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.kernelHandles, before.kernelHandles);
  }

  LiveObjects before_;
};
class BrowserFaults : public WindowFaults {};
class DialogFaults : public WindowFaults {};

TEST_P(BrowserFaults, EveryServiceCallFailsOnce) { TryServiceFaults(scenario_); }

TEST_P(BrowserFaults, EveryRequestForALargeBlockFailsOnce) { TryMemoryFaults(scenario_, kLargeBlock); }

TEST_P(BrowserFaults, RequestsForAnyBlockFail) { TryMemoryFaults(scenario_, kAnyBlock, 2, 1200); }

TEST_P(DialogFaults, EveryServiceCallFailsOnce) { TryServiceFaults(scenario_); }

TEST_P(DialogFaults, EveryRequestForMemoryFailsOnce) { TryMemoryFaults(scenario_, kAnyBlock); }

INSTANTIATE_TEST_SUITE_P(Windows, BrowserFaults, testing::Values(&Request, &ListRequest, &UtilityBrowser));
INSTANTIATE_TEST_SUITE_P(Windows, DialogFaults,
                         testing::Values(&NewFolder, &Rename, &Logon, &SortConditions, &SortQuestion, &Titles,
                                         &MetaChars, &Grid, &PlainGrid, &ToolBar));

/// Null when the n-th request failed.
const CWnd* ObjectWithFault(HWND window, std::size_t n) {
  const CWnd* object = nullptr;
  FailRequest(n, kAnyBlock);
  try {
    object = CWnd::FromHandle(window);
  } catch (const std::bad_alloc&) {
    object = nullptr;
  }
  FailRequest(0, SIZE_MAX);
  return object;
}

// There are more of them than are kept before the first look for those that are gone, and the room for them grows.
TEST(WindowsOfOthers, EveryRequestForTheirObjectsFailsOnce) {
  constexpr ULONG_PTR kNoWindow = 0x6000'0000;
  constexpr ULONG_PTR kMany = 5000;
  ULONG_PTR failed = 0;
  for (ULONG_PTR i = 0; i < kMany; ++i) {
    const HWND window = reinterpret_cast<HWND>(kNoWindow + i);
    NoteProgress();
    for (std::size_t n = 1; ObjectWithFault(window, n) == nullptr; ++n) ++failed;
    const CWnd* const object = CWnd::FromHandle(window);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->m_hWnd, window);
  }
  EXPECT_GT(failed, 2 * kMany);
}

}  // namespace
}  // namespace robustness
