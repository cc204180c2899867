// Walking from place to place, and showing what a place holds.
#include <utility>

#include "dlglib/filedialog/CvFileDialog.h"
#include "dlglib/filedialog/entry_description.h"
#include "dlglib/filedialog/folder_listing.h"
#include "dlglib/filedialog/folder_logon.h"
#include "dlglib/filedialog/folder_operations.h"
#include "dlglib/filedialog/network_listing.h"
#include "dlglib/filedialog/place_opening.h"
#include "dlglib/resources/resource.h"
#include "dlglib/utility/at_scope_end.h"
#include "platform/framework/gdi.h"
#include "platform/os/os.h"

using filedialog::HeaderAnswer;
using filedialog::HotArea;
using filedialog::ListingMode;
using filedialog::Location;
using filedialog::LocationKind;

namespace {

constexpr int kLastViewMode = 4;
constexpr int kListView = 3;

}  // namespace

// ---------------------------------------------------------------------------------------------------------------------
// ways

void CvFileDialog::OnPlaceChosen(std::optional<std::size_t> row) {
  if (row) {
    Location location = places_.LocationOfRow(*row);
    if (CanOpen(location)) {
      EnterPlace(std::move(location));
    } else {
      SetViewMode(layout_.viewMode);
    }
  }
  list_.SetFocus();
}

void CvFileDialog::OnUp() {
  if (startUp_.folderFixed) return;
  if (const auto row = places_.RowAbove()) EnterPlace(places_.LocationOfRow(*row));
  list_.SetFocus();
}

void CvFileDialog::OnBack() {
  if (startUp_.folderFixed || !history_.CanGoBack()) return;
  const filedialog::HistoryRecord& record = history_.Back();
  kind_.pattern = record.pattern;
  kind_.extension = record.extension;
  ShowName(record.name);
  places_.Enter(record.location);
  ShowPlaces();
  SetViewMode(layout_.viewMode);
  list_.SetFocus();
}

void CvFileDialog::EnterPlace(Location location) {
  places_.Enter(std::move(location));
  ShowPlaces();
  if (!history_.EndsAt(places_.current(), kind_.pattern, kind_.extension)) RecordStep();
  SetViewMode(layout_.viewMode);
}

void CvFileDialog::ShowPlaces() { locationBar_.ShowPlaces(); }

void CvFileDialog::RecordStep() {
  if (startUp_.folderFixed) return;
  history_.Record({places_.current(), NameText(), kind_.pattern, kind_.extension});
}

void CvFileDialog::EnableWays() {
  filedialog::HotAreas& areas = navigation_.Areas();
  areas.Enable(HotArea::Up, places_.currentRow() != 0 && !startUp_.folderFixed);
  areas.Enable(HotArea::Back, history_.CanGoBack() && !startUp_.folderFixed);
  areas.Enable(HotArea::NewFolder, filedialog::CanCreateFolder(places_.Folder()));
  navigation_.Show(*this);
}

/// A folder below a drive may have gone since its row was made; everything else is shown as far as it can be read.
bool CvFileDialog::CanOpen(const Location& location) const {
  if (location.trail.empty() || location.trail.back().image != filedialog::kImageFolder) return true;
  return os::Services().files->Exists(location.trail.back().path);
}

// ---------------------------------------------------------------------------------------------------------------------
// listing and views

void CvFileDialog::SetViewMode(int viewMode) {
  layout_.viewMode = viewMode;
  sortConfirmed_ = false;
  order_ = filedialog::SortOrder{};
  list_.SetView(viewMode, startUp_.listStyle);
  DoBoth([this] { ListPlace(); }, [this] { ShowView(); });
}

void CvFileDialog::ShowView() {
  ShowListing();
  EnableWays();
  list_.SetFocus();
}

/// Esc, and an exception, end the finding of rows; those found so far are the listing. Nothing of the former listing is
/// left to be acted on in the new place.
void CvFileDialog::ListPlace() {
  const WaitCursor wait;
  listingRunning_ = true;
  const AtScopeEnd over([this] { listingRunning_ = false; });
  table_.Clear();
  networkPlaces_.clear();
  switch (places_.Kind()) {
    case LocationKind::Computer:
      listing_ = ListingMode::Drives;
      return filedialog::ListDrives(places_, &table_);
    case LocationKind::Network:
      listing_ = ListingMode::Network;
      networkPlaces_ = filedialog::NetworkPlaces(places_, *this, StartEscWatch());
      return filedialog::ListPlaces(networkPlaces_, &table_);
    case LocationKind::Desktop:
    case LocationKind::Folder:
      listing_ = layout_.viewMode == filedialog::kViewTitles ? ListingMode::Titles : ListingMode::Details;
      DoBoth([this] { ListFolderRows(); }, [this] { filedialog::Sort(&table_, order_); });
  }
}

