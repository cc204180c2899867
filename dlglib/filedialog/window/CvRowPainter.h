// CvRowPainter: draws the rows of the browser's list, icon and texts, in the report views and the view "list".
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "dlglib/base/scale.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/row_cells.h"
#include "dlglib/filedialog/window/CvBrowserImages.h"
#include "platform/framework/controls.h"

class CvRowPainter {
 public:
  /// `list` must outlive this. For 96 dpi at first. Throws CResourceException when an image is missing.
  explicit CvRowPainter(const CListCtrl& list) : list_(list), images_(filedialog::BrowserImages::For(scale_)) {}

  void SetScale(scale::Scale scale);
  /// Pixels that the view "list" needs for the widest of the names with its icon.
  [[nodiscard]] int WidestRow(const std::vector<filedialog::FileEntry>& rows) const;

  /// A row of a report view. `request`: what the control asks for; its rectangle may be narrower than the columns.
  void DrawReportRow(const DRAWITEMSTRUCT& request, const std::vector<filedialog::RowCell>& cells,
                     filedialog::EntryKind kind);
  /// A row of the view "list".
  void DrawListRow(HDC dc, int row, const filedialog::FileEntry& entry);

 private:
  void DrawIconWithin(HDC dc, const RECT& cell, filedialog::EntryKind kind);
  void DrawName(HDC dc, UINT state, const RECT& cell, int inset, std::string_view name) const;
  [[nodiscard]] UINT StateOf(int row) const;
  [[nodiscard]] RECT CellRect(const RECT& row, int column) const;

  const CListCtrl& list_;
  scale::Scale scale_;
  std::shared_ptr<filedialog::BrowserImages> images_;
};
