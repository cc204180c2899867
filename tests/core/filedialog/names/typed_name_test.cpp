#include "dlglib/filedialog/names/typed_name.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "dlglib/filedialog/basics/start_up.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "platform/os/os_scripted.h"

namespace {

using namespace filedialog;
using Outcome = NameAnswer::Outcome;

class RecordingPrompt final : public NamePrompt {
 public:
  Reply<Done> Warn(const std::string& text) override {
    warnings.push_back(text);
    return windowStays ? Reply<Done>(Done{}) : std::nullopt;
  }
  Reply<bool> AskOverwrite(const std::string& text) override {
    questions.push_back(text);
    return windowStays ? Reply<bool>(overwrite) : std::nullopt;
  }

  std::vector<std::string> warnings;
  std::vector<std::string> questions;
  bool overwrite = true;
  bool windowStays = true;
};

std::string FileNotFound(const std::string& name) {
  return name + "\nファイルが見つかりません。\n指定したファイル名が正しいかどうか確認してください。";
}

std::string PathNotFound(const std::string& folder) {
  return folder + "\nパスが見つかりません。\n指定したパス名が正しいかどうか確認してください。";
}

const std::string kFolderFixed = "ディレクトリを変更することはできません。";

class TypedName : public testing::Test {
 protected:
  TypedName() {
    os::scripted::World().Reset();
    os::scripted::World().AddDrive('C');
    os::scripted::World().files.AddFile("C:\\data\\a.mdl");
    os::scripted::World().files.AddFile("C:\\data\\sub\\b.mdl");
    os::scripted::World().files.AddFile("C:\\data\\表\\ソ.mdl");
    os::scripted::World().files.AddFile("\\\\srv\\share\\n.mdl");
    rules_.folder = "C:\\data";
    rules_.extension = ".MDL";
  }
  ~TypedName() override { os::scripted::World().Reset(); }

  bool Check(std::string* name, std::uint32_t flags) {
    rules_.flags = flags;
    return CheckName(name, rules_, asks_).value();
  }

  NameAnswer Resolve(std::string_view text, std::uint32_t flags = kFlagFileMustExist) {
    rules_.flags = flags;
    return ResolveTypedName(text, rules_, asks_).value();
  }

  std::optional<std::string> List(std::string_view text, std::size_t capacity = kTypedListCapacity) {
    return ResolveTypedList(text, rules_, asks_, capacity).value();
  }

  void ExpectSilence() {
    EXPECT_TRUE(prompt_.warnings.empty());
    EXPECT_TRUE(prompt_.questions.empty());
    EXPECT_TRUE(os::scripted::World().session.beeps.empty());
  }

  void ExpectOneBeep() {
    EXPECT_TRUE(prompt_.warnings.empty());
    EXPECT_TRUE(prompt_.questions.empty());
    EXPECT_EQ(os::scripted::World().session.beeps, std::vector<std::uint32_t>{os::kBeepDefault});
    os::scripted::World().session.beeps.clear();
  }

  void ExpectOneWarning(const std::string& text) {
    EXPECT_EQ(prompt_.warnings, std::vector<std::string>{text});
    EXPECT_TRUE(prompt_.questions.empty());
  }

  static void ExpectFolder(const NameAnswer& answer, const std::string& folder, const std::string& nameField) {
    EXPECT_EQ(answer.outcome, Outcome::OpenFolder);
    EXPECT_EQ(answer.folder, folder);
    EXPECT_EQ(answer.nameField, nameField);
  }

