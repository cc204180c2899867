// What is listed, what is selected, and what OK makes of the file name box.
#include <algorithm>
#include <string>
#include <vector>

#include "tests/core/filedialog/browser/file_browser_fixture.h"

namespace browser_test {
namespace {

using filedialog::kFlagAskOverwrite;
using filedialog::kFlagFileMustExist;
using filedialog::kFlagHideReadOnly;
using filedialog::kFlagPathMustExist;
using filedialog::ViewMode;
using os::RegistryType;

constexpr int kChosen = 1;
constexpr int kCancelled = 2;
constexpr ViewMode kLargeIcons = ViewMode::LargeIcons;
constexpr ViewMode kDetails = ViewMode::Details;
constexpr ViewMode kList = ViewMode::List;
constexpr char kOverwrite[] = "\nファイルは既に存在します。\n上書きしますか。";
constexpr char kFolderFixed[] = "ディレクトリを変更することはできません。";

class FileBrowserListing : public FileBrowserTest {};

TEST_F(FileBrowserListing, ADriveIsOpenedByOkAndByDoubleClick) {
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    browser.ClickRow("REMOVABLE (D:)");
    EXPECT_EQ(browser.Name(), "");
    browser.Ok();
    EXPECT_EQ(browser.Rows(), Texts{"disk.mdl"});
    browser.Up();
    browser.OpenRow("SYSTEM (C:)");
    EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop"}));
  });
}

TEST_F(FileBrowserListing, EveryStepListsAFolderOnce) {
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(TakeListings(), 1U) << "start";
    browser.OpenRow("表示");
    EXPECT_EQ(browser.Rows(), Texts{"図.mdl"});
    EXPECT_EQ(TakeListings(), 1U) << "double click";
    browser.Up();
    EXPECT_EQ(TakeListings(), 1U) << "up";
    browser.Back();
    EXPECT_EQ(browser.Rows(), Texts{"図.mdl"});
    EXPECT_EQ(TakeListings(), 1U) << "back";
    browser.ChoosePlace("data");
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_EQ(TakeListings(), 1U) << "location bar";
    browser.ChooseView(ViewMode::LargeIcons);
    EXPECT_EQ(TakeListings(), 1U) << "view";
    browser.ChooseView(ViewMode::Details);
    TakeListings();
    browser.Enter("Sub");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    EXPECT_EQ(TakeListings(), 1U) << "typed folder";
    browser.Enter("C:\\data\\*.txt");
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "other.txt"}));
    EXPECT_EQ(TakeListings(), 1U) << "pattern";
    browser.ChoosePlace("REMOVABLE (D:)");
    EXPECT_EQ(TakeListings(), 1U) << "drive";
    browser.ChoosePlace("マイコンピュータ");
    EXPECT_EQ(TakeListings(), 0U) << "computer";
    browser.ChoosePlace("デスクトップ");
    EXPECT_EQ(TakeListings(), 2U) << "desktop: its folder, then its shortcuts";
  });
}

TEST_F(FileBrowserListing, OneStepBackUndoesOneStep) {
  Run([](PlayedBrowser& browser) {
    browser.OpenRow("Sub");
    browser.Enter("..\\表示");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "表示"}));
    browser.ChooseView(ViewMode::List);
    browser.Enter("*.txt");
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.Back();
    EXPECT_EQ(browser.Rows(), Texts{"図.mdl"});
    browser.Back();
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    browser.Back();
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.Back();
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

class FileBrowserSelection : public FileBrowserTest {
 protected:
  void SelectSeveral() { startUp_.listStyle = filedialog::kListMultiple; }
};

TEST_F(FileBrowserSelection, AFolderLeavesTheTextAsItWas) {
  initialName_ = "b.mdl";
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Name(), "b.mdl");
    browser.ClickRow("Sub");
    EXPECT_EQ(browser.Name(), "b.mdl");
    browser.ClickRow("a.mdl");
    browser.ClickRow("old");
    EXPECT_EQ(browser.Name(), "a.mdl");
    EXPECT_EQ(browser.OfferedNames(), Texts{"a.mdl"});
  });
}

TEST_F(FileBrowserSelection, AClickedFileIsOfferedAtTheTopOfTheList) {
  World().registry.SetValue(kLayoutKey, "File01", RegistryType::String, "C:\\data\\b.mdl");
  World().registry.SetValue(kLayoutKey, "File02", RegistryType::String, "A-001.mdl");
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.OfferedNames(), (Texts{"C:\\data\\b.mdl", "A-001.mdl"}));
    EXPECT_EQ(browser.Name(), "");
    browser.ClickRow("A-001.MDL");
    EXPECT_EQ(browser.Name(), "A-001.MDL");
    EXPECT_EQ(browser.OfferedNames(), (Texts{"A-001.MDL", "C:\\data\\b.mdl", "A-001.mdl"}));
    browser.ClickRow("表.mdl");
    browser.ClickRow("A-001.MDL");
    EXPECT_EQ(browser.OfferedNames(), (Texts{"表.mdl", "A-001.MDL", "C:\\data\\b.mdl", "A-001.mdl"}));
  });
}

