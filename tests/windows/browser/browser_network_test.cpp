// The network and the drives in the file browser: from the location bar down to a share's folder, and back.
#include <array>
#include <string>
#include <vector>

#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/resources/resource.h"
#include "tests/support/played_network.h"
#include "tests/windows/browser/browser_world.h"

namespace browser_test {
namespace {

using driver::ListView;
using os::scripted::NetNode;
using played_network::kProvider;
using played_network::Node;
using played_network::ProtectShare;

constexpr char kLogonTitle[] = "パスワード";
constexpr std::uint32_t kWrongPassword = 86;

class BrowserNetworkTest : public BrowserTest {
 protected:
  BrowserNetworkTest() { played_network::Begin(); }

  static void AnswerLogon(Browser& browser, const std::string& user, const std::string& password) {
    const driver::Window logon = browser.Person().WaitDialog(kLogonTitle);
    browser.Person().WaitUntil("the user name has the focus", [&] { return logon.Child(IDC_USER_NAME).HasFocus(); });
    EXPECT_EQ(logon.Owner(), browser.Window());
    if (!user.empty()) browser.Person().Type(user);
    browser.Person().Key(VK_TAB);
    browser.Person().Type(password);
    browser.Person().Key(VK_RETURN);
    browser.Person().WaitUntil("the logon dialog closes", [&] { return !logon.Exists() || !logon.IsVisible(); });
    browser.Person().Settle();
  }

  static void OpenServer(Browser& browser) {
    browser.ChoosePlace("近くのコンピュータ");
    browser.OpenRow("SRV");
  }
};

TEST_F(BrowserNetworkTest, TheNetworkIsWalkedDownByDoubleClicks) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.ChoosePlace("マイネットワーク");
    const ListView list = browser.List();
    EXPECT_EQ(browser.Rows(), (Texts{"ネットワーク全体", "近くのコンピュータ"}));
    EXPECT_EQ(list.Image(0), 3);
    EXPECT_EQ(list.Image(1), 6);
    ASSERT_EQ(list.ColumnCount(), 2);
    EXPECT_EQ(list.ColumnAt(0).title, "名前");
    EXPECT_EQ(list.ColumnAt(1).title, "コメント");
    browser.OpenRow("ネットワーク全体");
    EXPECT_EQ(browser.Rows(), Texts{kProvider});
    EXPECT_EQ(list.Image(0), 4);
    browser.OpenRow(kProvider);
    EXPECT_EQ(browser.Rows(), Texts{"設計部"});
    EXPECT_EQ(list.Image(0), 5);
    browser.ExpectCell(0, 1, "部門", DT_LEFT);
    browser.OpenRow("設計部");
    EXPECT_EQ(browser.Rows(), Texts{"SRV"});
    EXPECT_EQ(list.Image(0), 7);
    browser.ExpectCell(0, 1, "図面サーバ", DT_LEFT);
    browser.OpenRow("SRV");
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
    EXPECT_EQ(list.Image(0), 8);
    browser.ExpectCell(0, 1, "資料", DT_LEFT);
    browser.OpenRow("docs");
    EXPECT_EQ(browser.Rows(), (Texts{"deep", "plan.mdl"}));
    EXPECT_EQ(list.ColumnCount(), 3);
    browser.ExpectCell(1, 1, "3 KB", DT_RIGHT);
    browser.Enter("deep");
    EXPECT_EQ(browser.Trail(), (Texts{kProvider, "設計部", "SRV", "docs", "deep"}));
    browser.Enter("*.mdl");
    EXPECT_EQ(browser.Trail(), (Texts{kProvider, "設計部", "SRV", "docs", "deep"}));
    browser.OpenRow("more.mdl");
  });
  EXPECT_EQ(outcome.answer, IDOK);
  EXPECT_EQ(outcome.result, "\\\\SRV\\docs\\deep\\more.mdl");
  EXPECT_EQ(World().network.openPasses, 0);
  EXPECT_TRUE(World().network.connections.empty());
}

