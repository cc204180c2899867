// Every dialog as it looks on the screen of the run: its texts have room. Leaves pictures for a person to look at.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "dlglib/filedialog/dialogs/CvFileUser.h"
#include "dlglib/filedialog/dialogs/CvMdlConfirm.h"
#include "dlglib/filedialog/dialogs/CvMdlSort.h"
#include "dlglib/filedialog/dialogs/CvMdlTitle.h"
#include "dlglib/filedialog/dialogs/CvNewFolder.h"
#include "dlglib/resources/resource.h"
#include "dlglib/utility/toolbar/CvMetaChar.h"
#include "platform/suite/crvncontrol.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/scale/scale_tools.h"

namespace {

using browser_test::Browser;
using driver::Picture;
using driver::User;
using driver::Window;

void Save(const Picture& picture, const Window& dialog, const std::string& name) {
  const std::string dpi = std::to_string(scale_test::ScaleOf(dialog).Dpi());
  EXPECT_TRUE(picture.SavePng("look-" + dpi + "-" + name + ".png"));
}

/// Of labels and buttons, which show no more than they have room for.
void ExpectRoomForTexts(const Window& dialog) {
  for (const Window& child : dialog.Children()) {
    const std::string kind = child.ClassName();
    const bool shows = kind == "Static" || kind == "Button";
    const std::string text = child.Text();
    if (!shows || text.empty() || !child.IsVisible()) continue;
    const HDC dc = GetDC(child.Handle());
    const HGDIOBJ former = SelectObject(dc, reinterpret_cast<HGDIOBJ>(child.Send(WM_GETFONT)));
    RECT needed = {};
    DrawTextA(dc, text.c_str(), -1, &needed, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(dc, former);
    ReleaseDC(child.Handle(), dc);
    const RECT place = child.ScreenRect();
    EXPECT_LE(needed.right, scale_test::WidthOf(place)) << child.Id();
    EXPECT_LE(needed.bottom, scale_test::HeightOf(place) + 1) << child.Id();
  }
}

class LookTest : public browser_test::BrowserTest {
 protected:
  static void RunOpen(CDialog& dialog, const std::string& name,
                      const std::function<void(User&, Window)>& script = nullptr) {
    driver::RunDialog([&] { dialog.DoModal(); },
                      [&](User& user) {
                        const Window window = user.WaitDialog();
                        if (script) script(user, window);
                        ExpectRoomForTexts(window);
                        Save(user.Look(window), window, name);
                        PostMessageW(window.Handle(), WM_COMMAND, IDCANCEL, 0);
                        user.WaitGone(window);
                      });
  }
  filedialog::SlowSortRule rule_;
};

TEST_F(LookTest, OfTheSmallDialogs) {
  CvFileUser logon(nullptr, "\\\\SERVER\\図面");
  RunOpen(logon, "logon");
  CvNewFolder folder(nullptr, "C:\\data");
  RunOpen(folder, "new_folder");
  CvMdlSort conditions(nullptr, rule_);
  RunOpen(conditions, "sort_conditions", [](User& user, Window window) {
    user.Replace(window.Child(IDC_SORT_LIMIT), "5");
    user.Click(window.Child(IDOK));
    user.Settle();
  });
  CvMdlConfirm question(nullptr, rule_);
  RunOpen(question, "sort_question");
  CvMdlTitle titles(nullptr, rule_);
  RunOpen(titles, "title_items");
  CvMetaChar picker;
  RunOpen(picker, "picker");
}

TEST_F(LookTest, OfTheBrowserInItsViews) {
  Run([](Browser& browser) {
    const Window dialog = browser.Window();
    const auto save = [&](const std::string& name) { Save(browser.Person().Look(dialog), dialog, name); };
    ExpectRoomForTexts(dialog);
    save("details");
    browser.Person().Hover(dialog.Child(IDC_NAME_LABEL));
    browser.Person().Settle();
    save("label");
    browser.Person().WaitUntil("the balloon appears",
                               [] { return driver::VisibleWindows(GetCurrentProcessId()).size() > 1; });
    save("balloon");
    for (const auto& [view, name] : {std::pair{"大きいアイコン", "large_icons"},
                                     std::pair{"小さいアイコン", "small_icons"}, std::pair{"一覧表示", "list"}}) {
      browser.ChooseView(view);
      browser.Person().MoveTo({0, 0});
      browser.Person().Settle();
      save(name);
    }
  });
}

}  // namespace