  NameRules rules_;
  RecordingPrompt prompt_;
  NameAsks asks_{os::Services(), prompt_};
};

// ------------------------------------------------------------------------------------------------- full path

TEST(FullPathOfTypedName, LeavesFullTextsAlone) {
  EXPECT_EQ(FullPathOfTypedName("\\\\srv\\share\\a.mdl", "C:\\data"), "\\\\srv\\share\\a.mdl");
  EXPECT_EQ(FullPathOfTypedName("D:\\a.mdl", "C:\\data"), "D:\\a.mdl");
  EXPECT_EQ(FullPathOfTypedName("D:a.mdl", "C:\\data"), "D:a.mdl");
  EXPECT_EQ(FullPathOfTypedName("\\\\", "C:\\data"), "\\\\");
}

TEST(FullPathOfTypedName, PutsTheFolderInFrontOfASingleSeparator) {
  EXPECT_EQ(FullPathOfTypedName("\\sub\\a.mdl", "C:\\data"), "C:\\data\\sub\\a.mdl");
  EXPECT_EQ(FullPathOfTypedName("\\", "C:\\data"), "C:\\data\\");
}

TEST(FullPathOfTypedName, JoinsAnyOtherTextWithASeparator) {
  EXPECT_EQ(FullPathOfTypedName("a.mdl", "C:\\data"), "C:\\data\\a.mdl");
  EXPECT_EQ(FullPathOfTypedName("", "C:\\data"), "C:\\data\\");
  EXPECT_EQ(FullPathOfTypedName("ab:c", "C:\\data"), "C:\\data\\ab:c");
  EXPECT_EQ(FullPathOfTypedName("a", "C:\\表"), "C:\\表\\a");
}

TEST(FullPathOfTypedName, ARootDoesNotDoubleTheSeparator) {
  EXPECT_EQ(FullPathOfTypedName("a.mdl", "C:\\"), "C:\\a.mdl");
  EXPECT_EQ(FullPathOfTypedName("\\sub\\a.mdl", "C:\\"), "C:\\sub\\a.mdl");
  EXPECT_EQ(FullPathOfTypedName("a.mdl", "C:\\data\\"), "C:\\data\\a.mdl");
}

TEST(FullPathOfTypedName, EndsAtTheTerminatorAndAtHalfACharacter) {
  EXPECT_EQ(FullPathOfTypedName(std::string_view("a\0b", 3), "C:"), "C:\\a");
  EXPECT_EQ(FullPathOfTypedName("a\x83", "C:"), "C:\\a");
}

TEST(CollapseSeparators, MakesOneOfEveryRunFromTheThirdByteOn) {
  EXPECT_EQ(CollapseSeparators("C:\\\\a\\\\\\b\\"), "C:\\a\\b\\");
  EXPECT_EQ(CollapseSeparators("\\\\srv\\\\share"), "\\\\srv\\share");
  EXPECT_EQ(CollapseSeparators("\\\\\\\\srv"), "\\\\\\srv");
  EXPECT_EQ(CollapseSeparators("\\\\"), "\\\\");
  EXPECT_EQ(CollapseSeparators(""), "");
}

TEST(CollapseSeparators, ASecondByteIsNoSeparator) {
  EXPECT_EQ(CollapseSeparators("C:\\表\\\\表表\\"), "C:\\表\\表表\\");
  EXPECT_EQ(CollapseSeparators("a表\\\\b"), "a表\\b");  // the second byte of the character is the third of the text
  EXPECT_EQ(CollapseSeparators("C:\\\\\x95"), "C:\\\x95");
}

// ------------------------------------------------------------------------------------------------- name check

TEST_F(TypedName, AnExistingFileIsAccepted) {
  std::string name = "C:\\data\\a.mdl";
  EXPECT_TRUE(Check(&name, kFlagFileMustExist));
  EXPECT_TRUE(Check(&name, kFlagPathMustExist));
  EXPECT_TRUE(Check(&name, 0));
  EXPECT_EQ(name, "C:\\data\\a.mdl");
  ExpectSilence();
}

TEST_F(TypedName, AnExistingFileIsAskedAboutBeforeOverwriting) {
  std::string name = "C:\\data\\a.mdl";
  EXPECT_TRUE(Check(&name, kFlagAskOverwrite));
  prompt_.overwrite = false;
  EXPECT_FALSE(Check(&name, kFlagAskOverwrite | kFlagPathMustExist));
  const std::string question = "C:\\data\\a.mdl\nファイルは既に存在します。\n上書きしますか。";
  EXPECT_EQ(prompt_.questions, (std::vector<std::string>{question, question}));
  EXPECT_TRUE(prompt_.warnings.empty());
}

TEST_F(TypedName, AnExistingFolderIsRefusedQuietly) {
  for (std::string name : {"C:\\data\\sub", "C:\\data\\sub\\", "C:\\", "C:"}) {
    const std::string before = name;
    EXPECT_FALSE(Check(&name, kFlagFileMustExist | kFlagPathMustExist)) << name;
    EXPECT_EQ(name, before);
  }
  ExpectSilence();
}

TEST_F(TypedName, ANameThatIsNotFullIsRefusedQuietly) {
  for (std::string name : {"nofile", "C:nofile", "nofile\\", "表", ""}) {
    const std::string before = name;
    EXPECT_FALSE(Check(&name, kFlagFileMustExist | kFlagPathMustExist)) << name;
    EXPECT_EQ(name, before);
  }
  ExpectSilence();
}

TEST_F(TypedName, TheExtensionIsCompleted) {
  std::string name = "C:\\data\\a";
  EXPECT_TRUE(Check(&name, kFlagFileMustExist));
  EXPECT_EQ(name, "C:\\data\\a.MDL");
  ExpectSilence();
}

TEST_F(TypedName, OnlyTheLastPartDecidesAboutTheExtension) {
  os::scripted::World().files.AddFile("C:\\v1.2\\a.mdl");
  std::string name = "C:\\v1.2\\a";
  EXPECT_TRUE(Check(&name, kFlagFileMustExist));
  EXPECT_EQ(name, "C:\\v1.2\\a.MDL");
}

TEST_F(TypedName, AnExtensionWithWildcardsCompletesNoName) {
  rules_.extension = ".*";
  std::string name = "C:\\data\\a";
  EXPECT_FALSE(Check(&name, kFlagFileMustExist));
  EXPECT_EQ(name, "C:\\data\\a");
  ExpectOneWarning(FileNotFound("C:\\data\\a"));
}

TEST_F(TypedName, AMissingFileIsReportedOnceWithItsCompletedName) {
  std::string name = "C:\\nodir\\表";
  EXPECT_FALSE(Check(&name, kFlagFileMustExist | kFlagPathMustExist));
  EXPECT_EQ(name, "C:\\nodir\\表.MDL");
  ExpectOneWarning(FileNotFound("C:\\nodir\\表.MDL"));
  EXPECT_TRUE(os::scripted::World().session.beeps.empty());
}

TEST_F(TypedName, AFolderThatTheCompletedNameMeetsIsNoFile) {
  os::scripted::World().files.AddFolder("C:\\data\\x.mdl");
  std::string name = "C:\\data\\x";
  EXPECT_FALSE(Check(&name, kFlagFileMustExist));
  EXPECT_EQ(name, "C:\\data\\x.MDL");
  ExpectSilence();
}

TEST_F(TypedName, AnExistingPathIsEnoughForANewFile) {
  std::string name = "C:\\data\\new";
  EXPECT_TRUE(Check(&name, kFlagPathMustExist));
  EXPECT_EQ(name, "C:\\data\\new.MDL");
  ExpectSilence();
}

TEST_F(TypedName, ATrailingSeparatorIsDroppedFromTheName) {
  std::string name = "C:\\data\\new\\";
  EXPECT_TRUE(Check(&name, kFlagPathMustExist));
  EXPECT_EQ(name, "C:\\data\\new.MDL");
}

TEST_F(TypedName, ADrivesRootIsAFolder) {
  std::string name = "C:\\new.x";
  EXPECT_TRUE(Check(&name, kFlagPathMustExist));
  name = "Q:\\new.x";
  EXPECT_FALSE(Check(&name, kFlagPathMustExist));
  ExpectOneWarning(PathNotFound("Q:\\"));
}

TEST_F(TypedName, AMissingPathIsReported) {
  std::string name = "C:\\data\\nodir\\new";
  EXPECT_FALSE(Check(&name, kFlagPathMustExist));
  EXPECT_EQ(name, "C:\\data\\nodir\\new.MDL");
  ExpectOneWarning(PathNotFound("C:\\data\\nodir"));
}

TEST_F(TypedName, AFileIsNoPath) {
  std::string name = "C:\\data\\a.mdl\\new.x";
  EXPECT_FALSE(Check(&name, kFlagPathMustExist));
  ExpectOneWarning(PathNotFound("C:\\data\\a.mdl"));
}

TEST_F(TypedName, APathFromTheRootKeepsItsSeparator) {
  std::string name = "\\new.x";
  EXPECT_FALSE(Check(&name, kFlagPathMustExist));
  ExpectOneWarning(PathNotFound("\\"));
}

TEST_F(TypedName, ANameTypedWhereThereIsNoFolderIsNotFound) {
  os::scripted::World().files.AddFile("\\x.mdl");  // lies at the root of the drive that the process is on
  os::scripted::World().files.AddFile("\\new\\x.mdl");
  rules_.folder.clear();
  EXPECT_EQ(Resolve("x.mdl").outcome, Outcome::Refuse);
  ExpectOneWarning(FileNotFound("\\x.mdl"));
  prompt_.warnings.clear();
  EXPECT_EQ(Resolve("new\\y", kFlagPathMustExist).outcome, Outcome::OpenFolder);
  ExpectOneWarning(PathNotFound("\\new"));
  EXPECT_EQ(Resolve("C:\\data\\a.mdl").path, "C:\\data\\a.mdl");
}

TEST_F(TypedName, WithoutDemandsAMissingNameIsRefusedQuietly) {
  std::string name = "C:\\data\\new";
  EXPECT_FALSE(Check(&name, kFlagHideReadOnly));
  EXPECT_EQ(name, "C:\\data\\new.MDL");
  ExpectSilence();
}

TEST_F(TypedName, WhatCannotBeExaminedDoesNotExist) {
  os::scripted::World().calls.FailNext("files.Attributes", os::kErrorAccessDenied, 2);
  std::string name = "C:\\data\\a.mdl";
  EXPECT_FALSE(Check(&name, kFlagFileMustExist));
  ExpectOneWarning(FileNotFound("C:\\data\\a.mdl"));
}

TEST_F(TypedName, ANameOfTheLimitIsTakenAndALongerOneIsNot) {
  std::string name = "C:\\data\\" + std::string(kPathLimit - 10, 'x') + ".y";
  ASSERT_EQ(name.size(), kPathLimit);
  EXPECT_TRUE(Check(&name, kFlagPathMustExist));
  ExpectSilence();
  std::string longer = name + "z";
  EXPECT_FALSE(Check(&longer, kFlagPathMustExist));
  EXPECT_EQ(longer, name + "z");
  ExpectOneWarning(PathNotFound(name));
}

TEST_F(TypedName, ACompletionBeyondTheLimitIsRefused) {
  std::string name = "C:\\data\\" + std::string(kPathLimit - 10, 'x');
  EXPECT_FALSE(Check(&name, kFlagFileMustExist));
  EXPECT_EQ(name.size(), kPathLimit - 2);
  ExpectOneWarning(FileNotFound(name + ".M"));
}

/// `bytes` long, below C:\data.
std::string PathOfLength(std::size_t bytes) {
  const std::string folder = "C:\\data\\";
  return folder + std::string(bytes - folder.size() - 2, 'x') + ".y";
}

TEST_F(TypedName, ALowerLimitRefusesWhatIsLonger) {
  rules_.longestPath = kPathLimit - 1;
  const std::string fits = PathOfLength(kPathLimit - 1);
  const std::string tooLong = PathOfLength(kPathLimit);
  os::scripted::World().files.AddFile(fits);
  os::scripted::World().files.AddFile(tooLong);
  EXPECT_EQ(Resolve(fits).path, fits);
  EXPECT_EQ(Resolve(fits.substr(8), kFlagPathMustExist).path, fits);
  ExpectSilence();
  EXPECT_EQ(Resolve(tooLong).outcome, Outcome::Refuse);
  ExpectOneWarning(FileNotFound(tooLong));
  prompt_.warnings.clear();
  EXPECT_EQ(Resolve(tooLong.substr(8), kFlagPathMustExist).outcome, Outcome::Refuse) << "behind the folder";
  ExpectOneWarning(PathNotFound(tooLong));
  prompt_.warnings.clear();
  std::string selected = tooLong;
  EXPECT_FALSE(Check(&selected, kFlagFileMustExist)) << "of the list, or a shortcut's target";
  ExpectOneWarning(FileNotFound(tooLong));
}

TEST_F(TypedName, ALowerLimitCountsTheCompletion) {
  rules_.longestPath = kPathLimit - 1;
  const std::string bare = "C:\\data\\" + std::string(kPathLimit - 13, 'x');
  EXPECT_EQ(Resolve(bare, kFlagPathMustExist).path, bare + ".MDL");
  ExpectSilence();
  EXPECT_NE(Resolve(bare + "x", kFlagPathMustExist).outcome, Outcome::Accept);
  ExpectOneWarning(PathNotFound(bare + "x.MDL"));
}

TEST_F(TypedName, ALowerLimitIsNoneForFolders) {
  rules_.longestPath = 10;
  ExpectFolder(Resolve("C:\\data\\sub"), "C:\\data\\sub", "C:\\data\\sub");
  ExpectSilence();
}

TEST_F(TypedName, TheCutOfALongNameSplitsNoCharacter) {
  std::string name = "C:\\data\\a";
  while (name.size() < 600) name += "表";
  EXPECT_FALSE(Check(&name, kFlagFileMustExist));
  ExpectOneWarning(FileNotFound(name.substr(0, 255)));
}

// ------------------------------------------------------------------------------------------------- single names

TEST_F(TypedName, AnExistingFileIsChosen) {
  for (const char* text : {"a.mdl", "\\a.mdl", "C:\\data\\\\a.mdl", "a.mdl\\"}) {
    const NameAnswer answer = Resolve(text);
    EXPECT_EQ(answer.outcome, Outcome::Accept) << text;
    EXPECT_EQ(answer.path, "C:\\data\\a.mdl") << text;
  }
  ExpectSilence();
}

TEST_F(TypedName, ANetworkNameKeepsItsFirstSeparators) {
  EXPECT_EQ(Resolve("\\\\srv\\\\share\\n.mdl").path, "\\\\srv\\share\\n.mdl");
}

TEST_F(TypedName, ACompletedNameIsChosen) { EXPECT_EQ(Resolve("sub\\b").path, "C:\\data\\sub\\b.MDL"); }

TEST_F(TypedName, ANameWithSecondBytesOfSeparatorsIsChosen) {
  EXPECT_EQ(Resolve("表\\ソ.mdl").path, "C:\\data\\表\\ソ.mdl");
}

TEST_F(TypedName, AnExistingFolderIsOpened) {
  ExpectFolder(Resolve("sub"), "C:\\data\\sub", "C:\\data\\sub");
  ExpectFolder(Resolve("sub\\"), "C:\\data\\sub", "C:\\data\\sub");
  ExpectFolder(Resolve("C:"), "C:\\", "C:\\");
  ExpectFolder(Resolve("C:\\\\"), "C:\\", "C:\\");
  ExpectFolder(Resolve("\\\\srv\\share\\"), "\\\\srv\\share", "\\\\srv\\share");
  ExpectFolder(Resolve(""), "C:\\data", "C:\\data");
  EXPECT_FALSE(Resolve("sub").change.pattern.has_value());
  ExpectSilence();
}

TEST_F(TypedName, AComputerThatTheNetworkKnowsIsOpened) {
  os::scripted::NetNode server;
  server.record.displayType = os::kNetDisplayServer;
  server.record.remoteName = "\\\\srv";
  os::scripted::World().network.global.children.push_back(server);
  ExpectFolder(Resolve("\\\\srv"), "\\\\srv", "\\\\srv");
  ExpectFolder(Resolve("\\\\srv\\"), "\\\\srv", "\\\\srv");
  ExpectSilence();
  EXPECT_EQ(Resolve("\\\\none").outcome, Outcome::Refuse);
  ExpectOneWarning(FileNotFound("\\\\none.MDL"));
}

TEST_F(TypedName, ARefusedNameOpensItsFolder) {
  const NameAnswer answer = Resolve("sub\\none");
  ExpectFolder(answer, "C:\\data\\sub", "none.MDL");
  EXPECT_FALSE(answer.change.pattern.has_value());
  ExpectOneWarning(FileNotFound("C:\\data\\sub\\none.MDL"));
}

TEST_F(TypedName, ARefusedNameOpensItsFolderEvenWhenThereIsNone) {
  ExpectFolder(Resolve("Q:\\none.mdl", kFlagPathMustExist), "Q:\\", "none.mdl");
  ExpectOneWarning(PathNotFound("Q:\\"));
}

TEST_F(TypedName, ARefusedNameWhereThereIsNoFolderIsParted) {
  rules_.folder = "";
  // The second byte of the first character is that of a separator.
  EXPECT_EQ(Resolve("表示.mdl").outcome, Outcome::Refuse);
  const NameAnswer answer = Resolve("表\\能.mdl");
  EXPECT_EQ(answer.folder, "\\表");
  EXPECT_EQ(answer.nameField, "能.mdl");
  // Nothing but separators is no folder, and must not become the root of some drive.
  EXPECT_EQ(Resolve("\\\\\\none.mdl").outcome, Outcome::Refuse);
}

TEST_F(TypedName, ARefusedNameWithoutAFolderChangesNothing) {
  EXPECT_EQ(Resolve("C:none").outcome, Outcome::Refuse);
  ExpectSilence();
  EXPECT_EQ(Resolve("\\\\none").outcome, Outcome::Refuse);
}

TEST_F(TypedName, ATextOnAMissingDriveThatNothingIsSaidOfBeeps) {
  for (const char* text : {"Q:", "Q:none", "q:none.mdl", "1:none", "{:none"}) {
    EXPECT_EQ(Resolve(text).outcome, Outcome::Refuse) << text;
    ExpectOneBeep();
    EXPECT_FALSE(List(text).has_value()) << text;
    ExpectOneBeep();
  }
  rules_.flags = kFlagHideReadOnly;
  EXPECT_FALSE(List("a.mdl Q:\\none.mdl").has_value());
  ExpectOneBeep();
}

TEST_F(TypedName, TheAnswerTellsWhetherAMessageWasShown) {
  EXPECT_TRUE(Resolve("Q:\\none.mdl").told);
  EXPECT_TRUE(Resolve("Q:\\none.mdl", kFlagPathMustExist).told);
  EXPECT_TRUE(Resolve("sub\\none").told);
  EXPECT_FALSE(Resolve("Q:\\").told);
  EXPECT_FALSE(Resolve("Q:\\*.txt").told);
  EXPECT_FALSE(Resolve("sub").told);
  EXPECT_TRUE(os::scripted::World().session.beeps.empty());
}

TEST_F(TypedName, APatternWithoutASeparatorChangesNothing) {
  for (const char* text : {"C:*.mdl", "Q:*.mdl", "C:a?", "\\\\*"}) {
    EXPECT_EQ(Resolve(text).outcome, Outcome::Refuse) << text;
    ExpectOneBeep();
  }
  rules_.folder.clear();  // among drives there is no folder that a pattern could be of
  EXPECT_EQ(Resolve("*.mdl").outcome, Outcome::Refuse);
  ExpectOneBeep();
}

TEST_F(TypedName, ANewNameIsChosenForSaving) {
  EXPECT_EQ(Resolve("new", kFlagPathMustExist).path, "C:\\data\\new.MDL");
  ExpectSilence();
}

TEST_F(TypedName, DecliningToOverwriteChangesNothing) {
  prompt_.overwrite = false;
  EXPECT_EQ(Resolve("a.mdl", kFlagAskOverwrite | kFlagPathMustExist).outcome, Outcome::Refuse);
  EXPECT_EQ(prompt_.questions.size(), 1U);
  prompt_.overwrite = true;
  EXPECT_EQ(Resolve("a.mdl", kFlagAskOverwrite | kFlagPathMustExist).path, "C:\\data\\a.mdl");
  EXPECT_EQ(prompt_.questions.size(), 2U);
}

// ------------------------------------------------------------------------------------------------- fixed folder

TEST_F(TypedName, AFixedFolderRefusesEveryPath) {
  rules_.folderFixed = true;
  for (const char* text : {"C:", "C:\\data\\a.mdl", "sub\\b.mdl", "\\a.mdl", "a:b", "*\\*.mdl", "sub/b.mdl"}) {
    EXPECT_EQ(Resolve(text).outcome, Outcome::Refuse) << text;
    ExpectOneWarning(kFolderFixed);
    EXPECT_EQ(os::scripted::World().session.beeps, std::vector<std::uint32_t>{os::kBeepDefault});
    prompt_.warnings.clear();
    os::scripted::World().session.beeps.clear();
  }
}

TEST_F(TypedName, AFixedFolderRefusesTheNameOfAnotherFolder) {
  rules_.folderFixed = true;
  EXPECT_EQ(Resolve("sub").outcome, Outcome::Refuse);
  ExpectOneWarning(kFolderFixed);
}

TEST_F(TypedName, AFixedFolderTakesNamesAndPatterns) {
  rules_.folderFixed = true;
  EXPECT_EQ(Resolve("a.mdl").path, "C:\\data\\a.mdl");
  EXPECT_EQ(Resolve("表", kFlagPathMustExist).outcome, Outcome::Refuse);  // a folder
  prompt_.warnings.clear();
  EXPECT_EQ(Resolve("ソ表", kFlagPathMustExist).path, "C:\\data\\ソ表.MDL");
  ExpectFolder(Resolve("*.x"), "C:\\data", "*.x");
  ExpectFolder(Resolve(""), "C:\\data", "C:\\data");
  EXPECT_TRUE(prompt_.warnings.empty());
}

// ------------------------------------------------------------------------------------------------- patterns

TEST_F(TypedName, APatternBecomesTheNamePattern) {
  const NameAnswer answer = Resolve("*.XYZ");
  ExpectFolder(answer, "C:\\data", "*.XYZ");
  EXPECT_EQ(answer.change.pattern, "*.XYZ");
  EXPECT_EQ(answer.change.extension, ".XYZ");
  ExpectSilence();
}

TEST_F(TypedName, APatternBringsItsFolder) {
  ExpectFolder(Resolve("\\sub\\a?.m*"), "C:\\data\\sub", "a?.m*");
  ExpectFolder(Resolve("D:\\*"), "D:\\", "*");
  ExpectFolder(Resolve("\\\\srv\\share\\*.mdl"), "\\\\srv\\share", "*.mdl");
  ExpectFolder(Resolve("表\\*"), "C:\\data\\表", "*");
}

TEST_F(TypedName, APatternWithoutAPointKeepsTheExtension) {
  const NameAnswer answer = Resolve("a*");
  EXPECT_EQ(answer.change.pattern, "a*");
  EXPECT_FALSE(answer.change.extension.has_value());
}

TEST_F(TypedName, AWildcardAsSecondByteCannotOccur) {
  // No second byte of a double-byte character has the value of "*" or "?"; half a character in front of one hides it.
  EXPECT_EQ(Resolve("\x83*", kFlagPathMustExist).outcome, Outcome::Accept);
}

// ------------------------------------------------------------------------------------------------- long texts

TEST_F(TypedName, LongTextsAreRefusedOnceAndChangeNothing) {
  for (const std::size_t length : {257U, 600U, 100000U}) {
    for (const std::uint32_t flags : {kFlagFileMustExist, kFlagPathMustExist}) {
      for (const char* start : {"", "*", "\\\\srv\\", "C:\\"}) {
        EXPECT_EQ(Resolve(start + std::string(length, 'x'), flags).outcome, Outcome::Refuse);
        ASSERT_EQ(prompt_.warnings.size(), 1U);
        const std::string rest = flags == kFlagFileMustExist ? FileNotFound("") : PathNotFound("");
        EXPECT_EQ(prompt_.warnings.front().size(), kPathLimit + rest.size());
        EXPECT_TRUE(prompt_.warnings.front().ends_with(rest));
        prompt_.warnings.clear();
      }
    }
  }
}

TEST_F(TypedName, LongRunsOfSeparatorsAreOne) {
  EXPECT_EQ(Resolve("C:\\data" + std::string(100000, '\\') + "a.mdl").path, "C:\\data\\a.mdl");
}

TEST_F(TypedName, EveryCutOfANameIsBounded) {
  const std::string text = "C:\\data\\表\\\\ソ*.m?l";
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const NameAnswer answer = Resolve(text.substr(0, length), kFlagPathMustExist);
    EXPECT_LE(answer.path.size(), kPathLimit);
  }
}

