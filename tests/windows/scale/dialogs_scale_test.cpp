// The small dialogs on screens of any scale: each follows a change while it is open, and comes back as it was.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "dlglib/base/CvScaledImages.h"
#include "dlglib/base/scaled_images.h"
#include "dlglib/filedialog/dialogs/CvFileUser.h"
#include "dlglib/filedialog/dialogs/CvMdlConfirm.h"
#include "dlglib/filedialog/dialogs/CvMdlSort.h"
#include "dlglib/filedialog/dialogs/CvMdlTitle.h"
#include "dlglib/filedialog/dialogs/CvNewFolder.h"
#include "dlglib/resources/resource.h"
#include "dlglib/utility/toolbar/CvMetaChar.h"
#include "platform/os/os_scripted_display.h"
#include "platform/suite/crvncontrol.h"
#include "tests/windows/scale/scale_tools.h"

namespace {

using driver::ListView;
using driver::User;
using driver::Window;
using scale::Scale;
using scale_test::ChangeDpi;
using scale_test::FontHeight;
using scale_test::Layout;
using scale_test::ScaleOf;

class DialogsScaleTest : public testing::Test {
 protected:
  DialogsScaleTest() { CwSession::Reset(); }

  static void RunOpen(CDialog& dialog, const std::function<void(User&, Window)>& script) {
    driver::RunDialog([&] { dialog.DoModal(); },
                      [&](User& user) {
                        const Window window = user.WaitDialog();
                        script(user, window);
                        PostMessageW(window.Handle(), WM_COMMAND, IDCANCEL, 0);
                        user.WaitGone(window);
                      });
  }
  static void ExpectFollowsAndComesBack(CDialog& dialog) {
    RunOpen(dialog, [](User& user, Window window) {
      const Scale first = ScaleOf(window);
      const std::string before = Layout(window);
      const int font = FontHeight(window);
      EXPECT_EQ(font, first.ToScreen(-12));
      const Scale larger(2 * first.Dpi());
      ChangeDpi(window, larger.Dpi());
      user.Settle();
      EXPECT_EQ(FontHeight(window), 2 * font);
      for (const Window& child : window.Children()) {
        if (child.Id() == IDC_FOLDER_ICON) continue;  // an icon has no font
        EXPECT_EQ(FontHeight(child), 2 * font) << child.Id();
      }
      for (const int id : {IDOK, IDCANCEL}) {
        const RECT button = window.Child(id).ScreenRect();
        const RECT client = window.ClientScreenRect();
        if (!window.Child(id).IsVisible()) continue;
        EXPECT_LE(button.right, client.right);
        EXPECT_LE(button.bottom, client.bottom);
      }
      ChangeDpi(window, first.Dpi());
      user.Settle();
      EXPECT_EQ(Layout(window), before);
    });
  }

  /// And at the scale of its monitor from the beginning, where the system has laid it out for another one.
  static void ExpectAlwaysTheSame(CDialog& dialog) {
    RunOpen(dialog, [](User&, Window window) {
      const int first = ScaleOf(window).Dpi();
      const RECT place = window.ScreenRect();
      const std::string before = Layout(window);
      for (const int dpi : {144, 120, 168, 96, 250, 110}) ChangeDpi(window, dpi);
      ChangeDpi(window, first, place);
      EXPECT_EQ(Layout(window), before);
    });
    for (const int dpi : {96, 120, 192}) {
      os::DisplayOfTest().dpi = dpi;
      RunOpen(dialog, [dpi](User&, Window window) {
        EXPECT_EQ(FontHeight(window), Scale(dpi).ToScreen(-12)) << dpi;
        for (const Window& child : window.Children()) {
          if (child.Id() == IDC_FOLDER_ICON || !child.IsVisible()) continue;
          EXPECT_EQ(FontHeight(child), Scale(dpi).ToScreen(-12)) << child.Id();
          EXPECT_LE(child.ScreenRect().right, window.ClientScreenRect().right) << child.Id();
          EXPECT_LE(child.ScreenRect().bottom, window.ClientScreenRect().bottom) << child.Id();
        }
      });
    }
    os::DisplayOfTest().dpi = {};
  }

