// Devices that do not answer: what the user sees, how he gets out, and that the browser goes on.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/core/filedialog/browser/file_browser_fixture.h"
#include "tests/core/filedialog/browser/played_wait.h"

namespace browser_test {
namespace {

using filedialog::ViewMode;

class FileBrowserWaits : public FileBrowserTest {
 protected:
  FileBrowserWaits() {
    World().files.AddFile("C:\\other\\z.mdl");
    World().files.AddFolder("C:\\data\\Sub\\Deep");
  }
  ~FileBrowserWaits() override { SetFree(); }

  /// Runs the browser on workers.
  Outcome Wait(const std::function<void(PlayedBrowser&)>& script,
               const std::function<void(PlayedBrowser&)>& prepare = {}) {
    return RunWith([&](const filedialog::StartUp& startUp) {
      PlayedBrowser browser(startUp, &window_, &workers_);
      browser.answerNewFolder = [](const std::string&) { return std::string("made"); };
      browser.answerRename = [](const std::string&, const std::string&, bool) { return true; };
      if (prepare) prepare(browser);
      browser.Open();
      if (browser.IsOpen()) script(browser);
      if (browser.IsOpen()) browser.Cancel();
      return browser.Answer();
    });
  }

  /// Lets go of what hangs. What was given up may go on, and touches nothing of the browser's.
  void SetFree() {
    calls_.Release();
    workers_.WaitIdle();
  }

  WatchedWorkers workers_;
  HangingCalls calls_;
  PlayedWait window_{calls_, workers_};
};

// ---------------------------------------------------------------------------------------------------------------------
// what the user sees

TEST_F(FileBrowserWaits, NothingIsShownOfCallsThatAnswer) {
  const Outcome outcome = Wait([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.OpenRow("Sub");
    EXPECT_EQ(browser.Rows(), (Texts{"Deep", "inner.mdl"}));
    browser.Back();
    browser.Enter("a.mdl");
  });
  EXPECT_EQ(outcome.result, "C:\\data\\a.mdl");
  EXPECT_EQ(window_.AllShown(), Texts{});
  EXPECT_GT(workers_.Begun(), 0U);
}

TEST_F(FileBrowserWaits, AfterAThirdOfASecondTheListSaysWhatIsDone) {
  Wait([this](PlayedBrowser& browser) {
    const std::int64_t begun = window_.NowMs();
    std::int64_t shownAfter = 0;
    window_.onShown = [&] { shownAfter = window_.NowMs() - begun; };
    calls_.HangAll("files.OpenFolder");
    window_.After(500, [this] { window_.PressEsc(); });
    browser.OpenRow("Sub");
    EXPECT_EQ(shownAfter, 300);
    EXPECT_EQ(window_.AllShown(), Texts{"読み込み中…　Esc で中止"});
    EXPECT_EQ(window_.Shown(), "") << "it goes with the wait";
  });
}

TEST_F(FileBrowserWaits, TheCountMoves) {
  for (int i = 0; i < 1500; ++i) World().files.AddFile("C:\\many\\m" + std::to_string(i) + ".mdl");
  Wait([this](PlayedBrowser& browser) {
    calls_.HangAt(1 + 1 + 1300 + 2);  // the name, the folder, its entries with "." and ".."
    window_.After(400, [this] { window_.PressEsc(); });
    browser.Enter("C:\\many");
    ASSERT_EQ(window_.AllShown().size(), 1U);
    EXPECT_TRUE(window_.AllShown().front().starts_with("読み込み中… 1,")) << window_.AllShown().front();
    EXPECT_TRUE(window_.AllShown().front().ends_with(" 件　Esc で中止")) << window_.AllShown().front();
    EXPECT_GT(browser.Rows().size(), 1000U) << "what was listed stays";
    EXPECT_LT(browser.Rows().size(), 1500U);
    EXPECT_EQ(browser.Trail(), Texts{"many"});
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// how he gets out

TEST_F(FileBrowserWaits, GivenUpWithNothingListedEverythingIsAsBefore) {
  Wait([this](PlayedBrowser& browser) {
    browser.ClickRow("a.mdl");
    const std::size_t listed = World().calls.Count("files.OpenFolder");
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [this] { window_.PressEsc(); });
    browser.ChoosePlace("デスクトップ");
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_EQ(browser.SelectedNames(), Texts{"a.mdl"});
    EXPECT_EQ(browser.Name(), "a.mdl");
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    EXPECT_FALSE(browser.OpenWays().back);
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(World().calls.Count("files.OpenFolder"), listed) << "nothing is read again";
    SetFree();
    EXPECT_EQ(browser.Rows(), kAllRows) << "what hung answers to nobody";
  });
}

TEST_F(FileBrowserWaits, ATypedTextStaysWhenItsFolderDoesNotAnswer) {
  Wait([this](PlayedBrowser& browser) {
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [this] { window_.PressEsc(); });
    browser.Enter("C:\\other");
    EXPECT_EQ(browser.Name(), "C:\\other");
    window_.After(300, [&browser] { browser.TypeName("typed meanwhile"); });
    window_.After(400, [this] { window_.PressEsc(); });
    browser.Enter("C:\\other\\*.mdl");
    EXPECT_EQ(browser.Name(), "typed meanwhile");
  });
}

TEST_F(FileBrowserWaits, CancelEndsTheDialogAndSavesItsLayout) {
  SaveNumber("SizeX", 1);
  const Outcome outcome = Wait([this](PlayedBrowser& browser) {
    browser.Resize(777, 444);
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [&browser] { browser.Cancel(); });
    browser.OpenRow("Sub");
    EXPECT_FALSE(browser.IsOpen());
  });
  EXPECT_EQ(outcome.answer, 2);
  EXPECT_EQ(SavedNumber("SizeX"), 777);
}

TEST_F(FileBrowserWaits, AWindowThatGoesIsNotTouched) {
  Wait([this](PlayedBrowser& browser) {
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [&] {
      browser.CloseNow();
      window_.isThere = false;
    });
    browser.OpenRow("Sub");
    EXPECT_FALSE(browser.IsOpen());
  });
}

TEST_F(FileBrowserWaits, ANewIntentTakesThePlaceOfTheWait) {
  Wait([this](PlayedBrowser& browser) {
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [&] {
      calls_.HangAll("");
      browser.Enter("C:\\other");
      EXPECT_EQ(browser.Rows(), kAllRows) << "it begins when the running one has unwound";
    });
    browser.OpenRow("Sub");
    EXPECT_EQ(browser.Rows(), Texts{"z.mdl"});
    EXPECT_EQ(browser.Trail(), Texts{"other"});
    browser.Back();
    EXPECT_EQ(browser.Trail(), Texts{"data"}) << "the place that did not answer is no step";
  });
}

