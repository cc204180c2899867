// How fast the grid is: a repaint against the stock list view that shows the same texts in the same kind of window, a
// row inserted at the top of a long table against moving its texts one by one, a large table's start against filling a
// stock list view, and its end against its start.
#include <dlglib/dlglib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "bench/measure.h"

namespace {

constexpr int kListId = 1000;
constexpr int kColumns = 20;
constexpr int kPageRows = 40;
constexpr int kColumnPx = 60;
constexpr int kTextRows = 200;
constexpr int kRounds = 31;
constexpr int kLongTable = 10000;
constexpr int kHugeTable = 100000;

HFONT TheFont() {
  static const HFONT font =
      ::CreateFontA(-12, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, SHIFTJIS_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, "ＭＳ ゴシック");
  return font;
}

std::string TextOf(int row, int col) {
  static constexpr std::array<const char*, 4> kTexts = {"ポンプ", "SS400", "150.25", "ﾌﾗﾝｼﾞ"};
  return kTexts[static_cast<std::size_t>(row + col) % kTexts.size()];
}

/// A window with a list view, which forwards the drawing of a grid when it has one.
class Window {
 public:
  explicit Window(CvListControl* grid) : grid_(grid) {
    WNDCLASSA wanted = {};
    wanted.lpfnWndProc = &Receive;
    wanted.hInstance = ::GetModuleHandleA(nullptr);
    wanted.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
    wanted.lpszClassName = "GridBench";
    ::RegisterClassA(&wanted);
    handle_ = ::CreateWindowExA(0, "GridBench", "", WS_POPUP | WS_VISIBLE, 0, 0, kColumns * kColumnPx + 40, 900,
                                nullptr, nullptr, wanted.hInstance, nullptr);
    ::SetWindowLongPtrA(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ::CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, kColumns * kColumnPx + 20, 800,
                      handle_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kListId)), wanted.hInstance, nullptr);
    List().Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheFont()));
  }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  ~Window() { ::DestroyWindow(handle_); }

  [[nodiscard]] CWnd* Wnd() const { return CWnd::FromHandle(handle_); }
  [[nodiscard]] ListCtrlRef List() const { return ListCtrlRef(::GetDlgItem(handle_, kListId)); }

  /// Makes the list view tall enough for a page of 40 rows.
  void FitPage() const {
    RECT item = {};
    RECT header = {};
    List().GetItemRect(0, &item, LVIR_BOUNDS);
    List().GetHeaderCtrl().GetWindowRect(&header);
    const int height = (item.bottom - item.top) * kPageRows + (header.bottom - header.top);
    List().SetWindowPos(nullptr, 0, 0, kColumns * kColumnPx + 20, height, SWP_NOMOVE | SWP_NOZORDER);
    ::UpdateWindow(handle_);
  }
  /// Erases and paints everything; with its header or without.
  void Repaint(bool withHeader) const {
    const UINT children = withHeader ? RDW_ALLCHILDREN : RDW_NOCHILDREN;
    ::RedrawWindow(List().m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | children);
    ::GdiFlush();
  }

 private:
  static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETFONT) return reinterpret_cast<LRESULT>(TheFont());
    const auto* const self = reinterpret_cast<const Window*>(::GetWindowLongPtrA(window, GWLP_USERDATA));
    if (message == WM_DRAWITEM && self != nullptr && self->grid_ != nullptr) {
      self->grid_->OnDrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    }
    return ::DefWindowProcA(window, message, wParam, lParam);
  }

  CvListControl* grid_;
  HWND handle_ = nullptr;
};

