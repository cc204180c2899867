#include "dlglib/filedialog/window/CvFileList.h"

#include <algorithm>
#include <utility>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/base/edge.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/listing/entry_description.h"
#include "dlglib/filedialog/listing/row_cells.h"
#include "dlglib/filedialog/listing/row_item.h"
#include "dlglib/filedialog/listing/type_ahead.h"
#include "dlglib/filedialog/window/CvAccessiblePlace.h"
#include "dlglib/filedialog/window/CvGeometry.h"
#include "dlglib/resources/resource.h"
#include "platform/framework/exceptions.h"
#include "platform/os/display.h"

using filedialog::FileEntry;
using filedialog::ListColumn;
using filedialog::TextAlign;
using filedialog::ViewMode;

namespace {

constexpr int kLastColumn = 4;

DWORD StyleOf(ViewMode view) {
  switch (view) {
    case ViewMode::LargeIcons:
      return LVS_ICON;
    case ViewMode::SmallIcons:
      return LVS_SMALLICON;
    case ViewMode::List:
      return LVS_LIST;
    case ViewMode::Details:
    case ViewMode::Titles:
      break;
  }
  return LVS_REPORT | LVS_OWNERDRAWFIXED;
}

// Sent to itself behind what a key or a click does to the selection.
constexpr UINT kSelectionSettled = WM_APP + 3;

}  // namespace

CvFileList::CvFileList(const os::ServiceTable& services, os::Workers* workers)
    : images_(filedialog::BrowserImages::For(scale_)), painter_(*this), reader_(*this, services, workers) {}

void CvFileList::TakeControl(CWnd* dialog, std::function<void()> selected) {
  selected_ = std::move(selected);
  if (!SubclassDlgItem(IDC_FILE_LIST, dialog)) throw CResourceException();
  reader_.Begin();
}

void CvFileList::SetScale(scale::Scale scale) {
  if (scale == scale_) return;
  const scale::Scale before = std::exchange(scale_, scale);
  FetchImages();
  if (table_ != nullptr) ScaleColumns(before);
}

/// The former ones stay until the control has others.
void CvFileList::FetchImages() {
  const auto former = std::exchange(images_, filedialog::BrowserImages::ForOr(scale_, images_));
  painter_.SetScale(scale_);
  if (table_ != nullptr) ShowImages();
}

/// The report views draw their rows with the system's colours as they are; the control remembers its ground.
void CvFileList::FollowColours() {
  FetchImages();
  ::SendMessageW(m_hWnd, LVM_SETBKCOLOR, 0, static_cast<LPARAM>(::GetSysColor(COLOR_WINDOW)));
}

void CvFileList::ShowImages() {
  SetImageList(images_->Large(), LVSIL_NORMAL);
  SetImageList(images_->Small(), LVSIL_SMALL);
  if (const HeaderRef header = GetHeaderCtrl(); header.IsWindow()) header.SetImageList(images_->SortMarks());
}

/// A list view's one column is as wide as its widest name, which has another width now.
void CvFileList::ScaleColumns(scale::Scale before) {
  const std::vector<std::int32_t> widths = ColumnWidths();
  keptWidths_.resize(std::max(keptWidths_.size(), widths.size()));
  for (std::size_t column = 0; column < widths.size(); ++column) {
    SetColumnWidth(static_cast<int>(column), keptWidths_[column].Follow(widths[column], before, scale_));
  }
}

