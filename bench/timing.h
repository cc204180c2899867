// How the benchmarks with windows take their times.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

namespace bench {

/// In seconds, from any point of time.
inline double Seconds() {
  LARGE_INTEGER ticks = {};
  LARGE_INTEGER frequency = {};
  ::QueryPerformanceCounter(&ticks);
  ::QueryPerformanceFrequency(&frequency);
  return static_cast<double>(ticks.QuadPart) / static_cast<double>(frequency.QuadPart);
}

inline double TimeOf(const std::function<void()>& work) {
  const double start = Seconds();
  work();
  return Seconds() - start;
}

/// Of at least one value.
inline double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
  return values[values.size() / 2];
}

}  // namespace bench
