// The grid as a caller sees it, called directly: the windows that it makes, where they stand, what it stores, and what
// it does with arguments that make no sense.
#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <string>
#include <vector>

#include "tests/windows/driver/user.h"
#include "tests/windows/grid/grid_host.h"
#include "tests/windows/grid/grid_table.h"
#include "tests/windows/support/fenced_heap.h"

namespace {

using driver::Window;
using grid_test::Host;
using grid_test::HostKind;
using grid_test::kColour;
using grid_test::kDialogCombo;
using grid_test::kList;
using grid_test::kMaterial;
using grid_test::kName;
using grid_test::kNumber;

constexpr DWORD kCaseStyles = ES_UPPERCASE | ES_LOWERCASE;

std::vector<Window> ChildrenWithId(Host& host, int id) {
  std::vector<Window> found;
  for (const Window& child : Window(host.Handle()).Children()) {
    if (child.Id() == id) found.push_back(child);
  }
  return found;
}

int ScrollBarWidth() { return ::GetSystemMetrics(SM_CXVSCROLL); }

/// Calls everything that takes a row or a column.
void CallEverything(CvListControl& list, int row, int col) {
  std::array<char, 386> text = {};
  list.SetItemText(row, col, "表");
  list.GetItemText(row, col, text.data());
  list.GetItemText(row, col, nullptr);
  list.SetItemColor(row, col, 1, 2);
  list.SetAvailableFlag(row, 0);
  list.SetAvailableFlag(row, col, 1);
  (void)list.GetAvailableFlag(row);
  (void)list.GetAvailableFlag(row, col);
  list.SetErrorFlag(row, col, 1);
  (void)list.GetErrorFlag(row, col);
  list.SetSelectFlag(row, 1);
  (void)list.GetSelectFlag(row);
  list.SelectItem(row, col);
  list.SelectItem();
  list.ClickItem(row, col);
  list.OpenComboBox();
  list.CloseComboBox();
  list.SetEditMode(col, 0);
  list.SetSpaceMode(col, 1);
  list.KeyInput();
  DRAWITEMSTRUCT item = {};
  item.itemID = static_cast<UINT>(row);
  list.OnDrawItem(&item);
  list.GetClickItem(&row, &col);
  list.ClearSelectFlag();
}

class GridWindowTest : public testing::Test {
 protected:
  void Open(const std::function<void(Host&)>& fill = grid_test::FillTable) { host_->Open(fill); }
  [[nodiscard]] CvListControl& List() { return *host_->list; }
  [[nodiscard]] int ItemHeight() {
    const RECT item = host_->ListView().ItemRect(0, LVIR_BOUNDS);
    return item.bottom - item.top;
  }
  /// Client coordinates of the dialog.
  [[nodiscard]] RECT ItemInHost(int row) {
    RECT item = host_->ListView().ItemRect(row, LVIR_BOUNDS);
    ::MapWindowPoints(nullptr, host_->Handle(), reinterpret_cast<POINT*>(&item), 2);
    return item;
  }
  [[nodiscard]] int LeftOf(int col) {
    int left = 0;
    for (int c = 0; c < col; ++c) left += host_->ListView().ColumnAt(c).width;
    return left;
  }
  /// A list of `columns` narrow columns with edit boxes in all of them.
  void OpenNumbered(int columns, int items, int capacity) {
    Open([=, this](Host& host) {
      List().InitList(host.Window(), kList, columns, items, capacity, 0);
      for (int c = 0; c < columns; ++c) List().SetColumn(c, "x", 1.0);
      for (int row = 0; row < items; ++row) {
        for (int c = 0; c < columns; ++c) List().SetItemText(row, c, std::to_string(10 * row + c).c_str());
      }
    });
  }
  void Pick(int id, int entry) {
    const Window combo = ChildrenWithId(*host_, id).at(0);
    combo.Send(CB_SETCURSEL, static_cast<WPARAM>(entry));
    ::SendMessageA(host_->Handle(), WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, CBN_SELCHANGE)),
                   reinterpret_cast<LPARAM>(combo.Handle()));
  }

  std::unique_ptr<Host> host_ = Host::Make(HostKind::Framework);
};

// ---------------------------------------------------------------------------------------------------- what is made

