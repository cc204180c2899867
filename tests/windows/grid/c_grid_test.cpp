// The grid, the message zone and the recent lists by their C functions, in a dialog that knows nothing of the library.
#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "dlglib/dlglib_c.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/grid/grid_host.h"

namespace grid_test {
namespace {

const char* const kHyouUtf8 = "\xE8\xA1\xA8";  // 表

using Give = std::function<DlglibResult(std::int32_t, char*, std::int32_t*)>;

std::string TextOf(const Give& give) {
  std::array<char, 600> room = {};
  const DlglibResult result = give(static_cast<std::int32_t>(room.size()), room.data(), nullptr);
  return result == DLGLIB_OK ? room.data() : "(" + std::to_string(result) + ")";
}

/// A plain dialog whose messages all go through DlglibGridMessage.
class CHost {
 public:
  CHost() {
    window_ = ::CreateWindowExW(0, L"#32770", L"grid in C", WS_POPUP | WS_CAPTION | WS_VISIBLE, 20, 20, 380, 320,
                                nullptr, nullptr, nullptr, nullptr);
    ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ::SetWindowLongPtrW(window_, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(Procedure));
    Add(WC_LISTVIEWW, WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS, kList, {10, 10, 322, 202});
    Add(L"STATIC", SS_NOPREFIX, kZone, {10, 230, 320, 16});
    Add(L"COMBOBOX", CBS_DROPDOWNLIST, kDialogCombo, {10, 250, 200, 100});
    EXPECT_EQ(DlglibGridCreate(&grid), DLGLIB_OK);
  }
  ~CHost() {
    DlglibGridDestroy(grid);
    Close();
  }
  CHost(const CHost&) = delete;
  CHost& operator=(const CHost&) = delete;

  void Close() {
    if (window_ != nullptr) ::DestroyWindow(window_);
    window_ = nullptr;
  }
  [[nodiscard]] HWND Window() const { return window_; }
  [[nodiscard]] HWND Child(int id) const { return ::GetDlgItem(window_, id); }
  [[nodiscard]] DlglibResult Attach() { return DlglibGridAttach(grid, window_, kList, 3, nullptr, 5, 10, 0); }
  /// Three columns: numbers, texts with an edit box and a list, colours.
  void Fill() {
    ASSERT_EQ(Attach(), DLGLIB_OK);
    EXPECT_EQ(DlglibGridSetColumnSjis(grid, 0, "No", 1.0, 0, 0, DLGLIB_COLUMN_TEXT), DLGLIB_OK);
    EXPECT_EQ(DlglibGridSetColumnUtf8(grid, 1, kHyouUtf8, 6.0, 0, 0, DLGLIB_COLUMN_TEXT), DLGLIB_OK);
    EXPECT_EQ(DlglibGridSetColumnSjis(grid, 2, "", 3.0, 0, 0, DLGLIB_COLUMN_COLOUR), DLGLIB_OK);
    EXPECT_EQ(DlglibGridSetEditUtf8(grid, 1, 0, 40, kHyouUtf8), DLGLIB_OK);
    EXPECT_EQ(DlglibGridSetListSjis(grid, 1, 2, "12 鋼\n20 銅\n", 0, nullptr), DLGLIB_OK);
    EXPECT_EQ(DlglibGridSetMessageWindow(grid, Child(kZone)), DLGLIB_OK);
    for (int row = 0; row < 5; ++row) {
      EXPECT_EQ(DlglibGridSetTextSjis(grid, row, 1, ("部品" + std::to_string(row)).c_str()), DLGLIB_OK);
    }
  }
  [[nodiscard]] std::string Text(int row, int col) const {
    return TextOf([&](auto... room) { return DlglibGridTextSjis(grid, row, col, room...); });
  }
  [[nodiscard]] std::string ZoneText() const { return driver::Window(Child(kZone)).Text(); }

