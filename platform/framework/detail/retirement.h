// Giving up a control, also in the middle of its own notification.
//
// The system's controls go on with what they were doing after they have told their parent something, and so do the
// functions of a control's object. A control that its owner destroys meanwhile would take the ground from under them.
#pragma once

#include <memory>

#include "platform/framework/wnd.h"

namespace framework {

struct WindowEntry;

/// Gives up an object that its owner needs no more. Its window is hidden. Both are destroyed at once when no message of
/// the window, and none of its parent about it, is being answered; otherwise when the thread's message loop comes to
/// it, or with the parent. Whoever else shares the object keeps it, and its window, as long as he does.
void Retire(std::shared_ptr<CWnd> object);

/// While it lives, a message to the window of `entry`, or one of its parent about it, is being answered. Internal to
/// the framework.
class UnderWay {
 public:
  /// Null is no window.
  explicit UnderWay(std::shared_ptr<WindowEntry> entry) noexcept;
  UnderWay(const UnderWay&) = delete;
  UnderWay& operator=(const UnderWay&) = delete;
  ~UnderWay();

 private:
  std::shared_ptr<WindowEntry> entry_;
};

/// Whether `message`, which nobody else has seen yet, was the one that a retired object waited for. It is gone then.
[[nodiscard]] bool DestroysRetired(WindowEntry& entry, UINT message) noexcept;

}  // namespace framework
