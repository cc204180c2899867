// The window of the parts table, used as a person does: the demo is started, clicked and typed into, and looked at.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "demo/parts_table.h"
#include "demo/parts_table_resource.h"
#include "tests/windows/driver/accessible.h"
#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"

namespace {

using driver::User;
using driver::Window;

constexpr char kTitle[] = "部品表";
constexpr int kEditBox = 10000;
constexpr int kOwnCombo = 10002;

using namespace demo::parts_table;

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kGrey = RGB(192, 192, 192);
constexpr COLORREF kButtonFace = RGB(195, 211, 253);

class PartsTableTest : public testing::Test {
 protected:
  PartsTableTest() : program_("\"" DEMO_PROGRAM "\" --home \"" DEMO_HOME "\" grid"), user_(program_.Id()) {
    dialog_ = user_.WaitDialog(kTitle);
    user_.WaitUntil("the dialog has the input", [&] { return dialog_.IsForeground(); });
    list_ = driver::ListView(dialog_.Child(IDC_PARTS));
  }

  /// The visible editor of that ID, an empty window when there is none.
  [[nodiscard]] Window Editor(int id) const {
    for (const Window& child : dialog_.Children()) {
      if (child.Id() == id && child.IsVisible()) return child;
    }
    return {};
  }
  [[nodiscard]] POINT PointIn(int row, int col) const {
    const RECT cell = list_.CellRect(row, col);
    return {cell.left + 8, (cell.top + cell.bottom) / 2};
  }
  /// Clicks on a cell and waits for its edit box, which shows `text`.
  void Edit(int row, int col, const std::string& text) {
    const POINT at = PointIn(row, col);
    user_.Click(at);
    user_.WaitUntil("the cell is edited: " + text, [&] {
      const Window box = Editor(kEditBox);
      if (!box || !box.HasFocus() || box.Text() != text) return false;
      const RECT place = box.ScreenRect();
      return place.top <= at.y && at.y <= place.bottom && place.left <= at.x && at.x <= place.right;
    });
  }
  /// Clicks on a cell with a list and waits for its button.
  void Select(int row, int col) {
    user_.Click(PointIn(row, col));
    user_.WaitUntil("the cell shows its button", [&] { return Pixels(row, col, kButtonFace) > 20; });
  }
  void Type(const std::string& typed, const std::string& shown) {
    user_.Type(typed);
    user_.WaitUntil("the box shows " + shown, [&] { return Editor(kEditBox).Text() == shown; });
  }
  void WaitForBox(const std::string& text) {
    user_.WaitUntil("the box shows " + text, [&] {
      const Window box = Editor(kEditBox);
      return box && box.HasFocus() && box.Text() == text;
    });
  }
  void ExpectMessage(const std::string& text) {
    user_.WaitUntil("the message is " + text, [&] { return dialog_.Child(IDC_PARTS_MESSAGE).Text() == text; });
  }
  /// Drops the list of a cell that is selected already, and picks an entry by the keyboard.
  void PickFromList(int row, int col, int combo, int entry) {
    const RECT cell = list_.CellRect(row, col);
    const POINT button = {cell.right - 10, (cell.top + cell.bottom) / 2};
    user_.Click(button);
    user_.WaitUntil("the list drops down", [&] { return Editor(combo) && Editor(combo).IsDropped(); });
    const Window entries = Editor(combo).ComboList();
    const RECT list = entries.ClientScreenRect();
    const int height = static_cast<int>(entries.Send(LB_GETITEMHEIGHT));
    user_.Click({list.left + 10, list.top + entry * height + height / 2});
    user_.WaitUntil("the list closes", [&] { return !Editor(combo); });
  }
  [[nodiscard]] int Pixels(int row, int col, COLORREF colour) const {
    const RECT cell = list_.CellRect(row, col);
    const driver::Picture seen = driver::Capture(cell);
    return seen.Count({0, 0, seen.Width(), seen.Height()}, colour);
  }
  /// What the table tells of a cell, which may have no box.
  [[nodiscard]] std::string Told(int row, int col) const {
    const driver::Accessible table = driver::Accessible::Of(list_);
    return table.Child(row + 1).Child(col + 1).Value();
  }
  void WaitForCell(int row, int col, const std::string& text) {
    user_.WaitUntil("the cell holds " + text, [&] { return Told(row, col) == text; });
  }
  void WaitForFocus(int control) {
    user_.WaitUntil("the control has the keys", [&] { return dialog_.Child(control).HasFocus(); });
  }
  void Keys(std::initializer_list<WORD> keys) const {
    for (const WORD key : keys) user_.Key(key);
  }
  /// Drops the list of the edited cell down and takes an entry, counted from 0.
  void TakeFromList(int combo, int entry) {
    user_.Key(VK_F4);
    user_.WaitUntil("the list drops down", [&] { return Editor(combo) && Editor(combo).IsDropped(); });
    user_.Key(VK_HOME);
    for (int at = 0; at < entry; ++at) user_.Key(VK_DOWN);
    user_.Key(VK_RETURN);
    user_.WaitUntil("the list closes", [&] { return !Editor(combo); });
  }
  void Photograph(const std::string& name) const {
    EXPECT_TRUE(user_.Look(Window(::GetDesktopWindow())).SavePng("parts_table_" + name + ".png"));
  }
  void Press(int button) { user_.Click(dialog_.Child(button)); }
  void Cancel() {
    Press(IDCANCEL);
    EXPECT_EQ(program_.WaitForEnd(), 1);
  }

