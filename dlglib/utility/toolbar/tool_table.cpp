#include "dlglib/utility/toolbar/tool_table.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "dlglib/base/shift_jis.h"

namespace tool_table {
namespace {

// Pixels at 96 dpi.
constexpr int kTextMarginX = 6;
constexpr int kTextMarginY = 4;

std::string Shortened(std::string_view text) { return std::string(shift_jis::Truncate(text, kTextLimit)); }

/// Callers may give any rectangle; sums of its sides may not fit an int.
int Narrow(std::int64_t value) { return static_cast<int>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX)); }

}  // namespace

Tool* ToolTable::ToolOf(int id) noexcept {
  const auto found = std::find_if(tools_.begin(), tools_.end(), [id](const Tool& tool) { return tool.id == id; });
  return found != tools_.end() ? &*found : nullptr;
}

void ToolTable::Register(int id, const Rect& rect, std::string_view text) {
  if (ToolOf(id) == nullptr) tools_.push_back(Tool{id, {}, {}});
  SetRect(id, rect);
  SetText(id, text);
}

void ToolTable::SetRect(int id, const Rect& rect) {
  if (Tool* tool = ToolOf(id)) tool->rect = rect;
}

void ToolTable::SetText(int id, std::string_view text) {
  if (Tool* tool = ToolOf(id)) tool->text = Shortened(text);
}

std::optional<std::size_t> ToolTable::Find(Point at) const noexcept {
  for (std::size_t i = 0; i < tools_.size(); ++i) {
    if (tools_[i].rect.Touches(at)) return i;
  }
  return std::nullopt;
}

void Course::SetShowDelay(unsigned milliseconds) noexcept {
  if (milliseconds > kLeastDelayMs) showDelayMs_ = milliseconds;
}

void Course::SetHideDelay(unsigned milliseconds) noexcept {
  if (milliseconds > kLeastDelayMs) hideDelayMs_ = milliseconds;
}

Timer Course::StopRunning() noexcept { return std::exchange(running_, Timer::None); }

Step Course::ShowNow(Timer stopped) noexcept {
  running_ = Timer::Hide;
  return {.stop = stopped, .show = true, .start = Timer::Hide, .delayMs = hideDelayMs_};
}

Step Course::Move(std::optional<std::size_t> tool) noexcept {
  if (tool == current_) return {};
  current_ = tool;
  const Timer stopped = StopRunning();
  if (!tool) return {.stop = stopped, .hide = true};
  if (showDelayMs_ == 0) return ShowNow(stopped);
  running_ = Timer::Show;
  return {.stop = stopped, .hide = true, .start = Timer::Show, .delayMs = showDelayMs_};
}

Step Course::Fire(Timer timer) noexcept {
  if (timer == Timer::None || timer != running_) return {};
  const Timer stopped = StopRunning();
  if (timer == Timer::Hide) return {.stop = stopped, .hide = true};
  return ShowNow(stopped);
}

Step Course::Dismiss() noexcept { return {.stop = StopRunning(), .hide = true}; }

Point Anchor(const Rect& tool) noexcept {
  const std::int64_t left = tool.left;
  const std::int64_t top = tool.top;
  return {Narrow((left + tool.right) / 2), Narrow(top - (tool.bottom - top) / 2)};
}

Size BalloonSize(int fontHeight, std::size_t textBytes, scale::Scale scale) noexcept {
  const Size margin = scale.ToScreen(Size{kTextMarginX, kTextMarginY});
  const std::int64_t height = fontHeight;
  const auto bytes = static_cast<std::int64_t>(std::min(textBytes, kTextLimit));
  return {Narrow(height * bytes / 2 + 2 * margin.width), Narrow(height + 2 * margin.height)};
}

Rect TextRect(int fontHeight, int balloonWidth, scale::Scale scale) noexcept {
  const Size margin = scale.ToScreen(Size{kTextMarginX, kTextMarginY});
  return {margin.width, margin.height, Narrow(std::int64_t{balloonWidth} - margin.width),
          Narrow(std::int64_t{fontHeight} + margin.height)};
}

}  // namespace tool_table
