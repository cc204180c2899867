// The file browser's list, what is selected in it, and what OK makes of the file name box.
#include <algorithm>
#include <string>
#include <vector>

#include "dlglib/resources/resource.h"
#include "tests/windows/browser/browser_world.h"

namespace browser_test {
namespace {

using driver::ListView;
using driver::MessageBoxView;
using driver::Picture;
using driver::User;
using filedialog::kFlagAskOverwrite;
using filedialog::kFlagHideReadOnly;
using filedialog::kFlagPathMustExist;
using os::RegistryType;

constexpr char kFileNotFound[] = "\nファイルが見つかりません。\n指定したファイル名が正しいかどうか確認してください。";
constexpr char kOverwrite[] = "\nファイルは既に存在します。\n上書きしますか。";

int CountColour(const Picture& picture, COLORREF colour) {
  return picture.Count({0, 0, picture.Width(), picture.Height()}, colour);
}

// ---------------------------------------------------------------------------------------------------------------------
// listing

class BrowserListTest : public BrowserTest {};

TEST_F(BrowserListTest, FoldersComeFirstEachInOrderOfNames) {
  Run([](Browser& browser) {
    EXPECT_EQ(browser.Rows(), kAllRows);
    const ListView list = browser.List();
    for (int row = 0; row < list.Count(); ++row) EXPECT_EQ(list.Image(row), row < 3 ? 17 : 19) << row;
    EXPECT_EQ(list.ColumnCount(), 3);
    EXPECT_EQ(list.ColumnAt(0).title, "名前");
    EXPECT_EQ(list.ColumnAt(1).title, "サイズ");
    EXPECT_EQ(list.ColumnAt(2).title, "更新日時");
    EXPECT_EQ(list.ColumnAt(1).format & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
    EXPECT_EQ(list.ColumnAt(0).format & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT);
    EXPECT_EQ(list.ColumnAt(2).format & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT);
    EXPECT_TRUE(list.HasFocus());
    EXPECT_EQ(list.SelectedRows(), std::vector<int>{});
    EXPECT_EQ(browser.Name(), "");
  });
}

TEST_F(BrowserListTest, ColumnsShareTheListsWidth) {
  Run([](Browser& browser) {
    const RECT rect = browser.List().ScreenRect();
    const int space = static_cast<int>(rect.right - rect.left) - GetSystemMetrics(SM_CXVSCROLL) - 4;
    EXPECT_EQ(browser.List().ColumnAt(0).width, space * 3 / 6);
    EXPECT_EQ(browser.List().ColumnAt(1).width, space / 6);
    EXPECT_EQ(browser.List().ColumnAt(2).width, space * 2 / 6);
  });
}

TEST_F(BrowserListTest, SizesStandRightAndDatesLeft) {
  Run([](Browser& browser) {
    browser.ExpectCell(3, 1, "0 KB", DT_RIGHT);
    browser.ExpectCell(4, 1, "1 KB", DT_RIGHT);
    browser.ExpectCell(5, 1, "2 KB", DT_RIGHT);
    browser.ExpectCell(0, 1, "", DT_RIGHT);
    browser.ExpectCell(0, 2, " 2024/03/05 15:07:08", DT_LEFT);
    browser.ExpectCell(5, 2, " 2024/03/07 15:07:08", DT_LEFT);
    EXPECT_NE(browser.CellPicture(5, 2), browser.CellPicture(0, 2));
  });
}

TEST_F(BrowserListTest, ASelectedNameIsHighlightedAndNothingElseOfItsRow) {
  Run([](Browser& browser) {
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_EQ(CountColour(browser.CellPicture(4, 0), highlight), 0);
    browser.ExpectCell(4, 1, "1 KB", DT_RIGHT);
    const Picture size = browser.CellPicture(4, 1);
    browser.ClickRow("A-001.MDL");
    EXPECT_GT(CountColour(browser.CellPicture(4, 0), highlight), 200);
    EXPECT_EQ(browser.CellPicture(4, 1), size);
    EXPECT_EQ(CountColour(browser.CellPicture(5, 0), highlight), 0);
    browser.ClickRow("b.mdl");
    EXPECT_EQ(CountColour(browser.CellPicture(4, 0), highlight), 0);
  });
}

TEST_F(BrowserListTest, ALongNameEndsInAnEllipsisWithinItsColumn) {
  const std::string name = std::string(120, 'w') + ".mdl";
  World().files.AddFile("C:\\data\\long\\" + name);
  World().files.AddFile("C:\\data\\long\\" + name.substr(0, 119) + "v.mdl");
  startUp_.initialFolder = "C:\\data\\long";
  Run([](Browser& browser) {
    EXPECT_EQ(browser.CellPicture(0, 0), browser.CellPicture(1, 0));
    browser.ExpectCell(0, 1, "0 KB", DT_RIGHT);
  });
}

TEST_F(BrowserListTest, AnUnreadableFileHasNoDateAndNoSize) {
  Run([](Browser& browser) {
    browser.ExpectCell(5, 1, "2 KB", DT_RIGHT);
    World().calls.FailNext("files.Status", 5, 100);
    browser.ChooseView("詳細表示");
    browser.ExpectCell(5, 1, "0 KB", DT_RIGHT);
    browser.ExpectCell(5, 2, "", DT_LEFT);
    browser.ExpectCell(0, 2, "", DT_LEFT);
  });
}

TEST_F(BrowserListTest, TheComputerShowsItsDrives) {
  os::scripted::Drive full;
  full.volumeName = "";
  full.space = os::DriveSpace{.total = (std::uint64_t{1} << 31) - 1, .free = 1025};
  World().AddDrive('E', full);
  os::scripted::Drive disc;
  disc.type = os::DriveType::CdRom;
  disc.space = std::nullopt;
  World().AddDrive('F', disc);
  os::scripted::Drive remote;
  remote.type = os::DriveType::Remote;
  World().AddDrive('Z', remote);
  World().network.universalNames["Z:\\"] = "\\\\srv\\docs\\deep";
  os::scripted::Drive memory;
  memory.type = os::DriveType::RamDisk;
  World().AddDrive('R', memory);
  os::scripted::Drive unknown;
  unknown.type = os::DriveType::Unknown;
  World().AddDrive('X', unknown);
  Run([](Browser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    const ListView list = browser.List();
    EXPECT_EQ(browser.Rows(), (Texts{"SYSTEM (C:)", "REMOVABLE (D:)", "LOCAL DRIVE (E:)", "CD-ROM (F:)", "RAMDISK (R:)",
                                     "'srv' の docs (Z:)"}));
    ASSERT_EQ(list.ColumnCount(), 4);
    EXPECT_EQ(list.ColumnAt(1).title, "種類");
    EXPECT_EQ(list.ColumnAt(2).title, "合計サイズ");
    EXPECT_EQ(list.ColumnAt(3).title, "空き領域");
    const std::vector<int> images = {11, 14, 11, 13, 15, 12};
    const Texts types = {"ローカルドライブ", "リムーバブルドライブ", "ローカルドライブ", "CD-ROM",
                         "RAM-DISK",         "ネットワークドライブ"};
    for (int row = 0; row < 6; ++row) {
      const auto at = static_cast<std::size_t>(row);
      EXPECT_EQ(list.Image(row), images[at]);
      browser.ExpectCell(row, 1, types[at], DT_LEFT);
    }
    browser.ExpectCell(0, 2, "1.00 GB", DT_RIGHT);
    browser.ExpectCell(0, 3, "512.00 MB", DT_RIGHT);
    browser.ExpectCell(2, 2, "1.99 GB", DT_RIGHT);
    browser.ExpectCell(2, 3, "1.00 KB", DT_RIGHT);
    browser.ExpectCell(3, 2, "", DT_RIGHT);
    browser.ExpectCell(3, 3, "", DT_RIGHT);
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows().front(), "SYSTEM (C:)");
    EXPECT_EQ(browser.SortMark(0), 0);
    EXPECT_EQ(browser.SortMark(1), -1);
  });
}

TEST_F(BrowserListTest, TheViewMenuLeadsThroughAllViews) {
  Run([](Browser& browser) {
    const std::vector<std::pair<std::string, DWORD>> views = {{"大きいアイコン", LVS_ICON},
                                                              {"小さいアイコン", LVS_SMALLICON},
                                                              {"詳細表示", LVS_REPORT | LVS_OWNERDRAWFIXED},
                                                              {"一覧表示", LVS_LIST},
                                                              {"タイトル表示", LVS_REPORT | LVS_OWNERDRAWFIXED}};
    std::size_t former = 2;
    for (const std::size_t view : {0U, 1U, 3U, 2U}) {
      browser.Person().Click(driver::Center(browser.Window().Child(IDC_VIEW).ScreenRect()));
      const driver::MenuView menu = browser.Person().WaitMenu();
      ASSERT_EQ(menu.items.size(), views.size());
      for (std::size_t item = 0; item < views.size(); ++item) {
        EXPECT_EQ(menu.items[item].text, views[item].first);
        EXPECT_EQ(menu.items[item].isChecked, item == former) << item;
      }
      browser.Person().Choose(menu, views[view].first);
      browser.Person().Settle();
      former = view;
      EXPECT_EQ(browser.List().Style() & (LVS_TYPEMASK | LVS_OWNERDRAWFIXED), views[view].second);
      EXPECT_NE(browser.List().Style() & LVS_SINGLESEL, 0U);
      EXPECT_NE(browser.List().ExStyle() & WS_EX_CLIENTEDGE, 0U);
      EXPECT_EQ(browser.Rows(), kAllRows);
      EXPECT_TRUE(browser.List().HasFocus());
      browser.ClickRow("A-001.MDL");
      EXPECT_EQ(browser.Name(), "A-001.MDL");
      EXPECT_EQ(browser.SelectedNames(), Texts{"A-001.MDL"});
    }
  });
}

TEST_F(BrowserListTest, TheListViewsColumnHoldsTheWidestName) {
  World().files.AddFile("C:\\data\\" + std::string(60, 'w') + ".mdl");
  const auto fits = [](Browser& browser) {
    const RECT rect = browser.List().ScreenRect();
    const HDC dc = GetDC(nullptr);
    const HGDIOBJ font = SelectObject(dc, reinterpret_cast<HFONT>(browser.List().Send(WM_GETFONT)));
    const std::string name = std::string(60, 'w') + ".mdl";
    SIZE size = {};
    GetTextExtentPoint32A(dc, name.data(), static_cast<int>(name.size()), &size);
    SelectObject(dc, font);
    ReleaseDC(nullptr, dc);
    EXPECT_EQ(browser.List().Send(LVM_GETCOLUMNWIDTH, 0), std::max<LONG>((rect.right - rect.left) / 5, 16 + size.cx));
    const RECT label = browser.List().ItemRect(browser.List().FindRow(name));
    const Picture end = driver::Capture({label.right - 6, label.top, label.right, (label.top + label.bottom) / 2});
    EXPECT_GT(CountColour(end, GetSysColor(COLOR_WINDOWTEXT)), 0) << "shortened names end in dots";
  };
  Run([&](Browser& browser) {
    browser.ChooseView("一覧表示");
    fits(browser);
  });
  Run([&](Browser& browser) {  // in the view of the last time
    RedrawWindow(browser.List().Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    fits(browser);
  });
}

TEST_F(BrowserListTest, AKindWithoutTitlesHasFourViews) {
  startUp_.kindCode = 0;
  Run([](Browser& browser) {
    browser.Person().Click(driver::Center(browser.Window().Child(IDC_VIEW).ScreenRect()));
    const driver::MenuView menu = browser.Person().WaitMenu();
    EXPECT_EQ(menu.items.size(), 4U);
    browser.Person().Choose(menu, "一覧表示");
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(BrowserListTest, AHeaderClickSortsAndASecondOneTurnsTheOrder) {
  Run([](Browser& browser) {
    const auto expectMark = [&browser](int column, int image) {
      for (int i = 0; i < 3; ++i) EXPECT_EQ(browser.SortMark(i), i == column ? image : -1);
    };
    expectMark(0, 0);
    TakeListings();
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "a.mdl", "A-001.MDL", "表.mdl", "b.mdl", "ソ.mdl"}));
    expectMark(1, 0);
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), (Texts{"表示", "Sub", "old", "ソ.mdl", "b.mdl", "表.mdl", "A-001.MDL", "a.mdl"}));
    expectMark(1, 1);
    browser.ClickHeader(2);
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "ソ.mdl", "A-001.MDL", "b.mdl", "a.mdl", "表.mdl"}));
    expectMark(2, 0);
    browser.ClickHeader(2);
    EXPECT_EQ(browser.Rows().back(), "ソ.mdl");
    expectMark(2, 1);
    browser.ClickHeader(0);
    EXPECT_EQ(browser.Rows(), kAllRows);
    expectMark(0, 0);
    browser.ClickHeader(0);
    Texts reversed = {"表示", "Sub", "old", "表.mdl", "ソ.mdl", "b.mdl", "A-001.MDL", "a.mdl"};
    EXPECT_EQ(browser.Rows(), reversed);
    EXPECT_EQ(TakeListings(), 0U);
    browser.OpenRow("Sub");
    browser.Back();
    EXPECT_EQ(browser.Rows(), kAllRows);
    expectMark(0, 0);
    browser.Person().DoubleClick(driver::Center(browser.List().HeaderRect(1)));
    EXPECT_EQ(browser.Rows().back(), "a.mdl") << "two quick clicks";
    expectMark(1, 1);
  });
}

