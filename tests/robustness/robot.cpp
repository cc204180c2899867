#include "tests/robustness/robot.h"

#include <commctrl.h>

#include <array>
#include <cstdio>
#include <new>
#include <string_view>
#include <utility>

#include "dlglib/resources/resource.h"
#include "tests/robustness/watchdog.h"
#include "tests/windows/driver/window.h"

namespace robustness {
namespace {

constexpr UINT kTick = WM_APP + 100;
constexpr int kPatience = 20;  // ticks
constexpr int kLongest = 5000;
constexpr UINT_PTR kPause = 1;
constexpr int kMessageText = 0xFFFF;

bool IsOfClass(HWND window, std::string_view name) {
  std::array<char, 32> found = {};
  ::GetClassNameA(window, found.data(), static_cast<int>(found.size()));
  return found.data() == name;
}

/// The dialog that takes input; a balloon, which has no controls, is none.
HWND FrontDialog() {
  HWND front = nullptr;
  const auto look = [](HWND window, LPARAM found) -> BOOL {
    const bool takesInput = ::IsWindowVisible(window) != FALSE && ::IsWindowEnabled(window) != FALSE;
    if (!takesInput || !IsOfClass(window, "#32770") || ::GetWindow(window, GW_CHILD) == nullptr) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  };
  ::EnumThreadWindows(::GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&front));
  return front;
}

bool AnyDialogHas(int control) {
  std::pair<int, bool> search{control, false};
  const auto look = [](HWND window, LPARAM data) -> BOOL {
    auto& [id, found] = *reinterpret_cast<std::pair<int, bool>*>(data);
    found = found || (::IsWindowVisible(window) != FALSE && ::GetDlgItem(window, id) != nullptr);
    return TRUE;
  };
  ::EnumThreadWindows(::GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&search));
  return search.second;
}

bool MenuIsOpen() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) != FALSE && (info.flags & GUI_INMENUMODE) != 0;
}

/// A browser that reads says so in the text of its list, and lets input through: a step would give the reading up.
bool IsReading(HWND dialog) {
  std::array<wchar_t, 2> text = {};
  return ::InternalGetWindowText(::GetDlgItem(dialog, IDC_FILE_LIST), text.data(), 2) > 0;
}

int FirstButton(HWND box) {
  for (const int id : {IDYES, IDOK, IDRETRY, IDCANCEL}) {
    if (::GetDlgItem(box, id) != nullptr) return id;
  }
  return IDCANCEL;
}

}  // namespace

Robot::Robot(std::vector<Step> steps) : steps_(std::move(steps)) {
  NoteProgress();
  window_ = ::CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  ::SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  ::SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Robot::Receive));
  ::PostMessageA(window_, kTick, 0, 0);
}

Robot::~Robot() {
  ::DestroyWindow(window_);
  MSG message{};
  while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageA(&message);
}

LRESULT CALLBACK Robot::Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kTick && message != WM_TIMER) return ::DefWindowProcA(window, message, wParam, lParam);
  auto* const robot = reinterpret_cast<Robot*>(::GetWindowLongPtrA(window, GWLP_USERDATA));
  if (message == kTick) robot->posted_ = false;
  // A step may run a loop of its own, a message box's, which is answered by the timer.
  ::SetTimer(window, kPause, USER_TIMER_MINIMUM, nullptr);
  const bool busy = robot->Tick();
  if (busy && !std::exchange(robot->posted_, true)) ::PostMessageA(window, kTick, 0, 0);
  return 0;
}

/// False when there was nothing to do: a dialog is shown only when its loop has nothing else to do.
bool Robot::Tick() {
  NoteProgress();
  if (++left_ > kLongest) {
    std::fprintf(stderr, "stuck at step %zu\n%s\n", next_, driver::DescribeWindows(::GetCurrentProcessId()).c_str());
    std::fflush(stderr);
    ::TerminateProcess(::GetCurrentProcess(), kHangExitCode);
  }
  if (MenuIsOpen()) {
    ::EndMenu();
    return true;
  }
  const HWND front = FrontDialog();
  if (front == nullptr || IsReading(front)) return false;
  Act(front);
  return true;
}

void Robot::Act(HWND front) {
  if (::GetDlgItem(front, kMessageText) != nullptr) {
    ::PostMessageA(front, WM_COMMAND, static_cast<WPARAM>(FirstButton(front)), 0);
    return;
  }
  if (next_ == steps_.size()) {
    if (++idle_ % kPatience == 0) Press(front, IDCANCEL);
    return;
  }
  const Step& step = steps_[next_];
  if (::GetDlgItem(front, step.control) == nullptr) return Wait(front, step);
  ::RedrawWindow(front, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  ++next_;
  ++done_;
  idle_ = 0;
  try {
    step.act(front);
  } catch (const std::bad_alloc&) {  // as any application's handler does: nothing passes through the system's frames
    return;
  }
}

void Robot::Wait(HWND front, const Step& step) {
  if (++idle_ < kPatience) return;
  idle_ = 0;
  if (AnyDialogHas(step.control)) {
    Press(front, IDCANCEL);
  } else {
    ++next_;
  }
}

void Press(HWND dialog, int id) { ::PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(id), 0); }

void Notify(HWND dialog, int id, UINT code) {
  ::SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(::GetDlgItem(dialog, id)));
}

void SetText(HWND dialog, int id, const std::string& text) {
  ::SetDlgItemTextA(dialog, id, text.c_str());
  ::UpdateWindow(dialog);
}

void ClickRow(HWND list, int row) {
  RECT label{};
  label.left = LVIR_LABEL;
  if (row < 0 || ::SendMessageA(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&label)) == 0)
    return;
  const LPARAM at = MAKELPARAM(label.left + 4, (label.top + label.bottom) / 2);
  ::PostMessageA(list, WM_LBUTTONUP, 0, at);
  ::SendMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
}

int FindRow(HWND list, const std::string& name) {
  const auto count = static_cast<int>(::SendMessageA(list, LVM_GETITEMCOUNT, 0, 0));
  for (int row = 0; row < count; ++row) {
    std::array<char, 300> text = {};
    LVITEMA item{};
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    ::SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    if (name == text.data()) return row;
  }
  return -1;
}

}  // namespace robustness
