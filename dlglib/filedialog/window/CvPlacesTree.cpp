#include "dlglib/filedialog/window/CvPlacesTree.h"

#include "dlglib/filedialog/listing/row_item.h"
#include "dlglib/filedialog/window/CvAccessiblePlace.h"

using accessible::Item;
using accessible::Node;

int CvPlacesTree::CountOf(Node node) const {
  return node == accessible::kWhole ? static_cast<int>(places_.rows().size()) : 0;
}

bool CvPlacesTree::IsRow(Node node) const {
  return node.sub == 0 && node.part >= 1 && node.part <= CountOf(accessible::kWhole);
}

std::optional<Item> CvPlacesTree::Find(Node node) const {
  if (node != accessible::kWhole) {
    return IsRow(node) ? FindRow(static_cast<std::size_t>(node.part) - 1) : std::nullopt;
  }
  Item item;
  item.name = "ファイルの場所";
  item.role = accessible::Role::ComboBox;
  item.key = "Alt+D";
  item.action = bar_.GetDroppedState() ? "閉じる" : "開く";
  item.states = accessible::kFocusable | accessible::kHasPopup;
  if (bar_.Is(::GetFocus())) item.states |= accessible::kFocused;
  if (!bar_.IsWindowEnabled()) item.states |= accessible::kUnavailable;
  if (places_.currentRow() < places_.rows().size()) item.value = places_.rows()[places_.currentRow()].text;
  item.place = filedialog::PlaceOnScreen(bar_);
  return item;
}

/// Rows have a place only in the open list, which is a window of the system's.
std::optional<Item> CvPlacesTree::FindRow(std::size_t row) const {
  const filedialog::Place& place = places_.rows()[row];
  Item item;
  item.name = place.text;
  item.value = std::to_string(place.level);
  item.description = filedialog::KindText(place.kind);
  item.role = accessible::Role::ListItem;
  item.action = "移動";
  item.states = accessible::kSelectable | (bar_.GetDroppedState() ? 0 : accessible::kInvisible);
  if (row == places_.currentRow()) item.states |= accessible::kSelected;
  if (!bar_.IsWindowEnabled()) item.states |= accessible::kUnavailable;
  return item;
}

std::vector<Node> CvPlacesTree::Selected() const {
  if (places_.currentRow() >= places_.rows().size()) return {};
  return {Node{static_cast<int>(places_.currentRow()) + 1, 0}};
}

std::uint64_t CvPlacesTree::IdentityOf(Node node) const {
  if (!IsRow(node)) return 0;
  const filedialog::Place& place = places_.rows()[static_cast<std::size_t>(node.part) - 1];
  return filedialog::IdentityOf(place.kind, place.path, place.text);
}

bool CvPlacesTree::Act(Node node) {
  if (IsRow(node)) {
    choose_(static_cast<std::size_t>(node.part) - 1);
    return true;
  }
  if (node != accessible::kWhole) return false;
  bar_.SetFocus();
  bar_.ShowDropDown(bar_.GetDroppedState() ? FALSE : TRUE);
  return true;
}

bool CvPlacesTree::Choose(Node node, Choice choice) {
  if (node != accessible::kWhole || choice != Choice::Focus) return false;
  bar_.SetFocus();
  return true;
}
