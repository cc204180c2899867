#include "dlglib/utility/toolbar/CvToolBarTree.h"

#include "dlglib/base/CvGeometry.h"
#include "dlglib/utility/toolbar/CvToolBar.h"

using accessible::Item;
using accessible::Node;

namespace {

accessible::Place PlaceOf(const RECT& rect) {
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

bool IsButton(Node node) {
  return node.sub == 0 && node.part >= 1 && node.part <= static_cast<int>(tool_buttons::kCount);
}

std::size_t IndexOf(Node node) { return static_cast<std::size_t>(node.part) - 1; }

}  // namespace

int CvToolBarTree::CountOf(Node node) const {
  return node == accessible::kWhole ? static_cast<int>(tool_buttons::kCount) : 0;
}

std::optional<Item> CvToolBarTree::Find(Node node) const {
  Item item;
  RECT place = {};
  if (node == accessible::kWhole) {
    item.name = "文字の挿入";
    item.role = accessible::Role::ToolBar;
    item.states = accessible::kFocusable;
    bar_.GetWindowRect(&place);
    item.place = PlaceOf(place);
    return item;
  }
  if (!IsButton(node)) return std::nullopt;
  item = tool_buttons::ItemOf(bar_.Buttons()[IndexOf(node)], bar_.IsUsable(IndexOf(node)));
  if (Focused() == node) item.states |= accessible::kFocused;
  place = geometry::ToSystem(bar_.Buttons()[IndexOf(node)].rect);
  bar_.ClientToScreen(&place);
  item.place = PlaceOf(place);
  return item;
}

std::optional<Node> CvToolBarTree::Focused() const {
  const auto button = bar_.WalkedTo();
  return button ? std::optional(Node{static_cast<int>(*button) + 1, 0}) : std::nullopt;
}

bool CvToolBarTree::Act(Node node) { return IsButton(node) && bar_.PressButton(IndexOf(node)); }

/// Buttons cannot be selected.
bool CvToolBarTree::Choose(Node node, Choice choice) {
  if (choice != Choice::Focus) return false;
  if (IsButton(node)) return bar_.FocusButton(IndexOf(node));
  if (node == accessible::kWhole) bar_.SetFocus();
  return node == accessible::kWhole;
}
