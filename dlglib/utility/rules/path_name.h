// Path names in the suite's form and in the platform's.
//
// An internal path name is EUC-JP with "/" between its parts, a real path name Shift_JIS with "\". A bare name stands
// for the file of that name in the folder of a file kind, which the suite knows by the kind's keyword.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "dlglib/base/encoded_text.h"

namespace path_name {

/// Longest path name in either form, in bytes.
inline constexpr std::size_t kMaxLength = 512;
inline constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// Byte position of the file-name part: behind the last "/" or "\" byte, 0 when there is none. Bytes are searched one
/// by one: in Shift_JIS a two-byte character that ends in the byte of "\" counts as a separator, and callers rely on
/// that.
[[nodiscard]] std::size_t FileNamePos(std::string_view path) noexcept;

/// Byte position of the last single-byte character below 0x80 equal to `byte`; kNone when there is none.
[[nodiscard]] std::size_t LastByte(SjisView text, int byte) noexcept;

/// The folder part of a real path: what stands before its last "\", or the whole path without one.
[[nodiscard]] SjisView FolderOf(SjisView realPath) noexcept;

// The path, which may be a bare name, in the other form, resolved in the folder of the kind. The file-name part keeps
// the typed spelling. What cannot be resolved within kMaxLength bytes is converted as it stands. The result has at most
// kMaxLength bytes and splits no character.

/// The real path of a path in either encoding, in the likelier of its readings (path_encoding).
[[nodiscard]] SjisText Real(EucView keyword, std::string_view path);
/// All real paths that such a path may stand for, that one in front: one or two.
[[nodiscard]] std::vector<SjisText> RealPaths(EucView keyword, std::string_view path);
/// The real path of a path that is known to be Shift_JIS. One that is not, but is EUC-JP, is taken for that.
[[nodiscard]] SjisText RealOfSjis(EucView keyword, SjisView path);
/// The internal path of a real one: valid Shift_JIS is Shift_JIS.
[[nodiscard]] EucText Internal(EucView keyword, SjisView path);

}  // namespace path_name
