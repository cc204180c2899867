#include "platform/framework/controls.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/framework/fixtures.h"

namespace {

class Controls : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.Create("STATIC", "", WS_POPUP | WS_VISIBLE, {0, 0, 400, 300}, nullptr, 0));
  }
  void TearDown() override { parent.DestroyWindow(); }

  CWnd parent;
};

TEST_F(Controls, EditCountsCharactersAndCopiesLines) {
  CEdit edit;
  ASSERT_TRUE(edit.Create(WS_CHILD | ES_MULTILINE, {0, 0, 100, 60}, &parent, 1));
  edit.SetWindowText("表a\r\nbc");
  EXPECT_EQ(edit.GetLineCount(), 2);
  edit.SetSel(0, 1);
  int start = 9;
  int end = 9;
  edit.GetSel(&start, &end);
  EXPECT_EQ(start, 0);
  EXPECT_EQ(end, 1);
  edit.ReplaceSel("x");
  char line[16]{};
  EXPECT_EQ(edit.GetLine(0, line, sizeof line), 2);
  EXPECT_STREQ(line, "xa");
  EXPECT_EQ(edit.GetLine(0, line, 1), 0);
  edit.LimitText(7);
  EXPECT_EQ(edit.GetLimitText(), 7U);
  edit.SetSel(0, -1);
  edit.Clear();
  EXPECT_EQ(edit.GetWindowTextLength(), 0);
}

TEST_F(Controls, ComboKeepsItsEntries) {
  CComboBox combo;
  ASSERT_TRUE(combo.Create(WS_CHILD | CBS_DROPDOWNLIST | WS_VSCROLL, {0, 0, 100, 100}, &parent, 1));
  EXPECT_EQ(combo.AddString("表"), 0);
  EXPECT_EQ(combo.AddString("b"), 1);
  EXPECT_EQ(combo.InsertString(1, "a"), 1);
  EXPECT_EQ(combo.GetCount(), 3);
  CString text;
  combo.GetLBText(0, text);
  EXPECT_STREQ(text, "表");
  combo.GetLBText(7, text);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(combo.FindStringExact(-1, "b"), 2);
  EXPECT_EQ(combo.FindStringExact(-1, "c"), -1);
  EXPECT_EQ(combo.SetCurSel(2), 2);
  EXPECT_EQ(combo.GetCurSel(), 2);
  EXPECT_FALSE(combo.GetDroppedState());
  EXPECT_NE(combo.SetItemHeight(-1, 21), CB_ERR);
  EXPECT_GE(combo.GetItemHeight(-1), 21);
  combo.SetItemData(1, 12345);
  EXPECT_EQ(combo.GetItemData(1), 12345U);
  EXPECT_EQ(combo.DeleteString(0), 2);
  combo.ResetContent();
  EXPECT_EQ(combo.GetCount(), 0);
}