TEST_F(BrowserListTest, EveryStepListsAFolderOnce) {
  Run([](Browser& browser) {
    EXPECT_EQ(TakeListings(), 1U) << "start";
    browser.OpenRow("表示");
    EXPECT_EQ(browser.Rows(), Texts{"図.mdl"});
    EXPECT_EQ(TakeListings(), 1U) << "double click";
    browser.Up();
    EXPECT_EQ(TakeListings(), 1U) << "up";
    browser.Back();
    EXPECT_EQ(browser.Rows(), Texts{"図.mdl"});
    EXPECT_EQ(TakeListings(), 1U) << "back";
    browser.ChoosePlace("data");
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_EQ(TakeListings(), 1U) << "location bar";
    browser.ChooseView("大きいアイコン");
    EXPECT_EQ(TakeListings(), 1U) << "view";
    browser.ChooseView("詳細表示");
    TakeListings();
    browser.Enter("Sub");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    EXPECT_EQ(TakeListings(), 1U) << "typed folder";
    browser.Enter("C:\\data\\*.txt");
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "other.txt"}));
    EXPECT_EQ(TakeListings(), 1U) << "pattern";
    browser.ChoosePlace("REMOVABLE (D:)");
    EXPECT_EQ(TakeListings(), 1U) << "drive";
    browser.ChoosePlace("マイコンピュータ");
    EXPECT_EQ(TakeListings(), 0U) << "computer";
    browser.ChoosePlace("デスクトップ");
    EXPECT_EQ(TakeListings(), 2U) << "desktop: its folder, then its shortcuts";
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// selection

