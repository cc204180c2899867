// Numbers are the same texts whatever the host's locale has for the decimal point, and the texts that the C library's
// own calls give in the "C" locale.
#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/utility/rules/number_text.h"

namespace {

using number_text::CheckNumber;
using number_text::DecimalText;
using number_text::kReal;
using number_text::ParseScale;
using number_text::ScaleText;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// ---- what the C library gives in the "C" locale

[[nodiscard]] std::string PlainFixed(double value, int decimals) {
  std::array<char, 1024> text = {};
  const int length = std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
  return {text.data(), static_cast<std::size_t>(length)};
}

[[nodiscard]] std::string PlainDecimalText(double value) {
  std::string text = PlainFixed(value, 8);
  text.resize(text.find_last_not_of('0') + 1);
  return text.ends_with('.') ? text + '0' : text;
}

/// Of a scale that is not written as a fraction.
[[nodiscard]] std::string PlainScaleText(double scale) {
  std::array<char, 64> buffer = {};
  std::snprintf(buffer.data(), buffer.size(), "%#31.15G", scale);
  std::string text = buffer.data();
  text.erase(0, text.find_first_not_of(' '));
  text.resize(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

/// Whether two numbers have the same bits; all that are none count as one.
[[nodiscard]] bool AreSame(double a, double b) {
  return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

/// The value of a text that is a number, found through the range that it lies in.
[[nodiscard]] bool IsValue(const std::string& text, double value) { return CheckNumber(text, kReal, value, value); }

// ---- values

/// Halves of the last digit, the places where the form changes, ends of the range, and every power of ten with its
/// neighbours.
[[nodiscard]] std::vector<double> Edges() {
  std::vector<double> values = {0.0,
                                kInfinity,
                                0.5,
                                1.5,
                                0.001953125,
                                0.005859375,  // ties at the eighth decimal
                                999999999999999.5,
                                99999999999999.95,
                                0.00009999999999999995,
                                std::numeric_limits<double>::max(),
                                std::numeric_limits<double>::min(),
                                std::numeric_limits<double>::denorm_min(),
                                std::numeric_limits<double>::quiet_NaN()};
  for (int exponent = -323; exponent <= 308; ++exponent) {
    const double power = std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
    for (const double value :
         {power, std::nextafter(power, 0.0), std::nextafter(power, kInfinity), power * 5, power * 2.5})
      values.push_back(value);
  }
  const std::size_t count = values.size();
  for (std::size_t i = 0; i < count; ++i) values.push_back(-values[i]);
  return values;
}

/// Any bits; scales and decimals as people have them.
[[nodiscard]] std::vector<double> RandomValues(int count) {
  std::mt19937_64 random(20);
  std::uniform_real_distribution<double> exponent(-16, 18);
  std::vector<double> values;
  for (int i = 0; i < count; ++i) {
    const std::uint64_t bits = random();
    double any = 0;
    std::memcpy(&any, &bits, sizeof any);
    values.push_back(any);
    values.push_back(std::pow(10.0, exponent(random)));
    values.push_back(static_cast<double>(random() % 100000000) / 1000.0);
    values.push_back(static_cast<double>(random() % 1000000) / 512.0);
  }
  return values;
}

[[nodiscard]] std::vector<double> AllValues() {
  std::vector<double> values = Edges();
  const std::vector<double> random = RandomValues(10000);
  values.insert(values.end(), random.begin(), random.end());
  return values;
}

/// C libraries differ in whether they write a sign before what is not a number; here it has none.
[[nodiscard]] double WithoutOddSign(double value) { return std::isnan(value) ? std::abs(value) : value; }

TEST(NumbersInTheCLocale, DecimalTextsAreThoseOfTheCLibrary) {
  for (const double value : AllValues())
    ASSERT_EQ(DecimalText(value), PlainDecimalText(WithoutOddSign(value))) << std::hexfloat << value;
}

TEST(NumbersInTheCLocale, ScalesFromOneOnAreTextsOfTheCLibrary) {
  for (const double value : AllValues()) {
    const std::string text = ScaleText(value);
    const std::string expected = PlainScaleText(WithoutOddSign(value));
    // glibc forgets the zeros of a number that 15 digits round up to a power of ten beyond them.
    if (text.starts_with("1/") || expected.find(".E") != std::string::npos) continue;
    ASSERT_EQ(text, expected) << std::hexfloat << value;
  }
}

TEST(NumbersInTheCLocale, ANumberThatRoundsUpBeyondItsDigitsKeepsThem) {
  EXPECT_EQ(ScaleText(999999999999999.5), "1.00000000000000E+15");
  EXPECT_EQ(ScaleText(99999999999999.99), "100000000000000");
  EXPECT_EQ(ScaleText(-0.9999999999999999), "-1");
}

TEST(NumbersInTheCLocale, WhatIsNotANumberHasNoSign) {
  EXPECT_EQ(DecimalText(-std::numeric_limits<double>::quiet_NaN()), "nan");
  EXPECT_EQ(ScaleText(-std::numeric_limits<double>::quiet_NaN()), "NAN");
}

TEST(NumbersInTheCLocale, TypedNumbersHaveTheValuesOfTheCLibrary) {
  std::mt19937 random(5);
  const std::string_view alphabet = "0123456789000999.+-";
  for (int round = 0; round < 100000; ++round) {
    std::string text;
    for (std::size_t length = random() % 30; length > 0; --length) text.push_back(alphabet[random() % alphabet.size()]);
    if (!CheckNumber(text, kReal, -kInfinity, kInfinity)) continue;
    ASSERT_TRUE(IsValue(text, std::atof(text.c_str()))) << text;
  }
}

TEST(NumbersInTheCLocale, TypedNumbersAreRoundedLikeThoseOfTheCLibrary) {
  for (const double value : RandomValues(5000)) {
    if (!std::isfinite(value)) continue;
    for (const int decimals : {6, 17, 30, 340}) {
      const std::string text = PlainFixed(value, decimals);
      if (text.size() > number_text::kMaxLength) continue;
      ASSERT_TRUE(IsValue(text, std::atof(text.c_str()))) << text;
    }
  }
}

TEST(NumbersInTheCLocale, TypedNumbersBeyondEveryDoubleAreInfiniteOrNothing) {
  const std::string nines(400, '9');
  const std::string zeros(400, '0');
  for (const std::string& text :
       {nines, "-" + nines, "+" + nines, nines + "." + nines.substr(0, 100), "0." + zeros + "1", "-0." + zeros + "1",
        zeros + "1", "+." + zeros + "1", "-." + zeros + "1"}) {
    EXPECT_TRUE(IsValue(text, std::atof(text.c_str()))) << text;
  }
}

TEST(NumbersInTheCLocale, ScalesHaveTheValuesOfTheCLibrary) {
  for (const double value : RandomValues(5000)) {
    if (!(value > 1e-7 && value < 1e6)) continue;
    const std::string text = PlainFixed(value, 20);
    const number_text::Scale scale = ParseScale(text);
    ASSERT_TRUE(scale.value && AreSame(*scale.value, std::atof(text.c_str()))) << text;
  }
}

/// The host's numbers have a decimal comma while the object lives.
class DecimalComma {
 public:
  DecimalComma() : former_(std::setlocale(LC_ALL, nullptr)) { set_ = std::setlocale(LC_ALL, kName) != nullptr; }
  DecimalComma(const DecimalComma&) = delete;
  DecimalComma& operator=(const DecimalComma&) = delete;
  ~DecimalComma() { std::setlocale(LC_ALL, former_.c_str()); }

  /// Whether the C library writes and reads commas now.
  [[nodiscard]] bool IsInForce() const { return set_ && PlainFixed(1.5, 1) == "1,5" && std::atof("1,5") == 1.5; }

#ifdef _WIN32
  static constexpr char kName[] = "German";
#else
  static constexpr char kName[] = "de_DE.UTF-8";  // CTest makes it and says where it is (LOCPATH)
#endif

 private:
  std::string former_;
  bool set_ = false;
};

class NumbersUnderADecimalComma : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(comma_.IsInForce()) << "no locale " << DecimalComma::kName; }

  DecimalComma comma_;
};

TEST_F(NumbersUnderADecimalComma, AreWrittenWithAPoint) {
  EXPECT_EQ(DecimalText(0.25), "0.25");
  EXPECT_EQ(DecimalText(-1234567.5), "-1234567.5");
  EXPECT_EQ(DecimalText(3), "3.0");
  EXPECT_EQ(ScaleText(1.5), "1.5");
  EXPECT_EQ(ScaleText(0.3), "0.3");
  EXPECT_EQ(ScaleText(2), "2");
  EXPECT_EQ(ScaleText(0.002), "1/500");
  EXPECT_EQ(ScaleText(1e15), "1.00000000000000E+15");
}

TEST_F(NumbersUnderADecimalComma, AreReadUpToTheirLastDecimal) {
  EXPECT_TRUE(IsValue("1.5", 1.5));
  EXPECT_TRUE(IsValue("-.25", -0.25));
  EXPECT_FALSE(CheckNumber("10.5", kReal, 1, 10));
  EXPECT_TRUE(CheckNumber("0.75", kReal, 0.5, 1));
  EXPECT_EQ(ParseScale("0.0000001").value, 0.0000001);
  EXPECT_EQ(ParseScale("1.5/2.5").value, 0.6);
}

TEST_F(NumbersUnderADecimalComma, HaveNoComma) {
  EXPECT_FALSE(CheckNumber("1,5", kReal, -kInfinity, kInfinity));
  EXPECT_FALSE(ParseScale("1,5").value.has_value());
}

TEST(NumbersOfAnyHost, AreTheSameTextsUnderADecimalComma) {
  const std::vector<double> values = AllValues();
  std::vector<std::string> expected;
  for (const double value : values) expected.push_back(DecimalText(value) + ' ' + ScaleText(value));
  const DecimalComma comma;
  ASSERT_TRUE(comma.IsInForce());
  for (std::size_t i = 0; i < values.size(); ++i) {
    ASSERT_EQ(DecimalText(values[i]) + ' ' + ScaleText(values[i]), expected[i]) << std::hexfloat << values[i];
  }
}

}  // namespace
