#include "tests/windows/driver/on_thread.h"

#include <atomic>

namespace driver {

namespace {

/// The hook of a thread is told nothing else, so there is one at a time.
const std::function<void()>* theAction = nullptr;
std::atomic<bool> isDone;

UINT DoMessage() {
  static const UINT message = ::RegisterWindowMessageW(L"corvane.driver.do");
  return message;
}

LRESULT CALLBACK Hear(int code, WPARAM removal, LPARAM lParam) {
  const auto& message = *reinterpret_cast<const MSG*>(lParam);
  if (code == HC_ACTION && removal == PM_REMOVE && message.message == DoMessage() && !isDone) {
    try {
      (*theAction)();
    } catch (...) {
    }
    isDone = true;
  }
  return ::CallNextHookEx(nullptr, code, removal, lParam);
}

}  // namespace

void DoOnThreadOf(const User& user, Window window, const std::function<void()>& action) {
  theAction = &action;
  isDone = false;
  const DWORD thread = ::GetWindowThreadProcessId(window.Handle(), nullptr);
  const HHOOK hook = ::SetWindowsHookExW(WH_GETMESSAGE, &Hear, nullptr, thread);
  ::PostMessageW(window.Handle(), DoMessage(), 0, 0);
  user.WaitUntil("it is done on the window's thread", [] { return isDone.load(); });
  ::UnhookWindowsHookEx(hook);
}

}  // namespace driver
