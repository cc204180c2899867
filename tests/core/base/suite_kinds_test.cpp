#include "dlglib/base/suite_kinds.h"

#include <gtest/gtest.h>

#include "platform/suite/crvncontrol.h"
#include "tests/support/encodings.h"

namespace {

using test_texts::Euc;

class SuiteKinds : public testing::Test {
 protected:
  SuiteKinds() {
    CwFileType drawings(Euc("#図面#"), Euc("C:/図面"), Euc("*.図,*.表"), 0, CwLetterCase::Upper);
    drawings.SetDescription(Euc("図面の種類"));
    kinds_.AddFileType(drawings);
    kinds_.AddFileType(CwFileType("#SMALL#", "", "*.s", 0, CwLetterCase::Lower));
    kinds_.AddFileType(CwFileType("#PLAIN#", "", "*", 0));
  }

  [[nodiscard]] const CwFileType* Find(const std::string& keyword) const {
    return suite_kinds::Find(kinds_, EucText(Euc(keyword)));
  }

  CwFileTypeSet kinds_;
};

TEST_F(SuiteKinds, GiveTheirTextsAsTheSuiteKeepsThem) {
  const CwFileType* const drawings = Find("#図面#");
  ASSERT_NE(drawings, nullptr);
  EXPECT_EQ(suite_kinds::FolderOf(*drawings).bytes(), Euc("C:/図面"));
  EXPECT_EQ(suite_kinds::PatternsOf(*drawings).bytes(), Euc("*.図,*.表"));
  EXPECT_EQ(suite_kinds::ExtensionOf(*drawings).bytes(), Euc(".図"));
  EXPECT_EQ(suite_kinds::DescriptionOf(*drawings).bytes(), Euc("図面の種類"));
}

TEST_F(SuiteKinds, AreFoundByTheirWholeKeyword) {
  EXPECT_EQ(Find("#図#"), nullptr);
  EXPECT_EQ(Find("#plain#"), nullptr);
  EXPECT_EQ(Find(""), nullptr);
}

TEST_F(SuiteKinds, TellHowTheirNamesAreWritten) {
  EXPECT_EQ(suite_kinds::LetterCaseOf(Find("#図面#")), 1);
  EXPECT_EQ(suite_kinds::LetterCaseOf(Find("#SMALL#")), -1);
  EXPECT_EQ(suite_kinds::LetterCaseOf(Find("#PLAIN#")), 0);
  EXPECT_EQ(suite_kinds::LetterCaseOf(nullptr), 0);
}

}  // namespace
