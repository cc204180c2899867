#include <windows.h>

#include <string>

#include "check.h"
#include "guide.h"
#include "visible_child.h"

namespace client {
namespace {

constexpr int kTable = 101;
constexpr int kEditBox = 10000;
constexpr int kList = 10002;

/// The grid of a program's dialog.
class Table {
 public:
  explicit Table(GuideProgram& program) : program_(program), list_(program.Dialog().Child(kTable)) {}

  /// Clicks on a cell that has an edit box, and waits for it.
  void Edit(int row, int column, const std::string& text) {
    User().Click(driver::Center(list_.CellRect(row, column)));
    User().WaitUntil("the cell is edited", [&] { return IsEdited(row, column) && Box().Text() == text; });
  }
  [[nodiscard]] bool IsEdited(int row, int column) const {
    const driver::Window box = Box();
    if (!box || !box.HasFocus()) return false;
    const RECT cell = list_.CellRect(row, column);
    return PtInRect(&cell, driver::Center(box.ScreenRect())) != FALSE;
  }
  [[nodiscard]] driver::Window Box() const { return VisibleChild(program_.Dialog(), kEditBox); }

  /// The button of a cell that is edited.
  void ClickButton(int row, int column) {
    const RECT cell = list_.CellRect(row, column);
    User().Click({cell.right - 9, (cell.top + cell.bottom) / 2});
  }
  void ClickCell(int row, int column) { User().Click(driver::Center(list_.CellRect(row, column))); }
  /// Waits for the list of the grid, or the dialog's combo box `id`, to be dropped down.
  driver::Window WaitList(int id = kList) {
    User().WaitUntil("the list drops down", [&] {
      return VisibleChild(program_.Dialog(), id) && VisibleChild(program_.Dialog(), id).IsDropped();
    });
    return VisibleChild(program_.Dialog(), id);
  }
  void PickEntry(int entry, int id = kList) {
    const driver::Window list = WaitList(id).ComboList();
    const int height = static_cast<int>(list.Send(LB_GETITEMHEIGHT));
    const RECT entries = list.ClientScreenRect();
    User().Click({entries.left + 10, entries.top + entry * height + height / 2});
    User().WaitUntil("the list closes", [&] { return !VisibleChild(program_.Dialog(), id); });
  }
  /// How many pixels of a cell have that colour.
  [[nodiscard]] int Count(int row, int column, COLORREF colour) {
    const driver::Picture seen = User().Look(list_.CellRect(row, column));
    return seen.Count({0, 0, seen.Width(), seen.Height()}, colour);
  }

 private:
  [[nodiscard]] driver::User& User() const { return program_.Person(); }

