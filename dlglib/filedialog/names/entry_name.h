// What a file or folder may be called.
#pragma once

#include <cstddef>
#include <string_view>

namespace filedialog {

/// Longest name that a dialog takes for an entry, in characters.
inline constexpr std::size_t kNewNameLimit = 128;

/// Why a name cannot be given to an entry.
enum class NameFlaw {
  None,
  Empty,
  InvalidCharacter,  ///< \ / : * ? " < > |, a control character, or half a two-byte character
  Ending,            ///< a dot or a blank at the end, which the platform would drop without a word
  Device,            ///< a device's name, with or without an extension: the platform would open the device
  TooLong,           ///< more than kNewNameLimit characters
};

/// The first flaw of a name (Shift_JIS, any bytes). A name without one can still be refused by the platform.
[[nodiscard]] NameFlaw FlawOfName(std::string_view name);

}  // namespace filedialog
