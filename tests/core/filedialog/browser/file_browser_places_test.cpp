// Where the browser goes: desktop, drives, the network and its logons, and what it lists there.
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "tests/core/filedialog/browser/file_browser_fixture.h"
#include "tests/support/played_network.h"

namespace browser_test {
namespace {

using filedialog::Credentials;
using os::scripted::NetNode;
using played_network::kProvider;
using played_network::Node;
using played_network::ProtectShare;

constexpr int kChosen = 1;
constexpr std::uint32_t kWrongPassword = 86;

// ---------------------------------------------------------------------------------------------------------------------
// desktop, drives, columns

class FileBrowserPlaces : public FileBrowserTest {
 protected:
  static void AddLink(const std::string& name, const std::string& target) {
    World().files.AddFile("C:\\desktop\\" + name);
    if (!target.empty()) World().shell.links["C:\\desktop\\" + name] = target;
  }
};

TEST_F(FileBrowserPlaces, TheDesktopShowsItsFolderAndWhatItsShortcutsLeadTo) {
  World().files.AddFolder("C:\\desktop\\mine");
  World().files.AddFile("C:\\desktop\\own.mdl");
  AddLink("plans.lnk", "C:\\data\\Sub");
  AddLink("表.lnk", "C:\\data\\表.mdl");
  AddLink("text.lnk", "C:\\data\\other.txt");
  AddLink("lost.lnk", "");
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("デスクトップ");
    EXPECT_EQ(browser.Rows(), (Texts{"plans.lnk", "mine", "表.lnk", "own.mdl"}));
    EXPECT_EQ(browser.Images(), (std::vector<int>{16, 17, 18, 19}));
    browser.ClickRow("表.lnk");
    EXPECT_EQ(browser.Name(), "");
    browser.OpenRow("plans.lnk");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    browser.Back();
    EXPECT_EQ(browser.Rows().front(), "plans.lnk");
    browser.OpenRow("mine");
    EXPECT_EQ(browser.Trail(), (Texts{"desktop", "mine"}));
    browser.Back();
    browser.OpenRow("表.lnk");
  });
  EXPECT_EQ(outcome.answer, kChosen);
  EXPECT_EQ(outcome.result, "C:\\data\\表.mdl");
}

TEST_F(FileBrowserPlaces, AShortcutWhoseTargetHasGoneIsListedAndMissed) {
  AddLink("lost.lnk", "C:\\none\\x.mdl");
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("デスクトップ");
    EXPECT_EQ(browser.Images(), std::vector<int>{18});
    browser.OpenRow("lost.lnk");
    ExpectWarning(browser, std::string("C:\\none\\x.mdl") + kFileNotFound);
    browser.Ok();
    ExpectWarning(browser, std::string("C:\\none\\x.mdl") + kFileNotFound);
    EXPECT_EQ(browser.Rows(), Texts{"lost.lnk"});
  });
}

TEST_F(FileBrowserPlaces, ShortcutsThatCannotBeResolvedAreNotListedAsSuch) {
  startUp_.title = "#ANY#(*)";
  AddLink("self.lnk", "C:\\desktop\\self.lnk");
  AddLink("loop.lnk", "");
  AddLink("good.lnk", "C:\\data\\b.mdl");
  AddLink("broken.lnk", "");
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("デスクトップ");
    EXPECT_EQ(browser.Rows(), (Texts{"good.lnk", "broken.lnk", "loop.lnk", "self.lnk"}));
    EXPECT_EQ(browser.Images(), (std::vector<int>{18, 19, 19, 19}));
    browser.Enter("*.l*");
    EXPECT_EQ(browser.Rows(), (Texts{"broken.lnk", "good.lnk", "loop.lnk", "self.lnk"}));
    EXPECT_EQ(browser.Trail(), Texts{}) << "still the desktop";
  });
}

