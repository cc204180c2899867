#include "dlglib/utility/rules/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using number_text::CheckNumber;
using number_text::DecimalText;
using number_text::kReal;
using number_text::kUnsignedInteger;
using number_text::ParseScale;
using number_text::ScaleText;

constexpr int kSignedInteger = 2;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

[[nodiscard]] bool InMode(const std::string& text, int mode) { return CheckNumber(text, mode, -kInfinity, kInfinity); }

TEST(CheckNumber, AnEmptyTextIsNoNumber) {
  for (const int mode : {kUnsignedInteger, kReal, kSignedInteger}) EXPECT_FALSE(InMode("", mode));
}

TEST(CheckNumber, TheModeSaysWhatMayBeTyped) {
  struct Case {
    const char* text;
    bool isUnsigned, isReal, isSigned;
  };
  for (const Case& each :
       {Case{"5", true, true, true}, Case{"-5", false, true, true}, Case{"+5", false, true, true},
        Case{"1.5", false, true, false}, Case{"1e3", false, false, false}, Case{"+-1", false, false, false},
        Case{"1.2.3", false, false, false}, Case{" 1", false, false, false}, Case{"1 ", false, false, false},
        Case{".", false, true, false}, Case{"-", false, true, true}, Case{"-.5", false, true, false},
        Case{"12-3", false, true, true}, Case{"5-", false, true, true}, Case{"0x10", false, false, false},
        Case{"１", false, false, false}, Case{"1,000", false, false, false}}) {
    EXPECT_EQ(InMode(each.text, kUnsignedInteger), each.isUnsigned) << each.text;
    EXPECT_EQ(InMode(each.text, kReal), each.isReal) << each.text;
    EXPECT_EQ(InMode(each.text, kSignedInteger), each.isSigned) << each.text;
    EXPECT_EQ(InMode(each.text, -1), each.isSigned) << each.text;
  }
}

TEST(CheckNumber, EveryByteButThoseOfNumbersIsRefused) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    const bool isDigit = byte >= '0' && byte <= '9';
    const bool isSign = byte == '-' || byte == '+';
    EXPECT_EQ(InMode(text, kUnsignedInteger), isDigit) << byte;
    EXPECT_EQ(InMode(text, kSignedInteger), isDigit || isSign) << byte;
    EXPECT_EQ(InMode(text, kReal), isDigit || isSign || byte == '.') << byte;
  }
}

/// As the rules are told: digits, one sign unless the mode is unsigned, one point for reals.
[[nodiscard]] bool SlowNumberForm(const std::string& text, int mode) {
  int signs = 0;
  int points = 0;
  for (const char byte : text) {
    if (byte == '+' || byte == '-') {
      ++signs;
    } else if (byte == '.') {
      ++points;
    } else if (std::string("0123456789").find(byte) == std::string::npos) {
      return false;
    }
  }
  return !text.empty() && signs <= (mode == kUnsignedInteger ? 0 : 1) && points <= (mode == kReal ? 1 : 0);
}

TEST(CheckNumber, EveryPairOfBytesIsAsTheRulesAreTold) {
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string text = {static_cast<char>(first), static_cast<char>(second)};
      for (const int mode : {kUnsignedInteger, kReal, kSignedInteger}) {
        ASSERT_EQ(InMode(text, mode), SlowNumberForm(text, mode)) << first << ' ' << second << ' ' << mode;
      }
    }
  }
}

/// Every text of up to `length` letters of the alphabet.
void ForEveryText(const std::string& alphabet, std::size_t length, const std::function<void(const std::string&)>& use) {
  std::vector<std::string> texts = {""};
  for (std::size_t round = 0; round <= length; ++round) {
    std::vector<std::string> longer;
    for (const std::string& text : texts) {
      use(text);
      for (const char letter : alphabet) longer.push_back(text + letter);
    }
    texts = std::move(longer);
  }
}

TEST(CheckNumber, EveryShortTextOfItsCharactersIsTakenForWhatAtofReads) {
  ForEveryText("019.+-", 5, [](const std::string& text) {
    for (const int mode : {kUnsignedInteger, kReal, kSignedInteger}) {
      const double value = std::atof(text.c_str());
      const bool isInRange = value >= -1 && value <= 10;
      ASSERT_EQ(CheckNumber(text, mode, -1, 10), SlowNumberForm(text, mode) && isInRange) << text << ' ' << mode;
    }
  });
}

