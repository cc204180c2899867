// The objects that tools hold of a window's accessible things, and what ties them to the window.
#pragma once

#include <oleacc.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/framework/win32.h"
#include "platform/os/accessible.h"

namespace framework {

/// Message that acts on a thing: wParam is the number under which the window's link keeps what is asked for. Acting
/// pumps messages and may end the window, so it does not happen within the call of a tool.
[[nodiscard]] UINT ActMessage() noexcept;

/// While COM can be used on this thread by single-threaded rules.
class Apartment {
 public:
  Apartment() noexcept;
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment();

  [[nodiscard]] bool Entered() const noexcept { return entered_; }

 private:
  bool entered_;
};

class AccessibleObject;

/// Shared by all objects of one window. Cut once the window goes; from then on they know of nothing.
class AccessibleLink : public std::enable_shared_from_this<AccessibleLink> {
 public:
  AccessibleLink(HWND window, accessible::Tree& tree) noexcept : window_(window), tree_(&tree) {}
  AccessibleLink(const AccessibleLink&) = delete;
  AccessibleLink& operator=(const AccessibleLink&) = delete;

  [[nodiscard]] bool IsUsable() const noexcept { return apartment_.Entered(); }
  [[nodiscard]] HWND Window() const noexcept { return window_; }
  /// Null when it is cut.
  [[nodiscard]] accessible::Tree* Tree() const noexcept { return tree_; }
  /// Gives all objects up that somebody in another process holds.
  void Cut() noexcept;

  /// A new object; the caller owns a reference.
  [[nodiscard]] IAccessible* Make(accessible::Node node);
  void Forget(AccessibleObject* object) noexcept;

  /// Has a thing acted on once the tool's call has come back.
  [[nodiscard]] HRESULT AskToAct(accessible::Node node);
  /// Acts on what was asked for under that number, if the same thing stands there and can still be used.
  void Act(WPARAM number);

 private:
  /// A default action on its way.
  struct Asked {
    WPARAM number = 0;
    accessible::Node node;
    std::uint64_t identity = 0;
  };

  Apartment apartment_;
  HWND window_;
  accessible::Tree* tree_;
  std::vector<AccessibleObject*> objects_;  ///< those that live; each owns itself
  std::vector<Asked> asked_;                ///< in their order
  WPARAM lastNumber_ = 0;
};

/// Whether somebody else has the user's answer first: the dialog that the window belongs to is disabled, as behind a
/// question. What a click could not do then, no tool may do either.
[[nodiscard]] bool IsBehindQuestion(HWND window) noexcept;

/// An object of the system's for a control; null when there is none.
[[nodiscard]] IAccessible* SystemObjectOf(HWND window) noexcept;

/// The answer to WM_GETOBJECT; 0 on failure. Takes the reference over.
[[nodiscard]] LRESULT AnswerWith(WPARAM wParam, IAccessible* object) noexcept;

/// What a control is called, as long as it is the one for which an object was made.
struct ControlName {
  bool holds = true;
  std::function<std::string()> name;  ///< Shift_JIS; asked at every call
};

/// What SetAccessibleName has called a window; null where it has called it nothing.
[[nodiscard]] std::shared_ptr<const ControlName> GivenNameOf(HWND window) noexcept;

/// An object that says that name and leaves everything else to `inner`, whose reference it takes over.
[[nodiscard]] IAccessible* MakeNamed(IAccessible* inner, HWND window, std::shared_ptr<const ControlName> name);

}  // namespace framework
