// File kind keywords: a "#", a name and a "#".
#pragma once

#include <string>
#include <string_view>

namespace keyword_class {

/// The class of a whole keyword, 0 for any other text. `titleDisplay`: whether model titles are displayed beside files.
[[nodiscard]] int ClassOf(std::string_view keyword, bool titleDisplay) noexcept;

/// The keyword within the first 16 bytes of a text: from its first "#" to the next one, or to the end of those bytes.
/// Empty when there is no "#".
[[nodiscard]] std::string_view Extract(std::string_view text) noexcept;

/// How names of the kind are written, as the suite says: 1 in capitals, -1 in small letters, 0 as they are or unknown.
[[nodiscard]] int LetterCaseOf(std::string_view keyword);

/// The root of the drive that a kind's folder names: the byte before its first ":", then ":/". "A:/" when there is
/// none. `folder` is in the suite's form; it may be empty.
[[nodiscard]] std::string FloppyRoot(std::string_view folder);

}  // namespace keyword_class