TEST_F(Controls, ListViewKeepsRowsAndColumns) {
  CListCtrl list;
  ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 300, 200}, &parent, 1));
  EXPECT_EQ(list.InsertColumn(0, "名前", LVCFMT_LEFT, 100), 0);
  EXPECT_EQ(list.InsertColumn(1, "大きさ", LVCFMT_RIGHT, 60), 1);
  EXPECT_EQ(list.GetHeaderCtrl().GetItemCount(), 2);
  EXPECT_EQ(list.GetColumnWidth(0), 100);
  list.SetColumnWidth(0, 120);
  EXPECT_EQ(list.GetColumnWidth(0), 120);
  list.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
  EXPECT_EQ(list.GetExtendedStyle(), static_cast<DWORD>(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES));
  EXPECT_EQ(list.InsertItem(0, "表"), 0);
  EXPECT_EQ(list.InsertItem(1, "b", 0), 1);
  list.SetItemText(0, 1, "12");
  EXPECT_STREQ(list.GetItemText(0, 0), "表");
  EXPECT_STREQ(list.GetItemText(0, 1), "12");
  char cut[2]{};
  EXPECT_EQ(list.GetItemText(0, 1, cut, 2), 1);
  EXPECT_STREQ(cut, "1");
  EXPECT_EQ(list.GetItemText(0, 1, cut, 0), 0);
  const std::string large(3000, 'x');
  list.SetItemText(1, 1, large.c_str());
  EXPECT_EQ(list.GetItemText(1, 1).View(), large);
  EXPECT_EQ(list.GetItemCount(), 2);
  list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_EQ(list.GetSelectedCount(), 1);
  EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 1);
  EXPECT_EQ(list.GetItemState(0, LVIS_SELECTED), 0U);
  RECT whole{};
  RECT part{};
  EXPECT_TRUE(list.GetItemRect(0, &whole, LVIR_BOUNDS));
  EXPECT_TRUE(list.GetSubItemRect(0, 1, LVIR_BOUNDS, &part));
  EXPECT_EQ(part.left, whole.left + 120);
  EXPECT_GT(list.GetCountPerPage(), 0);
  EXPECT_EQ(list.GetTopIndex(), 0);
  LVHITTESTINFO hit{};
  hit.pt = {part.left + 2, part.top + 2};
  EXPECT_EQ(list.SubItemHitTest(&hit), 0);
  EXPECT_EQ(hit.iSubItem, 1);
  EXPECT_GT(list.GetStringWidth("表表"), list.GetStringWidth("表"));
  list.SetItemData(0, 77);
  EXPECT_EQ(list.GetItemData(0), 77U);
  EXPECT_TRUE(list.DeleteColumn(1));
  EXPECT_TRUE(list.DeleteAllItems());
  EXPECT_EQ(list.GetItemCount(), 0);
}

TEST(ListViews, WalkOfRowsWithoutAWindowEnds) {
  EXPECT_EQ(ListCtrlRef().GetNextItem(-1, LVNI_SELECTED), -1);
  EXPECT_EQ(CListCtrl().GetNextItem(0, LVNI_ALL), -1);
}

TEST_F(Controls, ToolBarAndTooltips) {
  CToolBarCtrl bar;
  ASSERT_TRUE(bar.Create(WS_CHILD | TBSTYLE_TOOLTIPS, {0, 0, 100, 10}, &parent, 10003));
  const UniqueBitmap pictures(::CreateBitmap(48, 16, 1, 24, nullptr));
  EXPECT_EQ(bar.AddBitmap(3, pictures.Get()), 0);
  TBBUTTON buttons[2]{};
  buttons[0].idCommand = 2001;
  buttons[0].fsState = TBSTATE_ENABLED;
  buttons[1].idCommand = 2002;
  buttons[1].fsState = TBSTATE_INDETERMINATE;
  EXPECT_TRUE(bar.AddButtons(2, buttons));
  EXPECT_EQ(bar.GetButtonCount(), 2);
  EXPECT_EQ(bar.GetState(2001), TBSTATE_ENABLED);
  EXPECT_EQ(bar.GetState(2002), TBSTATE_INDETERMINATE);
  bar.AutoSize();
  RECT rect{};
  EXPECT_TRUE(bar.GetItemRect(0, &rect));
  EXPECT_GT(rect.right, rect.left);
  EXPECT_TRUE(::IsWindow(bar.GetToolTips()));
}

TEST(ImageLists, OwnTheirImages) {
  const int before = framework::LiveHandles(framework::HandleKind::ImageList);
  {
    CImageList images;
    EXPECT_EQ(images.GetImageCount(), 0);
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24 | ILC_MASK, 1, 1));
    const UniqueBitmap bitmap(::CreateBitmap(32, 16, 1, 24, nullptr));
    EXPECT_EQ(images.Add(bitmap.Get(), RGB(0, 0, 0)), 0);
    EXPECT_EQ(images.GetImageCount(), 2);
    EXPECT_EQ(framework::LiveHandles(framework::HandleKind::ImageList), before + 1);
    CImageList moved = std::move(images);
    EXPECT_EQ(moved.GetImageCount(), 2);
    EXPECT_FALSE(moved.Create(::GetModuleHandleW(nullptr), 9999, 16, 1, 0));
    EXPECT_EQ(moved.GetSafeHandle(), nullptr);
  }
  EXPECT_EQ(framework::LiveHandles(framework::HandleKind::ImageList), before);
}

}  // namespace
