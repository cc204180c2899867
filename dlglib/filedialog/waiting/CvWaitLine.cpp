#include "dlglib/filedialog/waiting/CvWaitLine.h"

void CvWaitLine::Show(const std::string& text) {
  if (line_.m_hWnd == nullptr) Make();
  line_.SetWindowText(text.c_str());
  line_.ShowWindow(SW_SHOWNA);
}

void CvWaitLine::Hide() noexcept {
  if (line_.m_hWnd != nullptr) ::ShowWindow(line_.m_hWnd, SW_HIDE);
}

/// The system draws a disabled text in grey.
void CvWaitLine::Make() {
  RECT place = place_;
  ::MapDialogRect(dialog_.m_hWnd, &place);
  line_.Create("", WS_CHILD | WS_DISABLED | SS_LEFTNOWORDWRAP | SS_NOPREFIX, place, &dialog_);
  line_.SetFont(dialog_.GetFont());
}
