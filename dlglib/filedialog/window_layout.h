// Where the browser's window and its controls stand.
#pragma once

#include <optional>
#include <vector>

#include "dlglib/utility/geometry.h"

namespace filedialog {

using geometry::Point;
using geometry::Rect;
using geometry::Size;

/// How a control follows when the dialog grows by (dw, dh).
enum class Anchor {
  TopLeft,      ///< stays
  TopRight,     ///< moves right
  BottomLeft,   ///< moves down
  BottomRight,  ///< moves right and down
  TopWide,      ///< grows to the right
  BottomWide,   ///< grows to the right, moves down
  All,          ///< grows to the right and down
};

/// How a control of the browser follows, by its number; none for a number that is not one of its controls.
[[nodiscard]] std::optional<Anchor> AnchorOf(int controlId);

/// A rectangle after the dialog's client area has grown by `growth` (negative: shrunk) since it stood at `start`.
/// A side never becomes shorter than nothing.
[[nodiscard]] Rect Anchored(const Rect& start, Anchor anchor, Size growth);

/// The rectangles, first to last, of a row of images whose last one ends at `right`; each other one ends `gap` pixels
/// left of the next.
[[nodiscard]] std::vector<Rect> RowEndingAt(int right, int top, const std::vector<Size>& images, int gap);

/// The window's rectangle on a screen: each side the larger of the current and the saved one, at most the screen's. A
/// saved position of 0, 0 centres the window, any other is taken exactly, on the screen or not, as far as the right and
/// bottom sides can still be told.
[[nodiscard]] Rect PlaceWindow(Size current, Point savedPosition, Size savedSize, Size screen);

}  // namespace filedialog
