// What the selected rows of the list amount to: the text of the name box, the menu items offered, the result of OK.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

#include "dlglib/filedialog/basics/reply.h"
#include "dlglib/filedialog/listing/file_entry.h"

namespace filedialog {

/// The names of the selected files for the name box.
struct SelectedNames {
  std::string text;       ///< the names joined by single blanks
  std::size_t count = 0;  ///< names joined; with none the name box keeps its text
};

/// Joins the names of the selected rows of kind File in their order; shortcuts and folders do not count. Joining stops
/// at the first name whose length and that of the text so far pass `capacity` - 1. The blank between does not count, so
/// the text may be `capacity` bytes long: a buffer for it holds one byte more than the capacity that it is given for.
[[nodiscard]] SelectedNames JoinSelectedNames(std::span<const FileEntry> rows, std::size_t capacity);

/// Which items of the entry menu are enabled.
struct EntryMenu {
  bool canDelete = false;
  bool canRename = false;
};

/// Decides from the kinds of the selected rows: folders, files and shortcuts to either can be deleted, and renamed when
/// only one is selected. One row of another kind forbids both.
[[nodiscard]] EntryMenu EntryMenuFor(std::span<const EntryKind> selected);

/// What OK does with two or more selected rows.
struct SelectedPaths {
  enum class Outcome {
    Accept,   ///< `text` is the result
    Refuse,   ///< the check refused a name; the dialog stays
    NoFile,   ///< none of the selected rows is a file; the dialog says so and stays
    TooLong,  ///< the result does not fit; the dialog ends as cancelled
  };
  Outcome outcome = Outcome::NoFile;
  std::string text;  ///< Accept: full real paths joined by single blanks, at most `capacity` - 1 bytes
};

/// Asked once for each path that is about to be accepted; may complete the path, and shows why it refuses.
using PathCheck = std::function<Reply<bool>(std::string* path)>;

/// Joins the paths of the selected files in their order; a shortcut to a file counts as its target, although the name
/// box does not show it. `capacity` counts the terminator.
[[nodiscard]] Reply<SelectedPaths> JoinSelectedPaths(std::span<const FileEntry> rows, std::size_t capacity,
                                                     const PathCheck& check);

}  // namespace filedialog
