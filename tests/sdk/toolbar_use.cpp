#include <dlglib/dlglib.h>

#include <string>

#include "check.h"
#include "parts.h"
#include "tests/windows/driver/user.h"

namespace client {
namespace {

constexpr int kTemplate = 10009;
constexpr int kText = 101;
constexpr int kRemark = 102;
constexpr int kToolBar = 10003;
constexpr char kTitle[] = "注記の入力";

std::string Euc(const char* sjis) { return CwEucEncoder::Sjis2Euc(sjis, MAX_PATH); }

/// A dialog that knows nothing of the library, but for the utility beside it.
INT_PTR CALLBACK NoteProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    CvUtility& utility = *reinterpret_cast<CvUtility*>(lParam);
    utility.SetParentWindow(CWnd::FromHandle(window));
    CDWordArray moved;
    for (const DWORD id : {DWORD{kText}, DWORD{kRemark}, DWORD{IDCANCEL}}) moved.Add(id);
    utility.SetTlbFileName("NOTES.TLB");
    utility.SetToolBar(7, &moved);
    return TRUE;
  }
  if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(window, IDCANCEL);
  return FALSE;
}

class Note {
 public:
  explicit Note(driver::User& user)
      : user_(user), dialog_(user.WaitDialog(kTitle)), bar_(dialog_.Child(kToolBar)), text_(dialog_.Child(kText)) {
    user_.Click(text_);
  }

  void InsertLibraryText() {
    ClickButton(0);
    const driver::Window library = Wait("テキストライブラリ");
    Check(library.FindChildOfClass("ListBox").Items().size() == 1, "the texts of the named library are listed");
    user_.Key(VK_DOWN);
    user_.Key(VK_RETURN);
    WaitText("SEE SHEET 2");
  }
  void InsertMetaChar() {
    ClickButton(1);
    const driver::Window picker = Wait("メタ文字");
    const driver::ListView rows(picker.FindChildOfClass("SysListView32"));
    user_.Click(driver::Center(rows.ItemRect(9)));
    WaitText("SEE SHEET 2<mc>,");
  }
  void InsertRegister() {
    ClickButton(2);
    const driver::Window registers = Wait("レジスタ");
    const driver::ListView rows(registers.FindChildOfClass("SysListView32"));
    user_.DoubleClick(driver::Center(rows.CellRect(1, 2)));
    WaitText("SEE SHEET 2<mc>,表面0.3333333333");
  }
  void ChooseRegisterText() {
    ClickButton(2);
    const driver::Window registers = Wait("レジスタ");
    user_.Key(VK_END);
    user_.Key(VK_RETURN);
    user_.WaitGone(registers);
    WaitText("SEE SHEET 2<mc>,表面");
  }
  void Close() { user_.Click(dialog_.Child(IDCANCEL)); }

 private:
  void ClickButton(int index) {
    RECT place = {};
    driver::TargetMemory memory(bar_.Handle(), sizeof place);
    bar_.Send(TB_GETITEMRECT, static_cast<WPARAM>(index), memory.At());
    memory.Read(&place, sizeof place);
    const RECT client = bar_.ClientScreenRect();
    OffsetRect(&place, client.left, client.top);
    user_.Click(driver::Center(place));
  }
  [[nodiscard]] driver::Window Wait(const char* title) const {
    const driver::Window dialog = user_.WaitDialog(title);
    user_.WaitUntil("it is in front", [&] { return dialog.IsForeground(); });
    user_.Settle();
    return dialog;
  }
  void WaitText(const std::string& text) const {
    user_.WaitUntil("the field shows " + text, [&] { return text_.Text() == text && text_.HasFocus(); });
  }

  driver::User& user_;
  driver::Window dialog_;
  driver::Window bar_;
  driver::Window text_;
};

void FillSession() {
  CwTextLibrary& texts = *CwSession::GetInstance()->GetTextLibrary();
  texts.AddText("NOTES.TLB", "SEE SHEET 2");
  texts.AddText("OTHER.TLB", "SEE SHEET 3");
  CwRegisterSet& registers = *CwSession::GetInstance()->GetRegisterSet();
  registers.AddRegister("A1")->SetScalar(0.1);
  registers.AddRegister("A2")->SetScalar(1.0 / 3);
  registers.AddRegister("B0")->SetText(Euc("表面"));
}

void Use(driver::User& user) {
  Note note(user);
  note.InsertLibraryText();
  note.InsertMetaChar();
  note.ChooseRegisterText();
  note.InsertRegister();
  note.Close();
}

}  // namespace

void UseToolBar() {
  FillSession();
  CvUtility utility;
  driver::RunDialog(
      [&] {
        DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(kTemplate), nullptr, &NoteProcedure,
                        reinterpret_cast<LPARAM>(&utility));
      },
      Use);
}

}  // namespace client
