#include "dlglib/filedialog/basics/hot_areas.h"

namespace filedialog {
namespace {

constexpr int kFrameGap = 4;
constexpr std::uint32_t kShadow = 0x808080;
constexpr std::uint32_t kLight = 0xE0E0E0;
constexpr std::uint32_t kBlack = 0x000000;

}  // namespace

void HotAreas::Enable(HotArea area, bool enabled) {
  AreaState& state = states_[Index(area)];
  if (enabled == (state != AreaState::Disabled)) return;
  state = enabled ? AreaState::Normal : AreaState::Disabled;
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

std::vector<FrameLine> LabelFrame(const Rect& label, AreaState state, std::uint32_t background) {
  const Rect box{label.left - kFrameGap, label.top - kFrameGap, label.right, label.bottom + kFrameGap};
  const FrameLine rightBottom{{{{box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}}}, kShadow};
  const FrameLine outer{{{{box.right + 1, box.top}, {box.right + 1, box.bottom + 1}, {box.left, box.bottom + 1}}},
                        kBlack};
  const FrameLine leftTop{{{{box.left, box.bottom}, {box.left, box.top}, {box.right, box.top}}}, kLight};
  if (state == AreaState::Hot) return {rightBottom, leftTop};
  std::vector<FrameLine> all{rightBottom, outer, leftTop};
  if (state == AreaState::Pressed) return all;
  for (FrameLine& line : all) line.colour = background;
  return all;
}

Point LabelBackgroundPoint(const Rect& label) { return {label.left - kFrameGap - 1, label.top - kFrameGap - 1}; }

const char* LabelText(AreaState state) {
  return state == AreaState::Hot || state == AreaState::Pressed ? "ファイル数" : "ファイル名";
}

}  // namespace filedialog
