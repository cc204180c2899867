#include "dlglib/base/trailing_blanks.h"

#include <algorithm>

namespace trailing_blanks {

std::size_t TrimmedLength(std::string_view text) noexcept { return text.find_last_not_of(' ') + 1; }

std::size_t TrimmedLengthAfterFirst(std::string_view text) noexcept {
  return std::max(TrimmedLength(text), std::min<std::size_t>(text.size(), 1));
}

void Trim(char* text) noexcept {
  if (text == nullptr) return;
  const std::string_view whole(text);
  std::fill(text + TrimmedLength(whole), text + whole.size(), '\0');
}

}  // namespace trailing_blanks
