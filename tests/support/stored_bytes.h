// The functions of stored_text on bytes, for callers that say themselves which encoding they give.
#pragma once

#include <string>
#include <string_view>

#include "dlglib/base/stored_text.h"

namespace stored_bytes {

[[nodiscard]] inline std::string Escape(std::string_view euc) { return stored_text::Escape(EucView(euc)).bytes(); }
[[nodiscard]] inline std::string Unescape(std::string_view euc) { return stored_text::Unescape(EucView(euc)).bytes(); }
[[nodiscard]] inline std::string ToScreen(std::string_view euc, std::size_t limit) {
  return stored_text::ToScreen(EucView(euc), limit).bytes();
}
[[nodiscard]] inline std::string ToScreenInWholeEscapes(std::string_view euc, std::size_t limit) {
  return stored_text::ToScreenInWholeEscapes(EucView(euc), limit).bytes();
}
[[nodiscard]] inline std::string ToStored(std::string_view sjis, std::size_t limit) {
  return stored_text::ToStored(SjisView(sjis), limit).bytes();
}

}  // namespace stored_bytes
