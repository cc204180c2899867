#include "dlglib/listcontrol/typed_text.h"

#include <algorithm>

namespace grid {

namespace {

/// What a change has put in: `after` without the start and the end that it shares with `before`.
[[nodiscard]] TextRange Inserted(std::wstring_view before, std::wstring_view after) noexcept {
  const auto start = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const auto from = static_cast<std::size_t>(start.second - after.begin());
  const std::wstring_view beforeRest = before.substr(from);
  const std::wstring_view afterRest = after.substr(from);
  const auto end = std::mismatch(beforeRest.rbegin(), beforeRest.rend(), afterRest.rbegin(), afterRest.rend());
  return {from, after.size() - static_cast<std::size_t>(end.second - afterRest.rbegin())};
}

}  // namespace

std::size_t CountBytes(std::wstring_view text, const BytesOf& bytesOf) {
  std::size_t bytes = 0;
  for (const wchar_t unit : text) bytes += bytesOf(unit);
  return bytes;
}

std::optional<TextRange> Excess(std::wstring_view before, std::wstring_view after, std::size_t limit,
                                const BytesOf& bytesOf) {
  std::size_t bytes = CountBytes(after, bytesOf);
  if (bytes <= limit) return std::nullopt;
  const TextRange inserted = Inserted(before, after);
  std::size_t kept = inserted.to;
  while (bytes > limit && kept > inserted.from) bytes -= bytesOf(after[--kept]);
  if (kept == inserted.to) return std::nullopt;
  return TextRange{kept, inserted.to};
}

bool MayType(std::wstring_view text, TextRange selected, wchar_t typed, std::size_t limit, const BytesOf& bytesOf) {
  const std::size_t to = std::min(selected.to, text.size());
  const std::size_t from = std::min(selected.from, to);
  const std::size_t bytes = CountBytes(text, bytesOf);
  const std::size_t changed = bytes - CountBytes(text.substr(from, to - from), bytesOf) + bytesOf(typed);
  return changed <= limit || changed <= bytes;
}

std::wstring Without(std::wstring_view text, TextRange part) {
  const std::size_t from = std::min(part.from, text.size());
  std::wstring rest(text);
  return rest.erase(from, part.to - std::min(part.from, part.to));
}

int BoxLimit(unsigned int asked, int columnLimit) noexcept {
  const auto limit = static_cast<unsigned int>(columnLimit);
  return static_cast<int>(asked == 0 ? limit : std::min(asked, limit));
}

bool Lets(const BoxModes& modes, wchar_t typed) noexcept {
  return modes.edit != 0 || !IsHalfWidthKatakana(static_cast<unsigned int>(typed));
}

std::wstring_view KeptWhenLeft(const BoxModes& modes, std::wstring_view text) noexcept {
  return modes.space != 0 ? text : text.substr(0, text.find_last_not_of(L' ') + 1);
}

}  // namespace grid
