// The file browser's window on the scripted machine, for a person who uses it.
#pragma once

#include <functional>

#include "tests/core/filedialog/browser/browser_machine.h"
#include "tests/windows/browser/browser_view.h"

namespace browser_test {

class BrowserTest : public BrowserMachine {
 protected:
  /// Runs the browser with `startUp_`, `initialName_` and a file buffer of `capacity_` bytes. A browser that the script
  /// leaves open is cancelled.
  Outcome Run(const std::function<void(Browser&)>& script);
};

}  // namespace browser_test
