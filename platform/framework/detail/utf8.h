// UTF-8 and Shift_JIS (code page 932), by the platform's own conversion. Neither direction guesses: a text is converted
// as a whole or not at all.
#pragma once

#include <string>
#include <string_view>

namespace framework {

enum class TextProblem {
  None,
  BadEncoding,      ///< bytes that are no character of their encoding
  NoSuchCharacter,  ///< a character that the other encoding lacks; look-alikes do not count
};

struct ConvertedText {
  std::string text;  ///< empty when there is a problem
  TextProblem problem = TextProblem::None;
};

[[nodiscard]] ConvertedText SjisFromUtf8(std::string_view utf8);
/// The bytes 0x80, 0xA0 and 0xFD to 0xFF, which the platform maps to private characters, are no characters here.
[[nodiscard]] ConvertedText Utf8FromSjis(std::string_view sjis);

}  // namespace framework
