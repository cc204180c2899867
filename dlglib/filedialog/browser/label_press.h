// What a press of a mouse button does while a name is being edited in the list, and to the double click that it may
// begin.
#pragma once

#include <functional>

#include "dlglib/filedialog/browser/file_browser.h"

namespace filedialog {

class LabelPress {
 public:
  /// Where a press falls, and when.
  struct Press {
    bool endsEdit = false;       ///< a name is being edited, and the press is outside its box
    bool isInList = false;       ///< on the rows or beside them
    bool isCancel = false;       ///< on what ends the dialog without a choice
    bool isSecondOfTwo = false;  ///< the second half of a double click
  };

  /// `cancel`: ends the dialog without a choice once the press is over. `browser` must outlive this.
  LabelPress(FileBrowser& browser, std::function<void()> cancel);

  /// Gives an edited name before a press outside it does its work. True for a press that must not be acted on any more.
  [[nodiscard]] bool UsesUp(const Press& press);

  /// Whether a double click opens what is selected. `isOnSelection`: on a row, with something selected.
  [[nodiscard]] bool OpensByDoubleClick(bool isOnSelection) const { return isOnSelection || last_ != Did::EndedEdit; }

 private:
  /// What the last press, or the first half of a double click, did to an edited name.
  enum class Did {
    Nothing,    ///< nothing was being edited
    EndedEdit,  ///< ended an edit that changed nothing, and then did its work
    GaveName,   ///< gave a name and did nothing more
  };

  [[nodiscard]] bool GivesName(const Press& press);

  FileBrowser& browser_;
  std::function<void()> cancel_;
  Did last_ = Did::Nothing;
};

}  // namespace filedialog
