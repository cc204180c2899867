// Capitals and small letters of Shift_JIS, as an edit box that folds them does with what is typed.
#pragma once

#include <span>

namespace grid {

enum class LetterCase { AsTyped, Capitals, Small };

/// Folds Latin letters of one and two bytes, Greek and Cyrillic ones and small Roman numerals, in place. No character
/// changes its length.
void FoldCase(std::span<char> text, LetterCase letterCase) noexcept;

}  // namespace grid
