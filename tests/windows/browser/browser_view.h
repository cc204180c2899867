// What a person sees of an open file browser, and does with it.
#pragma once

#include <string>
#include <vector>

#include "tests/core/filedialog/browser/browser_machine.h"
#include "tests/windows/driver/user.h"

namespace browser_test {

class Browser {
 public:
  /// Waits until the browser is on the screen.
  explicit Browser(driver::User& user, const std::string& caption = kCaption);

  [[nodiscard]] driver::User& Person() const { return user_; }
  [[nodiscard]] driver::Window Window() const { return window_; }
  [[nodiscard]] bool IsOpen() const { return window_.Exists() && window_.IsVisible(); }
  [[nodiscard]] driver::ListView List() const;
  /// The file name box and the edit box in it.
  [[nodiscard]] driver::Window NameBox() const;
  [[nodiscard]] driver::Window NameEdit() const;
  [[nodiscard]] std::string Name() const { return NameBox().Text(); }
  [[nodiscard]] driver::Window LocationBar() const;
  /// The rows of the location bar below the drive or network that holds the current folder.
  [[nodiscard]] Texts Trail() const;
  [[nodiscard]] Texts Rows() const { return List().Names(); }
  [[nodiscard]] Texts SelectedNames() const;

  /// Until all input is worked off and nothing is read. A folder of real files may take so long that input is let
  /// through meanwhile.
  void Rest() const;

  // ---- the list; a row must be in sight
  void ClickRow(const std::string& name, const std::vector<WORD>& held = {});
  void OpenRow(const std::string& name);
  void ClickHeader(int column);
  /// Image of the mark in a column's header: 0, 1, or -1 for none.
  [[nodiscard]] int SortMark(int column) const;
  /// A report view's cell as it is on the screen. What stands beside the names may come later than the rows do:
  /// ExpectCell waits for it.
  [[nodiscard]] driver::Picture CellPicture(int row, int column) const;
  void ExpectCell(int row, int column, const std::string& text, UINT side) const;
  /// What a cell of that size shows with the text in it, on the ground of an unselected row.
  [[nodiscard]] driver::Picture TextPicture(int row, int column, const std::string& text, UINT side) const;

  // ---- ways and buttons
  void ChoosePlace(const std::string& text);
  void Up();
  void Back();
  void ChooseView(const std::string& text);
  void TypeName(const std::string& text);
  /// Puts the text into the empty name box by the clipboard.
  void PasteName(const std::string& text);
  void Ok();
  void Cancel();
  /// Presses OK and does not wait for what is read then.
  void PressOk();
  /// Types a name and presses the OK button.
  void Enter(const std::string& text);
  /// Reads a message with one button, checks caption, text and icon, and closes it.
  void ExpectMessage(const std::string& text, UINT icon = MB_ICONEXCLAMATION);
  /// The same for a question, answered with `button`.
  void ExpectQuestion(const std::string& text, int button);

 private:
  void ClickArea(int id);
  [[nodiscard]] bool IsReading() const;
  [[nodiscard]] POINT RowPoint(const std::string& name) const;
  [[nodiscard]] LONG NextOffset();
  [[nodiscard]] RECT CellOnScreen(int row, int column) const;

  driver::User& user_;
  std::string caption_;
  driver::Window window_;
  LONG offset_ = 0;
};

}  // namespace browser_test
