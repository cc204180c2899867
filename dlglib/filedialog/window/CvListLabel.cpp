#include "dlglib/filedialog/window/CvListLabel.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "dlglib/filedialog/window/CvMessagePart.h"
#include "dlglib/resources/resource.h"
#include "platform/os/edit_composition.h"
#include "platform/os/sjis_edit.h"

namespace {

constexpr std::size_t kMaxEditedName = 1024;

/// What the box is called in which a name is edited.
constexpr const char* kBoxName = "名前";

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

CvListLabel::CvListLabel(CWnd& dialog, CvFileList& list, filedialog::FileBrowser& browser)
    : dialog_(dialog), list_(list), browser_(browser), press_(browser, [&dialog] {
        if (dialog.m_hWnd != nullptr) dialog.PostMessage(WM_COMMAND, IDCANCEL);
      }) {}

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
  os::KeepCompositionsWhole(list_.GetEditControl().m_hWnd);
  boxName_.emplace(list_.GetEditControl().m_hWnd, kBoxName);
  if (label->isShownCut) list_.GetEditControl().SetWindowText(label->name.c_str());
  return FALSE;
}

/// The list is in the middle of ending the edit, so it is filled anew by a message of its own.
LRESULT CvListLabel::OnEnd(NMHDR* notification) {
  const LVITEMA& item = reinterpret_cast<NMLVDISPINFOA*>(notification)->item;
  boxName_.reset();
  if (item.pszText == nullptr) return FALSE;
  browser_.GiveLabel(EditedText(item.pszText));
  dialog_.PostMessage(kCommitLabel);
  return FALSE;
}

bool CvListLabel::Finish() {
  const auto end = browser_.FinishLabel();
  return end && *end != filedialog::FileBrowser::LabelEnd::Refused;
}

bool CvListLabel::UsesUpPress(const MSG& message) {
  return IsPress(message.message) && press_.UsesUp(PressOf(message));
}

filedialog::LabelPress::Press CvListLabel::PressOf(const MSG& message) const {
  const EditRef edit = list_.GetEditControl();
  filedialog::LabelPress::Press press;
  press.endsEdit = edit.m_hWnd != nullptr && !edit.Is(message.hwnd);
  press.isInList = list_.Is(message.hwnd);
  press.isCancel = PressesCancel(message);
  press.isSecondOfTwo = message.message == WM_LBUTTONDBLCLK;
  return press;
}

bool CvListLabel::PressesCancel(const MSG& message) const {
  if (message.message == WM_NCLBUTTONDOWN) return message.wParam == HTCLOSE && dialog_.Is(message.hwnd);
  return message.message == WM_LBUTTONDOWN && WindowRef(::GetDlgItem(dialog_.m_hWnd, IDCANCEL)).Is(message.hwnd);
}
