// Blanks at the end of a text. A blank byte is never part of a two-byte character, in Shift_JIS and EUC-JP alike.
#pragma once

#include <cstddef>
#include <string_view>

namespace trailing_blanks {

/// Length of the text without the blanks at its end; 0 for a text of blanks only.
[[nodiscard]] std::size_t TrimmedLength(std::string_view text) noexcept;

/// The same, but the first byte counts in any case: a text of blanks keeps one.
[[nodiscard]] std::size_t TrimmedLengthAfterFirst(std::string_view text) noexcept;

/// Turns the blanks at the end of a text into terminators. A null text is left alone.
void Trim(char* text) noexcept;

}  // namespace trailing_blanks
