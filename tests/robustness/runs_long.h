#pragma once

#include <cstdlib>

namespace robustness {

/// Whether everything is tried that there is; else a sample. The environment decides: DLGLIB_LONG_TESTS is set.
[[nodiscard]] inline bool RunsLong() { return std::getenv("DLGLIB_LONG_TESTS") != nullptr; }

}  // namespace robustness
