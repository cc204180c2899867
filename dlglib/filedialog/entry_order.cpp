#include "dlglib/filedialog/entry_order.h"

#include <algorithm>
#include <cstdint>
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
  if (slot < row.titles.size()) return row.titles[slot];
  return slot == 0 ? std::string_view(row.description) : std::string_view();
}

bool IsTitleKey(SortKey key) { return key >= kSortFirstTitle; }

/// The text that a key orders by before the name; none for name and size.
std::optional<std::string_view> KeyText(const FileEntry& row, SortKey key) {
  if (key == kSortDate) return row.description;
  if (IsTitleKey(key)) return TitleOf(row, static_cast<std::size_t>(key - kSortFirstTitle));
  return std::nullopt;
}

int CompareByKey(const FileEntry& a, const FileEntry& b, SortKey key) {
  if (key == kSortSize) return (a.sizeKb > b.sizeKb) - (a.sizeKb < b.sizeKb);
  const auto textA = KeyText(a, key);
  return textA ? CompareBytes(*textA, *KeyText(b, key)) : 0;
}

/// Stands for a row while sorting. When two ranks differ in `high` or `low`, so do the rows, in the same order.
struct Rank {
  std::uint64_t high = 0;
  std::uint64_t low = 0;
  std::uint32_t row = 0;
};

constexpr std::uint64_t kBelowKind = (std::uint64_t{1} << 56) - 1;

/// The first `count` bytes (at most 8) from `from` on, as a number that grows as the text does.
std::uint64_t Prefix(std::string_view text, std::size_t from, unsigned count) {
  std::uint64_t number = 0;
  for (std::size_t at = from; at < from + count; ++at) {
    number = number << 8 | (at < text.size() ? static_cast<unsigned char>(text[at]) : 0U);
  }
  return number;
}

std::uint64_t GrowingSize(std::int32_t sizeKb) {
  return static_cast<std::uint64_t>(static_cast<std::int64_t>(sizeKb) + 0x80000000LL);
}

Rank RankOf(const FileEntry& row, std::uint32_t position, const SortOrder& order) {
  Rank rank{.row = position};
  if (order.key == kSortSize) {
    rank.high = GrowingSize(row.sizeKb);
    rank.low = Prefix(row.sortKey, 0, 8);
  } else {
    const std::string_view text = KeyText(row, order.key).value_or(row.sortKey);
    rank.high = Prefix(text, 0, 7);
    rank.low = Prefix(text, 7, 8);
  }
  if (order.direction < 0) {
    rank.high = ~rank.high & kBelowKind;
    rank.low = ~rank.low;
  }
  rank.high |= static_cast<std::uint64_t>(row.kind) << 56;
  return rank;
}

std::vector<Rank> RankAll(const std::vector<FileEntry>& rows, const SortOrder& order) {
  std::vector<Rank> ranks;
  ranks.reserve(rows.size());
  for (const FileEntry& row : rows) ranks.push_back(RankOf(row, static_cast<std::uint32_t>(ranks.size()), order));
  return ranks;
}

std::optional<SortKey> KeyOfColumn(const HeaderState& state, int column) {
  if (state.viewMode == kViewDetails && state.listing == ListingMode::Details && column >= 0 && column <= 2) {
    return kSortName + column;
  }
  if (state.viewMode != kViewTitles || state.listing != ListingMode::Titles) return std::nullopt;
  if (column < 0 || column > static_cast<int>(kTitleSlots)) return std::nullopt;
  return column == 0 ? kSortName : kSortFirstTitle + column - 1;
}

bool PassesLimit(const HeaderState& state) {
  return state.limit < 0 || state.entryCount > static_cast<std::size_t>(state.limit);
}

HeaderAnswer AnswerFor(const HeaderState& state, SortKey key) {
  const bool unchecked = !IsTitleKey(key) || state.confirmed || state.sortMode == kSortAlways;
  if (unchecked || !PassesLimit(state)) return HeaderAnswer::Sort;
  return state.sortMode == kSortNeverBeyondLimit ? HeaderAnswer::Ignore : HeaderAnswer::Ask;
}

}  // namespace

int Compare(const FileEntry& a, const FileEntry& b, const SortOrder& order) {
  if (a.kind != b.kind) return static_cast<int>(a.kind) - static_cast<int>(b.kind);
  const int byKey = CompareByKey(a, b, order.key);
  return Sign(order.direction) * (byKey != 0 ? byKey : CompareBytes(a.sortKey, b.sortKey));
}

void Sort(EntryTable* table, const SortOrder& order) {
  std::vector<FileEntry>& rows = table->rows();
  std::vector<Rank> ranks = RankAll(rows, order);
  std::sort(ranks.begin(), ranks.end(), [&](const Rank& a, const Rank& b) {
    if (a.high != b.high) return a.high < b.high;
    if (a.low != b.low) return a.low < b.low;
    const int difference = Compare(rows[a.row], rows[b.row], order);
    return difference != 0 ? difference < 0 : a.row < b.row;
  });
  std::vector<FileEntry> sorted;
  sorted.reserve(rows.size());
  for (const Rank& rank : ranks) sorted.push_back(std::move(rows[rank.row]));
  rows = std::move(sorted);
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
