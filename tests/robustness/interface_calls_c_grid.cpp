// The functions of the C interface for the grid, the message zone and the recent lists.
#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstdint>
#include <string>

#include "dlglib/dlglib_c.h"
#include "tests/robustness/interface_calls.h"
#include "tests/robustness/robot.h"

namespace robustness {
namespace {

constexpr char kKana[] = "ポンプ室配管詳細図";
constexpr char kUtf8[] = "\xE3\x83\x9D\xE3\x83\xB3\xE3\x83\x97\xE5\xAE\xA4\xE9\x85\x8D\xE7\xAE\xA1";
constexpr char kOutOfMemory[] = "-9 ";
constexpr int kList = 1001;

std::array<char, 600> room = {};
std::int32_t number = 0;

/// A dialog with a list view, and a grid over it.
class Table {
 public:
  Table() {
    window_ =
        ::CreateWindowExW(0, L"#32770", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr, nullptr, nullptr);
    ::CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, 300, 200, window_,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(kList)), nullptr, nullptr);
    static_cast<void>(DlglibGridCreate(&grid_));
  }
  ~Table() {
    static_cast<void>(DlglibGridDestroy(grid_));
    ::DestroyWindow(window_);
  }
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;

  [[nodiscard]] HWND Window() const { return window_; }
  [[nodiscard]] DlglibGrid Get() const { return grid_; }
  [[nodiscard]] DlglibResult Attach() const { return DlglibGridAttach(grid_, window_, kList, 3, nullptr, 5, 10, 0); }
  void Fill() const {
    static_cast<void>(Attach());
    for (int col = 0; col < 3; ++col) static_cast<void>(DlglibGridSetColumnSjis(grid_, col, "a", 3, 0, 0, 0));
    static_cast<void>(DlglibGridSetEditSjis(grid_, 1, 0, 0, "prompt"));
    static_cast<void>(DlglibGridSetListSjis(grid_, 1, 2, "1 one\n2 two", 0, "prompt"));
    for (int row = 0; row < 5; ++row) static_cast<void>(DlglibGridSetTextSjis(grid_, row, 1, kKana));
    static_cast<void>(DlglibGridSelectRow(grid_, 1, 1));
    static_cast<void>(DlglibGridEditCell(grid_, 1, 1));
  }

 private:
  HWND window_;
  DlglibGrid grid_ = nullptr;
};

/// What a call answers of a table that is filled, with a cell under edit.
InterfaceCall Grid(const char* name, DlglibResult (*ask)(DlglibGrid)) {
  return {name, {kOutOfMemory}, [ask] {
            const Table table;
            table.Fill();
            const Robot robot({});
            return std::to_string(Under([&] { return ask(table.Get()); })) + ' ';
          }};
}

/// The same of the window.
InterfaceCall OnWindow(const char* name, DlglibResult (*ask)(const Table&)) {
  return {name, {kOutOfMemory}, [ask] {
            const Table table;
            const Robot robot({});
            return std::to_string(Under([&] { return ask(table); })) + ' ';
          }};
}

std::vector<InterfaceCall> LifeOfGrid() {
  return {
      {"DlglibGridCreate",
       {kOutOfMemory},
       [] {
         DlglibGrid grid = nullptr;
         const DlglibResult result = Under([&] { return DlglibGridCreate(&grid); });
         static_cast<void>(DlglibGridDestroy(grid));
         return std::to_string(result) + ' ';
       }},
      OnWindow("DlglibGridAttach", [](const Table& table) { return table.Attach(); }),
      Grid("DlglibGridDestroy", [](DlglibGrid grid) { return DlglibGridDestroy(grid); }),
      {"DlglibGridMessage",
       {kOutOfMemory},
       [] {
         const Table table;
         table.Fill();
         NMHDR click = {::GetDlgItem(table.Window(), kList), kList, NM_CLICK};
         return std::to_string(Under([&] { return DlglibGridMessage(table.Get(), WM_NOTIFY, &click); })) + ' ';
       }},
      {"DlglibGridCopyCells",
       {kOutOfMemory, "0 "},
       [] {
         const Table table;
         table.Fill();
         return std::to_string(Under([&] { return DlglibGridCopyCells(table.Get(), 0, 0, 1, 2, nullptr); })) + ' ';
       }},
      {"DlglibGridPasteCells",
       {kOutOfMemory, "2 "},
       [] {
         const Table table;
         table.Fill();
         static_cast<void>(DlglibGridCopyCells(table.Get(), 0, 1, 1, 1, nullptr));
         return std::to_string(Under([&] { return DlglibGridPasteCells(table.Get(), 2, 1, nullptr); })) + ' ';
       }},
  };
}

