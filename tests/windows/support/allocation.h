// Lets an allocation of this program fail, for what has to stand that. Programs that link allocation.cpp have its
// operator new.
#pragma once

#include <functional>

namespace allocation {

/// Runs `work` again and again on this thread; in run n its n-th `new` throws std::bad_alloc, until a run needs fewer
/// than n. `work` must not let that out. Returns how many allocations have failed.
int FailEachIn(const std::function<void()>& work);

/// Whether one has failed in the run that is under way.
[[nodiscard]] bool HasFailed() noexcept;

}  // namespace allocation
