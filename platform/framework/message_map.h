// Message maps: a constant table of typed rows for each class, read in one place.
//
//   Handled CvFileDialog::RouteMessage(const Message& message) {
//     static constexpr MessageRow<CvFileDialog> kRows[] = {
//         OnMessage(WM_SIZE, &CvFileDialog::OnSize),
//         OnCommand(10013, BN_CLICKED, &CvFileDialog::OnUp),
//         OnNotify(10010, NM_CLICK, &CvFileDialog::OnListClick),
//     };
//     return Route<CDialog>(*this, kRows, message);
//   }
//
// A handler is a member function of the class itself; one that overrides a function of its base is such a function too.
// What it takes is one of
//   ()  (const Message&)  (NMHDR*)
// and what it answers one of
//   void     handled, the result is 0
//   LRESULT  handled, this is the result
//   Handled  nullopt: not mine, the next matching row, then the base class, then the default processing is asked.
//
// A control's own class may handle what its parent is told about it, by the reflected rows. The control is asked first,
// the parent's rows when it declines, the default processing last.
#pragma once

#include <cstddef>
#include <type_traits>
#include <variant>

#include "platform/framework/wnd.h"

/// Control IDs and notification codes of a row: any of them. No ID or code has this value; the codes of the platform's
/// controls count down from 0xFFFFFFFF.
inline constexpr UINT kAnyId = 0x7FFFFFFFU;
inline constexpr UINT kAnyCode = 0x7FFFFFFFU;

/// What a row waits for. Rows are made by the functions below.
struct MessagePattern {
  UINT message;    ///< WM_...
  bool reflected;  ///< offered by the parent
  UINT firstId;    ///< kAnyId: every control
  UINT lastId;     ///< of the range from firstId on
  UINT code;       ///< kAnyCode: every notification

  /// Whether that message is waited for.
  [[nodiscard]] constexpr bool Matches(const Message& sent) const noexcept {
    if (sent.id != message || sent.reflected != reflected) return false;
    if (firstId != kAnyId && (sent.ControlId() < firstId || sent.ControlId() > lastId)) return false;
    return code == kAnyCode || sent.Code() == code;
  }
};

/// A pattern with its handler, before it is known for which class the table is.
template <class Handler>
struct UnboundRow {
  MessagePattern pattern;  ///< what is waited for
  Handler handler;         ///< a pointer to a member function
};

/// The class that a handler is a member of; void for anything else.
template <class Handler>
struct HandlerClass {
  using Type = void;  ///< no class
};
/// For a member function.
template <class Result, class Class, class... Arguments>
struct HandlerClass<Result (Class::*)(Arguments...)> {
  using Type = Class;  ///< of the member function
};
/// For a member function that throws nothing.
template <class Result, class Class, class... Arguments>
struct HandlerClass<Result (Class::*)(Arguments...) noexcept> {
  using Type = Class;  ///< of the member function
};

/// One row of the table of `Class`.
template <class Class>
class MessageRow {
 public:
  /// The row with its class.
  template <class Handler>
  constexpr MessageRow(UnboundRow<Handler> row) noexcept : pattern_(row.pattern), handler_(row.handler) {
    static_assert(std::is_same_v<typename HandlerClass<Handler>::Type, Class>,
                  "a handler is a member function declared in the class of the table");
  }

  /// Whether the row waits for that message.
  [[nodiscard]] constexpr bool Matches(const Message& message) const noexcept { return pattern_.Matches(message); }

  /// Calls the handler.
  [[nodiscard]] Handled Call(Class& object, const Message& message) const {
    return std::visit([&](auto handler) { return Invoke(object, handler, message); }, handler_);
  }

 private:
  template <class Result, class... Arguments>
  static Handled Invoke(Class& object, Result (Class::*handler)(Arguments...), const Message& message) {
    const auto call = [&]() -> Result {
      if constexpr (sizeof...(Arguments) == 0) {
        return (object.*handler)();
      } else if constexpr ((std::is_pointer_v<Arguments> && ...)) {
        return (object.*handler)(message.Notification());
      } else {
        return (object.*handler)(message);
      }
    };
    if constexpr (std::is_void_v<Result>) {
      call();
      return 0;
    } else {
      return call();
    }
  }

