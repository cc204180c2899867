// New folders, renaming, deleting and names edited in the list, as the browser goes on after them.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "dlglib/filedialog/names/folder_operations.h"
#include "tests/core/filedialog/browser/file_browser_fixture.h"

namespace browser_test {
namespace {

using Shown = std::vector<PlayedBrowser::Shown>;

constexpr std::size_t kShownNameBytes = 127;

class FileBrowserOperations : public FileBrowserTest {
 protected:
  void SelectSeveral() { startUp_.listStyle = filedialog::kListMultiple; }

  static bool Exists(const std::string& path) { return World().files.Find(path) != nullptr; }
  static std::string FileBytes(const std::string& path) {
    const os::scripted::Node* node = World().files.Find(path);
    return node == nullptr ? "(missing)" : node->bytes;
  }

  /// The dialog for a new folder, in which the user gives one name.
  static void Create(PlayedBrowser& browser, const std::string& name) {
    browser.answerNewFolder = [&name](const std::string& folder) {
      const auto result = filedialog::CreateFolderIn(os::Services(), folder, name);
      return filedialog::IsRefusal(result.outcome) ? std::nullopt : std::optional(name);
    };
    browser.MakeFolder();
  }

  static void Rename(PlayedBrowser& browser, const std::string& newName) {
    browser.answerRename = [&newName](const std::string& folder, const std::string& name, bool) {
      return !filedialog::IsRefusal(filedialog::RenameEntry(os::Services(), folder, name, newName).outcome);
    };
    browser.Rename();
  }

  static void GiveLabel(PlayedBrowser& browser, const std::string& name, const std::string& text) {
    ASSERT_TRUE(browser.EditLabel(name));
    browser.TypeLabel(text);
    browser.GiveLabel();
  }

  static Shown Refusal(const std::string& text) { return {{"refuse", text, ""}}; }
  /// What refuses the name of another entry.
  static Shown ThereIs(const std::string& name) {
    return Refusal("指定したファイルまたはディレクトリが既に存在するか、パスが無効です\n\nC:\\data\\" + name);
  }
};

// ---------------------------------------------------------------------------------------------------------------------
// new folder

TEST_F(FileBrowserOperations, ANewFolderIsListedAndSelected) {
  Run([](PlayedBrowser& browser) {
    browser.ClickHeader(1);
    browser.ClickRow("b.mdl");
    TakeListings();
    Create(browser, "新しい表");
    EXPECT_EQ(TakeListings(), 1U);
    EXPECT_EQ(browser.Rows(),
              (Texts{"old", "Sub", "新しい表", "表示", "a.mdl", "A-001.MDL", "b.mdl", "ソ.mdl", "表.mdl"}))
        << "by name again";
    EXPECT_EQ(browser.SortMark(0), 1);
    EXPECT_EQ(browser.SelectedNames(), Texts{"新しい表"});
    EXPECT_EQ(browser.Name(), "b.mdl");
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

TEST_F(FileBrowserOperations, ANewFolderIsOneStepOfTheHistory) {
  Run([](PlayedBrowser& browser) {
    browser.OpenRow("Sub");
    Create(browser, "n");
    EXPECT_EQ(browser.Rows(), (Texts{"n", "inner.mdl"}));
    browser.Back();
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    browser.Back();
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

TEST_F(FileBrowserOperations, AFolderIsMadeInARootAndOnTheDesktop) {
  startUp_.initialFolder = "D:\\";
  Run([](PlayedBrowser& browser) {
    Create(browser, "top");
    EXPECT_TRUE(Exists("D:\\top"));
    EXPECT_EQ(browser.SelectedNames(), Texts{"top"});
    browser.ChoosePlace("デスクトップ");
    Create(browser, "on");
    EXPECT_TRUE(Exists("C:\\desktop\\on"));
    EXPECT_EQ(browser.SelectedNames(), Texts{"on"});
  });
}

TEST_F(FileBrowserOperations, ACancelledFolderChangesNothing) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    TakeListings();
    browser.MakeFolder();
    EXPECT_EQ(browser.TakeShown(), (Shown{{"folder", "C:\\data", ""}}));
    EXPECT_EQ(TakeListings(), 0U);
    EXPECT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
    EXPECT_EQ(browser.Name(), "b.mdl");
    EXPECT_FALSE(browser.OpenWays().back);
  });
}

TEST_F(FileBrowserOperations, NoFolderIsMadeAmongDrives) {
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    EXPECT_FALSE(browser.OpenWays().newFolder);
    browser.MakeFolder();
    EXPECT_TRUE(browser.TakeShown().empty());
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// rename

TEST_F(FileBrowserOperations, ARenamedEntryIsListedAnew) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    TakeListings();
    Rename(browser, "z表.mdl");
    EXPECT_EQ(browser.TakeShown(), (Shown{{"rename", "b.mdl", ""}}));
    EXPECT_EQ(FileBytes("C:\\data\\z表.mdl"), std::string(1025, 'x'));
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "a.mdl", "A-001.MDL", "z表.mdl", "ソ.mdl", "表.mdl"}));
    EXPECT_EQ(TakeListings(), 1U);
    EXPECT_EQ(browser.SelectedNames(), Texts{});
    EXPECT_EQ(browser.Name(), "b.mdl") << "no new names";
  });
}

