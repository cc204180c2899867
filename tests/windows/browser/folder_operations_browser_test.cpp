// The browser on real files: what a user does to the entries of a folder, and what cannot be done.
#include <windows.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/resources/resource.h"
#include "platform/os/sjis_wide.h"
#include "platform/suite/crvncontrol.h"
#include "tests/os/call_watch.h"
#include "tests/windows/browser/browser_view.h"
#include "tests/windows/support/real_folder.h"

namespace {

using browser_test::Browser;
using browser_test::Texts;
using driver::MessageBoxView;
using driver::User;
using driver::Window;
using real_folder::Opened;

constexpr char kLayoutKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #OPERATIONS#";

class RealBrowser : public real_folder::RealFolder {
 protected:
  RealBrowser() {
    CwSession::Reset();
    CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType("#OPERATIONS#", "C:/", "*.MDL", 0));
    RegDeleteKeyW(HKEY_CURRENT_USER, os::WideOf(kLayoutKey).c_str());
  }
  ~RealBrowser() override {
    RegDeleteKeyW(HKEY_CURRENT_USER, os::WideOf(kLayoutKey).c_str());
    CwSession::Reset();
  }

  void Run(const std::function<void(Browser&)>& script) {
    std::vector<char> buffer(1000);
    filedialog::StartUp startUp;
    startUp.fileBuffer = buffer.data();
    startUp.capacity = buffer.size();
    startUp.initialFolder = folder_;
    startUp.title = "#OPERATIONS#(*.MDL)";
    startUp.caption = browser_test::kCaption;
    startUp.listStyle = filedialog::kListMultiple;
    driver::RunDialog(
        [&] {
          CvFileDialog browser(nullptr, startUp);
          browser.DoModal();
        },
        [&](User& user) {
          Browser browser(user);
          script(browser);
          browser.Cancel();
        });
  }

  // ---- the dialog for a name
  static Window WaitNameDialog(const Browser& browser, const std::string& title) {
    const Window dialog = browser.Person().WaitDialog(title);
    browser.Person().WaitUntil("the name has the focus", [&] { return dialog.Child(IDC_FOLDER_NAME).HasFocus(); });
    return dialog;
  }
  static Window OpenCreate(const Browser& browser) {
    browser.Person().Click(driver::Center(browser.Window().Child(IDC_CREATE_FOLDER).ScreenRect()));
    return WaitNameDialog(browser, "新しいフォルダの作成");
  }
  static Window OpenRename(Browser& browser, const std::string& name) {
    browser.ClickRow(name);
    browser.Person().Key(VK_F2);
    return WaitNameDialog(browser, "名前の変更");
  }
  static void Give(const Browser& browser, const std::string& name) {
    browser.Person().Type(name);
    browser.Person().Key(VK_RETURN);
    browser.Rest();
  }
  static void Close(const Browser& browser, const Window& dialog) {
    if (dialog.IsVisible()) browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitGone(dialog);
    browser.Rest();
  }
  static void ExpectRefusal(const Browser& browser, const std::string& text, const std::string& caption) {
    const MessageBoxView box = browser.Person().WaitMessageBox();
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.caption, caption);
    EXPECT_EQ(box.icon, UINT{MB_ICONHAND});
    browser.Person().Key(VK_RETURN);
    browser.Person().WaitGone(box.window);
    browser.Rest();
  }

  // ---- a name edited in the list
  static void GiveLabel(Browser& browser, const std::string& name, const std::string& text) {
    if (browser.SelectedNames() != Texts{name}) browser.ClickRow(name);
    browser.List().Send(LVM_EDITLABELW, static_cast<WPARAM>(browser.List().FindRow(name)));
    browser.Person().WaitUntil("the name can be edited", [&] {
      const Window edit = browser.List().LabelEdit();
      return edit && edit.IsVisible() && edit.HasFocus();
    });
    Give(browser, text);
  }

  // ---- the platform's confirmation
  static Window FindQuestion(const Browser& browser) {
    for (const Window& window : driver::VisibleWindows(GetCurrentProcessId())) {
      if (window != browser.Window() && window.IsEnabled() && window.FindChild(IDYES)) return window;
    }
    return {};
  }
  static Window WaitQuestion(const Browser& browser) {
    Window found;
    browser.Person().WaitUntil("the platform asks", [&] { return static_cast<bool>(found = FindQuestion(browser)); });
    return found;
  }
  static void AnswerQuestion(const Browser& browser, int button) {
    const Window question = WaitQuestion(browser);
    browser.Person().Click(question.Child(button));
    browser.Person().WaitGone(question);
    browser.Rest();
  }
  /// Says yes, also when the platform asks once more about what its recycle bin does not take.
  static void AgreeUntil(const Browser& browser, const std::string& what, const std::function<bool()>& done) {
    AnswerQuestion(browser, IDYES);
    browser.Person().WaitUntil(what, [&] {
      if (FindQuestion(browser)) AnswerQuestion(browser, IDYES);
      return done();
    });
  }
};

