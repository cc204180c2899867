#include "dlglib/base/outline.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// "#" an opaque pixel, "." a clear one, "+" one that is nearly clear, "o" one in the outline's colour.
std::string Outlined(const std::vector<std::string>& rows, int thickness) {
  constexpr std::uint32_t kInk = 0xFF112233;
  constexpr std::uint32_t kFaint = 0x7F445566;
  std::vector<std::uint32_t> pixels;
  for (const std::string& row : rows) {
    for (const char pixel : row) pixels.push_back(pixel == '#' ? kInk : pixel == '+' ? kFaint : 0);
  }
  outline::Draw({pixels, rows.empty() ? 0 : static_cast<int>(rows.front().size())}, 0xFFEE00, thickness);
  std::string text;
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    if (i > 0 && i % rows.front().size() == 0) text += '/';
    text += pixels[i] == kInk ? '#' : pixels[i] == kFaint ? '+' : pixels[i] == 0xFFFFEE00 ? 'o' : '.';
  }
  return text;
}

TEST(OutlineTest, RunsAroundWhatIsOpaque) {
  EXPECT_EQ(Outlined({".....", ".....", "..#..", ".....", "....."}, 1), "...../.ooo./.o#o./.ooo./.....");
  EXPECT_EQ(Outlined({".....", ".....", "..#..", ".....", "....."}, 2), "ooooo/ooooo/oo#oo/ooooo/ooooo");
}

TEST(OutlineTest, EndsAtTheSidesOfTheImage) {
  EXPECT_EQ(Outlined({"#..", "...", "..."}, 1), "#o./oo./...");
  EXPECT_EQ(Outlined({"..#"}, 1), ".o#");
}

TEST(OutlineTest, FillsSmallHolesAndCoversFaintPixels) {
  EXPECT_EQ(Outlined({"###", "#.#", "###"}, 1), "###/#o#/###");
  EXPECT_EQ(Outlined({"#++"}, 1), "#o+");
}

TEST(OutlineTest, WithoutAnythingOpaqueThereIsNone) {
  EXPECT_EQ(Outlined({"...", "..."}, 3), ".../...");
  EXPECT_EQ(Outlined({"#.."}, 0), "#..");
  EXPECT_EQ(Outlined({}, 1), "");
}

}  // namespace
