// Shift_JIS (code page 932, named explicitly) and the UTF-16 of the system. The one place where texts change between
// the two: what the process's own code page is never matters.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace os {

inline constexpr UINT kShiftJis = 932;

/// What stands for a character that Shift_JIS lacks in a text that is shown or told. Never in a name: it would be a
/// pattern there.
inline constexpr char kUnknown = '?';
/// The same in what may be a name: no name and no pattern holds it, so every check refuses the text.
inline constexpr char kNoNameCharacter = '|';

/// No text here reaches the range of int; one that did would be cut.
[[nodiscard]] inline int TextSize(std::size_t size) noexcept {
  return static_cast<int>(std::min<std::size_t>(size, std::numeric_limits<int>::max()));
}

/// The text in UTF-16; nothing fails. Bytes that are no character become the character that the system's own windows
/// make of them.
[[nodiscard]] inline std::wstring WideOf(std::string_view sjis) {
  std::wstring wide(sjis.size(), L'\0');  // never more units than bytes
  const int units =
      ::MultiByteToWideChar(kShiftJis, 0, sjis.data(), TextSize(sjis.size()), wide.data(), TextSize(wide.size()));
  wide.resize(static_cast<std::size_t>(std::max(units, 0)));
  return wide;
}

/// The same into room that the caller has; returns the units. Nothing is written when there is not enough.
[[nodiscard]] inline int CopyWide(std::string_view sjis, std::span<wchar_t> room) noexcept {
  return ::MultiByteToWideChar(kShiftJis, 0, sjis.data(), TextSize(sjis.size()), room.data(), TextSize(room.size()));
}

/// The same; none when the bytes are not Shift_JIS.
[[nodiscard]] inline std::optional<std::wstring> ExactWideOf(std::string_view sjis) {
  if (sjis.empty()) return std::wstring();
  std::wstring wide(sjis.size(), L'\0');
  const int units = ::MultiByteToWideChar(kShiftJis, MB_ERR_INVALID_CHARS, sjis.data(), TextSize(sjis.size()),
                                          wide.data(), TextSize(wide.size()));
  if (units <= 0) return std::nullopt;
  wide.resize(static_cast<std::size_t>(units));
  return wide;
}

/// A text in Shift_JIS, and whether it is the whole of the text.
struct NarrowText {
  std::string bytes;
  bool exact = true;  ///< no character had to be replaced; look-alikes do not count as the character
};

/// The text in Shift_JIS, `standIn` for what it lacks.
[[nodiscard]] inline NarrowText SjisOf(std::wstring_view wide, char standIn) {
  constexpr std::size_t kMostBytes = 2;  // for a unit
  if (wide.empty()) return {};
  const char text[] = {standIn, '\0'};
  std::string bytes(kMostBytes * wide.size(), '\0');
  BOOL replaced = FALSE;
  const int size = ::WideCharToMultiByte(kShiftJis, WC_NO_BEST_FIT_CHARS, wide.data(), TextSize(wide.size()),
                                         bytes.data(), TextSize(bytes.size()), text, &replaced);
  bytes.resize(static_cast<std::size_t>(std::max(size, 0)));
  return {std::move(bytes), size > 0 && replaced == FALSE};
}

}  // namespace os
