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

std::vector<std::string> Events::OfParts() const {
  std::vector<std::string> texts;
  for (const Event& event : heard_) {
    const bool isOfAll = event.event == EVENT_OBJECT_REORDER || event.event == EVENT_OBJECT_SELECTIONWITHIN;
    if (event.child != CHILDID_SELF || isOfAll) texts.push_back(TextOf(event));
  }
  return texts;
}

std::string Events::TextOf(const Event& event) {
  static constexpr struct {
    DWORD event;
    const char* name;
  } kNames[] = {{EVENT_OBJECT_CREATE, "CREATE"},
                {EVENT_OBJECT_DESTROY, "DESTROY"},
                {EVENT_OBJECT_REORDER, "REORDER"},
                {EVENT_OBJECT_FOCUS, "FOCUS"},
                {EVENT_OBJECT_SELECTION, "SELECTION"},
                {EVENT_OBJECT_SELECTIONADD, "SELECTIONADD"},
                {EVENT_OBJECT_SELECTIONREMOVE, "SELECTIONREMOVE"},
                {EVENT_OBJECT_SELECTIONWITHIN, "SELECTIONWITHIN"},
                {EVENT_OBJECT_STATECHANGE, "STATECHANGE"},
                {EVENT_OBJECT_VALUECHANGE, "VALUECHANGE"},
                {EVENT_OBJECT_DESCRIPTIONCHANGE, "DESCRIPTIONCHANGE"}};
  const auto* const found = std::ranges::find(kNames, event.event, [](const auto& name) { return name.event; });
  const std::string name = found != std::end(kNames) ? found->name : std::to_string(event.event);
  return event.child == CHILDID_SELF ? name : name + " " + std::to_string(event.child);
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
