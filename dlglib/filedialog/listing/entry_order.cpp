#include "dlglib/filedialog/listing/entry_order.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace filedialog {

namespace {

int Sign(int direction) { return direction < 0 ? -1 : 1; }

int CompareBytes(std::string_view a, std::string_view b) {
  const int difference = a.compare(b);
  return (difference > 0) - (difference < 0);
}

/// Title i of a row. Kinds with a single title keep it as the description, which stands for the first slot.
std::string_view TitleOf(const FileEntry& row, std::size_t slot) {
  if (slot < row.titles->size()) return (*row.titles)[slot];
  return slot == 0 ? std::string_view(*row.description) : std::string_view();
}

bool IsTitleKey(SortKey key) { return key >= kSortFirstTitle; }

/// The text that a key orders by before the name; none for name and size.
std::optional<std::string_view> KeyText(const FileEntry& row, SortKey key) {
  if (key == kSortDate) return *row.description;
  if (IsTitleKey(key)) return TitleOf(row, static_cast<std::size_t>(key - kSortFirstTitle));
  return std::nullopt;
}

/// Stands for a row while sorting: the kind in the first byte, then the size, or the first bytes of the text and its
/// length. Ranks whose words are equal belong to rows that are equal by the key, unless the text is longer than that.
struct Rank {
  std::uint64_t high = 0;
  std::uint64_t middle = 0;
  std::uint64_t low = 0;
  std::uint32_t row = 0;
  std::uint32_t place = 0;  ///< before sorting
};

using Rows = std::vector<FileEntry>;
using Order = std::vector<std::uint32_t>;  ///< row numbers

constexpr std::uint64_t kBelowKind = (std::uint64_t{1} << 56) - 1;
constexpr std::size_t kRankedBytes = 22;

/// The `count` bytes (at most 8) from `from` on, as a number that grows as the text does.
std::uint64_t Bytes(std::string_view text, std::size_t from, std::size_t count) {
  std::uint64_t number = 0;
  for (std::size_t at = from; at < from + count; ++at) {
    number = number << 8 | (at < text.size() ? static_cast<unsigned char>(text[at]) : 0U);
  }
  return number;
}

std::string_view RankedText(const FileEntry& row, SortKey key) { return KeyText(row, key).value_or(row.sortKey); }

void RankBySize(std::int32_t sizeKb, Rank* rank) {
  rank->high = static_cast<std::uint64_t>(static_cast<std::int64_t>(sizeKb) + 0x80000000LL);
}

void RankByText(std::string_view text, Rank* rank) {
  rank->high = Bytes(text, 0, 7);
  rank->middle = Bytes(text, 7, 8);
  rank->low = Bytes(text, 15, 7) << 8 | std::min(text.size(), kRankedBytes + 1);
}

Rank RankOf(const FileEntry& row, const SortOrder& order) {
  Rank rank;
  if (order.key == kSortSize) {
    RankBySize(row.sizeKb, &rank);
  } else {
    RankByText(RankedText(row, order.key), &rank);
  }
  if (order.direction < 0) {
    rank.high = ~rank.high & kBelowKind;
    rank.middle = ~rank.middle;
    rank.low = ~rank.low;
  }
  rank.high |= static_cast<std::uint64_t>(NumberOf(row.kind)) << 56;
  return rank;
}

std::vector<Rank> RankAll(const Rows& rows, const Order& before, const SortOrder& order) {
  std::vector<Rank> ranks;
  ranks.reserve(rows.size());
  for (const std::uint32_t row : before) {
    Rank& rank = ranks.emplace_back(RankOf(rows[row], order));
    rank.row = row;
    rank.place = static_cast<std::uint32_t>(ranks.size() - 1);
  }
  return ranks;
}

/// Orders the rows by kind and key alone; rows that are equal so far keep the order that they had before.
Order OrderBy(const Rows& rows, const Order& before, const SortOrder& order) {
  std::vector<Rank> ranks = RankAll(rows, before, order);
  const std::uint64_t longText = (order.direction < 0 ? ~std::uint64_t{kRankedBytes + 1} : kRankedBytes + 1) & 0xFF;
  const bool hasTexts = order.key != kSortSize;
  std::sort(ranks.begin(), ranks.end(), [&](const Rank& a, const Rank& b) {
    if (a.high != b.high) return a.high < b.high;
    if (a.middle != b.middle) return a.middle < b.middle;
    if (a.low != b.low) return a.low < b.low;
    if (!hasTexts || (a.low & 0xFF) != longText) return a.place < b.place;
    const int difference = CompareBytes(RankedText(rows[a.row], order.key), RankedText(rows[b.row], order.key));
    return difference != 0 ? Sign(order.direction) * difference < 0 : a.place < b.place;
  });
  Order after;
  after.reserve(ranks.size());
  for (const Rank& rank : ranks) after.push_back(rank.row);
  return after;
}

int CompareByKey(const FileEntry& a, const FileEntry& b, SortKey key) {
  if (key == kSortSize) return (a.sizeKb > b.sizeKb) - (a.sizeKb < b.sizeKb);
  return CompareBytes(RankedText(a, key), RankedText(b, key));
}

/// Many file systems give names in their order, and a listing that is read anew is as it was: then the ranks, which
/// take as much memory as half the rows, are not needed.
bool AreInOrder(const Rows& rows, const SortOrder& order) {
  return std::is_sorted(rows.begin(), rows.end(), [&order](const FileEntry& a, const FileEntry& b) {
    if (a.kind != b.kind) return NumberOf(a.kind) < NumberOf(b.kind);
    const int byKey = CompareByKey(a, b, order.key);
    const int difference = byKey != 0 ? byKey : CompareBytes(a.sortKey, b.sortKey);
    return Sign(order.direction) * difference < 0;
  });
}

Order AsTheyAre(std::size_t count) {
  Order order(count);
  std::iota(order.begin(), order.end(), 0U);
  return order;
}

/// Puts the row that stood at order[i] to i, for all i: in circles, each of which begins and ends with one row set
/// aside, so that no second table is needed.
void Follow(Order order, Rows* rows) {
  for (std::uint32_t start = 0; start < order.size(); ++start) {
    if (order[start] == start) continue;
    FileEntry first = std::move((*rows)[start]);
    std::uint32_t at = start;
    for (std::uint32_t from = order[at]; from != start; from = order[at]) {
      (*rows)[at] = std::move((*rows)[from]);
      order[at] = at;
      at = from;
    }
    (*rows)[at] = std::move(first);
    order[at] = at;
  }
}

bool IsNameKey(SortKey key) { return key != kSortSize && key != kSortDate && !IsTitleKey(key); }

std::optional<SortKey> KeyOfColumn(const HeaderState& state, int column) {
  if (state.view == ViewMode::Details && state.listing == ListingMode::Details && column >= 0 && column <= 2) {
    return kSortName + column;
  }
  if (state.view != ViewMode::Titles || state.listing != ListingMode::Titles) return std::nullopt;
  if (column < 0 || column > static_cast<int>(kTitleSlots)) return std::nullopt;
  return column == 0 ? kSortName : kSortFirstTitle + column - 1;
}

bool PassesLimit(const HeaderState& state) {
  const std::int32_t limit = state.slowSort.limit;
  return limit < 0 || state.entryCount > static_cast<std::size_t>(limit);
}

HeaderAnswer AnswerFor(const HeaderState& state, SortKey key) {
  const SlowSort mode = state.slowSort.mode;
  const bool unasked = !IsTitleKey(key) || state.slowSortAgreed || mode == SlowSort::Always;
  if (unasked || !PassesLimit(state)) return HeaderAnswer::Sort;
  return mode == SlowSort::NeverBeyondLimit ? HeaderAnswer::Ignore : HeaderAnswer::Ask;
}

}  // namespace

void Sort(EntryTable* table, const SortOrder& order) {
  Rows& rows = table->rows();
  if (AreInOrder(rows, order)) return;
  Order sorted = OrderBy(rows, AsTheyAre(rows.size()), {kSortName, order.direction});
  if (!IsNameKey(order.key)) sorted = OrderBy(rows, sorted, order);
  Follow(std::move(sorted), &rows);
}

HeaderClick DecideHeaderClick(const HeaderState& state, int column) {
  const std::optional<SortKey> key = KeyOfColumn(state, column);
  if (!key) return {HeaderAnswer::Ignore, state.order};
  const HeaderAnswer answer = AnswerFor(state, *key);
  if (answer == HeaderAnswer::Ignore) return {answer, state.order};
  if (*key == state.order.key) return {answer, {*key, -state.order.direction}};
  return {answer, {*key, 1}};
}

}  // namespace filedialog
