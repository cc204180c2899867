#include "dlglib/utility/toolbar/meta_char_table.h"

namespace meta_char_table {

std::optional<std::string_view> EscapeOf(int row) noexcept {
  if (row < 0 || static_cast<std::size_t>(row) >= kRowCount) return std::nullopt;
  return kRows[static_cast<std::size_t>(row)].substr(0, kEscapeLength);
}

}  // namespace meta_char_table
