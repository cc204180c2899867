#include "tests/windows/driver/test_dialog.h"

#include <windows.h>

#include <commctrl.h>

namespace driver_test {
namespace {

constexpr int kTemplate = 101;

Record* noticed = nullptr;

void AddRow(HWND list, int row, const char* name, const char* size) {
  std::string text = name;
  LVITEMA item = {};
  item.mask = LVIF_TEXT;
  item.iItem = row;
  item.pszText = text.data();
  SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
  text = size;
  item.iSubItem = 1;
  item.pszText = text.data();
  SendMessageA(list, LVM_SETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void AddColumn(HWND list, int column, const char* title, int width) {
  std::string text = title;
  LVCOLUMNA data = {};
  data.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
  data.fmt = column == 0 ? LVCFMT_LEFT : LVCFMT_RIGHT;
  data.cx = width;
  data.pszText = text.data();
  SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&data));
}

void Fill(HWND dialog) {
  for (int i = 0; i < 12; ++i) {
    const std::string text = "項目" + std::to_string(i);
    SendDlgItemMessageA(dialog, kCombo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
  }
  SendDlgItemMessageA(dialog, kCombo, CB_SETCURSEL, 1, 0);
  HWND list = GetDlgItem(dialog, kList);
  AddColumn(list, 0, "名前", 120);
  AddColumn(list, 1, "サイズ", 80);
  AddRow(list, 0, "表.mdl", "1");
  AddRow(list, 1, "ソ能.mdl", "2");
  AddRow(list, 2, "ｱｲｳ.mdl", "3");
}

void RunMenu(HWND dialog) {
  HMENU menu = CreatePopupMenu();
  AppendMenuA(menu, MF_STRING, 1, "開く(&O)");
  AppendMenuA(menu, MF_STRING | MF_GRAYED, 2, "削除");
  AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
  AppendMenuA(menu, MF_STRING | MF_CHECKED, 3, "詳細");
  noticed->menuChoice = static_cast<UINT>(TrackPopupMenu(menu, TPM_RETURNCMD, 300, 200, 0, dialog, nullptr));
  DestroyMenu(menu);
}

void OnCommand(HWND dialog, int id) {
  switch (id) {
    case kMenuButton:
      RunMenu(dialog);
      break;
    case kCheck:
      Sleep(noticed->busyMs);
      SetDlgItemTextA(dialog, kEdit, "表示");
      break;
    case kAskButton:
      noticed->boxAnswer = MessageBoxA(dialog, "削除しますか？", "確認", MB_YESNO | MB_ICONQUESTION);
      break;
    case IDOK:
    case IDCANCEL: {
      char text[200] = "";
      GetDlgItemTextA(dialog, kEdit, text, sizeof text);
      noticed->editText = text;
      EndDialog(dialog, id);
      break;
    }
    default:
      break;
  }
}

void OnNotify(const NMHDR* header) {
  const auto* item = reinterpret_cast<const NMLISTVIEW*>(header);
  switch (header->code) {
    case NM_CLICK:
      noticed->clickedRows.push_back(item->iItem);
      break;
    case NM_DBLCLK:
      noticed->doubleClickedRows.push_back(item->iItem);
      break;
    case NM_RCLICK:
      noticed->rightClickedRows.push_back(item->iItem);
      break;
    case LVN_COLUMNCLICK:
      noticed->clickedColumns.push_back(item->iSubItem);
      break;
    default:
      break;
  }
}

INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      if (noticed->crashesAtStart) Crash();
      Fill(dialog);
      return TRUE;
    case WM_COMMAND:
      if (HIWORD(wParam) == BN_CLICKED) OnCommand(dialog, LOWORD(wParam));
      return FALSE;
    case WM_NOTIFY:
      OnNotify(reinterpret_cast<const NMHDR*>(lParam));
      return FALSE;
    default:
      return FALSE;
  }
}

}  // namespace

void ShowTestDialog(Record* record) {
  noticed = record;
  InitCommonControls();
  noticed->result =
      static_cast<int>(DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(kTemplate), nullptr, DialogProc, 0));
}

void Crash() {
  volatile int* volatile nowhere = nullptr;  // volatile, so that the compiler keeps the write
  *nowhere = 0;
}

}  // namespace driver_test
