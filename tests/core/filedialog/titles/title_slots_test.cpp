#include "dlglib/filedialog/titles/title_slots.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "dlglib/base/encoder.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvnmdl.h"

namespace {

using namespace filedialog;

using Numbers = std::vector<std::uint16_t>;
using Texts = std::vector<std::string>;

constexpr std::uint16_t kOrdinaryKind = 1;

std::string Repeat(const std::string& text, int count) {
  std::string repeated;
  for (; count > 0; --count) repeated += text;
  return repeated;
}

class TitleSlotsTest : public testing::Test {
 protected:
  TitleSlotsTest() { CwSession::Reset(); }
  ~TitleSlotsTest() override { CwSession::Reset(); }

  /// Defines a title of the active model, which is opened; the name is Shift_JIS.
  static void Define(int number, const std::string& name, std::uint16_t kind = kOrdinaryKind) {
    CwSession::GetInstance()->OpenModel();
    GetActiveModel()->GetModelTitleSet()->SetTitle(number, kind, encoder::ToEuc(SjisText(name)).bytes());
  }

  void Set(const Numbers& numbers, const Texts& texts, int count) { SetSlots(numbers, texts, count, &slots_); }

  static Texts ChoiceTexts() {
    Texts texts;
    for (const TitleChoice& choice : TitleChoices(GetActiveModel())) texts.push_back(choice.text);
    return texts;
  }

