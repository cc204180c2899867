// The browser on screens of any scale. Each test holds at 96 dpi too; the runs at other scales are those that tell.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "dlglib/base/scaled_images.h"
#include "dlglib/resources/resource.h"
#include "platform/os/os_scripted_display.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/scale/scale_tools.h"
#include "tests/windows/support/import_table.h"

namespace {

using browser_test::Browser;
using driver::ListView;
using driver::Picture;
using driver::Window;
using scale::Scale;
using scale_test::ChangeDpi;
using scale_test::HeightOf;
using scale_test::ScaleOf;
using scale_test::WidthOf;

class BrowserScaleTest : public browser_test::BrowserTest {
 protected:
  /// What the screen shows of the icon of a row of the details.
  static Picture RowIcon(const Browser& browser, const std::string& name, int side) {
    const ListView list = browser.List();
    const RECT row = list.ItemRect(list.FindRow(name), LVIR_BOUNDS);
    const int top = (row.top + row.bottom - side) / 2;
    return browser.Person().Look(RECT{row.left, top, row.left + side, top + side});
  }
  static int SmallSide(const Browser& browser) {
    return scaled_images::IconSide(ScaleOf(browser.Window()).ToScreen(16));
  }
  /// A dialog may be larger than the screen of the test.
  static void CloseByKey(const Browser& browser) {
    browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitGone(browser.Window());
  }
  static std::vector<int> ColumnWidths(const Browser& browser) {
    std::vector<int> widths;
    const ListView list = browser.List();
    for (int column = 0; column < list.ColumnCount(); ++column) widths.push_back(list.ColumnAt(column).width);
    return widths;
  }
  static SIZE ListImageSize(const Browser& browser, int which) {
    int width = 0;
    int height = 0;
    const auto images = reinterpret_cast<HIMAGELIST>(browser.List().Send(LVM_GETIMAGELIST, static_cast<WPARAM>(which)));
    ImageList_GetIconSize(images, &width, &height);
    return {width, height};
  }