TEST_F(FileBrowserSelection, SeveralFilesAreJoinedAndAddNothingToTheList) {
  SelectSeveral();
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    browser.AddRow("a.mdl");
    EXPECT_EQ(browser.Name(), "a.mdl b.mdl");
    EXPECT_EQ(browser.OfferedNames(), Texts{"b.mdl"});
    browser.AddRow("Sub");
    EXPECT_EQ(browser.Name(), "a.mdl b.mdl");
    browser.AddRow("b.mdl");
    EXPECT_EQ(browser.Name(), "a.mdl");
    browser.SelectAll();
    EXPECT_EQ(browser.Name(), "a.mdl A-001.MDL b.mdl ソ.mdl 表.mdl");
  });
}

TEST_F(FileBrowserSelection, JoiningStopsAtTheFirstNameBeyondTheBuffer) {
  SelectSeveral();
  capacity_ = 12;
  Run([](PlayedBrowser& browser) {
    for (const char* name : {"a.mdl", "A-001.MDL", "表.mdl"}) browser.AddRow(name);
    EXPECT_EQ(browser.Name(), "a.mdl");
    browser.ClickRow("b.mdl");
    browser.AddRow("ソ.mdl");
    EXPECT_EQ(browser.Name(), "b.mdl ソ.mdl") << "5 + 6 bytes fit; the blank is not counted";
  });
}

