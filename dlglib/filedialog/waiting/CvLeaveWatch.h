// CvLeaveWatch: whether the user is about to leave a dialog, seen while its messages wait in the queue.
//
// A press on the cancel button, one on the frame's close box, Alt+F4, and requests to close the window or to end the
// program. They are only looked at: they stay in the queue, behind what was typed before them.
#pragma once

#include "platform/framework/win32.h"

class CvLeaveWatch {
 public:
  /// Begins to look, for the dialog `dialog` (borrowed; null: nobody can leave).
  void Start(HWND dialog);
  /// True once it has been seen since Start. Asks the system some dozens of times a second at most.
  [[nodiscard]] bool HasBegun();

 private:
  [[nodiscard]] bool IsInQueue() const;
  [[nodiscard]] bool IsPressed(UINT press) const;

  HWND dialog_ = nullptr;
  ULONGLONG nextLook_ = 0;  ///< milliseconds
  bool hasBegun_ = false;
};
