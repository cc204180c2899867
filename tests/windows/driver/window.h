// Windows as seen from outside: what a person, or another process, can read of them.
//
// Every read goes by a message with a time limit, so a hung program makes the read fail (driver::Stuck) and never hangs
// the reader. It works on windows of the own and of other processes alike unless a call says otherwise. All texts are
// Shift_JIS.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace driver {

/// Thrown when something that should happen on the screen does not; what() holds the reason and a list of the windows.
class Stuck : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Whether both are handles of one window: only their lower 32 bits count.
[[nodiscard]] bool IsSameWindow(HWND a, HWND b);

/// How long a message may take to be answered before the window counts as hung, in milliseconds.
inline constexpr UINT kAnswerMs = 30000;

/// Memory in the process of a window, for messages that take a pointer and are not carried across by the system.
class TargetMemory {
 public:
  TargetMemory(HWND window, std::size_t size);
  ~TargetMemory();
  TargetMemory(const TargetMemory&) = delete;
  TargetMemory& operator=(const TargetMemory&) = delete;

  /// The address as the window's process sees it, `offset` bytes into the block.
  [[nodiscard]] LPARAM At(std::size_t offset = 0) const;
  void Write(const void* from, std::size_t size, std::size_t offset = 0);
  void Read(void* to, std::size_t size, std::size_t offset = 0) const;

 private:
  HANDLE process_;
  unsigned char* address_;
};

/// A borrowed window handle with questions to ask. Copied freely; owns nothing.
class Window {
 public:
  Window() = default;
  explicit Window(HWND handle) : handle_(handle) {}

  [[nodiscard]] HWND Handle() const { return handle_; }
  [[nodiscard]] explicit operator bool() const { return handle_ != nullptr; }
  friend bool operator==(const Window&, const Window&) = default;

  [[nodiscard]] bool Exists() const { return IsWindow(handle_) != FALSE; }
  /// Visible on the screen: its own style bit and that of every parent.
  [[nodiscard]] bool IsVisible() const { return IsWindowVisible(handle_) != FALSE; }
  [[nodiscard]] bool IsEnabled() const { return IsWindowEnabled(handle_) != FALSE; }
  [[nodiscard]] bool HasFocus() const;
  [[nodiscard]] bool IsForeground() const { return IsSameWindow(GetForegroundWindow(), handle_); }
  [[nodiscard]] std::string ClassName() const;
  [[nodiscard]] std::string Text() const;
  [[nodiscard]] int Id() const { return GetDlgCtrlID(handle_); }
  [[nodiscard]] DWORD Style() const;
  [[nodiscard]] DWORD ExStyle() const;
  [[nodiscard]] Window Parent() const { return Window(GetAncestor(handle_, GA_PARENT)); }
  [[nodiscard]] Window Owner() const { return Window(GetWindow(handle_, GW_OWNER)); }
  [[nodiscard]] DWORD ProcessId() const;

  /// The direct child with the control ID; throws Stuck when there is none.
  [[nodiscard]] Window Child(int id) const;
  /// The direct child with the control ID, or an empty window.
  [[nodiscard]] Window FindChild(int id) const { return Window(GetDlgItem(handle_, id)); }
  /// The direct children in Z order, hidden ones too.
  [[nodiscard]] std::vector<Window> Children() const;
  /// The first direct child of that class, or an empty window.
  [[nodiscard]] Window FindChildOfClass(const std::string& className) const;

  // Rectangles, in pixels unless stated.
  [[nodiscard]] RECT ScreenRect() const;
  /// The client area in screen coordinates.
  [[nodiscard]] RECT ClientScreenRect() const;
  /// The window's rectangle in client coordinates of its parent.
  [[nodiscard]] RECT RectInParent() const;
  /// The same in dialog units of the parent dialog, as a template would have it. Own process only.
  [[nodiscard]] RECT UnitsInParent() const;
  /// The size of the client area in the dialog's own units. Own process only.
  [[nodiscard]] SIZE ClientUnits() const;

