// Thirty-two bytes of text at a time, where the processor has AVX2.
//
// The processor is asked when the program runs, so one DLL is right for all of them. Nothing of this is compiled into
// other sources: an instruction that a processor lacks ends the program.
#pragma once

#include <cstddef>

#include "platform/suite/euc_blocks.h"

namespace suite::wide_blocks {

/// Shorter texts take longer so than by the other blocks.
inline constexpr std::size_t kShortestText = 96;

/// Whether the two below may be called.
[[nodiscard]] bool AreThere() noexcept;

/// Convert a start of the text: whole characters, as far as whole blocks go.
blocks::Progress ConvertToSjis(const unsigned char* in, std::size_t inSize, char* out, std::size_t capacity) noexcept;
blocks::Progress ConvertToEuc(const unsigned char* in, std::size_t inSize, char* out, std::size_t capacity) noexcept;

}  // namespace suite::wide_blocks