  os::DisplayScope display_;
};

TEST_F(BrowserScaleTest, TheDialogTakesTheScaleOfItsScreen) {
  Run([](Browser& browser) {
    const Window dialog = browser.Window();
    LOGFONTA font = {};
    GetObjectA(reinterpret_cast<HFONT>(dialog.Child(IDC_FILE_LIST).Send(WM_GETFONT)), sizeof font, &font);
    EXPECT_EQ(font.lfHeight, ScaleOf(dialog).ToScreen(-12));
    EXPECT_GE(dialog.Child(IDC_LOCATION).Send(CB_GETITEMHEIGHT), SmallSide(browser)) << "a row has room for an icon";
    EXPECT_GE(HeightOf(browser.List().ItemRect(0, LVIR_BOUNDS)), SmallSide(browser));
  });
}

TEST_F(BrowserScaleTest, RowsShowTheIconsThatAreDrawnForTheScale) {
  Run([](Browser& browser) {
    const int side = SmallSide(browser);
    EXPECT_EQ(ListImageSize(browser, LVSIL_SMALL).cx, side);
    EXPECT_EQ(ListImageSize(browser, LVSIL_NORMAL).cx, scaled_images::IconSide(ScaleOf(browser.Window()).ToScreen(32)));
    const Picture shown = RowIcon(browser, "Sub", side);
    EXPECT_EQ(shown, scale_test::IconPicture(IDI_FOLDER, side));
    if (side > 16) {
      EXPECT_NE(shown, scale_test::EnlargedIconPicture(IDI_FOLDER, side)) << "it has the detail of its size";
    }
  });
}

TEST_F(BrowserScaleTest, TheLocationBarShowsTheIconsThatAreDrawnForTheScale) {
  Run([](Browser& browser) {
    const int side = SmallSide(browser);
    const Picture bar = browser.Person().Look(browser.LocationBar());
    const Picture icon = scale_test::IconPicture(IDI_FOLDER, side);
    bool found = false;
    for (int y = 0; y + side <= bar.Height() && !found; ++y) {
      for (int x = 0; x < 3 * side && !found; ++x) {
        bool same = true;
        for (int dy = 0; dy < side && same; ++dy) {
          for (int dx = 0; dx < side && same; ++dx) same = bar.At(x + dx, y + dy) == icon.At(dx, dy);
        }
        found = same;
      }
    }
    EXPECT_TRUE(found);
  });
}

TEST_F(BrowserScaleTest, TheButtonsHaveImagesOfTheScaleAndGapsBetweenThem) {
  Run([](Browser& browser) {
    const Scale scale = ScaleOf(browser.Window());
    const auto rectOf = [&browser](int id) { return browser.Window().Child(id).ScreenRect(); };
    const Picture view = scale_test::BitmapPicture(IDB_VIEW, scale);
    EXPECT_EQ(WidthOf(rectOf(IDC_VIEW)), view.Width());
    EXPECT_EQ(browser.Person().Look(rectOf(IDC_VIEW)), view);
    EXPECT_EQ(browser.Person().Look(rectOf(IDC_BACK)), scale_test::BitmapPicture(IDB_BACK_DISABLED, scale));
    EXPECT_EQ(rectOf(IDC_CREATE_FOLDER).right, rectOf(IDC_VIEW).left - scale.ToScreen(2));
    EXPECT_EQ(rectOf(IDC_UP).right, rectOf(IDC_CREATE_FOLDER).left - scale.ToScreen(2));
    EXPECT_GT(rectOf(IDC_BACK).left, browser.LocationBar().ScreenRect().right);
  });
}

TEST_F(BrowserScaleTest, AnAreaAnswersThePointerUpToItsEdge) {
  Run([](Browser& browser) {
    const RECT view = browser.Window().Child(IDC_VIEW).ScreenRect();
    browser.Person().MoveTo({view.right - 1, view.bottom - 1});
    EXPECT_EQ(browser.Person().Look(view), scale_test::BitmapPicture(IDB_VIEW_FOCUSED, ScaleOf(browser.Window())));
  });
}

TEST_F(BrowserScaleTest, ASavedSizeIsOneAt96Dpi) {
  SaveNumber("PosX", 40);
  SaveNumber("PosY", 50);
  SaveNumber("SizeX", 620);
  SaveNumber("SizeY", 405);
  RECT place = {};
  Scale scale;
  Run([&](Browser& browser) {
    place = browser.Window().ScreenRect();
    scale = ScaleOf(browser.Window());
  });
  EXPECT_EQ(place.left, 40) << "a place of the screen";
  EXPECT_EQ(place.top, 50);
  EXPECT_EQ(WidthOf(place), scale.ToScreen(620));
  EXPECT_EQ(HeightOf(place), scale.ToScreen(405));
  EXPECT_EQ(SavedNumber("PosX"), 40);
  EXPECT_EQ(SavedNumber("SizeX"), 620);
  EXPECT_EQ(SavedNumber("SizeY"), 405);
}

TEST_F(BrowserScaleTest, SavedColumnsAreWideAt96Dpi) {
  for (const auto& [name, width] : {std::pair{"RWidth0", 201}, {"RWidth1", 77}, {"RWidth2", 103}}) {
    SaveNumber(name, static_cast<std::uint32_t>(width));
  }
  Run([](Browser& browser) {
    const Scale scale = ScaleOf(browser.Window());
    EXPECT_EQ(ColumnWidths(browser), (std::vector{scale.ToScreen(201), scale.ToScreen(77), scale.ToScreen(103)}));
  });
  EXPECT_EQ(SavedNumber("RWidth0"), 201);
  EXPECT_EQ(SavedNumber("RWidth1"), 77);
  EXPECT_EQ(SavedNumber("RWidth2"), 103);
}

TEST_F(BrowserScaleTest, ColumnsNeedNoHorizontalScrollBar) {
  Run([](Browser& browser) { EXPECT_EQ(browser.List().Style() & WS_HSCROLL, 0U); });
}

TEST_F(BrowserScaleTest, AnOpenDialogFollowsAChangeOfScaleAndComesBack) {
  SaveNumber("PosX", 30);
  SaveNumber("PosY", 40);
  Run([](Browser& browser) {
    const Window dialog = browser.Window();
    const Scale first = ScaleOf(dialog);
    for (const int dpi : {96, 144, 192}) {
      const std::string before = scale_test::Layout(dialog);
      const std::vector<int> columns = ColumnWidths(browser);
      ChangeDpi(dialog, dpi);
      SCOPED_TRACE(dpi);
      const Scale scale(dpi);
      const int side = SmallSide(browser);
      EXPECT_EQ(side, scale.ToScreen(16));
      EXPECT_EQ(RowIcon(browser, "Sub", side), scale_test::IconPicture(IDI_FOLDER, side));
      EXPECT_EQ(ListImageSize(browser, LVSIL_NORMAL).cx, scale.ToScreen(32));
      const RECT view = dialog.Child(IDC_VIEW).ScreenRect();
      EXPECT_EQ(browser.Person().Look(view), scale_test::BitmapPicture(IDB_VIEW, scale));
      EXPECT_EQ(scale_test::FontHeight(browser.List()), scale.ToScreen(-12));
      EXPECT_NEAR(ColumnWidths(browser).at(0), scale::Rescaled(columns.at(0), first, scale), 1);
      EXPECT_LT(dialog.Child(IDOK).ScreenRect().right, dialog.ClientScreenRect().right);
      EXPECT_LT(dialog.Child(IDCANCEL).ScreenRect().bottom, dialog.ClientScreenRect().bottom);
      if (dpi >= first.Dpi()) {
        EXPECT_EQ(browser.List().Style() & WS_HSCROLL, 0U);
      }
      ChangeDpi(dialog, first.Dpi());
      if (dpi < first.Dpi()) continue;  // a smaller screen rounds
      EXPECT_EQ(scale_test::Layout(dialog), before);
      EXPECT_EQ(ColumnWidths(browser), columns);
    }
  });
  EXPECT_EQ(SavedNumber("PosX"), 30);
}

TEST_F(BrowserScaleTest, ScalesOneAfterTheOtherAddUpToNoShift) {
  SaveNumber("PosX", 30);
  SaveNumber("PosY", 40);
  SaveNumber("RWidth0", 201);
  SaveNumber("RWidth1", 77);
  SaveNumber("RWidth2", 103);
  Run([](Browser& browser) {
    const Window dialog = browser.Window();
    const int first = ScaleOf(dialog).Dpi();
    const RECT place = dialog.ScreenRect();
    const std::string before = scale_test::Layout(dialog);
    const std::vector<int> columns = ColumnWidths(browser);
    for (const int dpi : {144, 120, 168, 96, 250, 110}) ChangeDpi(dialog, dpi);
    ChangeDpi(dialog, first, place);
    EXPECT_EQ(scale_test::Layout(dialog), before);
    EXPECT_EQ(ColumnWidths(browser), columns);
  });
}

/// As on the second monitor of a program that the system lays dialogs out for at the scale of the first.
TEST_F(BrowserScaleTest, ADialogOnAMonitorOfAScaleOfItsOwnBeginsWithIt) {
  for (const int dpi : {96, 120, 144, 192}) {
    SCOPED_TRACE(dpi);
    os::DisplayOfTest().dpi = {};
    for (const char* name : {"SizeX", "SizeY"}) SaveNumber(name, 1);  // as small as can be
    std::string changed;
    Run([&](Browser& browser) {
      ChangeDpi(browser.Window(), dpi, scale_test::WithinTheSameFrame(browser.Window(), dpi));
      changed = scale_test::Layout(browser.Window());
      CloseByKey(browser);
    });
    os::DisplayOfTest().dpi = dpi;
    for (const char* name : {"SizeX", "SizeY"}) SaveNumber(name, 1);
    Run([&](Browser& browser) {
      EXPECT_EQ(scale_test::Layout(browser.Window()), changed);
      EXPECT_EQ(scale_test::FontHeight(browser.List()), Scale(dpi).ToScreen(-12));
      EXPECT_EQ(browser.List().Style() & WS_HSCROLL, 0U);
      const RECT view = browser.Window().Child(IDC_VIEW).ScreenRect();
      if (view.right < GetSystemMetrics(SM_CXSCREEN)) {
        EXPECT_EQ(browser.Person().Look(view), scale_test::BitmapPicture(IDB_VIEW, Scale(dpi)));
      }
      CloseByKey(browser);
    });
  }
}

/// What the system does when a dialog that is placed comes to another monitor: it tells so at once.
class OnceMoved {
 public:
  OnceMoved(int x, int dpi) : hook_(SetWindowsHookExW(WH_CALLWNDPROCRET, &See, nullptr, GetCurrentThreadId())) {
    x_ = x;
    dpi_ = dpi;
  }
  OnceMoved(const OnceMoved&) = delete;
  OnceMoved& operator=(const OnceMoved&) = delete;
  ~OnceMoved() { UnhookWindowsHookEx(hook_); }

