// CvDropDown: lets the list of a combo box drop down on the monitor that its box stands on. The system keeps it on any
// monitor, or begins it on one and ends it on another.
#pragma once

#include "platform/framework/detail/message_watch.h"

class CvDropDown {
 public:
  CvDropDown() = default;

  /// From now on, until the box is gone or another one is given. Nothing happens without a box.
  void Follow(HWND combo);

 private:
  void Place(const Message& message) const;

  HWND box_ = nullptr;
  MessageWatch list_{[this](const Message& message) {
    if (message.id == WM_WINDOWPOSCHANGING) Place(message);
    return Handled();
  }};
};
