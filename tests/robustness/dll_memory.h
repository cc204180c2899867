// Refuses memory to the library's two DLLs, as they are shipped: their requests to the C library (malloc, calloc,
// realloc, and so operator new) are led here first. The program's own requests are not.
#pragma once

#include <cstddef>

namespace robustness {

enum class Refused {
  One,      ///< the n-th request
  AllFrom,  ///< the n-th request and all behind it
};

/// From now on requests count; with an `n` of 0 none is refused.
void RefuseMemory(Refused which, std::size_t n);
/// Refuses nothing any more. Returns how many requests there were.
std::size_t StopRefusing();

}  // namespace robustness
