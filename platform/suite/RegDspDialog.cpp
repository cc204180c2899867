#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "platform/os/sjis_wide.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvndlg.h"
#include "platform/suite/register_rows.h"
#include "platform/suite/suite_dialog.h"
#include "platform/suite/suite_resource.h"

namespace {

using suite::RegisterRow;

class RegisterDialog {
 public:
  explicit RegisterDialog(const char* title)
      : title_(title != nullptr ? title : ""),
        rows_(suite::RegisterRows(*CwSession::GetInstance()->GetRegisterSet())) {}

  /// 0 for none.
  [[nodiscard]] int Code() const { return code_; }

  INT_PTR Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    window_ = window;
    if (message == WM_INITDIALOG) return OnInit();
    if (message == WM_NOTIFY) return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    return message == WM_COMMAND ? OnCommand(LOWORD(wParam)) : FALSE;
  }

 private:
  INT_PTR OnInit() {
    ::SetWindowTextW(window_, os::WideOf(title_).c_str());
    ::SendMessageW(List(), LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    AddColumns();
    ::SendMessageW(List(), LVM_SETITEMCOUNT, rows_.size(), 0);
    for (std::size_t i = 0; i < rows_.size(); ++i) AddRow(static_cast<int>(i), rows_[i]);
    FitLastColumn();
    ShowSelection();
    ::SetFocus(List());
    return FALSE;
  }

  INT_PTR OnNotify(const NMHDR& header) {
    if (header.idFrom != IDC_REGISTER_LIST) return FALSE;
    if (header.code == LVN_ITEMCHANGED) ShowSelection();
    if (header.code == NM_DBLCLK) Choose();
    return FALSE;
  }

  INT_PTR OnCommand(int id) {
    if (id == IDOK) Choose();
    if (id == IDCANCEL) ::EndDialog(window_, IDCANCEL);
    return id == IDOK || id == IDCANCEL ? TRUE : FALSE;
  }

  void AddColumns() const {
    const int narrow = ClientWidth() / 6;
    AddColumn(0, "グループ", narrow);
    AddColumn(1, "名前", narrow);
    AddColumn(2, "値", 0);
  }

  /// The value takes what the two others leave, and a scroll bar when the rows need one.
  void FitLastColumn() const {
    const auto width = [this](WPARAM column) { return ::SendMessageW(List(), LVM_GETCOLUMNWIDTH, column, 0); };
    ::SendMessageW(List(), LVM_SETCOLUMNWIDTH, 2, ClientWidth() - width(0) - width(1));
  }

  [[nodiscard]] int ClientWidth() const {
    RECT client = {};
    ::GetClientRect(List(), &client);
    return client.right;
  }

  void AddColumn(int index, const char* title, int width) const {
    std::wstring text = os::WideOf(title);
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    column.pszText = text.data();
    column.cx = width;
    column.iSubItem = index;
    ::SendMessageW(List(), LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
  }

  void AddRow(int index, const RegisterRow& row) const {
    SetCell(LVM_INSERTITEMW, index, 0, row.group);
    SetCell(LVM_SETITEMW, index, 1, row.name);
    SetCell(LVM_SETITEMW, index, 2, row.value);
  }

  void SetCell(UINT message, int index, int column, const std::string& sjis) const {
    std::wstring text = os::WideOf(sjis);
    LVITEMW item = {};
    item.mask = LVIF_TEXT;
    item.iItem = index;
    item.iSubItem = column;
    item.pszText = text.data();
    ::SendMessageW(List(), message, 0, reinterpret_cast<LPARAM>(&item));
  }

  void ShowSelection() const {
    const RegisterRow* row = Selected();
    ::EnableWindow(::GetDlgItem(window_, IDOK), row != nullptr && row->code > 0);
    const bool refused = row != nullptr && row->code == 0;
    const std::wstring note = os::WideOf(refused ? "このレジスタは選択できません。" : "");
    ::SetDlgItemTextW(window_, IDC_REGISTER_NOTE, note.c_str());
  }

  void Choose() {
    const RegisterRow* row = Selected();
    if (row == nullptr || row->code == 0) return;
    code_ = row->code;
    ::EndDialog(window_, IDOK);
  }

  [[nodiscard]] const RegisterRow* Selected() const {
    const auto index = ::SendMessageW(List(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
    if (index < 0 || static_cast<std::size_t>(index) >= rows_.size()) return nullptr;
    return &rows_[static_cast<std::size_t>(index)];
  }

  [[nodiscard]] HWND List() const { return ::GetDlgItem(window_, IDC_REGISTER_LIST); }

  HWND window_ = nullptr;
  std::string title_;
  std::vector<RegisterRow> rows_;
  int code_ = 0;
};

}  // namespace

int RegDspDialog(const char* title, void* owner, int) {
  try {
    RegisterDialog dialog(title);
    return suite::RunDialog(IDD_REGISTERS, owner, &dialog) == IDOK ? dialog.Code() : 0;
  } catch (const std::exception&) {
    return 0;
  }
}
