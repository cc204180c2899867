// The grid's pixels, what a repaint costs, and that nothing is left behind. Cells are compared with what the system's
// own calls draw into a picture in memory.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>

#include "platform/os/sjis_wide.h"
#include "tests/windows/driver/picture.h"
#include "tests/windows/grid/grid_host.h"

namespace {

using driver::Picture;
using driver::Window;
using grid_test::Host;
using grid_test::HostKind;
using grid_test::kList;

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kGrey = RGB(192, 192, 192);
constexpr COLORREF kSelected = RGB(0, 0, 192);
constexpr COLORREF kError = RGB(255, 0, 0);
constexpr COLORREF kFace = RGB(195, 211, 253);

constexpr int kRows = 20;
constexpr int kUsedRows = 15;
constexpr int kText = 0;
constexpr int kSwatch = 1;
constexpr int kBlank = 2;
constexpr int kCentered = 3;
constexpr int kChoice = 4;

/// A picture drawn in memory with the font of `host`.
Picture Drawn(Host& host, int width, int height, const std::function<void(HDC)>& draw) {
  const HDC dc = ::CreateCompatibleDC(nullptr);
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HBITMAP bitmap = ::CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ formerBitmap = ::SelectObject(dc, bitmap);
  const HGDIOBJ formerFont =
      ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(::SendMessageA(host.Handle(), WM_GETFONT, 0, 0)));
  draw(dc);
  Picture picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) picture.Set(x, y, ::GetPixel(dc, x, y));
  }
  ::SelectObject(dc, formerFont);
  ::SelectObject(dc, formerBitmap);
  ::DeleteObject(bitmap);
  ::DeleteDC(dc);
  return picture;
}

void Fill(HDC dc, const RECT& rect, COLORREF colour) {
  const HBRUSH brush = ::CreateSolidBrush(colour);
  ::FillRect(dc, &rect, brush);
  ::DeleteObject(brush);
}

/// GDI objects of this process.
int CountGdiObjects() {
  int count = 0;
  for (UINT_PTR handle = 1; handle < 0x10000; ++handle)
    count += ::GetObjectType(reinterpret_cast<HGDIOBJ>(handle)) != 0;
  return count;
}

class GridDrawingTest : public testing::Test {
 protected:
  void SetUp() override {
    host_->Open([this](Host& host) {
      List().InitList(host.Window(), kList, 5, kUsedRows, kRows, -1);
      List().SetColumn(kText, "文字", 3.0);
      List().SetColumn(kSwatch, "色", 2.0, 1);
      List().SetColumn(kBlank, "空", 1.0, 7);
      List().SetColumn(kCentered, "中央", 2.0, LVCFMT_CENTER, DT_CENTER | DT_VCENTER | DT_SINGLELINE, 0);
      List().SetColumn(kChoice, "選択", 2.0);
      CStringList entries;
      entries.AddTail("1");
      List().SetCombo(kChoice, kChoice, &entries, "");
      for (int row = 0; row < kUsedRows; ++row) {
        for (int c = 0; c < 5; ++c) List().SetItemText(row, c, "表A");
      }
    });
    Host::Pump();
  }

  [[nodiscard]] CvListControl& List() { return *host_->list; }
  /// The part of a cell that is painted, in screen coordinates.
  [[nodiscard]] RECT CellOnScreen(int row, int col) {
    RECT cell = host_->ListView().ItemRect(row, LVIR_BOUNDS);
    for (int c = 0; c < col; ++c) cell.left += host_->ListView().ColumnAt(c).width;
    cell.right = cell.left + host_->ListView().ColumnAt(col).width - 2;
    cell.left += 2;
    --cell.bottom;
    return cell;
  }
  [[nodiscard]] Picture See(int row, int col) {
    Host::Pump();
    ::GdiFlush();
    return driver::Capture(CellOnScreen(row, col));
  }
  [[nodiscard]] Picture Written(const std::string& text, COLORREF ink, COLORREF paper, int col, UINT flags = 0) {
    const RECT cell = CellOnScreen(0, col);
    const RECT all = {0, 0, cell.right - cell.left, cell.bottom - cell.top};
    return Drawn(*host_, all.right, all.bottom, [&](HDC dc) {
      Fill(dc, all, paper);
      ::SetBkMode(dc, TRANSPARENT);
      ::SetTextColor(dc, ink);
      RECT place = all;
      ::DrawTextW(dc, os::WideOf(text).c_str(), -1, &place, flags | DT_NOPREFIX | DT_END_ELLIPSIS);
    });
  }
  void ExpectText(int row, int col, COLORREF ink, COLORREF paper, const std::string& text = "表A", UINT flags = 0) {
    EXPECT_EQ(See(row, col), Written(text, ink, paper, col, flags)) << "row " << row << ", column " << col;
  }

