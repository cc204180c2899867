#include "dlglib/filedialog/window/CvRowPainter.h"

#include <algorithm>

#include "platform/framework/detail/text_drawing.h"
#include "platform/framework/gdi.h"

using filedialog::FileEntry;
using filedialog::RowCell;
using filedialog::TextAlign;

namespace {

constexpr int kCellInset = 2;  // pixels at 96 dpi

constexpr UINT kTextStyle = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;

int TextWidth(HDC dc, std::string_view text) { return framework::ExtentOf(dc, text).cx; }

void DrawCellText(HDC dc, const RECT& cell, std::string_view text, TextAlign align, int inset) {
  RECT inner{cell.left + inset, cell.top, cell.right - inset, cell.bottom};
  if (inner.left >= inner.right) return;
  const UINT side = align == TextAlign::Right ? DT_RIGHT : DT_LEFT;
  framework::DrawSjis(dc, text, &inner, kTextStyle | side);
}

// Colours of a text and its ground, put back at the end of the scope.
class TextColours {
 public:
  TextColours(HDC dc, int text, int ground)
      : dc_(dc), text_(::SetTextColor(dc, ::GetSysColor(text))), ground_(::SetBkColor(dc, ::GetSysColor(ground))) {}
  TextColours(const TextColours&) = delete;
  TextColours& operator=(const TextColours&) = delete;
  ~TextColours() {
    ::SetTextColor(dc_, text_);
    ::SetBkColor(dc_, ground_);
  }

 private:
  HDC dc_;
  COLORREF text_;
  COLORREF ground_;
};

}  // namespace

void CvRowPainter::SetScale(scale::Scale scale) {
  scale_ = scale;
  images_ = filedialog::BrowserImages::ForOr(scale, images_);
}

int CvRowPainter::WidestRow(const std::vector<FileEntry>& rows) const {
  const ClientDc dc(list_.m_hWnd);
  const Selected font(dc.Get(), list_.GetFont());
  int widest = 0;
  for (const FileEntry& entry : rows) widest = std::max(widest, TextWidth(dc.Get(), entry.name));
  return images_->Icons().Side() + widest;
}

void CvRowPainter::DrawReportRow(const DRAWITEMSTRUCT& request, const std::vector<RowCell>& cells,
                                 filedialog::EntryKind kind) {
  RECT row{};
  if (!list_.GetItemRect(static_cast<int>(request.itemID), &row, LVIR_BOUNDS)) return;
  const HDC dc = request.hDC;
  ::FillRect(dc, &row, ::GetSysColorBrush(COLOR_WINDOW));
  const TextColours plain(dc, COLOR_WINDOWTEXT, COLOR_WINDOW);
  const int inset = scale_.ToScreen(kCellInset);
  for (const RowCell& content : cells) {
    RECT cell = CellRect(row, content.column);
    if (content.column == 0) {
      DrawIconWithin(dc, cell, kind);
      cell.left += images_->Icons().Side();
      DrawName(dc, request.itemState, cell, inset, content.text);
      continue;
    }
    if (content.fillsBackground) ::FillRect(dc, &cell, ::GetSysColorBrush(COLOR_WINDOW));
    DrawCellText(dc, cell, content.text, content.align, inset);
  }
}

void CvRowPainter::DrawListRow(HDC dc, int row, const FileEntry& entry) {
  RECT icon{};
  RECT label{};
  if (!list_.GetItemRect(row, &icon, LVIR_ICON) || !list_.GetItemRect(row, &label, LVIR_LABEL)) return;
  DrawIconWithin(dc, icon, entry.kind);
  const int spare = label.right - label.left - TextWidth(dc, entry.name);
  DrawName(dc, StateOf(row), label, std::clamp(spare / 2, 0, scale_.ToScreen(kCellInset)), entry.name);
}

UINT CvRowPainter::StateOf(int row) const {
  UINT state = 0;
  if (list_.GetItemState(row, LVIS_SELECTED) != 0) state |= ODS_SELECTED;
  if (list_.GetItemState(row, LVIS_FOCUSED) != 0) state |= ODS_FOCUS;
  return state;
}

/// A column may be narrower than its icon.
void CvRowPainter::DrawIconWithin(HDC dc, const RECT& cell, filedialog::EntryKind kind) {
  const int side = images_->Icons().Side();
  const int top = (cell.top + cell.bottom - side) / 2;
  const int state = ::SaveDC(dc);
  ::IntersectClipRect(dc, cell.left, cell.top, cell.right, cell.bottom);
  ::DrawIconEx(dc, cell.left, top, images_->Icons().Of(kind), side, side, 0, nullptr, DI_NORMAL);
  ::RestoreDC(dc, state);
}

void CvRowPainter::DrawName(HDC dc, UINT state, const RECT& cell, int inset, std::string_view name) const {
  RECT label = cell;
  label.right = std::min<LONG>(label.right, label.left + TextWidth(dc, name) + 2 * inset);
  if (label.left >= label.right) return;
  const bool selected = (state & ODS_SELECTED) != 0;
  if (selected) ::FillRect(dc, &label, ::GetSysColorBrush(COLOR_HIGHLIGHT));
  {
    const TextColours colours(dc, selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT,
                              selected ? COLOR_HIGHLIGHT : COLOR_WINDOW);
    DrawCellText(dc, label, name, TextAlign::Left, inset);
  }
  if ((state & ODS_FOCUS) != 0 && list_.Is(::GetFocus())) ::DrawFocusRect(dc, &label);
}

RECT CvRowPainter::CellRect(const RECT& row, int column) const {
  RECT cell = row;
  for (int i = 0; i < column; ++i) cell.left += list_.GetColumnWidth(i);
  cell.right = cell.left + list_.GetColumnWidth(column);
  return cell;
}
