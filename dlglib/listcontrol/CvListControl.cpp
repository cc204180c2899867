#include "dlglib/listcontrol/CvListControl.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "dlglib/base/edge.h"
#include "dlglib/listcontrol/CvGrid.h"
#include "dlglib/listcontrol/grid_complaints.h"
#include "dlglib/listcontrol/grid_text.h"

namespace {

constexpr int kBlank = ' ';  ///< the combo separator at first

[[nodiscard]] std::vector<std::string> BytesOf(CStringList* entries) {
  std::vector<std::string> bytes;
  if (entries == nullptr) return bytes;
  for (POSITION at = entries->GetHeadPosition(); at != nullptr;) bytes.emplace_back(entries->GetNext(at).GetString());
  return bytes;
}

}  // namespace

CvListControl::CvListControl() noexcept : CvListControl(nullptr) {}

CvListControl::CvListControl(CvListControl* parentList) noexcept
    : grid_(edge::Made<CvGrid>([this] { return std::make_unique<CvGrid>(*this); })) {
  SetParentList(parentList);
}

CvListControl::~CvListControl() {
  edge::Guarded([&] { grid_->BeDestroyed(); });
}

void CvListControl::SetParentList(CvListControl* parentList) noexcept {
  edge::Guarded([&] { grid_->SetParentGrid(parentList != nullptr ? &*parentList->grid_ : nullptr); });
}

// ------------------------------------------------------------------------------------------------------- start and end

void CvListControl::InitList(CWnd* parent, int listId, int columns, int items, int maxItems,
                             int numberColumn) noexcept {
  InitList(parent, listId, columns, nullptr, items, maxItems, numberColumn);
}

void CvListControl::InitList(CWnd* parent, int listId, int columns, const int* textLimits, int items, int maxItems,
                             int numberColumn) noexcept {
  edge::Guarded([&] {
    if (textLimits == nullptr) grid_->ResetTextLimits();
    const int given = textLimits != nullptr ? std::min(columns, grid::kMaxColumns) : 0;
    for (int c = 0; c < given; ++c) grid_->SetTextLimit(c, textLimits[c]);
    grid_->Init(parent, listId, columns, items, maxItems, numberColumn);
  });
}

void CvListControl::InitList0(CWnd* parent, int listId, int columns, int items, int maxItems,
                              int numberColumn) noexcept {
  edge::Guarded([&] { grid_->Init(parent, listId, columns, items, maxItems, numberColumn); });
}

void CvListControl::TermList() noexcept {
  edge::Guarded([&] { grid_->Term(); });
}

void CvListControl::SetExtendedStyle(unsigned long style) noexcept {
  edge::Guarded([&] { grid_->SetExtendedStyle(style); });
}

// ------------------------------------------------------------------------------------------------------------- columns

void CvListControl::SetColumn(int col, const char* title, double share, int format, int drawFlags, int kind) noexcept {
  edge::Guarded([&] { grid_->SetColumn(col, title, share, {format, drawFlags, kind}); });
}

void CvListControl::SetColumn(int col, const char* title, double share) noexcept {
  SetColumn(col, title, share, 0, 0, 0);
}

void CvListControl::SetColumn(int col, const char* title, double share, int kind) noexcept {
  SetColumn(col, title, share, 0, 0, kind);
}

void CvListControl::SetEdit(int col, int caseMode, unsigned int maxChars, const char* prompt) noexcept {
  edge::Guarded([&] { grid_->SetEdit(col, caseMode, maxChars, prompt); });
}

void CvListControl::SetCombo(int col, int lastCol, CStringList* entries, int dialogComboId,
                             const char* prompt) noexcept {
  edge::Guarded([&] { grid_->SetCombo(col, lastCol, BytesOf(entries), dialogComboId, prompt); });
}

void CvListControl::SetCombo(int col, int lastCol, CStringList* entries, const char* prompt) noexcept {
  SetCombo(col, lastCol, entries, 0, prompt);
}

void CvListControl::ClearEdit(int col) noexcept {
  edge::Guarded([&] { grid_->ClearEdit(col); });
}

void CvListControl::ClearCombo(int col) noexcept {
  edge::Guarded([&] { grid_->ClearCombo(col); });
}

void CvListControl::SetComboSeparator(int ch) noexcept {
  edge::Guarded([&] { grid_->SetComboSeparator(ch); });
}

int CvListControl::GetComboSeparator() noexcept {
  return edge::Guarded(kBlank, [&] { return grid_->ComboSeparator(); });
}

