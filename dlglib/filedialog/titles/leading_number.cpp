#include "dlglib/filedialog/titles/leading_number.h"

#include <algorithm>
#include <limits>

namespace filedialog {

namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

}  // namespace

int LeadingNumber(std::string_view text) {
  constexpr long long kBase = 10;
  constexpr long long kBeyond = static_cast<long long>(std::numeric_limits<int>::max()) + 1;
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  long long value = 0;
  for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1)) {
    value = std::min(value * kBase + (text.front() - '0'), kBeyond);
  }
  return static_cast<int>(negative ? -value : std::min(value, kBeyond - 1));
}

}  // namespace filedialog