TEST_F(FileBrowserPlaces, UpEndsAtTheDesktop) {
  Run([](PlayedBrowser& browser) {
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop"}));
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"SYSTEM (C:)", "REMOVABLE (D:)"}));
    EXPECT_TRUE(browser.OpenWays().up);
    for (int i = 0; i < 2; ++i) {
      browser.Up();
      EXPECT_EQ(browser.Rows(), Texts{});
      EXPECT_FALSE(browser.OpenWays().up);
    }
    for (int i = 0; i < 3; ++i) browser.Back();
    EXPECT_EQ(browser.Rows(), kAllRows);
    EXPECT_FALSE(browser.OpenWays().back);
  });
}

TEST_F(FileBrowserPlaces, TheLocationBarClosedWithoutAChoiceGivesTheListTheFocus) {
  Run([](PlayedBrowser& browser) {
    browser.TypeName("typed");
    EXPECT_FALSE(browser.ListHasFocus());
    TakeListings();
    browser.Core().ChoosePlace(std::nullopt);
    EXPECT_TRUE(browser.ListHasFocus());
    EXPECT_EQ(browser.Name(), "typed");
    EXPECT_EQ(TakeListings(), 0U);
  });
}

TEST_F(FileBrowserPlaces, AHeaderClickSortsAndASecondOneTurnsTheOrder) {
  Run([](PlayedBrowser& browser) {
    const auto expectMark = [&browser](int column, int direction) {
      for (int i = 0; i < 3; ++i) EXPECT_EQ(browser.SortMark(i), i == column ? direction : 0);
    };
    expectMark(0, 1);
    TakeListings();
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "a.mdl", "A-001.MDL", "表.mdl", "b.mdl", "ソ.mdl"}));
    expectMark(1, 1);
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), (Texts{"表示", "Sub", "old", "ソ.mdl", "b.mdl", "表.mdl", "A-001.MDL", "a.mdl"}));
    expectMark(1, -1);
    browser.ClickHeader(2);
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "ソ.mdl", "A-001.MDL", "b.mdl", "a.mdl", "表.mdl"}));
    expectMark(2, 1);
    browser.ClickHeader(0);
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.ClickHeader(0);
    EXPECT_EQ(browser.Rows(), (Texts{"表示", "Sub", "old", "表.mdl", "ソ.mdl", "b.mdl", "A-001.MDL", "a.mdl"}));
    EXPECT_EQ(TakeListings(), 0U);
    browser.OpenRow("Sub");
    browser.Back();
    EXPECT_EQ(browser.Rows(), kAllRows);
    expectMark(0, 1);
  });
}

TEST_F(FileBrowserPlaces, WantOfMemoryInTheFirstListingIsToldToWhoeverStartsTheBrowser) {
  World().calls.Watch([](const std::string& name) {
    if (name == "files.OpenFolder") throw std::bad_alloc();
  });
  PlayedBrowser browser(startUp_);
  EXPECT_THROW(browser.Open(), std::bad_alloc);
  World().calls.Watch({});
}

