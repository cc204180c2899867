// CvNavigation: draws the areas of the browser that answer the pointer by themselves, the four image buttons and the
// label of the file name box.
#pragma once

#include <array>

#include "dlglib/filedialog/basics/hot_areas.h"
#include "platform/framework/gdi.h"
#include "platform/framework/window_ref.h"

class CvNavigation {
 public:
  /// Loads the images. Throws CResourceException when one is missing.
  CvNavigation();

  /// The areas' rectangles and states; after a change, Show puts it on the screen.
  [[nodiscard]] filedialog::HotAreas& Areas() { return areas_; }
  [[nodiscard]] const filedialog::HotAreas& Areas() const { return areas_; }

  /// Size of an area's image; none for the label.
  [[nodiscard]] filedialog::Size ImageSize(filedialog::HotArea area) const;

  /// Shows what has changed since the last call: buttons are erased and painted at once, the label is drawn on the
  /// spot.
  void Show(WindowRef dialog);
  /// All areas in their present states, for the dialog's WM_PAINT.
  void Paint(HDC dc) const;

 private:
  static constexpr std::size_t kButtons = 4;
  static constexpr std::size_t kImages = 4;  // normal, pressed, hot, disabled

  void DrawButton(HDC dc, HDC source, filedialog::HotArea area) const;
  void DrawFrame(HDC dc, filedialog::AreaState state) const;
  void ShowLabel(WindowRef dialog, filedialog::AreaState before) const;

  filedialog::HotAreas areas_;
  filedialog::HotAreas::States shown_{};
  std::array<std::array<UniqueBitmap, kImages>, kButtons> images_;
};
