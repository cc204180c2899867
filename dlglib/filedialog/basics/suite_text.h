// Texts on their way between the browser (Shift_JIS, "\" as separator) and the suite (EUC-JP, "/" as separator).
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace filedialog {

inline constexpr std::size_t kWholeText = std::numeric_limits<std::size_t>::max();

/// A Shift_JIS text in EUC-JP, whole: half-width katakana makes it longer, so a limit would cut paths that are allowed.
[[nodiscard]] std::string ToEuc(std::string_view text);

/// An EUC-JP text in Shift_JIS, at most `limit` bytes, no character split.
[[nodiscard]] std::string FromEuc(const std::string& euc, std::size_t limit = kWholeText);

/// A path in the form that the suite works with, and back.
[[nodiscard]] std::string ToSuitePath(std::string_view path);
[[nodiscard]] std::string FromSuitePath(const std::string& eucPath);

}  // namespace filedialog
