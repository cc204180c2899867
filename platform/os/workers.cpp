#include "platform/os/workers.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <new>
#include <span>
#include <utility>
#include <vector>

#include "platform/os/lock.h"
#include "platform/os/work_rules.h"
#include "platform/os/worker_thread.h"

namespace os {
namespace {

/// How long a worker without work stays, so that the calls of one listing need no new thread each.
constexpr unsigned kIdleMs = 2000;

/// What somebody waits for comes first.
constexpr std::array kInOrder = {Urgency::Awaited, Urgency::Background};

struct Job {
  std::shared_ptr<Errand> errand;
  Work work;
};

struct Running {
  const Errand* errand;  ///< null once it has run: another one may have its address then
  Work work;
  ThreadName thread;
  const ThreadTask* worker;
};

/// What runs, and what would beside it. Needs no memory.
class Beside {
 public:
  explicit Beside(const std::vector<Running>& running) {
    for (const Running& other : running) Add(other.work);
  }
  void Add(const Work& work) { works_[count_++] = &work; }
  [[nodiscard]] bool HasRoomFor(const Work& work) const {
    return count_ < works_.size() && MayBegin(work, std::span(works_).first(count_));
  }

 private:
  std::array<const Work*, kMostWorkers> works_{};
  std::size_t count_ = 0;
};

/// What the workers share; lives as long as the last of them.
struct Board {
  Lock lock;
  Signal changed;
  std::vector<Job> waiting;  ///< oldest first
  std::vector<Running> running;
  const void* library = nullptr;  ///< held by each thread
  std::size_t threads = 0;
  bool closed = false;

  // All of these with the lock held.

  /// The oldest of the most urgent ones that may begin.
  [[nodiscard]] std::vector<Job>::iterator Next() {
    const Beside beside(running);
    for (const Urgency urgency : kInOrder) {
      const auto next = std::find_if(waiting.begin(), waiting.end(), [&](const Job& job) {
        return job.work.urgency == urgency && beside.HasRoomFor(job.work);
      });
      if (next != waiting.end()) return next;
    }
    return waiting.end();
  }
  /// How many could begin now, side by side.
  [[nodiscard]] std::size_t Ready() const {
    Beside beside(running);
    std::size_t ready = 0;
    for (const Urgency urgency : kInOrder) {
      for (const Job& job : waiting) {
        if (job.work.urgency != urgency || !beside.HasRoomFor(job.work)) continue;
        beside.Add(job.work);
        ++ready;
      }
    }
    return ready;
  }
  /// Threads without work, or on their way.
  [[nodiscard]] std::size_t Free() const { return threads - running.size(); }
  [[nodiscard]] bool LacksThread() const { return !closed && threads < kMostWorkers && Ready() > Free(); }
};

/// Starts a thread for a worker, which may be null for want of memory.
bool StartWorker(Board& board, std::unique_ptr<ThreadTask> worker) noexcept {
  if (worker == nullptr || !StartThread(std::move(worker), board.library)) return false;
  ++board.threads;
  return true;
}

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
    // There is room: whoever made the board has seen to it.
    board_->running.push_back({errand.get(), std::move(next->work), ThisThread(), this});
    board_->waiting.erase(next);
    held->unlock();
    errand->Run();
    held->lock();
    Own()->errand = nullptr;
    held->unlock();
    errand.reset();  // may take long: it lets go what it has held
    held->lock();
    board_->running.erase(Own());
    GetHelp();
    board_->changed.NotifyAll();
    return true;
  }

  /// What this worker runs.
  [[nodiscard]] std::vector<Running>::iterator Own() {
    return std::ranges::find(board_->running, static_cast<const ThreadTask*>(this), &Running::worker);
  }

  /// The end of an errand may let more than one begin.
  void GetHelp() {
    if (!board_->LacksThread()) return;
    StartWorker(*board_, std::unique_ptr<ThreadTask>(new (std::nothrow) Worker(board_)));
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
  explicit ThreadedWorkers(const void* library) : board_(std::make_shared<Board>()) {
    board_->running.reserve(kMostWorkers);
    board_->library = library;
  }
  ThreadedWorkers(const ThreadedWorkers&) = delete;
  ThreadedWorkers& operator=(const ThreadedWorkers&) = delete;
  ~ThreadedWorkers() override {
    const std::lock_guard<Lock> held(board_->lock);
    board_->closed = true;
    board_->changed.NotifyAll();
  }

  bool Begin(std::shared_ptr<Errand> errand, Site site, Urgency urgency) override {
    auto worker = std::make_unique<Worker>(board_);
    const Errand* const name = errand.get();
    const std::lock_guard<Lock> held(board_->lock);
    board_->waiting.push_back({std::move(errand), {std::move(site), urgency}});
    const std::size_t free = board_->Free();
    if (board_->LacksThread() && !StartWorker(*board_, std::move(worker)) && free == 0) {
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
  std::shared_ptr<Board> board_;
};

}  // namespace

std::unique_ptr<Workers> MakeWorkers(const void* library) { return std::make_unique<ThreadedWorkers>(library); }

}  // namespace os
