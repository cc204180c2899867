// Where the browser's window and its controls stand.
#pragma once

#include <optional>
#include <vector>

#include "dlglib/base/geometry.h"
#include "dlglib/base/monitors.h"

namespace filedialog {

using geometry::Point;
using geometry::Rect;
using geometry::Size;
using monitors::Screens;

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

/// The size of the monitor that has the most of a window; that of the primary one for a window that is on none.
[[nodiscard]] Size ScreenUnder(const Rect& window, const Screens& screens);

/// The window's rectangle on a screen: each side the larger of the current and the saved one, at most the screen's. A
/// saved position of 0, 0 centres the window, any other is taken exactly, on the screen or not, as far as the right and
/// bottom sides can still be told; BroughtIntoSight is for what stands on no monitor.
[[nodiscard]] Rect PlaceWindow(Size current, Point savedPosition, Size savedSize, Size screen);

/// Of a caption, pixels at 96 dpi by which a window can be seen and taken hold of.
inline constexpr int kCaptionInSight = 200;

/// Where a window has its caption: `inset` pixels from its left and right side, `top` pixels below its upper one.
struct CaptionStrip {
  int inset = 0;
  int top = 0;
  int height = 0;
  int inSight = kCaptionInSight;  ///< the width that is to be in sight
};

/// The window as it stands when any part of its caption lies on a monitor. Otherwise it is moved by the least distance
/// (as the crow flies) that shows the caption's full height and `inSight` pixels of its width, or all that a smaller
/// caption or monitor has, on one monitor. Without monitors it stays.
[[nodiscard]] Rect BroughtIntoSight(const Rect& window, const CaptionStrip& strip, const std::vector<Rect>& monitors);

}  // namespace filedialog