TEST_F(FileBrowserPlaces, ADriveThatIsNotReadyIsEmpty) {
  os::scripted::Drive disc;
  disc.type = os::DriveType::CdRom;
  disc.space = std::nullopt;
  World().AddDrive('F', disc);
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("CD-ROM (F:)");
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.Up();
    browser.OpenRow("CD-ROM (F:)");
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.Back();
    EXPECT_EQ(browser.Rows().back(), "CD-ROM (F:)");
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// network

class FileBrowserNetwork : public FileBrowserTest {
 protected:
  FileBrowserNetwork() { played_network::Begin(); }

  static void OpenServer(PlayedBrowser& browser) {
    browser.ChoosePlace("近くのコンピュータ");
    browser.OpenRow("SRV");
  }

  /// Answers each logon with the next of these, then cancels.
  static void AnswerLogons(PlayedBrowser& browser, std::vector<Credentials> answers) {
    browser.answerLogon = [answers = std::move(answers), next = std::size_t{0}](const std::string&) mutable {
      return next < answers.size() ? std::optional(answers[next++]) : std::nullopt;
    };
  }

  static Texts AskedPaths(PlayedBrowser& browser) {
    Texts paths;
    for (const PlayedBrowser::Shown& shown : browser.TakeShown()) {
      if (shown.kind == "logon") paths.push_back(shown.text);
    }
    return paths;
  }
};

TEST_F(FileBrowserNetwork, TheNetworkIsWalkedDownByDoubleClicks) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("マイネットワーク");
    EXPECT_EQ(browser.Rows(), (Texts{"ネットワーク全体", "近くのコンピュータ"}));
    EXPECT_EQ(browser.Images(), (std::vector<int>{3, 6}));
    ASSERT_EQ(browser.Columns().size(), 2U);
    EXPECT_EQ(browser.Columns()[1].header, "コメント");
    browser.OpenRow("ネットワーク全体");
    EXPECT_EQ(browser.Images(), std::vector<int>{4});
    browser.OpenRow(kProvider);
    EXPECT_EQ(browser.Images(), std::vector<int>{5});
    browser.OpenRow("設計部");
    EXPECT_EQ(browser.Images(), std::vector<int>{7});
    browser.OpenRow("SRV");
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
    EXPECT_EQ(browser.Images(), (std::vector<int>{8, 8}));
    browser.OpenRow("docs");
    EXPECT_EQ(browser.Rows(), (Texts{"deep", "plan.mdl"}));
    EXPECT_EQ(browser.Columns().size(), 3U);
    browser.Enter("deep");
    EXPECT_EQ(browser.Trail(), (Texts{kProvider, "設計部", "SRV", "docs", "deep"}));
    browser.Enter("*.mdl");
    EXPECT_EQ(browser.Trail(), (Texts{kProvider, "設計部", "SRV", "docs", "deep"}));
    browser.OpenRow("more.mdl");
  });
  EXPECT_EQ(outcome.answer, kChosen);
  EXPECT_EQ(outcome.result, "\\\\SRV\\docs\\deep\\more.mdl");
  EXPECT_EQ(World().network.openPasses, 0);
  EXPECT_TRUE(World().network.connections.empty());
}

TEST_F(FileBrowserNetwork, OkOpensTheSelectedPlace) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("マイネットワーク");
    for (const char* name : {"近くのコンピュータ", "SRV", "docs"}) {
      browser.ClickRow(name);
      EXPECT_EQ(browser.Name(), "");
      browser.Ok();
    }
    EXPECT_EQ(browser.Rows(), (Texts{"deep", "plan.mdl"}));
    EXPECT_EQ(browser.Trail(), (Texts{"SRV", "docs"}));
    browser.Enter("plan");
  });
  EXPECT_EQ(outcome.result, "\\\\SRV\\docs\\plan.MDL");
}

TEST_F(FileBrowserNetwork, UpAndBackWalkTheLevels) {
  Run([](PlayedBrowser& browser) {
    OpenServer(browser);
    browser.OpenRow("docs");
    browser.OpenRow("deep");
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"deep", "plan.mdl"}));
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
    browser.Back();
    EXPECT_EQ(browser.Rows(), (Texts{"deep", "plan.mdl"}));
    browser.Back();
    EXPECT_EQ(browser.Rows(), Texts{"more.mdl"});
    browser.Back();
    browser.Back();
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
    browser.Back();
    EXPECT_EQ(browser.Rows(), Texts{"SRV"}) << "nearby computers";
    browser.Back();
    EXPECT_EQ(browser.Trail(), Texts{"data"});
  });
}