TEST_F(RealBrowser, AFolderIsManagedFromInsideIt) {
  Touch("a.mdl", "a");
  Touch("b.mdl", "b");
  Run([this](Browser& browser) {
    Window dialog = OpenCreate(browser);
    Give(browser, "図面 表");
    Close(browser, dialog);
    EXPECT_EQ(browser.SelectedNames(), Texts{"図面 表"});
    dialog = OpenRename(browser, "図面 表");
    Give(browser, "ソ");
    Close(browser, dialog);
    GiveLabel(browser, "a.mdl", "A.MDL");
    EXPECT_EQ(browser.SelectedNames(), Texts{"A.MDL"});
    GiveLabel(browser, "b.mdl", "能 1.mdl");
    EXPECT_EQ(browser.SelectedNames(), Texts{"能 1.mdl"});
    EXPECT_EQ(browser.Rows(), (Texts{"ソ", "A.MDL", "能 1.mdl"}));
    EXPECT_EQ(Body("A.MDL"), "a");
    EXPECT_EQ(Body("能 1.mdl"), "b");
    EXPECT_EQ(Names().size(), 3U);
  });
}

TEST_F(RealBrowser, NothingIsDeletedBeforeThePlatformHasAsked) {
  Touch("a.mdl");
  Touch("表.mdl");
  Touch("kept.mdl");
  ASSERT_TRUE(CreateDirectoryW(os::WideOf(Path("sub")).c_str(), nullptr));
  Touch("sub\\deep.mdl");
  Run([this](Browser& browser) {
    browser.ClickRow("sub");
    browser.ClickRow("a.mdl", {VK_CONTROL});
    browser.ClickRow("表.mdl", {VK_CONTROL});
    browser.Person().Key(VK_DELETE);
    AnswerQuestion(browser, IDNO);
    EXPECT_EQ(Names().size(), 4U);
    EXPECT_EQ(browser.Rows(), (Texts{"sub", "a.mdl", "kept.mdl", "表.mdl"}));
    browser.ClickRow("sub");
    browser.ClickRow("a.mdl", {VK_CONTROL});
    browser.ClickRow("表.mdl", {VK_CONTROL});
    browser.Person().Key(VK_DELETE);
    AnswerQuestion(browser, IDYES);
    browser.Person().WaitUntil("the rows are gone", [&] { return browser.List().Count() == 1; });
    EXPECT_EQ(browser.Rows(), Texts{"kept.mdl"});
    EXPECT_TRUE(browser.List().HasFocus());
    EXPECT_EQ(Names(), Texts{"kept.mdl"});
  });
}