TEST_F(FileBrowserSelection, AClickBesideTheRowsKeepsTheName) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    browser.ClickBesideRows();
    EXPECT_EQ(browser.Name(), "b.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

class FileBrowserOk : public FileBrowserTest {};

TEST_F(FileBrowserOk, ARecentFileCountsMoreThanTheSelection) {
  World().registry.SetValue(kLayoutKey, "File01", RegistryType::String, "D:\\disk.mdl");
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ClickRow("Sub");
    browser.TakeOfferedName("D:\\disk.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.result, "D:\\disk.mdl");
}

/// What a browser shows that a refused text must not change.
std::vector<Texts> ShownState(const PlayedBrowser& browser) {
  return {browser.Rows(), browser.Trail(), {browser.KindLine()}, {browser.Name()}};
}

TEST_F(FileBrowserOk, ADriveThatHasBeenPulledOutDoesNotExist) {
  Run([](PlayedBrowser& browser) {
    const std::vector<Texts> before = ShownState(browser);
    World().drives.erase('D');
    World().files.Remove("D:");
    for (const char* text : {"D:\\*.txt", "D:\\"}) {
      Beeps().clear();
      browser.Enter(text);
      EXPECT_EQ(Beeps().size(), 1U) << text;
      EXPECT_EQ(ShownState(browser), (std::vector<Texts>{before[0], before[1], before[2], {text}})) << text;
    }
    browser.Enter("D:\\disk.mdl");
    ExpectWarning(browser, std::string("D:\\disk.mdl") + kFileNotFound);
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(FileBrowserOk, ATextOnADriveThatDoesNotExistChangesNothingAndGivesOneSignal) {
  struct Case {
    std::string text;
    std::string message;  ///< empty: a beep instead
  };
  const std::vector<Case> cases = {{"Q:\\none.mdl", "Q:\\none.mdl"},
                                   {"Q:\\dir\\sub", "Q:\\dir\\sub.MDL"},
                                   {"Q:\\dir\\", "Q:\\dir.MDL"},
                                   {"Q:", ""},
                                   {"Q:\\", ""},
                                   {"Q:none.mdl", ""},
                                   {"Q:\\*.txt", ""},
                                   {"Q:\\dir\\*.txt", ""},
                                   {"Q:*.txt", ""},
                                   {"C:*.txt", ""},
                                   {"\\\\*", ""}};
  for (const std::uint32_t style : {filedialog::kListSingle, filedialog::kListMultiple}) {
    startUp_.listStyle = style;
    Run([&cases](PlayedBrowser& browser) {
      const std::string kindLine = browser.KindLine();
      for (const auto& [text, message] : cases) {
        SCOPED_TRACE(text);
        Beeps().clear();
        browser.Enter(text);
        if (!message.empty()) ExpectWarning(browser, message + kFileNotFound);
        EXPECT_EQ(Beeps().size(), message.empty() ? 1U : 0U);
        EXPECT_TRUE(browser.TakeShown().empty());
        EXPECT_EQ(ShownState(browser), (std::vector<Texts>{kAllRows, {"data"}, {kindLine}, {text}}));
      }
      browser.ChooseView(kList);
      EXPECT_EQ(browser.Rows(), kAllRows) << "the pattern stays too";
    });
  }
}

TEST_F(FileBrowserOk, AMissingPathOnADriveThatDoesNotExistIsToldWithoutABeep) {
  startUp_.flags = kFlagHideReadOnly | kFlagPathMustExist;
  Run([](PlayedBrowser& browser) {
    Beeps().clear();
    browser.Enter("Q:\\dir\\new");
    ExpectWarning(browser, std::string("Q:\\dir") + kPathNotFound);
    EXPECT_TRUE(Beeps().empty());
    EXPECT_EQ(browser.Name(), "Q:\\dir\\new");
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

TEST_F(FileBrowserOk, APatternAmongDrivesChangesNothing) {
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    const Texts drives = browser.Rows();
    Beeps().clear();
    browser.Enter("*.txt");
    EXPECT_EQ(Beeps().size(), 1U);
    EXPECT_EQ(browser.Rows(), drives);
    EXPECT_EQ(browser.Name(), "*.txt");
    browser.Enter("C:\\data");
    EXPECT_EQ(browser.Rows(), kAllRows) << "the kind's pattern is still in force";
  });
}

TEST_F(FileBrowserOk, WithoutAFlagAMissingFileIsRefusedQuietly) {
  startUp_.flags = kFlagHideReadOnly;
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.Enter("nothere");
    EXPECT_TRUE(browser.TakeShown().empty());
    EXPECT_EQ(browser.Name(), "nothere.MDL");
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.Enter("b.mdl");
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

/// Makes a folder and presses the OK button.
void CreateAndOk(PlayedBrowser& browser, const std::string& name) {
  browser.answerNewFolder = [&name](const std::string& folder) {
    os::scripted::World().files.AddFolder(folder + "\\" + name);
    return std::optional(name);
  };
  browser.MakeFolder();
  EXPECT_EQ(browser.SelectedNames(), Texts{name});
  browser.Ok();
}

TEST_F(FileBrowserOk, ANewFolderDoesNotCountMoreThanTheNameInTheBox) {
  const Outcome clicked = Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    CreateAndOk(browser, "n");
  });
  EXPECT_EQ(clicked.result, "C:\\data\\b.mdl") << "a name that a click had put there";
  const Outcome typed = Run([](PlayedBrowser& browser) {
    browser.TypeName("表.mdl");
    CreateAndOk(browser, "n2");
  });
  EXPECT_EQ(typed.result, "C:\\data\\表.mdl");
  initialName_ = "a.mdl";
  const Outcome initial = Run([](PlayedBrowser& browser) { CreateAndOk(browser, "n3"); });
  EXPECT_EQ(initial.result, "C:\\data\\a.mdl");
}

TEST_F(FileBrowserOk, ANewFolderIsOpenedWhenTheBoxIsEmptyOrShowsItsName) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    CreateAndOk(browser, "empty");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "empty"}));
    browser.Up();
    browser.TypeName("same");
    CreateAndOk(browser, "same");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "same"}));
    EXPECT_EQ(browser.Name(), "same") << "as a selected folder is opened";
    browser.Up();
    browser.TypeName("");
    CreateAndOk(browser, "cleared");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "cleared"}));
    browser.Up();
    browser.ClickRow("b.mdl");
    CreateAndOk(browser, "b");
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(FileBrowserOk, ANewFolderThatTheUserClicksOnIsOpened) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    browser.answerNewFolder = [](const std::string&) {
      World().files.AddFolder("C:\\data\\n");
      return std::optional<std::string>("n");
    };
    browser.MakeFolder();
    browser.OpenRow("n");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "n"}));
    EXPECT_EQ(browser.Name(), "b.mdl");
  });
}

TEST_F(FileBrowserOk, OverwritingIsAskedFor) {
  startUp_.flags = kFlagHideReadOnly | kFlagPathMustExist | kFlagAskOverwrite;
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    using Shown = std::vector<PlayedBrowser::Shown>;
    const auto question = [](const std::string& path) { return Shown{{"overwrite", path + kOverwrite, kCaption}}; };
    browser.Enter("b.mdl");
    EXPECT_EQ(browser.TakeShown(), question("C:\\data\\b.mdl"));
    EXPECT_TRUE(browser.IsOpen());
    browser.ClickRow("表.mdl");
    browser.Ok();
    EXPECT_EQ(browser.TakeShown(), question("C:\\data\\表.mdl"));
    EXPECT_TRUE(browser.IsOpen());
    browser.answerOverwrite = [](const std::string&) { return true; };
    browser.Ok();
  });
  EXPECT_EQ(outcome.answer, kChosen);
  EXPECT_EQ(outcome.result, "C:\\data\\表.mdl");
}

