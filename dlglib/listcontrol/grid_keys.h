// What a key means in a grid, in which state. Decides only; the window tells the state and carries the command out.
//
// Flags that are not set leave their keys to whoever had them before, and so does everything here while an input method
// composes, but for the keys that would end the dialog or leave the cell: those do nothing then.
#pragma once

#include "dlglib/listcontrol/editable_cells.h"

namespace grid {

/// CvListControl::SetKeys.
inline constexpr int kKeysMove = 1;
inline constexpr int kKeysClipboard = 2;
inline constexpr int kKeysUndo = 4;
inline constexpr int kKeysRows = 8;
inline constexpr int kKeysAll = 15;

enum class Key {
  Other,
  Tab,
  Enter,
  Escape,
  Space,
  Up,
  Down,
  Left,
  Right,
  Home,
  End,
  PageUp,
  PageDown,
  F2,
  F4,
  Insert,
  Delete,
  Minus,
  C,
  V,
  X,
  Y,
  Z,
  Process,  ///< the input method takes it
};

/// The key of a virtual-key code of the platform.
[[nodiscard]] Key KeyOf(unsigned int code) noexcept;

struct KeyPress {
  Key key = Key::Other;
  bool shift = false;
  bool control = false;
  bool alt = false;
};

/// Where the focus is and what is open.
struct KeyState {
  int flags = 0;
  /// The cell being edited, with its box or with the list view's focus; the row is kNoRow when there is none.
  CellPosition edited;
  int lastColumn = kNoColumn;      ///< edited last
  bool boxHasFocus = false;        ///< over the edited cell
  bool listIsOpen = false;         ///< of the edited cell
  bool isComposing = false;        ///< an input method has a composition open, for the box or for the open list
  bool hasTextToGiveBack = false;  ///< GridUndo::TextToGiveBack
  int rowsPerPage = 1;             ///< that are wholly visible
};

enum class KeyAction {
  Pass,           ///< the key belongs to the control that has the focus, and to the dialog
  Swallow,        ///< nothing happens
  Edit,           ///< the command's cell is edited and its row the only selected one; never counts as a second click
  EditAndDrop,    ///< as Edit; then its list is dropped down
  Type,           ///< as Edit; then all of its text is marked, and the key or the composition goes on to the box
  LeaveForward,   ///< the control behind the grid gets the focus
  LeaveBackward,  ///< the control before it
  GiveBack,       ///< the box and its cell get the text back that the cell had when the box came
  CaretToEnd,     ///< the marking goes, the caret stands behind the text
  DropDown,       ///< the edited cell's list
  MoveInList,     ///< the key goes to the open list, which shows another entry and picks nothing
  PickFromList,   ///< the entry that is shown; the list closes
  CloseList,      ///< without a pick
  ListView,       ///< the key goes to the list view, and its selection is taken over: no cell is edited then
  // From here on a list that is open closes first, without a pick.
  LeaveToBox,  ///< the key goes on to the box
  Copy,        ///< the selected rows
  Cut,         ///< copies and clears them
  Clear,       ///< the selected rows
  Paste,       ///< at the command's cell
  PasteOrBox,  ///< at the command's cell when the clipboard holds several cells, else into the box
  Undo,
  Redo,
  InsertRow,   ///< as CvListControl::InsertItem
  DeleteRows,  ///< as CvListControl::DeleteItem
};

struct KeyCommand {
  KeyAction action = KeyAction::Pass;
  CellPosition cell = {};

  friend bool operator==(const KeyCommand&, const KeyCommand&) = default;
};

/// For a key that goes down.
[[nodiscard]] KeyCommand PlanKey(const KeyPress& press, const KeyState& state, const EditableCells& cells);

/// For a character that comes (WM_CHAR, WM_IME_CHAR), in UTF-16; kComposition for a composition that begins. In an open
/// list letters move, but not those of a composition in the box, and the beginning of a composition is no letter; on a
/// cell with a list and no box they drop it down; without an edited cell they start an edit.
inline constexpr char16_t kComposition = 0xFFFF;
[[nodiscard]] KeyCommand PlanCharacter(char16_t character, const KeyState& state, const EditableCells& cells);

/// Whether a character is what the system makes of a key that has been taken: a control character, or that of a key
/// that types one. It goes with the key.
[[nodiscard]] bool IsMadeBy(Key key, char16_t character) noexcept;

/// The entries of an open list.
struct ListEntries {
  int shown = -1;  ///< the one that is shown now, -1 for none
  int count = 0;
  int perPage = 1;  ///< as many as are seen at once
};
/// The entry that a key shows; the one that is shown already when there is no other, -1 in an empty list.
[[nodiscard]] int EntryAfter(Key key, const ListEntries& entries) noexcept;

}  // namespace grid