  GuideProgram& program_;
  driver::ListView list_;
};

void EditACell() {
  RunGuide("guide_grid", "部品表", [](GuideProgram& program) {
    Table table(program);
    table.Edit(1, 0, "仕切弁");
    program.Person().Type("ポンプ");
    program.TakePicture();
    table.Edit(2, 0, "仕切弁");
    table.Edit(1, 0, "ポンプ");
    program.Accept();
  });
}

/// The last row is locked; a row that is added is edited at once, one that is inserted pushes the others down.
void ChangeRows() {
  RunGuide("guide_rows", "図面の一覧", [](GuideProgram& program) {
    constexpr int kMessage = 105;
    Table table(program);
    driver::User& user = program.Person();
    user.Click(program.Dialog().Child(102));
    user.WaitUntil("the new row is edited", [&] { return table.IsEdited(3, 1); });
    user.Type("電気系統図");
    table.Edit(0, 1, "全体配置図");
    program.WaitText(kMessage, "図面名を入力してください。");
    program.TakePicture();
    user.Click(program.Dialog().Child(103));
    table.Edit(4, 1, "電気系統図");
    table.ClickCell(3, 1);
    user.WaitUntil("a locked row is not edited", [&] { return !table.Box(); });
    table.Edit(0, 1, "");
    user.Click(program.Dialog().Child(104));
    table.Edit(0, 1, "全体配置図");
    program.Accept();
  });
}

void PickAColour() {
  RunGuide("guide_colours", "レイヤ", [](GuideProgram& program) {
    Table table(program);
    constexpr COLORREF kGreen = RGB(32, 144, 64);
    Check(table.Count(0, 1, RGB(224, 48, 48)) > 0 && table.Count(1, 1, RGB(48, 80, 208)) > 0, "the colours are shown");
    Check(table.Count(4, 1, RGB(0, 0, 0)) == 0, "no swatch where no row is in use");
    table.ClickCell(1, 1);
    table.ClickCell(1, 1);
    table.PickEntry(1);
    program.Person().WaitUntil("the picked colour is shown", [&] { return table.Count(1, 1, kGreen) > 0; });
    program.TakePicture();
    program.Accept();
  });
}

/// A list of the grid's, and a combo box of the dialog.
void PickFromLists() {
  RunGuide("guide_lists", "注文", [](GuideProgram& program) {
    constexpr int kMakers = 103;
    Table table(program);
    table.Edit(0, 1, "SS400");
    table.ClickButton(0, 1);
    static_cast<void>(table.WaitList());
    program.TakePicture();
    table.PickEntry(1);
    program.Person().WaitUntil("the value is in the box", [&] { return table.Box().Text() == "SUS304"; });
    table.ClickCell(1, 3);
    table.ClickCell(1, 3);
    table.PickEntry(1, kMakers);
    table.ClickCell(0, 2);
    table.ClickCell(1, 3);
    table.ClickCell(1, 3);
    Check(table.WaitList(kMakers).Selection() == 1, "the picked maker is in its cell");
    program.Person().Key(VK_ESCAPE);
    program.Accept();
  });
}

void FollowTheCells() {
  RunGuide("guide_changed", "見積", [](GuideProgram& program) {
    constexpr int kTotal = 102;
    Table table(program);
    program.WaitText(kTotal, "合計 58100 円");
    table.Edit(0, 2, "2");
    program.Person().Type("3");
    program.Person().Key(VK_TAB);
    program.WaitText(kTotal, "合計 86700 円");
    program.TakePicture();
    program.Person().Key('Z', {VK_CONTROL});
    program.WaitText(kTotal, "合計 58100 円");
    program.Accept();
  });
}

void MarkAnError() {
  RunGuide("guide_validation", "配管", [](GuideProgram& program) {
    constexpr int kMessage = 102;
    constexpr COLORREF kRed = RGB(255, 0, 0);
    Table table(program);
    table.Edit(1, 1, "100");
    program.Person().Type("5000");
    table.Edit(2, 1, "100");
    program.Person().WaitUntil("the cell is in error", [&] { return table.Count(1, 1, kRed) > 0; });
    program.Person().Click(program.Dialog().Child(IDOK));
    program.WaitText(kMessage, "口径は 1 から 2000 までの数です。");
    program.TakePicture();
    table.Edit(1, 1, "5000");
    program.Person().Type("50");
    table.Edit(2, 1, "100");
    program.Person().WaitUntil("the error is mended", [&] { return table.Count(1, 1, kRed) == 0; });
    program.Accept();
  });
}

void PasteAndUndo() {
  RunGuide("guide_keys", "在庫", [](GuideProgram& program) {
    driver::User& user = program.Person();
    const driver::Window undo = program.Dialog().Child(103);
    const driver::Window redo = program.Dialog().Child(104);
    Table table(program);
    Check(!undo.IsEnabled() && !redo.IsEnabled(), "nothing to undo yet");
    table.Edit(1, 0, "フランジ");
    user.Paste("六角ボルト\t10\r\n六角ナット\t20\r\n");
    user.WaitUntil("the block is pasted", [&] { return undo.IsEnabled(); });
    table.Edit(2, 1, "20");
    program.TakePicture();
    user.Click(undo);
    user.WaitUntil("there is something to do again", [&] { return redo.IsEnabled(); });
    table.Edit(1, 0, "フランジ");
    user.Click(program.Dialog().Child(105));
    table.Edit(2, 0, "六角ナット");
    user.Click(program.Dialog().Child(IDOK));
    user.Answer(user.WaitMessageBox(), IDOK);
    program.SeeEnd();
  });
}

/// The cells are read when the dialog has gone.
void EditInADialogProcedure() {
  const std::string printed = RunGuide("guide_plain", "バルブ", [](GuideProgram& program) {
    Table table(program);
    table.Edit(1, 1, "1");
    program.Person().Type("7");
    program.TakePicture();
    program.Accept();
  });
  CheckText(printed, "1\n7\n1\n", "the cells of a plain dialog");
}

void EditInAModelessDialog() {
  RunGuide("guide_modeless", "覚え書き", [](GuideProgram& program) {
    Table table(program);
    table.Edit(0, 0, "継手の手配");
    program.Person().Key(VK_TAB);
    program.Person().WaitUntil("the next cell is edited", [&] { return table.IsEdited(1, 0); });
    program.Person().Type("塗装色の確認");
    program.TakePicture();
    program.Person().Key(VK_F4, {VK_MENU});
    program.SeeEnd();
  });
}

}  // namespace

void UseGuideForTables() {
  EditACell();
  ChangeRows();
  PickAColour();
  PickFromLists();
  FollowTheCells();
  MarkAnError();
  PasteAndUndo();
  EditInADialogProcedure();
  EditInAModelessDialog();
}

}  // namespace client
