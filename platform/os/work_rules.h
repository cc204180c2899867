// Which of the calls that wait may be made beside those that are under way (workers.h).
#pragma once

#include <cstddef>
#include <span>

#include "platform/os/workers.h"

namespace os {

struct Work {
  Site site;
  Urgency urgency = Urgency::Awaited;
};

/// Whether it may begin where a worker is free. `running`: at most kMostWorkers.
[[nodiscard]] bool MayBegin(const Work& work, std::span<const Work* const> running);

}  // namespace os