TEST_F(FileBrowserOk, AFixedFolderIsNotLeft) {
  startUp_.folderFixed = true;
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Rows(), (Texts{"a.mdl", "A-001.MDL", "b.mdl", "ソ.mdl", "表.mdl"}));
    browser.Up();
    browser.Back();
    EXPECT_EQ(browser.OpenWays(), (filedialog::Ways{.up = false, .back = false, .newFolder = true}));
    EXPECT_EQ(browser.Rows().size(), 5U);
    for (const char* text : {"D:\\disk.mdl", "Sub\\inner.mdl", "..\\x", "C:"}) {
      Beeps().clear();
      browser.Enter(text);
      ExpectWarning(browser, kFolderFixed);
      EXPECT_EQ(Beeps(), std::vector<std::uint32_t>{os::kBeepDefault});
      EXPECT_EQ(browser.Name(), text);
    }
    browser.Enter("b*");
    EXPECT_EQ(browser.Rows(), Texts{"b.mdl"});
    browser.Enter("表.mdl");
  });
  EXPECT_EQ(outcome.answer, kChosen);
  EXPECT_EQ(outcome.result, "C:\\data\\表.mdl");
  EXPECT_EQ(SavedRecentFiles(), Texts{"表.mdl"});
}

TEST_F(FileBrowserOk, ASelectedFileIsAccepted) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ClickRow("表.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.answer, kChosen);
  EXPECT_EQ(outcome.result, "C:\\data\\表.mdl");
  EXPECT_EQ(SavedRecentFiles(), Texts{"C:\\data\\表.mdl"});
}

TEST_F(FileBrowserOk, ADoubleClickedFileIsAccepted) {
  const Outcome outcome = Run([](PlayedBrowser& browser) { browser.OpenRow("ソ.mdl"); });
  EXPECT_EQ(outcome.answer, kChosen);
  EXPECT_EQ(outcome.result, "C:\\data\\ソ.mdl");
}

TEST_F(FileBrowserOk, ASelectedFolderIsOpenedAlthoughTheBoxHoldsAName) {
  initialName_ = "b.mdl";
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("Sub");
    browser.Ok();
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    EXPECT_EQ(browser.Name(), "b.mdl");
  });
}

TEST_F(FileBrowserOk, TypedTextCountsMoreThanTheSelection) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ClickRow("Sub");
    browser.Enter("b.mdl");
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(FileBrowserOk, TypedNamesAreMadeFull) {
  const std::vector<std::pair<std::string, std::string>> names = {
      {"b.mdl", "C:\\data\\b.mdl"},
      {"C:\\data\\Sub\\inner.mdl", "C:\\data\\Sub\\inner.mdl"},
      {"C:\\\\data\\\\\\Sub\\inner.mdl", "C:\\data\\Sub\\inner.mdl"},
      {"\\Sub\\inner.mdl", "C:\\data\\Sub\\inner.mdl"},
      {"表示\\図.mdl", "C:\\data\\表示\\図.mdl"},
      {"a-001", "C:\\data\\a-001.MDL"},
      {"D:\\disk", "D:\\disk.MDL"},
      {"b.mdl\\", "C:\\data\\b.mdl"},
  };
  for (const auto& [typed, path] : names) {
    const Outcome outcome = Run([&typed = typed](PlayedBrowser& browser) { browser.Enter(typed); });
    EXPECT_EQ(outcome.answer, kChosen) << typed;
    EXPECT_EQ(outcome.result, path) << typed;
  }
}

TEST_F(FileBrowserOk, ATypedFolderIsOpened) {
  Run([](PlayedBrowser& browser) {
    browser.Enter("Sub");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    EXPECT_EQ(browser.Name(), "C:\\data\\Sub");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    browser.Enter("C:\\data\\表示\\");
    EXPECT_EQ(browser.Rows(), Texts{"図.mdl"});
    EXPECT_EQ(browser.Name(), "C:\\data\\表示");
    browser.Enter("D:\\");
    EXPECT_EQ(browser.Rows(), Texts{"disk.mdl"});
    EXPECT_EQ(browser.Trail(), Texts{});
    browser.Enter("C:");
    EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop"}));
    browser.Enter("data\\..\\data");
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(FileBrowserOk, APatternListsWhatItFits) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.Enter("?.mdl");
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "a.mdl", "b.mdl", "ソ.mdl", "表.mdl"}));
    EXPECT_EQ(browser.Name(), "?.mdl");
    browser.Enter("*.txt");
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "other.txt"}));
    EXPECT_EQ(browser.Name(), "*.txt");
    browser.Enter("Sub\\*.m*");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    EXPECT_EQ(browser.Name(), "*.m*");
    browser.Back();
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "other.txt"}));
    EXPECT_EQ(browser.Name(), "*.txt");
    browser.Enter("other");
  });
  EXPECT_EQ(outcome.result, "C:\\data\\other.txt") << "the pattern's extension completes a name";
}

