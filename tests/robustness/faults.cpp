#include "tests/robustness/faults.h"

#include <gtest/gtest.h>

#include <iostream>
#include <new>

#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "tests/robustness/heap_watch.h"

namespace robustness {
namespace {

using os::scripted::World;

std::string failedCall;

void EmptyMachine() {
  World().Reset();
  CwSession::Reset();
}

void ExpectNothingOpen() {
  EXPECT_EQ(World().registry.openHandles, 0);
  EXPECT_EQ(World().files.openPasses, 0);
  EXPECT_EQ(World().files.openWriters, 0);
  EXPECT_EQ(World().network.openPasses, 0);
}

bool RunOnce(const Scenario& scenario) {
  try {
    return scenario.run();
  } catch (const std::bad_alloc&) {
    return false;
  }
}

/// One kind of fault: makes the n-th call fail, takes that back and says how many calls there were.
struct Kind {
  const char* name;
  std::function<void(std::size_t)> arm;
  std::function<void()> disarm;
  std::function<std::size_t()> calls;
};

Kind ServiceKind() {
  return {"service calls", [](std::size_t n) { World().calls.FailNumber(n); }, [] { World().calls.FailNumber(0); },
          [] { return World().calls.Total(); }};
}

Kind MemoryKind(std::size_t size) {
  return {"memory requests", [size](std::size_t n) { FailRequest(n, size); }, [] { FailRequest(0, SIZE_MAX); },
          [] { return CountedRequests(); }};
}

/// One run with the n-th call failing, one without a fault on the same machine, and what they left.
void TryOne(const Scenario& scenario, const Kind& kind, std::size_t n) {
  scenario.prepare();
  World().calls.ClearLog();
  kind.arm(n);
  static_cast<void>(RunOnce(scenario));
  kind.disarm();
  failedCall = World().calls.Failed();
  SCOPED_TRACE(scenario.name + ": number " + std::to_string(n) + " of the " + kind.name + ' ' + failedCall);
  ExpectNothingOpen();
  scenario.check();
  failedCall.clear();
  EXPECT_TRUE(RunOnce(scenario)) << "the run after the fault";
  ExpectNothingOpen();
}

std::size_t CountCalls(const Scenario& scenario, const Kind& kind) {
  EmptyMachine();
  scenario.prepare();
  World().calls.ClearLog();
  kind.arm(0);
  EXPECT_TRUE(RunOnce(scenario)) << scenario.name;
  const std::size_t calls = kind.calls();
  kind.disarm();
  scenario.check();
  EmptyMachine();
  return calls;
}

/// Whether there are `blocks` now, or `again` leaves no more behind than it found. Workers of the library come and go,
/// with what they hold; what is lost is lost each time.
bool LeavesNothing(long blocks, const std::function<void()>& again) {
  constexpr int kMostTries = 4;
  for (int tries = 0; LiveBlocks() != blocks; ++tries) {
    if (tries == kMostTries) return false;
    const long before = LiveBlocks();
    again();
    if (LiveBlocks() <= before) return true;
  }
  return true;
}

std::size_t TryFaults(const Scenario& scenario, const Kind& kind, std::size_t wanted) {
  const std::size_t calls = CountCalls(scenario, kind);
  const std::size_t step = calls <= wanted ? 1 : (calls + wanted - 1) / wanted;
  const std::size_t first = 1 + step / 2;
  std::size_t tried = 0;
  failedCall.reserve(4096);  // it is not to count as a leak when it grows
  long blocks = 0;
  const auto tryOne = [&](std::size_t n) {
    TryOne(scenario, kind, n);
    EmptyMachine();
    scenario.settle();
  };
  for (std::size_t n = first; n <= calls; n += step) {
    tryOne(n);
    // What is kept from the first run on, such as the storage of a cache, is no leak.
    if (tried++ == 0) blocks = LiveBlocks();
    EXPECT_TRUE(LeavesNothing(blocks, [&] { tryOne(n); })) << scenario.name << ": " << kind.name << ", number " << n;
    blocks = LiveBlocks();
    if (testing::Test::HasFailure()) break;
  }
  std::cout << scenario.name << ": " << tried << " of " << calls << ' ' << kind.name << " failed in turn\n";
  return tried;
}

}  // namespace

std::size_t TryServiceFaults(const Scenario& scenario, std::size_t sample) {
  return TryFaults(scenario, ServiceKind(), RunsLong() ? SIZE_MAX : sample);
}

std::size_t TryMemoryFaults(const Scenario& scenario, std::size_t size, std::size_t sample, std::size_t most) {
  return TryFaults(scenario, MemoryKind(size), RunsLong() ? most : sample);
}

const std::string& FailedCall() { return failedCall; }

}  // namespace robustness
