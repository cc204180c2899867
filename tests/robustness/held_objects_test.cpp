// Objects that a screen reader holds while dialogs come and go: each of them is given up with its window, so that the
// program holds no more than before, and goes when the tool lets it go.
#include <gtest/gtest.h>
#include <oleacc.h>
#include <windows.h>

#include <array>
#include <cstddef>

#include "dlglib/filedialog/dialogs/CvMdlTitle.h"
#include "dlglib/resources/resource.h"
#include "tests/robustness/heap_watch.h"
#include "tests/robustness/live_objects.h"
#include "tests/robustness/watchdog.h"
#include "tests/windows/driver/accessible.h"

namespace robustness {
namespace {

constexpr std::size_t kObjects = 1000;
constexpr int kDialogs = 20;
constexpr std::size_t kOfEach = kObjects / kDialogs;
constexpr DWORD kPatienceMs = 120'000;  // each object goes by messages between threads: on a busy machine that adds up

/// A tool on a thread of its own, in an apartment of its own. Asks the system for its memory and never for that of
/// this program, whose blocks are counted for one thread only.
class Tool {
 public:
  explicit Tool(DWORD watched) : watched_(watched) {
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
    Take(::GetDlgItem(dialog, IDC_TITLE_LIST));
    ::InterlockedDecrement(&dialogs_);
    ::PostMessageW(dialog, WM_CLOSE, 0, 0);
  }
  [[nodiscard]] HWND Find() const {
    HWND found = nullptr;
    const auto look = [](HWND window, LPARAM out) -> BOOL {
      const bool isIt = ::IsWindowVisible(window) != FALSE && ::GetDlgItem(window, IDC_TITLE_LIST) != nullptr;
      if (isIt) *reinterpret_cast<HWND*>(out) = window;
      return isIt ? FALSE : TRUE;
    };
    ::EnumThreadWindows(watched_, look, reinterpret_cast<LPARAM>(&found));
    return found;
  }
  /// The list again and again; each time with its first row, which is an object of its own.
  void Take(HWND list) {
    for (std::size_t taken = 0; taken < kOfEach; taken += 2) {
      void* object = nullptr;
      const auto id = static_cast<DWORD>(OBJID_CLIENT);
      if (::AccessibleObjectFromWindow(list, id, __uuidof(IAccessible), &object) != S_OK) return;
      auto* const whole = static_cast<IAccessible*>(object);
      Keep(whole);
      IDispatch* row = nullptr;
      if (whole->get_accChild(Number(1), &row) != S_OK) return;
      if (row->QueryInterface(__uuidof(IAccessible), &object) == S_OK) Keep(static_cast<IAccessible*>(object));
      row->Release();
    }
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

void RunDialogs(Tool* tool, int dialogs) {
  tool->Attend(dialogs);
  for (int run = 0; run < dialogs; ++run) {
    NoteProgress();
    filedialog::SlowSortRule rule{filedialog::SlowSort::AskBeyondLimit, 100};
    filedialog::TitleSlots slots;
    slots.count = 1;
    slots.slots[0].number = 1;
    CvMdlTitle titles(nullptr, rule);
    titles.SetTitles(slots);
    EXPECT_EQ(titles.DoModal(), IDCANCEL);
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

TEST(HeldObjects, AThousandOfThemLeaveNothingBehindWhileDialogsComeAndGo) {
  // With Wine a tool cannot reach a thread that has ended its apartment and begun another one.
  const driver::Com com;
  Tool tool(::GetCurrentThreadId());
  RunDialogs(&tool, kDialogs);
  EXPECT_EQ(tool.LetGo(), kObjects);
  const long blocks = Blocks();
  const DWORD handles = Handles();
  RunDialogs(&tool, kDialogs);
  EXPECT_EQ(tool.Held(), kObjects);
  EXPECT_EQ(Blocks(), blocks) << "while they are held";
  EXPECT_EQ(tool.LetGo(), kObjects) << "all are gone";
  EXPECT_EQ(Blocks(), blocks);
  EXPECT_LE(Handles(), handles);
}

}  // namespace
}  // namespace robustness
