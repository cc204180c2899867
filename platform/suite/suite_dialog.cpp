#include "platform/suite/suite_dialog.h"

#include <commctrl.h>

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace suite {

HINSTANCE OwnModule() noexcept { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

void RegisterControls() noexcept {
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES};
  ::InitCommonControlsEx(&classes);
}

}  // namespace suite
