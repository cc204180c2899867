// Capitals and small letters of Shift_JIS, as an edit box that folds them does with what is typed.
#pragma once

#include <span>

namespace grid {

enum class LetterCase { AsTyped, Capitals, Small };

/// Of a number that a program gives: above 0 capitals, below 0 small letters.
[[nodiscard]] constexpr LetterCase LetterCaseOf(int caseMode) noexcept {
  if (caseMode > 0) return LetterCase::Capitals;
  return caseMode < 0 ? LetterCase::Small : LetterCase::AsTyped;
}

/// Folds Latin letters of one and two bytes, Greek and Cyrillic ones and small Roman numerals, in place. No character
/// changes its length.
void FoldCase(std::span<char> text, LetterCase letterCase) noexcept;

}  // namespace grid
