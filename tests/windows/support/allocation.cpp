#include "tests/windows/support/allocation.h"

#include <cstdlib>

namespace allocation {
namespace {

thread_local int untilFailure = 0;  // 0: none fails
thread_local bool failed = false;

[[nodiscard]] void* Take(std::size_t size) noexcept {
  if (untilFailure > 0 && --untilFailure == 0) {
    failed = true;
    return nullptr;
  }
  return std::malloc(size);
}

}  // namespace

int FailEachIn(const std::function<void()>& work) {
  for (int number = 1;; ++number) {
    failed = false;
    untilFailure = number;
    work();
    untilFailure = 0;
    if (!failed) return number - 1;
  }
}

bool HasFailed() noexcept { return failed; }

}  // namespace allocation

namespace {

void* TakeBlock(std::size_t size) noexcept { return allocation::Take(size); }
void GiveBlock(void* block) noexcept { std::free(block); }

}  // namespace

#include "tests/robustness/new_operators.inc"
