// The demo's session: what a real application of the suite finds set up when it starts.
#pragma once

#include <string>

namespace demo {

/// Loads `<home>\corvane.session` and puts the kinds' folders below `<home>\data`. `home` is a real path (Shift_JIS).
/// Answers false, after a line on the error output, when the file cannot be read.
[[nodiscard]] bool LoadSession(const std::string& home);

}  // namespace demo
