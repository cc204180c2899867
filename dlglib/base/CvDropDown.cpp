#include "dlglib/base/CvDropDown.h"

#include "dlglib/base/CvGeometry.h"
#include "dlglib/base/CvMonitors.h"

namespace {

geometry::Rect RectOf(HWND window) {
  RECT rect = {};
  ::GetWindowRect(window, &rect);
  return geometry::ToRect(rect);
}

}  // namespace

void CvDropDown::Follow(HWND combo) {
  COMBOBOXINFO parts = {};
  parts.cbSize = sizeof parts;
  const bool isThere = combo != nullptr && ::GetComboBoxInfo(combo, &parts) != FALSE;
  box_ = isThere ? combo : nullptr;
  list_.Watch(isThere ? parts.hwndList : nullptr);
}

/// What the message does not change is as the window has it.
void CvDropDown::Place(const Message& message) const {
  auto* const asked = message.Data<WINDOWPOS>();
  const bool moves = (asked->flags & SWP_NOMOVE) == 0;
  const bool sizes = (asked->flags & SWP_NOSIZE) == 0;
  if (!moves && !sizes) return;
  const geometry::Rect now = RectOf(message.window);
  const geometry::Point at = moves ? geometry::Point{asked->x, asked->y} : geometry::Point{now.left, now.top};
  const geometry::Size size = sizes ? geometry::Size{asked->cx, asked->cy} : geometry::Size{now.width(), now.height()};
  const geometry::Rect list{at.x, at.y, at.x + size.width, at.y + size.height};
  const geometry::Rect place = monitors::DroppedFrom(RectOf(box_), list, monitors::CurrentScreens().monitors);
  if (place == list) return;
  asked->x = place.left;
  asked->y = place.top;
  asked->flags &= ~static_cast<UINT>(SWP_NOMOVE);
}
