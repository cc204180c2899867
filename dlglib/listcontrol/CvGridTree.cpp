#include "dlglib/listcontrol/CvGridTree.h"

#include "dlglib/listcontrol/CvGrid.h"
#include "dlglib/listcontrol/cell_item.h"

using accessible::Item;
using accessible::Node;

namespace {

grid::CellPosition CellOf(Node node) { return {node.part - 1, node.sub - 1}; }

accessible::Place PlaceOf(const RECT& rect) {
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

bool SelectsSeveral(HWND listView) { return (::GetWindowLongW(listView, GWL_STYLE) & LVS_SINGLESEL) == 0; }

}  // namespace

bool CvGridTree::IsRow(Node node) const { return node.sub == 0 && grid_.Model().IsUsed(node.part - 1); }

bool CvGridTree::IsCell(Node node) const {
  return node.sub > 0 && grid_.Model().IsUsed(node.part - 1) && grid_.Model().HasColumn(node.sub - 1);
}

int CvGridTree::CountOf(Node node) const {
  if (node == accessible::kWhole) return grid_.Model().UsedRows();
  return IsRow(node) ? grid_.Model().ColumnCount() : 0;
}

std::optional<Item> CvGridTree::Find(Node node) const {
  Item item;
  if (node == accessible::kWhole) {
    item.name = "表";
    item.role = accessible::Role::Table;
    item.states = accessible::kFocusable;
    if (SelectsSeveral(grid_.ListWindow())) item.states |= accessible::kMultiSelectable;
    if (framework::IsSameWindow(grid_.ListWindow(), ::GetFocus())) item.states |= accessible::kFocused;
    RECT place = {};
    ::GetWindowRect(grid_.ListWindow(), &place);
    item.place = PlaceOf(place);
    return item;
  }
  if (!IsRow(node) && !IsCell(node)) return std::nullopt;
  item = IsRow(node) ? grid_.SpokenRow(node.part - 1) : grid_.SpokenCell(CellOf(node));
  const CvGrid::SpokenPlace place = grid_.PlaceToSpeakOf(node.part - 1, node.sub - 1);
  item.place = PlaceOf(place.onScreen);
  if (!place.inSight) item.states |= accessible::kOffScreen;
  if (Focused() == node) item.states |= accessible::kFocused;
  return item;
}

/// Boxes and drop-down lists of cells are windows of the dialog.
bool CvGridTree::OwnsWindow(os::WindowHandle window) const { return grid_.IsOfGrid(static_cast<HWND>(window)); }

std::optional<Node> CvGridTree::Focused() const {
  const grid::CellPosition focus = grid::GridNews::FocusOf(grid_.Model(), grid_.StandingNow());
  return focus.row != grid::kNoRow ? std::optional(Node{focus.row + 1, focus.column + 1}) : std::nullopt;
}

std::vector<Node> CvGridTree::Selected() const {
  std::vector<Node> nodes;
  for (int row = 0; row < grid_.Model().UsedRows(); ++row) {
    if (grid_.Model().ShowsSelected(row)) nodes.push_back({row + 1, 0});
  }
  return nodes;
}

std::optional<Node> CvGridTree::At(int x, int y) const {
  RECT place = {};
  ::GetWindowRect(grid_.ListWindow(), &place);
  if (!PlaceOf(place).Holds(x, y)) return std::nullopt;
  const grid::CellPosition cell = grid_.CellToSpeakOfAt({x, y});
  const Node node{cell.row + 1, cell.column + 1};
  return IsCell(node) ? node : accessible::kWhole;
}

/// Cells are known by their rows and columns.
std::uint64_t CvGridTree::IdentityOf(Node) const { return grid_.Arrangement(); }

/// As a click on the cell does.
bool CvGridTree::Act(Node node) {
  if (!IsCell(node) || !IsAvailable(node)) return false;
  grid_.ClickItem(node.part - 1, node.sub - 1);
  return true;
}

bool CvGridTree::Choose(Node node, Choice) {
  if (node == accessible::kWhole) {
    ::SetFocus(grid_.ListWindow());
    return true;
  }
  return Act(IsRow(node) ? FirstCellOf(node) : node);
}

/// The first cell of a row that can be edited; none when there is none.
Node CvGridTree::FirstCellOf(Node row) const {
  Node cell{row.part, 1};
  while (IsCell(cell) && !IsAvailable(cell)) ++cell.sub;
  return cell;
}

bool CvGridTree::IsAvailable(Node cell) const { return grid_.Model().Available(cell.part - 1, cell.sub - 1) == 0; }
