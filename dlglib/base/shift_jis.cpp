#include "dlglib/base/shift_jis.h"

#include <algorithm>

namespace shift_jis {

std::size_t FindFirst(std::string_view text, char ascii, std::size_t from) noexcept {
  for (std::size_t at = from; at < text.size(); at += CharLength(text, at)) {
    if (text[at] == ascii) return at;
  }
  return kNone;
}

std::size_t FindLast(std::string_view text, char ascii, std::size_t from) noexcept {
  std::size_t found = kNone;
  for (std::size_t at = from; at < text.size(); at += CharLength(text, at)) {
    if (text[at] == ascii) found = at;
  }
  return found;
}

bool HasWildcard(std::string_view text) noexcept {
  return FindFirst(text, '*') != kNone || FindFirst(text, '?') != kNone;
}

std::string_view Truncate(std::string_view text, std::size_t limit) noexcept {
  // Only a last byte that is not ASCII can be half a character.
  if (text.empty() || (text.size() <= limit && static_cast<unsigned char>(text.back()) < 0x80)) return text;
  std::size_t end = 0;
  while (end < text.size()) {
    const std::size_t length = IsLead(text[end]) ? 2 : 1;
    if (end + length > std::min(limit, text.size())) break;
    end += length;
  }
  return text.substr(0, end);
}

std::string ToUpperBytes(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), ToUpperByte);
  return upper;
}

std::size_t CopyBounded(char* out, std::size_t capacity, std::string_view text) noexcept {
  if (out == nullptr || capacity == 0) return 0;
  const std::string_view fitting = Truncate(text.substr(0, text.find('\0')), capacity - 1);
  // The text may be the one in `out` itself.
  std::char_traits<char>::move(out, fitting.data(), fitting.size());
  out[fitting.size()] = '\0';
  return fitting.size();
}

}  // namespace shift_jis
