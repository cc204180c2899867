// What a browser remembers: its layout record, the keys under which it lies, and when it is written.
#pragma once

#include <optional>
#include <string>

#include "dlglib/filedialog/basics/file_kind.h"
#include "dlglib/filedialog/basics/window_layout.h"
#include "dlglib/filedialog/memory/layout_record.h"
#include "platform/os/os.h"

namespace filedialog {

class BrowserMemory {
 public:
  explicit BrowserMemory(const os::ServiceTable& services) : services_(services) {}

  /// Reads the layout of a kind. `modelExtension`: that of the suite's model files, none when it knows no such kind.
  /// `window`: the template's place, whose size (as in LayoutRecord) a layout without one gets. A layout that came from
  /// the older place is written to the kind's own at once.
  void Load(const FileKind& kind, const std::optional<std::string>& modelExtension, const Rect& window);

  [[nodiscard]] LayoutRecord& Layout() { return layout_; }
  [[nodiscard]] const LayoutRecord& Layout() const { return layout_; }

  /// Writes window and columns, whose lengths are those of LayoutRecord. `columns`: see RecordColumnWidths; its title
  /// view is filled in here.
  void SaveWindow(const Rect& window, ShownColumns columns);
  /// Writes the window's part of the record as it stands.
  void SaveWindow();
  void SaveRecentFiles();

 private:
  void Save(LayoutPart part);
  [[nodiscard]] TitleView Titles() const { return showsModelTitles_ ? TitleView::Models : TitleView::Plain; }

  const os::ServiceTable& services_;
  LayoutRecord layout_;
  LayoutKeys keys_;
  LayoutKeys titleKeys_;
  bool showsModelTitles_ = false;
};

}  // namespace filedialog
