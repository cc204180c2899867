// The window in which drawing texts are edited, used as a person does: the demo is started, metacharacters, registers
// and library texts are inserted with the toolbar, stored and read back. Screenshots are left beside the results.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "demo/text_editor_resource.h"
#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"

namespace {

using driver::ListView;
using driver::User;
using driver::Window;

constexpr char kTitle[] = "図面文字の編集";
constexpr char kFile[] = "text_editor_test.euc";

class TextEditor : public testing::Test {
 protected:
  TextEditor()
      : removed_(::DeleteFileA(kFile)),
        demo_(std::string("\"") + DEMO_PROGRAM + "\" --home \"" + DEMO_HOME + "\" toolbar " + kFile),
        user_(demo_.Id()),
        editor_(user_.WaitDialog(kTitle)),
        bar_(editor_.FindChildOfClass("ToolbarWindow32")) {
    user_.WaitUntil("the editor is in front", [this] { return editor_.IsForeground(); });
  }

  [[nodiscard]] Window Field(int id) const { return editor_.Child(id); }

  [[nodiscard]] POINT ButtonMiddle(int index) const {
    driver::TargetMemory rect(bar_.Handle(), sizeof(RECT));
    bar_.Send(TB_GETITEMRECT, static_cast<WPARAM>(index), rect.At());
    RECT place = {};
    rect.Read(&place, sizeof place);
    const RECT client = bar_.ClientScreenRect();
    ::OffsetRect(&place, client.left, client.top);
    return driver::Center(place);
  }

  void Photograph(const Window& window, const std::string& name) const {
    EXPECT_TRUE(user_.Look(window).SavePng("text_editor-" + name + ".png"));
  }

  /// The dialog that a button opens, ready for input.
  Window Open(int button, const std::string& title) {
    user_.Click(ButtonMiddle(button));
    const Window dialog = user_.WaitDialog(title);
    user_.WaitUntil("it is in front", [&] { return dialog.IsForeground(); });
    Photograph(Window(::GetDesktopWindow()), std::to_string(button));
    return dialog;
  }

  void WaitText(int id, const std::string& text) const {
    user_.WaitUntil("a field shows " + text, [&] { return Field(id).Text() == text; });
  }

  void PickMetaChar(int row) {
    const Window picker = Open(1, "メタ文字");
    const ListView list(picker.FindChildOfClass("SysListView32"));
    user_.Click(driver::Center(list.ItemRect(row)));
    user_.WaitGone(picker);
  }

  void PickRegister(const std::string& name) {
    const Window dialog = Open(2, "レジスタ");
    const ListView list(dialog.FindChildOfClass("SysListView32"));
    int row = 0;
    while (row < list.Count() && list.Cell(row, 1) != name) ++row;
    ASSERT_LT(row, list.Count());
    user_.Click(driver::Center(list.CellRect(row, 1)));
    user_.Click(dialog.Child(IDOK));
    user_.WaitGone(dialog);
  }

  void PickText(int index) {
    const Window dialog = Open(0, "テキストライブラリ");
    for (int i = 0; i <= index; ++i) user_.Key(VK_DOWN);
    user_.Key(VK_RETURN);
    user_.WaitGone(dialog);
  }

  static std::string StoredBytes() {
    std::ifstream in(kFile, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  BOOL removed_;
  driver::Program demo_;
  User user_;
  Window editor_;
  Window bar_;
};

TEST_F(TextEditor, InsertsStoresAndReadsBack) {
  user_.Click(Field(IDC_TITLE_TEXT));
  user_.Type("管径");
  PickMetaChar(1);
  WaitText(IDC_TITLE_TEXT, "管径<mc>1");
  PickRegister("A3");
  WaitText(IDC_TITLE_TEXT, "管径<mc>10.3333333333");
  user_.Click(Field(IDC_FIRST_NOTE));
  PickText(1);
  WaitText(IDC_FIRST_NOTE, "指示なき角部はＣ０．５とする。");
  user_.Click(Field(IDC_SECOND_NOTE));
  PickRegister("B3");
  WaitText(IDC_SECOND_NOTE, "ﾎﾟﾝﾌﾟ");
  PickMetaChar(9);
  PickMetaChar(10);
  WaitText(IDC_SECOND_NOTE, "ﾎﾟﾝﾌﾟ<mc>,<mc>;");

  user_.Click(Field(IDC_STORE_TEXTS));
  const std::string stored =
      "\xB4\xC9\xB7\xC2\x8D\xB1"
      "0.3333333333\n"
      "\xBB\xD8\xBC\xA8\xA4\xCA\xA4\xAD\xB3\xD1\xC9\xF4\xA4\xCF\xA3\xC3\xA3\xB0\xA1\xA5\xA3\xB5\xA4\xC8\xA4\xB9\xA4\xEB"
      "\xA1\xA3\n"
      "\x8E\xCE\x8E\xDF\x8E\xDD\x8E\xCC\x8E\xDF\x8D\xD9\x8D\xDA\n";
  user_.WaitUntil("the texts are stored", [&] { return StoredBytes() == stored; });
  Photograph(editor_, "stored");

  for (const int id : {IDC_TITLE_TEXT, IDC_FIRST_NOTE, IDC_SECOND_NOTE}) user_.Replace(Field(id), "x");
  user_.Click(Field(IDC_READ_TEXTS));
  WaitText(IDC_TITLE_TEXT, "管径<mc>10.3333333333");
  WaitText(IDC_FIRST_NOTE, "指示なき角部はＣ０．５とする。");
  WaitText(IDC_SECOND_NOTE, "ﾎﾟﾝﾌﾟ<mc>,<mc>;");
  user_.Click(Field(IDCANCEL));
  EXPECT_EQ(demo_.WaitForEnd(), 0);
}

TEST_F(TextEditor, F6GoesToTheToolbarWhoseButtonsAreUsedWithoutAMouse) {
  user_.WaitUntil("the first field has the focus", [&] { return Field(IDC_TITLE_TEXT).HasFocus(); });
  user_.Key(VK_F6);
  user_.WaitUntil("the toolbar has the focus", [&] { return bar_.HasFocus(); });
  user_.Key(VK_RIGHT);
  user_.Key(VK_RETURN);
  const Window picker = user_.WaitDialog("メタ文字");
  user_.WaitUntil("it is in front", [&] { return picker.IsForeground(); });
  for (int i = 0; i < 2; ++i) user_.Key(VK_DOWN);
  user_.Key(VK_RETURN);
  user_.WaitGone(picker);
  user_.WaitUntil("the escape is inserted", [&] { return Field(IDC_TITLE_TEXT).Text().starts_with("<mc>"); });
  user_.WaitUntil("the field has the focus again", [&] { return Field(IDC_TITLE_TEXT).HasFocus(); });
  user_.Key(VK_ESCAPE);
  EXPECT_EQ(demo_.WaitForEnd(), 0);
}

TEST_F(TextEditor, ShowsTheTipsOfItsButtons) {
  user_.MoveTo(ButtonMiddle(1));
  Window tip;
  user_.WaitUntil("a tip appears", [&] {
    for (const Window& window : driver::VisibleWindows(demo_.Id())) {
      if (window.ClassName() == "tooltips_class32") tip = window;
    }
    return tip && tip.Text() == "メタ文字";
  });
  Photograph(Window(::GetDesktopWindow()), "tip");
  ::PostMessageW(editor_.Handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(demo_.WaitForEnd(), 0);
}

}  // namespace
