#include "dlglib/filedialog/basics/hot_areas.h"

#include <algorithm>

namespace filedialog {
namespace {

constexpr int kFrameGap = 4;   // pixels at 96 dpi
constexpr int kFrameLine = 1;  // likewise

FrameLine RightBottom(const Rect& box, int off, std::uint32_t colour) {
  const int right = box.right + off;
  const int bottom = box.bottom + off;
  return {{{{right, box.top}, {right, bottom}, {box.left, bottom}}}, colour};
}

FrameLine LeftTop(const Rect& box, int off, std::uint32_t colour) {
  const int left = box.left + off;
  const int top = box.top + off;
  return {{{{left, box.bottom}, {left, top}, {box.right, top}}}, colour};
}

}  // namespace

void HotAreas::Enable(HotArea area, bool enabled) {
  AreaState& state = states_[Index(area)];
  if (enabled == (state != AreaState::Disabled)) return;
  state = enabled ? AreaState::Normal : AreaState::Disabled;
}

bool HotAreas::IsOnOne(Point at) const {
  return std::any_of(rects_.begin(), rects_.end(), [at](const Rect& rect) { return rect.Touches(at); });
}

void HotAreas::Move(Point at) {
  bool taken = false;
  for (std::size_t i = 0; i < kHotAreaCount; ++i) {
    const bool under = !taken && rects_[i].Touches(at);
    taken = taken || under;
    if (under && states_[i] == AreaState::Normal) states_[i] = AreaState::Hot;
    if (!under && states_[i] == AreaState::Hot) states_[i] = AreaState::Normal;
  }
}

std::optional<HotArea> HotAreas::Press(Point at, bool folderFixed) {
  Calm();
  for (std::size_t i = 0; i < kHotAreaCount; ++i) {
    if (!rects_[i].Touches(at)) continue;
    const auto area = static_cast<HotArea>(i);
    const bool moves = area == HotArea::Up || area == HotArea::Back;
    if (states_[i] == AreaState::Disabled || (moves && folderFixed)) return std::nullopt;
    states_[i] = AreaState::Pressed;
    return area;
  }
  return std::nullopt;
}

void HotAreas::Release(Point at) {
  for (AreaState& state : states_) {
    if (state == AreaState::Pressed) state = AreaState::Normal;
  }
  Move(at);
}

void HotAreas::Calm() {
  for (AreaState& state : states_) {
    if (state != AreaState::Disabled) state = AreaState::Normal;
  }
}

std::vector<FrameLine> LabelFrame(const Rect& label, AreaState state, std::uint32_t background, scale::Scale scale,
                                  const FrameColours& colours) {
  const int gap = scale.ToScreen(kFrameGap);
  const int width = scale.LineToScreen(kFrameLine);
  const Rect box{label.left - gap, label.top - gap, label.right, label.bottom + gap};
  const bool drawsOuter = state != AreaState::Hot;
  std::vector<FrameLine> lines;
  for (int i = 0; i < width; ++i) lines.push_back(RightBottom(box, i, colours.shadow));
  for (int i = 0; drawsOuter && i < width; ++i) lines.push_back(RightBottom(box, width + i, colours.outer));
  for (int i = 0; i < width; ++i) lines.push_back(LeftTop(box, i, colours.light));
  if (state == AreaState::Hot || state == AreaState::Pressed) return lines;
  for (FrameLine& line : lines) line.colour = background;
  return lines;
}

Point LabelBackgroundPoint(const Rect& label, scale::Scale scale) {
  const int off = scale.ToScreen(kFrameGap) + 1;
  return {label.left - off, label.top - off};
}

const char* LabelText(AreaState state) {
  return state == AreaState::Hot || state == AreaState::Pressed ? "ファイル数" : "ファイル名";
}

}  // namespace filedialog
