// A text of the clipboard, which is UTF-16, as cells hold it. What Shift_JIS lacks is noted down, so that a paste can
// name the cell and the character instead of storing something else.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace grid {

/// A character that Shift_JIS lacks.
struct LackingCharacter {
  std::size_t at = 0;  ///< the byte in whose place it stood
  char32_t character = 0;

  friend bool operator==(const LackingCharacter&, const LackingCharacter&) = default;
};

struct ClipboardText {
  std::string sjis;                       ///< with a "?" for each character that is lacking
  std::vector<LackingCharacter> lacking;  ///< by their places
};

/// A piece of UTF-16 in Shift_JIS; nothing when it holds a character that has no code of its own there. The window asks
/// the system for it. Pieces never split a surrogate pair.
using ConvertPiece = std::function<std::optional<std::string>(std::u16string_view)>;

/// Windows-31J and other forms of Shift_JIS give some characters different code points, so that what another system has
/// copied looks as if it were lacking. The code point under which Windows-31J holds the same character: of a wave dash
/// (U+301C), a minus sign (U+2212), a double vertical line (U+2016), an em dash (U+2014), an overline (U+203E, U+00AF),
/// the signs of yen, cent and pound, of not and a broken bar, which it holds full-width, and the blank that does not
/// break (U+00A0), which is a blank. 0 for all others.
[[nodiscard]] char16_t TwinInWindows31J(char32_t character) noexcept;

/// `text` ends at a zero unit. A text without lacking characters is converted in one piece. A character whose twin can
/// be held is not lacking. A surrogate without the other half is a lacking character as well.
[[nodiscard]] ClipboardText ReadClipboardText(std::u16string_view text, const ConvertPiece& convert);

}  // namespace grid
