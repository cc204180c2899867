// What the demo's windows have in common: each is a function that main() finds by its name.
#pragma once

#include <string>
#include <vector>

namespace demo {

// Exit codes.
inline constexpr int kAccepted = 0;
inline constexpr int kCancelled = 1;
inline constexpr int kCannotRun = 2;

/// What stands behind the window's name on the command line; Shift_JIS.
using Arguments = std::vector<std::string>;

/// Runs a window to its end and answers the program's exit code. The session is loaded by then.
using RunWindow = int (*)(const Arguments& arguments);

}  // namespace demo