Handled CvFileList::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvFileList> kRows[] = {
      OnReflectedNotify(LVN_GETDISPINFOA, &CvFileList::OnGetRow),
      OnReflectedNotify(LVN_ODFINDITEMA, &CvFileList::OnFindRow),
      OnReflectedNotify(LVN_ITEMCHANGED, &CvFileList::OnItemChanged),
      OnReflectedNotify(LVN_ODSTATECHANGED, &CvFileList::OnRangeChanged),
      OnReflectedNotify(NM_CUSTOMDRAW, &CvFileList::OnCustomDraw),
      OnReflectedMessage(WM_DRAWITEM, &CvFileList::OnDrawRow),
      OnMessage(WM_PAINT, &CvFileList::OnPaint),
      OnMessage(CvRowReader::kAnswered, &CvFileList::OnAnswered),
      OnMessage(kSelectionSettled, &CvFileList::OnSelectionSettled),
      OnMessage(WM_KEYDOWN, &CvFileList::OnKey),
      OnMessage(WM_CHAR, &CvFileList::OnKey),
      OnMessage(WM_SETFOCUS, &CvFileList::OnFocus),
      OnMessage(WM_GETDLGCODE, &CvFileList::OnDialogCode),
      OnMessage(WM_IME_STARTCOMPOSITION, &CvFileList::OnComposition),
      OnMessage(WM_IME_ENDCOMPOSITION, &CvFileList::OnComposition),
      OnMessage(WM_KILLFOCUS, &CvFileList::OnComposition),
  };
  if (const Handled handled = notice_.RouteMessage(message)) return handled;
  if (!message.reflected) {
    if (const Handled answered = accessible_.Answer(message)) return answered;
  }
  return Route<CListCtrl>(*this, kRows, message);
}

void CvFileList::SetView(ViewMode view, std::uint32_t listStyle) {
  view_ = view;
  listColumn_ = filedialog::LeastListWidth(filedialog::RectOnScreen(*this).width());
  reader_.Rows().Show(nullptr, {});
  titles_.clear();
  filling_ = true;
  const AtScopeEnd filled([this] { filling_ = false; });
  SetItemCount(0);
  for (int column = std::min(GetHeaderCtrl().GetItemCount() - 1, kLastColumn); column >= 0; --column) {
    DeleteColumn(column);
  }
  constexpr DWORD kReplaced = LVS_TYPEMASK | LVS_SINGLESEL | LVS_OWNERDRAWFIXED;
  ModifyStyle(kReplaced, listStyle | StyleOf(view));
  ModifyStyleEx(0, WS_EX_CLIENTEDGE, SWP_FRAMECHANGED);
}

void CvFileList::ShowRows(filedialog::EntryTable* table, const filedialog::ShownListing& listing) {
  table_ = table;
  listing_ = listing;
  reader_.Rows().Show(table, listing);
  filling_ = true;
  const AtScopeEnd filled([this] { filling_ = false; });
  SetItemCount(0);
  SetImageList(images_->Large(), LVSIL_NORMAL);
  SetImageList(images_->Small(), LVSIL_SMALL);
  SetItemCount(static_cast<int>(table->size()));
  if (view_ == ViewMode::List) FitListColumn();
  ArrangeIcons();
  toldRow_.reset();
  if (!notice_.CoversRows()) accessible_.Tell(EVENT_OBJECT_REORDER, accessible::kWhole);
}

void CvFileList::FitListColumn() {
  MeasureRows();
  SetColumnWidth(0, std::max(listColumn_, painter_.WidestRow(table_->rows())));
  FitScrollBars();
}

/// Some versions of the control measure their rows when they draw them for the first time and forget a width that was
/// set before. So they draw them now, onto the single pixel of a new device context.
void CvFileList::MeasureRows() const {
  const UniqueMemoryDc unseen(::CreateCompatibleDC(nullptr));
  ::SendMessageW(m_hWnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(unseen.Get()), PRF_CLIENT);
}

/// A scroll bar that comes or goes changes the room for icons: then there is a second round.
void CvFileList::ArrangeIcons() {
  if (!ShowsIcons(view_)) return;
  int width = -1;
  for (int round = 0; round < 2 && width != ClientWidth(); ++round) {
    width = ClientWidth();
    Arrange(LVA_DEFAULT);
    FitScrollBars();
  }
}

int CvFileList::ClientWidth() const { return filedialog::ClientSizeOf(*this).width; }

/// Some versions of the control work their scroll bars out for what they showed before and look again only after a
/// pause in drawing.
void CvFileList::FitScrollBars() {
  SetRedraw(FALSE);
  SetRedraw(TRUE);
}

