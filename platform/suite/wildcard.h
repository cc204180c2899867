// Wildcard patterns: "*" for any number of characters, "?" for one, ASCII letters in either case, "*.*" the same as
// "*".
#pragma once

#include <string_view>

namespace suite {

/// Whether a whole name matches. Both texts are Shift_JIS, or both are EUC-JP.
[[nodiscard]] bool MatchesSjis(std::string_view pattern, std::string_view name) noexcept;
[[nodiscard]] bool MatchesEuc(std::string_view pattern, std::string_view name) noexcept;

/// As the two above; the texts are EUC-JP when both are well-formed EUC-JP, else Shift_JIS. (Names of nothing but
/// half-width katakana may be either; only "?" tells the difference.)
[[nodiscard]] bool MatchesEither(std::string_view pattern, std::string_view name) noexcept;

/// Whether a pattern is "*" or "*.*".
[[nodiscard]] bool MatchesAll(std::string_view pattern) noexcept;

}  // namespace suite
