// Runs something on the thread of a window of the own process, out of its message loop, as a tool in the process does.
#pragma once

#include <functional>

#include "tests/windows/driver/user.h"

namespace driver {

/// Returns when it is done. `action` may end the window, but runs no message loop of its own; what it throws is lost.
void DoOnThreadOf(const User& user, Window window, const std::function<void()>& action);

}  // namespace driver
