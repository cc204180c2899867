// One window message on its way to a handler, and a handler's answer.
#pragma once

#include <optional>

#include "platform/framework/win32.h"

/// A handler's answer. nullopt: not mine, ask the next one. Any value, zero included: handled, and this is the result.
using Handled = std::optional<LRESULT>;

/// A message as the window procedure received it. Handlers read it through the accessors and need no casts.
struct Message {
  HWND window;             ///< the window it was sent to: the parent of the control when `reflected`
  UINT id;                 ///< WM_...
  WPARAM wParam;           ///< as the message has it
  LPARAM lParam;           ///< as the message has it
  bool reflected = false;  ///< the parent offers it to the control that it came from

  /// WM_COMMAND: the control, menu or accelerator ID. WM_NOTIFY: the control's ID.
  [[nodiscard]] UINT ControlId() const noexcept {
    return id == WM_NOTIFY ? static_cast<UINT>(Notification()->idFrom) : static_cast<UINT>(LOWORD(wParam));
  }
  /// WM_COMMAND: the notification code; 0 for menus and accelerators. WM_NOTIFY: the notification's code.
  [[nodiscard]] UINT Code() const noexcept {
    if (id == WM_NOTIFY) return Notification()->code;
    return lParam != 0 ? static_cast<UINT>(HIWORD(wParam)) : 0U;
  }
  /// What lParam points to, as the message's own structure: `message.Data<MINMAXINFO>()`, `Data<DRAWITEMSTRUCT>()`.
  template <class T>
  [[nodiscard]] T* Data() const noexcept {
    return reinterpret_cast<T*>(lParam);
  }
  /// WM_NOTIFY: the notification, as the structure of its code: `message.Notification<NMLISTVIEW>()`.
  template <class T = NMHDR>
  [[nodiscard]] T* Notification() const noexcept {
    return Data<T>();
  }
  /// WM_CTLCOLOR...: the device context. Borrowed from the sender.
  [[nodiscard]] HDC DeviceContext() const noexcept { return reinterpret_cast<HDC>(wParam); }
  /// The window that lParam names: the control of WM_COMMAND, WM_CTLCOLOR..., WM_HSCROLL and their like.
  [[nodiscard]] HWND Control() const noexcept { return reinterpret_cast<HWND>(lParam); }
  /// Mouse messages: the position in client coordinates.
  [[nodiscard]] POINT Position() const noexcept {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
  }
};
