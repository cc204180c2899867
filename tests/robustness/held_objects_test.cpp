// Objects that a screen reader holds while dialogs come and go: each of them is given up with its window, so that the
// program holds no more than before, and goes when the tool lets it go.
#include <gtest/gtest.h>
#include <oleacc.h>
#include <windows.h>

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "dlglib/dlglib.h"
#include "dlglib/filedialog/dialogs/CvMdlTitle.h"
#include "dlglib/resources/resource.h"
#include "tests/robustness/heap_watch.h"
#include "tests/robustness/live_objects.h"
#include "tests/robustness/watchdog.h"
#include "tests/windows/driver/accessible.h"
#include "tests/windows/grid/grid_table.h"

namespace robustness {
namespace {

constexpr std::size_t kObjects = 1000;
constexpr int kDialogs = 20;
constexpr std::size_t kOfEach = kObjects / kDialogs;
constexpr DWORD kPatienceMs = 120'000;  // each object goes by messages between threads: on a busy machine that adds up

/// Controls of a dialog.
using Parts = std::vector<int>;

/// A tool on a thread of its own, in an apartment of its own. Asks the system for its memory and never for that of
/// this program, whose blocks are counted for one thread only.
class Tool {
 public:
  /// The dialog is known by the first of the parts, which objects are taken of; 0 is the dialog itself.
  Tool(DWORD watched, const Parts& parts) : watched_(watched), parts_(parts) {
    thread_ = ::CreateThread(nullptr, 0, &Tool::Run, this, 0, nullptr);
  }
  Tool(const Tool&) = delete;
  Tool& operator=(const Tool&) = delete;
  ~Tool() {
    ::SetEvent(mayEnd_);
    ::WaitForSingleObject(thread_, kPatienceMs);
    for (const HANDLE handle : {thread_, mayEnd_, mayRelease_, released_}) ::CloseHandle(handle);
  }

  /// Closes dialogs from now on, and takes objects of each before.
  void Attend(int dialogs) { ::InterlockedExchange(&dialogs_, dialogs); }
  [[nodiscard]] std::size_t Held() const { return held_; }
  /// How many of the objects say that they are gone; each is let go. What is said comes by this thread's messages.
  [[nodiscard]] std::size_t LetGo() {
    ::SetEvent(mayRelease_);
    const ULONGLONG begun = ::GetTickCount64();
    while (::GetTickCount64() - begun < kPatienceMs) {
      NoteProgress();
      constexpr DWORD kLookMs = 100;
      if (::MsgWaitForMultipleObjects(1, &released_, FALSE, kLookMs, QS_ALLINPUT) == WAIT_OBJECT_0) return gone_;
      MSG message{};
      while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageW(&message);
    }
    return 0;
  }

 private:
  static DWORD WINAPI Run(void* self) {
    static_cast<Tool*>(self)->Run();
    return 0;
  }
  void Run() {
    ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    const std::array<HANDLE, 2> orders = {mayEnd_, mayRelease_};
    constexpr DWORD kLookMs = 2;
    for (DWORD order = WAIT_TIMEOUT; order != WAIT_OBJECT_0;) {
      order = ::WaitForMultipleObjects(2, orders.data(), FALSE, kLookMs);
      if (order == WAIT_OBJECT_0 + 1) Release();
      if (order == WAIT_TIMEOUT) Look();
    }
    ::CoUninitialize();
  }
  void Look() {
    if (dialogs_ == 0) return;
    const HWND dialog = Find();
    if (dialog == nullptr || dialog == last_) return;
    last_ = dialog;
    for (std::size_t part = 0, before = held_; held_ - before < kOfEach; part = (part + 1) % parts_.size()) {
      const std::size_t taken = held_;
      Take(parts_.at(part) != 0 ? ::GetDlgItem(dialog, parts_.at(part)) : dialog, kOfEach - (held_ - before));
      if (held_ == taken) break;
    }
    ::InterlockedDecrement(&dialogs_);
    ::PostMessageW(dialog, WM_CLOSE, 0, 0);
  }
  [[nodiscard]] HWND Find() const {
    struct Search {
      int part;
      HWND found;
    } search = {parts_.front(), nullptr};
    const auto look = [](HWND window, LPARAM data) -> BOOL {
      auto& sought = *reinterpret_cast<Search*>(data);
      const bool isIt = ::IsWindowVisible(window) != FALSE && ::GetDlgItem(window, sought.part) != nullptr;
      if (isIt) sought.found = window;
      return isIt ? FALSE : TRUE;
    };
    ::EnumThreadWindows(watched_, look, reinterpret_cast<LPARAM>(&search));
    return search.found;
  }
  /// A window, with its first part: an object of its own, or a number that is asked about. A control is the system's.
  void Take(HWND window, std::size_t most) {
    void* object = nullptr;
    const auto id = static_cast<DWORD>(OBJID_CLIENT);
    if (::AccessibleObjectFromWindow(window, id, __uuidof(IAccessible), &object) != S_OK) return;
    auto* const whole = static_cast<IAccessible*>(object);
    Keep(whole);
    IDispatch* part = nullptr;
    VARIANT state{};
    static_cast<void>(whole->get_accState(Number(1), &state));
    if (most < 2 || whole->get_accChild(Number(1), &part) != S_OK) return;
    if (part->QueryInterface(__uuidof(IAccessible), &object) == S_OK)
      KeepPart(static_cast<IAccessible*>(object), window);
    part->Release();
  }
  void KeepPart(IAccessible* part, HWND window) {
    HWND itsWindow = nullptr;
    const bool isOfWindow =
        ::WindowFromAccessibleObject(part, &itsWindow) == S_OK && driver::IsSameWindow(itsWindow, window);
    if (isOfWindow) Keep(part);
    if (!isOfWindow) part->Release();
  }
  void Keep(IAccessible* object) {
    if (held_ < objects_.size()) objects_.at(held_++) = object;
  }
  void Release() {
    gone_ = 0;
    for (; held_ > 0; --held_) {
      IAccessible* const object = objects_.at(held_ - 1);
      LONG count = 0;
      if (FAILED(object->get_accChildCount(&count))) ++gone_;
      object->Release();
    }
    ::SetEvent(released_);
  }
  [[nodiscard]] static VARIANT Number(LONG number) {
    VARIANT child{};
    child.vt = VT_I4;
    child.lVal = number;
    return child;
  }

