// Texts on the terminal, which is UTF-8.
#pragma once

#include <string>

namespace demo {

/// A Shift_JIS text in UTF-8.
[[nodiscard]] std::string Utf8(const std::string& sjis);
/// Prints a Shift_JIS text and a line end, at once.
void PrintLine(const std::string& sjis);
/// The same to the error output.
void PrintError(const std::string& sjis);

}  // namespace demo
