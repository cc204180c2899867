// How fast the browser opens: from DoModal until a folder's files are listed, sorted and painted. Beside it the bare
// find-first/find-next loop over the folder, the system's own open dialog in both of its styles and, for the views with
// icons, a stock list view that is given the same files.
//
//   opening_bench FOLDER             prints the rows; FOLDER holds folders of models: 0, 1000, 10000 and 100000
//   opening_bench FOLDER DIALOG N    opens one dialog once on the folder of N models: "ours", or the system's in the
//   "old"
//                                    or the "explorer" style; answers with the most memory it took, in kilobytes
//   opening_bench FOLDER twice N     opens ours twice; answers with both times in tenths of a millisecond, that of the
//                                    first opening in the upper half
#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <psapi.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bench/find_loop.h"
#include "bench/measure.h"
#include "dlglib/filedialog/window/CvBrowserIcons.h"
#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/resources/resource.h"
#include "platform/suite/crvncontrol.h"

namespace {

using bench::TimeOf;
using bench::Values;

constexpr char kCaption[] = "opening_bench";
constexpr int kOldStyleList = 0x460;
constexpr int kFewFiles = 1000;
constexpr int kManyFiles = 10000;
constexpr int kMostFiles = 100000;
constexpr int kRounds = 7;
constexpr int kLongRounds = 3;  ///< of the system's dialogs, which take seconds to list the largest folder

// ---------------------------------------------------------------------------------------------------------------------
// the dialogs

/// A modal dialog that lists the models of a folder.
struct Dialog {
  std::function<void(const std::string& folder)> run;  ///< answers when the dialog has been closed
  std::function<HWND(HWND dialog)> list;               ///< null until there is one
  UINT count;                                          ///< the message that asks the list for its entries
  UINT last = IDCANCEL;                                ///< the command that is given to it when it is complete
};

void RunOurs(const std::string& folder) {
  std::vector<char> result(256000, '\0');
  filedialog::StartUp startUp;
  startUp.fileBuffer = result.data();
  startUp.capacity = result.size();
  startUp.initialFolder = folder;
  startUp.title = "#BENCH#(*.MDL)";
  startUp.caption = kCaption;
  CvFileDialog(nullptr, startUp).DoModal();
}

UINT_PTR CALLBACK IgnoreAll(HWND, UINT, WPARAM, LPARAM) { return 0; }

/// With a hook a dialog has the style that its flags say, not the system's newest one.
void RunSystem(const std::string& folder, DWORD style) {
  std::vector<char> result(256000, '\0');
  OPENFILENAMEA request = {};
  request.lStructSize = sizeof(request);
  request.lpstrFilter = "models\0*.MDL\0";
  request.lpstrFile = result.data();
  request.nMaxFile = static_cast<DWORD>(result.size());
  request.lpstrInitialDir = folder.c_str();
  request.lpstrTitle = kCaption;
  request.Flags = style | OFN_ENABLEHOOK | OFN_NOCHANGEDIR;
  request.lpfnHook = &IgnoreAll;
  ::GetOpenFileNameA(&request);
}

BOOL CALLBACK TakeListView(HWND window, LPARAM found) {
  std::array<char, 32> name = {};
  ::GetClassNameA(window, name.data(), static_cast<int>(name.size()));
  if (std::string(name.data()) != WC_LISTVIEWA) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

HWND FindListView(HWND dialog) {
  HWND list = nullptr;
  ::EnumChildWindows(dialog, &TakeListView, reinterpret_cast<LPARAM>(&list));
  return list;
}

Dialog Ours() {
  return {&RunOurs, [](HWND dialog) { return ::GetDlgItem(dialog, IDC_FILE_LIST); }, LVM_GETITEMCOUNT};
}
Dialog ExplorerStyle() {
  return {[](const std::string& folder) { RunSystem(folder, OFN_EXPLORER); }, &FindListView, LVM_GETITEMCOUNT};
}
Dialog OldStyle() {
  return {[](const std::string& folder) { RunSystem(folder, 0); },
          [](HWND dialog) { return ::GetDlgItem(dialog, kOldStyleList); }, LB_GETCOUNT};
}

// ---------------------------------------------------------------------------------------------------------------------
// when a dialog is complete

/// Asks the thread that makes it whenever that thread looks at its messages: while it works it does not, and while it
/// waits for a worker the asking would take processor from that. So it asks the less often the longer it takes, within
/// a fiftieth of the time. Closes the dialog that is complete.
class Watch {
 public:
  Watch(const Dialog& dialog, int files) : dialog_(dialog), files_(files) {
    WNDCLASSA wanted = {};
    wanted.lpfnWndProc = &Receive;
    wanted.hInstance = ::GetModuleHandleA(nullptr);
    wanted.lpszClassName = "OpeningWatch";
    ::RegisterClassA(&wanted);
    window_ = ::CreateWindowExA(0, "OpeningWatch", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, wanted.hInstance, this);
    ::SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    asking_ = std::thread([this] {
      constexpr double kStep = 1.0 / 50;
      for (const double start = bench::Seconds(); !complete_;) {
        ::SendMessageA(window_, WM_APP, 0, 0);
        ::Sleep(1 + static_cast<DWORD>(kStep * 1000 * (bench::Seconds() - start)));
      }
    });
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() {
    asking_.join();
    ::DestroyWindow(window_);
  }

  [[nodiscard]] double CompleteAt() const { return completeAt_; }

 private:
  static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_APP) return ::DefWindowProcA(window, message, wParam, lParam);
    reinterpret_cast<Watch*>(::GetWindowLongPtrA(window, GWLP_USERDATA))->Look();
    return 0;
  }
  static BOOL CALLBACK TakeDialog(HWND window, LPARAM found) {
    std::array<char, 32> caption = {};
    ::GetWindowTextA(window, caption.data(), static_cast<int>(caption.size()));
    if (std::string(caption.data()) != kCaption || ::IsWindowVisible(window) == FALSE) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }
  void Look() {
    HWND dialog = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &TakeDialog, reinterpret_cast<LPARAM>(&dialog));
    const HWND list = dialog == nullptr ? nullptr : dialog_.list(dialog);
    if (complete_ || list == nullptr || ::IsWindowVisible(list) == FALSE) return;
    if (::SendMessageA(list, dialog_.count, 0, 0) != files_) return;
    ::RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    ::GdiFlush();
    completeAt_ = bench::Seconds();
    complete_ = true;
    if (dialog_.last != IDCANCEL) ::PostMessageA(dialog, WM_COMMAND, dialog_.last, 0);
    ::PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
  }

