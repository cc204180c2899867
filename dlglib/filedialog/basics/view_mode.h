// The five views of the file list.
#pragma once

namespace filedialog {

enum class ViewMode { LargeIcons, SmallIcons, Details, List, Titles };

/// Whether the rows stand in columns with headers.
[[nodiscard]] constexpr bool IsReport(ViewMode mode) { return mode == ViewMode::Details || mode == ViewMode::Titles; }

[[nodiscard]] constexpr bool ShowsIcons(ViewMode mode) {
  return mode == ViewMode::LargeIcons || mode == ViewMode::SmallIcons;
}

}  // namespace filedialog
