// The grid's functions.
#include <windows.h>

#include <array>
#include <memory>
#include <string>
#include <utility>

#include "dlglib/dlglib.h"
#include "tests/robustness/interface_calls.h"
#include "tests/robustness/robot.h"
#include "tests/windows/grid/grid_table.h"

namespace robustness {
namespace {

using grid_test::Host;
using grid_test::kMaterial;
using grid_test::kName;

constexpr char kLongName[] = "ポンプ室の配管詳細図";  // so long that every copy of it takes memory

/// A table in a plain window. One that got no memory is as it was constructed.
std::unique_ptr<Host> Open(grid_test::HostKind kind = grid_test::HostKind::Plain) {
  std::unique_ptr<Host> host = Host::Make(kind);
  host->list = Born([] { return std::make_unique<CvListControl>(); });
  host->Open([](Host& opened) {
    grid_test::FillTable(opened);
    opened.list->SetItemText(2, kName, kLongName);
  });
  return host;
}

using List = CvListControl&;

/// Something is done, and seen by what `tell` answers behind it.
InterfaceCall Act(const char* name, std::vector<std::string> failure, void (*prepare)(List), void (*act)(List),
                  std::string (*tell)(Host&)) {
  return {name, std::move(failure), [=] {
            const std::unique_ptr<Host> host = Open();
            const Robot robot({});  // for the messages of the grid
            if (prepare != nullptr) prepare(*host->list);
            Under([&] { act(*host->list); });
            Host::Pump();
            std::string told = tell(*host);
            host->Destroy();
            return told;
          }};
}

std::string Nothing(Host&) { return "done"; }
std::string Cell(Host& host) { return host.Text(2, kName); }
std::string Cells(Host& host) { return host.Text(2, kName) + ' ' + host.Text(3, kName); }

InterfaceCall Done(const char* name, void (*act)(List), void (*prepare)(List) = nullptr) {
  return Act(name, {"done"}, prepare, act, Nothing);
}

InterfaceCall Number(const char* name, std::vector<std::string> failure, int (*ask)(List),
                     void (*prepare)(List) = nullptr) {
  return {name, std::move(failure), [=] {
            const std::unique_ptr<Host> host = Open();
            const Robot robot({});
            if (prepare != nullptr) prepare(*host->list);
            const int answer = Under([&] { return ask(*host->list); });
            host->Destroy();
            return std::to_string(answer);
          }};
}

/// A constructor, or what makes a table anew; then all of a grid's life.
std::string LiveWith(Host& host) {
  grid_test::FillTable(host);
  host.list->ClickItem(2, kName);
  host.list->DrawItem();
  std::string text = host.Text(2, kName);
  host.Destroy();
  return text;
}

InterfaceCall Constructor(const char* name, std::unique_ptr<CvListControl> (*make)()) {
  return {name, {""}, [make] {
            const std::unique_ptr<Host> host = Host::Make(grid_test::HostKind::Plain);
            host->list = Under(make);
            host->Open([](Host&) {});
            return LiveWith(*host);
          }};
}

InterfaceCall Init(const char* name, void (*init)(List, CWnd*)) {
  return {name, {"0 0", "30 2"}, [init] {
            const std::unique_ptr<Host> host = Open();
            CWnd* const window = host->Window();
            Under([&] { init(*host->list, window); });
            const std::string rows = std::to_string(host->list->GetListCount());
            const std::string used =
                rows == "30" ? host->Text(2, kMaterial) : std::to_string(host->list->GetItemCount());
            static_cast<void>(LiveWith(*host));
            return rows + ' ' + used;
          }};
}

void ClickName(List list) { list.ClickItem(2, kName); }
void ClickMaterial(List list) { list.ClickItem(2, kMaterial); }

std::vector<InterfaceCall> StartCalls() {
  return {
      Constructor("CvListControl::CvListControl()", [] { return std::make_unique<CvListControl>(); }),
      Constructor("CvListControl::CvListControl(CvListControl*)",
                  [] { return std::make_unique<CvListControl>(nullptr); }),
      Done("CvListControl::SetParentList(CvListControl*)", [](List list) { list.SetParentList(nullptr); }),
      Init("CvListControl::InitList(CWnd*, int, int, int, int, int)",
           [](List list, CWnd* window) { list.InitList(window, grid_test::kList, 4, 12, 40, 0); }),
      Init("CvListControl::InitList(CWnd*, int, int, int const*, int, int, int)",
           [](List list, CWnd* window) {
             const int limits[] = {4, 20, 20, 4};
             list.InitList(window, grid_test::kList, 4, limits, 12, 40, 0);
           }),
      Init("CvListControl::InitList0(CWnd*, int, int, int, int, int)",
           [](List list, CWnd* window) { list.InitList0(window, grid_test::kList, 4, 12, 40, 0); }),
      Act(
          "CvListControl::TermList()", {"0"}, ClickName, [](List list) { list.TermList(); },
          [](Host& host) { return std::to_string(host.list->GetListCount()); }),
      Done("CvListControl::SetExtendedStyle(unsigned long)", [](List list) { list.SetExtendedStyle(0); }),
      Done(
          "CvListControl::SetColumn(int, char const*, double)", [](List list) { list.SetColumn(kName, "x", 1.0); },
          ClickName),
      Done("CvListControl::SetColumn(int, char const*, double, int)",
           [](List list) { list.SetColumn(kName, "x", 1.0, 0); }),
      Done("CvListControl::SetColumn(int, char const*, double, int, int, int)",
           [](List list) { list.SetColumn(kMaterial, "x", 1.0, 0, 0, 0); }),
      Done("CvListControl::SetEdit(int, int, unsigned int, char const*)",
           [](List list) { list.SetEdit(kName, 1, 10, "a prompt that is rather long"); }),
      Done("CvListControl::SetCombo(int, int, CStringList*, char const*)",
           [](List list) {
             CStringList entries;
             entries.AddTail("an entry that is rather long");
             list.SetCombo(kName, kMaterial, &entries, "a prompt that is rather long");
           }),
      Done("CvListControl::SetCombo(int, int, CStringList*, int, char const*)",
           [](List list) { list.SetCombo(kName, kMaterial, nullptr, grid_test::kDialogCombo, "a prompt"); }),
      Done(
          "CvListControl::ClearEdit(int)", [](List list) { list.ClearEdit(kName); }, ClickName),
      Done(
          "CvListControl::ClearCombo(int)", [](List list) { list.ClearCombo(kMaterial); }, ClickMaterial),
      Done("CvListControl::SetComboSeparator(int)", [](List list) { list.SetComboSeparator(':'); }),
      Number("CvListControl::GetComboSeparator()", {"32"}, [](List list) { return list.GetComboSeparator(); }),
      Done("CvListControl::SetEditMode(int, int)", [](List list) { list.SetEditMode(kName, 0); }),
      Done("CvListControl::SetSpaceMode(int, int)", [](List list) { list.SetSpaceMode(kName, 1); }),
  };
}

std::vector<InterfaceCall> CellCalls() {
  return {
      Act(
          "CvListControl::SetItemText(int, int, char const*)", {kLongName, ""}, ClickName,
          [](List list) { list.SetItemText(2, kName, "a text of 20 bytes.."); }, Cell),
      {"CvListControl::GetItemText(int, int, char*)",
       {""},
       [] {
         const std::unique_ptr<Host> host = Open();
         std::array<char, 386> text = {"before"};
         Under([&] { host->list->GetItemText(2, kName, text.data()); });
         host->Destroy();
         return std::string(text.data());
       }},
      {"CvListControl::TextCopy(char*, char const*, int)",
       {""},
       [] {
         const auto list = Born([] { return std::make_unique<CvListControl>(); });
         std::array<char, 40> text = {"before"};
         Under([&] { list->TextCopy(text.data(), "a text that is rather long", 30); });
         return std::string(text.data());
       }},
      Done("CvListControl::SetItemColor(int, int, unsigned long, unsigned long)",
           [](List list) { list.SetItemColor(2, kName, 1, 2); }),
      Done("CvListControl::SetAvailableFlag(int, int)", [](List list) { list.SetAvailableFlag(2, 1); }),
      Done("CvListControl::SetAvailableFlag(int, int, int)", [](List list) { list.SetAvailableFlag(2, kName, 1); }),
      Number("CvListControl::GetAvailableFlag(int)", {"1"}, [](List list) { return list.GetAvailableFlag(2); }),
      Number("CvListControl::GetAvailableFlag(int, int)", {"1"},
             [](List list) { return list.GetAvailableFlag(2, kName); }),
      Done("CvListControl::SetErrorFlag(int, int, int)", [](List list) { list.SetErrorFlag(2, kName, 1); }),
      Number("CvListControl::GetErrorFlag(int, int)", {"0"}, [](List list) { return list.GetErrorFlag(2, kName); }),
      Number("CvListControl::GetListCount()", {"0"}, [](List list) { return list.GetListCount(); }),
      Number("CvListControl::GetItemCount()", {"0"}, [](List list) { return list.GetItemCount(); }),
  };
}

std::vector<InterfaceCall> RowCalls() {
  return {
      Done("CvListControl::SetItemCount(int)", [](List list) { list.SetItemCount(11); }),
      Done("CvListControl::SetSelectFlag(int, int)", [](List list) { list.SetSelectFlag(2, 1); }),
      Number(
          "CvListControl::GetSelectFlag(int)", {"0"}, [](List list) { return list.GetSelectFlag(2); }, ClickName),
      Done(
          "CvListControl::ClearSelectFlag()", [](List list) { list.ClearSelectFlag(); }, ClickName),
      Number(
          "CvListControl::GetSelectedItem()", {"-1"}, [](List list) { return list.GetSelectedItem(); }, ClickName),
      Number(
          "CvListControl::GetSelectedColumn()", {"-1"}, [](List list) { return list.GetSelectedColumn(); }, ClickName),
      Number(
          "CvListControl::AddItem()", {"-1"}, [](List list) { return list.AddItem(); }, ClickName),
      Number(
          "CvListControl::InsertItem()", {"-1"}, [](List list) { return list.InsertItem(); }, ClickName),
      Number("CvListControl::InsertItem()", {"-1"}, [](List list) { return list.InsertItem(); }),
      Act(
          "CvListControl::DeleteItem()", {kLongName + std::string(" 部品3"), " "}, ClickName,
          [](List list) { list.DeleteItem(); }, Cells),
      Number("CvListControl::CheckClassNumber(int, CString)", {"0"},
             [](List list) { return list.CheckClassNumber(1, CString("0000000000000000012")); }),
      Number("CvListControl::CheckClassNumber(int, CString)", {"0"},
             [](List list) { return list.CheckClassNumber(1, CString("no number at all, none")); }),
      Number("CvListControl::CheckRevisionNumber(int, CString)", {"0"},
             [](List list) { return list.CheckRevisionNumber(1, CString("0000000000000000012")); }),
      Done("CvListControl::MessageText(char const*)", [](List list) { list.MessageText("message"); }),
      Done("CvListControl::ErrorText(char const*)", [](List list) { list.ErrorText("message"); }),
  };
}

std::vector<InterfaceCall> EditingCalls() {
  return {
      Done("CvListControl::ClickItem()", [](List list) { list.ClickItem(); }),
      Done("CvListControl::ClickItem(int, int)", ClickName),
      Done("CvListControl::ClickItem(int, int)", ClickMaterial, ClickMaterial),
      {"CvListControl::GetClickItem(int*, int*)",
       {"-1 -1"},
       [] {
         const std::unique_ptr<Host> host = Open();
         int row = 7;
         int col = 7;
         Under([&] { host->list->GetClickItem(&row, &col); });
         host->Destroy();
         return std::to_string(row) + ' ' + std::to_string(col);
       }},
      Done("CvListControl::SelectItem(int, int)", [](List list) { list.SelectItem(3, kName); }),
      Done(
          "CvListControl::SelectItem()", [](List list) { list.SelectItem(); },
          [](List list) { list.SelectItem(11, kName); }),
      Act(
          "CvListControl::KeyInput()", {kLongName, ""}, ClickName, [](List list) { list.KeyInput(); }, Cell),
      Act(
          "CvListControl::ClickItem(int, int)", {kLongName + std::string(" 部品3"), " "}, ClickName,
          [](List list) { list.ClickItem(3, kName); }, Cells),
      Done(
          "CvListControl::OpenComboBox()", [](List list) { list.OpenComboBox(); }, ClickMaterial),
      Done(
          "CvListControl::CloseComboBox()", [](List list) { list.CloseComboBox(); },
          [](List list) {
            ClickMaterial(list);
            list.OpenComboBox();
          }),
      Act(
          "CvListControl::SelchangeComboBox(char const*)", {"2", ""}, ClickMaterial,
          [](List list) { list.SelchangeComboBox("a value that is long"); },
          [](Host& host) { return host.Text(2, kMaterial); }),
      Done("CvListControl::OnDrawItem(tagDRAWITEMSTRUCT*)",
           [](List list) {
             DRAWITEMSTRUCT item = {};
             item.itemID = 2;
             list.OnDrawItem(&item);
           }),
      Done("CvListControl::DrawItem()", [](List list) { list.DrawItem(); }),
  };
}

// ---- keys, copying, pasting, undo

void TypeAndPaste(List list) {
  ClickName(list);
  list.SetCellsText(3, kName, "a");
}

int Accept(void*, int, int, const char*) { return 1; }
void Ignore(void*, int, int) {}

std::vector<InterfaceCall> KeyCalls() {
  return {
      Done("CvListControl::SetKeys(int)", [](List list) { list.SetKeys(CvListControl::kKeysAll); }),
      Number(
          "CvListControl::GetKeys()", {"0"}, [](List list) { return list.GetKeys(); },
          [](List list) { list.SetKeys(CvListControl::kKeysAll); }),
      Done("CvListControl::SetImeMode(int, int)", [](List list) { list.SetImeMode(kName, 1); }),
      Done("CvListControl::SetPasteRows(int)", [](List list) { list.SetPasteRows(1); }),
      Done("CvListControl::SetPasteCheck(int (*)(void*, int, int, char const*), void*)",
           [](List list) { list.SetPasteCheck(&Accept, nullptr); }),
      Done("CvListControl::SetChanged(void (*)(void*, int, int), void*)",
           [](List list) { list.SetChanged(&Ignore, nullptr); }),
      Done(
          "CvListControl::SetUndoLimit(int)", [](List list) { list.SetUndoLimit(1); }, TypeAndPaste),
      Number(
          "CvListControl::CanUndo()", {"0"}, [](List list) { return list.CanUndo(); }, TypeAndPaste),
      Number(
          "CvListControl::CanRedo()", {"0"}, [](List list) { return list.CanRedo(); }, TypeAndPaste),
  };
}

std::vector<InterfaceCall> BlockCalls() {
  return {
      Number("CvListControl::CopyCells(int, int, int, int)", {"0"},
             [](List list) { return list.CopyCells(2, kName, 3, 2); }),
      Number(
          "CvListControl::PasteCells(int, int)", {"-1"}, [](List list) { return list.PasteCells(2, kName); },
          [](List list) { list.CopyCells(0, kName, 2, 1); }),
      Act(
          "CvListControl::ClearCells(int, int, int, int)", {kLongName + std::string(" 部品3"), " "}, ClickName,
          [](List list) { list.ClearCells(2, kName, 2, 1); }, Cells),
      {"CvListControl::GetCellsText(int, int, int, int, char*, int)",
       {""},
       [] {
         const std::unique_ptr<Host> host = Open();
         std::array<char, 386> text = {"before"};
         Under([&] { host->list->GetCellsText(2, kName, 2, 1, text.data(), 386); });
         host->Destroy();
         return std::string(text.data());
       }},
      Act(
          "CvListControl::SetCellsText(int, int, char const*)", {kLongName + std::string(" 部品3"), " "}, ClickName,
          [](List list) { list.SetCellsText(2, kName, "a text of 12\nb"); }, Cells),
      Number(
          "CvListControl::Undo()", {"0"}, [](List list) { return list.Undo(); }, TypeAndPaste),
      Number(
          "CvListControl::Redo()", {"0"}, [](List list) { return list.Redo(); },
          [](List list) {
            TypeAndPaste(list);
            list.Undo();
          }),
  };
}

}  // namespace

std::vector<InterfaceCall> GridCalls() {
  std::vector<InterfaceCall> calls = StartCalls();
  for (auto& more : {CellCalls(), RowCalls(), EditingCalls(), KeyCalls(), BlockCalls()})
    calls.insert(calls.end(), more.begin(), more.end());
  return calls;
}

}  // namespace robustness