// ------------------------------------------------------------------------------------------------- lists

TEST_F(TypedName, ListsAreFullPathsJoinedByBlanks) {
  rules_.flags = kFlagFileMustExist;
  EXPECT_EQ(List("a.mdl"), "C:\\data\\a.mdl");
  EXPECT_EQ(List("  a.mdl   \\sub\\b  "), "C:\\data\\a.mdl C:\\data\\sub\\b.MDL");
  ExpectSilence();
}

TEST_F(TypedName, QuotedNamesMayHoldBlanks) {
  os::scripted::World().files.AddFile("C:\\data\\x y.mdl");
  rules_.flags = kFlagFileMustExist;
  EXPECT_EQ(List("\"x y.mdl\" a.mdl"), "C:\\data\\x y.mdl C:\\data\\a.mdl");
  EXPECT_EQ(List("\"a.mdl\"\"x y\""), "C:\\data\\a.mdl C:\\data\\x y.MDL");
  EXPECT_EQ(List("\"表\\ソ.mdl\""), "C:\\data\\表\\ソ.mdl");
}

TEST_F(TypedName, AFullWidthBlankPartsNoNames) {
  rules_.flags = kFlagPathMustExist;
  EXPECT_EQ(List("表　ソ.x"), "C:\\data\\表　ソ.x");
}