void CvFileList::ShowColumns(const std::vector<ListColumn>& columns) {
  int index = 0;
  for (const ListColumn& column : columns) {
    const int format = column.align == TextAlign::Right ? LVCFMT_RIGHT : LVCFMT_LEFT;
    InsertColumn(index, column.header.c_str(), format, column.widthPx);
    titles_.push_back(column.header);
    ++index;
  }
}

void CvFileList::SplitDoubleClick(MSG* message) const {
  const HeaderRef header = GetHeaderCtrl();
  if (message->message != WM_LBUTTONDBLCLK || !header.Is(message->hwnd)) return;
  HDHITTESTINFO hit{};
  hit.pt = {static_cast<short>(LOWORD(message->lParam)), static_cast<short>(HIWORD(message->lParam))};
  header.SendPointer(HDM_HITTEST, 0, &hit);
  if (hit.flags == HHT_ONHEADER) message->message = WM_LBUTTONDOWN;
}

void CvFileList::SetSortMark(int column, int direction) {
  const HeaderRef header = GetHeaderCtrl();
  header.SetImageList(images_->SortMarks());
  const int count = header.GetItemCount();
  for (int i = 0; i < count; ++i) {
    HDITEMA item{};
    item.mask = HDI_FORMAT;
    header.GetItem(i, &item);
    item.fmt = (item.fmt & ~(HDF_IMAGE | HDF_BITMAP_ON_RIGHT)) | HDF_STRING;
    if (i == column) {
      item.mask |= HDI_IMAGE;
      item.fmt |= HDF_IMAGE | HDF_BITMAP_ON_RIGHT;
      item.iImage = direction > 0 ? 0 : 1;
    }
    header.SetItem(i, &item);
  }
}

std::vector<int> CvFileList::SelectedRows() const {
  std::vector<int> rows;
  for (int row = GetNextItem(-1, LVNI_SELECTED); HasRow(row); row = GetNextItem(row, LVNI_SELECTED)) {
    if (!rows.empty() && row <= rows.back()) break;  // the list could not answer
    rows.push_back(row);
  }
  return rows;
}

void CvFileList::SelectRow(int row) {
  SetItemState(-1, 0, LVIS_SELECTED);
  SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  EnsureVisible(row, FALSE);
}

void CvFileList::FocusRow(int row) {
  SetItemState(row, LVIS_FOCUSED, LVIS_FOCUSED);
  EnsureVisible(row, FALSE);
}

filedialog::RowStates CvFileList::States() const {
  const int focused = GetNextItem(-1, LVNI_FOCUSED);
  return {SelectedRows(), HasRow(focused) ? std::optional(focused) : std::nullopt, ScrollPlace()};
}

void CvFileList::RestoreRows(const filedialog::RowStates& states) {
  {
    filling_ = true;
    const AtScopeEnd filled([this] { filling_ = false; });
    for (const int row : states.selected) SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
  }
  if (!states.selected.empty()) TellSeveral();
  if (states.focused) SetItemState(*states.focused, LVIS_FOCUSED, LVIS_FOCUSED);
  ScrollTo(states.scroll);
}

/// Pixels across; down the first row in sight, or pixels among icons. The view "list" scrolls across, by its first row.
geometry::Point CvFileList::ScrollPlace() const {
  RECT first{};
  if (!HasRow(0) || !GetItemRect(0, &first, LVIR_BOUNDS)) return {};
  if (ShowsIcons(view_)) return {-first.left, -first.top};
  return {IsReport(view_) ? -first.left : 0, GetTopIndex()};
}

void CvFileList::ScrollTo(geometry::Point place) {
  const geometry::Point now = ScrollPlace();
  const bool byRows = !ShowsIcons(view_);
  if (byRows && HasRow(0)) {
    const auto last = static_cast<int>(table_->size()) - 1;
    EnsureVisible(last, FALSE);
    EnsureVisible(std::min(place.y, last), FALSE);
  }
  const int down = byRows ? 0 : place.y - now.y;
  Send(LVM_SCROLL, static_cast<WPARAM>(place.x - now.x), static_cast<LPARAM>(down));
}

