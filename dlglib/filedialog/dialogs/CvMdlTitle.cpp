#include "dlglib/filedialog/dialogs/CvMdlTitle.h"

#include <algorithm>
#include <array>
#include <optional>

#include "dlglib/base/edge.h"
#include "dlglib/filedialog/dialogs/CvMdlSort.h"
#include "dlglib/resources/resource.h"
#include "platform/framework/data_exchange.h"
#include "platform/suite/crvncontrol.h"

using filedialog::TitleAction;
using filedialog::TitleCommand;
using filedialog::TitleSlots;

namespace {

constexpr int kRows = static_cast<int>(filedialog::kTitleRows);
constexpr int kColumns = 2;
constexpr int kNumberColumn = 0;
constexpr int kTextColumn = 1;
constexpr int kNoRowNumbers = -1;
constexpr double kNumberShare = 2.0;
constexpr double kTextShare = 8.0;
constexpr std::size_t kCellRoom = 386;

constexpr char kChosenAlready[] = "項目は既に設定されています。";
constexpr char kNothingChosen[] = "少なくとも１項目は設定してください。";

/// All slots that count are asked for, those without a row too: their cells are empty.
int CountOf(const TitleSlots& slots) { return static_cast<int>(std::min(slots.count, filedialog::kMaxTitleSlots)); }

}  // namespace

CvMdlTitle::CvMdlTitle(CWnd* browser, filedialog::SlowSortRule& rule)
    : CvScaledDialog(IDD_MODEL_TITLE, browser), rule_(rule) {}

Handled CvMdlTitle::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvMdlTitle> kMessages[] = {
      OnMessage(WM_DRAWITEM, &CvMdlTitle::OnDrawItem),
      OnNotify(IDC_TITLE_LIST, NM_CLICK, &CvMdlTitle::OnListClick),
      OnNotify(IDC_TITLE_LIST, NM_DBLCLK, &CvMdlTitle::OnListClick),  // the second of two quick clicks
      OnCommand(IDC_TITLE_COMBO, CBN_SELCHANGE, &CvMdlTitle::OnPick),
      OnCommand(IDC_TITLE_COMBO, CBN_CLOSEUP, &CvMdlTitle::OnListClosed),
      OnCommand(IDC_TITLE_SORT, BN_CLICKED, &CvMdlTitle::OnSortConditions),
  };
  return Route<CvScaledDialog>(*this, kMessages, message);
}

BOOL CvMdlTitle::PreTranslateMessage(MSG* message) {
  const TitleCommand command = PlanKey(*message);
  if (command.action == TitleAction::Pass) return CvScaledDialog::PreTranslateMessage(message);
  Run(command);
  return TRUE;
}

// ---------------------------------------------------------------------------------------------------------------------
// start

/// Without all of its rows it is not shown: OK would drop those that are missing.
BOOL CvMdlTitle::OnInitDialog() {
  comboIndex_ = -1;
  CenterWindow();
  const bool made = edge::Guarded([&] {
    InitGrid();
    FillRows();
    FillChoices();
    UpdateData(FALSE);
  });
  if (!made || list_.GetListCount() != kRows) EndDialog(IDCANCEL);
  return TRUE;
}

void CvMdlTitle::InitGrid() {
  list_.InitList(this, IDC_TITLE_LIST, kColumns, kRows, kRows, kNoRowNumbers);
  list_.SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT);
  list_.SetColumn(kNumberColumn, "項目番号", kNumberShare);
  list_.SetColumn(kTextColumn, "注　　釈", kTextShare);
}

void CvMdlTitle::FillRows() {
  for (int row = 0; row < kRows; ++row) {
    const filedialog::TitleSlot& slot = slots_.slots.at(static_cast<std::size_t>(row));
    list_.SetItemText(row, kNumberColumn, filedialog::NumberText(slot.number).c_str());
    if (slot.number == 0) continue;
    list_.SetItemText(row, kTextColumn, filedialog::ShownAnnotation(GetActiveModel(), slot).c_str());
  }
}

void CvMdlTitle::FillChoices() {
  CStringList entries;
  choices_.RemoveAll();
  for (const filedialog::TitleChoice& choice : filedialog::TitleChoices(GetActiveModel())) {
    entries.AddTail(choice.text.c_str());
    choices_.Add(static_cast<DWordValue>(choice.number));
  }
  list_.SetCombo(kNumberColumn, kTextColumn, &entries, IDC_TITLE_COMBO, "");
  list_.SetEdit(kTextColumn, 0, static_cast<unsigned int>(filedialog::kAnnotationLimit), "");
}

void CvMdlTitle::DoDataExchange(CDataExchange* exchange) { DDX_CBIndex(exchange, IDC_TITLE_COMBO, comboIndex_); }

// ---------------------------------------------------------------------------------------------------------------------
// grid

Handled CvMdlTitle::OnDrawItem(const Message& message) {
  if (message.wParam != IDC_TITLE_LIST) return std::nullopt;
  list_.OnDrawItem(message.Data<DRAWITEMSTRUCT>());
  return TRUE;
}

void CvMdlTitle::OnListClick() { list_.ClickItem(); }

