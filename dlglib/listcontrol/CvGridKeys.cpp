// Keys: what comes to the list view and the editors is offered to the core, whose commands are carried out here.
#include <algorithm>
#include <array>

#include "dlglib/base/edge.h"
#include "dlglib/listcontrol/CvGrid.h"
#include "dlglib/listcontrol/block_text.h"
#include "platform/framework/detail/scale_messages.h"
#include "platform/framework/detail/wide_text.h"

using grid::CellPosition;
using grid::KeyAction;
using grid::KeyCommand;

namespace {

/// The user has chosen other colours. Not every list view paints itself anew then.
[[nodiscard]] bool IsChangeOfColours(UINT message) {
  return message == WM_SYSCOLORCHANGE || message == WM_THEMECHANGED || message == WM_SETTINGCHANGE;
}

constexpr LPARAM kRepeated = 0x40000000;  ///< of a key message: the key was down before

[[nodiscard]] bool IsDown(int key) { return ::GetKeyState(key) < 0; }

[[nodiscard]] grid::KeyPress PressOf(unsigned int code) {
  return {grid::KeyOf(code), IsDown(VK_SHIFT), IsDown(VK_CONTROL), IsDown(VK_MENU)};
}

[[nodiscard]] bool IsKeyDown(UINT id) { return id == WM_KEYDOWN || id == WM_SYSKEYDOWN; }

[[nodiscard]] bool IsComposition(UINT id) {
  return id == WM_IME_STARTCOMPOSITION || id == WM_IME_COMPOSITION || id == WM_IME_ENDCOMPOSITION;
}

/// As many entries as a drop-down list shows at once.
[[nodiscard]] int EntriesPerPage(HWND combo) {
  COMBOBOXINFO info = {};
  info.cbSize = sizeof info;
  if (::GetComboBoxInfo(combo, &info) == FALSE) return 1;
  RECT client = {};
  ::GetClientRect(info.hwndList, &client);
  const auto height = static_cast<int>(::SendMessageW(info.hwndList, LB_GETITEMHEIGHT, 0, 0));
  return height > 0 ? (client.bottom - client.top) / height : 1;
}

}  // namespace

// ------------------------------------------------------------------------------------------------------------ messages

/// What comes to the list view. The host's own object for it is asked later, or not at all.
Handled CvGrid::OnListViewMessage(const Message& message) {
  if (const Handled answered = OnMessageToSpeakOf(message)) return answered;
  if (message.id == WM_SETFOCUS || message.id == WM_KILLFOCUS) {
    // A press of the mouse is going to say which cell is meant; the keyboard has come back to the one that is edited.
    const bool byKeyboard = message.id == WM_SETFOCUS && !IsDown(VK_LBUTTON) && !IsDown(VK_RBUTTON);
    const std::shared_ptr<CvEdit> edit = currentEdit_;
    const bool isEdited = edit != nullptr && edit->Cell() == course_.Edited() && edit->IsWindowVisible();
    if (byKeyboard && isEdited && (keys_ & grid::kKeysMove) != 0) {
      edit->SetFocus();
    } else {
      OnFocusChange();
    }
    return std::nullopt;
  }
  if (message.id == WM_SIZE || message.id == framework::kDpiChangedAfterParent) FollowScaleWithEditors();
  if (IsChangeOfColours(message.id)) {
    FollowGround();
    list_.Invalidate();
  }
  if (message.id == WM_GETDLGCODE && WantsKey(message)) return DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_WANTMESSAGE;
  if (IsComposition(message.id)) return ForwardComposition(message);
  return OnInput(message);
}

Handled CvGrid::OnInput(const Message& message) {
  if (keys_ == 0 || passes_ || HasStrayBox(message.window)) return std::nullopt;
  switch (message.id) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      return OnKeyDown(message);
    case WM_KEYUP:
    case WM_SYSKEYUP:
      OnKeyUp(message);
      return std::nullopt;
    case WM_CHAR:
    case WM_IME_CHAR:
      return OnCharacter(message);
    default:
      return std::nullopt;
  }
}

