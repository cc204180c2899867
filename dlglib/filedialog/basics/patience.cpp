#include "dlglib/filedialog/basics/patience.h"

#include <algorithm>
#include <atomic>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/filedialog/basics/call_site.h"

namespace filedialog {

namespace {

constexpr std::int64_t kQuietMs = 300;     ///< nothing is shown of a wait that is over by then
constexpr std::int64_t kLookMs = 20;       ///< how often Esc is looked for while input waits
constexpr std::int64_t kProgressMs = 100;  ///< how often the count moves
constexpr std::int64_t kGraceMs = 100;     ///< of each wait beyond the step's limit
constexpr std::int64_t kHurriedMs = 1000;  ///< of a step with a limit, behind a wait that was given up
constexpr std::int64_t kPauseMs = 50;      ///< between waits, after which keys that were pressed before do not count

constexpr char kWayOut[] = "　Esc で中止";

/// 12,345
std::string WithCommas(std::size_t number) {
  std::string digits = std::to_string(number);
  constexpr std::size_t kGroup = 3;
  for (std::size_t at = digits.size(); at > kGroup;) {
    at -= kGroup;
    digits.insert(at, 1, ',');
  }
  return digits;
}

std::size_t CountOf(const Question& question) { return question.count ? question.count() : 0; }

std::string TextOf(const Question& question) {
  std::string text = question.doing;
  const std::size_t count = CountOf(question);
  if (count > 0) text.append(" ").append(WithCommas(count)).append(" 件");
  return text.append(kWayOut);
}

}  // namespace

/// A question on its way. The worker and whoever waits both hold it.
class Patience::Call final : public os::Errand {
 public:
  Call(std::function<void()> ask, std::function<void()> wake) : ask_(std::move(ask)), wake_(std::move(wake)) {}

  void Run() noexcept override {
    try {
      ask_();
    } catch (...) {
      failure_ = std::current_exception();
    }
    isDone_.store(true, std::memory_order_release);
    wake_();
  }
  [[nodiscard]] bool IsDone() const { return isDone_.load(std::memory_order_acquire); }
  void Rethrow() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  std::function<void()> ask_;
  std::function<void()> wake_;
  std::exception_ptr failure_;
  std::atomic<bool> isDone_ = false;
};

void Patience::Ask(Question question) {
  if (!AskForPart(std::move(question))) throw WaitEnded{};
}

bool Patience::AskForPart(Question question) { return WaitForPart(Begin(std::move(question))); }

Patience::Begun::~Begun() {
  if (call_ != nullptr && !call_->IsDone()) workers_->Forget(*call_);
}

/// What happens during a wait has to do without an answer, and is not asked.
Patience::Begun Patience::Begin(Question question) {
  if (workers_ == nullptr || waiting_) return {std::move(question), nullptr, workers_};
  auto call = std::make_shared<Call>(question.ask, window_->Waker());
  const bool begun = workers_->Begin(call, SiteOf(question.path), os::Urgency::Awaited);
  return {std::move(question), begun ? std::move(call) : nullptr, workers_};
}

bool Patience::WaitForPart(Begun begun) {
  if (waiting_) return false;
  if (begun.call_ == nullptr) {
    begun.question_.ask();
    return true;
  }
  const Step step(*this);
  const std::optional<How> ended = WaitFor(begun.question_, begun.call_);
  if (!ended) {
    begun.call_->Rethrow();
    return true;
  }
  wasCutShort_ = true;
  if (begun.question_.leave) begun.question_.leave();
  if (*ended != How::GivenUp) throw WaitEnded{*ended};
  if (CountOf(begun.question_) == 0) UsePressUp();
  return false;
}

std::optional<WaitEnded::How> Patience::WaitFor(const Question& question, const std::shared_ptr<Call>& call) {
  StartWait();
  const AtScopeEnd over([this] { EndWait(); });
  const std::int64_t until = std::max(limit_ ? begun_ + *limit_ : std::int64_t{0}, window_->NowMs() + kGraceMs);
  while (true) {
    if (const auto ended = HowItEnds(question, *call, until)) return ended;
    if (call->IsDone()) {
      static_cast<void>(window_->GivesUp());  // a press that comes too late must not close the dialog
      return std::nullopt;
    }
    if (window_->NowMs() - begun_ >= kQuietMs) {
      ShowProgress(question);
      if (!call->IsDone()) window_->Pass(looked_ + kProgressMs - window_->NowMs(), Through::Everything);
    } else {
      window_->Pass(std::min(kLookMs, kQuietMs - (window_->NowMs() - begun_)), Through::Painting);
    }
  }
}

/// A window that has gone counts before an answer, an answer before the user's patience.
std::optional<WaitEnded::How> Patience::HowItEnds(const Question& question, const Call& call, std::int64_t until) {
  if (!window_->IsThere()) return How::WindowGone;
  if (end_) return end_;
  if (call.IsDone()) return std::nullopt;
  if (window_->GivesUp()) return How::GivenUp;
  return limit_ && IsLate(question, until) ? std::optional(How::TookTooLong) : std::nullopt;
}

/// A device may also hang behind its first rows.
bool Patience::IsLate(const Question& question, std::int64_t until) {
  const std::int64_t now = window_->NowMs();
  const std::size_t count = CountOf(question);
  if (std::exchange(count_, count) != count) moved_ = now;
  return now >= until && (count == 0 || now - moved_ >= *limit_);
}

/// The count moves at its own pace, however often something happens meanwhile: painting it takes the worker's time.
void Patience::ShowProgress(const Question& question) {
  const std::int64_t now = window_->NowMs();
  if (shown_ && now < looked_ + kProgressMs) return;
  looked_ = now;
  std::string text = TextOf(question);
  if (shown_ && text == shownText_) return;
  shown_ = true;
  shownText_ = std::move(text);
  window_->ShowWait(shownText_);
}

void Patience::Linger(std::int64_t milliseconds, const std::function<bool()>& isEnough) {
  if (workers_ == nullptr || waiting_) return;
  const Step step(*this);
  StartWait();
  const AtScopeEnd over([this] { EndWait(); });
  const auto left = [this, milliseconds] { return begun_ + milliseconds - window_->NowMs(); };
  while (window_->IsThere() && !end_ && !isEnough() && left() > 0 && !window_->GivesUp()) {
    window_->Pass(std::min(kLookMs, left()), Through::Painting);
  }
  if (!window_->IsThere() || end_ == How::WindowGone) throw WaitEnded{How::WindowGone};
  if (window_->GivesUp()) UsePressUp();
}

/// Who has pressed once is in a hurry, and need not press again for each further wait of the step.
void Patience::UsePressUp() {
  window_->StartWait();
  if (limit_) limit_ = std::min(*limit_, window_->NowMs() - begun_ + kHurriedMs);
}

/// What the user took to answer a question between two waits is no wait.
void Patience::StartWait() {
  waiting_ = true;
  end_.reset();
  count_ = 0;
  const std::int64_t now = window_->NowMs();
  const std::int64_t pause = now - ended_;
  if (pause > kPauseMs) window_->StartWait();
  begun_ += pause;
}

void Patience::EndWait() noexcept {
  waiting_ = false;
  ended_ = window_->NowMs();
}

void Patience::BeginStep() {
  if (depth_++ > 0 || workers_ == nullptr) return;
  wasCutShort_ = false;
  begun_ = window_->NowMs();
  ended_ = begun_;
  window_->StartWait();
}

void Patience::EndStep() noexcept {
  if (--depth_ > 0) return;
  limit_.reset();
  HideProgress();
}

}  // namespace filedialog
