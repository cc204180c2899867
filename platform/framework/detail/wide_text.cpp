#include "platform/framework/detail/wide_text.h"

#include <algorithm>

#include "platform/os/sjis_bytes.h"
#include "platform/os/sjis_wide.h"

namespace framework {

std::wstring ToWide(std::string_view sjis) { return os::WideOf(sjis); }

std::string ToShiftJis(std::wstring_view wide) { return os::SjisOf(wide, os::kNoNameCharacter).bytes; }

std::wstring WideTextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  const int units = ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(units));
  return text;
}

std::size_t CopySjis(std::string_view sjis, char* buffer, std::size_t size) noexcept {
  if (buffer == nullptr || size == 0) return 0;
  std::size_t copied = 0;
  while (copied < sjis.size()) {
    const std::size_t length = os::SjisLength(sjis, copied);
    if (copied + length >= size) break;
    copied += length;
  }
  std::copy_n(sjis.data(), copied, buffer);
  buffer[copied] = '\0';
  return copied;
}

}  // namespace framework
