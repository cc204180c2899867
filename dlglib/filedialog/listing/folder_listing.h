// Filling the table of rows from a folder or from the desktop.
//
// Rows are found in one pass of the suite's finder; nothing more is asked about an entry than its name, unless the
// kind's test has to read the file. Sizes, dates and titles come later, when a row is drawn.
#pragma once

#include <atomic>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <string_view>

#include "dlglib/base/encoded_text.h"
#include "dlglib/filedialog/basics/file_kind.h"
#include "dlglib/filedialog/basics/keep_going.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/file_filter.h"
#include "platform/os/lock.h"
#include "platform/os/os.h"

namespace filedialog {

/// What the finder returns, as it numbers its modes.
enum class FinderMode : int {
  Files = 0,            ///< the folder cannot be changed, so folders are of no use
  FilesAndFolders = 2,  ///< all folders too, whatever the pattern
};

/// What is looked for, and where.
struct FolderSearch {
  std::string_view folder;
  const FileKind& kind;
  FinderMode mode = FinderMode::FilesAndFolders;
  /// Made where the search is: it asks the suite what only its own thread may ask.
  FileFilter filter = FileFilter(kind);
};

/// The finder's search text: the folder without one "\" at its end, "\" and the pattern, as an internal path.
[[nodiscard]] EucText SearchPath(std::string_view folder, std::string_view pattern);

/// Where a worker lists into a table that whoever waits for it may take before it has ended. A row is added with the
/// lock held and while the gate is open; nothing that may hang is done meanwhile.
struct RowGate {
  os::Lock lock;
  std::atomic<bool> isClosed = false;  ///< the rows were taken: no further one is added
  std::atomic<std::size_t> count = 0;  ///< rows so far
};

/// Empties the table and lists a folder into it in the finder's order: folders, and the files of the kind. The finder
/// is started exactly once. Entries whose path passes kPathLimit are left out, as no call of the platform could open
/// them; so is everything of an empty folder name or one that passes the limit. A folder that cannot be read lists
/// empty. False when it was given up; the table then holds what had been found. Of the suite only what any thread may
/// call is used: finder, encoder, and the tests of the kinds that read the file. `files`: for long names.
bool ListFolder(os::Files& files, const FolderSearch& search, EntryTable* table, const KeepGoing& keepGoing = {},
                RowGate* gate = nullptr);

/// What was found on the desktop: its folder's rows, and behind them the shortcuts.
struct DesktopRows {
  EntryTable table;
  std::size_t plain = std::numeric_limits<std::size_t>::max();  ///< rows before the first shortcut, if so many
  bool holdsShortcutFiles = false;                              ///< the former may be the files of the latter
  /// Of targets that are given by their short names, by their paths.
  std::map<std::string, std::string, std::less<>> longNames;
};

/// Lists the desktop: its folder as ListFolder does, then the shortcuts of the desktop directory. A shortcut's row
/// bears the shortcut's name and the target's path. A target that is a folder gives a shortcut to a folder, any other,
/// be it there or not, one to a file. Left out are shortcuts that cannot be resolved, and whose target passes
/// kPathLimit or is the shortcut itself. FitShortcuts has to follow, also when it was given up.
bool ListDesktop(const os::ServiceTable& services, const FolderSearch& search, DesktopRows* found,
                 const KeepGoing& keepGoing = {}, RowGate* gate = nullptr);

/// Leaves the rows that the desktop shows: of the shortcuts to files those whose target's name matches the kind's
/// pattern. Nothing of the desktop directory is listed twice: its folders come from the former, and a shortcut that the
/// kind's pattern fits by its own name is a shortcut, not a file.
void FitShortcuts(const std::string& pattern, DesktopRows* found);

}  // namespace filedialog
