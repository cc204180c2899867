// CvListLabel: the edit of a name in the browser's list, and the presses that end it.
#pragma once

#include <optional>

#include "dlglib/filedialog/browser/label_press.h"
#include "dlglib/filedialog/window/CvFileList.h"
#include "platform/framework/detail/accessible.h"
#include "platform/framework/message.h"

class CvListLabel {
 public:
  /// All must outlive this.
  CvListLabel(CWnd& dialog, CvFileList& list, filedialog::FileBrowser& browser);

  /// The dialog's messages about the edit; nullopt for any other.
  [[nodiscard]] Handled RouteMessage(const Message& message);

  /// Gives an edited name, as a step that is not about it does first. False when the step is over by that.
  [[nodiscard]] bool Finish();

  /// Gives an edited name before a press of a mouse button outside it does its work. True for a press that must not be
  /// acted on any more.
  [[nodiscard]] bool UsesUpPress(const MSG& message);

  /// Whether a double click opens what is selected. `isOnSelection`: on a row, with something selected.
  [[nodiscard]] bool OpensByDoubleClick(bool isOnSelection) const { return press_.OpensByDoubleClick(isOnSelection); }

 private:
  LRESULT OnBegin(NMHDR* notification);
  LRESULT OnEnd(NMHDR* notification);
  void OnCommit() { browser_.CommitLabel(); }
  [[nodiscard]] filedialog::LabelPress::Press PressOf(const MSG& message) const;
  [[nodiscard]] bool PressesCancel(const MSG& message) const;

  CWnd& dialog_;
  CvFileList& list_;
  filedialog::FileBrowser& browser_;
  filedialog::LabelPress press_;
  std::optional<NamedControl> boxName_;  ///< while a name is edited
};
