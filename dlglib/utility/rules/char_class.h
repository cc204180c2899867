// Classes of Shift_JIS characters, as bits of a mask that says what may be typed.
#pragma once

namespace char_class {

inline constexpr unsigned int kCapital = 1;
inline constexpr unsigned int kSmall = 2;
inline constexpr unsigned int kDigit = 4;
inline constexpr unsigned int kOtherSingleByte = 8;  ///< symbols, blank, controls
inline constexpr unsigned int kHalfWidthKatakana = 16;
inline constexpr unsigned int kDoubleByte = 32;  ///< everything else

/// The class of a character code.
[[nodiscard]] unsigned int ClassOf(unsigned int code) noexcept;

}  // namespace char_class
