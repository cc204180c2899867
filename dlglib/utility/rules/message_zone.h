// Where a dialog's message zone lies: one line of text below its controls. Lengths are pixels.
#pragma once

#include "dlglib/base/geometry.h"

namespace message_zone {

using geometry::Point;

/// Left upper corner of the text, for a font of that height and a client area that ends at `clientBottom`.
[[nodiscard]] Point TextOrigin(int fontHeight, int clientBottom) noexcept;

/// By how much a dialog grows to make room for the zone.
[[nodiscard]] int Growth(int fontHeight) noexcept;

}  // namespace message_zone
