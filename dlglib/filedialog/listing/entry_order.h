// The order of the rows: what comes first, and what a click on a column's header asks for.
#pragma once

#include <cstddef>

#include "dlglib/filedialog/basics/slow_sort.h"
#include "dlglib/filedialog/basics/view_mode.h"
#include "dlglib/filedialog/listing/file_entry.h"

namespace filedialog {

/// What the rows are ordered by. A number of kSortFirstTitle + i orders by title column i, from 0; any other number not
/// named here orders by name.
using SortKey = int;
inline constexpr SortKey kSortName = 1;
inline constexpr SortKey kSortSize = 2;
inline constexpr SortKey kSortDate = 3;
inline constexpr SortKey kSortFirstTitle = 11;

/// A sort key and its direction: +1 ascending, -1 descending. A fresh listing is by name, ascending.
struct SortOrder {
  SortKey key = kSortName;
  int direction = 1;

  friend bool operator==(const SortOrder&, const SortOrder&) = default;
};

/// Puts the rows of the table into order: smaller kinds come first whatever the direction; then the key decides; then
/// the sort keys. Texts are compared as unsigned bytes. The rows must be described for any key but the name. Equal rows
/// keep their places, so that the same click always gives the same list. Sorts by name and then by the key, in n log n
/// comparisons of a few machine words that seldom look at a row, and moves each row once.
void Sort(EntryTable* table, const SortOrder& order);

/// What the browser knows when a header is clicked.
struct HeaderState {
  ViewMode view = ViewMode::Details;
  ListingMode listing = ListingMode::Details;
  SortOrder order;  ///< the order in force
  SlowSortRule slowSort;
  bool slowSortAgreed = false;  ///< the user has agreed to a slow sort of this listing before
  std::size_t entryCount = 0;   ///< entries of the listing, folders included
};

/// Ignore: nothing changes, neither order nor mark. Sort: `order` comes into force. Ask: the user decides between the
/// two.
enum class HeaderAnswer { Ignore, Sort, Ask };

struct HeaderClick {
  HeaderAnswer answer = HeaderAnswer::Ignore;
  SortOrder order;  ///< the order asked for; the one in force when the click is ignored
};

/// Decides about a click on the header of `column` (from 0). The key of the order in force turns the direction around,
/// another key starts ascending. Only a sort by a title column is a slow one.
[[nodiscard]] HeaderClick DecideHeaderClick(const HeaderState& state, int column);

}  // namespace filedialog
