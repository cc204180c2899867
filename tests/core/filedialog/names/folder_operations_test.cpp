#include "dlglib/filedialog/names/folder_operations.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/os/os_scripted.h"

namespace {

using namespace filedialog;
using os::scripted::World;
using Outcome = OperationResult::Outcome;
using Names = std::vector<std::string_view>;

constexpr char kFolder[] = "C:\\data";

std::string Repeat(const std::string& text, std::size_t count) {
  std::string repeated;
  for (; count > 0; --count) repeated += text;
  return repeated;
}

/// A text with its terminators, written with "|" for each.
std::string Terminated(std::string text) {
  for (char& letter : text) letter = letter == '|' ? '\0' : letter;
  return text;
}

FileEntry Row(EntryKind kind, std::string_view path, std::string_view name) {
  FileEntry row;
  row.kind = kind;
  row.path = path;
  row.name = name;
  return row;
}

class FolderOperations : public testing::Test {
 protected:
  FolderOperations() {
    World().Reset();
    World().AddDrive('C');
    World().files.AddFolder(kFolder);
    World().files.AddFile("C:\\data\\a.mdl", "a");
    World().files.AddFile("C:\\data\\b.mdl", "b");
    World().files.AddFolder("C:\\data\\sub\\deep");
  }
  ~FolderOperations() override { World().Reset(); }

  [[nodiscard]] static bool Exists(const std::string& name) {
    return World().files.Find(std::string(kFolder) + "\\" + name) != nullptr;
  }
  [[nodiscard]] static std::string ShownName(const std::string& name) {
    const os::scripted::Node* node = World().files.Find(std::string(kFolder) + "\\" + name);
    return node == nullptr ? std::string() : node->name;
  }
  [[nodiscard]] static std::size_t Renames() { return World().calls.Count("files.Rename"); }

