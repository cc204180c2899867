// What has to be done at the end of a step, also when an exception ends it.
#pragma once

#include <utility>

/// Calls a function at the end of the scope. It must not throw: where it does, the program ends.
///
///   running_ = true;
///   const AtScopeEnd over([this] { running_ = false; });
template <class Function>
class AtScopeEnd {
 public:
  explicit AtScopeEnd(Function function) noexcept : function_(std::move(function)) {}
  AtScopeEnd(const AtScopeEnd&) = delete;
  AtScopeEnd& operator=(const AtScopeEnd&) = delete;
  ~AtScopeEnd() { function_(); }

 private:
  Function function_;
};

/// Calls `act` and then `afterwards`, which is called as well when `act` throws and may throw itself. What was thrown
/// last goes on.
template <class Act, class Afterwards>
void DoBoth(Act act, Afterwards afterwards) {
  try {
    act();
  } catch (...) {
    afterwards();
    throw;
  }
  afterwards();
}
