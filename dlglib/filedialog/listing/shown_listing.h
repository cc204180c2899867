// Which listing the list shows, for the modules that say what its rows and columns look like.
#pragma once

#include <algorithm>
#include <cstddef>

#include "dlglib/filedialog/basics/entry_kind.h"
#include "dlglib/filedialog/basics/kind_class.h"
#include "dlglib/filedialog/basics/title_columns.h"

namespace filedialog {

struct ShownListing {
  ListingMode mode = ListingMode::Details;
  int titleClass = 0;   ///< of the kind
  TitleColumns titles;  ///< the chosen items; used for model files in title display
};

/// Whether the columns are those of model titles.
[[nodiscard]] inline bool ShowsModelTitles(const ShownListing& listing) {
  return listing.mode == ListingMode::Titles && HasModelTitles(listing.titleClass);
}

/// Number of chosen title items, 0 to kTitleSlots whatever the record says.
[[nodiscard]] inline std::size_t TitleCount(const ShownListing& listing) {
  return static_cast<std::size_t>(std::clamp(listing.titles.count, 0, static_cast<int>(kTitleSlots)));
}

enum class TextAlign { Left, Right };

}  // namespace filedialog