TEST_F(FileBrowserOk, AFileThatMustExistIsMissed) {
  Run([](PlayedBrowser& browser) {
    browser.Enter("nothere");
    ExpectWarning(browser, std::string("C:\\data\\nothere.MDL") + kFileNotFound);
    EXPECT_EQ(browser.Name(), "nothere.MDL");
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.Enter("Sub\\表.x");
    ExpectWarning(browser, std::string("C:\\data\\Sub\\表.x") + kFileNotFound);
    EXPECT_EQ(browser.Name(), "表.x");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
  });
  EXPECT_EQ(SavedRecentFiles(), Texts{});
}

TEST_F(FileBrowserOk, APathThatMustExistIsMissed) {
  startUp_.flags = kFlagHideReadOnly | kFlagPathMustExist;
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.Enter("no\\new");
    ExpectWarning(browser, std::string("C:\\data\\no") + kPathNotFound);
    EXPECT_EQ(browser.Name(), "new.MDL");
    EXPECT_EQ(browser.Rows(), Texts{});
    EXPECT_EQ(browser.Trail(), (Texts{"data", "no"}));
    browser.Enter("C:\\data\\new");
  });
  EXPECT_EQ(outcome.answer, kChosen);
  EXPECT_EQ(outcome.result, "C:\\data\\new.MDL");
  EXPECT_EQ(SavedRecentFiles(), Texts{"C:\\data\\new.MDL"});
}

TEST_F(FileBrowserOk, ANewFileInADrivesRootNeedsTheDrive) {
  startUp_.flags = kFlagHideReadOnly | kFlagPathMustExist;
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.Enter("Q:\\new.mdl");
    ExpectWarning(browser, std::string("Q:\\") + kPathNotFound);
    EXPECT_TRUE(browser.IsOpen());
    browser.Enter("D:\\new");
  });
  EXPECT_EQ(outcome.result, "D:\\new.MDL");
}

TEST_F(FileBrowserOk, AResultThatDoesNotFitEndsAsCancelled) {
  capacity_ = sizeof("C:\\data\\b.mdl");
  EXPECT_EQ(Run([](PlayedBrowser& browser) { browser.OpenRow("b.mdl"); }).answer, kChosen);
  --capacity_;
  EXPECT_EQ(Run([](PlayedBrowser& browser) { browser.OpenRow("b.mdl"); }).answer, kCancelled);
  EXPECT_EQ(Run([](PlayedBrowser& browser) { browser.Enter("b.mdl"); }).answer, kCancelled);
}

TEST_F(FileBrowserOk, AnAcceptedFileMovesToTheFrontOfTheRecentOnes) {
  const Texts before = {"D:\\disk.mdl", "C:\\DATA\\B.MDL", "c:\\data\\b.mdl", "x.mdl"};
  for (std::size_t i = 0; i < before.size(); ++i) {
    World().registry.SetValue(kLayoutKey, "File0" + std::to_string(i + 1), RegistryType::String, before[i]);
  }
  Run([](PlayedBrowser& browser) { browser.Enter("b.mdl"); });
  EXPECT_EQ(SavedRecentFiles(), (Texts{"C:\\data\\b.mdl", "D:\\disk.mdl", "c:\\data\\b.mdl", "x.mdl"}));
}

TEST_F(FileBrowserOk, OnlySoManyRecentFilesAreKept) {
  World().registry.SetValue(kLayoutKey, "FileCount", RegistryType::Dword, std::string("\2\0\0\0", 4));
  for (const int number : {1, 2, 3}) {
    const std::string digit = std::to_string(number);
    World().registry.SetValue(kLayoutKey, "File0" + digit, RegistryType::String, digit + ".mdl");
  }
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.OfferedNames(), (Texts{"1.mdl", "2.mdl"}));
    browser.Enter("b.mdl");
  });
  EXPECT_EQ(SavedRecentFiles(), (Texts{"C:\\data\\b.mdl", "1.mdl"}));
}

class FileBrowserSeveral : public FileBrowserTest {
 protected:
  FileBrowserSeveral() { startUp_.listStyle = filedialog::kListMultiple; }
};

