// A window that waits with a clock of its own, and devices that do not answer.
//
// Calls are made on real workers. Whatever call a test has chosen hangs there until it is released; the clock moves
// only while one hangs, so that nothing depends on how fast the machine is.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "dlglib/filedialog/basics/patience.h"
#include "platform/os/os_scripted.h"
#include "platform/os/work_rules.h"

namespace browser_test {

/// Workers that know how much they still have to do.
class WatchedWorkers final : public os::Workers {
 public:
  bool Begin(std::shared_ptr<os::Errand> errand, os::Site site, os::Urgency urgency) override;
  void Forget(const os::Errand& errand) noexcept override;
  /// Waits until nothing is left that was begun.
  void WaitIdle();
  /// What is under way; what waits behind something that hangs is not.
  [[nodiscard]] int Running() const;
  /// Whether a worker is about to begin what waits: not what waits behind something on its path or device, or for a
  /// free worker.
  [[nodiscard]] bool CouldBegin() const;
  [[nodiscard]] std::size_t Begun() const { return begun_; }

 private:
  struct Job {
    const os::Errand* errand;
    os::Work work;
    bool runs = false;
  };
  struct Count {
    std::mutex lock;
    std::condition_variable changed;
    int left = 0;
    std::vector<Job> jobs;  ///< waiting and running
  };
  class Counted;

  std::shared_ptr<Count> count_ = std::make_shared<Count>();
  std::unique_ptr<os::Workers> workers_ = os::MakeWorkers(nullptr);
  std::vector<std::pair<const os::Errand*, std::weak_ptr<os::Errand>>> names_;
  std::size_t begun_ = 0;
};

/// Workers for which there is no memory any more.
class PoorWorkers final : public os::Workers {
 public:
  explicit PoorWorkers(os::Workers* workers) : workers_(*workers) {}

  bool Begin(std::shared_ptr<os::Errand> errand, os::Site site, os::Urgency urgency) override {
    if (isPoor) throw std::bad_alloc();
    return workers_.Begin(std::move(errand), std::move(site), urgency);
  }
  void Forget(const os::Errand& errand) noexcept override { workers_.Forget(errand); }

  bool isPoor = false;

 private:
  os::Workers& workers_;
};

/// The scripted machine, empty when a test begins and when it has ended. It stands before what watches the machine,
/// which it would forget.
struct EmptyWorld {
  EmptyWorld() { os::scripted::World().Reset(); }
  EmptyWorld(const EmptyWorld&) = delete;
  EmptyWorld& operator=(const EmptyWorld&) = delete;
  ~EmptyWorld() { os::scripted::World().Reset(); }
};

/// Calls of the scripted machine that hang on their workers.
class HangingCalls {
 public:
  HangingCalls();
  HangingCalls(const HangingCalls&) = delete;
  HangingCalls& operator=(const HangingCalls&) = delete;
  ~HangingCalls();

  /// The n-th call from now on that a worker makes hangs; 0: none, they are only counted. With a name only calls of
  /// that name count.
  void HangAt(std::size_t n, const std::string& name = {});
  /// Every call of that name hangs.
  void HangAll(const std::string& name);
  void Release();
  /// Those of one name only.
  void Release(const std::string& name);
  [[nodiscard]] std::size_t Made() const;
  /// The name of the call that hung first.
  [[nodiscard]] std::string Hung() const;
  [[nodiscard]] int HangingNow() const;
  /// Waits until so many calls hang; false: they do not in all the time that a busy machine may need.
  [[nodiscard]] bool WaitHanging(int count);

 private:
  [[nodiscard]] int CountHanging() const;
  void OnCall(const std::string& name);

  std::thread::id owner_ = std::this_thread::get_id();
  mutable std::mutex lock_;
  std::condition_variable released_;
  std::condition_variable hangs_;
  std::size_t made_ = 0;
  std::size_t at_ = 0;
  std::string counted_;
  std::string all_;
  std::string free_;
  std::string hung_;
  std::map<std::string, int> hanging_;  ///< by name; those that are released hang no more, before they wake
  int generation_ = 0;                  ///< of releases
};

class PlayedWait final : public filedialog::WaitingWindow {
 public:
  PlayedWait(const HangingCalls& calls, const WatchedWorkers& workers) : calls_(calls), workers_(workers) {}

  void StartWait() override { gaveUp_ = false; }
  [[nodiscard]] std::int64_t NowMs() const override { return now_; }
  [[nodiscard]] std::function<void()> Waker() override;
  [[nodiscard]] std::function<void()> LateWaker() override { return Waker(); }
  void Pass(std::int64_t milliseconds, filedialog::Through through) override;
  [[nodiscard]] bool GivesUp() override { return gaveUp_; }
  [[nodiscard]] bool IsThere() const override { return isThere; }
  void ShowWait(const std::string& text) override;
  void HideWait() noexcept override { shown_.clear(); }

  /// Happens on the dialog's thread after so many milliseconds of waiting, once the window lets input through.
  void After(std::int64_t milliseconds, std::function<void()> act) {
    acts_.emplace_back(now_ + milliseconds, std::move(act));
  }
  void PressEsc() { gaveUp_ = true; }
  /// Time passes between two waits.
  void Rest(std::int64_t milliseconds) { now_ += milliseconds; }
  /// What the list says now, and all that it has said.
  [[nodiscard]] const std::string& Shown() const { return shown_; }
  [[nodiscard]] const std::vector<std::string>& AllShown() const { return allShown_; }

  std::function<void()> onShown;  ///< the line is there
  std::function<void()> onPass;   ///< time has passed, whether input is let through or not
  bool isThere = true;

 private:
  struct Wake {
    std::mutex lock;
    std::condition_variable changed;
    bool woken = false;
  };
  void RunDue();
  [[nodiscard]] std::int64_t UntilDue() const;
  [[nodiscard]] bool NobodyWorks() const { return workers_.Running() == calls_.HangingNow() && !workers_.CouldBegin(); }

  const HangingCalls& calls_;
  const WatchedWorkers& workers_;
  std::shared_ptr<Wake> wake_ = std::make_shared<Wake>();
  std::int64_t now_ = 1'000'000;
  bool gaveUp_ = false;
  std::string shown_;
  std::vector<std::string> allShown_;
  std::vector<std::pair<std::int64_t, std::function<void()>>> acts_;
};

}  // namespace browser_test