class BrowserSelectionTest : public BrowserTest {
 protected:
  void SelectSeveral() { startUp_.listStyle = filedialog::kListMultiple; }
};

TEST_F(BrowserSelectionTest, AClickedFileIsOfferedAtTheTopOfTheList) {
  World().registry.SetValue(kLayoutKey, "File01", RegistryType::String, "C:\\data\\b.mdl");
  World().registry.SetValue(kLayoutKey, "File02", RegistryType::String, "A-001.mdl");
  Run([](Browser& browser) {
    EXPECT_EQ(browser.NameBox().Items(), (Texts{"C:\\data\\b.mdl", "A-001.mdl"}));
    EXPECT_EQ(browser.Name(), "");
    browser.ClickRow("A-001.MDL");
    EXPECT_EQ(browser.Name(), "A-001.MDL");
    EXPECT_EQ(browser.NameBox().Items(), (Texts{"A-001.MDL", "C:\\data\\b.mdl", "A-001.mdl"}));
    EXPECT_EQ(browser.NameBox().Selection(), 0);
    browser.ClickRow("表.mdl");
    EXPECT_EQ(browser.NameBox().Items(), (Texts{"表.mdl", "A-001.MDL", "C:\\data\\b.mdl", "A-001.mdl"}));
    browser.ClickRow("A-001.MDL");
    EXPECT_EQ(browser.NameBox().Items(), (Texts{"表.mdl", "A-001.MDL", "C:\\data\\b.mdl", "A-001.mdl"}));
    EXPECT_EQ(browser.NameBox().Selection(), 1);
    EXPECT_EQ(browser.Name(), "A-001.MDL");
  });
}

