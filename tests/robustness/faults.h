// Lets every call of a scenario fail once in turn, and looks at what that leaves behind.
//
// A scenario is something whole that a user does: a file request, a session with a grid, a dialog from its opening to
// its end. It runs on the scripted machine. It is run once to count its calls, then once for each of them; every run
// starts from the same machine. After a failed run the same machine carries out the scenario once more without a
// fault, which must go well.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "tests/robustness/runs_long.h"

namespace robustness {

struct Scenario {
  std::string name;
  /// Sets up the machine (which is empty) and the suite.
  std::function<void()> prepare;
  /// True when the user got what he wanted. Lets nothing out but std::bad_alloc.
  std::function<bool()> run;
  /// Expects of what is stored that it is the old or the new, whole; after each run.
  std::function<void()> check = [] {};
  /// Gives back what is only kept for later; before blocks of memory are counted.
  std::function<void()> settle = [] {};
};

/// How many faults a sample tries of each scenario and kind.
inline constexpr std::size_t kSample = 4;

/// Every call of a service fails once. Returns how many were tried.
std::size_t TryServiceFaults(const Scenario& scenario, std::size_t sample = kSample);

/// Every request for at least `size` bytes of memory fails once. Returns how many were tried.
/// `most` bounds them also when everything is tried.
std::size_t TryMemoryFaults(const Scenario& scenario, std::size_t size, std::size_t sample = kSample,
                            std::size_t most = SIZE_MAX);

/// What counts as a large block.
inline constexpr std::size_t kLargeBlock = 4096;
inline constexpr std::size_t kAnyBlock = 1;

/// For the check of a scenario: the call that failed, such as "files.Remove C:\a"; empty for none or for memory.
[[nodiscard]] const std::string& FailedCall();

}  // namespace robustness
