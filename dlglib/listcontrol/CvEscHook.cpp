#include "dlglib/listcontrol/CvEscHook.h"

#include <utility>

#include "platform/framework/detail/thread_slot.h"

namespace {

const framework::ThreadSlot<CvEscHook> firstHook;

}  // namespace

CvEscHook::~CvEscHook() { Unhook(); }

void CvEscHook::Start(Asked asked) {
  asked_ = std::move(asked);
  if (hook_ != nullptr) return;
  hook_ = ::SetWindowsHookExW(WH_GETMESSAGE, &CvEscHook::Hook, nullptr, ::GetCurrentThreadId());
  if (hook_ != nullptr) next_ = firstHook.Exchange(this);
}

void CvEscHook::Stop() noexcept {
  asked_ = nullptr;
  if (!held_) Unhook();
}

void CvEscHook::Unhook() noexcept {
  if (hook_ == nullptr) return;
  ::UnhookWindowsHookEx(std::exchange(hook_, nullptr));
  CvEscHook* const first = firstHook.Get();
  if (first == this) return firstHook.Set(next_);
  CvEscHook** link = &first->next_;
  while (*link != this) link = &(*link)->next_;
  *link = next_;
}

LRESULT CALLBACK CvEscHook::Hook(int code, WPARAM wParam, LPARAM lParam) noexcept {
  auto* const message = reinterpret_cast<MSG*>(lParam);
  const bool fetched = code == HC_ACTION && (wParam & PM_REMOVE) != 0;
  if (fetched && message->wParam == VK_ESCAPE && TakesAny(*message)) message->message = WM_NULL;
  return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

bool CvEscHook::TakesAny(const MSG& message) {
  if (message.message != WM_KEYDOWN && message.message != WM_KEYUP) return false;
  for (CvEscHook* hook = firstHook.Get(); hook != nullptr;) {
    CvEscHook* const next = hook->next_;
    if (hook->Takes(message)) return true;
    hook = next;
  }
  return false;
}

/// Nothing of the object is used once the press has been taken.
bool CvEscHook::Takes(const MSG& message) {
  const bool isDown = message.message == WM_KEYDOWN;
  if (held_) {
    const bool repeats = isDown && (HIWORD(message.lParam) & KF_REPEAT) != 0;
    held_ = repeats;
    if (repeats) return true;
    if (asked_ == nullptr) Unhook();
  }
  if (!isDown || asked_ == nullptr) return false;
  const Asked asked = asked_;
  held_ = true;
  if (asked(message.hwnd)) return true;
  held_ = false;
  return false;
}
