// The five areas of the browser that answer the pointer by themselves: view, new folder, up, back and the label of the
// file name box. This holds their rectangles and states; the dialog draws them and runs their actions.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "dlglib/base/geometry.h"
#include "dlglib/base/scale.h"

namespace filedialog {

using geometry::Point;
using geometry::Rect;
using geometry::Size;

/// In the order in which a press is tested.
enum class HotArea : std::size_t { View, NewFolder, Up, Back, Label };
inline constexpr std::size_t kHotAreaCount = 5;

enum class AreaState : int { Disabled = -1, Normal = 0, Pressed = 1, Hot = 2 };

class HotAreas {
 public:
  using States = std::array<AreaState, kHotAreaCount>;

  /// Rectangle in the dialog's client coordinates, borders included.
  void Place(HotArea area, const Rect& rect) { rects_[Index(area)] = rect; }
  [[nodiscard]] const Rect& RectOf(HotArea area) const { return rects_[Index(area)]; }
  [[nodiscard]] AreaState StateOf(HotArea area) const { return states_[Index(area)]; }
  [[nodiscard]] const States& states() const { return states_; }
  /// Whether a point lies on an area, whatever its state.
  [[nodiscard]] bool IsOnOne(Point at) const;

  /// A disabled area stays so whatever the pointer does; enabling one makes it normal.
  void Enable(HotArea area, bool enabled);

  /// The area under the pointer becomes hot when it is normal; every other hot area becomes normal.
  void Move(Point at);

  /// The first area that holds the point and is not disabled becomes pressed and every other pressed or hot area
  /// normal; up and back are left alone while the folder is fixed. Answers the area whose action is to run. Without
  /// one, no area stays pressed or hot.
  std::optional<HotArea> Press(Point at, bool folderFixed);

  /// Every pressed area becomes normal, then as Move.
  void Release(Point at);

 private:
  static constexpr std::size_t Index(HotArea area) { return static_cast<std::size_t>(area); }
  void Calm();

  std::array<Rect, kHotAreaCount> rects_{};
  States states_{};
};

/// A line through points, drawn by moving to the first and drawing to each next one; the last pixel is left out as the
/// platform's line drawing does. Colour 0x00BBGGRR.
struct FrameLine {
  std::array<Point, 3> points;
  std::uint32_t colour = 0;
};

/// What a frame is drawn with.
struct FrameColours {
  std::uint32_t shadow = 0x808080;
  std::uint32_t light = 0xE0E0E0;
  std::uint32_t outer = 0x000000;
};

/// The frame around a label in the given state: its lines in drawing order. At 96 dpi it stands 4 pixels off the label
/// and its lines are one pixel wide, each drawn once; where they are wider, once for each pixel. It stands off but for
/// its right edge, which runs along the label's own: nothing beside the label leaves more room. In a normal or disabled
/// state they are all the lines that any state draws, in the dialog's own colour `background`, so that they erase the
/// frame.
[[nodiscard]] std::vector<FrameLine> LabelFrame(const Rect& label, AreaState state, std::uint32_t background,
                                                scale::Scale scale = {}, const FrameColours& colours = {});

/// The point whose colour is the dialog's own colour near a label.
[[nodiscard]] Point LabelBackgroundPoint(const Rect& label, scale::Scale scale = {});

/// The text of the file name label in a state, Shift_JIS.
[[nodiscard]] const char* LabelText(AreaState state);

}  // namespace filedialog
