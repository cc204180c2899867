// The number at the start of a text, read as atoi reads it, but without what that leaves undefined.
#pragma once

#include <string_view>

namespace filedialog {

/// Blanks, a sign and digits from the start on; whatever follows ends the number, and 0 stands for no digits. A number
/// that is too large for an int counts as the largest or smallest one.
[[nodiscard]] int LeadingNumber(std::string_view text);

}  // namespace filedialog
