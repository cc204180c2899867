// What the benchmarks share: how they take times, and the form in which they print what they have found.
//
// In a round all contestants are measured one after the other, so that a busy machine slows them alike, and a ratio is
// taken within a round. What is printed of the rounds is the median and the quartiles.
#pragma once

#ifdef _WIN32
#include <windows.h>
#else
#include <ctime>
#endif

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace bench {

#ifdef _WIN32
/// In seconds, from any point of time. Windows are the work of several processes, so it is the time of the clock.
inline double Seconds() {
  LARGE_INTEGER ticks = {};
  LARGE_INTEGER frequency = {};
  ::QueryPerformanceCounter(&ticks);
  ::QueryPerformanceFrequency(&frequency);
  return static_cast<double>(ticks.QuadPart) / static_cast<double>(frequency.QuadPart);
}
#else
/// In seconds of the processor's time for this thread alone, so that other programs count for little.
inline double Seconds() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}
#endif

inline double TimeOf(const std::function<void()>& work) {
  const double start = Seconds();
  work();
  return Seconds() - start;
}

/// What is measured, in seconds or bytes: one value of each round.
using Values = std::vector<double>;

/// The value that the part `share` (0 to 1) of the values lies below. Of at least one value.
inline double Quantile(Values values, double share) {
  std::sort(values.begin(), values.end());
  return values[static_cast<std::size_t>(std::lround(share * static_cast<double>(values.size() - 1)))];
}

inline double Median(const Values& values) { return Quantile(values, 0.5); }

/// Ours to theirs, in those rounds that measured both.
inline Values Ratios(const Values& ours, const Values& theirs) {
  Values ratios;
  for (std::size_t i = 0; i < std::min(ours.size(), theirs.size()); ++i) ratios.push_back(ours[i] / theirs[i]);
  return ratios;
}

struct Unit {
  const char* name;
  double size;  ///< in seconds or bytes
};
inline constexpr Unit kMilliseconds{"ms", 1e-3};
inline constexpr Unit kMicroseconds{"us", 1e-6};
inline constexpr Unit kMegabytes{"MB", 1e6};

/// A row of the table.
struct Row {
  std::string what;
  std::string peer;
  Values ours;
  Values theirs;
  double goal = 0;  ///< most that ours may be, in multiples of theirs; 0 when nothing is promised
  std::string floor = {};
  Values least = {};  ///< what the floor takes
  Unit unit = kMilliseconds;
};

/// Prints a row as one line of fields parted by tabs, which ./bench.sh lays out: what, peer, unit, median of theirs,
/// median of ours, median and quartiles of the ratio, goal (0: none), floor, median of the ratio to the floor (0:
/// none).
inline void Print(const Row& row) {
  const Values ratios = Ratios(row.ours, row.theirs);
  const double toFloor = row.least.empty() ? 0 : Median(Ratios(row.ours, row.least));
  std::printf("%s\t%s\t%s\t%g\t%g\t%g\t%g\t%g\t%g\t%s\t%g\n", row.what.c_str(), row.peer.c_str(), row.unit.name,
              Median(row.theirs) / row.unit.size, Median(row.ours) / row.unit.size, Median(ratios),
              Quantile(ratios, 0.25), Quantile(ratios, 0.75), row.goal, row.floor.c_str(), toFloor);
  std::fflush(stdout);
}

/// Measures ours, the peer and, when there is one, the floor in each round, and prints the row.
struct Contest {
  std::function<void()> ours;
  std::function<void()> theirs;
  std::function<void()> least = {};
};
inline void Compare(Row row, int rounds, const Contest& contest) {
  for (int round = 0; round < rounds; ++round) {
    row.theirs.push_back(TimeOf(contest.theirs));
    row.ours.push_back(TimeOf(contest.ours));
    if (contest.least) row.least.push_back(TimeOf(contest.least));
  }
  Print(row);
}

}  // namespace bench
