// Which of the real paths that a name may stand for is meant: the disk decides. Texts are Shift_JIS.
#pragma once

#include <string>
#include <vector>

#include "platform/os/os.h"

namespace file_lookup {

/// The first of the paths at which a file or folder is; without one the first of them. `paths` holds one at least; a
/// single one is not looked for.
[[nodiscard]] std::string ChooseExisting(const std::vector<std::string>& paths, os::Files& files);

/// What is at the place of a file that is to be written.
enum class Place { Taken, Free, NoFolder };

struct Output {
  std::string path;
  Place place = Place::NoFolder;
};

/// The first of the paths at which a file or folder is; without one the first whose folder is there; else the first. A
/// path without a "\" is its own folder. `paths` holds one at least.
[[nodiscard]] Output ChooseOutput(const std::vector<std::string>& paths, os::Files& files);

}  // namespace file_lookup
