// The one place in which EUC-JP text is walked.
//
// A byte below 0x80 is a character of its own. 0x8F starts a three-byte character. Every other byte of 0x80 or above
// starts a two-byte one: 0x8E half-width katakana, 0x8D a metacharacter (private to the suite), 0xA1 to 0xFE JIS X
// 0208. No byte of a longer character is below 0x80 in valid text, so "/", "." and the like may be searched byte by
// byte there.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace euc_jp {

inline constexpr unsigned char kMetacharacter = 0x8D;
inline constexpr unsigned char kKatakana = 0x8E;
inline constexpr unsigned char kSupplement = 0x8F;

[[nodiscard]] constexpr unsigned char ByteAt(std::string_view text, std::size_t at) noexcept {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

/// A byte of JIS X 0208 and of the second and third byte of longer characters.
[[nodiscard]] constexpr bool IsHigh(unsigned char byte) noexcept { return byte >= 0xA1 && byte <= 0xFE; }

/// Bytes of the character that starts at `at`, at most what the text still holds. `at` must lie within the text.
[[nodiscard]] constexpr std::size_t CharLength(std::string_view text, std::size_t at) noexcept {
  const unsigned char lead = ByteAt(text, at);
  const std::size_t length = lead < 0x80 ? 1 : lead == kSupplement ? 3 : 2;
  return std::min(length, text.size() - at);
}

/// Bytes of the well-formed EUC-JP character that starts at `at`; 0 when none starts there (a stray or cut-off byte, or
/// a metacharacter).
[[nodiscard]] constexpr std::size_t ValidLength(std::string_view text, std::size_t at) noexcept {
  const unsigned char lead = ByteAt(text, at);
  const unsigned char second = ByteAt(text, at + 1);
  if (lead < 0x80) return at < text.size() ? 1 : 0;
  if (lead == kKatakana) return second >= 0xA1 && second <= 0xDF ? 2 : 0;
  if (lead == kSupplement) return IsHigh(second) && IsHigh(ByteAt(text, at + 2)) ? 3 : 0;
  return IsHigh(lead) && IsHigh(second) ? 2 : 0;
}

/// Whether the whole text is well-formed EUC-JP.
[[nodiscard]] constexpr bool IsValid(std::string_view text) noexcept {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = ValidLength(text, at);
    if (length == 0) return false;
    at += length;
  }
  return true;
}

/// The longest start of `text` of at most `limit` bytes that splits no character; part of a character at its end is
/// dropped.
[[nodiscard]] constexpr std::string_view Truncate(std::string_view text, std::size_t limit) noexcept {
  std::size_t end = 0;
  while (end < text.size()) {
    const unsigned char lead = ByteAt(text, end);
    const std::size_t length = lead < 0x80 ? 1 : lead == kSupplement ? 3 : 2;
    if (end + length > std::min(limit, text.size())) break;
    end += length;
  }
  return text.substr(0, end);
}

}  // namespace euc_jp
