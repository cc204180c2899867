#include "dlglib/listcontrol/letter_case.h"

#include <cstddef>
#include <string_view>

#include "dlglib/base/shift_jis.h"

namespace grid {

namespace {

/// Letters that follow each other: the codes from `first` to `last` become those from `to` on.
struct Letters {
  unsigned first;
  unsigned last;
  unsigned to;
};

// Roman numerals stand three times in the character set; the vendor's first row is what the system writes for capitals,
// its last one for small ones.
constexpr Letters kToCapitals[] = {{'a', 'z', 'A'},          {0x8281, 0x829A, 0x8260}, {0x83BF, 0x83D6, 0x839F},
                                   {0x8470, 0x847E, 0x8440}, {0x8480, 0x8491, 0x844F}, {0xEEEF, 0xEEF8, 0x8754},
                                   {0xFA40, 0xFA49, 0x8754}};
constexpr Letters kToSmall[] = {{'A', 'Z', 'a'},          {0x8260, 0x8279, 0x8281}, {0x839F, 0x83B6, 0x83BF},
                                {0x8440, 0x844E, 0x8470}, {0x844F, 0x8460, 0x8480}, {0x8754, 0x875D, 0xFA40},
                                {0xFA4A, 0xFA53, 0xFA40}};

[[nodiscard]] unsigned Folded(unsigned code, std::span<const Letters> table) noexcept {
  for (const Letters& letters : table) {
    if (code >= letters.first && code <= letters.last) return code - letters.first + letters.to;
  }
  return code;
}

[[nodiscard]] constexpr unsigned Value(char byte) noexcept { return static_cast<unsigned char>(byte); }

}  // namespace

void FoldCase(std::span<char> text, LetterCase letterCase) noexcept {
  if (letterCase == LetterCase::AsTyped) return;
  const std::span<const Letters> table = letterCase == LetterCase::Capitals ? kToCapitals : kToSmall;
  const std::string_view view(text.data(), text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = shift_jis::CharLength(view, at);
    if (length == 2) {
      const unsigned code = Folded(Value(text[at]) << 8 | Value(text[at + 1]), table);
      text[at] = static_cast<char>(code >> 8);
      text[at + 1] = static_cast<char>(code);
    } else {
      text[at] = static_cast<char>(Folded(Value(text[at]), table));
    }
    at += length;
  }
}

}  // namespace grid
