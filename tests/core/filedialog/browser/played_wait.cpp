#include "tests/core/filedialog/browser/played_wait.h"

#include <algorithm>
#include <limits>

namespace browser_test {

// ---------------------------------------------------------------------------------------------------------------------
// workers

class WatchedWorkers::Counted final : public os::Errand {
 public:
  Counted(std::shared_ptr<os::Errand> errand, os::Work work, std::shared_ptr<Count> count)
      : errand_(std::move(errand)), count_(std::move(count)) {
    const std::lock_guard<std::mutex> held(count_->lock);
    ++count_->left;
    count_->jobs.push_back({this, std::move(work)});
  }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  ~Counted() override {
    errand_.reset();
    const std::lock_guard<std::mutex> held(count_->lock);
    std::erase_if(count_->jobs, [this](const Job& job) { return job.errand == this; });
    --count_->left;
    count_->changed.notify_all();
  }
  void Run() noexcept override {
    {
      const std::lock_guard<std::mutex> held(count_->lock);
      std::ranges::find(count_->jobs, this, &Job::errand)->runs = true;
    }
    errand_->Run();
    const std::lock_guard<std::mutex> held(count_->lock);
    std::erase_if(count_->jobs, [this](const Job& job) { return job.errand == this; });
  }

 private:
  std::shared_ptr<os::Errand> errand_;
  std::shared_ptr<Count> count_;
};

bool WatchedWorkers::Begin(std::shared_ptr<os::Errand> errand, os::Site site, os::Urgency urgency) {
  ++begun_;
  const os::Errand* const name = errand.get();
  const auto counted = std::make_shared<Counted>(std::move(errand), os::Work{site, urgency}, count_);
  std::erase_if(names_, [](const auto& known) { return known.second.expired(); });
  names_.emplace_back(name, counted);
  return workers_->Begin(counted, std::move(site), urgency);
}

void WatchedWorkers::Forget(const os::Errand& errand) noexcept {
  for (const auto& [name, counted] : names_) {
    const auto known = counted.lock();
    if (name == &errand && known != nullptr) workers_->Forget(*known);
  }
}

int WatchedWorkers::Running() const {
  const std::lock_guard<std::mutex> held(count_->lock);
  return static_cast<int>(std::ranges::count_if(count_->jobs, &Job::runs));
}

bool WatchedWorkers::CouldBegin() const {
  const std::lock_guard<std::mutex> held(count_->lock);
  std::vector<const os::Work*> running;
  for (const Job& job : count_->jobs) {
    if (job.runs) running.push_back(&job.work);
  }
  const auto mayBegin = [&running](const Job& job) { return !job.runs && os::MayBegin(job.work, running); };
  return running.size() < os::kMostWorkers && std::ranges::any_of(count_->jobs, mayBegin);
}

void WatchedWorkers::WaitIdle() {
  std::unique_lock<std::mutex> held(count_->lock);
  count_->changed.wait(held, [this] { return count_->left == 0; });
}

// ---------------------------------------------------------------------------------------------------------------------
// calls

HangingCalls::HangingCalls() {
  os::scripted::World().calls.Watch([this](const std::string& name) { OnCall(name); });
}

HangingCalls::~HangingCalls() {
  Release();
  os::scripted::World().calls.Watch({});
}

void HangingCalls::HangAt(std::size_t n, const std::string& name) {
  const std::lock_guard<std::mutex> held(lock_);
  counted_ = name;
  made_ = 0;
  at_ = n;
  hung_.clear();
}

void HangingCalls::HangAll(const std::string& name) {
  const std::lock_guard<std::mutex> held(lock_);
  all_ = name;
}

void HangingCalls::Release() {
  const std::lock_guard<std::mutex> held(lock_);
  at_ = 0;
  all_.clear();
  free_.clear();
  ++generation_;
  hanging_.clear();
  released_.notify_all();
}

void HangingCalls::Release(const std::string& name) {
  const std::lock_guard<std::mutex> held(lock_);
  free_ = name;
  hanging_.erase(name);
  released_.notify_all();
}

std::size_t HangingCalls::Made() const {
  const std::lock_guard<std::mutex> held(lock_);
  return made_;
}

std::string HangingCalls::Hung() const {
  const std::lock_guard<std::mutex> held(lock_);
  return hung_;
}

int HangingCalls::HangingNow() const {
  const std::lock_guard<std::mutex> held(lock_);
  return CountHanging();
}

bool HangingCalls::WaitHanging(int count) {
  constexpr std::chrono::seconds kPatience{60};
  std::unique_lock<std::mutex> held(lock_);
  return hangs_.wait_for(held, kPatience, [&] { return CountHanging() >= count; });
}

/// Held by the caller.
int HangingCalls::CountHanging() const {
  int hanging = 0;
  for (const auto& [name, times] : hanging_) hanging += times;
  return hanging;
}

void HangingCalls::OnCall(const std::string& name) {
  if (std::this_thread::get_id() == owner_) return;
  std::unique_lock<std::mutex> held(lock_);
  const bool counts = counted_.empty() || name == counted_;
  if (counts) ++made_;
  if (!(counts && made_ == at_) && name != all_) return;
  if (name == free_) return;
  if (hung_.empty()) hung_ = name;
  ++hanging_[name];
  hangs_.notify_all();
  released_.wait(held, [&, since = generation_] { return generation_ != since || name == free_; });
}

// ---------------------------------------------------------------------------------------------------------------------
// window

std::function<void()> PlayedWait::Waker() {
  return [wake = wake_] {
    const std::lock_guard<std::mutex> held(wake->lock);
    wake->woken = true;
    wake->changed.notify_all();
  };
}

/// Time passes only where a call hangs.
void PlayedWait::Pass(std::int64_t milliseconds, filedialog::Through through) {
  std::unique_lock<std::mutex> held(wake_->lock);
  constexpr int kLooks = 4;
  for (int quiet = 0; !wake_->woken && quiet < kLooks;) {
    wake_->changed.wait_for(held, std::chrono::milliseconds(1));
    quiet = calls_.HangingNow() > 0 && NobodyWorks() ? quiet + 1 : 0;
  }
  if (std::exchange(wake_->woken, false)) return;
  held.unlock();
  const bool lives = through == filedialog::Through::Everything;
  now_ += lives ? std::min(milliseconds, UntilDue()) : milliseconds;
  if (onPass) onPass();
  if (lives) RunDue();
}

/// What happens ends the pass early, as a message does.
std::int64_t PlayedWait::UntilDue() const {
  std::int64_t next = std::numeric_limits<std::int64_t>::max();
  for (const auto& act : acts_) next = std::min(next, act.first);
  return std::max<std::int64_t>(next - now_, 0);
}

/// One at a time, as messages come.
void PlayedWait::RunDue() {
  const auto due = std::find_if(acts_.begin(), acts_.end(), [this](const auto& act) { return act.first <= now_; });
  if (due == acts_.end()) return;
  const std::function<void()> act = std::move(due->second);
  acts_.erase(due);
  act();
}

void PlayedWait::ShowWait(const std::string& text) {
  shown_ = text;
  allShown_.push_back(text);
  if (onShown) onShown();
}

}  // namespace browser_test