 private:
  static LRESULT CALLBACK See(int code, WPARAM wParam, LPARAM lParam) {
    const auto& seen = *reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    const Window window(seen.hwnd);
    if (seen.message == WM_WINDOWPOSCHANGED && dpi_ != 0 && window.ScreenRect().left == x_ &&
        window.Child(IDC_FILE_LIST)) {
      ChangeDpi(window, std::exchange(dpi_, 0));
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }
  static inline int x_ = 0;
  static inline int dpi_ = 0;
  HHOOK hook_;
};

TEST_F(BrowserScaleTest, ASavedSizeIsCutByTheMonitorItIsShownOnAtThatOnesScale) {
  os::DisplayOfTest().dpi = 96;
  os::DisplayOfTest().monitors = {{{0, 0, 640, 1024}, {640, 0, 1640, 700}}};
  SaveNumber("PosX", 700);
  SaveNumber("PosY", 100);
  SaveNumber("SizeX", 600);
  SaveNumber("SizeY", 400);
  const OnceMoved moved(700, 192);
  Run([](Browser& browser) {
    const RECT place = browser.Window().ScreenRect();
    EXPECT_EQ(ScaleOf(browser.Window()).Dpi(), 192);
    EXPECT_EQ(place.left, 700);
    EXPECT_EQ(place.top, 100);
    EXPECT_EQ(WidthOf(place), 1000);
    EXPECT_EQ(HeightOf(place), 700);
    CloseByKey(browser);
  });
}

TEST_F(BrowserScaleTest, WithoutAnyMonitorItOpensAsOnTheOnlyOne) {
  SaveNumber("PosX", 40);
  SaveNumber("PosY", 50);
  std::string usual;
  Run([&](Browser& browser) { usual = scale_test::Layout(browser.Window()); });
  os::DisplayOfTest().monitors = std::vector<os::Monitor>();
  Run([&](Browser& browser) {
    EXPECT_EQ(scale_test::Layout(browser.Window()), usual);
    EXPECT_EQ(browser.Window().ScreenRect().left, 40);
    browser.Window().Child(IDC_FILE_KIND).Send(CB_SHOWDROPDOWN, TRUE);
    EXPECT_TRUE(browser.Window().Child(IDC_FILE_KIND).IsDropped());
    browser.Window().Child(IDC_FILE_KIND).Send(CB_SHOWDROPDOWN, FALSE);
  });
}

TEST_F(BrowserScaleTest, ListsDropDownOnTheMonitorOfTheirBox) {
  SaveNumber("PosX", 100);
  SaveNumber("PosY", 300);
  for (const int id : {IDC_LOCATION, IDC_FILE_NAME, IDC_FILE_KIND}) {
    SCOPED_TRACE(id);
    os::DisplayOfTest().monitors = {};
    Run([id](Browser& browser) {
      const Window combo = browser.Window().Child(id);
      const RECT box = combo.ScreenRect();
      const auto drop = [&combo] {
        combo.Send(CB_SHOWDROPDOWN, TRUE);
        const RECT list = scale_test::ListRect(combo);
        combo.Send(CB_SHOWDROPDOWN, FALSE);
        return list;
      };
      const RECT usual = drop();
      scale_test::SetMonitorsBeside(box.right - 20);
      RECT list = drop();
      EXPECT_EQ(list.right, box.right - 20) << "it would reach the next one";
      EXPECT_EQ(WidthOf(list), WidthOf(usual));
      EXPECT_EQ(list.top, usual.top);
      scale_test::SetMonitorsBelow(box.bottom + 2);
      list = drop();
      EXPECT_LE(list.bottom, box.top) << "above the box";
      EXPECT_GT(list.bottom, box.top - 40) << "but for a row that is not shown in part";
      EXPECT_EQ(list.left, usual.left);
      os::DisplayOfTest().monitors = {};
      list = drop();
      EXPECT_TRUE(EqualRect(&list, &usual) != FALSE);
    });
  }
}

// ---- images that cannot be loaded

decltype(&LoadImageW) RealLoadImage() {
  return reinterpret_cast<decltype(&LoadImageW)>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "LoadImageW")));
}

