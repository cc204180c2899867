// The browser's frame: its window and controls, the areas that answer the pointer, what it remembers between runs, its
// views, and how its rows and places are drawn.
#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/filedialog/window/CvBrowserIcons.h"
#include "dlglib/resources/resource.h"
#include "platform/os/sjis_wide.h"
#include "tests/windows/browser/browser_world.h"

namespace browser_test {
namespace {

using driver::Center;
using driver::ListView;
using driver::Picture;
using driver::User;
using driver::Window;
using filedialog::kFlagFileMustExist;
using filedialog::kFlagHideReadOnly;
using filedialog::kFlagMultiSelect;
using filedialog::kFlagPathMustExist;
using filedialog::kFlagPlainOk;
using os::RegistryType;

std::string Dword(std::uint32_t number) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(static_cast<unsigned char>(number >> (8 * i) & 0xFFU));
  return bytes;
}

int WidthOf(const RECT& rect) { return rect.right - rect.left; }
int HeightOf(const RECT& rect) { return rect.bottom - rect.top; }

bool operator==(const RECT& a, const RECT& b) { return EqualRect(&a, &b) != FALSE; }

/// A sheet to draw on what the screen should show.
class Sheet {
 public:
  Sheet(int width, int height) : width_(width), height_(height) {
    const HDC screen = GetDC(nullptr);
    dc_ = CreateCompatibleDC(screen);
    bitmap_ = CreateCompatibleBitmap(screen, width, height);
    ReleaseDC(nullptr, screen);
    oldBitmap_ = SelectObject(dc_, bitmap_);
    Fill({0, 0, width, height}, COLOR_WINDOW);
  }
  ~Sheet() {
    SelectObject(dc_, oldBitmap_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
  }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  void Fill(const RECT& rect, int colour) { FillRect(dc_, &rect, GetSysColorBrush(colour)); }
  void Icon(int x, int y, int image) {
    DrawIconEx(dc_, x, y, icons_.Of(static_cast<filedialog::EntryKind>(image)), 16, 16, 0, nullptr, DI_NORMAL);
  }
  /// Opaque text in the colours of a selected or plain entry.
  void Text(const std::string& text, RECT rect, HFONT font, bool selected, UINT format) {
    const HGDIOBJ oldFont = SelectObject(dc_, font);
    SetBkMode(dc_, OPAQUE);
    SetTextColor(dc_, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkColor(dc_, GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    DrawTextW(dc_, os::WideOf(text).c_str(), -1, &rect, format);
    SelectObject(dc_, oldFont);
  }
  [[nodiscard]] int TextWidth(const std::string& text, HFONT font) const {
    const HGDIOBJ oldFont = SelectObject(dc_, font);
    SIZE size = {};
    GetTextExtentPoint32A(dc_, text.data(), static_cast<int>(text.size()), &size);
    SelectObject(dc_, oldFont);
    return size.cx;
  }
  void Bitmap(HBITMAP image) {
    const HDC source = CreateCompatibleDC(dc_);
    const HGDIOBJ old = SelectObject(source, image);
    BitBlt(dc_, 0, 0, width_, height_, source, 0, 0, SRCCOPY);
    SelectObject(source, old);
    DeleteDC(source);
  }
  [[nodiscard]] Picture Look() const {
    Picture picture(width_, height_);
    for (int y = 0; y < height_; ++y) {
      for (int x = 0; x < width_; ++x) picture.Set(x, y, GetPixel(dc_, x, y));
    }
    return picture;
  }

 private:
  int width_;
  int height_;
  HDC dc_;
  HBITMAP bitmap_;
  HGDIOBJ oldBitmap_;
  filedialog::SmallIcons icons_;
};

HFONT FontOf(const Window& window) { return reinterpret_cast<HFONT>(window.Send(WM_GETFONT)); }

class BrowserFrameTest : public BrowserTest {
 protected:
  static void Save(const std::string& name, std::uint32_t number) {
    World().registry.SetValue(kLayoutKey, name, RegistryType::Dword, Dword(number));
  }
  /// A remembered number; -1 when it is not there.
  static std::int64_t Saved(const std::string& name) {
    const auto value = World().registry.Value(kLayoutKey, name);
    if (!value || value->type != RegistryType::Dword || value->bytes.size() != 4) return -1;
    std::uint32_t number = 0;
    for (std::size_t i = 4; i > 0; --i) number = number << 8 | static_cast<unsigned char>(value->bytes[i - 1]);
    return number;
  }
  static RECT AreaRect(const Browser& browser, int id) { return browser.Window().Child(id).ScreenRect(); }
  static POINT AreaPoint(const Browser& browser, int id) { return Center(AreaRect(browser, id)); }
  static POINT Beside(const Browser& browser) {
    const RECT list = browser.List().ScreenRect();
    return {list.left + 60, list.bottom + 4};
  }
  /// Whether an area shows the bitmap.
  static bool Shows(const Browser& browser, int id, int bitmap) {
    const RECT rect = AreaRect(browser, id);
    const auto image = static_cast<HBITMAP>(
        LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(bitmap), IMAGE_BITMAP, 0, 0, LR_LOADMAP3DCOLORS));
    Sheet sheet(WidthOf(rect), HeightOf(rect));
    sheet.Bitmap(image);
    DeleteObject(image);
    return browser.Person().Look(rect) == sheet.Look();
  }
  static std::vector<int> ColumnWidths(const Browser& browser) {
    std::vector<int> widths;
    for (int column = 0; column < browser.List().ColumnCount(); ++column) {
      widths.push_back(browser.List().ColumnAt(column).width);
    }
    return widths;
  }
  static int ColumnSpace(const Browser& browser) {
    return WidthOf(browser.List().ScreenRect()) - GetSystemMetrics(SM_CXVSCROLL) - 4;
  }
};

// ---------------------------------------------------------------------------------------------------------------------
// window and controls

struct ControlRow {
  int id;
  const char* className;
  const char* text;
  RECT units;  ///< left, top, width, height in dialog units
  DWORD bits;
  DWORD mask;
};

constexpr DWORD kAnyBits = 0;
constexpr DWORD kComboBits = CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE;

constexpr ControlRow kControls[] = {
    {10035, "Static", "ファイルの場所", {6, 8, 57, 8}, SS_LEFT, SS_TYPEMASK},
    {10018, "ComboBox", nullptr, {72, 6, 191, 319}, CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED, kComboBits},
    {10012, "Button", "←", {}, kAnyBits, kAnyBits},
    {10013, "Button", "↑", {}, kAnyBits, kAnyBits},
    {10027, "Button", "〇", {}, kAnyBits, kAnyBits},
    {10014, "Button", "形式", {}, kAnyBits, kAnyBits},
    {10010, "SysListView32", nullptr, {6, 26, 344, 115}, LVS_EDITLABELS, LVS_EDITLABELS},
    {10019, "Static", "ファイル名", {6, 152, 41, 8}, SS_LEFT, SS_TYPEMASK},
    {10045, "ComboBox", nullptr, {50, 150, 25, 100}, CBS_DROPDOWNLIST, kComboBits},
    {10008, "ComboBox", nullptr, {78, 150, 210, 152}, CBS_DROPDOWN, kComboBits},
    {10021, "Static", "ファイルの種類", {6, 171, 57, 8}, SS_LEFT, SS_TYPEMASK},
    {10009, "ComboBox", nullptr, {78, 169, 210, 85}, CBS_DROPDOWNLIST, kComboBits},
    {1, "Button", "開く", {300, 149, 50, 14}, BS_DEFPUSHBUTTON, BS_TYPEMASK},
    {2, "Button", "取消", {300, 167, 50, 14}, BS_PUSHBUTTON, BS_TYPEMASK},
};

/// The rectangle that the template gives, in pixels of the dialog's client area.
RECT PixelsOf(const Window& dialog, const RECT& units) {
  RECT rect = {units.left, units.top, units.left + units.right, units.top + units.bottom};
  MapDialogRect(dialog.Handle(), &rect);
  return rect;
}

TEST_F(BrowserFrameTest, ControlsStandWhereTheTemplateHasThem) {
  Run([](Browser& browser) {
    const Window dialog = browser.Window();
    EXPECT_EQ(dialog.ClientUnits().cx, 357);
    EXPECT_EQ(dialog.ClientUnits().cy, 190);
    const std::vector<Window> children = dialog.Children();
    ASSERT_EQ(children.size(), std::size(kControls));
    for (std::size_t i = 0; i < children.size(); ++i) {
      const ControlRow& want = kControls[i];
      const Window& control = children[i];
      SCOPED_TRACE(want.id);
      EXPECT_EQ(control.Id(), want.id) << "the order of the Tab key";
      EXPECT_EQ(control.ClassName(), want.className);
      EXPECT_EQ(control.Style() & want.mask, want.bits);
      if (want.text != nullptr) {
        EXPECT_EQ(control.Text(), want.text);
      }
      if (want.units.right == 0) continue;
      RECT rect = control.RectInParent();
      const RECT place = PixelsOf(dialog, want.units);
      if (control.ClassName() == "ComboBox") {
        RECT dropped = {};
        control.Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
        EXPECT_NEAR(HeightOf(dropped), HeightOf(place) - HeightOf(rect), HeightOf(rect)) << "the list below";
        rect.bottom = place.bottom;
      }
      EXPECT_TRUE(rect == place) << rect.left << ' ' << rect.top << ' ' << rect.right << ' ' << rect.bottom;
    }
  });
}

TEST_F(BrowserFrameTest, TheWindowCanBeSizedAndHasNoOtherBoxes) {
  Run([](Browser& browser) {
    const Window dialog = browser.Window();
    EXPECT_EQ(dialog.Text(), kCaption);
    constexpr DWORD kBits = WS_THICKFRAME | WS_CAPTION | WS_SYSMENU | WS_MAXIMIZEBOX | WS_MINIMIZEBOX;
    EXPECT_EQ(dialog.Style() & kBits, DWORD{WS_THICKFRAME | WS_CAPTION | WS_SYSMENU});
    LOGFONTA font = {};
    GetObjectA(FontOf(dialog.Child(IDC_FILE_LIST)), sizeof font, &font);
    EXPECT_STREQ(font.lfFaceName, "ＭＳ ゴシック");
    EXPECT_EQ(font.lfHeight, -12);
    for (const int id : {IDC_RECENT_COUNT, IDC_BACK, IDC_UP, IDC_CREATE_FOLDER, IDC_VIEW}) {
      EXPECT_FALSE(dialog.Child(id).IsVisible()) << id;
    }
    for (const int id : {IDC_BACK, IDC_UP, IDC_CREATE_FOLDER, IDC_VIEW}) EXPECT_FALSE(dialog.Child(id).IsEnabled());
    EXPECT_EQ(dialog.Child(IDC_LOCATION).Send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)),
              dialog.Child(IDC_FILE_NAME).Send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
    EXPECT_EQ(dialog.Child(IDC_LOCATION).Send(CB_GETITEMHEIGHT), dialog.Child(IDC_FILE_NAME).Send(CB_GETITEMHEIGHT));
    EXPECT_GE(dialog.Child(IDC_LOCATION).Send(CB_GETITEMHEIGHT), 16) << "an icon";
    for (const int id : {IDC_FILE_NAME, IDC_FILE_KIND}) {
      EXPECT_EQ(HeightOf(dialog.Child(id).ScreenRect()), HeightOf(dialog.Child(IDC_LOCATION).ScreenRect())) << id;
    }
    EXPECT_EQ(dialog.Child(IDC_FILE_KIND).Items(), Texts{"#MODEL#(*.MDL) "});
    EXPECT_TRUE(browser.List().HasFocus());
  });
}

TEST_F(BrowserFrameTest, AnEmptyCaptionKeepsTheTemplatesOwn) {
  startUp_.caption.clear();
  Run([&](Browser& browser) {
    EXPECT_EQ(browser.Window().Text(), "ファイルの選択");
    browser.Enter("missing.mdl");
    const driver::MessageBoxView box = browser.Person().WaitMessageBox();
    EXPECT_EQ(box.caption, "ファイルの選択");
    browser.Person().Answer(box, IDOK);
  });
}

TEST_F(BrowserFrameTest, TheButtonsStandInARowOfImages) {
  Run([](Browser& browser) {
    const RECT back = AreaRect(browser, IDC_BACK);
    const RECT up = AreaRect(browser, IDC_UP);
    const RECT create = AreaRect(browser, IDC_CREATE_FOLDER);
    const RECT view = AreaRect(browser, IDC_VIEW);
    const RECT place = PixelsOf(browser.Window(), {329, 6, 21, 13});
    EXPECT_NEAR(browser.Window().Child(IDC_VIEW).RectInParent().right, place.right, 1) << "rounding";
    EXPECT_EQ(browser.Window().Child(IDC_VIEW).RectInParent().top, place.top);
    EXPECT_EQ(create.right, view.left - 2);
    EXPECT_EQ(up.right, create.left - 2);
    EXPECT_EQ(back.right, up.left - 2);
    for (const RECT& rect : {back, up, create}) EXPECT_EQ(WidthOf(rect), 24);
    EXPECT_EQ(WidthOf(view), 32);
    for (const RECT& rect : {back, up, create, view}) EXPECT_EQ(HeightOf(rect), 22);
    EXPECT_GT(back.left, browser.LocationBar().ScreenRect().right);
  });
}

struct ButtonTexts {
  std::uint32_t flags;
  std::uint32_t listStyle;
  const char* ok;
  const char* cancel;
  bool single;
};

TEST_F(BrowserFrameTest, TheFlagsNameTheButtons) {
  constexpr ButtonTexts kRows[] = {
      {kFlagFileMustExist, filedialog::kListSingle, "開く", "取消", true},
      {kFlagFileMustExist, filedialog::kListMultiple, "開く", "取消", false},
      {kFlagPathMustExist, filedialog::kListMultiple, "保存", "取消", true},
      {kFlagPathMustExist | kFlagPlainOk, filedialog::kListMultiple, "ＯＫ", "キャンセル", true},
      {kFlagPlainOk, filedialog::kListSingle, "開く", "取消", true},
      {kFlagFileMustExist | kFlagMultiSelect, filedialog::kListSingle, "ＯＫ", "キャンセル", false},
      {kFlagPathMustExist | kFlagMultiSelect, filedialog::kListSingle, "ＯＫ", "キャンセル", false},
  };
  for (const ButtonTexts& row : kRows) {
    startUp_.flags = kFlagHideReadOnly | row.flags;
    startUp_.listStyle = row.listStyle;
    Run([&row](Browser& browser) {
      EXPECT_EQ(browser.Window().Child(IDOK).Text(), row.ok) << row.flags;
      EXPECT_EQ(browser.Window().Child(IDCANCEL).Text(), row.cancel) << row.flags;
      EXPECT_EQ((browser.List().Style() & LVS_SINGLESEL) != 0, row.single) << row.flags;
    });
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// keyboard

TEST_F(BrowserFrameTest, TheTabKeyWalksThroughTheControls) {
  Run([](Browser& browser) {
    const Window dialog = browser.Window();
    const User& user = browser.Person();
    const std::vector<std::pair<int, Window>> stops = {{IDC_FILE_NAME, browser.NameEdit()},
                                                       {IDC_FILE_KIND, dialog.Child(IDC_FILE_KIND)},
                                                       {IDOK, dialog.Child(IDOK)},
                                                       {IDCANCEL, dialog.Child(IDCANCEL)},
                                                       {IDC_LOCATION, browser.LocationBar()},
                                                       {IDC_FILE_LIST, browser.List()}};
    ASSERT_TRUE(browser.List().HasFocus());
    for (const auto& [id, window] : stops) {
      user.Key(VK_TAB);
      user.Settle();
      EXPECT_TRUE(window.HasFocus()) << id;
    }
    user.Key(VK_TAB, {VK_SHIFT});
    user.Settle();
    EXPECT_TRUE(browser.LocationBar().HasFocus());
  });
}

TEST_F(BrowserFrameTest, AltLeftGoesBackAndBackspaceUp) {
  Run([](Browser& browser) {
    const User& user = browser.Person();
    browser.OpenRow("Sub");
    user.Key(VK_BACK);
    user.Settle();
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    user.Key(VK_LEFT, {VK_MENU});
    user.Settle();
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    EXPECT_TRUE(browser.List().HasFocus());
  });
}

// A program of the suite may press the hidden buttons.
TEST_F(BrowserFrameTest, TheHiddenButtonsAnswerCommands) {
  Run([](Browser& browser) {
    const Window dialog = browser.Window();
    browser.OpenRow("Sub");
    dialog.Send(WM_COMMAND, MAKEWPARAM(IDC_UP, BN_CLICKED), reinterpret_cast<LPARAM>(dialog.Child(IDC_UP).Handle()));
    EXPECT_EQ(browser.Trail(), Texts{"data"});
    dialog.Send(WM_COMMAND, MAKEWPARAM(IDC_BACK, BN_CLICKED),
                reinterpret_cast<LPARAM>(dialog.Child(IDC_BACK).Handle()));
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    dialog.Send(WM_COMMAND, ID_VIEW_LIST);
    EXPECT_EQ(browser.List().Style() & LVS_TYPEMASK, DWORD{LVS_LIST});
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// areas

TEST_F(BrowserFrameTest, AreasAreNormalHotPressedOrDisabled) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    user.MoveTo(Beside(browser));
    EXPECT_TRUE(Shows(browser, IDC_BACK, IDB_BACK_DISABLED));
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP));
    EXPECT_TRUE(Shows(browser, IDC_CREATE_FOLDER, IDB_CREATE_FOLDER));
    EXPECT_TRUE(Shows(browser, IDC_VIEW, IDB_VIEW));
    user.MoveTo(AreaPoint(browser, IDC_BACK));
    EXPECT_TRUE(Shows(browser, IDC_BACK, IDB_BACK_DISABLED));
    user.MoveTo(AreaPoint(browser, IDC_UP));
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP_FOCUSED));
    user.MoveTo(AreaPoint(browser, IDC_CREATE_FOLDER));
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP));
    EXPECT_TRUE(Shows(browser, IDC_CREATE_FOLDER, IDB_CREATE_FOLDER_FOCUSED));
    user.MoveTo(AreaPoint(browser, IDC_VIEW));
    EXPECT_TRUE(Shows(browser, IDC_CREATE_FOLDER, IDB_CREATE_FOLDER));
    EXPECT_TRUE(Shows(browser, IDC_VIEW, IDB_VIEW_FOCUSED));
    user.MoveTo(Beside(browser));
    EXPECT_TRUE(Shows(browser, IDC_VIEW, IDB_VIEW));
    user.MoveTo(AreaPoint(browser, IDC_VIEW));
    user.MoveTo(Center(browser.List().ScreenRect()));
    user.WaitUntil("the area is left at once, on to a control", [&] { return Shows(browser, IDC_VIEW, IDB_VIEW); });
  });
}

