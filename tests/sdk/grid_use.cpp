#include <dlglib/dlglib.h>

#include <array>

#include "check.h"
#include "parts.h"
#include "tests/windows/driver/user.h"
#include "visible_child.h"

namespace client {
namespace {

constexpr UINT kTemplate = 10008;
constexpr int kTable = 101;
constexpr int kMessage = 102;
constexpr int kEditBox = 10000;
constexpr int kList = 10002;

/// Fills the table of a dialog, whichever kind it is.
void Fill(CvListControl& table, CWnd* dialog) {
  const std::array<int, 3> limits = {4, 20, 10};
  table.InitList(dialog, kTable, 3, limits.data(), 5, 8, 0);
  table.SetMessageWindow(CWnd::FromHandle(::GetDlgItem(dialog->m_hWnd, kMessage)));
  table.SetColumn(0, "番号", 1.5);
  table.SetColumn(1, "品名", 5.0);
  table.SetColumn(2, "材質", 3.5, LVCFMT_LEFT, DT_SINGLELINE, 0);
  table.SetEdit(1, 0, 20, "品名を入力");
  table.SetEdit(2, 1, 10, "材質を入力");
  CStringList materials;
  materials.AddTail("SS400 鋼");
  materials.AddTail("PTFE 樹脂");
  table.SetCombo(2, 2, &materials, "材質を選択");
  for (int row = 0; row < 5; ++row) {
    CString number;
    number.Format("%d", row + 1);
    table.SetItemText(row, 0, number);
    table.SetItemText(row, 1, "表示ﾗﾝﾌﾟ");
    table.SetItemText(row, 2, "PC");
  }
}

/// A dialog of the library's framework.
class TableDialog : public CDialog {
 public:
  TableDialog() : CDialog(kTemplate) {}

  CvListControl table;

 private:
  BOOL OnInitDialog() override {
    Fill(table, this);
    return CDialog::OnInitDialog();
  }
  Handled RouteMessage(const Message& message) override {
    static constexpr MessageRow<TableDialog> kRows[] = {OnMessage(WM_DRAWITEM, &TableDialog::OnDraw),
                                                        OnNotify(kTable, NM_CLICK, &TableDialog::OnClick)};
    return Route<CDialog>(*this, kRows, message);
  }
  LRESULT OnDraw(const Message& message) {
    table.OnDrawItem(message.Data<DRAWITEMSTRUCT>());
    return TRUE;
  }
  LRESULT OnClick(const Message&) {
    table.ClickItem();
    return 0;
  }
};

/// A dialog procedure that knows nothing of the framework.
INT_PTR CALLBACK PlainDialog(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const table = reinterpret_cast<CvListControl*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  switch (message) {
    case WM_INITDIALOG:
      SetWindowLongPtrA(window, GWLP_USERDATA, lParam);
      Fill(*reinterpret_cast<CvListControl*>(lParam), CWnd::FromHandle(window));
      return TRUE;
    case WM_DRAWITEM:
      if (table != nullptr) table->OnDrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case WM_NOTIFY: {
      const auto* const notified = reinterpret_cast<const NMHDR*>(lParam);
      if (table != nullptr && notified->idFrom == kTable &&
          static_cast<int>(notified->code) == static_cast<int>(NM_CLICK)) {
        table->ClickItem();
      }
      return FALSE;
    }
    case WM_COMMAND:
      if (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL) return FALSE;
      EndDialog(window, LOWORD(wParam));
      return TRUE;
    default:
      return FALSE;
  }
}

void EditCells(driver::User& user) {
  const driver::Window dialog = user.WaitDialog("部品表");
  const driver::ListView table(dialog.Child(kTable));
  const auto middle = [&table](int row, int col) { return driver::Center(table.CellRect(row, col)); };
  user.Click(middle(1, 1));
  user.WaitUntil("the name is edited",
                 [&] { return VisibleChild(dialog, kEditBox) && VisibleChild(dialog, kEditBox).HasFocus(); });
  CheckText(VisibleChild(dialog, kEditBox).Text(), "表示ﾗﾝﾌﾟ", "the edit box shows the cell's text");
  CheckText(dialog.Child(kMessage).Text(), "品名を入力", "the prompt is shown");
  user.Type("ソレノイド弁");
  user.Click(middle(2, 2));
  user.WaitUntil("the material is edited",
                 [&] { return VisibleChild(dialog, kEditBox) && VisibleChild(dialog, kEditBox).Text() == "PC"; });
  const RECT cell = table.CellRect(2, 2);
  user.Click({cell.right - 9, (cell.top + cell.bottom) / 2});
  user.WaitUntil("the list drops down",
                 [&] { return VisibleChild(dialog, kList) && VisibleChild(dialog, kList).IsDropped(); });
  const RECT entries = VisibleChild(dialog, kList).ComboList().ClientScreenRect();
  user.Click({entries.left + 10, entries.top + 5});
  user.WaitUntil("the list closes", [&] { return !VisibleChild(dialog, kList); });
  user.Click(dialog.Child(IDOK));
}

void CheckCells(CvListControl& table) {
  std::array<char, 386> text = {};
  table.GetItemText(1, 1, text.data());
  CheckText(text.data(), "ソレノイド弁", "the typed name is in its cell");
  table.GetItemText(2, 2, text.data());
  CheckText(text.data(), "SS400", "the value of the picked entry is in its cell");
  table.GetItemText(0, 1, text.data());
  CheckText(text.data(), "表示ﾗﾝﾌﾟ", "other cells are as they were");
}

}  // namespace

void UseGrid() {
  TableDialog dialog;
  INT_PTR answer = 0;
  driver::RunDialog([&] { answer = dialog.DoModal(); }, EditCells);
  Check(answer == IDOK, "the dialog ends with OK");
  CheckCells(dialog.table);

  CvListControl table;
  driver::RunDialog(
      [&] {
        answer = DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(kTemplate), nullptr, &PlainDialog,
                                 reinterpret_cast<LPARAM>(&table));
      },
      EditCells);
  Check(answer == IDOK, "the plain dialog ends with OK");
  CheckCells(table);
}

}  // namespace client
