// Drawing: the cells as the core plans them, onto the list view.
#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>

#include "dlglib/base/CvGeometry.h"
#include "dlglib/listcontrol/CvGrid.h"
#include "platform/framework/detail/text_drawing.h"
#include "platform/framework/gdi.h"
#include "platform/os/display.h"
#include "platform/os/sjis_wide.h"

namespace {

using geometry::ToRect;
using geometry::ToSystem;
using grid::CellContent;
using grid::CellPlan;
using grid::DropButton;

/// A copy of the window's font; null for the system's.
[[nodiscard]] UniqueFont CopyFont(const CWnd* window) {
  LOGFONTW font = {};
  const HFONT original = window != nullptr ? window->GetFont() : nullptr;
  if (original == nullptr || ::GetObjectW(original, sizeof font, &font) == 0) return UniqueFont();
  return UniqueFont(::CreateFontIndirectW(&font));
}

void Fill(HDC dc, const RECT& rect, grid::Colour colour) {
  const UniqueBrush brush(::CreateSolidBrush(colour));
  ::FillRect(dc, &rect, brush.Get());
}

void Frame(HDC dc, RECT rect, grid::Colour colour, int width = 1) {
  const UniqueBrush brush(::CreateSolidBrush(colour));
  for (int line = 0; line < width; ++line) {
    ::FrameRect(dc, &rect, brush.Get());
    ::InflateRect(&rect, -1, -1);
  }
}

[[nodiscard]] std::optional<grid::SystemColours> ContrastColours() {
  if (!os::ThisDisplay().HasHighContrast()) return std::nullopt;
  return grid::SystemColours{.text = ::GetSysColor(COLOR_WINDOWTEXT),
                             .window = ::GetSysColor(COLOR_WINDOW),
                             .greyText = ::GetSysColor(COLOR_GRAYTEXT),
                             .selectedText = ::GetSysColor(COLOR_HIGHLIGHTTEXT),
                             .selectedPaper = ::GetSysColor(COLOR_HIGHLIGHT),
                             .buttonText = ::GetSysColor(COLOR_BTNTEXT),
                             .buttonFace = ::GetSysColor(COLOR_BTNFACE)};
}

template <std::size_t kCount>
void DrawLines(HDC dc, const std::array<grid::Point, kCount>& points) {
  ::MoveToEx(dc, points[0].x, points[0].y, nullptr);
  for (std::size_t i = 1; i < kCount; ++i) ::LineTo(dc, points[i].x, points[i].y);
}

template <std::size_t kCount>
void FillPolygon(HDC dc, const std::array<grid::Point, kCount>& points, grid::Colour colour) {
  const UniqueBrush brush(::CreateSolidBrush(colour));
  const Selected selected(dc, brush.Get());
  std::array<POINT, kCount> corners;
  std::transform(points.begin(), points.end(), corners.begin(), [](grid::Point at) { return POINT{at.x, at.y}; });
  ::Polygon(dc, corners.data(), static_cast<int>(kCount));
}

void DrawButton(HDC dc, const DropButton& button) {
  Fill(dc, ToSystem(button.face), button.faceColour);
  if (button.isFramed) Frame(dc, ToSystem(button.face), button.lineColour);
  const Selected pen(dc, ::GetStockObject(DC_PEN));
  ::SetDCPenColor(dc, button.lineColour);
  DrawLines(dc, button.outerEdge);
  DrawLines(dc, button.innerEdge);
  if (button.isFilled) FillPolygon(dc, button.arrow, button.lineColour);
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
  Line(HDC dc, std::string_view text) : length_(os::CopyWide(text, units_)) {
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
  const RECT cell = ToSystem(plan.cell);
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
  framework::DrawSjis(dc, view, &place, flags | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void DrawCell(HDC dc, const CellPlan& plan, const char* text, UINT flags) {
  if (plan.button) DrawButton(dc, *plan.button);
  if (plan.content == CellContent::Text) {
    DrawText(dc, plan, text, flags);
    return;
  }
  Fill(dc, ToSystem(plan.cell), plan.colours.paper);
  if (plan.content != CellContent::Swatch) return;
  const RECT swatch = ToSystem(plan.swatch);
  Fill(dc, swatch, plan.swatchColour);
  if (plan.swatchFrame) Frame(dc, swatch, *plan.swatchFrame, plan.swatchFrameWidth);
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

void CvGrid::Surface::SetColours(grid::Colour ink, grid::Colour paper) noexcept {
  if (ink != ink_) ::SetTextColor(Dc(), ink);
  if (paper != paper_) ::SetBkColor(Dc(), paper);
  ink_ = ink;
  paper_ = paper;
}

CvGrid::Surface::Surface(const CvGrid& grid)
    : dc_(grid.list_.m_hWnd),
      font_(CopyFont(grid.Parent())),
      selected_(dc_.Get(), font_.Get()),
      system_(ContrastColours()) {
  if (dc_.Get() == nullptr) return;
  ::SetBkMode(dc_.Get(), TRANSPARENT);
  ::SetTextColor(dc_.Get(), ink_);
  ::SetBkColor(dc_.Get(), paper_);
  LeaveOut(dc_.Get(), grid.list_.m_hWnd, WindowRef(WindowRef::HandleOf(grid.currentEdit_.get())));
  LeaveOut(dc_.Get(), grid.list_.m_hWnd, WindowRef(grid.openCombo_));
}

void CvGrid::OnDrawItem(int row) {
  const LifeWatch watch(owner_);
  const Moved moved = painting_ && painting_->laidOut ? Moved{} : LayOut();
  // What has moved sideways is laid out by now, so only rows that have moved take their box along.
  SelectCell(moved.rows);
  if (!watch.Alive()) return;
  if (moved.rows || moved.sideways) FocusListForHiddenEditor();
  if (!watch.Alive()) return;
  if (row >= 0 && row < model_.Capacity()) PaintRows(row, row + 1);
  if (row < 0) DrawItem();
}

/// Finds out where the columns and rows lie, and hides the edit box when they have moved.
CvGrid::Moved CvGrid::LayOut() {
  FindListView();
  FollowScale();
  const grid::ViewPosition position = AskPosition();
  const Moved moved = {HaveRowsMoved(), columnsRecorded_ && grid::HasMovedSideways(position_, position)};
  const std::array<grid::ColumnEdges, grid::kMaxColumns> before = edges_;
  RecordColumns(position);
  if (moved.sideways) EraseCopyOfEdit(before);
  if ((moved.rows || moved.sideways) && currentEdit_ != nullptr) currentEdit_->Hide();
  RefreshPage();
  if (painting_) painting_->laidOut = true;
  return moved;
}

void CvGrid::DrawItem() {
  RefreshPage();
  PaintRows(page_.top, std::min(page_.end, model_.Capacity()));
}

/// While the list view paints itself, one surface serves all of its rows.
void CvGrid::PaintRows(int first, int end) {
  std::optional<Surface> own;
  std::optional<Surface>& surface = painting_ ? painting_->surface : own;
  if (!surface) surface.emplace(*this);
  if (surface->Dc() == nullptr) return;
  for (int row = first; row < end; ++row) PaintRow(*surface, row);
}

void CvGrid::RefreshPage() {
  RECT first = {};
  RECT client = {};
  list_.GetItemRect(0, &first, LVIR_BOUNDS);
  list_.GetClientRect(&client);
  const bool scrolls = (list_.GetStyle() & LVS_NOSCROLL) == 0;
  const int rows = grid::RowsPerPage(list_.GetCountPerPage(), scrolls, ToRect(first), ToRect(client));
  const int top = list_.GetTopIndex();
  page_ = {rows, top, top + rows};
}

bool CvGrid::HaveRowsMoved() const { return list_.GetTopIndex() != page_.top; }

bool CvGrid::HaveColumnsMoved() const { return grid::HasMovedSideways(position_, AskPosition()); }

void CvGrid::RecordColumns(const grid::ViewPosition& position) {
  position_ = position;
  grid::LayOutColumns(position, Edges());
  columnsRecorded_ = true;
}

/// Before the list view has been painted for the first time, or after a column has been added, nothing is recorded.
void CvGrid::RecordColumnsOnce() {
  if (!columnsRecorded_) RecordColumns(AskPosition());
}

/// The list view is not clipped by an editor that stands above it: its background goes over the editor, which then has
/// to paint itself again.
void CvGrid::OnPaint(bool begins) noexcept {
  const bool repaintEditor = !begins && painting_ && painting_->underEditor;
  painting_.reset();
  if (begins) FollowGround();
  if (begins) BeginPainting(PaintsUnderEditor());
  if (const WindowRef editor(UppermostEditor()); repaintEditor && editor.IsWindow()) editor.Invalidate();
}

/// An open list covers the edit box of its cell.
HWND CvGrid::UppermostEditor() const noexcept {
  return ::IsWindowVisible(openCombo_) != FALSE ? openCombo_ : WindowRef::HandleOf(currentEdit_.get());
}

bool CvGrid::PaintsUnderEditor() const noexcept {
  const WindowRef editor(UppermostEditor());
  if (!editor.IsWindowVisible()) return false;
  RECT update = {};
  RECT box = {};
  RECT common = {};
  ::GetUpdateRect(list_.m_hWnd, &update, FALSE);
  editor.GetWindowRect(&box);
  list_.ScreenToClient(&box);
  return ::IntersectRect(&common, &update, &box) != FALSE;
}

/// A list view moves the pixels of a box above it along with its own, also between the cells, where no cell is painted
/// over them.
void CvGrid::EraseCopyOfEdit(std::span<const grid::ColumnEdges> before) const {
  const WindowRef editor(WindowRef::HandleOf(currentEdit_.get()));
  if (!editor.IsWindowVisible() || !currentEdit_->Cell()) return;
  const int column = currentEdit_->Cell()->column;
  RECT copy = {};
  editor.GetWindowRect(&copy);
  list_.ScreenToClient(&copy);
  ::OffsetRect(&copy, EdgesOf(column).left - before[static_cast<std::size_t>(column)].left, 0);
  list_.InvalidateRect(&copy);
}

/// The search through the children of the parent is saved while the one that is known still is that child.
void CvGrid::FindListView() {
  const bool inPlace = list_.IsWindow() && framework::IsSameWindow(::GetParent(list_.m_hWnd), parent_);
  if (!inPlace || list_.GetDlgCtrlID() != listId_) list_ = ListCtrlRef(::GetDlgItem(parent_, listId_));
}

grid::ViewPosition CvGrid::AskPosition() const {
  RECT first = {};
  list_.GetItemRect(0, &first, LVIR_BOUNDS);
  grid::ViewPosition asked;
  asked.firstItemLeft = first.left;
  asked.columnCount = model_.ColumnCount();
  for (int c = 0; c < asked.columnCount; ++c) asked.widths[static_cast<std::size_t>(c)] = list_.GetColumnWidth(c);
  return asked;
}

grid::CellPlace CvGrid::PlaceOf(grid::CellPosition cell) const {
  RECT item = {};
  list_.GetItemRect(cell.row, &item, LVIR_BOUNDS);
  const int left = EdgesOf(cell.column).left;
  return {place_, left, list_.GetColumnWidth(cell.column), item.top, item.bottom - item.top, scale_};
}

bool CvGrid::HasDropButton(grid::CellPosition cell) const {
  return course_.Edited() == cell && At(cell.column).combo != nullptr && EdgesOf(cell.column).left >= 0 &&
         model_.Available(cell.row, cell.column) == 0;
}

void CvGrid::PaintRow(Surface& surface, int row) const {
  RECT bounds = {};
  RECT client = {};
  list_.GetItemRect(row, &bounds, LVIR_BOUNDS);
  list_.GetClientRect(&client);
  const bool firstAvailable = model_.Looks(row, 0).available == 0;
  const bool rowSelected = model_.ShowsSelected(row);
  for (int col = 0; col < model_.ColumnCount(); ++col) {
    const grid::ColumnEdges& column = EdgesOf(col);
    if (column.right <= client.left || column.left >= client.right) continue;
    const int button = HasDropButton({row, col}) ? os::ThisDisplay().Metric(SM_CXVSCROLL, scale_.Dpi()) : -1;
    const grid::CellState cell = {model_.Looks(row, col), firstAvailable, rowSelected, surface.SystemColours()};
    const CellPlan plan = grid::PlanCell(cell, {ToRect(bounds), column, At(col).kind, button, scale_});
    surface.SetColours(plan.colours.ink, plan.colours.paper);
    DrawCell(surface.Dc(), plan, model_.Text(row, col), At(col).drawFlags);
  }
}
