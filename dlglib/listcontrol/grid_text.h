// Rules for the texts of cells. Texts are Shift_JIS, lengths are bytes.
#pragma once

#include <string>
#include <string_view>

namespace grid {

inline constexpr int kMinTextLimit = 4;
inline constexpr int kMaxTextLimit = 385;

/// A column's text limit as it is kept: from 4 to 385 bytes.
[[nodiscard]] int ClampTextLimit(int limit) noexcept;

/// Copies a text into `out` and closes it with a terminator. Never splits a two-byte character, and stops at `limit`
/// bytes; a pair that does not fit, and half a character at the end of `text`, is left out. With a limit below 1 one
/// single-byte character is still copied. `out`: room for `limit` bytes and a terminator, at least for two bytes. A
/// null text is the empty one; a null `out` receives nothing.
void CopyText(char* out, const char* text, int limit) noexcept;

/// The value part of a combo box entry: what stands before the first separator; separators at the start are skipped.
/// Bytes are compared one by one, as callers' entries rely on it, so the separator also ends the value when it is the
/// second byte of a character. Of `separator` the lowest eight bits count.
[[nodiscard]] std::string ValuePart(std::string_view entry, int separator);

}  // namespace grid
