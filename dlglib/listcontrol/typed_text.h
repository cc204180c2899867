// What an edit box may keep of a change. The box counts characters, the cell's limit counts Shift_JIS bytes, so the box
// itself does not hold the limit.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace grid {

/// A part of a text, in UTF-16 units.
struct TextRange {
  std::size_t from = 0;
  std::size_t to = 0;

  friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// Whose the text of a box is: the user's, or one that the box was given and shows in its own letters.
enum class TextOrigin { Given, Typed };

/// Bytes of a character in Shift_JIS.
using BytesOf = std::function<std::size_t(wchar_t)>;

[[nodiscard]] std::size_t CountBytes(std::wstring_view text, const BytesOf& bytesOf);

/// The part of `after` that has to go again so that the text has at most `limit` bytes: the end of what the change from
/// `before` to `after` has put in. Nothing when all of it may stay. What was there before the change always stays.
[[nodiscard]] std::optional<TextRange> Excess(std::wstring_view before, std::wstring_view after, std::size_t limit,
                                              const BytesOf& bytesOf);

/// Whether `typed` may replace the range `selected` of `text`. A character that makes a text shorter or leaves it as
/// long as it is always may.
[[nodiscard]] bool MayType(std::wstring_view text, TextRange selected, wchar_t typed, std::size_t limit,
                           const BytesOf& bytesOf);

/// `text` without a part of it, of which no more than there is goes.
[[nodiscard]] std::wstring Without(std::wstring_view text, TextRange part);

/// What a box takes of a caller's number of bytes (0: whatever fits) and its column's limit.
[[nodiscard]] int BoxLimit(unsigned int asked, int columnLimit) noexcept;

/// What a column tells its box each time it is placed, as a program has set it.
struct BoxModes {
  int edit = 0;   ///< 0 refuses typed half-width katakana
  int space = 0;  ///< 0 removes the blanks at the end when the box is left
};

/// Until a program sets others, and again when it gives the column a new box.
inline constexpr BoxModes kModesAtFirst{.edit = 1, .space = 0};

/// Whether the modes let a typed character in.
[[nodiscard]] bool Lets(const BoxModes& modes, wchar_t typed) noexcept;
/// What stays of a text when its box is left.
[[nodiscard]] std::wstring_view KeptWhenLeft(const BoxModes& modes, std::wstring_view text) noexcept;

/// Half-width katakana and the marks that go with it: what the bytes 0xA0 to 0xDF of Shift_JIS are in wide form. The
/// first of them is no character; code page 932 keeps a private place for it.
[[nodiscard]] constexpr bool IsHalfWidthKatakana(unsigned int unit) noexcept {
  constexpr unsigned int kByteA0 = 0xF8F0;
  return (unit >= 0xFF61 && unit <= 0xFF9F) || unit == kByteA0;
}

}  // namespace grid
