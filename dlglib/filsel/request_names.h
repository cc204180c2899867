// The names of a file selection request: what its keyword stands for, and its two spellings of a path.
//
// An internal name is EUC-JP with "/" between its parts, a real name Shift_JIS with "\". What a file kind is (folder,
// pattern) the suite knows by the kind's keyword.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace filsel {

/// Limit of every text of a request, in bytes without the terminator.
inline constexpr std::size_t kTextLimit = 256;

/// The title class of a kind, 0 to 8, by its whole keyword in its own letters; 0 for any other text.
[[nodiscard]] int KindCode(std::string_view keyword) noexcept;

/// An internal name in real form, and back: at most `limit` bytes, no character split. The suite's converters decide
/// what becomes of a text in neither encoding.
[[nodiscard]] std::string ToReal(std::string internalName, std::size_t limit);
[[nodiscard]] std::string ToInternal(const std::string& realName, std::size_t limit);

/// What a full name is wanted for; the suite alone knows what it makes of it.
enum class FullNameUse { Path, ShortName };

/// `name` (internal form, or a bare name) as a full internal name in the folder of the kind, with the kind's extension
/// when it has none. Empty when there is no such name or it is longer than kTextLimit.
[[nodiscard]] std::string FullName(const std::string& keyword, const std::string& name, FullNameUse use);

/// The title field of the browser's start-up record: keyword, "(", the kind's default pattern ("*" without one), ")".
/// The keyword is the suite's (EUC-JP), the title Shift_JIS as all of the record.
[[nodiscard]] std::string FilterTitle(const std::string& keyword);

/// Where the browser starts.
struct StartPlace {
  std::string folder;  ///< real form, without a "\" at its end
  std::string name;    ///< internal form
};

/// Resolves the initial name (internal form) in the folder of the kind and splits it at its last "/". A name that
/// cannot be resolved is taken as it stands; one without "/" stays the name and is the folder as well: callers give a
/// folder that way. A folder without a drive is one of the current drive (that of the process's current folder), one
/// without a root lies in the current folder; no folder at all stays none.
[[nodiscard]] StartPlace DeriveStart(const std::string& keyword, const std::string& initialName);

/// The name (internal form) without what the kind adds by itself: its folder, and its extension. Letter case does not
/// count in either; what is left keeps its own. When folder and name differ as they stand, both are resolved alike:
/// what has no drive is of the current drive, "\" parts like "/", and "." and ".." are worked out. A name that begins
/// at no root is one in the kind's folder and is never resolved.
[[nodiscard]] std::string WithoutDefaults(const std::string& keyword, const std::string& name);

}  // namespace filsel
