// Texts in their stored form (EUC-JP) and on the screen (Shift_JIS), with the escapes that an edit control can show.
//
// Stored, a metacharacter is 0x8D and a code byte: the ASCII code of its character plus 0x80, but 0xD9 for "," and 0xDA
// for ";". On the screen it is "<mc>" and the character. A line break is stored as 0x0D and shown as "<cr>".
#pragma once

#include <cstddef>

#include "dlglib/base/encoded_text.h"

namespace stored_text {

inline constexpr std::size_t kEscapedLimit = 16383;  ///< bytes of an escaped text that are converted
inline constexpr std::size_t kStoredLimit = 8191;    ///< bytes of a stored text, escapes not yet replaced

/// Writes metacharacters and line breaks of a stored text as escapes; 0x0D and 0x0A each become "<cr>". Stays EUC-JP.
/// The result ends before the first character that would make it longer than kEscapedLimit; half a character at the end
/// is dropped. Three-byte characters pass whole, so that nothing behind them is taken for their second half.
[[nodiscard]] EucText Escape(EucView euc);

/// Replaces the escapes of an EUC-JP text by what they stand for. "<mc>" in front of anything but an ASCII character,
/// or at the end, is text.
[[nodiscard]] EucText Unescape(EucView euc);

/// Copies at most `capacity` - 1 bytes of an EUC-JP text into `out` without splitting a character and closes it with a
/// terminator. A capacity of 0 or a null `out` copies nothing. Returns the number of bytes copied.
std::size_t CopyBounded(char* out, std::size_t capacity, EucView euc) noexcept;

/// Stored form to screen form, at most `limit` bytes of whole characters.
[[nodiscard]] SjisText ToScreen(EucView euc, std::size_t limit);

/// The same without half an escape at the end: one that does not fit whole is left out. For texts that are stored
/// again.
[[nodiscard]] SjisText ToScreenInWholeEscapes(EucView euc, std::size_t limit);

/// Screen form to stored form, cut at `limit` bytes, be it in the middle of a character: callers store the text in
/// fields of fixed size and compare it with what was stored before.
[[nodiscard]] EucText ToStored(SjisView sjis, std::size_t limit);

}  // namespace stored_text
