#include "dlglib/filedialog/titles/leading_number.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <string>

namespace {

using filedialog::LeadingNumber;

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

TEST(LeadingNumber, StopsWhereTheNumberEnds) {
  EXPECT_EQ(LeadingNumber("1000"), 1000);
  EXPECT_EQ(LeadingNumber("  201 : 名前"), 201);
  EXPECT_EQ(LeadingNumber("12.9"), 12);
  EXPECT_EQ(LeadingNumber("10x"), 10);
  EXPECT_EQ(LeadingNumber("0010"), 10);
}

TEST(LeadingNumber, TakesOneSign) {
  EXPECT_EQ(LeadingNumber("-5"), -5);
  EXPECT_EQ(LeadingNumber("+5"), 5);
  EXPECT_EQ(LeadingNumber("--5"), 0);
  EXPECT_EQ(LeadingNumber("- 5"), 0);
}

TEST(LeadingNumber, IsZeroWithoutDigits) {
  for (const char* text : {"", " ", "-", "x1", "１０", "\x82", ":1"}) EXPECT_EQ(LeadingNumber(text), 0) << text;
}

TEST(LeadingNumber, StaysWithinAnInt) {
  EXPECT_EQ(LeadingNumber("2147483647"), kLargest);
  EXPECT_EQ(LeadingNumber("2147483648"), kLargest);
  EXPECT_EQ(LeadingNumber("-2147483648"), kSmallest);
  EXPECT_EQ(LeadingNumber("-2147483649"), kSmallest);
  EXPECT_EQ(LeadingNumber(std::string(400, '9')), kLargest);
  EXPECT_EQ(LeadingNumber("-" + std::string(400, '9')), kSmallest);
}

TEST(LeadingNumber, AgreesWithTheCLibraryOnEveryPairOfBytes) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string text = {static_cast<char>(first), static_cast<char>(second), '7'};
      ASSERT_EQ(LeadingNumber(text.c_str()), std::atoi(text.c_str())) << first << " " << second;
    }
  }
}

}  // namespace
