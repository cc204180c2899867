// What tests of scales compare the screen with.
#pragma once

#include <windows.h>

#include <string>

#include "dlglib/base/scale.h"
#include "tests/windows/driver/user.h"

namespace scale_test {

[[nodiscard]] scale::Scale ScaleOf(const driver::Window& window);

[[nodiscard]] inline int WidthOf(const RECT& rect) { return rect.right - rect.left; }
[[nodiscard]] inline int HeightOf(const RECT& rect) { return rect.bottom - rect.top; }

/// An icon of the library as it is drawn for a side, on the ground of a window.
[[nodiscard]] driver::Picture IconPicture(int icon, int side);
/// The same of the image of 16 pixels, enlarged to that side.
[[nodiscard]] driver::Picture EnlargedIconPicture(int icon, int side);
[[nodiscard]] driver::Picture BitmapPicture(int bitmap, scale::Scale scale);

/// Tells a dialog that it stands on a screen of so many dots per inch now, and to take the place.
void ChangeDpi(const driver::Window& dialog, int dpi, RECT place);
/// The same with the place that a window has whose lengths follow.
void ChangeDpi(const driver::Window& dialog, int dpi);

/// The place that a dialog takes whose client area follows while the system leaves its frame as it is.
[[nodiscard]] RECT WithinTheSameFrame(const driver::Window& dialog, int dpi);

/// The list of a combo box on the screen, open or not.
[[nodiscard]] RECT ListRect(const driver::Window& combo);

/// Two monitors beside or below each other, which meet at a coordinate of the screen.
void SetMonitorsBeside(int x);
void SetMonitorsBelow(int y);

/// As its window tells.
[[nodiscard]] int FontHeight(const driver::Window& window);

/// Where a dialog's controls stand and what heights their fonts have, as a text to compare.
[[nodiscard]] std::string Layout(const driver::Window& dialog);

}  // namespace scale_test
