// What the user does to the entries of the current folder: new folder, rename, delete. No window is known here: the
// dialogs show the messages, the browser lists the folder again.
//
// Texts are Shift_JIS. A folder is a full path, with or without a "\" at its end. Names that the platform would take
// for something else (a path, a stream of a file, a name without its last dot, the device of a new folder's name) are
// refused before it is asked, with the message for a wrong name, and so are paths that pass kPathLimit: the list could
// not show them. The names that dialogs ask for may be kNewNameLimit characters long. Thread: the browser's.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "dlglib/filedialog/listing/file_entry.h"
#include "platform/os/os.h"

namespace filedialog {

/// How an operation ended.
struct OperationResult {
  enum class Outcome {
    Done,       ///< the folder has changed and is to be listed again
    Unchanged,  ///< there was nothing to do
    Refused,    ///< nothing has changed; the beep has sounded, and `message` is to be shown with the stop icon
    Stranded,   ///< as Refused, but the platform may have stopped half-way: the folder is to be listed again
  };
  Outcome outcome = Outcome::Done;
  std::string message;
  std::string caption;  ///< of the message box; may be empty
};

/// Whether an operation was refused, so that its message is to be shown.
[[nodiscard]] inline bool IsRefusal(OperationResult::Outcome outcome) {
  return outcome == OperationResult::Outcome::Refused || outcome == OperationResult::Outcome::Stranded;
}

/// Whether a folder can be made at a place: `folder` is what is listed there, and is empty for the computer and for
/// network places that are no folders.
[[nodiscard]] inline bool CanCreateFolder(std::string_view folder) { return !folder.empty(); }

/// Creates a folder. Never Unchanged.
[[nodiscard]] OperationResult CreateFolderIn(const os::ServiceTable& services, std::string_view folder,
                                             std::string_view name);

/// Renames an entry from the rename dialog; Unchanged when both names are the same bytes. The platform never replaces
/// an existing entry by a renamed one. Stranded for a change of letter case alone, which may take it two steps.
[[nodiscard]] OperationResult RenameEntry(const os::ServiceTable& services, std::string_view folder,
                                          std::string_view oldName, std::string_view newName);

/// Renames the entry of a row whose name was edited in the list, with the messages of that edit and an empty caption.
/// `text` is what the end of the edit gives, none when it was given up; Unchanged for that, for an empty text and for
/// the name that the entry has (NameInFolder), with which the edit is to start. Stranded as for RenameEntry.
[[nodiscard]] OperationResult CommitLabel(const os::ServiceTable& services, std::string_view folder,
                                          const FileEntry& row, std::optional<std::string_view> text);

/// What an entry is called in the folder that is listed: the whole name, however much of it the row shows, and a
/// shortcut's own name. The view lives as long as the row's texts.
[[nodiscard]] std::string_view NameInFolder(const FileEntry& row);

/// Bytes that a list of paths to be deleted may take up, its closing terminators included.
inline constexpr std::size_t kDeleteListBytes = 2'570'002;

/// The paths of `names` in their order, each with its terminator, and a second terminator behind the last. The first
/// path that would not fit ends the list.
[[nodiscard]] std::string DeleteList(std::string_view folder, std::span<const std::string_view> names);

/// Moves the named entries to the recycle bin in one operation of the platform, which asks for confirmation, shows its
/// progress above `owner` and reports its failures by itself: pumps messages. True when the folder is to be listed
/// again: on success, and when a failure has left fewer of the entries than there were. False without names.
[[nodiscard]] bool DeleteEntries(const os::ServiceTable& services, os::WindowHandle owner, std::string_view folder,
                                 std::span<const std::string_view> names);

/// The first row that shows `name`, exactly so; of a name too long to be shown, its shown part counts. None when the
/// listing does not hold it.
[[nodiscard]] std::optional<std::size_t> FindRowNamed(std::span<const FileEntry> rows, std::string_view name);

}  // namespace filedialog