TEST(CheckNumber, BothEndsOfTheRangeBelongToIt) {
  EXPECT_TRUE(CheckNumber("1", kReal, 1, 10));
  EXPECT_TRUE(CheckNumber("10", kReal, 1, 10));
  EXPECT_FALSE(CheckNumber("10.5", kReal, 1, 10));
  EXPECT_FALSE(CheckNumber("0.9", kReal, 1, 10));
  EXPECT_FALSE(CheckNumber("5", kReal, 10, 1));
}

TEST(CheckNumber, ASignInTheMiddleEndsTheValue) {
  EXPECT_TRUE(CheckNumber("12-3", kReal, 12, 12));
  EXPECT_TRUE(CheckNumber("5+", kReal, 5, 5));
}

TEST(CheckNumber, NoNumberLiesInARangeThatIsNone) {
  EXPECT_FALSE(CheckNumber("5", kReal, kNan, 10));
  EXPECT_FALSE(CheckNumber("5", kReal, 1, kNan));
}

TEST(CheckNumber, TextsAreTakenUpToTheRoomForThem) {
  EXPECT_TRUE(CheckNumber(std::string(511, '0') + "7", kUnsignedInteger, 7, 7));
  EXPECT_TRUE(CheckNumber(std::string(510, '0') + "7", kUnsignedInteger, 7, 7));
  EXPECT_FALSE(CheckNumber(std::string(512, '0') + "7", kUnsignedInteger, 0, 7));
  EXPECT_FALSE(CheckNumber(std::string(100000, '0'), kUnsignedInteger, 0, 7));
  EXPECT_TRUE(CheckNumber(std::string(512, '9'), kReal, 0, kInfinity));
  EXPECT_FALSE(CheckNumber(std::string(512, '9'), kReal, 0, std::numeric_limits<double>::max()));
}

TEST(CheckNumber, WhatIsAcceptedReadsBackInRange) {
  std::mt19937 random(1);
  const std::string alphabet = "0123456789+-.eE x";
  for (int round = 0; round < 200000; ++round) {
    std::string text;
    for (std::size_t length = random() % 8; length > 0; --length) text.push_back(alphabet[random() % alphabet.size()]);
    const int mode = static_cast<int>(random() % 3);
    if (!CheckNumber(text, mode, -50, 500)) continue;
    const double value = std::atof(text.c_str());
    EXPECT_GE(value, -50) << text;
    EXPECT_LE(value, 500) << text;
  }
}

TEST(ParseScale, NumbersAndFractions) {
  EXPECT_EQ(ParseScale("1").value, 1.0);
  EXPECT_EQ(ParseScale("0.0000001").value, 0.0000001);
  EXPECT_EQ(ParseScale("1000000").value, 1000000.0);
  EXPECT_EQ(ParseScale("1/500").value, 0.002);
  EXPECT_EQ(ParseScale("2/4").value, 0.5);
  EXPECT_EQ(ParseScale("1.5/2").value, 0.75);
  EXPECT_EQ(ParseScale("1000000/1").value, 1000000.0);
}

TEST(ParseScale, ASignInTheMiddleEndsEitherSide) {
  EXPECT_EQ(ParseScale("12-3/4").value, 3.0);
  EXPECT_EQ(ParseScale("1/4+9").value, 0.25);
  EXPECT_EQ(ParseScale("5-").value, 5.0);
}

TEST(ParseScale, EveryShortTextOfItsCharacters) {
  const auto side = [](const std::string& text, double minimum) {
    const double value = std::atof(text.c_str());
    return SlowNumberForm(text, kReal) && value >= minimum && value <= 1000000;
  };
  ForEveryText("015./-", 5, [&side](const std::string& text) {
    std::optional<double> expected;
    const std::size_t slash = text.find('/');
    if (side(text, 0.0000001)) {
      expected = std::atof(text.c_str());
    } else if (slash != std::string::npos && side(text.substr(0, slash), 1) && side(text.substr(slash + 1), 1)) {
      expected = std::atof(text.c_str()) / std::atof(text.c_str() + slash + 1);
    }
    ASSERT_EQ(ParseScale(text).value, expected) << text;
  });
}

