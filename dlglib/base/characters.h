// Lengths in characters, as edit controls count them. Texts are Shift_JIS.
#pragma once

#include <cstddef>
#include <string_view>

#include "dlglib/base/shift_jis.h"

namespace filedialog {

/// Bytes of the first `limit` characters; the whole text when it has no more.
[[nodiscard]] constexpr std::size_t BytesOfCharacters(std::string_view text, std::size_t limit) noexcept {
  std::size_t bytes = 0;
  for (; bytes < text.size() && limit > 0; --limit) bytes += shift_jis::CharLength(text, bytes);
  return bytes;
}

/// The first `limit` characters of a text.
[[nodiscard]] constexpr std::string_view FirstCharacters(std::string_view text, std::size_t limit) noexcept {
  return text.substr(0, BytesOfCharacters(text, limit));
}

/// Whether a text has more than `limit` characters.
[[nodiscard]] constexpr bool HasMoreCharacters(std::string_view text, std::size_t limit) noexcept {
  return BytesOfCharacters(text, limit) < text.size();
}

}  // namespace filedialog
