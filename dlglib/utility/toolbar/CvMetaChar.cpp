#include "dlglib/utility/toolbar/CvMetaChar.h"

#include "dlglib/resources/resource.h"
#include "dlglib/utility/toolbar/CvCopyEdit.h"
#include "dlglib/utility/toolbar/meta_char_table.h"
#include "platform/framework/controls.h"
#include "platform/framework/data_exchange.h"

CvMetaChar::CvMetaChar(CWnd* parent) : CvScaledDialog(IDD_META_CHAR, parent) {}

void CvMetaChar::SetButtonRect(const RECT& button) { button_ = button; }

INT_PTR CvMetaChar::DoModal() {
  const ResourceModuleScope resources(ThisModule());
  hasCopied_ = false;
  return CDialog::DoModal();
}

bool CvMetaChar::HasCopied() const { return hasCopied_; }

const CString& CvMetaChar::Escape() const { return escape_; }

Handled CvMetaChar::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvMetaChar> kRows[] = {
      OnNotify(IDC_META_LIST, NM_CLICK, &CvMetaChar::Choose),
  };
  return Route<CvScaledDialog>(*this, kRows, message);
}

BOOL CvMetaChar::OnInitDialog() {
  FillList();
  list_.emplace(::GetDlgItem(m_hWnd, IDC_META_LIST), "メタ文字");
  UpdateData(FALSE);
  if (button_) SetWindowPos(nullptr, button_->left, button_->bottom, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  return TRUE;
}

/// Enter does what a click does, and nothing as long as no row is selected.
void CvMetaChar::OnOK() { Choose(); }

void CvMetaChar::DoDataExchange(CDataExchange* exchange) { DDX_Text(exchange, IDC_META_EDIT, escape_); }

void CvMetaChar::FillList() {
  const ListCtrlRef list(::GetDlgItem(m_hWnd, IDC_META_LIST));
  RECT client = {};
  list.GetClientRect(&client);
  list.InsertColumn(0, "", LVCFMT_LEFT, client.right);
  LVITEMA item = {};
  item.mask = LVIF_TEXT | LVIF_STATE;
  item.state = INDEXTOSTATEIMAGEMASK(1);
  item.stateMask = LVIS_STATEIMAGEMASK;
  for (const std::string_view row : meta_char_table::kRows) {
    item.pszText = const_cast<char*>(row.data());
    list.InsertItem(&item);
    ++item.iItem;
  }
  list.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
}

/// A column that is too wide has a scroll bar, which may need another one, and that takes room from the column.
void CvMetaChar::OnScaled(scale::Scale) {
  const ListCtrlRef list(::GetDlgItem(m_hWnd, IDC_META_LIST));
  list.SetColumnWidth(0, 0);
  RECT client = {};
  list.GetClientRect(&client);
  list.SetColumnWidth(0, client.right);
}

void CvMetaChar::Choose() {
  const ListCtrlRef list(::GetDlgItem(m_hWnd, IDC_META_LIST));
  for (int row = list.GetNextItem(-1, LVNI_SELECTED); row >= 0; row = list.GetNextItem(row, LVNI_SELECTED)) Copy(row);
}

void CvMetaChar::Copy(int row) {
  const auto escape = meta_char_table::EscapeOf(row);
  if (!escape) return;
  escape_ = CString(*escape);
  UpdateData(FALSE);
  CvCopyEdit edit;
  hasCopied_ = edit.Attach(::GetDlgItem(m_hWnd, IDC_META_EDIT)) && edit.CopyAll();
  EndDialog(IDOK);
}
