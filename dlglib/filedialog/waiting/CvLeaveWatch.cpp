#include "dlglib/filedialog/waiting/CvLeaveWatch.h"

#include "platform/framework/window_handle.h"

namespace {

constexpr ULONGLONG kLookEveryMs = 20;
constexpr WPARAM kSystemCommand = 0xFFF0;  ///< the lowest four bits are the system's own

/// The first message of that kind in the queue. It stays there.
bool Peek(HWND window, UINT id, MSG* message) {
  constexpr UINT kQueues = PM_QS_INPUT | PM_QS_POSTMESSAGE;
  return ::PeekMessageW(message, window, id, id, PM_NOREMOVE | kQueues) != FALSE;
}

bool IsDown(int key) { return ::GetAsyncKeyState(key) < 0; }

}  // namespace

void CvLeaveWatch::Start(HWND dialog) {
  dialog_ = dialog;
  nextLook_ = ::GetTickCount64() + kLookEveryMs;  // what answers at once asks nothing
  hasBegun_ = false;
}

bool CvLeaveWatch::HasBegun() {
  const ULONGLONG now = ::GetTickCount64();
  if (hasBegun_ || dialog_ == nullptr || now < nextLook_) return hasBegun_;
  nextLook_ = now + kLookEveryMs;
  hasBegun_ = IsInQueue();
  return hasBegun_;
}

/// Alt+F4 lies behind the press of Alt alone, where nobody can look; so the keys are asked. Whatever else holds both of
/// them down lets messages through a little early.
bool CvLeaveWatch::IsInQueue() const {
  MSG message{};
  const bool isCommand = Peek(dialog_, WM_SYSCOMMAND, &message) && message.message == WM_SYSCOMMAND;
  if (isCommand && (message.wParam & kSystemCommand) == SC_CLOSE) return true;
  if (Peek(dialog_, WM_CLOSE, &message)) return true;  // one to end the program comes whatever is looked for
  if (IsPressed(WM_LBUTTONDOWN) || IsPressed(WM_NCLBUTTONDOWN)) return true;
  return IsDown(VK_MENU) && IsDown(VK_F4) && framework::IsSameWindow(::GetForegroundWindow(), dialog_);
}

bool CvLeaveWatch::IsPressed(UINT press) const {
  MSG message{};
  if (!Peek(nullptr, press, &message) || message.message != press) return false;
  if (press == WM_NCLBUTTONDOWN) return message.wParam == HTCLOSE && framework::IsSameWindow(message.hwnd, dialog_);
  return framework::IsSameWindow(message.hwnd, ::GetDlgItem(dialog_, IDCANCEL));
}
