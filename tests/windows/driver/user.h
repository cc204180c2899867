// Plays the person in front of the screen: looks, waits, moves the real mouse, types on the real keyboard.
//
// A dialog runs on the main thread; the person acts on a second thread:
//
//   driver::RunDialog([&] { answer = dialog.DoModal(); }, [&](driver::User& user) {
//     driver::Window window = user.WaitDialog("ファイル選択");
//     user.Type("A-001");
//     user.Click(window.Child(IDOK));
//   });
//
// No call sleeps for a fixed time: each waits until a condition holds and throws driver::Stuck when that takes too
// long. Texts are Shift_JIS, points and rectangles are pixels of the screen.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/windows/driver/picture.h"
#include "tests/windows/driver/window.h"

namespace driver {

/// How long a person waits for something to happen before giving up, in milliseconds.
inline constexpr DWORD kPatienceMs = 30000;

/// Exit code of a program that could not be freed from a hang.
inline constexpr unsigned kHangExitCode = 98;

/// A message box on the screen.
struct MessageBoxView {
  Window window;
  std::string caption;
  std::string text;
  /// IDs of its visible buttons, left to right: IDOK, IDCANCEL, IDYES ...
  std::vector<int> buttons;
  /// MB_ICONHAND, MB_ICONQUESTION, MB_ICONEXCLAMATION or MB_ICONASTERISK; 0 for none. Own process only, else 0.
  UINT icon = 0;
};

/// One entry of a popup menu.
struct MenuItem {
  std::string text;
  UINT id = 0;
  bool isSeparator = false;
  bool isEnabled = true;
  bool isChecked = false;
  bool hasSubMenu = false;
};

/// A popup menu on the screen. Own process only.
struct MenuView {
  Window window;
  HMENU handle = nullptr;
  std::vector<MenuItem> items;
};

class User {
 public:
  /// A person who looks at the windows of a process. `dialogThread` is the thread that runs them when it belongs to
  /// this process, else 0: Settle needs it.
  explicit User(DWORD processId = GetCurrentProcessId(), DWORD dialogThread = 0, DWORD patienceMs = kPatienceMs);
  ~User();
  User(const User&) = delete;
  User& operator=(const User&) = delete;

  // ---- waiting

  /// Asks `condition` again and again until its answer is true and returns; `what` names the condition when it stays
  /// false.
  void WaitUntil(const std::string& what, const std::function<bool()>& condition) const;
  /// The visible dialog with that title. Without a title: any visible and enabled dialog.
  [[nodiscard]] Window WaitDialog(const std::string& title = {}) const;
  /// The visible top-level window of that class, with that title unless it is empty.
  [[nodiscard]] Window WaitWindow(const std::string& className, const std::string& title = {}) const;
  /// Whether a visible top-level window of that class is there now.
  [[nodiscard]] bool Sees(const std::string& className, const std::string& title = {}) const;
  /// Until the window is closed or hidden.
  void WaitGone(Window window) const;
  /// Until the dialog thread has worked off all input so far, has painted, and waits for more. With a program of
  /// another process whose window is in front: until it has worked off all input so far; it may still have to paint.
  void Settle() const;

  // ---- mouse

  void MoveTo(POINT point) const;
  /// Rests on the middle of a window.
  void Hover(Window window) const;
  void Press(POINT point);
  void Release(POINT point) const;
  /// A single click, never the second half of a double click. On a window: on its middle, which must not be covered.
  void Click(POINT point);
  void Click(Window window);
  void DoubleClick(POINT point);
  void RightClick(POINT point);
  /// Presses at one point, moves in small steps to another, releases there.
  void Drag(POINT from, POINT to);
  /// Opens a combo box by its button and clicks on an entry of its list, scrolling there by the keyboard.
  void ChooseComboItem(Window combo, int index);

  // ---- keyboard: whatever has the focus gets it

  /// One key, with others held down meanwhile: Key(VK_TAB), Key('A', {VK_CONTROL}).
  void Key(WORD key, const std::vector<WORD>& held = {}) const;
  void HoldKey(WORD key) const;
  void ReleaseKey(WORD key) const;
  /// Types a text, Japanese too, character by character.
  void Type(const std::string& text) const;
  /// The same in UTF-16, for characters that Shift_JIS lacks.
  void Type(std::wstring_view units) const;
  /// Puts a text on the clipboard and presses Ctrl+V.
  void Paste(const std::string& text) const;
  void Paste(const std::wstring& units) const;
  /// Clicks into an edit box, selects what it holds and types over it.
  void Replace(Window edit, const std::string& text);

  // ---- message boxes and menus

  [[nodiscard]] MessageBoxView WaitMessageBox() const;
  /// Clicks on the button of a message box and waits until the box is gone.
  void Answer(const MessageBoxView& box, int button);
  /// The innermost popup menu that is open.
  [[nodiscard]] MenuView WaitMenu() const;
  /// Clicks on an entry. One that opens a further menu leaves the menus open; any other closes them.
  void Choose(const MenuView& menu, const std::string& text);

  // ---- pixels

  /// What the screen shows inside a window's rectangle once everything is painted.
  [[nodiscard]] Picture Look(Window window) const;
  [[nodiscard]] Picture Look(const RECT& rect) const;

 private:
  void SendMouse(POINT point, const std::vector<DWORD>& flags) const;
  void AvoidDoubleClick(POINT point);
  void ClickButton(POINT point, DWORD down, DWORD up);
  [[nodiscard]] Window Find(const std::string& className, const std::string& title) const;
  [[nodiscard]] HWND AnsweringWindow() const;
  void SettleOther() const;
  [[nodiscard]] bool SharesKeys() const;
  [[noreturn]] void Fail(const std::string& reason) const;

  DWORD processId_;
  DWORD dialogThread_;
  DWORD patienceMs_;
  HHOOK hook_ = nullptr;
  mutable DWORD sharedThread_ = 0;  ///< of another process; its input and this thread's are one
  POINT lastClick_ = {-1000, -1000};
  DWORD lastClickTime_ = 0;
};

/// Runs `dialog` on the calling thread and `script` on a second one, until both have returned. The mouse is first
/// parked in the lower right corner of the screen. Throws what the script throws, and Stuck when the dialog is still
/// open `patienceMs` after the script's end; the windows are then closed so that the next test can run. When even that
/// fails, the windows are listed on stderr and the program ends with kHangExitCode.
void RunDialog(const std::function<void()>& dialog, const std::function<void(User&)>& script,
               DWORD patienceMs = kPatienceMs);

}  // namespace driver
