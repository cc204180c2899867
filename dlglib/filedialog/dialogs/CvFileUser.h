// CvFileUser: asks for the user name and the password that a network folder wants.
//
//   CvFileUser dialog(this, "\\\\server\\share");
//   if (dialog.DoModal() == IDOK) Connect(resource, dialog.Password(), dialog.UserName());
//
// It only asks: whoever runs it connects, and runs it again when that fails.
#pragma once

#include <cstddef>
#include <string>

#include "dlglib/base/CvScaledDialog.h"

class CvFileUser : public CvScaledDialog {
 public:
  /// Longest user name and longest password, in characters.
  static constexpr std::size_t kLimit = 64;

  /// `parent` (borrowed, may be null) owns the dialog; `path` (Shift_JIS) is shown for reading only.
  CvFileUser(CWnd* parent, std::string path);

  /// What the user typed (Shift_JIS, at most kLimit characters), after DoModal has answered IDOK; after any other
  /// answer the user name of the last OK and no password. A further run starts with the former user name, whose
  /// password is to be typed anew.
  [[nodiscard]] const std::string& UserName() const noexcept { return userName_; }
  [[nodiscard]] const std::string& Password() const noexcept { return password_; }

  /// The user name that the next run starts with.
  void SetUserName(const std::string& userName) { userName_ = userName; }

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;

 private:
  [[nodiscard]] std::string Typed(int id) const;

  std::string path_;
  std::string userName_;
  std::string password_;
};
