#include "dlglib/filedialog/waiting/CvWait.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/os/wait_clock.h"
#include "platform/suite/crvnbc.h"

using filedialog::Through;

namespace {

constexpr int kMostPaints = 64;  ///< in a row: a window that never validates itself is no reason to stay for ever

#ifdef DLGLIB_CALLS_IN_PLACE
constexpr bool kCallsInPlace = true;
#else
constexpr bool kCallsInPlace = false;
#endif

constexpr UINT kPainting = QS_PAINT | QS_SENDMESSAGE;

/// A worker runs in the suite's library too.
const void* SuitesModule() { return reinterpret_cast<const void*>(&CwFileFinder::CreateInstance); }

}  // namespace

/// What a worker sets when it has an answer. Whoever comes last closes it.
class CvWait::Event {
 public:
  Event() : handle_(::CreateEventW(nullptr, FALSE, FALSE, nullptr)) {
    if (handle_ == nullptr) throw std::bad_alloc();
  }
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;
  ~Event() { ::CloseHandle(handle_); }

  [[nodiscard]] HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_;
};

CvWait::CvWait(CWnd& dialog, CvEscWatch& esc, Ways ways)
    : dialog_(dialog), esc_(esc), ways_(std::move(ways)), woken_(std::make_shared<Event>()) {}

CvWait::~CvWait() = default;

/// Never destroyed: a worker that hangs outlives the library's other objects, and the end of the program must not wait
/// for it.
os::Workers* CvWait::Workers() {
  if constexpr (kCallsInPlace) return nullptr;
  static os::Workers* const workers = os::MakeWorkers(SuitesModule()).release();
  return workers;
}

void CvWait::StartWait() {
  esc_.Start(dialog_.m_hWnd);
  leaving_.Start(dialog_.m_hWnd);
  lateNews_.Begin(dialog_.m_hWnd);
}

std::int64_t CvWait::NowMs() const { return os::WaitClockMs(); }

filedialog::Wake CvWait::Waker() {
  return [woken = woken_] { ::SetEvent(woken->Get()); };
}

filedialog::Wake CvWait::LateWaker() {
  return [woken = woken_, tell = lateNews_.Teller()] {
    ::SetEvent(woken->Get());
    tell();
  };
}

void CvWait::Pass(std::int64_t milliseconds, Through through) {
  if (leaving_.HasBegun()) through = Through::Everything;
  const HANDLE woken = woken_->Get();
  const DWORD longest = static_cast<DWORD>(std::max<std::int64_t>(milliseconds, 0));
  const DWORD input = through == Through::Painting ? kPainting : QS_ALLINPUT;
  ::MsgWaitForMultipleObjectsEx(1, &woken, longest, input, MWMO_INPUTAVAILABLE);
  if (through == Through::Everything) return HandleNext();
  MSG message{};
  for (int paints = 0; paints < kMostPaints; ++paints) {
    if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT | PM_QS_SENDMESSAGE)) return;
    ::DispatchMessageW(&message);
  }
}

/// One at a time: what it does may end the wait.
void CvWait::HandleNext() {
  MSG message{};
  if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) return;
  if (message.message == WM_QUIT) {
    ::PostQuitMessage(static_cast<int>(message.wParam));
    quits_ = true;
  } else if (!esc_.Takes(message)) {
    ways_.handle(message);
  }
}

void CvWait::ShowWait(const std::string& text) {
  if (ways_.show) ways_.show(text);
}

void CvWait::HideWait() noexcept {
  if (ways_.hide && dialog_.m_hWnd != nullptr) ways_.hide();
}
