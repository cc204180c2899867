// CvFileList: the browser's list of files. It shows the rows of an entry table in five views, draws the rows of the
// report views itself, and tells apart what the user selects from what a program selects.
//
// The control keeps no rows: it asks for the texts and images of those that it shows, so that a folder of 200,000
// entries opens as fast as one of 20.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dlglib/base/kept_length.h"
#include "dlglib/filedialog/basics/view_mode.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/kept_rows.h"
#include "dlglib/filedialog/listing/list_columns.h"
#include "dlglib/filedialog/listing/shown_listing.h"
#include "dlglib/filedialog/window/CvBrowserImages.h"
#include "dlglib/filedialog/window/CvListNotice.h"
#include "dlglib/filedialog/window/CvRowPainter.h"
#include "dlglib/filedialog/window/CvRowReader.h"
#include "dlglib/filedialog/window/icon_grid.h"
#include "platform/framework/controls.h"
#include "platform/framework/detail/accessible.h"
#include "platform/framework/message_map.h"

class CvFileList : public CListCtrl {
 public:
  /// Loads the images. Throws CResourceException when one is missing. `services`, `workers`: what its rows say is asked
  /// of them (CvRowReader); they must outlive this.
  CvFileList(const os::ServiceTable& services, os::Workers* workers);

  /// Makes this the object of the dialog's list. `selected` is called each time the user has changed the selection by
  /// the keyboard; clicks reach the dialog as notifications. Throws CResourceException when the dialog has no such
  /// control or there is no memory to become its object.
  void TakeControl(CWnd* dialog, std::function<void()> selected);
  /// Images, columns and distances become those of a scale. 96 dpi at first.
  void SetScale(scale::Scale scale);
  /// The user has chosen other colours.
  void FollowColours();
  /// What tells of the list to those who do not see it; borrowed, and must outlive this.
  void SpeakBy(accessible::Tree& tree) { accessible_.Begin(m_hWnd, tree); }

  /// Shows nothing, in the style of a view, with single or multiple selection.
  void SetView(filedialog::ViewMode view, std::uint32_t listStyle);
  /// Shows the rows of `table`, which must outlive them. No row is selected.
  void ShowRows(filedialog::EntryTable* table, const filedialog::ShownListing& listing);
  /// Makes the columns of a report view.
  void ShowColumns(const std::vector<filedialog::ListColumn>& columns);
  /// Puts the icons side by side, as many in a line as the list is wide. Other views stay as they are.
  void ArrangeIcons();
  /// Makes the second press of a double click on a column's title a press of its own, so that each of two quick clicks
  /// counts. A double click between two titles stays one.
  void SplitDoubleClick(MSG* message) const;
  /// Marks the column that the rows are sorted by; `direction` +1 or -1.
  void SetSortMark(int column, int direction);

  /// Rows, in the list's order.
  [[nodiscard]] std::vector<int> SelectedRows() const;
  /// Selects one row only and scrolls to it, as a program does: not reported.
  void SelectRow(int row);
  /// Gives one row the keyboard's frame and scrolls to it; the selection stays.
  void FocusRow(int row);
  /// What is selected, framed and scrolled to now.
  [[nodiscard]] filedialog::RowStates States() const;
  /// Selects, frames and scrolls as a program does. A place that the list cannot scroll to is brought as near as can
  /// be.
  void RestoreRows(const filedialog::RowStates& states);

  /// Where a menu for the focused row opens that the keyboard asks for, on the screen; the list's corner without a row.
  [[nodiscard]] POINT MenuCorner() const;

  /// Widths of the columns in pixels of the screen.
  [[nodiscard]] std::vector<std::int32_t> ColumnWidths() const;
  /// The width that columns share, in pixels of the screen.
  [[nodiscard]] int ColumnSpace() const;

  /// What it says beside its rows.
  [[nodiscard]] CvListNotice& Notice() { return notice_; }
  [[nodiscard]] const CvListNotice& Notice() const { return notice_; }
  [[nodiscard]] int RowCount() const { return table_ == nullptr ? 0 : static_cast<int>(table_->size()); }
  /// Whether an input method has a composition open over the list, whose keys are its own. What it commits looks rows
  /// up.
  [[nodiscard]] bool IsComposing() const { return composing_; }
  [[nodiscard]] bool IsForSeveral() const { return (GetStyle() & LVS_SINGLESEL) == 0; }
  /// What is said of a row.
  [[nodiscard]] accessible::Item ItemOf(int row) const;
  /// Another number for another row.
  [[nodiscard]] std::uint64_t IdentityOf(int row) const;
  /// Selects one row only, as a click does.
  void ChooseRow(int row);

  Handled RouteMessage(const Message& message) override;

 private:
  void OnGetRow(NMHDR* notification);
  LRESULT OnFindRow(NMHDR* notification);
  void OnItemChanged(NMHDR* notification);
  void OnRangeChanged();
  LRESULT OnFocus(const Message& message);
  void TellFocus(int row);
  void TellLateTexts(int row);
  void OnNotice(const filedialog::NoticeNews& news) noexcept;
  void TellSelection(const NMLISTVIEW& change);
  void TellSeveral();
  void OnSelectionSettled();
  LRESULT OnKey(const Message& message);
  LRESULT OnDialogCode(const Message& message);
  Handled OnComposition(const Message& message);
  LRESULT OnDrawRow(const Message& message);
  void OnAnswered() { reader_.OnAnswered(); }
  Handled OnPaint();
  [[nodiscard]] int PageRows() const;
  LRESULT OnCustomDraw(NMHDR* notification);

  [[nodiscard]] geometry::Point ScrollPlace() const;
  void ScrollTo(geometry::Point place);
  [[nodiscard]] bool HasRow(int row) const;
  [[nodiscard]] int FindRow(const std::string& text, UINT flags, int start) const;
  [[nodiscard]] int FindIcon(POINT from, UINT direction) const;
  [[nodiscard]] filedialog::IconGrid Icons() const;
  [[nodiscard]] geometry::Point PlaceOf(int icon) const;
  [[nodiscard]] int ClientWidth() const;
  void FitListColumn();
  void MeasureRows() const;
  void ScaleColumns(scale::Scale before);
  void FetchImages();
  void ShowImages();
  void FitScrollBars();

  scale::Scale scale_;
  std::vector<scale::KeptLength> keptWidths_;  ///< of the columns
  std::shared_ptr<filedialog::BrowserImages> images_;
  CvRowPainter painter_;
  filedialog::EntryTable* table_ = nullptr;
  filedialog::ShownListing listing_;
  filedialog::ViewMode view_ = filedialog::ViewMode::Details;
  int listColumn_ = 0;  ///< pixels: the least width of the list view's column, as the list was when the view was set
  std::vector<std::string> titles_;  ///< of the columns
  bool selectionChanged_ = false;
  bool filling_ = false;         ///< nobody is told of single rows
  bool changedSeveral_ = false;  ///< and tools have not been told yet
  bool composing_ = false;
  std::optional<accessible::Item> toldRow_;  ///< what the row with the keyboard's frame said when tools heard of it
  AccessibleWindow accessible_;
  std::function<void()> selected_;
  CvListNotice notice_{*this, [this](const filedialog::NoticeNews& news) { OnNotice(news); }};
  CvRowReader reader_;
};
