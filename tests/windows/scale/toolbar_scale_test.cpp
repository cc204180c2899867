// The toolbar on screens of any scale.
#include <gtest/gtest.h>

#include "dlglib/resources/resource.h"
#include "platform/framework/detail/scale_messages.h"
#include "platform/os/os_scripted_display.h"
#include "tests/windows/scale/scale_tools.h"
#include "tests/windows/toolbox/toolbar_host.h"

namespace {

using driver::Picture;
using driver::User;
using scale::Scale;
using toolbar_test::Host;
using toolbar_test::HostKind;

constexpr int kAllButtons = 7;

/// Whether the image of a button is somewhere on it, pixel by pixel but for the ground.
bool Shows(const Picture& button, const Picture& strip, int index) {
  const int side = strip.Width() / 3;
  for (int top = 0; top + strip.Height() <= button.Height(); ++top) {
    for (int left = 0; left + side <= button.Width(); ++left) {
      bool same = true;
      for (int y = 0; y < strip.Height() && same; ++y) {
        for (int x = 0; x < side && same; ++x) same = button.At(left + x, top + y) == strip.At(index * side + x, y);
      }
      if (same) return true;
    }
  }
  return false;
}

class ToolBarScaleTest : public testing::TestWithParam<HostKind> {
 protected:
  static void ExpectButtons(User& user, const Host& host, Scale scale) {
    const Picture strip = scale_test::BitmapPicture(IDB_TOOLBAR, scale);
    for (int i = 0; i < 3; ++i) {
      const RECT button = host.ButtonRect(i);
      EXPECT_GE(button.right - button.left, scale.ToScreen(22)) << i;
      EXPECT_GE(button.bottom - button.top, scale.ToScreen(21)) << i;
      ExpectShown(user, button, strip, i);
    }
  }
  /// The system paints a toolbar when it comes to that.
  static void ExpectShown(const User& user, const RECT& button, const Picture& strip, int index) {
    user.WaitUntil("a button shows image " + std::to_string(index),
                   [&] { return Shows(user.Look(button), strip, index); });
  }

  os::DisplayScope display_;
  std::unique_ptr<Host> host_ = toolbar_test::MakeHost(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Hosts, ToolBarScaleTest, testing::Values(HostKind::Framework, HostKind::Plain));

TEST_P(ToolBarScaleTest, ButtonsShowTheImagesThatAreDrawnForTheScale) {
  for (const int dpi : {96, 144, 192}) {
    os::DisplayOfTest().dpi = dpi;
    SCOPED_TRACE(dpi);
    const auto host = toolbar_test::MakeHost(GetParam());
    host->Run([](CvUtility& utility) { utility.SetToolBar(kAllButtons); },
              [&](User& user, Host& shown) {
                ExpectButtons(user, shown, Scale(dpi));
                shown.Close();
              });
  }
}

TEST_P(ToolBarScaleTest, AButtonThatCannotBeUsedIsGreyAndKeepsItsShape) {
  os::DisplayOfTest().dpi = 192;
  host_->Run([](CvUtility& utility) { utility.SetToolBar(5); },
             [](User& user, Host& host) {
               const Picture button = user.Look(host.ButtonRect(1));
               constexpr int kSide = 24;
               const int left = (button.Width() - kSide) / 2;
               const int top = (button.Height() - kSide) / 2;
               const int ground = button.Count({left, top, left + kSide, top + kSide}, GetSysColor(COLOR_3DFACE));
               EXPECT_GT(ground, kSide * kSide / 5) << "the sign does not fill its image";
               EXPECT_LT(ground, kSide * kSide - 50);
               EXPECT_FALSE(Shows(button, scale_test::BitmapPicture(IDB_TOOLBAR, Scale(192)), 1));
               host.Close();
             });
}

TEST_P(ToolBarScaleTest, WithHighContrastImagesHaveAnOutline) {
  for (const UINT message : {UINT{WM_SYSCOLORCHANGE}, UINT{WM_THEMECHANGED}, UINT{WM_SETTINGCHANGE}}) {
    SCOPED_TRACE(message);
    os::DisplayOfTest().dpi = 96;
    os::DisplayOfTest().highContrast = false;
    const auto host = toolbar_test::MakeHost(GetParam());
    host->Run([](CvUtility& utility) { utility.SetToolBar(kAllButtons); },
              [message](User& user, Host& shown) {
                const Picture plain = scale_test::BitmapPicture(IDB_TOOLBAR, Scale());
                ExpectShown(user, shown.ButtonRect(0), plain, 0);
                os::DisplayOfTest().highContrast = true;
                shown.ToolBar().Send(message);
                const Picture outlined = scale_test::BitmapPicture(IDB_TOOLBAR, Scale());
                EXPECT_NE(outlined, plain);
                ExpectShown(user, shown.ButtonRect(0), outlined, 0);
                shown.Close();
              });
  }
}

TEST_P(ToolBarScaleTest, ItFollowsItsParent) {
  for (const UINT message : {framework::kDpiChangedAfterParent, UINT{WM_SIZE}, UINT{WM_PAINT}}) {
    SCOPED_TRACE(message);
    os::DisplayOfTest().dpi = 96;
    const auto host = toolbar_test::MakeHost(GetParam());
    host->Run([](CvUtility& utility) { utility.SetToolBar(kAllButtons); },
              [message](User& user, Host& shown) {
                os::DisplayOfTest().dpi = 192;
                shown.ToolBar().Send(message);
                ExpectButtons(user, shown, Scale(192));
                shown.Close();
              });
  }
}

}  // namespace
