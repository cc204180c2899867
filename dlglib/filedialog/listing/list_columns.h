// The columns of the report views.
#pragma once

#include <string>
#include <vector>

#include "dlglib/base/scale.h"
#include "dlglib/filedialog/listing/shown_listing.h"
#include "dlglib/filedialog/memory/layout_record.h"

class CwModel;

namespace filedialog {

struct ListColumn {
  std::string header;  ///< Shift_JIS
  TextAlign align = TextAlign::Left;
  int widthPx = 0;  ///< on the screen, as all lengths here but the saved ones
};

/// The width that the columns share: the list window's without its vertical scroll bar and 4 pixels at 96 dpi; never
/// below 0.
[[nodiscard]] int ColumnSpace(int listWidthPx, int scrollBarWidthPx, scale::Scale scale = {});

/// The least width of the one column of the view "list", which is as wide as its widest name: a fifth of the list.
[[nodiscard]] constexpr int LeastListWidth(int listWidthPx) { return listWidthPx / 5; }

/// The columns of a listing from column 0 on. Details and single titles use the widths of `saved` only when all of them
/// are at least 1; model titles use the widths that lie with their items, each on its own; network and drives have
/// none. All other widths are shares of `spacePx` in whole pixels. A model title's header is its own text when it has
/// one, else the name from `model` (at most 256 bytes; null for none), else, when that has none, its number. Saved
/// widths are pixels at 96 dpi.
[[nodiscard]] std::vector<ListColumn> ColumnsOf(const ShownListing& listing, const LayoutRecord& saved, CwModel* model,
                                                int spacePx, scale::Scale scale = {});

}  // namespace filedialog
