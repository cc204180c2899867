// What a row holds, and how little room it takes.
#include "dlglib/filedialog/listing/file_entry.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace filedialog;

TEST(EntryKinds, AreNetworkPlacesFromTheNetworkToItsShares) {
  for (const EntryKind kind : {EntryKind::Network, EntryKind::NearbyComputers, EntryKind::NetworkShare}) {
    EXPECT_TRUE(IsNetworkPlace(kind)) << NumberOf(kind);
  }
  for (const EntryKind kind : {EntryKind::Desktop, EntryKind::Computer, EntryKind::ClientDrive, EntryKind::File}) {
    EXPECT_FALSE(IsNetworkPlace(kind)) << NumberOf(kind);
  }
}

TEST(FileEntryTest, TakesTheRoomOfTenPointers) {
  // Tables of 100,000 rows are usual; a table that grows holds its rows twice.
  EXPECT_LE(sizeof(FileEntry), 10 * sizeof(void*));
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<FileEntry>);
  EXPECT_TRUE(std::is_nothrow_move_assignable_v<FileEntry>);
}

TEST(FileEntryTest, HasNoTextsAtFirst) {
  const FileEntry row;
  EXPECT_EQ(*row.description, "");
  EXPECT_TRUE(row.titles->empty());
}

TEST(FileEntryTest, ItsCopyHasTextsOfItsOwn) {
  FileEntry row;
  row.description = "図面";
  row.titles = {"a", "b"};
  FileEntry copy = row;
  row.description = "";
  row.titles = std::vector<std::string>();
  EXPECT_EQ(*row.description, "");
  EXPECT_TRUE(row.titles->empty());
  EXPECT_EQ(*copy.description, "図面");
  copy = std::exchange(row, std::move(copy));
  EXPECT_EQ(*copy.description, "");
  EXPECT_EQ(*row.titles, (std::vector<std::string>{"a", "b"}));
}

TEST(EntryTableTest, ANameInCapitalsIsItsOwnSortKey) {
  EntryTable table;
  const FileEntry capitals = table.Add(EntryKind::File, "C:\\A\\B1.MDL", "B1.MDL", true);
  EXPECT_EQ(capitals.sortKey, "B1");
  EXPECT_EQ(capitals.sortKey.data(), capitals.name.data());
  const FileEntry mixed = table.Add(EntryKind::File, "C:\\A\\b1.MDL", "b1.MDL", false);
  EXPECT_EQ(mixed.sortKey, "B1.MDL");
  EXPECT_EQ(mixed.name, "b1.MDL");
}

TEST(EntryTableTest, GrowsInFewSteps) {
  constexpr std::size_t kRows = 100000;
  EntryTable table;
  table.Clear(20000);
  std::size_t steps = 0;
  std::size_t capacity = table.rows().capacity();
  while (table.size() < kRows) {
    table.Add(EntryKind::File, "C:\\A", "A", false);
    if (table.rows().capacity() != capacity) ++steps;
    capacity = table.rows().capacity();
  }
  EXPECT_EQ(steps, 2U);
}

}  // namespace