  DlglibGrid grid = nullptr;
  std::vector<UINT> taken;  ///< messages that were for the grid

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM, LPARAM lParam) {
    auto* const host = reinterpret_cast<CHost*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (host == nullptr) return FALSE;
    const bool mine = DlglibGridMessage(host->grid, message, reinterpret_cast<void*>(lParam)) == DLGLIB_OK;
    if (mine) host->taken.push_back(message);
    return mine ? TRUE : FALSE;
  }
  void Add(const wchar_t* name, DWORD style, int id, RECT place) {
    ::CreateWindowExW(0, name, L"", WS_CHILD | WS_VISIBLE | style, place.left, place.top, place.right, place.bottom,
                      window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  }

  HWND window_ = nullptr;
};

struct Steps {
  std::vector<std::pair<int, int>> told;
  std::vector<std::string> asked;
  DlglibGrid ends = nullptr;  ///< destroyed when a step is told of
};

void DLGLIB_CALL Note(void* context, std::int32_t row, std::int32_t rows) {
  auto* const steps = static_cast<Steps*>(context);
  steps->told.emplace_back(row, rows);
  if (steps->ends == nullptr) return;
  EXPECT_EQ(DlglibGridDestroy(steps->ends), DLGLIB_OK);
}

std::int32_t DLGLIB_CALL Check(void* context, std::int32_t, std::int32_t, const char* text) {
  static_cast<Steps*>(context)->asked.emplace_back(text);
  return std::string(text) != "no";
}

TEST(CGridTest, CellsAreSetAndAskedForInBothEncodings) {
  CHost host;
  host.Fill();
  EXPECT_EQ(host.Text(1, 1), "部品1");
  EXPECT_EQ(DlglibGridSetTextUtf8(host.grid, 0, 1, kHyouUtf8), DLGLIB_OK);
  EXPECT_EQ(host.Text(0, 1), "表");
  EXPECT_EQ(TextOf([&](auto... room) { return DlglibGridTextUtf8(host.grid, 0, 1, room...); }), kHyouUtf8);
  EXPECT_EQ(host.Text(10, 0), "(-3)");
  EXPECT_EQ(host.Text(0, 3), "(-3)");
  EXPECT_EQ(DlglibGridSetTextSjis(host.grid, 0, 1, nullptr), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibGridSetTextUtf8(host.grid, 0, 1, "\xFF"), DLGLIB_BAD_ENCODING);
  EXPECT_EQ(DlglibGridSetTextUtf8(host.grid, 0, 1, "\xC3\xA9"), DLGLIB_NO_SUCH_CHARACTER);
  EXPECT_EQ(DlglibGridSetTextSjis(host.grid, 0, 1, std::string(DLGLIB_TEXT_LIMIT + 1, 'a').c_str()), DLGLIB_TOO_LONG);
  EXPECT_EQ(host.Text(0, 1), "表") << "as it was";
  std::int32_t number = -7;
  EXPECT_EQ(DlglibGridSetError(host.grid, 0, 1, 5), DLGLIB_OK);
  EXPECT_EQ(DlglibGridError(host.grid, 0, 1, &number), DLGLIB_OK);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(DlglibGridSetAvailable(host.grid, 0, -1, 0), DLGLIB_OK);
  EXPECT_EQ(DlglibGridAvailable(host.grid, 0, 1, &number), DLGLIB_OK);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(DlglibGridSetAvailable(host.grid, 0, 1, 1), DLGLIB_OK);
  EXPECT_EQ(DlglibGridAvailable(host.grid, 0, 1, &number), DLGLIB_OK);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(DlglibGridSetAvailable(host.grid, 5, 0, 1), DLGLIB_BAD_ARGUMENT) << "a row that is not in use";
}

TEST(CGridTest, RowsComeAndGo) {
  CHost host;
  host.Fill();
  std::int32_t number = -7;
  EXPECT_EQ(DlglibGridRowCount(host.grid, &number), DLGLIB_OK);
  EXPECT_EQ(number, 10);
  EXPECT_EQ(DlglibGridAddRow(host.grid, &number), DLGLIB_OK);
  EXPECT_EQ(number, 5);
  EXPECT_EQ(DlglibGridSelectRow(host.grid, 1, 1), DLGLIB_OK);
  EXPECT_EQ(DlglibGridSelectedRow(host.grid, &number), DLGLIB_OK);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(DlglibGridClearSelection(host.grid), DLGLIB_OK);
  EXPECT_EQ(DlglibGridSelectRow(host.grid, 1, 1), DLGLIB_OK);
  EXPECT_EQ(DlglibGridDeleteRows(host.grid), DLGLIB_OK);
  EXPECT_EQ(host.Text(1, 1), "部品2");
  EXPECT_EQ(DlglibGridItemCount(host.grid, &number), DLGLIB_OK);
  EXPECT_EQ(number, 5);
  EXPECT_EQ(DlglibGridCanUndo(host.grid), DLGLIB_OK);
  EXPECT_EQ(DlglibGridUndo(host.grid), DLGLIB_OK);
  EXPECT_EQ(host.Text(1, 1), "部品1");
  EXPECT_EQ(DlglibGridRedo(host.grid), DLGLIB_OK);
  EXPECT_EQ(DlglibGridCanRedo(host.grid), DLGLIB_REFUSED);
  EXPECT_EQ(DlglibGridSetItemCount(host.grid, 11), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibGridSetItemCount(host.grid, 10), DLGLIB_OK);
  driver::RunDialog([&] { EXPECT_EQ(DlglibGridAddRow(host.grid, &number), DLGLIB_REFUSED); },
                    [](driver::User& user) { user.Answer(user.WaitMessageBox(), IDOK); });
}

TEST(CGridTest, ADialogDrawsAndClicksByOneFunction) {
  CHost host;
  host.Fill();
  driver::RunDialog(
      [&] {
        ::RedrawWindow(host.Child(kList), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        EXPECT_NE(std::find(host.taken.begin(), host.taken.end(), UINT{WM_DRAWITEM}), host.taken.end());
        EXPECT_EQ(DlglibGridMessage(host.grid, WM_DRAWITEM, nullptr), DLGLIB_NULL_ARGUMENT);
        EXPECT_EQ(DlglibGridMessage(host.grid, WM_PAINT, nullptr), DLGLIB_NOT_MINE);
        DRAWITEMSTRUCT other = {};
        other.hwndItem = host.Child(kZone);
        EXPECT_EQ(DlglibGridMessage(host.grid, WM_DRAWITEM, &other), DLGLIB_NOT_MINE);
        NMHDR notice = {host.Child(kList), kList, LVN_ITEMCHANGED};
        EXPECT_EQ(DlglibGridMessage(host.grid, WM_NOTIFY, &notice), DLGLIB_NOT_MINE);
        notice.code = NM_CLICK;
        EXPECT_EQ(DlglibGridMessage(host.grid, WM_NOTIFY, &notice), DLGLIB_OK);
      },
      [](driver::User&) {});
}

TEST(CGridTest, APickIsCommittedAndShown) {
  CHost host;
  host.Fill();
  EXPECT_EQ(DlglibGridEditCell(host.grid, 2, 1), DLGLIB_OK);
  std::int32_t col = -7;
  EXPECT_EQ(DlglibGridSelectedColumn(host.grid, &col), DLGLIB_OK);
  EXPECT_EQ(col, 1);
  EXPECT_EQ(DlglibGridClickCell(host.grid, 2, 1), DLGLIB_OK);
  EXPECT_EQ(DlglibGridPickUtf8(host.grid, kHyouUtf8), DLGLIB_OK);
  EXPECT_EQ(DlglibGridCommit(host.grid), DLGLIB_OK);
  EXPECT_EQ(host.Text(2, 1), "表");
  EXPECT_EQ(DlglibGridShowErrorSjis(host.grid, "だめ"), DLGLIB_OK);
  EXPECT_EQ(host.ZoneText(), "だめ");
  EXPECT_EQ(DlglibGridCheckClassNumber(host.grid, 0, "256"), DLGLIB_OK);
  EXPECT_EQ(DlglibGridCheckRevisionNumber(host.grid, 0, "257"), DLGLIB_REFUSED);
  EXPECT_NE(host.ZoneText(), "だめ");
}

TEST(CGridTest, ACommitDuringACompositionReadsNoHalfWord) {
  CHost host;
  host.Fill();
  EXPECT_EQ(DlglibGridClickCell(host.grid, 2, 1), DLGLIB_OK);
  const HWND box = ::FindWindowExW(host.Window(), nullptr, L"Edit", nullptr);
  ASSERT_NE(box, nullptr);
  ::SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0);
  ::SendMessageW(box, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L"\u304Bn"));
  EXPECT_EQ(DlglibGridCommit(host.grid), DLGLIB_OK);
  EXPECT_EQ(host.Text(2, 1), "部品2");
  ::SendMessageW(box, WM_IME_ENDCOMPOSITION, 0, 0);
  EXPECT_EQ(host.Text(2, 1), "かn");
}

TEST(CGridTest, BlocksArePastedCheckedAndToldOf) {
  CHost host;
  host.Fill();
  Steps steps;
  std::int32_t cells = -7;
  EXPECT_EQ(DlglibGridSetChanged(host.grid, Note, &steps), DLGLIB_OK);
  EXPECT_EQ(DlglibGridSetPasteCheckUtf8(host.grid, Check, &steps), DLGLIB_OK);
  EXPECT_EQ(DlglibGridSetCellsTextUtf8(host.grid, 0, 1, kHyouUtf8, &cells), DLGLIB_OK);
  EXPECT_EQ(cells, 1);
  EXPECT_EQ(host.Text(0, 1), "表");
  EXPECT_EQ(steps.asked, std::vector<std::string>{kHyouUtf8});
  EXPECT_EQ(steps.told, (std::vector<std::pair<int, int>>{{0, 1}}));
  EXPECT_EQ(DlglibGridSetCellsTextSjis(host.grid, 0, 1, "no", &cells), DLGLIB_REFUSED);
  EXPECT_EQ(cells, 0);
  EXPECT_EQ(TextOf([&](auto... room) { return DlglibGridCellsTextSjis(host.grid, 0, 1, 2, 1, room...); }),
            "表\r\n部品1\r\n");
  EXPECT_EQ(DlglibGridClearCells(host.grid, 0, 1, 2, 1, &cells), DLGLIB_OK);
  EXPECT_EQ(cells, 2);
  EXPECT_EQ(DlglibGridClearCells(host.grid, -1, 1, 2, 1, &cells), DLGLIB_BAD_ARGUMENT);
}

TEST(CGridTest, ACallbackMayEndTheGrid) {
  CHost host;
  host.Fill();
  Steps steps;
  steps.ends = host.grid;
  EXPECT_EQ(DlglibGridSetChanged(host.grid, Note, &steps), DLGLIB_OK);
  EXPECT_EQ(DlglibGridSetCellsTextSjis(host.grid, 0, 1, "x", nullptr), DLGLIB_OK);
  EXPECT_EQ(steps.told.size(), 1U);
  EXPECT_EQ(host.Text(0, 1), "(-1)");
}

TEST(CGridTest, AWindowThatHasGoneIsAnAnswer) {
  CHost host;
  std::int32_t count = 0;
  EXPECT_EQ(DlglibGridItemCount(host.grid, &count), DLGLIB_NOT_ATTACHED);
  host.Fill();
  EXPECT_EQ(DlglibGridEditCell(host.grid, 2, 1), DLGLIB_OK);
  host.Close();
  EXPECT_EQ(DlglibGridItemCount(host.grid, &count), DLGLIB_NOT_ATTACHED);
  EXPECT_EQ(DlglibGridMessage(host.grid, WM_DRAWITEM, nullptr), DLGLIB_NOT_MINE);
  EXPECT_EQ(DlglibGridDetach(host.grid), DLGLIB_NOT_ATTACHED);
  EXPECT_EQ(DlglibGridDestroy(host.grid), DLGLIB_OK);
  EXPECT_EQ(DlglibGridDestroy(host.grid), DLGLIB_BAD_HANDLE);
}

TEST(CGridTest, AnAttachmentWithoutAMeaningIsRefused) {
  CHost host;
  const auto attach = [&](void* window, int id, int columns, int items, int rows) {
    return DlglibGridAttach(host.grid, window, id, columns, nullptr, items, rows, 0);
  };
  EXPECT_EQ(attach(nullptr, kList, 3, 1, 1), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(attach(reinterpret_cast<void*>(0x7FFF1234), kList, 3, 1, 1), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(attach(host.Window(), 9, 3, 1, 1), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(attach(host.Window(), kList, 0, 1, 1), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(attach(host.Window(), kList, 21, 1, 1), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(attach(host.Window(), kList, 3, 2, 1), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(attach(host.Window(), kList, 3, 1, 10'000'001), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(attach(::GetDesktopWindow(), kList, 3, 1, 1), DLGLIB_WRONG_THREAD);
  EXPECT_EQ(attach(host.Window(), kList, 3, 1, 1), DLGLIB_OK);
  EXPECT_EQ(attach(host.Window(), kList, 3, 1, 1), DLGLIB_OK) << "anew";
  EXPECT_EQ(DlglibGridDetach(host.grid), DLGLIB_OK);
  EXPECT_EQ(DlglibGridCreate(nullptr), DLGLIB_NULL_ARGUMENT);
}

TEST(CGridTest, AParentGridThatEndsIsForgotten) {
  CHost host;
  host.Fill();
  DlglibGrid above = nullptr;
  ASSERT_EQ(DlglibGridCreate(&above), DLGLIB_OK);
  EXPECT_EQ(DlglibGridSetParentGrid(host.grid, above), DLGLIB_OK);
  EXPECT_EQ(DlglibGridSetParentGrid(above, host.grid), DLGLIB_BAD_ARGUMENT) << "a circle";
  EXPECT_EQ(DlglibGridDestroy(above), DLGLIB_OK);
  EXPECT_EQ(DlglibGridShowMessageUtf8(host.grid, kHyouUtf8), DLGLIB_OK);
  EXPECT_EQ(host.ZoneText(), "表");
  EXPECT_EQ(DlglibGridSetParentGrid(host.grid, above), DLGLIB_BAD_HANDLE);
}

}  // namespace
}  // namespace grid_test