TEST_F(GridWindowTest, TheListViewIsOwnerDrawnAndHoldsAnItemForEachRowThereIsRoomFor) {
  Open();
  const driver::ListView view = host_->ListView();
  EXPECT_NE(view.Style() & LVS_OWNERDRAWFIXED, 0U);
  EXPECT_EQ(view.Count(), 30);
  EXPECT_EQ(List().GetListCount(), 30);
  EXPECT_EQ(List().GetItemCount(), 12);
  EXPECT_EQ(view.State(3) & LVIS_STATEIMAGEMASK, static_cast<UINT>(INDEXTOSTATEIMAGEMASK(1)));
  EXPECT_EQ(view.Cell(0, 1), "") << "the list view's own texts are not used";
  List().SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
  EXPECT_EQ(view.Send(LVM_GETEXTENDEDLISTVIEWSTYLE), LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
  List().SetExtendedStyle(LVS_EX_FULLROWSELECT);
  EXPECT_EQ(view.Send(LVM_GETEXTENDEDLISTVIEWSTYLE), LVS_EX_FULLROWSELECT);
}

TEST_F(GridWindowTest, ColumnsTakeTenthsOfTheUsableWidth) {
  Open([this](Host& host) {
    List().InitList(host.Window(), kList, 3, 0, 1, -1);
    List().SetColumn(0, "左", 2.0);
    List().SetColumn(1, "中", 5.25, LVCFMT_CENTER, 0, 0);
    List().SetColumn(2, std::string(300, 'x').c_str(), 1.0, LVCFMT_RIGHT, 0, 1);
    List().SetColumn(3, "none", 1.0);
    List().SetColumn(-1, "none", 1.0);
  });
  const driver::ListView view = host_->ListView();
  const int usable = 322 - ScrollBarWidth();
  ASSERT_EQ(view.ColumnCount(), 3);
  EXPECT_EQ(view.ColumnAt(0).width, usable * 2 / 10 - 3);
  EXPECT_EQ(view.ColumnAt(1).width, static_cast<int>(usable * 5.25) / 10 - 3);
  EXPECT_EQ(view.ColumnAt(2).width, usable / 10 - 3);
  EXPECT_EQ(view.ColumnAt(0).title, "左");
  EXPECT_EQ(view.ColumnAt(1).format & LVCFMT_JUSTIFYMASK, LVCFMT_CENTER);
  EXPECT_EQ(view.ColumnAt(2).format & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
}

TEST_F(GridWindowTest, MoreThanTwentyColumnsAreCut) {
  Open([this](Host& host) {
    List().InitList(host.Window(), kList, 25, 1, 2, -1);
    for (int c = 0; c < 25; ++c) List().SetColumn(c, "x", 0.5);
    for (int c = 0; c < 25; ++c) List().SetItemText(0, c, "t");
  });
  EXPECT_EQ(host_->ListView().ColumnCount(), 20);
  EXPECT_EQ(host_->Text(0, 19), "t");
  EXPECT_EQ(host_->Text(0, 20), "");
}

TEST_F(GridWindowTest, EditBoxesAreHiddenChildrenOfTheDialog) {
  Open([this](Host& host) {
    List().InitList(host.Window(), kList, 4, 1, 1, -1);
    List().SetEdit(0, 0, 10, "");
    List().SetEdit(1, 1, 1000, "");
    List().SetEdit(2, -1, 3, "");
    List().SetEdit(3, 0, 0, "");
    List().SetEdit(4, 0, 10, "");
    List().SetEdit(-1, 0, 10, "");
  });
  std::vector<Window> boxes = ChildrenWithId(*host_, 10000);
  ASSERT_EQ(boxes.size(), 4U);
  // Children are listed from the top; a new window is put there or at the bottom, depending on its creation.
  std::sort(boxes.begin(), boxes.end(), [](const Window& a, const Window& b) {
    return a.Send(EM_GETLIMITTEXT) * 8 + (a.Style() & kCaseStyles) <
           b.Send(EM_GETLIMITTEXT) * 8 + (b.Style() & kCaseStyles);
  });
  for (const Window& box : boxes) {
    EXPECT_EQ(box.ClassName(), "Edit");
    EXPECT_FALSE(box.IsVisible());
    EXPECT_EQ(box.Style() & ~kCaseStyles, static_cast<DWORD>(WS_CHILD));
    EXPECT_NE(box.ExStyle() & WS_EX_TRANSPARENT, 0U);
    EXPECT_EQ(box.Send(WM_GETFONT), Window(host_->Handle()).Send(WM_GETFONT));
    const RECT place = box.RectInParent();
    EXPECT_EQ(std::vector({place.left, place.top, place.right, place.bottom}), std::vector<LONG>({0, 0, 1, 1}));
  }
  EXPECT_EQ(boxes[0].Send(EM_GETLIMITTEXT), 3);
  EXPECT_EQ(boxes[0].Style() & kCaseStyles, static_cast<DWORD>(ES_LOWERCASE));
  EXPECT_EQ(boxes[1].Send(EM_GETLIMITTEXT), 10);
  EXPECT_EQ(boxes[1].Style() & kCaseStyles, 0U);
  EXPECT_EQ(boxes[2].Send(EM_GETLIMITTEXT), 385) << "0 stands for the column's limit";
  EXPECT_EQ(boxes[3].Send(EM_GETLIMITTEXT), 385);
  EXPECT_EQ(boxes[3].Style() & kCaseStyles, static_cast<DWORD>(ES_UPPERCASE));
}

TEST_F(GridWindowTest, CombosAreMadeOnceAndFilledAnew) {
  Open();
  ASSERT_EQ(ChildrenWithId(*host_, 10002).size(), 1U);
  const Window combo = ChildrenWithId(*host_, 10002)[0];
  // The scroll bar is the drop-down list's; the box itself gives the bit away.
  EXPECT_EQ((combo.Style() & ~static_cast<DWORD>(WS_CLIPSIBLINGS)) | WS_VSCROLL, 0x40200803U);
  EXPECT_FALSE(combo.IsVisible());
  EXPECT_EQ(combo.Items().size(), 5U);
  EXPECT_EQ(combo.Send(WM_GETFONT), Window(host_->Handle()).Send(WM_GETFONT));
  List().SetComboSeparator(':');
  EXPECT_EQ(List().GetComboSeparator(), ':');
  CStringList entries;
  entries.AddTail("木");
  entries.AddTail("表");
  List().SetCombo(kMaterial, kMaterial, &entries, "");
  EXPECT_EQ(combo.Items(), (std::vector<std::string>{"木", "表"}));
  EXPECT_EQ(List().GetComboSeparator(), ' ');
  List().SetCombo(kMaterial, 4, &entries, "");
  List().SetCombo(4, 4, &entries, "");
  List().SetCombo(-1, 0, &entries, "");
  List().SetCombo(kMaterial, kMaterial, nullptr, nullptr);
  EXPECT_EQ(ChildrenWithId(*host_, 10002).size(), 1U);
  List().ClearCombo(kMaterial);
  EXPECT_FALSE(combo.Exists());
  List().ClearCombo(kMaterial);
  List().ClearEdit(kName);
  EXPECT_EQ(ChildrenWithId(*host_, 10000).size(), 1U);
  List().ClickItem(1, kName);
  EXPECT_FALSE(host_->EditBox());
}

TEST_F(GridWindowTest, TheEndLeavesAnEmptyListView) {
  Open();
  List().ClickItem(1, kMaterial);
  List().OpenComboBox();
  List().TermList();
  EXPECT_EQ(host_->ListView().Count(), 0);
  EXPECT_EQ(host_->ListView().ColumnCount(), 0);
  EXPECT_TRUE(ChildrenWithId(*host_, 10000).empty());
  EXPECT_TRUE(ChildrenWithId(*host_, 10002).empty());
  EXPECT_EQ(List().GetListCount(), 0);
  EXPECT_EQ(List().GetItemCount(), 0);
  List().TermList();
  List().InitList0(host_->Window(), kList, 2, 1, 1, -1);
  List().SetColumn(0, "x", 5.0);
  List().SetColumn(1, "x", 5.0);
  List().SetItemText(0, 0, "123456");
  List().SetItemText(0, 1, std::string(30, 'x').c_str());
  EXPECT_EQ(host_->Text(0, 0), "1234") << "the limits of before";
  EXPECT_EQ(host_->Text(0, 1), std::string(20, 'x'));
  List().InitList(host_->Window(), kList, 1, 1, 3, -1);
  List().SetColumn(0, "x", 5.0);
  EXPECT_EQ(host_->ListView().Count(), 3) << "a list that is initialised already is ended first";
  List().SetItemText(0, 0, std::string(500, 'x').c_str());
  EXPECT_EQ(host_->Text(0, 0), std::string(385, 'x'));
}

TEST_F(GridWindowTest, TheEndGivesEverythingBackThatCallersLent) {
  Open();
  List().SetComboSeparator(':');
  List().TermList();
  EXPECT_EQ(List().GetComboSeparator(), ' ');
  const Window zone(host_->Child(grid_test::kZone));
  zone.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("before"));
  List().MessageText("nobody hears it");
  EXPECT_EQ(zone.Text(), "before");
  List().SetParentWindow(host_->Window());
  List().MessageText("in the message zone of the dialog, which has no window of its own");
  EXPECT_EQ(zone.Text(), "before");
}

TEST_F(GridWindowTest, AListThatHasEndedOutlivesItsDialogsObject) {
  const fenced::FencedHeap heap;
  host_ = Host::Make(HostKind::Framework);
  Open();
  const auto list = std::move(host_->list);
  list->SetMessageWindow(nullptr);
  list->TermList();
  host_.reset();
  EXPECT_EQ(list->InsertItem(), -1);
  list->DeleteItem();
  list->ErrorText("nobody hears it");
  list->InitList(nullptr, kList, 1, 1, 1, -1);
  list->DeleteItem();
  EXPECT_EQ(heap.Violations(), 0);
}

TEST_F(GridWindowTest, ANewBeginningKeepsMessageWindowSeparatorAndParentList) {
  CvListControl outer;
  Open([this](Host& host) {
    List().SetMessageWindow(CWnd::FromHandle(host.Child(grid_test::kZone)));
    List().SetComboSeparator(':');
    List().InitList(host.Window(), kList, 2, 1, 1, -1);
  });
  EXPECT_EQ(List().GetComboSeparator(), ':');
  List().MessageText("kept");
  EXPECT_EQ(host_->ZoneText(), "kept");
  List().InitList0(host_->Window(), kList, 3, 1, 1, -1);
  EXPECT_EQ(List().GetComboSeparator(), ':');
  List().MessageText("kept again");
  EXPECT_EQ(host_->ZoneText(), "kept again");
  List().SetParentList(&outer);
  List().InitList(host_->Window(), kList, 2, 1, 1, -1);
  List().MessageText("heard by the outer list, which shows nothing");
  EXPECT_EQ(host_->ZoneText(), "kept again");
}

TEST_F(GridWindowTest, MoreRowsThanCanBeHadLeaveAnEmptyList) {
  Open();
  List().ClickItem(1, kMaterial);
  for (const int rows : {2'000'000'000, INT_MAX, 10'000'001}) {
    grid_test::FillTable(*host_);
    List().InitList(host_->Window(), kList, 20, rows, rows, 0);
    EXPECT_EQ(List().GetListCount(), 0) << rows;
    EXPECT_EQ(List().GetItemCount(), 0);
    EXPECT_EQ(host_->ListView().Count(), 0);
    EXPECT_EQ(host_->ListView().ColumnCount(), 0);
    EXPECT_TRUE(ChildrenWithId(*host_, 10000).empty());
    CallEverything(List(), 0, 0);
    Host::Pump();
  }
  grid_test::FillTable(*host_);
  EXPECT_EQ(host_->Text(1, kName), "部品1");
  EXPECT_EQ(host_->ListView().Count(), 30);
}

TEST_F(GridWindowTest, WithoutMemoryHalfWayAListIsEmptyToo) {
  Open();
  int failures = 0;
  for (std::size_t request = 1;; ++request) {
    grid_test::FillTable(*host_);
    fenced::FailRequest(request);
    List().InitList(host_->Window(), kList, 20, 5, 10, 0);
    fenced::FailRequest(0);
    if (List().GetListCount() == 10) break;
    ++failures;
    EXPECT_EQ(List().GetListCount(), 0) << request;
    EXPECT_EQ(List().GetItemCount(), 0);
    EXPECT_EQ(host_->ListView().Count(), 0);
    EXPECT_EQ(host_->ListView().ColumnCount(), 0);
    CallEverything(List(), 0, 0);
  }
  EXPECT_GT(failures, 40) << "looks and texts of 20 columns";
  EXPECT_EQ(host_->ListView().Count(), 10);
}

/// Takes no more than three rows.
LRESULT CALLBACK RefuseRows(HWND view, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
  const bool insert = message == LVM_INSERTITEMA || message == LVM_INSERTITEMW;
  if (insert && ::SendMessageA(view, LVM_GETITEMCOUNT, 0, 0) == 3) return -1;
  return ::DefSubclassProc(view, message, wParam, lParam);
}

TEST_F(GridWindowTest, AListViewWithoutRoomLeavesAnEmptyList) {
  Open();
  ::SetWindowSubclass(host_->Child(kList), RefuseRows, 1, 0);
  List().InitList(host_->Window(), kList, 2, 5, 10, 0);
  EXPECT_EQ(List().GetListCount(), 0);
  EXPECT_EQ(host_->ListView().Count(), 0);
  List().InitList(host_->Window(), kList, 2, 3, 3, 0);
  EXPECT_EQ(List().GetListCount(), 3);
  EXPECT_EQ(host_->ListView().Count(), 3);
  ::RemoveWindowSubclass(host_->Child(kList), RefuseRows, 1);
}

TEST_F(GridWindowTest, WithoutLimitsCellsHold385Bytes) {
  Open([this](Host& host) {
    List().InitList0(host.Window(), kList, 2, 1, 3, 20);
    List().SetColumn(0, "x", 5.0);
    List().SetColumn(1, "x", 5.0);
  });
  List().SetItemText(0, 1, std::string(500, 'x').c_str());
  EXPECT_EQ(host_->Text(0, 1), std::string(385, 'x'));
  EXPECT_EQ(List().AddItem(), 1);
  EXPECT_EQ(host_->Text(1, 0), "2") << "a number column of 20 and above is column 0";
}

TEST_F(GridWindowTest, LimitsAreClamped) {
  Open([this](Host& host) {
    const int limits[] = {2, 1000, -1, 5};
    List().InitList(host.Window(), kList, 4, limits, 1, 1, -1);
    for (int c = 0; c < 4; ++c) List().SetItemText(0, c, std::string(500, 'x').c_str());
  });
  EXPECT_EQ(host_->Text(0, 0), "xxxx");
  EXPECT_EQ(host_->Text(0, 1), std::string(385, 'x'));
  EXPECT_EQ(host_->Text(0, 2), "xxxx");
  List().SetItemText(0, 3, "1234表7890");
  EXPECT_EQ(host_->Text(0, 3), "1234");
  List().SetItemText(0, 3, "12\x95");
  EXPECT_EQ(host_->Text(0, 3), "12") << "half a character";
  List().SetItemText(0, 3, nullptr);
  EXPECT_EQ(host_->Text(0, 3), "");
}

// ---------------------------------------------------------------------------------------------------- places

TEST_F(GridWindowTest, WhereTheEditorsStand) {
  Open();
  List().ClickItem(2, kName);
  RECT item = ItemInHost(2);
  RECT box = host_->EditBox().RectInParent();
  EXPECT_EQ(box.left, 10 + LeftOf(kName) + 4 + (item.left - 11));
  // The list's origin is its outer corner, the item lies within its border.
  EXPECT_EQ(box.top, item.top - 1 + 2);
  EXPECT_EQ(box.right - box.left, host_->ListView().ColumnAt(kName).width - 3);
  EXPECT_EQ(box.bottom - box.top, ItemHeight() - 1);

  List().ClickItem(4, kMaterial);
  item = ItemInHost(4);
  const int width = host_->ListView().ColumnAt(kMaterial).width;
  box = host_->EditBox().RectInParent();
  EXPECT_EQ(box.left, 10 + LeftOf(kMaterial) + 4);
  EXPECT_EQ(box.right - box.left, width - ScrollBarWidth() - 6);
  List().OpenComboBox();
  const RECT combo = host_->ComboBox().RectInParent();
  EXPECT_EQ(combo.left, 10 + LeftOf(kMaterial) + 2);
  EXPECT_EQ(combo.top, item.top - 1 - 4);
  EXPECT_EQ(combo.right - combo.left, width - 2 + host_->ListView().ColumnAt(kColour).width);
  EXPECT_EQ(host_->ComboBox().Selection(), -1) << "no entry is the cell's text";
  List().CloseComboBox();
  List().SetItemText(4, kMaterial, "表 ソ");
  List().OpenComboBox();
  EXPECT_EQ(host_->ComboBox().Selection(), 3);
  List().CloseComboBox();
}

TEST_F(GridWindowTest, ABoxEndsWithTheUsableWidthAndDoesNotBeginBehindIt) {
  Open();
  const driver::ListView view = host_->ListView();
  view.Send(LVM_SETCOLUMNWIDTH, kNumber, 200);
  Host::Pump();
  const int usable = 322 - ScrollBarWidth();
  List().ClickItem(1, kName);
  RECT box = host_->EditBox().RectInParent();
  EXPECT_EQ(box.left, 10 + 200 + 4);
  EXPECT_EQ(box.right, 10 + usable);
  List().ClickItem(1, kMaterial);
  EXPECT_FALSE(host_->EditBox());
  view.Send(LVM_SCROLL, 30, 0);
  Host::Pump();
  List().ClickItem(1, kMaterial);
  box = host_->EditBox().RectInParent();
  EXPECT_EQ(box.left, 10 + 200 + view.ColumnAt(kName).width - 30 + 4);
  EXPECT_EQ(box.right, 10 + usable);
  view.Send(LVM_SCROLL, 190, 0);
  Host::Pump();
  List().SetEdit(kNumber, 0, 4, "");
  CStringList entries;
  entries.AddTail("1");
  List().SetCombo(kNumber, kNumber, &entries, "");
  List().ClickItem(1, kNumber);
  EXPECT_FALSE(host_->EditBox()) << "begins left of the list";
  List().OpenComboBox();
  EXPECT_FALSE(host_->ComboBox());
  List().ClickItem(1, kMaterial);
  List().OpenComboBox();
  EXPECT_TRUE(host_->ComboBox());
}

TEST_F(GridWindowTest, APendingSelectionScrollsAndEdits) {
  Open();
  List().SetItemCount(30);
  for (int row = 12; row < 30; ++row) List().SetItemText(row, kName, "x");
  List().SelectItem(20, kName);
  EXPECT_EQ(List().GetSelectedItem(), -1) << "nothing happens yet";
  EXPECT_FALSE(host_->EditBox());
  List().SelectItem();
  Host::Pump();
  EXPECT_EQ(List().GetSelectedItem(), 20);
  EXPECT_EQ(List().GetSelectedColumn(), kName);
  ASSERT_TRUE(host_->EditBox());
  EXPECT_EQ(host_->EditBox().RectInParent().top, ItemInHost(20).top + 1);
  const int page = static_cast<int>(host_->ListView().Send(LVM_GETCOUNTPERPAGE)) + 1;
  EXPECT_EQ(host_->ListView().TopRow(), std::min(20, 30 - page));
  List().ClearSelectFlag();
  List().SelectItem(0, kName);
  List().SelectItem();
  Host::Pump();
  EXPECT_EQ(host_->ListView().TopRow(), 0);
  EXPECT_EQ(host_->EditBox().RectInParent().top, ItemInHost(0).top + 1);
  List().SelectItem(30, kName);
  List().SelectItem(1, 4);
  List().SelectItem();
  EXPECT_EQ(List().GetSelectedItem(), 0) << "cells outside are not asked for";
}

TEST_F(GridWindowTest, ARepaintCarriesAPendingSelectionOut) {
  Open();
  List().SelectItem(5, kMaterial);
  ::InvalidateRect(host_->Child(kList), nullptr, FALSE);
  Host::Pump();
  EXPECT_EQ(List().GetSelectedItem(), 5);
  ASSERT_TRUE(host_->EditBox());
  EXPECT_EQ(host_->EditBox().RectInParent().top, ItemInHost(5).top + 1);
  EXPECT_EQ(host_->EditBox().RectInParent().left, 10 + LeftOf(kMaterial) + 4);
}

TEST_F(GridWindowTest, AColumnThatIsResizedHidesTheBoxUntilTheNextClick) {
  Open();
  List().ClickItem(2, kName);
  host_->ListView().Send(LVM_SETCOLUMNWIDTH, kNumber, 40);
  Host::Pump();
  EXPECT_FALSE(host_->EditBox());
  List().ClickItem(2, kName);
  ASSERT_TRUE(host_->EditBox());
  EXPECT_EQ(host_->EditBox().RectInParent().left, 10 + 40 + 4);
}

TEST_F(GridWindowTest, WhichCellIsUnderTheClick) {
  Open();
  const driver::ListView view = host_->ListView();
  List().SetSelectFlag(3, 1);
  EXPECT_EQ(view.SelectedRows(), std::vector<int>{3}) << "the flag is passed on";
  const RECT cell = view.CellRect(3, kMaterial);
  ::SetCursorPos(cell.left + 20, cell.top + 3);
  int row = -5;
  int col = -5;
  List().GetClickItem(&row, &col);
  EXPECT_EQ(row, 3);
  EXPECT_EQ(col, kMaterial);
  List().GetClickItem(nullptr, nullptr);
  ::SetCursorPos(cell.left - 400, cell.top + 3);
  List().GetClickItem(&row, &col);
  EXPECT_EQ(col, kNumber) << "whatever lies left counts for the first column";
  List().ClickItem();
  EXPECT_EQ(List().GetSelectedColumn(), -1);
  EXPECT_EQ(List().GetSelectedItem(), -1);
  List().SetSelectFlag(3, 0);
  EXPECT_EQ(view.SelectedRows(), std::vector<int>{});
  ::SetCursorPos(cell.right + 400, cell.top + 3);
  List().GetClickItem(&row, &col);
  EXPECT_EQ(row, -1);
  EXPECT_EQ(col, -1);
}

// ---------------------------------------------------------------------------------------------------- rows

TEST_F(GridWindowTest, ARowIsInsertedBeforeTheSelectedOne) {
  OpenNumbered(3, 5, 10);
  List().SetEdit(1, 0, 20, "入力");
  List().SetErrorFlag(2, 1, 1);
  List().SetItemColor(2, 1, 0x123456, 0x654321);
  List().ClickItem(2, 1);
  host_->EditBox().Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("typed"));
  EXPECT_EQ(List().InsertItem(), 2);
  EXPECT_EQ(List().GetItemCount(), 6);
  EXPECT_EQ(host_->Text(2, 1), "");
  EXPECT_EQ(host_->Text(3, 1), "typed") << "what was typed went along with its row";
  EXPECT_EQ(List().GetErrorFlag(3, 1), 0);
  EXPECT_EQ(List().GetErrorFlag(2, 1), 1);
  EXPECT_EQ(List().GetAvailableFlag(2), 0);
  EXPECT_EQ(List().GetSelectedItem(), 2);
  for (int row = 0; row < 6; ++row) EXPECT_EQ(host_->Text(row, 0), std::to_string(row + 1));
  ASSERT_TRUE(host_->EditBox());
  EXPECT_EQ(host_->EditBox().Text(), "");
  EXPECT_EQ(host_->EditBox().RectInParent().top, ItemInHost(2).top + 1);
  host_->EditBox().Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("new"));
  EXPECT_EQ(host_->Text(2, 1), "new");
  EXPECT_EQ(host_->Text(3, 1), "typed");
  EXPECT_EQ(host_->ZoneText(), "");
  EXPECT_EQ(List().AddItem(), 6);
  EXPECT_EQ(host_->Text(6, 0), "7");
  EXPECT_EQ(List().GetSelectFlag(2), 0);
  EXPECT_EQ(host_->EditBox().RectInParent().top, ItemInHost(6).top + 1);
}

