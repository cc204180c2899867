// Each row of the table of the grid's keys in README.md, done on the keyboard.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/key_tables.h"
#include "tests/windows/grid/grid_keyed.h"

namespace grid_test {
namespace {

using driver::User;

class GridKeyTable : public KeyedGridTest {
 protected:
  /// What is done for a row of the table.
  struct Step {
    std::string keys;  ///< the row's first cell
    void (GridKeyTable::*act)(User& user);
  };
  [[nodiscard]] static std::vector<Step> Steps();

  void ExpectEdited(int row, int col) { EXPECT_EQ(EditedCell(), Edited(row, col)); }
  void ExpectSelected(const std::vector<int>& rows) {
    EXPECT_EQ(SelectedRows(), rows);
    EXPECT_FALSE(host_->EditBox());
  }
  /// A row is selected, and the list view has the keyboard.
  void SelectRow(User& user, int row) {
    host_->Do([&] { host_->list->ClickItem(row, kNumber); });
    FocusListView(user);
    user.Settle();
  }
  int Rows() {
    return Ask([](CvListControl& list) { return list.GetItemCount(); });
  }

  void WalkByTab(User& user) {
    ClickCell(user, 3, kName);
    user.Key(VK_TAB);
    ExpectEdited(3, kMaterial);
    user.Key(VK_TAB, {VK_SHIFT});
    ExpectEdited(3, kName);
    user.Key(VK_END, {VK_CONTROL});
    user.Key(VK_TAB);
    EXPECT_TRUE(driver::Window(host_->Child(kOther)).HasFocus());
  }
  void WalkInTheColumn(User& user) {
    ClickCell(user, 1, kName);
    user.Key(VK_RETURN);
    ExpectEdited(2, kName);
    user.Key(VK_DOWN);
    ExpectEdited(3, kName);
    user.Key(VK_RETURN, {VK_SHIFT});
    ExpectEdited(2, kName);
    user.Key(VK_UP);
    ExpectEdited(1, kName);
  }
  void WalkByPages(User& user) {
    ClickCell(user, 1, kName);
    user.Key(VK_NEXT);
    EXPECT_GT(EditedCell().first, 3);
    user.Key(VK_PRIOR);
    EXPECT_LT(EditedCell().first, 3);
    user.Key(VK_END, {VK_CONTROL});
    ExpectEdited(kKeyedRows - 1, kUnit);
    user.Key(VK_HOME, {VK_CONTROL});
    ExpectEdited(0, kName);
  }
  void BeginAnEdit(User& user) {
    SelectRow(user, 2);
    user.Key(VK_F2);
    ExpectEdited(2, kName);
    SelectRow(user, 2);
    user.Key(VK_DOWN);
    ExpectEdited(3, kName);
    SelectRow(user, 2);
    user.Key(VK_UP);
    ExpectEdited(1, kName);
  }
  void BeginAnEditByTyping(User& user) {
    SelectRow(user, 2);
    user.Type("x");
    ExpectEdited(2, kName);
    EXPECT_EQ(host_->Text(2, kName), "x");
  }
  void GoToTheEndAndGiveBack(User& user) {
    ClickCell(user, 2, kName);
    user.Key(VK_F2);
    user.Type("x");
    EXPECT_EQ(host_->Text(2, kName), "部品2x");
    user.Key(VK_ESCAPE);
    EXPECT_EQ(host_->Text(2, kName), "部品2");
    EXPECT_NE(host_->Handle(), nullptr);
    user.Key(VK_ESCAPE);
    user.WaitUntil("the dialog ends", [&] { return host_->Handle() == nullptr; });
  }
  void UseAList(User& user) {
    ClickCell(user, 1, kUnit);
    for (const bool withAlt : {true, false}) {
      if (withAlt) user.Key(VK_DOWN, {VK_MENU});
      if (!withAlt) user.Key(VK_F4);
      user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
      user.Key(withAlt ? VK_ESCAPE : VK_F4);
      user.WaitUntil("the list closes", [&] { return !host_->ComboBox(); });
    }
    user.Key(VK_F4);
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    user.Key(VK_HOME);
    user.Key(VK_DOWN);
    user.Key(VK_RETURN);
    user.WaitUntil("the list closes", [&] { return !host_->ComboBox(); });
    EXPECT_EQ(host_->Text(1, kUnit), "mm");
  }
  void SelectAnotherRow(User& user) {
    FocusListView(user);
    user.Key(VK_END);
    ExpectSelected({kKeyedRows - 1});
    user.Key(VK_HOME);
    ExpectSelected({0});
    user.Key(VK_NEXT);
    EXPECT_GT(SelectedRows().front(), 3);
    user.Key(VK_PRIOR);
    EXPECT_LT(SelectedRows().front(), 3);
  }
  void SelectSeveralRows(User& user) {
    FocusListView(user);
    user.Key(VK_HOME);
    user.Key(VK_DOWN, {VK_SHIFT});
    ExpectSelected({0, 1});
    user.Key(VK_DOWN, {VK_CONTROL});
    user.Key(VK_DOWN, {VK_CONTROL});
    user.Key(VK_SPACE, {VK_CONTROL});
    ExpectSelected({0, 1, 3});
    user.Key(VK_HOME);
    user.Key(VK_END, {VK_SHIFT});
    EXPECT_EQ(SelectedRows().size(), std::size_t{kKeyedRows});
    user.Key(VK_PRIOR, {VK_SHIFT});
    EXPECT_LT(SelectedRows().size(), std::size_t{kKeyedRows});
    user.Key(VK_NEXT, {VK_SHIFT});
    EXPECT_EQ(SelectedRows().size(), std::size_t{kKeyedRows});
  }
  void UseTheClipboard(User& user) {
    EmptyTheClipboard();
    SelectRow(user, 2);
    user.Key('C', {VK_CONTROL});
    EXPECT_EQ(ClipboardText(), L"3\t部品2\t2\t個\t\r\n");
    user.Key(VK_DELETE);
    EXPECT_EQ(host_->Text(2, kName), "");
    user.Key('V', {VK_CONTROL});
    EXPECT_EQ(host_->Text(2, kName), "部品2");
    EmptyTheClipboard();
    user.Key('X', {VK_CONTROL});
    EXPECT_EQ(host_->Text(2, kName), "");
    EXPECT_EQ(ClipboardText(), L"3\t部品2\t2\t個\t\r\n");
  }
  void UndoAndRedo(User& user) {
    SelectRow(user, 2);
    user.Key(VK_DELETE);
    EXPECT_EQ(host_->Text(2, kName), "");
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(host_->Text(2, kName), "部品2");
    user.Key('Y', {VK_CONTROL});
    EXPECT_EQ(host_->Text(2, kName), "");
  }
  void InsertAndDeleteRows(User& user) {
    SelectRow(user, 2);
    user.Key(VK_INSERT);
    EXPECT_EQ(Rows(), kKeyedRows + 1);
    EXPECT_EQ(host_->Text(3, kName), "部品2");
    user.Key(VK_SUBTRACT, {VK_CONTROL});
    EXPECT_EQ(Rows(), kKeyedRows);
    EXPECT_EQ(host_->Text(2, kName), "部品2");
  }
};

std::vector<GridKeyTable::Step> GridKeyTable::Steps() {
  return {{"Tab, Shift+Tab", &GridKeyTable::WalkByTab},
          {"Enter, Down; Shift+Enter, Up", &GridKeyTable::WalkInTheColumn},
          {"Page Up, Page Down; Ctrl+Home, Ctrl+End", &GridKeyTable::WalkByPages},
          {"arrows, F2, on the list", &GridKeyTable::BeginAnEdit},
          {"a letter, or Japanese input", &GridKeyTable::BeginAnEditByTyping},
          {"F2; Esc", &GridKeyTable::GoToTheEndAndGiveBack},
          {"Alt+Down, F4", &GridKeyTable::UseAList},
          {"Home, End, Page Up, Page Down, on the list", &GridKeyTable::SelectAnotherRow},
          {"Shift or Ctrl with the arrows, Home, End, Page Up, Page Down or Space, on the list",
           &GridKeyTable::SelectSeveralRows},
          {"Ctrl+C, Ctrl+X, Ctrl+V, Delete", &GridKeyTable::UseTheClipboard},
          {"Ctrl+Z, Ctrl+Y", &GridKeyTable::UndoAndRedo},
          {"Insert, Ctrl+Minus", &GridKeyTable::InsertAndDeleteRows}};
}

INSTANTIATE_TEST_SUITE_P(Hosts, GridKeyTable, testing::Values(HostKind::Framework, HostKind::Plain), NameOfHost);

TEST_P(GridKeyTable, EachRowOfThePageIsTriedAndDoesWhatItSays) {
  std::vector<std::string> tried;
  for (const Step& step : Steps()) {
    SCOPED_TRACE(step.keys);
    tried.push_back(step.keys);
    host_ = Host::Make(GetParam());
    Use([&](User& user) { (this->*step.act)(user); });
  }
  EXPECT_EQ(tried, key_tables::RowsBehind("(`./demo.sh grid`) switches its keys on:"));
}

}  // namespace
}  // namespace grid_test