TEST_F(TypedName, AnOpenQuoteIsReported) {
  EXPECT_EQ(List("\"a.mdl"), std::nullopt);
  ExpectOneWarning("ファイル名の記述が無効です。（\" が見つかりません）");
  EXPECT_EQ(os::scripted::World().session.beeps, std::vector<std::uint32_t>{os::kBeepDefault});
}

TEST_F(TypedName, ALoneQuoteIsOpen) {
  EXPECT_EQ(List("\""), std::nullopt);
  EXPECT_EQ(prompt_.warnings.size(), 1U);
}

TEST_F(TypedName, ARefusedNameRefusesTheList) {
  rules_.flags = kFlagFileMustExist;
  EXPECT_EQ(List("a.mdl none a.mdl \"open"), std::nullopt);
  ExpectOneWarning(FileNotFound("C:\\data\\none.MDL"));
  EXPECT_EQ(List("sub"), std::nullopt);
  EXPECT_EQ(List("\"\""), std::nullopt);
  EXPECT_EQ(prompt_.warnings.size(), 1U);
}

TEST_F(TypedName, ATextWithoutNamesIsAnEmptyList) {
  EXPECT_EQ(List(""), "");
  EXPECT_EQ(List("   "), "");
}

TEST_F(TypedName, AListEndsAtTheTerminator) {
  rules_.flags = kFlagFileMustExist;
  EXPECT_EQ(List(std::string_view("a.mdl\0 \"", 8)), "C:\\data\\a.mdl");
}

