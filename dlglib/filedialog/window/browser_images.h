// Which icon stands for a place or an entry.
#pragma once

namespace filedialog {

/// Images in each of the list's image lists: one for every number of a place or an entry.
inline constexpr int kImageCount = 20;

/// The icon resource of an image number; that of a plain file for a number without an icon of its own.
[[nodiscard]] int IconOfImage(int image);

}  // namespace filedialog
