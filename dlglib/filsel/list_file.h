// The file into which a request for several files writes the chosen names.
#pragma once

#include <vector>

#include "dlglib/base/encoded_text.h"
#include "platform/os/os.h"

namespace filsel {

/// Writes the names (internal form), one in a line, to a file that is made anew. The file is text, so a line ends as
/// the platform's text files do. False when the file cannot be made or written: then the file from before is there, or
/// none. Meanwhile a former file lies beside its place with "~" and a number behind its name. `path`: real form.
[[nodiscard]] bool WriteListFile(os::Files& files, const SjisText& path, const std::vector<EucText>& names);

/// What the user is told when that fails.
[[nodiscard]] SjisText CannotOpenText(const SjisText& path);

}  // namespace filsel