  TitleSlots slots_;
};

// ---- slots

TEST_F(TitleSlotsTest, StartWithTwoTitles) {
  EXPECT_EQ(slots_.count, 4U);
  EXPECT_EQ(slots_.slots[0], (TitleSlot{201, ""}));
  EXPECT_EQ(slots_.slots[1], (TitleSlot{1, ""}));
  for (std::size_t i = 2; i < kMaxTitleSlots; ++i) EXPECT_EQ(slots_.slots[i], TitleSlot());
}

TEST_F(TitleSlotsTest, TakeWhatIsGivenAndKeepTheRest) {
  Set({5}, {"A"}, 1);
  EXPECT_EQ(slots_.count, 1U);
  EXPECT_EQ(slots_.slots[0], (TitleSlot{5, "A"}));
  EXPECT_EQ(slots_.slots[1], (TitleSlot{1, ""}));
}

TEST_F(TitleSlotsTest, TakeAtMostTen) {
  Set(Numbers(12, 7), Texts(12, "t"), 12);
  EXPECT_EQ(slots_.count, kMaxTitleSlots);
  EXPECT_EQ(slots_.slots[9], (TitleSlot{7, "t"}));
}

TEST_F(TitleSlotsTest, SurviveAnyCount) {
  for (const int count : {-1, -2147483647, 0}) {
    Set({5, 6}, {"A", "B"}, count);
    EXPECT_EQ(slots_.count, 0U);
  }
  Set({5, 6}, {"A"}, 2147483647);
  EXPECT_EQ(slots_.count, 2U);
  EXPECT_EQ(slots_.slots[1], (TitleSlot{6, ""}));
}

TEST_F(TitleSlotsTest, CutTextsBetweenTwoCharacters) {
  Set({1, 1, 1, 1}, {Repeat("a", 70), Repeat("表", 40), Repeat("a", 62) + "表", "ab\x95"}, 4);
  EXPECT_EQ(slots_.slots[0].text, Repeat("a", 63));
  EXPECT_EQ(slots_.slots[1].text, Repeat("表", 31));
  EXPECT_EQ(slots_.slots[2].text, Repeat("a", 62));
  EXPECT_EQ(slots_.slots[3].text, "ab");
}

// ---- taking back

TEST_F(TitleSlotsTest, NumbersArePackedAndTextsKeepTheirPlaces) {
  Set({0, 205, 3, 0}, {"", "A", "B", ""}, 4);
  const ChosenTitles taken = ChosenTitlesOf(slots_);
  EXPECT_EQ(taken.count, 2);
  EXPECT_EQ(taken.numbers, (std::array<std::uint16_t, kMaxTitleSlots>{205, 3}));
  EXPECT_EQ(taken.texts, (std::array<std::string, kMaxTitleSlots>{"", "A", "B", ""}));
}

TEST_F(TitleSlotsTest, TheTextOfAnEmptySlotIsNotTaken) {
  Set({0, 2, 0, 4}, {"x", "B", "y", "D"}, 4);
  const ChosenTitles taken = ChosenTitlesOf(slots_);
  EXPECT_EQ(taken.count, 2);
  EXPECT_EQ(taken.numbers, (std::array<std::uint16_t, kMaxTitleSlots>{2, 4}));
  EXPECT_EQ(taken.texts, (std::array<std::string, kMaxTitleSlots>{"", "B", "", "D"}));
}

TEST_F(TitleSlotsTest, WithoutATitleTheDefaultIsTaken) {
  for (const int count : {0, 4}) {
    Set({0, 0, 0, 0}, {"x", "y", "", ""}, count);
    const ChosenTitles taken = ChosenTitlesOf(slots_);
    EXPECT_EQ(taken.count, 1);
    EXPECT_EQ(taken.numbers, (std::array<std::uint16_t, kMaxTitleSlots>{201}));
    EXPECT_EQ(taken.texts, (std::array<std::string, kMaxTitleSlots>{}));
  }
}

TEST_F(TitleSlotsTest, OnlyCountedSlotsAreTaken) {
  Set({1, 2, 3, 4}, {"a", "b", "c", "d"}, 4);
  slots_.count = 2;
  EXPECT_EQ(ChosenTitlesOf(slots_).count, 2);
  EXPECT_EQ(ChosenTitlesOf(slots_).numbers[2], 0);
  slots_.count = 1000;
  EXPECT_EQ(ChosenTitlesOf(slots_).count, 4);
}

TEST_F(TitleSlotsTest, AllTenMayBeTaken) {
  Set({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, Texts(10, "t"), 10);
  const ChosenTitles taken = ChosenTitlesOf(slots_);
  EXPECT_EQ(taken.count, 10);
  EXPECT_EQ(taken.numbers[9], 10);
  EXPECT_EQ(taken.texts[9], "t");
}

TEST_F(TitleSlotsTest, OddNumbersPassUnchanged) {
  Set({208, 65535, 208, 202}, {"a", "b", "c", "d"}, 4);
  EXPECT_EQ(ChosenTitlesOf(slots_).numbers, (std::array<std::uint16_t, kMaxTitleSlots>{208, 65535, 208, 202}));
}

TEST_F(TitleSlotsTest, KnowWhetherThereIsATitle) {
  EXPECT_TRUE(HasTitle(slots_));
  Set({0, 0, 0, 0, 9}, {}, 4);
  EXPECT_FALSE(HasTitle(slots_));
  Set({0, 0, 0, 9}, {}, 4);
  EXPECT_TRUE(HasTitle(slots_));
  slots_.count = 3;
  EXPECT_FALSE(HasTitle(slots_));
}

// ---- the browser's columns

TEST_F(TitleSlotsTest, ColumnsBecomeFourSlots) {
  TitleColumns columns;
  columns.count = 2;
  columns.items = {203, 7, 9, 9};
  columns.texts = {"A", "", "C", ""};
  const TitleSlots slots = SlotsOf(columns);
  EXPECT_EQ(slots.count, 4U);
  EXPECT_EQ(slots.slots[0], (TitleSlot{203, "A"}));
  EXPECT_EQ(slots.slots[1], (TitleSlot{7, ""}));
  EXPECT_EQ(slots.slots[2], (TitleSlot{0, "C"}));
  EXPECT_EQ(slots.slots[3], (TitleSlot{0, ""}));
}

TEST_F(TitleSlotsTest, ColumnsSurviveAnyCountAndItem) {
  TitleColumns columns;
  columns.items = {-1, 208, 0, 1};
  for (const int count : {-5, 0, 4, 99}) {
    columns.count = count;
    EXPECT_EQ(SlotsOf(columns).slots[0].number, count > 0 ? 65535 : 0);
    EXPECT_EQ(SlotsOf(columns).slots[3].number, count > 3 ? 1 : 0);
  }
}

TEST_F(TitleSlotsTest, SlotsBecomeColumnsWithoutWidths) {
  Set({0, 205, 3, 0}, {"", "A", "B", ""}, 4);
  const TitleColumns columns = TitleColumnsOf(slots_);
  EXPECT_EQ(columns.count, 2);
  EXPECT_EQ(columns.items, (std::array<std::int16_t, kTitleSlots>{205, 3, 0, 0}));
  EXPECT_EQ(columns.texts, (std::array<std::string, kTitleSlots>{"", "A", "B", ""}));
  EXPECT_EQ(columns.widths, (std::array<std::int32_t, kTitleColumns>{}));
}

TEST_F(TitleSlotsTest, TenSlotsBecomeFourColumns) {
  Set({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, Texts(10, "t"), 10);
  EXPECT_EQ(TitleColumnsOf(slots_).count, 4);
}

// ---- titles

TEST_F(TitleSlotsTest, NumbersTakeFivePlaces) {
  EXPECT_EQ(NumberText(0), "    0");
  EXPECT_EQ(NumberText(201), "  201");
  EXPECT_EQ(NumberText(65535), "65535");
  EXPECT_EQ(NumberText(1234567), "1234567");
}

TEST_F(TitleSlotsTest, NamesOfTitles) {
  Define(1, "図面名称");
  Define(2, "");
  Define(3, "使用不可", kUnofferedKind);
  EXPECT_EQ(TitleName(GetActiveModel(), 1), "図面名称");
  EXPECT_EQ(TitleName(GetActiveModel(), 2), "");
  EXPECT_EQ(TitleName(GetActiveModel(), 3), "使用不可");
  for (const int number : {0, -1, 4, 208, 65535}) EXPECT_EQ(TitleName(GetActiveModel(), number), "");
}

TEST_F(TitleSlotsTest, LongNamesAreCutAt256Bytes) {
  Define(1, "a" + Repeat("表", 200));
  EXPECT_EQ(TitleName(GetActiveModel(), 1), "a" + Repeat("表", 127));
}

TEST_F(TitleSlotsTest, WithoutAModelThereAreNoTitles) {
  ASSERT_EQ(GetActiveModel(), nullptr);
  EXPECT_EQ(TitleName(GetActiveModel(), 201), "");
  EXPECT_EQ(AnnotationOfChoice(GetActiveModel(), 201), "");
  EXPECT_EQ(ShownAnnotation(GetActiveModel(), {201, ""}), "");
  EXPECT_EQ(ChoiceTexts(), (Texts{"    0 : 取消"}));
}

TEST_F(TitleSlotsTest, FurtherTitlesAreOfferedFirst) {
  for (int number = 1; number <= 207; ++number) Define(number, "t" + std::to_string(number));
  const std::vector<TitleChoice> choices = TitleChoices(GetActiveModel());
  ASSERT_EQ(choices.size(), 207U);  // 1 to 207 without 202, and none
  EXPECT_EQ(choices[0].text, "    0 : 取消");
  EXPECT_EQ(choices[0].number, 0);
  const std::vector<int> further = {201, 203, 204, 205, 206, 207};
  for (std::size_t i = 0; i < further.size(); ++i) EXPECT_EQ(choices[i + 1].number, further[i]);
  for (std::size_t i = 7; i < choices.size(); ++i) EXPECT_EQ(choices[i].number, static_cast<int>(i) - 6);
  EXPECT_EQ(choices[1].text, "  201 : t201");
  EXPECT_EQ(choices[206].text, "  200 : t200");
}

TEST_F(TitleSlotsTest, MissingAndUnofferedTitlesAreLeftOut) {
  Define(5, "五");
  Define(6, "六", kUnofferedKind);
  Define(7, "七", 30000);
  Define(202, "never");
  Define(203, "further", kUnofferedKind);
  Define(207, "207");
  EXPECT_EQ(ChoiceTexts(), (Texts{"    0 : 取消", "  207 : 207", "    5 : 五", "    7 : 七"}));
}

TEST_F(TitleSlotsTest, EntriesShowMetacharactersAndStayBounded) {
  Define(1, "x");
  GetActiveModel()->GetModelTitleSet()->SetTitle(2, kOrdinaryKind, "\x8D\xC1z");
  GetActiveModel()->GetModelTitleSet()->SetTitle(3, kOrdinaryKind, std::string(2000, '\xB0'));
  GetActiveModel()->GetModelTitleSet()->SetTitle(4, kOrdinaryKind, "half\xC9");
  const Texts texts = ChoiceTexts();
  EXPECT_EQ(texts[2], "    2 : <mc>Az");
  EXPECT_LE(texts[3].size(), 512U);
  EXPECT_TRUE(texts[4].starts_with("    4 : half"));
}

TEST_F(TitleSlotsTest, AChoiceBringsItsNameAsAnnotation) {
  Define(1, "図面名称");
  Define(2, Repeat("名", 17));
  Define(3, "使用不可", kUnofferedKind);
  EXPECT_EQ(AnnotationOfChoice(GetActiveModel(), 1), "図面名称");
  EXPECT_EQ(AnnotationOfChoice(GetActiveModel(), 2), Repeat("名", 16));
  EXPECT_EQ(AnnotationOfChoice(GetActiveModel(), 3), "");
  EXPECT_EQ(AnnotationOfChoice(GetActiveModel(), 0), "");
  EXPECT_EQ(AnnotationOfChoice(GetActiveModel(), 4), "");
}

TEST_F(TitleSlotsTest, ARowShowsItsAnnotationElseTheName) {
  Define(1, Repeat("名", 40));
  EXPECT_EQ(ShownAnnotation(GetActiveModel(), {1, "own"}), "own");
  EXPECT_EQ(ShownAnnotation(GetActiveModel(), {1, ""}), Repeat("名", 40));
  EXPECT_EQ(ShownAnnotation(GetActiveModel(), {9, ""}), "");
  EXPECT_EQ(ShownAnnotation(GetActiveModel(), {65535, "own"}), "own");
}

// ---- annotations and cells

TEST_F(TitleSlotsTest, AnnotationsEndAfter32BytesAtTheLatest) {
  EXPECT_EQ(CutAnnotation(""), "");
  EXPECT_EQ(CutAnnotation(Repeat("a", 32)), Repeat("a", 32));
  EXPECT_EQ(CutAnnotation(Repeat("a", 40)), Repeat("a", 32));
  EXPECT_EQ(CutAnnotation(Repeat("表", 16)), Repeat("表", 16));
  EXPECT_EQ(CutAnnotation(Repeat("表", 17)), Repeat("表", 16));
  EXPECT_EQ(CutAnnotation("a" + Repeat("表", 16)), "a" + Repeat("表", 15));
  EXPECT_EQ(CutAnnotation(Repeat("ｱ", 33)), Repeat("ｱ", 32));
  EXPECT_EQ(CutAnnotation("ｱ" + Repeat("ソ", 20)), "ｱ" + Repeat("ソ", 15));
}

TEST_F(TitleSlotsTest, AShortAnnotationStaysByteForByte) {
  EXPECT_EQ(CutAnnotation("ab\x95"), "ab\x95");
  EXPECT_EQ(CutAnnotation(Repeat("a", 31) + "\x95"), Repeat("a", 31) + "\x95");
  EXPECT_EQ(CutAnnotation(Repeat("a", 31) + "\x95\x5C"), Repeat("a", 31));
}

TEST_F(TitleSlotsTest, ANumberIsChosenOnce) {
  const Texts cells = {"  201", "    0", "    7", ""};
  EXPECT_TRUE(IsChosen(cells, 201));
  EXPECT_TRUE(IsChosen(cells, 7));
  EXPECT_FALSE(IsChosen(cells, 20));
  EXPECT_FALSE(IsChosen(cells, 0));
  EXPECT_FALSE(IsChosen({}, 7));
}

TEST_F(TitleSlotsTest, CellsHoldNumbers) {
  EXPECT_EQ(NumberOfCell("  201"), 201);
  EXPECT_EQ(NumberOfCell("65535"), 65535);
  EXPECT_EQ(NumberOfCell(""), 0);
}

}  // namespace