TEST_F(FileBrowserSeveral, SelectedFilesAreJoinedByBlanks) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ClickRow("Sub");
    browser.AddRow("b.mdl");
    browser.AddRow("表.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.answer, kChosen);
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl C:\\data\\表.mdl");
}

TEST_F(FileBrowserSeveral, OneFileAmongFoldersIsEnough) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ClickRow("Sub");
    browser.AddRow("b.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(FileBrowserSeveral, ShortcutsToFilesCountAsTheirTargets) {
  World().files.AddFile("C:\\desktop\\own.mdl");
  for (const auto& [name, target] : {std::pair{"1.lnk", "C:\\data\\b.mdl"}, std::pair{"2.lnk", "D:\\disk.mdl"}}) {
    World().files.AddFile(std::string("C:\\desktop\\") + name);
    World().shell.links[std::string("C:\\desktop\\") + name] = target;
  }
  const auto choose = [this](const Texts& rows) {
    return Run([&rows](PlayedBrowser& browser) {
      browser.ChoosePlace("デスクトップ");
      for (const std::string& row : rows) browser.AddRow(row);
      browser.Ok();
    });
  };
  EXPECT_EQ(choose({"own.mdl", "2.lnk", "1.lnk"}).result, "C:\\data\\b.mdl D:\\disk.mdl C:\\desktop\\own.mdl")
      << "in the order of the list";
  const Outcome alone = choose({"1.lnk", "2.lnk"});
  EXPECT_EQ(alone.answer, kChosen);
  EXPECT_EQ(alone.result, "C:\\data\\b.mdl D:\\disk.mdl");
}

TEST_F(FileBrowserSeveral, AShortcutWhoseTargetHasGoneKeepsTheDialogOpen) {
  World().files.AddFile("C:\\desktop\\own.mdl");
  World().files.AddFile("C:\\desktop\\lost.lnk");
  World().shell.links["C:\\desktop\\lost.lnk"] = "C:\\none\\x.mdl";
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("デスクトップ");
    browser.ClickRow("lost.lnk");
    browser.AddRow("own.mdl");
    browser.Ok();
    ExpectWarning(browser, std::string("C:\\none\\x.mdl") + kFileNotFound);
    EXPECT_EQ(browser.SelectedNames(), (Texts{"lost.lnk", "own.mdl"}));
  });
}

TEST_F(FileBrowserSeveral, FoldersAloneAreRefused) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("Sub");
    browser.AddRow("old");
    Beeps().clear();
    browser.Ok();
    ExpectWarning(browser, "ファイルが選択されていません。");
    EXPECT_EQ(Beeps().size(), 1U);
    EXPECT_EQ(browser.SelectedNames(), (Texts{"old", "Sub"}));
    browser.ClickRow("Sub");
    browser.Ok();
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
  });
}

TEST_F(FileBrowserSeveral, AFileThatHasGoneKeepsTheDialogOpen) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("a.mdl");
    browser.AddRow("b.mdl");
    World().files.Remove("C:\\data\\b.mdl");
    browser.Ok();
    ExpectWarning(browser, std::string("C:\\data\\b.mdl") + kFileNotFound);
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(FileBrowserSeveral, AListThatDoesNotFitEndsAsCancelled) {
  const auto both = [](PlayedBrowser& browser) {
    browser.ClickRow("a.mdl");
    browser.AddRow("b.mdl");
    browser.Ok();
  };
  capacity_ = sizeof("C:\\data\\a.mdl C:\\data\\b.mdl");
  const Outcome fits = Run(both);
  EXPECT_EQ(fits.answer, kChosen);
  EXPECT_EQ(fits.result, "C:\\data\\a.mdl C:\\data\\b.mdl");
  --capacity_;
  EXPECT_EQ(Run(both).answer, kCancelled);
}

TEST_F(FileBrowserSeveral, TypedNamesMayStandInQuotes) {
  World().files.AddFile("C:\\data\\two words.mdl");
  const Outcome outcome =
      Run([](PlayedBrowser& browser) { browser.Enter("a.mdl  \"two words.mdl\" A-001 \"C:\\data\\表.mdl\""); });
  EXPECT_EQ(outcome.answer, kChosen);
  EXPECT_EQ(outcome.result, "C:\\data\\a.mdl C:\\data\\two words.mdl C:\\data\\A-001.MDL C:\\data\\表.mdl");
}

TEST_F(FileBrowserSeveral, AnOpenQuoteIsRefused) {
  Run([](PlayedBrowser& browser) {
    Beeps().clear();
    browser.Enter("a.mdl \"b.mdl");
    ExpectWarning(browser, "ファイル名の記述が無効です。（\" が見つかりません）");
    EXPECT_EQ(Beeps(), std::vector<std::uint32_t>{os::kBeepDefault});
    EXPECT_EQ(browser.Name(), "a.mdl \"b.mdl");
  });
}

