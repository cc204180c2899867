// CvMdlConfirm: the question whether so many models shall be sorted by a title.
//
//   CvMdlConfirm question(this, layout.slowSort);
//   if (question.DoModal() == IDOK) Sort();
//
// IDOK is "yes"; "no", Esc and the close box are IDCANCEL. The conditions can be changed from inside; they are stored
// at once and count from the next sort on, the open question keeps the number with which it was asked.
#pragma once

#include "dlglib/base/CvScaledDialog.h"
#include "dlglib/filedialog/titles/slow_sort_choice.h"

class CvMdlConfirm : public CvScaledDialog {
 public:
  /// `browser` owns the dialog's window, and whoever asks owns the rule; both are borrowed.
  CvMdlConfirm(CWnd* browser, filedialog::SlowSortRule& rule);

  Handled RouteMessage(const Message& message) override;

 protected:
  BOOL OnInitDialog() override;

 private:
  void OnSortConditions();

  filedialog::SlowSortRule& rule_;
};
