#include "dlglib/filedialog/dialogs/CvMdlConfirm.h"

#include "dlglib/filedialog/dialogs/CvMdlSort.h"
#include "dlglib/resources/resource.h"

CvMdlConfirm::CvMdlConfirm(CWnd* browser, filedialog::SlowSortRule& rule)
    : CvScaledDialog(IDD_MODEL_CONFIRM, browser), rule_(rule) {}

Handled CvMdlConfirm::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvMdlConfirm> kRows[] = {
      OnCommand(IDC_CONFIRM_SORT, BN_CLICKED, &CvMdlConfirm::OnSortConditions),
  };
  return Route<CvScaledDialog>(*this, kRows, message);
}

BOOL CvMdlConfirm::OnInitDialog() {
  CDialog::OnInitDialog();
  CenterWindow();
  SetDlgItemText(IDC_CONFIRM_COUNT, filedialog::BeyondLimitText(rule_.limit).c_str());
  return TRUE;
}

void CvMdlConfirm::OnSortConditions() { CvMdlSort::Edit(this, &rule_); }
