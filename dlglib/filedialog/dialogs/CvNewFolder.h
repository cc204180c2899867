// CvNewFolder: makes a folder in the current folder, or renames an entry of it.
//
//   CvNewFolder dialog(this, folder);
//   if (dialog.DoModal() == IDOK) ListAgainAndSelect(dialog.Name());
//
//   CvNewFolder dialog(this, folder);
//   dialog.SetRename(name, isFile);
//   if (dialog.DoModal() == IDOK || dialog.HasStranded()) ListAgain();
//
// The dialog does the work itself before it ends. A refused name is answered with a beep and a message box, whose
// owner is the dialog; then the dialog is there for another try, with the name selected and the focus on it.
//
// A device that does not answer is waited for while the dialog lives; after 0.3 s a line says so. Esc gives that up,
// and the dialog stays; cancel ends it. What was given up may happen all the same, and nobody is told of it: a folder
// that is made too late is listed when the list is next made anew (F5), a new name at the end of this dialog.
#pragma once

#include <optional>
#include <string>

#include "dlglib/base/CvScaledDialog.h"
#include "dlglib/filedialog/basics/patient_services.h"
#include "dlglib/filedialog/names/folder_operations.h"
#include "dlglib/filedialog/waiting/CvEscWatch.h"
#include "dlglib/filedialog/waiting/CvWait.h"
#include "dlglib/filedialog/waiting/CvWaitLine.h"
#include "platform/framework/detail/accessible.h"

class CvNewFolder : public CvScaledDialog {
 public:
  /// Creates a folder in `folder` (full path, Shift_JIS, with or without a "\" at its end). `parent` (borrowed, may be
  /// null) owns the dialog.
  CvNewFolder(CWnd* parent, std::string folder);
  BOOL PreTranslateMessage(MSG* message) override;

  /// Renames the entry `oldName` of the folder instead; `isFile` also for a shortcut to a file.
  void SetRename(std::string oldName, bool isFile);

  /// The name of the folder that was created, or the entry's name now, after DoModal has answered IDOK.
  [[nodiscard]] const std::string& Name() const noexcept { return name_; }
  /// Whether a renaming may have stopped half-way; also after DoModal has answered IDCANCEL.
  [[nodiscard]] bool HasStranded() const noexcept { return stranded_; }

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;
  void OnScaled(scale::Scale before) override;
  void OnColoursChanged() override { ShowIcon(); }

 private:
  enum class Mode { Rename = 0, Create = 1 };

  void ShowAsRename();
  void ShowIcon();
  [[nodiscard]] std::optional<filedialog::OperationResult> Carry();
  [[nodiscard]] filedialog::OperationResult Operate() const;
  void ShowRefusal(const filedialog::OperationResult& result);
  void FocusName();

  Mode mode_ = Mode::Create;
  std::string folder_;
  std::string name_;
  std::string oldName_;
  bool isFile_ = false;
  UniqueIcon icon_;
  bool stranded_ = false;
  CvWaitLine line_;
  CvEscWatch escWatch_;
  CvWait wait_;
  filedialog::Patience patience_;
  filedialog::PatientServices machine_;
  std::optional<NamedControl> nameField_;
};
