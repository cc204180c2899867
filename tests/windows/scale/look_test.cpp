// Every dialog as it looks on the screen of the run: its texts have room. Leaves pictures for a person to look at.
#include <gtest/gtest.h>

#include <array>
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
#include "platform/os/os_scripted_display.h"
#include "platform/suite/crvncontrol.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/grid/grid_table.h"
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

/// The colours of the system's black scheme, while this lives.
class BlackScheme {
 public:
  BlackScheme() {
    for (std::size_t i = 0; i < kElements.size(); ++i) former_[i] = GetSysColor(kElements[i]);
    Set(kColours);
  }
  BlackScheme(const BlackScheme&) = delete;
  BlackScheme& operator=(const BlackScheme&) = delete;
  ~BlackScheme() { Set(former_); }

 private:
  static constexpr std::array kElements = {
      COLOR_WINDOW,  COLOR_WINDOWTEXT, COLOR_HIGHLIGHT,     COLOR_HIGHLIGHTTEXT,         COLOR_BTNFACE,
      COLOR_BTNTEXT, COLOR_GRAYTEXT,   COLOR_ACTIVECAPTION, COLOR_GRADIENTACTIVECAPTION, COLOR_CAPTIONTEXT,
      COLOR_3DLIGHT, COLOR_3DSHADOW,   COLOR_3DDKSHADOW,    COLOR_BTNHIGHLIGHT,          COLOR_SCROLLBAR};
  using Colours = std::array<COLORREF, kElements.size()>;
  static constexpr Colours kColours = {0x000000, 0xFFFFFF, 0xFFEB1A, 0x000000, 0x000000, 0xFFFFFF, 0x3FF23F, 0x800080,
                                       0x800080, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0x000000};
  /// The common controls remember colours for each other, and learn of others by a message to any of them.
  static void Set(const Colours& colours) {
    SetSysColors(static_cast<int>(kElements.size()), kElements.data(), colours.data());
    const HWND list = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    SendMessageW(list, WM_SYSCOLORCHANGE, 0, 0);
    DestroyWindow(list);
  }
  Colours former_ = {};
};

TEST_F(LookTest, OfAGridWithHighContrast) {
  const os::DisplayScope display;
  os::DisplayOfTest().highContrast = true;
  const BlackScheme scheme;
  const auto host = grid_test::Host::Make(grid_test::HostKind::Framework);
  host->Open([](grid_test::Host& opened) { grid_test::FillTable(opened); });
  CvListControl& list = *host->list;
  list.SetErrorFlag(1, grid_test::kName, 1);
  for (int col = 0; col < 4; ++col) list.SetAvailableFlag(3, col, 1);
  list.SetItemColor(4, grid_test::kName, 0x800000, 0xC0FFFF);
  list.ClickItem(2, grid_test::kMaterial);
  list.DrawItem();
  grid_test::Host::Pump();
  GdiFlush();
  const RECT cell = host->ListView().CellRect(2, grid_test::kMaterial);
  const Picture button = driver::Capture({cell.right - 14, cell.top, cell.right - 4, cell.bottom});
  EXPECT_GT(button.Count({0, 0, button.Width(), button.Height()}, 0xFFFFFF), 20) << "frame and arrow on a black face";
  Save(driver::Capture(Window(host->Handle()).ScreenRect()), Window(host->Handle()), "contrast_grid");
}

}  // namespace
