#include "tests/windows/support/fenced_heap.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include "tests/windows/driver/crash_backtrace.h"

extern "C" void* __real_calloc(std::size_t count, std::size_t size);
extern "C" void __real_free(void* block);

namespace fenced {
namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kPages = 1U << 18U;
constexpr unsigned char kFreed = 0xDD;

std::atomic<unsigned char*> arena = nullptr;  // never given back
std::atomic<std::size_t> nextPage = 0;
std::array<std::atomic<std::uint32_t>, kPages> lengths;  // in pages, at the first page of each block that is in use
std::atomic<int> fences = 0;
std::atomic<int> violations = 0;

// Plain variables and a thread's number: thread-local ones get their memory by the calloc below.
std::atomic<DWORD> failingThread = 0;
std::size_t untilFailure = 0;
bool failed = false;

[[nodiscard]] std::size_t PageOf(const void* block) {
  const unsigned char* const start = arena;
  const auto* const at = static_cast<const unsigned char*>(block);
  return start != nullptr && at >= start && at < start + kPages * kPage ? static_cast<std::size_t>(at - start) / kPage
                                                                        : kPages;
}

[[nodiscard]] void* AllocateFenced(std::size_t size) {
  const std::size_t pages = size / kPage + 1;
  const std::size_t first = nextPage.fetch_add(pages);
  if (first + pages > kPages) return nullptr;
  unsigned char* const block = arena + first * kPage;
  if (VirtualAlloc(block, pages * kPage, MEM_COMMIT, PAGE_READWRITE) == nullptr) return nullptr;
  lengths[first] = static_cast<std::uint32_t>(pages);
  return block;
}

void Report(const char* what, const void* address) {
  ++violations;
  std::fprintf(stderr, "%s at %p\n", what, address);
}

void FreeFenced(void* block, std::size_t first) {
  const std::uint32_t pages = lengths[first].exchange(0);
  if (pages == 0) return Report("a block is freed twice", block);
  VirtualFree(block, pages * kPage, MEM_DECOMMIT);
}

[[nodiscard]] bool Fails() {
  if (failingThread != GetCurrentThreadId() || untilFailure == 0 || --untilFailure > 0) return false;
  failed = true;
  return true;
}

[[nodiscard]] void* TryAllocate(std::size_t size) {
  if (Fails()) return nullptr;
  void* const block = fences > 0 ? AllocateFenced(size) : nullptr;
  return block != nullptr ? block : std::malloc(size != 0 ? size : 1);
}

[[nodiscard]] void* Allocate(std::size_t size) {
  if (void* const block = TryAllocate(size)) return block;
  throw std::bad_alloc();
}

void Free(void* block) {
  const std::size_t first = PageOf(block);
  if (first < kPages) return FreeFenced(block, first);
  __real_free(block);
}

LONG CALLBACK OnException(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  if (record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION || record.NumberParameters < 2)
    return EXCEPTION_CONTINUE_SEARCH;
  auto* const address = reinterpret_cast<unsigned char*>(record.ExceptionInformation[1]);
  const std::size_t page = PageOf(address);
  if (page == kPages) return EXCEPTION_CONTINUE_SEARCH;
  void* const start = arena + page * kPage;
  if (VirtualAlloc(start, kPage, MEM_COMMIT, PAGE_READWRITE) == nullptr) return EXCEPTION_CONTINUE_SEARCH;
  std::memset(start, kFreed, kPage);
  Report("a freed block is used", address);
  driver::PrintBacktraceOf(exception, "by");
  return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

FencedHeap::FencedHeap() : handler_(AddVectoredExceptionHandler(1, OnException)) {
  if (arena == nullptr) {
    arena = static_cast<unsigned char*>(VirtualAlloc(nullptr, kPages * kPage, MEM_RESERVE, PAGE_NOACCESS));
  }
  violations = 0;
  if (arena != nullptr) ++fences;
}

FencedHeap::~FencedHeap() {
  if (arena != nullptr) --fences;
  RemoveVectoredExceptionHandler(handler_);
}

int FencedHeap::Violations() const { return violations; }

void FailRequest(std::size_t n) {
  untilFailure = n;
  failed = false;
  failingThread = GetCurrentThreadId();
}

bool HasFailed() { return failed; }

}  // namespace fenced

// The grid's storage comes zeroed; the linker leads its calls here (--wrap).
extern "C" void* __wrap_calloc(std::size_t count, std::size_t size) {
  if (fenced::Fails()) return nullptr;
  if (fenced::fences == 0 || count * size > 64 * fenced::kPage) return __real_calloc(count, size);
  void* const block = fenced::AllocateFenced(count * size);
  return block != nullptr ? block : __real_calloc(count, size);
}
extern "C" void __wrap_free(void* block) { fenced::Free(block); }

void* operator new(std::size_t size) { return fenced::Allocate(size); }
void* operator new[](std::size_t size) { return fenced::Allocate(size); }
void operator delete(void* block) noexcept { fenced::Free(block); }
void operator delete[](void* block) noexcept { fenced::Free(block); }
void operator delete(void* block, std::size_t) noexcept { fenced::Free(block); }
void operator delete[](void* block, std::size_t) noexcept { fenced::Free(block); }
