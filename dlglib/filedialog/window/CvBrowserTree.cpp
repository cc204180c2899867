#include "dlglib/filedialog/window/CvBrowserTree.h"

#include "dlglib/filedialog/basics/area_item.h"
#include "dlglib/filedialog/window/CvAccessiblePlace.h"
#include "dlglib/filedialog/window/CvGeometry.h"

using accessible::Item;
using accessible::Node;
using filedialog::HotArea;

std::vector<CvBrowserTree::Part> CvBrowserTree::Parts() const {
  std::vector<Part> parts;
  for (HWND child = ::GetWindow(dialog_.m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    const auto area = CvNavigation::AreaOf(::GetDlgCtrlID(child));
    if (area || (::GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) != 0) parts.push_back({child, area});
  }
  return parts;
}

std::optional<CvBrowserTree::Part> CvBrowserTree::PartOf(Node node) const {
  const std::vector<Part> parts = Parts();
  const bool isPart = node.sub == 0 && node.part >= 1 && static_cast<std::size_t>(node.part) <= parts.size();
  return isPart ? std::optional(parts[static_cast<std::size_t>(node.part) - 1]) : std::nullopt;
}

Node CvBrowserTree::NodeOf(HotArea area) const {
  int at = 0;
  for (const Part& part : Parts()) {
    ++at;
    if (part.area == area) return {at, 0};
  }
  return accessible::kWhole;
}

int CvBrowserTree::CountOf(Node node) const {
  return node == accessible::kWhole ? static_cast<int>(Parts().size()) : 0;
}

std::optional<Item> CvBrowserTree::Find(Node node) const {
  Item item;
  if (node == accessible::kWhole) {
    CString caption;
    dialog_.GetWindowText(caption);
    item.name = caption.GetString();
    item.role = accessible::Role::Dialog;
    item.place = filedialog::PlaceOnScreen(dialog_);
    return item;
  }
  const auto part = PartOf(node);
  if (!part) return std::nullopt;
  if (part->area) {
    item = filedialog::AreaItem(*part->area, navigation_.Areas().StateOf(*part->area));
    RECT rect = filedialog::ToSystem(navigation_.Areas().RectOf(*part->area));
    dialog_.ClientToScreen(&rect);
    item.place = filedialog::PlaceOf(rect);
  } else {
    item.place = filedialog::PlaceOnScreen(WindowRef(part->window));
  }
  return item;
}

os::WindowHandle CvBrowserTree::WindowOf(Node node) const {
  const auto part = PartOf(node);
  return part && !part->area ? part->window : nullptr;
}

std::optional<Node> CvBrowserTree::Focused() const {
  const HWND focus = ::GetFocus();
  int at = 0;
  for (const Part& part : Parts()) {
    ++at;
    const bool has = WindowRef(part.window).Is(focus) || ::IsChild(part.window, focus) != FALSE;
    if (has && !part.area) return Node{at, 0};
  }
  return std::nullopt;
}

/// A control that comes to be seen moves those behind it on.
std::uint64_t CvBrowserTree::IdentityOf(Node node) const {
  const auto part = PartOf(node);
  return part ? static_cast<std::uint64_t>(::GetDlgCtrlID(part->window)) : 0;
}

bool CvBrowserTree::Act(Node node) {
  const auto part = PartOf(node);
  return part && part->area && navigation_.Press(*part->area);
}
