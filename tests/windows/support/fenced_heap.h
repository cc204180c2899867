// Makes the use of freed memory visible, and lets requests for memory fail. A program that links fenced_heap gets its
// operators new and delete, and its calloc and free, in place of the library's.
//
// While a FencedHeap lives, each block has pages of its own, and they are taken away when it is freed. Whoever reads or
// writes there is counted and printed with his callers; then the pages come back, filled, and he goes on.
#pragma once

#include <cstddef>

namespace fenced {

class FencedHeap {
 public:
  FencedHeap();
  FencedHeap(const FencedHeap&) = delete;
  FencedHeap& operator=(const FencedHeap&) = delete;
  ~FencedHeap();

  /// Uses of freed blocks, and blocks freed twice, since the start.
  [[nodiscard]] int Violations() const;

 private:
  void* handler_;
};

/// From now on the requests of this thread count, and the n-th of them fails; with 0 none does.
void FailRequest(std::size_t n);

/// Whether a request has failed since.
[[nodiscard]] bool HasFailed();

}  // namespace fenced