/// None of those that are drawn for another scale than 96 dpi.
HANDLE WINAPI LoadFirstDrawing(HINSTANCE module, LPCWSTR name, UINT type, int cx, int cy, UINT flags) {
  constexpr ULONG_PTR kFurther = 11000;
  if (reinterpret_cast<ULONG_PTR>(name) >= kFurther) return nullptr;
  return RealLoadImage()(module, name, type, cx, cy, flags);
}

HANDLE WINAPI LoadNothing(HINSTANCE, LPCWSTR, UINT, int, int, UINT) { return nullptr; }

TEST_F(BrowserScaleTest, AnImageThatCannotBeLoadedIsThatFor96Dpi) {
  const import_table::Replaced replaced("LoadImageW", reinterpret_cast<void*>(&LoadFirstDrawing));
  ASSERT_TRUE(replaced.IsInPlace());
  os::DisplayOfTest().dpi = 150;  // of no other test, as images are kept
  Run([](Browser& browser) {
    const RECT view = browser.Window().Child(IDC_VIEW).ScreenRect();
    EXPECT_EQ(browser.Person().Look(view), scale_test::BitmapPicture(IDB_VIEW, Scale()));
    EXPECT_EQ(WidthOf(view), 32);
    EXPECT_EQ(ListImageSize(browser, LVSIL_SMALL).cx, 24) << "enlarged into its room";
    EXPECT_EQ(browser.List().Count(), 8);
  });
}

