// The browser on screens of any scale. Each test holds at 96 dpi too; the runs at other scales are those that tell.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dlglib/base/scaled_images.h"
#include "dlglib/resources/resource.h"
#include "platform/os/os_scripted_display.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/scale/scale_tools.h"

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
