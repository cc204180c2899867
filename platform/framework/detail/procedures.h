// The window procedure and the dialog procedure. Internal to the framework.
#pragma once

#include "platform/framework/win32.h"

class CDialog;
class CWnd;

namespace framework {

/// In front of the own procedure of every window that an object takes part in, and of every watched host.
LRESULT CALLBACK WindowProcedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) noexcept;

/// Of every dialog that a CDialog creates.
INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT id, WPARAM wParam, LPARAM lParam) noexcept;

/// While it exists, the next window that this thread creates is bound to `object` before its first message.
class CreationScope {
 public:
  /// `parent` and `id`: what the control's messages to its parent name before the control can be found by its ID.
  CreationScope(CWnd& object, HWND parent, UINT id) noexcept;
  CreationScope(const CreationScope&) = delete;
  CreationScope& operator=(const CreationScope&) = delete;
  ~CreationScope();

  /// Whether the window was made without being bound, for want of memory or of a hook.
  [[nodiscard]] bool BindingFailed() const noexcept { return !bound_; }
  /// The window with this ID that is being created in `parent`; null when there is none.
  [[nodiscard]] static HWND Find(HWND parent, UINT id) noexcept;

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam) noexcept;

  CWnd* object_;  // null once its window has come
  bool bound_ = false;
  HWND window_ = nullptr;
  HWND parent_;
  UINT id_;
  HHOOK hook_;
  CreationScope* outer_;
};

/// While it exists, the next dialog of this thread is bound to `object` at its first message.
class DialogCreationScope {
 public:
  explicit DialogCreationScope(CWnd& object) noexcept;
  DialogCreationScope(const DialogCreationScope&) = delete;
  DialogCreationScope& operator=(const DialogCreationScope&) = delete;
  ~DialogCreationScope();

  /// The object that waits; it waits no longer.
  [[nodiscard]] static CWnd* Take() noexcept;

 private:
  CWnd* outer_;
};

}  // namespace framework
