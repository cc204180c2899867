// Windows with a grid in them: a dialog of the framework and one that knows nothing of it. Both forward WM_DRAWITEM and
// the list's click, as an application does, and nothing else.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dlglib/dlglib.h"
#include "tests/windows/driver/user.h"

namespace grid_test {

inline constexpr int kList = 1001;
inline constexpr int kZone = 1002;   ///< a label
inline constexpr int kOther = 1003;  ///< an edit box beside the grid
inline constexpr int kDialogCombo = 1004;
// ASCII, as a plain host's window is an 8-bit one: it would lose a Japanese title on a system of another code page.
inline constexpr char kTitle[] = "grid test";

enum class HostKind { Framework, Plain };

/// The list view is 322 by 202 pixels with a border of one, at 10, 10; the usable width is 322 - 16.
class Host {
 public:
  static std::unique_ptr<Host> Make(HostKind kind);
  virtual ~Host() = default;

  /// Creates the window, hands it to `fill`, and shows it.
  void Open(const std::function<void(Host&)>& fill);
  /// The same, and runs it as a modal dialog. Returns IDOK or IDCANCEL.
  virtual int Run(const std::function<void(Host&)>& fill) = 0;
  virtual void Destroy() = 0;
  [[nodiscard]] virtual CWnd* Window() = 0;

  [[nodiscard]] HWND Handle() { return WindowRef::HandleOf(Window()); }
  [[nodiscard]] HWND Child(int id) { return ::GetDlgItem(Handle(), id); }
  [[nodiscard]] driver::ListView ListView() { return driver::ListView(Child(kList)); }
  [[nodiscard]] std::string ZoneText() { return driver::Window(Child(kZone)).Text(); }
  /// The visible editors of the grid, empty windows when there is none.
  [[nodiscard]] driver::Window EditBox() { return Editor(10000); }
  [[nodiscard]] driver::Window ComboBox() { return Editor(10002); }
  [[nodiscard]] std::string Text(int row, int col);
  /// Runs something on the window's thread, from any other.
  void Do(const std::function<void()>& action);
  /// The same without waiting; `action` must live until it has run.
  void DoLater(const std::function<void()>& action);
  /// Dispatches what is in the queue.
  static void Pump();

  std::unique_ptr<CvListControl> list = std::make_unique<CvListControl>();
  /// When set, WM_DRAWITEM is not forwarded but goes here.
  std::function<void(DRAWITEMSTRUCT*)> onDraw;
  std::function<void()> onExchange;
  /// What a host does at its controls' notifications: control ID, code.
  std::function<void(int, int)> onCommand;
  int drawn = 0;
  int clicks = 0;

 protected:
  virtual void Create() = 0;
  void AddControls();
  /// True when it was one of the messages that a host deals with.
  bool Forward(UINT message, WPARAM wParam, LPARAM lParam);

  std::function<void(Host&)> fill_;

 private:
  [[nodiscard]] driver::Window Editor(int id);
};

}  // namespace grid_test
