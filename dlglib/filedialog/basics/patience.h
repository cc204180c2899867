// The one place where the browser waits for a device.
//
// A share that has died, a disk that sleeps, a slow link: any call on a path may take minutes. Such calls are made on a
// worker (os::Workers) while the thread of the dialog waits here and lets the window live. The rules above stay
// straight code that reads from top to bottom: a call either answers, or it does not come back, as WaitEnded unwinds to
// the step that began it.
//
// What the user sees:
// - For 0.3 s nothing: the window paints, whatever else is typed or clicked waits for afterwards as it always has. But
//   Esc, cancel and the frame's close are noticed at once.
// - Then a line says what is being done, with a count that moves, and the window answers.
// - Esc gives the wait up, one press one wait, unless it leaves part of an answer: then the step is to end, and the
//   press holds for all of it. A new step of place, view or name does too and begins when the running one has unwound.
// A wait never nests in a wait.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/os/workers.h"

namespace filedialog {

/// Thrown where a call has not answered: the step that made it has no more to do. No exception of the standard library,
/// so that nobody takes it for a failure.
struct WaitEnded {
  enum class How {
    GivenUp,      ///< by the user
    TookTooLong,  ///< Patience::LimitTo
    WindowGone,   ///< or about to go: nothing may be shown any more
  };
  How how = How::GivenUp;
};

/// What `ask` answers, or `otherwise` when that is given up or takes too long.
template <class Answer, class Asking>
[[nodiscard]] Answer AnswerOr(Answer otherwise, Asking ask) {
  try {
    return ask();
  } catch (const WaitEnded& ended) {
    if (ended.how == WaitEnded::How::WindowGone) throw;
    return otherwise;
  }
}

/// How the window lets time pass while it waits.
enum class Through {
  Painting,    ///< only what paints; everything else stays where it is until the user is about to leave
  Everything,  ///< all messages
};

using Wake = std::function<void()>;

/// The window of which the user waits for an answer.
class WaitingWindow {
 public:
  virtual ~WaitingWindow() = default;
  /// A wait begins to which what the user has pressed before does not count.
  virtual void StartWait() = 0;
  /// Milliseconds of a clock that only moves forwards.
  [[nodiscard]] virtual std::int64_t NowMs() const = 0;
  /// What ends Pass, called on any thread, also when the window has gone. Throws std::bad_alloc.
  [[nodiscard]] virtual Wake Waker() = 0;
  /// The same for an answer that nobody may be waiting for any more: then the dialog is told of it by itself.
  [[nodiscard]] virtual Wake LateWaker() = 0;
  /// Comes back when the waker was called, something has happened, or so many milliseconds have passed.
  virtual void Pass(std::int64_t milliseconds, Through through) = 0;
  /// Whether Esc was pressed, asked often.
  [[nodiscard]] virtual bool GivesUp() = 0;
  [[nodiscard]] virtual bool IsThere() const = 0;
  /// The line that says what is waited for (Shift_JIS), first shown and changed.
  virtual void ShowWait(const std::string& text) = 0;
  virtual void HideWait() noexcept = 0;
};

/// What is asked of a device.
struct Question {
  std::string path;                      ///< a question on a path on which another one hangs joins that wait
  std::function<void()> ask;             ///< on a worker; owns what it touches
  std::function<std::size_t()> count{};  ///< how much is done; any thread; none: no count is shown
  const char* doing = kReading;          ///< what the user is told meanwhile
  std::function<void()> leave{};         ///< done first when the wait ends without an answer: the call may be cancelled

  static constexpr char kReading[] = "読み込み中…";
  static constexpr char kMaking[] = "作成中…";
  static constexpr char kRenaming[] = "名前の変更中…";
};

class Patience {
 public:
  /// Makes all calls in place when there are no workers. Both must outlive this.
  Patience(WaitingWindow* window, os::Workers* workers) : window_(window), workers_(workers) {}
  Patience(const Patience&) = delete;
  Patience& operator=(const Patience&) = delete;
  ~Patience() = default;

  /// A step of the user: the time of its waits is added up.
  class Step {
   public:
    explicit Step(Patience& patience) : patience_(patience) { patience_.BeginStep(); }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    ~Step() { patience_.EndStep(); }

   private:
    Patience& patience_;
  };

  /// A question that is on its way, or would be asked in place. Forgotten where nobody waits for it.
  class Begun;