TEST_F(FileBrowserWaits, BackFromAPlaceThatDoesNotAnswerIsWhereItStood) {
  Wait([this](PlayedBrowser& browser) {
    browser.OpenRow("Sub");
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [&browser] { browser.Back(); });
    browser.OpenRow("Deep");
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    EXPECT_EQ(browser.Rows(), (Texts{"Deep", "inner.mdl"}));
  });
}

TEST_F(FileBrowserWaits, BackFromAPlaceThatIsListedInPartLeavesIt) {
  for (int i = 0; i < 10; ++i)
    World().files.AddFile("C:\\many\\m" + std::to_string(i) + ".con", "CORVANE CONST 1\nEND\n");
  startUp_.title = "#CONSTANT#(*.con)";
  Wait([this](PlayedBrowser& browser) {
    calls_.HangAt(5, "files.Read");
    window_.After(300, [&browser] { browser.Back(); });
    browser.Enter("C:\\many");
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

TEST_F(FileBrowserWaits, BackDuringAWayBackBeginsItAnew) {
  Wait([this](PlayedBrowser& browser) {
    browser.OpenRow("Sub");
    browser.OpenRow("Deep");
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [&] {
      calls_.HangAll("");
      browser.Back();
    });
    window_.After(500, [this] { calls_.Release(); });
    browser.Back();
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"})) << "one step, not two";
    EXPECT_EQ(browser.Rows(), (Texts{"Deep", "inner.mdl"}));
  });
}

TEST_F(FileBrowserWaits, AClickOnARowThatIsAboutToGoNamesNothing) {
  Wait([this](PlayedBrowser& browser) {
    browser.ClickRow("a.mdl");
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [&browser] { browser.ClickRow("b.mdl"); });
    window_.After(400, [this] { window_.PressEsc(); });
    browser.PressF5();
    EXPECT_EQ(browser.Name(), "a.mdl");
  });
}

TEST_F(FileBrowserWaits, AWindowThatGoesAtAMessageOfTheNewIntentHasNoOtherOne) {
  Wait([this](PlayedBrowser& browser) {
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [&] {
      calls_.HangAll("");
      browser.whileReading = [&] {
        browser.CloseNow();
        window_.isThere = false;
      };
      browser.Enter("missing");
    });
    browser.OpenRow("Sub");
    EXPECT_FALSE(browser.IsOpen());
    EXPECT_EQ(browser.TakeShown().size(), 1U);
  });
}

TEST_F(FileBrowserWaits, AWindowThatGoesDuringTheNewIntentIsNotTouched) {
  Wait([this](PlayedBrowser& browser) {
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [&browser] { browser.Enter("C:\\other"); });
    window_.After(700, [&] {
      browser.CloseNow();
      window_.isThere = false;
    });
    browser.OpenRow("Sub");
    EXPECT_FALSE(browser.IsOpen());
  });
}

TEST_F(FileBrowserWaits, CancelDoesNotWaitForANameThatIsBeingGiven) {
  SaveNumber("SizeX", 1);
  const Outcome outcome = Wait([this](PlayedBrowser& browser) {
    browser.Resize(777, 444);
    ASSERT_TRUE(browser.EditLabel("a.mdl"));
    browser.TypeLabel("renamed.mdl");
    calls_.HangAll("files.Rename");
    const std::int64_t begun = window_.NowMs();
    browser.Cancel();
    EXPECT_FALSE(browser.IsOpen());
    EXPECT_LE(window_.NowMs() - begun, 100);
    EXPECT_TRUE(browser.TakeShown().empty());
  });
  EXPECT_EQ(outcome.answer, 2);
  EXPECT_EQ(SavedNumber("SizeX"), 777);
}

TEST_F(FileBrowserWaits, ANameGivenDuringAWaitWaitsForItsOwnMessage) {
  using LabelEnd = filedialog::FileBrowser::LabelEnd;
  Wait([this](PlayedBrowser& browser) {
    ASSERT_TRUE(browser.EditLabel("a.mdl"));
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [&browser] {
      browser.Core().GiveLabel("renamed.mdl");
      EXPECT_EQ(browser.Core().CommitLabel(), LabelEnd::Nothing);
    });
    window_.After(400, [this] { window_.PressEsc(); });
    browser.PressF5();
    EXPECT_NE(World().files.Find("C:\\data\\a.mdl"), nullptr);
    SetFree();
    EXPECT_EQ(browser.Core().CommitLabel(), LabelEnd::Renamed);
    EXPECT_EQ(World().files.Find("C:\\data\\a.mdl"), nullptr);
  });
}

TEST_F(FileBrowserWaits, AWindowThatGoesDuringARenamingIsNotTouched) {
  Wait([this](PlayedBrowser& browser) {
    ASSERT_TRUE(browser.EditLabel("a.mdl"));
    calls_.HangAll("files.Rename");
    window_.After(300, [&] {
      browser.CloseNow();
      window_.isThere = false;
    });
    browser.Core().GiveLabel("renamed.mdl");
    EXPECT_EQ(browser.Core().CommitLabel(), std::nullopt);
  });
}

