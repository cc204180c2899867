#include "dlglib/filedialog/waiting/CvEscWatch.h"

namespace {

constexpr ULONGLONG kLookEveryMs = 20;

bool IsRepeat(const MSG& key) { return (HIWORD(key.lParam) & KF_REPEAT) != 0; }

/// The first key in the queue; none when there is none. A filter by message cannot look behind another key.
bool PeekKey(MSG* key, UINT how) {
  constexpr UINT kQueues = PM_QS_INPUT | PM_QS_POSTMESSAGE;
  return ::PeekMessageW(key, nullptr, WM_KEYDOWN, WM_KEYDOWN, how | kQueues) != FALSE && key->message == WM_KEYDOWN;
}

bool IsEsc(const MSG& message) { return message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE; }

}  // namespace

/// Asking for the state of the key forgets what was pressed before; what is down still has to come up, and a press that
/// is used up stays so. One that is not in the queue any more has been worked off by another window.
void CvEscWatch::Start(HWND dialog) {
  dialog_ = dialog;
  nextLook_ = 0;
  isPressed_ = false;
  heldBefore_ = ::GetAsyncKeyState(VK_ESCAPE) < 0;
  MSG key{};
  if (left_ == Left::Press && !PeekKey(&key, PM_NOREMOVE)) left_ = Left::Repeats;
}

bool CvEscWatch::Pressed() {
  if (isPressed_) return true;
  const ULONGLONG now = ::GetTickCount64();
  if (now < nextLook_) return false;
  nextLook_ = now + kLookEveryMs;
  RemoveFromQueue();
  if (!isPressed_ && IsDownSinceLastLook()) {
    isPressed_ = true;
    left_ = Left::Press;  // it waits behind another key
  }
  return isPressed_;
}

/// What Esc has sent to the front of the queue.
void CvEscWatch::RemoveFromQueue() {
  MSG key{};
  while (PeekKey(&key, PM_NOREMOVE) && IsEsc(key) && PeekKey(&key, PM_REMOVE)) UseUp(key);
}

/// A press counts unless it is used up already; the repeats of an earlier one never do.
void CvEscWatch::UseUp(const MSG& esc) {
  const bool isOld = Drops(esc) || IsRepeat(esc);
  left_ = Left::Repeats;
  isPressed_ = isPressed_ || !isOld;
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
  if (!IsEsc(message)) return false;
  UseUp(message);
  return true;
}

bool CvEscWatch::Drops(const MSG& message) {
  if (left_ == Left::Nothing || message.wParam != VK_ESCAPE) return false;
  if (message.message == WM_KEYUP) left_ = Left::Nothing;
  if (message.message != WM_KEYDOWN) return false;
  left_ = IsRepeat(message) || left_ == Left::Press ? Left::Repeats : Left::Nothing;
  return left_ == Left::Repeats;
}