  std::unique_ptr<Host> host_ = Host::Make(HostKind::Framework);
};

TEST_F(GridDrawingTest, TextsArePaintedAsDrawTextDoes) {
  constexpr UINT kMiddle = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
  for (const char* text : {"", " ", "A&B", "&", "表示ソ能ｱｲｳ", "長い長い長い長い長い文字列", "a\tb", "a\r\nb", "\x01",
                           "iiiiiiiiiiiiiiiiiiiiiiiiiiii", "1234567890123 ", "x\x95"}) {
    List().SetItemText(0, kText, text);
    List().SetItemText(0, kCentered, text);
    List().DrawItem();
    std::array<char, 386> stored = {};
    List().GetItemText(0, kText, stored.data());
    ExpectText(0, kText, kBlack, kWhite, stored.data());
    ExpectText(0, kCentered, kBlack, kWhite, stored.data(), kMiddle);
  }
}

TEST_F(GridDrawingTest, TextsOfEveryLengthArePaintedAsDrawTextDoes) {
  std::string text;
  for (int length = 0; length < 24; ++length) {
    text += length % 3 == 0 ? "漢" : "i";
    List().SetItemText(0, kText, text.c_str());
    List().DrawItem();
    ExpectText(0, kText, kBlack, kWhite, text);
  }
}

/// Wide as the text is in the font of the host.
int WidthOf(Host& host, const std::string& text) {
  SIZE size = {};
  Drawn(host, 1, 1, [&](HDC dc) { ::GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &size); });
  return size.cx;
}

TEST_F(GridDrawingTest, TextsThatJustFitAndThatJustDoNot) {
  for (const char* text : {"SS400", "表示ソ能", "ｱｲｳﾞｶﾟ", "a b  c", " &AB&", "漢ｱa漢ｱa", "W i ＡＢ"}) {
    List().SetItemText(0, kText, text);
    const int width = WidthOf(*host_, text);
    ASSERT_GT(width, 0);
    for (const int spare : {-1, 0, 1}) {
      host_->ListView().Send(LVM_SETCOLUMNWIDTH, kText, width + 4 + spare);
      Host::Pump();
      List().DrawItem();
      SCOPED_TRACE(std::string(text) + ", " + std::to_string(spare) + " pixels left");
      ExpectText(0, kText, kBlack, kWhite, text);
    }
  }
}

