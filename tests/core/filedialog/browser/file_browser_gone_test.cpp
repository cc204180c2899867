// The window goes while a question of the browser is open: whoever has asked returns, shows nothing more (which the
// played browser watches) and asks nothing more of the machine.
#include <gtest/gtest.h>

#include <optional>

#include "dlglib/filedialog/basics/start_up.h"
#include "tests/core/filedialog/browser/file_browser_fixture.h"

namespace browser_test {
namespace {

using filedialog::ViewMode;

class FileBrowserGone : public FileBrowserTest {
 protected:
  /// The window goes at the next question, which has to be of that kind; `step` asks it.
  template <class Step>
  void CloseAt(const std::string& kind, PlayedBrowser& browser, const Step& step) {
    static_cast<void>(browser.TakeShown());
    browser.whileReading = Closing(browser);
    step();
    ExpectQuietSince(kind, browser);
  }

  [[nodiscard]] std::function<void()> Closing(PlayedBrowser& browser) {
    return [this, &browser] {
      browser.CloseNow();
      calls_ = World().calls.Total();
    };
  }

  void ExpectQuietSince(const std::string& kind, PlayedBrowser& browser) {
    const auto shown = browser.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown.front().kind, kind);
    EXPECT_FALSE(browser.IsOpen());
    EXPECT_EQ(World().calls.Total(), calls_) << "after the " << kind;
  }

  /// A computer "\\SRV" in the network that wants a logon, and its share, that does too.
  static void AddServer() {
    os::scripted::NetNode server;
    server.record.displayType = os::kNetDisplayServer;
    server.record.remoteName = "\\\\SRV";
    os::scripted::NetNode share;
    share.record.displayType = os::kNetDisplayShare;
    share.record.remoteName = "\\\\SRV\\docs";
    server.children = {share};
    World().network.present = true;
    World().network.context.children = {server};
    World().network.global.children = {server};
  }

  std::size_t calls_ = 0;
};

TEST_F(FileBrowserGone, AtTheLogonForAClientsDrives) {
  os::scripted::NetNode client;
  client.record.displayType = os::kNetDisplayServer;
  client.record.remoteName = "\\\\tsclient";
  client.record.provider = "Microsoft Terminal Services";
  client.openError = os::kErrorAccessDenied;
  World().network.global.children = {client};
  PlayedBrowser browser(startUp_);
  browser.whileReading = Closing(browser);
  browser.Open();
  ExpectQuietSince("logon", browser);
}

TEST_F(FileBrowserGone, AtTheLogonToAComputer) {
  AddServer();
  World().network.global.children.front().openError = os::kErrorAccessDenied;
  Run([&](PlayedBrowser& browser) {
    browser.ChoosePlace("マイネットワーク");
    browser.OpenRow("近くのコンピュータ");
    CloseAt("logon", browser, [&] { browser.OpenRow("SRV"); });
  });
}

TEST_F(FileBrowserGone, AtTheLogonToAShare) {
  AddServer();
  Run([&](PlayedBrowser& browser) {
    browser.ChoosePlace("マイネットワーク");
    browser.OpenRow("近くのコンピュータ");
    browser.OpenRow("SRV");
    World().files.AddFolder("\\\\SRV\\docs");
    World().calls.FailNext("files.Exists", os::kErrorAccessDenied, 100);
    CloseAt("logon", browser, [&] { browser.OpenRow("docs"); });
  });
}

TEST_F(FileBrowserGone, AtTheLogonToTheComputerWhereItStarts) {
  AddServer();
  World().network.global.children.front().openError = os::kErrorAccessDenied;
  startUp_.initialFolder = "\\\\SRV";
  PlayedBrowser browser(startUp_);
  browser.whileReading = Closing(browser);
  browser.Open();
  ExpectQuietSince("logon", browser);
}

/// Whatever lists the place anew may be asked for a logon there.
class FileBrowserGoneOnServer : public FileBrowserGone {
 protected:
  FileBrowserGoneOnServer() {
    AddServer();
    World().files.AddFile("\\\\SRV\\docs\\plan.mdl");
  }

