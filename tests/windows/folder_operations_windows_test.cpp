// New folder, rename and delete on real files.
#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <atomic>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/folder_operations.h"
#include "platform/os/os.h"
#include "tests/windows/driver/user.h"

namespace {

using namespace filedialog;
using driver::User;
using Outcome = OperationResult::Outcome;

/// An open file or folder.
class Opened {
 public:
  Opened(const std::string& path, DWORD flags)
      : handle_(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, flags, nullptr)) {}
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  ~Opened() { CloseHandle(handle_); }
  [[nodiscard]] explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE handle_;
};

class RealFolder : public testing::Test {
 protected:
  RealFolder() {
    std::array<char, MAX_PATH> temporary = {};
    GetTempPathA(static_cast<DWORD>(temporary.size()), temporary.data());
    folder_ = temporary.data() + ("operations_" + std::to_string(GetCurrentProcessId()));
    RemoveTree(folder_);  // of a former run that was ended from outside
    CreateDirectoryA(folder_.c_str(), nullptr);
  }
  ~RealFolder() override { RemoveTree(folder_); }

  [[nodiscard]] std::string Path(std::string_view name) const { return folder_ + "\\" + std::string(name); }
  void Touch(std::string_view name, const char* text = "") const {
    const auto writer = os::Services().files->CreateText(Path(name));
    ASSERT_TRUE(writer != nullptr && writer->Write(text) && writer->Close()) << name;
  }
  [[nodiscard]] std::string Body(std::string_view name) const {
    return os::Services().files->Read(Path(name), 100).value_or("missing");
  }
  [[nodiscard]] bool Exists(std::string_view name) const { return os::Services().files->Exists(Path(name)); }

