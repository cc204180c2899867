#include "dlglib/filedialog/browser/browser_memory.h"

#include "dlglib/filedialog/basics/kind_class.h"

namespace filedialog {

void BrowserMemory::Load(const FileKind& kind, const std::optional<std::string>& modelExtension, const Rect& window) {
  showsModelTitles_ = HasModelTitles(kind.titleClass);
  keys_ = KindLayoutKeys(kind.keyword, kind.extension);
  titleKeys_ = TitleLayoutKeys(modelExtension);
  const LayoutSource source = showsModelTitles_ ? LoadModelLayout(*services_.registry, keys_, titleKeys_, &layout_)
                                                : LoadLayout(*services_.registry, keys_, &layout_);
  if (layout_.width <= 0) layout_.width = window.width();
  if (layout_.height <= 0) layout_.height = window.height();
  if (source != LayoutSource::Fallback) return;
  Save(LayoutPart::Window);
  Save(LayoutPart::RecentFiles);
}

void BrowserMemory::SaveWindow(const Rect& window, ShownColumns columns) {
  layout_.left = window.left;
  layout_.top = window.top;
  layout_.width = window.width();
  layout_.height = window.height();
  columns.titles = Titles();
  // A view that failed half-way may be without its columns; the widths of the last one stay.
  if (!columns.widths.empty()) RecordColumnWidths(columns, &layout_);
  SaveWindow();
}

void BrowserMemory::SaveWindow() { Save(LayoutPart::Window); }

void BrowserMemory::SaveRecentFiles() { Save(LayoutPart::RecentFiles); }

void BrowserMemory::Save(LayoutPart part) {
  const LayoutTarget target{keys_.primary, titleKeys_.primary, Titles()};
  SaveLayout(*services_.registry, *services_.session, target, part, layout_);
}

}  // namespace filedialog