TEST(ParseScale, BothSidesMayHave512Bytes) {
  for (const std::size_t length : {511U, 512U, 513U}) {
    const std::string side = std::string(length - 1, '0') + "2";
    EXPECT_EQ(ParseScale(side).value.has_value(), length <= 512) << length;
    EXPECT_EQ(ParseScale(side + "/2").value.has_value(), length <= 512) << length;
    EXPECT_EQ(ParseScale("2/" + side).value.has_value(), length <= 512) << length;
  }
}

TEST(ParseScale, AnythingElseIsNone) {
  for (const char* text : {"", "0", "-1", "1000001", "0.00000001", "1/0", "0/1", "1/", "/1", "/", "1/2/3", "1/1000001",
                           "0.5/2", "1/0.5", "a", "1 / 2", "1\\2", "-1/-2"}) {
    EXPECT_FALSE(ParseScale(text).value.has_value()) << text;
  }
  EXPECT_FALSE(ParseScale(std::string(100000, '/')).value.has_value());
  EXPECT_FALSE(ParseScale(std::string(100000, '1') + "/2").value.has_value());
}

TEST(ParseScale, TellsThePartThatWasCheckedLast) {
  EXPECT_EQ(ParseScale("2").lastChecked, "2");
  EXPECT_EQ(ParseScale("abc").lastChecked, "abc");
  EXPECT_EQ(ParseScale("1/500").lastChecked, "500");
  EXPECT_EQ(ParseScale("0/500").lastChecked, "0");
}

TEST(ScaleText, BelowOneItIsAFractionWhereThatIsNear) {
  EXPECT_EQ(ScaleText(0.002), "1/500");
  EXPECT_EQ(ScaleText(0.0015), "1/667");
  EXPECT_EQ(ScaleText(0.5), "1/2");
  EXPECT_EQ(ScaleText(0.9995), "1/1");
  EXPECT_EQ(ScaleText(0.3), "0.3");
  EXPECT_EQ(ScaleText(0.75), "0.75");
  EXPECT_EQ(ScaleText(1e-7), "1/10000000");
}

TEST(ScaleText, FromOneOnItIsANumberWithoutZerosAtItsEnd) {
  EXPECT_EQ(ScaleText(1.0), "1");
  EXPECT_EQ(ScaleText(2.0), "2");
  EXPECT_EQ(ScaleText(1.5), "1.5");
  EXPECT_EQ(ScaleText(1000000), "1000000");
  EXPECT_EQ(ScaleText(1234.56789), "1234.56789");
  EXPECT_EQ(ScaleText(100), "100");
}

TEST(ScaleText, FractionsOfOneAreWrittenAsSuchAndReadBack) {
  for (int n = 2; n <= 1000000; n += 1 + n / 1000) {
    const std::string text = ScaleText(1.0 / n);
    ASSERT_EQ(text, "1/" + std::to_string(n));
    ASSERT_EQ(ParseScale(text).value, 1.0 / n);
  }
}

TEST(ScaleText, EveryThousandthUpToTenIsReadBack) {
  for (int thousandths = 1; thousandths <= 10000; ++thousandths) {
    const double scale = thousandths / 1000.0;
    const std::optional<double> read = ParseScale(ScaleText(scale)).value;
    ASSERT_TRUE(read.has_value()) << scale;
    ASSERT_NEAR(*read, scale, scale < 1 ? 0.001 : 1e-9) << scale;
  }
}

TEST(ScaleText, DenominatorsMayBeLong) {
  EXPECT_EQ(ScaleText(1e-10), "1/10000000000");
  EXPECT_EQ(ScaleText(1e-15), "1/1000000000000000");
  EXPECT_EQ(ScaleText(1.0 / std::numeric_limits<int>::max()), "1/2147483647");
  EXPECT_EQ(ScaleText(-0.002), "1/-499");
}

