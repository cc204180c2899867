// The screen of programs that are shipped.
#include "platform/os/display_windows.h"

namespace os {

Display& ThisDisplay() {
  static WindowsDisplay display;
  return display;
}

}  // namespace os
