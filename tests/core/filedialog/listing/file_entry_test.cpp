// What a row holds, and how little room it takes.
#include "dlglib/filedialog/listing/file_entry.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace filedialog;

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

}  // namespace
