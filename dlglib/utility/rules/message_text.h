// The suite's numbered messages as the screen shows them.
#pragma once

#include <cstddef>

#include "dlglib/base/encoded_text.h"

namespace message_text {

inline constexpr std::size_t kMaxLength = 256;

/// The text, at most kMaxLength bytes, of a message (number above 0) or an error (below 0, made positive).
/// Empty for 0 and for an unknown number.
[[nodiscard]] SjisText Find(int number);

}  // namespace message_text
