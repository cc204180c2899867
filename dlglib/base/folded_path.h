// One spelling for the many of a path.
#pragma once

#include <string>
#include <string_view>

namespace filedialog {

/// The same text for all paths (Shift_JIS) that name the same place: ASCII letters are capitals, "\" at the end stands
/// behind a drive only.
[[nodiscard]] std::string FoldedPath(std::string_view path);

}  // namespace filedialog
