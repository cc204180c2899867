// Gives a window's tree of accessible things (platform/os/accessible.h) to the system: screen readers and other tools
// ask for it by WM_GETOBJECT and are told of changes by events.
//
//   class List : public CListCtrl { ... AccessibleWindow accessible_; };
//   OnMessage(WM_GETOBJECT, &List::OnGetObject)            // return accessible_.Answer(message);
//   accessible_.Begin(m_hWnd, tree_);                      // once the window is there
//
// Thread: that of the window. It must be able to be a single-threaded apartment; one that is in the multi-threaded one
// leaves the request to the system. Objects that were handed out live as long as their holders want. Once the window is
// gone, or this object, each of their calls answers CO_E_OBJNOTCONNECTED, to holders in other processes that or
// RPC_E_DISCONNECTED.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/framework/detail/message_watch.h"
#include "platform/framework/message.h"
#include "platform/os/accessible.h"

namespace framework {

class AccessibleLink;
class Apartment;
struct ControlName;

}  // namespace framework

class AccessibleWindow {
 public:
  AccessibleWindow() noexcept;
  AccessibleWindow(const AccessibleWindow&) = delete;
  AccessibleWindow& operator=(const AccessibleWindow&) = delete;
  ~AccessibleWindow();

  /// Speaks for `window` from now on, by `tree`, which must outlive this or End. Nothing is made before somebody asks.
  void Begin(HWND window, accessible::Tree& tree);
  /// Gives all objects up. By itself with the window.
  void End() noexcept;

  /// WM_GETOBJECT: the answer; nothing when the request is for the system.
  [[nodiscard]] Handled Answer(const Message& message);

  /// Whether anybody hears of what changes in the window: it is to be seen, and there is somebody who listens.
  [[nodiscard]] bool IsHeard() const noexcept;
  /// Tells everybody who listens of a change: EVENT_OBJECT_FOCUS and its like.
  void Tell(DWORD event, accessible::Node node) const noexcept;

 private:
  HWND window_ = nullptr;
  accessible::Tree* tree_ = nullptr;
  std::shared_ptr<framework::AccessibleLink> link_;
};

/// The same for a window that has no object of its own, or none that answers.
class WatchedAccessibleWindow {
 public:
  WatchedAccessibleWindow() noexcept;
  void Begin(HWND window, accessible::Tree& tree);
  void End() noexcept;
  void Tell(DWORD event, accessible::Node node) const noexcept { window_.Tell(event, node); }

 private:
  [[nodiscard]] Handled OnMessage(const Message& message);

  AccessibleWindow window_;
  MessageWatch watch_;
};

/// Gives a control of the system the name that it has for its users: everything else the system says of it.
class NamedControl {
 public:
  /// Shift_JIS. A function is asked whenever somebody wants to know, as long as this lives.
  NamedControl(HWND control, const std::string& name);
  NamedControl(HWND control, std::function<std::string()> name);
  NamedControl(const NamedControl&) = delete;
  NamedControl& operator=(const NamedControl&) = delete;
  ~NamedControl();

 private:
  [[nodiscard]] Handled OnMessage(const Message& message);

  std::shared_ptr<framework::ControlName> name_;
  std::unique_ptr<framework::Apartment> apartment_;
  MessageWatch watch_;
};
