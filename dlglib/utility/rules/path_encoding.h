// Which encoding a path is in when nothing says so: programs of the suite give the toolbox internal names, which are
// EUC-JP, and real ones, which are Shift_JIS.
//
// A path that is well-formed EUC-JP is EUC-JP, unless all its characters other than ASCII are double-byte Shift_JIS.
// Nearly every name in EUC-JP is a row of half-width katakana in Shift_JIS, and nobody means that. So half-width
// katakana in Shift_JIS is taken for EUC-JP where its bytes happen to form pairs; what may be meant as well is given
// beside it. Well-formed is a text in which each code of two bytes is a character: one that is none would be lost.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "dlglib/base/encoded_text.h"

namespace path_encoding {

/// What a path says.
struct Readings {
  EucText likely;
  std::optional<EucText> other;  ///< in the other encoding, where the path makes a different text in that
};

/// Reads a path as whole characters of at most `limit` bytes in EUC-JP. One that is in neither encoding is taken for
/// Shift_JIS with bad bytes.
[[nodiscard]] Readings Read(std::string_view path, std::size_t limit);

}  // namespace path_encoding
