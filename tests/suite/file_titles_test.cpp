#include "platform/suite/crvncui.h"

#include <array>
#include <string>

#include "tests/suite/suite_fixture.h"

namespace {

class FileTitles : public SuiteTest {
 protected:
  FileTitles() { world_.AddDrive('C'); }

  /// `text` is a literal; the file holds it in EUC-JP.
  void Write(const std::string& text) { world_.files.AddFile("C:\\図面\\a.mdl", Euc(text)); }

  [[nodiscard]] std::string Title(int titleClass) const {
    std::string title = "old";
    const int result = GetFilTtl(titleClass, path_, &title);
    return std::to_string(result) + ':' + title;
  }

  [[nodiscard]] std::string ModelTitles() const {
    const int numbers[] = {201, 1, 5};
    std::array<std::string, 3> titles = {"old", "old", "old"};
    const int result = GetFilTtl(path_, numbers, 3, titles.data());
    return std::to_string(result) + ':' + titles[0] + ',' + titles[1] + ',' + titles[2];
  }

  const std::string path_ = Euc("C:/図面/a.mdl");
};

TEST_F(FileTitles, OfAModelComeByNumber) {
  Write("CORVANE MODEL 1\n1=配管図\n201=図面 A=1\n207=x\nEND\n5=body\n");
  EXPECT_EQ(ModelTitles(), Euc("0:図面 A=1,配管図,"));
}

TEST_F(FileTitles, OfOtherKindsComeByClass) {
  const char* kinds[] = {"PARTS", "PSET", "MACRO", "MASK", "TEXT", "CONST", "ATTR"};
  for (int i = 0; i < 7; ++i) {
    Write(std::string("CORVANE ") + kinds[i] + " 1\r\nTITLE=題名\r\nEND\r\n");
    for (int titleClass = -1; titleClass <= 9; ++titleClass) {
      EXPECT_EQ(Title(titleClass), titleClass == i + 2 ? Euc("0:題名") : "1:") << kinds[i] << titleClass;
    }
    EXPECT_EQ(ModelTitles(), "1:,,");
  }
}

TEST_F(FileTitles, ValidityIsToldByTheFirstLine) {
  Write("CORVANE CONST 1\nTITLE=x\nEND\n");
  EXPECT_EQ(cnsver(path_.c_str(), nullptr), 0);
  EXPECT_FALSE(CwItemAttrTable2::IsDefinitionFile(path_));
  Write("CORVANE ATTR 1\nTITLE=x\nEND\n");
  EXPECT_NE(cnsver(path_.c_str(), nullptr), 0);
  EXPECT_TRUE(CwItemAttrTable2::IsDefinitionFile(path_));
}

TEST_F(FileTitles, BadFilesAreHarmless) {
  const std::string bad[] = {"",
                             "\n",
                             "END\n",
                             "CORVANE",
                             "CORVANE MODEL 2\n1=a\n",
                             "CORVANE MODEL 10\n1=a\n",
                             "corvane model 1\n1=a\n",
                             " CORVANE MODEL 1\n1=a\n",
                             std::string(100, '\0'),
                             std::string(40000, '\xFF')};
  for (const std::string& text : bad) {
    world_.files.AddFile("C:\\図面\\a.mdl", text);
    EXPECT_EQ(ModelTitles(), "1:,,");
    EXPECT_EQ(Title(2), "1:");
    EXPECT_NE(cnsver(path_.c_str(), nullptr), 0);
    EXPECT_FALSE(CwItemAttrTable2::IsDefinitionFile(path_));
  }
}

TEST_F(FileTitles, TruncatedAndOddHeadersGiveWhatTheyHold) {
  world_.files.AddFile("C:\\図面\\a.mdl", "CORVANE MODEL 1\n1=a\n5=\xB4");
  EXPECT_EQ(ModelTitles(), "0:,a,\xB4");
  Write("CORVANE MODEL 1\n99999999999999999999=a\n-1=b\n=c\n1\n1=\n5=d\n5=e\nEND\n");
  EXPECT_EQ(ModelTitles(), "0:,,e");
  world_.files.AddFile("C:\\図面\\a.mdl", std::string("CORVANE MODEL 1\n1=a\0b\n", 22));
  EXPECT_EQ(ModelTitles(), "0:,a,");
  Write("CORVANE MODEL 1");
  EXPECT_EQ(ModelTitles(), "0:,,");
  Write("CORVANE CONST 1");
  EXPECT_EQ(Title(7), "0:");
}

TEST_F(FileTitles, OnlyTheFirst16KiBCount) {
  const std::string head = "CORVANE MODEL 1\n1=a\n2=" + std::string(16384 - 16 - 4 - 2 - 3, 'x') + "\n5=";
  ASSERT_EQ(head.size(), 16384u);
  world_.files.AddFile("C:\\図面\\a.mdl", head + "lost\n201=lost\nEND\n");
  EXPECT_EQ(ModelTitles(), "0:,a,");
  world_.files.AddFile("C:\\図面\\a.mdl", "CORVANE MODEL 1" + std::string(20000, ' ') + "\n1=a\n");
  EXPECT_EQ(ModelTitles(), "1:,,");
}

TEST_F(FileTitles, HeadersOfAnyLengthAreReadAndBodiesAreNot) {
  for (const std::size_t length : {2000U, 2020U, 2030U, 2040U, 2048U, 2060U, 5000U}) {
    Write("CORVANE MODEL 1\n1=a\n2=" + std::string(length, 'x') + "\n5=e\nEND\n5=body\n" + std::string(30000, 'b'));
    EXPECT_EQ(ModelTitles(), "0:,a,e") << length;
  }
  Write("CORVANE MODEL 1\r\n1=a\r\n5=e\r\nEND\r\n5=body\r\n" + std::string(30000, 'b'));
  world_.calls.ClearLog();
  EXPECT_EQ(ModelTitles(), "0:,a,e");
  EXPECT_EQ(world_.calls.Count("files.Read"), 1u);
}

TEST_F(FileTitles, AFileThatCannotBeReadHasNone) {
  EXPECT_EQ(ModelTitles(), "1:,,");
  Write("CORVANE MODEL 1\n1=a\nEND\n");
  world_.calls.FailNext("files.Read");
  EXPECT_EQ(ModelTitles(), "1:,,");
  EXPECT_EQ(ModelTitles(), "0:,a,");
  EXPECT_EQ(world_.calls.Count("files.Read"), 3u);
  EXPECT_EQ(world_.calls.Total(), 3u);
}

TEST_F(FileTitles, WrongArgumentsFail) {
  Write("CORVANE MODEL 1\n1=a\nEND\n");
  const int number = 1;
  std::string text = "old";
  EXPECT_NE(GetFilTtl(path_, &number, 1, nullptr), 0);
  EXPECT_NE(GetFilTtl(path_, &number, -1, &text), 0);
  EXPECT_EQ(text, "old");
  EXPECT_NE(GetFilTtl(path_, nullptr, 1, &text), 0);
  EXPECT_EQ(text, "");
  EXPECT_EQ(GetFilTtl(path_, &number, 0, &text), 0);
  EXPECT_NE(GetFilTtl(2, path_, nullptr), 0);
  EXPECT_NE(cnsver(nullptr, nullptr), 0);
}

}  // namespace
