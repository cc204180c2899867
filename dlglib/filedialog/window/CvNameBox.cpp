#include "dlglib/filedialog/window/CvNameBox.h"

#include "dlglib/resources/resource.h"
#include "platform/framework/strings.h"
#include "platform/os/edit_composition.h"
#include "platform/os/sjis_edit.h"

ComboBoxRef CvNameBox::Box() const { return ComboBoxRef(::GetDlgItem(dialog_.m_hWnd, IDC_FILE_NAME)); }

HWND CvNameBox::Edit() const { return ::GetWindow(Box().m_hWnd, GW_CHILD); }

void CvNameBox::Start() {
  os::KeepToShiftJis(Edit());
  os::KeepCompositionsWhole(Edit());
}

bool CvNameBox::IsComposing() const { return os::IsComposing(Edit()); }

/// The box itself counts characters.
void CvNameBox::Limit(std::size_t limit) {
  Box().LimitText(static_cast<int>(limit));
  os::KeepToShiftJis(Edit(), limit);
}

void CvNameBox::Show(const std::string& text) {
  Box().SetWindowText(text.c_str());
  bytes_.Note(Box().m_hWnd, text);
}

void CvNameBox::Offer(const std::string& name) {
  const ComboBoxRef box = Box();
  const int count = box.GetCount();
  for (int item = 0; item < count; ++item) {
    CString text;
    box.GetLBText(item, text);
    if (name != text.GetString()) continue;
    box.SetCurSel(item);
    return;
  }
  box.SetCurSel(box.InsertString(0, name.c_str()));
}

void CvNameBox::ShowRecentFiles(const std::vector<std::string>& files) {
  const ComboBoxRef box = Box();
  const std::string text = Text();
  box.ResetContent();
  for (const std::string& file : files) box.AddString(file.c_str());
  Show(text);
}

std::string CvNameBox::Text() const {
  if (const auto untouched = bytes_.Untouched(Box().m_hWnd)) return *untouched;
  CString text;
  Box().GetWindowText(text);
  return text.GetString();
}