  // Buttons.
  /// BST_CHECKED, BST_UNCHECKED or BST_INDETERMINATE.
  [[nodiscard]] int CheckState() const { return static_cast<int>(Send(BM_GETCHECK)); }

  // Combo boxes and list boxes (told apart by their class).
  [[nodiscard]] std::vector<std::string> Items() const;
  /// Index of the selected item, -1 for none.
  [[nodiscard]] int Selection() const;
  [[nodiscard]] bool IsDropped() const { return Send(CB_GETDROPPEDSTATE) != 0; }
  /// The list of a combo box that drops down.
  [[nodiscard]] Window ComboList() const;

  // Edit boxes: the selected range, in characters.
  [[nodiscard]] std::pair<int, int> TextSelection() const;

  /// Sends a message within the time limit; throws Stuck when it is not answered.
  /// The text of WM_SETTEXT is Shift_JIS; every other message goes as its wide form.
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  LRESULT SetText(const std::string& text) const;

 private:
  [[nodiscard]] bool IsListBox() const;
  LRESULT SendWide(UINT message, WPARAM wParam, LPARAM lParam) const;

  HWND handle_ = nullptr;
};

/// A list view.
class ListView : public Window {
 public:
  using Window::Window;
  explicit ListView(Window window) : Window(window) {}

  [[nodiscard]] int Count() const { return static_cast<int>(Send(LVM_GETITEMCOUNT)); }
  [[nodiscard]] std::string Cell(int row, int column = 0) const;
  /// The texts of column 0, top to bottom.
  [[nodiscard]] std::vector<std::string> Names() const;
  /// The row whose text in column 0 is `name`, -1 for none.
  [[nodiscard]] int FindRow(const std::string& name) const;
  /// Image index of a row as the control asks for it.
  [[nodiscard]] int Image(int row) const;
  /// LVIS_ bits.
  [[nodiscard]] UINT State(int row) const;
  [[nodiscard]] bool IsSelected(int row) const { return (State(row) & LVIS_SELECTED) != 0; }
  [[nodiscard]] std::vector<int> SelectedRows() const;
  [[nodiscard]] int FocusedRow() const;
  [[nodiscard]] int TopRow() const { return static_cast<int>(Send(LVM_GETTOPINDEX)); }
  [[nodiscard]] Window Header() const;
  [[nodiscard]] int ColumnCount() const;
  /// Title, width in pixels and format bits (LVCFMT_) of a column.
  struct Column {
    std::string title;
    int width = 0;
    int format = 0;
  };
  [[nodiscard]] Column ColumnAt(int column) const;
  /// Screen rectangle of a column's title.
  [[nodiscard]] RECT HeaderRect(int column) const;
  /// Screen rectangle of a row's part: LVIR_BOUNDS, LVIR_ICON or LVIR_LABEL.
  [[nodiscard]] RECT ItemRect(int row, int part = LVIR_LABEL) const;
  /// Screen rectangle of a cell (report view).
  [[nodiscard]] RECT CellRect(int row, int column) const;
  /// The edit box of a label that is being edited, or an empty window.
  [[nodiscard]] Window LabelEdit() const;

 private:
  [[nodiscard]] RECT ToScreen(RECT rect) const;
  [[nodiscard]] static std::string ReadText(const TargetMemory& memory, std::size_t offset);
};

/// The visible top-level windows of a process, topmost first.
[[nodiscard]] std::vector<Window> VisibleWindows(DWORD processId);
/// Who gets the input and which keys are held; one line for each window of a process with its children indented:
/// handle, class, ID, text, rectangle, state.
[[nodiscard]] std::string DescribeWindows(DWORD processId);
/// The middle of a rectangle.
[[nodiscard]] POINT Center(const RECT& rect);

}  // namespace driver
