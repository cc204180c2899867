#include "dlglib/filedialog/dialogs/CvNewFolder.h"

#include <utility>

#include "dlglib/base/CvScaledImages.h"
#include "dlglib/base/scaled_images.h"
#include "dlglib/filedialog/names/entry_name.h"
#include "dlglib/resources/resource.h"
#include "platform/framework/controls.h"
#include "platform/os/sjis_edit.h"

using filedialog::OperationResult;

namespace {

// The template leaves the title bar empty, as the dialog serves two purposes.
constexpr const char* kCreateTitle = "新しいフォルダの作成";
constexpr const char* kRenameTitle = "名前の変更";

}  // namespace

CvNewFolder::CvNewFolder(CWnd* parent, std::string folder)
    : CvScaledDialog(IDD_NEW_FOLDER, parent), folder_(std::move(folder)) {}

void CvNewFolder::SetRename(std::string oldName, bool isFile) {
  mode_ = Mode::Rename;
  oldName_ = std::move(oldName);
  isFile_ = isFile;
}

BOOL CvNewFolder::OnInitDialog() {
  CDialog::OnInitDialog();
  CenterWindow();
  SetWindowText(mode_ == Mode::Create ? kCreateTitle : kRenameTitle);
  const EditRef name(::GetDlgItem(m_hWnd, IDC_FOLDER_NAME));
  name.LimitText(filedialog::kNewNameLimit);
  os::KeepToShiftJis(name.m_hWnd);
  if (mode_ == Mode::Rename) ShowAsRename();
  ShowIcon();
  return TRUE;
}

/// The icon shows what is made or renamed.
void CvNewFolder::ShowIcon() {
  constexpr int kSide = 32;
  const bool isFile = mode_ == Mode::Rename && isFile_;
  UniqueIcon icon =
      scaled_images::LoadIconOf(isFile ? IDI_FILE : IDI_FOLDER, scaled_images::IconSide(WindowScale().ToScreen(kSide)));
  if (!icon) return;
  StaticRef(::GetDlgItem(m_hWnd, IDC_FOLDER_ICON)).SetIcon(icon.Get());
  std::swap(icon_, icon);
}

void CvNewFolder::OnScaled(scale::Scale) { ShowIcon(); }

void CvNewFolder::ShowAsRename() {
  SetDlgItemText(IDC_FOLDER_NAME, oldName_.c_str());
  SetDlgItemText(IDOK, "変更");
}

void CvNewFolder::OnOK() {
  CString text;
  GetDlgItemText(IDC_FOLDER_NAME, text);
  name_ = text.View();
  const OperationResult result = Carry();
  if (!filedialog::IsRefusal(result.outcome)) return EndDialog(IDOK);
  if (result.outcome == OperationResult::Outcome::Stranded) stranded_ = true;
  ShowRefusal(result);
}

OperationResult CvNewFolder::Carry() const {
  return mode_ == Mode::Create ? filedialog::CreateFolderIn(os::Services(), folder_, name_)
                               : filedialog::RenameEntry(os::Services(), folder_, oldName_, name_);
}

void CvNewFolder::ShowRefusal(const OperationResult& result) {
  MessageBox(result.message.c_str(), result.caption.c_str(), MB_OK | MB_ICONHAND);
  const WindowRef name(::GetDlgItem(m_hWnd, IDC_FOLDER_NAME));
  GotoDlgCtrl(&name);
}
