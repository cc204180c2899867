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
using filedialog::kFlagFileMustExist;
using filedialog::kFlagHideReadOnly;
using filedialog::kFlagPathMustExist;
using os::RegistryType;

constexpr char kFileNotFound[] = "\nファイルが見つかりません。\n指定したファイル名が正しいかどうか確認してください。";
constexpr char kPathNotFound[] = "\nパスが見つかりません。\n指定したパス名が正しいかどうか確認してください。";
constexpr char kOverwrite[] = "\nファイルは既に存在します。\n上書きしますか。";
constexpr char kFolderFixed[] = "ディレクトリを変更することはできません。";

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
    EXPECT_EQ(browser.CellPicture(3, 1), browser.TextPicture(3, 1, "0 KB", DT_RIGHT));
    EXPECT_EQ(browser.CellPicture(4, 1), browser.TextPicture(4, 1, "1 KB", DT_RIGHT));
    EXPECT_EQ(browser.CellPicture(5, 1), browser.TextPicture(5, 1, "2 KB", DT_RIGHT));
    EXPECT_EQ(browser.CellPicture(0, 1), browser.TextPicture(0, 1, "", DT_RIGHT));
    EXPECT_EQ(browser.CellPicture(0, 2), browser.TextPicture(0, 2, " 2024/03/05 15:07:08", DT_LEFT));
    EXPECT_EQ(browser.CellPicture(5, 2), browser.TextPicture(5, 2, " 2024/03/07 15:07:08", DT_LEFT));
    EXPECT_NE(browser.CellPicture(5, 2), browser.CellPicture(0, 2));
  });
}

TEST_F(BrowserListTest, ASelectedNameIsHighlightedAndNothingElseOfItsRow) {
  Run([](Browser& browser) {
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_EQ(CountColour(browser.CellPicture(4, 0), highlight), 0);
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
    EXPECT_EQ(browser.CellPicture(0, 1), browser.TextPicture(0, 1, "0 KB", DT_RIGHT));
  });
}

TEST_F(BrowserListTest, AnUnreadableFileHasNoDateAndNoSize) {
  Run([](Browser& browser) {
    EXPECT_EQ(browser.CellPicture(5, 1), browser.TextPicture(5, 1, "2 KB", DT_RIGHT));
    World().calls.FailNext("files.Status", 5, 100);
    browser.ChooseView("詳細表示");
    EXPECT_EQ(browser.CellPicture(5, 1), browser.TextPicture(5, 1, "0 KB", DT_RIGHT));
    EXPECT_EQ(browser.CellPicture(5, 2), browser.TextPicture(5, 2, "", DT_LEFT));
    EXPECT_EQ(browser.CellPicture(0, 2), browser.TextPicture(0, 2, "", DT_LEFT));
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
      EXPECT_EQ(browser.CellPicture(row, 1), browser.TextPicture(row, 1, types[at], DT_LEFT)) << row;
    }
    EXPECT_EQ(browser.CellPicture(0, 2), browser.TextPicture(0, 2, "1.00 GB", DT_RIGHT));
    EXPECT_EQ(browser.CellPicture(0, 3), browser.TextPicture(0, 3, "512.00 MB", DT_RIGHT));
    EXPECT_EQ(browser.CellPicture(2, 2), browser.TextPicture(2, 2, "1.99 GB", DT_RIGHT));
    EXPECT_EQ(browser.CellPicture(2, 3), browser.TextPicture(2, 3, "1.00 KB", DT_RIGHT));
    EXPECT_EQ(browser.CellPicture(3, 2), browser.TextPicture(3, 2, "", DT_RIGHT));
    EXPECT_EQ(browser.CellPicture(3, 3), browser.TextPicture(3, 3, "", DT_RIGHT));
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows().front(), "SYSTEM (C:)");
    EXPECT_EQ(browser.SortMark(0), 0);
    EXPECT_EQ(browser.SortMark(1), -1);
  });
}

TEST_F(BrowserListTest, ADriveIsOpenedByOkAndByDoubleClick) {
  Run([](Browser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    browser.ClickRow("REMOVABLE (D:)");
    EXPECT_EQ(browser.Name(), "");
    browser.Ok();
    EXPECT_EQ(browser.Rows(), Texts{"disk.mdl"});
    browser.Up();
    browser.OpenRow("SYSTEM (C:)");
    EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop"}));
  });
}

