// Many runs of each dialog and many operations of the grid, on the real system: afterwards the process holds exactly
// what it held before.
#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "dlglib/dlglib.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvnmdl.h"
#include "tests/robustness/dialog_runs.h"
#include "tests/robustness/live_objects.h"
#include "tests/robustness/runs_long.h"
#include "tests/robustness/watchdog.h"
#include "tests/windows/grid/grid_table.h"
#include "tests/windows/support/temporary_folder.h"

namespace robustness {
namespace {

constexpr int kWarmUpRuns = 3;
constexpr int kWarmUpOperations = 3000;

int Runs() { return RunsLong() ? 1000 : 10; }
int GridOperations() { return RunsLong() ? 100'000 : 1'000; }

/// A folder with a few models, and a registry of its own.
class Ground {
 public:
  Ground() {
    folder_.MakeFolder("Sub");
    for (const char* file : {"a.mdl", "b.mdl", "Sub\\in.mdl"}) {
      folder_.Write(file, "CORVANE MODEL 1\n1=PUMP\n201=TITLE\nEND\n");
    }
    ::RegCreateKeyA(HKEY_CURRENT_USER, kKey, &key_);
    ::RegOverridePredefKey(HKEY_CURRENT_USER, key_);
    place_.folder = folder_.Path();
    for (char& letter : place_.folder) letter = letter == '\\' ? '/' : letter;
    place_.listFile = place_.folder + "/list.txt";
    CwSession::Reset();
    CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType("#MODEL#", place_.folder, "*.MDL", 0));
    CwModelTitleSet& titles = *CwSession::GetInstance()->OpenModel()->GetModelTitleSet();
    titles.SetTitle(1, 0, "NAME");
    titles.SetTitle(201, 0, "TITLE");
    ::SetCursorPos(::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1);
  }
  Ground(const Ground&) = delete;
  Ground& operator=(const Ground&) = delete;
  ~Ground() {
    CwSession::Reset();
    ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    ::RegCloseKey(key_);
    ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey);
  }

  [[nodiscard]] const Place& Where() const { return place_; }
  [[nodiscard]] const std::string& Folder() const { return folder_.Path(); }
  void RemoveMade() const {
    for (const char* name : {"made", "remade", "named"}) ::RemoveDirectoryA(folder_.Path(name).c_str());
  }

 private:
  static constexpr char kKey[] = "Software\\CorvaneSoak";

  const TemporaryFolder folder_{"soak"};
  HKEY key_ = nullptr;
  Place place_;
};

struct Dialog {
  const char* name;
  std::function<bool(const Ground&)> run;
};

bool RunMadeAndRenamed(const Ground& ground) {
  return RunNewFolder(ground.Folder(), "made") && RunRename(ground.Folder(), "made", "remade");
}

std::vector<Dialog> Dialogs() {
  return {{"FileRequest", [](const Ground& ground) { return RunRequest(ground.Where()); }},
          {"ListRequest", [](const Ground& ground) { return RunListRequest(ground.Where()); }},
          {"UtilityBrowser", [](const Ground& ground) { return RunUtilityBrowser(ground.Where()); }},
          {"NewFolderAndRename", RunMadeAndRenamed},
          {"Logon", [](const Ground&) { return RunLogon(); }},
          {"SortConditions", [](const Ground&) { return RunSortConditions(); }},
          {"SortQuestion", [](const Ground&) { return RunSortQuestion(); }},
          {"Titles", [](const Ground&) { return RunTitles(); }},
          {"MetaChars", [](const Ground&) { return RunMetaChars(); }},
          {"Grid", [](const Ground&) { return RunGrid(false); }},
          {"PlainGrid", [](const Ground&) { return RunGrid(true); }},
          {"ToolBar", [](const Ground&) { return RunToolBarHost(false); }},
          {"PlainToolBar", [](const Ground&) { return RunToolBarHost(true); }}};
}

int RunTimes(const Dialog& dialog, const Ground& ground, int times) {
  int good = 0;
  for (int run = 0; run < times; ++run) {
    ground.RemoveMade();
    good += dialog.run(ground) ? 1 : 0;
  }
  return good;
}