TEST_F(BrowserFrameTest, APressedAreaStaysSoUntilTheButtonIsReleased) {
  startUp_.initialFolder = "C:\\data\\Sub";
  Run([](Browser& browser) {
    User& user = browser.Person();
    user.Press(AreaPoint(browser, IDC_UP));
    EXPECT_EQ(browser.Trail(), Texts{"data"}) << "acts when it is pressed";
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP_SELECTED));
    EXPECT_TRUE(Shows(browser, IDC_BACK, IDB_BACK)) << "there is a way back now";
    user.MoveTo(AreaPoint(browser, IDC_VIEW));
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP_SELECTED)) << "dragged off";
    user.Release(AreaPoint(browser, IDC_VIEW));
    user.Settle();
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP));
    EXPECT_TRUE(Shows(browser, IDC_VIEW, IDB_VIEW_FOCUSED)) << "a release is a move";
    EXPECT_FALSE(user.Sees("#32768"));
    user.Press(AreaPoint(browser, IDC_BACK));
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    EXPECT_TRUE(Shows(browser, IDC_BACK, IDB_BACK_DISABLED)) << "nothing is left to go back to";
    user.Release(AreaPoint(browser, IDC_BACK));
    user.Settle();
    EXPECT_TRUE(Shows(browser, IDC_BACK, IDB_BACK_DISABLED));
    browser.Back();
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    user.Press(AreaPoint(browser, IDC_UP));
    user.Release(AreaPoint(browser, IDC_UP));
    user.Settle();
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP_FOCUSED));
  });
}

