// Drawing: the cells as the core plans them, onto the list view.
#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>

#include "dlglib/base/edge.h"
#include "dlglib/listcontrol/CvListControl.h"
#include "dlglib/listcontrol/CvListControlState.h"
#include "dlglib/listcontrol/cell_plan.h"
#include "platform/framework/gdi.h"

namespace {

using grid::CellContent;
using grid::CellPlan;
using grid::DropButton;

[[nodiscard]] RECT ToRect(const grid::Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }
[[nodiscard]] grid::Rect FromRect(const RECT& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

/// A copy of the window's font; null for the system's.
[[nodiscard]] UniqueFont CopyFont(const CWnd* window) {
  LOGFONTA font = {};
  const HFONT original = window != nullptr ? window->GetFont() : nullptr;
  if (original == nullptr || ::GetObjectA(original, sizeof font, &font) == 0) return UniqueFont();
  return UniqueFont(::CreateFontIndirectA(&font));
}

void Fill(HDC dc, const RECT& rect, grid::Colour colour) {
  const UniqueBrush brush(::CreateSolidBrush(colour));
  ::FillRect(dc, &rect, brush.Get());
}

template <std::size_t kCount>
void DrawLines(HDC dc, const std::array<grid::Point, kCount>& points) {
  ::MoveToEx(dc, points[0].x, points[0].y, nullptr);
  for (std::size_t i = 1; i < kCount; ++i) ::LineTo(dc, points[i].x, points[i].y);
}

void DrawButton(HDC dc, const DropButton& button) {
  Fill(dc, ToRect(button.face), grid::kButtonFace);
  DrawLines(dc, button.outerEdge);
  DrawLines(dc, button.innerEdge);
  DrawLines(dc, button.arrow);
}

/// No line break, no tab: DrawText then draws it as TextOut does, in one line from the upper left corner.
[[nodiscard]] bool IsPlain(std::string_view text, UINT flags) {
  constexpr UINT kHarmless = DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;
  constexpr unsigned char kFirstPrintable = 0x20;
  return (flags & ~kHarmless) == 0 && std::all_of(text.begin(), text.end(), [](char byte) {
           return static_cast<unsigned char>(byte) >= kFirstPrintable;
         });
}

/// A text as it is drawn, and where its characters end.
class Line {
 public:
  Line(HDC dc, std::string_view text)
      : length_(::MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), units_.data(), kRoom)) {
    ::GetTextExtentExPointW(dc, units_.data(), length_, 0, nullptr, ends_.data(), &size_);
  }

  [[nodiscard]] int Width() const noexcept { return size_.cx; }
  /// Fills `cell` with the background colour, and writes into it from its upper left corner. With the widths given, the
  /// system need not measure a second time.
  void Write(HDC dc, const RECT& cell) {
    std::adjacent_difference(ends_.begin(), ends_.begin() + length_, ends_.begin());
    ::ExtTextOutW(dc, cell.left, cell.top, ETO_OPAQUE | ETO_CLIPPED, &cell, units_.data(), static_cast<UINT>(length_),
                  ends_.data());
  }

 private:
  static constexpr int kRoom = grid::kMaxTextLimit;

  std::array<wchar_t, kRoom> units_;
  std::array<int, kRoom> ends_;
  SIZE size_ = {};
  int length_;
};

