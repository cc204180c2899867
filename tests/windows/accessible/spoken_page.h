// The trees that docs/accessibility.md shows.
#pragma once

#include <string>

#include "tests/windows/driver/window.h"

namespace spoken {

/// The block of the page that bears that name, Shift_JIS; empty for none.
[[nodiscard]] std::string Block(const std::string& name);

/// The parts of a dialog in the order of the window, with all that is in them; the window itself is left out. An icon
/// tells nothing, a list of the class `without` is left out.
[[nodiscard]] std::string PartsOf(const driver::Window& dialog, const std::string& without = {});

}  // namespace spoken
