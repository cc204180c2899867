#include "dlglib/filedialog/listing/entry_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tests/core/filedialog/listing/plain_order.h"

namespace {

using namespace filedialog;

constexpr SortOrder kByName{};
constexpr SortOrder kByNameDown{kSortName, -1};

FileEntry Row(EntryKind kind, std::string_view sortKey, std::int32_t sizeKb = 0, std::string description = {}) {
  FileEntry row;
  row.kind = kind;
  row.sortKey = sortKey;
  row.sizeKb = sizeKb;
  row.description = std::move(description);
  return row;
}

FileEntry Titled(std::string_view sortKey, std::vector<std::string> titles) {
  FileEntry row = Row(EntryKind::File, sortKey);
  row.titles = std::move(titles);
  return row;
}

/// How two rows are put into order: -1 when `a` comes first wherever it lay, 1 when `b` does, 0 when each keeps its
/// place.
int Order(FileEntry a, FileEntry b, const SortOrder& order) {
  a.net = 0;
  b.net = 1;
  const auto first = [&order](const FileEntry& one, const FileEntry& two) {
    EntryTable table;
    table.rows() = {one, two};
    Sort(&table, order);
    return table.rows().front().net;
  };
  const std::int32_t there = first(a, b);
  if (there != first(b, a)) return 0;
  return there == 0 ? -1 : 1;
}

TEST(Order, SmallerKindsComeFirstWhateverTheDirection) {
  const EntryKind kinds[] = {
      EntryKind::NetworkShare,   EntryKind::ClientDrive, EntryKind::FixedDrive,   EntryKind::RamDisk,
      EntryKind::FolderShortcut, EntryKind::Folder,      EntryKind::FileShortcut, EntryKind::File};
  for (const SortKey key : {kSortName, kSortSize, kSortDate, kSortFirstTitle}) {
    for (std::size_t i = 0; i + 1 < std::size(kinds); ++i) {
      const FileEntry first = Row(kinds[i], "Z", 9, "z");
      const FileEntry second = Row(kinds[i + 1], "A", 1, "a");
      EXPECT_EQ(Order(first, second, {key, 1}), -1);
      EXPECT_EQ(Order(first, second, {key, -1}), -1);
      EXPECT_EQ(Order(second, first, {key, -1}), 1);
    }
  }
}

TEST(Order, NamesAreUnsignedBytes) {
  const FileEntry ascii = Row(EntryKind::File, "Z");
  const FileEntry japanese = Row(EntryKind::File, "亜");
  EXPECT_LT(Order(ascii, japanese, kByName), 0);
  EXPECT_GT(Order(ascii, japanese, kByNameDown), 0);
  EXPECT_LT(Order(Row(EntryKind::File, "A"), Row(EntryKind::File, "AB"), kByName), 0);
  EXPECT_EQ(Order(ascii, ascii, kByName), 0);
}

TEST(Order, SizesAreSignedNumbers) {
  const FileEntry negative = Row(EntryKind::File, "B", -1);
  const FileEntry small = Row(EntryKind::File, "A", 9);
  const FileEntry large = Row(EntryKind::File, "A", 10);
  EXPECT_EQ(Order(negative, small, {kSortSize, 1}), -1);
  EXPECT_EQ(Order(small, large, {kSortSize, 1}), -1);
  EXPECT_EQ(Order(small, large, {kSortSize, -1}), 1);
}

TEST(Order, DatesAreTexts) {
  const FileEntry older = Row(EntryKind::File, "B", 0, " 2023/12/31 23:59:59");
  const FileEntry newer = Row(EntryKind::File, "A", 0, " 2024/01/01 00:00:00");
  EXPECT_LT(Order(older, newer, {kSortDate, 1}), 0);
  EXPECT_GT(Order(older, newer, {kSortDate, -1}), 0);
}

TEST(Order, TiesGoToTheNameInTheSameDirection) {
  const FileEntry a = Row(EntryKind::File, "A", 5, "same");
  const FileEntry b = Row(EntryKind::File, "B", 5, "same");
  for (const SortKey key : {kSortSize, kSortDate, kSortFirstTitle, kSortFirstTitle + 3, 0, 99}) {
    EXPECT_LT(Order(a, b, {key, 1}), 0) << key;
    EXPECT_GT(Order(a, b, {key, -1}), 0) << key;
  }
}

TEST(Order, TitlesAreComparedBySlot) {
  const FileEntry a = Titled("A", {"2", "x"});
  const FileEntry b = Titled("B", {"1", "y"});
  EXPECT_GT(Order(a, b, {kSortFirstTitle, 1}), 0);
  EXPECT_LT(Order(a, b, {kSortFirstTitle + 1, 1}), 0);
  EXPECT_GT(Order(a, b, {kSortFirstTitle + 1, -1}), 0);
}

TEST(Order, AnEmptyTitleIsTheSmallest) {
  const FileEntry unreadable = Titled("Z", {"", ""});
  const FileEntry titled = Titled("A", {"表題", ""});
  EXPECT_LT(Order(unreadable, titled, {kSortFirstTitle, 1}), 0);
  EXPECT_GT(Order(unreadable, titled, {kSortFirstTitle, -1}), 0);
}

TEST(Order, TheDescriptionStandsForTheFirstSlotOfASingleTitle) {
  const FileEntry a = Row(EntryKind::File, "A", 0, "second");
  const FileEntry b = Row(EntryKind::File, "B", 0, "first");
  EXPECT_GT(Order(a, b, {kSortFirstTitle, 1}), 0);
  EXPECT_LT(Order(a, b, {kSortFirstTitle + 1, 1}), 0);
}

std::string Names(const EntryTable& table) {
  std::string names;
  for (const FileEntry& row : table.rows()) names.append(row.name).append(" ");
  return names;
}

TEST(Sort, PutsFoldersFirstInBothDirectionsOfTheSize) {
  EntryTable table;
  table.Add(EntryKind::File, "C:\\big.mdl", "big.mdl", true).sizeKb = 900;
  table.Add(EntryKind::Folder, "C:\\sub", "sub", false);
  table.Add(EntryKind::File, "C:\\small.mdl", "small.mdl", true).sizeKb = 1;
  Sort(&table, {kSortSize, 1});
  EXPECT_EQ(Names(table), "sub small.mdl big.mdl ");
  Sort(&table, {kSortSize, -1});
  EXPECT_EQ(Names(table), "sub big.mdl small.mdl ");
}

TEST(Sort, RowsThatCompareEqualKeepTheirPlaces) {
  EntryTable table;
  for (const char* name : {"a.MDL", "A.mdl", "a.mdl"}) table.Add(EntryKind::File, name, name, true);
  Sort(&table, kByName);
  EXPECT_EQ(Names(table), "a.MDL A.mdl a.mdl ");
  Sort(&table, kByNameDown);
  EXPECT_EQ(Names(table), "a.MDL A.mdl a.mdl ");
}

TEST(Sort, TakesAnEmptyTable) {
  EntryTable table;
  Sort(&table, kByName);
  EXPECT_EQ(table.size(), 0U);
}

/// Few letters, bytes above 0x7F and zero bytes, and long common starts, so that every kind of tie comes up.
std::string RandomText(std::mt19937& random, std::size_t most) {
  constexpr char kBytes[] = {'A', 'B', '\0', '\x7F', '\x80', '\xFF'};
  static const std::string kStarts[] = {"", "AAAAAAA", "AAAAAAAAAAAAAAA", "AAAAAAAAAAAAAAAAAAAAAAAAA"};
  std::string text = kStarts[random() % std::size(kStarts)];
  for (std::size_t left = random() % (most + 1); left > 0; --left) text += kBytes[random() % std::size(kBytes)];
  return text;
}

void AddRandomRow(std::mt19937& random, std::size_t number, EntryTable* table) {
  constexpr EntryKind kKinds[] = {EntryKind::NetworkShare, EntryKind::FixedDrive, EntryKind::Folder, EntryKind::File};
  constexpr std::int32_t kSizes[] = {0, 1, -1, std::numeric_limits<std::int32_t>::max(),
                                     std::numeric_limits<std::int32_t>::min()};
  FileEntry& row = table->Add(kKinds[random() % std::size(kKinds)], "x", RandomText(random, 3), false);
  row.sizeKb = kSizes[random() % std::size(kSizes)];
  row.description = RandomText(random, 2);
  if (random() % 2 == 0) row.titles = {RandomText(random, 2), RandomText(random, 1)};
  row.net = static_cast<std::int32_t>(number);
}

std::vector<std::int32_t> Numbers(const std::vector<FileEntry>& rows) {
  std::vector<std::int32_t> numbers;
  for (const FileEntry& row : rows) numbers.push_back(row.net);
  return numbers;
}

TEST(Sort, EqualsAStableSortOfThePlainOrder) {
  std::mt19937 random(20240305);
  for (int round = 0; round < 60; ++round) {
    EntryTable table;
    for (std::size_t i = 0; i < 150; ++i) AddRandomRow(random, i, &table);
    for (const SortKey key : {kSortName, kSortSize, kSortDate, kSortFirstTitle, kSortFirstTitle + 1, 77, -3}) {
      for (const int direction : {1, -1}) {
        const SortOrder order{key, direction};
        std::vector<FileEntry> expected = table.rows();
        std::stable_sort(expected.begin(), expected.end(),
                         [&](const FileEntry& a, const FileEntry& b) { return PlainBefore(a, b, order); });
        Sort(&table, order);
        ASSERT_EQ(Numbers(table.rows()), Numbers(expected)) << "key " << key << " direction " << direction;
        Sort(&table, order);
        ASSERT_EQ(Numbers(table.rows()), Numbers(expected)) << "again: key " << key << " direction " << direction;
      }
    }
  }
}

HeaderState TitleState(SlowSort mode, std::size_t entryCount) {
  HeaderState state;
  state.view = ViewMode::Titles;
  state.listing = ListingMode::Titles;
  state.slowSort = {mode, 10};
  state.entryCount = entryCount;
  return state;
}

void ExpectClick(const HeaderState& state, int column, HeaderAnswer answer, const SortOrder& order) {
  const HeaderClick click = DecideHeaderClick(state, column);
  EXPECT_EQ(click.answer, answer) << "column " << column;
  EXPECT_EQ(click.order, order) << "column " << column;
}

TEST(HeaderClick, DetailsSortByTheirThreeColumns) {
  HeaderState state;
  ExpectClick(state, 0, HeaderAnswer::Sort, {kSortName, -1});
  ExpectClick(state, 1, HeaderAnswer::Sort, {kSortSize, 1});
  ExpectClick(state, 2, HeaderAnswer::Sort, {kSortDate, 1});
  ExpectClick(state, 3, HeaderAnswer::Ignore, {kSortName, 1});
  ExpectClick(state, -1, HeaderAnswer::Ignore, {kSortName, 1});
}

TEST(HeaderClick, TheSameKeyTurnsTheDirectionAround) {
  HeaderState state;
  state.order = {kSortSize, 1};
  ExpectClick(state, 1, HeaderAnswer::Sort, {kSortSize, -1});
  state.order = {kSortSize, -1};
  ExpectClick(state, 1, HeaderAnswer::Sort, {kSortSize, 1});
  ExpectClick(state, 0, HeaderAnswer::Sort, {kSortName, 1});
}

TEST(HeaderClick, OtherViewsAndListingsIgnoreIt) {
  for (const ViewMode view :
       {ViewMode::LargeIcons, ViewMode::SmallIcons, ViewMode::Details, ViewMode::List, ViewMode::Titles}) {
    for (const ListingMode listing :
         {ListingMode::Details, ListingMode::Titles, ListingMode::Network, ListingMode::Drives}) {
      const bool sorts = (view == ViewMode::Details && listing == ListingMode::Details) ||
                         (view == ViewMode::Titles && listing == ListingMode::Titles);
      HeaderState state;
      state.view = view;
      state.listing = listing;
      EXPECT_EQ(DecideHeaderClick(state, 0).answer, sorts ? HeaderAnswer::Sort : HeaderAnswer::Ignore)
          << static_cast<int>(view) << " " << static_cast<int>(listing);
    }
  }
}

TEST(HeaderClick, TitleColumnsHaveKeysOfTheirOwn) {
  const HeaderState state = TitleState(SlowSort::Always, 1000);
  ExpectClick(state, 0, HeaderAnswer::Sort, {kSortName, -1});
  for (int column = 1; column <= 4; ++column) {
    ExpectClick(state, column, HeaderAnswer::Sort, {kSortFirstTitle + column - 1, 1});
  }
  ExpectClick(state, 5, HeaderAnswer::Ignore, kByName);
  ExpectClick(state, -1, HeaderAnswer::Ignore, kByName);
}

TEST(HeaderClick, BeyondTheLimitTheRuleDecides) {
  ExpectClick(TitleState(SlowSort::Always, 11), 1, HeaderAnswer::Sort, {kSortFirstTitle, 1});
  ExpectClick(TitleState(SlowSort::NeverBeyondLimit, 11), 1, HeaderAnswer::Ignore, kByName);
  ExpectClick(TitleState(SlowSort::AskBeyondLimit, 11), 1, HeaderAnswer::Ask, {kSortFirstTitle, 1});
  ExpectClick(TitleState(static_cast<SlowSort>(77), 11), 1, HeaderAnswer::Ask, {kSortFirstTitle, 1});
}

TEST(HeaderClick, TheLimitItselfIsAllowed) {
  for (const SlowSort mode : {SlowSort::Always, SlowSort::NeverBeyondLimit, SlowSort::AskBeyondLimit}) {
    ExpectClick(TitleState(mode, 10), 2, HeaderAnswer::Sort, {kSortFirstTitle + 1, 1});
  }
}

TEST(HeaderClick, NamesAreNeverHeldAgainstTheLimit) {
  ExpectClick(TitleState(SlowSort::NeverBeyondLimit, 1000), 0, HeaderAnswer::Sort, kByNameDown);
  ExpectClick(TitleState(SlowSort::AskBeyondLimit, 1000), 0, HeaderAnswer::Sort, kByNameDown);
}

TEST(HeaderClick, AListingThatWasAgreedToIsNotAskedAboutAgain) {
  for (const SlowSort mode : {SlowSort::NeverBeyondLimit, SlowSort::AskBeyondLimit}) {
    HeaderState state = TitleState(mode, 1000);
    state.slowSortAgreed = true;
    ExpectClick(state, 1, HeaderAnswer::Sort, {kSortFirstTitle, 1});
  }
}

TEST(HeaderClick, ANegativeLimitIsAlwaysPassed) {
  HeaderState state = TitleState(SlowSort::NeverBeyondLimit, 0);
  state.slowSort.limit = -1;
  ExpectClick(state, 1, HeaderAnswer::Ignore, kByName);
}

}  // namespace
