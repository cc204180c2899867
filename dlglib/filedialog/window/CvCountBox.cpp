#include "dlglib/filedialog/window/CvCountBox.h"

#include "dlglib/filedialog/window/CvMessagePart.h"
#include "dlglib/resources/resource.h"

Handled CvCountBox::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvCountBox> kRows[] = {
      OnCommand(IDC_RECENT_COUNT, CBN_SELCHANGE, &CvCountBox::OnChosen),
      OnCommand(IDC_RECENT_COUNT, CBN_CLOSEUP, &CvCountBox::OnClosed),
  };
  return RoutePart(*this, kRows, message);
}

void CvCountBox::Fill(const std::vector<std::string>& items, int selected) const {
  const ComboBoxRef box = Box();
  for (const std::string& item : items) box.AddString(item.c_str());
  box.SetCurSel(selected);
}

void CvCountBox::Open() const {
  const ComboBoxRef box = Box();
  box.ShowWindow(SW_SHOW);
  box.BringWindowToTop();
  box.SetFocus();
  box.ShowDropDown();
}

void CvCountBox::OnChosen() { actions_.chosen(Box().GetCurSel()); }

void CvCountBox::OnClosed() {
  Box().ShowWindow(SW_HIDE);
  actions_.closed();
}

ComboBoxRef CvCountBox::Box() const { return ComboBoxRef(::GetDlgItem(dialog_.m_hWnd, IDC_RECENT_COUNT)); }
