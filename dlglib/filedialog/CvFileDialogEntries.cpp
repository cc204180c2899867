// What the user does to the entries of the current folder: new folder, rename, delete.
#include <algorithm>
#include <utility>

#include "dlglib/filedialog/CvFileDialog.h"
#include "dlglib/filedialog/CvNewFolder.h"
#include "dlglib/resources/resource.h"
#include "dlglib/utility/at_scope_end.h"

using filedialog::EntryKind;
using filedialog::FileEntry;
using filedialog::OperationResult;
using Outcome = OperationResult::Outcome;

namespace {

constexpr std::size_t kMaxEditedName = 1024;

bool IsPress(UINT message) {
  constexpr UINT kPresses[] = {WM_LBUTTONDOWN,   WM_LBUTTONDBLCLK,  WM_RBUTTONDOWN,   WM_RBUTTONDBLCLK,
                               WM_MBUTTONDOWN,   WM_MBUTTONDBLCLK,  WM_NCLBUTTONDOWN, WM_NCLBUTTONDBLCLK,
                               WM_NCRBUTTONDOWN, WM_NCRBUTTONDBLCLK};
  return std::find(std::begin(kPresses), std::end(kPresses), message) != std::end(kPresses);
}

std::string EditedText(const char* text) { return {text, std::find(text, text + kMaxEditedName, '\0')}; }

}  // namespace

void CvFileDialog::OnNewFolder() {
  const std::string folder = places_.Folder();
  EnableWays();
  if (!filedialog::CanCreateFolder(folder)) return;
  CvNewFolder dialog(this, folder);
  if (dialog.DoModal() != IDOK) return;
  ShowPlaces();
  RecordStep();
  SetViewMode(layout_.viewMode);
  SelectNamed(dialog.Name());
}

void CvFileDialog::SelectNamed(const std::string& name) {
  const auto row = filedialog::FindRowNamed(table_.rows(), name);
  if (!row) return;
  list_.SelectRow(static_cast<int>(*row));
  table_.rows()[*row].selected = true;
  okSubject_.BrowserSelected();
}

std::vector<const FileEntry*> CvFileDialog::SelectedEntries() const {
  std::vector<const FileEntry*> entries;
  for (const int row : list_.SelectedRows()) entries.push_back(&table_.rows()[static_cast<std::size_t>(row)]);
  return entries;
}

filedialog::EntryMenu CvFileDialog::OfferedOperations() const {
  std::vector<EntryKind> kinds;
  for (const FileEntry* entry : SelectedEntries()) kinds.push_back(entry->kind);
  return filedialog::EntryMenuFor(kinds);
}

void CvFileDialog::OnListRightClick() {
  TakeSelection();
  POINT at{};
  ::GetCursorPos(&at);
  ShowEntryMenu(at);
}

/// The menu key: the mouse's way comes as the list's own notification.
Handled CvFileDialog::OnContextMenu(const Message& message) {
  const bool fromKeyboard = message.lParam == -1;
  if (!fromKeyboard || !list_.Is(::GetFocus())) return std::nullopt;
  RECT row{};
  const int focused = list_.GetNextItem(-1, LVNI_FOCUSED);
  if (focused < 0 || !list_.GetItemRect(focused, &row, LVIR_LABEL)) list_.GetClientRect(&row);
  POINT at{row.left, focused < 0 ? row.top : row.bottom};
  list_.ClientToScreen(&at);
  ShowEntryMenu(at);
  return 0;
}

void CvFileDialog::ShowEntryMenu(POINT at) {
  const HMENU menu = ::GetSubMenu(entryMenu_.Get(), 0);
  const filedialog::EntryMenu offered = OfferedOperations();
  ::EnableMenuItem(menu, ID_ENTRY_DELETE, offered.canDelete ? MF_ENABLED : MF_GRAYED);
  ::EnableMenuItem(menu, ID_ENTRY_RENAME, offered.canRename ? MF_ENABLED : MF_GRAYED);
  ::TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_RIGHTBUTTON, at.x, at.y, 0, m_hWnd, nullptr);
}

void CvFileDialog::OnRename() {
  if (!OfferedOperations().canRename) return;
  const FileEntry& entry = *SelectedEntries().front();
  CvNewFolder dialog(this, places_.Folder());
  dialog.SetRename(std::string(filedialog::NameInFolder(entry)), filedialog::IsFile(entry.kind));
  const bool isDone = dialog.DoModal() == IDOK;
  if (isDone || dialog.HasStranded()) ListAgain();
}

void CvFileDialog::OnDelete() {
  if (!OfferedOperations().canDelete) return;
  std::vector<std::string_view> names;
  for (const FileEntry* entry : SelectedEntries()) names.push_back(filedialog::NameInFolder(*entry));
  if (filedialog::DeleteEntries(m_hWnd, places_.Folder(), names)) ListAgain();
}