TEST_F(GridWindowTest, AllSelectedRowsAreDeleted) {
  OpenNumbered(3, 5, 6);
  List().SetSelectFlag(1, 1);
  List().SetSelectFlag(3, 1);
  List().DeleteItem();
  EXPECT_EQ(List().GetItemCount(), 3);
  EXPECT_EQ(host_->Text(0, 1), "1");
  EXPECT_EQ(host_->Text(1, 1), "21");
  EXPECT_EQ(host_->Text(2, 1), "41");
  EXPECT_EQ(host_->Text(3, 1), "");
  EXPECT_EQ(host_->Text(2, 0), "3");
  EXPECT_EQ(host_->Text(3, 0), "");
  EXPECT_EQ(List().GetAvailableFlag(3), 1);
  EXPECT_EQ(List().GetSelectedItem(), -1);
}

TEST_F(GridWindowTest, ClassAndRevisionNumbersAreChecked) {
  Open();
  for (const char* valid : {"1", "256", "007"}) {
    EXPECT_EQ(List().CheckClassNumber(0, valid), 1) << valid;
    EXPECT_EQ(List().CheckRevisionNumber(0, valid), 1) << valid;
  }
  EXPECT_EQ(host_->ZoneText(), "");
  EXPECT_EQ(List().CheckClassNumber(4, "0"), 0);
  EXPECT_EQ(host_->ZoneText(), "無効なクラス番号です 5 : 0");
  EXPECT_EQ(List().CheckRevisionNumber(11, "+3"), 0);
  EXPECT_EQ(host_->ZoneText(), "無効なレビジョンです 12 : +3");
  EXPECT_EQ(List().CheckClassNumber(0, "257"), 0);
  EXPECT_EQ(List().CheckClassNumber(0, ""), 0);
  EXPECT_EQ(List().CheckClassNumber(INT_MAX, std::string(1000, '9').c_str()), 0);
}

