#include "dlglib/utility/number_text.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

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

[[nodiscard]] double ValueOf(std::string_view text) { return std::atof(std::string(text).c_str()); }

/// Prints one number; the buffer takes the longest double of the two formats in use.
[[nodiscard]] std::string Printed(int length, const std::array<char, kMaxDecimalLength + 1>& buffer) {
  return std::string(buffer.data(), static_cast<std::size_t>(length));
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
  std::array<char, kMaxDecimalLength + 1> buffer = {};
  std::string text = Printed(std::snprintf(buffer.data(), buffer.size(), "%#31.15G", scale), buffer);
  text.erase(0, text.find_first_not_of(' '));
  // Zeros go from the very end, be it that of an exponent: callers rely on the texts as they are.
  DropTrailing(&text, '0');
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string DecimalText(double value) {
  std::array<char, kMaxDecimalLength + 1> buffer = {};
  std::string text = Printed(std::snprintf(buffer.data(), buffer.size(), "%.8f", value), buffer);
  DropTrailing(&text, '0');
  if (text.ends_with('.')) text.push_back('0');
  return text;
}

}  // namespace number_text
