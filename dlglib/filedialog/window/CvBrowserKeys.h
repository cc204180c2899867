// CvBrowserKeys: the keys of the browser, which do what its areas, its menus and the titles of its columns do, and walk
// between its parts.
//
//   in the list   Backspace, F2, Delete, F4, Ctrl+1 to Ctrl+5
//   anywhere      F5, F6 and Shift+F6, Alt+Up, Alt+Left, Alt+D, Alt+N, Alt+R, Alt+V
//
// A key that works anywhere ends the edit of a name in the list first, as a click does, and does nothing when the name
// is refused. While a list is dropped down, Alt+Up is that list's.
#pragma once

#include <optional>

#include "dlglib/filedialog/browser/browser_keys.h"
#include "dlglib/filedialog/browser/file_browser.h"
#include "dlglib/filedialog/window/CvFileList.h"
#include "dlglib/filedialog/window/CvListLabel.h"
#include "dlglib/filedialog/window/CvLocationBar.h"
#include "dlglib/filedialog/window/CvNavigation.h"

class CvBrowserKeys {
 public:
  /// All must outlive this.
  struct Parts {
    CWnd& dialog;
    CvFileList& list;
    CvLocationBar& places;
    CvListLabel& label;
    CvNavigation& navigation;
    filedialog::FileBrowser& browser;
  };

  explicit CvBrowserKeys(const Parts& parts) : parts_(parts) {}

  /// Does what a fetched message means; true when it means something.
  [[nodiscard]] bool Run(const MSG& message);

 private:
  [[nodiscard]] bool RunWithAlt(int key);
  [[nodiscard]] bool RunAnywhere(int key);
  [[nodiscard]] bool RunInList(int key);
  void RunCommand(filedialog::ListCommand command);
  void WalkParts(filedialog::Walk walk);
  void FocusPart(filedialog::BrowserPart part);
  [[nodiscard]] std::optional<filedialog::BrowserPart> FocusedPart() const;
  [[nodiscard]] bool HasDroppedList() const;

  Parts parts_;
};
