// File kind keywords: a "#", a name and a "#".
#pragma once

#include <string_view>

#include "dlglib/base/encoded_text.h"

namespace keyword_class {

/// The title class of a kind by its whole keyword, in its own letters: 1 models, 2 to 8 kinds whose files carry one
/// title, 0 for any other text.
[[nodiscard]] int ClassOf(std::string_view keyword) noexcept;

/// Whether the session displays model titles beside files.
enum class TitleDisplay { Off, On };

/// The same for a caller who gives models a class only while their titles are displayed.
[[nodiscard]] int ClassOf(std::string_view keyword, TitleDisplay display) noexcept;

/// The keyword within the first 16 bytes of a text: from its first "#" to the next one, or to the end of those bytes.
/// Empty when there is no "#".
[[nodiscard]] std::string_view Extract(std::string_view text) noexcept;

/// The root of the drive that a kind's folder names: the byte before its first ":", then ":/". "A:/" when there is
/// none. `folder` may be empty.
[[nodiscard]] EucText FloppyRoot(EucView folder);

}  // namespace keyword_class
