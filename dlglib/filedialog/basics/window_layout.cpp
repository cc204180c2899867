#include "dlglib/filedialog/basics/window_layout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

#include "dlglib/resources/resource.h"

namespace filedialog {
namespace {

struct ControlAnchor {
  int id;
  Anchor anchor;
};

constexpr int kOk = 1;  // numbers of the platform
constexpr int kCancel = 2;

constexpr std::array<ControlAnchor, 14> kAnchors{{
    {IDC_LOCATION_LABEL, Anchor::TopLeft},
    {IDC_LOCATION, Anchor::TopWide},
    {IDC_BACK, Anchor::TopRight},
    {IDC_UP, Anchor::TopRight},
    {IDC_CREATE_FOLDER, Anchor::TopRight},
    {IDC_VIEW, Anchor::TopRight},
    {IDC_FILE_LIST, Anchor::All},
    {IDC_NAME_LABEL, Anchor::BottomLeft},
    {IDC_RECENT_COUNT, Anchor::BottomLeft},
    {IDC_FILE_NAME, Anchor::BottomWide},
    {IDC_KIND_LABEL, Anchor::BottomLeft},
    {IDC_FILE_KIND, Anchor::BottomWide},
    {kOk, Anchor::BottomRight},
    {kCancel, Anchor::BottomRight},
}};

/// A coordinate from which `length` more can be counted.
int Countable(int from, int length) { return std::min(from, std::numeric_limits<int>::max() - length); }

/// Sums of coordinates, which may pass the ends of an int.
using Wide = std::int64_t;

/// From one coordinate to just before another.
struct Span {
  Wide from;
  Wide to;
};

struct Box {
  Span x;
  Span y;
};

struct Move {
  Wide dx;
  Wide dy;
  [[nodiscard]] double Length() const { return std::hypot(static_cast<double>(dx), static_cast<double>(dy)); }
};

Box CaptionOf(const Rect& window, const CaptionStrip& strip) {
  const Wide top = Wide{window.top} + strip.top;
  return {{Wide{window.left} + strip.inset, Wide{window.right} - strip.inset}, {top, top + strip.height}};
}

bool Overlap(Span a, Span b) { return std::max(a.from, b.from) < std::min(a.to, b.to); }

bool Shows(const Rect& monitor, const Box& caption) {
  return Overlap(caption.x, {monitor.left, monitor.right}) && Overlap(caption.y, {monitor.top, monitor.bottom});
}

/// The least move after which the two have `wanted` in common, or all of the shorter one.
Wide LeastMove(Span span, Span other, Wide wanted) {
  const Wide common = std::min({wanted, span.to - span.from, other.to - other.from});
  const Wide least = other.from + common - span.to;
  const Wide most = other.to - common - span.from;
  return least > 0 ? least : std::min<Wide>(most, 0);
}

Move LeastMove(const Box& caption, const Rect& monitor, int widthInSight) {
  const Wide height = caption.y.to - caption.y.from;
  return {LeastMove(caption.x, {monitor.left, monitor.right}, widthInSight),
          LeastMove(caption.y, {monitor.top, monitor.bottom}, height)};
}

Rect Moved(const Rect& window, Move move) {
  const auto by = [](int coordinate, Wide distance) { return static_cast<int>(coordinate + distance); };
  return {by(window.left, move.dx), by(window.top, move.dy), by(window.right, move.dx), by(window.bottom, move.dy)};
}

}  // namespace

std::optional<Anchor> AnchorOf(int controlId) {
  const auto isControl = [controlId](const ControlAnchor& control) { return control.id == controlId; };
  const auto* const found = std::find_if(kAnchors.begin(), kAnchors.end(), isControl);
  return found == kAnchors.end() ? std::nullopt : std::optional(found->anchor);
}

Rect Anchored(const Rect& start, Anchor anchor, Size growth) {
  const bool movesX = anchor == Anchor::TopRight || anchor == Anchor::BottomRight;
  const bool growsX = anchor == Anchor::TopWide || anchor == Anchor::BottomWide || anchor == Anchor::All;
  const bool movesY = anchor == Anchor::BottomLeft || anchor == Anchor::BottomRight || anchor == Anchor::BottomWide;
  const bool growsY = anchor == Anchor::All;
  Rect rect = start;
  if (movesX) rect.left += growth.width;
  if (movesX || growsX) rect.right += growth.width;
  if (movesY) rect.top += growth.height;
  if (movesY || growsY) rect.bottom += growth.height;
  rect.right = std::max(rect.left, rect.right);
  rect.bottom = std::max(rect.top, rect.bottom);
  return rect;
}

std::vector<Rect> RowEndingAt(int right, int top, const std::vector<Size>& images, int gap) {
  std::vector<Rect> row(images.size());
  for (std::size_t i = images.size(); i-- > 0;) {
    row[i] = {right - images[i].width, top, right, top + images[i].height};
    right = row[i].left - gap;
  }
  return row;
}

Size ScreenUnder(const Rect& window, const Screens& screens) {
  const Rect* const monitor = monitors::Under(window, screens.monitors);
  return monitor != nullptr ? Size{monitor->width(), monitor->height()} : screens.primary;
}

Rect PlaceWindow(Size current, Point savedPosition, Size savedSize, Size screen) {
  const int width = std::min(std::max(current.width, savedSize.width), screen.width);
  const int height = std::min(std::max(current.height, savedSize.height), screen.height);
  Point at = savedPosition;
  if (at == Point{}) at = {(screen.width - width) / 2, (screen.height - height) / 2};
  at = {Countable(at.x, width), Countable(at.y, height)};
  return {at.x, at.y, at.x + width, at.y + height};
}

Rect BroughtIntoSight(const Rect& window, const CaptionStrip& strip, const std::vector<Rect>& monitors) {
  const Box caption = CaptionOf(window, strip);
  if (std::any_of(monitors.begin(), monitors.end(), [&](const Rect& monitor) { return Shows(monitor, caption); })) {
    return window;
  }
  std::optional<Move> least;
  for (const Rect& monitor : monitors) {
    if (monitor.width() <= 0 || monitor.height() <= 0) continue;
    const Move move = LeastMove(caption, monitor, strip.inSight);
    if (!least || move.Length() < least->Length()) least = move;
  }
  return least ? Moved(window, *least) : window;
}

}  // namespace filedialog