bool CvGrid::WantsKey(const Message& message) {
  const auto* const asked = message.Data<const MSG>();
  if (keys_ == 0 || asked == nullptr || !IsKeyDown(asked->message) || HasStrayBox(message.window)) return false;
  const auto code = static_cast<unsigned int>(asked->wParam);
  const bool isHeld = (asked->lParam & kRepeated) != 0 && taken_ == grid::Key::Escape;
  return (isHeld && code == VK_ESCAPE) || PlanKey(code).action != KeyAction::Pass;
}

bool CvGrid::HasStrayBox(HWND window) {
  const std::shared_ptr<CvEdit>& edit = currentEdit_;
  const bool isBox = edit != nullptr && edit->Is(window);
  return isBox && (!edit->Cell() || edit->Cell() != course_.Edited() || !Cells().CanEdit(*edit->Cell()));
}

/// Esc that is held down has given a text back once; what follows would end the dialog.
Handled CvGrid::OnKeyDown(const Message& message) {
  const auto code = static_cast<unsigned int>(message.wParam);
  const bool isHeld = (message.lParam & kRepeated) != 0 && taken_ == grid::Key::Escape;
  if (isHeld && code == VK_ESCAPE) return 0;
  taken_ = grid::Key::Other;
  const KeyCommand command = PlanKey(code);
  if (command.action == KeyAction::Pass) return std::nullopt;
  const LifeWatch watch(owner_);
  taken_ = grid::KeyOf(code);
  const Handled handled = Run(command, message);
  if (!handled && watch.Alive()) taken_ = grid::Key::Other;
  return handled;
}

void CvGrid::OnKeyUp(const Message& message) {
  if (message.wParam == VK_ESCAPE) taken_ = grid::Key::Other;
}

/// The character of a key that was taken goes with it.
Handled CvGrid::OnCharacter(const Message& message) {
  const auto character = static_cast<char16_t>(message.wParam);
  if (taken_ != grid::Key::Other && grid::IsMadeBy(taken_, character)) return 0;
  const grid::KeyState state = StateOfKeys();
  if (list_.Is(message.window) && state.boxHasFocus) return SendToBox(message);
  const KeyCommand command = grid::PlanCharacter(character, state, Cells());
  return command.action == KeyAction::Pass ? std::nullopt : Run(command, message);
}

/// What was on its way to the list view when the first of it began the edit.
LRESULT CvGrid::SendToBox(const Message& message) const {
  const UINT id = message.id == WM_IME_CHAR ? WM_CHAR : message.id;
  return ::SendMessageW(currentEdit_->m_hWnd, id, message.wParam, message.lParam);
}

/// A composition that begins on the list view goes on in the box of the cell that it edits.
Handled CvGrid::ForwardComposition(const Message& message) {
  if (keys_ == 0) return std::nullopt;
  if (message.id == WM_IME_STARTCOMPOSITION) return BeginComposition(message);
  NoteComposition(message.id);
  const std::shared_ptr<CvEdit> edit = currentEdit_;
  return edit != nullptr && edit->IsComposing() ? Handled(SendToBox(message)) : std::nullopt;
}

/// One that has no box to go on in stays with the list view, and what comes of it moves in the list that it has
/// dropped.
Handled CvGrid::BeginComposition(const Message& message) {
  const KeyCommand command = grid::PlanCharacter(grid::kComposition, StateOfKeys(), Cells());
  if (command.action == KeyAction::Type) return Run(command, message);
  NoteComposition(message.id);
  if (command.action != KeyAction::Pass) static_cast<void>(Run(command, message));
  return std::nullopt;
}

void CvGrid::NoteComposition(UINT id) noexcept {
  if (id == WM_IME_STARTCOMPOSITION) composes_ = true;
  if (id == WM_IME_ENDCOMPOSITION) composes_ = false;
}

bool CvGrid::IsComposing() const noexcept {
  return composes_ || (currentEdit_ != nullptr && currentEdit_->IsComposing());
}

// ------------------------------------------------------------------------------------------------------------ the plan

KeyCommand CvGrid::PlanKey(unsigned int code) { return grid::PlanKey(PressOf(code), StateOfKeys(), Cells()); }