  static void ExpectRefused(const OperationResult& result, const std::string& message, const std::string& caption) {
    EXPECT_EQ(result.outcome, Outcome::Refused);
    EXPECT_EQ(result.message, message);
    EXPECT_EQ(result.caption, caption);
    EXPECT_EQ(World().session.beeps, std::vector<std::uint32_t>{os::kBeepExclamation});
    World().session.beeps.clear();
  }
  static void ExpectQuiet(const OperationResult& result, Outcome outcome) {
    EXPECT_EQ(result.outcome, outcome);
    EXPECT_EQ(result.message, "");
    EXPECT_TRUE(World().session.beeps.empty());
  }
};

// ---- new folder

TEST_F(FolderOperations, AFolderIsCreated) {
  ExpectQuiet(CreateFolderIn(os::Services(), kFolder, "図面 表"), Outcome::Done);
  EXPECT_TRUE(Exists("図面 表"));
}

TEST_F(FolderOperations, ARootNeedsNoSecondSeparator) {
  ExpectQuiet(CreateFolderIn(os::Services(), "C:\\", "new"), Outcome::Done);
  EXPECT_EQ(World().calls.Log().front(), "files.CreateFolder C:\\new");
}

TEST_F(FolderOperations, AFolderWhoseNameEndsInABackslashByteKeepsIt) {
  World().files.AddFolder("C:\\data\\表");
  ExpectQuiet(CreateFolderIn(os::Services(), "C:\\data\\表", "new"), Outcome::Done);
  EXPECT_TRUE(Exists("表\\new"));
}

TEST_F(FolderOperations, AFolderNeedsAName) {
  ExpectRefused(CreateFolderIn(os::Services(), kFolder, ""), "フォルダ名が入力されていません", "新しいフォルダ");
  EXPECT_EQ(World().calls.Count("files.CreateFolder"), 0U);
}

TEST_F(FolderOperations, AFolderThatExistsIsRefused) {
  for (const char* name : {"sub", "SUB", "a.mdl"}) {
    ExpectRefused(CreateFolderIn(os::Services(), kFolder, name),
                  std::string("フォルダは既に存在します\n\nC:\\data\\") + name, "新しいフォルダ");
  }
}

TEST_F(FolderOperations, EveryOtherFailureOfACreationIsAWrongName) {
  for (const std::uint32_t error : {1U, 3U, 5U, 112U, 123U, 206U, 1117U}) {
    World().calls.FailNext("files.CreateFolder", error);
    ExpectRefused(CreateFolderIn(os::Services(), kFolder, "new"), "フォルダ名に誤りがあります\n\nC:\\data\\new",
                  "新しいフォルダ");
    EXPECT_FALSE(Exists("new"));
  }
}

TEST_F(FolderOperations, ANameThatMeansSomethingElseCreatesNothing) {
  for (const char* name : {"a\\b", "sub\\new", "..\\new", "a/b",  "a:b", "a*", "a?", "a\"", "a<",   "a>",
                           "a|",   "CON",      "nul.txt", "LPT1", "a.",  "a ", ".",  "..",  "\x95", "a\tb"}) {
    ExpectRefused(CreateFolderIn(os::Services(), kFolder, name),
                  std::string("フォルダ名に誤りがあります\n\nC:\\data\\") + name, "新しいフォルダ");
  }
  EXPECT_EQ(World().calls.Count("files.CreateFolder"), 0U);
}

TEST_F(FolderOperations, NamesOfEveryLengthAreEitherTakenOrRefused) {
  for (std::size_t length = 1; length <= 300; ++length) {
    const OperationResult result = CreateFolderIn(os::Services(), kFolder, Repeat("n", length));
    EXPECT_EQ(result.outcome, length <= 128 ? Outcome::Done : Outcome::Refused) << length;
    EXPECT_EQ(Exists(Repeat("n", length)), length <= 128);
  }
}

TEST_F(FolderOperations, APathThatTheListCannotShowIsRefused) {
  const std::string folder = "C:\\" + Repeat("d", 200);
  World().files.AddFolder(folder);
  EXPECT_EQ(CreateFolderIn(os::Services(), folder, Repeat("n", 256 - folder.size() - 1)).outcome, Outcome::Done);
  EXPECT_EQ(CreateFolderIn(os::Services(), folder, Repeat("n", 256 - folder.size())).outcome, Outcome::Refused);
}

TEST_F(FolderOperations, AFolderIsOfferedWhereAFolderIsListed) {
  EXPECT_TRUE(CanCreateFolder(kFolder));
  EXPECT_FALSE(CanCreateFolder(""));
}

// ---- rename

TEST_F(FolderOperations, FilesAndFoldersAreRenamed) {
  ExpectQuiet(RenameEntry(os::Services(), kFolder, "a.mdl", "能.mdl"), Outcome::Done);
  ExpectQuiet(RenameEntry(os::Services(), kFolder, "sub", "new sub"), Outcome::Done);
  EXPECT_TRUE(Exists("能.mdl"));
  EXPECT_TRUE(Exists("new sub\\deep"));
  EXPECT_FALSE(Exists("a.mdl"));
}

TEST_F(FolderOperations, TheSameNameRenamesNothing) {
  ExpectQuiet(RenameEntry(os::Services(), kFolder, "a.mdl", "a.mdl"), Outcome::Unchanged);
  EXPECT_EQ(Renames(), 0U);
}

TEST_F(FolderOperations, LetterCaseAloneIsANewName) {
  ExpectQuiet(RenameEntry(os::Services(), kFolder, "a.mdl", "A.MDL"), Outcome::Done);
  EXPECT_EQ(ShownName("a.mdl"), "A.MDL");
}

TEST_F(FolderOperations, ARenameNeedsAName) {
  ExpectRefused(RenameEntry(os::Services(), kFolder, "a.mdl", ""), "変更後の名前が入力されていません", "名前変更");
  EXPECT_EQ(Renames(), 0U);
}

TEST_F(FolderOperations, ARenameNeverReplacesAnEntry) {
  for (const char* name : {"b.mdl", "B.MDL", "sub"}) {
    ExpectRefused(RenameEntry(os::Services(), kFolder, "a.mdl", name),
                  std::string("名前に誤りがあります\n\nC:\\data\\") + name, "名前変更");
  }
  EXPECT_EQ(World().files.Find("C:\\data\\b.mdl")->bytes, "b");
  EXPECT_EQ(World().files.Find("C:\\data\\a.mdl")->bytes, "a");
}

TEST_F(FolderOperations, ADeniedRenameHasItsOwnText) {
  World().calls.FailNext("files.Rename", 13);
  ExpectRefused(RenameEntry(os::Services(), kFolder, "a.mdl", "c.mdl"), "名前はに存在します\n\nC:\\data\\c.mdl",
                "名前変更");
  EXPECT_TRUE(Exists("a.mdl"));
}

TEST_F(FolderOperations, EveryOtherFailureOfARenameIsAWrongName) {
  for (const std::uint32_t error : {1U, 2U, 17U, 18U, 22U, 28U, 41U}) {
    World().calls.FailNext("files.Rename", error);
    ExpectRefused(RenameEntry(os::Services(), kFolder, "a.mdl", "c.mdl"), "名前に誤りがあります\n\nC:\\data\\c.mdl",
                  "名前変更");
  }
}

TEST_F(FolderOperations, AnEntryThatVanishedIsAWrongName) {
  World().files.Remove("C:\\data\\a.mdl");
  ExpectRefused(RenameEntry(os::Services(), kFolder, "a.mdl", "c.mdl"), "名前に誤りがあります\n\nC:\\data\\c.mdl",
                "名前変更");
}

TEST_F(FolderOperations, ANameThatMeansSomethingElseRenamesNothing) {
  for (const char* name : {"sub\\a.mdl", "..\\a.mdl", "sub/a.mdl", "a:b", "a*", "a.", "a ", "\x83"}) {
    ExpectRefused(RenameEntry(os::Services(), kFolder, "a.mdl", name),
                  std::string("名前に誤りがあります\n\nC:\\data\\") + name, "名前変更");
  }
  EXPECT_EQ(Renames(), 0U);
  EXPECT_TRUE(Exists("a.mdl"));
}

TEST_F(FolderOperations, ThePlatformRefusesNamesOfDevices) {
  for (const char* name : {"PRN", "aux.mdl"}) {
    ExpectRefused(RenameEntry(os::Services(), kFolder, "a.mdl", name),
                  std::string("名前に誤りがあります\n\nC:\\data\\") + name, "名前変更");
  }
  EXPECT_TRUE(Exists("a.mdl"));
}

TEST_F(FolderOperations, ADialogsNameHas128Characters) {
  for (const std::string& name : {Repeat("n", 129), Repeat("表", 129), Repeat("n", 300)}) {
    ExpectRefused(RenameEntry(os::Services(), kFolder, "a.mdl", name), "名前に誤りがあります\n\nC:\\data\\" + name,
                  "名前変更");
  }
  EXPECT_EQ(Renames(), 0U);
  ExpectQuiet(RenameEntry(os::Services(), kFolder, "a.mdl", Repeat("表", 120)), Outcome::Done);
}

// ---- a name edited in the list

class LabelEdit : public FolderOperations {
 protected:
  OperationResult Commit(std::optional<std::string_view> text) {
    return CommitLabel(os::Services(), kFolder, row_, text);
  }

