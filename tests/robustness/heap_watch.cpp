#include "tests/robustness/heap_watch.h"

#include <cstdlib>
#include <new>

namespace robustness {
namespace {

long liveBlocks = 0;
std::size_t counted = 0;
std::size_t failing = 0;
std::size_t least = static_cast<std::size_t>(-1);

bool Fails(std::size_t size) { return size >= least && ++counted == failing; }

void* Allocate(std::size_t size) {
  if (Fails(size)) throw std::bad_alloc();
  void* const block = std::malloc(size != 0 ? size : 1);
  if (block == nullptr) throw std::bad_alloc();
  ++liveBlocks;
  return block;
}

void Free(void* block) noexcept {
  if (block == nullptr) return;
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

void* operator new(std::size_t size) { return robustness::Allocate(size); }
void* operator new[](std::size_t size) { return robustness::Allocate(size); }
void operator delete(void* block) noexcept { robustness::Free(block); }
void operator delete[](void* block) noexcept { robustness::Free(block); }
void operator delete(void* block, std::size_t) noexcept { robustness::Free(block); }
void operator delete[](void* block, std::size_t) noexcept { robustness::Free(block); }