  /// Stands at the computer, or in its share, before `step` finds that a logon is wanted.
  void CloseAtComputer(const std::function<void(PlayedBrowser&)>& step) {
    Run([&](PlayedBrowser& browser) {
      OpenServer(browser);
      World().network.global.children.front().openError = os::kErrorAccessDenied;
      CloseAt("logon", browser, [&] { step(browser); });
    });
  }
  void CloseAtShare(const std::function<void(PlayedBrowser&)>& step) {
    Run([&](PlayedBrowser& browser) {
      OpenServer(browser);
      browser.OpenRow("docs");
      World().network.global.children.front().openError = os::kErrorAccessDenied;
      CloseAt("logon", browser, [&] { step(browser); });
    });
  }
  /// A row of the share is selected; `step` may ask something else before the logon.
  void CloseInShare(const std::function<void(PlayedBrowser&)>& step) {
    Run([&](PlayedBrowser& browser) {
      OpenServer(browser);
      browser.OpenRow("docs");
      browser.ClickRow("plan.mdl");
      World().calls.FailNext("files.Exists", os::kErrorAccessDenied, 100);
      browser.answerLogon = [&](const std::string&) {
        static_cast<void>(browser.TakeShown());
        Closing(browser)();
        return std::nullopt;
      };
      step(browser);
      EXPECT_FALSE(browser.IsOpen());
      EXPECT_TRUE(browser.TakeShown().empty());
      EXPECT_EQ(World().calls.Total(), calls_);
    });
  }
  static void OpenServer(PlayedBrowser& browser) {
    browser.ChoosePlace("マイネットワーク");
    browser.OpenRow("近くのコンピュータ");
    browser.OpenRow("SRV");
  }
};

TEST_F(FileBrowserGoneOnServer, AtTheLogonOfAListingThatIsReadAgain) {
  CloseAtComputer([](PlayedBrowser& browser) { browser.PressF5(); });
}

TEST_F(FileBrowserGoneOnServer, AtTheLogonOfAnotherView) {
  CloseAtComputer([](PlayedBrowser& browser) { browser.ChooseView(ViewMode::List); });
}

TEST_F(FileBrowserGoneOnServer, AtTheLogonOnTheWayUp) {
  CloseAtShare([](PlayedBrowser& browser) { browser.Up(); });
}

TEST_F(FileBrowserGoneOnServer, AtTheLogonToAPlaceOfTheLocationBar) {
  CloseAtShare([](PlayedBrowser& browser) { browser.ChoosePlace("SRV"); });
}

/// What changes a folder lists it again.
TEST_F(FileBrowserGoneOnServer, AtTheLogonBehindANewFolder) {
  CloseInShare([](PlayedBrowser& browser) {
    browser.answerNewFolder = [](const std::string&) { return std::optional<std::string>("new"); };
    browser.MakeFolder();
  });
}

TEST_F(FileBrowserGoneOnServer, AtTheLogonBehindANewName) {
  CloseInShare([](PlayedBrowser& browser) {
    browser.answerRename = [](const std::string&, const std::string&, bool) { return true; };
    browser.Rename();
  });
}

TEST_F(FileBrowserGoneOnServer, AtTheLogonBehindADeletion) {
  CloseInShare([](PlayedBrowser& browser) { browser.Delete(); });
}

TEST_F(FileBrowserGoneOnServer, AtTheLogonBehindALabel) {
  CloseInShare([](PlayedBrowser& browser) {
    ASSERT_TRUE(browser.EditLabel("plan.mdl"));
    browser.TypeLabel("other.mdl");
    browser.GiveLabel();
  });
}

TEST_F(FileBrowserGone, AtTheMessageOfANameThatIsNotThere) {
  Run([&](PlayedBrowser& browser) { CloseAt("warn", browser, [&] { browser.Enter("missing"); }); });
}

TEST_F(FileBrowserGone, AtTheMessageOfOneNameOfSeveral) {
  startUp_.flags |= filedialog::kFlagMultiSelect;
  Run([&](PlayedBrowser& browser) { CloseAt("warn", browser, [&] { browser.Enter("missing a.mdl"); }); });
}

TEST_F(FileBrowserGone, AtTheMessageOfASelectionWithoutAFile) {
  startUp_.flags |= filedialog::kFlagMultiSelect;
  Run([&](PlayedBrowser& browser) {
    browser.ClickRow("old");
    browser.AddRow("Sub");
    CloseAt("warn", browser, [&] { browser.Ok(); });
  });
}

TEST_F(FileBrowserGone, AtTheQuestionWhetherToOverwrite) {
  startUp_.flags = filedialog::kFlagAskOverwrite | filedialog::kFlagPathMustExist;
  Run([&](PlayedBrowser& browser) {
    browser.answerOverwrite = [](const std::string&) { return true; };
    CloseAt("overwrite", browser, [&] { browser.Enter("a.mdl"); });
    EXPECT_EQ(browser.Answer(), 0);
  });
}

TEST_F(FileBrowserGone, AtTheQuestionAboutOneOfSeveralSelectedFiles) {
  startUp_.flags = filedialog::kFlagAskOverwrite | filedialog::kFlagMultiSelect;
  Run([&](PlayedBrowser& browser) {
    browser.answerOverwrite = [](const std::string&) { return true; };
    browser.ClickRow("a.mdl");
    browser.AddRow("b.mdl");
    CloseAt("overwrite", browser, [&] { browser.Ok(); });
  });
}

TEST_F(FileBrowserGone, AtTheNewFolder) {
  Run([&](PlayedBrowser& browser) {
    browser.answerNewFolder = [](const std::string&) { return std::optional<std::string>("new"); };
    CloseAt("folder", browser, [&] { browser.MakeFolder(); });
  });
}

TEST_F(FileBrowserGone, AtTheNewName) {
  Run([&](PlayedBrowser& browser) {
    browser.answerRename = [](const std::string&, const std::string&, bool) { return true; };
    browser.ClickRow("a.mdl");
    CloseAt("rename", browser, [&] { browser.Rename(); });
  });
}

TEST_F(FileBrowserGone, AtTheMessageOfALabelThatIsRefused) {
  for (const bool leaves : {false, true}) {
    Run([&](PlayedBrowser& browser) {
      ASSERT_TRUE(browser.EditLabel("a.mdl"));
      browser.TypeLabel("a?.mdl");
      CloseAt("refuse", browser, [&] { leaves ? browser.Cancel() : browser.Ok(); });
    });
  }
}

TEST_F(FileBrowserGone, AtTheTitles) {
  Run([&](PlayedBrowser& browser) {
    browser.answerTitles = [](filedialog::SlowSortRule&, const filedialog::TitleSlots& slots) {
      return std::optional(slots);
    };
    CloseAt("titles", browser, [&] { browser.ChooseView(ViewMode::Titles); });
  });
}

TEST_F(FileBrowserGone, AtTheQuestionWhetherToSort) {
  World().registry.SetValue(kLayoutKey, "Count", os::RegistryType::Dword, std::string("\x01\0\0\0", 4));
  Run([&](PlayedBrowser& browser) {
    browser.answerSlowSort = [](filedialog::SlowSortRule&) { return true; };
    browser.ChooseView(ViewMode::Titles);
    CloseAt("sort", browser, [&] { browser.ClickHeader(1); });
  });
}

}  // namespace
}  // namespace browser_test
