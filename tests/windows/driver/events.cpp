#include "tests/windows/driver/events.h"

#include <algorithm>

namespace driver {

Events::Events(Window window) : window_(window) {
  all_ = this;
  DWORD process = 0;
  ::GetWindowThreadProcessId(window.Handle(), &process);
  hook_ = ::SetWinEventHook(EVENT_OBJECT_CREATE, EVENT_OBJECT_DEFACTIONCHANGE, nullptr, &Events::Hear, process, 0,
                            WINEVENT_OUTOFCONTEXT);
}

Events::~Events() {
  ::UnhookWinEvent(hook_);
  all_ = nullptr;
}

int Events::Count(const User& user, DWORD event, LONG child) {
  user.WaitUntil("an event " + std::to_string(event) + " comes for " + std::to_string(child), [&] {
    Pump();
    return Heard(event, child) > 0;
  });
  user.Settle();
  Pump();
  return Heard(event, child);
}

int Events::Heard(DWORD event, LONG child) const {
  return static_cast<int>(std::ranges::count(heard_, Event{event, child}));
}

int Events::HeardOfAny(DWORD event) const { return static_cast<int>(std::ranges::count(heard_, event, &Event::event)); }

int Events::HeardOfParts() const {
  const auto isOfPart = [](const Event& event) { return event.child != CHILDID_SELF; };
  return static_cast<int>(std::ranges::count_if(heard_, isOfPart));
}

void Events::Forget() {
  Pump();
  heard_.clear();
}

void Events::Pump() {
  MSG message{};
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageW(&message);
}

void CALLBACK Events::Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD) {
  if (all_ == nullptr || !IsSameWindow(window, all_->window_.Handle())) return;
  if (object == OBJID_CLIENT || object == OBJID_WINDOW) all_->heard_.push_back({event, child});
}

}  // namespace driver
