// Numbers as the registry stores them: the lowest byte first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace little_endian {

/// The lowest `size` bytes of a number.
[[nodiscard]] inline std::string Encode(std::uint32_t number, std::size_t size) {
  std::string bytes(size, '\0');
  for (char& byte : bytes) {
    byte = static_cast<char>(static_cast<unsigned char>(number & 0xFFU));
    number >>= 8;
  }
  return bytes;
}

/// The number of up to four bytes; of more, the upper ones are lost.
[[nodiscard]] inline std::uint32_t Decode(std::string_view bytes) noexcept {
  std::uint32_t number = 0;
  for (std::size_t i = bytes.size(); i > 0; --i) number = number << 8 | static_cast<unsigned char>(bytes[i - 1]);
  return number;
}

}  // namespace little_endian
