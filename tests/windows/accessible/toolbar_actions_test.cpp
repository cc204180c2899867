// What a tool asks of the toolbar's buttons does what a click does.
#include <gtest/gtest.h>

#include "tests/windows/accessible/tool.h"
#include "tests/windows/driver/events.h"
#include "tests/windows/toolbox/toolbar_host.h"

namespace toolbar_test {
namespace {

using driver::User;
using driver::Window;
using spoken::Named;
using spoken::Tool;

class ToolBarActions : public testing::TestWithParam<HostKind> {
 protected:
  static constexpr int kAllButtons = 7;
  static constexpr int kWithoutRegisters = 3;

  void Run(int buttons, const std::function<void(User&, Host&)>& script) {
    MakeHost(GetParam())
        ->Run([buttons](CvUtility& utility) { utility.SetToolBar(buttons); },
              [&](User& user, Host& host) {
                script(user, host);
                host.Close();
              });
  }
};

INSTANTIATE_TEST_SUITE_P(Hosts, ToolBarActions, testing::Values(HostKind::Framework, HostKind::Plain),
                         [](const auto& host) { return host.param == HostKind::Framework ? "Framework" : "Plain"; });

TEST_P(ToolBarActions, AButtonIsPressedForTheBoxThatHasTheFocus) {
  Run(kAllButtons, [](User& user, Host& host) {
    host.Focus(user, kFirstEdit, 0, 0);
    EXPECT_EQ(Tool(user).Act(host.ToolBar(), Named("メタ文字")), S_OK);
    const Window picker = user.WaitDialog("メタ文字");
    user.Key(VK_ESCAPE);
    user.WaitGone(picker);
    EXPECT_TRUE(host.Edit().HasFocus());
  });
}

TEST_P(ToolBarActions, TheButtonsAreWhereTheyAreDrawn) {
  Run(kAllButtons, [](User& user, Host& host) {
    for (int button = 0; button < 3; ++button) {
      const RECT drawn = host.ButtonRect(button);
      const auto told = Tool(user).Ask(host.ToolBar(), spoken::Part(button + 1),
                                       [](const driver::Accessible& part) { return part.Place(); });
      ASSERT_TRUE(told);
      EXPECT_NE(::EqualRect(&*told, &drawn), FALSE) << button;
    }
  });
}

TEST_P(ToolBarActions, AGreyButtonDoesNothing) {
  Run(kWithoutRegisters, [](User& user, Host& host) {
    host.Focus(user, kFirstEdit, 0, 0);
    EXPECT_EQ(Tool(user).Act(host.ToolBar(), Named("レジスタ")), S_FALSE);
    EXPECT_EQ(Tool(user).Select(host.ToolBar(), Named("レジスタ"), SELFLAG_TAKEFOCUS), S_FALSE);
    user.Settle();
    EXPECT_TRUE(host.Edit().HasFocus());
  });
}

TEST_P(ToolBarActions, TheFocusComesToAButtonAsByKeys) {
  Run(kAllButtons, [](User& user, Host& host) {
    host.Focus(user, kFirstEdit, 0, 0);
    EXPECT_EQ(Tool(user).Select(host.ToolBar(), Named("メタ文字"), SELFLAG_TAKEFOCUS), S_OK);
    EXPECT_TRUE(host.ToolBar().HasFocus());
    user.Key(VK_RETURN);
    const Window picker = user.WaitDialog("メタ文字");
    user.Key(VK_ESCAPE);
    user.WaitGone(picker);
    EXPECT_EQ(Tool(user).Select(host.ToolBar(), spoken::Whole, SELFLAG_TAKEFOCUS), S_OK);
    EXPECT_TRUE(host.ToolBar().HasFocus());
  });
}

TEST_P(ToolBarActions, AButtonThatKeysComeToIsToldOnce) {
  Run(kAllButtons, [](User& user, Host& host) {
    host.Focus(user, kFirstEdit, 0, 0);
    EXPECT_EQ(Tool(user).Select(host.ToolBar(), Named("テキストライブラリ"), SELFLAG_TAKEFOCUS), S_OK);
    driver::Events events(host.ToolBar());
    user.Key(VK_RIGHT);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_FOCUS, 2), 1);
    user.Key(VK_END);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_FOCUS, 3), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_FOCUS), 2);
  });
}

}  // namespace
}  // namespace toolbar_test