/// After an operation: nothing is selected, the file name box keeps its text.
void CvFileDialog::ListAgain() {
  SetViewMode(layout_.viewMode);
  TakeSelection();
}

LRESULT CvFileDialog::OnBeginLabelEdit(NMHDR* notification) {
  const int row = reinterpret_cast<NMLVDISPINFOA*>(notification)->item.iItem;
  if (row < 0 || static_cast<std::size_t>(row) >= table_.size()) return TRUE;
  const FileEntry& entry = table_.rows()[static_cast<std::size_t>(row)];
  const EntryKind kinds[] = {entry.kind};
  if (!filedialog::EntryMenuFor(kinds).canRename) return TRUE;
  editedRow_.Clear();  // first: without memory for what follows the edit goes on and no row gets its text
  editedFolder_ = places_.Folder();
  editedRow_.Add(entry.kind, entry.path, entry.name, false);
  const std::string_view name = filedialog::NameInFolder(entry);
  if (name != entry.name) list_.GetEditControl().SetWindowText(std::string(name).c_str());
  return FALSE;
}

/// The list is in the middle of ending the edit, so it is filled anew by a message of its own.
LRESULT CvFileDialog::OnEndLabelEdit(NMHDR* notification) {
  const LVITEMA& item = reinterpret_cast<NMLVDISPINFOA*>(notification)->item;
  if (item.pszText == nullptr) return FALSE;
  editedName_ = EditedText(item.pszText);
  PostMessage(kCommitLabel);
  return FALSE;
}

void CvFileDialog::OnCommitLabel() { CommitLabel(); }

/// Unchanged also without a name to be given.
Outcome CvFileDialog::CommitLabel() {
  const std::optional<std::string> name = std::exchange(editedName_, std::nullopt);
  if (!name || editedRow_.size() == 0) return Outcome::Unchanged;
  const FileEntry& row = editedRow_.rows().front();
  const OperationResult result = filedialog::CommitLabel(editedFolder_, row, *name);
  if (filedialog::IsRefusal(result.outcome)) {
    MessageBox(result.message.c_str(), result.caption.c_str(), MB_OK | MB_ICONHAND);
  }
  if (result.outcome == Outcome::Done || result.outcome == Outcome::Stranded) {
    const std::string listed = result.outcome == Outcome::Done ? *name : std::string(filedialog::NameInFolder(row));
    SetViewMode(layout_.viewMode);
    if (editedFolder_ == places_.Folder()) SelectNamed(listed);
  }
  return result.outcome;
}

/// Ends an edit that goes on, as a click elsewhere does, and gives the name at once.
Outcome CvFileDialog::FinishLabelEdit() {
  if (list_.GetEditControl().m_hWnd != nullptr) list_.SetFocus();
  return CommitLabel();
}

/// Gives an edited name before a press of a mouse button does its work: the list is filled anew and takes the focus,
/// which would let go of a pressed button, and put another row below the second half of a double click. True for a
/// press that must not be acted on.
bool CvFileDialog::TakePress(const MSG& message) {
  if (!IsPress(message.message)) return false;
  const EditRef edit = list_.GetEditControl();
  const bool endsEdit = edit.m_hWnd != nullptr && !edit.Is(message.hwnd);
  if (endsEdit) {
    press_ = Press::Taken;  // also when an exception ends it: the rows may have moved
    if (!FinishByPress(message)) press_ = Press::EndedEdit;
  } else if (message.message != WM_LBUTTONDBLCLK) {
    press_ = Press::Plain;
  }
  return press_ == Press::Taken;
}

/// Whether the press that gives the name has thereby done its work.
bool CvFileDialog::FinishByPress(const MSG& message) {
  const LifeWatch watch(*this);
  Outcome outcome = Outcome::Refused;  // also what an exception makes of it
  const AtScopeEnd cancelled([&] {
    // A message has taken the release of the button, or the press is lost: it would not close the browser.
    if (watch.Alive() && filedialog::IsRefusal(outcome) && PressesCancel(message)) PostMessage(WM_COMMAND, IDCANCEL);
  });
  outcome = FinishLabelEdit();
  if (!watch.Alive() || filedialog::IsRefusal(outcome)) return true;
  return outcome == Outcome::Done && list_.Is(message.hwnd);
}

bool CvFileDialog::PressesCancel(const MSG& message) const {
  if (message.message == WM_NCLBUTTONDOWN) return message.wParam == HTCLOSE && Is(message.hwnd);
  return message.message == WM_LBUTTONDOWN && WindowRef(::GetDlgItem(m_hWnd, IDCANCEL)).Is(message.hwnd);
}