POINT CvFileList::MenuCorner() const {
  RECT row{};
  const int focused = GetNextItem(-1, LVNI_FOCUSED);
  if (focused < 0 || !GetItemRect(focused, &row, LVIR_LABEL)) GetClientRect(&row);
  POINT at{row.left, focused < 0 ? row.top : row.bottom};
  ClientToScreen(&at);
  return at;
}

std::vector<std::int32_t> CvFileList::ColumnWidths() const {
  std::vector<std::int32_t> widths;
  const int count = GetHeaderCtrl().GetItemCount();
  widths.reserve(static_cast<std::size_t>(std::max(count, 0)));
  for (int column = 0; column < count; ++column) widths.push_back(GetColumnWidth(column));
  return widths;
}

int CvFileList::ColumnSpace() const {
  const int scrollBar = os::ThisDisplay().Metric(SM_CXVSCROLL, scale_.Dpi());
  return filedialog::ColumnSpace(filedialog::RectOnScreen(*this).width(), scrollBar, scale_);
}

bool CvFileList::HasRow(int row) const {
  return table_ != nullptr && row >= 0 && static_cast<std::size_t>(row) < table_->size();
}

void CvFileList::OnGetRow(NMHDR* notification) {
  LVITEMA& item = reinterpret_cast<NMLVDISPINFOA*>(notification)->item;
  if (!HasRow(item.iItem)) return;
  const FileEntry& entry = table_->rows()[static_cast<std::size_t>(item.iItem)];
  if ((item.mask & LVIF_IMAGE) != 0) item.iImage = filedialog::ImageOf(entry.kind);
  if ((item.mask & LVIF_TEXT) == 0 || item.pszText == nullptr || item.cchTextMax <= 0) return;
  const std::string_view text = filedialog::TextOfItem(entry, item.iSubItem);
  shift_jis::CopyBounded(item.pszText, static_cast<std::size_t>(item.cchTextMax), text);
}

// Typed letters and arrow keys among icons.
LRESULT CvFileList::OnFindRow(NMHDR* notification) {
  const auto& request = *reinterpret_cast<NMLVFINDITEMA*>(notification);
  if ((request.lvfi.flags & LVFI_NEARESTXY) != 0) return FindIcon(request.lvfi.pt, request.lvfi.vkDirection);
  return request.lvfi.psz == nullptr ? -1 : FindRow(request.lvfi.psz, request.lvfi.flags, request.iStart);
}

int CvFileList::FindIcon(POINT from, UINT direction) const {
  const auto step = filedialog::IconStepOf(static_cast<int>(direction));
  return step ? filedialog::NextIcon(Icons(), filedialog::ToPoint(from), *step) : -1;
}

/// The control tells where icons lie, not how many there are in a line.
filedialog::IconGrid CvFileList::Icons() const {
  filedialog::IconGrid grid;
  grid.count = table_ == nullptr ? 0 : static_cast<int>(table_->size());
  if (grid.count == 0) return grid;
  grid.first = PlaceOf(0);
  grid.perLine = 1;
  while (grid.perLine < grid.count && PlaceOf(grid.perLine).y == grid.first.y) ++grid.perLine;
  if (grid.perLine > 1) grid.spacing.width = PlaceOf(1).x - grid.first.x;
  if (grid.perLine < grid.count) grid.spacing.height = PlaceOf(grid.perLine).y - grid.first.y;
  return grid;
}

geometry::Point CvFileList::PlaceOf(int icon) const {
  POINT place{};
  SendPointer(LVM_GETITEMPOSITION, static_cast<WPARAM>(icon), &place);
  return {place.x, place.y};
}

