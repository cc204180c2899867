// The keys of the title items dialog: what each one means on its rows, and in the list of titles that drops down from a
// row. That list never has the focus, so while it is open its keys come past it.
#pragma once

namespace filedialog {

enum class TitleAction {
  Pass,       ///< the key belongs to the control that has the focus, and to the dialog
  Stay,       ///< nothing happens
  ChooseRow,  ///< the command's row
  EditText,   ///< the annotation of the command's row, when it may be edited
  OpenList,   ///< the command's row is chosen, and its list opened
  WalkTo,     ///< the command's entry of the open list is marked
  Pick,       ///< the entry that is marked; the list closes
  CloseList,  ///< nothing is picked
};

struct TitleCommand {
  TitleAction action = TitleAction::Pass;
  int at = -1;  ///< row or entry
};

/// Rows and entries are counted from 0; -1 is none.
struct TitleKeyState {
  bool rowsHaveFocus = false;
  int row = -1;  ///< chosen
  int rows = 0;
  bool listIsOpen = false;
  int entry = -1;  ///< marked
  int entries = 0;
};

/// `key`: as in virtual_keys.h.
[[nodiscard]] TitleCommand PlanTitleKey(int key, const TitleKeyState& state);
/// The same together with Alt.
[[nodiscard]] TitleCommand PlanTitleKeyWithAlt(int key, const TitleKeyState& state);

}  // namespace filedialog
