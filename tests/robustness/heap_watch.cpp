#include "tests/robustness/heap_watch.h"

#include <atomic>
#include <cstdlib>

namespace robustness {
namespace {

// The library's workers take memory as well.
std::atomic<long> liveBlocks = 0;
std::atomic<std::size_t> counted = 0;
std::atomic<std::size_t> failing = 0;
std::atomic<std::size_t> least = static_cast<std::size_t>(-1);

bool Fails(std::size_t size) noexcept { return size >= least && ++counted == failing; }

void* Take(std::size_t size) noexcept {
  void* const block = Fails(size) ? nullptr : std::malloc(size);
  if (block != nullptr) ++liveBlocks;
  return block;
}

void Give(void* block) noexcept {
  --liveBlocks;
  std::free(block);
}

}  // namespace

long LiveBlocks() { return liveBlocks; }

void FailRequest(std::size_t n, std::size_t size) {
  counted = 0;
  failing = n;
  least = size;
}

std::size_t CountedRequests() { return counted; }

}  // namespace robustness

// The grid's storage comes zeroed; the linker leads its calls here (--wrap=calloc).
extern "C" void* __real_calloc(std::size_t count, std::size_t size);
extern "C" void* __wrap_calloc(std::size_t count, std::size_t size) {
  return robustness::Fails(count * size) ? nullptr : __real_calloc(count, size);
}

namespace {

void* TakeBlock(std::size_t size) noexcept { return robustness::Take(size); }
void GiveBlock(void* block) noexcept { robustness::Give(block); }

}  // namespace

#include "tests/robustness/new_operators.inc"
