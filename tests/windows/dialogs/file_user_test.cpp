// The logon dialog as a user meets it, and what is left of it afterwards.
#include "dlglib/filedialog/dialogs/CvFileUser.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "dlglib/filedialog/listing/folder_listing.h"
#include "dlglib/filedialog/place/network_logon.h"
#include "dlglib/resources/resource.h"
#include "platform/os/os_scripted.h"
#include "platform/os/sjis_wide.h"
#include "platform/suite/crvncontrol.h"
#include "tests/windows/driver/user.h"

namespace {

using driver::User;
using driver::Window;
using os::scripted::World;

constexpr char kTitle[] = "パスワード";
constexpr char kPath[] = "\\\\SERVER\\設計 表";

std::string Repeat(const std::string& text, int count) {
  std::string repeated;
  for (; count > 0; --count) repeated += text;
  return repeated;
}

class FileUserTest : public testing::Test {
 protected:
  /// Runs the dialog; `act` plays the user and has to end it.
  template <class Act>
  INT_PTR Run(const Act& act) {
    INT_PTR result = -1;
    driver::RunDialog([&] { result = dialog_.DoModal(); },
                      [&](User& user) {
                        const Window window = user.WaitDialog(kTitle);
                        user.WaitUntil("the user name has the focus",
                                       [&] { return window.Child(IDC_USER_NAME).HasFocus(); });
                        act(user, window);
                      });
    return result;
  }