grid::KeyState CvGrid::StateOfKeys() {
  const CellPosition edited = course_.Edited();
  const std::shared_ptr<CvEdit>& edit = currentEdit_;
  grid::KeyState state;
  state.flags = keys_;
  if (Cells().CanEdit(edited)) state.edited = edited;
  state.lastColumn = lastColumn_;
  state.boxHasFocus = state.edited.row >= 0 && edit != nullptr && edit->Cell() == edited && edit->Is(::GetFocus());
  state.listIsOpen = IsListOpen();
  state.isComposing = IsComposing();
  state.hasTextToGiveBack = visited_ == edited && editing_.TextToGiveBack().has_value();
  state.rowsPerPage = list_.GetCountPerPage();
  return state;
}

bool CvGrid::IsListOpen() const {
  const ComboBoxRef combo(openCombo_);
  return combo.IsWindow() && combo.GetDroppedState();
}

// -------------------------------------------------------------------------------------------------------- the commands

Handled CvGrid::Run(const KeyCommand& command, const Message& message) {
  switch (command.action) {
    case KeyAction::Edit:
      EditByKey(command.cell);
      return 0;
    case KeyAction::EditAndDrop: {
      const LifeWatch watch(owner_);
      EditByKey(command.cell);
      if (watch.Alive() && course_.Edited() == command.cell && !IsListOpen()) OpenComboBox();
      return 0;
    }
    case KeyAction::Type:
      TypeInto(command.cell, message);
      return 0;
    case KeyAction::LeaveForward:
    case KeyAction::LeaveBackward:
      LeaveGrid(command.action);
      return 0;
    case KeyAction::ListView:
      PassToListView(message);
      return 0;
    case KeyAction::Pass:
      return std::nullopt;
    case KeyAction::Swallow:
      return 0;
    default:
      return RunInCell(command, message);
  }
}

/// In the cell that is edited, and its list.
Handled CvGrid::RunInCell(const KeyCommand& command, const Message& message) {
  switch (command.action) {
    case KeyAction::GiveBack:
      GiveBack();
      return 0;
    case KeyAction::CaretToEnd:
      currentEdit_->CaretToEnd();
      return 0;
    case KeyAction::DropDown:
      OpenComboBox();
      return 0;
    case KeyAction::MoveInList:
      MoveInList(message);
      return 0;
    case KeyAction::PickFromList:
      PickFromList();
      return 0;
    case KeyAction::CloseList:
      CloseComboBox();
      return 0;
    default:
      return RunOnBlock(command);
  }
}

Handled CvGrid::RunOnBlock(const KeyCommand& command) {
  const LifeWatch watch(owner_);
  CloseComboBox();
  if (!watch.Alive()) return 0;
  switch (command.action) {
    case KeyAction::LeaveToBox:
      return std::nullopt;
    case KeyAction::Copy:
      CopySelectedRows();
      break;
    case KeyAction::Cut:
      if (CopySelectedRows() && watch.Alive()) ClearBlock(grid::SelectedBlock(model_));
      break;
    case KeyAction::Clear:
      ClearBlock(grid::SelectedBlock(model_));
      break;
    case KeyAction::Paste:
      PasteCells(command.cell.row, command.cell.column);
      break;
    case KeyAction::PasteOrBox:
      return PasteOrLeaveToBox(command.cell);
    case KeyAction::Undo:
      Undo();
      break;
    case KeyAction::Redo:
      Redo();
      break;
    case KeyAction::InsertRow:
      AddInsertItem(model_.FirstSelected());
      break;
    case KeyAction::DeleteRows:
      DeleteItem();
      break;
    default:
      break;
  }
  return 0;
}

/// One cell is what the box can paste by itself, at its caret, when it stands there as it is.
Handled CvGrid::PasteOrLeaveToBox(CellPosition cell) {
  const std::optional<grid::ClipboardText> text = ReadClipboard();
  if (!text) return 0;
  if (grid::HoldsSeveralCells(text->sjis)) {
    PasteText(*text, cell);
    return 0;
  }
  const std::optional<std::string> single = grid::SingleCell(text->sjis);
  if (!single || *single == text->sjis) return std::nullopt;
  const std::wstring wide = framework::ToWide(*single);
  ::SendMessageW(currentEdit_->m_hWnd, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wide.c_str()));
  return 0;
}