TEST_F(FileBrowserWaits, WhatChangesTheFolderBeeps) {
  Wait([this](PlayedBrowser& browser) {
    browser.ClickRow("a.mdl");
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [&] {
      Beeps().clear();
      browser.MakeFolder();
      browser.Rename();
      browser.Delete();
      EXPECT_FALSE(browser.EditLabel("a.mdl"));
      EXPECT_EQ(Beeps().size(), 4U);
    });
    window_.After(400, [this] { window_.PressEsc(); });
    browser.PressF5();
    EXPECT_EQ(browser.TakeShown().size(), 0U);
    EXPECT_TRUE(World().shell.deletions.empty());
  });
}

TEST_F(FileBrowserWaits, ARenamingThatIsGivenUpSaysNothing) {
  Wait([this](PlayedBrowser& browser) {
    ASSERT_TRUE(browser.EditLabel("a.mdl"));
    browser.TypeLabel("renamed.mdl");
    calls_.HangAll("files.Rename");
    window_.After(300, [this] { window_.PressEsc(); });
    browser.GiveLabel();
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_TRUE(browser.TakeShown().empty());
    SetFree();
    browser.PressF5();
    const Texts rows = browser.Rows();
    EXPECT_NE(std::find(rows.begin(), rows.end(), "renamed.mdl"), rows.end()) << "it may happen all the same";
  });
}

TEST_F(FileBrowserWaits, ComputersThatWereFoundStayWhenTheirEnumerationIsGivenUpAndDoesNotClose) {
  World().network.present = true;
  World().network.context.batch = 1;
  for (const char* name : {"\\\\PC1", "\\\\PC2", "\\\\PC3"}) {
    os::scripted::NetNode& server = World().network.context.children.emplace_back();
    server.record.displayType = os::kNetDisplayServer;
    server.record.remoteName = name;
  }
  Wait([this](PlayedBrowser& browser) {
    int asked = 0;
    browser.goesOn = [&] {
      if (++asked < 2) return true;
      window_.PressEsc();  // seen between two calls, and as long as the step lasts
      return false;
    };
    calls_.HangAll("network.Close");
    browser.ChoosePlace("近くのコンピュータ");
    EXPECT_EQ(browser.Rows(), (Texts{"PC1", "PC2"}));
  });
}

