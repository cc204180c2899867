#include "dlglib/filedialog/dialogs/CvNewFolder.h"

#include <utility>

#include "dlglib/base/CvScaledImages.h"
#include "dlglib/base/scaled_images.h"
#include "dlglib/filedialog/names/entry_name.h"
#include "dlglib/resources/resource.h"
#include "platform/framework/controls.h"
#include "platform/os/edit_composition.h"
#include "platform/os/sjis_edit.h"

using filedialog::OperationResult;

namespace {

// The template leaves the title bar empty, as the dialog serves two purposes.
constexpr const char* kCreateTitle = "新しいフォルダの作成";
constexpr const char* kRenameTitle = "名前の変更";

/// Between the name and the buttons, in dialog units.
constexpr RECT kLine{36, 26, 200, 35};

/// What the field is called, which has no label.
constexpr const char* kNameField = "名前";

}  // namespace

CvNewFolder::CvNewFolder(CWnd* parent, std::string folder)
    : CvScaledDialog(IDD_NEW_FOLDER, parent),
      folder_(std::move(folder)),
      line_(*this, kLine),
      wait_(*this, escWatch_,
            {[this](MSG& message) { HandleOne(message); }, [this](const std::string& text) { line_.Show(text); },
             [this] { line_.Hide(); }}),
      patience_(&wait_, CvWait::Workers()),
      machine_(os::Services(), patience_) {}

/// What is left of a press of Esc that gave a wait up.
BOOL CvNewFolder::PreTranslateMessage(MSG* message) {
  return escWatch_.Drops(*message) ? TRUE : CvScaledDialog::PreTranslateMessage(message);
}

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
  nameField_.emplace(name.m_hWnd, kNameField);  // first: what comes later leaves the window first
  os::KeepToShiftJis(name.m_hWnd);
  os::KeepCompositionsWhole(name.m_hWnd);
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
  if (patience_.IsWaiting()) return;
  CString text;
  GetDlgItemText(IDC_FOLDER_NAME, text);
  name_ = text.View();
  const std::optional<OperationResult> result = Carry();
  if (!result) return;
  if (!filedialog::IsRefusal(result->outcome)) return EndDialog(IDOK);
  if (result->outcome == OperationResult::Outcome::Stranded) stranded_ = true;
  ShowRefusal(*result);
}

void CvNewFolder::OnCancel() {
  if (patience_.IsWaiting()) patience_.EndWithWindow();
  CDialog::OnCancel();
}

/// None when the wait for it ended without an answer. It may happen all the same, so the folder is to be listed again.
std::optional<OperationResult> CvNewFolder::Carry() {
  try {
    return Operate();
  } catch (const filedialog::WaitEnded& ended) {
    stranded_ = true;
    if (ended.how != filedialog::WaitEnded::How::WindowGone) FocusName();
    return std::nullopt;
  }
}

OperationResult CvNewFolder::Operate() const {
  return mode_ == Mode::Create ? filedialog::CreateFolderIn(machine_.Table(), folder_, name_)
                               : filedialog::RenameEntry(machine_.Table(), folder_, oldName_, name_);
}

void CvNewFolder::ShowRefusal(const OperationResult& result) {
  MessageBox(result.message.c_str(), result.caption.c_str(), MB_OK | MB_ICONHAND);
  FocusName();
}

void CvNewFolder::FocusName() {
  const WindowRef name(::GetDlgItem(m_hWnd, IDC_FOLDER_NAME));
  GotoDlgCtrl(&name);
}