void CvMdlTitle::OnListClosed() {
  walkedTo_ = -1;
  list_.CloseComboBox();
}

// ---------------------------------------------------------------------------------------------------------------------
// grid by keyboard

bool CvMdlTitle::IsListOpen() const { return WindowRef(::GetDlgItem(m_hWnd, IDC_TITLE_COMBO)).IsWindowVisible(); }

TitleCommand CvMdlTitle::PlanKey(const MSG& message) {
  const int key = static_cast<int>(message.wParam);
  if (message.message == WM_KEYDOWN) return filedialog::PlanTitleKey(key, StateOfKeys(message.hwnd));
  if (message.message == WM_SYSKEYDOWN) return filedialog::PlanTitleKeyWithAlt(key, StateOfKeys(message.hwnd));
  return {};
}

filedialog::TitleKeyState CvMdlTitle::StateOfKeys(HWND focus) {
  filedialog::TitleKeyState state;
  state.rowsHaveFocus = WindowRef(::GetDlgItem(m_hWnd, IDC_TITLE_LIST)).Is(focus);
  state.row = list_.GetSelectedItem();
  state.rows = kRows;
  state.listIsOpen = IsListOpen();
  state.entry = walkedTo_;
  state.entries = ComboBoxRef(::GetDlgItem(m_hWnd, IDC_TITLE_COMBO)).GetCount();
  return state;
}

void CvMdlTitle::Run(const TitleCommand& command) {
  switch (command.action) {
    case TitleAction::ChooseRow:
      return ChooseRow(command.at);
    case TitleAction::EditText:
      if (list_.GetAvailableFlag(command.at, kTextColumn) == 0) list_.ClickItem(command.at, kTextColumn);
      return;
    case TitleAction::OpenList:
      ChooseRow(command.at);
      if (!IsListOpen()) list_.OpenComboBox();
      return;
    case TitleAction::WalkTo:
      return WalkTo(command.at);
    case TitleAction::Pick:
      return FinishWalk();
    case TitleAction::CloseList:
      return list_.CloseComboBox();
    case TitleAction::Pass:
    case TitleAction::Stay:
      return;
  }
}

void CvMdlTitle::ChooseRow(int row) {
  ListCtrlRef(::GetDlgItem(m_hWnd, IDC_TITLE_LIST))
      .SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  list_.ClickItem(row, kNumberColumn);
}

void CvMdlTitle::WalkTo(int entry) {
  walkedTo_ = entry;
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  const HWND combo = ::GetDlgItem(m_hWnd, IDC_TITLE_COMBO);
  if (::GetComboBoxInfo(combo, &parts)) ListBoxRef(parts.hwndList).SetCurSel(entry);
}

// As a click on the entry does: the list closes first.
void CvMdlTitle::FinishWalk() {
  const ComboBoxRef combo(::GetDlgItem(m_hWnd, IDC_TITLE_COMBO));
  const int entry = walkedTo_;
  combo.ShowDropDown(FALSE);
  combo.SetCurSel(entry);
  OnPick();
}

// An index without a title throws; the message is dropped then.
void CvMdlTitle::OnPick() {
  UpdateData(TRUE);
  const int row = list_.GetSelectedItem();
  const int number = static_cast<int>(choices_.GetAt(comboIndex_));
  comboIndex_ = -1;
  if (filedialog::IsChosen(NumberCells(), number)) return Complain(kChosenAlready);
  list_.SetItemText(row, kNumberColumn, filedialog::NumberText(number).c_str());
  list_.SetItemText(row, kTextColumn, filedialog::AnnotationOfChoice(GetActiveModel(), number).c_str());
  UpdateData(FALSE);
  list_.CloseComboBox();
  list_.DrawItem();
}

std::string CvMdlTitle::CellText(int row, int col) {
  std::array<char, kCellRoom> text = {};
  list_.GetItemText(row, col, text.data());
  return text.data();
}

std::vector<std::string> CvMdlTitle::NumberCells() {
  std::vector<std::string> cells;
  cells.reserve(slots_.slots.size());
  for (int row = 0; row < CountOf(slots_); ++row) cells.push_back(CellText(row, kNumberColumn));
  return cells;
}

TitleSlots CvMdlTitle::ReadRows() {
  TitleSlots read = slots_;
  for (int row = 0; row < CountOf(slots_); ++row) {
    read.slots.at(static_cast<std::size_t>(row)) = {filedialog::NumberOfCell(CellText(row, kNumberColumn)),
                                                    filedialog::CutAnnotation(CellText(row, kTextColumn))};
  }
  return read;
}

void CvMdlTitle::Complain(const char* text) {
  CString title;
  GetWindowText(title);
  MessageBox(text, title, MB_ICONEXCLAMATION);
}

// ---------------------------------------------------------------------------------------------------------------------
// buttons

void CvMdlTitle::OnSortConditions() { CvMdlSort::Edit(this, &rule_); }

void CvMdlTitle::OnOK() {
  UpdateData(TRUE);
  const TitleSlots read = ReadRows();
  if (!filedialog::HasTitle(read)) return Complain(kNothingChosen);
  slots_ = read;
  EndDialog(IDOK);
}
