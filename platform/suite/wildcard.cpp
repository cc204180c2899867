#include "platform/suite/wildcard.h"

#include <algorithm>
#include <cstring>

#include "platform/os/sjis_bytes.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/euc_jp.h"

namespace suite {
namespace {

constexpr char Folded(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; }

constexpr bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

/// Whether two characters are the same; only single bytes have a letter case.
bool IsSame(std::string_view left, std::string_view right) noexcept {
  if (left.size() == 1 && right.size() == 1) return Folded(left[0]) == Folded(right[0]);
  return left == right;
}

/// Walks the name once; a mismatch behind a "*" lets that "*" take one character more. Only the last "*" is ever gone
/// back to, so the time is bounded by the product of the lengths.
template <class Length>
bool Matches(std::string_view pattern, std::string_view name, Length length) noexcept {
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t star = std::string_view::npos;
  std::size_t starName = 0;
  while (n < name.size()) {
    const std::size_t nameLength = length(name, n);
    const bool atEnd = p == pattern.size();
    if (!atEnd && pattern[p] == '*') {
      star = ++p;
      starName = n;
    } else if (!atEnd && pattern[p] == '?') {
      ++p;
      n += nameLength;
    } else if (!atEnd && IsSame(pattern.substr(p, length(pattern, p)), name.substr(n, nameLength))) {
      p += length(pattern, p);
      n += nameLength;
    } else if (star != std::string_view::npos) {
      p = star;
      starName += length(name, starName);
      n = starName;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

/// What follows the "*" of a pattern like "*.MDL", which most listings ask for: ASCII from a "." on. Empty for all
/// others.
std::string_view ExtensionOf(std::string_view pattern) noexcept {
  if (!pattern.starts_with("*.")) return {};
  const std::string_view extension = pattern.substr(1);
  const auto isPlain = [](char byte) { return IsAscii(byte) && byte != '*' && byte != '?'; };
  return std::all_of(extension.begin(), extension.end(), isPlain) ? extension : std::string_view();
}

/// Whether a character of Shift_JIS begins `size` bytes before the end of the name whatever stands before it: behind a
/// byte that is not ASCII only a walk from the start tells.
bool BeginsCharacter(std::string_view name, std::size_t size) noexcept {
  return name.size() <= size || IsAscii(name[name.size() - size - 1]);
}

bool EndsWith(std::string_view name, std::string_view extension) noexcept {
  if (name.size() < extension.size()) return false;
  const auto isSame = [](char left, char right) { return Folded(left) == Folded(right); };
  return std::equal(extension.rbegin(), extension.rend(), name.rbegin(), isSame);
}

/// The bytes of a text that a pair of length and word lets a call look at.
std::string_view Limited(const char* text, int length, const short* word) noexcept {
  if (text == nullptr || length <= 0) return {};
  const int limit = word != nullptr && *word > 0 ? std::min<int>(length, *word) : length;
  const auto size = static_cast<std::size_t>(limit);
  const void* end = std::memchr(text, '\0', size);
  return {text, end == nullptr ? size : static_cast<std::size_t>(static_cast<const char*>(end) - text)};
}

void Report(std::string_view text, short* word) noexcept {
  if (word != nullptr) *word = static_cast<short>(std::min<std::size_t>(text.size(), 0x7FFF));
}

}  // namespace

bool MatchesAll(std::string_view pattern) noexcept { return pattern == "*" || pattern == "*.*"; }

bool MatchesSjis(std::string_view pattern, std::string_view name) noexcept {
  if (MatchesAll(pattern)) return true;
  const std::string_view extension = ExtensionOf(pattern);
  const bool endTells = !extension.empty() && BeginsCharacter(name, extension.size());
  return endTells ? EndsWith(name, extension) : Matches(pattern, name, os::SjisLength);
}

bool MatchesEuc(std::string_view pattern, std::string_view name) noexcept {
  return MatchesAll(pattern) || Matches(pattern, name, euc_jp::CharLength);
}

bool MatchesEither(std::string_view pattern, std::string_view name) noexcept {
  const bool isEuc = euc_jp::IsValid(pattern) && euc_jp::IsValid(name);
  return isEuc ? MatchesEuc(pattern, name) : MatchesSjis(pattern, name);
}

}  // namespace suite

void xrfwildcd(const char* pattern, short* patternWord, const char* name, short* nameWord, short* result,
               int patternLength, int nameLength) {
  const std::string_view patternText = suite::Limited(pattern, patternLength, patternWord);
  const std::string_view nameText = suite::Limited(name, nameLength, nameWord);
  suite::Report(patternText, patternWord);
  suite::Report(nameText, nameWord);
  if (result != nullptr) *result = suite::MatchesEither(patternText, nameText) ? 0 : 1;
}