std::vector<InterfaceCall> OfGridColumns() {
  return {
      Grid("DlglibGridSetParentGrid", [](DlglibGrid grid) { return DlglibGridSetParentGrid(grid, nullptr); }),
      Grid("DlglibGridDetach", [](DlglibGrid grid) { return DlglibGridDetach(grid); }),
      Grid("DlglibGridDraw", [](DlglibGrid grid) { return DlglibGridDraw(grid); }),
      Grid("DlglibGridSetExtendedStyle", [](DlglibGrid grid) { return DlglibGridSetExtendedStyle(grid, 0); }),
      Grid("DlglibGridSetMessageWindow", [](DlglibGrid grid) { return DlglibGridSetMessageWindow(grid, nullptr); }),
      Grid("DlglibGridSetColumnSjis",
           [](DlglibGrid grid) { return DlglibGridSetColumnSjis(grid, 0, kKana, 1, 0, 0, 0); }),
      Grid("DlglibGridSetColumnUtf8",
           [](DlglibGrid grid) { return DlglibGridSetColumnUtf8(grid, 0, kUtf8, 1, 0, 0, 0); }),
      Grid("DlglibGridSetEditSjis", [](DlglibGrid grid) { return DlglibGridSetEditSjis(grid, 0, 0, 0, nullptr); }),
      Grid("DlglibGridSetEditUtf8", [](DlglibGrid grid) { return DlglibGridSetEditUtf8(grid, 0, 0, 0, nullptr); }),
      Grid("DlglibGridSetListSjis",
           [](DlglibGrid grid) { return DlglibGridSetListSjis(grid, 0, 0, nullptr, 0, nullptr); }),
      Grid("DlglibGridSetListUtf8",
           [](DlglibGrid grid) { return DlglibGridSetListUtf8(grid, 0, 0, nullptr, 0, nullptr); }),
      Grid("DlglibGridClearEdit", [](DlglibGrid grid) { return DlglibGridClearEdit(grid, 0); }),
      Grid("DlglibGridClearList", [](DlglibGrid grid) { return DlglibGridClearList(grid, 0); }),
      Grid("DlglibGridSetSeparator", [](DlglibGrid grid) { return DlglibGridSetSeparator(grid, ' '); }),
      Grid("DlglibGridSeparator", [](DlglibGrid grid) { return DlglibGridSeparator(grid, &number); }),
      Grid("DlglibGridSetEditMode", [](DlglibGrid grid) { return DlglibGridSetEditMode(grid, 0, 1); }),
      Grid("DlglibGridSetSpaceMode", [](DlglibGrid grid) { return DlglibGridSetSpaceMode(grid, 0, 0); }),
      Grid("DlglibGridSetImeMode", [](DlglibGrid grid) { return DlglibGridSetImeMode(grid, 0, 0); }),
      Grid("DlglibGridSetTextSjis", [](DlglibGrid grid) { return DlglibGridSetTextSjis(grid, 0, 0, kKana); }),
      Grid("DlglibGridSetTextUtf8", [](DlglibGrid grid) { return DlglibGridSetTextUtf8(grid, 0, 0, kUtf8); }),
      Grid("DlglibGridTextSjis",
           [](DlglibGrid grid) { return DlglibGridTextSjis(grid, 0, 0, 600, room.data(), nullptr); }),
      Grid("DlglibGridTextUtf8",
           [](DlglibGrid grid) { return DlglibGridTextUtf8(grid, 0, 0, 600, room.data(), nullptr); }),
      Grid("DlglibGridSetColours", [](DlglibGrid grid) { return DlglibGridSetColours(grid, 0, 0, 0, 0); }),
  };
}

