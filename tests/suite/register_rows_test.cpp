#include "platform/suite/register_rows.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/suite/crvncontrol.h"
#include "tests/support/encodings.h"

namespace {

using test_texts::Euc;

std::vector<std::string> Lines(const CwRegisterSet& registers) {
  std::vector<std::string> lines;
  for (const suite::RegisterRow& row : suite::RegisterRows(registers)) {
    lines.push_back(row.group + '|' + row.name + '|' + row.value + '|' + std::to_string(row.code));
  }
  return lines;
}

TEST(RegisterRows, ShowGroupNameAndValueInOrder) {
  CwRegisterSet registers;
  registers.AddRegister("B0")->SetText(Euc("北港水道"));
  registers.AddRegister("A10")->SetScalar(-1250.5);
  registers.AddRegister("A2")->SetScalar(1.0 / 3);
  registers.AddRegister("A0")->SetScalar(841);
  registers.AddRegister("T1");
  EXPECT_EQ(Lines(registers), (std::vector<std::string>{"A|A0|841|0", "A|A2|0.3333333333|2", "A|A10|-1250.5|10",
                                                        "B|B0|北港水道|1000", "T|T1||19001"}));
}

TEST(RegisterRows, NamesWithoutAGroupComeLastAndHaveNoCode) {
  CwRegisterSet registers;
  for (const char* name : {"A01", "a1", "A1000", "A", "", "A1x", "A-1", "\xC9\xBD", "AA1"}) {
    registers.AddRegister(name)->SetScalar(1);
    EXPECT_EQ(suite::RegisterCode(name), 0) << name;
  }
  registers.AddRegister("Z999")->SetScalar(2);
  const std::vector<suite::RegisterRow> rows = suite::RegisterRows(registers);
  ASSERT_EQ(rows.size(), 10U);
  EXPECT_EQ(rows[0].code, 25999);
  for (std::size_t i = 1; i < rows.size(); ++i) EXPECT_EQ(rows[i].group, "");
}

TEST(RegisterRows, EveryNameOfTheSetHasItsCode) {
  for (int group = 1; group <= 26; ++group) {
    for (int index = 0; index < 1000; ++index) {
      EXPECT_EQ(suite::RegisterCode(CwRegisterSet::GetRegisterName(group, index)), (group - 1) * 1000 + index);
    }
  }
}

TEST(RegisterRows, ANumberIsWrittenWithTenDigits) {
  CwRegisterSet registers;
  registers.AddRegister("A1")->SetScalar(1e-05);
  registers.AddRegister("A2")->SetScalar(1.7976931348623157e308);
  EXPECT_EQ(Lines(registers), (std::vector<std::string>{"A|A1|1e-05|1", "A|A2|1.797693135e+308|2"}));
}

TEST(TextLibrary, NamesItsLibrariesInOrder) {
  CwTextLibrary texts;
  EXPECT_TRUE(texts.GetLibraries().empty());
  for (const char* library : {"b.TLB", "a.TLB", "b.TLB", "", "a.TLB"}) texts.AddText(library, "x");
  EXPECT_EQ(texts.GetLibraries(), (std::vector<std::string>{"b.TLB", "a.TLB", ""}));
}

}  // namespace
