#include "dlglib/base/kept_length.h"

namespace scale {

int KeptLength::Follow(int length, Scale before, Scale now) noexcept {
  if (length != last_) {
    first_ = length;
    firstScale_ = before;
  }
  last_ = Rescaled(first_, firstScale_, now);
  return last_;
}

geometry::Rect KeptRect::Follow(const geometry::Rect& rect, Scale before, Scale now) noexcept {
  return {left_.Follow(rect.left, before, now), top_.Follow(rect.top, before, now),
          right_.Follow(rect.right, before, now), bottom_.Follow(rect.bottom, before, now)};
}

}  // namespace scale