TEST_F(FileBrowserSeveral, OneMissingNameRefusesTheList) {
  Run([](PlayedBrowser& browser) {
    browser.Enter("a.mdl nothere b.mdl");
    ExpectWarning(browser, std::string("C:\\data\\nothere.MDL") + kFileNotFound);
    EXPECT_EQ(browser.Name(), "a.mdl nothere b.mdl");
    browser.Enter("b*");
    EXPECT_EQ(browser.Rows().back(), "b.mdl");
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(FileBrowserSeveral, ATextWithoutNamesIsAnEmptyChoice) {
  for (const char* text : {"", "   "}) {
    const Outcome outcome = Run([text](PlayedBrowser& browser) { browser.Enter(text); });
    EXPECT_EQ(outcome.answer, kChosen);
    EXPECT_EQ(outcome.result, "");
  }
}

TEST_F(FileBrowserSeveral, FullNamesChooseFilesOfOtherFoldersAlsoWhileTheFolderIsFixed) {
  startUp_.folderFixed = true;
  const Outcome outcome = Run([](PlayedBrowser& browser) { browser.Enter("D:\\disk.mdl b.mdl"); });
  EXPECT_EQ(outcome.answer, kChosen);
  EXPECT_EQ(outcome.result, "D:\\disk.mdl C:\\data\\b.mdl");
}

TEST_F(FileBrowserSeveral, ATypedFolderIsRefusedQuietly) {
  Run([](PlayedBrowser& browser) {
    Beeps().clear();
    browser.Enter("Sub");
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.Name(), "Sub");
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_TRUE(Beeps().empty());
  });
}

TEST_F(FileBrowserSeveral, ASingleSelectedFileBecomesRecent) {
  const Outcome outcome = Run([](PlayedBrowser& browser) { browser.OpenRow("b.mdl"); });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
  EXPECT_EQ(SavedRecentFiles(), Texts{"C:\\data\\b.mdl"});
}

class FileBrowserBadInput : public FileBrowserTest {};

TEST_F(FileBrowserBadInput, NoNameAtAllChangesNothing) {
  Run([](PlayedBrowser& browser) {
    browser.Enter("");
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_EQ(browser.Name(), "C:\\data");
    browser.Enter(" ");
    ExpectWarning(browser, std::string("C:\\data\\ .MDL") + kFileNotFound);
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(FileBrowserBadInput, ABufferWithoutRoomForANameEndsEveryChoiceAsCancelled) {
  capacity_ = 1;
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ClickRow("a.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.answer, 2);
  EXPECT_EQ(outcome.result, "");
}

TEST_F(FileBrowserBadInput, ADoubleClickBesideTheRowsMeansTheNameInTheBox) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.TypeName("b.mdl");
    browser.Core().OpenSelected();
  });
  EXPECT_EQ(outcome.result, "C:\\data\\b.mdl");
}

TEST_F(FileBrowserBadInput, AnInitialNameOfAnyLengthIsShown) {
  for (const std::size_t size : {256U, 257U, 600U, 100'000U}) {
    initialName_ = std::string(size - 4, 'n') + ".mdl";
    Run([size](PlayedBrowser& browser) { EXPECT_EQ(browser.Name().size(), size); });
  }
}

TEST_F(FileBrowserBadInput, AFolderThatVanishesLeavesAnEmptyList) {
  Run([](PlayedBrowser& browser) {
    browser.OpenRow("Sub");
    World().files.Remove("C:\\data\\Sub");
    browser.ChooseView(ViewMode::List);
    EXPECT_EQ(browser.Rows(), Texts{});
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"old", "表示", "a.mdl", "A-001.MDL", "b.mdl", "ソ.mdl", "表.mdl"}));
    browser.Back();
    EXPECT_EQ(browser.Rows(), Texts{});
  });
}

TEST_F(FileBrowserBadInput, AFolderThatVanishedBeforeItsDoubleClickIsNoLongerListed) {
  Run([](PlayedBrowser& browser) {
    World().files.Remove("C:\\data\\Sub");
    browser.OpenRow("Sub");
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    EXPECT_EQ(browser.Rows().size(), 7U);
  });
}

TEST_F(FileBrowserBadInput, AFileThatVanishedIsMissed) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    World().files.Remove("C:\\data\\b.mdl");
    browser.Ok();
    ExpectWarning(browser, std::string("C:\\data\\b.mdl") + kFileNotFound);
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(FileBrowserBadInput, AStartFolderThatIsNoneGivesTheNearestOne) {
  const std::vector<std::pair<std::string, Texts>> folders = {{"C:\\data\\none\\deeper", {"data"}},
                                                              {"C:\\data\\b.mdl", {"data"}},
                                                              {"C:\\data\\表示\\", {"data", "表示"}},
                                                              {"Q:\\x", {}},
                                                              {"", {}},
                                                              {"relative", {}},
                                                              {"C:\\", {}},
                                                              {std::string(100'000, 'x'), {}},
                                                              {"C:\\" + std::string(600, 'x'), {}}};
  for (const auto& [folder, trail] : folders) {
    startUp_.initialFolder = folder;
    Run([&trail = trail](PlayedBrowser& browser) {
      EXPECT_EQ(browser.Trail(), trail);
      EXPECT_GE(browser.Rows().size(), 1U);
    });
  }
}

TEST_F(FileBrowserBadInput, LongNamesAreRefusedWithOneMessage) {
  Run([](PlayedBrowser& browser) {
    for (const std::size_t size : {256U, 257U, 600U, 100'000U}) {
      browser.Enter(std::string(size, 'n'));
      const auto shown = browser.TakeShown();
      ASSERT_EQ(shown.size(), 1U) << size;
      EXPECT_TRUE(shown[0].text.starts_with("C:\\data\\nnn")) << size;
      EXPECT_TRUE(shown[0].text.ends_with(kFileNotFound)) << size;
      EXPECT_LE(shown[0].text.size(), 256 + sizeof kFileNotFound);
      EXPECT_TRUE(browser.IsOpen());
    }
  });
}

TEST_F(FileBrowserBadInput, AsManyTypedNamesAsFitAreTaken) {
  startUp_.listStyle = filedialog::kListMultiple;
  std::string many;
  for (int i = 0; i < 10'000; ++i) many += "b.mdl ";
  const Outcome outcome = Run([&many](PlayedBrowser& browser) { browser.Enter(many); });
  EXPECT_EQ(outcome.answer, kChosen);
  EXPECT_LT(outcome.result.size(), 65'536U);
  EXPECT_GT(outcome.result.size(), 65'500U);
}

TEST_F(FileBrowserBadInput, ALongPatternIsRefused) {
  Run([](PlayedBrowser& browser) {
    browser.Enter("*" + std::string(600, 'n'));
    const auto shown = browser.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_TRUE(shown[0].text.ends_with(kFileNotFound));
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(FileBrowserBadInput, HalfACharacterDoesNoHarm) {
  initialName_ = "half\x83";
  startUp_.initialFolder = "C:\\data\\\x95";
  startUp_.title = "#MODEL#(*.MDL\x83";
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    browser.Ok();
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(FileBrowserBadInput, WhatCannotBeNamedIsNotListed) {
  World().files.AddInexactName("C:\\data\\Sub", "??.mdl");
  std::string deep = "C:\\data\\Sub\\" + std::string(120, 'd');
  deep += "\\" + std::string(256 - deep.size() - 1, 'e');
  World().files.AddFile(deep + "\\x.mdl");
  Run([&deep](PlayedBrowser& browser) {
    browser.OpenRow("Sub");
    EXPECT_EQ(browser.Rows(), (Texts{std::string(120, 'd'), "inner.mdl"}));
    browser.Enter(deep);
    EXPECT_EQ(browser.Name(), deep);
    EXPECT_EQ(browser.Rows(), Texts{}) << "no path of a file in it is short enough";
    browser.Enter("x.mdl");
    ExpectWarning(browser, deep + kFileNotFound);
    browser.Up();
    EXPECT_EQ(browser.Rows().size(), 1U);
  });
}

TEST_F(FileBrowserBadInput, AFolderThatCannotBeReadIsEmpty) {
  World().calls.FailNext("files.OpenFolder");
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.ChooseView(kDetails);
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(FileBrowserBadInput, SelectingAllOfManyFilesStaysWithinTheBuffer) {
  startUp_.listStyle = filedialog::kListMultiple;
  for (int i = 0; i < 5'000; ++i) World().files.AddFile("C:\\many\\" + std::to_string(100'000 + i) + ".mdl");
  startUp_.initialFolder = "C:\\many";
  capacity_ = 10'000;
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.SelectAll();
    EXPECT_LT(browser.Name().size(), 10'000U + 1'000U);
    browser.Ok();
  });
  EXPECT_EQ(outcome.answer, kCancelled);
}

TEST_F(FileBrowserBadInput, AMachineWithoutDrivesShowsTheComputer) {
  World().drives.clear();
  World().files.Remove("C:");
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.Enter("x.mdl");
    EXPECT_TRUE(browser.IsOpen());
    browser.Up();
    browser.Up();
    EXPECT_FALSE(browser.OpenWays().up);
  });
}

}  // namespace
}  // namespace browser_test
