// Reflection: which messages of a parent are about one of its controls, and how such a message's result is returned.
// For the window procedure and the dialog procedure; clients use the rows of message_map.h and HostReflector.
#pragma once

#include <memory>

#include "platform/framework/message.h"
#include "platform/framework/window_ref.h"

namespace framework {

struct WindowEntry;

/// Where a message of a parent keeps the control that it is about.
enum class ControlPlace {
  None,            ///< it is about no control
  LParam,          ///< lParam is the control
  NotifyHeader,    ///< NMHDR::hwndFrom
  DrawItem,        ///< DRAWITEMSTRUCT::hwndItem; none for menus
  DeleteItem,      ///< DELETEITEMSTRUCT::hwndItem
  CompareItem,     ///< COMPAREITEMSTRUCT::hwndItem
  MeasureItem,     ///< MEASUREITEMSTRUCT::CtlID, as the control may be in the middle of its creation; none for menus
  ParentNotified,  ///< lParam when the low word of wParam is WM_CREATE or WM_DESTROY
};

/// The one table of reflected messages.
[[nodiscard]] ControlPlace ReflectionOf(UINT message) noexcept;

/// The control that `message` is about, when it is a child of `message.window` or owned by it; null otherwise.
[[nodiscard]] HWND ReflectionTarget(const Message& message) noexcept;

/// The value that a dialog procedure returns for a handled message. The messages whose result is the return value
/// itself give `result`; for all others it is stored in the dialog, when that still exists, and TRUE returned.
[[nodiscard]] INT_PTR DialogResult(HWND dialog, UINT message, LRESULT result) noexcept;

}  // namespace framework

/// Reflects for a host that is no window of the framework. While objects watch a host, its messages about framework
/// controls are offered to these controls; every message is passed on to the host as well, and a control's answer is
/// the result. The host is subclassed once, however many watch it, and let go with the last of them or with its own
/// end, whichever comes first. A host that is a window of the framework reflects by itself and is left alone.
class DLGLIB_API HostReflector {
 public:
  HostReflector() noexcept;
  HostReflector(const HostReflector&) = delete;
  HostReflector& operator=(const HostReflector&) = delete;
  ~HostReflector();

  /// Watches `host` instead of the one before. Null, or a window of another process or thread, watches none.
  void Watch(WindowArg host);
  /// Watches none.
  void Release() noexcept;
  /// The watched window; null when there is none or it is gone.
  [[nodiscard]] HWND Host() const noexcept;

 private:
  std::shared_ptr<framework::WindowEntry> entry_;
};
