#include "platform/os/work_rules.h"

#include <algorithm>

namespace os {
namespace {

/// Where one hangs, the next one would only hang beside it.
bool IsFree(const Site& site, std::span<const Work* const> running) {
  const auto onPath = [&site](const Work* other) { return !site.path.empty() && other->site.path == site.path; };
  const auto onDevice = [&site](const Work* other) {
    return !site.device.empty() && other->site.device == site.device;
  };
  return std::ranges::none_of(running, onPath) &&
         std::ranges::count_if(running, onDevice) < std::ptrdiff_t{kMostOnDevice};
}

}  // namespace

bool MayBegin(const Work& work, std::span<const Work* const> running) {
  const auto inBackground = [](const Work* other) { return other->urgency == Urgency::Background; };
  if (!IsFree(work.site, running)) return false;
  return work.urgency == Urgency::Awaited ||
         std::ranges::count_if(running, inBackground) < std::ptrdiff_t{kMostInBackground};
}

}  // namespace os