void CvListControl::SetEditMode(int col, int mode) noexcept {
  edge::Guarded([&] { grid_->SetEditMode(col, mode); });
}

void CvListControl::SetSpaceMode(int col, int mode) noexcept {
  edge::Guarded([&] { grid_->SetSpaceMode(col, mode); });
}

// --------------------------------------------------------------------------------------------------------------- cells

void CvListControl::SetItemText(int row, int col, const char* text) noexcept {
  edge::Guarded([&] { grid_->SetItemText(row, col, text); });
}

void CvListControl::GetItemText(int row, int col, char* out) noexcept {
  const char* const none = "";
  grid::CopyText(out, edge::Guarded(none, [&] { return grid_->Model().Text(row, col); }), grid::kMaxTextLimit);
}

void CvListControl::TextCopy(char* dst, const char* src, int n) noexcept { grid::CopyText(dst, src, n); }

void CvListControl::SetItemColor(int row, int col, unsigned long textColour, unsigned long backColour) noexcept {
  const auto text = static_cast<grid::Colour>(textColour);
  const auto back = static_cast<grid::Colour>(backColour);
  edge::Guarded([&] { grid_->SetColours(row, col, text, back); });
}

void CvListControl::SetAvailableFlag(int row, int flag) noexcept {
  edge::Guarded([&] { grid_->SetAvailable(row, static_cast<unsigned int>(flag)); });
}

void CvListControl::SetAvailableFlag(int row, int col, int flag) noexcept {
  edge::Guarded([&] { grid_->SetAvailable(row, col, static_cast<unsigned int>(flag)); });
}

int CvListControl::GetAvailableFlag(int row) noexcept {
  return edge::Guarded(1, [&] { return static_cast<int>(grid_->Model().Available(row)); });
}

int CvListControl::GetAvailableFlag(int row, int col) noexcept {
  return edge::Guarded(1, [&] { return static_cast<int>(grid_->Model().Available(row, col)); });
}

void CvListControl::SetErrorFlag(int row, int col, int flag) noexcept {
  edge::Guarded([&] { grid_->SetError(row, col, static_cast<unsigned int>(flag)); });
}

int CvListControl::GetErrorFlag(int row, int col) noexcept {
  return edge::Guarded(0, [&] { return grid_->Model().Error(row, col) == 0 ? 1 : 0; });
}

// -------------------------------------------------------------------------------------------------- rows and selection

int CvListControl::GetListCount() noexcept {
  return edge::Guarded(0, [&] { return grid_->Model().Capacity(); });
}

int CvListControl::GetItemCount() noexcept {
  return edge::Guarded(0, [&] { return grid_->Model().ItemCount(); });
}

void CvListControl::SetItemCount(int count) noexcept {
  edge::Guarded([&] { grid_->SetItemCount(count); });
}

void CvListControl::SetSelectFlag(int row, int flag) noexcept {
  edge::Guarded([&] { grid_->SetSelectFlag(row, flag); });
}

int CvListControl::GetSelectFlag(int row) noexcept {
  return edge::Guarded(0, [&] { return grid_->Model().Selected(row); });
}

void CvListControl::ClearSelectFlag() noexcept {
  edge::Guarded([&] { grid_->ClearSelectFlag(); });
}

int CvListControl::GetSelectedItem() noexcept {
  return edge::Guarded(grid::kNoRow, [&] { return grid_->Model().FirstSelected(); });
}

int CvListControl::GetSelectedColumn() noexcept {
  return edge::Guarded(grid::kNoColumn, [&] { return grid_->SelectedColumn(); });
}

int CvListControl::AddItem() noexcept {
  return edge::Guarded(grid::kNoRow, [&] { return grid_->AddInsertItem(grid_->Model().ItemCount()); });
}

int CvListControl::InsertItem() noexcept {
  return edge::Guarded(grid::kNoRow, [&] { return grid_->AddInsertItem(grid_->Model().FirstSelected()); });
}

void CvListControl::DeleteItem() noexcept {
  edge::Guarded([&] { grid_->DeleteItem(); });
}

int CvListControl::CheckClassNumber(int row, CString text) noexcept {
  return edge::Guarded(0, [&] { return grid_->CheckNumberCell(row, text, grid::kBadClassNumber); });
}

int CvListControl::CheckRevisionNumber(int row, CString text) noexcept {
  return edge::Guarded(0, [&] { return grid_->CheckNumberCell(row, text, grid::kBadRevision); });
}

void CvListControl::MessageText(const char* text) noexcept {
  edge::Guarded([&] { grid_->MessageText(text); });
}

