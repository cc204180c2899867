#include "dlglib/filedialog/window/CvBrowserFrame.h"

#include <algorithm>

#include "dlglib/base/CvMonitors.h"
#include "dlglib/filedialog/window/CvGeometry.h"
#include "dlglib/resources/resource.h"

using filedialog::Rect;
using filedialog::Size;

namespace {

/// A box lays itself and its list out anew for every height that it is given, which takes as long as making it: so it
/// is given none that it has.
class FaceHeight {
 public:
  explicit FaceHeight(int height) : height_(height) {}

  void GiveTo(const ComboBoxRef& box) {
    const int added = box.GetItemHeight(-1) == height_ ? 0 : Ask(box);
    if (added == 0) return;
    border_ += added;
    static_cast<void>(Ask(box));
  }

 private:
  /// How much higher the box is than it should be.
  [[nodiscard]] int Ask(const ComboBoxRef& box) const {
    box.SetItemHeight(-1, static_cast<UINT>(height_ - border_));
    return box.GetItemHeight(-1) - height_;
  }

  int height_;
  int border_ = 0;  ///< some systems add it to the height that is asked for, to that of each box alike
};

void SetRowHeight(const ListBoxRef& list, int height) {
  if (list.GetItemHeight(0) != height) list.SetItemHeight(0, static_cast<UINT>(height));
}

/// The box itself would take the height of its rows only if it drew them itself.
void SetRowHeight(const ComboBoxRef& box, int height) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (::GetComboBoxInfo(box.m_hWnd, &parts)) SetRowHeight(ListBoxRef(parts.hwndList), height);
}

bool IsCombo(HWND window) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  return ::GetComboBoxInfo(window, &parts) != FALSE;
}

int HeightOf(HWND window) { return filedialog::RectOnScreen(WindowRef(window)).height(); }

/// A caption lies right above the client area, as far from the sides as that, and the frame is as wide above as at the
/// sides. What the system tells of captions is not always for the scale of this one.
filedialog::CaptionStrip CaptionOf(const WindowRef& dialog, scale::Scale scale) {
  const Rect window = filedialog::RectOnScreen(dialog);
  POINT client{};
  dialog.ClientToScreen(&client);
  const int border = static_cast<int>(client.x) - window.left;
  return {.inset = border,
          .top = border,
          .height = static_cast<int>(client.y) - window.top - border,
          .inSight = scale.ToScreen(filedialog::kCaptionInSight)};
}

}  // namespace

void CvBrowserFrame::Start(const ComboBoxRef& places, scale::Scale scale) {
  MatchHeights(places, scale);
  RememberControls();
  FollowLists();
}

void CvBrowserFrame::FollowLists() {
  constexpr std::array kBoxes = {IDC_LOCATION, IDC_FILE_NAME, IDC_FILE_KIND, IDC_RECENT_COUNT};
  for (std::size_t i = 0; i < kBoxes.size(); ++i) lists_.at(i).Follow(::GetDlgItem(dialog_.m_hWnd, kBoxes.at(i)));
}

void CvBrowserFrame::Rescale(const ComboBoxRef& places, scale::Scale before, scale::Scale now) {
  const Rect client = keptClient_.Follow({0, 0, startClient_.width, startClient_.height}, before, now);
  startClient_ = {client.width(), client.height()};
  MatchHeights(places, now);
  for (AnchoredControl& control : controls_) {
    control.start = control.kept.Follow(control.start, before, now);
    // A box that is placed higher than it is takes the rest for the height of its list.
    if (IsCombo(control.window)) control.start.bottom = control.start.top + HeightOf(control.window);
  }
  RememberButtons();
}

/// All of them stand as the view's does, which ends the row.
void CvBrowserFrame::RememberButtons() {
  const auto idOf = [](const AnchoredControl& control) { return ::GetDlgCtrlID(control.window); };
  const auto last = std::find_if(controls_.begin(), controls_.end(),
                                 [&](const AnchoredControl& control) { return idOf(control) == IDC_VIEW; });
  if (last == controls_.end()) return;
  const Rect view = filedialog::RectInDialog(dialog_, last->window);
  const int dx = last->start.right - view.right;
  const int dy = last->start.top - view.top;
  for (AnchoredControl& control : controls_) {
    const int id = idOf(control);
    if (id != IDC_BACK && id != IDC_UP && id != IDC_CREATE_FOLDER && id != IDC_VIEW) continue;
    const Rect now = filedialog::RectInDialog(dialog_, control.window);
    control.start = {now.left + dx, now.top + dy, now.right + dx, now.bottom + dy};
  }
}

Size CvBrowserFrame::Smallest() const {
  const Rect window = filedialog::RectOnScreen(dialog_);
  const Size client = filedialog::ClientSizeOf(dialog_);
  return {startClient_.width + window.width() - client.width, startClient_.height + window.height() - client.height};
}

/// The three boxes are equally high, and so are the rows of places and of names. Faces and rows have room for an icon.
void CvBrowserFrame::MatchHeights(const ComboBoxRef& places, scale::Scale scale) const {
  const int iconRoom = scale.ToScreen(16);
  const int faceRoom = scale.ToScreen(16 + 2);
  const ComboBoxRef names(::GetDlgItem(dialog_.m_hWnd, IDC_FILE_NAME));
  const ComboBoxRef kinds(::GetDlgItem(dialog_.m_hWnd, IDC_FILE_KIND));
  FaceHeight face(std::max(names.GetItemHeight(-1), faceRoom));
  for (const ComboBoxRef& box : {names, kinds, places}) face.GiveTo(box);
  SetRowHeight(names, std::max(names.GetItemHeight(0), iconRoom));
  if (places.GetItemHeight(0) != names.GetItemHeight(0)) {
    places.SetItemHeight(0, static_cast<UINT>(names.GetItemHeight(0)));
  }
}

void CvBrowserFrame::RememberControls() {
  startClient_ = filedialog::ClientSizeOf(dialog_);
  for (HWND child = ::GetWindow(dialog_.m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    const auto anchor = filedialog::AnchorOf(::GetDlgCtrlID(child));
    if (anchor) controls_.push_back({child, filedialog::RectInDialog(dialog_, child), *anchor});
  }
}

void CvBrowserFrame::MoveTo(const Rect& place, scale::Scale scale) const {
  const auto screens = monitors::CurrentScreens();
  const Rect seen = filedialog::BroughtIntoSight(place, CaptionOf(dialog_, scale), screens.monitors);
  dialog_.SetWindowPos(nullptr, seen.left, seen.top, seen.width(), seen.height(), SWP_NOZORDER | SWP_NOACTIVATE);
}

/// A combo box that is given its own height keeps that of its list.
void CvBrowserFrame::Arrange() const {
  const Size client = filedialog::ClientSizeOf(dialog_);
  const Size growth{client.width - startClient_.width, client.height - startClient_.height};
  for (const AnchoredControl& control : controls_) {
    const Rect rect = filedialog::Anchored(control.start, control.anchor, growth);
    if (rect == filedialog::RectInDialog(dialog_, control.window)) continue;
    ::SetWindowPos(control.window, nullptr, rect.left, rect.top, rect.width(), rect.height(),
                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
  }
}
