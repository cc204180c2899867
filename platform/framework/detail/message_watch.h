// Is asked about each message of a window before the window is: whoever's window it is, and whether or not an object
// takes part in it.
#pragma once

#include <functional>
#include <memory>

#include "platform/framework/message.h"
#include "platform/framework/window_ref.h"

namespace framework {

struct WindowEntry;

}  // namespace framework

class MessageWatch {
 public:
  /// The result of a message that the window is not to see; nothing leaves it to the window. It may end the watch and
  /// destroy the window. What it throws drops the message.
  using Asked = std::function<Handled(const Message&)>;

  explicit MessageWatch(Asked asked);
  MessageWatch(const MessageWatch&) = delete;
  MessageWatch& operator=(const MessageWatch&) = delete;
  ~MessageWatch();

  /// Watches `window` instead of the one before. A window has one watch, the last one; a window of another thread has
  /// none. Ends by itself with the window.
  void Watch(WindowArg window);
  void Release() noexcept;

  /// For the window procedure.
  [[nodiscard]] Handled Ask(const Message& message) const;

 private:
  Asked asked_;
  std::shared_ptr<framework::WindowEntry> entry_;
};
