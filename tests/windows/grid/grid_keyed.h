// A grid whose keys are switched on, in a dialog under a person's hands.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/windows/driver/user.h"
#include "tests/windows/grid/grid_host.h"
#include "tests/windows/grid/grid_table.h"

namespace grid_test {

// Columns of the table; kNumber, kName and kMaterial are those of grid_table.h.
inline constexpr int kUnit = 3;    ///< a list and no box
inline constexpr int kSwatch = 4;  ///< colours, no editor
inline constexpr int kKeyedRows = 12;

/// Row and column of the cell that is edited, as the list answers.
using Edited = std::pair<int, int>;

/// 12 of 30 rows in use; row 4 is not available.
void MakeKeyedTable(Host& host);
/// The same with all keys on.
void FillKeyedTable(Host& host);

class KeyedGridTest : public testing::TestWithParam<HostKind> {
 protected:
  /// Shows the dialog with the table, lets `script` act, and ends the dialog when it is still there. Returns its
  /// result.
  int Use(const std::function<void(driver::User&)>& script, const std::function<void(Host&)>& fill = FillKeyedTable);
  /// Clicks on a cell with an editor.
  void ClickCell(driver::User& user, int row, int col);
  [[nodiscard]] Edited EditedCell();
  /// Presses keys one after the other, each on its own.
  static void Press(driver::User& user, const std::vector<WORD>& keys);
  /// The list's rows whose select flag is set.
  [[nodiscard]] std::vector<int> SelectedRows();
  /// A block as a text.
  [[nodiscard]] std::string Block(int row, int col, int rows, int cols);
  /// Something that the list answers, asked on its own thread.
  int Ask(const std::function<int(CvListControl&)>& question);
  /// The list view has the focus, and no cell is edited.
  void FocusListView(driver::User& user);
  /// Selects several rows in the list view as Ctrl and clicks do, and edits a cell of the first one.
  void SelectRows(driver::User& user, const std::vector<int>& rows, int col);
  /// Beeps since this was asked last.
  static int TakeBeeps();

  std::unique_ptr<Host> host_ = Host::Make(GetParam());
};

[[nodiscard]] inline std::string NameOfHost(const testing::TestParamInfo<HostKind>& host) {
  return host.param == HostKind::Framework ? "Framework" : "Plain";
}

// The clipboard, from the test's own thread.

/// Text in wide form; no zero at its end is needed.
void SetClipboard(const std::wstring& text);
void EmptyTheClipboard();
/// A text in 8-bit form only, of which the system makes the others, in the code page of that language.
void SetClipboardBytes(const std::string& text, WORD language);
/// No text at all.
void SetClipboardOfOtherFormat();
[[nodiscard]] std::wstring ClipboardText();
/// What the system makes of it in 8-bit form.
[[nodiscard]] std::string ClipboardBytes();
/// As the text is marked, 0 when it is not.
[[nodiscard]] WORD ClipboardLanguage();

/// Another program's window keeps the clipboard open while this lives.
class HeldClipboard {
 public:
  HeldClipboard();
  HeldClipboard(const HeldClipboard&) = delete;
  HeldClipboard& operator=(const HeldClipboard&) = delete;
  ~HeldClipboard();

 private:
  HWND window_;
};

}  // namespace grid_test
