#include "dlglib/utility/CvCopyEdit.h"

#include "dlglib/utility/clipboard_copy.h"

bool CvCopyEdit::CopyAll() const {
  CString text;
  GetWindowText(text);
  // Nothing would be selected, and the clipboard would keep what it holds.
  if (text.IsEmpty()) return false;
  SetSel(0, -1);
  ScrollCaret();
  const clipboard_copy::Actions actions = {[this] { Copy(); }, [](unsigned milliseconds) { ::Sleep(milliseconds); }};
  return clipboard_copy::TryCopy(text.GetString(), m_hWnd, actions);
}