  os::DisplayScope display_;
  filedialog::SlowSortRule rule_;
};

TEST_F(DialogsScaleTest, TheLogonFollows) {
  CvFileUser dialog(nullptr, "\\\\server\\share");
  ExpectFollowsAndComesBack(dialog);
  ExpectAlwaysTheSame(dialog);
}

TEST_F(DialogsScaleTest, TheNewFolderFollowsWithItsIcon) {
  CvNewFolder dialog(nullptr, "C:\\data");
  ExpectFollowsAndComesBack(dialog);
  ExpectAlwaysTheSame(dialog);
  RunOpen(dialog, [](User& user, Window window) {
    ChangeDpi(window, 192);
    const RECT icon = window.Child(IDC_FOLDER_ICON).ScreenRect();
    EXPECT_EQ(icon.right - icon.left, 64);
    EXPECT_EQ(icon.bottom - icon.top, 64);
    user.Settle();
    const driver::Picture shown = user.Look(window.Child(IDC_FOLDER_ICON));
    const driver::Picture drawn = scale_test::IconPicture(IDI_FOLDER, 64);
    int same = 0;
    for (int y = 0; y < 64; ++y) {
      for (int x = 0; x < 64; ++x) same += shown.At(x, y) == drawn.At(x, y) ? 1 : 0;
    }
    EXPECT_GT(same, 64 * 64 / 2) << "all but the ground around it";
  });
}

TEST_F(DialogsScaleTest, TheSortConditionsFollow) {
  CvMdlSort dialog(nullptr, rule_);
  ExpectFollowsAndComesBack(dialog);
  ExpectAlwaysTheSame(dialog);
}

TEST_F(DialogsScaleTest, TheSortQuestionFollows) {
  CvMdlConfirm dialog(nullptr, rule_);
  ExpectFollowsAndComesBack(dialog);
  ExpectAlwaysTheSame(dialog);
}

TEST_F(DialogsScaleTest, ThePickerFollowsWithItsColumn) {
  CvMetaChar dialog;
  ExpectFollowsAndComesBack(dialog);
  ExpectAlwaysTheSame(dialog);
  RunOpen(dialog, [](User&, Window window) {
    ChangeDpi(window, 192);
    const ListView list(window.Child(IDC_META_LIST));
    RECT client = {};
    GetClientRect(list.Handle(), &client);
    EXPECT_EQ(list.ColumnAt(0).width, client.right);
    EXPECT_EQ(list.Style() & WS_HSCROLL, 0U);
  });
}

TEST_F(DialogsScaleTest, TheTitleItemsFollowWithTheirGrid) {
  CvMdlTitle dialog(nullptr, rule_);
  ExpectFollowsAndComesBack(dialog);
  ExpectAlwaysTheSame(dialog);
  RunOpen(dialog, [](User&, Window window) {
    const ListView list(window.Child(IDC_TITLE_LIST));
    const int first = list.ColumnAt(0).width;
    const Scale before = ScaleOf(window);
    ChangeDpi(window, 192);
    EXPECT_NEAR(list.ColumnAt(0).width, scale::Rescaled(first, before, Scale(192)), 1);
  });
}

TEST_F(DialogsScaleTest, TheTitleItemsNeedNoHorizontalScrollBar) {
  CvMdlTitle dialog(nullptr, rule_);
  RunOpen(dialog, [](User&, Window window) {
    const ListView list(window.Child(IDC_TITLE_LIST));
    EXPECT_EQ(list.Style() & WS_HSCROLL, 0U);
    EXPECT_EQ(list.Style() & WS_VSCROLL, 0U) << "four rows have room";
  });
}

}  // namespace