// ------------------------------------------------------------------------------------------------------ moving by keys

/// As a click on the cell, but it never counts as the second one, and it scrolls to the cell.
void CvGrid::EditByKey(CellPosition cell) {
  const LifeWatch watch(owner_);
  course_.EndSecondClick();
  HideEditors();
  if (!watch.Alive() || !Cells().CanEdit(cell)) return;
  ClearSelectFlag();
  walksRows_ = false;
  model_.Select(cell.row, 1);
  course_.Click(cell);
  SelectInListView(cell.row);
  if (watch.Alive()) BringIntoView(cell);
  if (watch.Alive()) FinishClick();
  if (watch.Alive() && currentEdit_ == nullptr) FocusList();
}

/// So that Shift and the arrows select from this row on.
void CvGrid::SelectInListView(int row) const {
  const ListCtrlRef list = list_;
  constexpr int kAllRows = -1;
  if (list.GetSelectedCount() > 0) list.SetItemState(kAllRows, 0, LVIS_SELECTED);
  list.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  list.Send(LVM_SETSELECTIONMARK, 0, row);
}

/// A cell that is wider than the list is shown from its left edge on.
void CvGrid::BringIntoView(CellPosition cell) {
  ForgetPainting();
  list_.EnsureVisible(cell.row, FALSE);
  RecordColumns(AskPosition());
  const grid::ColumnEdges& edges = EdgesOf(cell.column);
  const int beyond = std::min(edges.right - place_.usableWidth, edges.left);
  const int dx = edges.left < 0 ? edges.left : std::max(beyond, 0);
  if (dx != 0) {
    list_.Scroll(dx, 0);
    RecordColumns(AskPosition());
  }
  RefreshPage();
}

/// All of the cell's text is marked then, so the first letter takes its place.
void CvGrid::TypeInto(CellPosition cell, const Message& message) {
  const LifeWatch watch(owner_);
  EditByKey(cell);
  if (!watch.Alive()) return;
  const std::shared_ptr<CvEdit> edit = currentEdit_;
  if (edit == nullptr || edit->Cell() != cell) return;
  if (!IsKeyDown(message.id)) SendToBox(message);
}

void CvGrid::LeaveGrid(KeyAction direction) {
  const LifeWatch watch(owner_);
  const HWND parent = parent_;
  if (openCombo_ != nullptr) CloseComboBox();
  if (!watch.Alive()) return;
  const WindowRef next(::GetNextDlgTabItem(parent, list_.m_hWnd, direction == KeyAction::LeaveBackward ? TRUE : FALSE));
  if (!next.IsWindow() || IsOfGrid(next.m_hWnd)) return;
  WindowRef(parent).Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next.m_hWnd), TRUE);
  // A window that is no dialog does not know that message.
  if (next.IsWindow() && !next.Is(::GetFocus())) ::SetFocus(next.m_hWnd);
}

/// The keys of the list view move its own selection, which becomes the grid's.
void CvGrid::PassToListView(const Message& message) {
  const LifeWatch watch(owner_);
  HideEditors();
  if (!watch.Alive()) return;
  FocusList();
  if (!watch.Alive()) return;
  passes_ = true;
  ::SendMessageW(list_.m_hWnd, message.id, message.wParam, message.lParam);
  if (!watch.Alive()) return;
  passes_ = false;
  walksRows_ = true;
  StayInUsedRows();
  ClearSelectFlag();
  AdoptListSelection();
  DrawItem();
  SettleInputMethod();
}

/// The list view has free rows behind those in use, and goes to them as well.
void CvGrid::StayInUsedRows() const {
  const ListCtrlRef list = list_;
  const int last = model_.UsedRows() - 1;
  const int row = list.GetNextItem(grid::kNoRow, LVNI_FOCUSED);
  if (last < 0 || row <= last) return;
  const bool isAlone = list.GetSelectedCount() == 1 && list.GetNextItem(grid::kNoRow, LVNI_SELECTED) == row;
  if (isAlone) {
    SelectInListView(last);
  } else {
    list.SetItemState(last, LVIS_FOCUSED, LVIS_FOCUSED);
  }
  list.EnsureVisible(last, FALSE);
}

