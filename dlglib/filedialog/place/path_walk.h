// The places that a path leads through. Paths are Shift_JIS with "\" as separator.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/place/place.h"

namespace filedialog {

/// Whether the place's path is the folder or one of its parents. The network holds whatever begins as it does.
[[nodiscard]] bool Holds(const Place& place, std::string_view folder);

/// The places from a fixed place that holds the folder down to it, one for each component. "." and ".." are worked out;
/// ".." leads neither out of the place nor, in the network, out of a share.
[[nodiscard]] std::vector<Place> TrailBelow(const Place& fixed, std::string_view folder);

/// Extends the trail below a fixed place of that level down to a folder that its last place holds. False, and the trail
/// stays, for a folder with ".." in its path.
[[nodiscard]] bool ExtendTrail(std::string_view folder, int fixedLevel, std::vector<Place>* trail);

/// The place as the `step`-th one (from 1) below a fixed place of that level.
[[nodiscard]] Place Stepped(Place place, int fixedLevel, std::size_t step);

}  // namespace filedialog