TEST_F(RealBrowser, WhatCannotBeRenamedIsSaid) {
  Touch("a.mdl", "a");
  Touch("b.mdl", "b");
  Touch("ro.mdl", "read only");
  SetFileAttributesW(os::WideOf(Path("ro.mdl")).c_str(), FILE_ATTRIBUTE_READONLY);
  ASSERT_TRUE(CreateDirectoryW(os::WideOf(Path("sub")).c_str(), nullptr));
  const std::string invalid = "指定したファイルまたはディレクトリが既に存在するか、パスが無効です\n\n";
  Run([&](Browser& browser) {
    for (const char* used : {"a.mdl", "sub"}) {
      const Opened opened(Path(used), FILE_FLAG_BACKUP_SEMANTICS);
      ASSERT_TRUE(opened);
      const Window dialog = OpenRename(browser, used);
      Give(browser, "other");
      ExpectRefusal(browser, "名前はに存在します\n\n" + Path("other"), "名前変更");
      Close(browser, dialog);
      GiveLabel(browser, used, "other");
      ExpectRefusal(browser, invalid + Path("other"), "");
      EXPECT_EQ(browser.SelectedNames(), Texts{used});
    }
    const Window dialog = OpenRename(browser, "a.mdl");
    Touch("new.mdl", "appeared");
    Give(browser, "new.mdl");
    ExpectRefusal(browser, "名前に誤りがあります\n\n" + Path("new.mdl"), "名前変更");
    Close(browser, dialog);
    EXPECT_EQ(Body("new.mdl"), "appeared");
    GiveLabel(browser, "a.mdl", "new.mdl");
    ExpectRefusal(browser, invalid + Path("new.mdl"), "");
    GiveLabel(browser, "a.mdl", "a*.mdl");
    ExpectRefusal(browser, "名前に無効な文字が含まれています", "");
    GiveLabel(browser, "a.mdl", "con.mdl");
    ExpectRefusal(browser, "名前に無効な文字が含まれています", "");
    EXPECT_EQ(Body("a.mdl"), "a");
    DeleteFileW(os::WideOf(Path("b.mdl")).c_str());
    GiveLabel(browser, "b.mdl", "c.mdl");
    ExpectRefusal(browser, "変更前のパスが存在しません\n\n" + Path("b.mdl"), "");
    GiveLabel(browser, "ro.mdl", "RO.mdl");
    EXPECT_EQ(Body("RO.mdl"), "read only");
    EXPECT_NE(GetFileAttributesW(os::WideOf(Path("RO.mdl")).c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    EXPECT_EQ(browser.Rows(), (Texts{"sub", "a.mdl", "new.mdl", "RO.mdl"})) << "listed as it is now";
  });
}

TEST_F(RealBrowser, WhatCannotBeCreatedIsSaid) {
  Touch("a.mdl", "a");
  Run([this](Browser& browser) {
    const Window dialog = OpenCreate(browser);
    Give(browser, "A.MDL");
    ExpectRefusal(browser, "フォルダは既に存在します\n\n" + Path("A.MDL"), "新しいフォルダ");
    CreateDirectoryW(os::WideOf(Path("new")).c_str(), nullptr);
    Give(browser, "new");
    ExpectRefusal(browser, "フォルダは既に存在します\n\n" + Path("new"), "新しいフォルダ");
    Give(browser, "con");
    ExpectRefusal(browser, "フォルダ名に誤りがあります\n\n" + Path("con"), "新しいフォルダ");
    Close(browser, dialog);
    EXPECT_EQ(Body("a.mdl"), "a");
    EXPECT_EQ(Names().size(), 2U);
  });
}

/// Deletes everything and stops half-way, at b.mdl.
TEST_F(RealBrowser, ADeletionThatStopsHalfWayShowsWhatIsLeft) {
  for (const char* name : {"a.mdl", "b.mdl", "c.mdl"}) Touch(name);
  Run([this](Browser& browser) {
    browser.ClickRow("a.mdl");
    browser.Person().Key(VK_END, {VK_SHIFT});
    const Opened opened(Path("b.mdl"), 0);
    ASSERT_TRUE(opened);
    browser.Person().Key(VK_DELETE);
    AgreeUntil(browser, "the row is gone", [&] { return browser.List().Count() == 2; });
    EXPECT_EQ(Names(), (Texts{"b.mdl", "c.mdl"}));
    EXPECT_EQ(browser.Rows(), (Texts{"b.mdl", "c.mdl"}));
    EXPECT_EQ(browser.SelectedNames(), Texts{});
  });
}

TEST_F(RealBrowser, AnEntryThatVanishedLeavesTheListWhenItIsDeleted) {
  Touch("a.mdl");
  Touch("b.mdl");
  Run([this](Browser& browser) {
    browser.ClickRow("b.mdl");
    DeleteFileW(os::WideOf(Path("b.mdl")).c_str());
    browser.Person().Key(VK_DELETE);
    AgreeUntil(browser, "the row is gone", [&] { return browser.List().Count() == 1; });
    EXPECT_EQ(browser.Rows(), Texts{"a.mdl"});
    EXPECT_TRUE(Exists("a.mdl"));
  });
}

TEST_F(RealBrowser, NothingThatReachesADriveLetsTheSystemAskForADisk) {
  constexpr DWORD kQuiet = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;
  const std::vector<std::string> pumps = {"CallWindowProcW", "CreateDialogIndirectParamW", "DispatchMessageW",
                                          "GetMessageW",     "IsDialogMessageW",           "SendMessageW"};
  std::vector<std::string> calls = os_test::DriveCalls();
  calls.insert(calls.end(), pumps.begin(), pumps.end());
  CreateDirectoryW(os::WideOf(Path("sub")).c_str(), nullptr);
  Touch("a.mdl", "a");
  ASSERT_EQ(GetThreadErrorMode(), 0U);
  const os_test::CallWatch watch(calls, os_test::Threads::All);
  Run([](Browser& browser) {
    Window dialog = OpenCreate(browser);
    Give(browser, "new");
    Close(browser, dialog);
    dialog = OpenRename(browser, "a.mdl");
    Give(browser, "b.mdl");
    Close(browser, dialog);
    browser.OpenRow("sub");
    browser.Up();
    for (int level = 0; level < 20; ++level) browser.Up();  // to the drives, and no further
  });
  EXPECT_EQ(GetThreadErrorMode(), 0U);
  for (const char* name : {"CreateDirectoryW", "FindFirstFileExW", "FindNextFileW", "_wrename", "GetDriveTypeW",
                           "GetVolumeInformationW"}) {
    EXPECT_GT(watch.Calls(name).count, 0U) << name;
  }
  std::string loud;
  for (const std::string& name : os_test::DriveCalls()) {
    if ((watch.Calls(name).always & kQuiet) != kQuiet) loud += name + ' ';
  }
  EXPECT_EQ(loud, "");
  for (const std::string& name : pumps) {
    EXPECT_GT(watch.Calls(name).count, 0U) << name;
    EXPECT_EQ(watch.Calls(name).ever, 0U) << name << " ran in the mode of a call to a drive";
  }
}

}  // namespace
