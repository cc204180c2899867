// Pixels of the screen.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace driver {

/// A copy of a part of the screen, 24 bits a pixel.
class Picture {
 public:
  /// `width` by `height` black pixels.
  Picture(int width, int height);

  [[nodiscard]] int Width() const { return width_; }
  [[nodiscard]] int Height() const { return height_; }
  /// Colour as 0x00BBGGRR; the origin is the top left pixel. Throws std::out_of_range outside.
  [[nodiscard]] COLORREF At(int x, int y) const;
  void Set(int x, int y, COLORREF colour);
  /// How many pixels of a rectangle (right and bottom excluded) have that colour.
  [[nodiscard]] int Count(const RECT& rect, COLORREF colour) const;
  /// Writes the picture as an uncompressed PNG file; false when the file cannot be written. `path` is Shift_JIS.
  [[nodiscard]] bool SavePng(const std::string& path) const;

  friend bool operator==(const Picture&, const Picture&) = default;

 private:
  [[nodiscard]] std::size_t Index(int x, int y) const;

  int width_;
  int height_;
  std::vector<COLORREF> pixels_;
};

/// Copies a rectangle of the screen, in screen coordinates. Whoever draws there must have finished (User::Settle).
[[nodiscard]] Picture Capture(const RECT& rect);
/// Until the display has done what it was told so far, and has told the windows what comes of it.
void WaitForDisplay();
/// Copies the whole screen.
[[nodiscard]] Picture CaptureScreen();

}  // namespace driver