TEST_F(BrowserSelectionTest, SeveralFilesAreJoinedAndAddNothingToTheList) {
  SelectSeveral();
  Run([](Browser& browser) {
    EXPECT_EQ(browser.List().Style() & LVS_SINGLESEL, 0U);
    browser.ClickRow("b.mdl");
    browser.ClickRow("a.mdl", {VK_CONTROL});
    EXPECT_EQ(browser.Name(), "a.mdl b.mdl");
    EXPECT_EQ(browser.NameBox().Items(), Texts{"b.mdl"});
    browser.ClickRow("Sub", {VK_CONTROL});
    EXPECT_EQ(browser.Name(), "a.mdl b.mdl");
    browser.ClickRow("b.mdl", {VK_CONTROL});
    EXPECT_EQ(browser.Name(), "a.mdl");
    browser.ClickRow("Sub");
    browser.ClickRow("b.mdl", {VK_SHIFT});
    // On a busy machine the name of the row that was clicked before is being edited by then, and has to be given first.
    browser.Person().WaitUntil("the names are shown", [&] { return browser.Name() == "a.mdl A-001.MDL b.mdl"; });
    EXPECT_EQ(browser.SelectedNames(), (Texts{"Sub", "表示", "a.mdl", "A-001.MDL", "b.mdl"}));
  });
}

