// What a message that is drawn onto a dialog says to those who do not see it: a control whose text it is.
#pragma once

#include "platform/framework/controls.h"

/// What the same message a second time is to those who do not see it: nothing when it is only shown again, as after
/// painting, and news when the user has done again what it complains of.
enum class Repeated { IsNoNews, IsNews };

/// Shows a message as a control's text. Whoever does not see the screen is told of a new one; none is no news.
void TellMessage(const WindowRef& control, const char* text, Repeated repeated);

/// The control of a dialog on which messages are only drawn: it has no size, and is there only when a screen reader
/// was running at a message. Goes with the dialog's window or with this, whichever comes first.
class CvSpokenMessage {
 public:
  /// At the place of the drawn one, in pixels of the dialog's client area.
  void Tell(CWnd* dialog, POINT at, const char* text, Repeated repeated);

 private:
  CStatic control_;
};