  /// Asks and waits for the answer; throws what `ask` throws, and WaitEnded without an answer.
  void Ask(Question question);
  /// The same for a question whose part of an answer is of use: false when it was given up.
  [[nodiscard]] bool AskForPart(Question question);
  /// Asks, and waits later.
  [[nodiscard]] Begun Begin(Question question);
  [[nodiscard]] bool WaitForPart(Begun begun);
  /// For a question that answers a value.
  template <class Answer>
  [[nodiscard]] Answer AskFor(std::string path, std::function<Answer()> ask, const char* doing = Question::kReading) {
    const auto answer = std::make_shared<std::optional<Answer>>();
    Ask({std::move(path), [answer, ask = std::move(ask)] { answer->emplace(ask()); }, {}, doing});
    return std::move(**answer);
  }

  /// Lets the window paint until it is enough, for answers that the step can do without. It ends when the waits of the
  /// step have taken so many milliseconds in all, and by Esc. Throws WaitEnded only when the window has gone or is
  /// about to.
  void Linger(std::int64_t milliseconds, const std::function<bool()>& isEnough);

  /// Takes the line back while the user is asked something else; a wait behind that shows it anew.
  void HideProgress() noexcept {
    if (std::exchange(shown_, false)) window_->HideWait();
  }
  [[nodiscard]] bool IsWaiting() const { return waiting_; }
  /// Who asks the questions; null when they are asked in place.
  [[nodiscard]] os::Workers* Workers() const { return workers_; }
  /// WaitingWindow::LateWaker.
  [[nodiscard]] Wake LateWaker() const {
    return window_ != nullptr ? window_->LateWaker() : Wake([] {});
  }
  /// Gives up the wait under way, which unwinds when what runs now has come back.
  void GiveUp() { end_ = Worse(end_, WaitEnded::How::GivenUp); }
  /// The same, and the window is about to go.
  void EndWithWindow() { end_ = WaitEnded::How::WindowGone; }
  /// The waits of the step end after so many milliseconds in all, or a second after one was given up; later ones get
  /// the grace of a moment. A question whose count moves goes on until the count has stood still for as long.
  void LimitTo(std::int64_t milliseconds) { limit_ = milliseconds; }
  /// Whether a wait of the step has ended without an answer.
  [[nodiscard]] bool WasCutShort() const { return wasCutShort_; }

 private:
  class Call;
  using How = WaitEnded::How;

  void BeginStep();
  void EndStep() noexcept;
  [[nodiscard]] std::optional<How> WaitFor(const Question& question, const std::shared_ptr<Call>& call);
  [[nodiscard]] std::optional<How> HowItEnds(const Question& question, const Call& call, std::int64_t until);
  [[nodiscard]] bool IsLate(const Question& question, std::int64_t until);
  void StartWait();
  void UsePressUp();
  void EndWait() noexcept;
  void ShowProgress(const Question& question);
  [[nodiscard]] static std::optional<How> Worse(std::optional<How> one, How other) {
    return one == How::WindowGone ? one : std::optional(other);
  }

  WaitingWindow* window_;
  os::Workers* workers_;
  int depth_ = 0;  ///< of steps: one may be part of another
  bool waiting_ = false;
  bool shown_ = false;
  std::string shownText_;
  std::int64_t looked_ = 0;  ///< when the count was shown last
  std::size_t count_ = 0;    ///< as last seen by IsLate
  std::int64_t moved_ = 0;   ///< when it had changed to that
  bool wasCutShort_ = false;
  std::int64_t begun_ = 0;  ///< when the step had begun, were all its time that of its waits
  std::int64_t ended_ = 0;  ///< the last wait
  std::optional<std::int64_t> limit_;
  std::optional<How> end_;
};

class Patience::Begun {
 public:
  Begun(Question question, std::shared_ptr<Call> call, os::Workers* workers)
      : question_(std::move(question)), call_(std::move(call)), workers_(workers) {}
  Begun(Begun&&) noexcept = default;
  Begun& operator=(Begun&&) = delete;
  Begun(const Begun&) = delete;
  Begun& operator=(const Begun&) = delete;
  ~Begun();

 private:
  friend class Patience;

  Question question_;
  std::shared_ptr<Call> call_;  ///< null where it is asked in place
  os::Workers* workers_;
};

}  // namespace filedialog
