// The dialog for a new folder and for a new name: as a user meets it, and what it does on a scripted machine.
#include "dlglib/filedialog/dialogs/CvNewFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/resources/resource.h"
#include "platform/os/os_scripted.h"
#include "platform/os/sjis_wide.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/support/hanging_calls.h"

namespace {

using driver::MessageBoxView;
using driver::Picture;
using driver::User;
using driver::Window;
using os::scripted::World;

constexpr char kFolder[] = "C:\\data";

std::string Repeat(const std::string& text, int count) {
  std::string repeated;
  for (; count > 0; --count) repeated += text;
  return repeated;
}

class NewFolderTest : public testing::Test {
 protected:
  using Act = std::function<void(User&, const Window&)>;

  NewFolderTest() {
    World().Reset();
    World().AddDrive('C');
    World().files.AddFile("C:\\data\\a.mdl", "a");
    World().files.AddFile("C:\\data\\b.mdl", "b");
    World().files.AddFolder("C:\\data\\sub");
  }
  ~NewFolderTest() override { World().Reset(); }

  /// Runs the dialog; `act` plays the user and has to end it.
  INT_PTR Run(const Act& act) {
    INT_PTR result = -1;
    driver::RunDialog([&] { result = dialog_.DoModal(); },
                      [&](User& user) {
                        const Window window = user.WaitDialog(title_);
                        WaitForName(user, window);
                        act(user, window);
                      });
    return result;
  }

  static void WaitForName(const User& user, const Window& window) {
    user.WaitUntil("the name has the focus", [&] { return window.Child(IDC_FOLDER_NAME).HasFocus(); });
  }

  void Rename(const char* name, bool isFile) {
    dialog_.SetRename(name, isFile);
    title_ = "名前の変更";
  }

  /// Puts a name into the box at once, as no keyboard could, and presses OK by the keyboard.
  static void Submit(const User& user, const Window& window, const std::string& name) {
    SetWindowTextW(window.Child(IDC_FOLDER_NAME).Handle(), os::WideOf(name).c_str());
    user.Key(VK_RETURN);
  }

  /// Answers the message that a refused name brings, and finds the dialog ready for another.
  static void ExpectRefusal(User& user, const Window& window, const std::string& text, const std::string& caption) {
    const MessageBoxView box = user.WaitMessageBox();
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.caption, caption);
    EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONHAND));
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
    EXPECT_EQ(box.window.Owner().Handle(), window.Handle());
    EXPECT_EQ(World().session.beeps, std::vector<std::uint32_t>{os::kBeepExclamation});
    World().session.beeps.clear();
    const std::string name = window.Child(IDC_FOLDER_NAME).Text();
    user.Key(VK_RETURN);
    user.WaitGone(box.window);
    WaitForName(user, window);
    user.Settle();
    EXPECT_TRUE(window.IsVisible());
    EXPECT_TRUE(window.IsEnabled());
    EXPECT_EQ(window.Child(IDC_FOLDER_NAME).Text(), name);
    EXPECT_EQ(window.Child(IDC_FOLDER_NAME).TextSelection().first, 0);
    EXPECT_EQ(window.Child(IDC_FOLDER_NAME).TextSelection().second != 0, !name.empty());
  }

  /// What the dialog says that it waits for.
  [[nodiscard]] static std::string LineOf(const Window& window) {
    constexpr int kLine = 0xFFFF;
    const Window line = window.FindChild(kLine);
    return line && line.IsVisible() ? line.Text() : std::string();
  }

  [[nodiscard]] static bool Exists(const std::string& name) {
    return World().files.Find(std::string(kFolder) + "\\" + name) != nullptr;
  }

  CvNewFolder dialog_{nullptr, kFolder};
  std::string title_ = "新しいフォルダの作成";
};

// ---- new folder