TEST_F(BrowserScaleTest, ImagesThatCannotBeHadAtAChangeStayAsTheyWere) {
  os::DisplayOfTest().dpi = 96;
  Run([](Browser& browser) {
    const Window dialog = browser.Window();
    const RECT view = dialog.Child(IDC_VIEW).ScreenRect();
    const Picture button = browser.Person().Look(view);
    {
      const import_table::Replaced replaced("LoadImageW", reinterpret_cast<void*>(&LoadNothing));
      ChangeDpi(dialog, 132);
    }
    const RECT now = dialog.Child(IDC_VIEW).ScreenRect();
    const RECT drawn = {now.left, now.top, now.left + button.Width(), now.top + button.Height()};
    EXPECT_EQ(browser.Person().Look(drawn), button);
    EXPECT_EQ(ListImageSize(browser, LVSIL_SMALL).cx, 16);
    EXPECT_EQ(scale_test::FontHeight(browser.List()), -17) << "all else follows";
    EXPECT_LE(dialog.Child(IDOK).ScreenRect().bottom, dialog.ClientScreenRect().bottom);
    ChangeDpi(dialog, 120);
    EXPECT_EQ(ListImageSize(browser, LVSIL_SMALL).cx, 20);
    CloseByKey(browser);
  });
}

TEST_F(BrowserScaleTest, TheNumberOfTheMessageCountsAndItsPlace) {
  Run([](Browser& browser) {
    const Window dialog = browser.Window();
    const RECT place = {11, 22, 11 + 1200, 22 + 800};
    ChangeDpi(dialog, 168, place);
    browser.Person().Settle();
    const RECT now = dialog.ScreenRect();
    EXPECT_TRUE(EqualRect(&now, &place) != FALSE);
    EXPECT_EQ(ListImageSize(browser, LVSIL_SMALL).cx, 28) << "whatever the system says of the window";
  });
}