TEST_F(BrowserFrameTest, TheViewAreaIsPressedWhileItsMenuIsOpen) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    user.Click(AreaPoint(browser, IDC_VIEW));
    const driver::MenuView menu = user.WaitMenu();
    EXPECT_TRUE(Shows(browser, IDC_VIEW, IDB_VIEW_SELECTED));
    const RECT area = AreaRect(browser, IDC_VIEW);
    EXPECT_EQ(menu.window.ScreenRect().left, area.left);
    EXPECT_EQ(menu.window.ScreenRect().top, area.bottom);
    user.Key(VK_ESCAPE);
    user.WaitGone(menu.window);
    user.Settle();
    EXPECT_TRUE(Shows(browser, IDC_VIEW, IDB_VIEW_FOCUSED)) << "the pointer is still there";
    user.MoveTo(Beside(browser));
    EXPECT_TRUE(Shows(browser, IDC_VIEW, IDB_VIEW));
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(BrowserFrameTest, TheNewFolderAreaIsPressedWhileItsDialogIsOpen) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    user.Click(AreaPoint(browser, IDC_CREATE_FOLDER));
    const Window dialog = user.WaitDialog("新しいフォルダの作成");
    EXPECT_TRUE(Shows(browser, IDC_CREATE_FOLDER, IDB_CREATE_FOLDER_SELECTED));
    user.Key(VK_ESCAPE);
    user.WaitGone(dialog);
    user.Settle();
    EXPECT_TRUE(Shows(browser, IDC_CREATE_FOLDER, IDB_CREATE_FOLDER_FOCUSED)) << "the pointer is still there";
    user.MoveTo(Center(browser.List().ScreenRect()));
    user.WaitUntil("the area is left at once, on to a control",
                   [&] { return Shows(browser, IDC_CREATE_FOLDER, IDB_CREATE_FOLDER); });
    EXPECT_TRUE(browser.List().HasFocus());
  });
}

