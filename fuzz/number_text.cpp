// Numbers and scales, typed and printed, against a reader of decimal numbers of its own.
#include "dlglib/utility/rules/number_text.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>

#include "dlglib/filedialog/titles/leading_number.h"
#include "fuzz/fuzz.h"

namespace {

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

/// Whether the text may be typed: digits, one sign anywhere unless unsigned, one point in a real number.
bool HasForm(std::string_view text, int mode) {
  int signs = 0;
  int points = 0;
  int others = 0;
  for (const char byte : text) {
    if (byte == '+' || byte == '-') {
      ++signs;
    } else if (byte == '.') {
      ++points;
    } else if (!IsDigit(byte)) {
      ++others;
    }
  }
  return !text.empty() && text.size() <= 512 && others == 0 && signs <= (mode == 0 ? 0 : 1) &&
         points <= (mode == 1 ? 1 : 0);
}

/// The value up to what is no longer part of a number, a digit at a time, as a plain sum of powers of ten. Good to 12
/// digits or so.
long double RoughValue(std::string_view text) {
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) text.remove_prefix(1);
  long double value = 0;
  long double unit = 0;
  for (const char byte : text) {
    if (byte == '.' && unit == 0) {
      unit = 1;
    } else if (!IsDigit(byte)) {
      break;
    } else if (unit == 0) {
      value = value * 10 + (byte - '0');
    } else {
      unit /= 10;
      value += unit * (byte - '0');
    }
  }
  return isNegative ? -value : value;
}

bool IsNear(long double a, long double b) { return a == b || std::abs(a - b) <= 1e-12L * std::abs(b); }

void CheckTypedNumber(std::string_view text, int mode, double minimum, double maximum) {
  const bool valid = number_text::CheckNumber(text, mode, minimum, maximum);
  FUZZ_CHECK(!valid || HasForm(text, mode));
  const long double value = RoughValue(text);
  // At the very edge of the range the rough value does not decide.
  if (!HasForm(text, mode) || IsNear(value, minimum) || IsNear(value, maximum)) return;
  FUZZ_CHECK(valid == (minimum <= value && value <= maximum));
}

/// One side of a fraction, or a scale; none when the plain rules refuse it, and no answer at an edge.
enum class Verdict { No, Yes, Edge };

Verdict InRange(std::string_view text, long double minimum, long double maximum) {
  if (!HasForm(text, 1)) return Verdict::No;
  const long double value = RoughValue(text);
  if (IsNear(value, minimum) || IsNear(value, maximum)) return Verdict::Edge;
  return minimum <= value && value <= maximum ? Verdict::Yes : Verdict::No;
}

void CheckScale(std::string_view text) {
  const number_text::Scale scale = number_text::ParseScale(text);
  FUZZ_CHECK(text.find(scale.lastChecked) != std::string_view::npos);
  FUZZ_CHECK(!scale.value || (*scale.value >= 1e-7 && *scale.value <= 1e6));
  const Verdict whole = InRange(text, 1e-7L, 1e6L);
  if (whole == Verdict::Edge) return;
  if (whole == Verdict::Yes) {
    FUZZ_CHECK(scale.value && IsNear(*scale.value, RoughValue(text)) && scale.lastChecked == text);
    return;
  }
  const std::size_t slash = text.find('/');
  if (slash == std::string_view::npos) {
    FUZZ_CHECK(!scale.value);
    return;
  }
  const Verdict above = InRange(text.substr(0, slash), 1, 1e6L);
  const Verdict below = InRange(text.substr(slash + 1), 1, 1e6L);
  if (above == Verdict::No || below == Verdict::No) {
    FUZZ_CHECK(!scale.value);
  } else if (above == Verdict::Yes && below == Verdict::Yes) {
    FUZZ_CHECK(scale.value &&
               IsNear(*scale.value, RoughValue(text.substr(0, slash)) / RoughValue(text.substr(slash + 1))));
  }
}

void CheckScaleText(double scale) {
  const std::string text = number_text::ScaleText(scale);
  FUZZ_CHECK(!text.empty() && text.size() <= 31);
  FUZZ_CHECK(text.front() != ' ' && text.back() != '.' && text.find('\0') == std::string::npos);
  if (text.starts_with("1/")) {
    FUZZ_CHECK(scale < 1);
    const double n = std::strtod(text.c_str() + 2, nullptr);
    FUZZ_CHECK(std::abs(1 / n - scale) < 0.001);
    return;
  }
  // Zeros go from the end, so only what bears no exponent can be read back.
  const bool isPlain = std::abs(scale) >= 1e-4 && std::abs(scale) < 1e14;
  if (isPlain) FUZZ_CHECK(IsNear(std::strtod(text.c_str(), nullptr), scale));
  if (scale == std::trunc(scale) && isPlain) FUZZ_CHECK(text.find('.') == std::string::npos);
}

void CheckDecimalText(double value) {
  const std::string text = number_text::DecimalText(value);
  FUZZ_CHECK(!text.empty() && text.size() <= number_text::kMaxDecimalLength);
  if (!std::isfinite(value)) return;
  const std::size_t point = text.find('.');
  FUZZ_CHECK(point != std::string::npos && point != 0);
  const std::size_t decimals = text.size() - point - 1;
  FUZZ_CHECK(decimals >= 1 && decimals <= 8);
  FUZZ_CHECK(decimals == 1 || text.back() != '0');
  const auto exact = static_cast<long double>(value);
  FUZZ_CHECK(std::abs(std::strtold(text.c_str(), nullptr) - exact) <= 5e-9L + std::abs(exact) * 1e-18L);
}

/// Blanks, a sign, digits: in 64 bits, which stop growing far above an int.
void CheckLeadingNumber(std::string_view text) {
  const int read = filedialog::LeadingNumber(text);
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) text.remove_prefix(1);
  std::int64_t value = 0;
  for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1)) {
    value = std::min<std::int64_t>(value * 10 + (text.front() - '0'), std::int64_t{1} << 40);
  }
  value = isNegative ? -value : value;
  FUZZ_CHECK(read == std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const int mode = input.Number(0, 4) - 1;
  const auto minimum = input.Value<double>();
  const auto maximum = input.Value<double>();
  const fuzz::Block exact(input.Rest());

  CheckTypedNumber(exact.View(), mode, minimum, maximum);
  CheckTypedNumber(exact.View(), mode, -1000, 1e6);
  CheckScale(exact.View());
  CheckLeadingNumber(exact.View());
  CheckScaleText(minimum);
  CheckScaleText(1 / maximum);
  CheckDecimalText(minimum);
  CheckDecimalText(maximum);
  return 0;
}