TEST_F(GridWindowTest, MessagesClimbToTheOutermostList) {
  Open();
  CvListControl inner(&List());
  CvListControl innermost;
  innermost.SetParentList(&inner);
  innermost.MessageText("奥から");
  EXPECT_EQ(host_->ZoneText(), "奥から");
  innermost.ErrorText("誤り");
  EXPECT_EQ(host_->ZoneText(), "誤り");
  inner.MessageText(nullptr);
  EXPECT_EQ(host_->ZoneText(), "");
  innermost.SetParentList(nullptr);
  innermost.MessageText("nobody hears it");
  EXPECT_EQ(host_->ZoneText(), "");
  List().SetParentList(&inner);
  inner.MessageText("a circle of parents");
}

// ---------------------------------------------------------------------------------------------------- combo boxes

TEST_F(GridWindowTest, OpeningAListRefreshesTheDialogsData) {
  int exchanges = 0;
  host_->onExchange = [&] { ++exchanges; };
  Open();
  List().ClickItem(1, kMaterial);
  EXPECT_EQ(exchanges, 0);
  List().OpenComboBox();
  EXPECT_EQ(exchanges, 1);
  EXPECT_EQ(host_->ZoneText(), "材質を選択");
  List().OpenComboBox();
  EXPECT_FALSE(host_->ComboBox());
  EXPECT_EQ(exchanges, 1);
  EXPECT_EQ(host_->ZoneText(), "材質を入力");
  List().CloseComboBox();
  List().ClickItem(1, kName);
  List().OpenComboBox();
  EXPECT_FALSE(host_->ComboBox()) << "a column without a list";
}