TEST_F(BrowserSelectionTest, JoiningStopsAtTheFirstNameBeyondTheBuffer) {
  SelectSeveral();
  capacity_ = 12;
  Run([](Browser& browser) {
    EXPECT_EQ(browser.NameEdit().Send(EM_GETLIMITTEXT), 11);
    browser.ClickRow("a.mdl");
    browser.ClickRow("表.mdl", {VK_SHIFT});
    EXPECT_EQ(browser.Name(), "a.mdl");
    browser.ClickRow("b.mdl");
    browser.ClickRow("ソ.mdl", {VK_CONTROL});
    EXPECT_EQ(browser.Name(), "b.mdl ソ.mdl") << "5 + 6 bytes fit; the blank is not counted";
  });
}

TEST_F(BrowserSelectionTest, TheArrowKeysSelectLikeClicks) {
  const Outcome outcome = Run([](Browser& browser) {
    User& user = browser.Person();
    user.Key(VK_END);
    EXPECT_EQ(browser.SelectedNames(), Texts{"表.mdl"});
    EXPECT_EQ(browser.Name(), "表.mdl");
    user.Key(VK_UP);
    EXPECT_EQ(browser.Name(), "ソ.mdl");
    user.Key(VK_HOME);
    EXPECT_EQ(browser.SelectedNames(), Texts{"old"});
    EXPECT_EQ(browser.Name(), "ソ.mdl") << "a folder changes nothing";
    for (int i = 0; i < 3; ++i) user.Key(VK_DOWN);
    EXPECT_EQ(browser.Name(), "a.mdl");
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\a.mdl");
}

TEST_F(BrowserSelectionTest, ShiftAndControlSelectSeveralByTheKeyboard) {
  SelectSeveral();
  const Outcome outcome = Run([](Browser& browser) {
    User& user = browser.Person();
    user.Key(VK_END);
    user.Key(VK_UP, {VK_SHIFT});
    EXPECT_EQ(browser.Name(), "ソ.mdl 表.mdl");
    user.Key(VK_UP, {VK_SHIFT});
    EXPECT_EQ(browser.Name(), "b.mdl ソ.mdl 表.mdl");
    user.Key(VK_HOME);
    user.Key(VK_DOWN, {VK_CONTROL});
    EXPECT_EQ(browser.SelectedNames(), Texts{"old"});
    user.Key(VK_END, {VK_CONTROL});
    user.Key(VK_SPACE, {VK_CONTROL});
    EXPECT_EQ(browser.SelectedNames(), (Texts{"old", "表.mdl"}));
    EXPECT_EQ(browser.Name(), "表.mdl");
    user.Key(VK_HOME, {VK_SHIFT});
    EXPECT_EQ(browser.Name(), "a.mdl A-001.MDL b.mdl ソ.mdl 表.mdl");
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\a.mdl C:\\data\\A-001.MDL C:\\data\\b.mdl C:\\data\\ソ.mdl C:\\data\\表.mdl");
}

TEST_F(BrowserSelectionTest, TypedLettersFindANameInAnyCase) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.Person().Type("a-0");
    EXPECT_EQ(browser.SelectedNames(), Texts{"A-001.MDL"});
    EXPECT_EQ(browser.Name(), "A-001.MDL");
    browser.Person().Key(VK_RETURN);
  });
  EXPECT_EQ(outcome.result, "C:\\data\\A-001.MDL");
}

TEST_F(BrowserSelectionTest, TypedJapaneseFindsAName) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.Person().Type("ソ");
    EXPECT_EQ(browser.SelectedNames(), Texts{"ソ.mdl"});
    EXPECT_EQ(browser.Name(), "ソ.mdl");
    browser.Person().Key(VK_RETURN);
  });
  EXPECT_EQ(outcome.result, "C:\\data\\ソ.mdl");
}

