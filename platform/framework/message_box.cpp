#include "platform/framework/message_box.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/framework/detail/thread_slot.h"
#include "platform/framework/detail/wide_text.h"
#include "platform/framework/gdi.h"
#include "platform/framework/window_ref.h"

namespace framework {

namespace {

constexpr int kTextId = 0xFFFF;
constexpr UINT kTextStyle = DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX | DT_EXPANDTABS;

LONG WidthOf(const RECT& rect) { return rect.right - rect.left; }
LONG HeightOf(const RECT& rect) { return rect.bottom - rect.top; }

RECT WindowRect(HWND window) {
  RECT rect{};
  ::GetWindowRect(window, &rect);
  return rect;
}

RECT RectInParent(HWND child) {
  RECT rect = WindowRect(child);
  ::MapWindowPoints(nullptr, ::GetParent(child), reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

RECT WorkArea(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

LONG TextHeight(HWND control, LONG width) {
  const std::wstring text = WideTextOf(control);
  const ClientDc dc(control);
  const Selected font(dc.Get(), reinterpret_cast<HFONT>(::SendMessageW(control, WM_GETFONT, 0, 0)));
  RECT rect{0, 0, width, 0};
  ::DrawTextW(dc.Get(), text.c_str(), static_cast<int>(text.size()), &rect, kTextStyle | DT_CALCRECT);
  return rect.bottom;
}

std::vector<HWND> Buttons(HWND box) {
  std::vector<HWND> buttons;
  for (HWND child = ::GetWindow(box, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    const bool isButton = (::SendMessageW(child, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
    if (isButton && (::GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) != 0) buttons.push_back(child);
  }
  return buttons;
}

/// Moves the buttons as the box becomes narrower by `excess`: systems centre them or put them at its right border.
void MoveButtons(HWND box, LONG excess, LONG down) {
  const std::vector<HWND> buttons = Buttons(box);
  RECT client{};
  ::GetClientRect(box, &client);
  LONG left = client.right;
  LONG right = 0;
  for (const HWND button : buttons) {
    const RECT rect = RectInParent(button);
    left = std::min(left, rect.left);
    right = std::max(right, rect.right);
  }
  const bool isCentred = client.right - right > left / 2;
  for (const HWND button : buttons) {
    const RECT rect = RectInParent(button);
    const LONG to = rect.left - (isCentred ? excess / 2 : excess);
    ::SetWindowPos(button, nullptr, to, rect.top + down, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  }
}

/// Makes a box that is wider than the screen three quarters as wide as it, and as much higher as its text then is.
void FitScreen(HWND box) {
  const HWND text = ::GetDlgItem(box, kTextId);
  const RECT screen = WorkArea(box);
  const RECT frame = WindowRect(box);
  const RECT former = RectInParent(text);
  const LONG excess = WidthOf(frame) - WidthOf(screen) * 3 / 4;
  if (WidthOf(frame) <= WidthOf(screen) || excess >= WidthOf(former)) return;
  ::SetWindowLongPtrW(text, GWL_STYLE, ::GetWindowLongPtrW(text, GWL_STYLE) | SS_EDITCONTROL);
  const LONG height = std::max(HeightOf(former), TextHeight(text, WidthOf(former) - excess));
  const LONG growth = height - HeightOf(former);
  ::SetWindowPos(text, nullptr, 0, 0, WidthOf(former) - excess, height, SWP_NOMOVE | SWP_NOZORDER);
  MoveButtons(box, excess, growth);
  const LONG left = (screen.left + screen.right - (WidthOf(frame) - excess)) / 2;
  const LONG top = std::max(screen.top, frame.top - growth / 2);
  ::SetWindowPos(box, nullptr, left, top, WidthOf(frame) - excess, HeightOf(frame) + growth, SWP_NOZORDER);
}

/// A box that there is no memory to measure stays as the system has made it.
void FitScreenIfPossible(HWND box) noexcept {
  try {
    FitScreen(box);
  } catch (...) {
    return;
  }
}

/// Waits for the box that this thread shows next.
class BoxWatch {
 public:
  BoxWatch() noexcept
      : former_(innermost_.Exchange(this)),
        hook_(::SetWindowsHookExW(WH_CALLWNDPROCRET, &Hook, nullptr, ::GetCurrentThreadId())) {}
  BoxWatch(const BoxWatch&) = delete;
  BoxWatch& operator=(const BoxWatch&) = delete;
  ~BoxWatch() {
    ::UnhookWindowsHookEx(hook_);
    innermost_.Set(former_);
  }

 private:
  // The box has put everything in its place when it has answered this message.
  static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto& answered = *reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    BoxWatch* const watch = innermost_.Get();
    if (code == HC_ACTION && answered.message == WM_INITDIALOG && watch != nullptr && !watch->seen_ &&
        ::GetDlgItem(answered.hwnd, kTextId) != nullptr) {
      watch->seen_ = true;
      FitScreenIfPossible(answered.hwnd);
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
  }

  static const ThreadSlot<BoxWatch> innermost_;

  BoxWatch* former_;
  HHOOK hook_;
  bool seen_ = false;
};

const ThreadSlot<BoxWatch> BoxWatch::innermost_;

}  // namespace

int ShowMessageBox(WindowArg owner, const char* text, const char* caption, UINT type) {
  const std::wstring wideText = ToWide(text != nullptr ? text : "");
  const std::wstring wideCaption = ToWide(caption != nullptr ? caption : "");
  const BoxWatch watch;
  return ::MessageBoxW(owner.handle, wideText.c_str(), caption != nullptr ? wideCaption.c_str() : nullptr, type);
}

}  // namespace framework
