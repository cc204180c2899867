// What the hover balloon knows and decides: the tools with their rectangles and texts, which of them the pointer is
// over, which timer runs, and where the balloon goes. Positions are pixels; texts are Shift_JIS.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/base/geometry.h"
#include "dlglib/base/scale.h"

namespace tool_table {

using geometry::Point;
using geometry::Rect;
using geometry::Size;

/// Longest text of a tool, in bytes.
inline constexpr std::size_t kTextLimit = 131;

struct Tool {
  int id = 0;
  Rect rect;
  std::string text;
};

/// The tools in the order in which they were first registered. Their number is not limited.
class ToolTable {
 public:
  /// Gives the tool `id` this rectangle (client coordinates of the window it belongs to) and this text; an unknown ID
  /// is appended. A longer text is cut between two characters.
  void Register(int id, const Rect& rect, std::string_view text);
  /// Changes one of the two; an unknown ID changes nothing.
  void SetRect(int id, const Rect& rect);
  void SetText(int id, std::string_view text);

  [[nodiscard]] std::size_t Count() const noexcept { return tools_.size(); }
  /// `index` below Count().
  [[nodiscard]] const Tool& At(std::size_t index) const { return tools_[index]; }
  /// The first tool that holds the point.
  [[nodiscard]] std::optional<std::size_t> Find(Point at) const noexcept;

 private:
  [[nodiscard]] Tool* ToolOf(int id) noexcept;

  std::vector<Tool> tools_;
};

/// The balloon's timers by their numbers.
enum class Timer : unsigned { None = 0, Show = 1, Hide = 2 };

/// What is to be done after something has happened, in this order: stop a timer, hide or show the balloon, start a
/// timer.
struct Step {
  Timer stop = Timer::None;
  bool hide = false;
  bool show = false;
  Timer start = Timer::None;
  unsigned delayMs = 0;  ///< of the timer that is started
  friend bool operator==(const Step&, const Step&) = default;
};

inline constexpr unsigned kShowDelayMs = 500;
inline constexpr unsigned kHideDelayMs = 2000;
/// A delay can be set to more than this only.
inline constexpr unsigned kLeastDelayMs = 100;

/// When the balloon comes and goes.
class Course {
 public:
  /// A show delay of 0, which no setter gives, shows the balloon at once.
  explicit Course(unsigned showDelayMs = kShowDelayMs, unsigned hideDelayMs = kHideDelayMs) noexcept
      : showDelayMs_(showDelayMs), hideDelayMs_(hideDelayMs) {}

  /// Up to kLeastDelayMs the former delay stays.
  void SetShowDelay(unsigned milliseconds) noexcept;
  void SetHideDelay(unsigned milliseconds) noexcept;

  /// The tool that the pointer is over.
  [[nodiscard]] std::optional<std::size_t> Current() const noexcept { return current_; }

  /// The pointer has moved and is now over `tool`, or over none. Staying on the same one does nothing.
  [[nodiscard]] Step Move(std::optional<std::size_t> tool) noexcept;
  /// A timer has fired. One that does not run, because its message was under way when it was stopped, does nothing.
  [[nodiscard]] Step Fire(Timer timer) noexcept;
  /// The balloon is to go for another reason. It comes back when the pointer has left its tool.
  [[nodiscard]] Step Dismiss() noexcept;

 private:
  [[nodiscard]] Step ShowNow(Timer stopped) noexcept;
  [[nodiscard]] Timer StopRunning() noexcept;

  unsigned showDelayMs_;
  unsigned hideDelayMs_;
  std::optional<std::size_t> current_;
  Timer running_ = Timer::None;
};

/// The point, in the coordinates of the tool's rectangle, that the balloon's lower left corner takes: above the tool by
/// half its height, from its middle on.
[[nodiscard]] Point Anchor(const Rect& tool) noexcept;

/// Size for a text of that many bytes in a font of that height: full-width characters are as wide as high.
[[nodiscard]] Size BalloonSize(int fontHeight, std::size_t textBytes, scale::Scale scale = {}) noexcept;

/// Where the text stands in a balloon. Right and bottom lie just outside.
[[nodiscard]] Rect TextRect(int fontHeight, int balloonWidth, scale::Scale scale = {}) noexcept;

}  // namespace tool_table
