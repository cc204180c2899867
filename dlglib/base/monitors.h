// The monitors that windows stand on, as rectangles of one screen.
#pragma once

#include <vector>

#include "dlglib/base/geometry.h"

namespace monitors {

using geometry::Rect;
using geometry::Size;

/// What there is to stand on. The primary monitor begins at 0, 0; without `monitors` it is the only one.
struct Screens {
  Size primary;
  std::vector<Rect> monitors;
};

/// The first monitor that has the most of a window; null when none has any of it.
[[nodiscard]] const Rect* Under(const Rect& window, const std::vector<Rect>& monitors);

/// A rectangle moved by the least distance that brings it onto the monitor which has the most of `owner`; one that is
/// larger begins at the monitor's left and upper side. It stays where there are less than two monitors, or none has any
/// of the owner.
[[nodiscard]] Rect BroughtTo(const Rect& owner, const Rect& rect, const std::vector<Rect>& monitors);

/// Where a list drops down from a box. `list` as the system has placed it stays where it lies on the monitor that has
/// the most of the box, or where there are less than two monitors, or none has any of the box. Otherwise it comes to
/// lie on that monitor: below the box, above it where there is no room below, and as near to that as can be where there
/// is none above either.
[[nodiscard]] Rect DroppedFrom(const Rect& box, const Rect& list, const std::vector<Rect>& monitors);

}  // namespace monitors
