// Parts of path names.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace suite {

/// Where the file part of a path starts: behind the last "/" or "\", else at 0. A path that is not well-formed EUC-JP
/// is taken for Shift_JIS.
[[nodiscard]] std::size_t FilePartOf(std::string_view path) noexcept;

/// The real path (Shift_JIS, "\") of an internal path name (EUC-JP, "/").
[[nodiscard]] std::string ToRealPath(const std::string& internal);

}  // namespace suite