std::vector<InterfaceCall> OfGridCells() {
  return {
      Grid("DlglibGridSetAvailable", [](DlglibGrid grid) { return DlglibGridSetAvailable(grid, 0, 0, 1); }),
      Grid("DlglibGridAvailable", [](DlglibGrid grid) { return DlglibGridAvailable(grid, 0, 0, &number); }),
      Grid("DlglibGridSetError", [](DlglibGrid grid) { return DlglibGridSetError(grid, 0, 0, 0); }),
      Grid("DlglibGridError", [](DlglibGrid grid) { return DlglibGridError(grid, 0, 0, &number); }),
      Grid("DlglibGridRowCount", [](DlglibGrid grid) { return DlglibGridRowCount(grid, &number); }),
      Grid("DlglibGridItemCount", [](DlglibGrid grid) { return DlglibGridItemCount(grid, &number); }),
      Grid("DlglibGridSetItemCount", [](DlglibGrid grid) { return DlglibGridSetItemCount(grid, 5); }),
      Grid("DlglibGridSelectRow", [](DlglibGrid grid) { return DlglibGridSelectRow(grid, 0, 1); }),
      Grid("DlglibGridIsSelected", [](DlglibGrid grid) { return DlglibGridIsSelected(grid, 0, &number); }),
      Grid("DlglibGridClearSelection", [](DlglibGrid grid) { return DlglibGridClearSelection(grid); }),
      Grid("DlglibGridSelectedRow", [](DlglibGrid grid) { return DlglibGridSelectedRow(grid, &number); }),
      Grid("DlglibGridSelectedColumn", [](DlglibGrid grid) { return DlglibGridSelectedColumn(grid, &number); }),
      Grid("DlglibGridCheckClassNumber", [](DlglibGrid grid) { return DlglibGridCheckClassNumber(grid, 0, "1"); }),
      Grid("DlglibGridCheckRevisionNumber",
           [](DlglibGrid grid) { return DlglibGridCheckRevisionNumber(grid, 0, "1"); }),
      Grid("DlglibGridShowMessageSjis", [](DlglibGrid grid) { return DlglibGridShowMessageSjis(grid, kKana); }),
      Grid("DlglibGridShowMessageUtf8", [](DlglibGrid grid) { return DlglibGridShowMessageUtf8(grid, nullptr); }),
      Grid("DlglibGridShowErrorSjis", [](DlglibGrid grid) { return DlglibGridShowErrorSjis(grid, kKana); }),
      Grid("DlglibGridShowErrorUtf8", [](DlglibGrid grid) { return DlglibGridShowErrorUtf8(grid, nullptr); }),
      Grid("DlglibGridClickCell", [](DlglibGrid grid) { return DlglibGridClickCell(grid, 0, 0); }),
      Grid("DlglibGridClickedCell", [](DlglibGrid grid) { return DlglibGridClickedCell(grid, &number, &number); }),
      Grid("DlglibGridEditCell", [](DlglibGrid grid) { return DlglibGridEditCell(grid, 0, 0); }),
      Grid("DlglibGridPlaceEditor", [](DlglibGrid grid) { return DlglibGridPlaceEditor(grid); }),
      Grid("DlglibGridCommit", [](DlglibGrid grid) { return DlglibGridCommit(grid); }),
  };
}

