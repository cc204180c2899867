// Numbers and drawing scales as people type and read them. Texts are ASCII where they are numbers, with a point before
// the decimals: the library runs in its host's process, whose locale may have a comma there and changes nothing here.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace number_text {

/// Longest text that can be a number, in bytes.
inline constexpr std::size_t kMaxLength = 512;

/// What may be typed; every other number means a signed integer.
inline constexpr int kUnsignedInteger = 0;
inline constexpr int kReal = 1;

/// Whether the text is a number of the mode and minimum <= value <= maximum. Digits; one sign at any place unless the
/// mode is unsigned; one "." for reals. A sign in the middle ends the value ("12-3" is 12), as it does for callers who
/// read the same text. Empty and overlong texts are no numbers.
[[nodiscard]] bool CheckNumber(std::string_view text, int mode, double minimum, double maximum);

struct Scale {
  std::optional<double> value;   ///< none when the text is no scale
  std::string_view lastChecked;  ///< the part of the text that was checked last as a number
};

/// A scale typed as a number from 1e-7 to 1e6 or as a fraction whose two sides lie from 1 to 1e6.
[[nodiscard]] Scale ParseScale(std::string_view text);

/// "1/n" for a scale below 1 that lies less than 0.001 from it, else up to 15 digits without zeros at the end. At most
/// 31 bytes.
[[nodiscard]] std::string ScaleText(double scale);

/// Up to eight decimals, at least one: "1.0", "0.25". At most kMaxDecimalLength bytes.
[[nodiscard]] std::string DecimalText(double value);
inline constexpr std::size_t kMaxDecimalLength = 320;

}  // namespace number_text
