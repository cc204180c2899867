// The text of an edit box in wide form.
#pragma once

#include <windows.h>

#include <string>

#include "platform/os/sjis_wide.h"

namespace os {

[[nodiscard]] inline std::wstring TextOfEdit(HWND edit) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(edit)) + 1, L'\0');
  const int units = ::GetWindowTextW(edit, text.data(), TextSize(text.size()));
  text.resize(static_cast<std::size_t>(units));
  return text;
}

}  // namespace os
