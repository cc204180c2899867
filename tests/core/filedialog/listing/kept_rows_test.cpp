#include "dlglib/filedialog/listing/kept_rows.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace filedialog;

/// "a" and "b" are files, "a" is a folder as well.
class KeptRowsTest : public testing::Test {
 protected:
  KeptRowsTest() {
    table_.Add(EntryKind::Folder, "C:\\data\\a", "a", false);
    table_.Add(EntryKind::File, "C:\\data\\a.", "a", false);
    table_.Add(EntryKind::File, "C:\\data\\b", "b", false);
  }

  EntryTable table_;
};

TEST_F(KeptRowsTest, AreFoundByNameAndKindWhereverTheyStand) {
  const KeptRows kept = KeepRows(table_.rows(), {{1, 2}, 1, {3, 4}});
  EntryTable other;
  other.Add(EntryKind::File, "C:\\data\\b", "b", false);
  other.Add(EntryKind::Folder, "C:\\data\\a", "a", false);
  other.Add(EntryKind::File, "C:\\data\\a.", "a", false);
  const RowStates states = FindRows(other.rows(), kept);
  EXPECT_EQ(states.selected, (std::vector<int>{0, 2}));
  EXPECT_EQ(states.focused, 2);
  EXPECT_EQ(states.scroll, (geometry::Point{3, 4}));
}

TEST_F(KeptRowsTest, AreNoneWhereAListTellsOfRowsThatThereAreNot) {
  const KeptRows kept = KeepRows(table_.rows(), {{-1, 0, 3}, 3, {}});
  EXPECT_EQ(FindRows(table_.rows(), kept).selected, std::vector<int>{0});
  EXPECT_EQ(FindRows(table_.rows(), kept).focused, std::nullopt);
  EXPECT_EQ(KeepRows(table_.rows(), {{}, -1, {}}).focused, std::nullopt);
}

}  // namespace