TEST_F(BrowserSelectionTest, LettersFindAFolderWhichEnterOpens) {
  Run([](Browser& browser) {
    browser.Person().Type("表");
    EXPECT_EQ(browser.SelectedNames(), Texts{"表示"});
    browser.Person().Key(VK_RETURN);
    EXPECT_EQ(browser.Rows(), Texts{"図.mdl"});
    browser.Person().Key(VK_BACK);
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.Person().Key(VK_LEFT, {VK_MENU});
    EXPECT_EQ(browser.Rows(), Texts{"図.mdl"});
    browser.Person().Key(VK_LEFT, {VK_MENU});
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.Person().Key(VK_LEFT, {VK_MENU});
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(BrowserSelectionTest, BackspaceInTheNameBoxDeletesALetter) {
  Run([](Browser& browser) {
    browser.TypeName("ab");
    browser.Person().Key(VK_BACK);
    EXPECT_EQ(browser.Name(), "a");
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(BrowserSelectionTest, WhatAProgramSelectsDoesNotCount) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.ClickRow("b.mdl");
    driver::TargetMemory memory(browser.List().Handle(), sizeof(LVITEMA));
    LVITEMA item = {};
    item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    memory.Write(&item, sizeof item);
    browser.List().Send(LVM_SETITEMSTATE, 7, memory.At());
    browser.Person().Settle();
    EXPECT_EQ(browser.SelectedNames(), Texts{"表.mdl"});
    EXPECT_EQ(browser.Name(), "b.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(BrowserSelectionTest, AClickBesideTheRowsKeepsTheName) {
  Run([](Browser& browser) {
    browser.ClickRow("b.mdl");
    const RECT list = browser.List().ScreenRect();
    const RECT last = browser.List().ItemRect(7);
    browser.Person().Click(POINT{list.left + 30, (last.bottom + list.bottom) / 2});
    EXPECT_EQ(browser.SelectedNames(), Texts{});
    EXPECT_EQ(browser.Name(), "b.mdl");
  });
}

TEST_F(BrowserSelectionTest, ADoubleClickBesideTheRowsIsOk) {
  for (const char* view : {"詳細表示", "大きいアイコン", "一覧表示"}) {
    SCOPED_TRACE(view);
    const Outcome outcome = Run([&](Browser& browser) {
      browser.ChooseView(view);
      browser.TypeName("表.mdl");
      const RECT list = browser.List().ScreenRect();
      browser.Person().DoubleClick(POINT{list.right - 60, list.bottom - 6});
      browser.Person().WaitGone(browser.Window());
    });
    EXPECT_EQ(outcome.answer, IDOK);
    EXPECT_EQ(outcome.result, "C:\\data\\表.mdl");
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// OK

class BrowserOkTest : public BrowserTest {};

TEST_F(BrowserOkTest, ASelectedFileIsAccepted) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.ClickRow("表.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\表.mdl");
  EXPECT_EQ(SavedRecentFiles(), Texts{"C:\\data\\表.mdl"});
}

TEST_F(BrowserOkTest, ARecentFileCountsMoreThanTheSelection) {
  World().registry.SetValue(kLayoutKey, "File01", RegistryType::String, "D:\\disk.mdl");
  const Outcome outcome = Run([](Browser& browser) {
    browser.ClickRow("Sub");
    browser.Person().ChooseComboItem(browser.NameBox(), 0);
    EXPECT_EQ(browser.Name(), "D:\\disk.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.result, "D:\\disk.mdl");
}

TEST_F(BrowserOkTest, EnterInTheNameBoxIsOk) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.TypeName("b.mdl");
    browser.Person().Key(VK_RETURN);
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(BrowserOkTest, AFileThatMustExistIsMissed) {
  Run([](Browser& browser) {
    browser.Enter("nothere");
    browser.ExpectMessage(std::string("C:\\data\\nothere.MDL") + kFileNotFound);
    EXPECT_EQ(browser.Name(), "nothere.MDL");
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.Enter("Sub\\表.x");
    browser.ExpectMessage(std::string("C:\\data\\Sub\\表.x") + kFileNotFound);
    EXPECT_EQ(browser.Name(), "表.x");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
  });
  EXPECT_EQ(SavedRecentFiles(), Texts{});
}

TEST_F(BrowserOkTest, OverwritingIsAskedFor) {
  startUp_.flags = kFlagHideReadOnly | kFlagPathMustExist | kFlagAskOverwrite;
  const Outcome outcome = Run([](Browser& browser) {
    browser.Enter("b.mdl");
    browser.ExpectQuestion(std::string("C:\\data\\b.mdl") + kOverwrite, IDNO);
    EXPECT_TRUE(browser.IsOpen());
    browser.ClickRow("表.mdl");
    browser.Ok();
    browser.ExpectQuestion(std::string("C:\\data\\表.mdl") + kOverwrite, IDNO);
    EXPECT_TRUE(browser.IsOpen());
    browser.Ok();
    browser.ExpectQuestion(std::string("C:\\data\\表.mdl") + kOverwrite, IDYES);
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\表.mdl");
}

TEST_F(BrowserOkTest, CancelAndEscapeEndWithTwo) {
  EXPECT_EQ(Run([](Browser& browser) {
              browser.ClickRow("b.mdl");
              browser.Cancel();
            }).answer,
            IDCANCEL);
  EXPECT_EQ(Run([](Browser& browser) { browser.Person().Key(VK_ESCAPE); }).answer, IDCANCEL);
  EXPECT_EQ(SavedRecentFiles(), Texts{});
}

// ---------------------------------------------------------------------------------------------------------------------
// OK with several names

class BrowserSeveralTest : public BrowserTest {
 protected:
  BrowserSeveralTest() { startUp_.listStyle = filedialog::kListMultiple; }
};

TEST_F(BrowserSeveralTest, SelectedFilesAreJoinedByBlanks) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.ClickRow("Sub");
    browser.ClickRow("b.mdl", {VK_CONTROL});
    browser.ClickRow("表.mdl", {VK_CONTROL});
    browser.Ok();
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl C:\\data\\表.mdl");
}

// ---------------------------------------------------------------------------------------------------------------------
// bad input

class BrowserBadInputTest : public BrowserTest {};

TEST_F(BrowserBadInputTest, LongNamesAreRefusedWithOneMessage) {
  Run([](Browser& browser) {
    for (const std::size_t size : {256U, 257U, 600U, 100'000U}) {
      browser.PasteName(std::string(size, 'n'));
      EXPECT_EQ(browser.Name().size(), size);
      browser.Ok();
      const MessageBoxView box = browser.Person().WaitMessageBox();
      EXPECT_TRUE(box.text.starts_with("C:\\data\\nnn")) << size;
      EXPECT_TRUE(box.text.ends_with(kFileNotFound)) << size;
      EXPECT_LE(box.text.size(), 256 + sizeof kFileNotFound);
      browser.Person().Answer(box, IDOK);
      browser.Person().Settle();
      EXPECT_TRUE(browser.IsOpen());
      EXPECT_FALSE(browser.Person().Sees("#32770") && browser.Person().WaitDialog() != browser.Window());
    }
  });
}

TEST_F(BrowserBadInputTest, AnInitialNameOfAnyLengthIsShown) {
  for (const std::size_t size : {256U, 257U, 600U, 100'000U}) {
    initialName_ = std::string(size - 4, 'n') + ".mdl";
    Run([size](Browser& browser) { EXPECT_EQ(browser.Name().size(), size); });
  }
}

TEST_F(BrowserBadInputTest, HalfACharacterDoesNoHarm) {
  initialName_ = "half\x83";
  startUp_.initialFolder = "C:\\data\\\x95";
  startUp_.title = "#MODEL#(*.MDL\x83";
  Run([](Browser& browser) {
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    browser.Ok();
    if (browser.Person().WaitDialog() != browser.Window()) {
      browser.Person().Answer(browser.Person().WaitMessageBox(), IDOK);
    }
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(BrowserBadInputTest, FoldersOfNoneOneAndTwoHundredThousandEntries) {
  World().files.AddFolder("C:\\none");
  World().files.AddFile("C:\\one\\x.mdl");
  for (int i = 0; i < 200'000; ++i) World().files.AddFile("C:\\many\\" + std::to_string(100'000 + i) + ".mdl");
  const Outcome outcome = Run([](Browser& browser) {
    browser.Enter("C:\\none");
    EXPECT_EQ(browser.List().Count(), 0);
    browser.Person().Key(VK_DOWN);
    browser.Enter("C:\\one");
    EXPECT_EQ(browser.Rows(), Texts{"x.mdl"});
    browser.Enter("C:\\many");
    browser.Person().WaitUntil("all are listed", [&browser] { return browser.List().Count() == 200'000; });
    browser.Person().Key(VK_END);
    EXPECT_EQ(browser.SelectedNames(), Texts{"299999.mdl"});
    browser.ClickHeader(0);
    EXPECT_EQ(browser.List().Cell(0), "299999.mdl");
    browser.Person().Key(VK_HOME);
    browser.Person().Type("1");
    EXPECT_EQ(browser.Name(), "199999.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.result, "C:\\many\\199999.mdl");
}

TEST_F(BrowserBadInputTest, SelectingAllOfManyFilesStaysWithinTheBuffer) {
  startUp_.listStyle = filedialog::kListMultiple;
  for (int i = 0; i < 5'000; ++i) World().files.AddFile("C:\\many\\" + std::to_string(100'000 + i) + ".mdl");
  startUp_.initialFolder = "C:\\many";
  capacity_ = 10'000;
  const Outcome outcome = Run([](Browser& browser) {
    browser.Person().Key(VK_HOME);
    browser.Person().Key(VK_END, {VK_SHIFT});
    EXPECT_EQ(browser.List().SelectedRows().size(), 5'000U);
    EXPECT_LT(browser.Name().size(), 10'000U + 1'000U);
    browser.Ok();
  });
  EXPECT_EQ(outcome.answer, IDCANCEL);
}

}  // namespace
}  // namespace browser_test
