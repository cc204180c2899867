// CvWait: a dialog that waits for a device, and lives meanwhile.
//
//   CvWait wait_{*this, {[this](MSG& message) { HandleOne(message); }, ...}};   // a member of the dialog
//   filedialog::Patience patience_{&wait_, CvWait::Workers()};
//
// Before the wait is shown only what paints is let through, and Esc is looked for; then everything is, as the dialog's
// own loop does it. So it is from the first moment on where the user is about to leave the dialog: what was typed
// before that comes first then, in its order. A request to end the program is asked again, and ends the wait.
#pragma once

#include <functional>
#include <memory>

#include "dlglib/filedialog/basics/patience.h"
#include "dlglib/filedialog/waiting/CvEscWatch.h"
#include "dlglib/filedialog/waiting/CvLateNews.h"
#include "dlglib/filedialog/waiting/CvLeaveWatch.h"
#include "platform/framework/wnd.h"

class CvWait final : public filedialog::WaitingWindow {
 public:
  /// What a wait needs of its dialog.
  struct Ways {
    std::function<void(MSG&)> handle;                   ///< one message, as the dialog's own loop does it
    std::function<void(const std::string&)> show = {};  ///< the line; none: the dialog has no place for it
    std::function<void()> hide = {};                    ///< throws nothing
  };

  /// Both must outlive this. Throws std::bad_alloc.
  CvWait(CWnd& dialog, CvEscWatch& esc, Ways ways);
  ~CvWait() override;

  /// What the dialog is posted when an answer came that nobody may have been waiting for.
  static constexpr UINT kLateAnswers = WM_APP + 2;

  /// The threads of the library, which all dialogs share; null where all calls are made in place.
  [[nodiscard]] static os::Workers* Workers();

  void StartWait() override;
  [[nodiscard]] std::int64_t NowMs() const override;
  [[nodiscard]] filedialog::Wake Waker() override;
  [[nodiscard]] filedialog::Wake LateWaker() override;
  void Pass(std::int64_t milliseconds, filedialog::Through through) override;
  [[nodiscard]] bool GivesUp() override { return esc_.Pressed(); }
  [[nodiscard]] bool IsThere() const override { return dialog_.m_hWnd != nullptr && !quits_; }
  void ShowWait(const std::string& text) override;
  void HideWait() noexcept override;

 private:
  class Event;

  void HandleNext();

  CWnd& dialog_;
  CvEscWatch& esc_;
  Ways ways_;
  std::shared_ptr<Event> woken_;
  CvLateNews lateNews_{kLateAnswers};
  CvLeaveWatch leaving_;
  bool quits_ = false;  ///< the program is to end
};
