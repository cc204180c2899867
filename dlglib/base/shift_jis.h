// The one place in which Shift_JIS text is walked.
//
// A byte from 0x80 to 0x9F or from 0xE0 to 0xFF starts a two-byte character; a byte from 0xA0 to 0xDF is a single
// half-width katakana; every other byte is a character of its own. "\", "|" and the letters occur as second bytes, so a
// name is never searched byte by byte unless a caller relies on exactly that and says so.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace shift_jis {

inline constexpr std::size_t kNone = std::string_view::npos;

[[nodiscard]] constexpr bool IsLead(char byte) noexcept {
  const auto value = static_cast<unsigned char>(byte);
  return (value >= 0x80 && value <= 0x9F) || value >= 0xE0;
}

[[nodiscard]] constexpr bool IsHalfWidthKatakana(char byte) noexcept {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0xA0 && value <= 0xDF;
}

/// Bytes of the character that starts at `at`, at most what the text still holds. `at` must lie within the text.
[[nodiscard]] constexpr std::size_t CharLength(std::string_view text, std::size_t at) noexcept {
  return IsLead(text[at]) && at + 1 < text.size() ? 2 : 1;
}

/// Byte position of the first single-byte character equal to `ascii` (below 0x80) from the character boundary `from`
/// on.
[[nodiscard]] std::size_t FindFirst(std::string_view text, char ascii, std::size_t from = 0) noexcept;

/// Byte position of the last one; kNone when there is none.
[[nodiscard]] std::size_t FindLast(std::string_view text, char ascii, std::size_t from = 0) noexcept;

/// Whether the text holds "*" or "?" as a character.
[[nodiscard]] bool HasWildcard(std::string_view text) noexcept;

/// The longest start of `text` of at most `limit` bytes that splits no character; half a character at its end is
/// dropped.
[[nodiscard]] std::string_view Truncate(std::string_view text, std::size_t limit) noexcept;

/// The capital of "a" to "z"; any other byte as it is.
[[nodiscard]] constexpr char ToUpperByte(char byte) noexcept {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

/// Capitals byte by byte for "a" to "z", second bytes of two-byte characters included: sort keys and the comparison of
/// recent names rely on exactly that.
[[nodiscard]] std::string ToUpperBytes(std::string_view text);

/// Copies at most `capacity` - 1 bytes into `out` without splitting a character and closes it with a terminator.
/// A capacity of 0 or a null `out` copies nothing. Returns the number of bytes copied.
std::size_t CopyBounded(char* out, std::size_t capacity, std::string_view text) noexcept;

}  // namespace shift_jis