TEST_F(NewFolderTest, StartsWithAnEmptyNameAndAFolder) {
  Run([](User& user, const Window& window) {
    EXPECT_EQ(window.Child(IDC_FOLDER_NAME).Text(), "");
    EXPECT_EQ(window.Child(IDC_FOLDER_NAME).Send(EM_GETLIMITTEXT), 128);
    EXPECT_EQ(window.Child(IDOK).Text(), "作成");
    EXPECT_EQ(window.Child(IDCANCEL).Text(), "取消");
    EXPECT_NE(window.Child(IDC_FOLDER_ICON).Send(STM_GETICON), 0);
    user.Click(window.Child(IDCANCEL));
  });
}

TEST_F(NewFolderTest, CreateMakesTheFolder) {
  const INT_PTR result = Run([](User& user, const Window& window) {
    user.Type("図面 表");
    user.Click(window.Child(IDOK));
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(dialog_.Name(), "図面 表");
  EXPECT_TRUE(Exists("図面 表"));
  EXPECT_TRUE(World().session.beeps.empty());
}

TEST_F(NewFolderTest, CancelMakesNothing) {
  const Act byEsc = [](User& user, const Window&) {
    user.Type("new");
    user.Key(VK_ESCAPE);
  };
  const Act byCloseBox = [](User& user, const Window&) {
    user.Type("new");
    user.Key(VK_F4, {VK_MENU});
  };
  EXPECT_EQ(Run(byEsc), IDCANCEL);
  EXPECT_EQ(Run(byCloseBox), IDCANCEL);
  EXPECT_FALSE(Exists("new"));
  EXPECT_EQ(World().calls.Total(), 0U);
}

TEST_F(NewFolderTest, AMissingNameIsAskedFor) {
  const INT_PTR result = Run([](User& user, const Window& window) {
    user.Click(window.Child(IDOK));
    ExpectRefusal(user, window, "フォルダ名が入力されていません", "新しいフォルダ");
    user.Type("second try");
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_TRUE(Exists("second try"));
}

TEST_F(NewFolderTest, AFolderThatExistsIsRefusedAndTypingReplacesItsName) {
  const INT_PTR result = Run([](User& user, const Window& window) {
    user.Type("sub");
    user.Click(window.Child(IDOK));
    ExpectRefusal(user, window, "フォルダは既に存在します\n\nC:\\data\\sub", "新しいフォルダ");
    user.Type("SUB");
    user.Key(VK_RETURN);
    ExpectRefusal(user, window, "フォルダは既に存在します\n\nC:\\data\\SUB", "新しいフォルダ");
    user.Type("sub2");
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(dialog_.Name(), "sub2");
  EXPECT_TRUE(Exists("sub2"));
}

TEST_F(NewFolderTest, AFolderThatAppearedMeanwhileIsRefused) {
  Run([](User& user, const Window& window) {
    user.Type("meanwhile");
    World().files.AddFile("C:\\data\\meanwhile\\kept.txt", "kept");
    user.Key(VK_RETURN);
    ExpectRefusal(user, window, "フォルダは既に存在します\n\nC:\\data\\meanwhile", "新しいフォルダ");
    user.Key(VK_ESCAPE);
  });
  EXPECT_TRUE(Exists("meanwhile\\kept.txt"));
}

TEST_F(NewFolderTest, WrongNamesAreRefusedOneAfterTheOther) {
  Run([](User& user, const Window& window) {
    for (const char* name : {"a\\b", "a/b", "a:b", "a*b", "a?b", "a\"b", "a<b", "a>b", "a|b", "CON", "nul.txt", "com1",
                             "a.", "a ", ".."}) {
      Submit(user, window, name);
      ExpectRefusal(user, window, std::string("フォルダ名に誤りがあります\n\nC:\\data\\") + name, "新しいフォルダ");
    }
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(World().calls.Count("files.CreateFolder"), 0U);
}

TEST_F(NewFolderTest, ALongNameIsRefusedWhole) {
  Run([](User& user, const Window& window) {
    for (const std::string& name : {Repeat("n", 129), Repeat("n", 300), Repeat("表", 150)}) {
      Submit(user, window, name);
      ExpectRefusal(user, window, "フォルダ名に誤りがあります\n\nC:\\data\\" + name, "新しいフォルダ");
    }
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(World().calls.Count("files.CreateFolder"), 0U);
}

TEST_F(NewFolderTest, TypingStopsAt128Characters) {
  Run([](User& user, const Window&) {
    user.Paste(Repeat("n", 200));
    user.Key(VK_RETURN);
  });
  EXPECT_TRUE(Exists(Repeat("n", 128)));
}

TEST_F(NewFolderTest, ACharacterThatShiftJisCannotHoldIsWrong) {
  Run([](User& user, const Window& window) {
    SetWindowTextW(window.Child(IDC_FOLDER_NAME).Handle(), L"a\uD55C");
    user.Key(VK_RETURN);
    ExpectRefusal(user, window, "フォルダ名に誤りがあります\n\nC:\\data\\a|", "新しいフォルダ");
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(World().calls.Count("files.CreateFolder"), 0U);
}

TEST_F(NewFolderTest, ACharacterThatShiftJisLacksIsNeitherTypedNorPasted) {
  Run([](User& user, const Window& window) {
    const Window name = window.Child(IDC_FOLDER_NAME);
    std::vector<std::uint32_t>& beeps = World().session.beeps;
    user.Type(L"caf\u00E9\uD55C表");
    EXPECT_EQ(name.Text(), "caf表");
    EXPECT_EQ(beeps.size(), 2U);
    user.Type(L"\U0001F600");
    EXPECT_EQ(name.Text(), "caf表");
    EXPECT_EQ(beeps.size(), 3U) << "one character of two units";
    user.Paste(L"x\u00A5");
    EXPECT_EQ(name.Text(), "caf表") << "not a part of it either, which would be another name";
    EXPECT_EQ(beeps.size(), 4U);
    user.Paste(std::string("ソ"));
    EXPECT_EQ(name.Text(), "caf表ソ");
    EXPECT_EQ(beeps.size(), 4U);
    beeps.clear();
    user.Key(VK_ESCAPE);
  });
}

TEST_F(NewFolderTest, EveryFailureOfThePlatformKeepsTheDialog) {
  Run([](User& user, const Window& window) {
    for (const std::uint32_t error : {3U, 5U, 112U, 123U, 206U}) {
      World().calls.FailNext("files.CreateFolder", error);
      Submit(user, window, "new");
      ExpectRefusal(user, window, "フォルダ名に誤りがあります\n\nC:\\data\\new", "新しいフォルダ");
    }
    user.Key(VK_ESCAPE);
  });
  EXPECT_FALSE(Exists("new"));
}

// ---- rename

TEST_F(NewFolderTest, RenameStartsWithTheSelectedOldName) {
  Rename("a.mdl", true);
  const INT_PTR result = Run([](User& user, const Window& window) {
    EXPECT_EQ(window.Child(IDC_FOLDER_NAME).Text(), "a.mdl");
    EXPECT_EQ(window.Child(IDC_FOLDER_NAME).TextSelection(), std::make_pair(0, 5));
    EXPECT_EQ(window.Child(IDOK).Text(), "変更");
    EXPECT_EQ(window.Child(IDCANCEL).Text(), "取消");
    user.Type("能.mdl");
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(dialog_.Name(), "能.mdl");
  EXPECT_TRUE(Exists("能.mdl"));
  EXPECT_FALSE(Exists("a.mdl"));
}

TEST_F(NewFolderTest, FilesAndFoldersHaveTheirIcons) {
  std::vector<Picture> icons;
  std::vector<SIZE> sizes;
  const auto look = [&](User& user, const Window& window) {
    const RECT rect = window.Child(IDC_FOLDER_ICON).ScreenRect();
    sizes.push_back({rect.right - rect.left, rect.bottom - rect.top});
    icons.push_back(user.Look(rect));
    user.Key(VK_ESCAPE);
  };
  Run(look);
  Rename("sub", false);
  Run(look);
  Rename("a.mdl", true);
  Run(look);
  EXPECT_EQ(icons[0], icons[1]);
  EXPECT_NE(icons[1], icons[2]);
  EXPECT_EQ(sizes[1].cx, sizes[2].cx);
  EXPECT_EQ(sizes[1].cy, sizes[2].cy);
}

TEST_F(NewFolderTest, TheOldNameClosesTheDialogAndRenamesNothing) {
  Rename("sub", false);
  EXPECT_EQ(Run([](User& user, const Window&) { user.Key(VK_RETURN); }), IDOK);
  EXPECT_EQ(World().calls.Total(), 0U);
}

TEST_F(NewFolderTest, ARenameNeedsAName) {
  Rename("a.mdl", true);
  const INT_PTR result = Run([](User& user, const Window& window) {
    user.Key(VK_DELETE);
    user.Key(VK_RETURN);
    ExpectRefusal(user, window, "変更後の名前が入力されていません", "名前変更");
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_TRUE(Exists("a.mdl"));
}

TEST_F(NewFolderTest, LetterCaseAloneIsRenamed) {
  Rename("a.mdl", true);
  Run([](User& user, const Window&) {
    user.Type("A.MDL");
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(World().files.Find("C:\\data\\a.mdl")->name, "A.MDL");
}

TEST_F(NewFolderTest, ARenameNeverReplacesAnEntry) {
  Rename("a.mdl", true);
  Run([](User& user, const Window& window) {
    for (const char* name : {"b.mdl", "sub"}) {
      Submit(user, window, name);
      ExpectRefusal(user, window, std::string("名前に誤りがあります\n\nC:\\data\\") + name, "名前変更");
    }
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(World().files.Find("C:\\data\\a.mdl")->bytes, "a");
  EXPECT_EQ(World().files.Find("C:\\data\\b.mdl")->bytes, "b");
}

TEST_F(NewFolderTest, AnEntryInUseHasItsOwnText) {
  Rename("sub", false);
  const INT_PTR result = Run([](User& user, const Window& window) {
    World().calls.FailNext("files.Rename", 13);
    Submit(user, window, "other");
    ExpectRefusal(user, window, "名前はに存在します\n\nC:\\data\\other", "名前変更");
    user.Key(VK_RETURN);  // the name is still there; this time it is not in use
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_TRUE(Exists("other"));
}

TEST_F(NewFolderTest, WrongNewNamesAreRefused) {
  Rename("a.mdl", true);
  Run([](User& user, const Window& window) {
    for (const std::string& name : {std::string("sub\\a.mdl"), std::string("a*"), std::string("a.mdl."),
                                    std::string("a.mdl "), Repeat("表", 129)}) {
      Submit(user, window, name);
      ExpectRefusal(user, window, "名前に誤りがあります\n\nC:\\data\\" + name, "名前変更");
    }
    EXPECT_EQ(World().calls.Count("files.Rename"), 0U);
    Submit(user, window, "PRN.mdl");
    ExpectRefusal(user, window, "名前に誤りがあります\n\nC:\\data\\PRN.mdl", "名前変更");
    user.Key(VK_ESCAPE);
  });
  EXPECT_TRUE(Exists("a.mdl"));
}

TEST_F(NewFolderTest, EveryFailureOfARenameKeepsTheDialog) {
  Rename("a.mdl", true);
  Run([](User& user, const Window& window) {
    for (const std::uint32_t error : {1U, 2U, 17U, 18U, 22U, 28U}) {
      World().calls.FailNext("files.Rename", error);
      Submit(user, window, "c.mdl");
      ExpectRefusal(user, window, "名前に誤りがあります\n\nC:\\data\\c.mdl", "名前変更");
    }
    user.Key(VK_ESCAPE);
  });
  EXPECT_TRUE(Exists("a.mdl"));
}

TEST_F(NewFolderTest, AnEntryThatVanishedCannotBeRenamed) {
  Rename("a.mdl", true);
  Run([](User& user, const Window& window) {
    World().files.Remove("C:\\data\\a.mdl");
    Submit(user, window, "c.mdl");
    ExpectRefusal(user, window, "名前に誤りがあります\n\nC:\\data\\c.mdl", "名前変更");
    user.Key(VK_ESCAPE);
  });
  EXPECT_FALSE(Exists("c.mdl"));
}

// ---- a device that does not answer

TEST_F(NewFolderTest, EscGivesUpAFolderThatIsNotMadeAndTheDialogStays) {
  const driver::HangingCalls hanging("files.CreateFolder");
  EXPECT_EQ(Run([&](User& user, const Window& window) {
              Submit(user, window, "new");
              user.WaitUntil("the call hangs", [&] { return hanging.Now() == 1; });
              user.WaitUntil("a line says so", [&] { return LineOf(window) == "作成中…　Esc で中止"; });
              user.Key(VK_ESCAPE);
              user.WaitUntil("the line is gone", [&] { return LineOf(window).empty(); });
              WaitForName(user, window);
              user.Settle();
              EXPECT_TRUE(window.IsVisible());
              user.Key(VK_ESCAPE);
            }),
            IDCANCEL);
}

TEST_F(NewFolderTest, CancelEndsItWhileTheDeviceDoesNotAnswer) {
  const driver::HangingCalls hanging("files.Rename");
  Rename("a.mdl", true);
  EXPECT_EQ(Run([&](User& user, const Window& window) {
              Submit(user, window, "c.mdl");
              user.WaitUntil("the call hangs", [&] { return hanging.Now() == 1; });
              user.WaitUntil("a line says so", [&] { return LineOf(window) == "名前の変更中…　Esc で中止"; });
              user.Click(window.Child(IDCANCEL));
            }),
            IDCANCEL);
  EXPECT_TRUE(dialog_.HasStranded()) << "it may still happen";
}

/// Gives the making of a folder up, and lets the device answer then.
void AnswerTooLate(User& user, const Window& window, driver::HangingCalls& hanging) {
  user.WaitUntil("the call hangs", [&] { return hanging.Now() == 1; });
  user.Key(VK_ESCAPE);
  user.WaitUntil("it was given up", [&] { return window.Child(IDC_FOLDER_NAME).TextSelection().second > 0; });
  hanging.LetGo();
  user.WaitUntil("the device answers", [] { return World().calls.Count("files.CreateFolder") == 1; });
  user.Settle();
}

TEST_F(NewFolderTest, AFailureThatComesTooLateSaysNothing) {
  World().calls.FailNext("files.CreateFolder", 5);
  driver::HangingCalls hanging("files.CreateFolder");
  Run([&](User& user, const Window& window) {
    Submit(user, window, "new");
    AnswerTooLate(user, window, hanging);
    EXPECT_TRUE(window.IsEnabled()) << "no box stands above it";
    EXPECT_EQ(World().session.beeps, std::vector<std::uint32_t>{});
    EXPECT_EQ(window.Child(IDC_FOLDER_NAME).Text(), "new");
    user.Key(VK_ESCAPE);
  });
  EXPECT_FALSE(Exists("new"));
}

TEST_F(NewFolderTest, AFolderThatIsMadeTooLateIsThereForTheNextTry) {
  driver::HangingCalls hanging("files.CreateFolder");
  EXPECT_EQ(Run([&](User& user, const Window& window) {
              Submit(user, window, "new");
              AnswerTooLate(user, window, hanging);
              user.WaitUntil("it is there", [] { return Exists("new"); });
              Submit(user, window, "new");
              ExpectRefusal(user, window, "フォルダは既に存在します\n\nC:\\data\\new", "新しいフォルダ");
              user.Key(VK_ESCAPE);
            }),
            IDCANCEL);
}

// ---- many runs

TEST_F(NewFolderTest, ManyRunsLeaveNothingBehind) {
  Rename("a.mdl", true);
  const auto runOnce = [this] { Run([](User& user, const Window&) { user.Key(VK_ESCAPE); }); };
  const auto countObjects = [] {
    int count = 0;
    for (ULONG_PTR handle = 0; handle < 0x10000; ++handle) {
      if (GetObjectType(reinterpret_cast<HGDIOBJ>(handle)) != 0) ++count;
    }
    return count;
  };
  runOnce();  // the first run loads what is kept for all further ones
  const int before = countObjects();
  for (int i = 0; i < 20; ++i) runOnce();
  EXPECT_LE(countObjects(), before + 5);
}

}  // namespace
