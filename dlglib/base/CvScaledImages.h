// Images for a scale. An image that cannot be had for it is that for 96 dpi.
//
// With high contrast an image has an outline in the colour of texts, as its own edges may be as dark as the ground: ask
// for it anew when the user has chosen other colours.
#pragma once

#include "dlglib/base/scale.h"
#include "platform/framework/gdi.h"

namespace scaled_images {

/// An icon by its number in resource.h, `side` pixels a side as IconSide answers it. Null when there is none at all.
[[nodiscard]] UniqueIcon LoadIconOf(int icon, int side);

/// A bitmap by its number in resource.h, with the user's dialog colours. Null when there is none at all.
[[nodiscard]] UniqueBitmap LoadBitmapOf(int bitmap, scale::Scale scale);

}  // namespace scaled_images
