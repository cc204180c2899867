// CvBrowserMenus: the menu of the views and the menu of the entries.
#pragma once

#include "dlglib/filedialog/basics/view_mode.h"
#include "dlglib/filedialog/listing/selection_text.h"
#include "platform/framework/gdi.h"

class CvBrowserMenus {
 public:
  /// Throws CResourceException when one is missing.
  void Load();

  /// Runs a menu at a place of the screen; what is chosen comes to `dialog` as a command. Pumps messages.
  /// The views: `shown` is checked; `titles`: the kind's files have some.
  void RunViews(HWND dialog, POINT at, filedialog::ViewMode shown, bool titles) const;
  /// The entries, with the items that are offered.
  void RunEntries(HWND dialog, POINT at, const filedialog::EntryMenu& offered) const;

  /// The view of a command from ID_VIEW_LARGE_ICONS to ID_VIEW_TITLES.
  [[nodiscard]] static filedialog::ViewMode ViewOf(UINT command);

 private:
  UniqueMenu views_;
  UniqueMenu viewsWithTitles_;
  UniqueMenu entries_;
};
