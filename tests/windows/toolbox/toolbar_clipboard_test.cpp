// The toolbar on a machine whose clipboard fails: nothing is ever inserted but what was chosen.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "dlglib/resources/resource.h"
#include "platform/framework/framework.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvndlg.h"
#include "tests/windows/toolbox/toolbar_host.h"

// The suite's dialogs choose at once.

int TlbDialog(void*, int, const std::string&, char* out, int) {
  out[0] = 'x';
  return 1;
}

int RegDspDialog(const char*, void*, int) { return 0; }

namespace {

using driver::User;
using driver::Window;
using toolbar_test::Host;
using toolbar_test::HostKind;
using toolbar_test::kFirstEdit;

class ToolBarClipboard : public testing::TestWithParam<HostKind> {
 protected:
  ToolBarClipboard() { os::scripted::World().Reset(); }
  ~ToolBarClipboard() override { os::scripted::World().Reset(); }

  static const std::vector<std::uint32_t>& Beeps() { return os::scripted::World().session.beeps; }

  /// The clipboard holds a text, as the control's own paste shows; then a button is clicked.
  void Run(int button, const std::function<void(User&)>& then) {
    toolbar_test::MakeHost(GetParam())
        ->Run(
            [](CvUtility& utility) {
              CDWordArray ids;
              ids.Add(kFirstEdit);
              utility.SetToolBar(7, &ids);
            },
            [&](User& user, Host& host) {
              host.Focus(user, kFirstEdit, 0, 0);
              user.Paste("old");
              ASSERT_EQ(host.Edit().Text(), "old");
              user.Click(host.ButtonMiddle(button));
              then(user);
              user.WaitUntil("there is a beep", [] { return !Beeps().empty(); });
              user.Settle();
              EXPECT_EQ(host.Edit().Text(), "old");
              EXPECT_TRUE(host.Edit().HasFocus());
            });
    EXPECT_EQ(Beeps(), (std::vector<std::uint32_t>{os::kBeepExclamation}));
  }
};

INSTANTIATE_TEST_SUITE_P(Hosts, ToolBarClipboard, testing::Values(HostKind::Framework, HostKind::Plain),
                         [](const auto& kind) { return kind.param == HostKind::Plain ? "Plain" : "Framework"; });

TEST_P(ToolBarClipboard, ThatTakesNoCopyIsNotPasted) {
  Run(0, [](User&) {});
  EXPECT_EQ(os::scripted::World().calls.Count("clipboard.CanOpen"), 25U);
}

TEST_P(ToolBarClipboard, ThatIsHeldOpenIsNotPasted) {
  os::scripted::World().clipboard.heldByOther = true;
  Run(0, [](User&) {});
  EXPECT_EQ(os::scripted::World().calls.Count("clipboard.Sequence"), 0U);
}

TEST_P(ToolBarClipboard, ThatTakesNoEscapeIsNotPasted) {
  Run(1, [](User& user) {
    const Window picker = user.WaitDialog("メタ文字");
    user.Settle();
    user.Click(driver::Center(driver::ListView(picker.Child(IDC_META_LIST)).ItemRect(2)));
    user.WaitGone(picker);
  });
}

}  // namespace