TEST_F(BrowserNetworkTest, EnterAndBackspaceWalkTheNetworkToo) {
  Run([](Browser& browser) {
    OpenServer(browser);
    browser.Person().Type("docs");
    browser.Person().Key(VK_RETURN);
    EXPECT_EQ(browser.Rows(), (Texts{"deep", "plan.mdl"}));
    browser.Person().Key(VK_BACK);
    EXPECT_EQ(browser.Rows(), (Texts{"docs", "表"}));
    browser.Person().Key(VK_BACK);
    EXPECT_EQ(browser.Rows(), (Texts{"ネットワーク全体", "近くのコンピュータ"}));
    browser.Person().Key(VK_BACK);
    EXPECT_EQ(browser.Trail(), Texts{}) << "the desktop";
    for (int step = 0; step < 3; ++step) browser.Person().Key(VK_LEFT, {VK_MENU});
    EXPECT_EQ(browser.Rows(), (Texts{"deep", "plan.mdl"}));
  });
}

TEST_F(BrowserNetworkTest, AShareAsksUntilTheConnectionIsMade) {
  ProtectShare();
  World().network.connectResults = {kWrongPassword, kWrongPassword, 0};
  const Outcome outcome = Run([](Browser& browser) {
    OpenServer(browser);
    browser.OpenRow("docs");
    const driver::Window logon = browser.Person().WaitDialog(kLogonTitle);
    EXPECT_EQ(logon.Child(IDC_USER_PATH).Text(), "\\\\SRV\\docs");
    AnswerLogon(browser, "taro", "one");
    AnswerLogon(browser, "", "two");
    AnswerLogon(browser, "hanako", "三");
    EXPECT_EQ(browser.Rows(), Texts{"plan.mdl"});
    EXPECT_EQ(browser.Trail(), (Texts{"SRV", "docs"}));
    browser.OpenRow("plan.mdl");
  });
  EXPECT_EQ(outcome.result, "\\\\SRV\\docs\\plan.mdl");
  const auto& made = World().network.connections;
  ASSERT_EQ(made.size(), 3U);
  EXPECT_EQ(made[0].userName, "taro");
  EXPECT_EQ(made[0].password, "one");
  EXPECT_EQ(made[1].userName, "taro") << "the name is offered again";
  EXPECT_EQ(made[1].password, "two");
  EXPECT_EQ(made[2].userName, "hanako");
  EXPECT_EQ(made[2].password, "三");
  EXPECT_EQ(made[2].resource.remoteName, "\\\\SRV\\docs");
}

TEST_F(BrowserNetworkTest, PlacesAreShownInOrder) {
  Run([](Browser& browser) {
    EXPECT_EQ(browser.LocationBar().Items(),
              (Texts{"デスクトップ", "マイコンピュータ", "SYSTEM (C:)", "data", "REMOVABLE (D:)", "マイネットワーク",
                     "ネットワーク全体", "近くのコンピュータ"}));
    EXPECT_EQ(browser.LocationBar().Selection(), -1);
  });
}

TEST_F(BrowserNetworkTest, AClientThatWantsALogonIsAskedForBeforeAnythingIsShown) {
  NetNode client = Node(os::kNetDisplayServer, "\\\\tsclient", "");
  client.openError = os::kErrorAccessDenied;
  World().network.global.children.push_back(client);
  World().network.terminalProvider = kProvider;
  int answer = 0;
  driver::RunDialog(
      [&] {
        std::array<char, 257> buffer = {};
        filedialog::StartUp startUp = startUp_;
        startUp.fileBuffer = buffer.data();
        startUp.capacity = buffer.size();
        CvFileDialog browser(nullptr, startUp);
        answer = static_cast<int>(browser.DoModal());
      },
      [&](driver::User& user) {
        const driver::Window logon = user.WaitDialog(kLogonTitle);
        EXPECT_EQ(logon.Child(IDC_USER_PATH).Text(), "\\\\tsclient");
        user.Key(VK_ESCAPE);
        Browser browser(user);
        for (const std::string& place : browser.LocationBar().Items()) {
          EXPECT_EQ(place.find("クライアント"), std::string::npos);
        }
        browser.Cancel();
      });
  EXPECT_EQ(answer, IDCANCEL);
}

}  // namespace
}  // namespace browser_test
