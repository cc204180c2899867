// One place of the location bar, and where the browser stands.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "dlglib/filedialog/basics/entry_kind.h"
#include "platform/os/os.h"

namespace filedialog {

/// One row of the location bar. Texts and paths are Shift_JIS.
struct Place {
  bool marked = false;  ///< the fixed place that holds the current folder
  bool hidden = false;  ///< turned out to be no drive, and is shown only where one stands in it
  int level = 0;        ///< indentation
  EntryKind kind = EntryKind::Desktop;
  int index = 0;     ///< position among the fixed places; -1 for a place made ready to be shown on demand
  int sub = 0;       ///< 0 for a fixed place, k for the k-th folder of the current path
  std::string path;  ///< root of a drive, network name, folder; empty for desktop and computer
  std::string text;
  std::shared_ptr<const os::NetResource> resource;  ///< the network's own record of the place, when it came from there
};

/// Where the browser stands: a fixed place and the folders entered below it.
struct Location {
  std::size_t fixed = 0;     ///< position in the fixed places
  std::vector<Place> trail;  ///< outermost first; each has its whole path
};

}  // namespace filedialog
