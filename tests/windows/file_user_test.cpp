// The logon dialog as a user meets it, and what is left of it afterwards.
#include "dlglib/filedialog/CvFileUser.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "dlglib/resources/resource.h"
#include "tests/windows/driver/user.h"

namespace {

using driver::User;
using driver::Window;

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
    SetWindowTextA(window.Child(IDC_USER_NAME).Handle(), longText.c_str());
    SetWindowTextA(window.Child(IDC_USER_PASSWORD).Handle(), longText.c_str());
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

}  // namespace
