// Wildcards against a table of all starts of the pattern and all starts of the name.
#include <limits>
#include <vector>

#include "fuzz/fuzz.h"
#include "platform/suite/crvnbc.h"

namespace {

using Characters = std::vector<std::string>;

unsigned Byte(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

bool IsHigh(unsigned byte) { return byte >= 0xA1 && byte <= 0xFE; }

/// Bytes of the EUC-JP character at `at`; 0 for none.
std::size_t EucLength(std::string_view text, std::size_t at) {
  const unsigned first = Byte(text, at);
  const unsigned second = Byte(text, at + 1);
  if (first < 0x80) return 1;
  if (first == 0x8E) return second >= 0xA1 && second <= 0xDF ? 2 : 0;
  if (first == 0x8F) return IsHigh(second) && IsHigh(Byte(text, at + 2)) ? 3 : 0;
  return IsHigh(first) && IsHigh(second) ? 2 : 0;
}

std::size_t SjisLength(std::string_view text, std::size_t at) {
  const unsigned first = Byte(text, at);
  const bool isLead = first >= 0xE0 || (first >= 0x80 && first <= 0x9F);
  return isLead && at + 1 < text.size() ? 2 : 1;
}

bool IsEuc(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t length = EucLength(text, at);
    if (length == 0) return false;
    at += length;
  }
  return true;
}

Characters Split(std::string_view text, bool isEuc) {
  Characters characters;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = isEuc ? EucLength(text, at) : SjisLength(text, at);
    std::string character(text.substr(at, length));
    if (length == 1 && character[0] >= 'A' && character[0] <= 'Z')
      character[0] = static_cast<char>(character[0] + 0x20);
    characters.push_back(character);
    at += length;
  }
  return characters;
}

bool PlainMatch(const Characters& pattern, const Characters& name) {
  // matches[n]: whether the pattern so far matches the first n characters.
  std::vector<bool> matches(name.size() + 1, false);
  matches[0] = true;
  for (const std::string& wanted : pattern) {
    std::vector<bool> next(name.size() + 1, false);
    if (wanted == "*") {
      bool any = false;
      for (std::size_t n = 0; n <= name.size(); ++n) next[n] = any = any || matches[n];
    } else {
      for (std::size_t n = 0; n < name.size(); ++n) next[n + 1] = matches[n] && (wanted == "?" || wanted == name[n]);
    }
    matches = next;
  }
  return matches[name.size()];
}

bool PlainMatch(std::string_view pattern, std::string_view name) {
  const bool isEuc = IsEuc(pattern) && IsEuc(name);
  return pattern == "*.*" || PlainMatch(Split(pattern, isEuc), Split(name, isEuc));
}

/// What a call looks at: up to the terminator, the length and a word above 0.
std::string_view LookedAt(std::string_view text, int length, short word) {
  std::size_t limit = static_cast<std::size_t>(std::max(length, 0));
  if (word > 0) limit = std::min(limit, static_cast<std::size_t>(word));
  text = text.substr(0, limit);
  return text.substr(0, text.find('\0'));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const bool hasWords = input.Flag();
  short patternWord = input.Flag() ? static_cast<short>(input.Number(-3, 200)) : short{0};
  short nameWord = input.Flag() ? static_cast<short>(input.Number(-3, 200)) : short{0};
  const fuzz::Block pattern(input.Text(100));
  const fuzz::Block name(input.Rest());
  const int patternLength = static_cast<int>(pattern.View().size());
  const int nameLength = static_cast<int>(name.View().size());
  // The tables of the plain match grow with the product of the lengths.
  if (nameLength > 500) return 0;

  const std::string_view seenPattern = LookedAt(pattern.View(), patternLength, hasWords ? patternWord : short{0});
  const std::string_view seenName = LookedAt(name.View(), nameLength, hasWords ? nameWord : short{0});
  short result = 77;
  xrfwildcd(pattern.View().data(), hasWords ? &patternWord : nullptr, name.View().data(),
            hasWords ? &nameWord : nullptr, &result, patternLength, nameLength);
  FUZZ_CHECK(result == (PlainMatch(seenPattern, seenName) ? 0 : 1));
  FUZZ_CHECK(!hasWords || patternWord == static_cast<short>(seenPattern.size()));
  FUZZ_CHECK(!hasWords || nameWord == static_cast<short>(seenName.size()));

  // Every name matches itself, and "*" in front of any of its ends.
  short again = 77;
  xrfwildcd("*", nullptr, name.View().data(), nullptr, &again, 1, nameLength);
  FUZZ_CHECK(again == 0);
  xrfwildcd(nullptr, nullptr, nullptr, nullptr, &again, patternLength, nameLength);
  FUZZ_CHECK(again == 0);
  xrfwildcd(pattern.View().data(), nullptr, name.View().data(), nullptr, nullptr, -1, 0);
  return 0;
}
