#include "platform/os/workers.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/os/lock.h"
#include "platform/os/worker_thread.h"

namespace os {
namespace {

/// How long a worker without work stays, so that the calls of one listing need no new thread each.
constexpr unsigned kIdleMs = 2000;

struct Job {
  std::shared_ptr<Errand> errand;
  std::string path;
  Urgency urgency = Urgency::Awaited;
};

struct Running {
  const Errand* errand;
  std::string path;
  Urgency urgency;
  ThreadName thread;
};

/// What the workers share; lives as long as the last of them.
struct Board {
  Lock lock;
  Signal changed;
  std::vector<Job> waiting;  ///< oldest first
  std::vector<Running> running;
  std::size_t threads = 0;
  bool closed = false;

  // All of these with the lock held.
  [[nodiscard]] std::size_t FreeForBackground() const {
    const auto inBackground = [](const Running& other) { return other.urgency == Urgency::Background; };
    const auto background = std::count_if(running.begin(), running.end(), inBackground);
    return kMostInBackground - static_cast<std::size_t>(background);
  }
  [[nodiscard]] bool MayRun(const Job& job) const {
    const auto onPath = [&job](const Running& other) { return !job.path.empty() && other.path == job.path; };
    if (std::any_of(running.begin(), running.end(), onPath)) return false;
    return job.urgency == Urgency::Awaited || FreeForBackground() > 0;
  }
  /// What somebody waits for comes first.
  [[nodiscard]] std::vector<Job>::iterator Next() {
    const auto awaited = std::find_if(waiting.begin(), waiting.end(), [this](const Job& job) {
      return job.urgency == Urgency::Awaited && MayRun(job);
    });
    if (awaited != waiting.end()) return awaited;
    return std::find_if(waiting.begin(), waiting.end(), [this](const Job& job) { return MayRun(job); });
  }
  /// How many could begin now, side by side.
  [[nodiscard]] std::size_t Ready() const {
    const auto ready = [this](Urgency urgency) {
      const auto may = [this, urgency](const Job& job) { return job.urgency == urgency && MayRun(job); };
      return static_cast<std::size_t>(std::count_if(waiting.begin(), waiting.end(), may));
    };
    return ready(Urgency::Awaited) + std::min(ready(Urgency::Background), FreeForBackground());
  }
};

/// One worker: runs what is ready, waits a while for more, ends.
class Worker final : public ThreadTask {
 public:
  explicit Worker(std::shared_ptr<Board> board) : board_(std::move(board)) {}

  void Run() noexcept override {
    std::unique_lock<Lock> held(board_->lock);
    while (RunNext(&held) || WaitForMore()) {
    }
    --board_->threads;
  }

 private:
  /// False when nothing is ready.
  bool RunNext(std::unique_lock<Lock>* held) {
    const auto next = board_->Next();
    if (next == board_->waiting.end()) return false;
    std::shared_ptr<Errand> errand = std::move(next->errand);
    // There is room: Begin has seen to it.
    board_->running.push_back({errand.get(), std::move(next->path), next->urgency, ThisThread()});
    board_->waiting.erase(next);
    const Errand* const name = errand.get();
    held->unlock();
    errand->Run();
    errand.reset();
    held->lock();
    std::erase_if(board_->running, [name](const Running& other) { return other.errand == name; });
    board_->changed.NotifyAll();
    return true;
  }

  [[nodiscard]] bool WaitForMore() {
    if (board_->closed) return false;
    const bool woken = board_->changed.WaitFor(board_->lock, kIdleMs);
    return woken || board_->Ready() > 0;
  }

  std::shared_ptr<Board> board_;
};

class ThreadedWorkers final : public Workers {
 public:
  explicit ThreadedWorkers(const void* library) : library_(library), board_(std::make_shared<Board>()) {
    board_->running.reserve(kMostWorkers);
  }
  ThreadedWorkers(const ThreadedWorkers&) = delete;
  ThreadedWorkers& operator=(const ThreadedWorkers&) = delete;
  ~ThreadedWorkers() override {
    const std::lock_guard<Lock> held(board_->lock);
    board_->closed = true;
    board_->changed.NotifyAll();
  }

  bool Begin(std::shared_ptr<Errand> errand, std::string path, Urgency urgency) override {
    auto worker = std::make_unique<Worker>(board_);
    const Errand* const name = errand.get();
    const std::lock_guard<Lock> held(board_->lock);
    board_->waiting.push_back({std::move(errand), std::move(path), urgency});
    const std::size_t free = board_->threads - board_->running.size();  // idle, or on their way
    const bool lacksWorker = board_->Ready() > free && board_->threads < kMostWorkers;
    if (lacksWorker && !Start(std::move(worker)) && free == 0) {
      std::erase_if(board_->waiting, [name](const Job& job) { return job.errand.get() == name; });
      return false;
    }
    board_->changed.NotifyAll();
    return true;
  }

  void Forget(const Errand& errand) noexcept override {
    std::shared_ptr<Errand> dropped;  // goes without the lock: it may hold what takes long to let go
    const std::lock_guard<Lock> held(board_->lock);
    const auto waits = std::find_if(board_->waiting.begin(), board_->waiting.end(),
                                    [&errand](const Job& job) { return job.errand.get() == &errand; });
    if (waits != board_->waiting.end()) {
      dropped = std::move(waits->errand);
      board_->waiting.erase(waits);
      return;
    }
    for (const Running& other : board_->running) {
      if (other.errand == &errand) CancelCall(other.thread);
    }
  }

 private:
  [[nodiscard]] bool Start(std::unique_ptr<Worker> worker) noexcept {
    if (!StartThread(std::move(worker), library_)) return false;
    ++board_->threads;
    return true;
  }

  const void* library_;
  std::shared_ptr<Board> board_;
};

}  // namespace

std::unique_ptr<Workers> MakeWorkers(const void* library) { return std::make_unique<ThreadedWorkers>(library); }

}  // namespace os
