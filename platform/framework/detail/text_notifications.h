// Notifications that carry texts. A control sends them in wide form; handlers are written for the 8-bit form (the A
// codes), whose texts are Shift_JIS here, whatever the system's own code page is. Internal to the framework.
#pragma once

#include <memory>
#include <string>

#include "platform/framework/message.h"

namespace framework {

/// Whether notifications of this control can be turned into their 8-bit form, so that a dialog asks for the wide one.
/// Those of other classes are asked for in 8-bit form as they are.
[[nodiscard]] bool HasTurnedNotifications(HWND control);

/// The 8-bit form of one notification.
class NarrowNotification {
 public:
  virtual ~NarrowNotification() = default;
  /// The notification with Shift_JIS texts. Borrowed.
  [[nodiscard]] virtual NMHDR* Get() noexcept = 0;
  /// Gives what a handler has put into it to the control. `kept` holds a text for which the control has no room, as
  /// long as the control may read it.
  virtual void GiveBack(std::wstring* kept) = 0;
};

/// Null for a message that is no notification in wide form.
[[nodiscard]] std::unique_ptr<NarrowNotification> Narrowed(const Message& message);

}  // namespace framework
