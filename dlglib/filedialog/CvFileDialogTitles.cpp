// The titles of models: which of them are columns, and whether many models are sorted by one.
#include "dlglib/filedialog/CvFileDialog.h"
#include "dlglib/filedialog/CvMdlConfirm.h"
#include "dlglib/filedialog/CvMdlTitle.h"
#include "dlglib/filedialog/title_slots.h"
#include "dlglib/utility/at_scope_end.h"

/// New columns start with widths of their own: those on the screen are of the former ones, so they are not taken over.
void CvFileDialog::EditTitles() {
  CvMdlTitle dialog(this, {layout_.confirm, layout_.modelLimit});
  dialog.SetTitles(filedialog::SlotsOf(layout_.titles));
  if (dialog.DoModal() != IDOK) return;
  layout_.titles = filedialog::TitleColumnsOf(dialog.Titles());
  WriteWindowLayout();
}

/// A yes holds until the view is set anew. The header takes no further click while the question is open.
bool CvFileDialog::ConfirmSlowSort() {
  const HeaderRef header = list_.GetHeaderCtrl();
  const LifeWatch watch(*this);
  CvMdlConfirm question(this, {layout_.confirm, layout_.modelLimit});
  header.EnableWindow(FALSE);
  const AtScopeEnd answered([&] {
    if (watch.Alive()) header.EnableWindow(TRUE);
  });
  const bool agreed = question.DoModal() == IDOK;
  if (!watch.Alive()) return false;
  sortConfirmed_ = sortConfirmed_ || agreed;
  return agreed;
}