TEST_F(FileBrowserNetwork, UpLeadsPastTheNetworkToTheDesktop) {
  Run([](PlayedBrowser& browser) {
    OpenServer(browser);
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"ネットワーク全体", "近くのコンピュータ"}));
    browser.Up();
    EXPECT_EQ(browser.Trail(), Texts{});
    EXPECT_FALSE(browser.OpenWays().up);
  });
}

TEST_F(FileBrowserNetwork, TheLocationBarLeadsBackToEveryLevel) {
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("ネットワーク全体");
    for (const char* name : {kProvider, "設計部", "SRV", "docs"}) browser.OpenRow(name);
    browser.ChoosePlace("設計部");
    EXPECT_EQ(browser.Rows(), Texts{"SRV"});
    EXPECT_EQ(browser.Trail(), (Texts{kProvider, "設計部"}));
    browser.Back();
    EXPECT_EQ(browser.Rows(), (Texts{"deep", "plan.mdl"}));
    browser.ChoosePlace("SRV");
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
    browser.ChoosePlace("ネットワーク全体");
    EXPECT_EQ(browser.Rows(), Texts{kProvider});
    EXPECT_EQ(browser.Trail(), Texts{});
    browser.ChoosePlace("SYSTEM (C:)");
    EXPECT_EQ(browser.Rows(), (Texts{"data", "desktop"}));
  });
}

TEST_F(FileBrowserNetwork, ATypedShareIsOpened) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.Enter("\\\\SRV\\docs");
    EXPECT_EQ(browser.Rows(), (Texts{"deep", "plan.mdl"}));
    EXPECT_EQ(browser.Trail(), (Texts{"SRV", "docs"}));
    EXPECT_EQ(browser.Name(), "\\\\SRV\\docs");
    browser.Enter("\\\\SRV\\docs\\\\deep\\*.m*");
    EXPECT_EQ(browser.Rows(), Texts{"more.mdl"});
    browser.Enter("\\\\SRV\\docs\\plan.mdl");
  });
  EXPECT_EQ(outcome.result, "\\\\SRV\\docs\\plan.mdl");
}

TEST_F(FileBrowserNetwork, ATypedComputerIsOpened) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.Enter("\\\\SRV");
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
    EXPECT_EQ(browser.Trail(), Texts{"SRV"});
    EXPECT_EQ(browser.Name(), "\\\\SRV");
    browser.Enter("\\\\NONE\\");
    ExpectWarning(browser, std::string("\\\\NONE.MDL") + kFileNotFound);
    EXPECT_EQ(browser.Trail(), Texts{"SRV"});
    browser.OpenRow("docs");
    browser.OpenRow("plan.mdl");
  });
  EXPECT_EQ(outcome.result, "\\\\SRV\\docs\\plan.mdl");
}

TEST_F(FileBrowserNetwork, ATypedShareThatCannotBeReachedLeadsToItsComputer) {
  ProtectShare();
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.Enter("\\\\SRV\\docs");
    ExpectWarning(browser, std::string("\\\\SRV\\docs.MDL") + kFileNotFound);
    EXPECT_EQ(browser.Trail(), Texts{"SRV"});
    EXPECT_EQ(browser.Name(), "docs.MDL");
    AnswerLogons(browser, {{"taro", "x"}});
    browser.OpenRow("docs");
    EXPECT_EQ(browser.Rows(), Texts{"plan.mdl"});
    browser.OpenRow("plan.mdl");
  });
  EXPECT_EQ(outcome.result, "\\\\SRV\\docs\\plan.mdl");
}

TEST_F(FileBrowserNetwork, AShareCanBeTheStartFolder) {
  startUp_.initialFolder = "\\\\SRV\\docs\\deep";
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Rows(), Texts{"more.mdl"});
    EXPECT_EQ(browser.Trail(), (Texts{"SRV", "docs", "deep"}));
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"deep", "plan.mdl"}));
  });
}