  const Dialog& dialog_;
  int files_;
  HWND window_ = nullptr;
  std::thread asking_;
  std::atomic<bool> complete_ = false;
  double completeAt_ = 0;
};

double TimeOfOpening(const Dialog& dialog, const std::string& folder, int files) {
  const Watch watch(dialog, files);
  const double start = bench::Seconds();
  dialog.run(folder);
  return watch.CompleteAt() - start;
}

// ---------------------------------------------------------------------------------------------------------------------
// times

std::string FolderOf(const std::string& root, int files) { return root + "\\" + std::to_string(files); }

/// Of opening one folder.
struct Times {
  Values ours;
  Values findLoop;
  Values leastOpening;  ///< the loop, and ours on the empty folder
  Values oldStyle;
  Values explorerStyle;
};

Times Measure(const std::string& root, int files) {
  const std::string folder = FolderOf(root, files);
  const std::string empty = FolderOf(root, 0);
  const int systemRounds = files == kMostFiles ? kLongRounds : kRounds;
  Times times;
  for (int round = 0; round < kRounds; ++round) {
    times.findLoop.push_back(TimeOf([&] { bench::FindAll(folder); }));
    times.leastOpening.push_back(times.findLoop.back() + TimeOfOpening(Ours(), empty, 0));
    times.ours.push_back(TimeOfOpening(Ours(), folder, files));
    if (round >= systemRounds) continue;
    times.oldStyle.push_back(TimeOfOpening(OldStyle(), folder, files));
    times.explorerStyle.push_back(TimeOfOpening(ExplorerStyle(), folder, files));
  }
  return times;
}