TEST_F(TypedName, ANameThatDoesNotFitIsLeftOut) {
  rules_.flags = kFlagFileMustExist;
  EXPECT_EQ(List("a.mdl", 15), "C:\\data\\a.mdl");  // 13 bytes and one more stay below 15
  EXPECT_EQ(List("a.mdl", 14), "");
  EXPECT_EQ(List("a.mdl", 0), "");
  EXPECT_EQ(List("a.mdl sub\\b a.mdl", 28), "C:\\data\\a.mdl C:\\data\\a.mdl");
  EXPECT_EQ(List("a.mdl a.mdl", 27), "C:\\data\\a.mdl");
  ExpectSilence();
}

TEST_F(TypedName, ALongListStaysBelowItsCapacity) {
  rules_.flags = kFlagFileMustExist;
  std::string text;
  for (int i = 0; i < 10000; ++i) text += "a.mdl ";
  const auto list = List(text);
  ASSERT_TRUE(list.has_value());
  EXPECT_EQ(list->size(), std::size_t{14 * 4681 - 1});
  EXPECT_LT(list->size(), kTypedListCapacity);
}

TEST_F(TypedName, ALongNameRefusesTheList) {
  rules_.flags = kFlagFileMustExist;
  EXPECT_EQ(List(std::string(100000, 'x')), std::nullopt);
  ASSERT_EQ(prompt_.warnings.size(), 1U);
  EXPECT_TRUE(prompt_.warnings.front().ends_with(FileNotFound("")));
}

