// A device of the scripted machine that does not answer.
#pragma once

#include <atomic>
#include <string>
#include <utility>

#include "platform/framework/win32.h"
#include "platform/os/os_scripted.h"

namespace driver {

/// Calls of one name hang on the workers that make them until they are let go. Whoever goes lets them go first, so that
/// none outlives the test.
class HangingCalls {
 public:
  explicit HangingCalls(std::string name) {
    os::scripted::World().calls.Watch([this, name = std::move(name)](const std::string& call) {
      if (call != name || isFree_) return;
      ++now_;
      while (!isFree_) ::Sleep(1);
      --now_;
    });
  }
  HangingCalls(const HangingCalls&) = delete;
  HangingCalls& operator=(const HangingCalls&) = delete;
  ~HangingCalls() {
    LetGo();
    os::scripted::World().calls.Watch({});
  }

  void LetGo() {
    isFree_ = true;
    while (now_ > 0) ::Sleep(1);
  }
  [[nodiscard]] int Now() const { return now_; }

 private:
  std::atomic<bool> isFree_ = false;
  std::atomic<int> now_ = 0;
};

}  // namespace driver
