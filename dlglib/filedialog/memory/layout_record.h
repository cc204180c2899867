// What the browser remembers from one run to the next, and how it lies in the registry.
//
// Every kind of file has a key of its own below HKEY_CURRENT_USER. The title columns of model files (the chosen items,
// their texts and the widths of the title view) are shared by all model kinds and always lie under the "#MODEL#" key.
// Reading trusts nothing: a value that is missing, of another type, of another size or out of range leaves its default.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/entry_kind.h"
#include "dlglib/filedialog/basics/slow_sort.h"
#include "dlglib/filedialog/basics/title_columns.h"
#include "dlglib/filedialog/basics/view_mode.h"
#include "platform/os/os.h"

namespace filedialog {

inline constexpr std::size_t kDetailColumns = 3;
inline constexpr std::size_t kPlainTitleColumns = 2;
inline constexpr int kDefaultRecentCount = 10;
inline constexpr int kMaxRecentCount = 20;

/// The remembered layout with its defaults. The position is in pixels of the screen, where it means a place; all
/// lengths are in pixels at 96 dpi, so that a layout is as large on a screen of another scale.
struct LayoutRecord {
  ViewMode view = ViewMode::Details;
  std::int32_t left = 0;  ///< left and top both 0: centre the window
  std::int32_t top = 0;
  std::int32_t width = 0;  ///< 0 or less: the template's size
  std::int32_t height = 0;
  SlowSortRule slowSort;
  TitleColumns titles;
  /// Of the title view without model titles, and of the details view; 0: automatic.
  std::array<std::int32_t, kPlainTitleColumns> plainTitleWidths = {};
  std::array<std::int32_t, kDetailColumns> detailWidths = {};
  int recentCount = kDefaultRecentCount;  ///< recent files to keep and show
  std::vector<std::string> recentFiles;   ///< most recent first, Shift_JIS
  bool whole = true;  ///< false: the registry may hold more than could be read, so this is not to replace it
};

// ---------------------------------------------------------------------------------------------------------------------
// keys

/// Where a layout is read: the fallback (an older place, never written) only when the primary key cannot be opened.
struct LayoutKeys {
  std::string primary;
  std::string fallback;
};

/// The keys of a kind: "...\Reg", a blank and the keyword; "...\Reg" and the extension with its "." (may be empty). The
/// browser gives the extension of the initial name, wildcards in it included, and that of the kind when there is none.
[[nodiscard]] LayoutKeys KindLayoutKeys(std::string_view keyword, std::string_view extension);

/// The keys of the title columns of all model kinds. `modelExtension` is that of the kind "#MODEL#"; none when no such
/// kind is known, and then ".MDL" stands for it.
[[nodiscard]] LayoutKeys TitleLayoutKeys(const std::optional<std::string>& modelExtension);

// ---------------------------------------------------------------------------------------------------------------------
// reading

/// Which key a layout came from. The numbers are those that LoadLayout has always answered.
enum class LayoutSource : int { None = -1, Fallback = 0, Primary = 1 };

/// Sets the defaults in *record and reads over them what the first of the two keys that opens holds. The width of a
/// title view counts only when the widths of all its columns (the name and one for each item that was read) are there;
/// otherwise all five are 0.
LayoutSource LoadLayout(os::Registry& registry, const LayoutKeys& keys, LayoutRecord* record);

/// LoadLayout for a model kind: the title columns come from `titleKeys` (or are the defaults), whatever the kind's own
/// key says about them. Answers for the kind's own keys. No value is read twice.
LayoutSource LoadModelLayout(os::Registry& registry, const LayoutKeys& keys, const LayoutKeys& titleKeys,
                             LayoutRecord* record);

// ---------------------------------------------------------------------------------------------------------------------
// writing

enum class LayoutPart : int { Window = 0, RecentFiles = 1 };

/// Whether the title view shows the title columns of model files or one description.
enum class TitleView { Models, Plain };

/// Where a layout is written. `titleKey` is used with TitleView::Models only; it may equal `key`.
struct LayoutTarget {
  std::string key;
  std::string titleKey;
  TitleView titles = TitleView::Plain;
};

/// Writes one part of the layout. Window: place, view, rule for slow sorts, then the widths, items and texts of the
/// title columns (Models) or the two widths of the plain title view, then the widths of the details view. RecentFiles:
/// the number to keep, and the first that many names; an empty name is left out, its number stays unused. Keys are
/// created when missing. Texts are written without a terminator. The values of a key are written all or none: when one
/// cannot be written, the key is as it was. A record that was not read whole is not written at all. Returns none when
/// the keys could be opened, else the system's text for the error (may be empty); when `target.key` cannot be opened
/// nothing is written.
std::optional<std::string> SaveLayout(os::Registry& registry, os::Session& session, const LayoutTarget& target,
                                      LayoutPart part, const LayoutRecord& record);

/// The list's columns at the moment of saving.
struct ShownColumns {
  ViewMode view = ViewMode::LargeIcons;
  ListingMode listing = ListingMode::Details;
  bool listingRunning = false;  ///< rows are being collected; the columns are not those of a finished view
  TitleView titles = TitleView::Plain;
  std::span<const std::int32_t> widths;  ///< as in LayoutRecord, from column 0 on; a missing column counts as 0
};

/// Takes over the widths that the user sees: the details view's three, the model titles' (all five are cleared first)
/// or the plain title view's two. Other views have no widths to remember, nor have the columns of a network or drive
/// listing, which are different columns in the same view.
void RecordColumnWidths(const ShownColumns& shown, LayoutRecord* record);

}  // namespace filedialog
