// Which icon stands for a place or an entry.
#pragma once

#include "dlglib/filedialog/basics/entry_kind.h"

namespace filedialog {

/// Images in each of the list's image lists: one for every kind, and one that stands for nothing.
inline constexpr int kImageCount = 20;

/// Where the image of a kind lies in an image list.
[[nodiscard]] constexpr int ImageOf(EntryKind kind) { return NumberOf(kind); }

/// The icon resource of an image; that of a plain file for a number that no kind has.
[[nodiscard]] int IconOfImage(int image);

}  // namespace filedialog
