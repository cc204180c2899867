#include "dlglib/filedialog/dialogs/CvFileUser.h"

#include <utility>

#include "dlglib/base/characters.h"
#include "dlglib/resources/resource.h"
#include "platform/framework/controls.h"
#include "platform/os/edit_composition.h"
#include "platform/os/sjis_edit.h"

CvFileUser::CvFileUser(CWnd* parent, std::string path)
    : CvScaledDialog(IDD_FILE_USER, parent), path_(std::move(path)) {}

BOOL CvFileUser::OnInitDialog() {
  CDialog::OnInitDialog();
  CenterWindow();
  password_.clear();
  SetDlgItemText(IDC_USER_PATH, path_.c_str());
  SetDlgItemText(IDC_USER_NAME, userName_.c_str());
  for (const int id : {IDC_USER_NAME, IDC_USER_PASSWORD}) {
    const EditRef box(::GetDlgItem(m_hWnd, id));
    box.LimitText(kLimit);
    os::KeepToShiftJis(box.m_hWnd);
    os::KeepCompositionsWhole(box.m_hWnd);
  }
  return TRUE;
}

void CvFileUser::OnOK() {
  userName_ = Typed(IDC_USER_NAME);
  password_ = Typed(IDC_USER_PASSWORD);
  EndDialog(IDOK);
}

// The control's limit holds for typing and pasting only, not for a text that a program sets.
std::string CvFileUser::Typed(int id) const {
  CString text;
  GetDlgItemText(id, text);
  return std::string(filedialog::FirstCharacters(text.View(), kLimit));
}
