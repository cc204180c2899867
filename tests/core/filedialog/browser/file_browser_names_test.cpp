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
constexpr char kFileNotFound[] = "\nファイルが見つかりません。\n指定したファイル名が正しいかどうか確認してください。";
constexpr char kPathNotFound[] = "\nパスが見つかりません。\n指定したパス名が正しいかどうか確認してください。";
constexpr char kOverwrite[] = "\nファイルは既に存在します。\n上書きしますか。";
constexpr char kFolderFixed[] = "ディレクトリを変更することはできません。";

/// Exactly one message was shown since the last look.
void ExpectWarning(PlayedBrowser& browser, const std::string& text) {
  EXPECT_EQ(browser.TakeShown(), (std::vector<PlayedBrowser::Shown>{{"warn", text, kCaption}}));
}

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

class FileBrowserOk : public FileBrowserTest {};

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

}  // namespace
}  // namespace browser_test