/// Most that ours may be in multiples of each contestant; 0 when nothing is promised.
struct Goals {
  double leastOpening = 0;
  double oldStyle = 0;
  double explorerStyle = 0;
};

Goals GoalsFor(int files) {
  if (files == kMostFiles) return {1.15, 1.0 / 6, 1.0 / 20};
  return {0, files <= kFewFiles ? 1.0 : 0, 0};
}

void PrintTimes(int files, const Times& times) {
  const std::string what = "open " + std::to_string(files) + " files";
  const Goals goals = GoalsFor(files);
  const std::string floor = "find loop";
  if (files > 0) {
    bench::Print(
        {what, "find loop + empty folder", times.ours, times.leastOpening, goals.leastOpening, floor, times.findLoop});
  }
  bench::Print({what, "system, old style", times.ours, times.oldStyle, goals.oldStyle});
  bench::Print({what, "system, explorer style", times.ours, times.explorerStyle, goals.explorerStyle});
}

Values PerFile(Values times, int files) {
  for (double& time : times) time /= files;
  return times;
}

void MeasureFolders(const std::string& root) {
  // What a dialog takes once in a process is not counted.
  for (const Dialog& dialog : {Ours(), OldStyle(), ExplorerStyle()}) TimeOfOpening(dialog, FolderOf(root, 0), 0);
  Values many;
  for (const int files : {0, kFewFiles, kManyFiles, kMostFiles}) {
    const Times times = Measure(root, files);
    PrintTimes(files, times);
    if (files == kManyFiles) many = PerFile(times.ours, files);
    if (files != kMostFiles) continue;
    bench::Print({"open 100000 files, for each file",
                  "ours with 10000 files",
                  PerFile(times.ours, files),
                  many,
                  1.0,
                  {},
                  {},
                  bench::kMicroseconds});
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// views with icons

/// A window with a stock list view that is given the files of a folder one by one, as quickly as it can take them.
void OpenStockList(const std::string& folder, DWORD style) {
  const HINSTANCE module = ::GetModuleHandleA(nullptr);
  const HWND list = ::CreateWindowExA(WS_EX_CLIENTEDGE, WC_LISTVIEWA, "", WS_POPUP | LVS_SHAREIMAGELISTS | style, 0, 0,
                                      520, 260, nullptr, nullptr, module, nullptr);
  const UniqueImageList small = filedialog::MakeImageList(16);
  const UniqueImageList large = filedialog::MakeImageList(32);
  ::SendMessageA(list, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(small.Get()));
  ::SendMessageA(list, LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(large.Get()));
  ::SendMessageA(list, WM_SETREDRAW, FALSE, 0);
  ::SendMessageA(list, LVM_SETITEMCOUNT, kManyFiles, 0);
  bench::FindAll(folder, [list, row = 0](const WIN32_FIND_DATAW& found) mutable {
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iItem = row++;
    item.pszText = const_cast<wchar_t*>(found.cFileName);  // only read
    item.iImage = static_cast<int>(filedialog::EntryKind::File);
    ::SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
  });
  ::SendMessageA(list, LVM_ARRANGE, LVA_DEFAULT, 0);
  ::SendMessageA(list, WM_SETREDRAW, TRUE, 0);
  ::ShowWindow(list, SW_SHOW);
  ::UpdateWindow(list);
  ::GdiFlush();
  ::DestroyWindow(list);
}

/// The browser opens in the view that it was closed in.
void CloseInView(const std::string& root, UINT command) {
  Dialog dialog = Ours();
  dialog.last = command;
  TimeOfOpening(dialog, FolderOf(root, 0), 0);
}

void MeasureViews(const std::string& root) {
  static constexpr struct {
    const char* name;
    UINT command;
    DWORD style;
  } kViews[] = {{"large icons", ID_VIEW_LARGE_ICONS, LVS_ICON},
                {"small icons", ID_VIEW_SMALL_ICONS, LVS_SMALLICON},
                {"list", ID_VIEW_LIST, LVS_LIST}};
  const std::string folder = FolderOf(root, kManyFiles);
  for (const auto& view : kViews) {
    CloseInView(root, view.command);
    bench::Row row{std::string("open 10000 files, ") + view.name, "find loop + stock list", {}, {}};
    for (int round = 0; round < kRounds; ++round) {
      row.theirs.push_back(TimeOf([&] { OpenStockList(folder, view.style); }));
      row.ours.push_back(TimeOfOpening(Ours(), folder, kManyFiles));
    }
    bench::Print(row);
  }
  CloseInView(root, ID_VIEW_DETAILS);
}

// ---------------------------------------------------------------------------------------------------------------------
// memory

double PeakBytes() {
  PROCESS_MEMORY_COUNTERS counters = {};
  ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof(counters));
  return static_cast<double>(counters.PeakWorkingSetSize);
}

int OpenOnce(const std::string& root, const std::string& dialog, int files) {
  const Dialog chosen = dialog == "ours" ? Ours() : dialog == "old" ? OldStyle() : ExplorerStyle();
  TimeOfOpening(chosen, FolderOf(root, files), files);
  return static_cast<int>(PeakBytes() / 1024);
}

/// What a process of its own answers.
DWORD AnswerOf(const std::string& root, const std::string& dialog, int files) {
  std::array<char, MAX_PATH> self = {};
  ::GetModuleFileNameA(nullptr, self.data(), static_cast<DWORD>(self.size()));
  std::string command = std::string(self.data()) + " " + root + " " + dialog + " " + std::to_string(files);
  STARTUPINFOA start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process = {};
  ::CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process);
  ::WaitForSingleObject(process.hProcess, INFINITE);
  DWORD answer = 0;
  ::GetExitCodeProcess(process.hProcess, &answer);
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
  return answer;
}