TEST_F(BrowserFrameTest, AreasThatLeadNowhereAreDisabled) {
  Run([](Browser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    EXPECT_TRUE(Shows(browser, IDC_CREATE_FOLDER, IDB_CREATE_FOLDER_DISABLED));
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP));
    browser.ChoosePlace("デスクトップ");
    EXPECT_TRUE(Shows(browser, IDC_CREATE_FOLDER, IDB_CREATE_FOLDER));
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP_DISABLED));
    TakeListings();
    browser.Up();
    EXPECT_EQ(TakeListings(), 0U);
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP_DISABLED));
  });
}

TEST_F(BrowserFrameTest, AFixedFolderHasNoWays) {
  startUp_.folderFixed = true;
  Run([](Browser& browser) {
    User& user = browser.Person();
    EXPECT_FALSE(browser.LocationBar().IsEnabled());
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP_DISABLED));
    EXPECT_TRUE(Shows(browser, IDC_BACK, IDB_BACK_DISABLED));
    TakeListings();
    browser.Up();
    browser.Back();
    user.Key(VK_BACK);
    user.Key(VK_LEFT, {VK_MENU});
    user.Settle();
    EXPECT_EQ(TakeListings(), 0U);
    EXPECT_EQ(browser.Rows(), (Texts{"a.mdl", "A-001.MDL", "b.mdl", "ソ.mdl", "表.mdl"})) << "no folders";
    browser.ChooseView("一覧表示");
    EXPECT_EQ(TakeListings(), 1U);
  });
}

/// What surrounds the label: the colours of its frame, outside in.
struct LabelColours {
  COLORREF leftTop;
  COLORREF rightBottom;
  COLORREF outer;
};

/// Checks each pixel around the label but those of its text.
void ExpectFrame(const Browser& browser, const LabelColours& want) {
  const RECT label = browser.Window().Child(IDC_NAME_LABEL).ScreenRect();
  const RECT around = {label.left - 6, label.top - 6, label.right + 3, label.bottom + 7};
  const Picture picture = browser.Person().Look(around);
  const int x0 = 2;
  const int y0 = 2;
  const int x1 = label.right - around.left;
  const int y1 = label.bottom + 4 - around.top;
  const COLORREF ground = GetSysColor(COLOR_3DFACE);
  int wrong = 0;
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const bool inside = x > x0 && x < x1 && y > y0 && y < y1;
      if (inside) continue;
      COLORREF colour = ground;
      if (((x == x1 + 1 && y <= y1 + 1) || (y == y1 + 1 && x <= x1 + 1)) && x > x0 && y >= y0) colour = want.outer;
      if (((x == x1 && y <= y1) || (y == y1 && x <= x1)) && x >= x0 && y >= y0) colour = want.rightBottom;
      if ((x == x0 && y >= y0 && y <= y1) || (y == y0 && x >= x0 && x < x1)) colour = want.leftTop;
      if (picture.At(x, y) == colour) continue;
      ++wrong;
      if (wrong < 4) ADD_FAILURE() << "pixel " << x - x0 << ',' << y - y0 << " is " << std::hex << picture.At(x, y);
    }
  }
  EXPECT_EQ(wrong, 0);
}

TEST_F(BrowserFrameTest, TheLabelHasAFrameWhileItIsHotOrPressed) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    const Window label = browser.Window().Child(IDC_NAME_LABEL);
    const COLORREF ground = GetSysColor(COLOR_3DFACE);
    const LabelColours none = {ground, ground, ground};
    const LabelColours hot = {0xE0E0E0, 0x808080, ground};
    user.MoveTo(Beside(browser));
    EXPECT_EQ(label.Text(), "ファイル名");
    ExpectFrame(browser, none);
    user.MoveTo(Center(label.ScreenRect()));
    user.Settle();
    EXPECT_EQ(label.Text(), "ファイル数");
    ExpectFrame(browser, hot);
    InvalidateRect(browser.Window().Handle(), nullptr, TRUE);
    user.Settle();
    ExpectFrame(browser, hot);
    user.Press(Center(label.ScreenRect()));
    EXPECT_EQ(label.Text(), "ファイル数");
    ExpectFrame(browser, {0xE0E0E0, 0x808080, 0});
    user.Release(Center(label.ScreenRect()));
    user.Settle();
    const Window box = browser.Window().Child(IDC_RECENT_COUNT);
    EXPECT_TRUE(box.IsDropped());
    ExpectFrame(browser, {0xE0E0E0, 0x808080, 0});
    user.MoveTo(Beside(browser));
    user.Key(VK_ESCAPE);
    user.Settle();
    EXPECT_FALSE(box.IsVisible());
    EXPECT_EQ(label.Text(), "ファイル名");
    ExpectFrame(browser, none);

    user.Click(Center(label.ScreenRect()));
    user.Settle();
    ExpectFrame(browser, {0xE0E0E0, 0x808080, 0});
    user.Key(VK_ESCAPE);
    user.Settle();
    EXPECT_FALSE(box.IsVisible());
    EXPECT_EQ(label.Text(), "ファイル数") << "the pointer is still there";
    ExpectFrame(browser, hot);
  });
}

