#include "platform/os/accessible_number.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using accessible::kLastPartOfSubs;
using accessible::Node;
using accessible::NodeOfNumber;
using accessible::NumberOf;

constexpr std::int32_t kCells = 0x40000000;

TEST(AccessibleNumber, PartsHaveTheirPositionsAndTheirPartsNumbersAboveThem) {
  EXPECT_EQ(NumberOf({0, 0}), 0);
  EXPECT_EQ(NumberOf({7, 0}), 7);
  EXPECT_EQ(NumberOf({7, 3}), kCells + 7 * 1024 + 3);
  EXPECT_EQ(NodeOfNumber(7), (Node{7, 0}));
  EXPECT_EQ(NodeOfNumber(kCells + 7 * 1024 + 3), (Node{7, 3}));
}

TEST(AccessibleNumber, LeadsBackToItsNodeUpToTheLast) {
  for (const int part : {1, 2, 1023, 1024, kLastPartOfSubs - 1, kLastPartOfSubs}) {
    for (const int sub : {0, 1, 2, 1023}) {
      const auto number = NumberOf({part, sub});
      ASSERT_TRUE(number) << part << " " << sub;
      EXPECT_EQ(NodeOfNumber(*number), (Node{part, sub})) << *number;
    }
  }
  EXPECT_EQ(kLastPartOfSubs, 1'048'575);
  EXPECT_EQ(NumberOf({kLastPartOfSubs, 1023}), std::numeric_limits<std::int32_t>::max());
}

TEST(AccessibleNumber, WhatIsBeyondHasNone) {
  for (const Node node : {Node{kLastPartOfSubs + 1, 1}, Node{std::numeric_limits<int>::max(), 1}, Node{1, 1024},
                          Node{0, 1}, Node{1, -1}, Node{-1, 0}, Node{-1, 1}, Node{kCells, 0}}) {
    EXPECT_EQ(NumberOf(node), std::nullopt) << node.part << " " << node.sub;
  }
}

TEST(AccessibleNumber, NumbersThatAreNobodysLeadNowhere) {
  EXPECT_EQ(NodeOfNumber(-1), std::nullopt);
  EXPECT_EQ(NodeOfNumber(std::numeric_limits<std::int32_t>::min()), std::nullopt);
  EXPECT_EQ(NodeOfNumber(kCells), std::nullopt);
  EXPECT_EQ(NodeOfNumber(kCells + 5), std::nullopt) << "a part of no part";
  EXPECT_EQ(NodeOfNumber(kCells + 2 * 1024), std::nullopt) << "no part of a part";
}

}  // namespace
