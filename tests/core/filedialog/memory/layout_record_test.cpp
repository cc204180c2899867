#include "dlglib/filedialog/memory/layout_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/os/os_scripted.h"

namespace filedialog {
namespace {

using os::RegistryType;
using os::scripted::World;

const std::string kPrimary = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #MODEL#";
const std::string kFallback = "Software\\Nalbo\\Corvane\\FileDialog\\Reg.MDL";
const std::string kOwn = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #SUBMODEL#";
const LayoutKeys kKeys{kPrimary, kFallback};

std::string Dword(std::uint32_t number) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(static_cast<unsigned char>(number >> shift));
  return bytes;
}

std::string Word(unsigned number) { return Dword(number).substr(0, 2); }

class LayoutRecordTest : public ::testing::Test {
 protected:
  void SetUp() override { World().Reset(); }
  void TearDown() override { EXPECT_EQ(World().registry.openHandles, 0); }

  static void Put(const std::string& name, RegistryType type, const std::string& bytes,
                  const std::string& key = kPrimary) {
    World().registry.SetValue(key, name, type, bytes);
  }
  static void PutDword(const std::string& name, std::uint32_t number, const std::string& key = kPrimary) {
    Put(name, RegistryType::Dword, Dword(number), key);
  }
  static void PutTitle(int number, unsigned item) {
    Put("Title" + std::to_string(number), RegistryType::Binary, Word(item));
  }
  static void PutText(const std::string& name, const std::string& text) { Put(name, RegistryType::String, text); }

  static LayoutRecord Loaded() {
    LayoutRecord record;
    World().registry.AddKey(kPrimary);
    EXPECT_EQ(LoadLayout(*os::Services().registry, kKeys, &record), LayoutSource::Primary);
    return record;
  }

  static std::optional<std::string> Save(const LayoutTarget& target, LayoutPart part, const LayoutRecord& record) {
    return SaveLayout(*os::Services().registry, *os::Services().session, target, part, record);
  }

