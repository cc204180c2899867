// The ways between the two encodings, all of them the suite's: what becomes of a character that the other encoding
// lacks, and of bytes that are no character, stands with CwEucEncoder. Any thread may call them.
#pragma once

#include <cstddef>
#include <limits>
#include <string>

#include "dlglib/base/encoded_text.h"

namespace encoder {

/// No limit: half-width katakana makes a text longer in EUC-JP, and a limit would cut paths that are allowed.
inline constexpr std::size_t kWholeText = std::numeric_limits<std::size_t>::max();

/// As many whole characters as fit into `limit` bytes of the result.
[[nodiscard]] SjisText ToSjis(const EucText& euc, std::size_t limit = kWholeText);
/// Puts a short text behind another one: a name behind its folder, for each file of a folder.
void AppendSjis(EucView euc, std::string* sjis);
/// As ToSjis; a text that is no Shift_JIS but is EUC-JP stays as it is.
[[nodiscard]] EucText ToEuc(const SjisText& sjis, std::size_t limit = kWholeText);

/// An internal path ("/" between its parts) as a real one ("\"), and back, within `limit` bytes.
[[nodiscard]] SjisText ToRealPath(const EucText& internal, std::size_t limit = kWholeText);
[[nodiscard]] EucText ToInternalPath(const SjisText& real, std::size_t limit = kWholeText);

}  // namespace encoder