TEST_F(BrowserFrameTest, TheFrameGoesAlsoWhereTheLabelIsPartlyOffTheScreen) {
  RECT window = {};
  RECT label = {};
  Run([&](Browser& browser) {
    window = browser.Window().ScreenRect();
    label = browser.Window().Child(IDC_NAME_LABEL).ScreenRect();
  });
  Save("PosX", static_cast<std::uint32_t>(window.left - label.left + 3));
  Save("PosY", static_cast<std::uint32_t>(window.top));
  Run([](Browser& browser) {
    User& user = browser.Person();
    const RECT at = browser.Window().Child(IDC_NAME_LABEL).ScreenRect();
    ASSERT_EQ(at.left, 3);
    const auto rightEdge = [&] { return user.Look(RECT{at.right, at.top, at.right + 1, at.top + 1}).At(0, 0); };
    user.MoveTo(Center(at));
    user.Settle();
    EXPECT_EQ(rightEdge(), COLORREF{0x808080});
    user.MoveTo(Beside(browser));
    user.Settle();
    EXPECT_EQ(rightEdge(), GetSysColor(COLOR_3DFACE));
  });
}

BOOL CALLBACK CountDialog(HWND window, LPARAM count) {
  std::array<wchar_t, 16> name = {};
  ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  if (std::wstring(name.data()) == L"#32770") ++*reinterpret_cast<int*>(count);
  return TRUE;
}

/// Of a thread, hidden ones too.
int DialogsBeside(const Browser& browser) {
  int count = 0;
  ::EnumThreadWindows(::GetWindowThreadProcessId(browser.Window().Handle(), nullptr), &CountDialog,
                      reinterpret_cast<LPARAM>(&count));
  return count - 1;
}

TEST_F(BrowserFrameTest, ItsBalloonIsMadeWhenThePointerFirstComesToAnArea) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    user.MoveTo(Beside(browser));
    user.Settle();
    EXPECT_EQ(DialogsBeside(browser), 0);
    user.MoveTo(AreaPoint(browser, IDC_UP));
    user.WaitUntil("there is one", [&] { return DialogsBeside(browser) == 1; });
    user.MoveTo(AreaPoint(browser, IDC_VIEW));
    user.WaitUntil("it appears", [&] { return driver::VisibleWindows(GetCurrentProcessId()).size() > 1; });
    EXPECT_EQ(DialogsBeside(browser), 1);
  });
}

TEST_F(BrowserFrameTest, EachAreaHasItsBalloon) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    const std::vector<std::pair<int, std::string>> tips = {{IDC_VIEW, "表示メニュー"},
                                                           {IDC_CREATE_FOLDER, "新しいフォルダの作成"},
                                                           {IDC_UP, "１つ上のホルダに移動"},
                                                           {IDC_BACK, "直前に表示していたフォルダに移動"},
                                                           {IDC_NAME_LABEL, "最近使用したファイル数を変更"}};
    for (const auto& [id, text] : tips) {
      SCOPED_TRACE(text);
      const RECT area = AreaRect(browser, id);
      user.MoveTo(Center(area));
      std::optional<Window> balloon;
      user.WaitUntil("the balloon appears", [&] {
        for (const Window& window : driver::VisibleWindows(GetCurrentProcessId())) {
          if (window.Owner() == browser.Window()) balloon = window;
        }
        return balloon.has_value();
      });
      const RECT place = balloon->ScreenRect();
      const int width = WidthOf(place);
      EXPECT_EQ(width, 12 * static_cast<int>(text.size()) / 2 + 12);
      EXPECT_EQ(place.bottom, area.top - HeightOf(area) / 2);
      const Picture shown = user.Look(place);
      Sheet sheet(width, HeightOf(place));
      const int textWidth = sheet.TextWidth(text, FontOf(browser.List()));
      EXPECT_EQ(textWidth, 6 * static_cast<int>(text.size()));
      EXPECT_GT(shown.Count({0, 0, width, HeightOf(place)}, 0), static_cast<int>(text.size()) * 8) << "is written on";
      user.MoveTo(Beside(browser));
      user.WaitGone(*balloon);
    }
    user.MoveTo(AreaPoint(browser, IDC_UP));
    user.WaitUntil("the balloon appears", [&] { return driver::VisibleWindows(GetCurrentProcessId()).size() > 1; });
    user.Press(AreaPoint(browser, IDC_UP));
    EXPECT_EQ(driver::VisibleWindows(GetCurrentProcessId()).size(), 1U) << "a press hides it";
    user.Release(AreaPoint(browser, IDC_UP));
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// number of recent files

TEST_F(BrowserFrameTest, TheCountBoxOffersNoneToTwenty) {
  Run([](Browser& browser) {
    const Window box = browser.Window().Child(IDC_RECENT_COUNT);
    Texts numbers;
    for (int number = 0; number <= 20; ++number) {
      numbers.push_back((number < 10 ? " " : "") + std::to_string(number));
    }
    EXPECT_EQ(box.Items(), numbers);
    EXPECT_EQ(box.Selection(), 10);
    EXPECT_FALSE(box.IsVisible());
    browser.Person().Click(AreaPoint(browser, IDC_NAME_LABEL));
    EXPECT_TRUE(box.IsVisible());
    EXPECT_TRUE(box.HasFocus());
    EXPECT_TRUE(box.IsDropped());
    browser.Person().Key(VK_ESCAPE);
    browser.Person().Settle();
    EXPECT_FALSE(box.IsVisible());
    EXPECT_TRUE(browser.List().HasFocus());
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(Saved("FileCount"), -1) << "nothing chosen, nothing written";
  });
}

