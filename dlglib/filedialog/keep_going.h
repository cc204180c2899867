// Long work that the user can give up.
#pragma once

#include <cstddef>
#include <functional>

namespace filedialog {

/// Asked now and then during long work; false gives it up. Without a function nothing is asked.
using KeepGoing = std::function<bool()>;

/// Counts the steps of a work and asks after each 64th whether to go on: often enough for steps that open a file, and
/// not noticed in steps that do not.
class StepCounter {
 public:
  explicit StepCounter(const KeepGoing& keepGoing) : keepGoing_(keepGoing) {}

  /// To be called after each step; false when the work is given up.
  [[nodiscard]] bool GoesOn() { return ++steps_ % kAskEvery != 0 || !keepGoing_ || keepGoing_(); }

 private:
  static constexpr std::size_t kAskEvery = 64;

  const KeepGoing& keepGoing_;
  std::size_t steps_ = 0;
};

}  // namespace filedialog
