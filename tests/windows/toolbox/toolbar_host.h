// Dialogs with a toolbar over two edit controls: one of the framework, and one that knows nothing of it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dlglib/utility/CvUtility.h"
#include "tests/windows/driver/user.h"

namespace toolbar_test {

inline constexpr int kFirstEdit = 101;   ///< of one line
inline constexpr int kSecondEdit = 102;  ///< of several lines
inline constexpr int kButton = 103;
inline constexpr int kToolBar = 10003;
inline constexpr int kCarrier = 10000;
inline constexpr char kTitle[] = "図面文字の編集";

enum class HostKind { Framework, Plain };

/// Runs the dialog until the script has closed it.
class Host {
 public:
  virtual ~Host() = default;

  /// Shows the dialog on this thread, `prepare` runs on it before it is shown, `script` on a second thread.
  void Run(const std::function<void(CvUtility&)>& prepare, const std::function<void(driver::User&, Host&)>& script);

  [[nodiscard]] driver::Window Dialog() const { return driver::Window(window_); }
  [[nodiscard]] driver::Window ToolBar() const { return Dialog().Child(kToolBar); }
  [[nodiscard]] driver::Window Edit(int id = kFirstEdit) const { return Dialog().Child(id); }
  /// A button's rectangle, or its middle, on the screen.
  [[nodiscard]] RECT ButtonRect(int index) const;
  [[nodiscard]] POINT ButtonMiddle(int index) const { return driver::Center(ButtonRect(index)); }
  /// Runs on the dialog's thread and returns when it is done.
  void OnDialogThread(const std::function<void()>& action) const;
  /// Likewise, from the dialog's message loop, without waiting. `action` must live until it has run.
  void OnDialogLoop(const std::function<void()>& action) const;
  /// Puts the caret, or a selection, into an edit control that then has the focus. Characters.
  void Focus(driver::User& user, int id, int from, int to) const;
  /// IDs of the WM_COMMANDs of the toolbar that reached the dialog.
  [[nodiscard]] const std::vector<int>& Commands() const { return commands_; }
  [[nodiscard]] std::unique_ptr<CvUtility>& Utility() { return utility_; }
  void Close() const { ::PostMessageW(window_, WM_CLOSE, 0, 0); }
  /// Runs on the dialog's thread whenever a dialog above this one has ended.
  void WhenEnabled(const std::function<void()>& action) { whenEnabled_ = action; }

 protected:
  static constexpr UINT kRunAction = WM_APP + 7;

  virtual void RunModal() = 0;
  /// For the dialogs: their controls, and the messages that the tests look at. `object` stands for the dialog.
  void Start(HWND window, CWnd* object);
  void Watch(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  HWND window_ = nullptr;
  std::function<void(CvUtility&)> prepare_;
  std::unique_ptr<CvUtility> utility_;
  std::vector<int> commands_;
  std::function<void()> whenEnabled_;
};

[[nodiscard]] std::unique_ptr<Host> MakeHost(HostKind kind);

/// What the clipboard holds; "(none)" for no text.
[[nodiscard]] std::string ClipboardText();
/// Puts a text on the clipboard as any program does.
void SetClipboard(const std::string& text);

}  // namespace toolbar_test
