#include "dlglib/utility/rules/bit_array.h"

namespace bit_array {

int BitSet(int operation, int bit, std::int16_t* words) noexcept {
  if (bit < 1 || words == nullptr) return -1;
  constexpr int kWordBits = 16;
  std::int16_t& word = words[(bit - 1) / kWordBits];
  const auto bits = static_cast<std::uint16_t>(word);
  const auto mask = static_cast<std::uint16_t>(1U << (kWordBits - 1 - (bit - 1) % kWordBits));
  if (operation == kClear) {
    word = static_cast<std::int16_t>(bits & ~mask);
  } else if (operation == kSet) {
    word = static_cast<std::int16_t>(bits | mask);
  } else {
    return (bits & mask) != 0 ? 1 : 0;
  }
  return -1;
}

}  // namespace bit_array