TEST_F(FileBrowserNetwork, AFixedComputerShowsItsSharesAndOpensNone) {
  startUp_.initialFolder = "\\\\SRV";
  startUp_.folderFixed = true;
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
    browser.OpenRow("docs");
    browser.Ok();
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
    EXPECT_EQ(browser.Trail(), Texts{"SRV"});
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(FileBrowserNetwork, AShareAsksUntilTheConnectionIsMade) {
  ProtectShare();
  World().network.connectResults = {kWrongPassword, kWrongPassword, 0};
  Run([](PlayedBrowser& browser) {
    OpenServer(browser);
    AnswerLogons(browser, {{"taro", "one"}, {"taro", "two"}, {"hanako", "三"}, {"never", "asked"}});
    browser.OpenRow("docs");
    EXPECT_EQ(AskedPaths(browser), Texts(3, "\\\\SRV\\docs"));
    EXPECT_EQ(browser.Rows(), Texts{"plan.mdl"});
    EXPECT_EQ(browser.Trail(), (Texts{"SRV", "docs"}));
  });
  const auto& made = World().network.connections;
  ASSERT_EQ(made.size(), 3U);
  EXPECT_EQ(made[0].password, "one");
  EXPECT_EQ(made[1].password, "two");
  EXPECT_EQ(made[2].userName, "hanako");
  EXPECT_EQ(made[2].password, "三");
  EXPECT_EQ(made[2].resource.remoteName, "\\\\SRV\\docs");
}

TEST_F(FileBrowserNetwork, ACancelledLogonListsNothing) {
  ProtectShare();
  Run([](PlayedBrowser& browser) {
    OpenServer(browser);
    browser.OpenRow("docs");
    EXPECT_EQ(AskedPaths(browser), Texts{"\\\\SRV\\docs"});
    EXPECT_EQ(browser.Rows(), Texts{});
    EXPECT_TRUE(browser.IsOpen());
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
  });
  EXPECT_TRUE(World().network.connections.empty());
}

TEST_F(FileBrowserNetwork, AWindowThatGoesDuringALogonIsNotTouched) {
  ProtectShare();
  Run([](PlayedBrowser& browser) {
    OpenServer(browser);
    browser.answerLogon = [&browser](const std::string&) {
      browser.CloseNow();
      return std::optional(Credentials{"taro", "x"});
    };
    browser.OpenRow("docs");
    EXPECT_FALSE(browser.IsOpen());
  });
  EXPECT_TRUE(World().network.connections.empty());
}

TEST_F(FileBrowserNetwork, EveryCallOfALogonMayFail) {
  ProtectShare();
  Run([](PlayedBrowser& browser) {
    OpenServer(browser);
    const std::vector<std::uint32_t> errors = {5, 67, 1219, 1222};
    std::size_t asked = 0;
    browser.answerLogon = [&](const std::string&) {
      EXPECT_FALSE(World().calls.FaultPending());
      if (asked < errors.size()) World().calls.FailNext("network.Connect", errors[asked]);
      if (asked == errors.size()) World().calls.FailNext("files.OpenFolder");
      ++asked;
      return std::optional(Credentials{"", "x"});
    };
    browser.OpenRow("docs");
    EXPECT_FALSE(World().calls.FaultPending());
    EXPECT_EQ(World().network.connections.size(), 5U);
    EXPECT_EQ(browser.Rows(), Texts{});
    EXPECT_EQ(browser.Trail(), (Texts{"SRV", "docs"}));
    browser.Up();
    World().calls.FailNext("files.Exists");
    AnswerLogons(browser, {});
    browser.OpenRow("docs");
    EXPECT_EQ(browser.Rows(), Texts{"plan.mdl"}) << "as far as it can be read";
    EXPECT_EQ(World().network.connections.size(), 5U);
  });
}

TEST_F(FileBrowserNetwork, AServerThatWantsALogonIsListedWhenItIsOpenedAgain) {
  World().network.context.children[1].openError = os::kErrorAccessDenied;
  World().network.global.children.clear();
  Run([](PlayedBrowser& browser) {
    AnswerLogons(browser, {{"taro", "x"}});
    OpenServer(browser);
    EXPECT_EQ(AskedPaths(browser), Texts{"\\\\SRV"});
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.ChoosePlace("SRV");
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
  });
  EXPECT_EQ(World().network.connections.size(), 1U);
}

TEST_F(FileBrowserNetwork, ABrokenNetworkIsEmpty) {
  World().calls.FailNext("network.Open", 1222, 100);
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("ネットワーク全体");
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.ChoosePlace("近くのコンピュータ");
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.Up();
    EXPECT_EQ(browser.Rows(), Texts{}) << "the entire network, which stands above";
    browser.ChoosePlace("マイネットワーク");
    EXPECT_EQ(browser.Rows(), (Texts{"ネットワーク全体", "近くのコンピュータ"}));
    browser.Enter("x.mdl");
    ExpectWarning(browser, std::string("\\x.mdl") + kFileNotFound);
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(FileBrowserNetwork, HundredsOfPlacesAreListedInTheirOrder) {
  NetNode domain = Node(os::kNetDisplayDomain, "大部門", "");
  domain.batch = 30;
  for (int i = 0; i < 350; ++i) {
    NetNode server = Node(os::kNetDisplayServer, "\\\\PC" + std::to_string(1350 - i), "");
    if (i % 2 == 0) server.record.comment = std::nullopt;
    domain.children.push_back(server);
  }
  domain.children.push_back(Node(os::kNetDisplayServer, "", "names nothing"));
  domain.children.back().record.provider = std::nullopt;
  World().network.global.children[1].children.push_back(domain);
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("ネットワーク全体");
    EXPECT_EQ(browser.Rows(), Texts{kProvider}) << "a dropped provider, not a dropped domain";
    browser.OpenRow(kProvider);
    EXPECT_EQ(browser.Rows(), (Texts{"設計部", "大部門"}));
    browser.OpenRow("大部門");
    const Texts rows = browser.Rows();
    ASSERT_EQ(rows.size(), 350U);
    EXPECT_EQ(rows.front(), "PC1350");
    EXPECT_EQ(rows.back(), "PC1001");
  });
  EXPECT_EQ(World().network.openPasses, 0);
}

