// The programs of the guide, used as a person would use them.
#pragma once

#include <functional>
#include <string>

#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"

namespace client {

/// One of them while it runs, with its dialog in front.
class GuideProgram {
 public:
  /// Starts the program `name` and waits for its dialog.
  GuideProgram(const std::string& name, const std::string& title);

  [[nodiscard]] driver::User& Person() { return user_; }
  [[nodiscard]] const driver::Window& Dialog() const { return dialog_; }
  /// Another dialog of the program with a list view in it: its file browser, whatever its title is.
  [[nodiscard]] driver::Window WaitBrowser() const;
  /// Until the text of a control is that one.
  void WaitText(int id, const std::string& text) const;

  /// Leaves a picture of a rectangle of the screen, once it stands still, as "pictures/<name>.png".
  void TakePicture(const RECT& rect) const;
  void TakePicture() const { TakePicture(dialog_.ScreenRect()); }

  /// Clicks on the dialog's OK, and sees the program end.
  void Accept();
  void SeeEnd() const;

 private:
  std::string name_;
  driver::Program program_;
  driver::User user_;
  driver::Window dialog_;
};

/// Runs a program from its start to its end; `use` plays the person. Gives what it has printed.
std::string RunGuide(const std::string& name, const std::string& title, const std::function<void(GuideProgram&)>& use);

/// The programs that ask for files, check what was typed, and show stored texts.
void UseGuideForFiles();
void UseGuideForTexts();
/// Those with a grid in their dialog.
void UseGuideForTables();

}  // namespace client