std::vector<InterfaceCall> OfGridEditing() {
  return {
      Grid("DlglibGridOpenList", [](DlglibGrid grid) { return DlglibGridOpenList(grid); }),
      Grid("DlglibGridCloseList", [](DlglibGrid grid) { return DlglibGridCloseList(grid); }),
      Grid("DlglibGridPickSjis", [](DlglibGrid grid) { return DlglibGridPickSjis(grid, kKana); }),
      Grid("DlglibGridPickUtf8", [](DlglibGrid grid) { return DlglibGridPickUtf8(grid, kUtf8); }),
      Grid("DlglibGridSetKeys", [](DlglibGrid grid) { return DlglibGridSetKeys(grid, DLGLIB_KEYS_ALL); }),
      Grid("DlglibGridKeys", [](DlglibGrid grid) { return DlglibGridKeys(grid, &number); }),
      Grid("DlglibGridClearCells", [](DlglibGrid grid) { return DlglibGridClearCells(grid, 0, 0, 1, 1, nullptr); }),
      Grid("DlglibGridCellsTextSjis",
           [](DlglibGrid grid) { return DlglibGridCellsTextSjis(grid, 0, 0, 1, 1, 600, room.data(), nullptr); }),
      Grid("DlglibGridCellsTextUtf8",
           [](DlglibGrid grid) { return DlglibGridCellsTextUtf8(grid, 0, 0, 1, 1, 600, room.data(), nullptr); }),
      Grid("DlglibGridSetCellsTextSjis",
           [](DlglibGrid grid) { return DlglibGridSetCellsTextSjis(grid, 0, 1, kKana, nullptr); }),
      Grid("DlglibGridSetCellsTextUtf8",
           [](DlglibGrid grid) { return DlglibGridSetCellsTextUtf8(grid, 0, 1, kUtf8, nullptr); }),
      Grid("DlglibGridSetPasteRows", [](DlglibGrid grid) { return DlglibGridSetPasteRows(grid, 0); }),
      Grid("DlglibGridSetPasteCheckSjis",
           [](DlglibGrid grid) { return DlglibGridSetPasteCheckSjis(grid, nullptr, nullptr); }),
      Grid("DlglibGridSetPasteCheckUtf8",
           [](DlglibGrid grid) { return DlglibGridSetPasteCheckUtf8(grid, nullptr, nullptr); }),
      Grid("DlglibGridUndo", [](DlglibGrid grid) { return DlglibGridUndo(grid); }),
      Grid("DlglibGridRedo", [](DlglibGrid grid) { return DlglibGridRedo(grid); }),
      Grid("DlglibGridCanUndo", [](DlglibGrid grid) { return DlglibGridCanUndo(grid); }),
      Grid("DlglibGridCanRedo", [](DlglibGrid grid) { return DlglibGridCanRedo(grid); }),
      Grid("DlglibGridSetUndoLimit", [](DlglibGrid grid) { return DlglibGridSetUndoLimit(grid, 10); }),
      Grid("DlglibGridSetChanged", [](DlglibGrid grid) { return DlglibGridSetChanged(grid, nullptr, nullptr); }),
      Grid("DlglibGridAddRow", [](DlglibGrid grid) { return DlglibGridAddRow(grid, nullptr); }),
      Grid("DlglibGridInsertRow", [](DlglibGrid grid) { return DlglibGridInsertRow(grid, nullptr); }),
      Grid("DlglibGridDeleteRows", [](DlglibGrid grid) { return DlglibGridDeleteRows(grid); }),
  };
}

/// What a call answers of a zone of a dialog.
InterfaceCall Zone(const char* name, DlglibResult (*ask)(DlglibMessageZone)) {
  return {name, {kOutOfMemory}, [ask] {
            const Table table;
            DlglibMessageZone zone = nullptr;
            static_cast<void>(DlglibMessageZoneCreate(&zone, table.Window()));
            const DlglibResult result = Under([&] { return ask(zone); });
            static_cast<void>(DlglibMessageZoneDestroy(zone));
            return std::to_string(result) + ' ';
          }};
}

std::vector<InterfaceCall> OfZones() {
  return {
      OnWindow("DlglibMessageZoneCreate",
               [](const Table& table) {
                 DlglibMessageZone zone = nullptr;
                 const DlglibResult result = DlglibMessageZoneCreate(&zone, table.Window());
                 static_cast<void>(DlglibMessageZoneDestroy(zone));
                 return result;
               }),
      Zone("DlglibMessageZoneDestroy", [](DlglibMessageZone zone) { return DlglibMessageZoneDestroy(zone); }),
      Zone("DlglibMessageZoneMakeRoom", [](DlglibMessageZone zone) { return DlglibMessageZoneMakeRoom(zone); }),
      Zone("DlglibMessageZoneSetWindow",
           [](DlglibMessageZone zone) { return DlglibMessageZoneSetWindow(zone, nullptr); }),
      Zone("DlglibMessageZoneShowSjis", [](DlglibMessageZone zone) { return DlglibMessageZoneShowSjis(zone, kKana); }),
      Zone("DlglibMessageZoneShowUtf8", [](DlglibMessageZone zone) { return DlglibMessageZoneShowUtf8(zone, kUtf8); }),
      Zone("DlglibMessageZoneErrorSjis",
           [](DlglibMessageZone zone) { return DlglibMessageZoneErrorSjis(zone, kKana); }),
      Zone("DlglibMessageZoneErrorUtf8",
           [](DlglibMessageZone zone) { return DlglibMessageZoneErrorUtf8(zone, kUtf8); }),
      Zone("DlglibMessageZoneErrorNumber",
           [](DlglibMessageZone zone) { return DlglibMessageZoneErrorNumber(zone, 1); }),
  };
}

