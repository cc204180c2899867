// The icons of places and entries, ready for drawing.
#pragma once

#include <array>

#include "dlglib/base/scale.h"
#include "dlglib/filedialog/window/browser_images.h"
#include "platform/framework/controls.h"

namespace filedialog {

/// Sides of icons at 96 dpi.
inline constexpr int kSmallIconSide = 16;
inline constexpr int kLargeIconSide = 32;

/// The small icons of one scale.
class SmallIcons {
 public:
  explicit SmallIcons(scale::Scale scale = {});

  /// Pixels a side.
  [[nodiscard]] int Side() const noexcept { return side_; }
  /// Belongs to this object. Null when it cannot be had.
  [[nodiscard]] HICON Of(EntryKind kind);

 private:
  int side_;
  std::array<UniqueIcon, kImageCount> icons_;
};

/// A square image list in which a kind's icon lies at its ImageOf. `side`: of the icons at 96 dpi. Throws
/// CResourceException when an icon is missing.
[[nodiscard]] UniqueImageList MakeImageList(int side, scale::Scale scale = {});

/// The sort marks of the list's header: image 0 for ascending, 1 for descending order. Throws CResourceException when
/// one is missing.
[[nodiscard]] UniqueImageList MakeSortMarks(scale::Scale scale = {});

}  // namespace filedialog
