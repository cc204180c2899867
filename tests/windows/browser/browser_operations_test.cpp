// What a user does to the entries of a folder in the browser: new folder, rename, delete, and names edited in the list.
#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/base/shift_jis.h"
#include "dlglib/resources/resource.h"
#include "platform/os/sjis_wide.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/support/hanging_calls.h"

namespace browser_test {
namespace {

using driver::Center;
using driver::MenuView;
using driver::MessageBoxView;
using driver::User;
using driver::Window;

constexpr char kCreateTitle[] = "新しいフォルダの作成";
constexpr char kRenameTitle[] = "名前の変更";
constexpr char kCreateCaption[] = "新しいフォルダ";
constexpr char kRenameCaption[] = "名前変更";
constexpr std::uint32_t kBeepExclamation = 0x30;

class BrowserOperationsTest : public BrowserTest {
 protected:
  void SelectSeveral() { startUp_.listStyle = filedialog::kListMultiple; }

  static POINT RowPoint(const Browser& browser, const std::string& name) {
    const int row = browser.List().FindRow(name);
    if (row < 0) throw driver::Stuck("no row \"" + name + "\"");
    const RECT label = browser.List().ItemRect(row);
    return {label.left + 6, (label.top + label.bottom) / 2};
  }

  /// Adds a row to the selection. The mouse is there before the key is held: a moving mouse would let go of it.
  static void AddRow(Browser& browser, const std::string& name) {
    browser.Person().MoveTo(RowPoint(browser, name));
    browser.ClickRow(name, {VK_CONTROL});
  }

  // ---- the dialog for a name
  static Window OpenCreate(Browser& browser) {
    browser.Person().Click(Center(browser.Window().Child(IDC_CREATE_FOLDER).ScreenRect()));
    return WaitNameDialog(browser, kCreateTitle);
  }
  static Window WaitNameDialog(Browser& browser, const std::string& title) {
    const Window dialog = browser.Person().WaitDialog(title);
    browser.Person().WaitUntil("the name has the focus", [&] { return dialog.Child(IDC_FOLDER_NAME).HasFocus(); });
    EXPECT_EQ(dialog.Owner(), browser.Window());
    const POINT middle = Center(dialog.ScreenRect());
    const POINT ofOwner = Center(browser.Window().ScreenRect());
    EXPECT_NEAR(middle.x, ofOwner.x, 1);
    EXPECT_NEAR(middle.y, ofOwner.y, 1);
    return dialog;
  }
  /// Types a name over what the dialog holds, and presses Enter.
  static void Give(Browser& browser, const Window& dialog, const std::string& name) {
    browser.Person().Replace(dialog.Child(IDC_FOLDER_NAME), name);
    browser.Person().Key(VK_RETURN);
    browser.Person().Settle();
  }
  static void WaitClosed(Browser& browser, const Window& dialog) {
    browser.Person().WaitGone(dialog);
    browser.Person().Settle();
  }
  static void Create(Browser& browser, const std::string& name) {
    const Window dialog = OpenCreate(browser);
    Give(browser, dialog, name);
    WaitClosed(browser, dialog);
  }
  static void ExpectRefusal(Browser& browser, const std::string& text, const std::string& caption) {
    const MessageBoxView box = browser.Person().WaitMessageBox();
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.caption, caption);
    EXPECT_EQ(box.icon, UINT{MB_ICONHAND});
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
    EXPECT_GE(box.window.ScreenRect().left, 0) << "it can be read";
    EXPECT_EQ(Beeps(), std::vector<std::uint32_t>{kBeepExclamation});
    Beeps().clear();
    browser.Person().Key(VK_RETURN);
    browser.Person().WaitGone(box.window);
    browser.Person().Settle();
  }

  // ---- the menu of the entries
  static MenuView OpenMenu(Browser& browser, const std::string& name) {
    browser.Person().RightClick(RowPoint(browser, name));
    return browser.Person().WaitMenu();
  }
  static void CloseMenu(Browser& browser, const MenuView& menu) {
    browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitGone(menu.window);
    browser.Person().Settle();
  }
  static void ExpectMenu(const MenuView& menu, bool canDelete, bool canRename) {
    ASSERT_EQ(menu.items.size(), 2U);
    EXPECT_EQ(menu.items[0].text, "削除");
    EXPECT_EQ(menu.items[0].id, 32780U);
    EXPECT_EQ(menu.items[0].isEnabled, canDelete);
    EXPECT_EQ(menu.items[1].text, "名前の変更");
    EXPECT_EQ(menu.items[1].id, 32781U);
    EXPECT_EQ(menu.items[1].isEnabled, canRename);
  }
  static Window OpenRename(Browser& browser, const std::string& name) {
    browser.Person().Choose(OpenMenu(browser, name), kRenameTitle);
    return WaitNameDialog(browser, kRenameTitle);
  }

  // ---- a name edited in the list
  static Window WaitLabelEdit(Browser& browser) {
    browser.Person().WaitUntil("the name can be edited", [&] {
      const Window edit = browser.List().LabelEdit();
      return edit && edit.IsVisible() && edit.HasFocus();
    });
    return browser.List().LabelEdit();
  }
  /// Selects a name and has it edited. A click on one that is selected would have it edited once more, by the list
  /// itself and some time later.
  static void EditLabel(Browser& browser, const std::string& name) {
    if (browser.SelectedNames() != Texts{name}) browser.ClickRow(name);
    browser.List().Send(LVM_EDITLABELW, static_cast<WPARAM>(browser.List().FindRow(name)));
    WaitLabelEdit(browser);
  }
  static void TypeLabel(Browser& browser, const std::string& name, const std::string& text) {
    EditLabel(browser, name);
    browser.Person().Key(VK_HOME);
    browser.Person().Key(VK_END, {VK_SHIFT});
    browser.Person().Key(VK_DELETE);
    browser.Person().Type(text);
  }

  /// Edits a name, puts a text of any length in its place at once, and presses Enter.
  static void GiveLabel(Browser& browser, const std::string& name, const std::string& text) {
    if (browser.SelectedNames() != Texts{name}) browser.ClickRow(name);
    browser.List().Send(LVM_EDITLABELW, static_cast<WPARAM>(browser.List().FindRow(name)));
    WaitLabelEdit(browser);
    SetText(browser.List().LabelEdit(), text);
    browser.Person().Key(VK_RETURN);
    browser.Person().Settle();
  }
  /// Puts a text into a box at once, also one that no keyboard could bring there.
  static void SetText(const Window& box, const std::string& text) {
    SetWindowTextW(box.Handle(), os::WideOf(text).c_str());
  }