TEST_F(BrowserFrameTest, AChosenCountIsRememberedAndTheListCut) {
  for (const int number : {1, 2, 3, 4}) {
    World().registry.SetValue(kLayoutKey, "File0" + std::to_string(number), RegistryType::String,
                              std::to_string(number) + ".mdl");
  }
  Run([](Browser& browser) {
    User& user = browser.Person();
    EXPECT_EQ(browser.NameBox().Items().size(), 4U);
    browser.TypeName("typed");
    const Window box = browser.Window().Child(IDC_RECENT_COUNT);
    user.Click(AreaPoint(browser, IDC_NAME_LABEL));
    const Window list = box.ComboList();
    list.Send(LB_SETTOPINDEX, 0);
    RECT row = {};
    list.Send(LB_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&row));
    MapWindowPoints(list.Handle(), nullptr, reinterpret_cast<POINT*>(&row), 2);
    user.Click(Center(row));
    user.WaitUntil("the count box closes", [&] { return !box.IsVisible(); });
    user.Settle();
    EXPECT_EQ(Saved("FileCount"), 2);
    EXPECT_EQ(SavedRecentFiles(), (Texts{"1.mdl", "2.mdl"}));
    EXPECT_EQ(browser.NameBox().Items(), (Texts{"1.mdl", "2.mdl"}));
    EXPECT_EQ(browser.Name(), "typed");
    EXPECT_TRUE(browser.List().HasFocus());
    user.Click(AreaPoint(browser, IDC_NAME_LABEL));
    user.Key(VK_END);
    user.Key(VK_RETURN);
    user.WaitUntil("the count box closes", [&] { return !box.IsVisible(); });
    EXPECT_EQ(Saved("FileCount"), 20);
    EXPECT_EQ(SavedRecentFiles(), (Texts{"1.mdl", "2.mdl", "3.mdl", "4.mdl"})) << "the list itself was not cut";
    EXPECT_TRUE(browser.IsOpen());
  });
  Run([](Browser& browser) { EXPECT_EQ(browser.Window().Child(IDC_RECENT_COUNT).Selection(), 20); });
}

// ---------------------------------------------------------------------------------------------------------------------
// place and size

TEST_F(BrowserFrameTest, TheWindowStandsWhereItWasLeft) {
  const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
  const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
  RECT first = {};
  Run([&](Browser& browser) { first = browser.Window().ScreenRect(); });
  const int width = WidthOf(first);
  const int height = HeightOf(first);
  EXPECT_EQ(first.left, (screenWidth - width) / 2);
  EXPECT_EQ(first.top, (screenHeight - height) / 2);
  EXPECT_EQ(Saved("PosX"), first.left);
  EXPECT_EQ(Saved("PosY"), first.top);
  EXPECT_EQ(Saved("SizeX"), width);
  EXPECT_EQ(Saved("SizeY"), height);
  EXPECT_EQ(Saved("Form"), 2);
  EXPECT_EQ(Saved("Confirm"), 2);
  EXPECT_EQ(Saved("Count"), 1000);

  struct Case {
    int x, y, width, height;
    RECT want;
  };
  const Case cases[] = {
      {17, 23, 0, 0, {17, 23, 17 + width, 23 + height}},
      {0, 31, 0, 0, {0, 31, width, 31 + height}},
      {-5, 10, width + 40, height + 30, {-5, 10, width + 35, height + 40}},
      {0, 0, width + 100, height + 50, {(screenWidth - width - 100) / 2, (screenHeight - height - 50) / 2, 0, 0}},
      {40, 50, 10, 20, {40, 50, 40 + width, 50 + height}},
      {1, 2, 20000, 30000, {1, 2, 1 + screenWidth, 2 + screenHeight}},
      {7, 8, -1, INT_MIN, {7, 8, 7 + width, 8 + height}},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.x);
    Save("PosX", static_cast<std::uint32_t>(row.x));
    Save("PosY", static_cast<std::uint32_t>(row.y));
    Save("SizeX", static_cast<std::uint32_t>(row.width));
    Save("SizeY", static_cast<std::uint32_t>(row.height));
    Run([&](Browser& browser) {
      const RECT rect = browser.Window().ScreenRect();
      EXPECT_EQ(rect.left, row.want.left);
      EXPECT_EQ(rect.top, row.want.top);
      EXPECT_EQ(WidthOf(rect), row.want.right == 0 ? row.width : WidthOf(row.want));
      EXPECT_EQ(HeightOf(rect), row.want.right == 0 ? row.height : HeightOf(row.want));
      browser.Person().Key(VK_ESCAPE);
      browser.Person().WaitUntil("the browser closes", [&] { return !browser.IsOpen(); });
    });
  }
}

TEST_F(BrowserFrameTest, APositionOnNoMonitorIsBroughtIntoSight) {
  const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
  const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
  RECT usual = {};
  POINT client = {};
  Run([&](Browser& browser) {
    usual = browser.Window().ScreenRect();
    ClientToScreen(browser.Window().Handle(), &client);
  });
  const int frame = client.x - usual.left;
  const int captionBottom = client.y - usual.top;
  const int captionTop = captionBottom - GetSystemMetrics(SM_CYCAPTION);
  struct Case {
    int x, y, wantX, wantY;
  };
  const Case cases[] = {
      {5000, 100, screenWidth - 200 - frame, 100},
      {-5000, 100, 200 + frame - WidthOf(usual), 100},
      {100, -5000, 100, -captionTop},
      {100, 5000, 100, screenHeight - captionBottom},
      {INT_MAX, INT_MIN, screenWidth - 200 - frame, -captionTop},
      {screenWidth - frame - 1, 100, screenWidth - frame - 1, 100},  // one pixel of the caption is on the screen
      {screenWidth - frame, 100, screenWidth - 200 - frame, 100},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.x);
    Save("PosX", static_cast<std::uint32_t>(row.x));
    Save("PosY", static_cast<std::uint32_t>(row.y));
    Run([&](Browser& browser) {
      const RECT rect = browser.Window().ScreenRect();
      EXPECT_EQ(rect.left, row.wantX);
      EXPECT_EQ(rect.top, row.wantY);
      browser.Person().Key(VK_ESCAPE);
      browser.Person().WaitUntil("the browser closes", [&] { return !browser.IsOpen(); });
    });
  }
}

