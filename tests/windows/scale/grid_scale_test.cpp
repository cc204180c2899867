// The grid on screens of any scale, in a dialog that follows a change by itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/base/contrast.h"
#include "platform/framework/detail/scale_messages.h"
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

class GridScaleTest : public testing::TestWithParam<HostKind> {
 protected:
  void Open() {
    host_->Open([this](Host& host) {
      Enlarge(host, scale_test::ScaleOf(Window(host.Handle())));
      grid_test::FillTable(host);
    });
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
    Enlarge(*host_, Scale(dpi));
    ::SendMessageW(host_->Child(kList), framework::kDpiChangedAfterParent, 0, 0);
    Host::Pump();
  }
  void Enlarge(Host& host, Scale scale) {
    auto font = std::make_unique<UniqueFont>(MakeFont(scale));
    const HWND list = host.Child(kList);
    ::SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(font->Get()), FALSE);
    std::swap(font_, font);
    ::MoveWindow(host.Handle(), 0, 0, scale.ToScreen(420), scale.ToScreen(320), FALSE);
    ::MoveWindow(list, scale.ToScreen(10), scale.ToScreen(10), scale.ToScreen(322), scale.ToScreen(202), TRUE);
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

TEST_P(GridScaleTest, ScalesOneAfterTheOtherAddUpToNoShiftOfColumns) {
  os::DisplayOfTest().dpi = 96;
  Open();
  host_->ListView().Send(LVM_SETCOLUMNWIDTH, kName, 101);
  const std::vector<int> before = Widths();
  for (const int dpi : {144, 120, 168, 110, 250}) FollowTo(dpi);
  FollowTo(96);
  EXPECT_EQ(Widths(), before);
}

TEST_P(GridScaleTest, AListDropsDownOnTheMonitorOfItsCell) {
  Open();
  const auto drop = [this] {
    List().ClickItem(1, kName);
    List().ClickItem(2, kMaterial);
    List().OpenComboBox();
    Host::Pump();
    const RECT list = host_->ComboBox() ? scale_test::ListRect(host_->ComboBox()) : RECT{};
    List().CloseComboBox();
    Host::Pump();
    return list;
  };
  const RECT usual = drop();
  ASSERT_GT(usual.right, usual.left);
  scale_test::SetMonitorsBeside(usual.right - 15);
  RECT list = drop();
  EXPECT_EQ(list.right, usual.right - 15);
  EXPECT_EQ(list.top, usual.top);
  scale_test::SetMonitorsBelow(usual.bottom - 5);
  list = drop();
  EXPECT_LT(list.bottom, usual.top) << "above the cell";
  os::DisplayOfTest().monitors = {};
  list = drop();
  EXPECT_TRUE(EqualRect(&list, &usual) != FALSE);
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
  const int box = scale_test::HeightOf(host_->ComboBox().ScreenRect());
  EXPECT_NEAR(list.bottom - list.top, Scale(144).ToScreen(240), std::max(box, 40)) << "but for a row shown in part";
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
  const int margin = scale_test::ScaleOf(host_->ListView()).ToScreen(4);
  EXPECT_EQ(SeeCell(1, kName).Count({margin, 0, 60, 10}, 0xFFFFFF), 0);
  EXPECT_GT(SeeCell(1, kColour).Count({4, 1, 50, 12}, 0xFFFFFF), 40) << "a ground of the caller's own stays";
  List().SetErrorFlag(1, kName, 1);
  List().DrawItem();
  const Picture error = SeeCell(1, kName);
  EXPECT_EQ(error.Count({0, 0, error.Width(), error.Height()}, 0x00FFFF), 0);
  EXPECT_GT(error.Count({0, 0, error.Width(), error.Height()}, 0x0000FF), 5) << "pure red can be read on black";
  SetSysColors(2, elements, former);
}

/// Of all pixels the one that can be told best from the ground.
double BestContrast(const Picture& picture, COLORREF paper) {
  double best = 1;
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) best = std::max(best, contrast::Between(picture.At(x, y), paper));
  }
  return best;
}

TEST_P(GridScaleTest, WithHighContrastAnErrorCanBeReadOnAnyGround) {
  os::DisplayOfTest().highContrast = true;
  Open();
  int row = 1;
  for (const COLORREF paper : {0x000000UL, 0xFFFFFFUL, 0x0000FFUL, 0x808080UL, 0xC00000UL, 0x00FFFFUL}) {
    List().SetItemColor(row, kName, 0x123456, paper);
    List().SetErrorFlag(row, kName, 1);
    List().DrawItem();
    const Picture cell = SeeCell(row, kName);
    ASSERT_EQ(cell.At(cell.Width() - 8, 2), paper) << "the caller's ground";
    EXPECT_EQ(cell.Count({0, 0, cell.Width(), cell.Height()}, 0x123456), 0);
    EXPECT_GE(BestContrast(cell, paper), contrast::kReadable) << std::hex << paper;
    row = row % 6 + 1;
  }
}