TEST_F(GridWindowTest, ACompletePickIsTheWholeStory) {
  Open();
  List().ClickItem(1, kMaterial);
  List().SetErrorFlag(1, kMaterial, 1);
  List().OpenComboBox();
  Pick(10002, 2);
  EXPECT_EQ(host_->Text(1, kMaterial), "7");
  EXPECT_EQ(List().GetErrorFlag(1, kMaterial), 1);
  EXPECT_EQ(host_->EditBox().Text(), "7");
  EXPECT_FALSE(host_->ComboBox());
  List().SetComboSeparator(':');
  List().OpenComboBox();
  Pick(10002, 3);
  EXPECT_EQ(host_->Text(1, kMaterial), "表 ソ");
}

TEST_F(GridWindowTest, AComboOfTheDialogStaysTheDialogs) {
  Open([this](Host& host) {
    ::CreateWindowExA(0, "COMBOBOX", "", WS_CHILD | CBS_DROPDOWNLIST, 0, 0, 50, 200, host.Handle(),
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(kDialogCombo)), nullptr, nullptr);
    ::SendMessageA(host.Child(kDialogCombo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("old"));
    grid_test::FillTable(host);
    CStringList entries;
    entries.AddTail("9 new");
    List().ClearCombo(kMaterial);
    List().SetCombo(kMaterial, kMaterial - 1, &entries, kDialogCombo, "選択");
    List().SetCombo(kName, kName, &entries, 4711, "");
  });
  const Window combo(host_->Child(kDialogCombo));
  EXPECT_EQ(combo.Items(), std::vector<std::string>{"9 new"});
  List().ClickItem(1, kMaterial);
  List().OpenComboBox();
  EXPECT_TRUE(combo.IsVisible());
  EXPECT_EQ(combo.RectInParent().right - combo.RectInParent().left, host_->ListView().ColumnAt(kMaterial).width - 2);
  EXPECT_EQ(host_->ZoneText(), "選択");
  Pick(kDialogCombo, 0);
  EXPECT_EQ(host_->Text(1, kMaterial), "2") << "the dialog stores what it likes";
  List().SetItemText(1, kMaterial, "9");
  List().SelchangeComboBox("9");
  List().CloseComboBox();
  EXPECT_FALSE(combo.IsVisible());
  EXPECT_EQ(host_->EditBox().Text(), "9");
  List().ClickItem(2, kName);
  List().OpenComboBox();
  List().ClearCombo(kMaterial);
  EXPECT_TRUE(combo.Exists());
  List().TermList();
  EXPECT_TRUE(combo.Exists());
}

