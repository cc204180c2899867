#include "dlglib/base/contrast.h"

#include <gtest/gtest.h>

namespace {

using contrast::Between;
using contrast::Colour;
using contrast::ReadableOn;

constexpr Colour kBlack = 0x000000;
constexpr Colour kWhite = 0xFFFFFF;
constexpr Colour kRed = 0x0000FF;
constexpr Colour kBlue = 0xFF0000;

TEST(ContrastTest, BlackOnWhiteHasTheMost) {
  EXPECT_NEAR(Between(kBlack, kWhite), 21.0, 1e-9);
  EXPECT_NEAR(Between(kWhite, kBlack), 21.0, 1e-9);
  EXPECT_NEAR(Between(kRed, kRed), 1.0, 1e-9);
}

TEST(ContrastTest, PartsOfAColourGiveDifferentLight) {
  EXPECT_NEAR(Between(kRed, kWhite), 4.0, 0.01);
  EXPECT_NEAR(Between(kBlue, kWhite), 8.59, 0.01);
  EXPECT_NEAR(Between(0x00FF00, kWhite), 1.37, 0.01);
  EXPECT_NEAR(Between(0x767676, kWhite), 4.54, 0.01);
  EXPECT_NEAR(Between(0x0A0A0A, kBlack), 1.06, 0.01);
}

TEST(ContrastTest, AnInkThatCanBeReadStays) {
  EXPECT_EQ(ReadableOn(kBlack, kRed), kRed);
  EXPECT_EQ(ReadableOn(kWhite, kBlue), kBlue);
  EXPECT_EQ(ReadableOn(kWhite, kBlack), kBlack);
}

TEST(ContrastTest, AnInkThatCannotBeReadIsShadedUntilItCan) {
  const Colour onWhite = ReadableOn(kWhite, kRed);
  EXPECT_GE(Between(onWhite, kWhite), 4.5);
  EXPECT_LT(Between(onWhite, kWhite), 4.7) << "no more than it needs";
  EXPECT_EQ(onWhite & 0xFFFF00, 0U) << "a darker red";
  const Colour onBlue = ReadableOn(0x800000, kRed);
  EXPECT_GE(Between(onBlue, 0x800000), 4.5);
  EXPECT_EQ(onBlue & 0xFF, 0xFFU) << "a lighter red";
}

TEST(ContrastTest, OnEveryGroundAnInkCanBeMadeReadable) {
  for (Colour red = 0; red < 0x100; red += 15) {
    for (Colour green = 0; green < 0x100; green += 15) {
      for (Colour blue = 0; blue < 0x100; blue += 15) {
        const Colour paper = red | green << 8 | blue << 16;
        for (const Colour ink : {kRed, kBlack, kWhite, paper}) {
          ASSERT_GE(Between(ReadableOn(paper, ink), paper), 4.5) << std::hex << paper << " " << ink;
        }
      }
    }
  }
}

}  // namespace
