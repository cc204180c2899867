// The bytes of Shift_JIS, for the code below the library's own (which has dlglib/base/shift_jis.h).
//
// A byte from 0x80 to 0x9F or from 0xE0 to 0xFF starts a two-byte character; every other byte is a character of its
// own.
#pragma once

#include <cstddef>
#include <string_view>

namespace os {

[[nodiscard]] constexpr bool IsSjisLead(char byte) noexcept {
  const auto value = static_cast<unsigned char>(byte);
  return (value >= 0x80 && value <= 0x9F) || value >= 0xE0;
}

/// Bytes of the character that starts at `at`, at most what the text still holds. `at` must lie within the text.
[[nodiscard]] constexpr std::size_t SjisLength(std::string_view text, std::size_t at) noexcept {
  return IsSjisLead(text[at]) && at + 1 < text.size() ? 2 : 1;
}

}  // namespace os
