// Messages of a dialog that a part of it handles, which is no window of its own.
#pragma once

#include <cstddef>
#include <optional>

#include "platform/framework/message_map.h"

/// Calls the first row that waits for the message; nullopt when none does. Safe when the handler destroys the window.
template <class Part, std::size_t kCount>
[[nodiscard]] Handled RoutePart(Part& part, const MessageRow<Part> (&rows)[kCount], const Message& message) {
  for (const MessageRow<Part>& row : rows) {
    if (row.Matches(message)) return row.Call(part, message);
  }
  return std::nullopt;
}
