// Texts that a window shows and gives back. A window holds them in wide form, from which not every code comes back: 398
// codes of the screen's encoding share their character with another code, and bytes that are no character become one.
// So what has stayed in the window is not converted back but keeps the bytes that it came from.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace shown_text {

/// The system's conversion between Shift_JIS and the wide form. It must not fail: what it does not know becomes some
/// other character.
struct Conversion {
  std::function<std::wstring(std::string_view)> toWide;
  std::function<std::string(std::wstring_view)> toBytes;
};

/// The bytes of `shown`, which a window shows now and which was made from `former` (Shift_JIS): those of `former` when
/// nothing has changed; else the characters at the start and at the end that are still the same keep theirs, and only
/// what stands between them is converted.
[[nodiscard]] std::string BytesOf(std::string_view former, std::wstring_view shown, const Conversion& conversion);

/// `text` with `inserted` (both Shift_JIS) in place of a part, which is given in units of what a window shows of it.
struct Part {
  std::size_t start = 0;
  std::size_t end = 0;
};
[[nodiscard]] std::string Replace(std::string_view text, Part part, std::string_view inserted,
                                  const Conversion& conversion);

}  // namespace shown_text
