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

/// `text` ends at a zero unit. A text without lacking characters is converted in one piece. A surrogate without the
/// other half is a lacking character as well.
///
/// No character is taken for one that looks like it. Systems with other tables write a wave dash as U+301C, a minus
/// sign as U+2212 or a yen sign as U+00A5, where Windows-31J has U+FF5E, U+FF0D and U+FFE5: to store those instead
/// would change what the user has copied without a word.
[[nodiscard]] ClipboardText ReadClipboardText(std::u16string_view text, const ConvertPiece& convert);

}  // namespace grid
