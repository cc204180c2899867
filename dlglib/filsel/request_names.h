// The names of a file selection request: what its keyword stands for, and its two spellings of a path.
//
// An internal name is EUC-JP with "/" between its parts, a real name Shift_JIS with "\". What a file kind is (folder,
// pattern) the suite knows by the kind's keyword.
#pragma once

#include <cstddef>

#include "dlglib/base/encoded_text.h"
#include "platform/os/os.h"

namespace filsel {

/// Limit of every text of a request, in bytes without the terminator.
inline constexpr std::size_t kTextLimit = 256;

/// What a full name is wanted for; the suite alone knows what it makes of it.
enum class FullNameUse { Path, ShortName };

/// `name` (internal form, or a bare name) as a full internal name in the folder of the kind, with the kind's extension
/// when it has none. Empty when there is no such name or it is longer than kTextLimit.
[[nodiscard]] EucText FullName(const EucText& keyword, const EucText& name, FullNameUse use);

/// The title field of the browser's start-up record: keyword, "(", the kind's default pattern ("*" without one), ")".
[[nodiscard]] SjisText FilterTitle(const EucText& keyword);

/// Where the browser starts.
struct StartPlace {
  SjisText folder;  ///< real form, without a "\" at its end
  EucText name;     ///< internal form
};

/// Resolves the initial name (internal form) in the folder of the kind and splits it at its last "/". A name that
/// cannot be resolved is taken as it stands; one without "/" stays the name and is the folder as well: callers give a
/// folder that way. A folder without a drive is one of the current drive (that of the process's current folder), one
/// without a root lies in the current folder; no folder at all stays none.
[[nodiscard]] StartPlace DeriveStart(const EucText& keyword, const EucText& initialName, os::Files& files);

/// The name (internal form) without what the kind adds by itself: its folder, and its extension. Letter case does not
/// count in either; what is left keeps its own. When folder and name differ as they stand, both are resolved alike:
/// what has no drive is of the current drive, "\" parts like "/", and "." and ".." are worked out. A name that begins
/// at no root is one in the kind's folder and is never resolved.
[[nodiscard]] EucText WithoutDefaults(const EucText& keyword, const EucText& name, os::Files& files);

}  // namespace filsel
