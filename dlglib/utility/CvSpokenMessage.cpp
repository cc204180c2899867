#include "dlglib/utility/CvSpokenMessage.h"

#include "platform/framework/strings.h"
#include "platform/os/display.h"

void TellMessage(const WindowRef& control, const char* text, Repeated repeated) {
  CString before;
  CString now;
  control.GetWindowText(before);
  control.SetWindowText(text);
  control.GetWindowText(now);
  const bool isNews = !now.IsEmpty() && (repeated == Repeated::IsNews || now != before);
  if (isNews) ::NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, control.m_hWnd, OBJID_CLIENT, CHILDID_SELF);
}

// A program may count the controls of its dialog, so there is one more only for users who need it. Tools pass over what
// is hidden, so it is shown. A group of its own, so that arrow keys walk past it.
void CvSpokenMessage::Tell(CWnd* dialog, POINT at, const char* text, Repeated repeated) {
  const bool isOfAnother = control_.m_hWnd != nullptr && !dialog->Is(::GetParent(control_.m_hWnd));
  if (isOfAnother) control_.DestroyWindow();
  if (control_.m_hWnd == nullptr) {
    if (*text == '\0' || !os::ThisDisplay().HasScreenReader()) return;
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_GROUP | SS_NOPREFIX;
    constexpr UINT kNoId = 0xFFFF;
    const RECT place = {at.x, at.y, at.x, at.y};
    if (!control_.CreateEx(WS_EX_NOPARENTNOTIFY, WC_STATICA, "", kStyle, place, dialog, kNoId)) return;
  }
  TellMessage(control_, text, repeated);
}