TEST_F(FileBrowserNetwork, AnEnumerationThatCannotBeClosedIsEmpty) {
  World().network.global.children[1].closeFails = true;
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("ネットワーク全体");
    browser.OpenRow(kProvider);
    EXPECT_EQ(browser.Rows(), Texts{});
    EXPECT_EQ(browser.Trail(), Texts{kProvider});
    browser.Back();
    EXPECT_EQ(browser.Rows(), Texts{kProvider});
  });
}

TEST_F(FileBrowserNetwork, EveryStepEnumeratesItsPlaceOnce) {
  Run([](PlayedBrowser& browser) {
    const auto opened = [] {
      const std::size_t count = World().calls.Count("network.Open");
      return std::pair(count, TakeListings());
    };
    const auto network = std::pair<std::size_t, std::size_t>(1, 0);
    const auto folder = std::pair<std::size_t, std::size_t>(0, 1);
    opened();
    browser.ChoosePlace("近くのコンピュータ");
    EXPECT_EQ(opened(), network);
    browser.OpenRow("SRV");
    EXPECT_EQ(opened(), network);
    browser.OpenRow("docs");
    EXPECT_EQ(opened(), folder);
    browser.Up();
    EXPECT_EQ(opened(), network);
    browser.Back();
    EXPECT_EQ(opened(), folder);
    browser.ChoosePlace("マイネットワーク");
    EXPECT_EQ(opened(), (std::pair<std::size_t, std::size_t>(0, 0)));
    browser.Enter("\\\\SRV\\docs");
    EXPECT_EQ(opened(), folder);
  });
}