TEST_F(BrowserFrameTest, TheControlsFollowTheWindowsSize) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    const Window dialog = browser.Window();
    const RECT start = dialog.ScreenRect();
    std::vector<RECT> before;
    for (const Window& child : dialog.Children()) before.push_back(child.RectInParent());
    const auto listHeight = [&dialog](int id) {
      RECT dropped = {};
      dialog.Child(id).Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
      return HeightOf(dropped);
    };
    const int listBefore = listHeight(IDC_FILE_NAME);
    user.Drag({start.right - 2, start.bottom - 2}, {start.right + 118, start.bottom + 78});
    user.Settle();
    const int dw = WidthOf(dialog.ScreenRect()) - WidthOf(start);
    const int dh = HeightOf(dialog.ScreenRect()) - HeightOf(start);
    EXPECT_GT(dw, 100);
    EXPECT_GT(dh, 60);
    struct Follow {
      int left, top, right, bottom;
    };
    const Follow stays = {0, 0, 0, 0};
    const Follow movesRight = {1, 0, 1, 0};
    const Follow movesDown = {0, 1, 0, 1};
    const Follow widensBelow = {0, 1, 1, 1};
    const Follow movesBoth = {1, 1, 1, 1};
    const Follow follows[] = {stays,     {0, 0, 1, 0}, movesRight,  movesRight, movesRight,  movesRight, {0, 0, 1, 1},
                              movesDown, movesDown,    widensBelow, movesDown,  widensBelow, movesBoth,  movesBoth};
    const std::vector<Window> children = dialog.Children();
    ASSERT_EQ(children.size(), std::size(follows));
    for (std::size_t i = 0; i < children.size(); ++i) {
      const RECT now = children[i].RectInParent();
      const RECT want = {before[i].left + follows[i].left * dw, before[i].top + follows[i].top * dh,
                         before[i].right + follows[i].right * dw, before[i].bottom + follows[i].bottom * dh};
      EXPECT_TRUE(now == want) << children[i].Id();
    }
    user.MoveTo(AreaPoint(browser, IDC_UP));
    EXPECT_TRUE(Shows(browser, IDC_UP, IDB_UP_FOCUSED)) << "the areas moved too";

    const RECT large = dialog.ScreenRect();
    user.Drag({large.right - 2, large.bottom - 2}, {large.left + 50, large.top + 50});
    user.Settle();
    EXPECT_TRUE(dialog.ScreenRect() == start) << "not smaller than at the start";
    EXPECT_EQ(listHeight(IDC_FILE_NAME), listBefore);
    const std::vector<Window> again = dialog.Children();
    for (std::size_t i = 0; i < again.size(); ++i) EXPECT_TRUE(again[i].RectInParent() == before[i]) << again[i].Id();
  });
}

