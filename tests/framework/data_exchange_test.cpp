#include "platform/framework/data_exchange.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/framework/fixtures.h"

namespace {

enum : WORD { kEdit = 20, kNumber, kRadio1, kRadio2, kRadio3, kAlone, kCheck, kCombo, kLabel, kMissing = 99 };

class Form : public CDialog {
 public:
  Form() {
    builder_.Add("EDIT", kEdit, WS_TABSTOP)
        .Add("EDIT", kNumber, WS_TABSTOP)
        .Add("BUTTON", kRadio1, BS_AUTORADIOBUTTON | WS_GROUP)
        .Add("STATIC", kLabel, 0, "between")
        .Add("BUTTON", kRadio2, BS_AUTORADIOBUTTON)
        .Add("BUTTON", kRadio3, BS_AUTORADIOBUTTON)
        .Add("BUTTON", kAlone, BS_AUTORADIOBUTTON | WS_GROUP)
        .Add("BUTTON", kCheck, BS_AUTO3STATE | WS_GROUP)
        .Add("COMBOBOX", kCombo, CBS_DROPDOWNLIST);
    CreateIndirect(builder_.Get());
  }

  void DoDataExchange(CDataExchange* exchange) override {
    EXPECT_EQ(exchange->m_pDlgWnd, this);
    DDX_Control(exchange, kCombo, combo);
    DDX_Text(exchange, kEdit, text);
    if (withNumber) DDX_Text(exchange, kNumber, number);
    DDX_Radio(exchange, kRadio1, radio);
    DDX_Radio(exchange, kAlone, alone);
    DDX_Check(exchange, kCheck, check);
    DDX_CBIndex(exchange, kCombo, index);
    DDX_Text(exchange, kMissing, missing);
    DDX_Radio(exchange, kMissing, missingNumber);
    DDX_Check(exchange, kMissing, missingNumber);
    DDX_CBIndex(exchange, kMissing, missingNumber);
  }

  [[nodiscard]] bool Checked(WORD id) const { return IsDlgButtonChecked(id) == BST_CHECKED; }

  Probe<CComboBox> combo;
  CString text;
  CString missing = "untouched";
  int number = 0;
  int radio = -1;
  int alone = -1;
  int check = 0;
  int index = -1;
  int missingNumber = 17;
  bool withNumber = true;

 private:
  TemplateBuilder builder_;
};

class Exchange : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(form.UpdateData(FALSE));
    form.combo.AddString("one");
    form.combo.AddString("two");
  }
  void TearDown() override {
    EXPECT_STREQ(form.missing, "untouched");
    EXPECT_EQ(form.missingNumber, 17);
  }

  Form form;
};

TEST_F(Exchange, MovesTextsBothWays) {
  const std::string large(3000, 'x');
  for (const std::string& want : {std::string("表示ソ"), std::string(), large}) {
    form.text = want;
    ASSERT_TRUE(form.UpdateData(FALSE));
    CString shown;
    form.GetDlgItemText(kEdit, shown);
    EXPECT_EQ(shown.View(), want);
    form.text = "other";
    form.number = 0;
    ASSERT_TRUE(form.UpdateData(TRUE));
    EXPECT_EQ(form.text.View(), want);
  }
}

TEST_F(Exchange, DoesNotSetATextThatIsShownAlready) {
  form.text = "same";
  form.UpdateData(FALSE);
  form.GetDlgItem(kEdit)->SendMessage(EM_SETSEL, 1, 2);
  form.UpdateData(FALSE);
  EXPECT_EQ(form.GetDlgItem(kEdit)->SendMessage(EM_GETSEL), MAKELRESULT(1, 2));
}

TEST_F(Exchange, MovesNumbersBothWays) {
  for (const int want : {0, -5, 2147483647, -2147483647 - 1}) {
    form.number = want;
    ASSERT_TRUE(form.UpdateData(FALSE));
    form.number = 1;
    ASSERT_TRUE(form.UpdateData(TRUE));
    EXPECT_EQ(form.number, want);
  }
  form.SetDlgItemText(kNumber, "  +12 ");
  ASSERT_TRUE(form.UpdateData(TRUE));
  EXPECT_EQ(form.number, 12);
}

TEST_F(Exchange, FailsOnWhatIsNoNumber) {
  form.ShowWindow(SW_SHOW);
  for (const char* bad : {"", "abc", "12x", "99999999999", "1 2", "--1"}) {
    form.number = 33;
    form.radio = -1;
    form.SetDlgItemText(kNumber, bad);
    form.CheckDlgButton(kRadio2, BST_CHECKED);
    EXPECT_FALSE(form.UpdateData(TRUE)) << bad;
    EXPECT_EQ(form.number, 33) << bad;
    EXPECT_EQ(form.radio, -1) << bad;
    EXPECT_EQ(CWnd::GetFocus(), form.GetDlgItem(kNumber)) << bad;
  }
}

TEST_F(Exchange, CountsTheRadioButtonsOfAGroup) {
  const WORD buttons[] = {kRadio1, kRadio2, kRadio3};
  for (int want = -1; want < 3; ++want) {
    form.radio = want;
    form.UpdateData(FALSE);
    for (int at = 0; at < 3; ++at) EXPECT_EQ(form.Checked(buttons[at]), at == want) << want << " " << at;
    form.radio = 55;
    form.UpdateData(TRUE);
    EXPECT_EQ(form.radio, want);
  }
  form.radio = 3;
  form.UpdateData(FALSE);
  form.UpdateData(TRUE);
  EXPECT_EQ(form.radio, -1);
}

TEST_F(Exchange, TakesAGroupOfOneForCheckedOrNot) {
  form.alone = 0;
  form.UpdateData(FALSE);
  EXPECT_TRUE(form.Checked(kAlone));
  form.alone = 9;
  form.UpdateData(TRUE);
  EXPECT_EQ(form.alone, 0);
  form.alone = -1;
  form.UpdateData(FALSE);
  EXPECT_FALSE(form.Checked(kAlone));
  form.alone = 9;
  form.UpdateData(TRUE);
  EXPECT_EQ(form.alone, -1);
}

TEST_F(Exchange, MovesCheckMarksBothWays) {
  for (const int want : {0, 1, 2}) {
    form.check = want;
    form.UpdateData(FALSE);
    form.check = 7;
    form.UpdateData(TRUE);
    EXPECT_EQ(form.check, want);
  }
  form.check = 7;
  form.UpdateData(FALSE);
  EXPECT_TRUE(form.Checked(kCheck));
}

TEST_F(Exchange, MovesTheIndexOfAComboBothWays) {
  for (const int want : {1, 0, -1}) {
    form.index = want;
    form.UpdateData(FALSE);
    EXPECT_EQ(form.combo.GetCurSel(), want);
    form.index = 7;
    form.UpdateData(TRUE);
    EXPECT_EQ(form.index, want);
  }
  form.index = 50;
  form.UpdateData(FALSE);
  EXPECT_EQ(form.combo.GetCurSel(), -1);
}

TEST_F(Exchange, BindsAControlOnce) {
  EXPECT_EQ(form.GetDlgItem(kCombo), &form.combo);
  form.UpdateData(FALSE);
  EXPECT_EQ(form.GetDlgItem(kCombo), &form.combo);
}

}  // namespace
