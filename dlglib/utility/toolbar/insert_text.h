// The texts that the dialog's toolbar inserts, as the screen takes them: metacharacters and line breaks as
// escapes ("<mc>1", "<cr>"), so that they are stored again as what they are. No escape and no character is cut in half.
// Empty when there is nothing to insert.
#pragma once

#include <cstddef>

#include "dlglib/base/encoded_text.h"

class CwRegisterSet;

namespace insert_text {

/// Longest inserted text, in bytes.
inline constexpr std::size_t kLimit = 1023;

/// A text of the text library up to its first terminator, or all of it when it has none.
[[nodiscard]] SjisText OfLibraryText(EucView text);

/// The value of the register with that code, which counts 1000 for each group and then the index from 0 on. A
/// number is written with up to ten digits. Empty for a code below 1, for a register that is missing or empty.
[[nodiscard]] SjisText OfRegister(const CwRegisterSet& registers, int code);

}  // namespace insert_text
