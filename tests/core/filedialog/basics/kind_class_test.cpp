#include "dlglib/filedialog/basics/kind_class.h"

#include <gtest/gtest.h>

#include <limits>

namespace filedialog {
namespace {

TEST(KindClass, ClassOneHasTheModelsTitlesAndTheOtherSevenASingleOne) {
  EXPECT_EQ(TitlesOf(0), FileTitles::None);
  EXPECT_EQ(TitlesOf(1), FileTitles::Model);
  for (int number = 2; number <= 8; ++number) EXPECT_EQ(TitlesOf(number), FileTitles::Single) << number;
}

TEST(KindClass, NoOtherNumberHasTitles) {
  for (const int number : {-1, 9, 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_EQ(TitlesOf(number), FileTitles::None) << number;
    EXPECT_FALSE(HasTitles(number)) << number;
  }
}

TEST(KindClass, TheKeywordTellsTheKindsThatStandForSeveral) {
  EXPECT_TRUE(IsRasterKind("#RASTER#"));
  EXPECT_TRUE(IsSxfKind("#SXF:P21#"));
  EXPECT_TRUE(IsSxfKind("#SXF:SFC#"));
  for (const char* keyword : {"", "RASTER", "#raster#", "#SXF:xxx#", "#MODEL#"}) {
    EXPECT_FALSE(IsRasterKind(keyword)) << keyword;
    EXPECT_FALSE(IsSxfKind(keyword)) << keyword;
  }
}

}  // namespace
}  // namespace filedialog
