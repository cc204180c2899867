// The icons of places and entries, ready for drawing.
#pragma once

#include "dlglib/filedialog/window/browser_images.h"
#include "platform/framework/controls.h"

namespace filedialog {

/// The icon of a kind in 16 x 16 pixels. Shared: it belongs to the system and is never destroyed.
[[nodiscard]] HICON SmallIcon(EntryKind kind);

/// A square image list of that many pixels a side, in which a kind's icon lies at its ImageOf. Throws
/// CResourceException when an icon is missing.
[[nodiscard]] UniqueImageList MakeImageList(int side);

/// The sort marks of the list's header: image 0 for ascending, 1 for descending order. Throws CResourceException when
/// one is missing.
[[nodiscard]] UniqueImageList MakeSortMarks();

}  // namespace filedialog