TEST_F(FileBrowserOperations, RenamingWantsOneEntryThatHasAName) {
  SelectSeveral();
  Run([](PlayedBrowser& browser) {
    const auto asks = [&browser] {
      browser.Rename();
      return !browser.TakeShown().empty();
    };
    EXPECT_FALSE(asks()) << "nothing is selected";
    browser.ClickRow("a.mdl");
    browser.AddRow("b.mdl");
    EXPECT_FALSE(asks()) << "two are selected";
    browser.ClickRow("Sub");
    EXPECT_TRUE(asks());
    browser.ChoosePlace("マイコンピュータ");
    browser.ClickRow("SYSTEM (C:)");
    EXPECT_FALSE(asks()) << "a drive";
  });
}

TEST_F(FileBrowserOperations, ARenameThatIsGivenUpListsNothing) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    TakeListings();
    browser.Rename();
    EXPECT_EQ(TakeListings(), 0U);
    EXPECT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
  });
}

TEST_F(FileBrowserOperations, AShortcutIsRenamedAndNotItsTarget) {
  World().files.AddFile("C:\\desktop\\図.lnk");
  World().shell.links["C:\\desktop\\図.lnk"] = "C:\\data\\b.mdl";
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("デスクトップ");
    browser.ClickRow("図.lnk");
    Rename(browser, "面.lnk");
    EXPECT_EQ(browser.TakeShown(), (Shown{{"rename", "図.lnk", ""}}));
    EXPECT_TRUE(Exists("C:\\desktop\\面.lnk"));
    EXPECT_TRUE(Exists("C:\\data\\b.mdl"));
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// delete

TEST_F(FileBrowserOperations, AFolderAndTwoFilesGoInOneOperation) {
  SelectSeveral();
  Run([](PlayedBrowser& browser) {
    for (const char* name : {"Sub", "b.mdl", "表.mdl"}) browser.AddRow(name);
    TakeListings();
    browser.Delete();
    ASSERT_EQ(World().shell.deletions.size(), 1U);
    std::string list = "C:\\data\\Sub|C:\\data\\b.mdl|C:\\data\\表.mdl|";
    std::replace(list.begin(), list.end(), '|', '\0');
    EXPECT_EQ(World().shell.deletions[0].list.substr(0, list.size()), list);
    EXPECT_EQ(browser.Rows(), (Texts{"old", "表示", "a.mdl", "A-001.MDL", "ソ.mdl"}));
    EXPECT_EQ(TakeListings(), 1U);
    EXPECT_EQ(browser.SelectedNames(), Texts{});
    EXPECT_EQ(browser.Name(), "b.mdl 表.mdl") << "no new names";
  });
}

TEST_F(FileBrowserOperations, DrivesAndNothingAreNotDeleted) {
  Run([](PlayedBrowser& browser) {
    browser.Delete();
    browser.ChoosePlace("マイコンピュータ");
    browser.ClickRow("REMOVABLE (D:)");
    browser.Delete();
    EXPECT_TRUE(World().shell.deletions.empty());
  });
}

TEST_F(FileBrowserOperations, AFailedDeleteLeavesTheListAlone) {
  World().shell.deleteOutcome.result = 5;
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    TakeListings();
    browser.Delete();
    EXPECT_EQ(World().shell.deletions.size(), 1U);
    EXPECT_EQ(TakeListings(), 0U);
    EXPECT_EQ(browser.SelectedNames(), Texts{"b.mdl"});
    EXPECT_TRUE(Beeps().empty()) << "the platform reports by itself";
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(FileBrowserOperations, TenThousandOfTheLongestPathsAreDeletedAtOnce) {
  SelectSeveral();
  constexpr std::size_t kRoom = 10'000;
  constexpr std::size_t kPathBytes = 256;
  const std::string folder = "C:\\many\\";
  const std::string rest = std::string(kPathBytes - folder.size() - 5 - 4, 'n') + ".mdl";
  for (std::size_t i = 0; i < kRoom + 3; ++i) {
    World().files.AddFile(folder + std::to_string(100'000 + i).substr(1) + rest);
  }
  World().files.AddFile(folder + "z.mdl");
  startUp_.initialFolder = folder;
  Run([](PlayedBrowser& browser) {
    browser.SelectAll();
    browser.Delete();
    ASSERT_EQ(World().shell.deletions.size(), 1U);
    const std::string& list = World().shell.deletions[0].list;
    EXPECT_EQ(static_cast<std::size_t>(std::count(list.begin(), list.end(), '\0')), kRoom + 1);
    const Texts rows = browser.Rows();
    ASSERT_EQ(rows.size(), 4U) << "what the list of paths cannot hold stays, and is seen to";
    EXPECT_EQ(rows.front().substr(0, 5), "10000");
    EXPECT_EQ(rows.back(), "z.mdl") << "also one that would have fitted by itself";
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// names edited in the list

TEST_F(FileBrowserOperations, ANameGivenInTheListIsTakenAndSelected) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    TakeListings();
    GiveLabel(browser, "b.mdl", "z.mdl");
    EXPECT_EQ(FileBytes("C:\\data\\z.mdl"), std::string(1025, 'x'));
    EXPECT_EQ(TakeListings(), 1U);
    EXPECT_EQ(browser.SelectedNames(), Texts{"z.mdl"});
    EXPECT_EQ(browser.Name(), "b.mdl");
  });
}

TEST_F(FileBrowserOperations, ANameThatIsGivenUpOrStaysRenamesNothing) {
  Run([](PlayedBrowser& browser) {
    ASSERT_TRUE(browser.EditLabel("b.mdl"));
    browser.TypeLabel("z.mdl");
    browser.GiveUpLabel();
    browser.GiveLabel();
    GiveLabel(browser, "b.mdl", "b.mdl");
    GiveLabel(browser, "b.mdl", "");
    EXPECT_EQ(World().calls.Count("files.Rename"), 0U);
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(FileBrowserOperations, ANameThatTheListShowsCutIsEditedWhole) {
  std::string name;
  for (int i = 0; i < 70; ++i) name += "表";
  name += ".mdl";
  World().files.AddFile("C:\\data\\" + name, "body");
  const auto shown = [](const std::string& whole) { return whole.substr(0, kShownNameBytes - 1); };
  Run([&](PlayedBrowser& browser) {
    ASSERT_TRUE(browser.EditLabel(shown(name)));
    EXPECT_EQ(browser.LabelText(), name);
    browser.TypeLabel("図" + name);
    browser.GiveLabel();
    EXPECT_EQ(FileBytes("C:\\data\\図" + name), "body");
    EXPECT_EQ(browser.SelectedNames(), Texts{shown("図" + name)});
  });
}

TEST_F(FileBrowserOperations, EveryWrongNameIsRefusedInTheList) {
  Run([](PlayedBrowser& browser) {
    for (const char* name :
         {"a\\b", "a/b", "a:b", "a*b", "a?b", "a\"b", "a<b", "a>b", "a|b", "a\tb", "CON", "com1.mdl"}) {
      SCOPED_TRACE(name);
      GiveLabel(browser, "b.mdl", name);
      EXPECT_EQ(browser.TakeShown(), Refusal("名前に無効な文字が含まれています"));
    }
    for (const char* name : {"a.mdl", "b.mdl.", "b.mdl ", ".."}) {
      SCOPED_TRACE(name);
      GiveLabel(browser, "b.mdl", name);
      EXPECT_EQ(browser.TakeShown(), ThereIs(name));
    }
    EXPECT_EQ(FileBytes("C:\\data\\b.mdl"), std::string(1025, 'x'));
    EXPECT_EQ(browser.Rows(), kAllRows);
    GiveLabel(browser, "b.mdl", "B.Mdl");
    EXPECT_EQ(browser.SelectedNames(), Texts{"B.Mdl"}) << "letter case alone is a new name";
  });
}

TEST_F(FileBrowserOperations, ARefusedNameStopsTheStepThatEndedItsEdit) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("Sub");
    ASSERT_TRUE(browser.EditLabel("Sub"));
    browser.TypeLabel("old");
    browser.Ok();
    EXPECT_EQ(browser.TakeShown(), ThereIs("old"));
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

TEST_F(FileBrowserOperations, CancelEndsTheBrowserAlsoWhenItsNameIsRefused) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    ASSERT_TRUE(browser.EditLabel("b.mdl"));
    browser.TypeLabel("a.mdl");
    browser.Cancel();
    EXPECT_EQ(browser.TakeShown(), ThereIs("a.mdl"));
    EXPECT_FALSE(browser.IsOpen());
  });
  EXPECT_EQ(outcome.answer, 2);
}

TEST_F(FileBrowserOperations, CancelGivesTheName) {
  Run([](PlayedBrowser& browser) {
    ASSERT_TRUE(browser.EditLabel("b.mdl"));
    browser.TypeLabel("z.mdl");
    browser.Cancel();
  });
  EXPECT_TRUE(Exists("C:\\data\\z.mdl"));
}

TEST_F(FileBrowserOperations, AChangeOfLetterCaseThatStopsHalfWayIsSeenInTheList) {
  Run([](PlayedBrowser& browser) {
    World().calls.FailNext("files.Rename", 13);
    TakeListings();
    GiveLabel(browser, "b.mdl", "B.MDL");
    EXPECT_EQ(browser.TakeShown(), ThereIs("B.MDL"));
    EXPECT_EQ(TakeListings(), 1U);
  });
}

TEST_F(FileBrowserOperations, DrivesHaveNoNamesToEdit) {
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    EXPECT_FALSE(browser.EditLabel("SYSTEM (C:)"));
  });
}

TEST_F(FileBrowserOperations, RowsThatThereAreNotHaveNoNamesToEdit) {
  Run([](PlayedBrowser& browser) {
    EXPECT_FALSE(browser.Core().BeginLabel(-1));
    EXPECT_FALSE(browser.Core().BeginLabel(static_cast<int>(kAllRows.size())));
  });
}

TEST_F(FileBrowserOperations, ANameWithoutARowRenamesNothing) {
  Run([](PlayedBrowser& browser) {
    browser.Core().GiveLabel("z.mdl");
    EXPECT_EQ(browser.Core().CommitLabel(), filedialog::FileBrowser::LabelEnd::Nothing);
    EXPECT_EQ(World().calls.Count("files.Rename"), 0U);
  });
}

TEST_F(FileBrowserOperations, ANameGivenInAFolderThatWasLeftIsTakenAndSelectsNothing) {
  World().files.AddFile("C:\\desktop\\z.mdl");
  Run([](PlayedBrowser& browser) {
    ASSERT_TRUE(browser.EditLabel("b.mdl"));
    browser.Core().GiveLabel("z.mdl");
    browser.ChoosePlace("デスクトップ");
    EXPECT_EQ(browser.Core().CommitLabel(), filedialog::FileBrowser::LabelEnd::Renamed);
    EXPECT_TRUE(Exists("C:\\data\\z.mdl"));
    EXPECT_EQ(browser.Rows(), Texts{"z.mdl"});
    EXPECT_EQ(browser.SelectedNames(), Texts{}) << "another folder's entry of that name";
  });
}

TEST_F(FileBrowserOperations, AWindowThatGoesDuringAQuestionIsNotTouched) {
  const auto close = [](PlayedBrowser& browser) { browser.CloseNow(); };
  Run([&](PlayedBrowser& browser) {
    browser.answerNewFolder = [&](const std::string&) {
      close(browser);
      return std::optional<std::string>("n");
    };
    browser.MakeFolder();
    EXPECT_FALSE(browser.IsOpen());
  });
  Run([&](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    browser.answerRename = [&](const std::string&, const std::string&, bool) {
      close(browser);
      return true;
    };
    browser.Rename();
    EXPECT_FALSE(browser.IsOpen());
  });
  Run([&](PlayedBrowser& browser) {
    browser.whileReading = [&] { close(browser); };
    GiveLabel(browser, "b.mdl", "a.mdl");
    EXPECT_FALSE(browser.IsOpen());
  });
}

}  // namespace
}  // namespace browser_test
