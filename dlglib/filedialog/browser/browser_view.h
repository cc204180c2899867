// What the browser's presenter sees of its window: what the window shows, what it tells, and how it ends.
//
// Whatever is shown or told works on the window's own controls and comes back at once. What the window's user is asked
// is in browser_questions.h. All texts are Shift_JIS.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "dlglib/base/scale.h"
#include "dlglib/filedialog/basics/view_mode.h"
#include "dlglib/filedialog/basics/window_layout.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/kept_rows.h"
#include "dlglib/filedialog/listing/list_columns.h"
#include "dlglib/filedialog/listing/shown_listing.h"

namespace filedialog {

/// Which of the ways out of the present place are open.
struct Ways {
  bool up = false;
  bool back = false;
  bool newFolder = false;

  friend bool operator==(const Ways&, const Ways&) = default;
};

/// Texts of the two buttons; none keeps the template's.
struct ButtonTexts {
  std::optional<std::string> ok;
  std::optional<std::string> cancel;
};

/// How the dialog ends, as its callers number it.
enum class Ending : int { Chosen = 1, Cancelled = 2 };

class BrowserView {
 public:
  virtual ~BrowserView() = default;

  // ---- shows
  /// The window goes to where it belongs: from now on it may be seen.
  virtual void PutInPlace() = 0;
  virtual void ShowCaption(const std::string& caption) = 0;
  virtual void ShowButtonTexts(const ButtonTexts& texts) = 0;
  /// The rows of the location bar are others now (FileBrowser::Places).
  virtual void ShowPlaces() = 0;
  /// Texts and images of them have changed, also of a list that is open.
  virtual void ShowPlaceNames() = 0;
  virtual void ShowWays(const Ways& ways) = 0;
  /// Shows no rows and no columns, in the style of a view.
  virtual void ShowView(ViewMode view, std::uint32_t listStyle) = 0;
  virtual void ShowColumns(const std::vector<ListColumn>& columns) = 0;
  /// `table` is read until other rows are shown. No row is selected.
  virtual void ShowRows(EntryTable* table, const ShownListing& listing) = 0;
  virtual void ShowSortMark(int column, int direction) = 0;
  /// A line at the list's lower edge, until the next key or click.
  virtual void ShowRemark(const std::string& text) = 0;
  /// Selects one row only and scrolls to it, which is no selection of the user's.
  virtual void SelectRow(std::size_t row) = 0;
  /// Gives one row the keyboard's frame and scrolls to it; the selection stays.
  virtual void FocusRow(std::size_t row) = 0;
  /// Selects and frames rows and scrolls as a listing before did, which is no selection of the user's.
  virtual void RestoreRows(const RowStates& states) = 0;
  virtual void FocusList() = 0;
  /// The name box takes no more than so many characters by typing.
  virtual void LimitName(std::size_t limit) = 0;
  virtual void ShowName(const std::string& text) = 0;
  /// Shows a name that the name box also offers in its list: at its place there, or else added at the top.
  virtual void OfferName(const std::string& name) = 0;
  /// What the name box offers; its text stays.
  virtual void ShowRecentFiles(const std::vector<std::string>& files) = 0;
  virtual void ShowRecentCounts(const std::vector<std::string>& items, int selected) = 0;
  virtual void ShowKindLine(const std::string& line) = 0;
  /// Ends the edit of a name in the list as a click elsewhere does; the name comes as FileBrowser::GiveLabel. Nothing
  /// without one.
  virtual void EndLabelEdit() = 0;

  // ---- tells
  [[nodiscard]] virtual std::string Caption() const = 0;
  [[nodiscard]] virtual std::string NameText() const = 0;
  /// In the list's order.
  [[nodiscard]] virtual std::vector<int> SelectedRows() const = 0;
  /// The scale of the screen on which the window stands. Lengths that the view tells and is told are its pixels.
  [[nodiscard]] virtual scale::Scale ScreenScale() const { return {}; }
  [[nodiscard]] virtual RowStates States() const = 0;
  /// Pixels, from column 0 on; empty without columns.
  [[nodiscard]] virtual std::vector<std::int32_t> ColumnWidths() const = 0;
  /// The width that columns share, in pixels.
  [[nodiscard]] virtual int ColumnSpace() const = 0;
  /// The window on the screen.
  [[nodiscard]] virtual Rect Place() const = 0;

  // ---- long work: between the two the window shows that it works, and the user can give up
  virtual void StartWork() = 0;
  [[nodiscard]] virtual bool GoesOn() = 0;
  virtual void EndWork() noexcept = 0;

  // ---- ends
  virtual void End(Ending ending) = 0;
};

}  // namespace filedialog