// ---------------------------------------------------------------------------------------------------- bad input

constexpr int kOddNumbers[] = {INT_MIN, -2, -1, 0, 1, 3, 4, 5, 19, 20, 21, 29, 30, 31, INT_MAX};

TEST_F(GridWindowTest, NoIndexReachesOutside) {
  Open();
  for (const int row : kOddNumbers) {
    for (const int col : kOddNumbers) CallEverything(List(), row, col);
  }
  EXPECT_EQ(List().GetItemCount(), 12);
  EXPECT_EQ(host_->Text(1, kName), "表");
  EXPECT_EQ(host_->Text(2, kName), "部品2");
  for (const int col : {INT_MIN, -1, 4, 20, INT_MAX}) {
    List().SetColumn(col, "x", 1.0);
    List().SetEdit(col, 0, 10, "x");
    List().SetCombo(col, col, nullptr, "x");
    List().ClearEdit(col);
    List().ClearCombo(col);
  }
  EXPECT_EQ(host_->ListView().ColumnCount(), 4);
}

TEST_F(GridWindowTest, ItemCountsOutsideTheRoom) {
  Open();
  for (const int count : {INT_MIN, -1, 31, INT_MAX, 0}) {
    List().SetItemCount(count);
    EXPECT_EQ(List().GetItemCount(), count);
    for (const int row : kOddNumbers) CallEverything(List(), row, kMaterial);
    List().SetItemCount(count);
    EXPECT_EQ(List().GetSelectedItem(), -1);
    List().DrawItem();
    Host::Pump();
  }
}

