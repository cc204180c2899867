// A question to a device that nobody waits for: it is asked on a worker in the background and answers when it does.
#pragma once

#include <functional>
#include <memory>

#include "platform/os/workers.h"

namespace filedialog {

class BackgroundCall {
 public:
  /// Begins. `ask` owns what it touches, and whatever it throws is dropped: the answer is as it was then. A question at
  /// a site where one hangs begins when that has ended. `answered` is called behind it, on the same thread. Without
  /// workers (null), or when none can be had, both are called here.
  BackgroundCall(os::Workers* workers, os::Site site, std::function<void()> ask, std::function<void()> answered);
  BackgroundCall(const BackgroundCall&) = delete;
  BackgroundCall& operator=(const BackgroundCall&) = delete;
  /// Forgets the question. One that runs goes on without anybody.
  ~BackgroundCall();

  /// Then what it has written can be read.
  [[nodiscard]] bool IsDone() const;
  /// Whether it is done within so many milliseconds.
  [[nodiscard]] bool IsDoneWithin(unsigned milliseconds) const;

 private:
  class Errand;

  os::Workers* workers_;
  std::shared_ptr<Errand> errand_;
};

}  // namespace filedialog