  static void ExpectValue(const std::string& name, RegistryType type, const std::string& bytes,
                          const std::string& key = kPrimary) {
    const auto value = World().registry.Value(key, name);
    ASSERT_TRUE(value) << key << " " << name;
    EXPECT_EQ(value->type, type) << name;
    EXPECT_EQ(value->bytes, bytes) << name;
  }
  static void ExpectDword(const std::string& name, std::uint32_t number, const std::string& key = kPrimary) {
    ExpectValue(name, RegistryType::Dword, Dword(number), key);
  }
  static std::vector<std::string> NamesOf(const std::string& key) {
    std::vector<std::string> names;
    for (const auto& [folded, value] : World().registry.AddKey(key).values) names.push_back(value.name);
    std::sort(names.begin(), names.end());
    return names;
  }
  static std::vector<std::string> CallsOf(const std::string& call) {
    std::vector<std::string> arguments;
    for (const std::string& line : World().calls.Log()) {
      if (line.starts_with(call + " ")) arguments.push_back(line.substr(call.size() + 1));
    }
    return arguments;
  }
};

/// In the order of their numbers in the registry.
constexpr ViewMode kViews[] = {ViewMode::LargeIcons, ViewMode::SmallIcons, ViewMode::Details, ViewMode::List,
                               ViewMode::Titles};

LayoutRecord FullRecord() {
  LayoutRecord record;
  record.view = ViewMode::Titles;
  record.left = -5;
  record.top = 20;
  record.width = 640;
  record.height = 480;
  record.slowSort.mode = SlowSort::NeverBeyondLimit;
  record.slowSort.limit = 50;
  record.titles.count = 2;
  record.titles.items = {201, 7, 99, 0};
  record.titles.texts = {"図番", "", "", "ソ"};
  record.titles.widths = {100, 200, 300, 0, 0};
  record.plainTitleWidths = {11, 12};
  record.detailWidths = {21, 22, 23};
  record.recentCount = 3;
  record.recentFiles = {"C:\\a.mdl", "", "C:\\表.mdl", "C:\\d.mdl"};
  return record;
}

void ExpectDefaults(const LayoutRecord& record) {
  EXPECT_EQ(record.view, ViewMode::Details);
  EXPECT_EQ(record.left, 0);
  EXPECT_EQ(record.top, 0);
  EXPECT_EQ(record.width, 0);
  EXPECT_EQ(record.height, 0);
  EXPECT_EQ(record.slowSort.mode, SlowSort::AskBeyondLimit);
  EXPECT_EQ(record.slowSort.limit, 1000);
  EXPECT_EQ(record.titles.count, 1);
  EXPECT_EQ(record.titles.items, (std::array<std::int16_t, 4>{201, 0, 0, 0}));
  EXPECT_EQ(record.titles.texts, (std::array<std::string, 4>{}));
  EXPECT_EQ(record.titles.widths, (std::array<std::int32_t, 5>{}));
  EXPECT_EQ(record.plainTitleWidths, (std::array<std::int32_t, 2>{}));
  EXPECT_EQ(record.detailWidths, (std::array<std::int32_t, 3>{}));
  EXPECT_EQ(record.recentCount, 10);
  EXPECT_TRUE(record.recentFiles.empty());
}

// ---- keys

TEST_F(LayoutRecordTest, KeysOfAKind) {
  EXPECT_EQ(KindLayoutKeys("#MODEL#", ".MDL").primary, kPrimary);
  EXPECT_EQ(KindLayoutKeys("#MODEL#", ".MDL").fallback, kFallback);
  EXPECT_EQ(KindLayoutKeys("#PARTS:BIN#", "").primary, "Software\\Nalbo\\Corvane\\FileDialog\\Reg #PARTS:BIN#");
  EXPECT_EQ(KindLayoutKeys("#PARTS:BIN#", "").fallback, "Software\\Nalbo\\Corvane\\FileDialog\\Reg");
}

TEST_F(LayoutRecordTest, KeysOfTheTitleColumns) {
  EXPECT_EQ(TitleLayoutKeys(".mdx").primary, kPrimary);
  EXPECT_EQ(TitleLayoutKeys(".mdx").fallback, "Software\\Nalbo\\Corvane\\FileDialog\\Reg.mdx");
  EXPECT_EQ(TitleLayoutKeys(std::nullopt).fallback, kFallback);
  EXPECT_EQ(TitleLayoutKeys("").fallback, "Software\\Nalbo\\Corvane\\FileDialog\\Reg");
}

// ---- reading

TEST_F(LayoutRecordTest, NoKeyGivesTheDefaults) {
  LayoutRecord record = FullRecord();
  EXPECT_EQ(LoadLayout(*os::Services().registry, kKeys, &record), LayoutSource::None);
  ExpectDefaults(record);
  EXPECT_EQ(World().registry.FindKey(kPrimary), nullptr);
  EXPECT_EQ(World().registry.FindKey(kFallback), nullptr);
}

TEST_F(LayoutRecordTest, AnEmptyKeyGivesTheDefaults) { ExpectDefaults(Loaded()); }

TEST_F(LayoutRecordTest, TheAnswersKeepTheirNumbers) {
  EXPECT_EQ(static_cast<int>(LayoutSource::Primary), 1);
  EXPECT_EQ(static_cast<int>(LayoutSource::Fallback), 0);
  EXPECT_NE(static_cast<int>(LayoutSource::None), 0);
  EXPECT_NE(static_cast<int>(LayoutSource::None), 1);
}

TEST_F(LayoutRecordTest, ThePrimaryKeyHidesTheFallback) {
  PutDword("Form", 3);
  PutDword("Form", 1, kFallback);
  PutDword("Count", 7, kFallback);
  EXPECT_EQ(Loaded().view, ViewMode::List);
  EXPECT_EQ(Loaded().slowSort.limit, 1000);
}

TEST_F(LayoutRecordTest, TheFallbackIsReadWhenThePrimaryKeyCannotBeOpened) {
  PutDword("Form", 1, kFallback);
  World().registry.MakeUnopenable(kPrimary);
  LayoutRecord record;
  EXPECT_EQ(LoadLayout(*os::Services().registry, kKeys, &record), LayoutSource::Fallback);
  EXPECT_EQ(record.view, ViewMode::SmallIcons);
}

TEST_F(LayoutRecordTest, ReadsThePlaceAndTheRuleForSlowSorts) {
  PutDword("PosX", 0xFFFFFFF6);
  PutDword("PosY", 20);
  PutDword("SizeX", 800);
  PutDword("SizeY", 600);
  PutDword("Confirm", 77);
  PutDword("Count", 0);
  const LayoutRecord record = Loaded();
  EXPECT_EQ(record.left, -10);
  EXPECT_EQ(record.top, 20);
  EXPECT_EQ(record.width, 800);
  EXPECT_EQ(record.height, 600);
  EXPECT_EQ(record.slowSort.mode, static_cast<SlowSort>(77));
  EXPECT_EQ(record.slowSort.limit, 0);
}

TEST_F(LayoutRecordTest, ViewModesFromZeroToFour) {
  std::uint32_t number = 0;
  for (const ViewMode view : kViews) {
    PutDword("Form", number++);
    EXPECT_EQ(Loaded().view, view) << number;
  }
  for (const std::uint32_t mode : {5U, 0x80000000U, 0xFFFFFFFFU}) {
    PutDword("Form", mode);
    EXPECT_EQ(Loaded().view, ViewMode::Details) << mode;
  }
}

TEST_F(LayoutRecordTest, EachViewIsWrittenAsItsNumber) {
  std::uint32_t number = 0;
  for (const ViewMode view : kViews) {
    LayoutRecord record;
    record.view = view;
    ASSERT_FALSE(Save({kPrimary, kPrimary, TitleView::Plain}, LayoutPart::Window, record));
    ExpectDword("Form", number++);
  }
}

TEST_F(LayoutRecordTest, ANumberOfTheRuleForSlowSortsThatIsUnknownStays) {
  PutDword("Confirm", 77);
  ASSERT_FALSE(Save({kPrimary, kPrimary, TitleView::Plain}, LayoutPart::Window, Loaded()));
  ExpectDword("Confirm", 77);
}

TEST_F(LayoutRecordTest, RecentCountFromOneToTwenty) {
  for (const std::uint32_t count : {1U, 20U}) {
    PutDword("FileCount", count);
    EXPECT_EQ(Loaded().recentCount, static_cast<int>(count));
  }
  for (const std::uint32_t count : {0U, 21U, 0xFFFFFFFFU}) {
    PutDword("FileCount", count);
    EXPECT_EQ(Loaded().recentCount, 10) << count;
  }
}

TEST_F(LayoutRecordTest, NumbersOfAnotherTypeOrSizeAreIgnored) {
  const std::vector<std::string> names = {"Form", "PosX", "PosY", "SizeX", "SizeY", "Confirm", "Count", "FileCount"};
  for (const std::string& name : names) {
    Put(name, RegistryType::Binary, Dword(1));
    ExpectDefaults(Loaded());
    Put(name, RegistryType::String, Dword(1));
    ExpectDefaults(Loaded());
    Put(name, RegistryType::Dword, "\1");
    ExpectDefaults(Loaded());
    Put(name, RegistryType::Dword, Dword(1) + Dword(0));
    ExpectDefaults(Loaded());
    Put(name, RegistryType::Dword, "");
    ExpectDefaults(Loaded());
  }
}

TEST_F(LayoutRecordTest, ValidTitleItemsArePacked) {
  PutTitle(1, 0);
  PutTitle(2, 1);
  PutTitle(3, 208);
  PutTitle(4, 207);
  const TitleColumns titles = Loaded().titles;
  EXPECT_EQ(titles.count, 2);
  EXPECT_EQ(titles.items, (std::array<std::int16_t, 4>{1, 207, 0, 0}));
}

TEST_F(LayoutRecordTest, FourTitleItems) {
  for (int i = 1; i <= 4; ++i) PutTitle(i, 200U + static_cast<unsigned>(i));
  EXPECT_EQ(Loaded().titles.count, 4);
  EXPECT_EQ(Loaded().titles.items, (std::array<std::int16_t, 4>{201, 202, 203, 204}));
}

TEST_F(LayoutRecordTest, WithoutAValidTitleItemThereIsOne) {
  for (int i = 1; i <= 4; ++i) PutTitle(i, i % 2 == 0 ? 0U : 0xFFFFU);
  EXPECT_EQ(Loaded().titles.count, 1);
  EXPECT_EQ(Loaded().titles.items, (std::array<std::int16_t, 4>{201, 0, 0, 0}));
}

TEST_F(LayoutRecordTest, TitleItemsOfAnotherTypeOrSizeAreIgnored) {
  PutDword("Title1", 5);
  Put("Title2", RegistryType::Binary, "\5");
  Put("Title3", RegistryType::Binary, std::string("\5\0\0", 3));
  Put("Title4", RegistryType::String, std::string("\5\0", 2));
  EXPECT_EQ(Loaded().titles.items[0], 201);
  EXPECT_EQ(Loaded().titles.count, 1);
}

TEST_F(LayoutRecordTest, TitleWidthsCountOnlyTogether) {
  for (int i = 1; i <= 4; ++i) PutTitle(i, 1);
  for (std::uint32_t i = 0; i <= 3; ++i) PutDword("Width" + std::to_string(i), 100 + i);
  EXPECT_EQ(Loaded().titles.widths, (std::array<std::int32_t, 5>{}));
  PutDword("Width4", 104);
  EXPECT_EQ(Loaded().titles.widths, (std::array<std::int32_t, 5>{100, 101, 102, 103, 104}));
  PutDword("Width2", 0);
  EXPECT_EQ(Loaded().titles.widths, (std::array<std::int32_t, 5>{}));
  PutDword("Width2", 0x80000000U);
  EXPECT_EQ(Loaded().titles.widths, (std::array<std::int32_t, 5>{}));
}

TEST_F(LayoutRecordTest, OnlyTheWidthsOfShownColumnsAreRead) {
  PutDword("Width0", 50);
  PutDword("Width1", 60);
  PutDword("Width2", 70);
  EXPECT_EQ(Loaded().titles.widths, (std::array<std::int32_t, 5>{50, 60, 0, 0, 0}));
  PutTitle(2, 3);
  PutTitle(3, 4);
  EXPECT_EQ(Loaded().titles.widths, (std::array<std::int32_t, 5>{50, 60, 70, 0, 0}));
}

TEST_F(LayoutRecordTest, OtherWidthsCountEachForItself) {
  PutDword("TWidth0", 0);
  PutDword("TWidth1", 12);
  PutDword("RWidth0", 21);
  PutDword("RWidth1", 0xFFFFFFFFU);
  PutDword("RWidth2", 23);
  EXPECT_EQ(Loaded().plainTitleWidths, (std::array<std::int32_t, 2>{0, 12}));
  EXPECT_EQ(Loaded().detailWidths, (std::array<std::int32_t, 3>{21, 0, 23}));
}

TEST_F(LayoutRecordTest, TextsKeepTheirSlots) {
  PutText("Text2", std::string("図番\0残り", 9));
  PutText("Text4", "材質");  // without a terminator
  const auto texts = Loaded().titles.texts;
  EXPECT_EQ(texts, (std::array<std::string, 4>{"", "図番", "", "材質"}));
}

TEST_F(LayoutRecordTest, TextsAreCutAtACharacter) {
  PutText("Text1", std::string(128, 'a'));
  PutText("Text2", std::string(129, 'a'));
  PutText("Text3", "a" + std::string(62, 'b') + "表");
  PutText("Text4", std::string(62, 'c') + "表");
  const auto texts = Loaded().titles.texts;
  EXPECT_EQ(texts[0], std::string(63, 'a'));
  EXPECT_EQ(texts[1], "");
  EXPECT_EQ(texts[2], "a" + std::string(62, 'b'));
  EXPECT_EQ(texts[3], std::string(62, 'c'));
  PutText("Text1", "表\x95");
  EXPECT_EQ(Loaded().titles.texts[0], "表");
  Put("Text1", RegistryType::Binary, "abc");
  EXPECT_EQ(Loaded().titles.texts[0], "");
}

TEST_F(LayoutRecordTest, RecentFilesCloseTheirGaps) {
  PutText("File01", "");
  PutText("File02", "C:\\b.mdl");
  PutText("File09", std::string("C:\\c.mdl\0", 9));
  Put("File10", RegistryType::Binary, "C:\\d.mdl");
  PutText("File11", "\x95");
  PutText("File20", "C:\\表.mdl\x95");
  PutText("File21", "C:\\never.mdl");
  PutText("File1", "C:\\never.mdl");
  EXPECT_EQ(Loaded().recentFiles, (std::vector<std::string>{"C:\\b.mdl", "C:\\c.mdl", "C:\\表.mdl"}));
}

TEST_F(LayoutRecordTest, ALongRecentFileIsPassedOver) {
  PutText("File01", std::string(256, 'a') + '\0');
  PutText("File02", std::string(257, 'b'));
  PutText("File03", std::string(258, 'c'));
  EXPECT_EQ(Loaded().recentFiles, std::vector<std::string>{std::string(256, 'a')});
}

TEST_F(LayoutRecordTest, AllTwentyRecentFilesAreReadWhateverTheCount) {
  PutDword("FileCount", 1);
  for (int i = 1; i <= 20; ++i) PutText(std::string(i < 10 ? "File0" : "File") + std::to_string(i), "x");
  EXPECT_EQ(Loaded().recentFiles.size(), 20U);
}

TEST_F(LayoutRecordTest, AModelKindTakesItsTitleColumnsFromTheCommonKey) {
  PutTitle(1, 5);
  PutText("Text1", "common");
  PutDword("Form", 0);
  PutDword("Form", 3, kOwn);
  Put("Title1", RegistryType::Binary, Word(9), kOwn);
  LayoutRecord record;
  const LayoutKeys own = KindLayoutKeys("#SUBMODEL#", ".SUB");
  EXPECT_EQ(LoadModelLayout(*os::Services().registry, own, kKeys, &record), LayoutSource::Primary);
  EXPECT_EQ(record.view, ViewMode::List);
  EXPECT_EQ(record.titles.items[0], 5);
  EXPECT_EQ(record.titles.texts[0], "common");
  World().registry.RemoveKey(kPrimary);
  EXPECT_EQ(LoadModelLayout(*os::Services().registry, own, kKeys, &record), LayoutSource::Primary);
  EXPECT_EQ(record.titles.items[0], 201);
}

TEST_F(LayoutRecordTest, AModelKindReadsEachValueOfItsTwoKeysOnce) {
  PutTitle(1, 5);
  PutDword("Form", 3, kOwn);
  World().calls.ClearLog();
  LayoutRecord record;
  LoadModelLayout(*os::Services().registry, KindLayoutKeys("#SUBMODEL#", ".SUB"), kKeys, &record);
  std::vector<std::string> calls = World().calls.Log();
  std::sort(calls.begin(), calls.end());
  EXPECT_EQ(std::adjacent_find(calls.begin(), calls.end()), calls.end());
  EXPECT_EQ(World().calls.Count("registry.Open"), 2U);
}

TEST_F(LayoutRecordTest, TheModelKindsKeyGivesItsTitlesToo) {
  PutTitle(1, 5);
  PutDword("Form", 3);
  LayoutRecord record;
  EXPECT_EQ(LoadModelLayout(*os::Services().registry, kKeys, kKeys, &record), LayoutSource::Primary);
  EXPECT_EQ(record.view, ViewMode::List);
  EXPECT_EQ(record.titles.items[0], 5);
}

TEST_F(LayoutRecordTest, TitlesOfAModelKindMayComeFromAnotherOlderKeyThanTheRest) {
  const LayoutKeys own = KindLayoutKeys("#MODEL#", ".BAK");
  PutDword("Form", 3, own.fallback);
  Put("Title1", RegistryType::Binary, Word(9), own.fallback);
  Put("Title1", RegistryType::Binary, Word(5), kKeys.fallback);
  LayoutRecord record;
  EXPECT_EQ(LoadModelLayout(*os::Services().registry, own, kKeys, &record), LayoutSource::Fallback);
  EXPECT_EQ(record.view, ViewMode::List);
  EXPECT_EQ(record.titles.items[0], 5);
}

TEST_F(LayoutRecordTest, AValueThatCouldNotBeReadInEitherKeyKeepsTheWholeFromBeingReplaced) {
  PutTitle(1, 5);
  for (const bool hasOwn : {false, true}) {  // the first one asked for is a title, or one of its own key
    if (hasOwn) PutDword("Form", 3, kOwn);
    World().calls.FailNext("registry.Query", 5);
    LayoutRecord record;
    LoadModelLayout(*os::Services().registry, KindLayoutKeys("#SUBMODEL#", ".SUB"), kKeys, &record);
    EXPECT_FALSE(record.whole);
  }
}

TEST_F(LayoutRecordTest, EveryReadThatFailsLeavesItsDefault) {
  const LayoutRecord full = FullRecord();
  const LayoutTarget target{kPrimary, kPrimary, TitleView::Models};
  ASSERT_FALSE(Save(target, LayoutPart::Window, full));
  ASSERT_FALSE(Save(target, LayoutPart::RecentFiles, full));
  std::size_t steps = 0;
  do {
    World().calls.FailNumber(++steps);
    LayoutRecord record;
    LoadLayout(*os::Services().registry, kKeys, &record);
    EXPECT_TRUE(record.view == ViewMode::Titles || record.view == ViewMode::Details);
    EXPECT_GE(record.titles.count, 1);
    EXPECT_EQ(World().registry.openHandles, 0);
  } while (!World().calls.FaultPending());
  EXPECT_GT(steps, 40U);
}

// ---- writing

TEST_F(LayoutRecordTest, WritesTheWindowOfAModelKind) {
  EXPECT_FALSE(Save({kPrimary, kPrimary, TitleView::Models}, LayoutPart::Window, FullRecord()));
  ExpectDword("PosX", 0xFFFFFFFB);
  ExpectDword("PosY", 20);
  ExpectDword("SizeX", 640);
  ExpectDword("SizeY", 480);
  ExpectDword("Form", 4);
  ExpectDword("Confirm", 1);
  ExpectDword("Count", 50);
  ExpectDword("Width0", 100);
  ExpectDword("Width2", 300);
  ExpectDword("Width4", 0);
  ExpectValue("Title1", RegistryType::Binary, Word(201));
  ExpectValue("Title2", RegistryType::Binary, Word(7));
  ExpectValue("Title3", RegistryType::Binary, Word(0));  // beyond the count
  ExpectValue("Title4", RegistryType::Binary, Word(0));
  ExpectValue("Text1", RegistryType::String, "図番");
  ExpectValue("Text2", RegistryType::String, "");
  ExpectValue("Text4", RegistryType::String, "ソ");
  ExpectDword("RWidth0", 21);
  ExpectDword("RWidth2", 23);
  EXPECT_FALSE(World().registry.Value(kPrimary, "TWidth0"));
  EXPECT_FALSE(World().registry.Value(kPrimary, "FileCount"));
}

TEST_F(LayoutRecordTest, WritesInOrderThroughOneKey) {
  EXPECT_FALSE(Save({kPrimary, kPrimary, TitleView::Models}, LayoutPart::Window, FullRecord()));
  EXPECT_EQ(CallsOf("registry.Create"), std::vector<std::string>{kPrimary});
  EXPECT_EQ(CallsOf("registry.Set"),
            (std::vector<std::string>{"PosX",   "PosY",   "SizeX",  "SizeY",  "Form",    "Confirm", "Count",  "Width0",
                                      "Width1", "Width2", "Width3", "Width4", "Title1",  "Title2",  "Title3", "Title4",
                                      "Text1",  "Text2",  "Text3",  "Text4",  "RWidth0", "RWidth1", "RWidth2"}));
}

TEST_F(LayoutRecordTest, WritesTheWindowOfAnyOtherKind) {
  EXPECT_FALSE(Save({kPrimary, kPrimary, TitleView::Plain}, LayoutPart::Window, FullRecord()));
  ExpectDword("TWidth0", 11);
  ExpectDword("TWidth1", 12);
  EXPECT_EQ(NamesOf(kPrimary),
            (std::vector<std::string>{"Confirm", "Count", "Form", "PosX", "PosY", "RWidth0", "RWidth1", "RWidth2",
                                      "SizeX", "SizeY", "TWidth0", "TWidth1"}));
}

TEST_F(LayoutRecordTest, ASecondModelKindWritesItsTitleColumnsUnderTheCommonKey) {
  EXPECT_FALSE(Save({kOwn, kPrimary, TitleView::Models}, LayoutPart::Window, FullRecord()));
  EXPECT_EQ(NamesOf(kOwn), (std::vector<std::string>{"Confirm", "Count", "Form", "PosX", "PosY", "RWidth0", "RWidth1",
                                                     "RWidth2", "SizeX", "SizeY"}));
  EXPECT_EQ(NamesOf(kPrimary),
            (std::vector<std::string>{"Text1", "Text2", "Text3", "Text4", "Title1", "Title2", "Title3", "Title4",
                                      "Width0", "Width1", "Width2", "Width3", "Width4"}));
}

TEST_F(LayoutRecordTest, WritesTheRecentFiles) {
  for (int i = 1; i <= 20; ++i) PutText(std::string(i < 10 ? "File0" : "File") + std::to_string(i), "old");
  PutText("File21", "mine");
  EXPECT_FALSE(Save({kPrimary, kPrimary, TitleView::Models}, LayoutPart::RecentFiles, FullRecord()));
  ExpectDword("FileCount", 3);
  ExpectValue("File01", RegistryType::String, "C:\\a.mdl");
  ExpectValue("File03", RegistryType::String, "C:\\表.mdl");  // number 2 is used up by the empty entry
  EXPECT_EQ(NamesOf(kPrimary), (std::vector<std::string>{"File01", "File03", "File21", "FileCount"}));
  EXPECT_EQ(CallsOf("registry.Set"), (std::vector<std::string>{"FileCount", "File01", "File03"}));
  EXPECT_EQ(CallsOf("registry.Delete").size(), 20U);
  EXPECT_EQ(CallsOf("registry.Delete").front(), "File01");
  EXPECT_EQ(CallsOf("registry.Delete").back(), "File20");
}

TEST_F(LayoutRecordTest, NoMoreThanTwentyRecentFilesAreWritten) {
  LayoutRecord record;
  record.recentFiles.assign(30, "x");
  for (const int count : {20, 21, 1000}) {
    record.recentCount = count;
    EXPECT_FALSE(Save({kPrimary, {}, TitleView::Plain}, LayoutPart::RecentFiles, record));
    EXPECT_TRUE(World().registry.Value(kPrimary, "File20"));
    EXPECT_FALSE(World().registry.Value(kPrimary, "File21"));
  }
  record.recentCount = 0;
  EXPECT_FALSE(Save({kPrimary, {}, TitleView::Plain}, LayoutPart::RecentFiles, record));
  ExpectDword("FileCount", 0);
  EXPECT_EQ(NamesOf(kPrimary), std::vector<std::string>{"FileCount"});
}

TEST_F(LayoutRecordTest, AKeyThatCannotBeCreatedGivesTheSystemsText) {
  World().session.errorTexts[5] = "アクセスが拒否されました。";
  for (const LayoutPart part : {LayoutPart::Window, LayoutPart::RecentFiles}) {
    World().registry.MakeUnopenable(kPrimary);
    EXPECT_EQ(Save({kPrimary, kPrimary, TitleView::Models}, part, FullRecord()), "アクセスが拒否されました。");
    EXPECT_TRUE(NamesOf(kPrimary).empty());
  }
  EXPECT_EQ(World().calls.Count("registry.Set"), 0U);
  EXPECT_EQ(World().calls.Count("registry.Delete"), 0U);
}

TEST_F(LayoutRecordTest, ACommonKeyThatCannotBeCreatedLosesOnlyTheTitleColumns) {
  World().registry.MakeUnopenable(kPrimary);
  EXPECT_EQ(Save({kOwn, kPrimary, TitleView::Models}, LayoutPart::Window, FullRecord()), "");
  ExpectDword("Form", 4, kOwn);
  ExpectDword("RWidth2", 23, kOwn);
}

TEST_F(LayoutRecordTest, AWriteThatFailsLeavesTheKeyAsItWas) {
  const LayoutTarget target{kPrimary, kPrimary, TitleView::Models};
  LayoutRecord old;
  old.recentFiles = {"C:\\old.mdl", "C:\\older.mdl"};
  for (const LayoutPart part : {LayoutPart::Window, LayoutPart::RecentFiles}) {
    World().registry.RemoveKey(kPrimary);
    ASSERT_FALSE(Save(target, part, old));
    const std::map<std::string, os::scripted::Key::Value> before = World().registry.FindKey(kPrimary)->values;
    World().calls.FailNext("registry.Set", 5);
    EXPECT_FALSE(Save(target, part, FullRecord()));
    EXPECT_EQ(NamesOf(kPrimary).size(), before.size());
    for (const auto& [folded, value] : before) {
      ASSERT_TRUE(World().registry.Value(kPrimary, value.name)) << value.name;
      EXPECT_EQ(World().registry.Value(kPrimary, value.name)->bytes, value.value.bytes) << value.name;
    }
    EXPECT_FALSE(Save(target, part, FullRecord()));
    EXPECT_NE(NamesOf(kPrimary).size(), 0U);
  }
}

TEST_F(LayoutRecordTest, WhatCouldNotBeReadIsNotReplaced) {
  const LayoutTarget target{kPrimary, kPrimary, TitleView::Models};
  ASSERT_FALSE(Save(target, LayoutPart::RecentFiles, FullRecord()));
  for (const char* call : {"registry.Open", "registry.Query"}) {
    LayoutRecord record;
    World().calls.FailNext(call, 5);
    LoadLayout(*os::Services().registry, kKeys, &record);
    EXPECT_FALSE(record.whole);
    World().calls.ClearLog();
    record.recentFiles = {"C:\\new.mdl"};
    EXPECT_FALSE(Save(target, LayoutPart::RecentFiles, record));
    EXPECT_FALSE(Save(target, LayoutPart::Window, record));
    EXPECT_EQ(World().calls.Total(), 0U);
    EXPECT_TRUE(Loaded().whole);
    EXPECT_EQ(Loaded().recentFiles, (std::vector<std::string>{"C:\\a.mdl", "C:\\表.mdl"}));
  }
}

TEST_F(LayoutRecordTest, WhatIsWrittenIsReadBack) {
  const LayoutTarget target{kPrimary, kPrimary, TitleView::Models};
  const LayoutRecord full = FullRecord();
  ASSERT_FALSE(Save(target, LayoutPart::Window, full));
  ASSERT_FALSE(Save(target, LayoutPart::RecentFiles, full));
  const LayoutRecord record = Loaded();
  EXPECT_EQ(record.left, full.left);
  EXPECT_EQ(record.view, ViewMode::Titles);
  EXPECT_EQ(record.titles.count, 2);
  EXPECT_EQ(record.titles.items, (std::array<std::int16_t, 4>{201, 7, 0, 0}));
  EXPECT_EQ(record.titles.texts, full.titles.texts);
  EXPECT_EQ(record.titles.widths, full.titles.widths);
  EXPECT_EQ(record.detailWidths, full.detailWidths);
  EXPECT_EQ(record.recentFiles, (std::vector<std::string>{"C:\\a.mdl", "C:\\表.mdl"}));
}

// ---- widths

TEST_F(LayoutRecordTest, TheDetailsViewGivesThreeWidths) {
  const std::vector<std::int32_t> shown = {1, 2, 3};
  LayoutRecord record;
  ShownColumns columns{.view = ViewMode::Details, .widths = shown};
  RecordColumnWidths(columns, &record);
  EXPECT_EQ(record.detailWidths, (std::array<std::int32_t, 3>{1, 2, 3}));
  EXPECT_EQ(record.titles.widths, (std::array<std::int32_t, 5>{}));
  record = {};
  columns.listingRunning = true;
  RecordColumnWidths(columns, &record);
  EXPECT_EQ(record.detailWidths, (std::array<std::int32_t, 3>{}));
}

TEST_F(LayoutRecordTest, TheTitleViewGivesTheWidthsOfItsColumns) {
  const std::vector<std::int32_t> shown = {1, 2, 3};
  LayoutRecord record = FullRecord();
  record.titles.widths = {9, 9, 9, 9, 9};
  RecordColumnWidths(
      {.view = ViewMode::Titles, .listing = ListingMode::Titles, .titles = TitleView::Models, .widths = shown},
      &record);
  EXPECT_EQ(record.titles.widths, (std::array<std::int32_t, 5>{1, 2, 3, 0, 0}));
  RecordColumnWidths(
      {.view = ViewMode::Titles, .listing = ListingMode::Titles, .titles = TitleView::Plain, .widths = shown}, &record);
  EXPECT_EQ(record.plainTitleWidths, (std::array<std::int32_t, 2>{1, 2}));
  EXPECT_EQ(record.titles.widths, (std::array<std::int32_t, 5>{1, 2, 3, 0, 0}));
  EXPECT_EQ(record.detailWidths, (std::array<std::int32_t, 3>{21, 22, 23}));
}

TEST_F(LayoutRecordTest, OtherViewsAndListingsGiveNoWidths) {
  const std::vector<std::int32_t> shown = {1, 2, 3, 4, 5};
  for (const ViewMode view : kViews) {
    for (const ListingMode listing : {ListingMode::Network, ListingMode::Drives}) {
      LayoutRecord record;
      RecordColumnWidths({.view = view, .listing = listing, .titles = TitleView::Models, .widths = shown}, &record);
      ExpectDefaults(record);
    }
  }
  for (const ViewMode view : {ViewMode::LargeIcons, ViewMode::SmallIcons, ViewMode::List}) {
    LayoutRecord record;
    RecordColumnWidths({.view = view, .widths = shown}, &record);
    ExpectDefaults(record);
  }
}

}  // namespace
}  // namespace filedialog