TEST_F(GridWindowTest, CapacitiesOfNoneAndOne) {
  Open([](Host&) {});
  for (const int capacity : {0, -7, 1}) {
    List().InitList(host_->Window(), kList, 2, 5, capacity, 30);
    List().SetColumn(0, "x", 5.0);
    List().SetEdit(0, 0, 5, nullptr);
    EXPECT_EQ(List().GetListCount(), std::max(capacity, 0));
    EXPECT_EQ(host_->ListView().Count(), std::max(capacity, 0));
    for (const int row : {-1, 0, 1, 2}) CallEverything(List(), row, 0);
    List().DrawItem();
    Host::Pump();
  }
  EXPECT_EQ(List().GetItemCount(), 1);
}

TEST_F(GridWindowTest, AHundredThousandRows) {
  Open([this](Host& host) {
    List().InitList(host.Window(), kList, 20, 100000, 100000, 0);
    for (int c = 0; c < 2; ++c) List().SetColumn(c, "x", 5.0);
  });
  List().SetItemText(99999, 19, "末尾");
  EXPECT_EQ(host_->Text(99999, 19), "末尾");
  EXPECT_EQ(host_->ListView().Count(), 100000);
  List().SetEdit(1, 0, 5, "");
  List().SetItemText(99999, 1, "x");
  List().SelectItem(99999, 1);
  List().SelectItem();
  EXPECT_TRUE(host_->EditBox());
  Host::Pump();
}

