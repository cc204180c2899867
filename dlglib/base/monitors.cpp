#include "dlglib/base/monitors.h"

#include <algorithm>
#include <cstdint>

namespace monitors {
namespace {

/// Of two spans, in pixels; a window may be longer than any int.
double Common(std::int64_t from, std::int64_t to, std::int64_t otherFrom, std::int64_t otherTo) {
  return static_cast<double>(std::max<std::int64_t>(std::min(to, otherTo) - std::max(from, otherFrom), 0));
}

double CommonArea(const Rect& a, const Rect& b) {
  return Common(a.left, a.right, b.left, b.right) * Common(a.top, a.bottom, b.top, b.bottom);
}

/// Where a span begins that is to lie within another.
int BeginWithin(int from, int to, int least, int most) {
  const std::int64_t over = std::max<std::int64_t>(std::int64_t{to} - most, 0);
  return static_cast<int>(std::max<std::int64_t>(from - over, least));
}

/// Where a list begins downwards.
int TopOfList(const Rect& box, const Rect& list, const Rect& monitor) {
  if (list.top >= monitor.top && list.bottom <= monitor.bottom) return list.top;
  const std::int64_t height = std::int64_t{list.bottom} - list.top;
  if (box.bottom + height <= monitor.bottom) return box.bottom;
  if (box.top - height >= monitor.top) return static_cast<int>(box.top - height);
  return BeginWithin(list.top, list.bottom, monitor.top, monitor.bottom);
}

}  // namespace

const Rect* Under(const Rect& window, const std::vector<Rect>& monitors) {
  const Rect* found = nullptr;
  double most = 0;
  for (const Rect& monitor : monitors) {
    const double area = CommonArea(window, monitor);
    if (area <= most) continue;
    most = area;
    found = &monitor;
  }
  return found;
}

Rect BroughtTo(const Rect& owner, const Rect& rect, const std::vector<Rect>& monitors) {
  const Rect* const monitor = Under(owner, monitors);
  if (monitors.size() < 2 || monitor == nullptr) return rect;
  const int left = BeginWithin(rect.left, rect.right, monitor->left, monitor->right);
  const int top = BeginWithin(rect.top, rect.bottom, monitor->top, monitor->bottom);
  return {left, top, left + rect.width(), top + rect.height()};
}

Rect DroppedFrom(const Rect& box, const Rect& list, const std::vector<Rect>& monitors) {
  const Rect* const monitor = Under(box, monitors);
  if (monitors.size() < 2 || monitor == nullptr) return list;
  const int left = BeginWithin(list.left, list.right, monitor->left, monitor->right);
  const int top = TopOfList(box, list, *monitor);
  return {left, top, left + list.width(), top + list.height()};
}

}  // namespace monitors
