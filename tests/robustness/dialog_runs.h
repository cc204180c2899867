// One run of each dialog of the library, from its opening to its end, played by a robot. Used with faults, on the
// scripted machine, and many times over, on the real one. Each answers whether the user got what he wanted.
#pragma once

#include <string>
#include <vector>

#include "tests/robustness/robot.h"

namespace robustness {

/// What differs between the machines.
struct Place {
  std::string keyword = "#MODEL#";
  std::string folder = "C:/data";  ///< internal form; holds a.mdl, b.mdl and the folder Sub
  std::string listFile;            ///< internal form; where a list of files is written, empty for none
  bool walksNetwork = false;       ///< a place of the network is opened, which asks for a logon
  bool deletes = false;            ///< what was made is deleted again
};

/// A request for one file, with nearly all that can be done in the browser.
[[nodiscard]] bool RunRequest(const Place& place);
/// A request for a list of files that are selected in the list.
[[nodiscard]] bool RunListRequest(const Place& place);
/// The browser as the utility opens it, with recent lists read before and written behind it.
[[nodiscard]] bool RunUtilityBrowser(const Place& place);
/// A folder is made in `folder` (real form), and the other mode renames it.
[[nodiscard]] bool RunNewFolder(const std::string& folder, const std::string& name);
[[nodiscard]] bool RunRename(const std::string& folder, const std::string& from, const std::string& to);
[[nodiscard]] bool RunLogon();
[[nodiscard]] bool RunSortConditions();
[[nodiscard]] bool RunSortQuestion();
[[nodiscard]] bool RunTitles();
/// Leaves the clipboard as it was.
[[nodiscard]] bool RunMetaChars();
/// A table is filled, edited, changed and closed, in a dialog of the framework or in a plain one.
[[nodiscard]] bool RunGrid(bool plainHost);
/// A dialog with a message zone and the toolbar.
[[nodiscard]] bool RunToolBarHost(bool plainHost);

}  // namespace robustness
