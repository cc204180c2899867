// Session files are UTF-8; their texts are written here as u8 literals.
#include <string>
#include <string_view>
#include <vector>

#include "platform/suite/crvnmdl.h"
#include "tests/suite/suite_fixture.h"

namespace {

class SessionFile : public SuiteTest {
 protected:
  SessionFile() { world_.AddDrive('C'); }

  bool Load(std::u8string_view text) { return LoadBytes(std::string(text.begin(), text.end())); }

  bool LoadBytes(const std::string& bytes) {
    world_.files.AddFile(path_, bytes);
    return CwSession::LoadFile(path_);
  }

  [[nodiscard]] std::vector<int> UnreadableLines() const {
    std::vector<int> numbers;
    for (const CwUnreadableLine& line : session_.GetUnreadableLines()) numbers.push_back(line.line);
    return numbers;
  }

  const std::string path_ = "C:\\表\\corvane.session";
};

TEST_F(SessionFile, EverySectionIsRead) {
  ASSERT_TRUE(
      Load(u8"; comment\n"
           u8"[kinds]\n"
           u8"#MODEL# = C:/図面/model | *.MDL | 2 | upper | モデルファイル\n"
           u8"#RASTER#=C:/raster|*\n"
           u8"\n"
           u8"[titles]\n"
           u8"1 = 7 | 図面名称\n"
           u8"201=30001|A | B\n"
           u8"[messages]\n"
           u8"5 = 五番 = 5\n"
           u8"[errors]\n"
           u8"5 = 誤り\n"
           u8"[registers]\n"
           u8"A1 = scalar | 0.1\n"
           u8"A2 = text | 配管 | x\n"
           u8"A3 =\n"
           u8"[texts]\n"
           u8"pipe.tlb = 配管ｱ①\n"
           u8"pipe.tlb = second\n"
           u8"[parameters]\n"
           u8"FileTitleDisplay = 1\n"
           u8"SXF_USE_LAST_HOLDER\n"));
  EXPECT_TRUE(session_.GetUnreadableLines().empty());
  const CwFileType* model = session_.GetActiveFileTypeSet()->GetFileType("#MODEL#");
  ASSERT_NE(model, nullptr);
  EXPECT_EQ(model->GetFolder(), Euc("C:/図面/model"));
  EXPECT_EQ(model->GetPatterns(), "*.MDL");
  EXPECT_EQ(model->GetFlag(), 2);
  EXPECT_TRUE(model->IsUpperCase());
  EXPECT_EQ(model->GetDescription(), Euc("モデルファイル"));
  const CwFileType* raster = session_.GetActiveFileTypeSet()->GetFileType("#RASTER#");
  ASSERT_NE(raster, nullptr);
  EXPECT_EQ(raster->GetPatterns(), "*");
  EXPECT_EQ(raster->GetDescription(), "");
  ASSERT_NE(GetActiveModel(), nullptr);
  CwModelTitleSet* titles = GetActiveModel()->GetModelTitleSet();
  EXPECT_EQ(titles->GetTitle(1)->GetKindCode(), 7);
  EXPECT_EQ(titles->GetTitle(1)->GetName(), Euc("図面名称"));
  EXPECT_EQ(titles->GetTitle(201)->GetKindCode(), 30001);
  EXPECT_EQ(titles->GetTitle(201)->GetName(), "A | B");
  EXPECT_EQ(CwMessage::FindMessage(CwMessage::GetMessageTable(), 5), Euc("五番 = 5"));
  EXPECT_EQ(CwMessage::FindMessage(CwMessage::GetErrorTable(), 5), Euc("誤り"));
  EXPECT_EQ(session_.GetRegisterSet()->GetRegister("A1")->GetScalar(), 0.1);
  EXPECT_EQ(session_.GetRegisterSet()->GetRegister("A2")->GetText(), Euc("配管 | x"));
  EXPECT_TRUE(session_.GetRegisterSet()->GetRegister("A3")->IsEmpty());
  EXPECT_EQ(session_.GetTextLibrary()->GetTexts("pipe.tlb"), (std::vector<std::string>{Euc("配管ｱ①"), "second"}));
  EXPECT_EQ(session_.GetSessionParam()->GetFileTitleDisplay(), 1);
  EXPECT_TRUE(session_.GetStartupParam()->IsDefined("SXF_USE_LAST_HOLDER"));
}

TEST_F(SessionFile, UnreadableLinesAreKeptAndTheRestIsUsed) {
  ASSERT_TRUE(
      LoadBytes("1 = outside\n"
                "[kinds]\n"
                "no equals sign\n"
                "#A# = C:/a | * | many\n"
                "#B# = C:/b | * | 0 | sideways\n"
                "#C# = C:/\xFF\n"
                "= C:/d | *\n"
                "[nothing]\n"
                "1 = x\n"
                "[titles]\n"
                "208 = 1 | x\n"
                "1 = 65536 | x\n"
                "1 = 5\n"
                "1x = 5 | x\n"
                "0 = 5 | x\n"
                "[messages]\n"
                "0 = x\n"
                "1\n"
                "x = x\n"
                "[registers]\n"
                "A1\n"
                "= scalar | 1\n"
                "A1 = scalar | many\n"
                "A1 = number | 1\n"
                "A1 = 1\n"
                "[texts]\n"
                "= x\n"
                "x\n"
                "[parameters]\n"
                "FileTitleDisplay = yes\n"
                "= x\n"
                "GOOD\n"));
  EXPECT_EQ(UnreadableLines(), (std::vector<int>{1,  3,  4,  5,  6,  7,  8,  9,  11, 12, 13, 14, 15,
                                                 17, 18, 19, 21, 22, 23, 24, 25, 27, 28, 30, 31}));
  EXPECT_EQ(session_.GetUnreadableLines()[1].file, path_);
  EXPECT_EQ(session_.GetUnreadableLines()[1].text, "no equals sign");
  EXPECT_TRUE(session_.GetStartupParam()->IsDefined("GOOD"));
  EXPECT_EQ(session_.GetActiveFileTypeSet()->GetFileType("#A#"), nullptr);
  EXPECT_EQ(session_.GetRegisterSet()->GetRegister("A1"), nullptr);
  EXPECT_EQ(GetActiveModel(), nullptr);
  CwSession::Reset();
  EXPECT_TRUE(session_.GetUnreadableLines().empty());
}

TEST_F(SessionFile, AKindIsWrittenInItsLetterCase) {
  ASSERT_TRUE(Load(u8"[kinds]\n#A# = a | * | 0 | lower\n#B# = b | * | | asis\n"));
  const CwFileType* lower = session_.GetActiveFileTypeSet()->GetFileType("#A#");
  const CwFileType* plain = session_.GetActiveFileTypeSet()->GetFileType("#B#");
  ASSERT_TRUE(lower != nullptr && plain != nullptr);
  EXPECT_TRUE(lower->IsLowerCase());
  EXPECT_FALSE(plain->IsLowerCase() || plain->IsUpperCase());
}

TEST_F(SessionFile, LineEndsAndByteOrderMarksDoNotCount) {
  ASSERT_TRUE(LoadBytes("\xEF\xBB\xBF[parameters]\r\n  A \r\n\tB\r\nC"));
  EXPECT_TRUE(session_.GetUnreadableLines().empty());
  for (const char* name : {"A", "B", "C"}) EXPECT_TRUE(session_.GetStartupParam()->IsDefined(name)) << name;
}

TEST_F(SessionFile, ASecondFileAddsAndReplaces) {
  ASSERT_TRUE(Load(u8"[messages]\n1 = a\n2 = b\n"));
  ASSERT_TRUE(Load(u8"[messages]\n2 = c\n3 = d\n"));
  const CwMessageTable* table = CwMessage::GetMessageTable();
  EXPECT_STREQ(CwMessage::FindMessage(table, 1), "a");
  EXPECT_STREQ(CwMessage::FindMessage(table, 2), "c");
  EXPECT_STREQ(CwMessage::FindMessage(table, 3), "d");
}

TEST_F(SessionFile, AMissingFileChangesNothing) {
  EXPECT_FALSE(CwSession::LoadFile("C:\\missing"));
  world_.files.AddFile(path_, "[parameters]\nA\n");
  world_.calls.FailNext("files.Read");
  EXPECT_FALSE(CwSession::LoadFile(path_));
  EXPECT_FALSE(session_.GetStartupParam()->IsDefined("A"));
}

TEST_F(SessionFile, BadUtf8IsUnreadable) {
  for (const char* bad :
       {"\x80", "\xBF", "\xC2", "\xE3\x81", "\xE3\x81x", "\xE3\xC0\x81", "\xF8\x88\x80\x80\x80", "\xFF",
        // overlong, up to the last one of each length
        "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xE0\x9F\xBF", "\xF0\x80\x80\x80", "\xF0\x8F\xBF\xBF",
        // surrogates, and behind U+10FFFF
        "\xED\xA0\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80"}) {
    CwSession::Reset();
    LoadBytes(std::string("[messages]\n1 = ") + bad + "\n2 = x\n");
    EXPECT_EQ(UnreadableLines(), std::vector<int>{2});
    EXPECT_NE(CwMessage::FindMessage(CwMessage::GetMessageTable(), 2), nullptr);
  }
}

TEST_F(SessionFile, TheFirstAndLastCharacterOfEachLengthAreRead) {
  for (const char* good : {"\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEF\xBF\xBF", "\xF0\x90\x80\x80",
                           "\xF4\x8F\xBF\xBF"}) {
    CwSession::Reset();
    LoadBytes(std::string("[messages]\n1 = ") + good + "\n");
    EXPECT_EQ(UnreadableLines(), std::vector<int>{});
    EXPECT_STREQ(CwMessage::FindMessage(CwMessage::GetMessageTable(), 1), "?");
  }
}

TEST_F(SessionFile, TheFirstAndLastUserDefinedCharacterAreRead) {
  const std::u8string_view text = u8"[messages]\n1 = \uE000\uE757\uE758\n";
  ASSERT_TRUE(Load(text));
  EXPECT_EQ(CwMessage::FindMessage(CwMessage::GetMessageTable(), 1), Euc("\xF0\x40\xF9\xFC") + "?");
}

TEST_F(SessionFile, CharactersThatEucLacksBecomeQuestionMarks) {
  // Not inside a macro, which would spell the text in the Shift_JIS of narrow literals.
  const std::u8string_view text = u8"[messages]\n1 = é한\uFFFD😀〜−―¢\n";
  ASSERT_TRUE(Load(text));
  EXPECT_EQ(CwMessage::FindMessage(CwMessage::GetMessageTable(), 1), "????" + Euc("～－―￠"));
}

TEST_F(SessionFile, EveryCharacterOfTheScreenEncodingIsRead) {
  const std::u8string_view text = u8"[messages]\n1 = 、◇０んヶΩяё╂①∪亜腕弌熙ⅰ黑≒¬ｱﾟ　\n";
  ASSERT_TRUE(Load(text));
  EXPECT_EQ(CwMessage::FindMessage(CwMessage::GetMessageTable(), 1), Euc("、◇０んヶΩяё╂①∪亜腕弌熙ⅰ黑≒￢ｱﾟ　"));
}

}  // namespace