/// Runs `times` times and counts, until no more is left behind than there was. One such round must do, but for the
/// groups of the heap, of which some come and go; what is lost each time makes them ever more, in shorter rounds too.
LiveObjects RunToRest(int times, const std::function<void(int times)>& run) {
  constexpr int kMostTries = 6;
  constexpr int kShorter = 2;
  LiveObjects most = CountLiveObjects();
  for (int tries = 1;; ++tries) {
    run(tries == 1 ? times : times / kShorter);
    const LiveObjects after = CountLiveObjects();
    if (HasGroupedHeap()) most.heapBlocks = std::min(most.heapBlocks, after.heapBlocks);
    if (after == most || tries == kMostTries || !HasGroupedHeap()) {
      EXPECT_EQ(after, most) << "after " << tries;
      return after;
    }
    most.heapBlocks = after.heapBlocks;
  }
}

class DialogSoak : public testing::TestWithParam<Dialog> {};

TEST_P(DialogSoak, LeavesNothingBehind) {
  const Dialog& dialog = GetParam();
  const Ground ground;
  ASSERT_EQ(RunTimes(dialog, ground, kWarmUpRuns), kWarmUpRuns);
  const LiveObjects left = RunToRest(Runs(), [&](int times) { EXPECT_EQ(RunTimes(dialog, ground, times), times); });
  std::cout << Runs() << " runs, then " << left << '\n';
}

INSTANTIATE_TEST_SUITE_P(Each, DialogSoak, testing::ValuesIn(Dialogs()),
                         [](const testing::TestParamInfo<Dialog>& dialog) { return dialog.param.name; });

// ---- the grid

/// One operation, whatever it is, with arguments of which some lie outside.
void Operate(std::mt19937& random, grid_test::Host& host) {
  CvListControl& list = *host.list;
  const auto below = [&random](unsigned bound) { return static_cast<int>(random() % bound); };
  const int row = below(34) - 2;
  const int col = below(6) - 1;
  const std::string text(random() % 24, static_cast<char>('a' + below(26)));
  std::array<char, 386> cell = {};
  switch (random() % 24) {
    case 0:
      return list.SetItemText(row, col, text.c_str());
    case 1:
      return list.GetItemText(row, col, cell.data());
    case 2:
      return list.SetItemColor(row, col, random(), random());
    case 3:
      return list.SetAvailableFlag(row, col, below(2));
    case 4:
      return list.SetErrorFlag(row, col, below(2));
    case 5:
      return list.SetSelectFlag(row, below(2));
    case 7:
      list.AddItem();
      return;
    case 8:
      list.SetSelectFlag(below(12), 1);
      list.InsertItem();
      return;
    case 9:
      list.SetSelectFlag(below(12), 1);
      return list.DeleteItem();
    case 10:
      return list.SetItemCount(below(31));
    case 11:
      return list.ClickItem(row, col);
    case 12:
      return list.SelectItem(row, col);
    case 13:
      return list.SelectItem();
    case 14:
      return list.KeyInput();
    case 15:
      return list.OpenComboBox();
    case 16:
      return list.CloseComboBox();
    case 17:
      return list.SelchangeComboBox(text.c_str());
    case 18:
      return list.DrawItem();
    case 19:
      return list.MessageText(text.c_str());
    case 21:
      return list.SetEdit(grid_test::kName, below(3) - 1, 12, text.c_str());
    case 22:
      ::SendMessageA(host.EditBox().Handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
      return;
    default:
      return list.SetEditMode(col, below(2));
  }
}

void RunOperations(int operations) {
  const auto host = grid_test::Host::Make(grid_test::HostKind::Framework);
  host->Open(grid_test::FillTable);
  // What needs a selected row and finds none says so in a message box.
  const Robot robot({});
  std::mt19937 random(9);
  constexpr int kOperationsOfATable = 500;
  for (int i = 1; i <= operations; ++i) {
    Operate(random, *host);
    if (i % 16 == 0) host->Window()->UpdateWindow();
    if (i % kOperationsOfATable != 0) continue;
    grid_test::FillTable(*host);
    NoteProgress();
  }
  host->Destroy();
}

TEST(Soak, GridOperationsLeaveNothingBehind) {
  const Ground ground;
  RunOperations(kWarmUpOperations);
  const LiveObjects left = RunToRest(GridOperations(), RunOperations);
  std::cout << GridOperations() << " grid operations, then " << left << '\n';
}

}  // namespace
}  // namespace robustness
