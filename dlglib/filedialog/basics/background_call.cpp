#include "dlglib/filedialog/basics/background_call.h"

#include <atomic>
#include <mutex>
#include <utility>

#include "platform/os/lock.h"

namespace filedialog {

class BackgroundCall::Errand final : public os::Errand {
 public:
  Errand(std::function<void()> ask, std::function<void()> answered)
      : ask_(std::move(ask)), answered_(std::move(answered)) {}

  void Run() noexcept override {
    try {
      ask_();
    } catch (...) {
      // Without memory nothing is known.
    }
    {
      const std::lock_guard<os::Lock> held(lock_);
      isDone_ = true;
      changed_.NotifyAll();
    }
    answered_();
  }
  [[nodiscard]] bool IsDone() const { return isDone_; }
  /// A signal that comes for no reason begins the time anew.
  [[nodiscard]] bool IsDoneWithin(unsigned milliseconds) {
    const std::lock_guard<os::Lock> held(lock_);
    while (!isDone_ && changed_.WaitFor(lock_, milliseconds)) {
    }
    return isDone_;
  }

 private:
  std::function<void()> ask_;
  std::function<void()> answered_;
  os::Lock lock_;
  os::Signal changed_;
  std::atomic<bool> isDone_ = false;
};

BackgroundCall::BackgroundCall(os::Workers* workers, os::Site site, std::function<void()> ask,
                               std::function<void()> answered)
    : workers_(workers), errand_(std::make_shared<Errand>(std::move(ask), std::move(answered))) {
  const bool begun = workers != nullptr && workers->Begin(errand_, std::move(site), os::Urgency::Background);
  if (!begun) errand_->Run();
}

BackgroundCall::~BackgroundCall() {
  if (workers_ != nullptr && !IsDone()) workers_->Forget(*errand_);
}

bool BackgroundCall::IsDone() const { return errand_->IsDone(); }

bool BackgroundCall::IsDoneWithin(unsigned milliseconds) const { return errand_->IsDoneWithin(milliseconds); }

}  // namespace filedialog
