#include "dlglib/listcontrol/grid_text.h"

#include <algorithm>

#include "dlglib/base/shift_jis.h"

namespace grid {

int ClampTextLimit(int limit) noexcept { return std::clamp(limit, kMinTextLimit, kMaxTextLimit); }

void CopyText(char* out, const char* text, int limit) noexcept {
  if (out == nullptr) return;
  *out = '\0';
  if (text == nullptr) return;
  int at = 0;
  do {
    const char byte = text[at];
    if (byte == '\0') return;
    const bool pair = shift_jis::IsLead(byte);
    if (pair && (at + 1 >= limit || text[at + 1] == '\0')) return;
    *out++ = byte;
    if (pair) *out++ = text[at + 1];
    *out = '\0';
    at += pair ? 2 : 1;
  } while (at < limit);
}

std::string ValuePart(std::string_view entry, int separator) {
  const char end = static_cast<char>(separator);
  const std::size_t first = std::min(entry.find_first_not_of(end), entry.size());
  return std::string(entry.substr(first, std::min(entry.find(end, first), entry.size()) - first));
}

}  // namespace grid
