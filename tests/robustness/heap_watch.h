// Counts the blocks of operator new, and makes a chosen request fail, one to calloc too. A program that links
// heap_watch gets its operators in place of the library's. One thread.
#pragma once

#include <cstddef>

namespace robustness {

/// Blocks that are given out now.
[[nodiscard]] long LiveBlocks();

/// From now on requests of at least `size` bytes count, and the n-th of them fails; with 0 none does.
void FailRequest(std::size_t n, std::size_t size);

/// Requests that counted since FailRequest, the failed one included.
[[nodiscard]] std::size_t CountedRequests();

}  // namespace robustness
