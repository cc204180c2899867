// Which image resource serves a scale. The images of the first drawing (icons of 16 and 32 pixels, bitmaps for 96 dpi)
// have the numbers of resource.h; each icon has a second resource with images of all sides, and each bitmap one for
// each further scale. All are drawn for their size; none is ever enlarged.
#pragma once

#include "dlglib/base/scale.h"

namespace scaled_images {

/// The largest side that icons are drawn in and that is no longer than `wanted` pixels; 16 when it is shorter.
[[nodiscard]] int IconSide(int wanted) noexcept;

/// The resource that has an icon of that side (as IconSide answers it). `icon`: its number in resource.h.
[[nodiscard]] int IconResource(int icon, int side) noexcept;

/// The resource of a bitmap for the largest scale that it is drawn for and that is not above `scale`.
[[nodiscard]] int BitmapResource(int bitmap, scale::Scale scale) noexcept;

}  // namespace scaled_images
