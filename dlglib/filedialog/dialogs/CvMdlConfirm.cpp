#include "dlglib/filedialog/dialogs/CvMdlConfirm.h"

#include "dlglib/filedialog/dialogs/CvMdlSort.h"
#include "dlglib/resources/resource.h"

CvMdlConfirm::CvMdlConfirm(CWnd* browser, const filedialog::SortSettings& settings)
    : CDialog(IDD_MODEL_CONFIRM, browser), settings_(settings) {}

Handled CvMdlConfirm::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvMdlConfirm> kRows[] = {
      OnCommand(IDC_CONFIRM_SORT, BN_CLICKED, &CvMdlConfirm::OnSortConditions),
  };
  return Route<CDialog>(*this, kRows, message);
}

BOOL CvMdlConfirm::OnInitDialog() {
  CDialog::OnInitDialog();
  CenterWindow();
  SetDlgItemText(IDC_CONFIRM_COUNT, filedialog::BeyondLimitText(settings_.limit).c_str());
  return TRUE;
}

void CvMdlConfirm::OnSortConditions() { CvMdlSort::Edit(this, settings_); }
