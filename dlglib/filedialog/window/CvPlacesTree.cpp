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

/// The row that stands out: in the open list the one that keys and the pointer have come to.
std::optional<std::size_t> CvPlacesTree::MarkedRow() const {
  const auto row = bar_.GetDroppedState() ? static_cast<std::size_t>(bar_.GetCurSel()) : places_.currentRow();
  return row < places_.rows().size() ? std::optional(row) : std::nullopt;  // none is -1, which is no row either
}

/// On the screen, in the open list, which is a window of the system's.
std::optional<RECT> CvPlacesTree::RectInList(std::size_t row) const {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (!bar_.GetDroppedState() || ::GetComboBoxInfo(bar_.m_hWnd, &parts) == FALSE) return std::nullopt;
  const ListBoxRef list(parts.hwndList);
  RECT rect{};
  if (list.Send(LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&rect)) == LB_ERR) return std::nullopt;
  RECT inside{};
  list.GetClientRect(&inside);
  RECT seen{};
  if (::IntersectRect(&seen, &rect, &inside) == FALSE) return std::nullopt;
  list.ClientToScreen(&rect);
  return rect;
}

/// Rows have a place only in the open list.
std::optional<Item> CvPlacesTree::FindRow(std::size_t row) const {
  const filedialog::Place& place = places_.rows()[row];
  Item item;
  item.name = place.text;
  item.value = std::to_string(place.level);
  item.description = filedialog::KindText(place.kind);
  item.role = accessible::Role::ListItem;
  item.action = "移動";
  item.states = accessible::kSelectable;
  const auto rect = RectInList(row);
  if (rect) item.place = filedialog::PlaceOf(*rect);
  if (!rect) item.states |= bar_.GetDroppedState() ? accessible::kOffScreen : accessible::kInvisible;
  if (MarkedRow() == row) item.states |= accessible::kSelected;
  if (!bar_.IsWindowEnabled()) item.states |= accessible::kUnavailable;
  return item;
}

std::vector<Node> CvPlacesTree::Selected() const {
  const auto row = MarkedRow();
  return row ? std::vector{Node{static_cast<int>(*row) + 1, 0}} : std::vector<Node>();
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