/// What a call answers of a list with one entry.
InterfaceCall Recent(const char* name, DlglibResult (*ask)(DlglibRecentList)) {
  return {name, {kOutOfMemory, "-14 "}, [ask] {
            DlglibRecentList list = nullptr;
            static_cast<void>(DlglibRecentListCreateSjis(&list, DLGLIB_RECENT_NAMES, "#A KIND OF ITS OWN#"));
            static_cast<void>(DlglibRecentListAddSjis(list, kKana));
            const DlglibResult result = Under([&] { return ask(list); });
            static_cast<void>(DlglibRecentListDestroy(list));
            return std::to_string(result) + ' ';
          }};
}

template <class Create>
InterfaceCall RecentCreate(const char* name, Create create) {
  return {name, {kOutOfMemory, "-11 "}, [create] {
            DlglibRecentList list = nullptr;
            const DlglibResult result =
                Under([&] { return create(&list, DLGLIB_RECENT_NAMES, "#A KIND OF ITS OWN#"); });
            static_cast<void>(DlglibRecentListDestroy(list));
            return std::to_string(result) + ' ';
          }};
}

std::vector<InterfaceCall> OfRecentLists() {
  return {
      RecentCreate("DlglibRecentListCreateSjis", DlglibRecentListCreateSjis),
      RecentCreate("DlglibRecentListCreateUtf8", DlglibRecentListCreateUtf8),
      Recent("DlglibRecentListDestroy", [](DlglibRecentList list) { return DlglibRecentListDestroy(list); }),
      Recent("DlglibRecentListCount", [](DlglibRecentList list) { return DlglibRecentListCount(list, &number); }),
      Recent("DlglibRecentListEntrySjis",
             [](DlglibRecentList list) { return DlglibRecentListEntrySjis(list, 0, 600, room.data(), nullptr); }),
      Recent("DlglibRecentListEntryUtf8",
             [](DlglibRecentList list) { return DlglibRecentListEntryUtf8(list, 0, 600, room.data(), nullptr); }),
      Recent("DlglibRecentListAddSjis",
             [](DlglibRecentList list) { return DlglibRecentListAddSjis(list, "another entry"); }),
      Recent("DlglibRecentListAddUtf8", [](DlglibRecentList list) { return DlglibRecentListAddUtf8(list, kUtf8); }),
      Recent("DlglibRecentListRemoveSjis",
             [](DlglibRecentList list) { return DlglibRecentListRemoveSjis(list, kKana); }),
      Recent("DlglibRecentListRemoveUtf8",
             [](DlglibRecentList list) { return DlglibRecentListRemoveUtf8(list, kUtf8); }),
      Recent("DlglibRecentListShown", [](DlglibRecentList list) { return DlglibRecentListShown(list, &number); }),
      Recent("DlglibRecentListSetShown", [](DlglibRecentList list) { return DlglibRecentListSetShown(list, 3); }),
      Recent("DlglibRecentListFill",
             [](DlglibRecentList list) {
               HWND combo =
                   ::CreateWindowExW(0, L"COMBOBOX", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
               const DlglibResult result = DlglibRecentListFill(list, combo);
               ::DestroyWindow(combo);
               return result;
             }),
      Recent("DlglibRecentListWrite", [](DlglibRecentList list) { return DlglibRecentListWrite(list); }),
  };
}

}  // namespace

std::vector<InterfaceCall> CGridCalls() {
  std::vector<InterfaceCall> calls = LifeOfGrid();
  for (auto& more : {OfGridColumns(), OfGridCells(), OfGridEditing(), OfZones(), OfRecentLists()})
    calls.insert(calls.end(), more.begin(), more.end());
  return calls;
}

}  // namespace robustness