  CvFileUser dialog_{nullptr, kPath};
};

TEST_F(FileUserTest, ShowsThePathAndTwoEmptyBoxes) {
  Run([](User& user, const Window& window) {
    EXPECT_EQ(window.Child(IDC_USER_PATH).Text(), kPath);
    EXPECT_NE(window.Child(IDC_USER_PATH).Style() & ES_READONLY, 0U);
    EXPECT_EQ(window.Child(IDC_USER_PATH).Style() & WS_TABSTOP, 0U);
    for (const int id : {IDC_USER_NAME, IDC_USER_PASSWORD}) {
      EXPECT_EQ(window.Child(id).Text(), "");
      EXPECT_EQ(window.Child(id).Send(EM_GETLIMITTEXT), 64);
    }
    EXPECT_NE(window.Child(IDC_USER_PASSWORD).Style() & ES_PASSWORD, 0U);
    EXPECT_EQ(window.Child(IDOK).Text(), "OK");
    EXPECT_EQ(window.Child(IDCANCEL).Text(), "キャンセル");
    user.Click(window.Child(IDCANCEL));
  });
}

TEST_F(FileUserTest, OkGivesWhatWasTyped) {
  const INT_PTR result = Run([](User& user, const Window& window) {
    user.Type("設計 taro");
    user.Key(VK_TAB);
    user.Type("pass表");
    user.Click(window.Child(IDOK));
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(dialog_.UserName(), "設計 taro");
  EXPECT_EQ(dialog_.Password(), "pass表");
}

TEST_F(FileUserTest, EnterIsOkAndNothingHasToBeTyped) {
  EXPECT_EQ(Run([](User& user, const Window&) { user.Key(VK_RETURN); }), IDOK);
  EXPECT_EQ(dialog_.UserName(), "");
  EXPECT_EQ(dialog_.Password(), "");
}

TEST_F(FileUserTest, EscGivesNothing) {
  const INT_PTR result = Run([](User& user, const Window&) {
    user.Type("taro");
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_EQ(dialog_.UserName(), "");
}

TEST_F(FileUserTest, TheCloseBoxCancels) {
  EXPECT_EQ(Run([](User& user, const Window&) { user.Key(VK_F4, {VK_MENU}); }), IDCANCEL);
}

TEST_F(FileUserTest, AFurtherRunKeepsTheUserNameAndWantsThePasswordAnew) {
  Run([](User& user, const Window&) {
    user.Type("taro");
    user.Key(VK_TAB);
    user.Type("wrong");
    user.Key(VK_RETURN);
  });
  const INT_PTR result = Run([](User& user, const Window& window) {
    EXPECT_EQ(window.Child(IDC_USER_NAME).Text(), "taro");
    EXPECT_EQ(window.Child(IDC_USER_PASSWORD).Text(), "");
    user.Type("hanako");  // the former name is selected, so typing replaces it
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(dialog_.UserName(), "hanako");
  EXPECT_EQ(dialog_.Password(), "");
}

TEST_F(FileUserTest, ACancelledRunForgetsThePassword) {
  Run([](User& user, const Window&) {
    user.Key(VK_TAB);
    user.Type("secret");
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(dialog_.Password(), "secret");
  EXPECT_EQ(Run([](User& user, const Window&) { user.Key(VK_ESCAPE); }), IDCANCEL);
  EXPECT_EQ(dialog_.Password(), "");
}

TEST_F(FileUserTest, TypingStopsAt64Characters) {
  Run([](User& user, const Window&) {
    user.Type(Repeat("a", 70));
    user.Key(VK_TAB);
    user.Paste(Repeat("表", 70));
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(dialog_.UserName(), Repeat("a", 64));
  EXPECT_EQ(dialog_.Password(), Repeat("表", 64));
}

TEST_F(FileUserTest, ATextThatAProgramSetsIsCutAtACharacter) {
  Run([](User& user, const Window& window) {
    const std::string longText = "a" + Repeat("表", 150);
    SetWindowTextW(window.Child(IDC_USER_NAME).Handle(), os::WideOf(longText).c_str());
    SetWindowTextW(window.Child(IDC_USER_PASSWORD).Handle(), os::WideOf(longText).c_str());
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(dialog_.UserName(), "a" + Repeat("表", 63));
  EXPECT_EQ(dialog_.Password(), "a" + Repeat("表", 63));
}

TEST_F(FileUserTest, APathOfAnyLengthIsShown) {
  const std::string path = "\\\\SERVER\\" + Repeat("表ソ", 100);
  CvFileUser dialog(nullptr, path);
  driver::RunDialog([&] { dialog.DoModal(); },
                    [&](User& user) {
                      EXPECT_EQ(user.WaitDialog(kTitle).Child(IDC_USER_PATH).Text(), path);
                      user.Key(VK_ESCAPE);
                    });
}

// ---- the logon to a folder of a scripted network

class FolderLogonTest : public testing::Test, public filedialog::NetworkLogon {
 protected:
  FolderLogonTest() {
    World().Reset();
    share_.remoteName = kPath;
    share_.displayType = os::kNetDisplayShare;
    World().network.onConnected = [](const os::NetResource&) {
      World().files.AddFile(std::string(kPath) + "\\図面.mdl");
    };
  }
  ~FolderLogonTest() override { World().Reset(); }

  filedialog::Reply<std::optional<filedialog::Credentials>> Ask(const std::string& path,
                                                                const std::string& userName) override {
    CvFileUser dialog(nullptr, path);
    dialog.SetUserName(userName);
    if (dialog.DoModal() != IDOK) return std::optional<filedialog::Credentials>();
    return std::optional(filedialog::Credentials{dialog.UserName(), dialog.Password()});
  }

  /// Logs on and lists; `act` plays the user.
  filedialog::EntryTable List(const std::function<void(User&)>& act) {
    filedialog::EntryTable table;
    filedialog::FileKind kind;
    kind.pattern = "*.mdl";
    driver::RunDialog(
        [&] {
          static_cast<void>(
              filedialog::LogOnBeforeListing(*os::Services().files, *os::Services().network, kPath, &share_, *this));
          filedialog::ListFolder(*os::Services().files, {kPath, kind, filedialog::FinderMode::FilesAndFolders}, &table);
        },
        act);
    return table;
  }

  /// Waits for the dialog, types a password behind the user name it shows, and presses OK.
  static void Submit(User& user, const std::string& shownName, const std::string& password) {
    const Window window = user.WaitDialog(kTitle);
    user.WaitUntil("the user name has the focus", [&] { return window.Child(IDC_USER_NAME).HasFocus(); });
    EXPECT_EQ(window.Child(IDC_USER_PATH).Text(), kPath);
    EXPECT_EQ(window.Child(IDC_USER_NAME).Text(), shownName);
    if (shownName.empty()) user.Type("taro");
    user.Key(VK_TAB);
    user.Type(password);
    user.Key(VK_RETURN);
    user.WaitGone(window);
  }

  os::NetResource share_;
};

TEST_F(FolderLogonTest, RefusedTwiceThenAcceptedListsTheFolder) {
  World().network.connectResults = {86, 1326, 0};
  const filedialog::EntryTable table = List([](User& user) {
    Submit(user, "", "wrong");
    Submit(user, "taro", "wrong again");
    Submit(user, "taro", "表right");
  });
  ASSERT_EQ(World().network.connections.size(), 3U);
  EXPECT_EQ(World().network.connections[0].password, "wrong");
  EXPECT_EQ(World().network.connections[2].userName, "taro");
  EXPECT_EQ(World().network.connections[2].password, "表right");
  EXPECT_EQ(World().network.connections[2].resource.remoteName, kPath);
  ASSERT_EQ(table.size(), 1U);
  EXPECT_EQ(table.rows()[0].name, "図面.mdl");
}

TEST_F(FolderLogonTest, CancelledListsWhatCanBeRead) {
  World().network.connectResults = {86};
  const filedialog::EntryTable table = List([](User& user) {
    Submit(user, "", "wrong");
    const Window window = user.WaitDialog(kTitle);
    user.Click(window.Child(IDCANCEL));
  });
  EXPECT_EQ(World().network.connections.size(), 1U);
  EXPECT_EQ(table.size(), 0U);
}

TEST_F(FolderLogonTest, AFolderThatCanBeReadShowsNoDialog) {
  World().files.AddFile(std::string(kPath) + "\\a.mdl");
  EXPECT_EQ(List([](User&) {}).size(), 1U);
  EXPECT_TRUE(World().network.connections.empty());
}

}  // namespace
