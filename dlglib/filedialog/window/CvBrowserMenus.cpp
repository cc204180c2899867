#include "dlglib/filedialog/window/CvBrowserMenus.h"

#include <array>

#include "dlglib/resources/resource.h"
#include "platform/framework/exceptions.h"
#include "platform/framework/resource_module.h"

using filedialog::ViewMode;

namespace {

// In the order of the commands.
constexpr std::array kViews = {ViewMode::LargeIcons, ViewMode::SmallIcons, ViewMode::Details, ViewMode::List,
                               ViewMode::Titles};

UniqueMenu LoadPopup(int id) {
  UniqueMenu menu(::LoadMenuW(ThisModule(), reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(id))));
  if (!menu) throw CResourceException();
  return menu;
}

UINT Enabled(bool enabled) { return enabled ? MF_ENABLED : MF_GRAYED; }

}  // namespace

void CvBrowserMenus::Load() {
  views_ = LoadPopup(IDM_VIEW);
  viewsWithTitles_ = LoadPopup(IDM_VIEW_TITLE);
  entries_ = LoadPopup(IDM_ENTRY);
}

ViewMode CvBrowserMenus::ViewOf(UINT command) { return kViews.at(command - ID_VIEW_LARGE_ICONS); }

void CvBrowserMenus::RunViews(HWND dialog, POINT at, ViewMode shown, bool titles) const {
  const HMENU menu = ::GetSubMenu((titles ? viewsWithTitles_ : views_).Get(), 0);
  for (UINT id = ID_VIEW_LARGE_ICONS; id <= ID_VIEW_TITLES; ++id) {
    ::CheckMenuItem(menu, id, ViewOf(id) == shown ? MF_CHECKED : MF_UNCHECKED);
  }
  ::TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_LEFTBUTTON, at.x, at.y, 0, dialog, nullptr);
}

void CvBrowserMenus::RunEntries(HWND dialog, POINT at, const filedialog::EntryMenu& offered) const {
  const HMENU menu = ::GetSubMenu(entries_.Get(), 0);
  ::EnableMenuItem(menu, ID_ENTRY_DELETE, Enabled(offered.canDelete));
  ::EnableMenuItem(menu, ID_ENTRY_RENAME, Enabled(offered.canRename));
  ::TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_RIGHTBUTTON, at.x, at.y, 0, dialog, nullptr);
}