// ------------------------------------------------------------------------------------------------- the window

TEST_F(TypedName, AWindowThatHasGoneDuringAMessageGetsNoAnswer) {
  prompt_.windowStays = false;
  rules_.flags = kFlagFileMustExist;
  for (const char* text : {"missing", "C:\\nowhere\\missing.mdl", "a.mdl\\b"}) {
    prompt_.warnings.clear();
    EXPECT_FALSE(ResolveTypedName(text, rules_, asks_)) << text;
    EXPECT_EQ(prompt_.warnings.size(), 1U) << text;
    EXPECT_FALSE(ResolveTypedList(text, rules_, asks_)) << text;
    EXPECT_EQ(prompt_.warnings.size(), 2U) << text;
  }
  EXPECT_FALSE(ResolveTypedName(std::string(kPathLimit, 'x') + "*", rules_, asks_));
  EXPECT_FALSE(ResolveTypedList("\"a.mdl", rules_, asks_));
  EXPECT_FALSE(ResolveTypedList("missing a.mdl", rules_, asks_)) << "the second name is not looked at";
  rules_.flags = kFlagPathMustExist;
  EXPECT_FALSE(ResolveTypedName("nowhere\\x", rules_, asks_));
  rules_.flags = kFlagAskOverwrite;
  EXPECT_FALSE(ResolveTypedName("a.mdl", rules_, asks_));
  EXPECT_FALSE(ResolveTypedList("a.mdl", rules_, asks_));
  rules_.folderFixed = true;
  EXPECT_FALSE(ResolveTypedName("D:\\x", rules_, asks_));
}

}  // namespace
