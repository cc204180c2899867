#include "dlglib/base/folded_path.h"

#include <gtest/gtest.h>

namespace {

using filedialog::FoldedPath;

TEST(FoldedPath, IsOneTextForAllSpellingsOfAPlace) {
  EXPECT_EQ(FoldedPath("c:\\dATA\\"), "C:\\DATA");
  EXPECT_EQ(FoldedPath("c:"), "C:\\");
  EXPECT_EQ(FoldedPath(""), "");
}

TEST(FoldedPath, LeavesSecondBytesAlone) {
  EXPECT_EQ(FoldedPath("C:\\\x83\x61"
                       "b"),
            "C:\\\x83\x61"
            "B");
}

}  // namespace