TEST_F(BrowserScaleTest, WhatIsSavedAfterAChangeIsAt96Dpi) {
  SaveNumber("PosX", 30);
  SaveNumber("PosY", 40);
  Run([](Browser& browser) { ChangeDpi(browser.Window(), 192, {10, 20, 10 + 1200, 20 + 800}); });
  EXPECT_EQ(SavedNumber("PosX"), 10);
  EXPECT_EQ(SavedNumber("PosY"), 20);
  EXPECT_EQ(SavedNumber("SizeX"), 600);
  EXPECT_EQ(SavedNumber("SizeY"), 400);
}

// ---- high contrast

/// How many pixels of the texts' colour a picture has.
int CountInk(const Picture& picture) {
  return picture.Count({0, 0, picture.Width(), picture.Height()}, GetSysColor(COLOR_WINDOWTEXT));
}

TEST_F(BrowserScaleTest, WithHighContrastImagesHaveAnOutline) {
  os::DisplayOfTest().highContrast = true;
  Run([](Browser& browser) {
    const int side = SmallSide(browser);
    const Picture folder = RowIcon(browser, "Sub", side);
    EXPECT_EQ(folder, scale_test::IconPicture(IDI_FOLDER, side)) << "the image that has one";
    const RECT view = browser.Window().Child(IDC_VIEW).ScreenRect();
    const Picture button = browser.Person().Look(view);
    EXPECT_EQ(button, scale_test::BitmapPicture(IDB_VIEW, ScaleOf(browser.Window())));
    os::DisplayOfTest().highContrast = false;
    EXPECT_GT(CountInk(folder), CountInk(scale_test::IconPicture(IDI_FOLDER, side)) + side);
    EXPECT_GT(CountInk(button), CountInk(scale_test::BitmapPicture(IDB_VIEW, ScaleOf(browser.Window()))) + side);
    os::DisplayOfTest().highContrast = true;
  });
}

TEST_F(BrowserScaleTest, AnOpenDialogTakesOtherColours) {
  for (const UINT message : {UINT{WM_SYSCOLORCHANGE}, UINT{WM_THEMECHANGED}, UINT{WM_SETTINGCHANGE}}) {
    os::DisplayOfTest().highContrast = false;
    Run([message](Browser& browser) {
      SCOPED_TRACE(message);
      const int side = SmallSide(browser);
      const RECT view = browser.Window().Child(IDC_VIEW).ScreenRect();
      const Picture folder = RowIcon(browser, "Sub", side);
      const Picture button = browser.Person().Look(view);
      os::DisplayOfTest().highContrast = true;
      browser.Window().Send(message);
      EXPECT_NE(RowIcon(browser, "Sub", side), folder);
      EXPECT_EQ(RowIcon(browser, "Sub", side), scale_test::IconPicture(IDI_FOLDER, side));
      EXPECT_NE(browser.Person().Look(view), button);
      os::DisplayOfTest().highContrast = false;
      browser.Window().Send(message);
      EXPECT_EQ(RowIcon(browser, "Sub", side), folder);
      EXPECT_EQ(browser.Person().Look(view), button);
    });
  }
}

TEST_F(BrowserScaleTest, ScalesThatNoScreenHasGiveTheFormOf96Dpi) {
  for (const int dpi : {0, 1, 10000}) {
    os::DisplayOfTest().dpi = dpi;
    Run([&](Browser& browser) {
      SCOPED_TRACE(dpi);
      EXPECT_EQ(ListImageSize(browser, LVSIL_SMALL).cx, 16);
      ChangeDpi(browser.Window(), 144, {10, 20, 900, 700});
      EXPECT_EQ(ListImageSize(browser, LVSIL_SMALL).cx, 24);
      ChangeDpi(browser.Window(), dpi, {10, 20, 700, 500});
      EXPECT_EQ(ListImageSize(browser, LVSIL_SMALL).cx, 16);
      EXPECT_EQ(RowIcon(browser, "Sub", 16), scale_test::IconPicture(IDI_FOLDER, 16));
    });
  }
}

}  // namespace
