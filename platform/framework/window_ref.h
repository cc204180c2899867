// A bare window handle with the calls of the platform as members. Owns nothing, is in no map, is copied freely; every
// call on a window that is gone or null fails as the platform's own call does. All members are inline, so those that
// bear the name of a Win32 macro (SetWindowText ...) belong to the source that calls them and are neither exported nor
// virtual.
//
// Texts are Shift_JIS, whatever the system's own code page is, and meet the system in wide form; sizes of buffers are
// bytes with the terminator. A character that Shift_JIS lacks is read as "|", which no file name and no pattern holds.
#pragma once

#include "platform/framework/export.h"
#include "platform/framework/message_box.h"
#include "platform/framework/strings.h"
#include "platform/framework/text_messages.h"
#include "platform/framework/win32.h"
#include "platform/framework/window_handle.h"

class CWnd;

/// A window given to a function of the library. A class of its own keeps the exported names the same for clients that
/// compile with and without STRICT.
struct WindowArg {
  WindowArg(HWND window) noexcept : handle(window) {}
  HWND handle;
};

namespace framework {

/// The object attached to the window, else the window's light object; null for null. See CWnd::FromHandle.
DLGLIB_API CWnd* ObjectOf(WindowArg window);

}  // namespace framework

class WindowRef {
 public:
  WindowRef() noexcept = default;
  explicit WindowRef(HWND window) noexcept : m_hWnd(window) {}

  HWND m_hWnd = nullptr;

  /// The handle; null also when called on a null pointer's behalf through `HandleOf`.
  [[nodiscard]] HWND GetSafeHwnd() const noexcept { return m_hWnd; }
  [[nodiscard]] static HWND HandleOf(const WindowRef* window) noexcept {
    return window != nullptr ? window->m_hWnd : nullptr;
  }
  [[nodiscard]] bool IsWindow() const noexcept { return ::IsWindow(m_hWnd) != FALSE; }
  /// Whether `window` is this one. Handles of one window may differ as values.
  [[nodiscard]] bool Is(HWND window) const noexcept { return framework::IsSameWindow(m_hWnd, window); }

