// The conversions behind CwEucEncoder on plain memory; the mapping and the treatment of bad bytes are described there.
//
// They neither allocate nor throw, and any thread may call them.
#pragma once

#include <cstddef>
#include <string_view>

namespace suite {

/// How far a conversion came, in bytes. Both ends lie between characters.
struct Converted {
  std::size_t read = 0;
  std::size_t written = 0;
  bool clean = true;  ///< no "?" stands for something that could not be converted
};

/// Converts as many whole characters as fit into `capacity` bytes at `out`, which must not overlap the text. A capacity
/// of the text's own length is always enough for EucToSjis, twice the length for SjisToEuc.
Converted EucToSjis(std::string_view euc, char* out, std::size_t capacity) noexcept;
Converted SjisToEuc(std::string_view sjis, char* out, std::size_t capacity) noexcept;

/// The same without the instructions that only some processors have, for comparison.
Converted EucToSjisOnAnyProcessor(std::string_view euc, char* out, std::size_t capacity) noexcept;
Converted SjisToEucOnAnyProcessor(std::string_view sjis, char* out, std::size_t capacity) noexcept;

/// Whether the text consists of characters that Shift_JIS defines and EUC-JP has too.
[[nodiscard]] bool IsValidSjis(std::string_view sjis) noexcept;

}  // namespace suite