TEST(ScaleText, WhatIsNoScaleIsWrittenAsItIs) {
  EXPECT_EQ(ScaleText(-0.0), "-0");
  EXPECT_EQ(ScaleText(-0.5), "-0.5");
  EXPECT_EQ(ScaleText(-2), "-2");
  EXPECT_EQ(ScaleText(kNan), "NAN");
  EXPECT_EQ(ScaleText(kInfinity), "INF");
  EXPECT_EQ(ScaleText(-kInfinity), "-INF");
  EXPECT_EQ(ScaleText(std::numeric_limits<double>::denorm_min()), "4.94065645841247E-324");
  EXPECT_EQ(ScaleText(1e15), "1.00000000000000E+15");
  EXPECT_EQ(ScaleText(1e20), "1.00000000000000E+2");  // the zero of the exponent goes too
}

TEST(ScaleText, OddValuesGiveShortTexts) {
  EXPECT_EQ(ScaleText(0), "0");
  for (const double value : {kNan, -kNan, kInfinity, -kInfinity, 0.0, -0.0, -1.0, -0.5, -1e-9, 1e-300, 1e300, -1e300,
                             std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::min(),
                             std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest(),
                             1.0 / std::numeric_limits<int>::max()}) {
    const std::string text = ScaleText(value);
    EXPECT_FALSE(text.empty()) << value;
    EXPECT_LE(text.size(), 31U) << value;
    EXPECT_FALSE(text.starts_with(' ')) << value;
  }
}

TEST(ScaleText, IsReadBackWhereScalesMayLie) {
  std::mt19937 random(2);
  std::uniform_real_distribution<double> exponent(-5.9, 5.9);
  for (int round = 0; round < 100000; ++round) {
    const double scale = std::pow(10.0, exponent(random));
    const number_text::Scale read = ParseScale(ScaleText(scale));
    ASSERT_TRUE(read.value.has_value()) << scale;
    const double tolerance = scale < 1 ? 0.001 : scale * 1e-14;
    EXPECT_NEAR(*read.value, scale, tolerance) << scale;
  }
}

TEST(DecimalText, KeepsAtLeastOneDecimal) {
  EXPECT_EQ(DecimalText(0), "0.0");
  EXPECT_EQ(DecimalText(1.0), "1.0");
  EXPECT_EQ(DecimalText(0.25), "0.25");
  EXPECT_EQ(DecimalText(100), "100.0");
  EXPECT_EQ(DecimalText(-1.5), "-1.5");
  EXPECT_EQ(DecimalText(0.000000014), "0.00000001");
  EXPECT_EQ(DecimalText(1e-12), "0.0");
}

TEST(DecimalText, WhatHasNoDecimalsIsWrittenAsItIs) {
  EXPECT_EQ(DecimalText(kNan), "nan");
  EXPECT_EQ(DecimalText(kInfinity), "inf");
  EXPECT_EQ(DecimalText(-kInfinity), "-inf");
  EXPECT_EQ(DecimalText(-0.0), "-0.0");
  EXPECT_EQ(DecimalText(std::numeric_limits<double>::denorm_min()), "0.0");
  EXPECT_EQ(DecimalText(std::numeric_limits<double>::max()).size(), 311U);
  EXPECT_EQ(DecimalText(std::numeric_limits<double>::lowest()).size(), 312U);
}

TEST(DecimalText, ReadsBackWithinHalfTheLastDecimal) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> values(-1e6, 1e6);
  for (int round = 0; round < 100000; ++round) {
    const double value = values(random);
    const std::string text = DecimalText(value);
    ASSERT_TRUE(CheckNumber(text, kReal, value - 6e-9, value + 6e-9)) << text;
    ASSERT_TRUE(!text.ends_with('0') || text.ends_with(".0")) << text;
  }
}

TEST(DecimalText, StaysWithinItsLength) {
  for (const double value : {kNan, kInfinity, -kInfinity, std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::lowest(), std::numeric_limits<double>::denorm_min()}) {
    const std::string text = DecimalText(value);
    EXPECT_FALSE(text.empty());
    EXPECT_LE(text.size(), number_text::kMaxDecimalLength);
  }
}

}  // namespace