TEST_F(FileBrowserNetwork, ANetworkHeaderDoesNotSort) {
  Run([](PlayedBrowser& browser) {
    OpenServer(browser);
    browser.ClickHeader(0);
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
    EXPECT_EQ(browser.SortMark(0), 1);
  });
}

TEST_F(FileBrowserNetwork, F5AtTheComputerAsksTheDrivesAnew) {
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    os::scripted::Drive renamed = World().drives['C'];
    renamed.volumeName = "RENAMED";
    World().AddDrive('C', renamed);
    const os::scripted::Drive removable = World().drives['D'];
    World().drives.erase('D');
    browser.PressF5();
    EXPECT_EQ(browser.Rows(), Texts{"RENAMED (C:)"});
    World().AddDrive('D', removable);
    browser.PressF5();
    EXPECT_EQ(browser.Rows(), (Texts{"RENAMED (C:)", "REMOVABLE (D:)"}));
    EXPECT_EQ(browser.Places()[2], "RENAMED (C:)");
  });
}

TEST_F(FileBrowserNetwork, WithoutANetworkItsPlaceIsEmpty) {
  World().network.present = false;
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Places().back(), "マイネットワーク");
    browser.ChoosePlace("マイネットワーク");
    EXPECT_EQ(browser.Rows(), Texts{});
  });
}

TEST_F(FileBrowserNetwork, PlacesAreShownInOrder) {
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Places(), (Texts{"デスクトップ", "マイコンピュータ", "SYSTEM (C:)", "data", "REMOVABLE (D:)",
                                       "マイネットワーク", "ネットワーク全体", "近くのコンピュータ"}));
  });
}

TEST_F(FileBrowserNetwork, TheDrivesOfARemoteSessionsClientAreOpened) {
  World().network.global.children.push_back(
      Node(os::kNetDisplayServer, "\\\\tsclient", "",
           {Node(os::kNetDisplayShare, "\\\\tsclient\\C", ""), Node(os::kNetDisplayShare, "odd", "")}));
  World().network.terminalProvider = kProvider;
  World().files.AddFile("\\\\tsclient\\C\\far\\x.mdl");
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("クライアント の C");
    EXPECT_EQ(browser.Rows(), Texts{"far"});
    browser.OpenRow("far");
    EXPECT_EQ(browser.Rows(), Texts{"x.mdl"});
    browser.Up();
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"SYSTEM (C:)", "REMOVABLE (D:)", "クライアント の C"}));
    EXPECT_EQ(browser.Images().back(), 9);
    browser.OpenRow("クライアント の C");
    browser.Enter("far\\x");
  });
  EXPECT_EQ(outcome.result, "\\\\tsclient\\C\\far\\x.MDL");
}

TEST_F(FileBrowserNetwork, TheClientsNameComesFromTheSession) {
  World().network.global.children.push_back(
      Node(os::kNetDisplayServer, "\\\\tsclient", "", {Node(os::kNetDisplayShare, "\\\\tsclient\\D\\", "")}));
  World().network.terminalProvider = kProvider;
  World().session.variables["CLIENTNAME"] = "端末";
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    EXPECT_EQ(browser.Rows().back(), "端末 の D");
  });
}

TEST_F(FileBrowserNetwork, AClientThatWantsALogonIsAskedForBeforeAnythingIsShown) {
  NetNode client = Node(os::kNetDisplayServer, "\\\\tsclient", "");
  client.openError = os::kErrorAccessDenied;
  World().network.global.children.push_back(client);
  World().network.terminalProvider = kProvider;
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    EXPECT_EQ(AskedPaths(browser), Texts{"\\\\tsclient"});
    for (const std::string& place : browser.Places()) EXPECT_EQ(place.find("クライアント"), std::string::npos);
  });
  EXPECT_EQ(outcome.answer, 2);
}

}  // namespace
}  // namespace browser_test