  using AnyHandler =
      std::variant<void (Class::*)(), LRESULT (Class::*)(), Handled (Class::*)(), void (Class::*)(const Message&),
                   LRESULT (Class::*)(const Message&), Handled (Class::*)(const Message&), void (Class::*)(NMHDR*),
                   LRESULT (Class::*)(NMHDR*), Handled (Class::*)(NMHDR*)>;

  MessagePattern pattern_;
  AnyHandler handler_;
};

/// A message of the window itself: WM_SIZE, WM_DRAWITEM of its controls ...
template <class Handler>
[[nodiscard]] constexpr UnboundRow<Handler> OnMessage(UINT message, Handler handler) noexcept {
  return {{message, false, kAnyId, kAnyId, kAnyCode}, handler};
}

/// WM_COMMAND of the control `id` with the notification `code`. Menu entries and accelerators have the code 0.
template <class Handler>
[[nodiscard]] constexpr UnboundRow<Handler> OnCommand(UINT id, UINT code, Handler handler) noexcept {
  return {{WM_COMMAND, false, id, id, code}, handler};
}
/// The same for the IDs from `first` to `last`; `message.ControlId()` tells which.
template <class Handler>
[[nodiscard]] constexpr UnboundRow<Handler> OnCommandRange(UINT first, UINT last, UINT code, Handler handler) noexcept {
  return {{WM_COMMAND, false, first, last, code}, handler};
}

/// WM_NOTIFY of the control `id` with the notification `code`. The header of a list view has the ID 0.
template <class Handler>
[[nodiscard]] constexpr UnboundRow<Handler> OnNotify(UINT id, UINT code, Handler handler) noexcept {
  return {{WM_NOTIFY, false, id, id, code}, handler};
}
template <class Handler>
[[nodiscard]] constexpr UnboundRow<Handler> OnNotifyRange(UINT first, UINT last, UINT code, Handler handler) noexcept {
  return {{WM_NOTIFY, false, first, last, code}, handler};
}

/// What the parent is told about this control: its own WM_COMMAND and WM_NOTIFY notifications, and WM_CTLCOLOR...,
/// WM_DRAWITEM, WM_MEASUREITEM and the other messages of `ReflectionOf`.
template <class Handler>
[[nodiscard]] constexpr UnboundRow<Handler> OnReflectedCommand(UINT code, Handler handler) noexcept {
  return {{WM_COMMAND, true, kAnyId, kAnyId, code}, handler};
}
template <class Handler>
[[nodiscard]] constexpr UnboundRow<Handler> OnReflectedNotify(UINT code, Handler handler) noexcept {
  return {{WM_NOTIFY, true, kAnyId, kAnyId, code}, handler};
}
template <class Handler>
[[nodiscard]] constexpr UnboundRow<Handler> OnReflectedMessage(UINT message, Handler handler) noexcept {
  return {{message, true, kAnyId, kAnyId, kAnyCode}, handler};
}

/// Asks the rows in their order, then the class `Base`. Safe when a handler destroys the object: then nothing more is
/// asked and the message counts as handled.
template <class Base, class Class, std::size_t kCount>
[[nodiscard]] Handled Route(Class& object, const MessageRow<Class> (&rows)[kCount], const Message& message) {
  static_assert(std::is_base_of_v<Base, Class> && !std::is_same_v<Base, Class>, "Base is a base class of the table's");
  const LifeWatch watch(object);
  for (const MessageRow<Class>& row : rows) {
    if (!row.Matches(message)) continue;
    const Handled handled = row.Call(object, message);
    if (handled) return handled;
    if (!watch.Alive()) return 0;
  }
  return object.Base::RouteMessage(message);
}
