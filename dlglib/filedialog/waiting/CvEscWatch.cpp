#include "dlglib/filedialog/waiting/CvEscWatch.h"

namespace {

constexpr ULONGLONG kLookEveryMs = 20;

bool IsRepeat(const MSG& key) { return (HIWORD(key.lParam) & KF_REPEAT) != 0; }

/// Removes what Esc has sent from the front of the queue; true when a press of it was there, not only repeats of an
/// earlier one. A filter by message cannot look behind another key.
bool RemoveFromQueue() {
  bool pressed = false;
  MSG key{};
  const auto peek = [&key](UINT how) {
    constexpr UINT kQueues = PM_QS_INPUT | PM_QS_POSTMESSAGE;
    return ::PeekMessageW(&key, nullptr, WM_KEYDOWN, WM_KEYDOWN, how | kQueues) != FALSE && key.message == WM_KEYDOWN;
  };
  while (peek(PM_NOREMOVE) && key.wParam == VK_ESCAPE && peek(PM_REMOVE)) pressed = pressed || !IsRepeat(key);
  return pressed;
}

}  // namespace

// Asking for the state of the key forgets what was pressed before; what is down still has to come up.
void CvEscWatch::Start(HWND dialog) {
  dialog_ = dialog;
  nextLook_ = 0;
  left_ = Left::Nothing;
  heldBefore_ = ::GetAsyncKeyState(VK_ESCAPE) < 0;
}

bool CvEscWatch::Pressed() {
  if (left_ != Left::Nothing) return true;
  const ULONGLONG now = ::GetTickCount64();
  if (now < nextLook_) return false;
  nextLook_ = now + kLookEveryMs;
  if (RemoveFromQueue()) {
    left_ = Left::Repeats;
  } else if (IsDownSinceLastLook()) {
    left_ = Left::Press;  // it waits behind another key
  }
  return left_ != Left::Nothing;
}

/// Other programs' keys do not count.
bool CvEscWatch::IsDownSinceLastLook() {
  const SHORT state = ::GetAsyncKeyState(VK_ESCAPE);
  if (heldBefore_) {
    heldBefore_ = state < 0;
    return false;
  }
  return state != 0 && framework::IsSameWindow(::GetForegroundWindow(), dialog_);
}

bool CvEscWatch::Takes(const MSG& message) {
  if (Drops(message)) return true;
  if (message.message != WM_KEYDOWN || message.wParam != VK_ESCAPE || IsRepeat(message)) return false;
  left_ = Left::Repeats;
  return true;
}

bool CvEscWatch::Drops(const MSG& message) {
  if (left_ == Left::Nothing || message.wParam != VK_ESCAPE) return false;
  if (message.message == WM_KEYUP) left_ = Left::Nothing;
  if (message.message != WM_KEYDOWN) return false;
  left_ = IsRepeat(message) || left_ == Left::Press ? Left::Repeats : Left::Nothing;
  return left_ == Left::Repeats;
}