// Smoothed, proportional, slanting over their cells' edges, and taller than their rows.
TEST_F(GridDrawingTest, TextsInOtherFontsArePaintedAsDrawTextDoes) {
  auto* const own = reinterpret_cast<HFONT>(::SendMessageA(host_->Handle(), WM_GETFONT, 0, 0));
  for (const auto& [face, height, italic] :
       {std::tuple("ＭＳ Ｐゴシック", -13, 0U), std::tuple("ＭＳ Ｐ明朝", -20, 0U), std::tuple("ＭＳ 明朝", -15, 1U)}) {
    const UniqueFont font(::CreateFontA(height, 0, 0, 0, FW_BOLD, italic, FALSE, FALSE, SHIFTJIS_CHARSET,
                                        OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH,
                                        face));
    ::SendMessageA(host_->Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
    for (const char* text : {"fjQ表示", "AVAToWa.", "ﾌﾗﾝｼﾞ", "漢字 f", "長い長い長い長い長い文字列"}) {
      List().SetItemText(0, kText, text);
      List().DrawItem();
      SCOPED_TRACE(std::string(face) + ": " + text);
      ExpectText(0, kText, kBlack, kWhite, text);
    }
  }
  ::SendMessageA(host_->Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(own), FALSE);
}

TEST_F(GridDrawingTest, ColoursFollowTheState) {
  ExpectText(0, kText, kBlack, kWhite);
  List().SetItemColor(1, kText, RGB(0, 128, 0), RGB(255, 255, 192));
  List().SetErrorFlag(2, kText, 1);
  List().SetSelectFlag(3, 1);
  List().SetSelectFlag(4, 1);
  List().SetErrorFlag(4, kText, 1);
  List().SetAvailableFlag(5, 1);
  List().SetAvailableFlag(6, 1);
  List().SetAvailableFlag(6, kCentered, 0);
  List().SetAvailableFlag(7, kCentered, 1);
  List().SetSelectFlag(7, 1);
  List().SetItemColor(7, kCentered, RGB(1, 2, 3), RGB(250, 240, 230));
  List().SetAvailableFlag(8, 1);
  List().SetErrorFlag(8, kText, 1);
  List().SetAvailableFlag(9, 1);
  List().SetSelectFlag(9, 1);
  List().DrawItem();
  constexpr UINT kMiddle = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
  ExpectText(1, kText, RGB(0, 128, 0), RGB(255, 255, 192));
  ExpectText(2, kText, kError, kWhite);
  ExpectText(3, kText, kWhite, kSelected);
  ExpectText(3, kCentered, kWhite, kSelected, "表A", kMiddle);
  ExpectText(4, kText, kError, kSelected);
  ExpectText(5, kText, kBlack, kGrey);
  ExpectText(6, kText, kBlack, kGrey);
  ExpectText(6, kCentered, kBlack, kWhite, "表A", kMiddle);
  ExpectText(7, kText, kWhite, kSelected);
  ExpectText(7, kCentered, RGB(1, 2, 3), RGB(250, 240, 230), "表A", kMiddle);
  ExpectText(8, kText, kError, kGrey);
  ExpectText(9, kText, kBlack, kGrey);
}

TEST_F(GridDrawingTest, RowsThatAreNotInUseAreGrey) {
  host_->ListView().Send(LVM_SCROLL, 0, 1000);
  Host::Pump();
  ExpectText(kUsedRows - 1, kText, kBlack, kWhite);
  ExpectText(kUsedRows, kText, kBlack, kGrey, "");
  ExpectText(kRows - 1, kText, kBlack, kGrey, "");
}

TEST_F(GridDrawingTest, RowsThatHaveGoneOutOfUseAreDrawnAsTheyStand) {
  List().SetSelectFlag(4, 1);
  List().SetItemCount(3);
  List().DrawItem();
  ExpectText(3, kText, kBlack, kWhite);
  ExpectText(4, kText, kWhite, kSelected);
}

TEST_F(GridDrawingTest, ASwatchLiesInsideItsCell) {
  List().SetItemColor(0, kSwatch, RGB(10, 20, 30), RGB(200, 210, 220));
  List().SetItemColor(1, kSwatch, RGB(10, 20, 30), RGB(200, 210, 220));
  List().SetSelectFlag(1, 1);
  List().DrawItem();
  for (const int row : {0, 1}) {
    const RECT cell = CellOnScreen(row, kSwatch);
    const RECT all = {0, 0, cell.right - cell.left, cell.bottom - cell.top};
    const int inset = all.bottom / 4;
    ASSERT_GT(inset, 0);
    EXPECT_EQ(See(row, kSwatch), Drawn(*host_, all.right, all.bottom, [&](HDC dc) {
                Fill(dc, all, row == 1 ? kSelected : RGB(200, 210, 220));
                Fill(dc, {2 * inset, inset, all.right - 2 * inset, all.bottom - inset}, RGB(10, 20, 30));
              }));
  }
}

TEST_F(GridDrawingTest, AColumnOfAnotherKindShowsItsBackground) {
  List().SetItemColor(0, kBlank, kBlack, RGB(9, 99, 199));
  List().DrawItem();
  const Picture seen = See(0, kBlank);
  EXPECT_EQ(seen.Count({0, 0, seen.Width(), seen.Height()}, RGB(9, 99, 199)), seen.Width() * seen.Height());
}

TEST_F(GridDrawingTest, TheEditedCellOfAColumnWithAListShowsAButton) {
  List().ClickItem(2, kChoice);
  const RECT cell = CellOnScreen(2, kChoice);
  const RECT all = {0, 0, cell.right - cell.left, cell.bottom - cell.top};
  EXPECT_EQ(See(2, kChoice), Drawn(*host_, all.right, all.bottom, [&](HDC dc) {
              const int bar = ::GetSystemMetrics(SM_CXVSCROLL);
              const int edge = all.right - bar - 1;
              const RECT button = {edge, 0, edge + bar, all.bottom - 1};
              Fill(dc, all, kWhite);
              Fill(dc, button, kFace);
              const auto line = [dc](std::vector<POINT> points) {
                ::Polyline(dc, points.data(), static_cast<int>(points.size()));
              };
              const auto [left, top, right, bottom] = button;
              line({{left, bottom}, {right, bottom}, {right, top}});
              line({{left + 1, bottom - 1}, {right - 1, bottom - 1}, {right - 1, top - 1}});
              const int x = (left + right) / 2;
              const int y = (top + bottom) / 2;
              line({{x - 5, y - 2},
                    {x - 1, y + 3},
                    {x + 3, y - 2},
                    {x + 1, y - 2},
                    {x - 1, y + 2},
                    {x - 3, y - 2},
                    {x - 5, y - 2}});
              Fill(dc, {0, 0, edge, all.bottom}, kSelected);
              ::SetBkMode(dc, TRANSPARENT);
              ::SetTextColor(dc, kWhite);
              RECT place = {0, 0, edge, all.bottom};
              ::DrawTextW(dc, os::WideOf("表A").c_str(), -1, &place, DT_NOPREFIX | DT_END_ELLIPSIS);
            }));
  ExpectText(3, kChoice, kBlack, kWhite);
  ExpectText(1, kChoice, kBlack, kWhite);
  List().ClickItem(3, kChoice);
  ExpectText(2, kChoice, kBlack, kWhite);
  List().ClickItem(3, kText);
  ExpectText(3, kChoice, kWhite, kSelected);
}

TEST_F(GridDrawingTest, OneDrawItemPaintsOneRow) {
  Host::Pump();
  List().SetItemText(0, kText, "new");
  List().SetItemText(1, kText, "new");
  DRAWITEMSTRUCT item = {};
  item.itemID = 1;
  List().OnDrawItem(&item);
  ExpectText(0, kText, kBlack, kWhite);
  ExpectText(1, kText, kBlack, kWhite, "new");
  List().OnDrawItem(nullptr);
}

TEST_F(GridDrawingTest, TextsChangeOnTheScreenWithTheNextRepaintOnly) {
  List().SetItemText(0, kText, "後で");
  ExpectText(0, kText, kBlack, kWhite);
  List().DrawItem();
  ExpectText(0, kText, kBlack, kWhite, "後で");
}

TEST_F(GridDrawingTest, CellsMoveWithTheColumns) {
  host_->ListView().Send(LVM_SETCOLUMNWIDTH, kText, 200);
  Host::Pump();
  ExpectText(2, kText, kBlack, kWhite);
  host_->ListView().Send(LVM_SCROLL, 60, 0);
  Host::Pump();
  ExpectText(2, kCentered, kBlack, kWhite, "表A", DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

/// Counts what a list view is asked to do.
struct Counts {
  int erased = 0;
  int painted = 0;
};

LRESULT CALLBACK Count(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR counts) {
  if (message == WM_ERASEBKGND) ++reinterpret_cast<Counts*>(counts)->erased;
  if (message == WM_PAINT) ++reinterpret_cast<Counts*>(counts)->painted;
  return ::DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(GridDrawingTest, ARepaintErasesOnceAndPaintsEachRowOnce) {
  Host::Pump();
  Counts counts;
  ::SetWindowSubclass(host_->Child(kList), &Count, 1, reinterpret_cast<DWORD_PTR>(&counts));
  const auto during = [&](const std::function<void()>& action) {
    counts = {};
    host_->drawn = 0;
    action();
    Host::Pump();
  };
  const int visible = static_cast<int>(host_->ListView().Send(LVM_GETCOUNTPERPAGE)) + 1;
  during([&] { ::InvalidateRect(host_->Child(kList), nullptr, TRUE); });
  EXPECT_EQ(counts.painted, 1);
  EXPECT_LE(counts.erased, 1);
  EXPECT_LE(host_->drawn, visible);
  EXPECT_GE(host_->drawn, visible - 1);
  during([&] { List().DrawItem(); });
  EXPECT_EQ(counts.painted, 0) << "painted at once";
  EXPECT_EQ(counts.erased, 0);
  during([&] { List().ClickItem(3, kChoice); });
  EXPECT_EQ(counts.erased, 0);
  EXPECT_EQ(host_->drawn, 0);
  ::RemoveWindowSubclass(host_->Child(kList), &Count, 1);
}

TEST_F(GridDrawingTest, OneFontAndOneDeviceContextServeAllRowsOfARepaint) {
  using framework::HandleKind;
  Host::Pump();
  const int fonts = framework::LiveHandles(HandleKind::Font);
  const int contexts = framework::LiveHandles(HandleKind::WindowDc);
  int rows = 0;
  host_->onDraw = [&](DRAWITEMSTRUCT* item) {
    ++rows;
    List().OnDrawItem(item);
    EXPECT_EQ(framework::LiveHandles(HandleKind::Font), fonts + 1) << "row " << rows;
    EXPECT_EQ(framework::LiveHandles(HandleKind::WindowDc), contexts + 1) << "row " << rows;
  };
  ::InvalidateRect(host_->Child(kList), nullptr, TRUE);
  Host::Pump();
  EXPECT_GT(rows, 2);
  EXPECT_EQ(framework::LiveHandles(HandleKind::Font), fonts);
  EXPECT_EQ(framework::LiveHandles(HandleKind::WindowDc), contexts);
  host_->onDraw = nullptr;
}

TEST_F(GridDrawingTest, AGridMayEndInTheMiddleOfARepaint) {
  Host::Pump();
  int rows = 0;
  host_->onDraw = [&](DRAWITEMSTRUCT* item) {
    List().OnDrawItem(item);
    if (++rows == 3) host_->list.reset();
  };
  ::InvalidateRect(host_->Child(kList), nullptr, TRUE);
  Host::Pump();
  EXPECT_EQ(rows, 3);
  EXPECT_EQ(framework::LiveHandles(framework::HandleKind::Font), 0);
  EXPECT_EQ(framework::LiveHandles(framework::HandleKind::WindowDc), 0);
}

TEST_F(GridDrawingTest, PaintingLeavesTheEditBoxAlone) {
  List().SetEdit(kText, 0, 20, "");
  List().ClickItem(2, kText);
  Host::Pump();
  const Window box = host_->EditBox();
  ASSERT_TRUE(box);
  ::SetFocus(host_->Child(kList));  // no caret
  Host::Pump();
  ::GdiFlush();
  const Picture before = driver::Capture(box.ClientScreenRect());
  EXPECT_GT(before.Count({0, 0, before.Width(), before.Height()}, kBlack), 0);
  List().DrawItem();
  ::GdiFlush();
  EXPECT_EQ(driver::Capture(box.ClientScreenRect()), before);
}

TEST_F(GridDrawingTest, NothingIsLeftBehind) {
  const auto work = [this](int rounds) {
    for (int i = 0; i < rounds; ++i) {
      List().DrawItem();
      List().ClickItem(i % kUsedRows, i % 5);
      DRAWITEMSTRUCT item = {};
      item.itemID = static_cast<UINT>(i % kUsedRows);
      List().OnDrawItem(&item);
    }
    Host::Pump();
  };
  work(20);
  const int objects = CountGdiObjects();
  const int handles = framework::LiveHandles();
  work(200);
  EXPECT_EQ(CountGdiObjects(), objects);
  EXPECT_EQ(framework::LiveHandles(), handles);
}

}  // namespace
