#include "dlglib/filedialog/window/CvListLabel.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/filedialog/window/CvMessagePart.h"
#include "dlglib/resources/resource.h"
#include "platform/os/sjis_edit.h"

namespace {

constexpr std::size_t kMaxEditedName = 1024;

// Sent by the dialog to itself: a name was edited in the list.
constexpr UINT kCommitLabel = WM_APP + 1;

std::string EditedText(const char* text) { return {text, std::find(text, text + kMaxEditedName, '\0')}; }

bool IsPress(UINT message) {
  constexpr UINT kPresses[] = {WM_LBUTTONDOWN,   WM_LBUTTONDBLCLK,  WM_RBUTTONDOWN,   WM_RBUTTONDBLCLK,
                               WM_MBUTTONDOWN,   WM_MBUTTONDBLCLK,  WM_NCLBUTTONDOWN, WM_NCLBUTTONDBLCLK,
                               WM_NCRBUTTONDOWN, WM_NCRBUTTONDBLCLK};
  return std::find(std::begin(kPresses), std::end(kPresses), message) != std::end(kPresses);
}

}  // namespace

Handled CvListLabel::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvListLabel> kRows[] = {
      OnNotify(IDC_FILE_LIST, LVN_BEGINLABELEDITA, &CvListLabel::OnBegin),
      OnNotify(IDC_FILE_LIST, LVN_ENDLABELEDITA, &CvListLabel::OnEnd),
      OnMessage(kCommitLabel, &CvListLabel::OnCommit),
  };
  return RoutePart(*this, kRows, message);
}

/// The edit box shows what the row shows, which may be cut.
LRESULT CvListLabel::OnBegin(NMHDR* notification) {
  const auto label = browser_.BeginLabel(reinterpret_cast<NMLVDISPINFOA*>(notification)->item.iItem);
  if (!label) return TRUE;
  os::KeepToShiftJis(list_.GetEditControl().m_hWnd);
  if (label->isShownCut) list_.GetEditControl().SetWindowText(label->name.c_str());
  return FALSE;
}

/// The list is in the middle of ending the edit, so it is filled anew by a message of its own.
LRESULT CvListLabel::OnEnd(NMHDR* notification) {
  const LVITEMA& item = reinterpret_cast<NMLVDISPINFOA*>(notification)->item;
  if (item.pszText == nullptr) return FALSE;
  browser_.GiveLabel(EditedText(item.pszText));
  dialog_.PostMessage(kCommitLabel);
  return FALSE;
}

bool CvListLabel::Finish() {
  const auto end = browser_.FinishLabel();
  return end && *end != LabelEnd::Refused;
}

/// The list is filled anew and takes the focus, which would let go of a pressed button, and put another row below the
/// second half of a double click.
bool CvListLabel::UsesUpPress(const MSG& message) {
  if (!IsPress(message.message)) return false;
  const EditRef edit = list_.GetEditControl();
  const bool endsEdit = edit.m_hWnd != nullptr && !edit.Is(message.hwnd);
  if (endsEdit) {
    press_ = Press::UsedUp;  // also when an exception ends it: the rows may have moved
    if (!FinishByPress(message)) press_ = Press::EndedEdit;
  } else if (message.message != WM_LBUTTONDBLCLK) {
    press_ = Press::Plain;
  }
  return press_ == Press::UsedUp;
}

/// Whether the press that gives the name has thereby done its work.
bool CvListLabel::FinishByPress(const MSG& message) {
  bool isRefused = true;  // also what an exception makes of it
  const AtScopeEnd cancelled([&] {
    // A message has taken the release of the button, or the press is lost: it would not close the browser.
    if (isRefused && dialog_.m_hWnd != nullptr && PressesCancel(message)) dialog_.PostMessage(WM_COMMAND, IDCANCEL);
  });
  const auto end = browser_.FinishLabel();
  isRefused = end == LabelEnd::Refused;
  const bool movedRows = end == LabelEnd::Renamed && list_.Is(message.hwnd);
  return !end || isRefused || movedRows;
}

bool CvListLabel::PressesCancel(const MSG& message) const {
  if (message.message == WM_NCLBUTTONDOWN) return message.wParam == HTCLOSE && dialog_.Is(message.hwnd);
  return message.message == WM_LBUTTONDOWN && WindowRef(::GetDlgItem(dialog_.m_hWnd, IDCANCEL)).Is(message.hwnd);
}
