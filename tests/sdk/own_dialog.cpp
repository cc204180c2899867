#include <dlglib/dlglib.h>

#include "check.h"
#include "parts.h"
#include "tests/windows/driver/user.h"

namespace client {
namespace {

constexpr UINT kTemplate = 10007;
constexpr int kName = 101;
constexpr int kBought = 102;
constexpr int kMade = 103;
constexpr int kUnit = 104;

class PartDialog : public CDialog {
 public:
  explicit PartDialog(CWnd* parent) : CDialog(kTemplate, parent) {}

  CString name = "表示ﾗﾝﾌﾟ";
  int origin = 0;
  int unit = 1;
  int nameChanges = 0;

 private:
  Handled RouteMessage(const Message& message) override {
    static constexpr MessageRow<PartDialog> kRows[] = {OnCommand(kName, EN_CHANGE, &PartDialog::OnNameChange)};
    return Route<CDialog>(*this, kRows, message);
  }
  BOOL OnInitDialog() override {
    for (const char* unitName : {"個", "本", "枚"}) {
      SendDlgItemMessage(kUnit, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(unitName));
    }
    return CDialog::OnInitDialog();
  }
  void DoDataExchange(CDataExchange* exchange) override {
    DDX_Text(exchange, kName, name);
    DDX_Radio(exchange, kBought, origin);
    DDX_CBIndex(exchange, kUnit, unit);
  }
  void OnNameChange() { ++nameChanges; }
};

void FillIn(driver::User& user) {
  const driver::Window dialog = user.WaitDialog("部品の登録");
  CheckText(dialog.Child(kName).Text(), "表示ﾗﾝﾌﾟ", "the member's text stands in the control");
  Check(dialog.Child(kBought).CheckState() == BST_CHECKED, "the member's choice is checked");
  CheckText(dialog.Child(kUnit).Text(), "本", "the member's entry is selected");
  user.Replace(dialog.Child(kName), "ソレノイド弁");
  user.Click(dialog.Child(kMade));
  user.ChooseComboItem(dialog.Child(kUnit), 2);
  user.Click(dialog.Child(IDOK));
}

}  // namespace

void UseOwnDialog() {
  PartDialog dialog(nullptr);
  INT_PTR answer = 0;
  driver::RunDialog([&] { answer = dialog.DoModal(); }, FillIn);
  Check(answer == IDOK, "the dialog ends with OK");
  CheckText(std::string(dialog.name), "ソレノイド弁", "the control's text stands in the member");
  Check(dialog.origin == 1, "the choice stands in the member");
  Check(dialog.unit == 2, "the entry stands in the member");
  Check(dialog.nameChanges > 0, "a row of the message map is called");

  driver::RunDialog([&] { answer = dialog.DoModal(); },
                    [](driver::User& user) {
                      static_cast<void>(user.WaitDialog("部品の登録"));
                      user.Key(VK_ESCAPE);
                    });
  Check(answer == IDCANCEL, "Esc cancels");
}

}  // namespace client