TEST_F(BrowserFrameTest, AMovedAndSizedWindowComesBack) {
  RECT left = {};
  Run([&](Browser& browser) {
    User& user = browser.Person();
    const RECT start = browser.Window().ScreenRect();
    user.Drag({start.left + 100, start.top + 12}, {start.left + 60, start.top + 32});
    user.Settle();
    const RECT moved = browser.Window().ScreenRect();
    EXPECT_EQ(moved.left, start.left - 40);
    EXPECT_EQ(moved.top, start.top + 20);
    user.Drag({moved.right - 2, moved.bottom - 2}, {moved.right + 30, moved.bottom + 25});
    user.Settle();
    left = browser.Window().ScreenRect();
    browser.Enter("a.mdl");
  });
  Run([&](Browser& browser) {
    EXPECT_TRUE(browser.Window().ScreenRect() == left);
    User& user = browser.Person();
    user.Drag({left.right - 2, left.bottom - 2}, {left.left + 50, left.top + 50});
    user.Settle();
    EXPECT_EQ(browser.Window().ClientUnits().cx, 357) << "the smallest size is the template's";
    EXPECT_EQ(browser.Window().ClientUnits().cy, 190);
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// what is remembered, and what is not believed

TEST_F(BrowserFrameTest, RecentNamesOfAnyBytesAreShownOrPassedOver) {
  World().registry.SetValue(kLayoutKey, "File01", RegistryType::String, "unterminated.mdl");
  World().registry.SetValue(kLayoutKey, "File02", RegistryType::String, std::string("cut\0behind\0", 11));
  World().registry.SetValue(kLayoutKey, "File03", RegistryType::String, std::string(300, 'x'));
  World().registry.SetValue(kLayoutKey, "File04", RegistryType::String, std::string(255, 'y') + "\x95");
  World().registry.SetValue(kLayoutKey, "File05", RegistryType::String, std::string(1, '\0'));
  World().registry.SetValue(kLayoutKey, "File20", RegistryType::String, "表.mdl");
  Save("FileCount", 20);
  Run([](Browser& browser) {
    EXPECT_EQ(browser.NameBox().Items(), (Texts{"unterminated.mdl", "cut", std::string(255, 'y'), "表.mdl"}));
  });
}

TEST_F(BrowserFrameTest, ACountOutOfRangeIsIgnored) {
  for (const std::uint32_t count : {0U, 21U, 0x80000000U}) {
    Save("FileCount", count);
    Run([](Browser& browser) { EXPECT_EQ(browser.Window().Child(IDC_RECENT_COUNT).Selection(), 10); });
  }
  for (const std::uint32_t count : {1U, 20U}) {
    Save("FileCount", count);
    Run([&](Browser& browser) {
      EXPECT_EQ(browser.Window().Child(IDC_RECENT_COUNT).Selection(), static_cast<int>(count));
    });
  }
}

TEST_F(BrowserFrameTest, AViewIsRememberedWhenTheBrowserIsLeft) {
  Run([](Browser& browser) {
    browser.ChooseView("大きいアイコン");
    EXPECT_EQ(Saved("Form"), 2) << "the layout is written before the view changes";
  });
  EXPECT_EQ(Saved("Form"), 0);
  Run([](Browser& browser) { EXPECT_EQ(browser.List().Style() & LVS_TYPEMASK, DWORD{LVS_ICON}); });
  Save("Form", 5);
  Run([](Browser& browser) { EXPECT_EQ(browser.List().Style() & LVS_TYPEMASK, DWORD{LVS_REPORT}); });
}

// ---------------------------------------------------------------------------------------------------------------------
// views and columns

TEST_F(BrowserFrameTest, KindsWithTitlesHaveTheTitleView) {
  for (const int kindCode : {0, 1, 2, 8, 9}) {
    startUp_.kindCode = kindCode;
    Run([kindCode](Browser& browser) {
      browser.Person().Click(AreaPoint(browser, IDC_VIEW));
      const driver::MenuView menu = browser.Person().WaitMenu();
      Texts texts = {"大きいアイコン", "小さいアイコン", "詳細表示", "一覧表示"};
      if (kindCode >= 1 && kindCode <= 8) texts.emplace_back("タイトル表示");
      ASSERT_EQ(menu.items.size(), texts.size()) << kindCode;
      for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(menu.items[i].text, texts[i]);
        EXPECT_EQ(menu.items[i].id, 3001 + i);
        EXPECT_EQ(menu.items[i].isChecked, i == 2);
        EXPECT_TRUE(menu.items[i].isEnabled);
      }
      browser.Person().Key(VK_ESCAPE);
      browser.Person().WaitGone(menu.window);
    });
  }
}

TEST_F(BrowserFrameTest, WidthsOfTheDetailsAreRememberedAllOrNone) {
  Run([](Browser& browser) {
    const RECT header = browser.List().HeaderRect(0);
    const POINT divider = {header.right, (header.top + header.bottom) / 2};
    browser.Person().Drag(divider, {divider.x - 50, divider.y});
    browser.Person().Settle();
    const int wanted = ColumnSpace(browser) * 3 / 6 - 50;
    EXPECT_NEAR(ColumnWidths(browser)[0], wanted, 2);
  });
  const std::vector<int> widths = {static_cast<int>(Saved("RWidth0")), static_cast<int>(Saved("RWidth1")),
                                   static_cast<int>(Saved("RWidth2"))};
  Run([&](Browser& browser) {
    EXPECT_EQ(ColumnWidths(browser), widths);
    browser.OpenRow("Sub");
    EXPECT_EQ(ColumnWidths(browser), widths);
    browser.ChooseView("大きいアイコン");
    EXPECT_EQ(browser.List().ColumnCount(), 0);
    browser.ChooseView("詳細表示");
    EXPECT_EQ(ColumnWidths(browser), widths);
    browser.ChoosePlace("マイコンピュータ");
  });
  EXPECT_EQ(Saved("RWidth0"), widths[0]) << "widths of the drives are nobody's";
  Save("RWidth1", 0);
  Run([](Browser& browser) {
    const int space = ColumnSpace(browser);
    EXPECT_EQ(ColumnWidths(browser), (std::vector<int>{space * 3 / 6, space / 6, space * 2 / 6}));
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// drawing

TEST_F(BrowserFrameTest, ARowIsAnIconAndANameInItsColumn) {
  Run([](Browser& browser) {
    const ListView list = browser.List();
    const HFONT font = FontOf(list);
    const Texts names = browser.Rows();
    constexpr int kSelectedRow = 5;
    browser.ClickRow(names[kSelectedRow]);
    browser.Person().Key(VK_TAB);  // without a focus rectangle
    for (const int row : {0, 2, 4, kSelectedRow, 6}) {
      SCOPED_TRACE(row);
      const std::string& name = names[static_cast<std::size_t>(row)];
      const RECT bounds = list.ItemRect(row, LVIR_BOUNDS);
      const int width = list.ColumnAt(0).width;
      const int height = HeightOf(bounds);
      Sheet sheet(width, height);
      sheet.Icon(0, (height - 16) / 2, list.Image(row));
      const bool selected = row == kSelectedRow;
      const int textWidth = sheet.TextWidth(name, font);
      if (selected) sheet.Fill({16, 0, 16 + textWidth + 4, height}, COLOR_HIGHLIGHT);
      sheet.Text(name, {18, 0, 18 + textWidth, height}, font, selected,
                 DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
      const Picture shown = browser.Person().Look({bounds.left, bounds.top, bounds.left + width, bounds.bottom});
      EXPECT_EQ(shown, sheet.Look());
    }
  });
}

/// What the location bar shows of a place.
Picture PlacePicture(int width, int height, int indent, int image, const std::string& text, HFONT font, bool selected) {
  Sheet sheet(width, height);
  sheet.Icon(indent, 0, image);
  sheet.Text(text, {indent + 20, 0, width, height}, font, selected, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  return sheet.Look();
}

TEST_F(BrowserFrameTest, TheClosedLocationBarShowsTheCurrentPlace) {
  World().files.AddFolder("C:\\data\\R&D");
  startUp_.initialFolder = "C:\\data\\R&D";
  Run([](Browser& browser) {
    const Window bar = browser.LocationBar();
    COMBOBOXINFO info = {};
    info.cbSize = sizeof info;
    GetComboBoxInfo(bar.Handle(), &info);
    RECT face = info.rcItem;
    InflateRect(&face, -1, -1);  // the frame around what is drawn
    EXPECT_GE(HeightOf(face), 16) << "room for an icon";
    MapWindowPoints(bar.Handle(), nullptr, reinterpret_cast<POINT*>(&face), 2);
    const auto expectFace = [&](int image, const std::string& text, bool selected) {
      EXPECT_EQ(browser.Person().Look(face),
                PlacePicture(WidthOf(face), HeightOf(face), 0, image, text, FontOf(bar), selected))
          << text;
    };
    expectFace(17, "R&D", false);
    browser.Up();
    expectFace(17, "data", false);
    browser.Up();
    expectFace(11, "SYSTEM (C:)", false);
    browser.Up();
    expectFace(1, "マイコンピュータ", false);
    browser.Up();
    expectFace(0, "デスクトップ", false);
    EXPECT_EQ(bar.Selection(), -1);
  });
}

TEST_F(BrowserFrameTest, TheOpenLocationBarIsATree) {
  World().network.present = true;
  startUp_.initialFolder = "C:\\data\\Sub";
  Run([](Browser& browser) {
    User& user = browser.Person();
    const Window bar = browser.LocationBar();
    struct Row {
      int level;
      int image;
      const char* text;
    };
    const Row rows[] = {{0, 0, "デスクトップ"},
                        {1, 1, "マイコンピュータ"},
                        {2, 11, "SYSTEM (C:)"},
                        {3, 17, "data"},
                        {4, 17, "Sub"},
                        {2, 14, "REMOVABLE (D:)"},
                        {1, 2, "マイネットワーク"},
                        {1, 3, "ネットワーク全体"},
                        {2, 6, "近くのコンピュータ"}};
    Texts texts;
    for (const Row& row : rows) texts.emplace_back(row.text);
    EXPECT_EQ(bar.Items(), texts);
    const RECT rect = bar.ScreenRect();
    user.Click(POINT{rect.right - 8, rect.top + 10});
    const Window list = bar.ComboList();
    user.WaitUntil("the list drops down", [&] { return list.IsVisible(); });
    user.MoveTo({rect.left - 30, rect.top});
    ASSERT_EQ(list.Send(LB_GETTOPINDEX), 0);
    for (std::size_t i = 0; i < std::size(rows); ++i) {
      RECT item = {};
      list.Send(LB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&item));
      MapWindowPoints(list.Handle(), nullptr, reinterpret_cast<POINT*>(&item), 2);
      const bool current = i == 4;
      EXPECT_EQ(user.Look(item), PlacePicture(WidthOf(item), HeightOf(item), rows[i].level * 16, rows[i].image,
                                              rows[i].text, FontOf(bar), current))
          << rows[i].text;
    }
    user.Key(VK_ESCAPE);
    user.WaitGone(list);
    user.Settle();
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    EXPECT_TRUE(browser.List().HasFocus());
  });
}

}  // namespace
}  // namespace browser_test