  FileEntry row_ = Row(EntryKind::File, "C:\\data\\a.mdl", "a.mdl");
};

TEST_F(LabelEdit, TheTextBecomesTheName) {
  ExpectQuiet(Commit("c.mdl"), Outcome::Done);
  EXPECT_TRUE(Exists("c.mdl"));
  EXPECT_FALSE(Exists("a.mdl"));
}

TEST_F(LabelEdit, NothingIsRenamedWithoutANewText) {
  ExpectQuiet(Commit(std::nullopt), Outcome::Unchanged);
  ExpectQuiet(Commit(""), Outcome::Unchanged);
  ExpectQuiet(Commit("a.mdl"), Outcome::Unchanged);
  EXPECT_EQ(Renames(), 0U);
}

TEST_F(LabelEdit, ALongNameIsEditedWhole) {
  const std::string name = Repeat("n", 200) + ".mdl";
  const std::string path = std::string(kFolder) + "\\" + name;
  World().files.AddFile(path);
  row_ = Row(EntryKind::File, path, std::string_view(name).substr(0, 127));
  ExpectQuiet(Commit(name), Outcome::Unchanged);
  ExpectQuiet(Commit(row_.name), Outcome::Done);
  EXPECT_TRUE(Exists(std::string(row_.name)));
  EXPECT_FALSE(Exists(name));
}

TEST_F(LabelEdit, InvalidCharactersHaveTheirText) {
  for (const char* name : {"a\\b", "a/b", "a:b", "a*", "a?", "a\"", "a<", "a>", "a|", "\x83"}) {
    ExpectRefused(Commit(name), "名前に無効な文字が含まれています", "");
  }
  EXPECT_EQ(Renames(), 0U);
  World().calls.FailNext("files.Rename", 22);
  ExpectRefused(Commit("c.mdl"), "名前に無効な文字が含まれています", "");
}

TEST_F(LabelEdit, AVanishedEntryIsNamedByItsOldPath) {
  World().files.Remove("C:\\data\\a.mdl");
  ExpectRefused(Commit("c.mdl"), "変更前のパスが存在しません\n\nC:\\data\\a.mdl", "");
}

TEST_F(LabelEdit, EveryOtherFailureNamesTheNewPath) {
  const std::string text = "指定したファイルまたはディレクトリが既に存在するか、パスが無効です\n\nC:\\data\\";
  ExpectRefused(Commit("b.mdl"), text + "b.mdl", "");
  for (const std::uint32_t error : {1U, 13U, 17U, 18U, 28U}) {
    World().calls.FailNext("files.Rename", error);
    ExpectRefused(Commit("c.mdl"), text + "c.mdl", "");
  }
  for (const char* name : {"c.", "c ", ".."}) ExpectRefused(Commit(name), text + name, "");
}

TEST_F(LabelEdit, OnlyThePathLimitsTheName) {
  const std::size_t longest = kPathLimit - std::string_view("C:\\data\\").size();
  for (const std::string& name : {Repeat("n", longest + 1), Repeat("表", longest / 2) + "n", Repeat("n", 300)}) {
    ExpectRefused(Commit(name),
                  "指定したファイルまたはディレクトリが既に存在するか、パスが無効です\n\nC:\\data\\" + name, "");
  }
  ExpectQuiet(Commit(Repeat("表", longest / 2)), Outcome::Done);
  EXPECT_TRUE(Exists(Repeat("表", longest / 2)));
}

// ---- a change of letter case, which may stop half-way

TEST_F(LabelEdit, ARefusedChangeOfLetterCaseMayHaveStoppedHalfWay) {
  for (const char* name : {"A.mdl", "a.MDL"}) {
    World().calls.FailNext("files.Rename", 13);
    const OperationResult label = Commit(name);
    EXPECT_EQ(label.outcome, Outcome::Stranded);
    EXPECT_EQ(label.message,
              std::string("指定したファイルまたはディレクトリが既に存在するか、パスが無効です\n\nC:\\data\\") + name);
    World().calls.FailNext("files.Rename", 13);
    const OperationResult dialog = RenameEntry(os::Services(), kFolder, "a.mdl", name);
    EXPECT_EQ(dialog.outcome, Outcome::Stranded);
    EXPECT_EQ(dialog.message, std::string("名前はに存在します\n\nC:\\data\\") + name);
    EXPECT_EQ(dialog.caption, "名前変更");
  }
  EXPECT_EQ(World().session.beeps, std::vector<std::uint32_t>(4, os::kBeepExclamation));
}

TEST_F(LabelEdit, AnEntryThatARefusedRenameHasTakenAwayIsSeenTo) {
  World().files.AddFile("C:\\data\\ａ.mdl", "body");
  row_ = Row(EntryKind::File, "C:\\data\\ａ.mdl", "ａ.mdl");
  World().calls.Watch([](const std::string& call) {
    if (call == "files.Rename") World().files.Move("C:\\data\\ａ.mdl", "C:\\data\\Ａ.mdl~0");
  });
  World().calls.FailNext("files.Rename", 13);
  EXPECT_EQ(Commit("Ａ.mdl").outcome, Outcome::Stranded) << "letters beyond ASCII";
  World().calls.Watch({});
}

TEST(IsRefusal, IsWhatHasAMessage) {
  EXPECT_TRUE(IsRefusal(Outcome::Refused));
  EXPECT_TRUE(IsRefusal(Outcome::Stranded));
  EXPECT_FALSE(IsRefusal(Outcome::Done));
  EXPECT_FALSE(IsRefusal(Outcome::Unchanged));
}

// ---- names of rows

TEST(NameInFolder, IsTheWholeNameAndAShortcutsOwn) {
  EXPECT_EQ(NameInFolder(Row(EntryKind::File, "C:\\d\\表 long.mdl", "表")), "表 long.mdl");
  EXPECT_EQ(NameInFolder(Row(EntryKind::Folder, "C:\\d\\sub", "sub")), "sub");
  EXPECT_EQ(NameInFolder(Row(EntryKind::FileShortcut, "D:\\x\\a.mdl", "link.lnk")), "link.lnk");
  EXPECT_EQ(NameInFolder(Row(EntryKind::FolderShortcut, "D:\\x", "link.lnk")), "link.lnk");
}

TEST(FindRowNamed, FindsTheFirstExactName) {
  const std::string longName = Repeat("n", 128);
  const std::vector<FileEntry> rows = {Row(EntryKind::Folder, "C:\\A", "A"), Row(EntryKind::Folder, "C:\\a", "a"),
                                       Row(EntryKind::File, "C:\\a", "a"),
                                       Row(EntryKind::Folder, longName, std::string_view(longName).substr(0, 127))};
  EXPECT_EQ(FindRowNamed(rows, "a"), 1U);
  EXPECT_EQ(FindRowNamed(rows, longName), 3U);
  EXPECT_FALSE(FindRowNamed(rows, "b").has_value());
  EXPECT_FALSE(FindRowNamed({}, "a").has_value());
}

// ---- delete

TEST(DeleteList, ClosesEachPathAndTheList) {
  EXPECT_EQ(DeleteList("C:\\data", Names{"a", "表 b"}), Terminated("C:\\data\\a|C:\\data\\表 b||"));
  EXPECT_EQ(DeleteList("C:\\", Names{"a"}), Terminated("C:\\a||"));
  EXPECT_EQ(DeleteList("C:\\", {}), Terminated("|"));
}

TEST(DeleteList, HoldsTenThousandOfTheLongestPaths) {
  const std::string name = Repeat("n", 256 - 3);
  const std::string list = DeleteList("C:\\", Names(10'000, name));
  EXPECT_EQ(list.size(), 10'000U * 257 + 1);
  EXPECT_EQ(list.substr(list.size() - 2), std::string(2, '\0'));
}

TEST(DeleteList, StopsBeforeAPathThatDoesNotFit) {
  const std::string name = Repeat("n", 256 - 3);
  Names names(10'000, name);
  names.push_back("x");
  EXPECT_EQ(DeleteList("C:\\", names).size(), 10'000U * 257 + 1);
  EXPECT_EQ(DeleteList("C:\\", Names(20'000, name)).size(), 10'000U * 257 + 1);
  EXPECT_EQ(DeleteList("C:\\", Names{Repeat("n", 3'000'000)}), Terminated("|"));
}

TEST(DeleteList, MayFillItsRoom) {
  // 257 bytes and the list's own terminator leave room for the rest.
  const std::string rest = Repeat("n", kDeleteListBytes - 257 - 1 - 4);
  const Names names = {std::string_view(rest).substr(0, 253), rest};
  EXPECT_EQ(DeleteList("C:\\", names).size(), kDeleteListBytes);
}

TEST_F(FolderOperations, AFolderAndTwoFilesGoInOneOperation) {
  EXPECT_TRUE(DeleteEntries(os::Services(), nullptr, kFolder, Names{"sub", "a.mdl", "b.mdl"}));
  ASSERT_EQ(World().shell.deletions.size(), 1U);
  EXPECT_EQ(World().shell.deletions[0].list, Terminated("C:\\data\\sub|C:\\data\\a.mdl|C:\\data\\b.mdl||"));
  EXPECT_EQ(World().shell.deletions[0].title, "削除");
  EXPECT_FALSE(Exists("sub"));
  EXPECT_FALSE(Exists("a.mdl"));
  EXPECT_FALSE(Exists("b.mdl"));
}

TEST_F(FolderOperations, NothingSelectedDeletesNothing) {
  EXPECT_FALSE(DeleteEntries(os::Services(), nullptr, kFolder, {}));
  EXPECT_TRUE(World().shell.deletions.empty());
}

TEST_F(FolderOperations, AFailedDeletionIsLeftToThePlatform) {
  World().calls.FailNext("shell.DeleteToRecycleBin", 1026);
  EXPECT_FALSE(DeleteEntries(os::Services(), nullptr, kFolder, Names{"a.mdl"}));
  EXPECT_TRUE(Exists("a.mdl"));
  EXPECT_TRUE(World().session.beeps.empty());
}

TEST_F(FolderOperations, ADeletionThatFailedHalfWayIsListedAgain) {
  World().calls.FailNext("shell.DeleteToRecycleBin", 5);
  World().files.Remove("C:\\data\\a.mdl");
  EXPECT_TRUE(DeleteEntries(os::Services(), nullptr, kFolder, Names{"b.mdl", "a.mdl"}));
  EXPECT_TRUE(Exists("b.mdl"));
}

TEST_F(FolderOperations, ADeletionThatWasStoppedMayHaveTakenSome) {
  World().shell.deleteOutcome.aborted = true;
  EXPECT_TRUE(DeleteEntries(os::Services(), nullptr, kFolder, Names{"a.mdl"}));
}

}  // namespace
