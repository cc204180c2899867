#include "dlglib/filedialog/window/CvBrowserFrame.h"

#include <algorithm>

#include "dlglib/base/CvMonitors.h"
#include "dlglib/filedialog/window/CvGeometry.h"
#include "dlglib/resources/resource.h"

using filedialog::Rect;
using filedialog::Size;

namespace {

/// Some systems add a border to the height that is asked for.
void SetFaceHeight(const ComboBoxRef& box, int height) {
  box.SetItemHeight(-1, static_cast<UINT>(height));
  const int added = box.GetItemHeight(-1) - height;
  if (added != 0) box.SetItemHeight(-1, static_cast<UINT>(height - added));
}

/// The box itself would take the height of its rows only if it drew them itself.
void SetRowHeight(const ComboBoxRef& box, int height) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (::GetComboBoxInfo(box.m_hWnd, &parts)) ListBoxRef(parts.hwndList).SetItemHeight(0, static_cast<UINT>(height));
}

bool IsCombo(HWND window) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  return ::GetComboBoxInfo(window, &parts) != FALSE;
}

int HeightOf(HWND window) { return filedialog::RectOnScreen(WindowRef(window)).height(); }

/// A caption lies right above the client area, as far from the sides as that.
filedialog::CaptionStrip CaptionOf(const WindowRef& dialog) {
  const Rect window = filedialog::RectOnScreen(dialog);
  POINT client{};
  dialog.ClientToScreen(&client);
  const int height = ::GetSystemMetrics(SM_CYCAPTION);
  return {.inset = static_cast<int>(client.x) - window.left,
          .top = static_cast<int>(client.y) - window.top - height,
          .height = height};
}

}  // namespace

void CvBrowserFrame::Start(const ComboBoxRef& places, scale::Scale scale) {
  const Rect window = filedialog::RectOnScreen(dialog_);
  smallest_ = {window.width(), window.height()};
  MatchHeights(places, scale);
  RememberControls();
}

void CvBrowserFrame::Rescale(const ComboBoxRef& places, scale::Scale before, scale::Scale now) {
  const auto rescaled = [&](Size size) {
    return Size{scale::Rescaled(size.width, before, now), scale::Rescaled(size.height, before, now)};
  };
  startClient_ = rescaled(startClient_);
  smallest_ = rescaled(smallest_);
  MatchHeights(places, now);
  for (AnchoredControl& control : controls_) {
    control.start = scale::Rescaled(control.start, before, now);
    // A box that is placed higher than it is takes the rest for the height of its list.
    if (IsCombo(control.window)) control.start.bottom = control.start.top + HeightOf(control.window);
  }
}

/// The three boxes are equally high, and so are the rows of places and of names. Faces and rows have room for an icon.
void CvBrowserFrame::MatchHeights(const ComboBoxRef& places, scale::Scale scale) const {
  const int iconRoom = scale.ToScreen(16);
  const int faceRoom = scale.ToScreen(16 + 2);
  const ComboBoxRef names(::GetDlgItem(dialog_.m_hWnd, IDC_FILE_NAME));
  const ComboBoxRef kinds(::GetDlgItem(dialog_.m_hWnd, IDC_FILE_KIND));
  const int face = std::max(names.GetItemHeight(-1), faceRoom);
  for (const ComboBoxRef& box : {names, kinds, places}) SetFaceHeight(box, face);
  SetRowHeight(names, std::max(names.GetItemHeight(0), iconRoom));
  places.SetItemHeight(0, static_cast<UINT>(names.GetItemHeight(0)));
}

void CvBrowserFrame::RememberControls() {
  startClient_ = filedialog::ClientSizeOf(dialog_);
  for (HWND child = ::GetWindow(dialog_.m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    const auto anchor = filedialog::AnchorOf(::GetDlgCtrlID(child));
    if (anchor) controls_.push_back({child, filedialog::RectInDialog(dialog_, child), *anchor});
  }
}

void CvBrowserFrame::MoveTo(const Rect& place) const {
  const Rect seen = filedialog::BroughtIntoSight(place, CaptionOf(dialog_), monitors::CurrentScreens().monitors);
  dialog_.SetWindowPos(nullptr, seen.left, seen.top, seen.width(), seen.height(), SWP_NOZORDER | SWP_NOACTIVATE);
}

/// A combo box that is given its own height keeps that of its list.
void CvBrowserFrame::Arrange() const {
  const Size client = filedialog::ClientSizeOf(dialog_);
  const Size growth{client.width - startClient_.width, client.height - startClient_.height};
  for (const AnchoredControl& control : controls_) {
    const Rect rect = filedialog::Anchored(control.start, control.anchor, growth);
    ::SetWindowPos(control.window, nullptr, rect.left, rect.top, rect.width(), rect.height(),
                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
  }
}
