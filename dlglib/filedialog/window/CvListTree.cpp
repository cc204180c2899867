#include "dlglib/filedialog/window/CvListTree.h"

#include "dlglib/filedialog/window/CvAccessiblePlace.h"
#include "dlglib/filedialog/window/CvFileList.h"

using accessible::Item;
using accessible::Node;
using filedialog::PlaceOnScreen;

int CvListTree::RowCount() const { return list_.Notice().CoversRows() ? 0 : list_.RowCount(); }

bool CvListTree::IsRow(Node node) const { return node.sub == 0 && node.part >= 1 && node.part <= RowCount(); }

bool CvListTree::HasHeader() const { return WindowRef(list_.GetHeaderCtrl()).IsWindowVisible() != FALSE; }

int CvListTree::CountOf(Node node) const { return node == accessible::kWhole ? RowCount() + (HasHeader() ? 1 : 0) : 0; }

std::optional<Item> CvListTree::Find(Node node) const {
  if (IsRow(node)) return list_.ItemOf(node.part - 1);
  if (node == accessible::kWhole) return Whole();
  if (node.part != RowCount() + 1 || !HasHeader()) return std::nullopt;
  Item item;
  item.name = "見出し";
  item.place = PlaceOnScreen(WindowRef(list_.GetHeaderCtrl()));
  return item;
}

Item CvListTree::Whole() const {
  const filedialog::ListNotice notice = list_.Notice().Said();
  Item item;
  item.name = "一覧";
  item.value = notice.line;
  if (notice.line.empty()) item.description = notice.remark;
  item.role = accessible::Role::List;
  item.states = accessible::kFocusable | (list_.IsForSeveral() ? accessible::kMultiSelectable : 0);
  if (list_.Is(::GetFocus())) item.states |= accessible::kFocused;
  item.place = PlaceOnScreen(list_);
  return item;
}

os::WindowHandle CvListTree::WindowOf(Node node) const {
  return node.part == RowCount() + 1 ? list_.GetHeaderCtrl().m_hWnd : nullptr;
}

std::optional<Node> CvListTree::Focused() const {
  const auto row = list_.States().focused;
  return row && *row < RowCount() ? std::optional(Node{*row + 1, 0}) : std::nullopt;
}

std::vector<Node> CvListTree::Selected() const {
  std::vector<Node> nodes;
  if (list_.Notice().CoversRows()) return nodes;
  for (const int row : list_.SelectedRows()) nodes.push_back({row + 1, 0});
  return nodes;
}

std::optional<Node> CvListTree::At(int x, int y) const {
  if (HasHeader() && PlaceOnScreen(WindowRef(list_.GetHeaderCtrl())).Holds(x, y)) return Node{RowCount() + 1, 0};
  if (!PlaceOnScreen(list_).Holds(x, y)) return std::nullopt;
  LVHITTESTINFO hit{};
  hit.pt = {x, y};
  list_.ScreenToClient(&hit.pt);
  list_.SendPointer(LVM_HITTEST, 0, &hit);
  const Node node{hit.iItem + 1, 0};
  return IsRow(node) ? node : accessible::kWhole;
}

std::uint64_t CvListTree::IdentityOf(Node node) const { return IsRow(node) ? list_.IdentityOf(node.part - 1) : 0; }

/// As a double click does.
bool CvListTree::Act(Node node) {
  if (!IsRow(node)) return false;
  list_.ChooseRow(node.part - 1);
  opened_();
  return true;
}

bool CvListTree::Choose(Node node, Choice choice) {
  if (node == accessible::kWhole) list_.SetFocus();
  if (!IsRow(node)) return node == accessible::kWhole;
  list_.SetFocus();
  if (choice == Choice::Select) {
    list_.ChooseRow(node.part - 1);
  } else {
    list_.FocusRow(node.part - 1);
  }
  return true;
}
