#include "platform/framework/detail/message_watch.h"

#include <utility>

#include "platform/framework/detail/window_table.h"

MessageWatch::MessageWatch(Asked asked) : asked_(std::move(asked)) {}

MessageWatch::~MessageWatch() { Release(); }

void MessageWatch::Watch(WindowArg window) {
  Release();
  if (::IsWindow(window.handle) != FALSE) {
    entry_ = framework::WindowTable::Instance().WatchMessages(window.handle, *this);
  }
}

void MessageWatch::Release() noexcept {
  if (entry_ == nullptr) return;
  framework::WindowTable::Instance().UnwatchMessages(entry_, *this);
  entry_.reset();
}

/// The function is copied, as it may end this object.
Handled MessageWatch::Ask(const Message& message) const {
  const Asked asked = asked_;
  return asked(message);
}
