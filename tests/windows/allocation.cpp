#include "tests/windows/allocation.h"

#include <cstdlib>
#include <new>

namespace allocation {
namespace {

thread_local int untilFailure = 0;  // 0: none fails
thread_local bool failed = false;

[[nodiscard]] void* Allocate(std::size_t size) {
  if (untilFailure > 0 && --untilFailure == 0) {
    failed = true;
    throw std::bad_alloc();
  }
  if (void* block = std::malloc(size != 0 ? size : 1)) return block;
  throw std::bad_alloc();
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

void* operator new(std::size_t size) { return allocation::Allocate(size); }
void* operator new[](std::size_t size) { return allocation::Allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
