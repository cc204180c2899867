// Where the browser starts: the nearest folder that is there.
#pragma once

#include <string>
#include <string_view>

#include "dlglib/filedialog/place/location_tree.h"

namespace filedialog {

/// Whether a path (Shift_JIS) is that of a folder which exists.
[[nodiscard]] bool IsFolder(os::Files& files, const std::string& path);

/// The location that the browser starts in: `folder` (Shift_JIS real path), or the nearest folder above it that exists;
/// a file stands for its folder. Where one does not answer, the deepest one above it is taken that does, asked for from
/// the drive down, and the computer where not even that does. The first drive when the folder names no drive of the
/// machine. A network folder is taken as it is: climbing it could wait for a computer that does not answer. What passes
/// kPathLimit does not exist.
[[nodiscard]] Location StartLocation(os::Files& files, const LocationTree& places, std::string_view folder);

}  // namespace filedialog