/// The least that painting the page can cost: a bare window that writes each text into its filled cell, and nothing
/// else.
class BareWindow {
 public:
  explicit BareWindow(const ListCtrlRef& like) {
    RECT place = {};
    like.GetClientRect(&place);
    RECT item = {};
    like.GetItemRect(0, &item, LVIR_BOUNDS);
    rowPx_ = item.bottom - item.top;
    for (int row = 0; row < kPageRows; ++row) {
      for (int c = 0; c < kColumns; ++c) texts_.push_back(TextOf(row, c));
    }
    WNDCLASSA wanted = {};
    wanted.lpfnWndProc = &Receive;
    wanted.hInstance = ::GetModuleHandleA(nullptr);
    wanted.hbrBackground = ::GetSysColorBrush(COLOR_WINDOW);
    wanted.lpszClassName = "GridBenchBare";
    ::RegisterClassA(&wanted);
    handle_ = ::CreateWindowExA(0, "GridBenchBare", "", WS_CHILD | WS_VISIBLE, 0, 0, place.right, place.bottom,
                                parent_.Wnd()->m_hWnd, nullptr, wanted.hInstance, nullptr);
    ::SetWindowLongPtrA(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }

  void Repaint() const {
    ::RedrawWindow(handle_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    ::GdiFlush();
  }

 private:
  static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* const self = reinterpret_cast<const BareWindow*>(::GetWindowLongPtrA(window, GWLP_USERDATA));
    if (message != WM_PAINT || self == nullptr) return ::DefWindowProcA(window, message, wParam, lParam);
    PAINTSTRUCT paint = {};
    const HDC dc = ::BeginPaint(window, &paint);
    self->Paint(dc);
    ::EndPaint(window, &paint);
    return 0;
  }
  void Paint(HDC dc) const {
    const HGDIOBJ former = ::SelectObject(dc, TheFont());
    auto text = texts_.begin();
    for (int row = 0; row < kPageRows; ++row) {
      for (int c = 0; c < kColumns; ++c, ++text) {
        const RECT cell = {c * kColumnPx + 2, row * rowPx_, (c + 1) * kColumnPx - 2, (row + 1) * rowPx_ - 1};
        ::ExtTextOutA(dc, cell.left, cell.top, ETO_OPAQUE | ETO_CLIPPED, &cell, text->c_str(),
                      static_cast<UINT>(text->size()), nullptr);
      }
    }
    ::SelectObject(dc, former);
  }

  Window parent_{nullptr};
  std::vector<std::string> texts_;
  int rowPx_ = 0;
  HWND handle_ = nullptr;
};

void AddStockColumns(const ListCtrlRef& list) {
  for (int c = 0; c < kColumns; ++c) list.InsertColumn(c, "列", LVCFMT_LEFT, kColumnPx);
}

void AddGridColumns(CvListControl& grid, const ListCtrlRef& list) {
  for (int c = 0; c < kColumns; ++c) {
    grid.SetColumn(c, "列", 0.5);
    list.SetColumnWidth(c, kColumnPx);
  }
}

void MeasureRepaint() {
  const Window stock(nullptr);
  AddStockColumns(stock.List());
  CvListControl grid;
  const Window window(&grid);
  grid.InitList(window.Wnd(), kListId, kColumns, kTextRows, kTextRows, -1);
  AddGridColumns(grid, window.List());
  for (int row = 0; row < kTextRows; ++row) {
    stock.List().InsertItem(row, TextOf(row, 0).c_str());
    for (int c = 0; c < kColumns; ++c) {
      stock.List().SetItemText(row, c, TextOf(row, c).c_str());
      grid.SetItemText(row, c, TextOf(row, c).c_str());
    }
  }
  stock.FitPage();
  window.FitPage();
  const BareWindow bare(window.List());
  const auto drawBare = [&] { bare.Repaint(); };
  const auto drawItems = [&] {
    grid.DrawItem();
    ::GdiFlush();
  };
  const auto drawStock = [&] { stock.Repaint(false); };
  bench::Compare({"grid: repaint its list", "stock list view", {}, {}, 0.7, "bare window"}, kRounds,
                 {[&] { window.Repaint(false); }, drawStock, drawBare});
  bench::Compare({"grid: repaint with its header", "stock list view", {}, {}}, kRounds,
                 {[&] { window.Repaint(true); }, [&] { stock.Repaint(true); }});
  bench::Compare({"grid: DrawItem()", "stock list view", {}, {}}, kRounds, {drawItems, drawStock});
}

/// The plain way: each cell is copied on its own, its text into a slot of the same size.
class SlotTable {
 public:
  SlotTable()
      : texts_(static_cast<std::size_t>(kColumns) * (kLongTable + 1) * kSlot, '\0'),
        looks_(static_cast<std::size_t>(kColumns) * (kLongTable + 1)) {
    for (int row = 0; row < kLongTable; ++row) {
      for (int c = 0; c < kColumns; ++c) TextOf(row, c).copy(At(row, c), kSlot - 1);
    }
  }
  void InsertFirst() {
    for (int row = kLongTable; row > 0; --row) {
      for (int c = 0; c < kColumns; ++c) {
        std::memcpy(At(row, c), At(row - 1, c), std::strlen(At(row - 1, c)) + 1);
        looks_[Index(row, c)] = looks_[Index(row - 1, c)];
      }
    }
  }