void CvFileDialog::ListFolderRows() {
  const auto finder = startUp_.folderFixed ? filedialog::FinderMode::Files : filedialog::FinderMode::FilesAndFolders;
  const std::string folder = places_.Folder();
  if (places_.Kind() == LocationKind::Desktop) {
    filedialog::ListDesktop(folder, kind_, finder, &table_, StartEscWatch());
    return;
  }
  filedialog::LogOnBeforeListing(folder, places_.Resource(), *this);
  filedialog::ListFolder(folder, kind_, finder, &table_, StartEscWatch());
}

/// To be called when the work begins: Esc that closed a dialog before it does not count.
filedialog::KeepGoing CvFileDialog::StartEscWatch() {
  escWatch_.Start(m_hWnd);
  return [this] { return !escWatch_.Pressed(); };
}

filedialog::ShownListing CvFileDialog::Listing() const { return {listing_, kind_.titleClass, layout_.titles}; }

void CvFileDialog::ShowListing() {
  const bool report = layout_.viewMode == filedialog::kViewDetails || layout_.viewMode == filedialog::kViewTitles;
  if (report) list_.ShowColumns(filedialog::ColumnsOf(Listing(), layout_, list_.ColumnSpace()));
  list_.ShowRows(&table_, Listing());
  if (report) list_.SetSortMark(0, order_.direction);
}

void CvFileDialog::OnViewMenu() {
  if (layout_.viewMode < 0 || layout_.viewMode > kLastViewMode) layout_.viewMode = kListView;
  const bool titles = filedialog::HasTitles(kind_.titleClass);
  const HMENU menu = ::GetSubMenu((titles ? viewMenuWithTitles_ : viewMenu_).Get(), 0);
  for (UINT id = ID_VIEW_LARGE_ICONS; id <= ID_VIEW_TITLES; ++id) ::CheckMenuItem(menu, id, MF_UNCHECKED);
  ::CheckMenuItem(menu, static_cast<UINT>(ID_VIEW_LARGE_ICONS + layout_.viewMode), MF_CHECKED);

  const filedialog::Rect& button = navigation_.Areas().RectOf(HotArea::View);
  POINT corner{button.left, button.bottom};
  ClientToScreen(&corner);
  const LifeWatch watch(*this);
  {
    viewMenuOpen_ = true;
    const AtScopeEnd closed([&] {
      if (watch.Alive()) viewMenuOpen_ = false;
    });
    ::TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_LEFTBUTTON, corner.x, corner.y, 0, m_hWnd, nullptr);
  }
  if (watch.Alive()) ReleaseAreas();
}

void CvFileDialog::OnViewCommand(const Message& message) {
  const int viewMode = static_cast<int>(message.ControlId()) - ID_VIEW_LARGE_ICONS;
  const LifeWatch watch(*this);
  SaveWindowLayout();
  if (viewMode == filedialog::kViewTitles && ShowsModelTitles()) EditTitles();
  if (watch.Alive()) SetViewMode(viewMode);
}

void CvFileDialog::OnHeaderClick(NMHDR* notification) {
  const int column = reinterpret_cast<NMLISTVIEW*>(notification)->iSubItem;
  filedialog::HeaderState state;
  state.viewMode = layout_.viewMode;
  state.listing = listing_;
  state.order = order_;
  state.confirmed = sortConfirmed_;
  state.sortMode = layout_.confirm;
  state.limit = layout_.modelLimit;
  state.entryCount = table_.size();
  const filedialog::HeaderClick click = filedialog::DecideHeaderClick(state, column);
  if (click.answer == HeaderAnswer::Ignore) return;
  if (click.answer == HeaderAnswer::Ask && !ConfirmSlowSort()) return;
  SortBy(click.order, column);
}

/// Esc gives the reading of rows up, and then everything stays as it was.
void CvFileDialog::SortBy(const filedialog::SortOrder& order, int column) {
  const WaitCursor wait;
  const filedialog::KeepGoing goesOn = StartEscWatch();
  if (order.key != filedialog::kSortName && !filedialog::DescribeAll(&table_, Listing(), goesOn)) return;
  filedialog::Sort(&table_, order);
  order_ = order;
  list_.ShowRows(&table_, Listing());
  list_.SetSortMark(column, order_.direction);
}