int CvFileList::FindRow(const std::string& text, UINT flags, int start) const {
  if (table_ == nullptr || (flags & (LVFI_STRING | LVFI_PARTIAL)) == 0) return -1;
  filedialog::NameSearch search;
  search.text = text;
  search.start = start;
  search.partial = (flags & LVFI_PARTIAL) != 0;
  search.wrap = (flags & LVFI_WRAP) != 0;
  return filedialog::FindByName(table_->rows(), search);
}

void CvFileList::OnItemChanged(NMHDR* notification) {
  selectionChanged_ = true;
  const auto& change = *reinterpret_cast<NMLISTVIEW*>(notification);
  if (filling_) return;
  TellSelection(change);
  const UINT came = change.uNewState & ~change.uOldState;
  if ((came & LVIS_FOCUSED) != 0 && !notice_.CoversRows()) TellFocus(change.iItem);
}

/// The line that stands in the place of the rows is the list's own.
void CvFileList::TellFocus(int row) {
  const bool isRow = HasRow(row) && !notice_.CoversRows();
  toldRow_.reset();
  if (!Is(::GetFocus()) || (!isRow && !notice_.CoversRows())) return;
  if (isRow && accessible_.IsHeard()) toldRow_ = ItemOf(row);
  accessible_.Tell(EVENT_OBJECT_FOCUS, isRow ? accessible::Node{row + 1, 0} : accessible::kWhole);
}

/// Of the row alone that tools have just read without them: others are read when somebody comes to them.
void CvFileList::TellLateTexts(int row) {
  if (!toldRow_ || notice_.CoversRows() || GetItemState(row, LVIS_FOCUSED) == 0 || !Is(::GetFocus())) return;
  const accessible::Item told = *std::exchange(toldRow_, ItemOf(row));
  const accessible::Node node{row + 1, 0};
  if (toldRow_->description != told.description) accessible_.Tell(EVENT_OBJECT_DESCRIPTIONCHANGE, node);
}

/// What became of the rows behind a line is told when it goes.
void CvFileList::OnNotice(const filedialog::NoticeNews& news) noexcept {
  if (news.rows) accessible_.Tell(EVENT_OBJECT_REORDER, accessible::kWhole);
  if (news.line) accessible_.Tell(EVENT_OBJECT_VALUECHANGE, accessible::kWhole);
  if (news.remark) accessible_.Tell(EVENT_OBJECT_DESCRIPTIONCHANGE, accessible::kWhole);
  if (!news.rows) return;
  edge::Guarded([this] { TellFocus(GetNextItem(-1, LVNI_FOCUSED)); });
  if (changedSeveral_ && !notice_.CoversRows()) PostMessage(kSelectionSettled);
}

/// All rows at once have no number, and those behind a line are not told one by one. That one alone is selected now
/// says all there is to say.
void CvFileList::TellSelection(const NMLISTVIEW& change) {
  if (((change.uNewState ^ change.uOldState) & LVIS_SELECTED) == 0) return;
  if (!HasRow(change.iItem) || notice_.CoversRows()) return TellSeveral();
  const bool came = (change.uNewState & LVIS_SELECTED) != 0;
  const bool only = Send(LVM_GETSELECTEDCOUNT) == 1;
  if (came && only) changedSeveral_ = false;
  const DWORD added = only ? EVENT_OBJECT_SELECTION : EVENT_OBJECT_SELECTIONADD;
  accessible_.Tell(came ? added : EVENT_OBJECT_SELECTIONREMOVE, {change.iItem + 1, 0});
}

void CvFileList::OnRangeChanged() {
  selectionChanged_ = true;
  if (!filling_) TellSeveral();
}

/// A key or a click may change several rows in two steps, of which tools are told once, behind both.
void CvFileList::TellSeveral() {
  if (!changedSeveral_) PostMessage(kSelectionSettled);
  changedSeveral_ = true;
}

void CvFileList::OnSelectionSettled() {
  if (notice_.CoversRows()) return;
  if (std::exchange(changedSeveral_, false)) accessible_.Tell(EVENT_OBJECT_SELECTIONWITHIN, accessible::kWhole);
}