  /// What refuses the name of another entry.
  static std::string ThereIs(const std::string& name) {
    return "指定したファイルまたはディレクトリが既に存在するか、パスが無効です\n\nC:\\data\\" + name;
  }

  static bool Exists(const std::string& path) { return World().files.Find(path) != nullptr; }
  static std::string FileBytes(const std::string& path) {
    const os::scripted::Node* node = World().files.Find(path);
    return node == nullptr ? "(missing)" : node->bytes;
  }
};

// ---------------------------------------------------------------------------------------------------------------------
// new folder

TEST_F(BrowserOperationsTest, ANewFolderIsListedAndSelected) {
  Run([](Browser& browser) {
    browser.ClickHeader(1);
    browser.ClickRow("b.mdl");
    TakeListings();
    Create(browser, "新しい表");
    EXPECT_TRUE(Exists("C:\\data\\新しい表"));
    EXPECT_EQ(TakeListings(), 1U);
    EXPECT_EQ(browser.Rows(),
              (Texts{"old", "Sub", "新しい表", "表示", "a.mdl", "A-001.MDL", "b.mdl", "ソ.mdl", "表.mdl"}))
        << "by name again";
    EXPECT_EQ(browser.SortMark(0), 0);
    EXPECT_EQ(browser.SelectedNames(), Texts{"新しい表"});
    EXPECT_TRUE(browser.List().HasFocus());
    EXPECT_EQ(browser.Name(), "b.mdl");
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

/// What is given up may happen all the same; nobody is told of it then.
TEST_F(BrowserOperationsTest, AFolderThatIsMadeAfterItWasGivenUpIsListedByF5) {
  driver::HangingCalls hanging("files.CreateFolder");
  Run([&](Browser& browser) {
    const Window dialog = OpenCreate(browser);
    Give(browser, dialog, "late");
    browser.Person().WaitUntil("it hangs", [&] { return hanging.Now() == 1; });
    browser.Person().Click(dialog.Child(IDCANCEL));
    browser.Person().WaitGone(dialog);
    TakeListings();
    hanging.LetGo();
    browser.Person().WaitUntil("it is there", [] { return Exists("C:\\data\\late"); });
    browser.Person().Settle();
    EXPECT_EQ(TakeListings(), 0U);
    browser.Person().Key(VK_F5);
    browser.Person().WaitUntil("it is listed", [&] { return browser.List().FindRow("late") >= 0; });
  });
}

TEST_F(BrowserOperationsTest, ANameThatIsGivenAfterItWasGivenUpIsListedAtTheEndOfItsDialog) {
  driver::HangingCalls hanging("files.Rename");
  Run([&](Browser& browser) {
    browser.ClickRow("b.mdl");
    browser.Person().Key(VK_F2);
    const Window dialog = WaitNameDialog(browser, kRenameTitle);
    Give(browser, dialog, "late.mdl");
    browser.Person().WaitUntil("it hangs", [&] { return hanging.Now() == 1; });
    browser.Person().Key(VK_ESCAPE);
    browser.Person().Settle();
    hanging.LetGo();
    browser.Person().WaitUntil("it has its name", [] { return Exists("C:\\data\\late.mdl"); });
    browser.Person().Settle();
    browser.Person().Click(dialog.Child(IDCANCEL));
    browser.Person().WaitUntil("it is listed", [&] { return browser.List().FindRow("late.mdl") >= 0; });
    EXPECT_LT(browser.List().FindRow("b.mdl"), 0);
  });
}

TEST_F(BrowserOperationsTest, AFolderThatExistsKeepsTheDialogForAnotherName) {
  Run([](Browser& browser) {
    TakeListings();
    const Window dialog = OpenCreate(browser);
    EXPECT_EQ(dialog.Child(IDC_FOLDER_NAME).Text(), "");
    EXPECT_EQ(dialog.Child(IDOK).Text(), "作成");
    Give(browser, dialog, "sub");
    ExpectRefusal(browser, "フォルダは既に存在します\n\nC:\\data\\sub", kCreateCaption);
    Give(browser, dialog, "");
    ExpectRefusal(browser, "フォルダ名が入力されていません", kCreateCaption);
    Give(browser, dialog, "a:b");
    ExpectRefusal(browser, "フォルダ名に誤りがあります\n\nC:\\data\\a:b", kCreateCaption);
    World().calls.FailNext("files.CreateFolder", 5);
    Give(browser, dialog, "denied");
    ExpectRefusal(browser, "フォルダ名に誤りがあります\n\nC:\\data\\denied", kCreateCaption);
    EXPECT_TRUE(dialog.IsVisible());
    EXPECT_EQ(TakeListings(), 0U);
    Give(browser, dialog, "denied");
    WaitClosed(browser, dialog);
    EXPECT_EQ(browser.SelectedNames(), Texts{"denied"});
    EXPECT_EQ(TakeListings(), 1U);
  });
}

TEST_F(BrowserOperationsTest, AFolderThatVanishedTakesNoFolder) {
  Run([](Browser& browser) {
    browser.OpenRow("Sub");
    World().files.Remove("C:\\data\\Sub");
    const Window dialog = OpenCreate(browser);
    Give(browser, dialog, "n");
    ExpectRefusal(browser, "フォルダ名に誤りがあります\n\nC:\\data\\Sub\\n", kCreateCaption);
    browser.Person().Key(VK_ESCAPE);
    WaitClosed(browser, dialog);
    EXPECT_TRUE(browser.IsOpen());
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// menu

TEST_F(BrowserOperationsTest, TheMenuOffersWhatTheSelectionAllows) {
  SelectSeveral();
  World().files.AddFile("C:\\desktop\\plans.lnk");
  World().files.AddFile("C:\\desktop\\図.lnk");
  World().shell.links["C:\\desktop\\plans.lnk"] = "C:\\data\\Sub";
  World().shell.links["C:\\desktop\\図.lnk"] = "C:\\data\\b.mdl";
  Run([](Browser& browser) {
    MenuView menu = OpenMenu(browser, "b.mdl");
    ExpectMenu(menu, true, true);
    POINT at = RowPoint(browser, "b.mdl");
    EXPECT_EQ(menu.window.ScreenRect().left, at.x);
    EXPECT_EQ(menu.window.ScreenRect().top, at.y);
    CloseMenu(browser, menu);
    menu = OpenMenu(browser, "Sub");
    ExpectMenu(menu, true, true);
    CloseMenu(browser, menu);
    browser.ClickRow("old");
    AddRow(browser, "b.mdl");
    menu = OpenMenu(browser, "b.mdl");
    ExpectMenu(menu, true, false);
    CloseMenu(browser, menu);
    EXPECT_EQ(browser.SelectedNames(), (Texts{"old", "b.mdl"}));

    const RECT list = browser.List().ScreenRect();
    browser.Person().RightClick({list.left + 40, list.bottom - 6});
    menu = browser.Person().WaitMenu();
    ExpectMenu(menu, false, false);
    CloseMenu(browser, menu);

    browser.ChoosePlace("デスクトップ");
    for (const char* name : {"plans.lnk", "図.lnk"}) {
      menu = OpenMenu(browser, name);
      ExpectMenu(menu, true, true);
      CloseMenu(browser, menu);
    }
    browser.ChoosePlace("マイコンピュータ");
    menu = OpenMenu(browser, "SYSTEM (C:)");
    ExpectMenu(menu, false, false);
    CloseMenu(browser, menu);
  });
}

TEST_F(BrowserOperationsTest, ARightClickSelectsLikeAClick) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.ClickRow("a.mdl");
    CloseMenu(browser, OpenMenu(browser, "b.mdl"));
    EXPECT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
    EXPECT_EQ(browser.Name(), "b.mdl") << "what OK is going to take";
    browser.Ok();
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(BrowserOperationsTest, AFrameDrawnWithTheMouseSelectsLikeClicks) {
  SelectSeveral();
  const Outcome outcome = Run([](Browser& browser) {
    const RECT list = browser.List().ScreenRect();
    const RECT third = browser.List().ItemRect(browser.List().FindRow("ソ.mdl"));
    browser.Person().Drag({list.right - 200, list.bottom - 6}, {list.left + 40, third.top + 4});
    browser.Person().Settle();
    EXPECT_EQ(browser.SelectedNames(), (Texts{"ソ.mdl", "表.mdl"}));
    EXPECT_EQ(browser.Name(), "ソ.mdl 表.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.result, "C:\\data\\ソ.mdl C:\\data\\表.mdl");
}

TEST_F(BrowserOperationsTest, TheMenuKeyOpensTheMenuBelowTheRow) {
  Run([](Browser& browser) {
    browser.ClickRow("b.mdl");
    browser.Person().Key(VK_APPS);
    const MenuView menu = browser.Person().WaitMenu();
    ExpectMenu(menu, true, true);
    const RECT label = browser.List().ItemRect(browser.List().FindRow("b.mdl"));
    EXPECT_EQ(menu.window.ScreenRect().left, label.left);
    EXPECT_EQ(menu.window.ScreenRect().top, label.bottom);
    CloseMenu(browser, menu);
    EXPECT_TRUE(browser.IsOpen());
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// rename

TEST_F(BrowserOperationsTest, ARenamedEntryIsListedAnew) {
  Run([](Browser& browser) {
    browser.ClickRow("a.mdl");
    TakeListings();
    const Window dialog = OpenRename(browser, "b.mdl");
    EXPECT_EQ(dialog.Child(IDC_FOLDER_NAME).Text(), "b.mdl");
    EXPECT_EQ(dialog.Child(IDOK).Text(), "変更");
    Give(browser, dialog, "z表.mdl");
    WaitClosed(browser, dialog);
    EXPECT_FALSE(Exists("C:\\data\\b.mdl"));
    EXPECT_EQ(FileBytes("C:\\data\\z表.mdl"), std::string(1025, 'x'));
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "a.mdl", "A-001.MDL", "z表.mdl", "ソ.mdl", "表.mdl"}));
    EXPECT_EQ(TakeListings(), 1U);
    EXPECT_EQ(browser.SelectedNames(), Texts{});
    EXPECT_TRUE(browser.List().HasFocus());
    EXPECT_EQ(browser.Name(), "b.mdl") << "no new names";
  });
}

TEST_F(BrowserOperationsTest, F2RenamesUnderTheSameConditions) {
  SelectSeveral();
  Run([](Browser& browser) {
    const User& user = browser.Person();
    const auto opensNothing = [&] {
      user.Key(VK_F2);
      user.Settle();
      return driver::VisibleWindows(GetCurrentProcessId()).size() == 1;
    };
    EXPECT_TRUE(opensNothing()) << "nothing is selected";
    browser.ClickRow("a.mdl");
    AddRow(browser, "b.mdl");
    EXPECT_TRUE(opensNothing()) << "two are selected";
    browser.ClickRow("Sub");
    user.Key(VK_F2);
    const Window dialog = WaitNameDialog(browser, kRenameTitle);
    Give(browser, dialog, "folder");
    WaitClosed(browser, dialog);
    EXPECT_TRUE(Exists("C:\\data\\folder\\inner.mdl"));
    browser.ChoosePlace("マイコンピュータ");
    browser.ClickRow("SYSTEM (C:)");
    EXPECT_TRUE(opensNothing()) << "a drive";

    browser.Person().Click(browser.NameEdit());
    EXPECT_TRUE(opensNothing()) << "not in the list";
  });
}

TEST_F(BrowserOperationsTest, TheSameNameRenamesNothing) {
  Run([](Browser& browser) {
    const Window dialog = OpenRename(browser, "b.mdl");
    TakeListings();
    browser.Person().Key(VK_RETURN);
    WaitClosed(browser, dialog);
    EXPECT_EQ(World().calls.Count("files.Rename"), 0U);
    EXPECT_TRUE(Exists("C:\\data\\b.mdl"));
  });
}

TEST_F(BrowserOperationsTest, EveryRefusedRenameKeepsTheDialog) {
  Run([](Browser& browser) {
    const Window dialog = OpenRename(browser, "b.mdl");
    TakeListings();
    Give(browser, dialog, "");
    ExpectRefusal(browser, "変更後の名前が入力されていません", kRenameCaption);
    Give(browser, dialog, "a.mdl");
    ExpectRefusal(browser, "名前に誤りがあります\n\nC:\\data\\a.mdl", kRenameCaption);
    World().calls.FailNext("files.Rename", 13);
    Give(browser, dialog, "locked.mdl");
    ExpectRefusal(browser, "名前はに存在します\n\nC:\\data\\locked.mdl", kRenameCaption);
    World().calls.FailNext("files.Rename", 2);
    Give(browser, dialog, "gone.mdl");
    ExpectRefusal(browser, "名前に誤りがあります\n\nC:\\data\\gone.mdl", kRenameCaption);
    Give(browser, dialog, "con.mdl");
    ExpectRefusal(browser, "名前に誤りがあります\n\nC:\\data\\con.mdl", kRenameCaption);
    EXPECT_TRUE(dialog.IsVisible());
    EXPECT_EQ(TakeListings(), 0U);
    EXPECT_EQ(FileBytes("C:\\data\\b.mdl"), std::string(1025, 'x'));
    EXPECT_EQ(FileBytes("C:\\data\\a.mdl"), "");
    browser.Person().Key(VK_ESCAPE);
    WaitClosed(browser, dialog);
    EXPECT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// names of every kind

std::string Repeat(const std::string& text, std::size_t count) {
  std::string repeated;
  for (; count > 0; --count) repeated += text;
  return repeated;
}

/// What a folder may be called in C:\data, where 248 bytes are left of a path.
struct NameCase {
  std::string name;
  bool isTakenByDialogs;
  bool isTakenInTheList;
};

std::vector<NameCase> NamesOfEveryLength() {
  return {{"n", true, true},
          {Repeat("n", 127), true, true},
          {Repeat("n", 128), true, true},
          {Repeat("n", 129), false, true},
          {Repeat("表", 64), true, true},
          {Repeat("表", 124), true, true},
          {"n" + Repeat("表", 124), false, false},
          {Repeat("n", 248), false, true},
          {Repeat("n", 249), false, false},
          {Repeat("n", 255), false, false},
          {Repeat("表", 128), false, false},
          {Repeat("n", 259), false, false},
          {Repeat("n", 260), false, false},
          {Repeat("n", 300), false, false}};
}

/// What the list shows of a name.
std::string Shown(const std::string& name) { return std::string(shift_jis::Truncate(name, 127)); }

TEST_F(BrowserOperationsTest, ANewFoldersNameIsTakenWholeOrRefused) {
  Run([](Browser& browser) {
    Window dialog = OpenCreate(browser);
    for (const NameCase& row : NamesOfEveryLength()) {
      SCOPED_TRACE(row.name);
      SetText(dialog.Child(IDC_FOLDER_NAME), row.name);
      browser.Person().Key(VK_RETURN);
      if (!row.isTakenByDialogs) {
        ExpectRefusal(browser, "フォルダ名に誤りがあります\n\nC:\\data\\" + row.name, kCreateCaption);
        EXPECT_FALSE(Exists("C:\\data\\" + row.name));
        continue;
      }
      WaitClosed(browser, dialog);
      EXPECT_EQ(browser.SelectedNames(), Texts{Shown(row.name)});
      EXPECT_TRUE(World().files.Remove("C:\\data\\" + row.name));
      dialog = OpenCreate(browser);
    }
    browser.Person().Paste(Repeat("n", 300));
    browser.Person().Key(VK_RETURN);
    WaitClosed(browser, dialog);
    EXPECT_TRUE(Exists("C:\\data\\" + Repeat("n", 128))) << "as much as the box takes";
  });
}

TEST_F(BrowserOperationsTest, ANewNameIsTakenWholeOrRefused) {
  Run([](Browser& browser) {
    std::string name = "Sub";
    Window dialog = OpenRename(browser, name);
    for (const NameCase& row : NamesOfEveryLength()) {
      SCOPED_TRACE(row.name);
      SetText(dialog.Child(IDC_FOLDER_NAME), row.name);
      browser.Person().Key(VK_RETURN);
      if (!row.isTakenByDialogs) {
        ExpectRefusal(browser, "名前に誤りがあります\n\nC:\\data\\" + row.name, kRenameCaption);
        EXPECT_TRUE(Exists("C:\\data\\" + name));
        continue;
      }
      WaitClosed(browser, dialog);
      name = row.name;
      EXPECT_TRUE(Exists("C:\\data\\" + name + "\\inner.mdl"));
      EXPECT_EQ(browser.SelectedNames(), Texts{});
      dialog = OpenRename(browser, Shown(name));
      EXPECT_EQ(dialog.Child(IDC_FOLDER_NAME).Text(), name) << "whole, however much the list shows";
    }
    browser.Person().Key(VK_ESCAPE);
    WaitClosed(browser, dialog);
    EXPECT_TRUE(Exists("C:\\data\\" + name));
  });
}

TEST_F(BrowserOperationsTest, ANameGivenInTheListIsTakenWholeOrRefused) {
  Run([](Browser& browser) {
    std::string name = "Sub";
    for (const NameCase& row : NamesOfEveryLength()) {
      SCOPED_TRACE(row.name);
      GiveLabel(browser, Shown(name), row.name);
      if (!row.isTakenInTheList) ExpectRefusal(browser, ThereIs(row.name), "");
      if (row.isTakenInTheList) name = row.name;
      EXPECT_TRUE(Exists("C:\\data\\" + name + "\\inner.mdl"));
      EXPECT_EQ(browser.SelectedNames(), Texts{Shown(name)});
    }
  });
}

TEST_F(BrowserOperationsTest, ANameThatTheListShowsCutIsEditedWhole) {
  const std::string name = Repeat("表", 70) + ".mdl";
  World().files.AddFile("C:\\data\\" + name, "body");
  Run([&](Browser& browser) {
    EditLabel(browser, Shown(name));
    EXPECT_EQ(browser.List().LabelEdit().Text(), name);
    browser.Person().Key(VK_RETURN);
    browser.Person().Settle();
    EXPECT_EQ(World().calls.Count("files.Rename"), 0U);
    EditLabel(browser, Shown(name));
    browser.Person().Key(VK_HOME);
    browser.Person().Type("図");
    browser.Person().Key(VK_RETURN);
    browser.Person().Settle();
    EXPECT_EQ(FileBytes("C:\\data\\図" + name), "body");
    EXPECT_EQ(browser.SelectedNames(), Texts{Shown("図" + name)});
  });
}

TEST_F(BrowserOperationsTest, EveryWrongNameIsRefusedInTheList) {
  const std::string wrong = "名前に無効な文字が含まれています";
  Run([&](Browser& browser) {
    for (const char* name :
         {"a\\b", "a/b", "a:b", "a*b", "a?b", "a\"b", "a<b", "a>b", "a|b", "a\tb", "CON", "com1.mdl"}) {
      SCOPED_TRACE(name);
      GiveLabel(browser, "b.mdl", name);
      ExpectRefusal(browser, wrong, "");
    }
    for (const char* name : {"b.mdl.", "b.mdl ", ".."}) {
      SCOPED_TRACE(name);
      GiveLabel(browser, "b.mdl", name);
      ExpectRefusal(browser, ThereIs(name), "");
    }
    // Characters of the screen's encoding that stand for half of one, at the end and where the shown part is cut.
    for (const std::wstring& name : {std::wstring(L"\uF8F1"), std::wstring(126, L'n') + L"\uF8F1"}) {
      EditLabel(browser, "b.mdl");
      SetWindowTextW(browser.List().LabelEdit().Handle(), name.c_str());
      browser.Person().Key(VK_RETURN);
      ExpectRefusal(browser, wrong, "");
    }
    EXPECT_EQ(FileBytes("C:\\data\\b.mdl"), std::string(1025, 'x'));
    EXPECT_EQ(browser.Rows().size(), 8U);
    GiveLabel(browser, "b.mdl", "B.Mdl");
    EXPECT_EQ(browser.SelectedNames(), Texts{"B.Mdl"}) << "letter case alone is a new name";
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// delete

TEST_F(BrowserOperationsTest, AFolderAndTwoFilesGoInOneOperation) {
  SelectSeveral();
  Run([](Browser& browser) {
    browser.ClickRow("Sub");
    AddRow(browser, "b.mdl");
    AddRow(browser, "表.mdl");
    EXPECT_EQ(browser.Name(), "b.mdl 表.mdl");
    TakeListings();
    browser.Person().Choose(OpenMenu(browser, "b.mdl"), "削除");
    browser.Person().Settle();
    ASSERT_EQ(World().shell.deletions.size(), 1U);
    std::string list = "C:\\data\\Sub|C:\\data\\b.mdl|C:\\data\\表.mdl|";
    std::replace(list.begin(), list.end(), '|', '\0');
    EXPECT_EQ(World().shell.deletions[0].list.substr(0, list.size()), list);
    EXPECT_EQ(World().shell.deletions[0].title, "削除");
    EXPECT_EQ(browser.Rows(), (Texts{"old", "表示", "a.mdl", "A-001.MDL", "ソ.mdl"}));
    EXPECT_EQ(TakeListings(), 1U);
    EXPECT_EQ(browser.SelectedNames(), Texts{});
    EXPECT_TRUE(browser.List().HasFocus());
    EXPECT_EQ(browser.Name(), "b.mdl 表.mdl") << "no new names";
  });
}

TEST_F(BrowserOperationsTest, TheDeleteKeyDeletesUnderTheSameConditions) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    user.Key(VK_DELETE);
    user.Settle();
    EXPECT_EQ(World().shell.deletions.size(), 0U) << "nothing is selected";
    browser.TypeName("ab");
    user.Key(VK_HOME);
    user.Key(VK_DELETE);
    user.Settle();
    EXPECT_EQ(browser.Name(), "b") << "in the name box it deletes a letter";
    browser.ClickRow("old");
    user.Key(VK_DELETE);
    user.Settle();
    ASSERT_EQ(World().shell.deletions.size(), 1U);
    EXPECT_EQ(browser.Rows().front(), "Sub");
    browser.ChoosePlace("マイコンピュータ");
    browser.ClickRow("REMOVABLE (D:)");
    user.Key(VK_DELETE);
    user.Settle();
    EXPECT_EQ(World().shell.deletions.size(), 1U) << "a drive";
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// names edited in the list

TEST_F(BrowserOperationsTest, ASecondClickEditsANameWhichEnterGives) {
  Run([](Browser& browser) {
    browser.ClickRow("b.mdl");
    browser.ClickRow("b.mdl");
    EXPECT_EQ(WaitLabelEdit(browser).Text(), "b.mdl");
    browser.Person().Key(VK_HOME);
    browser.Person().Type("zz");
    browser.Person().Key(VK_END, {VK_SHIFT});
    browser.Person().Type(".mdl");
    TakeListings();
    browser.Person().Key(VK_RETURN);
    browser.Person().Settle();
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_TRUE(Exists("C:\\data\\zz.mdl"));
    EXPECT_EQ(browser.SelectedNames(), Texts{"zz.mdl"});
    EXPECT_EQ(TakeListings(), 1U);
    EXPECT_TRUE(browser.List().HasFocus());
  });
}

TEST_F(BrowserOperationsTest, EscGivesNoName) {
  Run([](Browser& browser) {
    TypeLabel(browser, "b.mdl", "zz.mdl");
    browser.Person().Key(VK_ESCAPE);
    browser.Person().Settle();
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_TRUE(Exists("C:\\data\\b.mdl"));
    EXPECT_EQ(browser.Rows().size(), 8U);
    TypeLabel(browser, "b.mdl", "");
    browser.Person().Key(VK_RETURN);
    browser.Person().Settle();
    EXPECT_TRUE(Exists("C:\\data\\b.mdl")) << "an empty name is none";
    EXPECT_TRUE(Beeps().empty());
    EXPECT_EQ(World().calls.Count("files.Rename"), 0U);
  });
}

TEST_F(BrowserOperationsTest, AClickElsewhereGivesTheName) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    TypeLabel(browser, "b.mdl", "1.mdl");
    const RECT list = browser.List().ScreenRect();
    user.Click({list.left + 60, list.bottom - 6});
    user.Settle();
    EXPECT_TRUE(Exists("C:\\data\\1.mdl"));
    TypeLabel(browser, "1.mdl", "2.mdl");
    user.Click(browser.NameEdit());
    user.Settle();
    EXPECT_TRUE(Exists("C:\\data\\2.mdl"));
    TypeLabel(browser, "2.mdl", "3.mdl");
    user.Click({list.left + 60, list.bottom + 4});
    user.Settle();
    EXPECT_TRUE(Exists("C:\\data\\3.mdl")) << "beside the controls";
    TypeLabel(browser, "表示", "図面");
    browser.ClickRow("old");
    EXPECT_TRUE(Exists("C:\\data\\図面\\図.mdl"));
  });
}

TEST_F(BrowserOperationsTest, AnEditEndsBeforeAnotherFolderIsShown) {
  World().files.AddFile("C:\\first.mdl", "first");
  World().files.AddFile("C:\\second.mdl", "second");
  Run([](Browser& browser) {
    TypeLabel(browser, "表示", "moved");
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop", "first.mdl", "second.mdl"})) << "nothing else was renamed";
    EXPECT_TRUE(Exists("C:\\data\\moved\\図.mdl"));
    browser.OpenRow("data");
    TypeLabel(browser, "b.mdl", "back.mdl");
    browser.Person().Key(VK_LEFT, {VK_MENU});
    browser.Person().Settle();
    EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop", "first.mdl", "second.mdl"}));
    EXPECT_TRUE(Exists("C:\\data\\back.mdl"));
    browser.OpenRow("data");
    TypeLabel(browser, "back.mdl", "b.mdl");
    browser.ChooseView("一覧表示");
    EXPECT_TRUE(Exists("C:\\data\\b.mdl"));
    TypeLabel(browser, "b.mdl", "c.mdl");
    browser.ChoosePlace("REMOVABLE (D:)");
    EXPECT_EQ(browser.Rows(), Texts{"disk.mdl"});
    EXPECT_TRUE(Exists("C:\\data\\c.mdl"));
  });
}

TEST_F(BrowserOperationsTest, ARefusedNameStopsTheStepThatEndedItsEdit) {
  Run([](Browser& browser) {
    TypeLabel(browser, "b.mdl", "a.mdl");
    browser.Person().Click(Center(browser.Window().Child(IDC_UP).ScreenRect()));
    ExpectRefusal(browser, "指定したファイルまたはディレクトリが既に存在するか、パスが無効です\n\nC:\\data\\a.mdl", "");
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    browser.Up();
    EXPECT_EQ(browser.Trail(), Texts{});
  });
}

// ---- how an edit ends

TEST_F(BrowserOperationsTest, TheButtonsGiveTheNameAndDoTheirWorkInOneClick) {
  Run([](Browser& browser) {
    TypeLabel(browser, "b.mdl", "1.mdl");
    browser.Person().Click(browser.Window().Child(IDCANCEL));
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_TRUE(Exists("C:\\data\\1.mdl"));
  Run([](Browser& browser) {
    TypeLabel(browser, "表示", "図面");
    browser.Ok();
    browser.Person().Settle();
    EXPECT_EQ(browser.Trail(), (Texts{"data", "図面"})) << "the entry that is selected, as the box is empty";
  });
}

TEST_F(BrowserOperationsTest, ARenamedEntryDoesNotCountMoreThanTheNameInTheBox) {
  Run([](Browser& browser) {
    TypeLabel(browser, "b.mdl", "2.mdl");
    browser.Person().Key(VK_RETURN);
    browser.Person().Settle();
    EXPECT_EQ(browser.SelectedNames(), Texts{"2.mdl"});
    EXPECT_EQ(browser.Name(), "b.mdl");
    browser.Ok();
    browser.ExpectMessage(
        "C:\\data\\b.mdl\nファイルが見つかりません。\n指定したファイル名が正しいかどうか確認してください。");
  });
  const Outcome outcome = Run([](Browser& browser) {
    TypeLabel(browser, "2.mdl", "b.mdl");
    browser.Person().Key(VK_RETURN);
    browser.TypeName("a.mdl");
    browser.Ok();
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_EQ(outcome.result, "C:\\data\\a.mdl");
}

TEST_F(BrowserOperationsTest, ClosingTheBrowserGivesTheName) {
  Run([](Browser& browser) {
    TypeLabel(browser, "b.mdl", "1.mdl");
    browser.Person().Key(VK_F4, {VK_MENU});
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_TRUE(Exists("C:\\data\\1.mdl"));
}

TEST_F(BrowserOperationsTest, CancelEndsTheBrowserAlsoWhenItsNameIsRefused) {
  using Act = void (*)(Browser&);
  const std::pair<const char*, Act> ways[] = {
      {"the button", [](Browser& browser) { browser.Person().Click(browser.Window().Child(IDCANCEL)); }},
      {"the keys of the frame", [](Browser& browser) { browser.Person().Key(VK_F4, {VK_MENU}); }},
      {"the close box",
       [](Browser& browser) { ::PostMessageA(browser.Window().Handle(), WM_NCLBUTTONDOWN, HTCLOSE, 0); }},
      {"the menu of the frame",
       [](Browser& browser) { ::PostMessageA(browser.Window().Handle(), WM_SYSCOMMAND, SC_CLOSE, 0); }},
      {"a program", [](Browser& browser) { ::PostMessageA(browser.Window().Handle(), WM_COMMAND, IDCANCEL, 0); }}};
  for (const auto& [name, act] : ways) {
    SCOPED_TRACE(name);
    World().registry.RemoveKey(kLayoutKey);
    const Outcome outcome = Run([act = act](Browser& browser) {
      TypeLabel(browser, "b.mdl", "a.mdl");
      act(browser);
      ExpectRefusal(browser, ThereIs("a.mdl"), "");
      browser.Person().WaitGone(browser.Window());
    });
    EXPECT_EQ(outcome.answer, IDCANCEL);
    EXPECT_TRUE(Exists("C:\\data\\b.mdl"));
    EXPECT_TRUE(World().registry.Value(kLayoutKey, "Form").has_value()) << "the layout is saved";
  }
}

TEST_F(BrowserOperationsTest, AHeaderGivesTheNameAndSorts) {
  Run([](Browser& browser) {
    TypeLabel(browser, "b.mdl", "1.mdl");
    browser.ClickHeader(1);
    browser.Person().Settle();
    EXPECT_TRUE(Exists("C:\\data\\1.mdl"));
    EXPECT_FALSE(browser.List().LabelEdit().IsVisible());
    EXPECT_EQ(browser.SortMark(1), 0);
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "a.mdl", "A-001.MDL", "表.mdl", "1.mdl", "ソ.mdl"}));
  });
}

TEST_F(BrowserOperationsTest, TheKeysOfAreasGiveTheName) {
  Run([](Browser& browser) {
    TypeLabel(browser, "b.mdl", "a.mdl");
    browser.Person().Key('N', {VK_MENU});
    ExpectRefusal(browser, ThereIs("a.mdl"), "");
    EXPECT_EQ(driver::VisibleWindows(GetCurrentProcessId()).size(), 1U) << "no dialog behind the message";
    TypeLabel(browser, "b.mdl", "1.mdl");
    browser.Person().Key('N', {VK_MENU});
    const Window dialog = WaitNameDialog(browser, kCreateTitle);
    EXPECT_TRUE(Exists("C:\\data\\1.mdl"));
    browser.Person().Key(VK_ESCAPE);
    WaitClosed(browser, dialog);
  });
}

TEST_F(BrowserOperationsTest, ADoubleClickThatGivesANameOpensNothing) {
  Run([](Browser& browser) {
    for (const char* row : {"a.mdl", "ソ.mdl", "Sub"}) {
      SCOPED_TRACE(row);
      TypeLabel(browser, "b.mdl", "zz.mdl");
      browser.OpenRow(row);
      browser.Person().Settle();
      ASSERT_TRUE(browser.IsOpen());
      EXPECT_EQ(browser.Trail(), Texts{"data"});
      EXPECT_EQ(browser.SelectedNames(), Texts{"zz.mdl"});
      TypeLabel(browser, "zz.mdl", "b.mdl");
      browser.Person().Key(VK_RETURN);
      browser.Person().Settle();
    }
    browser.OpenRow("Sub");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"}) << "the next one does";
  });
}

TEST_F(BrowserOperationsTest, APressThatEndsAnEditWithoutANewNameDoesItsWork) {
  const Outcome outcome = Run([](Browser& browser) {
    EditLabel(browser, "a.mdl");
    browser.OpenRow("Sub");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    browser.Up();
    TypeLabel(browser, "a.mdl", "");
    browser.ClickRow("表.mdl");
    EXPECT_EQ(browser.SelectedNames(), Texts{"表.mdl"}) << "an empty name is none";
    EXPECT_EQ(browser.Name(), "表.mdl");
    EditLabel(browser, "a.mdl");
    const MenuView menu = OpenMenu(browser, "ソ.mdl");
    EXPECT_EQ(browser.SelectedNames(), Texts{"ソ.mdl"});
    CloseMenu(browser, menu);
    browser.ClickRow("a.mdl");
    browser.ClickRow("a.mdl");
    EXPECT_EQ(WaitLabelEdit(browser).Text(), "a.mdl");
    browser.OpenRow("b.mdl");
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
  EXPECT_EQ(World().calls.Count("files.Rename"), 0U);
}

TEST_F(BrowserOperationsTest, AShiftPressThatEndsAnEditSelectsTheRowsBetween) {
  SelectSeveral();
  Run([](Browser& browser) {
    browser.ClickRow("Sub");
    browser.ClickRow("Sub");
    EXPECT_EQ(WaitLabelEdit(browser).Text(), "Sub");
    browser.ClickRow("b.mdl", {VK_SHIFT});
    EXPECT_EQ(browser.SelectedNames(), (Texts{"Sub", "表示", "a.mdl", "A-001.MDL", "b.mdl"}));
    EXPECT_EQ(browser.Name(), "a.mdl A-001.MDL b.mdl");
  });
}

TEST_F(BrowserOperationsTest, ADoubleClickBesideTheRowsThatEndsAnEditIsNotOk) {
  Run([](Browser& browser) {
    const RECT list = browser.List().ScreenRect();
    const POINT beside = {list.left + 60, list.bottom - 6};
    EditLabel(browser, "a.mdl");
    browser.Person().DoubleClick(beside);
    browser.Person().Settle();
    ASSERT_TRUE(browser.IsOpen()) << "the name is as before";
    TypeLabel(browser, "a.mdl", "zz.mdl");
    browser.Person().DoubleClick(beside);
    browser.Person().Settle();
    ASSERT_TRUE(browser.IsOpen());
    EXPECT_TRUE(Exists("C:\\data\\zz.mdl"));
    TypeLabel(browser, "zz.mdl", "b.mdl");
    browser.Person().DoubleClick(beside);
    ExpectRefusal(browser, ThereIs("b.mdl"), "");
    ASSERT_TRUE(browser.IsOpen());
    browser.TypeName("b.mdl");
    browser.Person().DoubleClick(beside);
    browser.Person().WaitGone(browser.Window());
  });
}

TEST_F(BrowserOperationsTest, AChangeOfLetterCaseThatStopsHalfWayIsSeenInTheList) {
  const auto strand = [] {
    World().calls.Watch([](const std::string& call) {
      if (call == "files.Rename") World().files.Move("C:\\data\\b.mdl", "C:\\data\\B~0.mdl");
    });
    World().calls.FailNext("files.Rename", 17);
  };
  Run([&](Browser& browser) {
    strand();
    GiveLabel(browser, "b.mdl", "B.mdl");
    ExpectRefusal(browser, ThereIs("B.mdl"), "");
    World().calls.Watch({});
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "a.mdl", "A-001.MDL", "B~0.mdl", "ソ.mdl", "表.mdl"}));
    GiveLabel(browser, "B~0.mdl", "b.mdl");
    const Window dialog = OpenRename(browser, "b.mdl");
    strand();
    Give(browser, dialog, "B.mdl");
    ExpectRefusal(browser, "名前に誤りがあります\n\nC:\\data\\B.mdl", kRenameCaption);
    World().calls.Watch({});
    browser.Person().Key(VK_ESCAPE);
    WaitClosed(browser, dialog);
    EXPECT_EQ(browser.List().FindRow("b.mdl"), -1);
    EXPECT_NE(browser.List().FindRow("B~0.mdl"), -1);
  });
}

TEST_F(BrowserOperationsTest, ARefusedChangeOfLetterCaseKeepsTheSelection) {
  Run([](Browser& browser) {
    World().calls.FailNext("files.Rename", 13);
    GiveLabel(browser, "b.mdl", "B.mdl");
    ExpectRefusal(browser, ThereIs("B.mdl"), "");
    EXPECT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
    EXPECT_EQ(browser.Name(), "b.mdl");
  });
}

TEST_F(BrowserOperationsTest, ARightPressThatGivesANameOpensNoMenu) {
  Run([](Browser& browser) {
    TypeLabel(browser, "b.mdl", "zz.mdl");
    browser.Person().RightClick(RowPoint(browser, "a.mdl"));
    browser.Person().Settle();
    EXPECT_FALSE(browser.Person().Sees("#32768")) << "it would be about another entry than the one below the pointer";
    EXPECT_EQ(browser.SelectedNames(), Texts{"zz.mdl"});
    CloseMenu(browser, OpenMenu(browser, "a.mdl"));
    EXPECT_EQ(browser.SelectedNames(), Texts{"a.mdl"});
  });
}

TEST_F(BrowserOperationsTest, EachRefusalOfAnEditedNameHasItsText) {
  struct Case {
    int error;
    const char* name;
    const char* text;
  };
  const Case cases[] = {
      {0, "a*.mdl", "名前に無効な文字が含まれています"},
      {22, "x.mdl", "名前に無効な文字が含まれています"},
      {2, "x.mdl", "変更前のパスが存在しません\n\nC:\\data\\b.mdl"},
      {13, "x.mdl", "指定したファイルまたはディレクトリが既に存在するか、パスが無効です\n\nC:\\data\\x.mdl"},
      {0, "A.MDL", "指定したファイルまたはディレクトリが既に存在するか、パスが無効です\n\nC:\\data\\A.MDL"},
  };
  Run([&](Browser& browser) {
    for (const Case& row : cases) {
      SCOPED_TRACE(row.error);
      if (row.error != 0) World().calls.FailNext("files.Rename", static_cast<std::uint32_t>(row.error));
      TypeLabel(browser, "b.mdl", row.name);
      TakeListings();
      browser.Person().Key(VK_RETURN);
      ExpectRefusal(browser, row.text, "");
      EXPECT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
      EXPECT_TRUE(Exists("C:\\data\\b.mdl"));
      EXPECT_EQ(TakeListings(), 0U);
      browser.Person().WaitUntil("the edit box is gone", [&] { return !browser.List().LabelEdit().IsVisible(); });
    }
    World().files.Remove("C:\\data\\b.mdl");
    TypeLabel(browser, "b.mdl", "x.mdl");
    browser.Person().Key(VK_RETURN);
    ExpectRefusal(browser, "変更前のパスが存在しません\n\nC:\\data\\b.mdl", "");
  });
}

TEST_F(BrowserOperationsTest, DrivesHaveNoNamesToEdit) {
  Run([](Browser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    browser.List().Send(LVM_EDITLABELA, 0);
    browser.Person().Settle();
    EXPECT_FALSE(browser.List().LabelEdit().IsVisible());
    browser.Back();
    browser.List().Send(LVM_EDITLABELA, 0);
    browser.Person().Settle();
    EXPECT_TRUE(browser.List().LabelEdit().IsVisible());
    browser.Person().Key(VK_ESCAPE);
  });
}

TEST_F(BrowserOperationsTest, EachViewEditsNames) {
  Run([](Browser& browser) {
    std::string former = "b.mdl";
    for (const char* view : {"大きいアイコン", "小さいアイコン", "一覧表示", "詳細表示"}) {
      SCOPED_TRACE(view);
      browser.ChooseView(view);
      const std::string name = former == "b.mdl" ? "q.mdl" : "b.mdl";
      TypeLabel(browser, former, name);
      browser.Person().Key(VK_RETURN);
      browser.Person().Settle();
      EXPECT_TRUE(Exists("C:\\data\\" + name));
      EXPECT_EQ(browser.SelectedNames(), Texts{name});
      former = name;
    }
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// failures of the platform

/// An operation that makes `after` out of `before`, or one of them when the other is empty.
struct Operation {
  const char* name;
  void (*act)(Browser&);
  std::string before;
  std::string after;
  const char* call;     ///< does it
  const char* caption;  ///< of what refuses it
  std::string refusal;  ///< empty: the platform reports by itself
};

class FailingCallsTest : public BrowserOperationsTest {
 protected:
  static std::vector<Operation> Operations() {
    return {
        {"new folder", [](Browser& browser) { Give(browser, OpenCreate(browser), "new"); }, "", "C:\\data\\new",
         "files.CreateFolder", kCreateCaption, "フォルダ名に誤りがあります\n\nC:\\data\\new"},
        {"rename", [](Browser& browser) { Give(browser, OpenRename(browser, "b.mdl"), "z.mdl"); }, "C:\\data\\b.mdl",
         "C:\\data\\z.mdl", "files.Rename", kRenameCaption, "名前に誤りがあります\n\nC:\\data\\z.mdl"},
        {"a name given in the list", [](Browser& browser) { GiveLabel(browser, "b.mdl", "z.mdl"); }, "C:\\data\\b.mdl",
         "C:\\data\\z.mdl", "files.Rename", "", ThereIs("z.mdl")},
        {"delete", [](Browser& browser) { Delete(browser, "b.mdl"); }, "C:\\data\\b.mdl", "",
         "shell.DeleteToRecycleBin", "", ""}};
  }
  static void Delete(Browser& browser, const std::string& name) {
    browser.ClickRow(name);
    browser.Person().Key(VK_DELETE);
    browser.Person().Settle();
  }

  /// The calls that the last operation made, once each.
  static Texts CallsMade() {
    Texts names;
    for (const std::string& line : World().calls.Log()) names.push_back(line.substr(0, line.find(' ')));
    if (World().calls.Count("files.Next") > 0) names.emplace_back("files.Next");
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
  }
  /// Makes everything as it was, and lists it.
  static void Restore(Browser& browser) {
    World().files.Remove("C:\\data\\new");
    World().files.Remove("C:\\data\\z.mdl");
    World().files.AddFile("C:\\data\\b.mdl", "b");
    browser.ChooseView("詳細表示");
    World().calls.ClearLog();
  }
  static void ExpectState(const Operation& operation, bool isDone) {
    EXPECT_EQ(Exists(operation.before), !isDone && !operation.before.empty());
    EXPECT_EQ(Exists(operation.after), isDone && !operation.after.empty());
  }
  /// Has one call fail during an operation.
  static void Fail(Browser& browser, const Operation& operation, const std::string& call) {
    SCOPED_TRACE(std::string(operation.name) + ": " + call);
    Restore(browser);
    constexpr int kNoSpace = 28;
    World().calls.FailNext(call, kNoSpace);
    operation.act(browser);
    // What stands beside the names is read in the background.
    browser.Person().WaitUntil("the call has failed", [] { return !World().calls.FaultPending(); });
    const bool isRefused = call == operation.call;
    ExpectState(operation, !isRefused);
    if (isRefused && !operation.refusal.empty()) {
      ExpectRefusal(browser, operation.refusal, operation.caption);
      if (driver::VisibleWindows(GetCurrentProcessId()).size() > 1) browser.Person().Key(VK_ESCAPE);
    }
    browser.Person().Settle();
    EXPECT_TRUE(Beeps().empty());
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_TRUE(browser.List().HasFocus());
    EXPECT_EQ(driver::VisibleWindows(GetCurrentProcessId()).size(), 1U);
  }
};

TEST_F(FailingCallsTest, EveryCallOfAnOperationMayFail) {
  Run([](Browser& browser) {
    for (const Operation& operation : Operations()) {
      Restore(browser);
      operation.act(browser);
      ExpectState(operation, true);
      Texts calls = {"files.LocalTime", "files.Next", "files.OpenFolder", "files.Status", operation.call};
      std::sort(calls.begin(), calls.end());
      browser.Person().WaitUntil("the rows are described", [&] { return CallsMade().size() >= calls.size(); });
      EXPECT_EQ(CallsMade(), calls) << "no other call is made: " << operation.name;
      for (const std::string& call : calls) Fail(browser, operation, call);
    }
  });
}

}  // namespace
}  // namespace browser_test
