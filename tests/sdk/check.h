// The checks of a small client: what fails is printed, and the program's exit code tells.
#pragma once

#include <string>

namespace client {

/// Prints `what` when `holds` is false.
void Check(bool holds, const std::string& what);
/// Prints both texts when they differ.
void CheckText(const std::string& got, const std::string& want, const std::string& what);
/// How many checks have failed; they may be made on any thread.
[[nodiscard]] int Failures();

}  // namespace client