 private:
  static constexpr std::size_t kSlot = 33;

  /// Two flags, two colours.
  using Looks = std::array<unsigned int, 4>;

  static std::size_t Index(int row, int col) {
    return static_cast<std::size_t>(col) * (kLongTable + 1) + static_cast<std::size_t>(row);
  }
  char* At(int row, int col) { return texts_.data() + Index(row, col) * kSlot; }

  std::vector<char> texts_;
  std::vector<Looks> looks_;
};

void MeasureInsertion() {
  CvListControl grid;
  const Window window(&grid);
  std::array<int, kColumns> limits;
  limits.fill(32);
  grid.InitList(window.Wnd(), kListId, kColumns, limits.data(), kLongTable, kLongTable + 1, -1);
  AddGridColumns(grid, window.List());
  for (int row = 0; row < kLongTable; ++row) {
    for (int c = 0; c < kColumns; ++c) grid.SetItemText(row, c, TextOf(row, c).c_str());
  }
  SlotTable plain;
  // On the screen both would paint the page; that is measured above.
  ::ShowWindow(window.List().m_hWnd, SW_HIDE);
  const auto insert = [&] {
    grid.SetItemCount(kLongTable);
    grid.ClearSelectFlag();
    grid.SetSelectFlag(0, 1);
    grid.InsertItem();
  };
  bench::Compare({"grid: InsertItem before 10000 x 20", "copying cell by cell", {}, {}}, kRounds,
                 {insert, [&] { plain.InsertFirst(); }});
}

void FillStock(const ListCtrlRef& list) {
  list.SetRedraw(FALSE);
  list.SetItemCount(kHugeTable);
  for (int row = 0; row < kHugeTable; ++row) list.InsertItem(row, "");
  list.SetRedraw(TRUE);
}

void MeasureStart() {
  constexpr int kStartRounds = 3;
  bench::Row row{"grid: InitList of 100000 x 20", "filling a stock list", {}, {}};
  // An InitList fills a list view as the stock list is filled; emptying that is the least that a TermList takes.
  bench::Row end{"grid: TermList of 100000 x 20", "InitList of the same", {}, {}, 2, "emptying a stock list"};
  for (int round = 0; round < kStartRounds; ++round) {
    const Window stock(nullptr);
    AddStockColumns(stock.List());
    row.theirs.push_back(bench::TimeOf([&] { FillStock(stock.List()); }));
    end.least.push_back(bench::TimeOf([&] { stock.List().DeleteAllItems(); }));
    CvListControl grid;
    const Window window(&grid);
    row.ours.push_back(
        bench::TimeOf([&] { grid.InitList(window.Wnd(), kListId, kColumns, kHugeTable, kHugeTable, -1); }));
    end.theirs.push_back(row.ours.back());
    end.ours.push_back(bench::TimeOf([&] { grid.TermList(); }));
  }
  bench::Print(row);
  bench::Print(end);
}

}  // namespace

int main() {
  MeasureRepaint();
  MeasureInsertion();
  MeasureStart();
  return 0;
}
