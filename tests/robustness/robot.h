// Plays the user of modal dialogs from within their own message loops: thousands of runs in a row, without the pauses
// that real input needs.
//
// A robot has a list of steps. Each is for the dialog that holds a certain control, and is done when that dialog is the
// one in front. A dialog that comes up unexpected, or stays open after its step, is cancelled; a message box is
// answered with its first button; a step whose dialog does not come is passed over. So a run comes to its end whatever
// fails in it. After the last step the dialogs that are left are cancelled. A loop that has nothing for the robot to do
// for long, and a run that gets no message at all (watchdog.h), end the program, which says where it is.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace robustness {

class Robot {
 public:
  struct Step {
    int control;  ///< ID of a control that only this dialog has
    std::function<void(HWND dialog)> act;
  };

  /// Acts as long as it lives, whenever a loop of this thread runs.
  explicit Robot(std::vector<Step> steps);
  ~Robot();
  Robot(const Robot&) = delete;
  Robot& operator=(const Robot&) = delete;

  /// Whether every step was done.
  [[nodiscard]] bool DidAll() const { return done_ == steps_.size(); }

 private:
  static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool Tick();
  void Act(HWND front);
  void Wait(HWND front, const Step& step);

  std::vector<Step> steps_;
  std::size_t next_ = 0;
  std::size_t done_ = 0;
  int idle_ = 0;
  int left_ = 0;
  bool posted_ = false;
  HWND window_ = nullptr;
};

/// Presses a button of a dialog, later, from its loop.
void Press(HWND dialog, int id);
/// Sends a dialog the notification of one of its controls.
void Notify(HWND dialog, int id, UINT code);
void SetText(HWND dialog, int id, const std::string& text);
/// Clicks on a cell of a list view.
void ClickRow(HWND list, int row);
/// The row of a list view with that text, -1 for none.
[[nodiscard]] int FindRow(HWND list, const std::string& name);

}  // namespace robustness