TEST_F(GridWindowTest, WithoutInitListNothingHappens) {
  CvListControl list;
  for (const int row : {INT_MIN, -1, 0, 1, INT_MAX}) {
    for (const int col : {INT_MIN, -1, 0, 1, INT_MAX}) CallEverything(list, row, col);
  }
  EXPECT_EQ(list.GetItemCount(), 0);
  EXPECT_EQ(list.GetSelectedItem(), -1);
  list.SetColumn(0, "x", 1.0);
  list.SetEdit(0, 0, 5, "");
  list.SetCombo(0, 0, nullptr, "");
  list.DeleteItem();
  EXPECT_EQ(list.InsertItem(), -1);
  EXPECT_EQ(list.AddItem(), 0);
  list.OnDrawItem(nullptr);
  list.ClickItem();
  list.DrawItem();
  list.TermList();
}

TEST_F(GridWindowTest, ParentsAndListViewsThatAreNot) {
  Open([](Host&) {});
  List().InitList(nullptr, kList, 3, 2, 4, 0);
  CallEverything(List(), 1, 1);
  EXPECT_EQ(List().GetItemCount(), 2);
  List().InitList(host_->Window(), 4711, 3, 2, 4, 0);
  List().SetColumn(1, "x", 5.0);
  List().SetEdit(1, 0, 10, "");
  CStringList entries;
  List().SetCombo(1, 2, &entries, "");
  CallEverything(List(), 1, 1);
  EXPECT_EQ(host_->Text(1, 1), "表");
}

TEST_F(GridWindowTest, AParentWithoutFont) {
  Open([](Host&) {});
  ::SendMessageA(host_->Handle(), WM_SETFONT, 0, 0);
  grid_test::FillTable(*host_);
  Host::Pump();
  List().ClickItem(1, kName);
  EXPECT_EQ(host_->EditBox().Text(), "部品1");
  List().DrawItem();
}

class GridLifeTest : public testing::TestWithParam<HostKind> {
 protected:
  std::unique_ptr<Host> host_ = Host::Make(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Hosts, GridLifeTest, testing::Values(HostKind::Framework, HostKind::Plain),
                         [](const auto& host) { return host.param == HostKind::Framework ? "Framework" : "Plain"; });

TEST_P(GridLifeTest, TheListViewMayDieFirst) {
  host_->Open(grid_test::FillTable);
  CvListControl& list = *host_->list;
  list.ClickItem(1, kMaterial);
  list.OpenComboBox();
  ::DestroyWindow(host_->Child(kList));
  for (const int row : {-1, 0, 1, 29, 30}) CallEverything(list, row, kMaterial);
  EXPECT_EQ(host_->Text(0, kName), "部品0");
  EXPECT_EQ(list.AddItem(), 12);
  list.TermList();
  host_->list.reset();
}

TEST_P(GridLifeTest, TheHostMayDieFirst) {
  host_->Open(grid_test::FillTable);
  CvListControl& list = *host_->list;
  list.ClickItem(1, kMaterial);
  list.OpenComboBox();
  host_->Destroy();
  for (const int row : {-1, 0, 1, 29, 30}) CallEverything(list, row, kMaterial);
  std::array<char, 386> text = {};
  list.GetItemText(0, kName, text.data());
  EXPECT_STREQ(text.data(), "部品0");
  list.MessageText("nobody hears it");
  list.ErrorText("nobody hears it");
}

TEST_P(GridLifeTest, ABoxThatIsGoneEmptiesNoCell) {
  host_->Open(grid_test::FillTable);
  host_->list->ClickItem(1, kName);
  host_->Destroy();
  host_->list->KeyInput();
  std::array<char, 386> text = {};
  host_->list->GetItemText(1, kName, text.data());
  EXPECT_STREQ(text.data(), "部品1");
}

TEST_P(GridLifeTest, TheListMayDieFirstAndTheHostGoesOn) {
  host_->Open(grid_test::FillTable);
  host_->list->ClickItem(1, kName);
  host_->list.reset();
  EXPECT_TRUE(ChildrenWithId(*host_, 10000).empty());
  EXPECT_EQ(host_->ListView().Count(), 30) << "the list view is left alone";
  ::InvalidateRect(host_->Child(kList), nullptr, TRUE);
  Host::Pump();
  host_->list = std::make_unique<CvListControl>();
  ::SendMessageA(host_->Child(kList), LVM_DELETEALLITEMS, 0, 0);
  grid_test::FillTable(*host_);
  host_->list->ClickItem(1, kName);
  ASSERT_TRUE(host_->EditBox());
  host_->EditBox().Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("again"));
  EXPECT_EQ(host_->Text(1, kName), "again");
}

TEST_P(GridLifeTest, TwoListsInOneHost) {
  host_->Open([&](Host& host) {
    grid_test::FillTable(host);
    ::CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_REPORT, 10, 250, 200, 60, host.Handle(),
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(2001)), nullptr, nullptr);
  });
  auto second = std::make_unique<CvListControl>(host_->list.get());
  second->InitList(host_->Window(), 2001, 1, 2, 2, -1);
  second->SetColumn(0, "x", 9.0);
  second->SetEdit(0, 0, 10, "下の表");
  second->SetItemText(0, 0, "a");
  second->ClickItem(0, 0);
  EXPECT_EQ(host_->ZoneText(), "下の表");
  host_->EditBox().Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("b"));
  std::array<char, 386> text = {};
  second->GetItemText(0, 0, text.data());
  EXPECT_STREQ(text.data(), "b");
  second.reset();
  host_->list->ClickItem(1, kName);
  host_->EditBox().Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("c"));
  EXPECT_EQ(host_->Text(1, kName), "c");
}

}  // namespace