TEST_F(BrowserListTest, TheDesktopShowsItsFolderAndWhatItsShortcutsLeadTo) {
  World().files.AddFolder("C:\\desktop\\mine");
  World().files.AddFile("C:\\desktop\\own.mdl");
  const std::vector<std::pair<std::string, std::string>> links = {{"plans.lnk", "C:\\data\\Sub"},
                                                                  {"表.lnk", "C:\\data\\表.mdl"},
                                                                  {"text.lnk", "C:\\data\\other.txt"},
                                                                  {"lost.lnk", ""}};
  for (const auto& [name, target] : links) {
    World().files.AddFile("C:\\desktop\\" + name);
    if (!target.empty()) World().shell.links["C:\\desktop\\" + name] = target;
  }
  const Outcome outcome = Run([](Browser& browser) {
    browser.ChoosePlace("デスクトップ");
    const ListView list = browser.List();
    EXPECT_EQ(browser.Rows(), (Texts{"plans.lnk", "mine", "表.lnk", "own.mdl"}));
    for (int row = 0; row < 4; ++row) EXPECT_EQ(list.Image(row), 16 + row);
    browser.ClickRow("表.lnk");
    EXPECT_EQ(browser.Name(), "");
    browser.OpenRow("plans.lnk");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    browser.Back();
    EXPECT_EQ(browser.Rows().front(), "plans.lnk");
    browser.OpenRow("mine");
    EXPECT_EQ(browser.Trail(), (Texts{"desktop", "mine"}));
    browser.Back();
    browser.OpenRow("表.lnk");
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\表.mdl");
}

TEST_F(BrowserListTest, AShortcutWhoseTargetHasGoneIsListedAndMissed) {
  World().files.AddFile("C:\\desktop\\lost.lnk");
  World().shell.links["C:\\desktop\\lost.lnk"] = "C:\\none\\x.mdl";
  Run([](Browser& browser) {
    browser.ChoosePlace("デスクトップ");
    ASSERT_EQ(browser.Rows(), Texts{"lost.lnk"});
    EXPECT_EQ(browser.List().Image(0), 18);
    EXPECT_EQ(browser.CellPicture(0, 2), browser.TextPicture(0, 2, "", DT_LEFT));
    browser.OpenRow("lost.lnk");
    browser.ExpectMessage(std::string("C:\\none\\x.mdl") + kFileNotFound);
    browser.Ok();
    browser.ExpectMessage(std::string("C:\\none\\x.mdl") + kFileNotFound);
    EXPECT_EQ(browser.Rows(), Texts{"lost.lnk"});
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

TEST_F(BrowserListTest, OneStepBackUndoesOneStep) {
  Run([](Browser& browser) {
    browser.OpenRow("Sub");
    browser.Enter("..\\表示");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "表示"}));
    browser.ChooseView("一覧表示");
    browser.Enter("*.txt");
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.Back();
    EXPECT_EQ(browser.Rows(), Texts{"図.mdl"});
    browser.Back();
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    browser.Back();
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.Back();
    EXPECT_EQ(browser.Rows(), kAllRows);
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

TEST_F(BrowserSelectionTest, AFolderLeavesTheTextAsItWas) {
  initialName_ = "b.mdl";
  Run([](Browser& browser) {
    EXPECT_EQ(browser.Name(), "b.mdl");
    browser.ClickRow("Sub");
    EXPECT_EQ(browser.Name(), "b.mdl");
    browser.ClickRow("a.mdl");
    browser.ClickRow("old");
    EXPECT_EQ(browser.Name(), "a.mdl");
    EXPECT_EQ(browser.NameBox().Items(), Texts{"a.mdl"});
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
    EXPECT_EQ(browser.SelectedNames(), (Texts{"Sub", "表示", "a.mdl", "A-001.MDL", "b.mdl"}));
    EXPECT_EQ(browser.Name(), "a.mdl A-001.MDL b.mdl");
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

TEST_F(BrowserSelectionTest, UpEndsAtTheDesktop) {
  Run([](Browser& browser) {
    browser.Person().Key(VK_BACK);
    EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop"}));
    browser.Person().Key(VK_BACK);
    EXPECT_EQ(browser.Rows(), (Texts{"SYSTEM (C:)", "REMOVABLE (D:)"}));
    browser.Person().Key(VK_BACK);
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.Person().Key(VK_BACK);
    EXPECT_EQ(browser.Rows(), Texts{});
    for (int i = 0; i < 3; ++i) browser.Person().Key(VK_LEFT, {VK_MENU});
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

TEST_F(BrowserOkTest, ADoubleClickedFileIsAccepted) {
  const Outcome outcome = Run([](Browser& browser) { browser.OpenRow("ソ.mdl"); });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\ソ.mdl");
}

TEST_F(BrowserOkTest, ASelectedFolderIsOpenedAlthoughTheBoxHoldsAName) {
  initialName_ = "b.mdl";
  Run([](Browser& browser) {
    browser.ClickRow("Sub");
    browser.Ok();
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    EXPECT_EQ(browser.Name(), "b.mdl");
  });
}

TEST_F(BrowserOkTest, TypedTextCountsMoreThanTheSelection) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.ClickRow("Sub");
    browser.Enter("b.mdl");
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
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

TEST_F(BrowserOkTest, TypedNamesAreMadeFull) {
  const std::vector<std::pair<std::string, std::string>> names = {
      {"b.mdl", "C:\\data\\b.mdl"},
      {"C:\\data\\Sub\\inner.mdl", "C:\\data\\Sub\\inner.mdl"},
      {"C:\\\\data\\\\\\Sub\\inner.mdl", "C:\\data\\Sub\\inner.mdl"},
      {"\\Sub\\inner.mdl", "C:\\data\\Sub\\inner.mdl"},
      {"表示\\図.mdl", "C:\\data\\表示\\図.mdl"},
      {"a-001", "C:\\data\\a-001.MDL"},
      {"D:\\disk", "D:\\disk.MDL"},
      {"b.mdl\\", "C:\\data\\b.mdl"},
  };
  for (const auto& [typed, path] : names) {
    const Outcome outcome = Run([&typed = typed](Browser& browser) { browser.Enter(typed); });
    EXPECT_EQ(outcome.answer, IDOK) << typed;
    EXPECT_EQ(outcome.result, path) << typed;
  }
}

TEST_F(BrowserOkTest, EnterInTheNameBoxIsOk) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.TypeName("b.mdl");
    browser.Person().Key(VK_RETURN);
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(BrowserOkTest, ATypedFolderIsOpened) {
  Run([](Browser& browser) {
    browser.Enter("Sub");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    EXPECT_EQ(browser.Name(), "C:\\data\\Sub");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    browser.Enter("C:\\data\\表示\\");
    EXPECT_EQ(browser.Rows(), Texts{"図.mdl"});
    EXPECT_EQ(browser.Name(), "C:\\data\\表示");
    browser.Enter("D:\\");
    EXPECT_EQ(browser.Rows(), Texts{"disk.mdl"});
    EXPECT_EQ(browser.Trail(), Texts{});
    browser.Enter("C:");
    EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop"}));
    browser.Enter("data\\..\\data");
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(BrowserOkTest, APatternListsWhatItFits) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.Enter("?.mdl");
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "a.mdl", "b.mdl", "ソ.mdl", "表.mdl"}));
    EXPECT_EQ(browser.Name(), "?.mdl");
    browser.Enter("*.txt");
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "other.txt"}));
    EXPECT_EQ(browser.Name(), "*.txt");
    browser.Enter("Sub\\*.m*");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    EXPECT_EQ(browser.Name(), "*.m*");
    browser.Back();
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "other.txt"}));
    EXPECT_EQ(browser.Name(), "*.txt");
    browser.Enter("other");
  });
  EXPECT_EQ(outcome.result, "C:\\data\\other.txt") << "the pattern's extension completes a name";
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

TEST_F(BrowserOkTest, APathThatMustExistIsMissed) {
  startUp_.flags = kFlagHideReadOnly | kFlagPathMustExist;
  const Outcome outcome = Run([](Browser& browser) {
    browser.Enter("no\\new");
    browser.ExpectMessage(std::string("C:\\data\\no") + kPathNotFound);
    EXPECT_EQ(browser.Name(), "new.MDL");
    EXPECT_EQ(browser.Rows(), Texts{});
    EXPECT_EQ(browser.Trail(), (Texts{"data", "no"}));
    browser.Enter("C:\\data\\new");
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\new.MDL");
  EXPECT_EQ(SavedRecentFiles(), Texts{"C:\\data\\new.MDL"});
}

TEST_F(BrowserOkTest, ANewFileInADrivesRootNeedsTheDrive) {
  startUp_.flags = kFlagHideReadOnly | kFlagPathMustExist;
  const Outcome outcome = Run([](Browser& browser) {
    browser.Enter("Q:\\new.mdl");
    browser.ExpectMessage(std::string("Q:\\") + kPathNotFound);
    EXPECT_TRUE(browser.IsOpen());
    browser.Enter("D:\\new");
  });
  EXPECT_EQ(outcome.result, "D:\\new.MDL");
}

/// What a browser shows that a refused text must not change.
std::vector<Texts> ShownState(const Browser& browser) {
  return {browser.Rows(), browser.Trail(), browser.Window().Child(IDC_FILE_KIND).Items(), {browser.Name()}};
}

TEST_F(BrowserOkTest, ADriveThatHasBeenPulledOutDoesNotExist) {
  Run([](Browser& browser) {
    const std::vector<Texts> before = ShownState(browser);
    World().drives.erase('D');
    World().files.Remove("D:");
    for (const char* text : {"D:\\*.txt", "D:\\"}) {
      Beeps().clear();
      browser.Enter(text);
      EXPECT_EQ(Beeps().size(), 1U) << text;
      EXPECT_EQ(ShownState(browser), (std::vector<Texts>{before[0], before[1], before[2], {text}})) << text;
    }
    browser.Enter("D:\\disk.mdl");
    browser.ExpectMessage(std::string("D:\\disk.mdl") + kFileNotFound);
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(BrowserOkTest, ATextOnADriveThatDoesNotExistChangesNothingAndGivesOneSignal) {
  struct Case {
    std::string text;
    std::string message;  ///< empty: a beep instead
  };
  const std::vector<Case> cases = {{"Q:\\none.mdl", "Q:\\none.mdl"},
                                   {"Q:\\dir\\sub", "Q:\\dir\\sub.MDL"},
                                   {"Q:\\dir\\", "Q:\\dir.MDL"},
                                   {"Q:", ""},
                                   {"Q:\\", ""},
                                   {"Q:none.mdl", ""},
                                   {"Q:\\*.txt", ""},
                                   {"Q:\\dir\\*.txt", ""},
                                   {"Q:*.txt", ""},
                                   {"C:*.txt", ""},
                                   {"\\\\*", ""}};
  for (const std::uint32_t style : {filedialog::kListSingle, filedialog::kListMultiple}) {
    startUp_.listStyle = style;
    Run([&cases](Browser& browser) {
      const Texts kindLine = browser.Window().Child(IDC_FILE_KIND).Items();
      for (const auto& [text, message] : cases) {
        SCOPED_TRACE(text);
        Beeps().clear();
        browser.Enter(text);
        if (!message.empty()) browser.ExpectMessage(message + kFileNotFound);
        EXPECT_EQ(Beeps().size(), message.empty() ? 1U : 0U);
        EXPECT_TRUE(browser.IsOpen());
        EXPECT_EQ(ShownState(browser), (std::vector<Texts>{kAllRows, {"data"}, kindLine, {text}}));
      }
      browser.ChooseView("一覧表示");
      EXPECT_EQ(browser.Rows(), kAllRows) << "the pattern stays too";
    });
  }
}

TEST_F(BrowserOkTest, AMissingPathOnADriveThatDoesNotExistIsToldWithoutABeep) {
  startUp_.flags = kFlagHideReadOnly | kFlagPathMustExist;
  Run([](Browser& browser) {
    Beeps().clear();
    browser.Enter("Q:\\dir\\new");
    browser.ExpectMessage(std::string("Q:\\dir") + kPathNotFound);
    EXPECT_TRUE(Beeps().empty());
    EXPECT_EQ(browser.Name(), "Q:\\dir\\new");
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

TEST_F(BrowserOkTest, APatternAmongDrivesChangesNothing) {
  Run([](Browser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    const Texts drives = browser.Rows();
    Beeps().clear();
    browser.Enter("*.txt");
    EXPECT_EQ(Beeps().size(), 1U);
    EXPECT_EQ(browser.Rows(), drives);
    EXPECT_EQ(browser.Name(), "*.txt");
    browser.Enter("C:\\data");
    EXPECT_EQ(browser.Rows(), kAllRows) << "the kind's pattern is still in force";
  });
}

TEST_F(BrowserOkTest, WithoutAFlagAMissingFileIsRefusedQuietly) {
  startUp_.flags = kFlagHideReadOnly;
  const Outcome outcome = Run([](Browser& browser) {
    browser.Enter("nothere");
    EXPECT_FALSE(browser.Person().Sees("#32770", "") && browser.Person().WaitDialog() != browser.Window());
    EXPECT_EQ(browser.Name(), "nothere.MDL");
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.Enter("b.mdl");
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

/// Makes a folder and presses the OK button.
void CreateAndOk(Browser& browser, const std::string& name) {
  browser.Person().Key('N', {VK_MENU});
  const driver::Window dialog = browser.Person().WaitDialog("新しいフォルダの作成");
  browser.Person().WaitUntil("it has the focus", [&] { return dialog.Child(IDC_FOLDER_NAME).HasFocus(); });
  browser.Person().Type(name);
  browser.Person().Key(VK_RETURN);
  browser.Person().WaitGone(dialog);
  browser.Person().Settle();
  EXPECT_EQ(browser.SelectedNames(), Texts{name});
  browser.Ok();
}

TEST_F(BrowserOkTest, ANewFolderDoesNotCountMoreThanTheNameInTheBox) {
  const Outcome clicked = Run([](Browser& browser) {
    browser.ClickRow("b.mdl");
    CreateAndOk(browser, "n");
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_EQ(clicked.result, "C:\\data\\b.mdl") << "a name that a click had put there";
  const Outcome typed = Run([](Browser& browser) {
    browser.TypeName("表.mdl");
    CreateAndOk(browser, "n2");
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_EQ(typed.result, "C:\\data\\表.mdl");
  initialName_ = "a.mdl";
  const Outcome initial = Run([](Browser& browser) {
    CreateAndOk(browser, "n3");
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_EQ(initial.result, "C:\\data\\a.mdl");
}

TEST_F(BrowserOkTest, ANewFolderIsOpenedWhenTheBoxIsEmptyOrShowsItsName) {
  Run([](Browser& browser) {
    CreateAndOk(browser, "empty");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "empty"}));
    browser.Up();
    browser.TypeName("same");
    CreateAndOk(browser, "same");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "same"}));
    EXPECT_EQ(browser.Name(), "same") << "as a selected folder is opened";
    browser.Up();
    browser.TypeName("x");
    browser.Person().Key(VK_BACK);
    CreateAndOk(browser, "cleared");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "cleared"}));
    browser.Up();
    browser.ClickRow("b.mdl");
    CreateAndOk(browser, "b");
    browser.Person().WaitGone(browser.Window());
  });
}

TEST_F(BrowserOkTest, ANewFolderThatTheUserClicksOnIsOpened) {
  Run([](Browser& browser) {
    browser.ClickRow("b.mdl");
    browser.Person().Key('N', {VK_MENU});
    const driver::Window dialog = browser.Person().WaitDialog("新しいフォルダの作成");
    browser.Person().WaitUntil("it has the focus", [&] { return dialog.Child(IDC_FOLDER_NAME).HasFocus(); });
    browser.Person().Type("n");
    browser.Person().Key(VK_RETURN);
    browser.Person().WaitGone(dialog);
    browser.OpenRow("n");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "n"}));
    EXPECT_EQ(browser.Name(), "b.mdl");
  });
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

TEST_F(BrowserOkTest, AFixedFolderIsNotLeft) {
  startUp_.folderFixed = true;
  const Outcome outcome = Run([](Browser& browser) {
    EXPECT_EQ(browser.Rows(), (Texts{"a.mdl", "A-001.MDL", "b.mdl", "ソ.mdl", "表.mdl"}));
    EXPECT_FALSE(browser.LocationBar().IsEnabled());
    browser.Person().Key(VK_BACK);
    browser.Up();
    EXPECT_EQ(browser.Rows().size(), 5U);
    for (const char* text : {"D:\\disk.mdl", "Sub\\inner.mdl", "..\\x", "C:"}) {
      Beeps().clear();
      browser.Enter(text);
      browser.ExpectMessage(kFolderFixed);
      EXPECT_EQ(Beeps(), std::vector<std::uint32_t>{os::kBeepDefault});
      EXPECT_EQ(browser.Name(), text);
    }
    browser.Enter("b*");
    EXPECT_EQ(browser.Rows(), Texts{"b.mdl"});
    browser.Enter("表.mdl");
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\表.mdl");
  EXPECT_EQ(SavedRecentFiles(), Texts{"表.mdl"});
}

TEST_F(BrowserOkTest, AResultThatDoesNotFitEndsAsCancelled) {
  capacity_ = sizeof("C:\\data\\b.mdl");
  EXPECT_EQ(Run([](Browser& browser) { browser.OpenRow("b.mdl"); }).answer, IDOK);
  --capacity_;
  EXPECT_EQ(Run([](Browser& browser) { browser.OpenRow("b.mdl"); }).answer, IDCANCEL);
  EXPECT_EQ(Run([](Browser& browser) { browser.Enter("b.mdl"); }).answer, IDCANCEL);
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

TEST_F(BrowserOkTest, AnAcceptedFileMovesToTheFrontOfTheRecentOnes) {
  const Texts before = {"D:\\disk.mdl", "C:\\DATA\\B.MDL", "c:\\data\\b.mdl", "x.mdl"};
  for (std::size_t i = 0; i < before.size(); ++i) {
    World().registry.SetValue(kLayoutKey, "File0" + std::to_string(i + 1), RegistryType::String, before[i]);
  }
  Run([](Browser& browser) { browser.Enter("b.mdl"); });
  EXPECT_EQ(SavedRecentFiles(), (Texts{"C:\\data\\b.mdl", "D:\\disk.mdl", "c:\\data\\b.mdl", "x.mdl"}));
}

TEST_F(BrowserOkTest, OnlySoManyRecentFilesAreKept) {
  World().registry.SetValue(kLayoutKey, "FileCount", RegistryType::Dword, std::string("\2\0\0\0", 4));
  for (const int number : {1, 2, 3}) {
    const std::string digit = std::to_string(number);
    World().registry.SetValue(kLayoutKey, "File0" + digit, RegistryType::String, digit + ".mdl");
  }
  Run([](Browser& browser) {
    EXPECT_EQ(browser.NameBox().Items(), (Texts{"1.mdl", "2.mdl"}));
    browser.Enter("b.mdl");
  });
  EXPECT_EQ(SavedRecentFiles(), (Texts{"C:\\data\\b.mdl", "1.mdl"}));
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

TEST_F(BrowserSeveralTest, OneFileAmongFoldersIsEnough) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.ClickRow("Sub");
    browser.ClickRow("b.mdl", {VK_CONTROL});
    browser.Ok();
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(BrowserSeveralTest, ShortcutsToFilesCountAsTheirTargets) {
  World().files.AddFile("C:\\desktop\\own.mdl");
  for (const auto& [name, target] : {std::pair{"1.lnk", "C:\\data\\b.mdl"}, std::pair{"2.lnk", "D:\\disk.mdl"}}) {
    World().files.AddFile(std::string("C:\\desktop\\") + name);
    World().shell.links[std::string("C:\\desktop\\") + name] = target;
  }
  const auto choose = [this](const Texts& rows) {
    return Run([&rows](Browser& browser) {
      browser.ChoosePlace("デスクトップ");
      for (const std::string& row : rows) browser.ClickRow(row, {VK_CONTROL});
      browser.Ok();
    });
  };
  EXPECT_EQ(choose({"own.mdl", "2.lnk", "1.lnk"}).result, "C:\\data\\b.mdl D:\\disk.mdl C:\\desktop\\own.mdl")
      << "in the order of the list";
  const Outcome alone = choose({"1.lnk", "2.lnk"});
  EXPECT_EQ(alone.answer, IDOK);
  EXPECT_EQ(alone.result, "C:\\data\\b.mdl D:\\disk.mdl");
}

TEST_F(BrowserSeveralTest, AShortcutWhoseTargetHasGoneKeepsTheDialogOpen) {
  World().files.AddFile("C:\\desktop\\own.mdl");
  World().files.AddFile("C:\\desktop\\lost.lnk");
  World().shell.links["C:\\desktop\\lost.lnk"] = "C:\\none\\x.mdl";
  Run([](Browser& browser) {
    browser.ChoosePlace("デスクトップ");
    browser.ClickRow("lost.lnk");
    browser.ClickRow("own.mdl", {VK_CONTROL});
    browser.Ok();
    browser.ExpectMessage(std::string("C:\\none\\x.mdl") + kFileNotFound);
    EXPECT_EQ(browser.SelectedNames(), (Texts{"lost.lnk", "own.mdl"}));
  });
}

TEST_F(BrowserSeveralTest, FoldersAloneAreRefused) {
  Run([](Browser& browser) {
    browser.ClickRow("Sub");
    browser.ClickRow("old", {VK_CONTROL});
    Beeps().clear();
    browser.Ok();
    browser.ExpectMessage("ファイルが選択されていません。");
    EXPECT_EQ(Beeps().size(), 1U);
    EXPECT_EQ(browser.SelectedNames(), (Texts{"old", "Sub"}));
    browser.ClickRow("Sub");
    browser.Ok();
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
  });
}

TEST_F(BrowserSeveralTest, AFileThatHasGoneKeepsTheDialogOpen) {
  Run([](Browser& browser) {
    browser.ClickRow("a.mdl");
    browser.ClickRow("b.mdl", {VK_CONTROL});
    World().files.Remove("C:\\data\\b.mdl");
    browser.Ok();
    browser.ExpectMessage(std::string("C:\\data\\b.mdl") + kFileNotFound);
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(BrowserSeveralTest, AListThatDoesNotFitEndsAsCancelled) {
  const auto both = [](Browser& browser) {
    browser.ClickRow("a.mdl");
    browser.ClickRow("b.mdl", {VK_CONTROL});
    browser.Ok();
  };
  capacity_ = sizeof("C:\\data\\a.mdl C:\\data\\b.mdl");
  const Outcome fits = Run(both);
  EXPECT_EQ(fits.answer, IDOK);
  EXPECT_EQ(fits.result, "C:\\data\\a.mdl C:\\data\\b.mdl");
  --capacity_;
  EXPECT_EQ(Run(both).answer, IDCANCEL);
}

TEST_F(BrowserSeveralTest, TypedNamesMayStandInQuotes) {
  World().files.AddFile("C:\\data\\two words.mdl");
  const Outcome outcome =
      Run([](Browser& browser) { browser.Enter("a.mdl  \"two words.mdl\" A-001 \"C:\\data\\表.mdl\""); });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "C:\\data\\a.mdl C:\\data\\two words.mdl C:\\data\\A-001.MDL C:\\data\\表.mdl");
}

TEST_F(BrowserSeveralTest, AnOpenQuoteIsRefused) {
  Run([](Browser& browser) {
    Beeps().clear();
    browser.Enter("a.mdl \"b.mdl");
    browser.ExpectMessage("ファイル名の記述が無効です。（\" が見つかりません）");
    EXPECT_EQ(Beeps(), std::vector<std::uint32_t>{os::kBeepDefault});
    EXPECT_EQ(browser.Name(), "a.mdl \"b.mdl");
  });
}

TEST_F(BrowserSeveralTest, OneMissingNameRefusesTheList) {
  Run([](Browser& browser) {
    browser.Enter("a.mdl nothere b.mdl");
    browser.ExpectMessage(std::string("C:\\data\\nothere.MDL") + kFileNotFound);
    EXPECT_EQ(browser.Name(), "a.mdl nothere b.mdl");
    browser.Enter("b*");
    EXPECT_EQ(browser.Rows().back(), "b.mdl");
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(BrowserSeveralTest, ATextWithoutNamesIsAnEmptyChoice) {
  for (const char* text : {"", "   "}) {
    const Outcome outcome = Run([text](Browser& browser) { browser.Enter(text); });
    EXPECT_EQ(outcome.answer, IDOK);
    EXPECT_EQ(outcome.result, "");
  }
}

TEST_F(BrowserSeveralTest, FullNamesChooseFilesOfOtherFoldersAlsoWhileTheFolderIsFixed) {
  startUp_.folderFixed = true;
  const Outcome outcome = Run([](Browser& browser) { browser.Enter("D:\\disk.mdl b.mdl"); });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "D:\\disk.mdl C:\\data\\b.mdl");
}

TEST_F(BrowserSeveralTest, ATypedFolderIsRefusedQuietly) {
  Run([](Browser& browser) {
    Beeps().clear();
    browser.Enter("Sub");
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.Name(), "Sub");
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_TRUE(Beeps().empty());
  });
}

TEST_F(BrowserSeveralTest, ASingleSelectedFileBecomesRecent) {
  const Outcome outcome = Run([](Browser& browser) { browser.OpenRow("b.mdl"); });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
  EXPECT_EQ(SavedRecentFiles(), Texts{"C:\\data\\b.mdl"});
}

// ---------------------------------------------------------------------------------------------------------------------
// bad input

class BrowserBadInputTest : public BrowserTest {};

TEST_F(BrowserBadInputTest, NoNameAtAllChangesNothing) {
  Run([](Browser& browser) {
    browser.Enter("");
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_EQ(browser.Name(), "C:\\data");
    browser.Enter(" ");
    browser.ExpectMessage(std::string("C:\\data\\ .MDL") + kFileNotFound);
    EXPECT_TRUE(browser.IsOpen());
  });
}

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

TEST_F(BrowserBadInputTest, LongNamesAreRefusedWhenSeveralMayBeTyped) {
  startUp_.listStyle = filedialog::kListMultiple;
  const Outcome outcome = Run([](Browser& browser) {
    std::string many;
    for (int i = 0; i < 10'000; ++i) many += "b.mdl ";
    browser.PasteName(many);
    browser.Ok();
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_LT(outcome.result.size(), 65'536U);
  EXPECT_GT(outcome.result.size(), 65'500U);
}

TEST_F(BrowserBadInputTest, ALongPatternIsRefused) {
  Run([](Browser& browser) {
    browser.PasteName("*" + std::string(600, 'n'));
    browser.Ok();
    const MessageBoxView box = browser.Person().WaitMessageBox();
    EXPECT_TRUE(box.text.ends_with(kFileNotFound));
    browser.Person().Answer(box, IDOK);
    EXPECT_EQ(browser.Rows(), kAllRows);
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

TEST_F(BrowserBadInputTest, WhatCannotBeNamedIsNotListed) {
  World().files.AddInexactName("C:\\data\\Sub", "??.mdl");
  std::string deep = "C:\\data\\Sub\\" + std::string(120, 'd');
  deep += "\\" + std::string(256 - deep.size() - 1, 'e');
  World().files.AddFile(deep + "\\x.mdl");
  Run([&deep](Browser& browser) {
    browser.OpenRow("Sub");
    EXPECT_EQ(browser.Rows(), (Texts{std::string(120, 'd'), "inner.mdl"}));
    browser.Enter(deep);
    EXPECT_EQ(browser.Name(), deep);
    EXPECT_EQ(browser.Rows(), Texts{}) << "no path of a file in it is short enough";
    browser.Enter("x.mdl");
    const MessageBoxView box = browser.Person().WaitMessageBox();
    EXPECT_EQ(box.text, deep + kFileNotFound);
    browser.Person().Answer(box, IDOK);
    browser.Person().Settle();
    browser.Up();
    EXPECT_EQ(browser.Rows().size(), 1U);
  });
}

TEST_F(BrowserBadInputTest, ShortcutsThatCannotBeResolvedAreNotListedAsSuch) {
  startUp_.title = "#ANY#(*)";
  for (const char* name : {"self.lnk", "loop.lnk", "good.lnk", "broken.lnk"}) {
    World().files.AddFile(std::string("C:\\desktop\\") + name);
  }
  World().shell.links = {{"C:\\desktop\\self.lnk", "C:\\desktop\\self.lnk"},
                         {"C:\\desktop\\good.lnk", "C:\\data\\b.mdl"}};
  Run([](Browser& browser) {
    browser.ChoosePlace("デスクトップ");
    EXPECT_EQ(browser.Rows(), (Texts{"good.lnk", "broken.lnk", "loop.lnk", "self.lnk"}));
    const ListView list = browser.List();
    for (int row = 0; row < list.Count(); ++row) EXPECT_EQ(list.Image(row), row == 0 ? 18 : 19) << row;
    browser.Enter("*.l*");
    EXPECT_EQ(browser.Rows(), (Texts{"broken.lnk", "good.lnk", "loop.lnk", "self.lnk"}));
    EXPECT_EQ(browser.Trail(), Texts{}) << "still the desktop";
  });
}

TEST_F(BrowserBadInputTest, AFolderThatVanishesLeavesAnEmptyList) {
  Run([](Browser& browser) {
    browser.OpenRow("Sub");
    World().files.Remove("C:\\data\\Sub");
    browser.ChooseView("一覧表示");
    EXPECT_EQ(browser.Rows(), Texts{});
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"old", "表示", "a.mdl", "A-001.MDL", "b.mdl", "ソ.mdl", "表.mdl"}));
    browser.Back();
    EXPECT_EQ(browser.Rows(), Texts{});
  });
}

TEST_F(BrowserBadInputTest, AFolderThatVanishedBeforeItsDoubleClickIsNoLongerListed) {
  Run([](Browser& browser) {
    World().files.Remove("C:\\data\\Sub");
    browser.OpenRow("Sub");
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    EXPECT_EQ(browser.Rows().size(), 7U);
  });
}

TEST_F(BrowserBadInputTest, AFileThatVanishedIsMissed) {
  Run([](Browser& browser) {
    browser.ClickRow("b.mdl");
    World().files.Remove("C:\\data\\b.mdl");
    browser.Ok();
    browser.ExpectMessage(std::string("C:\\data\\b.mdl") + kFileNotFound);
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(BrowserBadInputTest, AFolderThatCannotBeReadIsEmpty) {
  World().calls.FailNext("files.OpenFolder");
  Run([](Browser& browser) {
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.Person().Key(VK_END);
    browser.Person().Type("x");
    browser.ChooseView("詳細表示");
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(BrowserBadInputTest, AStartFolderThatIsNoneGivesTheNearestOne) {
  const std::vector<std::pair<std::string, Texts>> folders = {{"C:\\data\\none\\deeper", {"data"}},
                                                              {"C:\\data\\b.mdl", {"data"}},
                                                              {"C:\\data\\表示\\", {"data", "表示"}},
                                                              {"Q:\\x", {}},
                                                              {"", {}},
                                                              {"relative", {}},
                                                              {"C:\\", {}},
                                                              {std::string(100'000, 'x'), {}},
                                                              {"C:\\" + std::string(600, 'x'), {}}};
  for (const auto& [folder, trail] : folders) {
    startUp_.initialFolder = folder;
    Run([&trail = trail](Browser& browser) {
      EXPECT_EQ(browser.Trail(), trail);
      EXPECT_GE(browser.Rows().size(), 1U);
    });
  }
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
    EXPECT_EQ(browser.List().Count(), 200'000);
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

TEST_F(BrowserBadInputTest, AMachineWithoutDrivesShowsTheComputer) {
  World().drives.clear();
  World().files.Remove("C:");
  Run([](Browser& browser) {
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.Enter("x.mdl");
    if (browser.Person().WaitDialog() != browser.Window()) {
      browser.Person().Answer(browser.Person().WaitMessageBox(), IDOK);
    }
    EXPECT_TRUE(browser.IsOpen());
    browser.Up();
    browser.Up();
  });
}

}  // namespace
}  // namespace browser_test
