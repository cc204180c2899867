// Drawing and measuring Shift_JIS texts with the font that is selected, whatever the system's own code page is.
#pragma once

#include <string>
#include <string_view>

#include "platform/framework/detail/wide_text.h"

namespace framework {

/// As the system's call of the same name.
inline int DrawSjis(HDC dc, std::string_view sjis, RECT* place, UINT format) {
  const std::wstring text = ToWide(sjis);
  return ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), place, format);
}

inline void TextOutSjis(HDC dc, int x, int y, std::string_view sjis) {
  const std::wstring text = ToWide(sjis);
  ::TextOutW(dc, x, y, text.c_str(), static_cast<int>(text.size()));
}

/// Pixels.
[[nodiscard]] inline SIZE ExtentOf(HDC dc, std::string_view sjis) {
  const std::wstring text = ToWide(sjis);
  SIZE size{};
  ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
  return size;
}

}  // namespace framework
