#include "dlglib/filedialog/CvEscWatch.h"

namespace {

constexpr ULONGLONG kLookEveryMs = 20;

/// Takes the key presses of Esc from the front of the queue. A filter by message cannot look behind another key.
bool TakeFromQueue() {
  bool taken = false;
  MSG key{};
  const auto peek = [&key](UINT how) {
    constexpr UINT kQueues = PM_QS_INPUT | PM_QS_POSTMESSAGE;
    return ::PeekMessageA(&key, nullptr, WM_KEYDOWN, WM_KEYDOWN, how | kQueues) != FALSE && key.message == WM_KEYDOWN;
  };
  while (peek(PM_NOREMOVE) && key.wParam == VK_ESCAPE && peek(PM_REMOVE)) taken = true;
  return taken;
}

}  // namespace

// Asking for the state of the key forgets what was pressed before.
void CvEscWatch::Start(HWND dialog) {
  dialog_ = dialog;
  nextLook_ = 0;
  left_ = Left::Nothing;
  ::GetAsyncKeyState(VK_ESCAPE);
}

bool CvEscWatch::Pressed() {
  const ULONGLONG now = ::GetTickCount64();
  if (now < nextLook_) return false;
  nextLook_ = now + kLookEveryMs;
  if (TakeFromQueue()) {
    left_ = Left::Repeats;
  } else if (IsDownSinceLastLook()) {
    left_ = Left::Press;  // it waits behind another key
  }
  return left_ != Left::Nothing;
}

/// Other programs' keys do not count.
bool CvEscWatch::IsDownSinceLastLook() const {
  return ::GetAsyncKeyState(VK_ESCAPE) != 0 && framework::IsSameWindow(::GetForegroundWindow(), dialog_);
}

bool CvEscWatch::Takes(const MSG& message) {
  if (left_ == Left::Nothing || message.wParam != VK_ESCAPE) return false;
  if (message.message == WM_KEYUP) left_ = Left::Nothing;
  if (message.message != WM_KEYDOWN) return false;
  const bool repeats = (HIWORD(message.lParam) & KF_REPEAT) != 0;
  left_ = repeats || left_ == Left::Press ? Left::Repeats : Left::Nothing;
  return left_ == Left::Repeats;
}
