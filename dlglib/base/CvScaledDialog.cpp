#include "dlglib/base/CvScaledDialog.h"

#include <cstdlib>
#include <utility>
#include <vector>

#include "dlglib/base/CvGeometry.h"
#include "dlglib/base/edge.h"
#include "platform/framework/controls.h"
#include "platform/framework/detail/scale_messages.h"
#include "platform/framework/message_map.h"
#include "platform/os/display.h"

namespace {

/// Of all templates of the library: 9 points, in pixels at 96 dpi.
constexpr int kFontHeight = 12;

struct Child {
  HWND window;
  geometry::Rect place;
  int listHeight;
};

/// Of the open list of a combo box, with the box itself or without, as the system counts it; 0 for another control.
int ListHeightOf(HWND control) {
  RECT dropped = {};
  ::SendMessageW(control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
  return static_cast<int>(dropped.bottom - dropped.top);
}

std::vector<Child> ChildrenOf(const WindowRef& dialog) {
  std::vector<Child> children;
  for (HWND child = ::GetWindow(dialog.m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    RECT place = {};
    ::GetWindowRect(child, &place);
    dialog.ScreenToClient(&place);
    children.push_back({child, geometry::ToRect(place), ListHeightOf(child)});
  }
  return children;
}

void Place(HWND child, const geometry::Rect& place, int height) {
  ::SetWindowPos(child, nullptr, place.left, place.top, place.width(), height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
}

/// A combo box takes the height that it is given for that of its open list. Whether it counts itself to that shows
/// afterwards.
void PlaceCombo(HWND combo, const geometry::Rect& place, int listHeight) {
  Place(combo, place, listHeight);
  const int off = listHeight - ListHeightOf(combo);
  if (off != 0) Place(combo, place, listHeight + off);
}

}  // namespace

Handled CvScaledDialog::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvScaledDialog> kRows[] = {
      OnMessage(WM_INITDIALOG, &CvScaledDialog::OnCreated),
      OnMessage(WM_GETFONT, &CvScaledDialog::OnGetFont),
      OnMessage(framework::kDpiChanged, &CvScaledDialog::OnDpiChanged),
      OnMessage(WM_SYSCOLORCHANGE, &CvScaledDialog::OnSystemChanged),
      OnMessage(WM_THEMECHANGED, &CvScaledDialog::OnSystemChanged),
      OnMessage(WM_SETTINGCHANGE, &CvScaledDialog::OnSystemChanged),
  };
  return Route<CDialog>(*this, kRows, message);
}

/// The dialog may have run before.
Handled CvScaledDialog::OnCreated() {
  font_.Reset();
  children_.clear();
  scale_ = scale::Scale(os::ThisDisplay().DpiOf(m_hWnd));
  os::ThisDisplay().KeepLayout(m_hWnd);
  const scale::Scale laidOut = LaidOutScale();
  // A dialog that there is no memory to lay out anew is as the system has made it.
  if (laidOut != scale_) edge::Guarded([&] { LayOutAnew(laidOut); });
  return std::nullopt;
}

/// For which the system has made the controls. The font tells, which is as high as the template's number of points asks
/// for.
scale::Scale CvScaledDialog::LaidOutScale() const {
  LOGFONTW font = {};
  if (::GetObjectW(GetFont(), sizeof font, &font) == 0) return scale_;
  const int height = std::abs(static_cast<int>(font.lfHeight));
  return height == scale_.ToScreen(kFontHeight) ? scale_ : scale::Scale(scale::kDesignDpi * height / kFontHeight);
}

/// The frame stays as the system draws it.
void CvScaledDialog::LayOutAnew(scale::Scale before) {
  RECT window = {};
  RECT client = {};
  GetWindowRect(&window);
  GetClientRect(&client);
  const auto grown = [&](LONG whole, LONG inner) {
    const int inside = static_cast<int>(inner);
    return static_cast<int>(whole) - inside + scale::Rescaled(inside, before, scale_);
  };
  ScaleControls(before);
  SetWindowPos(nullptr, 0, 0, grown(window.right - window.left, client.right),
               grown(window.bottom - window.top, client.bottom), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CvScaledDialog::OnDpiChanged(const Message& message) {
  const scale::Scale before = scale_;
  scale_ = scale::Scale(HIWORD(message.wParam));
  if (scale_ != before) {
    ScaleControls(before);
    OnControlsScaled(before);
  }
  if (const auto* const place = message.Data<const RECT>(); place != nullptr) {
    SetWindowPos(nullptr, place->left, place->top, place->right - place->left, place->bottom - place->top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  if (scale_ == before) return 0;
  OnScaled(before);
  RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
  return 0;
}

void CvScaledDialog::ScaleControls(scale::Scale before) {
  const std::vector<Child> children = ChildrenOf(*this);
  ScaleFont(before);
  for (const Child& child : children) {
    KeptChild& kept = children_[child.window];
    const geometry::Rect place = kept.place.Follow(child.place, before, scale_);
    if (child.listHeight == 0) {
      Place(child.window, place, place.height());
    } else {
      PlaceCombo(child.window, place, kept.listHeight.Follow(child.listHeight, before, scale_));
    }
  }
}

/// The system's controls learn of it from their dialog.
Handled CvScaledDialog::OnSystemChanged(const Message& message) {
  for (const Child& child : ChildrenOf(*this)) ::SendMessageW(child.window, message.id, message.wParam, message.lParam);
  OnColoursChanged();
  RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
  return std::nullopt;
}

/// Not every system lets a dialog be told another font than its template's.
Handled CvScaledDialog::OnGetFont() {
  if (!font_) return std::nullopt;
  return reinterpret_cast<LRESULT>(font_.Get());
}

void CvScaledDialog::ScaleFont(scale::Scale before) {
  const HFONT former = GetFont();
  LOGFONTW font = {};
  if (former == nullptr || ::GetObjectW(former, sizeof font, &font) == 0) return;
  font.lfHeight = fontHeight_.Follow(font.lfHeight, before, scale_);
  font.lfWidth = fontWidth_.Follow(font.lfWidth, before, scale_);
  UniqueFont now(::CreateFontIndirectW(&font));
  if (!now) return;
  for (const Child& child : ChildrenOf(*this)) {
    const bool isDialogs = reinterpret_cast<HFONT>(::SendMessageW(child.window, WM_GETFONT, 0, 0)) == former;
    if (isDialogs) ::SendMessageW(child.window, WM_SETFONT, reinterpret_cast<WPARAM>(now.Get()), FALSE);
  }
  std::swap(font_, now);
}