  DWORD watched_;
  const Parts& parts_;
  HANDLE mayEnd_ = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  HANDLE mayRelease_ = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
  HANDLE released_ = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
  HANDLE thread_ = nullptr;
  volatile LONG dialogs_ = 0;
  HWND last_ = nullptr;
  std::array<IAccessible*, kObjects> objects_ = {};
  std::size_t held_ = 0;
  std::size_t gone_ = 0;
};

/// A dialog that the tool closes, and what it holds of it.
struct Dialog {
  std::string name;
  Parts parts;
  std::function<void()> run;
  long exchanged =
      0;  ///< blocks that the browser's workers may have from this thread or give to it, as they are counted
};

void RunTitleChoice() {
  filedialog::SlowSortRule rule{filedialog::SlowSort::AskBeyondLimit, 100};
  filedialog::TitleSlots slots;
  slots.count = 1;
  slots.slots[0].number = 1;
  CvMdlTitle titles(nullptr, rule);
  titles.SetTitles(slots);
  EXPECT_EQ(titles.DoModal(), IDCANCEL);
}

void RunBrowser() {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "C:/windows/*", 0);
  EXPECT_EQ(request.DoModal(), IDCANCEL);
}

void RunGridWithKeys() {
  const auto host = grid_test::Host::Make(grid_test::HostKind::Framework);
  static_cast<void>(host->Run([](grid_test::Host& opened) {
    grid_test::FillTable(opened);
    opened.list->SetKeys(CvListControl::kKeysAll);
  }));
}

void RunToolBar() {
  const auto host = grid_test::Host::Make(grid_test::HostKind::Framework);
  CvUtility utility;
  static_cast<void>(host->Run([&utility](grid_test::Host& opened) {
    constexpr int kAllButtons = 7;
    utility.SetParentWindow(opened.Window());
    utility.SetToolBar(kAllButtons);
  }));
}

std::vector<Dialog> Dialogs() {
  constexpr int kToolBar = 10003;
  return {{"Titles", {IDC_TITLE_LIST}, &RunTitleChoice},
          {"Browser", {IDC_FILE_LIST, 0, IDC_LOCATION}, &RunBrowser, kDialogs - 1},
          {"Grid", {grid_test::kList}, &RunGridWithKeys},
          {"ToolBar", {kToolBar}, &RunToolBar}};
}

void RunDialogs(Tool* tool, const Dialog& dialog) {
  tool->Attend(kDialogs);
  for (int run = 0; run < kDialogs; ++run) {
    NoteProgress();
    dialog.run();
  }
}

[[nodiscard]] DWORD Handles() {
  DWORD count = 0;
  ::GetProcessHandleCount(::GetCurrentProcess(), &count);
  return count;
}

[[nodiscard]] long Blocks() {
  ForgetDeadWindows();
  return LiveBlocks();
}

class HeldObjects : public testing::TestWithParam<Dialog> {};

INSTANTIATE_TEST_SUITE_P(Of, HeldObjects, testing::ValuesIn(Dialogs()),
                         [](const auto& dialog) { return dialog.param.name; });

TEST_P(HeldObjects, AThousandOfThemLeaveNothingBehindWhileDialogsComeAndGo) {
  // With Wine a tool cannot reach a thread that has ended its apartment and begun another one.
  const driver::Com com;
  Tool tool(::GetCurrentThreadId(), GetParam().parts);
  RunDialogs(&tool, GetParam());
  EXPECT_EQ(tool.LetGo(), kObjects);
  const long blocks = Blocks();
  const DWORD handles = Handles();
  RunDialogs(&tool, GetParam());
  EXPECT_EQ(tool.Held(), kObjects);
  EXPECT_NEAR(Blocks(), blocks, GetParam().exchanged) << "while they are held";
  EXPECT_EQ(tool.LetGo(), kObjects) << "all are gone";
  EXPECT_NEAR(Blocks(), blocks, GetParam().exchanged) << "less than one for each dialog";
  EXPECT_LE(Handles(), handles);
}

}  // namespace
}  // namespace robustness
