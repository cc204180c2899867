// The clock by which users are made to wait. It goes with the services: that of a scripted machine is slow, so that a
// busy machine on which it is played does not count as a device that does not answer.
#pragma once

#include <cstdint>

namespace os {

/// Milliseconds since some moment. Any thread.
[[nodiscard]] std::int64_t WaitClockMs();

}  // namespace os