  /// The names in the folder as they are written.
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    const auto pass = os::Services().files->OpenFolder(folder_);
    os::FoundName found;
    while (pass != nullptr && pass->Next(&found)) {
      if (found.name != "." && found.name != "..") names.push_back(found.name);
    }
    return names;
  }

  static void RemoveTree(const std::string& folder) {
    const auto pass = os::Services().files->OpenFolder(folder);
    os::FoundName found;
    while (pass != nullptr && pass->Next(&found)) {
      if (found.name == "." || found.name == "..") continue;
      const std::string path = folder + "\\" + found.name;
      SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
      if ((found.attributes & os::kAttributeFolder) != 0) RemoveTree(path);
      DeleteFileA(path.c_str());
    }
    RemoveDirectoryA(folder.c_str());
  }

  /// Deletes; `button` answers whatever the platform asks, once or more. Whether the folder is to be listed again.
  bool Delete(const std::vector<std::string_view>& names, int button) {
    bool listAgain = false;
    std::atomic<bool> done = false;
    const auto erase = [&] {
      listAgain = DeleteEntries(nullptr, folder_, names);
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
  std::string folder_;
};

// ---- new folder

TEST_F(RealFolder, FoldersOfManyNamesAreCreated) {
  for (const char* name : {"new", "図面 表", "ソ", "ｱｲｳ", "①Ⅳ", ".hidden", "a'b;c", "x.y.z"}) {
    EXPECT_EQ(CreateFolderIn(folder_, name).outcome, Outcome::Done) << name;
    EXPECT_EQ(CreateFolderIn(folder_, name).message, "フォルダは既に存在します\n\n" + Path(name));
    EXPECT_EQ(CreateFolderIn(Path(name), "in it").outcome, Outcome::Done) << name;
  }
}

TEST_F(RealFolder, ANameThatIsTakenByAFileIsTaken) {
  Touch("a.mdl", "kept");
  EXPECT_EQ(CreateFolderIn(folder_, "A.MDL").message, "フォルダは既に存在します\n\n" + Path("A.MDL"));
  EXPECT_EQ(Body("a.mdl"), "kept");
}

TEST_F(RealFolder, WhatIsRefusedLeavesNothingBehind) {
  for (const char* name : {"", "a\\b", "..\\b", "a/b", "a:b", "a*", "a?", "a\"", "a<", "a>", "a|", "CON", "nul.txt",
                           "a.", "a ", ".", "..", "\x95"}) {
    EXPECT_EQ(CreateFolderIn(folder_, name).outcome, Outcome::Refused) << name;
  }
  EXPECT_EQ(CreateFolderIn(Path("missing"), "a").outcome, Outcome::Refused);
  EXPECT_TRUE(Names().empty());
}

TEST_F(RealFolder, EveryNameIsCreatedOrRefusedAsAWhole) {
  for (std::size_t length = 1; length <= 300; length += 7) {
    const std::string name(length, 'n');
    const bool created = CreateFolderIn(folder_, name).outcome == Outcome::Done;
    EXPECT_EQ(created, Exists(name)) << length;
    EXPECT_EQ(Names().size(), created ? 1U : 0U) << length;
    RemoveDirectoryA(Path(name).c_str());
  }
}

// ---- rename

TEST_F(RealFolder, FilesAndFoldersAreRenamed) {
  Touch("a.mdl", "body");
  ASSERT_EQ(CreateFolderIn(folder_, "sub").outcome, Outcome::Done);
  EXPECT_EQ(RenameEntry(folder_, "a.mdl", "能 表").outcome, Outcome::Done);
  EXPECT_EQ(RenameEntry(folder_, "sub", "ソ").outcome, Outcome::Done);
  EXPECT_EQ(Body("能 表"), "body");
  EXPECT_EQ(Names().size(), 2U);
}

TEST_F(RealFolder, LetterCaseAloneIsRenamed) {
  Touch("a.mdl", "body");
  EXPECT_EQ(RenameEntry(folder_, "a.mdl", "A.MDL").outcome, Outcome::Done);
  EXPECT_EQ(Names(), std::vector<std::string>{"A.MDL"});
  EXPECT_EQ(Body("A.MDL"), "body");
}

TEST_F(RealFolder, AnExistingTargetIsNeverReplaced) {
  Touch("a.mdl", "a");
  Touch("b.mdl", "b");
  ASSERT_EQ(CreateFolderIn(folder_, "sub").outcome, Outcome::Done);
  for (const char* name : {"b.mdl", "B.mdl", "sub"}) {
    EXPECT_EQ(RenameEntry(folder_, "a.mdl", name).message, "名前に誤りがあります\n\n" + Path(name));
    EXPECT_EQ(os::Services().files->Rename(Path("a.mdl"), Path(name)), 17);
  }
  EXPECT_EQ(Body("a.mdl"), "a");
  EXPECT_EQ(Body("b.mdl"), "b");
}

TEST_F(RealFolder, AReadOnlyFileKeepsBodyAndAttribute) {
  Touch("a.mdl", "a");
  SetFileAttributesA(Path("a.mdl").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(RenameEntry(folder_, "a.mdl", "b.mdl").outcome, Outcome::Done);
  EXPECT_EQ(Body("b.mdl"), "a");
  EXPECT_NE(GetFileAttributesA(Path("b.mdl").c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(RealFolder, AFileInUseIsDenied) {
  Touch("a.mdl", "a");
  const Opened opened(Path("a.mdl"), 0);
  ASSERT_TRUE(opened);
  EXPECT_EQ(RenameEntry(folder_, "a.mdl", "b.mdl").message, "名前はに存在します\n\n" + Path("b.mdl"));
  EXPECT_EQ(Names(), std::vector<std::string>{"a.mdl"});
}

TEST_F(RealFolder, AFolderInUseIsDenied) {
  ASSERT_EQ(CreateFolderIn(folder_, "sub").outcome, Outcome::Done);
  const Opened opened(Path("sub"), FILE_FLAG_BACKUP_SEMANTICS);
  ASSERT_TRUE(opened);
  EXPECT_EQ(RenameEntry(folder_, "sub", "other").message, "名前はに存在します\n\n" + Path("other"));
  EXPECT_EQ(Names(), std::vector<std::string>{"sub"});
}

TEST_F(RealFolder, AVanishedEntryIsNotFound) {
  EXPECT_EQ(RenameEntry(folder_, "gone", "b").message, "名前に誤りがあります\n\n" + Path("b"));
  const std::string path = Path("gone");
  FileEntry row;
  row.path = path;
  row.name = "gone";
  EXPECT_EQ(CommitLabel(folder_, row, "b").message, "変更前のパスが存在しません\n\n" + path);
}

TEST_F(RealFolder, AFolderDoesNotMoveIntoItself) {
  ASSERT_EQ(CreateFolderIn(folder_, "sub").outcome, Outcome::Done);
  EXPECT_EQ(RenameEntry(folder_, "sub", "sub\\in").outcome, Outcome::Refused);
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
  ASSERT_EQ(CreateFolderIn(folder_, "sub").outcome, Outcome::Done);
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
  EXPECT_FALSE(Delete({"gone"}, IDYES));
  EXPECT_TRUE(Exists("kept.mdl"));
}

}  // namespace
