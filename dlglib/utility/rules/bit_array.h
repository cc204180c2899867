// Flags kept as bits of 16-bit words: bit 1 is the most significant bit of word 0, bit 17 that of word 1, and so on.
#pragma once

#include <cstdint>

namespace bit_array {

inline constexpr int kClear = 0;
inline constexpr int kSet = 1;

/// Clears or sets the bit and answers -1; any other operation answers the bit's value, 0 or 1, and changes nothing. A
/// bit number below 1 and null words answer -1. `words` must reach up to the bit.
int BitSet(int operation, int bit, std::int16_t* words) noexcept;

}  // namespace bit_array