TEST_F(FileBrowserWaits, ASortThatIsGivenUpChangesNothing) {
  Wait([this](PlayedBrowser& browser) {
    calls_.HangAll("files.Status");
    window_.After(300, [this] { window_.PressEsc(); });
    browser.ClickHeader(2);
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_EQ(browser.SortMark(2), 0);
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// workers

TEST_F(FileBrowserWaits, AFolderOnWhichACallStillHangsIsWaitedForAndNotAskedBesideIt) {
  Wait([this](PlayedBrowser& browser) {
    calls_.HangAll("files.OpenFolder");
    window_.After(300, [this] { window_.PressEsc(); });
    browser.Enter("C:\\other");
    calls_.HangAll("");
    EXPECT_EQ(calls_.HangingNow(), 1);
    window_.After(300, [this] {
      EXPECT_NE(window_.Shown(), "");
      EXPECT_EQ(calls_.HangingNow(), 1);
      calls_.Release();
    });
    browser.Ok();
    EXPECT_EQ(browser.Rows(), Texts{"z.mdl"});
  });
}

TEST_F(FileBrowserWaits, BehindFourThatHangAFurtherOneWaitsAndIsGivenUpAsEverywhere) {
  for (const char* folder : {"C:\\w1", "C:\\w2", "D:\\w3", "D:\\w4"}) World().files.AddFolder(folder);
  Wait([this](PlayedBrowser& browser) {
    for (const char* folder : {"C:\\w1", "C:\\w2", "D:\\w3", "D:\\w4"}) {
      calls_.HangAll("files.OpenFolder");
      window_.After(300, [this] { window_.PressEsc(); });
      browser.Enter(folder);
    }
    EXPECT_EQ(calls_.HangingNow(), 4);
    calls_.HangAll("");
    window_.After(300, [this] {
      EXPECT_EQ(window_.Shown(), "読み込み中…　Esc で中止");
      window_.PressEsc();
    });
    browser.Enter("C:\\other");
    EXPECT_EQ(browser.Rows(), kAllRows);
    window_.After(300, [this] { calls_.Release(); });
    browser.Ok();
    EXPECT_EQ(browser.Rows(), Texts{"z.mdl"}) << "one is free again";
  });
}

TEST_F(FileBrowserWaits, ADriveOnWhichThreeCallsHangKeepsNoOtherDriveBack) {
  const Texts folders = {"D:\\w1", "D:\\w2", "D:\\w3", "D:\\w4"};
  for (const std::string& folder : folders) World().files.AddFolder(folder);
  Wait([&](PlayedBrowser& browser) {
    calls_.HangAll("files.OpenFolder");
    for (const std::string& folder : folders) {
      window_.After(300, [this] { window_.PressEsc(); });
      browser.Enter(folder);
      EXPECT_EQ(browser.Rows(), kAllRows);
    }
    EXPECT_EQ(calls_.HangingNow(), 3);
    calls_.HangAll("");
    browser.Enter("C:\\other");
    EXPECT_EQ(browser.Rows(), Texts{"z.mdl"});
  });
}

TEST_F(FileBrowserWaits, SortsThatHangAtTheSameRowTakeOneWorkerAndTheirDriveNotAll) {
  const Texts folders = {"D:\\w1", "D:\\w2", "D:\\w3"};
  for (const std::string& folder : folders) World().files.AddFolder(folder);
  World().files.AddFile("D:\\f\\a.mdl");
  World().files.AddFile("D:\\f\\b.mdl");
  Wait([&](PlayedBrowser& browser) {
    browser.Enter("D:\\f");
    const auto giveUp = [this] { window_.After(300, [this] { window_.PressEsc(); }); };
    calls_.HangAll("files.Status");
    for (int sorts = 0; sorts < 3; ++sorts) {
      giveUp();
      browser.ClickHeader(2);
    }
    EXPECT_EQ(calls_.HangingNow(), 1);
    calls_.HangAll("files.OpenFolder");
    for (const std::string& folder : folders) {
      giveUp();
      browser.Enter(folder);
    }
    EXPECT_EQ(calls_.HangingNow(), 3);
    calls_.HangAll("");
    browser.Enter("C:\\other");
    EXPECT_EQ(browser.Rows(), Texts{"z.mdl"});
  });
}

TEST_F(FileBrowserWaits, OnePressOfEscIsEnoughForAStartOnADriveThatDoesNotAnswer) {
  World().files.AddFolder("D:\\a\\b");
  startUp_.initialFolder = "D:\\a\\b";
  calls_.HangAll("files.Attributes");
  window_.After(300, [this] { window_.PressEsc(); });
  const std::int64_t begun = window_.NowMs();
  Wait([&](const PlayedBrowser& browser) {
    EXPECT_LE(window_.NowMs() - begun, 1700) << "a second after the press";
    EXPECT_EQ(browser.Rows().size(), 2U) << "the drives of the computer";
  });
}

/// No thread can be had.
class NoWorkers final : public os::Workers {
 public:
  bool Begin(std::shared_ptr<os::Errand>, os::Site, os::Urgency) override { return false; }
  void Forget(const os::Errand&) noexcept override {}
};

TEST_F(FileBrowserWaits, WhereNoWorkerCanBeStartedCallsAreMadeInPlace) {
  NoWorkers none;
  RunWith([&](const filedialog::StartUp& startUp) {
    PlayedBrowser browser(startUp, &window_, &none);
    browser.Open();
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_EQ(browser.Places()[2], "SYSTEM (C:)");
    browser.OpenRow("Sub");
    EXPECT_EQ(browser.Rows(), (Texts{"Deep", "inner.mdl"}));
    browser.ClickHeader(2);
    EXPECT_NE(browser.SortMark(2), 0);
    browser.Cancel();
    return browser.Answer();
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// the start

TEST_F(FileBrowserWaits, RecentFilesAndStepsTouchNoDiskToBeShown) {
  World().registry.SetValue(kLayoutKey, "File01", os::RegistryType::String, "E:\\dead\\recent.mdl");
  Wait([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.OfferedNames(), Texts{"E:\\dead\\recent.mdl"});
    browser.OpenRow("Sub");
    World().files.Remove("C:\\data\\Sub");
    World().calls.ClearLog();
    browser.ChooseRecentCount(5);
    EXPECT_TRUE(browser.OpenWays().back);
  });
  for (const std::string& call : World().calls.Log()) {
    EXPECT_EQ(call.find("dead"), std::string::npos) << call;
    EXPECT_FALSE(call.starts_with("files.")) << call;
  }
}

TEST_F(FileBrowserWaits, AStartFolderThatDoesNotAnswerGivesWhatIsAboveIt) {
  calls_.HangAll("files.OpenFolder");
  const std::int64_t begun = window_.NowMs();
  Wait([&](PlayedBrowser& browser) {
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.Rows().size(), 2U) << "the drives of the computer, as no folder answers";
    EXPECT_LE(window_.NowMs() - begun, 2500);
    EXPECT_EQ(browser.Remark(), "フォルダの応答がないため、上のフォルダを表示しています。");
    SetFree();
    browser.Enter("C:\\data");
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(FileBrowserWaits, AStartFolderThatHangsBehindItsFirstRowsGivesWhatIsAboveIt) {
  calls_.HangAt(5, "files.Next");
  const std::int64_t begun = window_.NowMs();
  Wait([&](PlayedBrowser& browser) {
    EXPECT_LE(window_.NowMs() - begun, 2500);
    EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop", "other"}));
    EXPECT_NE(browser.Remark(), "");
  });
}

TEST_F(FileBrowserWaits, EscWhileTheStartFolderIsLookedForGivesTheNearestOneAboveIt) {
  startUp_.initialFolder = "C:\\data\\Sub";
  calls_.HangAt(1, "files.Attributes");
  Wait([](PlayedBrowser& browser) { EXPECT_EQ(browser.Trail(), Texts{"data"}); },
       [this](PlayedBrowser&) { window_.After(400, [this] { window_.PressEsc(); }); });
}

TEST_F(FileBrowserWaits, EscWhileTheStartFolderIsListedGivesTheNearestOneAboveIt) {
  startUp_.initialFolder = "C:\\data\\Sub";
  calls_.HangAt(1, "files.OpenFolder");
  Wait([](PlayedBrowser& browser) { EXPECT_EQ(browser.Rows(), kAllRows); },
       [this](PlayedBrowser&) { window_.After(400, [this] { window_.PressEsc(); }); });
}

TEST_F(FileBrowserWaits, ADeadDriveOfTheStartFolderTakesTwoWorkersHoweverDeepTheFolderLies) {
  World().files.AddFolder("D:\\a\\b\\c\\d");
  startUp_.initialFolder = "D:\\a\\b\\c\\d";
  calls_.HangAll("files.Attributes");
  Wait([this](PlayedBrowser& browser) {
    EXPECT_EQ(calls_.HangingNow(), 2);
    EXPECT_EQ(browser.Rows().size(), 2U) << "the drives of the computer";
    calls_.HangAll("");
    browser.Enter("C:\\other");
    EXPECT_EQ(browser.Rows(), Texts{"z.mdl"});
  });
}

TEST_F(FileBrowserWaits, ADriveThatAnswersAndCannotBeListedLeavesAWorkerToTheOthers) {
  World().files.AddFolder("D:\\a\\b\\c\\d");
  startUp_.initialFolder = "D:\\a\\b\\c\\d";
  calls_.HangAll("files.OpenFolder");
  Wait([this](PlayedBrowser& browser) {
    EXPECT_EQ(calls_.HangingNow(), 3) << "the folder, the one above it, the drive";
    EXPECT_EQ(browser.Rows().size(), 2U) << "the drives of the computer";
    calls_.HangAll("");
    browser.Enter("C:\\other");
    EXPECT_EQ(browser.Rows(), Texts{"z.mdl"});
  });
}

TEST_F(FileBrowserWaits, TheFoldersAboveADeadOneAreAskedForFromTheDriveDown) {
  World().files.AddFolder("C:\\data\\Sub\\Deep\\Deeper");
  startUp_.initialFolder = "C:\\data\\Sub\\Deep\\Deeper";
  calls_.HangAt(1, "files.Attributes");
  World().calls.ClearLog();
  Wait([](PlayedBrowser& browser) { EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub", "Deep"})); });
  Texts asked;
  for (const std::string& call : World().calls.Log()) {
    if (call.starts_with("files.Attributes ")) asked.push_back(call.substr(call.find(' ') + 1));
  }
  ASSERT_GE(asked.size(), 4U);
  asked.resize(4);
  EXPECT_EQ(asked, (Texts{"C:\\", "C:\\data", "C:\\data\\Sub", "C:\\data\\Sub\\Deep"})) << "behind the one that hangs";
}

TEST_F(FileBrowserWaits, TheFirstFolderBelowTheDriveThatDoesNotAnswerEitherEndsTheSearch) {
  World().files.AddFolder("C:\\data\\Sub\\Deep\\Deeper");
  startUp_.initialFolder = "C:\\data\\Sub\\Deep\\Deeper";
  calls_.HangAt(1, "files.Attributes");
  bool isFirst = true;
  window_.onPass = [&] {
    if (std::exchange(isFirst, false)) calls_.HangAt(2, "files.Attributes");
  };
  Wait([this](PlayedBrowser& browser) {
    EXPECT_EQ(calls_.HangingNow(), 2);
    EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop", "other"})) << "of the drive";
  });
}

TEST_F(FileBrowserWaits, AFixedFolderThatDoesNotAnswerIsEmptyAndCanBeReadLater) {
  startUp_.folderFixed = true;
  calls_.HangAll("files.OpenFolder");
  Wait([&](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Rows(), Texts{});
    EXPECT_EQ(browser.Columns().size(), 3U);
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    EXPECT_EQ(browser.Remark(), "フォルダの応答がありません。");
    SetFree();
    browser.PressF5();
    EXPECT_EQ(browser.Rows(), (Texts{"a.mdl", "A-001.MDL", "b.mdl", "ソ.mdl", "表.mdl"}));
  });
}

TEST_F(FileBrowserWaits, AStartFolderThatAnswersIsNotSaidToBeAbsentForSomethingElse) {
  calls_.HangAll("network.TerminalProvider");
  Wait([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_EQ(browser.Remark(), "");
  });
}

TEST_F(FileBrowserWaits, AClientOfARemoteSessionThatDoesNotAnswerLeavesTheStartFolderItsTime) {
  calls_.HangAll("network.TerminalProvider");
  calls_.HangAt(1, "files.OpenFolder");
  bool isFirst = true;
  window_.onPass = [&] {
    if (calls_.HangingNow() < 2 || !std::exchange(isFirst, false)) return;
    window_.After(500, [this] { calls_.Release("files.OpenFolder"); });
  };
  Wait([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_EQ(browser.Remark(), "");
  });
}

TEST_F(FileBrowserWaits, AStepTakenWhileTheStartFolderDoesNotAnswerListsNothingElseBefore) {
  calls_.HangAll("files.OpenFolder");
  Wait(
      [](PlayedBrowser& browser) {
        EXPECT_EQ(browser.Rows(), Texts{"z.mdl"});
        EXPECT_EQ(browser.Remark(), "");
      },
      [this](PlayedBrowser& browser) {
        window_.After(400, [&] {
          calls_.HangAll("");
          browser.Enter("C:\\other");
        });
      });
  EXPECT_EQ(std::ranges::count(World().calls.Log(), std::string("files.OpenFolder C:\\")), 0);
}

TEST_F(FileBrowserWaits, AStepTakenBeforeTheFirstListingComesFirst) {
  calls_.HangAll("files.Attributes");
  Wait(
      [](PlayedBrowser& browser) {
        EXPECT_EQ(browser.Rows(), Texts{"z.mdl"});
        EXPECT_EQ(browser.Remark(), "");
      },
      [this](PlayedBrowser& browser) {
        window_.After(400, [&] {
          calls_.HangAll("");
          browser.Enter("C:\\other");
        });
      });
}

TEST_F(FileBrowserWaits, ADriveThatCannotBeListedGivesTheComputer) {
  startUp_.initialFolder = "D:\\";
  calls_.HangAll("files.OpenFolder");
  Wait([](PlayedBrowser& browser) { EXPECT_EQ(browser.Rows().size(), 2U) << "its drives"; });
}

TEST_F(FileBrowserWaits, ADriveThatDiesWhileAFolderOnItIsListedGivesTheComputer) {
  World().files.AddFolder("D:\\a");
  startUp_.initialFolder = "D:\\a";
  calls_.HangAll("files.OpenFolder");
  window_.After(1000, [this] { calls_.HangAll("files.Attributes"); });
  Wait([](PlayedBrowser& browser) { EXPECT_EQ(browser.Rows().size(), 2U) << "its drives"; });
}

TEST_F(FileBrowserWaits, BackDuringAWaitThatGoesNowhereGoesBack) {
  Wait([this](PlayedBrowser& browser) {
    browser.Enter("C:\\other");
    calls_.HangAll("files.OpenFolder");
    window_.After(400, [&] {
      calls_.HangAll("");
      browser.Back();
    });
    browser.PressF5();
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

TEST_F(FileBrowserWaits, AWindowThatGoesDuringTheFirstListingIsNotTouched) {
  calls_.HangAll("files.OpenFolder");
  const Outcome outcome = Wait([](PlayedBrowser&) {},
                               [this](PlayedBrowser& browser) {
                                 window_.After(400, [&] {
                                   browser.CloseNow();
                                   window_.isThere = false;
                                 });
                               });
  EXPECT_EQ(outcome.answer, 0);
}

TEST_F(FileBrowserWaits, CancelDuringTheFirstListingKeepsTheLayoutOfBefore) {
  SaveNumber("SizeX", 700);
  calls_.HangAll("files.OpenFolder");
  const Outcome outcome = Wait(
      [](PlayedBrowser&) {}, [this](PlayedBrowser& browser) { window_.After(400, [&browser] { browser.Cancel(); }); });
  EXPECT_EQ(outcome.answer, 2);
  EXPECT_EQ(SavedNumber("SizeX"), 700) << "the window has not been given that size yet";
}

TEST_F(FileBrowserWaits, AStepTakenWhileTheWindowTakesItsPlaceIsListed) {
  Wait(
      [](PlayedBrowser& browser) {
        EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop", "other"}));
      },
      [](PlayedBrowser& browser) { browser.onPlaced = [&browser] { browser.Up(); }; });
}

TEST_F(FileBrowserWaits, TheFirstListingIsOnItsWayWhileTheWindowTakesItsPlace) {
  calls_.HangAll("files.OpenFolder");
  Wait([](PlayedBrowser& browser) { EXPECT_EQ(browser.Rows(), kAllRows); },
       [this](PlayedBrowser& browser) {
         browser.onPlaced = [&] {
           EXPECT_TRUE(calls_.WaitHanging(1));
           EXPECT_EQ(browser.Rows(), Texts{});
           EXPECT_EQ(browser.Columns().size(), 3U);
           calls_.Release();
         };
       });
  EXPECT_EQ(World().calls.Count("files.OpenFolder"), 1U) << "it is listed once";
}

TEST_F(FileBrowserWaits, TheColumnsAreThereWhileTheFirstRowsAreWaitedFor) {
  calls_.HangAll("files.OpenFolder");
  const std::int64_t begun = window_.NowMs();
  std::int64_t shownAfter = 0;
  std::size_t columns = 0;
  Wait([](PlayedBrowser&) {},
       [&](PlayedBrowser& browser) {
         window_.onShown = [&] {
           if (shownAfter == 0) shownAfter = window_.NowMs() - begun;
           if (columns == 0) columns = browser.Columns().size();
         };
       });
  EXPECT_EQ(shownAfter, 300) << "the window shows itself with the line";
  EXPECT_EQ(columns, 3U);
}

// ---- drives

constexpr std::size_t kDriveC = 2;  // its row

/// The system's drive does not say its name; the others do.
class FileBrowserNamelessDrive : public FileBrowserWaits {
 protected:
  FileBrowserNamelessDrive() {
    os::scripted::Drive remote;
    remote.type = os::DriveType::Remote;
    World().AddDrive('Z', remote);
    World().network.universalNames["Z:\\"] = "\\\\srv\\docs";
    calls_.HangAll("drives.VolumeName");
  }
  /// The answer is there when time passes again, as it passes only while nobody works.
  void SayItsNameAfter(std::int64_t milliseconds) {
    window_.After(milliseconds, [this] { calls_.Release("drives.VolumeName"); });
  }
};

TEST_F(FileBrowserNamelessDrive, CostsTheStartAThirdOfASecondAndNoOtherDriveItsName) {
  const std::int64_t begun = window_.NowMs();
  Wait([&](PlayedBrowser& browser) {
    EXPECT_LE(window_.NowMs() - begun, 300);
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_EQ(browser.Places()[kDriveC], " (C:)");
    EXPECT_EQ(browser.Core().Places().rows()[kDriveC].kind, filedialog::EntryKind::FixedDrive);
    EXPECT_EQ(browser.Places()[4], "REMOVABLE (D:)");
    EXPECT_EQ(browser.Places()[5], "'srv' の docs (Z:)");
    EXPECT_EQ(browser.Remark(), "") << "nothing of the listing is lacking";
    EXPECT_EQ(window_.AllShown(), Texts{});
  });
}

TEST_F(FileBrowserNamelessDrive, AndAnotherOneKeepTheNameOfTheStartFoldersDriveNotBack) {
  World().AddDrive('E');
  World().files.AddFile("Z:\\z.mdl");
  startUp_.initialFolder = "Z:\\";
  Wait([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Places()[kDriveC], " (C:)");
    const Texts places = browser.Places();
    EXPECT_EQ(std::count(places.begin(), places.end(), "'srv' の docs (Z:)"), 1);
  });
}

TEST_F(FileBrowserNamelessDrive, SaysItsNameLater) {
  Wait([this](PlayedBrowser& browser) {
    SetFree();
    browser.Core().LateAnswers();
    EXPECT_EQ(browser.Places()[kDriveC], "SYSTEM (C:)");
    EXPECT_EQ(browser.Trail(), Texts{"data"}) << "the rows are the same";
  });
}

TEST_F(FileBrowserNamelessDrive, SaysItsNameInTheListOfDrivesToo) {
  Wait([this](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    EXPECT_EQ(browser.Rows().front(), " (C:)");
    browser.ClickRow("REMOVABLE (D:)");
    SetFree();
    browser.Core().LateAnswers();
    EXPECT_EQ(browser.Rows().front(), "SYSTEM (C:)");
    EXPECT_EQ(browser.SelectedNames(), Texts{"REMOVABLE (D:)"});
  });
}

TEST_F(FileBrowserNamelessDrive, CostsARefreshOfTheDrivesAThirdOfASecondAndNoSecondCall) {
  Wait([this](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    os::scripted::Drive renamed = World().drives['C'];
    renamed.volumeName = "RENAMED";
    World().AddDrive('C', renamed);
    World().drives.erase('D');
    const std::int64_t begun = window_.NowMs();
    browser.PressF5();
    browser.PressF5();
    EXPECT_LE(window_.NowMs() - begun, 600);
    EXPECT_EQ(browser.Rows(), (Texts{" (C:)", "'srv' の docs (Z:)"})) << "one that has gone is none";
    EXPECT_EQ(calls_.HangingNow(), 1);
    SetFree();
    browser.Core().LateAnswers();
    EXPECT_EQ(browser.Rows().front(), "RENAMED (C:)");
  });
}

TEST_F(FileBrowserNamelessDrive, SaysItsNameInTheListOfDrivesBehindAMessage) {
  Wait([this](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    browser.whileReading = [&] {
      SetFree();
      browser.Core().LateAnswers();
      browser.Core().CommitLabel();
      EXPECT_EQ(browser.Rows().front(), " (C:)") << "rows stay as they are while a question stands above them";
    };
    browser.Enter("missing");
    EXPECT_EQ(browser.Rows().front(), "SYSTEM (C:)");
  });
}

TEST_F(FileBrowserNamelessDrive, ListsNothingTwiceWhenItsNameComesOnTheWayToAFolder) {
  Wait([this](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    TakeListings();
    calls_.HangAll("files.OpenFolder");
    SayItsNameAfter(300);
    window_.After(400, [&] {
      browser.Core().LateAnswers();
      calls_.Release();
    });
    browser.ChoosePlace("REMOVABLE (D:)");
    EXPECT_EQ(browser.Rows(), Texts{"disk.mdl"});
    EXPECT_EQ(browser.Places()[kDriveC], "SYSTEM (C:)");
    EXPECT_EQ(TakeListings(), 1U);
  });
}

TEST_F(FileBrowserNamelessDrive, SaysItsNameDuringTheFirstListing) {
  calls_.HangAt(1, "files.OpenFolder");
  bool saysIt = false;
  Wait([](PlayedBrowser& browser) { EXPECT_EQ(browser.Rows(), kAllRows); },
       [&](PlayedBrowser& browser) {
         SayItsNameAfter(600);
         window_.After(700, [&] {
           browser.Core().LateAnswers();
           saysIt = browser.Places()[kDriveC] == "SYSTEM (C:)";
           calls_.Release();
         });
       });
  EXPECT_TRUE(saysIt);
}

TEST_F(FileBrowserWaits, NewsThatAreNoneLeaveTheListOfDrivesAlone) {
  Wait([](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    browser.TypeName("typed");
    browser.Core().LateAnswers();
    EXPECT_FALSE(browser.ListHasFocus()) << "a new list would take it";
  });
}

TEST_F(FileBrowserNamelessDrive, KeepsANameThatCameDuringAWaitThatIsGivenUp) {
  Wait([this](PlayedBrowser& browser) {
    calls_.HangAll("files.OpenFolder");
    SayItsNameAfter(300);
    window_.After(400, [&] {
      browser.Core().LateAnswers();
      window_.PressEsc();
    });
    browser.ChoosePlace("デスクトップ");
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    EXPECT_EQ(browser.Places()[kDriveC], "SYSTEM (C:)");
  });
}

TEST_F(FileBrowserWaits, ADriveThatTurnsOutToBeNoneGoesWithTheNextStep) {
  World().drives['D'].type = os::DriveType::NoRoot;
  calls_.HangAll("drives.Type");
  Wait([this](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Places()[kDriveC], " (C:)");
    EXPECT_EQ(browser.Places()[4], " (D:)");
    SetFree();
    browser.Core().LateAnswers();
    EXPECT_EQ(browser.Places()[4], " (D:)") << "an open list stays as it is";
    browser.OpenRow("Sub");
    const Texts places = browser.Places();
    EXPECT_EQ(std::count(places.begin(), places.end(), " (D:)"), 0);
    EXPECT_EQ(places[kDriveC], "SYSTEM (C:)");
    browser.ChoosePlace("マイコンピュータ");
    EXPECT_EQ(browser.Rows(), Texts{"SYSTEM (C:)"});
  });
}

/// The browser waits a moment for the drive it starts on, and for all of them where it does not know which one that is.
TEST_F(FileBrowserWaits, TheStartWaitsForItsOwnDrive) {
  for (const char* folder : {"D:\\", "", "x", "Q:\\none"}) {
    SCOPED_TRACE(folder);
    startUp_.initialFolder = folder;
    Wait([](PlayedBrowser& browser) {
      EXPECT_EQ(browser.Places()[kDriveC], "SYSTEM (C:)");
      EXPECT_EQ(browser.Remark(), "");
    });
  }
}

TEST_F(FileBrowserWaits, DrivesThatHangInManyDialogsLeaveTwoCallsBehind) {
  calls_.HangAll("drives.Type");
  for (int i = 0; i < 5; ++i) {
    Wait([](PlayedBrowser& browser) { EXPECT_EQ(browser.Rows(), kAllRows); });
  }
  EXPECT_EQ(calls_.HangingNow(), 2);
}

// ---------------------------------------------------------------------------------------------------------------------
// the network

/// A computer whose shares are told one by one.
class FileBrowserSlowNetwork : public FileBrowserWaits {
 protected:
  FileBrowserSlowNetwork() {
    os::scripted::NetNode server;
    server.record.displayType = os::kNetDisplayServer;
    server.record.remoteName = "\\\\SRV";
    server.batch = 1;
    for (const char* name : {"\\\\SRV\\one", "\\\\SRV\\two", "\\\\SRV\\three"}) {
      os::scripted::NetNode share;
      share.record.displayType = os::kNetDisplayShare;
      share.record.remoteName = name;
      server.children.push_back(share);
    }
    World().network.present = true;
    World().network.global.children = {server};
  }
  /// Goes to the computer, whose n-th share does not come, and gives that up.
  void GiveUpAtShare(PlayedBrowser& browser, std::size_t n) {
    calls_.HangAt(n, "network.Next");
    window_.After(400, [this] { window_.PressEsc(); });
    browser.Enter("\\\\SRV");
    EXPECT_EQ(calls_.Hung(), "network.Next");
  }
};

TEST_F(FileBrowserSlowNetwork, ShowsWhatItHasToldUntilItIsGivenUp) {
  Wait([this](PlayedBrowser& browser) {
    GiveUpAtShare(browser, 3);
    EXPECT_EQ(browser.Rows(), (Texts{"one", "two"}));
    EXPECT_EQ(browser.Trail(), Texts{"SRV"});
  });
}

TEST_F(FileBrowserSlowNetwork, IsNotGoneToWhenItHasToldNothing) {
  Wait([this](PlayedBrowser& browser) {
    GiveUpAtShare(browser, 1);
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

TEST_F(FileBrowserSlowNetwork, IsNotGoneToAnyMoreByAWindowThatGoes) {
  Wait([this](PlayedBrowser& browser) {
    calls_.HangAll("network.Next");
    window_.After(400, [&] {
      browser.CloseNow();
      window_.isThere = false;
    });
    browser.Enter("\\\\SRV");
    EXPECT_FALSE(browser.IsOpen());
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// every call

struct Scenario {
  const char* name;
  std::function<void(PlayedBrowser&)> script;
};

const std::vector<Scenario>& Scenarios() {
  static const std::vector<Scenario> all = {
      {"places and views",
       [](PlayedBrowser& browser) {
         browser.ChooseView(ViewMode::List);
         browser.ChoosePlace("デスクトップ");
         browser.ChoosePlace("マイコンピュータ");
         browser.Up();
         browser.Back();
         browser.PressF5();
       }},
      {"names",
       [](PlayedBrowser& browser) {
         browser.Enter("C:\\other");
         browser.Enter("C:\\data\\*.mdl");
         browser.Enter("missing");
         browser.Enter("C:\\data\\a.mdl");
       }},
      {"the network",
       [](PlayedBrowser& browser) {
         browser.ChoosePlace("マイネットワーク");
         browser.Enter("\\\\SRV");
         browser.Enter("\\\\SRV\\docs");
         browser.Up();
       }},
      {"drives and levels of the network",
       [](PlayedBrowser& browser) {
         browser.ChoosePlace("マイコンピュータ");
         browser.PressF5();
         browser.ChoosePlace("ネットワーク全体");
         browser.ChoosePlace("近くのコンピュータ");
         browser.PressF5();
       }},
      {"entries",
       [](PlayedBrowser& browser) {
         browser.MakeFolder();
         browser.PressF5();
         const Texts rows = browser.Rows();
         const bool isThere = std::find(rows.begin(), rows.end(), "b.mdl") != rows.end();
         if (isThere && browser.EditLabel("b.mdl")) {
           browser.TypeLabel("c.mdl");
           browser.GiveLabel();
         }
         browser.ClickHeader(2);
         browser.ClickHeader(0);
       }},
  };
  return all;
}

/// What a user does, with all calls that it needs.
const std::vector<Scenario>& Intents() {
  static const std::vector<Scenario> all = {
      {"another order", [](PlayedBrowser& browser) { browser.ClickHeader(2); }},
      {"a place", [](PlayedBrowser& browser) { browser.ChoosePlace("デスクトップ"); }},
      {"a folder", [](PlayedBrowser& browser) { browser.OpenRow("Sub"); }},
      {"a typed folder", [](PlayedBrowser& browser) { browser.Enter("C:\\other"); }},
      {"a typed name", [](PlayedBrowser& browser) { browser.Enter("missing"); }},
      {"a view", [](PlayedBrowser& browser) { browser.ChooseView(ViewMode::List); }},
      {"the list anew", [](PlayedBrowser& browser) { browser.PressF5(); }},
      {"another name",
       [](PlayedBrowser& browser) {
         if (!browser.EditLabel("a.mdl")) return;
         browser.TypeLabel("c.mdl");
         browser.GiveLabel();
       }},
  };
  return all;
}

TEST_F(FileBrowserWaits, CancelEndsTheDialogAtOnceWhicheverCallHangs) {
  constexpr std::int64_t kSoonMs = 100;
  for (const Scenario& intent : Intents()) {
    bool hangs = true;
    std::size_t hung = 0;
    while (hangs) {
      ++hung;
      World().files.Remove("C:\\data\\c.mdl");
      World().files.AddFile("C:\\data\\a.mdl");
      hangs = false;
      Wait([&](PlayedBrowser& browser) {
        calls_.HangAt(hung);
        std::int64_t pressed = 0;
        window_.onShown = [&] {
          hangs = true;
          pressed = window_.NowMs();
          browser.Cancel();
        };
        intent.script(browser);
        window_.onShown = {};
        if (!hangs) return;
        SCOPED_TRACE(std::string(intent.name) + ", call " + std::to_string(hung) + ": " + calls_.Hung());
        EXPECT_FALSE(browser.IsOpen());
        EXPECT_LE(window_.NowMs() - pressed, kSoonMs);
      });
      SetFree();
      ASSERT_LT(hung, 100U);
    }
    EXPECT_GT(hung, 1U) << intent.name;
  }
}

/// Whichever call of a scenario hangs for ever, the user gives it up, and everything works again that does not need it.
TEST_F(FileBrowserWaits, EveryCallOfEveryScenarioMayHang) {
  os::scripted::NetNode server;
  server.record.displayType = os::kNetDisplayServer;
  server.record.remoteName = "\\\\SRV";
  World().network.present = true;
  World().network.context.children = {server};
  World().network.global.children = {server};
  World().files.AddFolder("\\\\SRV\\docs");
  window_.onShown = [this] { window_.PressEsc(); };
  for (const Scenario& scenario : Scenarios()) {
    std::size_t calls = 1;
    for (std::size_t hung = 0; hung <= calls; ++hung) {
      World().files.AddFile("C:\\data\\b.mdl");
      World().files.Remove("C:\\data\\c.mdl");
      calls_.HangAt(hung);
      Wait([&](PlayedBrowser& browser) {
        scenario.script(browser);
        if (hung == 0) calls = calls_.Made();
        SCOPED_TRACE(std::string(scenario.name) + ", call " + std::to_string(hung) + ": " + calls_.Hung());
        if (!browser.IsOpen()) return;
        if (hung > 0 && calls_.Hung() != "files.Attributes") {
          browser.Enter("C:\\other\\*.mdl");
          EXPECT_EQ(browser.Rows(), Texts{"z.mdl"});
        }
        browser.Cancel();
        EXPECT_FALSE(browser.IsOpen());
      });
      SetFree();
    }
    std::cout << "[ waits ] " << scenario.name << ": " << calls << " calls hung in turn\n";
    EXPECT_GT(calls, 5U);
  }
}

}  // namespace
}  // namespace browser_test