LRESULT CvFileList::OnFocus(const Message& message) {
  const LifeWatch watch(*this);
  const LRESULT result = CallDefault(message);
  if (!watch.Alive()) return result;
  TellFocus(GetNextItem(-1, LVNI_FOCUSED));
  return result;
}

accessible::Item CvFileList::ItemOf(int row) const {
  const auto& entry = table_->rows()[static_cast<std::size_t>(row)];
  auto item = filedialog::RowItem(reader_.Rows().ToldDrives(), entry, listing_, titles_);
  item.states = accessible::kFocusable | accessible::kSelectable;
  if (GetItemState(row, LVIS_SELECTED) != 0) item.states |= accessible::kSelected;
  if (GetItemState(row, LVIS_FOCUSED) != 0 && Is(::GetFocus())) item.states |= accessible::kFocused;
  RECT place{};
  RECT client{};
  RECT seen{};
  GetClientRect(&client);
  if (!GetItemRect(row, &place, LVIR_BOUNDS) || ::IntersectRect(&seen, &place, &client) == FALSE) {
    item.states |= accessible::kOffScreen;
  }
  ClientToScreen(&place);
  item.place = filedialog::PlaceOf(place);
  return item;
}

std::uint64_t CvFileList::IdentityOf(int row) const {
  const auto& entry = table_->rows()[static_cast<std::size_t>(row)];
  return filedialog::IdentityOf(entry.kind, entry.path, entry.name);
}

void CvFileList::ChooseRow(int row) {
  SelectRow(row);
  if (selected_) selected_();
}

LRESULT CvFileList::OnKey(const Message& message) {
  if (composing_ && message.id == WM_KEYDOWN) return 0;  // the input method has had its look at it
  selectionChanged_ = false;
  const LifeWatch watch(*this);
  const LRESULT result = CallDefault(message);
  if (watch.Alive() && selectionChanged_ && selected_) selected_();
  return result;
}

/// Enter, Esc and Tab of a composition are none of the dialog.
LRESULT CvFileList::OnDialogCode(const Message& message) {
  const LRESULT code = CallDefault(message);
  return composing_ ? code | DLGC_WANTALLKEYS : code;
}

Handled CvFileList::OnComposition(const Message& message) {
  composing_ = message.id == WM_IME_STARTCOMPOSITION;
  return std::nullopt;
}

LRESULT CvFileList::OnDrawRow(const Message& message) {
  const auto& request = *message.Data<DRAWITEMSTRUCT>();
  const int row = static_cast<int>(request.itemID);
  if (!HasRow(row)) return TRUE;
  FileEntry& entry = table_->rows()[static_cast<std::size_t>(row)];
  reader_.Rows().Describe(static_cast<std::size_t>(row), static_cast<std::size_t>(std::max(PageRows(), 1)));
  painter_.DrawReportRow(request, filedialog::CellsOf(reader_.Rows().Drives(), entry, listing_), entry.kind);
  TellLateTexts(row);
  return TRUE;
}

Handled CvFileList::OnPaint() {
  reader_.Rows().BeginPaint();
  return std::nullopt;
}

/// Rows that are seen at a time, whole or in part.
int CvFileList::PageRows() const { return static_cast<int>(Send(LVM_GETCOUNTPERPAGE)) + 1; }

/// The list view's column ends where its widest name ends. The control wants a little more room than that and would
/// shorten this very name.
LRESULT CvFileList::OnCustomDraw(NMHDR* notification) {
  const NMCUSTOMDRAW& request = reinterpret_cast<NMLVCUSTOMDRAW*>(notification)->nmcd;
  const int row = static_cast<int>(request.dwItemSpec);
  if (view_ != ViewMode::List) return CDRF_DODEFAULT;
  if (request.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (request.dwDrawStage != CDDS_ITEMPREPAINT || !HasRow(row)) return CDRF_DODEFAULT;
  painter_.DrawListRow(request.hdc, row, table_->rows()[static_cast<std::size_t>(row)]);
  return CDRF_SKIPDEFAULT;
}
