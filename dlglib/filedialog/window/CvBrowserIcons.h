// The icons of places and entries, ready for drawing.
#pragma once

#include "platform/framework/controls.h"

namespace filedialog {

/// The icon of an image number in 16 x 16 pixels. Shared: it belongs to the system and is never destroyed.
[[nodiscard]] HICON SmallIcon(int image);

/// A square image list of that many pixels a side whose index is the image number. Throws CResourceException when an
/// icon is missing.
[[nodiscard]] UniqueImageList MakeImageList(int side);

/// The sort marks of the list's header: image 0 for ascending, 1 for descending order. Throws CResourceException when
/// one is missing.
[[nodiscard]] UniqueImageList MakeSortMarks();

}  // namespace filedialog
