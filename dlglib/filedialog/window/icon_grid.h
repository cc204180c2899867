// Going from icon to icon with the arrow keys. Icons lie side by side in lines; only the last line may be short.
#pragma once

#include <optional>

#include "dlglib/base/geometry.h"

namespace filedialog {

/// How icons lie, in pixels of any origin.
struct IconGrid {
  int count = 0;
  int perLine = 0;         ///< icons of a full line
  geometry::Point first;   ///< the first icon
  geometry::Size spacing;  ///< from an icon to the next one, and to the one below; 0 where there is none
};

enum class IconStep { Left, Right, Up, Down };

/// The step of an arrow key, as in virtual_keys.h; none of any other key.
[[nodiscard]] std::optional<IconStep> IconStepOf(int key);

/// The icon that a step leads to from the one that is nearest to a point; -1 where the step leads out of the icons.
/// Left and right stay in the line. Down from above a gap in the last line leads to the last icon.
[[nodiscard]] int NextIcon(const IconGrid& grid, geometry::Point from, IconStep step);

}  // namespace filedialog