double PeakOf(const std::string& root, const std::string& dialog, int files) {
  return 1024.0 * AnswerOf(root, dialog, files);
}

void MeasureMemory(const std::string& root) {
  for (const int files : {kManyFiles, kMostFiles}) {
    const std::string what = "most memory, " + std::to_string(files) + " files";
    const Values ours = {PeakOf(root, "ours", files)};
    const auto print = [&](const char* peer, const char* dialog, double goal) {
      bench::Print({what, peer, ours, {PeakOf(root, dialog, files)}, goal, {}, {}, bench::kMegabytes});
    };
    print("system, old style", "old", files == kMostFiles ? 1.0 : 0);
    print("system, explorer style", "explorer", 0);
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// the second time

constexpr double kTenthOfMillisecond = 1e-4;
constexpr int kHalf = 16;  ///< bits

int OpenTwice(const std::string& root, int files) {
  const auto open = [&] {
    return static_cast<int>(TimeOfOpening(Ours(), FolderOf(root, files), files) / kTenthOfMillisecond);
  };
  const int first = open();
  return first << kHalf | open();
}

void MeasureSecondTime(const std::string& root) {
  bench::Row row{"open 0 files, second time", "ours, first time", {}, {}, 0.8};
  for (int round = 0; round < kRounds; ++round) {
    const DWORD both = AnswerOf(root, "twice", 0);
    row.theirs.push_back(kTenthOfMillisecond * (both >> kHalf));
    row.ours.push_back(kTenthOfMillisecond * (both & ((1U << kHalf) - 1)));
  }
  bench::Print(row);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2 && count != 4) return EXIT_FAILURE;
  CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType("#BENCH#", "C:/", "*.MDL", 0));
  const std::string root = arguments[1];
  if (count == 4 && arguments[2] == std::string("twice")) return OpenTwice(root, std::atoi(arguments[3]));
  if (count == 4) return OpenOnce(root, arguments[2], std::atoi(arguments[3]));
  MeasureSecondTime(root);
  MeasureFolders(root);
  MeasureViews(root);
  MeasureMemory(root);
  return EXIT_SUCCESS;
}
