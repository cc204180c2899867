// CvListLabel: the edit of a name in the browser's list, and the presses that end it.
#pragma once

#include "dlglib/filedialog/browser/file_browser.h"
#include "dlglib/filedialog/window/CvFileList.h"
#include "platform/framework/message.h"

class CvListLabel {
 public:
  /// All must outlive this.
  CvListLabel(CWnd& dialog, CvFileList& list, filedialog::FileBrowser& browser)
      : dialog_(dialog), list_(list), browser_(browser) {}

  /// The dialog's messages about the edit; nullopt for any other.
  [[nodiscard]] Handled RouteMessage(const Message& message);

  /// Gives an edited name, as a step that is not about it does first. False when the step is over by that.
  [[nodiscard]] bool Finish();

  /// Gives an edited name before a press of a mouse button outside it does its work. True for a press that must not be
  /// acted on any more.
  [[nodiscard]] bool UsesUpPress(const MSG& message);

  /// Whether the last press, or the first half of a double click, has ended an edit that changed nothing.
  [[nodiscard]] bool EndedByPress() const { return press_ == Press::EndedEdit; }

 private:
  using LabelEnd = filedialog::FileBrowser::LabelEnd;

  /// What the last press of a mouse button, or the first half of a double click, did to an edited name.
  enum class Press {
    Plain,      ///< nothing was being edited
    EndedEdit,  ///< ended an edit that changed nothing, and then did its work
    UsedUp,     ///< gave a name and did nothing more
  };

  LRESULT OnBegin(NMHDR* notification);
  LRESULT OnEnd(NMHDR* notification);
  void OnCommit() { browser_.CommitLabel(); }
  [[nodiscard]] bool FinishByPress(const MSG& message);
  [[nodiscard]] bool PressesCancel(const MSG& message) const;

  CWnd& dialog_;
  CvFileList& list_;
  filedialog::FileBrowser& browser_;
  Press press_ = Press::Plain;
};
