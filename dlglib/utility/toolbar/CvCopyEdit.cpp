#include "dlglib/utility/toolbar/CvCopyEdit.h"

#include "dlglib/utility/toolbar/clipboard_copy.h"

namespace {

void Pause(unsigned milliseconds) { ::Sleep(milliseconds); }

}  // namespace

bool CvCopyEdit::CopyAll() const {
  CString text;
  GetWindowText(text);
  // Nothing would be selected, and the clipboard would keep what it holds.
  if (text.IsEmpty()) return false;
  SetSel(0, -1);
  ScrollCaret();
  const clipboard_copy::Actions actions = {[this] { Copy(); }, Pause};
  return clipboard_copy::TryCopy(*os::Services().clipboard, text.GetString(), m_hWnd, actions);
}

bool CvCopyEdit::IsOnClipboard(const std::string& text, HWND reader) {
  return clipboard_copy::Holds(*os::Services().clipboard, text, reader, Pause);
}
