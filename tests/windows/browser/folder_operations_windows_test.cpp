// New folder, rename and delete on real files.
#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/names/folder_operations.h"
#include "platform/os/os.h"
#include "platform/os/sjis_wide.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/support/real_folder.h"

namespace {

using namespace filedialog;
using driver::User;
using real_folder::Opened;
using Outcome = OperationResult::Outcome;

/// Deletes from the folder without a browser.
class RealFolder : public real_folder::RealFolder {
 protected:
  /// Deletes; `button` answers whatever the platform asks, once or more. Whether the folder is to be listed again.
  bool Delete(const std::vector<std::string_view>& names, int button) {
    bool listAgain = false;
    std::atomic<bool> done = false;
    const auto erase = [&] {
      listAgain = DeleteEntries(os::Services(), nullptr, folder_, names);
      done = true;
    };
    driver::RunDialog(erase, [&](User& user) {
      while (!done) {
        user.WaitUntil("the platform asks or is done", [&] { return done || user.Sees("#32770"); });
        if (!done) Press(user, button);
      }
    });
    return listAgain;
  }

  static void Press(User& user, int button) {
    const driver::Window box = user.WaitDialog();
    user.Click(box.Child(button));
    user.WaitGone(box);
    ++asked_;
  }

  static inline int asked_ = 0;  ///< confirmations so far
};

// ---- new folder

TEST_F(RealFolder, FoldersOfManyNamesAreCreated) {
  for (const char* name : {"new", "図面 表", "ソ", "ｱｲｳ", "①Ⅳ", ".hidden", "a'b;c", "x.y.z"}) {
    EXPECT_EQ(CreateFolderIn(os::Services(), folder_, name).outcome, Outcome::Done) << name;
    EXPECT_EQ(CreateFolderIn(os::Services(), folder_, name).message, "フォルダは既に存在します\n\n" + Path(name));
    EXPECT_EQ(CreateFolderIn(os::Services(), Path(name), "in it").outcome, Outcome::Done) << name;
  }
}

TEST_F(RealFolder, ANameThatIsTakenByAFileIsTaken) {
  Touch("a.mdl", "kept");
  EXPECT_EQ(CreateFolderIn(os::Services(), folder_, "A.MDL").message, "フォルダは既に存在します\n\n" + Path("A.MDL"));
  EXPECT_EQ(Body("a.mdl"), "kept");
}

TEST_F(RealFolder, WhatIsRefusedLeavesNothingBehind) {
  for (const char* name : {"", "a\\b", "..\\b", "a/b", "a:b", "a*", "a?", "a\"", "a<", "a>", "a|", "CON", "nul.txt",
                           "a.", "a ", ".", "..", "\x95"}) {
    EXPECT_EQ(CreateFolderIn(os::Services(), folder_, name).outcome, Outcome::Refused) << name;
  }
  EXPECT_EQ(CreateFolderIn(os::Services(), Path("missing"), "a").outcome, Outcome::Refused);
  EXPECT_TRUE(Names().empty());
}

TEST_F(RealFolder, EveryNameIsCreatedOrRefusedAsAWhole) {
  for (std::size_t length = 1; length <= 300; length += 7) {
    const std::string name(length, 'n');
    const bool created = CreateFolderIn(os::Services(), folder_, name).outcome == Outcome::Done;
    EXPECT_EQ(created, Exists(name)) << length;
    EXPECT_EQ(Names().size(), created ? 1U : 0U) << length;
    RemoveDirectoryW(os::WideOf(Path(name)).c_str());
  }
}

// ---- rename

TEST_F(RealFolder, FilesAndFoldersAreRenamed) {
  Touch("a.mdl", "body");
  ASSERT_EQ(CreateFolderIn(os::Services(), folder_, "sub").outcome, Outcome::Done);
  EXPECT_EQ(RenameEntry(os::Services(), folder_, "a.mdl", "能 表").outcome, Outcome::Done);
  EXPECT_EQ(RenameEntry(os::Services(), folder_, "sub", "ソ").outcome, Outcome::Done);
  EXPECT_EQ(Body("能 表"), "body");
  EXPECT_EQ(Names().size(), 2U);
}

TEST_F(RealFolder, LetterCaseAloneIsRenamed) {
  Touch("a.mdl", "body");
  EXPECT_EQ(RenameEntry(os::Services(), folder_, "a.mdl", "A.MDL").outcome, Outcome::Done);
  EXPECT_EQ(Names(), std::vector<std::string>{"A.MDL"});
  EXPECT_EQ(Body("A.MDL"), "body");
}

TEST_F(RealFolder, AnExistingTargetIsNeverReplaced) {
  Touch("a.mdl", "a");
  Touch("b.mdl", "b");
  ASSERT_EQ(CreateFolderIn(os::Services(), folder_, "sub").outcome, Outcome::Done);
  for (const char* name : {"b.mdl", "B.mdl", "sub"}) {
    EXPECT_EQ(RenameEntry(os::Services(), folder_, "a.mdl", name).message, "名前に誤りがあります\n\n" + Path(name));
    EXPECT_EQ(os::Services().files->Rename(Path("a.mdl"), Path(name)), 17);
  }
  EXPECT_EQ(Body("a.mdl"), "a");
  EXPECT_EQ(Body("b.mdl"), "b");
}

TEST_F(RealFolder, AReadOnlyFileKeepsBodyAndAttribute) {
  Touch("a.mdl", "a");
  SetFileAttributesW(os::WideOf(Path("a.mdl")).c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(RenameEntry(os::Services(), folder_, "a.mdl", "b.mdl").outcome, Outcome::Done);
  EXPECT_EQ(Body("b.mdl"), "a");
  EXPECT_NE(GetFileAttributesW(os::WideOf(Path("b.mdl")).c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(RealFolder, AFileInUseIsDenied) {
  Touch("a.mdl", "a");
  const Opened opened(Path("a.mdl"), 0);
  ASSERT_TRUE(opened);
  EXPECT_EQ(RenameEntry(os::Services(), folder_, "a.mdl", "b.mdl").message, "名前はに存在します\n\n" + Path("b.mdl"));
  EXPECT_EQ(Names(), std::vector<std::string>{"a.mdl"});
}

TEST_F(RealFolder, AFolderInUseIsDenied) {
  ASSERT_EQ(CreateFolderIn(os::Services(), folder_, "sub").outcome, Outcome::Done);
  const Opened opened(Path("sub"), FILE_FLAG_BACKUP_SEMANTICS);
  ASSERT_TRUE(opened);
  EXPECT_EQ(RenameEntry(os::Services(), folder_, "sub", "other").message, "名前はに存在します\n\n" + Path("other"));
  EXPECT_EQ(Names(), std::vector<std::string>{"sub"});
}

TEST_F(RealFolder, AVanishedEntryIsNotFound) {
  EXPECT_EQ(RenameEntry(os::Services(), folder_, "gone", "b").message, "名前に誤りがあります\n\n" + Path("b"));
  const std::string path = Path("gone");
  FileEntry row;
  row.path = path;
  row.name = "gone";
  EXPECT_EQ(CommitLabel(os::Services(), folder_, row, "b").message, "変更前のパスが存在しません\n\n" + path);
}

TEST_F(RealFolder, AFolderDoesNotMoveIntoItself) {
  ASSERT_EQ(CreateFolderIn(os::Services(), folder_, "sub").outcome, Outcome::Done);
  EXPECT_EQ(RenameEntry(os::Services(), folder_, "sub", "sub\\in").outcome, Outcome::Refused);
  EXPECT_EQ(Names(), std::vector<std::string>{"sub"});
}

// ---- delete

TEST_F(RealFolder, NothingIsDeletedWithoutConfirmation) {
  Touch("a.mdl");
  EXPECT_TRUE(Delete({"a.mdl"}, IDNO));
  EXPECT_TRUE(Exists("a.mdl"));
}

TEST_F(RealFolder, AFolderAndTwoFilesGoTogether) {
  Touch("a.mdl");
  Touch("表.mdl");
  Touch("kept.mdl");
  ASSERT_EQ(CreateFolderIn(os::Services(), folder_, "sub").outcome, Outcome::Done);
  Touch("sub\\deep.mdl");
  asked_ = 0;
  EXPECT_TRUE(Delete({"sub", "a.mdl", "表.mdl"}, IDYES));
  EXPECT_EQ(asked_, 1);
  EXPECT_EQ(Names(), std::vector<std::string>{"kept.mdl"});
}

TEST_F(RealFolder, HundredsOfEntriesGoInOneOperation) {
  std::vector<std::string> names;
  for (int i = 0; i < 500; ++i) names.push_back(std::to_string(i) + ".mdl");
  for (const std::string& name : names) Touch(name);
  asked_ = 0;
  EXPECT_TRUE(Delete({names.begin(), names.end()}, IDYES));
  EXPECT_EQ(asked_, 1);
  EXPECT_TRUE(Names().empty());
}

TEST_F(RealFolder, AVanishedEntryDeletesNothing) {
  Touch("kept.mdl");
  EXPECT_TRUE(Delete({"gone"}, IDYES)) << "the list still shows it";
  EXPECT_TRUE(Exists("kept.mdl"));
}

}  // namespace
