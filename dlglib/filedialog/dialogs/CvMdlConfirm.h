// CvMdlConfirm: the question whether so many models shall be sorted by a title.
//
//   CvMdlConfirm question(this, {layout.confirm, layout.modelLimit});
//   if (question.DoModal() == IDOK) Sort();
//
// IDOK is "yes"; "no", Esc and the close box are IDCANCEL. The conditions can be changed from inside; they are stored
// at once and count from the next sort on, the open question keeps the number with which it was asked.
#pragma once

#include "dlglib/filedialog/titles/sort_condition.h"
#include "platform/framework/dialog.h"

class CvMdlConfirm : public CDialog {
 public:
  /// `browser` owns the settings and the dialog's window; borrowed.
  CvMdlConfirm(CWnd* browser, const filedialog::SortSettings& settings);

  Handled RouteMessage(const Message& message) override;

 protected:
  BOOL OnInitDialog() override;

 private:
  void OnSortConditions();

  filedialog::SortSettings settings_;
};
