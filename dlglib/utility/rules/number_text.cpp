#include "dlglib/utility/rules/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

#include "dlglib/base/shift_jis.h"

namespace number_text {
namespace {

[[nodiscard]] bool IsDigit(char byte) noexcept { return byte >= '0' && byte <= '9'; }
[[nodiscard]] bool IsSign(char byte) noexcept { return byte == '-' || byte == '+'; }

[[nodiscard]] bool HasNumberForm(std::string_view text, int mode) noexcept {
  bool mayHaveSign = mode != kUnsignedInteger;
  bool mayHavePoint = mode == kReal;
  for (const char byte : text) {
    if (IsDigit(byte)) continue;
    if (IsSign(byte) && mayHaveSign) {
      mayHaveSign = false;
    } else if (byte == '.' && mayHavePoint) {
      mayHavePoint = false;
    } else {
      return false;
    }
  }
  return true;
}

/// The value of a text in a number's form, up to what is no longer part of it; 0 for one without digits. Numbers too
/// large for a double are infinite. The C library would look for the decimal point of the host's locale.
[[nodiscard]] double ValueOf(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc::result_out_of_range) return value;
  const bool isLarge = text.substr(0, text.find('.')).find_first_of("123456789") != std::string_view::npos;
  const double size = isLarge ? std::numeric_limits<double>::infinity() : 0;
  return text.starts_with('-') ? -size : size;
}

/// One number, with a point whatever the host's locale has in its place. What is not a number has no sign.
[[nodiscard]] std::string Printed(double value, std::chars_format format, int decimals) {
  if (std::isnan(value)) value = std::numeric_limits<double>::quiet_NaN();
  std::array<char, kMaxDecimalLength> buffer;
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format, decimals);
  return std::string(buffer.data(), end);
}

/// The power of ten of a finite number when it is written with so many digits.
[[nodiscard]] int Exponent(const std::string& scientific) {
  const std::size_t sign = scientific.find('e') + 1;
  const char* first = scientific.data() + sign + (scientific[sign] == '+' ? 1 : 0);
  int exponent = 0;
  std::from_chars(first, scientific.data() + scientific.size(), exponent);
  return exponent;
}

/// 15 digits, zeros at the end included, and always a point: what "%#.15G" writes.
[[nodiscard]] std::string FifteenDigits(double value) {
  constexpr int kDigits = 15;
  constexpr int kLowestPlainExponent = -4;
  std::string text = Printed(value, std::chars_format::scientific, kDigits - 1);
  const int exponent = std::isfinite(value) ? Exponent(text) : kDigits;
  if (exponent >= kLowestPlainExponent && exponent < kDigits) {
    text = Printed(value, std::chars_format::fixed, kDigits - 1 - exponent);
    if (exponent == kDigits - 1) text.push_back('.');
  }
  return shift_jis::ToUpperBytes(text);
}

/// n of the nearest "1/n"; none for 0 and for scales so close to it that n has no exact value.
[[nodiscard]] std::optional<std::int64_t> NearestDenominator(double scale) noexcept {
  const double denominator = std::trunc(1.0 / scale + 0.5);
  constexpr double kLargest = 9007199254740992.0;  // 2 to the power of 53
  if (!(denominator >= -kLargest && denominator <= kLargest)) return std::nullopt;
  return static_cast<std::int64_t>(denominator);
}

void DropTrailing(std::string* text, char byte) { text->resize(text->find_last_not_of(byte) + 1); }

}  // namespace

bool CheckNumber(std::string_view text, int mode, double minimum, double maximum) {
  if (text.empty() || text.size() > kMaxLength || !HasNumberForm(text, mode)) return false;
  const double value = ValueOf(text);
  return minimum <= value && value <= maximum;
}

Scale ParseScale(std::string_view text) {
  constexpr double kSmallest = 0.0000001;
  constexpr double kLargest = 1000000;
  if (CheckNumber(text, kReal, kSmallest, kLargest)) return {ValueOf(text), text};
  const std::size_t slash = text.find('/');
  if (slash == std::string_view::npos) return {std::nullopt, text};
  const std::string_view numerator = text.substr(0, slash);
  const std::string_view denominator = text.substr(slash + 1);
  if (!CheckNumber(numerator, kReal, 1, kLargest)) return {std::nullopt, numerator};
  if (!CheckNumber(denominator, kReal, 1, kLargest)) return {std::nullopt, denominator};
  return {ValueOf(numerator) / ValueOf(denominator), denominator};
}

std::string ScaleText(double scale) {
  constexpr double kTolerance = 0.001;
  const std::optional<std::int64_t> n = scale >= 1 ? std::nullopt : NearestDenominator(scale);
  if (n && std::abs(1.0 / static_cast<double>(*n) - scale) < kTolerance) return "1/" + std::to_string(*n);
  std::string text = FifteenDigits(scale);
  // Zeros go from the very end, be it that of an exponent: callers compare texts that were made in this way.
  DropTrailing(&text, '0');
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string DecimalText(double value) {
  constexpr int kDecimals = 8;
  std::string text = Printed(value, std::chars_format::fixed, kDecimals);
  DropTrailing(&text, '0');
  if (text.ends_with('.')) text.push_back('0');
  return text;
}

}  // namespace number_text
