// The grid on screens of any scale, in a dialog that follows a change by itself.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/os/os_scripted_display.h"
#include "tests/windows/grid/grid_table.h"
#include "tests/windows/scale/scale_tools.h"

namespace {

using driver::Picture;
using driver::Window;
using grid_test::Host;
using grid_test::HostKind;
using grid_test::kColour;
using grid_test::kList;
using grid_test::kMaterial;
using grid_test::kName;
using scale::Scale;

constexpr COLORREF kGreen = 0x0000FF00;
constexpr UINT kDpiChangedAfterParent = 0x02E3;

class GridScaleTest : public testing::TestWithParam<HostKind> {
 protected:
  void Open() {
    host_->Open([](Host& host) { grid_test::FillTable(host); });
    Host::Pump();
  }
  [[nodiscard]] CvListControl& List() { return *host_->list; }
  [[nodiscard]] std::vector<int> Widths() {
    std::vector<int> widths;
    for (int c = 0; c < 4; ++c) widths.push_back(host_->ListView().ColumnAt(c).width);
    return widths;
  }
  /// What a dialog does that follows the scale of its screen.
  void FollowTo(int dpi) {
    os::DisplayOfTest().dpi = dpi;
    const Scale scale(dpi);
    font_.reset(new UniqueFont(MakeFont(scale)));
    const HWND list = host_->Child(kList);
    ::SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(font_->Get()), FALSE);
    ::MoveWindow(host_->Handle(), 0, 0, scale.ToScreen(420), scale.ToScreen(320), FALSE);
    ::MoveWindow(list, scale.ToScreen(10), scale.ToScreen(10), scale.ToScreen(322), scale.ToScreen(202), TRUE);
    ::SendMessageW(list, kDpiChangedAfterParent, 0, 0);
    Host::Pump();
  }
  static HFONT MakeFont(Scale scale) {
    LOGFONTW font = {};
    font.lfHeight = scale.ToScreen(-12);
    font.lfCharSet = SHIFTJIS_CHARSET;
    return ::CreateFontIndirectW(&font);
  }
  [[nodiscard]] Picture SeeCell(int row, int col) {
    Host::Pump();
    ::GdiFlush();
    return driver::Capture(host_->ListView().CellRect(row, col));
  }

  os::DisplayScope display_;
  std::unique_ptr<Host> host_ = Host::Make(GetParam());
  std::unique_ptr<UniqueFont> font_;
};

INSTANTIATE_TEST_SUITE_P(Hosts, GridScaleTest, testing::Values(HostKind::Framework, HostKind::Plain));

TEST_P(GridScaleTest, ColumnsNeedNoHorizontalScrollBar) {
  Open();
  EXPECT_EQ(host_->ListView().Style() & WS_HSCROLL, 0U);
}

TEST_P(GridScaleTest, ColumnsFollowAChangeOfScaleAndComeBack) {
  os::DisplayOfTest().dpi = 96;
  Open();
  const std::vector<int> before = Widths();
  FollowTo(192);
  const std::vector<int> now = Widths();
  for (std::size_t c = 0; c < 4; ++c) EXPECT_EQ(now.at(c), 2 * before.at(c)) << c;
  EXPECT_EQ(host_->ListView().Style() & WS_HSCROLL, 0U);
  FollowTo(96);
  EXPECT_EQ(Widths(), before);
}

TEST_P(GridScaleTest, AnOpenEditorFollowsItsCellWithItsText) {
  os::DisplayOfTest().dpi = 96;
  Open();
  List().ClickItem(2, kName);
  Host::Pump();
  ASSERT_TRUE(host_->EditBox());
  ::SendMessageW(host_->EditBox().Handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"abc"));
  FollowTo(192);
  const Window box = host_->EditBox();
  ASSERT_TRUE(box) << "it stays open";
  EXPECT_EQ(box.Text(), "abc");
  const RECT cell = host_->ListView().CellRect(2, kName);
  const RECT place = box.ScreenRect();
  EXPECT_EQ(place.left - cell.left, 8 - 1) << "less the border of the list";
  EXPECT_GE(place.top, cell.top);
  EXPECT_LE(place.right, cell.right + 1);
  EXPECT_EQ(host_->Text(2, kName), "abc");
}

TEST_P(GridScaleTest, AnOpenListCloses) {
  os::DisplayOfTest().dpi = 96;
  Open();
  List().ClickItem(2, kMaterial);
  List().OpenComboBox();
  Host::Pump();
  ASSERT_TRUE(host_->ComboBox());
  FollowTo(144);
  EXPECT_FALSE(host_->ComboBox());
  List().OpenComboBox();
  Host::Pump();
  ASSERT_TRUE(host_->ComboBox());
  RECT list = {};
  host_->ComboBox().Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&list));
  EXPECT_NEAR(list.bottom - list.top, Scale(144).ToScreen(240), 40);
}

TEST_P(GridScaleTest, SwatchesKeepTheirShareOfACell) {
  os::DisplayOfTest().dpi = 96;
  Open();
  FollowTo(192);
  const Picture cell = SeeCell(0, kColour);
  const int middle = cell.Height() / 2;
  int green = 0;
  for (int x = 0; x < cell.Width(); ++x) green += cell.At(x, middle) == kGreen ? 1 : 0;
  EXPECT_GT(green, 60);
  EXPECT_LT(green, cell.Width() - 16);
}

// ---- high contrast. The system's colours are what they are; the cells' own are set so that the two differ.

TEST_P(GridScaleTest, WithHighContrastPlainCellsTakeTheSystemsColours) {
  os::DisplayOfTest().highContrast = true;
  const int elements[] = {COLOR_WINDOW, COLOR_WINDOWTEXT};
  const COLORREF former[] = {GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT)};
  const COLORREF black[] = {0x000000, 0x00FFFF};
  ASSERT_TRUE(SetSysColors(2, elements, black) != FALSE);
  Open();
  EXPECT_GT(SeeCell(1, kName).Count({0, 0, 60, 10}, 0x000000), 200);
  EXPECT_EQ(SeeCell(1, kName).Count({4, 0, 60, 10}, 0xFFFFFF), 0);
  EXPECT_GT(SeeCell(1, kColour).Count({4, 1, 50, 12}, 0xFFFFFF), 40) << "a ground of the caller's own stays";
  List().SetErrorFlag(1, kName, 1);
  List().DrawItem();
  const Picture error = SeeCell(1, kName);
  EXPECT_EQ(error.Count({0, 0, error.Width(), error.Height()}, 0x00FFFF), 0);
  EXPECT_GT(error.Count({0, 0, error.Width(), error.Height()}, 0x0000FF), 5) << "pure red can be read on black";
  SetSysColors(2, elements, former);
}

TEST_P(GridScaleTest, OtherColoursArePaintedAtOnce) {
  Open();
  EXPECT_EQ(SeeCell(1, kColour).Count({0, 0, 50, 12}, 0x000000), 0);
  os::DisplayOfTest().highContrast = true;
  ::SendMessageW(host_->Child(kList), WM_SYSCOLORCHANGE, 0, 0);
  EXPECT_GT(SeeCell(1, kColour).Count({0, 0, 50, 12}, 0x000000), 20) << "a frame around the swatch";
}

TEST_P(GridScaleTest, WithoutHighContrastTheCellsKeepTheirColours) {
  Open();
  const Picture cell = SeeCell(1, kName);
  EXPECT_EQ(cell.At(6, 1), 0xFFFFFFU);
}

}  // namespace