/// The cell gets the text itself; what a box shows of it may be in other letters.
void CvGrid::GiveBack() {
  const LifeWatch watch(owner_);
  const std::optional<std::string> text = editing_.TextToGiveBack();
  if (!text) return;
  const CellPosition cell = course_.Edited();
  const std::shared_ptr<CvEdit> edit = currentEdit_;
  editing_.Type(cell, text->c_str());
  if (edit != nullptr) {
    ShowInBox(cell);
    if (edit->IsWindow()) edit->SetSel(0, -1);
  }
  if (!watch.Alive()) return;
  DrawItem();
  TellVisit();
}

// ------------------------------------------------------------------------------------------------------- the open list

/// Nothing is told to the dialog, which would take that for a pick.
void CvGrid::MoveInList(const Message& message) {
  const ComboBoxRef combo(openCombo_);
  int entry = combo.GetCurSel();
  if (IsKeyDown(message.id)) {
    const grid::ListEntries entries = {entry, combo.GetCount(), EntriesPerPage(combo.m_hWnd)};
    entry = grid::EntryAfter(grid::KeyOf(static_cast<unsigned int>(message.wParam)), entries);
  } else {
    const std::array<wchar_t, 2> start = {static_cast<wchar_t>(message.wParam), L'\0'};
    const LRESULT found = ::SendMessageW(combo.m_hWnd, CB_FINDSTRING, static_cast<WPARAM>(static_cast<INT_PTR>(entry)),
                                         reinterpret_cast<LPARAM>(start.data()));
    if (found != CB_ERR) entry = static_cast<int>(found);
  }
  combo.SetCurSel(entry);
  news_.NoteStanding();
}

/// A list of the dialog's is picked from by the dialog, which is told as after a click.
void CvGrid::PickFromList() {
  const LifeWatch watch(owner_);
  const ComboBoxRef combo(openCombo_);
  if (combo.GetCurSel() < 0) return CloseComboBox();
  const auto own = std::find_if(columns_.begin(), columns_.end(), [&combo](const Column& column) {
    return column.ownCombo != nullptr && column.ownCombo->Is(combo.m_hWnd);
  });
  if (own != columns_.end()) {
    const std::shared_ptr<CvComboBox> picked = own->ownCombo;
    return PickEntry(*picked);
  }
  const auto tell = [&](int code) {
    WindowRef(parent_).Send(WM_COMMAND, MAKEWPARAM(combo.GetDlgCtrlID(), code), reinterpret_cast<LPARAM>(combo.m_hWnd));
    return watch.Alive();
  };
  if (tell(CBN_SELENDOK) && tell(CBN_SELCHANGE) && combo.Is(openCombo_)) CloseComboBox();
}

// ------------------------------------------------------------------------------------------------ focus, input methods

bool CvGrid::IsOfGrid(HWND window) const {
  return list_.Is(window) || std::any_of(columns_.begin(), columns_.end(), [window](const Column& column) {
           return framework::IsSameWindow(window, column.combo) ||
                  framework::IsSameWindow(window, WindowRef::HandleOf(column.edit.get()));
         });
}

HWND CvGrid::OwnFocus() const {
  const HWND focus = ::GetFocus();
  return focus != nullptr && IsOfGrid(focus) ? focus : nullptr;
}

/// While the focus goes from one of the grid's windows to another one, nothing has been left.
void CvGrid::OnFocusChange() {
  const LifeWatch watch(owner_);
  composes_ = false;
  news_.NoteStanding();
  if (OwnFocus() == nullptr) TellVisit();
  if (watch.Alive()) SettleInputMethod();
}

CellPosition CvGrid::TypedCell() const noexcept { return course_.TakesText() ? course_.Edited() : CellPosition(); }

void CvGrid::SettleInputMethod() noexcept {
  const HWND focus = OwnFocus();
  if (focus == nullptr) return inputMethod_.Leave();
  inputMethod_.Enter(focus, TypedCell());
}

void CvGrid::SetImeMode(int col, int mode) noexcept {
  if (!HasColumn(col)) return;
  inputMethod_.SetMode(col, mode, OwnFocus(), TypedCell());
}