void CvListControl::ErrorText(const char* text) noexcept {
  edge::Guarded([&] { grid_->ErrorText(text); });
}

// ---------------------------------------------------------------------------------------- keys, copying, pasting, undo

void CvListControl::SetKeys(int flags) noexcept {
  edge::Guarded([&] { grid_->SetKeys(flags); });
}

int CvListControl::GetKeys() noexcept {
  return edge::Guarded(0, [&] { return grid_->Keys(); });
}

int CvListControl::CopyCells(int row, int col, int rows, int cols) noexcept {
  return edge::Guarded(0, [&] { return grid_->CopyCells(row, col, rows, cols); });
}

int CvListControl::PasteCells(int row, int col) noexcept {
  return edge::Guarded(grid::kRefused, [&] { return grid_->PasteCells(row, col); });
}

int CvListControl::ClearCells(int row, int col, int rows, int cols) noexcept {
  return edge::Guarded(0, [&] { return grid_->ClearCells(row, col, rows, cols); });
}

int CvListControl::GetCellsText(int row, int col, int rows, int cols, char* out, int size) noexcept {
  if (out != nullptr && size > 0) *out = '\0';
  return edge::Guarded(1, [&] { return grid_->GetCellsText(row, col, rows, cols, out, size); });
}

int CvListControl::SetCellsText(int row, int col, const char* text) noexcept {
  return edge::Guarded(grid::kRefused, [&] { return grid_->SetCellsText(row, col, text); });
}

void CvListControl::SetPasteRows(int mode) noexcept {
  edge::Guarded([&] { grid_->Editing().SetPasteRows(mode); });
}

void CvListControl::SetPasteCheck(int (*check)(void* context, int row, int col, const char* text),
                                  void* context) noexcept {
  edge::Guarded([&] { grid_->Editing().SetPasteCheck(check, context); });
}

int CvListControl::Undo() noexcept {
  return edge::Guarded(0, [&] { return grid_->Undo(); });
}

int CvListControl::Redo() noexcept {
  return edge::Guarded(0, [&] { return grid_->Redo(); });
}

int CvListControl::CanUndo() noexcept {
  return edge::Guarded(0, [&] { return grid_->Editing().CanUndo() ? 1 : 0; });
}

int CvListControl::CanRedo() noexcept {
  return edge::Guarded(0, [&] { return grid_->Editing().CanRedo() ? 1 : 0; });
}

void CvListControl::SetUndoLimit(int steps) noexcept {
  edge::Guarded([&] { grid_->Editing().SetLimit(steps); });
}

void CvListControl::SetChanged(void (*changed)(void* context, int row, int rows), void* context) noexcept {
  edge::Guarded([&] { grid_->SetChanged(changed, context); });
}

void CvListControl::SetImeMode(int col, int mode) noexcept {
  edge::Guarded([&] { grid_->SetImeMode(col, mode); });
}

// ------------------------------------------------------------------------------------------------- editing and drawing

void CvListControl::ClickItem() noexcept {
  edge::Guarded([&] { grid_->ClickItem(); });
}

void CvListControl::ClickItem(int row, int col) noexcept {
  edge::Guarded([&] { grid_->ClickItem(row, col); });
}

void CvListControl::GetClickItem(int* row, int* col) noexcept {
  CvGrid::ClickedCell cell;
  edge::Guarded([&] { cell = grid_->FindClickedCell(); });
  if (row != nullptr) *row = cell.row;
  if (col != nullptr) *col = cell.column;
}

void CvListControl::SelectItem(int row, int col) noexcept {
  edge::Guarded([&] { grid_->AskForCell(row, col); });
}

void CvListControl::SelectItem() noexcept {
  edge::Guarded([&] { grid_->SelectItem(); });
}

void CvListControl::KeyInput() noexcept {
  edge::Guarded([&] { grid_->KeyInput(); });
}

void CvListControl::OpenComboBox() noexcept {
  edge::Guarded([&] { grid_->OpenComboBox(); });
}

void CvListControl::CloseComboBox() noexcept {
  edge::Guarded([&] { grid_->CloseComboBox(); });
}

void CvListControl::SelchangeComboBox(const char* text) noexcept {
  edge::Guarded([&] { grid_->SelchangeComboBox(text); });
}

void CvListControl::OnDrawItem(DRAWITEMSTRUCT* dis) noexcept {
  edge::Guarded([&] {
    if (dis != nullptr) grid_->OnDrawItem(static_cast<int>(dis->itemID));
  });
}

void CvListControl::DrawItem() noexcept {
  edge::Guarded([&] { grid_->DrawItem(); });
}