TEST_P(GridScaleTest, WithHighContrastSelectionIsTheSystemsAndTheCallersColoursStay) {
  os::DisplayOfTest().highContrast = true;
  Open();
  List().SetItemColor(3, kName, 0x000080, 0x80FFFF);
  List().SetSelectFlag(4, 1);
  List().DrawItem();
  const Picture selected = SeeCell(4, kName);
  EXPECT_EQ(selected.At(selected.Width() - 8, 2), GetSysColor(COLOR_HIGHLIGHT));
  const Picture own = SeeCell(3, kName);
  EXPECT_EQ(own.At(own.Width() - 8, 2), 0x80FFFFU);
  EXPECT_GT(own.Count({0, 0, own.Width(), own.Height()}, 0x000080), 5);
}

TEST_P(GridScaleTest, WithHighContrastASwatchHasAFrameInTheColourOfTexts) {
  os::DisplayOfTest().highContrast = true;
  Open();
  const Picture cell = SeeCell(1, kColour);
  const int middle = cell.Height() / 2;
  int x = 0;
  while (x < cell.Width() && cell.At(x, middle) != GetSysColor(COLOR_WINDOWTEXT)) ++x;
  ASSERT_LT(x, cell.Width() / 2);
  const int line = scale_test::ScaleOf(host_->ListView()).ToScreen(1);
  EXPECT_EQ(cell.At(x + line - 1, middle), GetSysColor(COLOR_WINDOWTEXT)) << "a line as thick as the scale asks for";
  EXPECT_EQ(cell.At(x + line, middle), kGreen);
}

TEST_P(GridScaleTest, OtherColoursArePaintedAtOnce) {
  for (const UINT message : {UINT{WM_SYSCOLORCHANGE}, UINT{WM_THEMECHANGED}, UINT{WM_SETTINGCHANGE}}) {
    SCOPED_TRACE(message);
    os::DisplayOfTest().highContrast = false;
    host_ = Host::Make(GetParam());
    Open();
    EXPECT_EQ(SeeCell(1, kColour).Count({0, 0, 50, 12}, 0x000000), 0);
    os::DisplayOfTest().highContrast = true;
    ::SendMessageW(host_->Child(kList), message, 0, 0);
    EXPECT_GT(SeeCell(1, kColour).Count({0, 0, 50, 12}, 0x000000), 20) << "a frame around the swatch";
  }
}

TEST_P(GridScaleTest, TheGroundBesideTheCellsTakesOtherColoursToo) {
  Open();
  const auto ground = [this] {
    Host::Pump();
    const RECT last = host_->ListView().CellRect(1, kColour);
    return driver::Capture({last.right + 3, last.top, last.right + 5, last.bottom}).At(0, 2);
  };
  EXPECT_EQ(ground(), GetSysColor(COLOR_WINDOW));
  const int element = COLOR_WINDOW;
  const COLORREF former = GetSysColor(COLOR_WINDOW);
  const COLORREF black = 0x000000;
  ASSERT_TRUE(SetSysColors(1, &element, &black) != FALSE);
  ::SendMessageW(host_->Child(kList), WM_SYSCOLORCHANGE, 0, 0);
  EXPECT_EQ(ground(), black);
  SetSysColors(1, &element, &former);
  ::SendMessageW(host_->Child(kList), WM_SYSCOLORCHANGE, 0, 0);
  EXPECT_EQ(ground(), former);
  ::SendMessageW(host_->Child(kList), LVM_SETBKCOLOR, 0, 0x00C0E0);
  ASSERT_TRUE(SetSysColors(1, &element, &black) != FALSE);
  ::SendMessageW(host_->Child(kList), WM_SYSCOLORCHANGE, 0, 0);
  EXPECT_EQ(ground(), 0x00C0E0U) << "the caller's stays";
  SetSysColors(1, &element, &former);
  ::SendMessageW(host_->Child(kList), WM_SYSCOLORCHANGE, 0, 0);  // the controls remember colours for each other
}

TEST_P(GridScaleTest, WithoutHighContrastTheCellsKeepTheirColours) {
  Open();
  const Picture cell = SeeCell(1, kName);
  EXPECT_EQ(cell.At(6, 1), 0xFFFFFFU);
}

}  // namespace
