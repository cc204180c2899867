// A length that follows the scale of its screen. It is worked out from what it was at first each time, so a screen of
// another scale and back gives the first length again, whatever lay between: a length that was made of the one before
// would be rounded each time.
#pragma once

#include "dlglib/base/geometry.h"
#include "dlglib/base/scale.h"

namespace scale {

class KeptLength {
 public:
  /// What `length` on a screen of the scale `before` becomes on one of `now`. A length that is not what was answered
  /// last has been given by somebody else, and is a first one.
  [[nodiscard]] int Follow(int length, Scale before, Scale now) noexcept;

 private:
  int first_ = 0;
  Scale firstScale_;
  int last_ = 0;
};

/// The same for the sides of a rectangle, each by itself.
class KeptRect {
 public:
  [[nodiscard]] geometry::Rect Follow(const geometry::Rect& rect, Scale before, Scale now) noexcept;

 private:
  KeptLength left_;
  KeptLength top_;
  KeptLength right_;
  KeptLength bottom_;
};

}  // namespace scale