  // --- messages. The texts of the system's own messages are Shift_JIS; structures of the common controls pass as they
  // are (SendText in text_messages.h).
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return framework::SendText(m_hWnd, message, wParam, lParam);
  }
  /// Sends a message whose lParam is a pointer. The receiver may write through it where the message says so.
  LRESULT SendPointer(UINT message, WPARAM wParam, const void* data) const {
    return Send(message, wParam, reinterpret_cast<LPARAM>(data));
  }
  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return Send(message, wParam, lParam);
  }
  BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return framework::PostText(m_hWnd, message, wParam, lParam);
  }

  // --- text
  void SetWindowText(const char* text) const { framework::SetTextOf(m_hWnd, text); }
  /// Copies at most `size` - 1 bytes, whole characters, and a terminator; returns the bytes copied.
  int GetWindowText(char* buffer, int size) const { return framework::CopyTextOf(m_hWnd, buffer, size); }
  void GetWindowText(CString& text) const { framework::GetTextOf(m_hWnd, text); }
  /// Bytes of the text.
  [[nodiscard]] int GetWindowTextLength() const { return framework::TextLengthOf(m_hWnd); }
  /// Shows a message box owned by this window and returns the button's ID. Pumps messages. See ShowMessageBox.
  int MessageBox(const char* text, const char* caption = nullptr, UINT type = MB_OK) const {
    return framework::ShowMessageBox(m_hWnd, text, caption, type);
  }

  // --- family
  [[nodiscard]] CWnd* GetDlgItem(int id) const { return framework::ObjectOf(::GetDlgItem(m_hWnd, id)); }
  [[nodiscard]] int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
  [[nodiscard]] CWnd* GetParent() const { return framework::ObjectOf(::GetParent(m_hWnd)); }
  [[nodiscard]] CWnd* GetWindow(UINT relation) const { return framework::ObjectOf(::GetWindow(m_hWnd, relation)); }
  [[nodiscard]] CWnd* GetTopLevel() const { return framework::ObjectOf(::GetAncestor(m_hWnd, GA_ROOT)); }
  [[nodiscard]] BOOL IsChild(const WindowRef* window) const { return ::IsChild(m_hWnd, HandleOf(window)); }
  void SetDlgItemText(int id, const char* text) const { framework::SetTextOf(::GetDlgItem(m_hWnd, id), text); }
  int GetDlgItemText(int id, char* buffer, int size) const {
    return framework::CopyTextOf(::GetDlgItem(m_hWnd, id), buffer, size);
  }
  int GetDlgItemText(int id, CString& text) const {
    WindowRef(::GetDlgItem(m_hWnd, id)).GetWindowText(text);
    return text.GetLength();
  }
  LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return framework::SendText(::GetDlgItem(m_hWnd, id), message, wParam, lParam);
  }
  void CheckDlgButton(int id, UINT state) const { ::CheckDlgButton(m_hWnd, id, state); }
  [[nodiscard]] UINT IsDlgButtonChecked(int id) const { return ::IsDlgButtonChecked(m_hWnd, id); }
  void GotoDlgCtrl(const WindowRef* control) const {
    ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(HandleOf(control)), TRUE);
  }
  void NextDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 0, FALSE); }
  void PrevDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 1, FALSE); }
  /// Turns a rectangle of dialog units into pixels; only for dialogs.
  void MapDialogRect(RECT* rect) const { ::MapDialogRect(m_hWnd, rect); }

  // --- place and size, in pixels
  void GetWindowRect(RECT* rect) const { ::GetWindowRect(m_hWnd, rect); }
  void GetClientRect(RECT* rect) const { ::GetClientRect(m_hWnd, rect); }
  void ScreenToClient(POINT* point) const { ::ScreenToClient(m_hWnd, point); }
  void ScreenToClient(RECT* rect) const { MapRect(HWND_DESKTOP, m_hWnd, rect); }
  void ClientToScreen(POINT* point) const { ::ClientToScreen(m_hWnd, point); }
  void ClientToScreen(RECT* rect) const { MapRect(m_hWnd, HWND_DESKTOP, rect); }
  void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE) const {
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
  }
  void MoveWindow(const RECT* rect, BOOL repaint = TRUE) const {
    MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
  }
  BOOL SetWindowPos(HWND after, int x, int y, int width, int height, UINT flags) const {
    return ::SetWindowPos(m_hWnd, after, x, y, width, height, flags);
  }
  BOOL BringWindowToTop() const { return ::BringWindowToTop(m_hWnd); }

  // --- state
  BOOL ShowWindow(int command) const { return ::ShowWindow(m_hWnd, command); }
  BOOL EnableWindow(BOOL enable = TRUE) const { return ::EnableWindow(m_hWnd, enable); }
  [[nodiscard]] BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
  [[nodiscard]] BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
  [[nodiscard]] DWORD GetStyle() const { return LongStyle(GWL_STYLE); }
  [[nodiscard]] DWORD GetExStyle() const { return LongStyle(GWL_EXSTYLE); }
  /// Clears and sets style bits; FALSE when nothing changed. With `flags` also SetWindowPos with these SWP_ flags,
  /// without moving, sizing or activating.
  BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0) const { return Modify(GWL_STYLE, remove, add, flags); }
  BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT flags = 0) const { return Modify(GWL_EXSTYLE, remove, add, flags); }
  CWnd* SetFocus() const { return framework::ObjectOf(::SetFocus(m_hWnd)); }
  [[nodiscard]] static CWnd* GetFocus() { return framework::ObjectOf(::GetFocus()); }
  CWnd* SetCapture() const { return framework::ObjectOf(::SetCapture(m_hWnd)); }
  [[nodiscard]] static CWnd* GetCapture() { return framework::ObjectOf(::GetCapture()); }
  CWnd* SetActiveWindow() const { return framework::ObjectOf(::SetActiveWindow(m_hWnd)); }
  BOOL SetForegroundWindow() const { return ::SetForegroundWindow(m_hWnd); }

  // --- painting
  void Invalidate(BOOL erase = TRUE) const { ::InvalidateRect(m_hWnd, nullptr, erase); }
  void InvalidateRect(const RECT* rect, BOOL erase = TRUE) const { ::InvalidateRect(m_hWnd, rect, erase); }
  void ValidateRect(const RECT* rect) const { ::ValidateRect(m_hWnd, rect); }
  void UpdateWindow() const { ::UpdateWindow(m_hWnd); }
  BOOL RedrawWindow(const RECT* rect = nullptr, HRGN region = nullptr,
                    UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE) const {
    return ::RedrawWindow(m_hWnd, rect, region, flags);
  }
  void SetRedraw(BOOL redraw = TRUE) const { Send(WM_SETREDRAW, static_cast<WPARAM>(redraw)); }
  /// The window's font, borrowed; null when the window uses the system's.
  [[nodiscard]] HFONT GetFont() const { return reinterpret_cast<HFONT>(Send(WM_GETFONT)); }
  /// The caller keeps the font and keeps it alive as long as the window uses it.
  void SetFont(HFONT font, BOOL redraw = TRUE) const {
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), MAKELPARAM(redraw, 0));
  }

  // --- timers
  UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC callback = nullptr) const {
    return ::SetTimer(m_hWnd, id, milliseconds, callback);
  }
  BOOL KillTimer(UINT_PTR id) const { return ::KillTimer(m_hWnd, id); }

 private:
  [[nodiscard]] DWORD LongStyle(int index) const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, index)); }
  static void MapRect(HWND from, HWND to, RECT* rect) {
    POINT corners[] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
    ::MapWindowPoints(from, to, corners, 2);
    *rect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
  }
  BOOL Modify(int index, DWORD remove, DWORD add, UINT flags) const {
    const DWORD before = LongStyle(index);
    const DWORD after = (before & ~remove) | add;
    if (before == after) return FALSE;
    ::SetWindowLongPtrW(m_hWnd, index, static_cast<LONG_PTR>(after));
    constexpr UINT kStay = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
    if (flags != 0) SetWindowPos(nullptr, 0, 0, 0, 0, flags | kStay);
    return TRUE;
  }
};