/// Paper and text of a cell. One call does both where its pixels are those of DrawText.
void DrawText(HDC dc, const CellPlan& plan, const char* text, UINT flags) {
  const RECT cell = ToRect(plan.cell);
  const std::string_view view(text);
  if (IsPlain(view, flags)) {
    Line line(dc, view);
    if (line.Width() <= cell.right - cell.left || view.empty()) {
      line.Write(dc, cell);
      return;
    }
  }
  Fill(dc, cell, plan.colours.paper);
  RECT place = cell;
  ::DrawTextA(dc, view.data(), static_cast<int>(view.size()), &place, flags | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void DrawCell(HDC dc, const CellPlan& plan, const char* text, UINT flags) {
  if (plan.button) DrawButton(dc, *plan.button);
  if (plan.content == CellContent::Text) {
    DrawText(dc, plan, text, flags);
    return;
  }
  Fill(dc, ToRect(plan.cell), plan.colours.paper);
  if (plan.content == CellContent::Swatch) Fill(dc, ToRect(plan.swatch), plan.swatchColour);
}

/// An editor stands above the list view, which is not clipped by it.
void LeaveOut(HDC dc, HWND list, const WindowRef& editor) {
  if (!editor.IsWindowVisible()) return;
  RECT place = {};
  editor.GetWindowRect(&place);
  WindowRef(list).ScreenToClient(&place);
  ::ExcludeClipRect(dc, place.left, place.top, place.right, place.bottom);
}

}  // namespace

void CvListControl::Surface::SetColours(grid::Colour ink, grid::Colour paper) noexcept {
  if (ink != ink_) ::SetTextColor(Dc(), ink);
  if (paper != paper_) ::SetBkColor(Dc(), paper);
  ink_ = ink;
  paper_ = paper;
}

CvListControl::Surface::Surface(const State& state)
    : dc_(state.list.m_hWnd), font_(CopyFont(state.Parent())), selected_(dc_.Get(), font_.Get()) {
  if (dc_.Get() == nullptr) return;
  ::SetBkMode(dc_.Get(), TRANSPARENT);
  ::SetTextColor(dc_.Get(), ink_);
  ::SetBkColor(dc_.Get(), paper_);
  LeaveOut(dc_.Get(), state.list.m_hWnd, WindowRef(WindowRef::HandleOf(state.currentEdit.get())));
  LeaveOut(dc_.Get(), state.list.m_hWnd, WindowRef(state.openCombo));
}

void CvListControl::OnDrawItem(DRAWITEMSTRUCT* dis) noexcept {
  edge::Guarded([&] {
    if (dis == nullptr) return;
    State& state = *state_;
    const LifeWatch watch(*this);
    const Moved moved = state.painting && state.painting->laidOut ? Moved{} : LayOut();
    // What has moved sideways is laid out by now, so only rows that have moved take their box along.
    SelectCell(moved.rows);
    if (!watch.Alive()) return;
    if (moved.rows || moved.sideways) FocusListForHiddenEditor();
    if (!watch.Alive()) return;
    const int row = static_cast<int>(dis->itemID);
    if (row >= 0 && row < state.model.Capacity()) PaintRows(row, row + 1);
    if (row < 0) DrawItem();
  });
}

/// Finds out where the columns and rows lie, and hides the edit box when they have moved.
CvListControl::Moved CvListControl::LayOut() {
  State& state = *state_;
  state.FindListView();
  const grid::ViewPosition position = state.AskPosition();
  const Moved moved = {IsVScroll() != 0, state.columnsRecorded && grid::HasMovedSideways(state.position, position)};
  const std::array<grid::ColumnEdges, grid::kMaxColumns> before = state.edges;
  RecordColumns(position);
  if (moved.sideways) state.EraseCopyOfEdit(before);
  if ((moved.rows || moved.sideways) && state.currentEdit != nullptr) state.currentEdit->Hide();
  RefreshPage();
  if (state.painting) state.painting->laidOut = true;
  return moved;
}

void CvListControl::DrawItem() noexcept {
  edge::Guarded([&] {
    RefreshPage();
    PaintRows(state_->page.top, std::min(state_->page.end, state_->model.Capacity()));
  });
}

/// While the list view paints itself, one surface serves all of its rows.
void CvListControl::PaintRows(int first, int end) {
  State& state = *state_;
  std::optional<Surface> own;
  std::optional<Surface>& surface = state.painting ? state.painting->surface : own;
  if (!surface) surface.emplace(state);
  if (surface->Dc() == nullptr) return;
  for (int row = first; row < end; ++row) state.PaintRow(*surface, row);
}

void CvListControl::RefreshPage() {
  State& state = *state_;
  RECT first = {};
  RECT client = {};
  state.list.GetItemRect(0, &first, LVIR_BOUNDS);
  state.list.GetClientRect(&client);
  const bool scrolls = (state.list.GetStyle() & LVS_NOSCROLL) == 0;
  const int rows = grid::RowsPerPage(state.list.GetCountPerPage(), scrolls, FromRect(first), FromRect(client));
  const int top = state.list.GetTopIndex();
  state.page = {rows, top, top + rows};
}

int CvListControl::IsVScroll() { return state_->list.GetTopIndex() != state_->page.top ? 1 : 0; }

int CvListControl::IsHScroll() { return grid::HasMovedSideways(state_->position, state_->AskPosition()) ? 1 : 0; }

void CvListControl::RecordColumns(const grid::ViewPosition& position) {
  State& state = *state_;
  state.position = position;
  grid::LayOutColumns(position, state.Edges());
  state.columnsRecorded = true;
}

/// Before the list view has been painted for the first time, or after a column has been added, nothing is recorded.
void CvListControl::RecordColumnsOnce() {
  if (!state_->columnsRecorded) RecordColumns(state_->AskPosition());
}

/// The list view is not clipped by an editor that stands above it: its background goes over the editor, which then has
/// to paint itself again.
void CvListControl::State::OnPaint(bool begins) noexcept {
  const bool repaintEditor = !begins && painting && painting->underEditor;
  painting.reset();
  if (begins) BeginPainting(PaintsUnderEditor());
  if (const WindowRef editor(UppermostEditor()); repaintEditor && editor.IsWindow()) editor.Invalidate();
}

/// An open list covers the edit box of its cell.
HWND CvListControl::State::UppermostEditor() const noexcept {
  return ::IsWindowVisible(openCombo) != FALSE ? openCombo : WindowRef::HandleOf(currentEdit.get());
}

bool CvListControl::State::PaintsUnderEditor() const noexcept {
  const WindowRef editor(UppermostEditor());
  if (!editor.IsWindowVisible()) return false;
  RECT update = {};
  RECT box = {};
  RECT common = {};
  ::GetUpdateRect(list.m_hWnd, &update, FALSE);
  editor.GetWindowRect(&box);
  list.ScreenToClient(&box);
  return ::IntersectRect(&common, &update, &box) != FALSE;
}

/// A list view moves the pixels of a box above it along with its own, also between the cells, where no cell is painted
/// over them.
void CvListControl::State::EraseCopyOfEdit(std::span<const grid::ColumnEdges> before) const {
  const WindowRef editor(WindowRef::HandleOf(currentEdit.get()));
  if (!editor.IsWindowVisible() || !currentEdit->Cell()) return;
  const int column = currentEdit->Cell()->column;
  RECT copy = {};
  editor.GetWindowRect(&copy);
  list.ScreenToClient(&copy);
  ::OffsetRect(&copy, EdgesOf(column).left - before[static_cast<std::size_t>(column)].left, 0);
  list.InvalidateRect(&copy);
}

/// The search through the children of the parent is saved while the one that is known still is that child.
void CvListControl::State::FindListView() {
  const bool inPlace = list.IsWindow() && framework::IsSameWindow(::GetParent(list.m_hWnd), parent);
  if (!inPlace || list.GetDlgCtrlID() != listId) list = ListCtrlRef(::GetDlgItem(parent, listId));
}

grid::ViewPosition CvListControl::State::AskPosition() const {
  RECT first = {};
  list.GetItemRect(0, &first, LVIR_BOUNDS);
  grid::ViewPosition asked;
  asked.firstItemLeft = first.left;
  asked.columnCount = model.ColumnCount();
  for (int c = 0; c < asked.columnCount; ++c) asked.widths[static_cast<std::size_t>(c)] = list.GetColumnWidth(c);
  return asked;
}

grid::CellPlace CvListControl::State::PlaceOf(int row, int col) const {
  RECT item = {};
  list.GetItemRect(row, &item, LVIR_BOUNDS);
  return {place, EdgesOf(col).left, list.GetColumnWidth(col), item.top, item.bottom - item.top};
}

bool CvListControl::State::HasDropButton(int row, int col) const {
  return edited == GridCell{row, col} && At(col).combo != nullptr && EdgesOf(col).left >= 0 &&
         model.Available(row, col) == 0;
}

void CvListControl::State::PaintRow(Surface& surface, int row) {
  RECT bounds = {};
  RECT client = {};
  list.GetItemRect(row, &bounds, LVIR_BOUNDS);
  list.GetClientRect(&client);
  const bool firstAvailable = model.Looks(row, 0).available == 0;
  const bool rowSelected = model.ShowsSelected(row);
  for (int col = 0; col < model.ColumnCount(); ++col) {
    const grid::ColumnEdges& column = EdgesOf(col);
    if (column.right <= client.left || column.left >= client.right) continue;
    const int button = HasDropButton(row, col) ? ::GetSystemMetrics(SM_CXVSCROLL) : -1;
    const grid::CellState cell = {model.Looks(row, col), firstAvailable, rowSelected};
    const CellPlan plan = grid::PlanCell(cell, {FromRect(bounds), column, At(col).kind, button});
    surface.SetColours(plan.colours.ink, plan.colours.paper);
    DrawCell(surface.Dc(), plan, model.Text(row, col), At(col).drawFlags);
  }
}
