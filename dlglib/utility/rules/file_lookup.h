// Which of the real paths that a name may stand for is meant: the disk decides.
#pragma once

#include <vector>

#include "dlglib/base/encoded_text.h"
#include "platform/os/os.h"

namespace file_lookup {

/// The first of the paths at which a file or folder is; without one the first of them. `paths` holds one at least; a
/// single one is not looked for.
[[nodiscard]] SjisText ChooseExisting(const std::vector<SjisText>& paths, os::Files& files);

/// What is at the place of a file that is to be written.
enum class Place { Taken, Free, NoFolder };

struct Output {
  SjisText path;
  Place place = Place::NoFolder;
};

/// The first of the paths at which a file or folder is; without one the first whose folder is there; else the first. A
/// path without a "\" is its own folder. `paths` holds one at least.
[[nodiscard]] Output ChooseOutput(const std::vector<SjisText>& paths, os::Files& files);

}  // namespace file_lookup
