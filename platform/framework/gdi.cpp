#include "platform/framework/gdi.h"

#include <array>
#include <atomic>
#include <cstddef>

namespace framework {

namespace {

std::array<std::atomic<int>, static_cast<std::size_t>(HandleKind::Count)> liveHandles{};

}  // namespace

void CountHandle(HandleKind kind, int change) noexcept { liveHandles[static_cast<std::size_t>(kind)] += change; }

int LiveHandles(HandleKind kind) noexcept { return liveHandles[static_cast<std::size_t>(kind)]; }

int LiveHandles() noexcept {
  int sum = 0;
  for (const auto& count : liveHandles) sum += count;
  return sum;
}

}  // namespace framework