  driver::Com com_;
  driver::Program program_;
  User user_;
  Window dialog_;
  driver::ListView list_;
};

TEST_F(PartsTableTest, TextsAreEditedInPlace) {
  EXPECT_EQ(list_.ColumnCount(), 12);
  ExpectMessage("セルをクリックすると編集できます。");
  Photograph("start");
  Edit(2, kName, "ガスケット");
  ExpectMessage("品名を入力してください。");
  Type("表示ソケット", "表示ソケット");
  Photograph("typed");
  Edit(3, kCode, "BLT-001");
  ExpectMessage("品番を入力してください。半角カタカナは使えません。");
  Type("abｱc-1234567", "ABC-123456");
  Edit(4, kRemark, "");
  Type("至急  ", "至急  ");
  Edit(2, kName, "表示ソケット");
  Edit(3, kCode, "ABC-123456");
  Edit(4, kRemark, "至急  ");
  Press(IDOK);
  EXPECT_EQ(program_.WaitForEnd(), 0);
}

TEST_F(PartsTableTest, TheKeyboardIsEnoughToFillTheTable) {
  Edit(2, kCode, "GSK-001");
  user_.Key(VK_TAB);
  WaitForBox("ガスケット");
  Type("パッキン", "パッキン");
  user_.Key(VK_RETURN);
  WaitForBox("六角ボルト M16");
  user_.Key(VK_TAB);
  WaitForBox("SUS304");
  user_.Key(VK_DOWN, {VK_MENU});
  user_.WaitUntil("the list drops down", [&] { return Editor(kOwnCombo) && Editor(kOwnCombo).IsDropped(); });
  user_.Key(VK_HOME);
  user_.Key(VK_RETURN);
  WaitForBox("SS400");
  user_.Key('Z', {VK_CONTROL});
  WaitForBox("SUS304");
  user_.Key('Z', {VK_CONTROL});
  Edit(2, kName, "ガスケット");
  user_.Key('Y', {VK_CONTROL});
  WaitForBox("パッキン");
  Photograph("keys");
  user_.Key(VK_ESCAPE);
  WaitForBox("ガスケット");
  user_.Key(VK_ESCAPE);
  EXPECT_EQ(program_.WaitForEnd(), 1);
}

TEST_F(PartsTableTest, RowsOfASpreadsheetArePastedBehindTheLastOneAndUndoneAtOnce) {
  Edit(0, kCode, "PMP-001");
  user_.Key(VK_END, {VK_CONTROL});
  user_.WaitUntil("the last row is seen", [&] { return list_.TopRow() > 150; });
  user_.Key(VK_DOWN);
  user_.Key(VK_HOME, {VK_CONTROL});
  WaitForBox("PMP-001");
  user_.Paste("A-1\t外板\r\nA-2\t内板\r\n");
  WaitForBox("A-1");
  user_.Key(VK_DOWN);
  WaitForBox("A-2");
  user_.Key(VK_TAB);
  WaitForBox("内板");
  user_.Key('Z', {VK_CONTROL});
  WaitForBox("フランジ");
  Edit(0, kQuantity, "1");
  user_.Paste("2\r\nx\r\n");
  user_.WaitUntil("the text is refused", [&] {
    const std::string message = dialog_.Child(IDC_PARTS_MESSAGE).Text();
    return message.find("数量") != std::string::npos && message.find("2") != std::string::npos;
  });
  WaitForBox("1");
  Cancel();
}

TEST_F(PartsTableTest, APastedColourShowsInItsSwatchAndGoesWithTheUndo) {
  const COLORREF green = RGB(32, 144, 64);
  const COLORREF blue = RGB(48, 80, 208);
  Select(1, kColour);
  EXPECT_GT(Pixels(1, kColour, green), 20);
  user_.Paste("3\r\n5\r\n");
  user_.WaitUntil("the swatch is blue", [&] { return Pixels(1, kColour, blue) > 20; });
  Photograph("pasted_colours");
  user_.Key('Z', {VK_CONTROL});
  user_.WaitUntil("the swatch is green", [&] { return Pixels(1, kColour, green) > 20; });
  user_.Key('Y', {VK_CONTROL});
  user_.WaitUntil("the swatch is blue again", [&] { return Pixels(1, kColour, blue) > 20; });
  user_.Paste("9\r\n");
  user_.WaitUntil("the text is refused",
                  [&] { return dialog_.Child(IDC_PARTS_MESSAGE).Text().find("色") != std::string::npos; });
  EXPECT_GT(Pixels(1, kColour, blue), 20);
  Cancel();
}

TEST_F(PartsTableTest, MaterialsUnitsAndColoursAreChosen) {
  Edit(1, kMaterial, "SS400");
  PickFromList(1, kMaterial, kOwnCombo, 2);
  user_.WaitUntil("the value is shown", [&] { return Editor(kEditBox).Text() == "SUS304"; });
  EXPECT_TRUE(Editor(kEditBox).HasFocus());
  Select(1, kUnit);
  EXPECT_FALSE(Editor(kEditBox)) << "there is only a list";
  PickFromList(1, kUnit, kOwnCombo, 4);
  const COLORREF blue = RGB(48, 80, 208);
  EXPECT_EQ(Pixels(1, kColour, blue), 0);
  Select(1, kColour);
  PickFromList(1, kColour, IDC_COLOUR_CHOICE, 2);
  user_.WaitUntil("the swatch is blue", [&] { return Pixels(1, kColour, blue) > 20; });
  Photograph("chosen");
  Edit(1, kMaterial, "SUS304");
  Cancel();
}

TEST_F(PartsTableTest, RowsAreInsertedAddedAndDeleted) {
  Edit(1, kName, "フランジ");
  Press(IDC_INSERT_PART);
  user_.WaitUntil("an empty row is edited", [&] {
    const Window box = Editor(kEditBox);
    return box && box.Text().empty();
  });
  user_.Click(Editor(kEditBox));
  Type("新しい部品", "新しい部品");
  Edit(2, kName, "フランジ");
  Photograph("inserted");
  Press(IDC_DELETE_PART);
  user_.WaitUntil("no cell is edited", [&] { return !Editor(kEditBox); });
  Edit(2, kName, "ガスケット");
  Edit(1, kName, "新しい部品");
  Press(IDC_ADD_PART);
  user_.WaitUntil("the list is scrolled to its end", [&] { return list_.TopRow() > 150; });
  user_.WaitUntil("the new row's code is edited", [&] {
    const Window box = Editor(kEditBox);
    return box && box.HasFocus() && box.Text().empty();
  });
  Type("new-1", "NEW-1");
  Photograph("added");
  const RECT free = list_.CellRect(202, kColour);
  const int area = (free.right - free.left - 4) * (free.bottom - free.top - 1);
  EXPECT_EQ(Pixels(202, kColour, kGrey), area) << "rows behind the last one";
  Press(IDOK);
  EXPECT_EQ(program_.WaitForEnd(), 0);
}

TEST_F(PartsTableTest, NothingIsDeletedWithoutASelection) {
  Press(IDC_DELETE_PART);
  const driver::MessageBoxView box = user_.WaitMessageBox();
  EXPECT_EQ(box.text, "アイテムを選択してください。");
  EXPECT_EQ(box.caption, "");
  user_.Answer(box, IDOK);
  user_.WaitUntil("the dialog has the input again", [&] { return dialog_.IsEnabled() && dialog_.IsForeground(); });
  user_.Key(VK_ESCAPE);
  EXPECT_EQ(program_.WaitForEnd(), 1);
}

TEST_F(PartsTableTest, ErrorsAreMarkedInRed) {
  Press(IDC_CHECK_PARTS);
  ExpectMessage("誤りはありません。");
  Edit(4, kClass, "5");
  Type("0", "0");
  Press(IDC_CHECK_PARTS);
  ExpectMessage("無効なクラス番号です 5 : 0");
  Edit(6, kName, "仕切弁");
  user_.WaitUntil("the cell is red", [&] { return Pixels(4, kClass, kRed) > 0; });
  EXPECT_EQ(Pixels(4, kRevision, kRed), 0);
  Photograph("error");
  Edit(4, kClass, "0");
  Type("256", "256");
  Press(IDC_CHECK_PARTS);
  ExpectMessage("誤りはありません。");
  Edit(5, kName, "エルボ 90°");
  user_.WaitUntil("the cell is black again", [&] { return Pixels(4, kClass, kRed) == 0; });
  Edit(5, kRevision, "1");
  Type("+3", "+3");
  Press(IDC_CHECK_PARTS);
  ExpectMessage("無効なレビジョンです 6 : +3");
  Cancel();
}

TEST_F(PartsTableTest, ScrollingTakesTheEditBoxAlong) {
  Edit(3, kName, "六角ボルト M16");
  const LONG top = Editor(kEditBox).ScreenRect().top;
  const RECT item = list_.ItemRect(0, LVIR_BOUNDS);
  list_.Send(LVM_SCROLL, 0, 2 * (item.bottom - item.top));
  user_.WaitUntil("the box has moved", [&] {
    return Editor(kEditBox) && Editor(kEditBox).ScreenRect().top == top - 2 * (item.bottom - item.top);
  });
  list_.Send(LVM_SCROLL, 0, 100 * (item.bottom - item.top));
  user_.WaitUntil("the box has left the page", [&] { return !Editor(kEditBox); });
  Cancel();
}

// ---- keys alone

/// What can be done with the table; the mouse rests.
class WithoutMouse : public PartsTableTest {
 protected:
  void EnterTheTable();
  void TypeAName();
  void ChooseFromLists();
  void InsertAndDeleteARow();
  void CopyRows();
  void PasteRows();
  void LeaveAndPressOk();
};

void WithoutMouse::EnterTheTable() {
  user_.Key(VK_TAB, {VK_SHIFT});
  WaitForFocus(IDCANCEL);
  user_.Key(VK_TAB);
  WaitForFocus(IDC_PARTS);
}

void WithoutMouse::TypeAName() {
  user_.Key(VK_DOWN);
  WaitForBox("PMP-001");
  user_.Key(VK_DOWN);
  WaitForBox("FLG-001");
  user_.Key(VK_TAB);
  WaitForBox("フランジ");
  Type("表示板", "表示板");
  user_.Key(VK_RETURN);
  WaitForBox("ガスケット");
  user_.Key(VK_UP);
  WaitForBox("表示板");
}

void WithoutMouse::ChooseFromLists() {
  user_.Key(VK_TAB);
  WaitForBox("SS400");
  TakeFromList(kOwnCombo, 2);
  WaitForBox("SUS304");
  Keys({VK_TAB, VK_TAB});
  user_.WaitUntil("the unit has no box", [&] { return !Editor(kEditBox) && list_.HasFocus(); });
  TakeFromList(kOwnCombo, 4);
  WaitForCell(1, kUnit, "式");
  Keys({VK_TAB, VK_TAB, VK_TAB});
  TakeFromList(IDC_COLOUR_CHOICE, 2);
  WaitForCell(1, kColour, "3 青");
}

void WithoutMouse::InsertAndDeleteARow() {
  user_.Key(VK_INSERT);
  WaitForCell(1, kName, "");
  WaitForCell(2, kName, "表示板");
  user_.Key(VK_OEM_MINUS, {VK_CONTROL});
  WaitForCell(1, kName, "表示板");
  user_.Key('Z', {VK_CONTROL});
  WaitForCell(2, kName, "表示板");
  user_.Key('Z', {VK_CONTROL});
  WaitForCell(1, kName, "表示板");
}

void WithoutMouse::CopyRows() {
  user_.Key(VK_HOME, {VK_CONTROL});
  WaitForBox("PMP-001");
  Keys({VK_TAB, VK_TAB, VK_TAB, VK_TAB});
  user_.WaitUntil("the unit has no box", [&] { return !Editor(kEditBox) && list_.HasFocus(); });
  user_.Key(VK_DOWN, {VK_SHIFT});
  user_.WaitUntil("two rows are selected", [&] { return list_.SelectedRows() == std::vector<int>{0, 1}; });
  user_.Key('C', {VK_CONTROL});
}

void WithoutMouse::PasteRows() {
  user_.Key(VK_NEXT);
  user_.WaitUntil("the last row of the page is selected", [&] {
    const std::vector<int> rows = list_.SelectedRows();
    return rows.size() == 1 && rows.front() > 1;
  });
  const auto last = list_.SelectedRows().front();
  const std::string former = Told(last, kName);
  user_.Key('V', {VK_CONTROL});
  WaitForCell(last, kName, "渦巻ポンプ");
  WaitForCell(last + 1, kUnit, "式");
  user_.Key('Z', {VK_CONTROL});
  WaitForCell(last, kName, former);
  user_.Key('Y', {VK_CONTROL});
  WaitForCell(last + 1, kMaterial, "SUS304");
}

void WithoutMouse::LeaveAndPressOk() {
  user_.Key(VK_F2);
  user_.Key(VK_END, {VK_CONTROL});
  WaitForBox("");
  user_.Key(VK_TAB);
  WaitForFocus(IDC_ADD_PART);
  Keys({VK_TAB, VK_TAB, VK_TAB, VK_TAB});
  WaitForFocus(IDOK);
  user_.Key(VK_SPACE);
}

TEST_F(WithoutMouse, ATableIsWorkedOnFromItsFirstCellToOk) {
  EnterTheTable();
  TypeAName();
  ChooseFromLists();
  InsertAndDeleteARow();
  CopyRows();
  PasteRows();
  Photograph("without_mouse");
  LeaveAndPressOk();
  EXPECT_EQ(program_.WaitForEnd(), 0);
}

TEST_F(WithoutMouse, HomeAndEndSelectTheFirstAndTheLastRowInUse) {
  EnterTheTable();
  constexpr int kLast = 199;
  EXPECT_GT(list_.Count(), kLast + 1) << "there are free rows behind it";
  user_.Key(VK_END);
  user_.WaitUntil("the last row is selected", [&] { return list_.SelectedRows() == std::vector<int>{kLast}; });
  EXPECT_FALSE(Editor(kEditBox));
  user_.Key(VK_HOME);
  user_.WaitUntil("the first row is selected", [&] { return list_.SelectedRows() == std::vector<int>{0}; });
  EXPECT_FALSE(Editor(kEditBox));
  Cancel();
}

}  // namespace
