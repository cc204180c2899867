#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tests/suite/suite_fixture.h"

namespace {

constexpr int kFilesOnly = 0;
constexpr int kFoldersToo = 2;

struct Destroy {
  void operator()(CwFileFinder* finder) const { finder->Destroy(); }
};

class FileFinder : public SuiteTest {
 protected:
  FileFinder() { world_.AddDrive('C'); }

  std::vector<std::string> Find(const std::string& searchPath, int mode) {
    const std::unique_ptr<CwFileFinder, Destroy> finder(CwFileFinder::CreateInstance());
    std::vector<std::string> entries;
    finder->Start(searchPath, mode);
    while (finder->HasNext()) entries.push_back(finder->GetEntry());
    finder->Close();
    std::sort(entries.begin(), entries.end());
    return entries;
  }

  using Entries = std::vector<std::string>;
};

TEST_F(FileFinder, FindsFilesByPattern) {
  for (const char* name : {"a.mdl", "B.MDL", "c.mdlx", "d.md", "mdl", "e.mdl.bak"}) {
    world_.files.AddFile(std::string("C:\\plant\\") + name);
  }
  EXPECT_EQ(Find("C:/plant/*.MDL", kFilesOnly), (Entries{"C:/plant/B.MDL", "C:/plant/a.mdl"}));
  EXPECT_EQ(Find("C:/plant/?.md*l*", kFilesOnly),
            (Entries{"C:/plant/B.MDL", "C:/plant/a.mdl", "C:/plant/c.mdlx", "C:/plant/e.mdl.bak"}));
  EXPECT_EQ(Find("C:/plant/*", kFilesOnly).size(), 6u);
  EXPECT_EQ(Find("C:/plant/*.*", kFilesOnly).size(), 6u);
  EXPECT_EQ(Find("C:/plant/mdl", kFilesOnly), (Entries{"C:/plant/mdl"}));
  EXPECT_EQ(Find("C:/plant/", kFilesOnly), Entries{});
}

TEST_F(FileFinder, FoldersCountInModeTwoWhateverThePattern) {
  world_.files.AddFolder("C:\\plant\\sub");
  world_.files.AddFolder("C:\\plant\\old.mdl");
  world_.files.AddFile("C:\\plant\\a.mdl");
  world_.files.AddFile("C:\\plant\\a.txt");
  EXPECT_EQ(Find("C:/plant/*.mdl", kFilesOnly), (Entries{"C:/plant/a.mdl"}));
  EXPECT_EQ(Find("C:/plant/*.mdl", kFoldersToo), (Entries{"C:/plant/a.mdl", "C:/plant/old.mdl/", "C:/plant/sub/"}));
}

TEST_F(FileFinder, HiddenSystemAndInexactNamesAreSkipped) {
  world_.files.AddFile("C:\\p\\hidden", "", 0, os::kAttributeHidden);
  world_.files.AddFile("C:\\p\\system", "", 0, os::kAttributeSystem);
  world_.files.AddFile("C:\\p\\readonly", "", 0, os::kAttributeReadOnly);
  world_.files.AddFolder("C:\\p\\hiddenfolder").attributes = os::kAttributeHidden;
  world_.files.AddInexactName("C:\\p", "ea");
  world_.files.AddInexactName("C:\\p", "??", os::kAttributeFolder);
  EXPECT_EQ(Find("C:/p/*", kFoldersToo), (Entries{"C:/p/readonly"}));
}

TEST_F(FileFinder, ANameThatShiftJisCannotHoldIsMatchedAsItIsAndGivenByItsShortName) {
  world_.files.AddFile("C:\\p\\_~~~~1AB.MDL").longName = "??.MDLX";
  world_.files.AddFile("C:\\p\\CAF~2CD.MDL").longName = "caf?.mdl";
  world_.files.AddFolder("C:\\p\\_~~~3EF").longName = "?";
  EXPECT_EQ(Find("C:/p/*.mdl", kFilesOnly), (Entries{"C:/p/CAF~2CD.MDL"}));
  EXPECT_EQ(Find("C:/p/caf?.mdl", kFilesOnly), (Entries{"C:/p/CAF~2CD.MDL"}));
  EXPECT_EQ(Find("C:/p/??.*", kFilesOnly), (Entries{"C:/p/_~~~~1AB.MDL"}));
  EXPECT_EQ(Find("C:/p/*~*", kFilesOnly), Entries{});
  EXPECT_EQ(Find("C:/p/*.none", kFoldersToo), (Entries{"C:/p/_~~~3EF/"}));
}

TEST_F(FileFinder, NamesAreEuc) {
  world_.files.AddFile("C:\\図面\\表ソ①ｱ髙.mdl");
  world_.files.AddFolder("C:\\図面\\能");
  EXPECT_EQ(Find(Euc("C:/図面/表*.MDL"), kFoldersToo), (Entries{Euc("C:/図面/能/"), Euc("C:/図面/表ソ①ｱ髙.mdl")}));
  EXPECT_EQ(Find(Euc("C:/図面/?????.mdl"), kFilesOnly).size(), 1u);
}

TEST_F(FileFinder, AQuestionMarkIsACharacterNotAByte) {
  world_.files.AddFile("C:\\p\\表.mdl");
  world_.files.AddFile("C:\\p\\a.mdl");
  world_.files.AddFile("C:\\p\\ab.mdl");
  EXPECT_EQ(Find("C:/p/?.mdl", kFilesOnly).size(), 2u);
}

TEST_F(FileFinder, SecondBytesHaveNoLetterCase) {
  world_.files.AddFile("C:\\p\\ア");                       // 83 41
  EXPECT_EQ(Find(Euc("C:/p/チ"), kFilesOnly), Entries{});  // 83 60
  EXPECT_EQ(Find(Euc("C:/p/ア"), kFilesOnly).size(), 1u);
}

TEST_F(FileFinder, RootsAndSharesAreFolders) {
  world_.files.AddFile("C:\\a.mdl");
  world_.files.AddFile("\\\\server\\share\\b.mdl");
  EXPECT_EQ(Find("C:/*", kFilesOnly), (Entries{"C:/a.mdl"}));
  EXPECT_EQ(Find("//server/share/*", kFilesOnly), (Entries{"//server/share/b.mdl"}));
  EXPECT_EQ(world_.calls.Log()[0], "files.OpenFolder C:\\");
  EXPECT_EQ(Find("C://*", kFilesOnly), (Entries{"C://a.mdl"}));
}

TEST_F(FileFinder, AFolderIsOpenedWithoutTheSeparatorsAtItsEnd) {
  struct Case {
    const char* searchPath;
    const char* opened;
  };
  const Case cases[] = {
      {"C:/plant/*", "C:\\plant"},
      {"C:/plant///*", "C:\\plant"},
      {"C:/*", "C:\\"},
      {"C:///*", "C:\\"},
      {"//server/share/*", "\\\\server\\share"},
      {"/p/*", "\\p"},
      {"/*", "\\"},
      {"//*", "\\"},
      {"C:p/*", "C:p"},
      {"pq/*", "pq"},
      {"*", "."},
  };
  for (const Case& example : cases) {
    world_.calls.ClearLog();
    Find(example.searchPath, kFilesOnly);
    ASSERT_FALSE(world_.calls.Log().empty()) << example.searchPath;
    EXPECT_EQ(world_.calls.Log()[0], std::string("files.OpenFolder ") + example.opened) << example.searchPath;
  }
}

TEST_F(FileFinder, OneStartIsOnePass) {
  for (int i = 0; i < 100; ++i) world_.files.AddFile("C:\\p\\" + std::to_string(i) + ".mdl");
  EXPECT_EQ(Find("C:/p/*.mdl", kFoldersToo).size(), 100u);
  EXPECT_EQ(world_.calls.Count("files.OpenFolder"), 1u);
  EXPECT_EQ(world_.calls.Total(), 1 + world_.calls.Count("files.Next"));
}

TEST_F(FileFinder, AFolderThatCannotBeReadIsEmpty) {
  CwFileFinder* finder = CwFileFinder::CreateInstance();
  EXPECT_FALSE(finder->HasNext());
  EXPECT_EQ(finder->GetEntry(), "");
  EXPECT_FALSE(finder->Start("C:/missing/*", kFoldersToo));
  EXPECT_FALSE(finder->HasNext());
  world_.files.AddFile("C:\\p\\a");
  world_.calls.FailNext("files.OpenFolder");
  EXPECT_FALSE(finder->Start("C:/p/*", kFoldersToo));
  EXPECT_FALSE(finder->HasNext());
  finder->Destroy();
}

TEST_F(FileFinder, AFailureInThePassEndsIt) {
  world_.files.AddFile("C:\\p\\a");
  world_.files.AddFile("C:\\p\\b");
  world_.calls.FailNumber(5);  // the folder, ".", "..", "a" and then the fault
  EXPECT_EQ(Find("C:/p/*", kFilesOnly), (Entries{"C:/p/a"}));
  EXPECT_FALSE(world_.calls.FaultPending());
}

TEST_F(FileFinder, TheEntryIsGoneBehindTheEnd) {
  world_.files.AddFile("C:\\p\\a");
  CwFileFinder* finder = CwFileFinder::CreateInstance();
  ASSERT_TRUE(finder->Start("C:/p/*", kFilesOnly));
  EXPECT_EQ(finder->GetEntry(), "");
  ASSERT_TRUE(finder->HasNext());
  EXPECT_EQ(finder->GetEntry(), "C:/p/a");
  EXPECT_FALSE(finder->HasNext());
  EXPECT_FALSE(finder->HasNext());
  EXPECT_EQ(finder->GetEntry(), "");
  finder->Close();
  ASSERT_TRUE(finder->Start("C:/p/*", kFilesOnly));
  EXPECT_TRUE(finder->HasNext());
  finder->Destroy();  // also frees the pass
}

TEST_F(FileFinder, WithoutAFolderTheCurrentOneIsAskedFor) {
  world_.files.AddFile("C:\\a.mdl");
  const std::unique_ptr<CwFileFinder, Destroy> finder(CwFileFinder::CreateInstance());
  EXPECT_FALSE(finder->Start("*.mdl", kFilesOnly));  // the scripted machine has none
  EXPECT_FALSE(finder->HasNext());
}

}  // namespace
