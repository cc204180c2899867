// Long work that the user can give up.
#pragma once

#include <functional>

namespace filedialog {

/// Asked after each step of long work, as any step may have to wait for a device, so it has to be quick; false gives
/// the work up. Without a function nothing is asked.
using KeepGoing = std::function<bool()>;

/// Whether the work goes on.
[[nodiscard]] inline bool GoesOn(const KeepGoing& keepGoing) { return !keepGoing || keepGoing(); }

}  // namespace filedialog
