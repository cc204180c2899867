// The trees that docs/accessibility.md shows.
#pragma once

#include <string>

namespace spoken {

/// The block of the page that bears that name, Shift_JIS; empty for none.
[[nodiscard]] std::string Block(const std::string& name);

}  // namespace spoken
